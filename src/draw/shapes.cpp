// shapes.cpp - rectangles, diamonds, boxes, parallelograms, polygons,
// circles, ellipses and ovals.
#include "draw/shapes.h"

#include <cmath>

#include "core/diag.h"
#include "draw/lines.h"
#include "draw/walk.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"

#define TACTO_TWO_PI 6.283184  // twice the program's pi

// The closed outline through count corners, the last equal to the first:
// one pitch line per edge, each starting the dash pattern afresh.
static int outline(const float *xs, const float *ys, int count, float pitch) {
  int ok = 1;
  for (int k = 1; k < count; k++) {
    next_design(0);
    if (!pitch_line(xs[k - 1], ys[k - 1], xs[k], ys[k], pitch)) ok = 0;
  }
  return ok;
}

int draw_rectangle(float x0, float y0, float x1, float y1, float pitch) {
  const float xs[5] = {x0, x0, x1, x1, x0};
  const float ys[5] = {y0, y1, y1, y0, y0};
  return outline(xs, ys, 5, pitch);
}

int draw_diamond(float cx, float cy, float a, float b, float pitch) {
  const float xs[5] = {cx - a, cx, cx + a, cx, cx - a};
  const float ys[5] = {cy, cy + b, cy, cy - b, cy};
  return outline(xs, ys, 5, pitch);
}

int draw_box(float cx, float cy, float a, float b, float pitch) {
  if (!(pitch > 0)) {
    return put_errorf("illegal: pitch (%.2fmm)", pitch);
  }
  const float xs[5] = {cx - a, cx - a, cx + a, cx + a, cx - a};
  const float ys[5] = {cy + b, cy - b, cy - b, cy + b, cy + b};
  return outline(xs, ys, 5, pitch);
}

int draw_parallelogram(float cx, float cy, float a, float b, float angle, float pitch) {
  if (!(pitch > 0)) {
    return put_errorf("illegal: pitch (%.2fmm)", pitch);
  }
  double s = b / tan(to_radian(angle));  // the top edge moves right by s, the bottom left
  const float xs[5] = {static_cast<float>(cx - a + s), static_cast<float>(cx - a - s),
                       static_cast<float>(cx + a - s), static_cast<float>(cx + a + s),
                       static_cast<float>(cx - a + s)};
  const float ys[5] = {cy + b, cy - b, cy - b, cy + b, cy + b};
  return outline(xs, ys, 5, pitch);
}

int draw_polygon(int n, float cx, float cy, float r, float pitch) {
  if (n < 3) {
    return put_errorf("few angles of polygone (%d)", n);
  }
  if (!(pitch > 0)) {
    return put_errorf("illegal: pitch (%.2f mm)", pitch);
  }
  if (!(r > 0)) {
    return put_errorf("illegal value of r (%.2f)", r);
  }
  if (n > POLYGON_LIMIT) {
    return put_errorf("too many angles of polygon (%d)", n);
  }
  float px = 0, py = 0;
  for (int k = 0; k <= n; k++) {
    double theta = 2.0 * k * TACTO_PI / n + 1.570796;
    float x = static_cast<float>(cx + r * cos(theta));
    float y = static_cast<float>(cy + r * sin(theta));
    if (k > 0) {
      next_design(0);
      pitch_line(px, py, x, y, pitch);
    }
    px = x;
    py = y;
  }
  return 1;
}

// One elliptical walk: the start with code 1, a code-2 dot whenever the
// offset from the centre has moved `pitch` on paper since the last dot, the
// end with code 3. The pitch's sign gives the direction.
static void walk_arc(ArcWalk w) {
  const int ccw = w.pitch > 0;
  if (ccw) {
    if (w.t1 < w.t0) w.t1 += TACTO_TWO_PI;
  } else if (w.t0 < w.t1) {
    w.t1 -= TACTO_TWO_PI;
  }
  walk_arc_dots(w, paper_scale(page_geom), plot_sink, nullptr);
}

// Angles whose walk could never end: not finite, so large that a step no
// longer moves them, or more turns apart than anyone draws.
static int walkable(double t0, double t1, double step) {
  return std::isfinite(t0) && std::isfinite(t1) && t0 + step != t0 && t1 + step != t1 &&
         std::fabs(t1 - t0) <= ARC_TURNS * TACTO_TWO_PI;
}

int draw_ellipse(float cx, float cy, float rx, float ry, float a0, float a1, float pitch) {
  double t0 = to_radian(a0), t1 = to_radian(a1);
  if (pitch == 0) {
    return put_errorf("illegal pitch: %.2fmm", pitch);
  }
  if (!walkable(t0, t1, ARC_STEP)) {
    return put_errorf("illegal angle: %.2f %.2f", a0, a1);
  }
  walk_arc(ArcWalk{cx, cy, rx, ry, t0, t1, ARC_STEP, pitch, 0});
  return 1;
}

int draw_circle(float cx, float cy, float r, float a0, float a1, float pitch) {
  return draw_ellipse(cx, cy, r, r, a0, a1, pitch);
}

// Direction of a point seen from the centre, from its sine.
static double direction(double dx, double dy, double d2) {
  double t = asin(dy / sqrt(d2));
  return dx < 0 ? TACTO_PI - t : t;
}

int draw_oval(float x0, float y0, float x1, float y1, float x2, float y2, float pitch) {
  double dx1 = (double)x1 - x0, dy1 = (double)y1 - y0;
  double dx2 = (double)x2 - x0, dy2 = (double)y2 - y0;
  double d1 = dx1 * dx1, e1 = dy1 * dy1, d2 = dx2 * dx2, e2 = dy2 * dy2;
  if (d1 + e1 == 0) return put_error("same points: (x0, y0) = (x1, y1)");
  double t1 = direction(dx1, dy1, d1 + e1);
  if (d2 + e2 == 0) return put_error("same points: (x0, y0) = (x2, y2)");
  double t2 = direction(dx2, dy2, d2 + e2);
  if (e2 == e1) return put_error("same y coordinates: y1 = y2");
  double a = sqrt((d1 * e2 - d2 * e1) / (e2 - e1));
  if (d1 == d2) return put_error("same x coordinates: x1 = x2");
  double b = sqrt((e1 * d2 - e2 * d1) / (d2 - d1));
  if (pitch == 0) {
    return put_errorf("illegal pitch: %.2f mm", pitch);
  }
  // Both directions come from asin, so the arc spans less than a turn.
  walk_arc(ArcWalk{x0, y0, a, b, t1, t2, OVAL_STEP, pitch, 1});
  return 1;
}
