// lines.cpp - pitch lines and hatch rows.
#include "draw/lines.h"

#include <cmath>

#include "core/diag.h"
#include "devices/inkprint.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"

// A walk never goes this many sub-steps past its end; only coordinates that
// are not finite, which never meet the end test, ever reach the limit.
static const int WALK_SLACK = 100;

PaperScale paper_scale(const PageGeom &g) {
  double px = g.portrait ? g.pitch_h : g.pitch_v;
  double py = g.portrait ? g.pitch_v : g.pitch_h;
  PaperScale s;
  s.kx = (long double)(g.p.x1 - g.p.x0) * px;
  s.span_x = (long double)g.w.x1 - g.w.x0;
  s.ky = (long double)(g.p.y1 - g.p.y0) * py;
  s.span_y = (long double)g.w.y1 - g.w.y0;
  return s;
}

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
  const PaperScale scale = paper_scale(page_geom);
  const double p2 = (double)pitch * pitch;
  const double sx = wx * 0.0001, sy = wy * 0.0001;
  // Walking towards smaller values the bound lies a tenth of a sub-step short
  // of the end, so the final sub-step is never examined; kept so on purpose.
  const int test_x = x0 != x1, test_y = y0 != y1;
  const int up_x = x0 < x1, up_y = y0 < y1;
  const double stop_x = up_x ? x1 + 0.1 * sx : x1 - 0.1 * sx;
  const double stop_y = up_y ? y1 + 0.1 * sy : y1 - 0.1 * sy;

  plot_at(x0, y0);
  double cx = x0, cy = y0, lx = x0, ly = y0;
  for (int i = 0; i <= PITCH_LINE_STEPS + WALK_SLACK; i++) {
    if (test_x && (up_x ? cx > stop_x : cx < stop_x)) break;
    if (test_y && (up_y ? cy > stop_y : cy < stop_y)) break;
    double mx = mm_along_x(scale, cx - lx);
    double my = mm_along_y(scale, cy - ly);
    if (mx * mx + my * my >= p2) {
      plot_at(cx, cy);
      lx = cx;
      ly = cy;
    }
    cx += sx;
    cy += sy;
  }
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
