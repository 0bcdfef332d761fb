// transform.cpp - world to dot mappings, rotation and mirroring.
#include "geometry/transform.h"

#include <climits>
#include <cmath>

#include "core/diag.h"
#include "core/process.h"
#include "geometry/page.h"

Transform xform;

static void reset_transform() {
  xform = Transform();
  xform.degree_mode = 1;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_transform);

double to_radian(double a) { return xform.degree_mode ? a * TACTO_DEGREE : a; }

int set_rotate(int flag, double cx, double cy, double angle) {
  switch (flag) {
    case 1:
      xform.rotate_on = 1;
      xform.rotate_saved = 0;
      xform.rotate_cx = static_cast<float>(cx);
      xform.rotate_cy = static_cast<float>(cy);
      xform.rotate_angle = static_cast<float>(to_radian(angle));
      break;
    case 2:
      xform.rotate_saved = xform.rotate_on;
      xform.rotate_on = 0;
      break;
    case 3:
      xform.rotate_on = xform.rotate_saved;
      xform.rotate_saved = 0;
      break;
    case 0:
      xform.rotate_on = xform.rotate_saved = 0;
      xform.rotate_cx = xform.rotate_cy = xform.rotate_angle = 0;
      break;
    default:
      put_errorf("illegal flag: %d (0-3)", flag);
  }
  return 0;
}

void direction_angles(double dx, double dy, double r, double *from_cos, double *from_sin) {
  *from_cos = acos(dx / r);
  if (dy < 0) *from_cos = -*from_cos;
  *from_sin = asin(dy / r);
  if (dx < 0) *from_sin = TACTO_PI - *from_sin;
}

int rotate_point(double *x, double *y) {
  if (!xform.rotate_on) return 0;
  double a = xform.rotate_angle;
  if (a == 0) return 1;
  double cx = xform.rotate_cx, cy = xform.rotate_cy;
  double r = sqrt(pow(*x - cx, 2.0) + pow(*y - cy, 2.0));
  if (r == 0) return 1;
  double alpha, beta;
  direction_angles(*x - cx, *y - cy, r, &alpha, &beta);
  double ox = zero_tiny(cos(alpha + a) * r);
  double oy = zero_tiny(sin(beta + a) * r);
  *x = cx + ox;
  *y = cy + oy;
  return 1;
}

int set_mirror(int flag, double shift_mm) {
  if (flag < 0 || flag > 1) return put_errorf("illegal flag %d (0-1)", flag);
  xform.mirror_on = flag;
  xform.mirror_shift = static_cast<float>(shift_mm);
  return 1;
}

int mirror_point(double *x) {
  if (page_geom.printer != ESA721) return 1;
  const FloatRect &w = page_geom.w;
  *x = w.x1 - (*x - w.x0) - mm_to_dx(xform.mirror_shift);
  return 1;
}

void transform_point(double *x, double *y) {
  if (xform.rotate_on) rotate_point(x, y);
  if (xform.mirror_on) mirror_point(x);
}

void dot_to_device(int dx, int dy, int *row, int *col) {
  const PageGeom &g = page_geom;
  if (g.portrait) {
    *row = g.p.y1 - dy;
    *col = dx;
  } else {
    *row = g.p.x1 - dx;
    *col = g.p.y1 - dy;
  }
}

// Grid coordinate of a world value along one axis, before rounding.
static long double grid_of(double v, float w0, float w1, int p0, int p1) {
  return (long double)(p1 - p0) * ((long double)v - w0) / ((long double)w1 - w0) + p0;
}

// Truncates a grid position toward zero; NaN and values beyond the int range
// come out as the range's ends (never on the grid), not as undefined casts.
static int grid_trunc(long double v) {
  if (!(v == v)) return INT_MIN;
  if (v >= 2147483647.0L) return INT_MAX;
  if (v <= -2147483648.0L) return INT_MIN;
  return static_cast<int>(v);
}

// The shared steps of the plot and move mappings; `clip` is the frame or the grid.
static int map_rounded(double wx, double wy, const IntRect &clip, DotPos *pos) {
  const PageGeom &g = page_geom;
  if (!(wx >= g.w.x0 && wx <= g.w.x1)) return 0;
  int dx = grid_trunc(grid_of(wx, g.w.x0, g.w.x1, g.p.x0, g.p.x1) + 0.5L);
  if (dx < clip.x0 || dx > clip.x1) return 0;
  if (!(wy >= g.w.y0 && wy <= g.w.y1)) return 0;
  int dy = grid_trunc(grid_of(wy, g.w.y0, g.w.y1, g.p.y0, g.p.y1) + 0.5L);
  if (dy < clip.y0 || dy > clip.y1) return 0;
  pos->dx = dx;
  pos->dy = dy;
  dot_to_device(dx, dy, &pos->row, &pos->col);
  return 1;
}

int map_plot(double wx, double wy, DotPos *pos) { return map_rounded(wx, wy, page_geom.f, pos); }

int map_move(double wx, double wy, DotPos *pos) { return map_rounded(wx, wy, page_geom.p, pos); }

int snap_to_dot(double *wx, double *wy) {
  const PageGeom &g = page_geom;
  if (!(*wx >= g.w.x0 && *wx <= g.w.x1 && *wy >= g.w.y0 && *wy <= g.w.y1)) return 0;
  int dx = grid_trunc(grid_of(*wx, g.w.x0, g.w.x1, g.p.x0, g.p.x1));
  int dy = grid_trunc(grid_of(*wy, g.w.y0, g.w.y1, g.p.y0, g.p.y1));
  *wx = dot_to_world_x(dx);
  *wy = dot_to_world_y(dy);
  return 1;
}

int world_to_dot_x(double wx) {
  const PageGeom &g = page_geom;
  return grid_trunc(grid_of(wx, g.w.x0, g.w.x1, g.p.x0, g.p.x1) + 0.5L);
}

int world_to_dot_y(double wy) {
  const PageGeom &g = page_geom;
  return grid_trunc(grid_of(wy, g.w.y0, g.w.y1, g.p.y0, g.p.y1) + 0.5L);
}

double world_to_grid_x(double wx) {
  const PageGeom &g = page_geom;
  return static_cast<double>(grid_of(wx, g.w.x0, g.w.x1, g.p.x0, g.p.x1));
}

double world_to_grid_y(double wy) {
  const PageGeom &g = page_geom;
  return static_cast<double>(grid_of(wy, g.w.y0, g.w.y1, g.p.y0, g.p.y1));
}

double dot_to_world_x(int dx) {
  const PageGeom &g = page_geom;
  return static_cast<double>(((long double)g.w.x1 - g.w.x0) * (dx - g.p.x0) / (g.p.x1 - g.p.x0) +
                             g.w.x0);
}

double dot_to_world_y(int dy) {
  const PageGeom &g = page_geom;
  return static_cast<double>(((long double)g.w.y1 - g.w.y0) * (dy - g.p.y0) / (g.p.y1 - g.p.y0) +
                             g.w.y0);
}
