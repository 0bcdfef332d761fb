// draw_cmds.cpp - the drawing commands: each takes its numbers from the
// parameter list (the dispatcher has read and echoed them), narrows them to
// the single precision the figures work in, and draws.
#include "commands/handlers.h"

#include "commands/command.h"
#include "draw/arrows.h"
#include "draw/axes.h"
#include "draw/lines.h"
#include "draw/shapes.h"
#include "raster/dmap.h"

int cmd_line(const Command &) { return pitch_line(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

int cmd_hatch(const Command &) { return hatch_line(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

int cmd_xaxis(const Command &) {
  return draw_xaxis(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), iparam(6), fparam(7));
}

int cmd_yaxis(const Command &) {
  return draw_yaxis(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), iparam(6), fparam(7));
}

int cmd_rectangle(const Command &) { return draw_rectangle(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

int cmd_diamond(const Command &) { return draw_diamond(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

int cmd_box(const Command &) { return draw_box(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

// The rectangle is cleared in the dot map; without a map there is nothing to erase.
int cmd_eraser(const Command &) { return erase_rect(fparam(1), fparam(2), fparam(3), fparam(4)); }

int cmd_polygon(const Command &) { return draw_polygon(iparam(1), fparam(2), fparam(3), fparam(4), fparam(5)); }

int cmd_parallelogram(const Command &) {
  return draw_parallelogram(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6));
}

int cmd_arrow(const Command &) {
  return draw_arrow(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6), iparam(7), fparam(8));
}

int cmd_dart(const Command &) {
  return draw_dart(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6), iparam(7), fparam(8));
}

int cmd_circle(const Command &) {
  return draw_circle(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6));
}

int cmd_ellipse(const Command &) {
  return draw_ellipse(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6), fparam(7));
}

int cmd_oval(const Command &) {
  return draw_oval(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6), fparam(7));
}
