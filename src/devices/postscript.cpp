// postscript.cpp - the PostScript writer (placeholder until the writer lands).
#include "devices/postscript.h"

PsState ps;
void reset_postscript() { ps = PsState(); }
int ps_open(const char *, int, int) { return 0; }
void ps_close() {}
void ps_flush_page_start() {}
void ps_turn_page() {}
void ps_flush() {}
void ps_point_from_world(double, double, int *x, int *y) { *x = *y = 0; }
void ps_point_from_dot(int, int, int *x, int *y) { *x = *y = 0; }
void ps_plot(double, double, int) {}
void ps_plot0(int, int) {}
void ps_dot(int, int, int) {}
int ps_command(const char *, int) { return 0; }
