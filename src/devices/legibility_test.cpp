// legibility_test.cpp - the legibility checks on crafted pages: labels with
// and without clear space, parallel and crossing lines, what a figure is,
// pages apart, dropped dots and fine pitches, and the summary line.
#include "devices/legibility.h"

#include <cmath>

#include "core/run_state.h"
#include "support/test_env.h"

class LegibilityTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    // Warnings name the figure's file, line and command word, not the run's
    // (a short file name keeps them whole in the warning line).
    legibility_begin(check, LEGIBILITY_LABEL_MM, LEGIBILITY_LINE_MM);
    copy_text(run_state.fname, NAME_SIZE, "run.txt");
    copy_text(run_state.cname, NAME_SIZE, "end");
    run_state.line_number = 40;
  }
  // World units are centimetres, y up, with the origin at the top left.
  static Place at(double x, double y) { return Place{x, y, x / 10, -y / 10}; }
  // A line of dots 0.35 mm apart drawn by program line `line`.
  void line(int line, double x0, double y0, double x1, double y1, const char *file = "f") {
    int f = legibility_figure(check, file, line, "line");
    int n = static_cast<int>(std::ceil(std::hypot(x1 - x0, y1 - y0) / 0.35));
    for (int i = 0; i <= n; i++) legibility_dot(check, f, at(x0 + (x1 - x0) * i / n, y0 + (y1 - y0) * i / n), 0);
  }
  // Full six-dot Braille cells from x, their bottom row at y.
  void label(int line, double x, double y, int cells) {
    int f = legibility_figure(check, "f", line, "braille");
    for (double dy : {0.0, -2.2, -4.4})
      for (int k = 0; k < cells; k++)
        for (double dx : {0.0, 2.1}) legibility_dot(check, f, at(x + 6 * k + dx, y + dy), 1);
  }
  std::string report(int problems) {
    Capture summary;
    EXPECT_EQ(legibility_report(check, summary.file()), problems);
    return errors() + summary.text();
  }
  Legibility check;
};

TEST_F(LegibilityTest, LabelsNeedThreeMillimetresOfClearSpace) {
  line(1, 20, 100, 120, 100);
  label(2, 40, 99, 3);  // 1 mm above the line
  label(3, 80, 95, 3);  // 5 mm above
  EXPECT_EQ(report(1), "\nwarning 1! f line 2 \"braille\": label 1.0 mm from line 1 at 4.00,-9.90 (40.0,99.0 mm)"
                       "\nlegibility: 1 problem found\n");
  EXPECT_EQ(run_state.line_number, 40);  // the run's own file, line and command are back
  EXPECT_STREQ(run_state.cname, "end");
  EXPECT_STREQ(run_state.fname, "run.txt");
}

TEST_F(LegibilityTest, LongCloseRunsAreFoundAndCrossingsAreNot) {
  line(1, 20, 50, 80, 50);
  line(2, 20, 51.5, 80, 51.5);  // 1.5 mm beside line 1 for 60 mm
  line(3, 150, 20, 150, 80);
  line(4, 120, 50, 180, 50);  // crosses line 3 at right angles
  EXPECT_EQ(report(1), "\nwarning 1! f line 2 \"line\": runs 1.5 mm from line 1 for 60 mm at 2.00,-5.15 "
                       "(20.0,51.5 mm)\nlegibility: 1 problem found\n");
}

TEST_F(LegibilityTest, AFigureIsOneProgramLineOnOnePage) {
  line(7, 20, 50, 80, 50);
  line(7, 20, 51.5, 80, 51.5);  // the same line again, as in a loop: one figure
  legibility_end_page(check);
  line(8, 20, 51, 80, 51);  // beside line 7, but on the next page
  line(7, 20, 150, 80, 150, "a.txt");
  line(7, 20, 151.5, 80, 151.5, "b.txt");  // same number, another file: two figures
  std::string text = report(1);
  EXPECT_NE(text.find("\nwarning 1! b.txt line 7 \"line\": runs 1.5 mm from line 7 for 60 mm"), std::string::npos)
      << text;
  EXPECT_EQ(count_of(text, "warning"), 1);
}

TEST_F(LegibilityTest, DroppedDotsAndFinePitchesAreCountedPerLine) {
  int circle = legibility_figure(check, "f", 5, "circle");
  for (int i = 0; i < 7; i++) legibility_dropped(check, circle, at(-5 - i, 10));
  legibility_dropped(check, legibility_figure(check, "f", 6, "plot"), at(300, 20));
  int fine = legibility_figure(check, "f", 9, "line");
  legibility_pitch(check, fine, 0.2, 0.35, at(10, 10));
  legibility_pitch(check, fine, 0.1, 0.35, at(20, 10));  // the finest is kept
  legibility_pitch(check, fine, 0.3, 0.35, at(30, 10));
  legibility_pitch(check, circle, 0.5, 0.35, at(40, 10));  // coarser than the dots: fine
  EXPECT_EQ(report(3),
            "\nwarning 1! f line 5 \"circle\": 7 dots dropped outside the frame at -0.50,-1.00 (-5.0,10.0 mm)"
            "\nwarning 2! f line 6 \"plot\": 1 dot dropped outside the frame at 30.00,-2.00 (300.0,20.0 mm)"
            "\nwarning 3! f line 9 \"line\": pitch 0.10 mm < dot spacing 0.35 mm at 2.00,-1.00 (20.0,10.0 mm)"
            "\nlegibility: 3 problems found\n");
}

TEST_F(LegibilityTest, ACleanPageSaysSo) {
  line(1, 20, 50, 80, 50);
  line(2, 20, 55, 80, 55);
  label(3, 20, 45, 2);  // 5 mm above line 1
  EXPECT_EQ(report(0), "legibility: no problems found\n");
}
