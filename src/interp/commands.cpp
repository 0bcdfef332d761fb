// commands.cpp - the command table, matching, the table-driven echoes and
// dispatch. The order of the rows is the matching order: the first row whose
// significant letters match wins.
#include "interp/commands.h"

#include <cmath>
#include <cstring>
#include <string>
#include <strings.h>

#include "commands/handlers.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "geometry/winstack.h"
#include "interp/calc.h"
#include "interp/help.h"
#include "interp/macro.h"
#include "interp/nested.h"
#include "interp/readers.h"

// The interpreter's own commands: their work lies on this floor, above the
// handlers of src/commands.
static int cmd_calc(const Command &) { return calc_command(run_state.ptr); }

static int cmd_help(const Command &) {
  fputs("Enter help mode and redirect to screen\n", run_state.echo_out);
  fflush(run_state.echo_out);
  run_state.in_help = 1;
  help_browser(stackwin.stream != nullptr ? stackwin.stream : stdin);
  run_state.in_help = 0;
  return 1;
}

static int cmd_define(const Command &) { return define_macro(run_state.ptr); }

static int cmd_undefine(const Command &) { return undefine_macro(run_state.ptr); }

static int cmd_paste(const Command &) { return paste(run_state.fname0, param(1), param(2), param(3), param(4)); }

static int cmd_rpaste(const Command &) {
  return rpaste(run_state.fname0, param(1), param(2), param(3), param(4), param(5));
}

static int cmd_include(const Command &) { return paste(run_state.fname0, 0, 0, 1, 1); }

// Echo formats of the function curves: the debug form prints the six common
// values as dots, the test form every value with three decimals.
#define CURVE(word, count, dbg, tst, conv, usage) \
  {word, 3, R_READP, count, cmd_function_curve, dbg, tst, nullptr, conv, F_SKIP_CONVERT, usage}
#define D6 " %d %d %d %d %d %d"
#define F3 " %.3f"

const Command command_table[] = {
    {"log", 3, R_READP5, 0, cmd_log, "log %s\n", "log %s\n", nullptr, "", 0, "log FILE"},
    {"error", 3, R_READP5, 0, cmd_error, "error %s\n", "error %s\n", nullptr, "", 0, "error FILE"},
    {"calc", 3, R_NONE, 0, cmd_calc, nullptr, nullptr, nullptr, "", F_OWN_ASSIGNMENT, "calc EXPRESSION"},
    {"help", 3, R_NONE, 0, cmd_help, nullptr, nullptr, nullptr, "", 0, "help"},
    {"step", 3, R_NONE, 0, cmd_step, "// execute step by step\n", "// execute step by step\n", nullptr,
     "", 0, "step"},
    {"nostep", 3, R_NONE, 0, cmd_nostep, "// execute by no step\n", "// execute by no step\n", nullptr,
     "", 0, "nostep"},
    {"alarm", 3, R_READP, 1, cmd_alarm, nullptr, nullptr, nullptr, "-", 0, "alarm LEVEL"},
    {"begin", 3, R_NONE, 0, cmd_begin, "%sbegin\n", "%sbegin\n", nullptr, "", 0, "begin"},
    {"end", 3, R_NONE, 0, cmd_end, "%send\n", "%send\n", nullptr, "", 0, "end"},
    {"design", 3, R_READP, 5, cmd_design, "%sdesign %d %d %d %d %d\n", "%sdesign %d %d %d %d %d\n",
     nullptr, "-----", 0, "design MODE ON1 OFF1 ON2 OFF2"},
    {"output", 3, R_NONE, 0, cmd_output, "output //0 to standard out\n", "output //0 to standard out\n",
     nullptr, "", 0, "output"},
    {"gap", 3, R_READP, 2, cmd_gap, "%sgap %d %3.f\n", "%sgap %d %3.f\n", nullptr, "--", 0,
     "gap FLAG MM"},
    {"scrape", 3, R_READP, 3, cmd_scrape, "%sscrape %d %d %d\n", "%sscrape %d %d %d\n", nullptr, "xy-",
     F_SKIP_CONVERT, "scrape X Y RADIUS_MM"},
    {"radian", 3, R_NONE, 0, cmd_radian, "%sradian\n", "%sradian\n", nullptr, "", 0, "radian"},
    {"degree", 3, R_NONE, 0, cmd_degree, "%sdegree\n", "%sdegree\n", nullptr, "", 0, "degree"},
    {"test", 3, R_NONE, 0, cmd_test, nullptr, nullptr, nullptr, "", 0, "test"},
    {"debug", 3, R_NONE, 0, cmd_debug, nullptr, nullptr, nullptr, "", 0, "debug"},
    {"bye", 3, R_NONE, 0, cmd_bye, nullptr, nullptr, nullptr, "", 0, "bye"},
    {"system", 3, R_NONE, 0, cmd_system, nullptr, nullptr, nullptr, "", 0, "system"},
    {"printer", 7, R_NONE, 0, cmd_printer, "%sprinter\n", "%sprinter\n", nullptr, "", 0, "printer"},
    {"plotter", 7, R_NONE, 0, cmd_plotter, "%splotter\n", "%splotter\n", nullptr, "", 0, "plotter"},
    {"wait", 3, R_NONE, 0, cmd_wait, nullptr, nullptr, nullptr, "", 0, "wait"},
    {"frame", 3, R_READP, 8, cmd_frame, "%sframe %d %d %d %d %.3f %.3f %.3f %.3f\n",
     "%sframe %d %d %d %d %.3f %.3f %.3f %.3f\n", nullptr, "--------", 0,
     "frame X0 X1 Y0 Y1 WX0 WX1 WY0 WY1"},
    {"window", 3, R_READP, 4, cmd_window, "%swindow %.3f %.3f %.3f %.3f\n",
     "%swindow %.3f %.3f %.3f %.3f\n", nullptr, "----", 0, "window WX0 WX1 WY0 WY1"},
    {"origin", 3, R_READP, 4, cmd_origin, "%sorigin %.3f %.3f %.3f %.3f\n",
     "%sorigin %.3f %.3f %.3f %.3f\n", nullptr, "----", 0, "origin OX OY BIAS_X BIAS_Y"},
    {"b5", 2, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "b5"},
    {"b4", 2, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "b4"},
    {"a4", 2, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "a4"},
    {"a3", 2, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "a3"},
    {"p8", 2, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "p8"},
    {"p10", 3, R_NONE, 0, cmd_paper, nullptr, nullptr, nullptr, "", 0, "p10"},
    {"set_printer", 3, R_READP, 2, cmd_set_printer, "%sset_printer %d %d\n", "%sset_printer %d %d\n",
     nullptr, "--", 0, "set_printer PRINTER PAPER"},
    {"fmt", 3, R_READP, 2, cmd_fmt, "%sfmt %d %d\n", "%sfmt %d %d\n", nullptr, "--", 0,
     "fmt COLUMNS ROWS"},
    {"portrait", 3, R_NONE, 0, cmd_portrait, "%sportrait: now portrait\n", "%sportrait: now portrait\n",
     nullptr, "", 0, "portrait"},
    {"landscape", 3, R_NONE, 0, cmd_landscape, "%slandscape: now landscape\n",
     "%slandscape: now landscape\n", nullptr, "", 0, "landscape"},
    {"view", 3, R_NONE, 0, cmd_view, "%sview\n", "%sview\n", nullptr, "", 0, "view"},
    {"on_off", 3, R_READP, 1, cmd_on_off, "%son_off %d\n", "%son_off %d\n", nullptr, "-", 0,
     "on_off FLAG"},
    {"move", 3, R_READP, 2, cmd_move, "%smove %d %d\n", "%smove %.3f %.3f\n", nullptr, "xy",
     F_SKIP_CONVERT, "move X Y"},
    {"plot", 3, R_READP, 3, cmd_plot, "%splot %d %d %d\n", "%splot %.3f %.3f %d\n", nullptr, "xy-",
     F_SKIP_CONVERT, "plot X Y KIND"},
    {"point", 3, R_READP, 3, cmd_point, "%spoint %d %d %d\n", "%spoint %.3f %.3f %d\n", nullptr, "xy-",
     F_SKIP_CONVERT, "point X Y KIND"},
    {"dot", 3, R_READP, 1, cmd_dot, "%sdot %d\n", "%sdot %d\n", nullptr, "-", 0, "dot SIZE"},
    {"paste", 3, R_READP4, 4, cmd_paste, "%spaste %s %.3f %.3f %.3f %.3f\n",
     "%spaste %s %.3f %.3f %.3f %.3f\n", nullptr, "----", 0, "paste FILE OX OY BIAS_X BIAS_Y"},
    {"rpaste", 3, R_READP4, 5, cmd_rpaste, "%srpaste %s %.3f %.3f %.3f %.3f %.3f\n",
     "%srpaste %s %.3f %.3f %.3f %.3f %.3f\n", nullptr, "-----", 0,
     "rpaste FILE OX OY BIAS_X BIAS_Y ANGLE"},
    {"include", 3, R_READP5, 0, cmd_include, "%sinclude %s\n", "%sinclude %s\n", nullptr, "", 0,
     "include FILE"},
    {"postscript", 3, R_READP5, 0, cmd_postscript, "%spostscript %s\n", "%spostscript %s\n", nullptr, "",
     F_SKIP_CONVERT | F_NO_STEP | F_NOT_CONVERTED, "postscript FILE"},
    {"inkprint", 3, R_READP5, 0, cmd_inkprint, "%sinkprint %s\n", "%sinkprint %s\n", nullptr, "",
     F_SKIP_CONVERT | F_NO_STEP | F_NOT_CONVERTED, "inkprint FILE"},
    {"rgbcolor", 3, R_READP, 3, cmd_rgbcolor, "%srglcolor %.3f %.3f %.3f\n", "%srglcolor %.3f %.3f %.3f\n",
     nullptr, "---", 0, "rgbcolor R G B"},
    {"cmykcolor", 3, R_READP, 4, cmd_cmykcolor, "%scmykcolor %.3f %.3f %.3f %.3f\n",
     "%scmykcolor %.3f %.3f %.3f %.3f\n", nullptr, "----", 0, "cmykcolor C M Y K"},
    {"cap", 3, R_READP, 1, cmd_cap, "%scap %d\n", "%scap %d\n", nullptr, "-", 0, "cap N"},
    {"join", 3, R_READP, 1, cmd_join, "%sjoin %d\n", "%sjoin %d\n", nullptr, "-", 0, "join N"},
    {"gray", 3, R_READP, 1, cmd_gray, "%sgray %.3f\n", "%sgray %.3f\n", nullptr, "-", 0, "gray G"},
    {"width", 3, R_READP, 1, cmd_width, "%swidth %.3f\n", "%swidth %.3f\n", nullptr, "-", 0, "width W"},
    {"esize", 3, R_READP, 1, cmd_esize, "%sesize %d // European font size\n",
     "%sesize %d // European font size\n", nullptr, "-", 0, "esize POINTS"},
    {"jsize", 3, R_READP, 1, cmd_jsize, "%sjsize %d // Japanese font size\n",
     "%sjsize %d // Japanese font size\n", nullptr, "-", 0, "jsize POINTS"},
    {"efont", 3, R_READP, 1, cmd_efont, "%sefont %d //0 European font\n", "%sefont %d //0 European font\n",
     nullptr, "-", 0, "efont N"},
    {"jfont", 3, R_READP, 1, cmd_jfont, "%sjfont %d //0 Japanese font\n", "%sjfont %d //0 Japanese font\n",
     nullptr, "-", 0, "jfont N"},
    {"document", 3, R_READP5, 0, cmd_document, "%sdocument %s\n", "%sdocument %s\n", nullptr, "", 0,
     "document FILE"},
    {"line", 3, R_READP, 5, cmd_line, "%sline %d %d %d %d %.3f\n", "%sline %.3f %.3f %.3f %.3f %.3f\n",
     nullptr, "xyxy-", F_SKIP_CONVERT, "line X0 Y0 X1 Y1 PITCH"},
    {"hatch", 3, R_READP, 5, cmd_hatch, "%shatch %d %d %d %d %d\n", "%shatch %.3f %.3f %.3f %.3f %.3f\n",
     nullptr, "xyxyX", F_SKIP_CONVERT, "hatch X0 Y0 X1 Y1 UNIT"},
    {"xaxis", 3, R_READP, 7, cmd_xaxis, "%sxaxis %d %d %d %d %d %d %.3f\n",
     "%sxaxis %.3f %.3f %.3f %.3f %.3f %d %.3f\n", nullptr, "xyxxX--", F_SKIP_CONVERT,
     "xaxis OX OY A B UNIT TICK PITCH"},
    {"yaxis", 3, R_READP, 7, cmd_yaxis, "%syaxis %d %d %d %d %d %d %.3f\n",
     "%syaxis %.3f %.3f %.3f %.3f %.3f %d %.3f\n", nullptr, "xyyyY--", F_SKIP_CONVERT,
     "yaxis OX OY A B UNIT TICK PITCH"},
    {"rectangle", 3, R_READP, 5, cmd_rectangle, "%srectangle %d %d %d %d %.3f\n",
     "%srectangle %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyxy-", F_SKIP_CONVERT,
     "rectangle X0 Y0 X1 Y1 PITCH"},
    {"diamond", 3, R_READP, 5, cmd_diamond, "%sdiamond %d %d %d %d %.3f\n",
     "%sdiamond %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyXY-", F_SKIP_CONVERT, "diamond CX CY A B PITCH"},
    {"box", 3, R_READP, 5, cmd_box, "%sbox %d %d %d %d %.3f\n", "%sbox %.3f %.3f %.3f %.3f %.3f\n",
     nullptr, "xyXY-", F_SKIP_CONVERT, "box CX CY A B PITCH"},
    {"eraser", 3, R_READP, 4, cmd_eraser, "%seraser %d %d %d %d\n", "%seraser %.3f %.3f %.3f %.3f\n",
     nullptr, "xyYX", F_SKIP_CONVERT, "eraser CX CY A B"},
    {"bwplot", 3, R_READP, 10, cmd_bwplot, "%sbwplot %d %d %d %d %d %d %d %d %d %.3f\n",
     "%sbwplot %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyXXXXXVY-", F_SKIP_CONVERT,
     "bwplot OX Y MIN Q1 MEDIAN Q3 MAX H L PITCH"},
    {"polygon", 3, R_READP, 5, cmd_polygon, "%spolygon %d %d %d %d %.3f\n",
     "%spolygon %d %.3f %.3f %.3f %.3f\n", nullptr, "-xyX-", F_SKIP_CONVERT, "polygon N CX CY R PITCH"},
    {"parallelogram", 3, R_READP, 6, cmd_parallelogram, "%sPARallelogram %d %d %d %d %d %.3f\n",
     "%sPARallelogram %.3f %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyXY--", F_SKIP_CONVERT,
     "parallelogram CX CY A B ANGLE PITCH"},
    {"arrow", 3, R_READP, 8, cmd_arrow, "%sarrow %d %d %d %d %.3f %.3f %d %.3f\n",
     "%sarrow %.3f %.3f %.3f %.3f %.3f %.3f %d %.3f\n", nullptr, "xyxy-X--", F_SKIP_CONVERT,
     "arrow X0 Y0 X1 Y1 ANGLE LENGTH TYPE PITCH"},
    {"dart", 3, R_READP, 8, cmd_dart, "%sdart %d %d %.3f %d %.3f %d %d %.3f\n",
     "%sdart %.3f %.3f %.3f %.3f %.3f %.3f %d %.3f\n", nullptr, "xy-X-X--", F_SKIP_CONVERT,
     "dart X0 Y0 DIRECTION LENGTH ANGLE HEAD_LENGTH TYPE PITCH"},
    {"circle", 3, R_READP, 6, cmd_circle, "%scircle %d %d %d %.3f %.3f %.3f\n",
     "%scircle %.3f %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyX---", F_SKIP_CONVERT,
     "circle CX CY R A0 A1 PITCH"},
    {"ellipse", 3, R_READP, 7, cmd_ellipse, "%sellipse %d %d %d %d %.3f %.3f %.3f\n",
     "%sellipse %2.f %.3f %.3f %.3f %.3f %.3f %.3f\n", "%sellipse %.3f %.3f %.3f %.3f %.3f %.3f %.3f\n",
     "xyXY---", F_SKIP_CONVERT, "ellipse CX CY RX RY A0 A1 PITCH"},
    {"oval", 3, R_READP, 7, cmd_oval, "%soval %d %d %d %d %d %d %.3f\n",
     "%soval %.3f %.3f %.3f %.3f %.3f %.3f %.3f\n", nullptr, "xyxyxy-", F_SKIP_CONVERT,
     "oval X0 Y0 X1 Y1 X2 Y2 PITCH"},
    CURVE("vparabola", 10, "%svparabola" D6 F3 F3 F3 F3 "\n", "%svparabola" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy----", "vparabola OX OY X0 X1 Y0 Y1 A B C PITCH"),
    CURVE("hparabola", 10, "%shparabola" D6 F3 F3 F3 F3 "\n", "%shparabola" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy----", "hparabola OX OY X0 X1 Y0 Y1 A B C PITCH"),
    CURVE("hyperbola", 11, "%shyperbola %d %d %d %d %d %d %d %d %d %d %.3f\n",
          "%shyperbola" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", "xyxxyyXYXY-",
          "hyperbola OX OY X0 X1 Y0 Y1 A B C D PITCH"),
    CURVE("normal", 11, "%snormal" D6 F3 F3 F3 F3 F3 "\n", "%snormal" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy-----", "normal OX OY X0 X1 Y0 Y1 A S M D PITCH"),
    CURVE("rhyperbola", 10, "%srhyperbola" D6 F3 F3 F3 F3 "\n",
          "%srhyperbola" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", "xyxxyy----",
          "rhyperbola OX OY X0 X1 Y0 Y1 K C D PITCH"),
    {"f1", 2, R_READP, 9, cmd_function_curve, "%sf1" D6 F3 F3 F3 "\n", "%sf1" F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
     nullptr, "xyxxyy---", F_SKIP_CONVERT, "f1 OX OY X0 X1 Y0 Y1 A B PITCH"},
    {"f2", 2, R_READP, 10, cmd_function_curve, "%sf2" D6 F3 F3 F3 F3 "\n",
     "%sf2" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", nullptr, "xyxxyy----", F_SKIP_CONVERT,
     "f2 OX OY X0 X1 Y0 Y1 A B C PITCH"},
    {"f3", 2, R_READP, 11, cmd_function_curve, "%sf3" D6 F3 F3 F3 F3 F3 "\n",
     "%sf3" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", nullptr, "xyxxyy-----", F_SKIP_CONVERT,
     "f3 OX OY X0 X1 Y0 Y1 A B C D PITCH"},
    {"f4", 2, R_READP, 12, cmd_function_curve, "%sf4" D6 F3 F3 F3 F3 F3 F3 "\n",
     "%sf4" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", nullptr, "xyxxyy------", F_SKIP_CONVERT,
     "f4 OX OY X0 X1 Y0 Y1 A B C D E PITCH"},
    {"f5", 2, R_READP, 13, cmd_function_curve, "%sf5" D6 F3 F3 F3 F3 F3 F3 F3 "\n",
     "%sf5" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", nullptr, "xyxxyy-------", F_SKIP_CONVERT,
     "f5 OX OY X0 X1 Y0 Y1 A B C D E F PITCH"},
    CURVE("sin", 11, "%ssin" D6 F3 F3 F3 F3 F3 "\n", "%ssin" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy-----", "sin OX OY X0 X1 Y0 Y1 A K P Q PITCH"),
    CURVE("cos", 11, "%scos" D6 F3 F3 F3 F3 F3 "\n", "%scos" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy-----", "cos OX OY X0 X1 Y0 Y1 A K P Q PITCH"),
    CURVE("tan", 11, "%stan %d %d %d %d %d %d %.3f %.3f %d %d %.3f\n",
          "%stan" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", "xyxxyy--XY-", "tan OX OY X0 X1 Y0 Y1 A K P Q PITCH"),
    CURVE("pow", 12, "%sPOW %d %d %d %d %d %d %.3f %.3f %.4f %.3f %.3f %.3f\n",
          "%sPOW %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.4f %.3f %.3f %.3f\n", "xyxxyy------",
          "pow OX OY X0 X1 Y0 Y1 K A B C D PITCH"),
    CURVE("exp", 11, "%sexp" D6 F3 F3 F3 F3 F3 "\n",
          "%sexp %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.4f %.3f %.3f %.3f\n", "xyxxyy-----",
          "exp OX OY X0 X1 Y0 Y1 A B C D PITCH"),
    CURVE("weibull", 13, "%sweibull %d %d %d %d %d %d %.3f %.3f %.4f %.3f %.3f %.3f %.3f\n",
          "%sweibull %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.4f %.3f %.3f %.3f %.3f\n", "xyxxyy-------",
          "weibull OX OY X0 X1 Y0 Y1 ETA M C A S D PITCH"),
    CURVE("l10", 11, "%sl10" D6 F3 F3 F3 F3 F3 "\n", "%sl10" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n",
          "xyxxyy-----", "l10 OX OY X0 X1 Y0 Y1 A K P Q PITCH"),
    {"ln", 2, R_READP, 11, cmd_function_curve, "%sln" D6 F3 F3 F3 F3 F3 "\n",
     "%sln" F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 F3 "\n", nullptr, "xyxxyy-----", F_SKIP_CONVERT,
     "ln OX OY X0 X1 Y0 Y1 A K P Q PITCH"},
    {"rotate", 3, R_READP, 4, cmd_rotate, "%srotate %d %d %d %.3f\n", "%srotate %d %.3f %.3f %.3f\n", nullptr,
     "-xy-", 0, "rotate FLAG CX CY ANGLE"},
    {"mirror", 3, R_READP, 2, cmd_mirror, "%smirror %d %.3f\n", "%smirror %d %.3f\n", nullptr, "--", 0,
     "mirror FLAG SHIFT_MM"},
    {"page", 3, R_READP, 1, cmd_page, "%spage %d\n", "%spage %d\n", nullptr, "-", 0, "page N"},
    // The data curves echo themselves, their data list included, in every mode.
    {"spline", 3, R_READP2, 8, cmd_spline, nullptr, nullptr, nullptr, "", 0,
     "spline X0 X1 Y0 Y1 KIND DX DY PITCH"},
    {"bline", 3, R_READP2, 1, cmd_bline, nullptr, nullptr, nullptr, "", 0, "bline PITCH"},
    {"cline", 3, R_READP2, 1, cmd_bline, nullptr, nullptr, nullptr, "", 0, "cline PITCH"},
    {"brl", 3, R_READP3, 2, cmd_braille, "%sbrl %d %d %s\n", "%sbrl %.3f %.3f %s\n", nullptr, "xy",
     F_SKIP_CONVERT | F_NO_STEP | F_RAW_TEXT, "brl X Y TEXT"},
    {"braille", 3, R_READP3, 2, cmd_braille, "%sbrl %d %d %s\n", "%sbrl %.3f %.3f %s\n", nullptr, "xy",
     F_SKIP_CONVERT | F_NO_STEP | F_RAW_TEXT, "braille X Y TEXT"},
    {"kana", 4, R_READP3, 2, cmd_kana, "%skana %d %d %s\n", "%skana %.3f %.3f %s\n", nullptr, "xy",
     F_SKIP_CONVERT | F_RAW_TEXT, "kana X Y TEXT"},
    {"kanjikana", 4, R_READP3, 2, cmd_kanjikana, "%skanjikana %d %d %s\n", "%skanjikana %.3f %.3f %s\n",
     nullptr, "xy", F_SKIP_CONVERT | F_RAW_TEXT, "kanjikana X Y TEXT"},
    {"alphanumeric", 3, R_READP3, 2, cmd_alphanumeric, "%salphanumeric %d %d %s\n",
     "%salphanumeric %.3f %.3f %s\n", nullptr, "xy", F_SKIP_CONVERT | F_RAW_TEXT, "alphanumeric X Y TEXT"},
    {"formfeed", 3, R_READP, 1, cmd_formfeed, "%sformfeed %d\n", "%sformfeed %d\n", nullptr, "-",
     F_SKIP_CONVERT | F_NO_STEP | F_NOT_CONVERTED, "formfeed N"},
    {"ff", 2, R_NONE, 0, cmd_ff, "%sff\n", "%sff\n", nullptr, "", F_SKIP_CONVERT | F_NO_STEP | F_NOT_CONVERTED, "ff"},
    {"version", 3, R_NONE, 0, cmd_version, "%sVersion //0 %s\n", "%sVersion //0 %s\n", nullptr, "",
     F_SKIP_CONVERT | F_NO_STEP | F_NOT_CONVERTED, "version"},
    {"define", 3, R_NONE, 0, cmd_define, "%sdefine %s\n", "%sdefine %s\n", nullptr, "", F_KEEP_WORD,
     "define WORD TEXT"},
    {"undefine", 3, R_NONE, 0, cmd_undefine, "%sundefine %s\n", "%sundefine %s\n", nullptr, "", F_KEEP_WORD,
     "undefine WORD"},
    {"esa721", 4, R_NONE, 0, cmd_select_printer, "%sesa721\n", "%sesa721\n", nullptr, "", 0, "esa721"},
    {"esa600g", 4, R_NONE, 0, cmd_select_printer, "%sesa600g\n", "%sesa600g\n", nullptr, "", 0, "esa600g"},
    {"everest-d", 4, R_NONE, 0, cmd_select_printer, "%severest-d\n", "%severest-d\n", nullptr, "", 0,
     "everest-d"},
    {"//", 2, R_NONE, 0, cmd_comment, nullptr, nullptr, nullptr, "", F_KEEP_WORD, "// COMMENT"},
    {"", 0, R_NONE, 0, cmd_empty, nullptr, nullptr, nullptr, "", F_KEEP_WORD, ""},
    {"quit", 3, R_NONE, 0, cmd_quit, "%squit\n", "%squit\n", nullptr, "", 0, "quit"},
};
const int command_count = sizeof command_table / sizeof command_table[0];

const Command *match_command(const char *word) {
  size_t len = strlen(word);
  for (const Command &cmd : command_table) {
    if (cmd.sig == 0) {
      if (len == 0) return &cmd;  // the empty line
      continue;
    }
    if (len < static_cast<size_t>(cmd.sig)) continue;
    if (strncasecmp(word, cmd.word, cmd.sig) == 0) return &cmd;
  }
  return nullptr;
}

// A parameter as the run mode shows it: dots in debug mode, unrounded grid
// positions in conversion mode, the value as read in test mode.
static double shown_value(char conv, double v, int mode) {
  if (mode == MODE_TEST) return v;
  switch (conv) {
    case 'x': return mode == MODE_DEBUG ? world_to_dot_x(v) : world_to_grid_x(v);
    case 'y': return mode == MODE_DEBUG ? world_to_dot_y(v) : world_to_grid_y(v);
    case 'X': return v * dots_per_unit_x();
    case 'Y': return v * dots_per_unit_y();
    case 'V': return fabs(v * dots_per_unit_y());
    default: return v;
  }
}

// The text a row's later "%s" stands for.
static const char *echo_text(const Command &cmd) {
  if (cmd.reader == R_READP4 || cmd.reader == R_READP5) return run_state.fname0;
  if (strcmp(cmd.word, "version") == 0) return TACTO_VERSION;
  return run_state.ptr;
}

void echo_command(const Command &cmd) {
  int mode = run_state.run_mode;
  const char *format = mode == MODE_DEBUG ? cmd.echo_debug
                       : mode == MODE_TEST ? cmd.echo_test
                       : mode == MODE_CONVERT ? (cmd.echo_convert ? cmd.echo_convert : cmd.echo_test)
                                              : nullptr;
  if (format == nullptr) return;
  std::string line;
  int index = 1;
  int first = 1;
  for (const char *f = format; *f; f++) {
    if (*f != '%') {
      line += *f;
      continue;
    }
    // Copy one conversion: flags, width, precision and the letter.
    const char *start = f++;
    while (*f && strchr("-+ #0123456789.", *f)) f++;
    if (*f == '\0') break;
    std::string conversion(start, f - start + 1);
    char buf[LINE_SIZE + 32];
    if (*f == 's') {
      const char *text = (first && start == format) ? run_state.indent : echo_text(cmd);
      snprintf(buf, sizeof buf, conversion.c_str(), text);
    } else {
      char conv = index - 1 < static_cast<int>(strlen(cmd.conv)) ? cmd.conv[index - 1] : '-';
      double v = index < PARAM_SIZE ? shown_value(conv, run_state.param[index], mode) : 0.0;
      index++;
      if (*f == 'd') snprintf(buf, sizeof buf, conversion.c_str(), trunc_int(v));
      else snprintf(buf, sizeof buf, conversion.c_str(), v);
    }
    first = 0;
    line += buf;
  }
  fputs(line.c_str(), run_state.echo_out);
  fflush(run_state.echo_out);
}

int dispatch(FILE *stream) {
  const Command *cmd = match_command(run_state.cname);
  if (cmd == nullptr) return put_error("unknown command");
  int ok = 1;
  switch (cmd->reader) {
    case R_NONE: break;
    case R_READP: ok = readp(run_state.ptr, cmd->count); break;
    case R_READP2: ok = readp2(run_state.ptr, cmd->count, stream); break;
    case R_READP3: ok = readp3(run_state.ptr, cmd->count); break;
    case R_READP4: ok = readp4(run_state.ptr, cmd->count); break;
    case R_READP5: ok = readp5(run_state.ptr); break;
  }
  if (!ok) return 0;
  if (run_state.run_mode == MODE_CONVERT && (cmd->flags & F_NOT_CONVERTED)) return 1;
  echo_command(*cmd);
  if (run_state.run_mode == MODE_CONVERT && (cmd->flags & F_SKIP_CONVERT)) return 1;
  return cmd->handler(*cmd);
}
