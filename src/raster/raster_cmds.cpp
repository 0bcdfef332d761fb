// raster_cmds.cpp - dot commands.
#include "raster/raster_cmds.h"

#include "core/diag.h"
#include "core/run_state.h"
#include "raster/dmap.h"
#include "raster/plot.h"

static const double *const P = run_state.param;

// A world coordinate as the window holds it: single precision, so that a
// value typed on the window's edge lies on it.
static float world(int i) { return static_cast<float>(P[i]); }

enum : int { MAX_FEEDS = 99 };  // pages one formfeed may feed

int cmd_design(const Command &) {
  return set_design(trunc_int(P[1]), trunc_int(P[2]), trunc_int(P[3]), trunc_int(P[4]), trunc_int(P[5]));
}

int cmd_gap(const Command &) { return set_gap(trunc_int(P[1]), P[2]); }

int cmd_scrape(const Command &) {
  scrape(world(1), world(2), P[3]);
  return 1;
}

int cmd_move(const Command &) {
  move_to(world(1), world(2));
  return 1;
}

int cmd_plot(const Command &) {
  plot_dot(world(1), world(2), trunc_int(P[3]));
  return 1;
}

int cmd_point(const Command &) {
  point_mark(world(1), world(2), trunc_int(P[3]));
  return 1;
}

int cmd_dot(const Command &) { return set_dot_size(trunc_int(P[1])); }

int cmd_formfeed(const Command &) {
  int n = trunc_int(P[1]);
  if (n == 0) return page_feed(0);
  if (n < 0 || n > MAX_FEEDS) {
    return put_errorf("illegal formfeed %d (0-%d)", n, MAX_FEEDS);
  }
  for (int i = 0; i < n; i++) page_feed(1);
  return 1;
}

int cmd_ff(const Command &) { return page_feed(2); }
