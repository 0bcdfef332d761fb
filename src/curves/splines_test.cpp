// splines_test.cpp - spline tables worked out by hand, the spline walk's dots
// and refusals, and broken lines.
#include "curves/splines.h"

#include <cmath>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "geometry/page.h"
#include "raster/plot.h"
#include "support/draw_testing.h"

class SplinesTest : public DrawTest {
 protected:
  void TearDown() override {
    free_table(&t);
    DrawTest::TearDown();
  }
  double at(double u) {
    double v = NAN;
    EXPECT_EQ(table_value(t, u, &v), 1) << u;
    return v;
  }
  // The slope at the end of the last segment.
  double end_slope() const {
    int i = t.n_seg - 1;
    return t.b[i] + 2 * t.c[i] + 3 * t.d[i];
  }
  CubicTable t = CubicTable();
};

static std::vector<TracedDot> coded(std::initializer_list<std::vector<int>> cells) {
  std::vector<TracedDot> dots;
  for (const auto &c : cells) dots.push_back(TracedDot{double(c[0]), double(c[1]), c[2]});
  return dots;
}

// ---- Tables --------------------------------------------------------------------

// Four points need the forward elimination: c(1) = -2, c(2) = 2.
TEST_F(SplinesTest, NaturalSplineThroughFourPoints) {
  const double u[] = {0, 1, 2, 3}, v[] = {0, 1, 0, 1};
  ASSERT_EQ(alloc_table(&t, 4), 1);
  ASSERT_EQ(natural_table(&t, u, v, 4), 1);
  EXPECT_DOUBLE_EQ(t.c[1], -2);
  EXPECT_DOUBLE_EQ(t.c[2], 2);
  EXPECT_DOUBLE_EQ(at(0.5), 0.75);
  EXPECT_DOUBLE_EQ(at(1.5), 0.5);
  EXPECT_DOUBLE_EQ(at(2.5), 0.25);
}

// Knots given right to left make the same curve, found on the right segments.
TEST_F(SplinesTest, FallingKnotsFindTheirSegments) {
  const double u[] = {2, 1, 0}, v[] = {0, 1, 0};
  ASSERT_EQ(alloc_table(&t, 3), 1);
  ASSERT_EQ(natural_table(&t, u, v, 3), 1);
  EXPECT_DOUBLE_EQ(at(1.5), 0.6875);
  EXPECT_DOUBLE_EQ(at(0.5), 0.6875);
}

// Open ends: m(0) = 2 (p1 - p0) - m(1) = 2, m(1) = 0, m(2) = -2.
TEST_F(SplinesTest, HermiteSegmentsOpen) {
  const double p[] = {0, 1, 0};
  ASSERT_EQ(alloc_table(&t, 3), 1);
  ASSERT_EQ(hermite_table(&t, p, 3, 0), 1);
  EXPECT_DOUBLE_EQ(t.b[0], 2);
  EXPECT_DOUBLE_EQ(t.b[1], 0);
  EXPECT_DOUBLE_EQ(end_slope(), -2);
  EXPECT_DOUBLE_EQ(at(0.5), 0.75);
  EXPECT_DOUBLE_EQ(at(1), 1);
  EXPECT_DOUBLE_EQ(at(2), 0);
  const double two[] = {1, 3};  // two points: a straight segment
  ASSERT_EQ(hermite_table(&t, two, 2, 0), 1);
  EXPECT_DOUBLE_EQ(at(0.5), 2);
}

// Closed: the tangent at the start wraps round to the point before the last
// (m(0) = 0.5 (p1 - p3) = 1) and the end takes the same tangent: no corner.
TEST_F(SplinesTest, ClosedHermiteJoinsWithoutACorner) {
  const double p[] = {0, 1, 0, -1, 0};
  ASSERT_EQ(alloc_table(&t, 5), 1);
  ASSERT_EQ(hermite_table(&t, p, 5, 1), 1);
  EXPECT_DOUBLE_EQ(t.b[0], 1);
  EXPECT_DOUBLE_EQ(end_slope(), 1);
  EXPECT_DOUBLE_EQ(at(4), 0);
  ASSERT_EQ(hermite_table(&t, p, 5, 0), 1);  // the same points open
  EXPECT_DOUBLE_EQ(t.b[0], 2);
}

// ---- The spline command's walk ------------------------------------------------------

static SplineArgs args(float x0, float x1, float y0, float y1, int kind, float dx, float dy, float pitch) {
  return SplineArgs{x0, x1, y0, y1, kind, dx, dy, pitch};
}

// y = x from 0 to 8 with x shown from 3: the hidden dots at 0 and 2 keep the
// rhythm, the first visible one is at 4 and continues the path with code 2.
TEST_F(SplinesTest, HiddenStretchKeepsTheRhythm) {
  const double xs[] = {0, 8}, ys[] = {0, 8};
  draw_spline(args(3, 8, -10, 10, 1, 0, 0, 2.8284f), xs, ys, 2, page_geom, nullptr);
  EXPECT_EQ(dots(), coded({{198, 285, 2}, {202, 289, 2}, {206, 293, 2}, {206, 293, 3}}));
}

// A loop through (0,0) (10,10) (0,20) (-10,10) (0,0): kind 1 cannot solve
// for it; the index kinds draw it and come back to where they started.
TEST_F(SplinesTest, LoopDrawnOverTheIndexOnly) {
  const double xs[] = {0, 10, 0, -10, 0}, ys[] = {0, 10, 20, 10, 0};
  EXPECT_EQ(draw_spline(args(-20, 20, -20, 30, 1, 0, 0, 2), xs, ys, 5, page_geom, nullptr), 0);
  EXPECT_EQ(count_of(errors(), ": maketable1 in spline1"), 1);
  EXPECT_TRUE(dots().empty());
  for (int kind : {2, 3, 4}) {
    size_t before = dots().size();
    EXPECT_EQ(draw_spline(args(-20, 20, -20, 30, kind, 0, 0, 2), xs, ys, 5, page_geom, nullptr), 1);
    std::vector<TracedDot> all = dots(), d(all.begin() + before, all.end());
    ASSERT_GT(d.size(), 25u);
    EXPECT_EQ(d.front(), (TracedDot{190, 277, 1})) << kind;
    EXPECT_EQ(d.back(), (TracedDot{190, 277, 3})) << kind;
    // The last dot lies within a pitch (4 dots, and a dot of rounding) of the start.
    const TracedDot &last = d[d.size() - 2];
    EXPECT_LE(std::hypot(last.x - 190, last.y - 277), 5.5) << kind;
  }
  EXPECT_EQ(run_state.error_count, 1);
}

TEST_F(SplinesTest, OnePointIsOneDot) {
  const double xs[] = {1}, ys[] = {1};
  EXPECT_EQ(draw_spline(args(-10, 10, -10, 10, 3, 0, 0, 2), xs, ys, 1, page_geom, nullptr), 1);
  EXPECT_EQ(dots(), coded({{192, 279, 1}, {192, 279, 3}}));
}

// Kind 1 walks 0.0001 world units a step: a data range of 2000 units is
// refused rather than walked 20 million steps, as is one not finite. Data
// too large for the table fails it.
TEST_F(SplinesTest, RunawayWalkIsRefused) {
  const double xs[] = {0, 2000}, ys[] = {0, 0};
  EXPECT_EQ(draw_spline(args(-10, 10, -10, 10, 1, 0, 0, 2), xs, ys, 2, page_geom, nullptr), 0);
  const double nan_x[] = {0, NAN};
  EXPECT_EQ(draw_spline(args(-10, 10, -10, 10, 1, 0, 0, 2), nan_x, ys, 2, page_geom, nullptr), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": too many steps of spline (20000000)"), 1);
  EXPECT_EQ(count_of(err, ": too many steps of spline (nan)"), 1);
  const double big[] = {0, 1e308, 0}, y3[] = {0, 0, 0};
  EXPECT_EQ(draw_spline(args(-10, 10, -10, 10, 2, 0, 0, 2), big, y3, 3, page_geom, nullptr), 0);
  EXPECT_EQ(count_of(errors(), ": maketable1 in spline1"), 1);
  EXPECT_TRUE(dots().empty());
}

// ---- Broken lines ---------------------------------------------------------------------

// The pattern on, on, off, off runs on across the joint instead of restarting.
TEST_F(SplinesTest, BrokenLineKeepsTheDashPatternGoing) {
  const double xs[] = {0, 4, 4}, ys[] = {0, 0, 4};
  set_design(1, 2, 2, 0, 0);
  draw_bline(1.9999f, xs, ys, 3);
  EXPECT_EQ(dots(), plain({{190, 277}, {194, 277}, {198, 281}, {198, 285}}));
}

TEST_F(SplinesTest, BrokenLineRefusals) {
  const double xs[] = {0, 4, 4, 0}, ys[] = {0, 0, 4, 4};
  EXPECT_EQ(draw_bline(2, xs, ys, 1), 0);
  EXPECT_EQ(draw_bline(2, xs, ys, 0), 0);
  EXPECT_EQ(draw_bline(0, xs, ys, 4), 0);  // each of the three segments refuses
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": broken line data is none"), 2);
  EXPECT_EQ(count_of(err, ": illegal pitch 0.00"), 3);
  EXPECT_TRUE(dots().empty());
}
