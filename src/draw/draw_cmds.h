// draw_cmds.h - handlers of the drawing commands: lines, hatch rows, axes, closed shapes, the eraser, arrows and darts.
#ifndef TACTO_DRAW_DRAW_CMDS_H
#define TACTO_DRAW_DRAW_CMDS_H

struct Command;

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

#endif
