// bwplot.cpp - the box-and-whisker plot and its command.
#include "curves/bwplot.h"

#include "core/run_state.h"
#include "curves/curve_cmds.h"
#include "draw/arrows.h"
#include "draw/lines.h"
#include "draw/shapes.h"

int draw_bwplot(float ox, float y, float min, float q1, float median, float q3, float max, float h,
                float bar_half, float pitch) {
  float top = y + h / 2, bottom = y - h / 2;
  // A head angle of 90 makes the end bar square to the whisker in degree
  // mode; radian mode is not compensated for.
  if (min != q1) draw_arrow(ox + q1, y, ox + min, y, 90, bar_half, HEAD_BOTH, pitch);
  draw_rectangle(ox + q1, top, ox + q3, bottom, pitch);
  pitch_line(ox + median, top, ox + median, bottom, pitch);
  if (q3 != max) draw_arrow(ox + q3, y, ox + max, y, 90, bar_half, HEAD_BOTH, pitch);
  return 1;
}

int cmd_bwplot(const Command &) {
  const double *p = run_state.param;
  return draw_bwplot(static_cast<float>(p[1]), static_cast<float>(p[2]), static_cast<float>(p[3]),
                     static_cast<float>(p[4]), static_cast<float>(p[5]), static_cast<float>(p[6]),
                     static_cast<float>(p[7]), static_cast<float>(p[8]), static_cast<float>(p[9]),
                     static_cast<float>(p[10]));
}
