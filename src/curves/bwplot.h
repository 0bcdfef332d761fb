// bwplot.h - the box-and-whisker plot, built from a rectangle, a pitch line
// and two arrows with right-angled heads.
#ifndef TACTO_CURVES_BWPLOT_H
#define TACTO_CURVES_BWPLOT_H

// One horizontal plot on y: the five values are offsets from ox; the box is
// h high, the whisker end bars 2 * bar_half long. The figures report their
// own faults; a whisker of no length is left out. Returns 1.
int draw_bwplot(float ox, float y, float min, float q1, float median, float q3, float max, float h,
                float bar_half, float pitch);

#endif
