// lines.h - the two straight-line primitives every outline is built from:
// pitch_line spaces its dots by a distance on paper, hatch_line by a step in
// world units. Also the paper scale that the dot walks share.
#ifndef TACTO_DRAW_LINES_H
#define TACTO_DRAW_LINES_H

struct PageGeom;

// Sub-steps of every pitch line, whatever its length.
enum : int { PITCH_LINE_STEPS = 10000 };

// Dots one hatch row may have: more than the largest sheet holds.
enum : int { HATCH_LIMIT = 1000000 };

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

// The line command: dots from (x0, y0) towards (x1, y1) at least `pitch` mm
// apart on paper, walked in 10 000 sub-steps. The start always gets a dot;
// the end only when the walk examines it far enough from the last dot.
// Ink-print output strokes the segment instead. 1, or 0 after "illegal pitch".
int pitch_line(float x0, float y0, float x1, float y1, float pitch);

// The hatch command: dots at x0 + k * unit along the segment, in world units.
// 1, or 0 after "illegal unit" or "zero distance between two points".
int hatch_line(float x0, float y0, float x1, float y1, float unit);

#endif
