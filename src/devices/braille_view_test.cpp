// braille_view_test.cpp - the braille view read back into dots: it must give
// the dot map again, whole at scale 1 and merged at scale 3.
#include "devices/braille_view.h"

#include <random>

#include "devices/sheet.h"
#include "geometry/page.h"
#include "support/test_env.h"

// The dots of a view: raised[page][row][column], from the UTF-8 characters.
using Pages = std::vector<std::vector<std::vector<int>>>;
static Pages decode(const std::string &text) {
  static const int bit[4][2] = {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
  Pages pages(1);
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find('\n', at);
    std::string line = text.substr(at, end - at);
    at = end + 1;
    if (line == "\f") {
      pages.emplace_back();
      continue;
    }
    auto &rows = pages.back();
    rows.resize(rows.size() + 4);
    for (size_t i = 0; i + 2 < line.size(); i += 3) {
      int code = (line[i] & 0x0F) << 12 | (line[i + 1] & 0x3F) << 6 | (line[i + 2] & 0x3F);
      EXPECT_EQ(code & ~0xFF, 0x2800) << line;
      for (int r = 0; r < 4; r++)
        for (int c = 0; c < 2; c++) {
          auto &row = rows[rows.size() - 4 + r];
          if (row.size() < i / 3 * 2 + 2) row.resize(i / 3 * 2 + 2);
          row[i / 3 * 2 + c] = (code & bit[r][c]) != 0;
        }
    }
  }
  return pages;
}

static int raised_at(const Pages &p, size_t page, int r, int c) {
  if (page >= p.size() || r >= static_cast<int>(p[page].size())) return 0;
  const auto &row = p[page][r];
  return c < static_cast<int>(row.size()) && row[c];
}

class BrailleViewTest : public TactoTest {};

TEST_F(BrailleViewTest, ExactCharactersTrimmedLinesAndPageBreaks) {
  DotGrid g{9, 5, std::vector<uint8_t>(45, 0)};
  g.raised[0 * 5 + 0] = g.raised[3 * 5 + 1] = 1;  // dots 1 and 8 of the first character
  g.raised[4 * 5 + 3] = 1;                        // dot 4 of the second character, next line
  Capture out;
  braille_view_put(out.file(), g, 1, 1);
  braille_view_put(out.file(), DotGrid{2, 1, {0, 1}}, 1, 2);
  EXPECT_EQ(out.text(), "\u2881\n\u2800\u2808\n\n\f\n\u2802\n");
  EXPECT_EQ(braille_view(g, 3), "\u2813\n");  // merged 3 x 2: (0,0), (1,0) and (1,1)
}

TEST_F(BrailleViewTest, DecodesBackToTheDotMapWholeAndMerged) {
  select_paper(EVEREST_D, 4);  // a small map: 475 x 325 cells
  ASSERT_EQ(alloc_dmap(), 1);
  std::mt19937 rng(11);
  for (int i = 0; i < 3000; i++) set_dot(rng() % (dmap.row_max + 1), rng() % (dmap.col_max + 1), rng() % 3);
  DotGrid grid = dot_grid_from_dmap(dmap, 1);
  ASSERT_EQ(grid.rows, 475);
  ASSERT_EQ(grid.cols, 325);
  std::string text = braille_view(grid, 1) + "\f\n" + braille_view(grid, 3);
  Pages pages = decode(text);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(pages[0].size(), (475u + 3) / 4 * 4);
  for (int r = 0; r <= dmap.row_max; r++)
    for (int c = 0; c <= dmap.col_max; c++) {
      ASSERT_EQ(raised_at(pages, 0, r, c), get_dot(r, c) != 3) << r << " " << c;
      int any = 0;
      for (int rr = r / 3 * 3; rr < r / 3 * 3 + 3 && rr <= dmap.row_max; rr++)
        for (int cc = c / 3 * 3; cc < c / 3 * 3 + 3 && cc <= dmap.col_max; cc++) any |= get_dot(rr, cc) != 3;
      ASSERT_EQ(raised_at(pages, 1, r / 3, c / 3), any) << r << " " << c;
    }
}

TEST_F(BrailleViewTest, LandscapeTurnsThePageAsTheSheetLies) {
  ASSERT_EQ(alloc_dmap(), 1);
  set_landscape();
  const int cells[3][2] = {{0, 0}, {790, 599}, {100, 20}};
  for (const auto &cell : cells) set_dot(cell[0], cell[1], 1);
  DotGrid grid = dot_grid_from_dmap(dmap, 0);
  ASSERT_EQ(grid.rows, 600);
  ASSERT_EQ(grid.cols, 791);
  Pages pages = decode(braille_view(grid, 1));
  // A view position (r, c) lies where the sheet puts the cell: c pitches
  // across from the first column, r down from the top row.
  double left, top;
  sheet_dot_mm(page_geom, 790, 0, &left, &top);
  int found = 0;
  for (int r = 0; r < grid.rows; r++)
    for (int c = 0; c < grid.cols; c++)
      if (raised_at(pages, 0, r, c)) {
        found++;
        bool matched = false;
        for (const auto &cell : cells) {
          double x, y;
          sheet_dot_mm(page_geom, cell[0], cell[1], &x, &y);
          matched |= std::abs(x - (left + c * pitch_x())) < 1e-6 && std::abs(y - (top + r * pitch_y())) < 1e-6;
        }
        EXPECT_TRUE(matched) << r << " " << c;
      }
  EXPECT_EQ(found, 3);
}
