// braille_view.cpp - dot grids as Unicode braille text.
#include "devices/braille_view.h"

#include <algorithm>

// The dot bit of the position (row 0-3, column 0-1) inside one character:
// dots 1-2-3 and 7 down the left column, 4-5-6 and 8 down the right.
static const uint8_t dot_bit[4][2] = {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};

DotGrid dot_grid_from_dmap(const DotMap &map, int portrait) {
  DotGrid g{0, 0, {}};
  if (map.rows == nullptr) return g;
  int map_rows = map.row_max - map.row_min + 1, map_cols = map.col_max - map.col_min + 1;
  g.rows = portrait ? map_rows : map_cols;
  g.cols = portrait ? map_cols : map_rows;
  g.raised.assign(static_cast<size_t>(g.rows) * g.cols, 0);
  for (int r = 0; r < map_rows; r++) {
    const uint8_t *cells = map.rows[map.row_min + r];
    for (int c = 0; c < map_cols; c++) {
      int col = map.col_min + c;
      if (((cells[col / 4] >> (2 * (col % 4))) & 3) == 3) continue;
      // Turned: the map's last row is the sheet's first column, its
      // first column the sheet's top row.
      size_t at = portrait ? static_cast<size_t>(r) * g.cols + c : static_cast<size_t>(c) * g.cols + (map_rows - 1 - r);
      g.raised[at] = 1;
    }
  }
  return g;
}

// Appends the UTF-8 form of U+2800 + bits (three bytes).
static void put_char(std::string &out, int bits) {
  int code = 0x2800 + bits;
  out += static_cast<char>(0xE0 | (code >> 12));
  out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
  out += static_cast<char>(0x80 | (code & 0x3F));
}

std::string braille_view(const DotGrid &grid, int k) {
  if (k < 1) k = 1;
  // The grid merged k by k: a position is raised when any of its dots is.
  int rows = grid.rows > 0 ? (grid.rows - 1) / k + 1 : 0;
  int cols = grid.cols > 0 ? (grid.cols - 1) / k + 1 : 0;
  std::vector<uint8_t> merged(static_cast<size_t>(rows) * cols, 0);
  for (int r = 0; r < grid.rows; r++)
    for (int c = 0; c < grid.cols; c++)
      if (grid.raised[static_cast<size_t>(r) * grid.cols + c]) merged[static_cast<size_t>(r / k) * cols + c / k] = 1;

  std::string out;
  std::vector<uint8_t> line((cols + 1) / 2);
  for (int top = 0; top < rows; top += 4) {
    std::fill(line.begin(), line.end(), 0);
    int used = 0;  // characters up to the last that is not blank
    for (int r = top; r < top + 4 && r < rows; r++)
      for (int c = 0; c < cols; c++)
        if (merged[static_cast<size_t>(r) * cols + c]) {
          line[c / 2] |= dot_bit[r - top][c % 2];
          if (c / 2 + 1 > used) used = c / 2 + 1;
        }
    for (int i = 0; i < used; i++) put_char(out, line[i]);
    out += '\n';
  }
  return out;
}

void braille_view_put(FILE *out, const DotGrid &grid, int k, int page) {
  if (page > 1) fputs("\f\n", out);
  std::string text = braille_view(grid, k);
  fwrite(text.data(), 1, text.size(), out);
}
