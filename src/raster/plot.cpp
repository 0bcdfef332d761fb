// plot.cpp - plot_dot and plot0 make every dot and hand it to the output
// sinks; moves, dot sizes and feeds go to them from here too.
#include "raster/plot.h"

#include "core/diag.h"
#include "core/process.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"

PlotState plot_state;

static void reset_plot() { plot_state = PlotState(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_plot);

int plot_dot(double wx, double wy, int kind) {
  transform_point(&wx, &wy);
  DotPos pos{};
  int inside = map_plot(wx, wy, &pos);  // outside the window or frame: only watching sinks see it
  if (inside && plot_state.pattern_on && !next_design(1)) return 1;
  offer_dot(SinkDot{0, wx, wy, pos.dx, pos.dy, pos.row, pos.col, kind, plot_state.dot_size, !inside});
  return inside;
}

int plot0(int dx, int dy) {
  SinkDot d{1, dot_to_world_x(dx), dot_to_world_y(dy), dx, dy, 0, 0, PATH_DOT, plot_state.dot_size, 0};
  const IntRect &f = page_geom.f;
  if (dx < f.x0 || dx > f.x1) {
    put_warningf("plot0 x0: %d (%d, %d)\n", dx, f.x0, f.x1);
    d.dropped = 1;
  } else if (dy < f.y0 || dy > f.y1) {
    put_warningf("plot0 y0: %d (%d, %d)\n", dy, f.y0, f.y1);
    d.dropped = 1;
  } else {
    dot_to_device(dx, dy, &d.row, &d.col);
  }
  offer_dot(d);
  return !d.dropped;
}

int move_to(double wx, double wy) {
  transform_point(&wx, &wy);
  DotPos pos;
  if (!map_move(wx, wy, &pos)) return 0;
  offer_move(SinkDot{0, wx, wy, pos.dx, pos.dy, pos.row, pos.col, PATH_DOT, plot_state.dot_size, 0});
  return 1;
}

int point_mark(double wx, double wy, int kind) {
  if (!snap_to_dot(&wx, &wy)) return 0;
  double arm = page_geom.printer == ESA721 ? 3 : 4;
  double arm_x = mm_to_dx(arm * pitch_x());
  double arm_y = mm_to_dy(arm * pitch_y());
  int size = plot_state.dot_size;
  int flag = dmap.gap_flag, value = dmap.gap_value;
  plot_state.dot_size = 1;
  dmap.gap_flag = 0;
  plot_dot(wx, wy - arm_y, kind);
  plot_dot(wx, wy + arm_y, kind);
  plot_dot(wx - arm_x, wy, kind);
  plot_dot(wx + arm_x, wy, kind);
  plot_state.dot_size = 2;
  plot_dot(wx, wy, kind);
  plot_state.dot_size = size;
  dmap.gap_flag = flag;
  dmap.gap_value = value;
  return 1;
}

int set_dot_size(int size) {
  int printer = page_geom.printer;
  if (printer == EVEREST_D) return 1;  // no dot sizes: any value is accepted
  if (size < 0 || size > 2) {
    if (printer == ESA721) return put_errorf("illegal dot size %d (printer 0)", size);
    if (!xform.mirror_on) return put_errorf("illegal dot size %d (printer 1, mirror 0)", size);
    return put_errorf("illegal dot size %d (printer 1, mirrer 1)", size);
  }
  int code = size;
  offer_size(&code);
  plot_state.dot_size = code;
  return 1;
}

int set_design(int mode, int on1, int off1, int on2, int off2) {
  PlotState &s = plot_state;
  switch (mode) {
    case 0:
      s.pattern_on = 0;
      s.pattern_len = 0;
      break;
    case 1: {
      if (on1 < 0 || off1 < 0 || on2 < 0 || off2 < 0) {
        return put_errorf("illegal design %d %d %d %d (0-)", on1, off1, on2, off2);
      }
      long long len = static_cast<long long>(on1) + off1 + on2 + off2;
      if (len > DESIGN_CAPACITY) return put_errorf("too long design %lld (1-%d)", len, DESIGN_CAPACITY);
      int runs[4] = {on1, off1, on2, off2}, k = 0;
      for (int i = 0; i < 4; i++)
        for (int j = 0; j < runs[i]; j++) s.pattern[k++] = (i % 2 == 0) ? 1 : 0;
      s.pattern_len = k;
      s.pattern_on = 1;
      break;
    }
    case 2:
      s.pattern_saved = s.pattern_on;
      s.pattern_on = 0;
      break;
    case 3:
      s.pattern_on = s.pattern_saved;
      break;
    default:
      return put_errorf("illegal design mode %d (0-3)", mode);
  }
  next_design(0);
  return 1;
}

int next_design(int advance) {
  PlotState &s = plot_state;
  if (!advance) {
    s.pattern_pos = 0;
    return 0;
  }
  if (s.pattern_len <= 0) return 1;  // an empty pattern skips nothing
  int v = s.pattern[s.pattern_pos];
  if (++s.pattern_pos >= s.pattern_len) s.pattern_pos = 0;
  return v;
}

// One page end: the collected page goes out first, then the feed.
static void feed_once() {
  flush_page();
  offer_feed();
}

int page_feed(int mode) {
  switch (mode) {
    case 0:
      plot_state.feeds_suppressed = 1;
      return 1;
    case 1:
      plot_state.feeds_suppressed = 0;
      feed_once();
      return 1;
    default:
      if (!plot_state.feeds_suppressed) feed_once();
      return 1;
  }
}
