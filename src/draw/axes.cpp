// axes.cpp - xaxis and yaxis: one set of checks, then the dot walk (one
// walk, transposed for the y-axis) or, in ink print, stroked lines.
#include "draw/axes.h"

#include <climits>
#include <cmath>

#include "core/diag.h"
#include "devices/inkprint.h"
#include "devices/postscript.h"
#include "draw/lines.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"

// An axis in its own terms: positions along it are measured from `origin`;
// `line` is where it lies across; tick dots step `mark` across it.
struct Axis {
  int vertical;   // 0 the x-axis, 1 the y-axis
  double origin;  // ox (x-axis) or oy (y-axis)
  double line;    // oy (x-axis) or ox (y-axis)
  double mark;    // world length of one pitch across the axis, signed by the side
  int dots;       // dots per tick mark
  float pitch;
};

static void axis_dot(const Axis &ax, double along, double across) {
  float p = static_cast<float>(ax.origin + along), q = static_cast<float>(across);
  if (ax.vertical) plot_dot(q, p, PATH_DOT);
  else plot_dot(p, q, PATH_DOT);
}

// The axis line between two positions relative to the origin.
static void axis_line(const Axis &ax, double from, double to) {
  float p = static_cast<float>(ax.origin + from), q = static_cast<float>(ax.origin + to);
  float l = static_cast<float>(ax.line);
  if (ax.vertical) pitch_line(l, p, l, q, ax.pitch);
  else pitch_line(p, l, q, l, ax.pitch);
}

// A tick mark, outermost dot first; down to 1, or to 0 to include the axis dot.
static void tick_mark(const Axis &ax, double at, int last) {
  for (int i = ax.dots; i >= last; i--) axis_dot(ax, at, ax.line + i * ax.mark);
}

// Refuses an axis with more ticks than any sheet shows; 1 when it may be drawn.
static int ticks_fit(double a, double b, double unit) {
  double ticks = std::fabs((double)b - a) / unit;
  if (ticks <= AXIS_TICK_LIMIT) return 1;
  return put_errorf("too many ticks of axis (%.0f)", ticks);
}

// Walks from A to B (relative to the origin) with ticks at the multiples of unit.
static void walk_axis(const Axis &ax, double A, double B, double unit) {
  double ra = fmod(A, unit), rb = fmod(B, unit);
  if (A < B) {
    double F = A < 0 ? A - ra : A == 0 ? 0 : A + unit - ra;
    double G = B < 0 ? B - (rb + unit) : B == 0 ? 0 : B - rb;
    if (A < F) axis_line(ax, A, F);
    while (F <= G - unit) {
      tick_mark(ax, F, 1);
      axis_line(ax, F, F + unit);
      if (F + unit == F) break;  // a unit too small to move on
      F += unit;
    }
    if (G < B) {
      tick_mark(ax, G, 1);
      axis_line(ax, G, B);
    }
    if (rb == 0) tick_mark(ax, B, 0);
  } else {
    double F = A < 0 ? A - unit - ra : A == 0 ? 0 : A - ra;
    double G = B < 0 ? B - rb : B == 0 ? 0 : B + unit - rb;
    if (F < A) axis_line(ax, A, F);
    while (G + unit <= F) {
      tick_mark(ax, F, 1);
      axis_line(ax, F, F - unit);
      if (F - unit == F) break;
      F -= unit;
    }
    if (B < G) {
      tick_mark(ax, G, 1);
      axis_line(ax, G, B);
    }
    if (rb == 0) tick_mark(ax, B, 0);
    else axis_dot(ax, B, ax.line);  // the closing dot at a non-multiple end
  }
}

// Dots per tick mark: the tick count's size (kept within int).
static int tick_dots(int tick) { return tick >= 0 ? tick : tick == INT_MIN ? INT_MAX : -tick; }

// The ink-print axis: the line from a to b, and a tick |tick| x pitch mm long
// at every multiple of the unit from the origin between a and b (within the
// window unless rotated or mirrored), on the side the tick's sign gives.
static void ink_axis(int vertical, double ox, double oy, double a, double b, double unit, int tick, double pitch) {
  for (double v : {ox, oy, a, b, unit, pitch})
    if (!std::isfinite(v)) return;
  if (vertical) ink_line(ox, a, ox, b);
  else ink_line(a, oy, b, oy);
  if (tick == 0) return;

  double length_mm = std::fabs(static_cast<double>(tick)) * pitch;
  double length = vertical ? mm_to_dx(length_mm) : mm_to_dy(length_mm);
  if (tick < 0) length = -length;
  double origin = vertical ? oy : ox;
  double lo = std::fmin(a, b), hi = std::fmax(a, b);
  if (!xform.rotate_on && !xform.mirror_on) {
    // Ticks beyond the window would be cut away whole: do not count them.
    const FloatRect &w = page_geom.w;
    lo = std::fmax(lo, vertical ? w.y0 : w.x0);
    hi = std::fmin(hi, vertical ? w.y1 : w.x1);
    if (lo > hi) return;
  }
  double k0 = std::ceil((lo - origin) / unit - 1e-9);
  double k1 = std::floor((hi - origin) / unit + 1e-9);
  if (!std::isfinite(k0) || !std::isfinite(k1)) return;
  if (k1 - k0 >= AXIS_TICK_LIMIT) k1 = k0 + AXIS_TICK_LIMIT - 1;
  for (double k = k0; k <= k1; k += 1.0) {
    double at = origin + k * unit;
    if (vertical) ink_line(ox, at, ox + length, at);
    else ink_line(at, oy, at, oy + length);
  }
}

// Both axes: the checks (each axis words its own messages, and only the
// y-axis refuses a tick of 0), then the ink-print lines or the dot walk.
static int draw_axis(int vertical, float ox, float oy, float a, float b, float unit, int tick, float pitch) {
  if (a == b)
    return put_errorf(vertical ? "zero length of y-axis (%.2f-%.2f)" : "zero length of x-axis (%.2f-%.2f)", a, b);
  if (!(unit > 0)) return put_errorf(vertical ? "unit should be positive (%.2f)" : "illegal unit (%.2f)", unit);
  if (vertical && tick == 0) return put_errorf("illegal pic (%d)", tick);
  if (!(pitch > 0)) return put_errorf(vertical ? "illegal: pitch (%.2fmm)" : "illegal pitch (%.2fmm)", pitch);
  if (!ticks_fit(a, b, unit)) return 0;
  if (ink_active()) {
    ink_axis(vertical, ox, oy, a, b, unit, tick, pitch);
    return 1;
  }
  double along = vertical ? oy : ox, across = vertical ? ox : oy;
  double mark = vertical ? mm_to_dx(pitch) : mm_to_dy(pitch);
  Axis ax{vertical, along, across, tick < 0 ? -mark : mark, tick_dots(tick), pitch};
  walk_axis(ax, (double)a - along, (double)b - along, unit);
  return 1;
}

int draw_xaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch) {
  return draw_axis(0, ox, oy, a, b, unit, tick, pitch);
}

int draw_yaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch) {
  return draw_axis(1, ox, oy, a, b, unit, tick, pitch);
}
