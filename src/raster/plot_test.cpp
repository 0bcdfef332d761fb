// plot_test.cpp - where a dot goes (trace, map, embosser), plot0, moves, the
// point marker, dot sizes, dash patterns and page feeds.
#include "raster/plot.h"

#include <string>

#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"
#include "support/test_env.h"

class PlotTest : public TactoTest {};

static const std::string ENTER = "\x1b\x1bG";

// The four address bytes of a device cell, column first.
static std::string address(int row, int col) {
  return {static_cast<char>(col / 32 + 32), static_cast<char>(col % 32 + 96), static_cast<char>(row / 32 + 32),
          static_cast<char>(row % 32 + 64)};
}

TEST_F(PlotTest, APointOutsideTheFrameReachesNoOutput) {
  set_frame(0, 299, 0, 790, -10.35, 10.35, -12.53, 12.53);
  for (int mode : {MODE_NORMAL, MODE_DEBUG, MODE_TEST}) {
    run_state.run_mode = mode;
    EXPECT_EQ(plot_dot(0.05, 0, 0), 0) << mode;  // dot 301 lies beyond the frame
  }
  alloc_dmap();
  dmap.printer_mode = 1;
  run_state.run_mode = MODE_NORMAL;
  EXPECT_EQ(plot_dot(0.05, 0, 0), 0);
  EXPECT_EQ(echoed() + emitted(), "");
  EXPECT_EQ(dmap.has_dots, 0);
}

TEST_F(PlotTest, TracesShowDotsInDebugAndTransformedWorldValuesInTest) {
  run_state.run_mode = MODE_DEBUG;
  EXPECT_EQ(plot_dot(0, 0, 2), 1);
  move_to(0, 0);
  run_state.run_mode = MODE_TEST;
  set_rotate(1, 0, 0, 90);
  plot_dot(2, 0, 3);
  move_to(1.5, 0);
  EXPECT_EQ(echoed(), "   Plot 300 395 2\n   Move 300 395\n   plot 0.000 2.000 3\n   move 0.000 1.500\n");
  EXPECT_EQ(emitted(), "");
}

TEST_F(PlotTest, PlotterModeEmbossesDotsAndMovesButNeverTheEndOfAStroke) {
  set_frame(0, 10, 0, 10, -10.35, 10.35, -12.53, 12.53);
  EXPECT_EQ(move_to(0, 0), 1);  // moves are clipped by the grid, not the frame
  EXPECT_EQ(move_to(0, 13), 0);
  set_frame(0, 599, 0, 790, -10.35, 10.35, -12.53, 12.53);
  plot_dot(0, 0, 0);
  plot_dot(0, 0, 3);
  plot_dot(10.35f, 12.5, 1);
  EXPECT_EQ(emitted(), ENTER + "\x1d" + address(395, 300) + address(395, 300) + address(1, 599));
}

TEST_F(PlotTest, PrinterModeCollectsInTheMapAndOtherCombinationsDrawNothing) {
  dmap.printer_mode = 1;
  plot_dot(0, 0, 0);  // printer mode without a map
  alloc_dmap();
  dmap.printer_mode = 0;
  plot_dot(0, 0, 0);  // plotter mode with a map
  EXPECT_EQ(dmap.has_dots, 0);
  dmap.printer_mode = 1;
  set_dot_size(2);  // nothing is sent while the map collects the page
  plot_dot(0, 0, 1);
  plot_dot(1, 0, 3);
  EXPECT_EQ(get_dot(395, 300) * 10 + get_dot(395, 328), 23);
  EXPECT_EQ(emitted(), "");
}

TEST_F(PlotTest, Plot0WarnsOutsideTheFrameAndTracesDeviceCells) {
  set_frame(10, 20, 10, 20, -1, 1, -1, 1);
  EXPECT_EQ(plot0(9, 15) + plot0(15, 21), 0);
  std::string e = errors();
  EXPECT_NE(e.find("plot0 x0: 9 (10, 20)\n"), std::string::npos);
  EXPECT_NE(e.find("plot0 y0: 21 (10, 20)\n"), std::string::npos);
  EXPECT_EQ(run_state.warning_count, 2);
  EXPECT_EQ(plot0(12, 20), 1);
  EXPECT_EQ(emitted(), ENTER + address(770, 12));
  run_state.run_mode = MODE_DEBUG;
  plot0(12, 20);
  EXPECT_EQ(echoed(), "   Plot 770 12 0\n");
}

TEST_F(PlotTest, PointIsACrossOfSmallDotsAroundABigOne) {
  alloc_dmap();
  dmap.printer_mode = 1;
  set_gap(1, -5.0);  // switched off for the cross and restored after it
  plot_state.dot_size = 0;
  // (0, 0) snaps down to grid (299, 395); the ESA721 arm is three dots.
  point_mark(0, 0, 0);
  EXPECT_EQ(get_dot(395, 299), 2);
  EXPECT_EQ(get_dot(392, 299) + get_dot(398, 299) + get_dot(395, 296) + get_dot(395, 302), 4);
  EXPECT_EQ(plot_state.dot_size, 0);
  EXPECT_EQ(dmap.gap_flag * 10 + dmap.gap_value, 5);
  run_state.run_mode = MODE_DEBUG;
  select_paper(2, 6);  // four dots on the others
  point_mark(0, 0, 4);
  EXPECT_EQ(echoed(), "   Plot 190 273 4\n   Plot 190 281 4\n   Plot 186 277 4\n   Plot 194 277 4\n"
                      "   Plot 190 277 4\n");
}

TEST_F(PlotTest, DotSizesPerPrinter) {
  EXPECT_EQ(set_dot_size(3), 0);
  EXPECT_EQ(set_dot_size(2), 1);
  EXPECT_EQ(emitted(), ENTER + "\x1b\x1b" "D2");
  select_paper(1, 3);
  set_dot_size(0);
  EXPECT_EQ(plot_state.dot_size, 3);
  set_mirror(1, 0);
  set_dot_size(0);
  EXPECT_EQ(emitted().substr(emitted().size() - 8), "\x1b\x1b" "D3\x1b\x1b" "D6");
  set_dot_size(-1);
  set_mirror(0, 0);
  set_dot_size(5);
  select_paper(2, 6);
  EXPECT_EQ(set_dot_size(9), 1);  // no sizes on the Everest-D
  EXPECT_EQ(plot_state.dot_size, 6);
  std::string e = errors();
  EXPECT_NE(e.find("illegal dot size 3 (printer 0)"), std::string::npos);
  EXPECT_NE(e.find("illegal dot size -1 (printer 1, mirrer 1)"), std::string::npos);
  EXPECT_NE(e.find("illegal dot size 5 (printer 1, mirror 0)"), std::string::npos);
  EXPECT_EQ(run_state.error_count, 3);
}

TEST_F(PlotTest, DashPatternsRepeatAndCanBeSuspended) {
  run_state.run_mode = MODE_DEBUG;
  set_design(1, 2, 1, 0, 0);
  for (int i = 0; i < 6; i++) plot_dot(i * 0.5, 0, 0);
  set_design(2, 0, 0, 0, 0);  // suspended: every dot
  plot_dot(0, 1, 0);
  set_design(3, 0, 0, 0, 0);
  next_design(0);
  plot_dot(0, 2, 0);
  // x = 1 (dot 328) and x = 2.5 fall on the pattern's gaps.
  EXPECT_EQ(echoed(), "   Plot 300 395 0\n   Plot 314 395 0\n   Plot 343 395 0\n   Plot 357 395 0\n"
                      "   Plot 300 427 0\n   Plot 300 458 0\n");
  EXPECT_EQ(set_design(1, 200, 50, 6, 1), 0);
  EXPECT_EQ(set_design(4, 1, 1, 1, 1), 0);
  std::string e = errors();
  EXPECT_NE(e.find("too long design 257 (1-256)"), std::string::npos);
  EXPECT_NE(e.find("illegal design mode 4 (0-3)"), std::string::npos);
  EXPECT_EQ(plot_state.pattern_len, 3);
}

TEST_F(PlotTest, AFeedSendsTheCollectedPageFirst) {
  alloc_dmap();
  dmap.printer_mode = 1;
  plot_state.dot_size = 1;
  plot_dot(0, 0, 0);
  page_feed(2);
  EXPECT_EQ(emitted(), ENTER + "\x1b\x1b" "D1" + address(395, 300) + "\r\f");
  EXPECT_EQ(get_dot(395, 300), 3);
  EXPECT_EQ(dmap.has_dots, 0);
  EXPECT_NE(errors().find("print_dmap 0\n"), std::string::npos);
  plot_dot(0, 1, 0);
  run_program("mirror 1 0\n");  // switching mirroring sends the page in hand, without a feed
  EXPECT_EQ(emitted().substr(emitted().size() - 12), "\x1b\x1bG\x1b\x1b" "D1" + address(363, 300) + "\r");
  EXPECT_EQ(get_dot(363, 300) * 10 + dmap.has_dots, 30);
}
