// transform_test.cpp - world points to dots (rounding, clipping, the three
// variants, device cells), rotation and mirroring.
#include "geometry/transform.h"

#include <climits>
#include <cmath>
#include <string>

#include "core/run_state.h"
#include "devices/embosser.h"
#include "geometry/page.h"
#include "support/test_env.h"

class TransformTest : public TactoTest {};

// "dx dy row col" of a plotted world point, or "-" when it is not drawn.
static std::string plotted(double x, double y) {
  DotPos p;
  if (!map_plot(x, y, &p)) return "-";
  return std::to_string(p.dx) + " " + std::to_string(p.dy) + " " + std::to_string(p.row) + " " +
         std::to_string(p.col);
}

TEST_F(TransformTest, RoundingAndClippingAtTheWindowEdges) {
  const FloatRect w = page_geom.w;
  EXPECT_EQ(plotted(0, 0), "300 395 395 300");  // trunc(299.5 + 0.5), trunc(395 + 0.5)
  EXPECT_EQ(plotted(w.x1, w.y1), "599 790 0 599");
  EXPECT_EQ(plotted(w.x0, w.y0), "0 0 790 0");
  EXPECT_EQ(plotted(w.x1 + 0.0001, 0), "-");
  EXPECT_EQ(plotted(0, w.y0 - 0.0001), "-");
  EXPECT_EQ(plotted(NAN, 0), "-");
  double half = w.x0 + (w.x1 - w.x0) * 10.5 / 599;  // grid position 10.5 rounds up
  EXPECT_EQ(plotted(half + 1e-9, 0).substr(0, 3), "11 ");
  EXPECT_EQ(plotted(half - 1e-6, 0).substr(0, 3), "10 ");
  EXPECT_EQ(world_to_dot_x(1e300), INT_MAX);  // echoes of far points do not overflow
}

TEST_F(TransformTest, PlotClipsToTheFrameMoveToTheGridSnapToTheWindow) {
  set_frame(100, 200, 100, 200, -10.35, 10.35, -12.53, 12.53);
  DotPos pos;
  EXPECT_EQ(map_plot(0, 0, &pos), 0);
  EXPECT_EQ(map_move(0, 0, &pos), 1);
  EXPECT_EQ(plotted(dot_to_world_x(150) + 0.001, dot_to_world_y(200)), "150 200 590 150");
  double x = dot_to_world_x(151) - 0.001, y = dot_to_world_y(151) - 0.001;
  ASSERT_EQ(snap_to_dot(&x, &y), 1);  // down and left onto dot (150, 150)
  EXPECT_NEAR(x, dot_to_world_x(150), 1e-9);
  EXPECT_NEAR(y, dot_to_world_y(150), 1e-9);
  x = 20;
  EXPECT_EQ(snap_to_dot(&x, &y), 0);
}

TEST_F(TransformTest, LandscapeDeviceCells) {
  set_landscape();  // grid 0-790 across, 0-599 up; row = 790 - dx, col = 599 - dy
  EXPECT_EQ(plotted(0, 0), "395 300 395 299");
  EXPECT_EQ(plotted(page_geom.w.x0, page_geom.w.y0), "0 0 790 599");
}

TEST_F(TransformTest, RotationByNinetyDegrees) {
  set_rotate(1, 0, 0, 90);
  EXPECT_FLOAT_EQ(xform.rotate_angle, static_cast<float>(90 * 0.01745328888888889));
  double x = 1, y = 0;
  ASSERT_EQ(rotate_point(&x, &y), 1);
  EXPECT_EQ(x, 0.0);  // the cosine's 3e-7 is forced to exactly 0
  EXPECT_NEAR(y, 1.0, 1e-12);
  x = -1, y = 0;  // left of the centre: the sine branch takes 3.141592 - beta
  rotate_point(&x, &y);
  EXPECT_EQ(x, 0.0);
  EXPECT_NEAR(y, -1.0, 1e-6);
  set_rotate(1, 1, 1, 90);
  x = 1, y = -1;  // below the centre
  rotate_point(&x, &y);
  EXPECT_NEAR(x, 3.0, 1e-6);
  EXPECT_EQ(y, 1.0);
  x = 1, y = 1;  // the centre stays
  rotate_point(&x, &y);
  EXPECT_EQ(x + y, 2.0);
  set_rotate(1, 0, 0, 0);
  x = 3.3, y = -4.4;
  EXPECT_EQ(rotate_point(&x, &y), 1);
  EXPECT_EQ(x, 3.3);
  EXPECT_EQ(y, -4.4);
}

TEST_F(TransformTest, RotateFlags) {
  set_rotate(1, 2, 3, 45);
  set_rotate(2, 0, 0, 0);
  double x = 5, y = 5;
  EXPECT_EQ(rotate_point(&x, &y), 0);  // suspended
  set_rotate(3, 0, 0, 0);
  EXPECT_EQ(xform.rotate_on, 1);
  EXPECT_FLOAT_EQ(xform.rotate_cx, 2);
  set_rotate(4, 9, 9, 9);
  EXPECT_NE(errors().find("illegal flag: 4 (0-3)"), std::string::npos);
  EXPECT_FLOAT_EQ(xform.rotate_cy, 3);
  set_rotate(0, 0, 0, 0);
  EXPECT_EQ(xform.rotate_on + xform.rotate_cx + xform.rotate_angle, 0);
}

TEST_F(TransformTest, MirrorReflectsXOnTheEsa721Only) {
  const FloatRect w = page_geom.w;
  set_mirror(1, 0);
  double x = w.x0, y = 1;
  transform_point(&x, &y);
  EXPECT_FLOAT_EQ(x, w.x1);
  EXPECT_EQ(y, 1.0);
  set_mirror(1, 10);  // moved left by 10 mm
  x = 0;
  mirror_point(&x);
  EXPECT_NEAR(x, -10 * 20.7 / 0.345576 / 599, 1e-5);
  EXPECT_EQ(set_mirror(2, 0), 0);
  EXPECT_NE(errors().find("illegal flag 2 (0-1)"), std::string::npos);
  select_paper(1, 3);
  set_mirror(1, 0);
  x = 2;
  mirror_point(&x);
  EXPECT_EQ(x, 2.0);
}

TEST_F(TransformTest, TheMirrorCommandSetsTheOutputSwitchFromTheTarget) {
  run_state.output_target = 1;
  run_program("mirror 1 0\n");
  EXPECT_EQ(embosser.output_enabled, 0);
  run_program("mirror 0 0\n");
  EXPECT_EQ(embosser.output_enabled, 1);
  run_state.output_target = 2;
  run_program("mirror 1 0\n");
  EXPECT_EQ(embosser.output_enabled, 1);
}
