// inkprint_test.cpp - the ink-print pen commands, the text commands, and the
// strokes, paths and axes written instead of dots in ink print.
#include "devices/inkprint.h"

#include <sstream>

#include "core/run_state.h"
#include "devices/postscript.h"
#include "draw/axes.h"
#include "geometry/page.h"
#include "raster/plot.h"
#include "support/test_env.h"

// A window of 20 x 20 units on ESA721 a4: world x lands on 29.3 (x + 10) +
// 4.5 points and world y on 35.5 (y + 10) + 65.5, both truncated; 2 mm
// along y is 0.1596 units, 3 mm along x 0.2899.
class InkTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    ASSERT_EQ(set_window(-10, 10, -10, 10), 1);
  }
  void open(int ink_print = 1) { ASSERT_EQ(ps_open(temp_path("ink.ps").c_str(), ink_print, 0), 1); }
  // Closes the document; what was written after the header, up to the trailer.
  std::string written() {
    ps_close();
    std::string doc = read_file(temp_path("ink.ps"));
    size_t from = doc.find("1 setlinewidth\n") + 15;
    return doc.substr(from, doc.rfind("\nshowpage clear\n") - from);
  }
  static std::string state() {
    char text[128];
    snprintf(text, sizeof text, "cap %d join %d gray %.2f width %.2f esize %d jsize %d efont %d jfont %d", ink.cap,
             ink.join, ink.gray, ink.width, ink.esize, ink.jsize, ink.efont, ink.jfont);
    return text;
  }
  // The strokes as "x0 y0 x1 y1|" per moveto and lineto pair.
  std::string segments() {
    std::istringstream in(written());
    std::string line, out, from;
    while (std::getline(in, line)) {
      if (line.find(" moveto") != std::string::npos) from = line.substr(0, line.find(" moveto"));
      if (line.find(" lineto") != std::string::npos) out += from + " " + line.substr(0, line.find(" lineto")) + "|";
    }
    return out;
  }
};

TEST_F(InkTest, RefusedValuesKeepTheState) {
  const char *const cases[][2] = {
      {"cap 3", "cap must be 0, 1 or 2"},      {"join -1", "join must be 0, 1 or 2"},
      {"gray 1.5", "gray must be 0.0-1.0"},    {"width -0.1", "width must be 0.0-1.0"},
      {"esize 0", "illegal European fontsize 0 (1-100)"},
      {"jsize 101", "illegal Japanese font size 101 (1-100)"},
      {"efont 4", "illegal European font 4 (0-3)"}, {"jfont 3", "illegal Japanese font 3 (4-11)"},
  };
  for (const auto &c : cases) {
    run_program(std::string(c[0]) + "\n");
    EXPECT_NE(errors().find(std::string(": ") + c[1]), std::string::npos) << c[0];
  }
  EXPECT_EQ(run_state.error_count, 8);
  EXPECT_EQ(state(), "cap 0 join 1 gray 0.00 width 1.00 esize 24 jsize 18 efont 2 jfont 6");
  run_program("cap 2\njoin 0\ngray 1\nwidth 0\nesize 100\njsize 1\nefont 3\njfont 11\n");
  EXPECT_EQ(state(), "cap 2 join 0 gray 1.00 width 0.00 esize 100 jsize 1 efont 3 jfont 11");
  EXPECT_EQ(run_state.error_count, 8);
}

TEST_F(InkTest, LinesAreStrokesInTheLastChosenColourCutToTheWindow) {
  open();
  run_program("line -5 -5 5 5 2\nrgbcolor 1 0 0.5\nwidth 0.25\njoin 2\n");
  ink_line(-5, -5, 5, 5);
  run_program("gray 0.75\n");
  ink_line(-5, -5, 5, 5);
  const char *seg = "151 243 moveto\n444 598 lineto\nstroke\n";
  EXPECT_EQ(written(), std::string("\n1.00 setlinewidth\n0.00 setgray\n1 setlinejoin\n") + seg +
                           "\n0.25 setlinewidth\n1.00 0.00 0.50 setrgbcolor\n2 setlinejoin\n" + seg +
                           "\n0.25 setlinewidth\n0.75 setgray\n2 setlinejoin\n" + seg);
  EXPECT_FLOAT_EQ(ink.width, 0.0f);  // closing the document resets width and colour
  EXPECT_FLOAT_EQ(ink.red, 0.0f);
  ink_line(-5, -5, 5, 5);  // no document, then a tactile one: nothing
  open(0);
  ink_line(-5, -5, 5, 5);
  EXPECT_EQ(written(), "");
  open();
  ink_line(-20, 0, 20, 0);
  ink_line(-20, 20, -15, 20);  // wholly outside
  ink_line(0, -30, 0, 30);
  EXPECT_EQ(segments(), "4 420 590 420|297 65 297 775|");
}

TEST_F(InkTest, PathCodesMakeOneStrokeAroundLoneDots) {
  open();
  ps_plot(0, 0, PATH_START, 0);
  ps_plot(1, 0, PATH_ON, 0);
  ps_plot(2, 0, 4, 0);         // a lone dot breaks the stroke ...
  ps_plot(3, 0, PATH_END, 0);  // ... which picks up at its last point
  ps_plot(0, 0, PATH_END, 0);  // an end without a start draws nothing
  ps_plot(0, 0, PATH_ON, 0);   // a continuation without a start begins one
  ps_flush();                  // and the command's end strokes it
  ps_plot(1, 0, 0, 0);         // a plain dot is tactile only: nothing in ink
  const std::string start = "\n1.00 setlinewidth\n0.00 setgray\n1 setlinejoin\n0 setlinecap\n";
  EXPECT_EQ(written(), start + "297 420 moveto\n326 420 lineto\nstroke\n\n356 420 1 0 360 arc fill stroke\n" +
                           "326 420 moveto\n385 420 lineto\nstroke\n" + start + "297 420 moveto\nstroke\n");
}

TEST_F(InkTest, AxesTickEveryMultipleFromTheOriginOnTheSignedSide) {
  open();
  draw_xaxis(0, 0, -2, 2, 1, 2, 1);  // ticks 2 mm up
  EXPECT_EQ(segments(), "238 420 356 420|238 420 238 426|268 420 268 426|297 420 297 426|"
                        "326 420 326 426|356 420 356 426|");
  open();
  draw_xaxis(0.5, 0, -1, 1, 1, -2, 1);  // origin 0.5: ticks at -0.5 and 0.5, below
  EXPECT_EQ(segments(), "268 420 326 420|282 420 282 414|312 420 312 414|");
  open();
  draw_yaxis(0, 0, -1, 1, 1, -3, 1);  // ticks 3 mm left
  EXPECT_EQ(segments(), "297 385 297 456|297 385 289 385|297 420 289 420|297 456 289 456|");
}

TEST_F(InkTest, TextSitsTwoMillimetresBelowItsPoint) {
  open();
  run_program("esize 12\nefont 1\nalphanumeric 0 0 Hello, world\nkanjikana 0 5 A\x88\x9f\n"
              "alphanumeric 10 0 edge\n");
  std::string doc = written();
  EXPECT_EQ(doc.find("\n0.00 0.00 0.00 setrgbcolor\n0.00 setgray\n1.00 setlinewidth\n/Helvetica findfont\n"
                                "12 scalefont setfont\n297 414 moveto\n(Hello, world) show stroke\n"),
            0u);
  EXPECT_NE(doc.find("\n/GothicBBB-Medium-RKSJ-H findfont\n18 scalefont setfont\n297 592 moveto\n"
                     "< 0041 889f > show stroke\n"),
            std::string::npos);
  // The right edge of the window maps outside the band: -1, written as it is.
  EXPECT_NE(doc.find("\n-1 414 moveto\n(edge) show stroke\n"), std::string::npos);
}

TEST_F(InkTest, StringsAlwaysCloseWhateverTheText) {
  EXPECT_EQ(ink_latin_string("f(x) = (a+b)\nrest"), "(f(x) = (a+b))");  // pairs stand as they are
  EXPECT_EQ(ink_latin_string("a)b(c((x)"), "(a\\)b\\(c\\((x))");
  EXPECT_EQ(ink_latin_string("C:\\dir\\"), "(C:\\\\dir\\\\)");
  EXPECT_EQ(ink_latin_string("\xe9t\xe9"), "(\xe9t\xe9)");
  EXPECT_EQ(ink_latin_string(std::string(300, ')').c_str()).size(), 602u);
  EXPECT_EQ(ink_kanji_string("\x82\xa0 z"), "< 82a0 0020 007a >");
  EXPECT_EQ(ink_kanji_string("a\x88"), "< 0061 8800 >");  // a lead byte with nothing after it
}

TEST_F(InkTest, TextRangeErrorsAlsoWithoutInkPrint) {
  open(0);  // tactile: the text commands only check
  run_program("alphanumeric 11 0 x\nalphanumeric 0 -9.9 x\nkanjikana -11 0 x\nkanjikana 0 -9.9 x\n"
              "alphanumeric 0 0 fine\n");
  std::string err = errors();
  EXPECT_NE(err.find(": out of range wx0 11.00 (-10.00-10.00)"), std::string::npos);
  EXPECT_NE(err.find(": out of range wy0 -10.06 (-10.00-10.00)"), std::string::npos);
  EXPECT_NE(err.find(": illegal wx0 -11.00 (-10.00-10.00)"), std::string::npos);
  EXPECT_NE(err.find(": illegal wy0 -10.06 (-10.00-10.00)"), std::string::npos);
  EXPECT_EQ(run_state.error_count, 4);
  EXPECT_EQ(written(), "");
}
