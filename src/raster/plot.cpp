// plot.cpp - plot_dot and plot0 choose the dot's output in one place:
// PostScript, bitmap, debug trace, test trace, dot map or embosser.
#include "raster/plot.h"

#include <climits>

#include "core/diag.h"
#include "core/echo.h"
#include "core/process.h"
#include "core/run_state.h"
#include "devices/bitmap.h"
#include "devices/embosser.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"

PlotState plot_state;
[[maybe_unused]] static const int reset_listed = add_reset(reset_plot);

void reset_plot() { plot_state = PlotState(); }

// The embosser's own dot for a grid dot: an address, or a millimetre line.
static void emboss(int dx, int dy, int row, int col) {
  enter_plotter_mode();
  if (page_geom.printer == EVEREST_D) emit_everest_dot(dx, dy);
  else emit_dot_address(row, col);
}

int plot_dot(double wx, double wy, int kind) {
  transform_point(&wx, &wy);
  DotPos pos;
  if (!map_plot(wx, wy, &pos)) return 0;
  if (plot_state.pattern_on && !next_design(1)) return 1;

  if (ps.active) {
    ps_flush_page_start();
    if (dmap.in_use) {
      put_dot(pos.row, pos.col);
      return 1;
    }
    leave_plotter_mode();
    ps_plot(wx, wy, kind);
    return 1;
  }
  if (bmp.active) {
    if (dmap.in_use) put_dot(pos.row, pos.col);
    else bmp_plot(wx, wy, plot_state.dot_size);
    return 1;
  }
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      leave_plotter_mode();
      echo("   Plot %d %d %d\n", pos.dx, pos.dy, kind);
      return 1;
    case MODE_TEST:
      leave_plotter_mode();
      echo("   plot %.3f %.3f %d\n", wx, wy, kind);
      return 1;
    default:
      break;
  }
  if (kind == PATH_END) return 1;
  if (embosser.printer_output && dmap.in_use) put_dot(pos.row, pos.col);
  else if (!embosser.printer_output && !dmap.in_use) emboss(pos.dx, pos.dy, pos.row, pos.col);
  return 1;
}

int plot0(int dx, int dy) {
  const IntRect &f = page_geom.f;
  if (dx < f.x0 || dx > f.x1) {
    return put_warningf("plot0 x0: %d (%d, %d)\n", dx, f.x0, f.x1);
  }
  if (dy < f.y0 || dy > f.y1) {
    return put_warningf("plot0 y0: %d (%d, %d)\n", dy, f.y0, f.y1);
  }
  int row, col;
  dot_to_device(dx, dy, &row, &col);
  if (ps.active && !dmap.in_use) {
    // A pending page start is written instead of the dot.
    if (ps.page_start_pending) ps_flush_page_start();
    else ps_plot0(row, col);
  } else if (bmp.active && !dmap.in_use) {
    bmp_plot0(row, col);
  } else if (run_state.run_mode == MODE_DEBUG) {
    echo("   Plot %d %d 0\n", row, col);
  } else if (run_state.run_mode == MODE_TEST) {
    echo("   plot %.3f %.3f 0\n", dot_to_world_x(dx), dot_to_world_y(dy));
  } else if (dmap.in_use) {
    put_dot(row, col);
  } else {
    emboss(dx, dy, row, col);
  }
  return 1;
}

int move_to(double wx, double wy) {
  transform_point(&wx, &wy);
  DotPos pos;
  if (!map_move(wx, wy, &pos)) return 0;
  if (ps.active || bmp.active) return 1;
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      leave_plotter_mode();
      echo("   Move %d %d\n", pos.dx, pos.dy);
      return 1;
    case MODE_TEST:
      leave_plotter_mode();
      echo("   move %.3f %.3f\n", wx, wy);
      return 1;
    default:
      enter_plotter_mode();
      emit_move(pos.row, pos.col);
      return 1;
  }
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
  if (!ps.active && !bmp.active && printer == ESA600G) {
    static const int plain[3] = {3, 1, 2}, mirrored[3] = {6, 4, 5};
    code = xform.mirror_on ? mirrored[size] : plain[size];
  }
  plot_state.dot_size = code;
  int mode = run_state.run_mode;
  if (mode != MODE_NORMAL || ps.active || bmp.active || dmap.in_use) return 1;
  send_dot_size(code);
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
      if (len > DESIGN_CAPACITY) {
        return put_errorf("too long design %lld (1-%d)", len, DESIGN_CAPACITY);
      }
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
  if (ps.active) {
    if (dmap.in_use && dmap.has_dots) {
      print_dmap();
      clear_dmap();
      dmap.has_dots = 0;
    }
    if (ps.page_counter < INT_MAX) ps.page_counter++;  // `page` may have set it very high
    ps.page_start_pending = 1;
    return;
  }
  if (bmp.active) return;  // the picture is one sheet
  if (dmap.in_use && dmap.has_dots) {
    print_dmap();
    clear_dmap();
    dmap.has_dots = 0;
  }
  leave_plotter_mode();
  send_form_feed();
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
