// sheet.cpp - paper sizes, grid dots on the sheet, dot radii.
#include "devices/sheet.h"

static const double MM_PER_POINT = 25.4 / 72;

// Portrait paper sizes in mm, in the order of the paper flags.
static const double paper_mm[PAPER_KINDS][2] = {
    {182, 257},  // b5
    {257, 364},  // b4
    {210, 297},  // a4
    {297, 420},  // a3
    {182, 257},  // p8: the ESA721's b5 grid and window
    {210, 297},  // p10: the ESA721's a4 grid and window
};

// Extent in mm of the portrait grid from the first dot centre to the last.
static double grid_width(const PageGeom &g) { return (g.default_grid.x1 - g.default_grid.x0) * g.pitch_h; }
static double grid_height(const PageGeom &g) { return (g.default_grid.y1 - g.default_grid.y0) * g.pitch_v; }

Sheet sheet_of(const PageGeom &g) {
  int kind = PAPER_A4;
  for (int i = 0; i < PAPER_KINDS; i++)
    if (g.paper_flag[i]) kind = i;
  Sheet s;
  s.width_mm = paper_mm[kind][0];
  s.height_mm = paper_mm[kind][1];
  if (grid_width(g) > s.width_mm) s.width_mm = grid_width(g);
  if (grid_height(g) > s.height_mm) s.height_mm = grid_height(g);
  s.portrait = g.portrait ? 1 : 0;
  return s;
}

double sheet_width(const Sheet &s) { return s.portrait ? s.width_mm : s.height_mm; }
double sheet_height(const Sheet &s) { return s.portrait ? s.height_mm : s.width_mm; }

void sheet_dot_mm(const PageGeom &g, int row, int col, double *x_mm, double *y_mm) {
  Sheet s = sheet_of(g);
  // Portrait position first: columns across at pitch_h, rows down at pitch_v.
  double left = (s.width_mm - grid_width(g)) / 2, top = (s.height_mm - grid_height(g)) / 2;
  double px = left + (col - g.default_grid.x0) * g.pitch_h;
  double py = top + (row - g.default_grid.y0) * g.pitch_v;
  if (g.portrait) {
    *x_mm = px;
    *y_mm = py;
    return;
  }
  // Turned a quarter anticlockwise: the first row runs up the right edge.
  *x_mm = s.height_mm - py;
  *y_mm = px;
}

double sheet_dot_radius_mm(int size) {
  if (size < 0) size = 0;
  if (size > 2) size = 2;
  return (size + 1) * MM_PER_POINT;
}
