// bwplot_test.cpp - the box plot as its primitives draw it.
#include "curves/bwplot.h"

#include "core/run_state.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

class BwplotTest : public DrawTest {};

// min -3, box -1..1 of height 2, median 0, max 3, bars of half-length 2,
// dots 1 mm apart. Each piece derived from its primitive's walk: lines that
// run left or down stop short of their end.
TEST_F(BwplotTest, WhiskersBoxAndMedian) {
  EXPECT_EQ(draw_bwplot(0, 0, -3, -1, 0, 1, 3, 2, 2, 0.9999f), 1);
  EXPECT_EQ(dots(), plain({
                        {188, 277}, {186, 277},              // left whisker -1 -> -3
                        {184, 277}, {184, 275},              // its bar down (left of travel)
                        {184, 277}, {184, 279}, {184, 281},  // and up
                        {184, 277},                          // tip
                        {188, 279}, {188, 277},              // box: left side down
                        {188, 275}, {190, 275}, {192, 275},  // bottom
                        {192, 275}, {192, 277}, {192, 279},  // right side up
                        {192, 279}, {190, 279},              // top, leftwards
                        {190, 279}, {190, 277},              // median, downwards
                        {192, 277}, {194, 277}, {196, 277},  // right whisker 1 -> 3
                        {196, 277}, {196, 279}, {196, 281},  // its bar up
                        {196, 277}, {196, 275},              // and down
                        {196, 277},                          // tip
                    }));
}

TEST_F(BwplotTest, EqualEndsLeaveTheWhiskersOut) {
  draw_bwplot(0, 0, -1, -1, 0, 1, 1, 2, 1, 0.9999f);
  std::vector<TracedDot> d = dots();
  EXPECT_EQ(d.size(), 12u);  // the box's 10 and the median's 2
  for (const TracedDot &p : d) {
    EXPECT_GE(p.x, 188);
    EXPECT_LE(p.x, 192);
  }
  EXPECT_EQ(run_state.error_count, 0);
}

// No checks of its own: the rectangle's four edges and the median report
// the pitch, and so does each arrow.
TEST_F(BwplotTest, BadPitchIsReportedByThePrimitives) {
  EXPECT_EQ(draw_bwplot(0, 0, -2, -1, 0, 1, 2, 2, 1, 0), 1);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": illegal pitch 0.00"), 5);
  EXPECT_EQ(count_of(err, ": out of range: pitch = 0.00mm"), 2);
  EXPECT_TRUE(dots().empty());
}

TEST_F(BwplotTest, ValuesOutOfOrderStillDraw) {
  run_state.run_mode = MODE_TEST;
  draw_bwplot(10, 5, 4, 3, 0, -3, -4, 2, 1, 100);
  std::vector<TracedDot> d = dots();
  // One dot per primitive piece with so long a pitch: arrow (shaft, 2 barbs, tip),
  // 4 edges, median, arrow.
  ASSERT_EQ(d.size(), 13u);
  EXPECT_NEAR(d[0].x, 13, 0.001);   // the left whisker starts at q1 and runs right to min
  EXPECT_NEAR(d[4].x, 13, 0.001);   // the box's first corner (q1, top)
  EXPECT_NEAR(d[4].y, 6, 0.001);
  EXPECT_NEAR(d[8].x, 10, 0.001);   // the median
  EXPECT_NEAR(d[12].x, 6, 0.001);   // the right whisker's tip at max
}
