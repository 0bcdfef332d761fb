// arrows_test.cpp - shafts, the four head types, the tip dot and refusals.
#include "draw/arrows.h"

#include <cmath>

#include "core/run_state.h"
#include "raster/plot.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

class ArrowsTest : public DrawTest {};

// Arrow (0,0) -> (4,0) with a square head of length 2, dots 1 mm apart.
// Shaft: x = 0..4. Barb 1 (left of travel, up) walks up and reaches y = 2;
// barb 2 (down) stops short of y = -2. Then the tip dot.
static const std::vector<TracedDot> SHAFT = plain({{190, 277}, {192, 277}, {194, 277}, {196, 277}, {198, 277}});
static const std::vector<TracedDot> BARB_UP = plain({{198, 277}, {198, 279}, {198, 281}});
static const std::vector<TracedDot> BARB_DOWN = plain({{198, 277}, {198, 275}});
static const std::vector<TracedDot> TIP = plain({{198, 277}});

static std::vector<TracedDot> joined(std::initializer_list<std::vector<TracedDot>> parts) {
  std::vector<TracedDot> all;
  for (const auto &p : parts) all.insert(all.end(), p.begin(), p.end());
  return all;
}

TEST_F(ArrowsTest, HeadTypeBothBarbs) {
  EXPECT_EQ(draw_arrow(0, 0, 4, 0, 90, 2, HEAD_BOTH, 0.9999f), 1);
  EXPECT_EQ(dots(), joined({SHAFT, BARB_UP, BARB_DOWN, TIP}));
}

TEST_F(ArrowsTest, HeadTypeLeftBarbOnly) {
  draw_arrow(0, 0, 4, 0, 90, 2, HEAD_LEFT, 0.9999f);
  EXPECT_EQ(dots(), joined({SHAFT, BARB_UP, TIP}));
}

TEST_F(ArrowsTest, HeadTypeRightBarbOnly) {
  draw_arrow(0, 0, 4, 0, 90, 2, HEAD_RIGHT, 0.9999f);
  EXPECT_EQ(dots(), joined({SHAFT, BARB_DOWN, TIP}));
}

TEST_F(ArrowsTest, HeadTypeNoneIsShaftAndTip) {
  draw_arrow(0, 0, 4, 0, 90, 2, HEAD_NONE, 0.9999f);
  EXPECT_EQ(dots(), joined({SHAFT, TIP}));
}

// Travelling left, the left barb is the lower one.
TEST_F(ArrowsTest, LeftOfTravelTurnsWithTheShaft) {
  draw_arrow(4, 0, 0, 0, 90, 2, HEAD_LEFT, 0.9999f);
  EXPECT_EQ(dots(), plain({{198, 277}, {196, 277}, {194, 277}, {192, 277},  // shaft, short of 0
                           {190, 277}, {190, 275},                          // barb down
                           {190, 277}}));                                   // tip
}

// Barbs at 30 degrees on a shaft pointing straight up are mirror images.
TEST_F(ArrowsTest, UprightArrowHasSymmetricBarbs) {
  run_state.run_mode = MODE_TEST;
  draw_arrow(0, 0, 0, 4, 30, 2, HEAD_LEFT, 0.5);
  std::string left = echoed();
  draw_arrow(0, 0, 0, 4, 30, 2, HEAD_RIGHT, 0.5);
  std::vector<TracedDot> l = traced_dots(left), r = traced_dots(echoed().substr(left.size()));
  ASSERT_EQ(l.size(), r.size());
  int barb_dots = 0;
  for (size_t i = 0; i < l.size(); i++) {
    EXPECT_NEAR(l[i].x, -r[i].x, 0.0011) << i;
    EXPECT_NEAR(l[i].y, r[i].y, 0.0011) << i;
    if (l[i].x < -0.1) {
      barb_dots++;
      EXPECT_LT(l[i].y, 4);  // swept back towards the tail
    }
  }
  EXPECT_GT(barb_dots, 1);
}

// The shaft follows the pattern; the barbs are solid; the tip starts it afresh.
TEST_F(ArrowsTest, BarbsAreSolidUnderADashPattern) {
  set_design(1, 1, 1, 0, 0);
  draw_arrow(0, 0, 4, 0, 90, 2, HEAD_BOTH, 0.9999f);
  EXPECT_EQ(dots(), joined({plain({{190, 277}, {194, 277}, {198, 277}}), BARB_UP, BARB_DOWN, TIP}));
  EXPECT_EQ(plot_state.pattern_on, 1);
}

// A dart of length 0 is a head at its start: a one-dot shaft, no error.
TEST_F(ArrowsTest, DartOfNoLengthIsAHeadAtTheStart) {
  EXPECT_EQ(draw_dart(0, 0, 0, 0, 90, 2, HEAD_BOTH, 0.9999f), 1);
  EXPECT_EQ(dots(), plain({{190, 277}, {190, 277}, {190, 279}, {190, 281}, {190, 277}, {190, 275},
                           {190, 277}}));
  EXPECT_EQ(run_state.error_count, 0);
}

// A dart by direction and length draws what the arrow to its tip draws.
TEST_F(ArrowsTest, DartMatchesTheArrowToItsTip) {
  draw_dart(1, 1, 0, 4, 90, 2, HEAD_BOTH, 0.9999f);
  std::string dart = echoed();
  draw_arrow(1, 1, 5, 1, 90, 2, HEAD_BOTH, 0.9999f);
  EXPECT_EQ(dart + dart, echoed());
}

TEST_F(ArrowsTest, Refusals) {
  EXPECT_EQ(draw_arrow(0, 0, 4, 0, 30, 1, 0, 0), 0);
  EXPECT_EQ(draw_arrow(0, 0, 4, 0, 30, 1, 4, -1), 0);  // the pitch is tested first
  EXPECT_EQ(draw_arrow(0, 0, 4, 0, 30, 1, 4, 1), 0);
  EXPECT_EQ(draw_arrow(2, 2, 2, 2, 30, 1, 0, 1), 0);
  EXPECT_EQ(draw_dart(0, 0, 0, 4, 30, 1, -1, 1), 0);
  EXPECT_EQ(draw_dart(0, 0, 0, 4, 30, 1, 0, NAN), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": out of range: pitch = 0.00mm"), 1);
  EXPECT_EQ(count_of(err, ": out of range: pitch = -1.00mm"), 1);
  EXPECT_EQ(count_of(err, ": type should be 0-3 (4)"), 1);
  EXPECT_EQ(count_of(err, ": zero length of arrow"), 1);
  EXPECT_EQ(count_of(err, ": headtype should be 0-3 (-1)"), 1);
  EXPECT_EQ(count_of(err, ": out of range: pitch = "), 3);
  EXPECT_EQ(run_state.error_count, 6);
  EXPECT_TRUE(dots().empty());
}
