// shapes_test.cpp - edge order, dash restarts, refusals and the spacing of
// the curved walks.
#include "draw/shapes.h"

#include <algorithm>
#include <cmath>

#include "core/run_state.h"
#include "raster/plot.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

class ShapesTest : public DrawTest {};

// Edges (-2,-1)->(-2,1)->(2,1)->(2,-1)->(-2,-1) with dots one unit apart:
// the edges walking up and right reach their ends, those walking down and
// left stop short, and the next edge's start closes the gap.
TEST_F(ShapesTest, RectangleEdgesInOrder) {
  EXPECT_EQ(draw_rectangle(-2, -1, 2, 1, 0.9999f), 1);
  EXPECT_EQ(dots(), plain({{186, 275}, {186, 277}, {186, 279},                          // up
                           {186, 279}, {188, 279}, {190, 279}, {192, 279}, {194, 279},  // right
                           {194, 279}, {194, 277},                                      // down
                           {194, 275}, {192, 275}, {190, 275}, {188, 275}}));           // left
}

// With the pattern on-off every edge starts on "on" again.
TEST_F(ShapesTest, DashPatternRestartsOnEveryEdge) {
  set_design(1, 1, 1, 0, 0);
  draw_rectangle(-2, -1, 2, 1, 0.9999f);
  EXPECT_EQ(dots(), plain({{186, 275}, {186, 279},
                           {186, 279}, {190, 279}, {194, 279},
                           {194, 279},
                           {194, 275}, {190, 275}}));
}

TEST_F(ShapesTest, FlatRectangleHasTwoSingleDotEdges) {
  draw_rectangle(0, -1, 0, 1, 0.9999f);
  EXPECT_EQ(dots(), plain({{190, 275}, {190, 277}, {190, 279}, {190, 279}, {190, 279}, {190, 277},
                           {190, 275}}));
}

// A pitch longer than every edge leaves one dot per edge: its start corner.
TEST_F(ShapesTest, CornersInDrawingOrder) {
  run_state.run_mode = MODE_TEST;
  draw_diamond(0, 0, 2, 1, 100);
  draw_box(0, 0, 2, 1, 100);
  draw_parallelogram(0, 0, 2, 1, 45, 100);  // s = 1 / tan 45 = 1
  draw_polygon(3, 0, 0, 2, 100);            // apex straight above the centre
  std::vector<TracedDot> d = dots();
  const double want[][2] = {{-2, 0}, {0, 1},  {2, 0},      {0, -1},        // diamond
                            {-2, 1}, {-2, -1}, {2, -1},    {2, 1},         // box
                            {-1, 1}, {-3, -1}, {1, -1},    {3, 1},         // parallelogram
                            {0, 2},  {-1.732, -1}, {1.732, -1}};           // triangle
  ASSERT_EQ(d.size(), sizeof want / sizeof want[0]);
  for (size_t i = 0; i < d.size(); i++) {
    EXPECT_NEAR(d[i].x, want[i][0], 0.0011) << i;
    EXPECT_NEAR(d[i].y, want[i][1], 0.0011) << i;
  }
}

TEST_F(ShapesTest, ParallelogramAtNinetyDegreesIsABox) {
  run_state.run_mode = MODE_TEST;
  draw_parallelogram(0, 0, 2, 1, 90, 0.9999f);
  std::string leaning = echoed();
  draw_box(0, 0, 2, 1, 0.9999f);
  EXPECT_EQ(leaning + leaning, echoed());
}

// rectangle and diamond have no check of their own: each edge reports.
TEST_F(ShapesTest, BadPitchMessageCounts) {
  EXPECT_EQ(draw_rectangle(0, 0, 1, 1, 0), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": illegal pitch 0.00"), 4);
  EXPECT_EQ(draw_diamond(0, 0, 1, 1, -1), 0);
  err = errors();
  EXPECT_EQ(count_of(err, ": illegal pitch -1.00"), 4);
  EXPECT_EQ(draw_box(0, 0, 1, 1, 0), 0);
  EXPECT_EQ(draw_parallelogram(0, 0, 1, 1, 60, -2), 0);
  err = errors();
  EXPECT_EQ(count_of(err, ": illegal: pitch (0.00mm)"), 1);
  EXPECT_EQ(count_of(err, ": illegal: pitch (-2.00mm)"), 1);
  EXPECT_EQ(run_state.error_count, 10);
  EXPECT_TRUE(dots().empty());
}

// Checked in order: the count first, then the pitch, then the radius.
TEST_F(ShapesTest, PolygonRefusals) {
  EXPECT_EQ(draw_polygon(2, 0, 0, 1, 0), 0);
  EXPECT_EQ(draw_polygon(3, 0, 0, 0, 0), 0);
  EXPECT_EQ(draw_polygon(3, 0, 0, -1, 1), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": few angles of polygone (2)"), 1);
  EXPECT_EQ(count_of(err, ": illegal: pitch (0.00 mm)"), 1);
  EXPECT_EQ(count_of(err, ": illegal value of r (-1.00)"), 1);
  EXPECT_EQ(run_state.error_count, 3);
  EXPECT_TRUE(dots().empty());
}

// A full circle of radius 10 mm at 2 mm: 62.8 mm of paper gives the start and
// 31 dots, each a chord of at least 2 mm and less than one angle step more.
TEST_F(ShapesTest, FullCircleSpacingOnPaper) {
  run_state.run_mode = MODE_TEST;
  EXPECT_EQ(draw_circle(0, 0, 10, 0, 360, 2), 1);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 33u);
  EXPECT_EQ(d.front(), (TracedDot{10, 0, PATH_START}));
  EXPECT_EQ(d.back().kind, PATH_END);
  EXPECT_NEAR(d.back().x, 10, 0.001);
  EXPECT_NEAR(d.back().y, 0, 0.001);
  double step = 10 * ARC_STEP;
  for (size_t i = 1; i + 1 < d.size(); i++) {
    EXPECT_EQ(d[i].kind, PATH_ON);
    EXPECT_NEAR(hypot(d[i].x, d[i].y), 10, 0.001);
    double mm = hypot(d[i].x - d[i - 1].x, d[i].y - d[i - 1].y);
    EXPECT_GE(mm, 2 - 0.0015) << i;
    EXPECT_LE(mm, 2 + step + 0.0015) << i;
  }
}

// Negative pitch: clockwise from 0 degrees, so the quarter 0-90 becomes the
// three quarters through 270 and 180.
TEST_F(ShapesTest, NegativePitchWalksClockwise) {
  run_state.run_mode = MODE_TEST;
  draw_circle(0, 0, 10, 0, 90, -2);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 25u);  // 47.1 mm: start, 23 dots, end
  EXPECT_LT(d[1].y, 0);
  EXPECT_TRUE(std::any_of(d.begin(), d.end(), [](const TracedDot &p) { return p.x < -9.9; }));
  EXPECT_EQ(d.back().kind, PATH_END);
  EXPECT_NEAR(d.back().x, 0, 0.001);
  EXPECT_NEAR(d.back().y, 10, 0.001);
}

// Positive pitch with a1 < a0 goes counter-clockwise the long way round.
TEST_F(ShapesTest, EndBeforeStartTakesTheLongWay) {
  run_state.run_mode = MODE_TEST;
  draw_circle(0, 0, 10, 90, 0, 2);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 25u);
  EXPECT_LT(d[1].x, 0);
  EXPECT_TRUE(std::any_of(d.begin(), d.end(), [](const TracedDot &p) { return p.y < -9.9; }));
  EXPECT_NEAR(d.back().x, 10, 0.001);
  EXPECT_NEAR(d.back().y, 0, 0.001);
}

TEST_F(ShapesTest, EqualAnglesGiveTheStartAndTheEndOnly) {
  run_state.run_mode = MODE_TEST;
  draw_circle(0, 0, 10, 30, 30, 2);
  std::vector<TracedDot> d = dots();
  ASSERT_EQ(d.size(), 2u);
  EXPECT_EQ(d[0].kind, PATH_START);
  EXPECT_EQ(d[1].kind, PATH_END);
  EXPECT_EQ(d[0].x, d[1].x);
  EXPECT_EQ(d[0].y, d[1].y);
}

TEST_F(ShapesTest, CurveRefusals) {
  EXPECT_EQ(draw_circle(0, 0, 10, 0, 360, 0), 0);
  EXPECT_EQ(draw_ellipse(0, 0, 10, 5, 0, 360, 0), 0);
  EXPECT_EQ(draw_circle(0, 0, 10, 0, INFINITY, 2), 0);  // a walk that would never end
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": illegal pitch: 0.00mm"), 2);
  EXPECT_EQ(count_of(err, ": illegal angle: 0.00 inf"), 1);
  EXPECT_TRUE(dots().empty());
}

// On a page stretched upwards (1 mm across, 2 mm up per unit) the dots lie
// on the ellipse and are a pitch apart on paper, not in world units.
TEST_F(ShapesTest, EllipseDotsLieOnItAndAreSpacedOnPaper) {
  use_stretched_page();
  run_state.run_mode = MODE_TEST;
  draw_ellipse(1, 1, 10, 5, 0, 360, 1.5);
  std::vector<TracedDot> d = dots();
  ASSERT_GT(d.size(), 20u);
  for (size_t i = 1; i + 1 < d.size(); i++) {
    double x = (d[i].x - 1) / 10, y = (d[i].y - 1) / 5;
    EXPECT_NEAR(x * x + y * y, 1, 0.0005) << i;
    double mm = hypot(d[i].x - d[i - 1].x, 2 * (d[i].y - d[i - 1].y));
    EXPECT_GE(mm, 1.5 - 0.003) << i;
    EXPECT_LE(mm, 1.5 + 10 * ARC_STEP + 0.003) << i;
  }
}

// Through (6, 5) and (5, 7) about (5, 5): semi-axes 1 and 2. Walked
// counter-clockwise the closing code-3 point forgets the centre; clockwise
// it does not.
TEST_F(ShapesTest, OvalThroughTwoPointsAndItsEndPoint) {
  run_state.run_mode = MODE_TEST;
  EXPECT_EQ(draw_oval(5, 5, 6, 5, 5, 7, 0.5), 1);
  std::vector<TracedDot> ccw = dots();
  ASSERT_GT(ccw.size(), 4u);
  EXPECT_EQ(ccw.front(), (TracedDot{6, 5, PATH_START}));
  for (size_t i = 1; i + 1 < ccw.size(); i++) {
    double x = ccw[i].x - 5, y = (ccw[i].y - 5) / 2;
    EXPECT_NEAR(x * x + y * y, 1, 0.002) << i;
    EXPECT_GT(ccw[i].y, 5);  // the quarter above
  }
  EXPECT_EQ(ccw.back().kind, PATH_END);
  EXPECT_NEAR(ccw.back().x, 0, 0.001);
  EXPECT_NEAR(ccw.back().y, 2, 0.001);

  size_t before = echoed().size();
  EXPECT_EQ(draw_oval(5, 5, 6, 5, 5, 7, -0.5), 1);
  std::vector<TracedDot> cw = traced_dots(echoed().substr(before));
  EXPECT_EQ(cw.front(), (TracedDot{6, 5, PATH_START}));
  EXPECT_LT(cw[1].y, 5);  // clockwise: down first
  EXPECT_NEAR(cw.back().x, 5, 0.001);
  EXPECT_NEAR(cw.back().y, 7, 0.001);
  EXPECT_GT(cw.size(), 2 * ccw.size());
}

// The five refusals in their order; equal squared offsets count as equal,
// so points mirrored about the centre are "the same y".
TEST_F(ShapesTest, OvalRefusals) {
  EXPECT_EQ(draw_oval(1, 1, 1, 1, 2, 3, 1), 0);
  EXPECT_EQ(draw_oval(1, 1, 2, 3, 1, 1, 1), 0);
  EXPECT_EQ(draw_oval(0, 0, 1, 2, 3, -2, 1), 0);
  EXPECT_EQ(draw_oval(0, 0, 3, 1, -3, 2, 1), 0);
  EXPECT_EQ(draw_oval(0, 0, 1, 0, 0, 2, 0), 0);
  std::string err = errors();
  EXPECT_EQ(count_of(err, ": same points: (x0, y0) = (x1, y1)"), 1);
  EXPECT_EQ(count_of(err, ": same points: (x0, y0) = (x2, y2)"), 1);
  EXPECT_EQ(count_of(err, ": same y coordinates: y1 = y2"), 1);
  EXPECT_EQ(count_of(err, ": same x coordinates: x1 = x2"), 1);
  EXPECT_EQ(count_of(err, ": illegal pitch: 0.00 mm"), 1);
  EXPECT_EQ(run_state.error_count, 5);
  EXPECT_TRUE(dots().empty());
}
