// functions_test.cpp - the function curve engine: formulas, the walk's dots
// and path codes, clipping, refusals, and the cost of a plot in samples.
#include "curves/functions.h"

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "commands/handlers.h"
#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "interp/commands.h"
#include "support/draw_testing.h"

class FunctionsTest : public DrawTest {
 protected:
  // Plots a member on the millimetre page from its values in command order.
  int plot(const char *word, std::initializer_list<float> values) {
    const CurveMember *m = find_curve(word);
    EXPECT_NE(m, nullptr) << word;
    if (m == nullptr) return -1;
    EXPECT_EQ(static_cast<int>(values.size()), curve_value_count(*m)) << word;
    std::vector<float> v(values);
    return plot_curve(*m, v.data(), page_geom);
  }
};

static std::vector<TracedDot> coded(std::initializer_list<std::vector<int>> cells) {
  std::vector<TracedDot> dots;
  for (const auto &c : cells) dots.push_back(TracedDot{double(c[0]), double(c[1]), c[2]});
  return dots;
}

// Y of a member at X with coefficients c (upper branch).
static double y_of(const char *word, std::vector<float> c, double X, int branch = 1) {
  return find_curve(word)->y(c.data(), X, branch);
}

// ---- The table against the command rows ----------------------------------------

// Conversions in an echo format, "%s" not counted.
static int conversions(const char *f) {
  int n = 0;
  for (; *f; f++) {
    if (*f != '%') continue;
    f++;
    while (*f && strchr("-+ #0123456789.", *f)) f++;
    if (*f != 's') n++;
  }
  return n;
}

// Every member reads as many numbers as its echoes print; the debug echo
// prints the six common values as dots and the rest with three decimals,
// except the four members that echo in their own way.
TEST_F(FunctionsTest, EveryMemberMatchesItsCommandRow) {
  ASSERT_EQ(curve_member_count, 18);
  for (int i = 0; i < curve_member_count; i++) {
    const CurveMember &m = curve_members[i];
    const Command *row = match_command(m.word);
    ASSERT_NE(row, nullptr) << m.word;
    EXPECT_STREQ(row->word, m.word);
    EXPECT_EQ(row->handler, &cmd_function_curve) << m.word;
    EXPECT_EQ(row->count, curve_value_count(m)) << m.word;
    EXPECT_EQ(conversions(row->echo_debug), row->count) << m.word;
    EXPECT_EQ(conversions(row->echo_test), row->count) << m.word;
    EXPECT_EQ(static_cast<int>(strlen(row->conv)), row->count) << m.word;
    const char *own[] = {"tan", "hyperbola", "pow", "weibull"};
    bool exception = false;
    for (const char *w : own) exception = exception || strcmp(w, m.word) == 0;
    if (exception) continue;
    std::string rule = std::string("%s") + m.word + " %d %d %d %d %d %d";
    for (int k = CURVE_COMMON; k < row->count; k++) rule += " %.3f";
    EXPECT_EQ(row->echo_debug, rule + "\n") << m.word;
  }
}

// ---- Formulas ----------------------------------------------------------------

TEST_F(FunctionsTest, FormulasOfTheFamily) {
  EXPECT_DOUBLE_EQ(y_of("vparabola", {2, 1, 3}, 3), 2 * 4 + 3);
  EXPECT_DOUBLE_EQ(y_of("hparabola", {2, 1, 3}, 5), 2 * 4 + 1);  // b and c swap their roles
  EXPECT_DOUBLE_EQ(y_of("rhyperbola", {2, 1, 3}, 2), 2.0 / 1 + 3);
  EXPECT_DOUBLE_EQ(y_of("hyperbola", {3, 4, 0, 1}, 5), 1 + 16.0 / 3);
  EXPECT_DOUBLE_EQ(y_of("hyperbola", {3, 4, 0, 1}, 5, -1), 1 - 16.0 / 3);
  EXPECT_TRUE(std::isnan(y_of("hyperbola", {3, 4, 0, 1}, 1)));  // between the branches
  EXPECT_DOUBLE_EQ(y_of("normal", {2, 1, 0, 1}, 0), 2 / 6.283184 + 1);
  EXPECT_DOUBLE_EQ(y_of("normal", {1, 2, 1, 0}, 2), exp(-4.0) / 6.283184);
  EXPECT_DOUBLE_EQ(y_of("pow", {2, 3, 1, 1, 0.5f}, 4), 3 * 8 + 0.5);
  EXPECT_DOUBLE_EQ(y_of("exp", {1, 1, 2, 3}, 3), exp(2.0) + 3);
  EXPECT_DOUBLE_EQ(y_of("weibull", {2, 1, 0, 1, 0, 0}, 2), 1 - exp(-1.0));
  EXPECT_DOUBLE_EQ(y_of("weibull", {1, 2, 1, 3, 1, 4}, 4), 3 * (1 - exp(-4.0)) + 4);
  EXPECT_DOUBLE_EQ(y_of("ln", {2, 1, 1, 3}, 1 + exp(1.5)), 2 * 1.5 + 3);
  EXPECT_DOUBLE_EQ(y_of("l10", {1, 10, 0, 0}, 100), 3);
  EXPECT_DOUBLE_EQ(y_of("f1", {3, 4}, 2), 10);
  EXPECT_DOUBLE_EQ(y_of("f2", {1, 2, 3}, 2), 4 + 4 + 3);
  EXPECT_DOUBLE_EQ(y_of("f3", {1, 2, 3, 4}, 2), 8 + 8 + 6 + 4);
  EXPECT_DOUBLE_EQ(y_of("f4", {1, 0, 0, 0, 1}, 2), 17);
  EXPECT_DOUBLE_EQ(y_of("f5", {1, 0, 0, 0, 0, -1}, 2), 31);
  // The polynomials work in single precision, the others in double.
  EXPECT_EQ(y_of("f1", {0.1f, 0.2f}, 3), static_cast<double>(0.1f * 3.0f + 0.2f));
  EXPECT_NE(y_of("f1", {0.1f, 0.2f}, 3), 0.1f * 3.0 + 0.2f);
}

TEST_F(FunctionsTest, TrigonometryFollowsTheAngleUnit) {
  EXPECT_EQ(y_of("sin", {2, 1, 0, 1}, 90), 2 * sin(90 * 0.01745328888888889) + 1);
  EXPECT_NE(y_of("sin", {2, 1, 0, 1}, 90), 3.0);  // the program's own degree, not pi / 180
  EXPECT_EQ(y_of("cos", {1, 2, 10, 0}, 40), cos(2 * (30 * 0.01745328888888889)));
  EXPECT_EQ(y_of("tan", {1, 1, 0, 0}, 45), tan(45 * 0.01745328888888889));
  xform.degree_mode = 0;
  EXPECT_EQ(y_of("sin", {2, 1, 0, 1}, 1.5), 2 * sin(1.5) + 1);
  EXPECT_EQ(y_of("tan", {1, 0.5f, 1, 0}, 3), tan(0.5 * 2.0));
}

// ---- The walk ------------------------------------------------------------------

// On y = x the dots lie 2 * sqrt(2) mm apart along the curve, 2 mm apart in x.
TEST_F(FunctionsTest, SpacingIsMeasuredAlongTheCurveOnPaper) {
  plot("f1", {0, 0, 0, 4, -10, 10, 1, 0, 2.8283f});
  EXPECT_EQ(dots(), coded({{190, 277, 1}, {194, 281, 2}, {198, 285, 2}, {198, 285, 3}}));
}

// An ascending range ending past the right edge is clipped; the same range
// descending starts past the edge and is refused. A range that clips to one
// x is one sample; one lying wholly past the edge draws nothing, silently.
TEST_F(FunctionsTest, WindowClipsTheRange) {
  EXPECT_EQ(plot("f1", {0, 0, 90, 100, -10, 10, 0, 0, 1.9999f}), 1);
  EXPECT_EQ(dots(), coded({{370, 277, 1}, {374, 277, 2}, {378, 277, 2}, {378, 277, 3}}));
  EXPECT_EQ(plot("f1", {0, 0, 100, 90, -10, 10, 0, 0, 1.9999f}), 0);
  EXPECT_EQ(count_of(errors(), ": out of range: x0 100.00"), 1);
  EXPECT_EQ(plot("f1", {0, 0, 95, 100, -10, 10, 0, 0, 1}), 1);
  EXPECT_EQ(plot("f1", {0, 0, 100, 110, -10, 10, 0, 0, 1}), 1);
  EXPECT_EQ(plot("f1", {0, 0, -100, -110, -10, 10, 0, 0, 1}), 1);
  EXPECT_EQ(dots().size(), 5u);
  EXPECT_EQ(dots().back(), (TracedDot{380, 277, 1}));
  EXPECT_EQ(run_state.error_count, 1);
}

TEST_F(FunctionsTest, NonFiniteValuesDrawNothingAndEnd) {
  EXPECT_EQ(plot("sin", {0, 0, 0, NAN, -10, 10, 1, 1, 0, 0, 1}), 1);
  EXPECT_EQ(plot("sin", {INFINITY, 0, 0, 4, -10, 10, 1, 1, 0, 0, 1}), 1);
  EXPECT_EQ(plot("exp", {0, 0, 1, 90, -10, 10, 1000, 0, 0, 0, 1}), 1);  // overflows to infinity
  EXPECT_EQ(plot("f1", {0, 0, 0, 4, -10, 10, 0, 0, INFINITY}), 1);       // one dot, never a second
  EXPECT_EQ(dots(), coded({{190, 277, 1}}));
  EXPECT_EQ(plot("f1", {0, 0, 0, 4, -10, 10, 0, 0, NAN}), 0);
}

// The upper branch over the whole range, then the lower, each a path of its
// own, mirrored; between the vertices the value is not a number and no dot
// is placed, yet the path is not broken there.
TEST_F(FunctionsTest, HyperbolaWalksUpperBranchThenLower) {
  run_state.run_mode = MODE_TEST;
  plot("hyperbola", {0, 0, -20, 20, -30, 30, 5, 5, 0, 0, 2});
  std::vector<TracedDot> d = dots();
  size_t half = d.size() / 2;
  ASSERT_GT(half, 10u);
  for (size_t i = 0; i < half; i++) {
    EXPECT_EQ(d[half + i], (TracedDot{d[i].x, -d[i].y, d[i].kind})) << i;
    EXPECT_TRUE(d[i].y >= 0 && (d[i].x <= -5 || d[i].x >= 5)) << d[i].x << " " << d[i].y;
    EXPECT_EQ(d[i].kind, i == 0 ? 1 : i == half - 1 ? 3 : 2) << i;
  }
}

// ---- Cost: samples per plot -------------------------------------------------------

static std::vector<double> g_samples;
static CurveFormula g_inner;
static double recording(const float *c, double X, int branch) {
  g_samples.push_back(X);
  return g_inner(c, X, branch);
}

// Plots a member through a recorder; returns the samples it evaluated.
static std::vector<double> samples_of(const char *word, std::vector<float> v) {
  CurveMember m = *find_curve(word);
  g_inner = m.y;
  m.y = recording;
  g_samples.clear();
  plot_curve(m, v.data(), page_geom);
  return g_samples;
}

TEST_F(FunctionsTest, EveryPlotCostsTenThousandAndOneSamples) {
  EXPECT_EQ(samples_of("sin", {0, 0, -50, 50, -20, 20, 10, 10, 0, 0, 0.5f}).size(), 10001u);
  size_t fine = dots().size();
  EXPECT_EQ(samples_of("sin", {0, 0, -50, 50, -20, 20, 10, 10, 0, 0, 5}).size(), 10001u);
  size_t coarse = dots().size() - fine;
  EXPECT_LT(coarse * 5, fine);
  std::vector<double> s = samples_of("f2", {0, 0, -1, 1, -20, 20, 1, 0, 0, 1});
  EXPECT_EQ(s.front(), -1);
  EXPECT_EQ(s.back(), 1);  // the end itself is examined
  EXPECT_EQ(samples_of("hyperbola", {0, 0, -20, 20, -30, 30, 5, 5, 0, 0, 2}).size(), 20002u);
}

// The pole of k / (X - c) at 0 falls on sample 5000 of -1..1. A sample
// within one sub-step before the pole is taken one sub-step on, past it, so
// the pole is never evaluated; the walk goes on from there.
TEST_F(FunctionsTest, RectangularHyperbolaStepsOverItsPole) {
  for (float c : {0.0f, 0.00005f, -0.00015f, -1.0f}) {
    std::vector<double> s = samples_of("rhyperbola", {0, 0, -1, 1, -50, 50, 1, c, 0, 1});
    EXPECT_GE(s.size(), 9999u) << c;
    EXPECT_LE(s.size(), 10000u) << c;
    for (double X : s) EXPECT_FALSE(X - c > -0.0002 * (1 - 1e-9) && X - c <= 0) << c << " " << X;
  }
  std::vector<float> far = {0, 0, -1, 1, -50, 50, 1, 5, 0, 1};
  EXPECT_EQ(samples_of("rhyperbola", far).size(), 10001u);
  std::vector<float> at_end = {0, 0, -1, 1, -50, 50, 1, 1, 0, 1};
  std::vector<double> s = samples_of("rhyperbola", at_end);
  EXPECT_LT(s.back(), 1 - 0.0002 * (1 - 1e-9));
}

// ---- Refusals --------------------------------------------------------------------

// The checks come in a fixed order; each refusal reports once and draws nothing.
TEST_F(FunctionsTest, RefusalOrder) {
  EXPECT_EQ(plot("ln", {0, 0, 0, 4, 5, 5, 1, 1, 0, 0, 0}), 0);  // domain before pitch and y
  EXPECT_EQ(plot("pow", {0, 0, 0, 4, -10, 10, 0, 1, 1, 0, 0, 0}), 0);  // base before pitch
  EXPECT_EQ(plot("hyperbola", {0, 0, 0, 4, 300, 200, 0, 1, 0, 0, 1}), 0);  // y before a
  EXPECT_EQ(plot("normal", {0, 0, 0, 4, -10, 10, 0, 1, 0, 0, 0}), 0);  // pitch before a
  EXPECT_EQ(plot("sin", {0, 0, 3, 3, 5, 5, 1, 1, 0, 0, 1}), 0);  // x before y
  std::string err = errors();
  EXPECT_EQ(count_of(err, "error "), 5);
  EXPECT_EQ(count_of(err, ": out of range: x0 = 0.00, x1 = 4.00"), 1);
  EXPECT_EQ(count_of(err, ": k should be positive (0.00)"), 1);
  EXPECT_EQ(count_of(err, ": out of range: y0 = 300.00"), 1);
  EXPECT_EQ(count_of(err, ": illegal pitch (0.00mm)"), 1);  // the second test never repeats it
  EXPECT_EQ(count_of(err, ": no range of x (3.00-3.00)"), 1);
  EXPECT_TRUE(dots().empty());
}
