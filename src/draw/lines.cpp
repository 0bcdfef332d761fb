// lines.cpp - pitch lines and hatch rows.
#include "draw/lines.h"

#include <cmath>

#include "core/diag.h"
#include "devices/inkprint.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"

static void plot_at(double x, double y) {
  plot_dot(static_cast<float>(x), static_cast<float>(y), PATH_DOT);
}

int pitch_line(float x0, float y0, float x1, float y1, float pitch) {
  if (!(pitch > 0)) {
    return put_errorf("illegal pitch %.2f", pitch);
  }
  if (ink_active()) {
    ink_line(x0, y0, x1, y1);
    return 1;
  }
  double wx = (double)x1 - x0, wy = (double)y1 - y0;
  double length = sqrt(wx * wx + wy * wy);  // x * x is what pow(x, 2.0) gives
  if (length == 0) {
    plot_at(x0, y0);
    return 1;
  }
  walk_line_dots(x0, y0, x1, y1, pitch, paper_scale(page_geom), plot_sink, nullptr);
  return 1;
}

int hatch_line(float x0, float y0, float x1, float y1, float unit) {
  if (!(unit > 0)) {
    return put_errorf("illegal unit: %.2f > 0", unit);
  }
  double wx = (double)x1 - x0, wy = (double)y1 - y0;
  double length = sqrt(wx * wx + wy * wy);
  if (length == 0) return put_error("zero distance between two points");
  double a, b;
  direction_angles(wx, wy, length, &a, &b);
  double step_x = zero_tiny(cos(a) * unit);
  double step_y = zero_tiny(sin(b) * unit);
  // A unit so small that both steps vanish (or a segment of no finite
  // length) would never reach the end: refused like a unit of zero.
  if (!(fabs(step_x) > 0 || fabs(step_y) > 0)) {
    return put_errorf("illegal unit: %.2f > 0", unit);
  }
  // A row longer than any sheet could hold is refused rather than walked.
  if (length / unit > HATCH_LIMIT) {
    return put_errorf("too many dots in a hatch row (%.0f)", length / unit);
  }
  double cx = x0, cy = y0;
  for (;;) {
    if (x1 < x0 ? cx < x1 : static_cast<float>(cx) > x1) break;
    if (y1 < y0 ? cy < y1 : static_cast<float>(cy) > y1) break;
    plot_at(cx, cy);
    cx += step_x;
    cy += step_y;
  }
  return 1;
}
