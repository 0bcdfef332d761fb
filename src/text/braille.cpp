// braille.cpp - drawing a Braille line: the checks against the window and
// the frame, then either the embosser's own Braille characters or one dot
// through plot0 for every raised dot of every cell.
#include "text/braille.h"

#include <cstdio>
#include <cstring>

#include "core/diag.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"
#include "raster/plot.h"
#include "text/brltable.h"

// The ESA721 embosses Braille text itself in portrait when it receives the
// page as it is drawn: not collected for printer mode, not a trace, not a
// picture.
static int embosser_writes_text() {
  return run_state.run_mode == MODE_NORMAL && page_geom.portrait && page_geom.printer == ESA721 &&
         !dmap.printer_mode && !picture_output();
}

// The head moves to the top of the first cell, leaves graphics, and the text
// follows as characters. 0 when the point is off the grid (rotated or
// mirrored away): then nothing is sent.
static int send_text(float x, float top, const char *line) {
  if (!move_to(x, top)) return 0;
  leave_plotter_mode();
  fflush(embosser.out);
  emit(line, static_cast<int>(strlen(line)));
  return 1;
}

// Every raised dot of every cell through plot0, at dot size 1 and with the
// dash pattern suspended so that no dot of a cell is left out.
static void draw_cells(float x, float top, const char *line) {
  int saved_size = plot_state.dot_size;
  plot_state.dot_size = 1;
  set_design(2, 0, 0, 0, 0);
  int x0 = world_to_dot_x(x), y0 = world_to_dot_y(top);
  int h = gap_h(), v = gap_v(), s = gap_s();
  for (int i = 0; line[i] != '\0'; i++) {
    const BrailleCell *c = find_cell(static_cast<unsigned char>(line[i]));
    if (c == nullptr) continue;  // TAB and form feed have no cell: a blank
    int left = x0 + i * s;
    for (int k = 1; k <= 3; k++)
      if (c->pattern[k - 1] == '1') plot0(left, y0 - (k - 1) * v);
    // The right column from the bottom up: the head zigzags through the cell.
    for (int k = 6; k >= 4; k--)
      if (c->pattern[k - 1] == '1') plot0(left + h, y0 - (k - 4) * v);
  }
  set_design(3, 0, 0, 0, 0);
  plot_state.dot_size = saved_size;
}

int draw_braille(float x, float y, const char *text) {
  const PageGeom &g = page_geom;
  char line[LINE_SIZE];
  copy_text(line, LINE_SIZE, text);
  float top = static_cast<float>(y + mm_to_dy(2.0));
  // Only the left edge is tested here: the length test covers the right one.
  if (!(x >= g.w.x0)) return put_warningf("overflow %s: %.2f (%.2f-%2.f)", line, x, g.w.x0, g.w.x1);
  if (!(top >= g.w.y0 && top <= g.w.y1)) {
    return put_warningf("overflow %s: %.2f (%2.f-%2.f", line, top, g.w.y0, g.w.y1);
  }
  char *feed = strchr(line, '\n');
  if (feed != nullptr) *feed = '\0';
  long long end = static_cast<long long>(strlen(line)) * gap_s() + trunc_int(world_to_grid_x(x));
  if (end > g.f.x1) return put_warningf("too long (%s)", line);
  for (char *c = line; *c != '\0'; c++) *c = static_cast<char>(normalize_char(static_cast<unsigned char>(*c)));
  if (embosser_writes_text()) return send_text(x, top, line);
  draw_cells(x, top, line);
  return 1;
}
