// axes_test.cpp - tick placement at both ends, sides, and refusals.
#include "draw/axes.h"

#include "core/run_state.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

// A pitch of 1.5 mm on a unit of 1 mm: every unit-long stretch of axis gets
// only its start dot, and a tick of 2 dots stands at 3 mm and 1.5 mm from
// the axis (dots 6 and 3 off the axis line, rounded down to 283/280 above,
// 271/274 below).
class AxesTest : public DrawTest {};

// The x-axis stretch starting at unit k: its tick mark, then the line's start dot.
static void tick_and_stretch(std::vector<TracedDot> &d, int k) {
  int x = 190 + 2 * k;
  for (int y : {283, 280, 277}) d.push_back(TracedDot{double(x), double(y), 0});
}

TEST_F(AxesTest, ZeroToTenMarksEveryUnitAndTheEnd) {
  EXPECT_EQ(draw_xaxis(0, 0, 0, 10, 1, 2, 1.5), 1);
  std::vector<TracedDot> want;
  for (int k = 0; k <= 9; k++) tick_and_stretch(want, k);
  for (int y : {283, 280, 277}) want.push_back(TracedDot{210, double(y), 0});  // mark and axis dot at 10
  EXPECT_EQ(dots(), want);
}

// A start on a non-zero multiple running away from the origin gets no mark.
TEST_F(AxesTest, OneToTenStartsMarkingAtTwo) {
  draw_xaxis(0, 0, 1, 10, 1, 2, 1.5);
  std::vector<TracedDot> want = plain({{192, 277}});  // the plain stretch from 1 to 2
  for (int k = 2; k <= 9; k++) tick_and_stretch(want, k);
  for (int y : {283, 280, 277}) want.push_back(TracedDot{210, double(y), 0});
  EXPECT_EQ(dots(), want);
}

TEST_F(AxesTest, TenDownToZeroMarksEveryUnit) {
  draw_xaxis(0, 0, 10, 0, 1, 2, 1.5);
  std::vector<TracedDot> want;
  for (int k = 10; k >= 1; k--) tick_and_stretch(want, k);
  for (int y : {283, 280, 277}) want.push_back(TracedDot{190, double(y), 0});
  EXPECT_EQ(dots(), want);
}

TEST_F(AxesTest, NegativeTickPutsMarksBelow) {
  draw_xaxis(0, 0, 0, 1, 1, -2, 1.5);
  EXPECT_EQ(dots(), plain({{190, 271}, {190, 274}, {190, 277}, {192, 271}, {192, 274}, {192, 277}}));
}

// Only a descending axis closes a non-multiple end with a dot.
TEST_F(AxesTest, NonMultipleEnds) {
  draw_xaxis(0, 0, 2.5f, 0.5f, 1, 1, 1.5);
  EXPECT_EQ(dots(), plain({{195, 277},               // 2.5 down to the first multiple 2
                           {194, 280}, {194, 277},   // mark at 2, stretch to 1
                           {192, 280}, {192, 277},   // mark at 1, stretch to 0.5
                           {191, 277}}));            // closing dot at 0.5
  size_t before = echoed().size();
  draw_xaxis(0, 0, 0.5f, 2.5f, 1, 1, 1.5);
  EXPECT_EQ(traced_dots(echoed().substr(before)),
            plain({{191, 277}, {192, 280}, {192, 277}, {194, 280}, {194, 277}}));
}

// Origin 0, ends 2 and 8, unit 10: the leading stretch runs to the first
// multiple 10 and a mark stands at the last multiple 0, both beyond the ends.
TEST_F(AxesTest, AxisShorterThanAUnitFollowsTheRulesAsTheyStand) {
  draw_xaxis(0, 0, 2, 8, 10, 1, 9);
  EXPECT_EQ(dots(), plain({{194, 277}, {190, 295}, {190, 277}}));
}

TEST_F(AxesTest, XAxisWithTickZeroHasNoMarks) {
  EXPECT_EQ(draw_xaxis(0, 0, 0, 2, 1, 0, 1.5), 1);
  EXPECT_EQ(dots(), plain({{190, 277}, {192, 277}, {194, 277}}));
}

// The y-axis is the same walk turned: marks to the right, or left when negative.
TEST_F(AxesTest, YAxisMarksRightAndLeft) {
  draw_yaxis(0, 0, 0, 2, 1, 2, 1.5);
  EXPECT_EQ(dots(), plain({{196, 277}, {193, 277}, {190, 277},
                           {196, 279}, {193, 279}, {190, 279},
                           {196, 281}, {193, 281}, {190, 281}}));
  size_t before = echoed().size();
  draw_yaxis(1, 0, 1, 0, 1, -1, 1.5);
  EXPECT_EQ(traced_dots(echoed().substr(before)), plain({{189, 279}, {192, 279}, {189, 277}, {192, 277}}));
}

TEST_F(AxesTest, Refusals) {
  EXPECT_EQ(draw_xaxis(0, 0, 1, 1, 1, 2, 1), 0);
  EXPECT_EQ(draw_xaxis(0, 0, 0, 1, 0, 2, 1), 0);
  EXPECT_EQ(draw_xaxis(0, 0, 0, 1, 1, 2, -1), 0);
  EXPECT_EQ(draw_yaxis(0, 0, 2, 2, 1, 2, 1), 0);
  EXPECT_EQ(draw_yaxis(0, 0, 0, 1, -1, 2, 1), 0);
  EXPECT_EQ(draw_yaxis(0, 0, 0, 1, 1, 0, 1), 0);
  EXPECT_EQ(draw_yaxis(0, 0, 0, 1, 1, 2, 0), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": zero length of x-axis (1.00-1.00)"), 1);
  EXPECT_EQ(count_of(err, ": illegal unit (0.00)"), 1);
  EXPECT_EQ(count_of(err, ": illegal pitch (-1.00mm)"), 1);
  EXPECT_EQ(count_of(err, ": zero length of y-axis (2.00-2.00)"), 1);
  EXPECT_EQ(count_of(err, ": unit should be positive (-1.00)"), 1);
  EXPECT_EQ(count_of(err, ": illegal pic (0)"), 1);
  EXPECT_EQ(count_of(err, ": illegal: pitch (0.00mm)"), 1);
  EXPECT_EQ(run_state.error_count, 7);
  EXPECT_TRUE(dots().empty());
}
