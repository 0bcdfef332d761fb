// splines.cpp - spline tables, their evaluation, the spline walk and the
// broken line.
#include "curves/splines.h"

#include <cmath>
#include <cstdlib>

#include "core/diag.h"
#include "draw/lines.h"
#include "geometry/page.h"
#include "raster/plot.h"

// ---- Tables ----------------------------------------------------------------

// Arrays of a table: u, a, b, c, d, then three work arrays.
enum : int { TABLE_ARRAYS = 8 };

int alloc_table(CubicTable *t, int points) {
  *t = CubicTable();
  if (points < 1) return 0;
  double *block = static_cast<double *>(calloc(static_cast<size_t>(points) * TABLE_ARRAYS, sizeof(double)));
  if (block == nullptr) return 0;
  t->u = block;
  t->a = block + points;
  t->b = block + 2 * points;
  t->c = block + 3 * points;
  t->d = block + 4 * points;
  t->n_seg = points - 1;
  return 1;
}

void free_table(CubicTable *t) {
  free(t->u);  // the block starts with u
  *t = CubicTable();
}

// The three work arrays that follow d.
static double *work(const CubicTable &t, int k) { return t.d + (k + 1) * (t.n_seg + 1); }

static int finite_table(const CubicTable &t) {
  int n = t.n_seg > 0 ? t.n_seg : 1;
  for (int i = 0; i < n; i++)
    if (!std::isfinite(t.u[i]) || !std::isfinite(t.a[i]) || !std::isfinite(t.b[i]) || !std::isfinite(t.c[i]) ||
        !std::isfinite(t.d[i]))
      return 0;
  return std::isfinite(t.u[t.n_seg]);
}

// A single point: the constant through it.
static int single_point(CubicTable *t, double u, double v) {
  t->u[0] = u;
  t->a[0] = v;
  t->b[0] = t->c[0] = t->d[0] = 0;
  return finite_table(*t);
}

int natural_table(CubicTable *t, const double *u, const double *v, int points) {
  const int N = points - 1;
  if (N == 0) return single_point(t, u[0], v[0]);
  double *h = work(*t, 0), *q = work(*t, 1), *r = work(*t, 2);
  double *a = t->a, *b = t->b, *c = t->c, *d = t->d;
  for (int i = 0; i < N; i++) {
    h[i] = u[i + 1] - u[i];
    if (h[i] > -0.00001 && h[i] < 0.00001) return put_errorf("zero divide of %d", 0);
  }
  for (int i = 0; i <= N; i++) {
    t->u[i] = u[i];
    a[i] = v[i];
  }
  r[0] = r[N] = 0;
  q[0] = q[N] = 1;
  for (int i = 1; i < N; i++) {
    r[i] = 3 * ((a[i + 1] - a[i]) / h[i] - (a[i] - a[i - 1]) / h[i - 1]);
    q[i] = 2 * (h[i - 1] + h[i]);
  }
  // The tridiagonal system for c with off-diagonals h; free ends c(0) = c(N) = 0.
  for (int i = 2; i < N; i++) {
    double f = h[i - 1] / q[i - 1];
    q[i] -= f * h[i - 1];
    r[i] -= f * r[i - 1];
  }
  c[0] = c[N] = 0;
  for (int i = N - 1; i >= 1; i--) c[i] = (r[i] - h[i] * c[i + 1]) / q[i];
  for (int i = 0; i < N; i++) {
    b[i] = (a[i + 1] - a[i]) / h[i] - (2 * c[i] + c[i + 1]) * h[i] / 3;
    d[i] = (c[i + 1] - c[i]) / (3 * h[i]);
  }
  return finite_table(*t);
}

int hermite_table(CubicTable *t, const double *p, int points, int closed) {
  const int N = points - 1;
  if (N == 0) return single_point(t, 0, p[0]);
  double *m = work(*t, 0);
  for (int i = 1; i < N; i++) m[i] = 0.5 * (p[i + 1] - p[i - 1]);
  if (closed) {
    m[0] = 0.5 * (p[1] - p[N - 1]);  // the point before the first is the one before the last
    m[N] = m[0];
  } else if (N == 1) {
    m[0] = m[1] = p[1] - p[0];  // the one pair of tangents that mirror each other
  } else {
    m[0] = 2 * (p[1] - p[0]) - m[1];
    m[N] = 2 * (p[N] - p[N - 1]) - m[N - 1];
  }
  for (int i = 0; i <= N; i++) t->u[i] = i;
  for (int i = 0; i < N; i++) {
    t->a[i] = p[i];
    t->b[i] = m[i];
    t->c[i] = -3 * p[i] + 3 * p[i + 1] - 2 * m[i] - m[i + 1];
    t->d[i] = 2 * p[i] - 2 * p[i + 1] + m[i] + m[i + 1];
  }
  return finite_table(*t);
}

int table_value(const CubicTable &t, double u, double *value) {
  // Bisection for the segment; knots given in falling order are searched the other way.
  const int rising = t.u[t.n_seg] >= t.u[0];
  int lo = 0, hi = t.n_seg;
  while (lo < hi - 1) {
    int mid = (lo + hi) / 2;
    if (rising ? t.u[mid] >= u : t.u[mid] <= u) hi = mid;
    else lo = mid;
  }
  double w = u - t.u[lo];
  *value = ((t.d[lo] * w + t.c[lo]) * w + t.b[lo]) * w + t.a[lo];
  return std::isfinite(*value);
}

// ---- The spline command ------------------------------------------------------

static int between(double v, double a, double b) { return a <= b ? a <= v && v <= b : b <= v && v <= a; }

// What the walk needs: the tables, the parameter's run and the ranges.
struct SplineWalk {
  const SplineArgs *args;
  CubicTable tx, ty;  // kind 1 uses ty only, over the data x
  double u0;          // the parameter's start
  double sign;        // its direction
  long steps;         // steps of 0.0001
};

static int curve_point(const SplineWalk &w, long i, double *x, double *y) {
  double u = w.u0 + w.sign * (i / 10000.0);
  if (w.args->kind == 1) {
    *x = u;
    return table_value(w.ty, u, y);
  }
  return table_value(w.tx, u, x) && table_value(w.ty, u, y);
}

// The first point with code 1, then a code-2 dot whenever a pitch of paper
// lies behind the previous point; the previous point moves on even where
// no dot is placed, so the rhythm runs on through hidden stretches.
static int walk_spline(const SplineWalk &w, const PageGeom &g) {
  const SplineArgs &a = *w.args;
  const PaperScale scale = paper_scale(g);
  const double p2 = (double)a.pitch * a.pitch;
  double px = 0, py = 0;
  for (long i = 0; i <= w.steps; i++) {
    double x, y;
    if (!curve_point(w, i, &x, &y)) return put_error("spline1");
    int inside = between(x, a.x0, a.x1) && between(y, a.y0, a.y1);
    if (i == 0) {
      if (inside) plot_dot(x, y, PATH_START);
      px = x;
      py = y;
      continue;
    }
    double mx = mm_along_x(scale, x - px), my = mm_along_y(scale, y - py);
    if (mx * mx + my * my >= p2) {
      if (inside) plot_dot(x, y, PATH_ON);
      px = x;
      py = y;
    }
  }
  return 1;
}

// Checks, tables and walk, once the points are in (shifted in x, y).
static int spline_from(SplineWalk &w, const double *given_x, const double *x, const double *y, int n,
                       const PageGeom &g) {
  const SplineArgs &a = *w.args;
  if (a.kind == 1)
    for (int i = 1; i < n; i++)
      if (given_x[i] == given_x[i - 1]) return put_errorf("segment of curve is vertical (data %d-%d)", i, i + 1);
  if (!(a.pitch > 0)) return put_errorf("illegal pitch (%.2fmm)", a.pitch);
  if (a.x0 == a.x1) return put_errorf("no range of x (%.3f-%.3f)", a.x0, a.x1);
  if (a.y0 == a.y1) return put_errorf("no range of y (%.2f-%.2f)", a.y0, a.y1);
  const int N = n - 1;
  if (a.kind == 1) {
    // Kind 1 steps 0.0001 world units from the first x to the last; a data
    // range too wide to walk is refused rather than walked for minutes.
    double span = fabs(x[N] - x[0]) * 10000 + 1e-6;
    if (!(span <= SPLINE_STEP_LIMIT)) return put_errorf("too many steps of spline (%.0f)", span);
    w.u0 = x[0];
    w.sign = x[N] < x[0] ? -1 : 1;
    w.steps = static_cast<long>(span);
    if (!natural_table(&w.ty, x, y, n)) return put_error("maketable1 in spline1");
  } else {
    w.u0 = 0;
    w.sign = 1;
    w.steps = static_cast<long>(N) * SPLINE_STEPS;
    int ok;
    if (a.kind == 2) {
      for (int k = 0; k < n; k++) w.tx.u[k] = w.ty.u[k] = k;  // knots at the indices
      ok = natural_table(&w.tx, w.tx.u, x, n) && natural_table(&w.ty, w.ty.u, y, n);
    } else {
      ok = hermite_table(&w.tx, x, n, a.kind == 4) && hermite_table(&w.ty, y, n, a.kind == 4);
    }
    if (!ok) return put_error("maketable1 in spline1");
  }
  if (!walk_spline(w, g)) return 0;
  plot_dot(x[N], y[N], PATH_END);
  return 1;
}

int draw_spline(const SplineArgs &a, const double *xs, const double *ys, int n, const PageGeom &g,
                PointListener taken) {
  if (a.kind < 1 || a.kind > 4) return put_errorf("out of range func = %d (1-4)", a.kind);
  if (n < 1) return put_errorf("no data (%d)", n);
  SplineWalk w;
  w.args = &a;
  w.tx = w.ty = CubicTable();
  // The taken-in points, then the tables, all sized by the point count.
  double *pts = static_cast<double *>(calloc(2 * static_cast<size_t>(n), sizeof(double)));
  int have = pts != nullptr && alloc_table(&w.ty, n);
  if (have && a.kind != 1) have = alloc_table(&w.tx, n);
  int ok = 0;
  if (!have) {
    put_error("maketable1 in spline1");
  } else {
    double *x = pts, *y = pts + n;
    for (int k = 0; k < n; k++) {
      x[k] = xs[k] + a.dx;
      y[k] = ys[k] + a.dy;
      if (taken != nullptr) taken(k + 1, x[k], y[k]);
    }
    ok = spline_from(w, xs, x, y, n, g);
  }
  free_table(&w.tx);
  free_table(&w.ty);
  free(pts);
  return ok;
}

// ---- Broken lines --------------------------------------------------------------

int draw_bline(float pitch, const double *xs, const double *ys, int n) {
  if (n <= 1) return put_error("broken line data is none");
  int ok = 1;
  for (int i = 1; i < n; i++)
    if (!pitch_line(static_cast<float>(xs[i - 1]), static_cast<float>(ys[i - 1]), static_cast<float>(xs[i]),
                    static_cast<float>(ys[i]), pitch))
      ok = 0;
  return ok;
}
