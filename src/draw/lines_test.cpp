// lines_test.cpp - pitch lines and hatch rows, dot by dot.
#include "draw/lines.h"

#include <cmath>
#include <cstring>

#include "core/run_state.h"
#include "geometry/page.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

class LinesTest : public DrawTest {};

// The walk's scale must give the very bits dx_to_mm and dy_to_mm give, or a
// dot could move; checked over papers, orientations and odd windows.
TEST_F(LinesTest, PaperScaleIsBitIdenticalToThePlainConversion) {
  const double samples[] = {0.0,   1e-9,    -1e-9,   0.0004, -0.0004, 0.1,       0.3333333333, 1.0,
                            -1.0,  2.5,     7.77777, -13.1,  100.0,   -12345.678, 1e-300,      3e10};
  auto check = [&](const char *what) {
    PaperScale s = paper_scale(page_geom);
    for (double d : samples) {
      double a = mm_along_x(s, d), b = dx_to_mm(d);
      double c = mm_along_y(s, d), e = dy_to_mm(d);
      EXPECT_EQ(0, memcmp(&a, &b, sizeof a)) << what << " x " << d;
      EXPECT_EQ(0, memcmp(&c, &e, sizeof c)) << what << " y " << d;
    }
  };
  select_paper(ESA721, 1);
  check("ESA721 a4 portrait");
  set_landscape();
  check("ESA721 a4 landscape");
  select_paper(ESA600G, 3);
  set_window(-3.3, 7.1, -2.9, 11.7);
  check("ESA600G odd window");
  set_landscape();
  set_origin(0.3, -0.7, 1.7, 0.9);
  check("ESA600G landscape with origin");
}

// Dots at x = 0, 2, 4 (pitch just under 2 mm, so each lands on an exact
// half of the 10 000 sub-steps). Left to right the last sub-step is examined
// and 4 gets its dot; right to left it never is, and 0 stays without one.
TEST_F(LinesTest, HorizontalLineReachesItsEndOnlyLeftToRight) {
  pitch_line(0, 0, 4, 0, 1.9999f);
  EXPECT_EQ(dots(), plain({{190, 277}, {194, 277}, {198, 277}}));
}

TEST_F(LinesTest, HorizontalLineRightToLeftStopsShortOfItsEnd) {
  pitch_line(4, 0, 0, 0, 1.9999f);
  EXPECT_EQ(dots(), plain({{198, 277}, {194, 277}}));
}

TEST_F(LinesTest, VerticalLinesFollowTheSameRuleOnY) {
  pitch_line(1, 0, 1, 4, 1.9999f);
  pitch_line(1, 4, 1, 0, 1.9999f);
  EXPECT_EQ(dots(), plain({{192, 277}, {192, 281}, {192, 285}, {192, 285}, {192, 281}}));
}

TEST_F(LinesTest, ZeroLengthLineIsOneDot) {
  EXPECT_EQ(pitch_line(0, 0, 0, 0, 2), 1);
  EXPECT_EQ(dots(), plain({{190, 277}}));
  EXPECT_EQ(run_state.error_count, 0);
}

TEST_F(LinesTest, BadPitchIsReportedAndDrawsNothing) {
  EXPECT_EQ(pitch_line(0, 0, 4, 0, 0), 0);
  EXPECT_EQ(pitch_line(0, 0, 4, 0, -1), 0);
  EXPECT_EQ(pitch_line(0, 0, 4, 0, NAN), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": illegal pitch 0.00"), 1);
  EXPECT_EQ(count_of(err, ": illegal pitch -1.00"), 1);
  EXPECT_EQ(run_state.error_count, 3);
  EXPECT_TRUE(dots().empty());
}

// Coordinates that are not finite never meet the end test; the walk still ends.
TEST_F(LinesTest, InfiniteEndStillEnds) {
  EXPECT_EQ(pitch_line(0, 0, INFINITY, 0, 1), 1);
  EXPECT_EQ(dots(), plain({{190, 277}}));
}

// On a page where a unit is 1 mm across but 2 mm up, a 45-degree world line
// still gets its dots 3 mm apart on paper: the pitch rounded up to the next
// sub-step (20 * sqrt(5) / 10 000 mm), give or take the trace's 3 decimals.
TEST_F(LinesTest, SlantedLineIsSpacedOnPaper) {
  use_stretched_page();
  run_state.run_mode = MODE_TEST;
  pitch_line(0, 0, 20, 20, 3);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 15u);  // 44.7 mm of paper
  double substep = 20 * sqrt(5.0) / 10000;
  for (size_t i = 1; i < d.size(); i++) {
    double mm = hypot(d[i].x - d[i - 1].x, 2 * (d[i].y - d[i - 1].y));
    EXPECT_GE(mm, 3 - 0.003) << i;
    EXPECT_LE(mm, 3 + substep + 0.003) << i;
  }
}

// hatch spaces the same line by the unit in world units instead.
TEST_F(LinesTest, HatchIsSpacedInWorldUnits) {
  use_stretched_page();
  run_state.run_mode = MODE_TEST;
  EXPECT_EQ(hatch_line(0, 0, 20, 20, 2), 1);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 15u);  // 28.28 world units: k = 0 .. 14
  for (size_t i = 1; i < d.size(); i++)
    EXPECT_NEAR(hypot(d[i].x - d[i - 1].x, d[i].y - d[i - 1].y), 2.0, 0.002) << i;
}

// A length that is a whole multiple of the unit ends on a dot either way.
TEST_F(LinesTest, HatchReachesAWholeMultipleEndBothWays) {
  hatch_line(0, 0, 4, 0, 1);
  hatch_line(4, 1, 0, 1, 1);
  EXPECT_EQ(dots(), plain({{190, 277}, {192, 277}, {194, 277}, {196, 277}, {198, 277},
                           {198, 279}, {196, 279}, {194, 279}, {192, 279}, {190, 279}}));
}

TEST_F(LinesTest, HatchRefusals) {
  EXPECT_EQ(hatch_line(0, 0, 0, 0, 1), 0);
  EXPECT_EQ(hatch_line(0, 0, 4, 0, 0), 0);
  EXPECT_EQ(hatch_line(0, 0, 4, 0, -2), 0);
  EXPECT_EQ(hatch_line(0, 0, 4, 0, 1e-6f), 0);  // both steps vanish: the walk would never end
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": zero distance between two points"), 1);
  EXPECT_EQ(count_of(err, ": illegal unit: 0.00 > 0"), 2);
  EXPECT_EQ(count_of(err, ": illegal unit: -2.00 > 0"), 1);
  EXPECT_EQ(run_state.error_count, 4);
  EXPECT_TRUE(dots().empty());
}
