// draw_test.cpp - the drawing commands in the real program: debug traces,
// test traces, embosser bytes and the messages of refused figures.
#include <gtest/gtest.h>

#include "support/run_tacto.h"

// On the millimetre page (MM_PAGE) world (x, y) is dot (2x + 190, 2y + 277).

TEST(Draw, DebugTraceOfLinesBothWays) {
  RunResult r = run_program(MM_PAGE + "line 0 0 4 0 1.9999\nline 4 0 0 0 1.9999\nline 0 0 0 0 2\n", {"-r", "-d"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, MM_ECHO +
                       "line 190 277 198 277 2.000\n"
                       "   Plot 190 277 0\n"
                       "   Plot 194 277 0\n"
                       "   Plot 198 277 0\n"
                       "line 198 277 190 277 2.000\n"
                       "   Plot 198 277 0\n"
                       "   Plot 194 277 0\n"
                       "line 190 277 190 277 2.000\n"
                       "   Plot 190 277 0\n");
}

TEST(Draw, TestTraceOfAnArrowWithItsBarbs) {
  RunResult r = run_program(MM_PAGE + "  arrow 0 0 2 0 90 2 0 0.9999\n", {"-r", "-t"});
  EXPECT_EQ(r.out, MM_ECHO +
                       "  arrow 0.000 0.000 2.000 0.000 90.000 2.000 0 1.000\n"
                       "   plot 0.000 0.000 0\n"    // shaft
                       "   plot 1.000 0.000 0\n"
                       "   plot 2.000 0.000 0\n"
                       "   plot 2.000 0.000 0\n"    // upper barb, reaching its end
                       "   plot 2.000 1.000 0\n"
                       "   plot 2.000 2.000 0\n"
                       "   plot 2.000 0.000 0\n"    // lower barb, stopping short
                       "   plot 2.000 -1.000 0\n"
                       "   plot 2.000 0.000 0\n");  // tip
}

// Normal mode on the Everest-D: one "x:y" millimetre line per dot, x from
// the right edge of the sheet; the circle's closing code-3 point is not
// embossed.
TEST(Draw, EmbosserReceivesTheDots) {
  RunResult r = run_program(MM_PAGE + "line 0 0 4 0 1.9999\ncircle 0 0 1 0 180 100\n", {"-r"});
  EXPECT_EQ(r.status, 0);
  const std::string tail = "95.00:138.50\n93.00:138.50\n91.00:138.50\n"  // the line
                           "94.00:138.50\n";                              // the circle's start only
  ASSERT_GE(r.out.size(), tail.size());
  EXPECT_EQ(r.out.substr(r.out.size() - tail.size()), tail);
}

TEST(Draw, RefusedFiguresReportAndDrawNothing) {
  RunResult r = run_program(MM_PAGE +
                                "rectangle 0 0 1 1 0\n"
                                "box 0 0 1 1 0\n"
                                "polygon 2 0 0 1 1\n"
                                "oval 0 0 1 2 3 -2 1\n",
                            {"-r", "-t"});
  EXPECT_EQ(count_of(r.err, ": illegal pitch 0.00"), 4);
  EXPECT_EQ(count_of(r.err, ": illegal: pitch (0.00mm)"), 1);
  EXPECT_EQ(count_of(r.err, ": few angles of polygone (2)"), 1);
  EXPECT_EQ(count_of(r.err, ": same y coordinates: y1 = y2"), 1);
  EXPECT_EQ(count_of(r.out, "   plot "), 0);
  EXPECT_NE(r.out.find("polygon 2 0.000 0.000 1.000 1.000\n"), std::string::npos);
}

// Ten errors end the run: the rectangle's four and the diamond's four leave
// room for two more, so the second diamond stops the program after its echo.
TEST(Draw, PerEdgeMessagesCountTowardsTheErrorLimit) {
  RunResult r = run_program(MM_PAGE +
                                "rectangle 0 0 1 1 0\n"
                                "diamond 0 0 1 1 0\n"
                                "diamond 0 0 1 1 0\n"
                                "line 0 0 1 1 1\n",
                            {"-r", "-t"});
  EXPECT_EQ(count_of(r.err, "illegal pitch 0.00"), 12);
  EXPECT_NE(r.err.find("over max"), std::string::npos);
  EXPECT_EQ(r.out.find("line 0.000"), std::string::npos);
}

// Ink-print output strokes a line instead of dotting it.
TEST(Draw, InkPrintStrokesLinesInsteadOfDots) {
  TactoDir dir;
  dir.write("prog.txt", "window -10 10 -10 10\ninkprint ink.ps\nline -10 0 10 0 1\n");
  RunResult r = dir.run({"-r", "prog.txt"});
  EXPECT_EQ(r.status, 0);
  std::string doc = dir.read("ink.ps");
  EXPECT_EQ(count_of(doc, " moveto\n"), 1);
  EXPECT_EQ(count_of(doc, " lineto\n"), 1);
  EXPECT_EQ(count_of(doc, " arc "), 0);
}

// Figures that would walk for hours are refused at once with a message.
TEST(Draw, RunawayFiguresAreRefused) {
  RunResult r = run_program(
      "hatch 0 0 100000 0 0.0001\n"
      "circle 0 0 5 0 100000000 1\n"
      "oval 0 0 1 2 3 4 1\n"
      "xaxis 0 0 -1000 1000 0.0001 2 1\n"
      "yaxis 0 0 -1000 1000 0.0001 2 1\n"
      "polygon 100000000 0 0 5 1\n"
      "circle 0 0 5 0 720 1\n",  // two turns are fine
      {"-r", "-d"});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.err.find("\"hatch\": too many dots in a hatch row (1000000025)"), std::string::npos);
  EXPECT_NE(r.err.find("\"circle\": illegal angle: 0.00 100000000.00"), std::string::npos);
  EXPECT_EQ(count_of(r.err, ": too many ticks of axis (20000001)"), 2);
  EXPECT_NE(r.err.find("\"polygon\": too many angles of polygon (100000000)"), std::string::npos);
  EXPECT_EQ(count_of(r.err, "error "), 5);
  EXPECT_GT(count_of(r.out, "   Plot "), 10);  // the oval and the last circle drew
}
