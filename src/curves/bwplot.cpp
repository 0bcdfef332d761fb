// bwplot.cpp - the box-and-whisker plot.
#include "curves/bwplot.h"

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
