// axes.cpp - xaxis and yaxis: one walk, transposed for the y-axis.
#include "draw/axes.h"

#include <climits>
#include <cmath>

#include "core/diag.h"
#include "core/run_state.h"
#include "draw/lines.h"
#include "geometry/page.h"
#include "raster/plot.h"
#include "text/ink.h"

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

// The seven values as the ink-print axis operations take them, from index 1.
static void fill_params(double *p, float ox, float oy, float a, float b, float unit, int tick,
                        float pitch) {
  p[0] = 0;
  p[1] = ox;
  p[2] = oy;
  p[3] = a;
  p[4] = b;
  p[5] = unit;
  p[6] = tick;
  p[7] = pitch;
}

int draw_xaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch) {
  if (a == b) {
    return put_errorf("zero length of x-axis (%.2f-%.2f)", a, b);
  }
  if (!(unit > 0)) {
    return put_errorf("illegal unit (%.2f)", unit);
  }
  if (!(pitch > 0)) {
    return put_errorf("illegal pitch (%.2fmm)", pitch);
  }
  if (!ticks_fit(a, b, unit)) return 0;
  if (ink_active()) {
    double p[8];
    fill_params(p, ox, oy, a, b, unit, tick, pitch);
    ink_xaxis(p);
    return 1;
  }
  double h = mm_to_dy(pitch);
  Axis ax{0, ox, oy, tick < 0 ? -h : h, tick_dots(tick), pitch};
  walk_axis(ax, (double)a - ox, (double)b - ox, unit);
  return 1;
}

int draw_yaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch) {
  if (a == b) {
    return put_errorf("zero length of y-axis (%.2f-%.2f)", a, b);
  }
  if (!(unit > 0)) {
    return put_errorf("unit should be positive (%.2f)", unit);
  }
  if (tick == 0) {
    return put_errorf("illegal pic (%d)", tick);
  }
  if (!(pitch > 0)) {
    return put_errorf("illegal: pitch (%.2fmm)", pitch);
  }
  if (!ticks_fit(a, b, unit)) return 0;
  if (ink_active()) {
    double p[8];
    fill_params(p, ox, oy, a, b, unit, tick, pitch);
    ink_yaxis(p);
    return 1;
  }
  double w = mm_to_dx(pitch);
  Axis ax{1, oy, ox, tick < 0 ? -w : w, tick_dots(tick), pitch};
  walk_axis(ax, (double)a - oy, (double)b - oy, unit);
  return 1;
}
