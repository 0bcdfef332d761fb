// dmap_test.cpp - the packed dot map, its bounds, the gap rules and the erasers.
#include "raster/dmap.h"

#include <string>

#include "geometry/page.h"
#include "raster/plot.h"
#include "support/test_env.h"

class DmapTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    alloc_dmap();
  }
};

// The dots of the map as "row,col=size" entries, row by row.
static std::string dots() {
  std::string s;
  for (int r = dmap.row_min; r <= dmap.row_max; r++)
    for (int c = dmap.col_min; c <= dmap.col_max; c++)
      if (get_dot(r, c) != 3) s += std::to_string(r) + "," + std::to_string(c) + "=" + std::to_string(get_dot(r, c)) + " ";
  return s;
}

TEST_F(DmapTest, FourTwoBitCellsAByte) {
  EXPECT_EQ(get_dot(790, 599), 3);  // cleared up to the last column
  set_dot(2, 4, 0);
  set_dot(2, 5, 1);
  set_dot(2, 6, 2);
  set_dot(2, 8, 5);  // only the low two bits are kept
  EXPECT_EQ(dmap.rows[2][1], 0xE4);  // cells 3 2 1 0 from the high bits down
  EXPECT_EQ(dmap.rows[2][2], 0xFD);
  EXPECT_EQ(get_dot(2, 8), 1);
  set_dot(790, 599, 2);
  EXPECT_EQ(dots(), "2,4=0 2,5=1 2,6=2 2,8=1 790,599=2 ");
  clear_dmap();
  EXPECT_EQ(dots(), "");
}

TEST_F(DmapTest, OutOfRangeCellsAreReported) {
  EXPECT_EQ(set_dot(791, 0, 1) + set_dot(0, 0, 7) + put_dot(0, -1, 0) + put_dot(800, 0, 0), 0);
  EXPECT_EQ(get_dot(-1, 3) + get_dot(3, 600), 6);
  std::string e = errors();
  for (const char *m : {"overflow set_dot (791, 0)", "illegal size 7 set_dot(0-6)", "overflow x get_dot(-1, 3)",
                        "overflow y get_dot(3, 600)", "overflow y -1 put_dot(0, 599)", "overflow x 800 put_dot(0, 790)"})
    EXPECT_NE(e.find(m), std::string::npos) << m;
  EXPECT_EQ(dots(), "");
  EXPECT_EQ(dmap.has_dots, 0);
}

TEST_F(DmapTest, GapRadiiTakeThePitchesCrosswise) {
  set_gap(1, -1.0);  // 1 mm: rows over pitch_h, columns over pitch_v
  EXPECT_EQ(dmap.gap_value, -1);
  EXPECT_EQ(dmap.gap_rows * 10 + dmap.gap_cols, 23);
  set_landscape();
  set_gap(2, 1.0);
  EXPECT_EQ(dmap.gap_rows * 10 + dmap.gap_cols, 32);
  EXPECT_EQ(set_gap(3, 1.0), 0);
  EXPECT_NE(errors().find("illeegal gap_flag 3 (0-2)\n"), std::string::npos);
  EXPECT_EQ(dmap.gap_flag, 2);
  free_dmap();
  set_gap(0, 0);  // without a map nothing changes
  EXPECT_EQ(dmap.gap_flag, 2);
}

TEST_F(DmapTest, NegativeGapDropsADotWhereThereIsNoRoom) {
  plot_state.dot_size = 1;
  set_gap(1, -1.0);  // radii 2 rows and 3 columns, distance squared up to 6
  put_dot(100, 100, plot_state.dot_size);
  put_dot(101, 102, plot_state.dot_size);  // 1 + 4 <= 6: occupied, dropped
  put_dot(100, 103, plot_state.dot_size);  // 9 > 6: placed
  set_gap(1, -1.5);   // radii 4 and 4: a distance of exactly 4 counts as near
  put_dot(200, 200, plot_state.dot_size);
  put_dot(204, 200, plot_state.dot_size);
  put_dot(200, 205, plot_state.dot_size);
  EXPECT_EQ(dots(), "100,100=1 100,103=1 200,200=1 200,205=1 ");
}

TEST_F(DmapTest, PositiveGapClearsAMarginAroundTheNewDot) {
  plot_state.dot_size = 2;
  set_dot(100, 100, 0);
  set_dot(98, 100, 0);  // 4 + 1 <= 6: cleared
  set_dot(100, 98, 0);  // 9 > 6: kept although inside the column radius
  set_gap(1, 1.0);
  put_dot(100, 101, plot_state.dot_size);
  EXPECT_EQ(dots(), "100,98=0 100,101=2 ");
  EXPECT_EQ(dmap.has_dots, 1);
}

TEST_F(DmapTest, ZeroGapValueOnlyPlacesAndGapTwoOnlyClears) {
  plot_state.dot_size = 1;
  set_dot(10, 11, 0);
  set_gap(1, 0.5);  // value 0, radius 1 row and 1 column
  put_dot(10, 10, plot_state.dot_size);
  EXPECT_EQ(dots(), "10,10=1 10,11=0 ");
  set_gap(2, 1.0);
  put_dot(10, 10, plot_state.dot_size);
  EXPECT_EQ(dots(), "");
  set_gap(2, -1.0);  // clears around, then the centre gets its dot
  set_dot(11, 10, 0);
  put_dot(10, 10, plot_state.dot_size);
  EXPECT_EQ(dots(), "10,10=1 ");
}

TEST_F(DmapTest, ScrapeErasesADiscAndTheEraserARectangle) {
  for (int r = 380; r <= 410; r++)
    for (int c = 290; c <= 310; c++) set_dot(r, c, 1);
  EXPECT_EQ(scrape(0, 0, 0.3), 0);  // less than one pitch: nothing
  ASSERT_EQ(scrape(0, 0, 1.0), 1);  // R = trunc(1 / 0.345576) = 2 about row 395, col 300
  EXPECT_NE(errors().find("\nscrape (0.00, 0.00) radius 2 dot"), std::string::npos);
  EXPECT_EQ(dots().size(), std::string("380,290=1 ").size() * (31 * 21 - 13));
  EXPECT_EQ(get_dot(395, 302) * 10 + get_dot(396, 302), 31);
  // a = 0.1 unit: 790 * 0.1 / 25.06 = 3 rows; b = 0.2: 599 * 0.2 / 20.7 = 5 columns.
  ASSERT_EQ(erase_rect(-2, 2, 0.1, 0.2), 1);  // about row 332, col 242: outside the block
  ASSERT_EQ(erase_rect(0, 0, 0.1, 0.2), 1);
  int left = 0;
  for (int r = 380; r <= 410; r++)
    for (int c = 290; c <= 310; c++) left += get_dot(r, c) != 3;
  EXPECT_EQ(left, 31 * 21 - 7 * 11);
  EXPECT_EQ(get_dot(392, 295) * 100 + get_dot(391, 295) * 10 + get_dot(392, 294), 311);
  EXPECT_EQ(scrape(99, 0, 1.0), 0);  // outside the window: silent
}
