// sheet.h - the paper as it lies in front of the reader: its size in
// millimetres, where each grid dot lands on it, and how big a dot of each
// size is drawn. The previews and the legibility checks measure with it.
#ifndef TACTO_DEVICES_SHEET_H
#define TACTO_DEVICES_SHEET_H

#include "geometry/page.h"

// A sheet of paper: its size in portrait, and how it is turned.
struct Sheet {
  double width_mm, height_mm;  // portrait: width across, height down
  int portrait;                // 0: turned, width and height exchange places
};

// The sheet of the current paper and orientation. Its size is the paper's
// (JIS b5 and b4, ISO a4 and a3; p8 and p10 use the b5 and a4 sheets their
// grids were made for), grown to the grid where the grid is the larger.
Sheet sheet_of(const PageGeom &g);

// Width and height of the sheet as it lies (landscape exchanges them).
double sheet_width(const Sheet &s);
double sheet_height(const Sheet &s);

// Where the centre of the dot-map cell (row, col) lies on the sheet as it
// lies, in mm from its left and top edges. The grid sits in the middle of
// the sheet with the printer's pitches between dots, and turns with it.
void sheet_dot_mm(const PageGeom &g, int row, int col, double *x_mm, double *y_mm);

// Radius in mm of a dot of size 0-2 (others clamped): the size plus one,
// in points, as in the PostScript document.
double sheet_dot_radius_mm(int size);

#endif
