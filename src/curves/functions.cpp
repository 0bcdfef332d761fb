// functions.cpp - the function curve family: the member table and the one
// engine that walks every member.
#include "curves/functions.h"

#include <cmath>
#include <cstring>

#include "core/diag.h"
#include "draw/lines.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"

// ---- Wordings ----------------------------------------------------------
// Each member family words its refusals in its own way; the texts are the
// program's own and are kept character for character, slips included.

static const CurveWording plain_words = {
    "illegal: pitch = %.2fmm", nullptr, "no range of x (%.2f-%.2f)", "out of range: x1 = %.2f",
    "out of range: x0 = %.2f", "no range of y (%.2f-%.2f)", "out of range: y0 = %.2f",
    "out of range: y0 = %.2f"};

static const CurveWording vparabola_words = {
    "illegal pitch: %.2fmm", nullptr, "illegal x range (%.2f-%.2f)", "illegal x1 %.2f",
    "illegal x range x0 (%.2f)", "no range of y (%.2f-%.2f)", "out of range: y0 (%.2f-%.2f)",
    "out of range: y0 = %.2f"};

static const CurveWording hparabola_words = {
    "illegal pitch (%.2fmm)", nullptr, "no range of x (%.2f-%.2f)", "out of range x1 (%.2f)",
    "out of range: x0 (%.2f)", "no range of y (%.2f-%.2f)", "out of range: y0 = %.2f",
    "out of range: y0 = %.2f"};

// hyperbola, normal and rhyperbola test the pitch twice, worded two ways.
static const CurveWording twice_words = {
    "illegal pitch (%.2fmm)", "illegal: pitch = %.2fmm", "no range of x (%.2f-%.2f)",
    "out of range: x1 = %.2f", "out of range: x0 %.2f", "no range of y (%.2f-%.2f)",
    "out of range: y0 = %.2f", "out of range: y0 = %.2f"};

static const CurveWording poly_words = {
    "illegal: pitch = %.2fmm", nullptr, "no range of x (%.2f-%.2f)", "out of range: x1 = %.2f",
    "out of range: x0 %.2f", "no range of y (%.2f-%.2f)", "out of range: y0 = %.2f",
    "out of range: y0 = %.2f"};

static const CurveWording f3_words = {
    "illegal: pitch = %.2fmm", nullptr, "no range of x (%.2f-%.2f)", "out of range: x1 = %.2f",
    "out of range: x0 %.2f", "no range of y (%.2f-%.2f)", "out of range:l y0 = %.2f",
    "out of range:l y0 = %.2f"};

static const CurveWording log_words = {
    "illegal pitch = %.2fmm", nullptr, "no range of x (%.2f-%.2f)", "out of range: x1 = %.2f",
    "out of range: x0 = %.2f", "no range of y (%.2f-%.2f)", "out of range: y0 = %.2f",
    "out of ra>ge: y0 = %.2f"};

// ---- Formulas ------------------------------------------------------------
// X is relative to ox, the result relative to oy.

static double vparabola(const float *c, double X, int) {
  double u = X - c[1];
  return c[0] * (u * u) + c[2];
}

static double hparabola(const float *c, double X, int) {
  double u = X - c[2];
  return c[0] * (u * u) + c[1];
}

static double rhyperbola(const float *c, double X, int) { return c[0] / (X - c[1]) + c[2]; }

// The upper branch with +1, the lower with -1; no point where the radicand is negative.
static double hyperbola(const float *c, double X, int branch) {
  double u = c[1] * (X - c[2]) / c[0];
  return c[3] + branch * sqrt(u * u - (double)c[1] * c[1]);
}

// 1 / 6.283184, the program's own 1 / 2 pi.
static double normal(const float *c, double X, int) {
  double u = c[1] * (X - c[2]);
  return 0.15915497620314795 * c[0] * exp(-(u * u)) + c[3];
}

static double sine(const float *c, double X, int) { return c[0] * sin(c[1] * to_radian(X - c[2])) + c[3]; }

static double cosine(const float *c, double X, int) { return c[0] * cos(c[1] * to_radian(X - c[2])) + c[3]; }

static double tangent(const float *c, double X, int) { return c[0] * tan(c[1] * to_radian(X - c[2])) + c[3]; }

static double power(const float *c, double X, int) { return c[1] * pow(c[0], c[2] * (X - c[3])) + c[4]; }

static double exponential(const float *c, double X, int) { return exp(c[0] * (X - c[2]) + c[1]) + c[3]; }

// eta, m, c, a, s, d.
static double weibull(const float *c, double X, int) {
  return c[3] * (1 - exp(-pow(((X - c[2]) - c[4]) / c[0], c[1]))) + c[5];
}

static double natural_log(const float *c, double X, int) { return c[0] * log(c[1] * (X - c[2])) + c[3]; }

static double log_ten(const float *c, double X, int) { return c[0] * log10(c[1] * (X - c[2])) + c[3]; }

// The polynomials work in single precision, highest power first.
static double horner(const float *c, int degree, double X) {
  float x = static_cast<float>(X);
  float y = c[0];
  for (int j = 1; j <= degree; j++) y = y * x + c[j];
  return y;
}

static double poly1(const float *c, double X, int) { return horner(c, 1, X); }
static double poly2(const float *c, double X, int) { return horner(c, 2, X); }
static double poly3(const float *c, double X, int) { return horner(c, 3, X); }
static double poly4(const float *c, double X, int) { return horner(c, 4, X); }
static double poly5(const float *c, double X, int) { return horner(c, 5, X); }

// ---- The family ----------------------------------------------------------

static const char *const log_domain = "out of range: x0 = %.2f, x1 = %.2f";
static const char *const nonzero_a = "a shold be non-zero (%.4f)";

const CurveMember curve_members[] = {
    {"vparabola", 3, vparabola, CHECK_NONE, nullptr, &vparabola_words, 1, -1},
    {"hparabola", 3, hparabola, CHECK_NONE, nullptr, &hparabola_words, 1, -1},
    {"rhyperbola", 3, rhyperbola, CHECK_NONZERO, "k should be non-zero (%.2f)", &twice_words, 1, 1},
    {"hyperbola", 4, hyperbola, CHECK_NONZERO, nonzero_a, &twice_words, 2, -1},
    {"normal", 4, normal, CHECK_NONZERO, nonzero_a, &twice_words, 1, -1},
    {"sin", 4, sine, CHECK_NONE, nullptr, &plain_words, 1, -1},
    {"cos", 4, cosine, CHECK_NONE, nullptr, &plain_words, 1, -1},
    {"tan", 4, tangent, CHECK_NONE, nullptr, &plain_words, 1, -1},
    {"pow", 5, power, CHECK_POSITIVE_BASE, "k should be positive (%.2f)", &plain_words, 1, -1},
    {"exp", 4, exponential, CHECK_NONE, nullptr, &plain_words, 1, -1},
    {"weibull", 6, weibull, CHECK_NONE, nullptr, &plain_words, 1, -1},
    {"ln", 4, natural_log, CHECK_LOG_DOMAIN, log_domain, &log_words, 1, -1},
    {"l10", 4, log_ten, CHECK_LOG_DOMAIN, log_domain, &log_words, 1, -1},
    {"f1", 2, poly1, CHECK_NONE, nullptr, &poly_words, 1, -1},
    {"f2", 3, poly2, CHECK_NONE, nullptr, &poly_words, 1, -1},
    {"f3", 4, poly3, CHECK_NONE, nullptr, &f3_words, 1, -1},
    {"f4", 5, poly4, CHECK_NONE, nullptr, &poly_words, 1, -1},
    {"f5", 6, poly5, CHECK_NONE, nullptr, &poly_words, 1, -1},
};
const int curve_member_count = sizeof curve_members / sizeof curve_members[0];

const CurveMember *find_curve(const char *word) {
  for (const CurveMember &m : curve_members)
    if (strcmp(m.word, word) == 0) return &m;
  return nullptr;
}

int curve_value_count(const CurveMember &m) { return CURVE_COMMON + m.coefficients + 1; }

// ---- The engine ------------------------------------------------------------

// Reports a refusal worded by `format` with up to two values; returns 0.
static int refuse(const char *format, double a, double b = 0) {
  return put_errorf(format, a, b);  // formats with one value leave the second unread
}

// One range after the checks: relative to the origin, in the order given.
struct Walk {
  double X0, X1;      // the x range to walk, relative to ox
  double Y0, Y1;      // the y range that gets dots, relative to oy
  double ox, oy;
  int up_x, up_y;     // the ranges run upwards
  int steps;          // sub-steps: CURVE_STEPS, or 0 for a range of no width
  double p2;          // pitch squared, mm^2
  PaperScale scale;
};

static int between(double v, double a, double b) { return a <= b ? a <= v && v <= b : b <= v && v <= a; }

// The x of sample i: exactly X1 at the last, so the end is always examined.
static double sample_x(const Walk &w, int i) {
  if (i >= w.steps) return w.X1;
  return w.X0 + i * (0.0001 * (w.X1 - w.X0));
}

// One pass over the x range. A sample is kept once it lies a pitch on paper
// from the previous kept one; kept samples inside both ranges get a dot.
// The previous point advances through invisible stretches too, so the dots
// keep their rhythm across gaps. Only the far ends X1 and Y1 close the ink
// path, when the next kept step would cross them.
static void walk_branch(const CurveMember &m, const float *c, const Walk &w, int branch) {
  const double h = 0.0001 * (w.X1 - w.X0);
  const double pole = m.pole >= 0 ? c[m.pole] : 0;
  int first = 1, open = 0, have_prev = 0;
  double px = 0, py = 0;
  for (int i = 0; i <= w.steps; i++) {
    double X = sample_x(w, i);
    // A sample within one sub-step before the pole (or on it) is taken one
    // sub-step on, past the pole; a second time only when rounding left the
    // first move short of it.
    if (m.pole >= 0) {
      while (fabs(X - pole) < fabs(h) && (X - pole) * h <= 0 && i < w.steps) X = sample_x(w, ++i);
      if (X == pole) break;  // the pole is the end of the range
    }
    double Y = m.y(c, X, branch);
    if (!have_prev) {
      px = X;
      py = Y;
      have_prev = 1;
    }
    double mx = mm_along_x(w.scale, X - px);
    double my = mm_along_y(w.scale, Y - py);
    double d2 = mx * mx + my * my;
    if (d2 != 0 && d2 < w.p2) continue;
    if (between(X, w.X0, w.X1) && between(Y, w.Y0, w.Y1)) {
      plot_dot(w.ox + X, w.oy + Y, first ? PATH_START : PATH_ON);
      if (first) first = 0;
      else open = 1;
    }
    double sx = X - px, sy = Y - py;
    int leaving = (w.up_x ? w.X1 - sx < X : w.X1 - sx > X) || (w.up_y ? w.Y1 - sy < Y : w.Y1 - sy > Y);
    if (leaving && open) {
      plot_dot(w.ox + X, w.oy + Y, PATH_END);
      open = 0;
      first = 1;
    }
    px = X;
    py = Y;
  }
}

// Clips a range [a, b] given in either order to [lo, hi]: the end on the
// lower side is raised to lo, the one on the upper side lowered to hi.
static void clip_range(float *a, float *b, float lo, float hi) {
  float *low = *a < *b ? a : b, *high = *a < *b ? b : a;
  if (*low < lo) *low = lo;
  if (*high > hi) *high = hi;
}

int plot_curve(const CurveMember &m, const float *v, const PageGeom &g) {
  const CurveWording &words = *m.wording;
  const float ox = v[0], oy = v[1];
  float x0 = v[2], x1 = v[3], y0 = v[4], y1 = v[5];
  const float *c = v + CURVE_COMMON;
  const float pitch = v[CURVE_COMMON + m.coefficients];

  if (m.check == CHECK_LOG_DOMAIN && !(x0 > 0 && x1 > 0)) return refuse(m.check_message, x0, x1);
  if (m.check == CHECK_POSITIVE_BASE && !(c[0] > 0)) return refuse(m.check_message, c[0]);
  if (!(pitch > 0)) return refuse(words.pitch, pitch);

  if (x0 == x1) return refuse(words.no_x, x0, x1);
  // A descending range is judged by its start against the right edge, an
  // ascending one by its end against the left edge: a descending range that
  // merely starts past the right edge is refused where the same range
  // ascending is clipped. Kept so on purpose.
  const int up_x = x1 > x0;
  if (up_x && x1 <= g.w.x0) return refuse(words.x1_off, x1);
  if (!up_x && x0 >= g.w.x1) return refuse(words.x0_off, x0);
  clip_range(&x0, &x1, g.w.x0, g.w.x1);

  if (y0 == y1) return refuse(words.no_y, y0, y1);
  const int up_y = y1 > y0;
  if (up_y && y1 <= g.w.y0) return refuse(words.y_up_off, y0, y1);
  if (!up_y && y0 >= g.w.y1) return refuse(words.y_down_off, y0, y1);
  clip_range(&y0, &y1, g.w.y0, g.w.y1);

  if (m.check == CHECK_NONZERO && c[0] == 0) return refuse(m.check_message, c[0]);
  if (words.pitch_again != nullptr && !(pitch > 0)) return refuse(words.pitch_again, pitch);

  // A range lying wholly past the far edge of the window comes out of the
  // clipping reversed: nothing of it can be seen.
  if (up_x ? x0 > x1 : x0 < x1) return 1;
  if (up_y ? y0 > y1 : y0 < y1) return 1;

  Walk w;
  w.ox = ox;
  w.oy = oy;
  w.X0 = (double)x0 - ox;
  w.X1 = (double)x1 - ox;
  w.Y0 = (double)y0 - oy;
  w.Y1 = (double)y1 - oy;
  w.up_x = up_x;
  w.up_y = up_y;
  // Clipped to a single x the range is one sample; sub-steps of no width
  // would never get anywhere.
  w.steps = w.X0 == w.X1 ? 0 : CURVE_STEPS;
  w.p2 = (double)pitch * pitch;
  w.scale = paper_scale(g);
  walk_branch(m, c, w, 1);
  if (m.branches == 2) walk_branch(m, c, w, -1);
  return 1;
}
