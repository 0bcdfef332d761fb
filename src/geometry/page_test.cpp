// page_test.cpp - papers, the frame, window and origin checks, orientation,
// the V/H ratio and the status lines.
#include "geometry/page.h"

#include <string>

#include "core/run_state.h"
#include "geometry/transform.h"
#include "raster/dmap.h"
#include "support/test_env.h"

class PageTest : public TactoTest {};

static std::string rects() {
  const PageGeom &g = page_geom;
  char buf[160];
  snprintf(buf, sizeof buf, "p %d %d %d %d f %d %d %d %d w %g %g %g %g", g.p.x0, g.p.x1, g.p.y0, g.p.y1, g.f.x0,
           g.f.x1, g.f.y0, g.f.y1, g.w.x0, g.w.x1, g.w.y0, g.w.y1);
  return buf;
}

TEST_F(PageTest, SelectPaperLoadsBothTablesOrRefuses) {
  ASSERT_EQ(select_paper(1, 2), 1);  // the uncentred ESA600G b5 window
  EXPECT_EQ(rects(), "p 0 633 0 936 f 0 633 0 936 w -8.28 8.55 -12.48 11.48");
  EXPECT_EQ(page_geom.pitch_v, 0.255620713);
  EXPECT_EQ(gap_l(), 41);
  ASSERT_EQ(select_paper(2, 7), 1);
  EXPECT_EQ(rects(), "p 0 554 0 800 f 0 554 0 800 w -13.85 13.85 -20 20");
  EXPECT_EQ(page_geom.paper_flag[PAPER_A3] + page_geom.paper_flag[PAPER_B5], 1);
  // The formula holds (10 mm a unit both ways, plus 0.00005).
  EXPECT_NEAR(vh_ratio(), (800 * 0.5 / 40.0) / (554 * 0.5 / (2 * 13.85f)) + 0.00005, 1e-9);

  set_frame(10, 20, 10, 20, -1, 1, -1, 1);
  EXPECT_EQ(select_paper(2, 3), 0);
  EXPECT_EQ(select_paper(3, 1), 0);
  std::string e = errors();
  EXPECT_NE(e.find("illegal paper_size 3 (0-9)\n"), std::string::npos);
  EXPECT_NE(e.find("illegal printer 3 (0-2)"), std::string::npos);
  EXPECT_EQ(rects(), "p 0 554 0 800 f 10 20 10 20 w -1 1 -1 1");
}

TEST_F(PageTest, ChoosingAPaperForcesPortraitAndClearsMirrorAndGap) {
  alloc_dmap();
  set_gap(1, 2.0);
  set_mirror(1, 3.0);
  set_landscape();
  run_program("set_printer 0 0\n");
  EXPECT_EQ(run_state.error_count, 0);
  EXPECT_EQ(rects(), "p 0 479 0 724 f 0 479 0 724 w -8.28 8.28 -11.48 11.48");
  EXPECT_EQ(xform.mirror_on + dmap.gap_flag + dmap.gap_value, 0);
  EXPECT_EQ(gap_h(), 6);  // portrait ESA721 gaps
}

TEST_F(PageTest, PaperCommandsFollowThePrinter) {
  EXPECT_EQ(paper_command(PAPER_B4), 0);  // the ESA721 has no b4
  EXPECT_NE(errors().find("invalid printer"), std::string::npos);
  select_paper(2, 4);
  set_landscape();
  EXPECT_EQ(paper_command(PAPER_P10), 1);
  EXPECT_EQ(page_geom.portrait, 1);  // a paper command always leaves portrait
  EXPECT_EQ(rects(), "p 0 414 0 501 f 0 414 0 501 w -10.35 10.35 -12.53 12.53");
}

TEST_F(PageTest, FrameAndWindowChecksInOrder) {
  EXPECT_EQ(set_frame(0, 599, 0, 790, -1, 1, -1, 1), 1);
  EXPECT_EQ(set_frame(0, 600, 0, 790, -2, 2, -2, 2), 0);
  EXPECT_EQ(set_frame(10, 5, 0, 790, -2, 2, -2, 2), 0);
  EXPECT_EQ(set_frame(-1, 5, 0, 790, -2, 2, -2, 2), 0);
  EXPECT_EQ(set_frame(0, 5, 791, 790, -2, 2, -2, 2), 0);
  EXPECT_EQ(set_frame(0, 5, 7, 6, -2, 2, -2, 2), 0);
  EXPECT_EQ(set_window(1, 1, -2, 2), 0);
  EXPECT_EQ(set_window(-2, 2, 3, -3), 0);
  // Refused as well: ranges that collapse or overflow once narrowed to float.
  EXPECT_EQ(set_window(1.0, 1.00000001, -1, 1), 0);
  EXPECT_EQ(set_window(-1e39, 1, -1, 1), 0);
  std::string e = errors();
  for (const char *m : {"frame out of range: x1 = 600 (0-599)", "frame out of range: x1 = 5 (10-599)",
                        "frame out of grid: x0 = -1 (0-599)", "frame out of grid: y0 = 791 (0-790)",
                        "frame out of range: y1 = 6 (7-790)", "frame illegal x range of window (1.00-1.00)",
                        "frame illegal y range of window (3.00--3.00)"})
    EXPECT_NE(e.find(m), std::string::npos) << m;
  EXPECT_EQ(run_state.error_count, 9);
  EXPECT_EQ(set_frame(7, 7, 9, 9, -1, 1, -1, 1), 1);  // a one-dot frame; the grid stays
  EXPECT_EQ(rects(), "p 0 599 0 790 f 7 7 9 9 w -1 1 -1 1");
}

TEST_F(PageTest, OriginShiftsScalesAndComposes) {
  set_window(-10, 10, -10, 10);
  EXPECT_EQ(set_origin(2, 4, 2, 0.5), 1);
  EXPECT_EQ(set_origin(-6, 0, 1, 1), 1);
  EXPECT_EQ(set_origin(0, 0, 0, 1), 0);
  EXPECT_EQ(set_origin(0, 0, 1, -2), 0);
  EXPECT_EQ(set_origin(1e300, 0, 1, 1), 0);  // no window would be left
  std::string e = errors();
  EXPECT_NE(e.find("negative or zero bias x = 0.00"), std::string::npos);
  EXPECT_NE(e.find("negative or zero bias y = -2.00"), std::string::npos);
  EXPECT_EQ(rects(), "p 0 599 0 790 f 0 599 0 790 w 0 10 -28 12");
}

TEST_F(PageTest, LandscapeSwapsOnceAndTheConversionsFollow) {
  set_frame(5, 50, 5, 50, -1, 1, -2, 2);
  set_portrait();  // already portrait: the frame command stands
  EXPECT_EQ(page_geom.f.x1, 50);
  set_landscape();
  set_landscape();
  EXPECT_EQ(rects(), "p 0 790 0 599 f 0 790 0 599 w -12.53 12.53 -10.35 10.35");
  EXPECT_EQ(gap_s(), 18);  // landscape ESA721 gaps
  // 790 dots of pitch_v across, 599 of pitch_h up.
  EXPECT_NEAR(dx_to_mm(2 * 12.53f), 790 * 0.317215, 1e-4);
  EXPECT_NEAR(mm_to_dy(599 * 0.345576), 20.7, 1e-5);
  EXPECT_NEAR(mm_to_dx(dx_to_mm(3.25)), 3.25, 1e-12);
  set_portrait();
  EXPECT_EQ(rects(), "p 0 599 0 790 f 0 599 0 790 w -10.35 10.35 -12.53 12.53");
  EXPECT_NEAR(dy_to_mm(2.0), 2 * 790 * 0.317215 / (2 * 12.53f), 1e-6);
}

TEST_F(PageTest, StatusLinesInTraceAndOnTheConsole) {
  char ratio[32];
  snprintf(ratio, sizeof ratio, "V/H ratio: %.4f\n", vh_ratio());
  run_state.run_mode = MODE_TEST;
  show_geometry();
  EXPECT_EQ(echoed(), "  grid(0 599 0 790)\n  frame(0 599 0 790)\n  window(-10.35 10.35 -12.53 12.53)\n"
                      "a4 and portrait on ESA721\n" + std::string(ratio));
  run_state.run_mode = MODE_NORMAL;
  errors();
  show_geometry();
  EXPECT_EQ(errors(), "  grid(0 599 0 790)\n  frame(0 599 0 790)\n  window(-10.35 10.35 -12.53 12.53)\n"
                      "a4 portrait, ,ESA721\n" + std::string(ratio) + "dot gap: h 6, v 7, s 15, l 33\n");
  set_landscape();
  show_geometry();
  EXPECT_NE(errors().find("a4 landscape, ESA721\n"), std::string::npos);
}
