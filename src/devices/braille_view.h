// braille_view.h - a page's dot grid as lines of eight-dot Unicode braille
// (U+2800-U+28FF, UTF-8): one character shows 2 columns by 4 rows of grid
// positions, so a refreshable braille display or a terminal shows the real
// page. A scale K merges K by K grid positions into one (raised if any is).
#ifndef TACTO_DEVICES_BRAILLE_VIEW_H
#define TACTO_DEVICES_BRAILLE_VIEW_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "raster/dmap.h"

// A page of grid positions, raised (1) or not (0), row by row from the top.
struct DotGrid {
  int rows, cols;
  std::vector<uint8_t> raised;  // rows * cols entries
};

// The dot map's page as the sheet lies: portrait as stored, landscape turned
// a quarter so that the grid's x runs across and its y up. Every stored size
// is a raised dot; 3 is none.
DotGrid dot_grid_from_dmap(const DotMap &map, int portrait);

// The page's lines at scale k (below 1 taken as 1), each ending in "\n",
// trailing blank characters (U+2800) trimmed; empty lines are kept.
std::string braille_view(const DotGrid &grid, int k);

// Writes page number `page` (from 1): a form feed line before every page but
// the first, then the page's lines.
void braille_view_put(FILE *out, const DotGrid &grid, int k, int page);

#endif
