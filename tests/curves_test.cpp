// curves_test.cpp - the curve commands in the real program: debug and test
// traces, the echo forms of the family, every refusal wording, embosser
// bytes, ink-print PostScript and the bitmap picture of a curve.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/run_tacto.h"

// On the millimetre page (MM_PAGE) world (x, y) is dot (2x + 190, 2y + 277).

// A flat curve at a pitch just under 2 mm: a path of three dots and its end.
TEST(Curves, DebugTraceOfAFunctionCurve) {
  RunResult r = run_program(MM_PAGE + "  f1 0 0 0 4 -10 10 0 0 1.9999\n", {"-r", "-d"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, MM_ECHO +
                       "  f1 190 277 190 198 257 297 0.000 0.000 2.000\n"
                       "   Plot 190 277 1\n"
                       "   Plot 194 277 2\n"
                       "   Plot 198 277 2\n"
                       "   Plot 198 277 3\n");
}

// y = x over 0..8 with y shown from 3 to 8, walked right to left: the dots
// keep the rhythm of the hidden ones, and the path left through the near
// end of the y range stays open until the far end of the x range.
TEST(Curves, TestTraceThroughAHiddenStretch) {
  RunResult r = run_program(MM_PAGE + "f1 0 0 8 0 3 8 1 0 2.8283\n", {"-r", "-t"});
  EXPECT_EQ(r.out, MM_ECHO +
                       "f1 0.000 0.000 8.000 0.000 3.000 8.000 1.000 0.000 2.828\n"
                       "   plot 8.000 8.000 1\n"
                       "   plot 6.000 6.000 2\n"
                       "   plot 4.000 4.000 2\n"
                       "   plot 0.000 0.000 3\n");
}

// The members that echo in their own way; a pitch of 0 keeps them to the echo.
TEST(Curves, EchoFormsOfTheFamily) {
  const std::string program = MM_PAGE +
                              "tan 0 0 0 4 -10 10 1 1 2 3 0\n"
                              "hyperbola 0 0 0 4 -10 10 1 2 3 4 0\n"
                              "pow 0 0 0 4 -10 10 2 1 0.5 0 0 0\n"
                              "weibull 0 0 0 4 -10 10 1 2 0.25 1 0 0 0\n"
                              "exp 1 -1 0 4 -10 10 1 0.5 0 0 0\n";
  RunResult d = run_program(program, {"-r", "-d"});
  EXPECT_EQ(d.out, MM_ECHO +
                       "tan 190 277 190 198 257 297 1.000 1.000 4 6 0.000\n"
                       "hyperbola 190 277 190 198 257 297 2 4 6 8 0.000\n"
                       "POW 190 277 190 198 257 297 2.000 1.000 0.5000 0.000 0.000 0.000\n"
                       "weibull 190 277 190 198 257 297 1.000 2.000 0.2500 1.000 0.000 0.000 0.000\n"
                       "exp 192 275 190 198 257 297 1.000 0.500 0.000 0.000 0.000\n");
  RunResult t = run_program(program, {"-r", "-t"});
  EXPECT_EQ(t.out, MM_ECHO +
                       "tan 0.000 0.000 0.000 4.000 -10.000 10.000 1.000 1.000 2.000 3.000 0.000\n"
                       "hyperbola 0.000 0.000 0.000 4.000 -10.000 10.000 1.000 2.000 3.000 4.000 0.000\n"
                       "POW 0.000 0.000 0.000 4.000 -10.000 10.000 2.000 1.000 0.5000 0.000 0.000 0.000\n"
                       "weibull 0.000 0.000 0.000 4.000 -10.000 10.000 1.000 2.000 0.2500 1.000 0.000 0.000 "
                       "0.000\n"
                       "exp 1.000 -1.000 0.000 4.000 -10.000 10.000 1.000 0.5000 0.000 0.000 0.000\n");
  EXPECT_EQ(count_of(t.err, "error "), 5);
}

// Runs lines on the millimetre page and checks that each reports its
// message (at most nine a run: the tenth error ends a run).
static void expect_refusals(const std::vector<std::pair<std::string, std::string>> &cases) {
  std::string program = MM_PAGE;
  for (const auto &c : cases) program += c.first + "\n";
  RunResult r = run_program(program, {"-r", "-t"});
  EXPECT_EQ(count_of(r.err, "error "), static_cast<int>(cases.size())) << r.err;
  for (const auto &c : cases) {
    std::string word = c.first.substr(0, c.first.find(' '));
    EXPECT_EQ(count_of(r.err, "\"" + word + "\": " + c.second + "\n"), 1) << c.first << "\n" << r.err;
  }
  EXPECT_EQ(count_of(r.out, "   plot "), 0);
}

TEST(Curves, VerticalParabolaWording) {
  expect_refusals({
      {"vparabola 0 0 0 4 -10 10 1 0 0 0", "illegal pitch: 0.00mm"},
      {"vparabola 0 0 1 1 -10 10 1 0 0 1", "illegal x range (1.00-1.00)"},
      {"vparabola 0 0 -200 -100 -10 10 1 0 0 1", "illegal x1 -100.00"},
      {"vparabola 0 0 100 50 -10 10 1 0 0 1", "illegal x range x0 (100.00)"},
      {"vparabola 0 0 0 4 2 2 1 0 0 1", "no range of y (2.00-2.00)"},
      {"vparabola 0 0 0 4 -300 -200 1 0 0 1", "out of range: y0 (-300.00--200.00)"},
      {"vparabola 0 0 0 4 300 200 1 0 0 1", "out of range: y0 = 300.00"},
  });
}

TEST(Curves, HorizontalParabolaAndRectangularHyperbolaWording) {
  expect_refusals({
      {"hparabola 0 0 0 4 -10 10 1 0 0 0", "illegal pitch (0.00mm)"},
      {"hparabola 0 0 1 1 -10 10 1 0 0 1", "no range of x (1.00-1.00)"},
      {"hparabola 0 0 -200 -100 -10 10 1 0 0 1", "out of range x1 (-100.00)"},
      {"hparabola 0 0 100 50 -10 10 1 0 0 1", "out of range: x0 (100.00)"},
      {"hparabola 0 0 0 4 300 200 1 0 0 1", "out of range: y0 = 300.00"},
      {"rhyperbola 0 0 0 4 -10 10 0 1 0 1", "k should be non-zero (0.00)"},
      {"rhyperbola 0 0 100 50 -10 10 1 1 0 1", "out of range: x0 100.00"},
      {"rhyperbola 0 0 -200 -100 -10 10 1 1 0 1", "out of range: x1 = -100.00"},
  });
}

TEST(Curves, CoefficientAndDomainWording) {
  expect_refusals({
      {"hyperbola 0 0 0 4 -10 10 0 1 0 0 1", "a shold be non-zero (0.0000)"},
      {"normal 0 0 0 4 -10 10 0 1 0 0 1", "a shold be non-zero (0.0000)"},
      {"normal 0 0 0 4 -10 10 1 1 0 0 -1", "illegal pitch (-1.00mm)"},
      {"pow 0 0 0 4 -10 10 -1 1 1 0 0 0", "k should be positive (-1.00)"},
      {"ln 0 0 0 4 -10 10 1 1 0 0 0", "out of range: x0 = 0.00, x1 = 4.00"},
      {"l10 0 0 1 4 -10 10 1 1 0 0 0", "illegal pitch = 0.00mm"},
      {"ln 0 0 1 4 300 200 1 1 0 0 1", "out of ra>ge: y0 = 300.00"},
      {"l10 0 0 1 4 -300 -200 1 1 0 0 1", "out of range: y0 = -300.00"},
      {"f3 0 0 0 4 -300 -200 1 1 0 0 1", "out of range:l y0 = -300.00"},
  });
}

TEST(Curves, PlainWording) {
  expect_refusals({
      {"sin 0 0 0 4 -10 10 1 1 0 0 0", "illegal: pitch = 0.00mm"},
      {"cos 0 0 -200 -100 -10 10 1 1 0 0 1", "out of range: x1 = -100.00"},
      {"tan 0 0 100 50 -10 10 1 1 0 0 1", "out of range: x0 = 100.00"},
      {"exp 0 0 0 4 2 2 1 1 0 0 1", "no range of y (2.00-2.00)"},
      {"weibull 0 0 0 4 -300 -200 1 1 0 1 0 0 1", "out of range: y0 = -300.00"},
      {"f1 0 0 100 50 -10 10 1 0 1", "out of range: x0 100.00"},
      {"f2 0 0 100 50 -10 10 1 0 0 1", "out of range: x0 100.00"},
      {"f5 0 0 1 1 -10 10 1 0 0 0 0 0 1", "no range of x (1.00-1.00)"},
      {"f3 0 0 0 4 300 200 1 1 0 0 1", "out of range:l y0 = 300.00"},
  });
}

// Kind 2 through two points straight up, listed shifted, then its dots.
TEST(Curves, DebugSplineWithItsListing) {
  RunResult r = run_program(MM_PAGE + "spline -10 10 -10 10 2 1 0 2\n0 0\n0 4\n9999 0\n", {"-r", "-d"});
  EXPECT_EQ(r.out, MM_ECHO +
                       "spline 170 210 257 297 2 2 0 2.000 //0 with 2 points\n"
                       "1 (1.00, 0.00)\n"
                       "2 (1.00, 4.00)\n"
                       "   Plot 192 277 1\n"
                       "   Plot 192 281 2\n"
                       "   Plot 192 285 2\n"
                       "   Plot 192 285 3\n");
  EXPECT_EQ(r.err.find("error"), std::string::npos);
}

TEST(Curves, SplineRefusals) {
  expect_refusals({
      {"spline -10 10 -10 10 5 0 0 2\n0 0\n9999 0", "out of range func = 5 (1-4)"},
      {"spline -10 10 -10 10 1 0 0 2\n9999 0", "no data (0)"},
      {"spline -10 10 -10 10 1 0 0 2\n0 0\n1 1\n1 2\n9999 0", "segment of curve is vertical (data 2-3)"},
      {"spline -10 10 -10 10 1 0 0 0\n0 0\n1 1\n9999 0", "illegal pitch (0.00mm)"},
      {"spline 1 1 -10 10 1 0 0 1\n0 0\n1 1\n9999 0", "no range of x (1.000-1.000)"},
      {"spline -10 10 2 2 1 0 0 1\n0 0\n1 1\n9999 0", "no range of y (2.00-2.00)"},
      {"spline -10 10 -10 10 1 0 0 1\n0 0\n0 1\n9999 0", "segment of curve is vertical (data 1-2)"},
      {"bline 1\n0 0\n9999 0", "broken line data is none"},
  });
}

// Data x that differ as given can meet once shifted far out: the knot
// interval is then too small for the table; the cause, then the failing step.
TEST(Curves, TableFailureNamesItsStep) {
  RunResult r = run_program(MM_PAGE + "spline -10 10 -10 10 1 1000000000000000 0 1\n0 0\n0.0001 1\n9999 0\n", {"-r"});
  EXPECT_NE(r.err.find("\"spline\": zero divide of 0"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("\"spline\": maketable1 in spline1"), std::string::npos) << r.err;
}

// Normal mode on the Everest-D: one "x:y" millimetre line per dot, x from
// the right edge of the sheet; the code-3 end of the path is not embossed.
TEST(Curves, EmbosserReceivesTheCurveDots) {
  RunResult r = run_program(MM_PAGE + "f1 0 0 0 4 -10 10 0 0 1.9999\ncline 1.9999\n0 2\n2 2\n9999 0\n", {"-r"});
  EXPECT_EQ(r.status, 0);
  const std::string tail = "95.00:138.50\n93.00:138.50\n91.00:138.50\n"  // the curve, three dots
                           "95.00:140.50\n93.00:140.50\n";                // the broken line
  ASSERT_GE(r.out.size(), tail.size());
  EXPECT_EQ(r.out.substr(r.out.size() - tail.size()), tail);
}

// Ink print turns a curve's path codes into one stroked line and no dots.
TEST(Curves, InkPrintStrokesTheCurve) {
  TactoDir dir;
  dir.write("prog.txt", "window -10 10 -10 10\ninkprint ink.ps\nf1 0 0 -5 5 -5 5 0 0 1\n");
  RunResult r = dir.run({"-r", "prog.txt"});
  EXPECT_EQ(r.status, 0);
  std::string doc = dir.read("ink.ps");
  EXPECT_EQ(count_of(doc, " moveto\n"), 1);
  EXPECT_GE(count_of(doc, " lineto\n"), 20);
  EXPECT_EQ(count_of(doc, " arc "), 0);
  EXPECT_EQ(count_of(doc, "stroke\n"), 1);
}

// The menu's bitmap job of a curve: dots of the three points on the curve
// (page points 297, 303, 309 across, 420 up; pixels twice that, rows from
// the bottom two short), white between them. A zero bit is black.
TEST(Curves, BitmapPictureOfACurve) {
  TactoDir dir;
  dir.write("tacto.txt", MM_PAGE + "f1 0 0 0 4 -10 10 0 0 1.9999\n");
  RunResult r = dir.run({"-r"}, "71\n\n\nq");
  ASSERT_NE(r.err.find("\nBitmap file [tacto.bmp] was generated\n"), std::string::npos) << r.err;
  std::string bmp = dir.read("tacto.bmp");
  ASSERT_EQ(bmp.size(), 256030u);
  auto black = [&bmp](int col, int row) {
    unsigned char byte = static_cast<unsigned char>(bmp[62 + row * 152 + col / 8]);
    return ((byte >> (7 - col % 8)) & 1) == 0;
  };
  for (int col : {594, 606, 618}) EXPECT_TRUE(black(col, 838)) << col;
  for (int col : {600, 612, 624, 588}) EXPECT_FALSE(black(col, 838)) << col;
}

// The example: two labelled graphs, drawn without a message; the spline
// takes in all eight readings and every curve places dots.
TEST(Curves, ExampleFunctionPlot) {
  std::ifstream in(std::string(TACTO_SOURCE_DIR) + "/examples/function_plot.txt", std::ios::binary);
  std::string program((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ASSERT_FALSE(program.empty());
  RunResult r = run_program(program, {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(count_of(r.err, "warning") + count_of(r.err, "error"), 0) << r.err;
  EXPECT_NE(r.out.find("\nspline -7.000 7.000 -10.000 -2.500 1 -7.000 -10.000 1.500 //0 with 8 points\n"
                       "1 (-7.00, -7.60)\n"),
            std::string::npos);
  EXPECT_NE(r.out.find("\n8 (7.00, -5.60)\n"), std::string::npos);
  EXPECT_EQ(count_of(r.out, "\nbrl "), 7);
  EXPECT_NE(r.out.find("\n   plot -6.283 6.000 1\n"), std::string::npos);  // the sine's start
  EXPECT_GT(count_of(r.out, "   plot "), 600);
}
