// walk.h - the dot walks of pitch lines and elliptical arcs. A walk moves a
// position by a constant sub-step and drops a dot at the first sub-step whose
// paper distance from the last dot reaches the pitch. These functions find
// exactly the dots of that walk, sub-step for sub-step, but jump between
// dots instead of examining every sub-step.
#ifndef TACTO_DRAW_WALK_H
#define TACTO_DRAW_WALK_H

struct PageGeom;

// Sub-steps of every pitch line, whatever its length.
enum : int { PITCH_LINE_STEPS = 10000 };

// The fixed parts of dx_to_mm / dy_to_mm for one geometry: dots across the
// grid times the pitch along that axis, and the window's extent, both in
// extended precision. A walk computes them once instead of at every sub-step.
struct PaperScale {
  long double kx, span_x;  // (p.x1 - p.x0) * pitch along x, w.x1 - w.x0
  long double ky, span_y;
};

// The scale of a geometry in its current orientation.
PaperScale paper_scale(const PageGeom &g);

// Millimetres on paper of a world difference along x / y; the same operations
// in the same order as dx_to_mm / dy_to_mm, so the results are identical.
inline double mm_along_x(const PaperScale &s, double d) {
  return static_cast<double>(s.kx * d / s.span_x);
}
inline double mm_along_y(const PaperScale &s, double d) {
  return static_cast<double>(s.ky * d / s.span_y);
}

// Where a walk's dots go: a world position (double, as the walk holds it)
// and a path code.
typedef void (*DotSink)(void *ctx, double x, double y, int kind);

// One elliptical walk: x = cx + rx cos t, y = cy + ry sin t from t0 to t1
// in steps of `step` radians; the pitch's sign gives the direction (t1 is
// already on the walked side of t0). The oval's counter-clockwise end
// point lacks the centre.
struct ArcWalk {
  double cx, cy, rx, ry;
  double t0, t1;  // radians
  double step;    // radians per examined step
  float pitch;
  int oval_end;
};

// The pitch line's walk from (x0, y0) to (x1, y1), start dot included, in
// PITCH_LINE_STEPS sub-steps; kind PATH_DOT for every dot.
void walk_line_dots(float x0, float y0, float x1, float y1, float pitch, const PaperScale &scale,
                    DotSink sink, void *ctx);

// The arc's walk: the start (PATH_START), a PATH_ON dot whenever the offset
// from the centre has moved the pitch on paper since the last dot, the end
// (PATH_END).
void walk_arc_dots(const ArcWalk &w, const PaperScale &scale, DotSink sink, void *ctx);

// The drawing sink: plot_dot at the point rounded to float (ctx unused).
void plot_sink(void *ctx, double x, double y, int kind);

#endif
