// axes.h - coordinate axes: a dotted line with tick marks at whole multiples
// of a unit from an origin, standing on the side the tick count's sign gives;
// in ink print a stroked line with stroked ticks.
#ifndef TACTO_DRAW_AXES_H
#define TACTO_DRAW_AXES_H

// Ticks one axis may have at most; a longer axis is refused.
enum : int { AXIS_TICK_LIMIT = 10000 };

// The x-axis on y = oy from x = a to x = b, ticks every `unit` from ox, each
// tick |tick| dots a pitch apart, above the axis (below when tick < 0); the
// ends follow the program's own asymmetric rules. 0 after "zero length of
// x-axis", "illegal unit" or "illegal pitch".
int draw_xaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch);

// The same transposed: on x = ox from y = a to y = b, ticks to the right
// (left when tick < 0). A tick of 0 is refused with "illegal pic".
int draw_yaxis(float ox, float oy, float a, float b, float unit, int tick, float pitch);

#endif
