// shapes.h - the outline figures: straight-edged ones as pitch lines with the
// dash pattern restarted per edge, curved ones as angle walks that drop a dot
// whenever the pitch has been covered on paper.
#ifndef TACTO_DRAW_SHAPES_H
#define TACTO_DRAW_SHAPES_H

// Angle steps of the curved walks: 0.06 degree, and 0.018 degree for ovals.
#define ARC_STEP 0.0010471973333333333
#define OVAL_STEP 0.0003141592

// Corners one polygon may have at most.
enum : int { POLYGON_LIMIT = 10000 };

// Turns one arc may walk at most.
enum : int { ARC_TURNS = 100 };

// Rectangle with opposite corners (x0, y0), (x1, y1); every edge reports a bad
// pitch itself. 1 when all four edges were drawn.
int draw_rectangle(float x0, float y0, float x1, float y1, float pitch);

// Rhombus with vertices (cx +- a, cy) and (cx, cy +- b); edges report like the rectangle's.
int draw_diamond(float cx, float cy, float a, float b, float pitch);

// Rectangle centred on (cx, cy), half-width a, half-height b. 0 after "illegal: pitch".
int draw_box(float cx, float cy, float a, float b, float pitch);

// Box whose upright sides lean at `angle` (current angle unit). 0 after "illegal: pitch".
int draw_parallelogram(float cx, float cy, float a, float b, float angle, float pitch);

// Regular n-gon in the circle of radius r, vertex 0 straight above the centre.
int draw_polygon(int n, float cx, float cy, float r, float pitch);

// Elliptical arc x = cx + rx cos t, y = cy + ry sin t from a0 to a1 (current
// angle unit), path codes 1, 2, 3. A negative pitch walks clockwise; with
// the ends the wrong way round the walk goes the long way. 0 after a pitch of 0.
int draw_ellipse(float cx, float cy, float rx, float ry, float a0, float a1, float pitch);

// The circle: an ellipse with rx = ry = r.
int draw_circle(float cx, float cy, float r, float a0, float a1, float pitch);

// Axis-parallel elliptical arc centred on (x0, y0) through the directions of
// (x1, y1) and (x2, y2), walked in finer steps. 0 after one of its five refusals.
int draw_oval(float x0, float y0, float x1, float y1, float x2, float y2, float pitch);

#endif
