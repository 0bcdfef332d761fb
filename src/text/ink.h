// ink.h - the ink-print state (colour, grey, width, cap, join, fonts and
// sizes), the ink-print text commands and the stroked lines and axes that
// the drawing commands write when ink-print output is on.
#ifndef TACTO_TEXT_INK_H
#define TACTO_TEXT_INK_H

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
  int scale_choice;  // ink-print scale choice (2)
  double scale;      // ink-print scale factor (2.0)
};
extern InkState ink;

extern const char *const font_table[12];
extern const char *const colour_names[16];

// Restores the defaults above.
void reset_ink();

// 1 when the current output is ink-print PostScript.
int ink_active();

// One stroked segment between two world points with the current state.
void ink_line(double x0, double y0, double x1, double y1);

// The ink-print axes: p[1..7] as the xaxis / yaxis commands read them.
void ink_xaxis(const double *p);
void ink_yaxis(const double *p);

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
