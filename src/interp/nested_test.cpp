// nested_test.cpp - nested programs (paste, rpaste, include) and what they
// leave behind for their callers.
#include "interp/nested.h"

#include <string>
#include <sys/stat.h>

#include "core/run_state.h"
#include "geometry/transform.h"
#include "geometry/winstack.h"
#include "support/test_env.h"

class NestedTest : public TactoTest {};

TEST_F(NestedTest, APastedProgramLeavesTheCallersStateAsItWas) {
  write_file("sub.txt", "frame 10 100 10 100 -1 1 -1 1\nrotate 1 0 0 45\nmirror 1 3\nunknown\n");
  run_state.run_mode = MODE_DEBUG;
  run_program("window -5 5 -5 5\nrotate 1 1 1 30\npaste sub.txt 0 0 1 1\nplot 1 1 0\n");
  EXPECT_EQ(page_geom.f.x1, 599);
  EXPECT_FLOAT_EQ(page_geom.w.x0, -5);
  EXPECT_FLOAT_EQ(xform.rotate_cx, 1);
  EXPECT_EQ(xform.mirror_on, 0);
  EXPECT_EQ(stackwin.depth, STACK_BASE);
  EXPECT_EQ(run_state.line_number, 4);
  // The nested error names the pasted file and its own line.
  EXPECT_NE(errors().find("sub.txt line 4 \"unknown\": unknown command"), std::string::npos);
  EXPECT_EQ(count_of(echoed(), "   Plot 359 474 0\n"), 1);  // (1, 1) unturned: grid (359.4, 474)
}

TEST_F(NestedTest, NamesWithoutADirectoryAreFoundBesideTheCurrentProgram) {
  ASSERT_EQ(mkdir(temp_path("parts").c_str(), 0755), 0);
  write_file("parts/a.txt", "paste b.txt 0 0 1 1\n");
  write_file("parts/b.txt", "plot 0 0 0\n");
  run_state.run_mode = MODE_DEBUG;
  run_program("paste " + temp_path("parts/a.txt") + " 0 0 1 1\n");
  EXPECT_EQ(run_state.error_count, 0) << errors();
  EXPECT_EQ(count_of(echoed(), "   Plot 300 395 0\n"), 1);
}

TEST_F(NestedTest, TwentyThreeNestedPastesThenTheStackIsFull) {
  write_file("nest.txt", "paste nest.txt 0 0 1 1\nplot 0 0 0\n");
  run_state.run_mode = MODE_DEBUG;
  run_program("paste nest.txt 0 0 1 1\n");
  EXPECT_EQ(count_of(echoed(), "   Plot 300 395 0\n"), 23);
  std::string e = errors();
  EXPECT_NE(e.find("push_win overflow deep = 28"), std::string::npos);
  EXPECT_NE(e.find("stack can not be pushed. deep = 28"), std::string::npos);
  EXPECT_EQ(run_state.error_count, 2);
  EXPECT_EQ(stackwin.depth, STACK_BASE);
}

TEST_F(NestedTest, RefusalsLeaveNothingPushed) {
  run_program("paste sub.txt 0 0 -1 1\npaste sub.txt 0 0 1 0\npaste none.txt 0 0 2 2\n"
              "rpaste none.txt 0 0 2 2 30\n");
  std::string e = errors();
  EXPECT_NE(e.find("\"paste\": negative or zero bias x = -1.00"), std::string::npos);
  EXPECT_NE(e.find("negative or zero bias y = 0.00"), std::string::npos);
  EXPECT_NE(e.find("paste " + temp_path("none.txt") + " can not open."), std::string::npos);
  EXPECT_NE(e.find("paste file " + temp_path("none.txt") + " can not open."), std::string::npos);
  EXPECT_EQ(stackwin.depth, STACK_BASE);
  EXPECT_FLOAT_EQ(page_geom.w.x1, 10.35f);
  EXPECT_EQ(xform.rotate_on, 0);
}

TEST_F(NestedTest, RpasteTurnsAboutTheGivenPointThenRestoresTheCallersRotation) {
  write_file("sub.txt", "plot 1 0 0\n");
  run_state.run_mode = MODE_DEBUG;
  run_program("rotate 1 5 5 10\nrotate 2 0 0 0\nrpaste sub.txt 0 0 1 1 90\nplot 0 1 0\n");
  // (1, 0) turned by 90 degrees about (0, 0) is the caller's (0, 1).
  std::string out = echoed();
  EXPECT_EQ(count_of(out, "   Plot 300 427 0\n"), 2);
  EXPECT_EQ(xform.rotate_on + xform.rotate_saved, 1);
}

TEST_F(NestedTest, RpasteWritesFrameAndWindowInConversionMode) {
  write_file("sub.txt", "window -1 1 -1 1\n");
  run_state.run_mode = MODE_CONVERT;
  run_program("rpaste sub.txt 1 1 2 2 90\n");
  EXPECT_EQ(echoed(),
            "rpaste sub.txt 1.000 1.000 2.000 2.000 90.000\n"
            "0 599 0 790 -5.675 4.675 -6.765 5.765\n"
            "window -1.000 1.000 -1.000 1.000\n"
            "0 599 0 790 -10.350 10.350 -12.530 12.530\n");
}
