// lines.h - the two straight-line primitives every outline is built from:
// pitch_line spaces its dots by a distance on paper, hatch_line by a step in
// world units.
#ifndef TACTO_DRAW_LINES_H
#define TACTO_DRAW_LINES_H

#include "draw/walk.h"

// Dots one hatch row may have: more than the largest sheet holds.
enum : int { HATCH_LIMIT = 1000000 };

// The line command: dots from (x0, y0) towards (x1, y1) at least `pitch` mm
// apart on paper, walked in 10 000 sub-steps. The start always gets a dot;
// the end only when the walk examines it far enough from the last dot.
// Ink-print output strokes the segment instead. 1, or 0 after "illegal pitch".
int pitch_line(float x0, float y0, float x1, float y1, float pitch);

// The hatch command: dots at x0 + k * unit along the segment, in world units.
// 1, or 0 after "illegal unit" or "zero distance between two points".
int hatch_line(float x0, float y0, float x1, float y1, float unit);

#endif
