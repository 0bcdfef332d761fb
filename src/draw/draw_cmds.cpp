// draw_cmds.cpp - the drawing commands: each takes its numbers from the
// parameter list (the dispatcher has read and echoed them), narrows them to
// the single precision the figures work in, and draws.
#include "draw/draw_cmds.h"

#include "core/run_state.h"
#include "draw/arrows.h"
#include "draw/axes.h"
#include "draw/lines.h"
#include "draw/shapes.h"
#include "interp/commands.h"
#include "raster/dmap.h"

// Parameter i as a single-precision value / as an integer.
static float fp(int i) { return static_cast<float>(run_state.param[i]); }
static int ip(int i) { return trunc_int(run_state.param[i]); }

int cmd_line(const Command &) { return pitch_line(fp(1), fp(2), fp(3), fp(4), fp(5)); }

int cmd_hatch(const Command &) { return hatch_line(fp(1), fp(2), fp(3), fp(4), fp(5)); }

int cmd_xaxis(const Command &) { return draw_xaxis(fp(1), fp(2), fp(3), fp(4), fp(5), ip(6), fp(7)); }

int cmd_yaxis(const Command &) { return draw_yaxis(fp(1), fp(2), fp(3), fp(4), fp(5), ip(6), fp(7)); }

int cmd_rectangle(const Command &) { return draw_rectangle(fp(1), fp(2), fp(3), fp(4), fp(5)); }

int cmd_diamond(const Command &) { return draw_diamond(fp(1), fp(2), fp(3), fp(4), fp(5)); }

int cmd_box(const Command &) { return draw_box(fp(1), fp(2), fp(3), fp(4), fp(5)); }

// The rectangle is cleared in the dot map; without a map there is nothing to erase.
int cmd_eraser(const Command &) { return erase_rect(fp(1), fp(2), fp(3), fp(4)); }

int cmd_polygon(const Command &) { return draw_polygon(ip(1), fp(2), fp(3), fp(4), fp(5)); }

int cmd_parallelogram(const Command &) {
  return draw_parallelogram(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6));
}

int cmd_arrow(const Command &) {
  return draw_arrow(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6), ip(7), fp(8));
}

int cmd_dart(const Command &) {
  return draw_dart(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6), ip(7), fp(8));
}

int cmd_circle(const Command &) { return draw_circle(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6)); }

int cmd_ellipse(const Command &) {
  return draw_ellipse(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6), fp(7));
}

int cmd_oval(const Command &) { return draw_oval(fp(1), fp(2), fp(3), fp(4), fp(5), fp(6), fp(7)); }
