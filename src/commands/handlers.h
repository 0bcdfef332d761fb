// handlers.h - the command handlers, one per command word or family, named
// cmd_ and the word. Each reads what the dispatcher has read for it
// (run_state.param from 1, ptr, fname0) and does the work; the command table
// (interp/commands.cpp) gives their usage, echoes and help lines.
#ifndef TACTO_COMMANDS_HANDLERS_H
#define TACTO_COMMANDS_HANDLERS_H

struct Command;

// run_cmds.cpp: modes, lists, step, alarm, version, system, wait, bye, quit.
int cmd_log(const Command &cmd);
int cmd_error(const Command &cmd);
int cmd_step(const Command &cmd);
int cmd_nostep(const Command &cmd);
int cmd_alarm(const Command &cmd);
int cmd_output(const Command &cmd);
int cmd_test(const Command &cmd);
int cmd_debug(const Command &cmd);
int cmd_bye(const Command &cmd);
int cmd_system(const Command &cmd);
int cmd_wait(const Command &cmd);
int cmd_version(const Command &cmd);
int cmd_comment(const Command &cmd);
int cmd_empty(const Command &cmd);
int cmd_quit(const Command &cmd);

// device_cmds.cpp: embosser jobs, printer/plotter mode, output switch, PostScript and the pen.
int cmd_begin(const Command &cmd);
int cmd_end(const Command &cmd);
int cmd_printer(const Command &cmd);
int cmd_plotter(const Command &cmd);
int cmd_on_off(const Command &cmd);
int cmd_page(const Command &cmd);
int cmd_postscript(const Command &cmd);
int cmd_inkprint(const Command &cmd);
int cmd_rgbcolor(const Command &cmd);
int cmd_cmykcolor(const Command &cmd);
int cmd_cap(const Command &cmd);
int cmd_join(const Command &cmd);
int cmd_gray(const Command &cmd);
int cmd_width(const Command &cmd);
int cmd_esize(const Command &cmd);
int cmd_jsize(const Command &cmd);
int cmd_efont(const Command &cmd);
int cmd_jfont(const Command &cmd);

// geom_cmds.cpp: papers, frame, window, origin, orientation, view, angles, rotation, mirror.
int cmd_radian(const Command &cmd);
int cmd_degree(const Command &cmd);
int cmd_frame(const Command &cmd);
int cmd_window(const Command &cmd);
int cmd_origin(const Command &cmd);
int cmd_paper(const Command &cmd);
int cmd_set_printer(const Command &cmd);
int cmd_fmt(const Command &cmd);
int cmd_portrait(const Command &cmd);
int cmd_landscape(const Command &cmd);
int cmd_view(const Command &cmd);
int cmd_rotate(const Command &cmd);
int cmd_mirror(const Command &cmd);
int cmd_select_printer(const Command &cmd);
int cmd_document(const Command &cmd);

// raster_cmds.cpp: dash pattern, gap, scrape, move, plot, point, dot size, page feeds.
int cmd_design(const Command &cmd);
int cmd_gap(const Command &cmd);
int cmd_scrape(const Command &cmd);
int cmd_move(const Command &cmd);
int cmd_plot(const Command &cmd);
int cmd_point(const Command &cmd);
int cmd_dot(const Command &cmd);
int cmd_formfeed(const Command &cmd);
int cmd_ff(const Command &cmd);

// draw_cmds.cpp: lines, hatch rows, axes, closed shapes, the eraser, arrows, darts.
int cmd_line(const Command &cmd);
int cmd_hatch(const Command &cmd);
int cmd_xaxis(const Command &cmd);
int cmd_yaxis(const Command &cmd);
int cmd_rectangle(const Command &cmd);
int cmd_diamond(const Command &cmd);
int cmd_box(const Command &cmd);
int cmd_eraser(const Command &cmd);
int cmd_polygon(const Command &cmd);
int cmd_parallelogram(const Command &cmd);
int cmd_arrow(const Command &cmd);
int cmd_dart(const Command &cmd);
int cmd_circle(const Command &cmd);
int cmd_ellipse(const Command &cmd);
int cmd_oval(const Command &cmd);

// curve_cmds.cpp: function curves, splines, broken lines, box plots.
int cmd_function_curve(const Command &cmd);
int cmd_spline(const Command &cmd);
int cmd_bline(const Command &cmd);
int cmd_bwplot(const Command &cmd);

// text_cmds.cpp: Braille text (brl/braille, kana) and ink-print text.
int cmd_braille(const Command &cmd);
int cmd_kana(const Command &cmd);
int cmd_alphanumeric(const Command &cmd);
int cmd_kanjikana(const Command &cmd);

#endif
