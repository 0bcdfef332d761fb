// ink.h - the ink-print state (colour, grey, width, cap, join, fonts and
// sizes), the ink-print text commands and the stroked lines and axes that
// the drawing commands write when ink-print output is on.
#ifndef TACTO_TEXT_INK_H
#define TACTO_TEXT_INK_H

#include <string>

struct Command;

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

extern const char *const font_table[12];
extern const char *const colour_names[16];

// Restores the defaults above.
void reset_ink();

// Closing a document resets the colour and the width to 0.
void ink_document_closed();

// 1 when the current output is ink-print PostScript.
int ink_active();

// One stroked segment between two world points with the current state. The
// points are rotated and mirrored like dots, and the segment is clipped to
// the window and frame (nothing is written when no part of it is inside).
void ink_line(double x0, double y0, double x1, double y1);

// A stroke of plot_dot's path codes at a page point: 1 starts it, 2 extends
// it, 3 ends and strokes it. A 2 without a start starts one.
void ink_path(int x, int y, int kind);

// The ink-print axes: p[1..7] as the xaxis / yaxis commands read them (ox,
// oy, a, b, unit, tick, pitch). The axis line runs from a to b; a tick stands
// at every multiple of the unit from the origin that lies between a and b,
// |tick| x pitch mm long, above (right of) the axis for a positive tick count
// and below (left of) it for a negative one; a tick count of 0 draws no ticks.
void ink_xaxis(const double *p);
void ink_yaxis(const double *p);

// Page points of the ink-print text: the point in the printable band of the
// orientation, or -1 outside it.
int ink_point_x(double wx);
int ink_point_y(double wy);

// The PostScript strings of the two text commands: "(text)" up to the first
// line feed, and the hexadecimal "< 0041 889f >" form of the two-byte text.
std::string ink_latin_string(const char *text);
std::string ink_kanji_string(const char *text);

// Command handlers (parameters in run_state.param, text in run_state.ptr).
int cmd_rgbcolor(const Command &cmd);
int cmd_cmykcolor(const Command &cmd);
int cmd_cap(const Command &cmd);
int cmd_join(const Command &cmd);
int cmd_gray(const Command &cmd);
int cmd_width(const Command &cmd);
int cmd_esize(const Command &cmd);
int cmd_jsize(const Command &cmd);
int cmd_efont(const Command &cmd);
int cmd_jfont(const Command &cmd);
int cmd_alphanumeric(const Command &cmd);
int cmd_kanjikana(const Command &cmd);

#endif
