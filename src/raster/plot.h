// plot.h - the one place where a dot is made. plot_dot takes a world point,
// plot0 a grid dot; both hand it to the output sinks (raster/sink.h), as do
// pen moves, dot sizes and page feeds. Also the dash pattern and the point
// marker.
#ifndef TACTO_RASTER_PLOT_H
#define TACTO_RASTER_PLOT_H

#include "raster/sink.h"

enum : int { DESIGN_CAPACITY = 256 };  // longest dash pattern accepted

struct PlotState {
  int dot_size;          // device size code in force (0-2; 3-6 on the ESA600G)
  int pattern_on, pattern_saved;
  unsigned char pattern[DESIGN_CAPACITY];
  int pattern_len, pattern_pos;
  int feeds_suppressed;  // formfeed 0 suppresses page feeds
};
extern PlotState plot_state;

// Puts a dot at a world point (rotated and mirrored first); 0 when it falls
// outside the window or frame.
int plot_dot(double wx, double wy, int kind);

// Puts a dot at a grid point; 0 with a warning outside the frame.
int plot0(int dx, int dy);

// Pen-up move to a world point; 0 outside the window or grid.
int move_to(double wx, double wy);

// A cross of five dots at the dot below a world point.
int point_mark(double wx, double wy, int kind);

// The dot command (0-2) with the printer's messages; the outputs may turn
// the size into a device code (raster/sink.h).
int set_dot_size(int size);

// The design command: modes 0 off, 1 on1 off1 on2 off2, 2 suspend, 3 resume.
int set_design(int mode, int on1, int off1, int on2, int off2);

// advance 1: the next pattern entry (0 skips a dot); advance 0: restart, returns 0.
int next_design(int advance);

// Page feeds: 0 suppresses, 1 allows and feeds, 2 feeds unless suppressed.
// A feed sends the page in hand (flush_page), then ends the page.
int page_feed(int mode);

#endif
