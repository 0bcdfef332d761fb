// embosser_test.cpp - the byte streams: plotter mode, dot addresses, the
// Everest-D set-up, form feeds and whole pages from the dot map.
#include "devices/embosser.h"

#include <string>

#include "geometry/page.h"
#include "raster/dmap.h"
#include "raster/plot.h"
#include "support/test_env.h"

class EmbosserTest : public TactoTest {};

static std::string bytes(std::initializer_list<int> codes) {
  std::string s;
  for (int c : codes) s += static_cast<char>(c);
  return s;
}

static std::string size_command(int code) { return "\x1b\x1b" "D" + std::to_string(code); }

// The four address bytes of a device cell, column first.
static std::string at(int row, int col) {
  return bytes({col / 32 + 32, col % 32 + 96, row / 32 + 32, row % 32 + 64});
}

TEST_F(EmbosserTest, AddressesAreTwoTenBitCoordinatesColumnFirst) {
  emit_dot_address(0, 0);
  emit_dot_address(33, 100);
  emit_dot_address(1023, 831);
  emit_move(1, 2);
  EXPECT_EQ(emitted(), bytes({32, 96, 32, 64, 35, 100, 33, 65, 57, 127, 63, 95, 29, 32, 98, 32, 65}));
}

TEST_F(EmbosserTest, PlotterModeIsEnteredAndLeftOnce) {
  enter_plotter_mode();
  enter_plotter_mode();
  leave_plotter_mode();
  leave_plotter_mode();
  select_paper(1, 2);
  enter_plotter_mode();
  leave_plotter_mode();
  EXPECT_EQ(emitted(), bytes({27, 27, 71, 13, 27, 27, 71, 13}));
}

TEST_F(EmbosserTest, EverestSetUpPerPaperAndOnlyOncePerPage) {
  select_paper(2, 6);
  enter_plotter_mode();
  leave_plotter_mode();  // the Everest-D sends nothing to leave
  enter_plotter_mode();
  EXPECT_EQ(emitted(), "\x1b" "DBT0,TD0,DP1,LS27,TM1,BI2,CH32,LP27;\n"
                       "\x1b" "FOR0.00:0.00,WX190.00,HY277.00;\n");
  send_form_feed();
  EXPECT_EQ(embosser.everest_setup_sent, 0);
  select_paper(2, 5);
  set_landscape();
  enter_plotter_mode();
  std::string out = emitted();
  EXPECT_EQ(out.substr(out.find(";\x0c\n")),
            ";\x0c\n"
            "\x1b" "DBT0,TD0,DP1,LS50,TM1,BI2,CH39,LP34;\n"
            "\x1b" "FOR0.00:0.00,WX344.00,HY237.00;\n");
}

TEST_F(EmbosserTest, PrintDmapNeedsAMap) {
  EXPECT_EQ(print_dmap(), 0);
  EXPECT_NE(errors().find("no dot map"), std::string::npos);
  EXPECT_EQ(emitted(), "");
}

TEST_F(EmbosserTest, Esa721SweepsBackAndForthBySize) {
  alloc_dmap();
  set_dot(0, 1, 1);
  set_dot(0, 5, 1);
  set_dot(1, 2, 1);
  set_dot(1, 7, 1);
  set_dot(3, 4, 0);
  set_dot(3, 6, 2);
  set_dot(3, 9, 1);
  set_dot(3, 3, 2);
  plot_state.dot_size = 0;
  ASSERT_EQ(print_dmap(), 1);
  // Row 0 left to right, row 1 right to left (one size command a row); row 3
  // size 1 left to right, size 0 right to left, size 2 left to right.
  EXPECT_EQ(emitted(), "\x1b\x1bG" + size_command(1) + at(0, 1) + at(0, 5) + size_command(1) + at(1, 7) +
                           at(1, 2) + size_command(1) + at(3, 9) + size_command(0) + at(3, 4) + size_command(2) +
                           at(3, 3) + at(3, 6));
  EXPECT_EQ(errors(), "print_dmap 0\n");
  EXPECT_EQ(plot_state.dot_size, 0);
}

TEST_F(EmbosserTest, Esa600gSendsTheWholePageSizeBySize) {
  select_paper(1, 3);
  alloc_dmap();
  set_dot(0, 9, 2);
  set_dot(0, 3, 1);
  set_dot(5, 1, 1);
  set_dot(7, 7, 4);  // a mirrored size-0 code comes back as 0
  set_dot(8, 8, 3);  // the unmirrored size-0 code is no dot
  print_dmap();
  EXPECT_EQ(emitted(), "\x1b\x1bG" + size_command(1) + at(0, 3) + at(5, 1) + size_command(0) + at(7, 7) +
                     size_command(2) + at(0, 9));
}

TEST_F(EmbosserTest, EverestSendsNothingFromTheMap) {
  select_paper(2, 6);
  alloc_dmap();
  set_dot(3, 3, 1);
  print_dmap();
  std::string out = emitted();
  EXPECT_EQ(out.rfind(";\n"), out.size() - 2);  // the set-up block and nothing after it
}

TEST_F(EmbosserTest, BeginAndEndFrameAJob) {
  begin_job();
  begin_job();
  end_job();
  end_job();
  select_paper(2, 6);
  begin_job();
  begin_job();  // the Everest-D starts a new job each time, set-up included
  EXPECT_EQ(embosser.job_open, 1);
  std::string out = emitted();
  EXPECT_EQ(out.substr(0, 4), bytes({27, 27, 71, 13}));
  EXPECT_NE(out.find("DBT0", out.find("DBT0") + 1), std::string::npos);  // set-up twice
}
