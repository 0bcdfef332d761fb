// curve_cmds_test.cpp - the curve commands as the interpreter runs them:
// their echoes in each run mode, the data lists, and what they draw.
#include "commands/handlers.h"

#include <string>

#include "core/run_state.h"
#include "support/draw_testing.h"

// On the millimetre page world (x, y) is dot (2x + 190, 2y + 277).
class CurveCmdsTest : public DrawTest {};

static const std::string SPLINE = "  spline -10 10 -10 10 1 1 -1 2\n0 0\n2 0\n9999 0\n";

// A spline of an unknown kind is refused before its points are taken in.
TEST_F(CurveCmdsTest, RefusedKindListsNoPoints) {
  run_program("spline -10 10 -10 10 7 0 0 2\n0 0\n2 0\n9999 0\nspline -10 10 -10 10 1 0 0 2\n9999 0\n");
  EXPECT_EQ(echoed(),
            "spline 170 210 257 297 7 0 0 2.000 //0 with 2 points\n"
            "spline 170 210 257 297 1 0 0 2.000 //0 with 0 points\n");
  std::string err = errors();
  // Reported at the end mark: the data lines count as lines read.
  EXPECT_NE(err.find("line 4 \"spline\": out of range func = 7 (1-4)"), std::string::npos) << err;
  EXPECT_NE(err.find("line 6 \"spline\": no data (0)"), std::string::npos) << err;
}

// bline and cline are one command, echoed as cline in debug runs and not
// at all in test runs; both draw.
TEST_F(CurveCmdsTest, BrokenLineEchoes) {
  run_program("bline 1.9999\n0 0\n4 0\n9999 0\n");
  run_state.run_mode = MODE_TEST;
  run_program("cline 1.9999\n0 0\n0 -4\n9999 0\n");
  EXPECT_EQ(echoed(),
            "cline 2.000 // with 2 points\n"
            "   Plot 190 277 0\n"
            "   Plot 194 277 0\n"
            "   Plot 198 277 0\n"
            "   plot 0.000 0.000 0\n"
            "   plot 0.000 -2.000 0\n");
}

// The conversion run copies each command with its data list in grid values
// and draws nothing.
TEST_F(CurveCmdsTest, ConversionModeCopiesTheDataAndDrawsNothing) {
  run_state.run_mode = MODE_CONVERT;
  run_program(SPLINE +
              "sin 0 0 0 4 -10 10 1 1 0 0 2\n"
              "cline 2\n0 0\n4 0\n9999 0\n"
              "bline 1\n9999 0\n");
  EXPECT_EQ(echoed(),
            "  spline 170.000 210.000 257.000 297.000 1 2.000 -2.000 2.000\n"
            "     190.000 277.000\n"
            "     194.000 277.000\n"
            "     9999 0\n"
            "sin 190.000 277.000 190.000 198.000 257.000 297.000 1.000 1.000 0.000 0.000 2.000\n"
            "cline 2.000 // with 2 points\n"
            "   190.000 277.000\n"
            "   198.000 277.000\n"
            "   9999 0\n"
            "cline 1.000 // with 0 points\n"
            "   9999 0\n");
  EXPECT_EQ(errors(), "");
}
