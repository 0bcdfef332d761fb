// postscript.h - the PostScript document: tactile (every dot a circle) or
// ink print (lines, colour and text, drawn with the ink-print pen), always
// an A4 portrait page. While a document is open it is the first output sink
// (raster/sink.h).
#ifndef TACTO_DEVICES_POSTSCRIPT_H
#define TACTO_DEVICES_POSTSCRIPT_H

#include <cstdio>

struct PsState {
  FILE *file;              // the open document
  int active;              // PostScript output is on
  int ink_print;           // 0 tactile, 1 ink print
  int menu_job;            // written by the menu's image job (header/trailer differ)
  int page_counter;        // starts at 1
  int page_start_pending;  // set by a page feed, consumed by the next dot
  int path_open;           // an ink-print stroke is in progress
  int path_written;        // its points are in the document's current path, not yet stroked
  int path_x, path_y;      // the stroke's last point (page points)
};
extern PsState ps;

// The ink-print pen: what strokes and text are written with.
struct InkState {
  float red, green, blue;
  float cyan, magenta, yellow, black;  // kept as set; no output uses them
  int cap;         // 0-2 (0)
  int join;        // 0-2 (1)
  float gray;      // 0.0-1.0 (0.0)
  float width;     // 0.0-1.0 (1.0)
  int esize;       // European font size 1-100 (24)
  int jsize;       // Japanese font size 1-100 (18)
  int efont;       // 0-3 (2)
  int jfont;       // 4-11 (6)
  int use_rgb;     // lines take the rgbcolor (1) or the gray (0), whichever was set last (0)
};
extern InkState ink;

// The box of the page that the window is mapped onto, in points.
struct PsBox {
  int x0, x1, y0, y1;
};

// 1 when the current output is ink-print PostScript.
int ink_active();

// A pen value as written: as set, or 0 when it is not a finite number.
double ink_value(float v);

// Writes the width, the colour or grey, and the join every stroke takes.
void ps_stroke_state();

// Opens the document and writes the header; 0 after the open-failure message.
// menu_job selects the menu job's header and trailer. A document still open
// is finished first.
int ps_open(const char *name, int ink_print, int menu_job);

// Writes the trailer and closes the document.
void ps_close();

// "showpage" and the next page comment, when a page start is pending.
void ps_flush_page_start();

// Writes the landscape turn lines when PostScript output is active.
void ps_turn_page();

// Ends an ink-print stroke left open and flushes the document (after each command).
void ps_flush();

// Writes formatted text into the open document (nothing when none is open).
void ps_printf(const char *format, ...) __attribute__((format(printf, 1, 2)));

// Strokes what an open ink-print stroke has written so far, so that other
// drawing can follow; the stroke itself goes on at its last point.
void ps_path_break();

// The page box of the current orientation: portrait x 4-590, y 65-775;
// landscape x 65-775, y 4-590.
PsBox ps_page_box();

// Page point of a world point (integer points, the box of the orientation).
void ps_point_from_world(double wx, double wy, int *x, int *y);

// Page point of a dot-map cell.
void ps_point_from_dot(int row, int col, int *x, int *y);

// A dot of plot_dot: world point, path code, size code.
void ps_plot(double wx, double wy, int kind, int size);

// A dot at a device cell as a circle of a size 0-2: plot0's grid dots take
// size 1, the dot map's dots their stored size.
void ps_dot(int row, int col, int size);

// A page ends: the next page is counted, and started by the next dot.
void ps_next_page();

#endif
