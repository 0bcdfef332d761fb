// splines.h - smooth curves through data points: the natural cubic spline
// y(x) (kind 1), natural cubic splines x(t), y(t) over the point index
// (kind 2), and cubic Hermite segments over the index, open (kind 3) or
// closed (kind 4); and the broken line through the same kind of data.
#ifndef TACTO_CURVES_SPLINES_H
#define TACTO_CURVES_SPLINES_H

struct PageGeom;

// Sub-steps of every segment of the index kinds; kind 1 steps this many per world unit.
enum : int { SPLINE_STEPS = 10000 };

// Kind 1 walks at most this many steps: a data range of 1000 world units.
enum : int { SPLINE_STEP_LIMIT = 10000000 };

// Piecewise cubics over knots u[0..n_seg]: on segment i, with w = u - u[i],
// the value is ((d[i] w + c[i]) w + b[i]) w + a[i]. The arrays are sized by
// the point count and owned by the table.
struct CubicTable {
  int n_seg;  // segments: the point count minus 1 (0 for a single point)
  double *u, *a, *b, *c, *d;
};

// Allocates a table for `points` points (at least 1); 0 when memory is short.
int alloc_table(CubicTable *t, int points);

// Releases a table's arrays (safe on a table never allocated).
void free_table(CubicTable *t);

// The natural cubic spline through (u[i], v[i]), free ends. 0 after "zero
// divide of %d" for a knot interval under 0.00001, or when the
// coefficients are not finite (nothing reported then).
int natural_table(CubicTable *t, const double *u, const double *v, int points);

// Cubic Hermite segments through p[i] at knots 0, 1, ..., n-1 with tangents
// 0.5 (p[i+1] - p[i-1]); open ends mirror their neighbour's tangent, closed
// ones wrap around (the last point standing for the first). 0 when the
// coefficients are not finite.
int hermite_table(CubicTable *t, const double *p, int points, int closed);

// The table's value at u (segment found by bisection); 0 when it is not finite.
int table_value(const CubicTable &t, double u, double *value);

// What a spline command asks for.
struct SplineArgs {
  float x0, x1, y0, y1;  // dots only inside these ranges (either order)
  int kind;              // 1-4
  float dx, dy;          // shift added to every point
  float pitch;           // mm along the curve on paper
};

// Called with each point as it is taken in: its number from 1, x and y shifted.
typedef void (*PointListener)(int k, double x, double y);

// The spline command on n points as given (xs, ys): checks, takes the points
// in (calling `taken` for each, when not null), builds the tables and walks
// the curve, a dot whenever a pitch of paper has been covered (code 1 first,
// then 2), ending the ink path with code 3 at the last point. Returns 1, or
// 0 after a reported refusal.
int draw_spline(const SplineArgs &a, const double *xs, const double *ys, int n, const PageGeom &g,
                PointListener taken);

// The broken line: pitch lines from point to point, the dash pattern running
// on across the joints. 0 after "broken line data is none" (fewer than two
// points) or when a segment refuses the pitch.
int draw_bline(float pitch, const double *xs, const double *ys, int n);

#endif
