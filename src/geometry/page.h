// page.h - the page geometry: printers and papers, the dot grid, the frame
// that clips, the window of world units mapped onto the grid, orientation,
// dot pitches and Braille cell gaps; and the conversions between world
// lengths and millimetres on paper.
#ifndef TACTO_GEOMETRY_PAGE_H
#define TACTO_GEOMETRY_PAGE_H

struct IntRect {
  int x0, x1, y0, y1;
};

struct FloatRect {
  float x0, x1, y0, y1;
};

// Paper flags, in the order b5, b4, a4, a3, p8, p10.
enum : int { PAPER_B5, PAPER_B4, PAPER_A4, PAPER_A3, PAPER_P8, PAPER_P10, PAPER_KINDS };

// Printers.
enum : int { ESA721 = 0, ESA600G = 1, EVEREST_D = 2 };

struct PageGeom {
  IntRect p;                 // grid: the paper's dot raster, inclusive indices
  IntRect f;                 // frame: the clip rectangle in grid dots
  FloatRect w;               // window: the world rectangle mapped onto the grid
  IntRect default_grid;      // the paper's grid in portrait
  IntRect default_frame;     // the paper's frame in portrait
  FloatRect default_window;  // the paper's window in portrait
  double pitch_h, pitch_v;   // mm between dot centres (portrait)
  int portrait;              // 1 portrait, 0 landscape
  int printer;               // ESA721, ESA600G, EVEREST_D
  int paper;                 // index into the paper table
  int paper_flag[PAPER_KINDS];
  int gap_h[2], gap_v[2], gap_s[2], gap_l[2];  // Braille gaps: [0] landscape, [1] portrait
};
extern PageGeom page_geom;

struct PrinterRow {
  const char *name;
  double pitch_h, pitch_v;
  int gap_landscape[4];  // h, v, s, l
  int gap_portrait[4];
};

struct PaperRow {
  const char *name;
  int printer;
  int x1, y1;           // grid in portrait, from 0
  double window[4];     // w.x0, w.x1, w.y0, w.y1
  int flag;             // PAPER_*
};

extern const PrinterRow printer_table[3];
extern const PaperRow paper_table[10];

// Selects a printer and one of its papers; 0 after "illegal printer" or
// "illegal paper_size". Forces portrait and loads grid, frame, window,
// pitches and gaps (the paper commands take commands/steps.h).
int select_paper(int printer, int paper);

// The paper command b5/b4/a4/a3/p8/p10 (flag PAPER_*) for the current printer.
int paper_command(int flag);

// Switches to portrait or landscape (nothing when already there).
void set_portrait();
void set_landscape();

// The frame command: frame in dots, window in world units; checks and
// reports, 0 with nothing changed on error.
int set_frame(int x0, int x1, int y0, int y1, double wx0, double wx1, double wy0, double wy1);

// The window command: set_frame with the current frame.
int set_window(double wx0, double wx1, double wy0, double wy1);

// 1 when both biases are positive; else "negative or zero bias x/y = %.2f".
int check_bias(double bias_x, double bias_y);

// The origin command: (ox, oy) becomes (0, 0) and one new unit is bias old units.
int set_origin(double ox, double oy, double bias_x, double bias_y);

// The fmt command: window x 1..c+1, y 0..r+0.3 on the current frame.
int set_fmt(int columns, int rows);

// Millimetres per world unit vertically over horizontally (+0.00005).
double vh_ratio();

// The `view` status lines.
void show_geometry();

// Pitch along the page's x and y axes in the current orientation.
double pitch_x();
double pitch_y();

// Braille gap values of the current orientation.
int gap_h();
int gap_v();
int gap_s();
int gap_l();

// Length on paper (mm) of a world difference along x / y.
double dx_to_mm(double d);
double dy_to_mm(double d);
// World length along x / y of a length on paper (mm).
double mm_to_dx(double mm);
double mm_to_dy(double mm);

// Dots per world unit along x and y (for echoes of lengths).
double dots_per_unit_x();
double dots_per_unit_y();

#endif
