// arrows.cpp - arrows and darts: shaft, barbs and tip dot.
#include "draw/arrows.h"

#include <cmath>

#include "core/diag.h"
#include "draw/lines.h"
#include "geometry/transform.h"
#include "raster/plot.h"

static int pitch_refused(float pitch) {
  return put_errorf("out of range: pitch = %.2fmm", pitch);
}

// Shaft, head and tip dot once the checks have passed. The direction of
// travel comes twice: dir_c for the cosines, dir_s for the sines.
static void draw_shaft_and_head(float x0, float y0, float x1, float y1, double dir_c, double dir_s,
                                float head_angle, float head_len, int type, float pitch) {
  double alpha = to_radian(head_angle);
  double len = head_len;
  double b1x = zero_tiny(len * cos(dir_c + TACTO_PI - alpha));
  double b1y = zero_tiny(len * sin(dir_s + TACTO_PI - alpha));
  double b2x = zero_tiny(len * cos(dir_c - (TACTO_PI - alpha)));
  double b2y = zero_tiny(len * sin(dir_s - (TACTO_PI - alpha)));

  next_design(0);
  pitch_line(x0, y0, x1, y1, pitch);
  set_design(2, 0, 0, 0, 0);  // the barbs are solid whatever the pattern
  if (type == HEAD_BOTH || type == HEAD_LEFT)
    pitch_line(x1, y1, static_cast<float>(x1 + b1x), static_cast<float>(y1 + b1y), pitch);
  if (type == HEAD_BOTH || type == HEAD_RIGHT)
    pitch_line(x1, y1, static_cast<float>(x1 + b2x), static_cast<float>(y1 + b2y), pitch);
  set_design(3, 0, 0, 0, 0);
  next_design(0);
  // The shaft may stop short of the tip; this dot makes sure of it.
  plot_dot(x1, y1, PATH_DOT);
}

int draw_arrow(float x0, float y0, float x1, float y1, float head_angle, float head_len, int type,
               float pitch) {
  if (!(pitch > 0)) return pitch_refused(pitch);
  if (type < HEAD_BOTH || type > HEAD_NONE) return put_errorf("type should be 0-3 (%d)", type);
  double wx = (double)x1 - x0, wy = (double)y1 - y0;
  double length = sqrt(wx * wx + wy * wy);
  if (length == 0) return put_error("zero length of arrow");
  double dir_c, dir_s;
  direction_angles(wx, wy, length, &dir_c, &dir_s);
  draw_shaft_and_head(x0, y0, x1, y1, dir_c, dir_s, head_angle, head_len, type, pitch);
  return 1;
}

int draw_dart(float x0, float y0, float direction, float length, float head_angle, float head_len,
              int type, float pitch) {
  if (!(pitch > 0)) return pitch_refused(pitch);
  if (type < HEAD_BOTH || type > HEAD_NONE) return put_errorf("headtype should be 0-3 (%d)", type);
  double phi = to_radian(direction);
  float x1 = static_cast<float>(x0 + length * cos(phi));
  float y1 = static_cast<float>(y0 + length * sin(phi));
  draw_shaft_and_head(x0, y0, x1, y1, phi, phi, head_angle, head_len, type, pitch);
  return 1;
}
