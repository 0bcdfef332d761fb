// arrows.h - dotted shafts with a head of one or two barbs: the arrow by its
// two end points, the dart by start, direction and length.
#ifndef TACTO_DRAW_ARROWS_H
#define TACTO_DRAW_ARROWS_H

// Head types: both barbs, the left one, the right one (of the direction of
// travel), none.
enum : int { HEAD_BOTH = 0, HEAD_LEFT = 1, HEAD_RIGHT = 2, HEAD_NONE = 3 };

// Shaft from (x0, y0) to the tip (x1, y1), barbs of length `head_len` at
// `head_angle` (current angle unit) to the shaft, solid under a dash pattern,
// and a dot at the tip. 0 after "out of range: pitch", "type should be 0-3"
// or "zero length of arrow".
int draw_arrow(float x0, float y0, float x1, float y1, float head_angle, float head_len, int type,
               float pitch);

// The same head on a shaft of `length` from (x0, y0) in `direction` (current
// angle unit); a length of 0 puts the head at the start. 0 after
// "out of range: pitch" or "headtype should be 0-3".
int draw_dart(float x0, float y0, float direction, float length, float head_angle, float head_len,
              int type, float pitch);

#endif
