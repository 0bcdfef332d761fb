// plot.h - the one place where a dot goes to its output. plot_dot takes a
// world point, plot0 a grid dot; both send it to PostScript, the bitmap, a
// trace line, the dot map or the embosser. Also the dot size, the dash
// pattern, pen moves, the point marker and page feeds.
#ifndef TACTO_RASTER_PLOT_H
#define TACTO_RASTER_PLOT_H

// Path codes passed with every dot.
enum : int {
  PATH_DOT = 0,    // a lone dot
  PATH_START = 1,  // first point of a stroke
  PATH_ON = 2,     // a further point of a stroke
  PATH_END = 3,    // end of a stroke: a position only, never embossed
};

enum : int { DESIGN_CAPACITY = 256 };  // longest dash pattern accepted

struct PlotState {
  int dot_size;          // device size code in force (0-2; 3-6 on the ESA600G)
  int pattern_on, pattern_saved;
  unsigned char pattern[DESIGN_CAPACITY];
  int pattern_len, pattern_pos;
  int feeds_suppressed;  // formfeed 0 suppresses page feeds
};
extern PlotState plot_state;

// Restores start-up defaults: size 0, no pattern, feeds allowed.
void reset_plot();

// Puts a dot at a world point; 0 when outside the window or frame.
int plot_dot(double wx, double wy, int kind);

// Puts a dot at a grid point; 0 with a warning outside the frame.
int plot0(int dx, int dy);

// Pen-up move to a world point; 0 outside the window or grid.
int move_to(double wx, double wy);

// A cross of five dots at the dot below a world point.
int point_mark(double wx, double wy, int kind);

// The dot command (0-2); per-printer messages and codes.
int set_dot_size(int size);

// The design command: modes 0 off, 1 on1 off1 on2 off2, 2 suspend, 3 resume.
int set_design(int mode, int on1, int off1, int on2, int off2);

// advance 1: the next pattern entry (0 skips a dot); advance 0: restart, returns 0.
int next_design(int advance);

// Page feeds: 0 suppresses, 1 allows and feeds, 2 feeds unless suppressed.
int page_feed(int mode);

#endif
