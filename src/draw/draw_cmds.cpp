// draw_cmds.cpp - drawing commands (filled in by the drawing primitives).
#include "draw/draw_cmds.h"

int cmd_line(const Command &) { return 1; }
int cmd_hatch(const Command &) { return 1; }
int cmd_xaxis(const Command &) { return 1; }
int cmd_yaxis(const Command &) { return 1; }
int cmd_rectangle(const Command &) { return 1; }
int cmd_diamond(const Command &) { return 1; }
int cmd_box(const Command &) { return 1; }
int cmd_eraser(const Command &) { return 1; }
int cmd_polygon(const Command &) { return 1; }
int cmd_parallelogram(const Command &) { return 1; }
int cmd_arrow(const Command &) { return 1; }
int cmd_dart(const Command &) { return 1; }
int cmd_circle(const Command &) { return 1; }
int cmd_ellipse(const Command &) { return 1; }
int cmd_oval(const Command &) { return 1; }
