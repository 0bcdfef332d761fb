// raster_cmds.cpp - dot commands. World coordinates are taken in single
// precision, as the window holds them, so that a value typed on the window's
// edge lies on it.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/diag.h"
#include "raster/dmap.h"
#include "raster/plot.h"

enum : int { MAX_FEEDS = 99 };  // pages one formfeed may feed

int cmd_design(const Command &) {
  return set_design(iparam(1), iparam(2), iparam(3), iparam(4), iparam(5));
}

int cmd_gap(const Command &) { return set_gap(iparam(1), param(2)); }

int cmd_scrape(const Command &) {
  scrape(fparam(1), fparam(2), param(3));
  return 1;
}

int cmd_move(const Command &) {
  move_to(fparam(1), fparam(2));
  return 1;
}

int cmd_plot(const Command &) {
  plot_dot(fparam(1), fparam(2), iparam(3));
  return 1;
}

int cmd_point(const Command &) {
  point_mark(fparam(1), fparam(2), iparam(3));
  return 1;
}

int cmd_dot(const Command &) { return set_dot_size(iparam(1)); }

int cmd_formfeed(const Command &) {
  int n = iparam(1);
  if (n == 0) return page_feed(0);
  if (n < 0 || n > MAX_FEEDS) return put_errorf("illegal formfeed %d (0-%d)", n, MAX_FEEDS);
  for (int i = 0; i < n; i++) page_feed(1);
  return 1;
}

int cmd_ff(const Command &) { return page_feed(2); }
