// walk_test.cpp - the jumping walks against the plain ones that examine
// every sub-step: random lines and arcs and constructed hard cases must give
// bit-identical dot lists. TACTO_WALK_CASES sets the random cases per
// family (default 3000).
#include "draw/walk.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/draw_testing.h"
#include "draw/lines.h"
#include "draw/shapes.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"
#include "support/test_env.h"

namespace {

struct Dot {
  double x, y;
  int kind;
  bool operator==(const Dot &o) const {
    return memcmp(&x, &o.x, sizeof x) == 0 && memcmp(&y, &o.y, sizeof y) == 0 && kind == o.kind;
  }
};

void collect(void *ctx, double x, double y, int kind) { static_cast<std::vector<Dot> *>(ctx)->push_back({x, y, kind}); }

// ---- the reference: the walks as they were, every sub-step examined

void plain_line(float x0, float y0, float x1, float y1, float pitch, const PaperScale &scale, DotSink sink,
                void *ctx) {
  double wx = (double)x1 - x0, wy = (double)y1 - y0;
  const double p2 = (double)pitch * pitch;
  const double sx = wx * 0.0001, sy = wy * 0.0001;
  const int test_x = x0 != x1, test_y = y0 != y1;
  const int up_x = x0 < x1, up_y = y0 < y1;
  const double stop_x = up_x ? x1 + 0.1 * sx : x1 - 0.1 * sx;
  const double stop_y = up_y ? y1 + 0.1 * sy : y1 - 0.1 * sy;
  sink(ctx, x0, y0, PATH_DOT);
  double cx = x0, cy = y0, lx = x0, ly = y0;
  for (int i = 0; i <= PITCH_LINE_STEPS + 100; i++) {
    if (test_x && (up_x ? cx > stop_x : cx < stop_x)) break;
    if (test_y && (up_y ? cy > stop_y : cy < stop_y)) break;
    double mx = mm_along_x(scale, cx - lx);
    double my = mm_along_y(scale, cy - ly);
    if (mx * mx + my * my >= p2) {
      sink(ctx, cx, cy, PATH_DOT);
      lx = cx;
      ly = cy;
    }
    cx += sx;
    cy += sy;
  }
}

void plain_arc(const ArcWalk &w, const PaperScale &scale, DotSink sink, void *ctx) {
  const double p2 = (double)w.pitch * w.pitch;
  const int ccw = w.pitch > 0;
  double u = w.rx * cos(w.t0), v = w.ry * sin(w.t0);
  sink(ctx, w.cx + u, w.cy + v, PATH_START);
  const double step = ccw ? w.step : -w.step;
  for (double t = w.t0; ccw ? t <= w.t1 : t >= w.t1; t += step) {
    double ox = w.rx * cos(t), oy = w.ry * sin(t);
    double mx = mm_along_x(scale, ox - u);
    double my = mm_along_y(scale, oy - v);
    if (mx * mx + my * my >= p2) {
      sink(ctx, w.cx + ox, w.cy + oy, PATH_ON);
      u = ox;
      v = oy;
    }
  }
  double ex = w.rx * cos(w.t1), ey = w.ry * sin(w.t1);
  if (w.oval_end && ccw) sink(ctx, ex, ey, PATH_END);
  else sink(ctx, w.cx + ex, w.cy + ey, PATH_END);
}

// ---- cases

struct LineCase {
  float x0, y0, x1, y1, pitch;
};

struct Case {
  PaperScale scale;
  bool arc;
  LineCase line;
  ArcWalk walk;
};

std::string describe(const Case &c) {
  std::ostringstream os;
  os.precision(17);
  os << "scale " << (double)c.scale.kx << " " << (double)c.scale.span_x << " " << (double)c.scale.ky << " "
     << (double)c.scale.span_y << "; ";
  if (c.arc)
    os << "arc c " << c.walk.cx << " " << c.walk.cy << " r " << c.walk.rx << " " << c.walk.ry << " t " << c.walk.t0
       << " " << c.walk.t1 << " step " << c.walk.step << " pitch " << c.walk.pitch << " oval " << c.walk.oval_end;
  else
    os << "line " << c.line.x0 << " " << c.line.y0 << " " << c.line.x1 << " " << c.line.y1 << " pitch "
       << c.line.pitch;
  return os.str();
}

// Both walks' dots; empty string when they agree, else where they part.
std::string compare(const Case &c) {
  std::vector<Dot> fast, plain;
  if (c.arc) {
    walk_arc_dots(c.walk, c.scale, collect, &fast);
    plain_arc(c.walk, c.scale, collect, &plain);
  } else {
    const LineCase &l = c.line;
    walk_line_dots(l.x0, l.y0, l.x1, l.y1, l.pitch, c.scale, collect, &fast);
    plain_line(l.x0, l.y0, l.x1, l.y1, l.pitch, c.scale, collect, &plain);
  }
  if (fast == plain) return "";
  size_t i = 0;
  while (i < fast.size() && i < plain.size() && fast[i] == plain[i]) i++;
  std::ostringstream os;
  os.precision(17);
  os << describe(c) << ": " << fast.size() << " dots against " << plain.size() << ", first difference at " << i;
  if (i < plain.size()) os << " (plain " << plain[i].x << " " << plain[i].y << ")";
  if (i < fast.size()) os << " (fast " << fast[i].x << " " << fast[i].y << ")";
  return os.str();
}

// ---- random material

struct Rand {
  std::mt19937_64 gen;
  explicit Rand(uint64_t seed) : gen(seed) {}
  double uniform(double a, double b) { return std::uniform_real_distribution<double>(a, b)(gen); }
  double log_uniform(double a, double b) { return exp(uniform(log(a), log(b))); }
  bool chance(double p) { return uniform(0, 1) < p; }
  int below(int n) { return static_cast<int>(gen() % static_cast<uint64_t>(n)); }
  double sign() { return chance(0.5) ? 1 : -1; }
};

// The scale of a paper of the table in either orientation under a window.
PaperScale scale_of(int paper, int portrait, const FloatRect &w) {
  const PaperRow &row = paper_table[paper];
  PageGeom g = {};
  g.portrait = portrait;
  g.pitch_h = printer_table[row.printer].pitch_h;
  g.pitch_v = printer_table[row.printer].pitch_v;
  g.p = portrait ? IntRect{0, row.x1, 0, row.y1} : IntRect{0, row.y1, 0, row.x1};
  g.w = w;
  return paper_scale(g);
}

FloatRect paper_window(int paper) {
  const double *w = paper_table[paper].window;
  return FloatRect{static_cast<float>(w[0]), static_cast<float>(w[1]), static_cast<float>(w[2]),
                   static_cast<float>(w[3])};
}

// A page of any printer, either orientation, under a window of odd aspect.
PaperScale random_scale(Rand &r) {
  int paper = r.below(10);
  FloatRect w = paper_window(paper);
  if (r.chance(0.7)) {
    w.x0 = static_cast<float>(r.uniform(-100, 100));
    w.x1 = static_cast<float>(w.x0 + r.log_uniform(0.01, 1000));
    w.y0 = static_cast<float>(r.uniform(-100, 100));
    w.y1 = static_cast<float>(w.y0 + r.log_uniform(0.01, 1000));
  }
  return scale_of(paper, r.chance(0.5), w);
}

// World units per millimetre along x on this scale, roughly.
double unit_per_mm(const PaperScale &s) { return static_cast<double>(s.span_x / s.kx); }

float pitch_mm(Rand &r) { return static_cast<float>(r.log_uniform(0.1, 10)); }

Case random_line(Rand &r) {
  Case c{};
  c.scale = random_scale(r);
  double mm = unit_per_mm(c.scale);
  double length = r.chance(0.1) ? r.log_uniform(1e-6, 1e-2) * mm : r.log_uniform(0.05, 500) * mm;
  double angle = r.uniform(0, 2 * M_PI);
  double ax = length * cos(angle), ay = length * sin(angle);
  switch (r.below(6)) {
    case 0: ay = 0; break;          // horizontal
    case 1: ax = 0; break;          // vertical
    case 2: ay = r.sign() * fabs(ax); break;  // diagonal
    default: break;
  }
  double bx, by;  // start
  switch (r.below(4)) {
    case 0: bx = -ax / 2, by = -ay / 2; break;  // crossing zero on both axes
    case 1: bx = r.uniform(-2, 2) * length, by = r.uniform(-2, 2) * length; break;
    case 2: bx = r.sign() * r.log_uniform(1e3, 1e30), by = r.sign() * r.log_uniform(1e3, 1e30); break;  // huge
    default: bx = r.uniform(-150, 150) * mm, by = r.uniform(-150, 150) * mm; break;
  }
  c.line = LineCase{static_cast<float>(bx), static_cast<float>(by), static_cast<float>(bx + ax),
                    static_cast<float>(by + ay), pitch_mm(r)};
  if (r.chance(0.05)) c.line.x1 = c.line.x0;
  if (r.chance(0.05)) c.line.y1 = c.line.y0;
  return c;
}

Case random_arc(Rand &r) {
  Case c{};
  c.arc = true;
  c.scale = random_scale(r);
  double mm = unit_per_mm(c.scale);
  ArcWalk &w = c.walk;
  w.rx = r.sign() * r.log_uniform(0.2, 200) * mm;
  w.ry = r.chance(0.4) ? w.rx : r.sign() * fabs(w.rx) * r.log_uniform(0.05, 20);
  double spot = r.chance(0.1) ? r.log_uniform(1e3, 1e30) : 200 * mm;
  w.cx = r.uniform(-1, 1) * spot;
  w.cy = r.uniform(-1, 1) * spot;
  switch (r.below(4)) {
    case 0: w.t0 = 0; break;
    case 1: w.t0 = r.below(9) * 1.570796 - 6.283184; break;
    case 2: w.t0 = r.uniform(-700, 700); break;
    default: w.t0 = r.uniform(-7, 7); break;
  }
  w.pitch = static_cast<float>(r.sign()) * pitch_mm(r);
  double span = r.chance(0.3) ? 6.283184 : r.uniform(0, 2 * 6.283184);
  if (r.chance(0.05)) span = -span;  // the wrong way: no step at all
  w.t1 = w.t0 + (w.pitch > 0 ? span : -span);
  w.step = r.chance(0.3) ? OVAL_STEP : ARC_STEP;
  w.oval_end = r.chance(0.3);
  return c;
}

// ---- constructed cases

// A sub-step with at least `zeros` trailing zero bits in its mantissa puts
// a tie (the step half-way between two multiples of the ulp) in the binade
// about 2^zeros sub-steps from zero; a segment across zero passes it.
Case tie_line(Rand &r) {
  for (;;) {
    Case c{};
    c.scale = random_scale(r);
    int zeros = 2 + r.below(11);
    float wx = static_cast<float>(r.log_uniform(1e-3, 1e3) * unit_per_mm(c.scale));
    double sx = (double)wx * 0.0001;
    int e;
    double m = frexp(sx, &e);
    uint64_t bits = static_cast<uint64_t>(ldexp(m, 53));
    if ((bits & ((1ull << zeros) - 1)) != 0) continue;
    float wy = r.chance(0.5) ? 0.0f : static_cast<float>(wx * r.uniform(-2, 2));
    float hx = wx / 2, hy = wy / 2;
    c.line = LineCase{-hx, -hy, hx, hy, pitch_mm(r)};
    if (r.chance(0.5)) std::swap(c.line.x0, c.line.x1), std::swap(c.line.y0, c.line.y1);
    return c;
  }
}

// Arcs through ties: the program's own steps (their tie binade lies a few
// steps from zero), and steps with many trailing zero bits.
Case tie_arc(Rand &r) {
  Case c = random_arc(r);
  ArcWalk &w = c.walk;
  w.t0 = r.chance(0.5) ? 0.0 : r.uniform(-0.05, 0.05);
  if (r.chance(0.5)) {
    int zeros = 2 + r.below(8);
    double m = floor(r.uniform(0x1p52, 0x1p53) / ldexp(1, zeros)) * ldexp(1, zeros);
    w.step = ldexp(m, -63);  // about 0.001
  }
  double span = r.uniform(0, 6.283184);
  w.t1 = w.t0 + (w.pitch > 0 ? span : -span);
  return c;
}

// Positions on binade edges: ends and starts at powers of two, walks that
// land on them, and angles starting or ending there.
Case edge_line(Rand &r) {
  Case c{};
  c.scale = random_scale(r);
  double mm = unit_per_mm(c.scale);
  int k = static_cast<int>(floor(log2(mm))) + r.below(12) - 4;
  float p = static_cast<float>(ldexp(1, k));
  float q = r.chance(0.5) ? p * 2 : (r.chance(0.5) ? p / 2 : -p);
  if (r.chance(0.3)) q = nextafterf(q, r.chance(0.5) ? INFINITY : -INFINITY);
  float o = r.chance(0.5) ? 0.0f : static_cast<float>(ldexp(1, k + r.below(3)));
  c.line = LineCase{p, r.chance(0.5) ? p : o, q, r.chance(0.5) ? q : o, pitch_mm(r)};
  if (r.chance(0.5)) std::swap(c.line.x0, c.line.x1), std::swap(c.line.y0, c.line.y1);
  return c;
}

// Arcs starting or ending on a power of two, and arcs that step exactly onto
// one from above: t0 = 2^k + m dt, walked towards zero, with dt the step as
// the binade above 2^k rounds it.
Case edge_arc(Rand &r) {
  Case c = random_arc(r);
  ArcWalk &w = c.walk;
  double edge = ldexp(1, r.below(8) - 5);
  if (r.chance(0.5)) {
    double q = edge * 0x1p-52;
    double dt = nearbyint(w.step / q) * q;
    w.t0 = r.sign() * (edge + (1 + r.below(50)) * dt);
    w.pitch = w.t0 > 0 ? -fabs(w.pitch) : fabs(w.pitch);
  } else {
    w.t0 = r.sign() * edge;
  }
  double span = r.chance(0.5) ? fabs(w.t0) : r.uniform(0, 6.283184);
  w.t1 = w.t0 + (w.pitch > 0 ? span : -span);
  return c;
}

// The cheap distance (a double product) and the walk's own (long double)
// on opposite sides of the pitch at one sub-step: a horizontal line with a
// scale tuned in its last bits until they part.
Case split_line(Rand &r) {
  for (;;) {
    Case c{};
    float pitch = pitch_mm(r), wx = static_cast<float>(r.sign() * r.log_uniform(1e-3, 1e3));
    float x0 = static_cast<float>(r.uniform(1e3, 1e4) * wx), y = static_cast<float>(r.uniform(-10, 10));
    c.line = LineCase{x0, y, x0 + wx, y, pitch};
    double sx = ((double)c.line.x1 - x0) * 0.0001, cx = x0;
    for (int k = 1 + r.below(20); k > 0; k--) cx += sx;
    double ex = cx - x0, p2 = (double)pitch * pitch;
    long double k0 = (long double)pitch / fabs(ex);
    c.scale = PaperScale{0, 1, 1, 1};
    for (int j = -4000; j <= 4000; j++) {
      c.scale.kx = k0 * (1 + j * 0x1p-63L);
      double mx = mm_along_x(c.scale, ex), X = static_cast<double>(c.scale.kx) * ex;
      if ((mx * mx >= p2) != (X * X >= p2)) return c;
    }
  }
}

// Pitches met at a sub-step to within rounding: on a page of one millimetre
// a unit, along the axes and diagonals, at whole numbers of sub-steps; and
// circles whose chord after a whole number of steps is the pitch.
Case exact_pitch_line(Rand &r) {
  Case c{};
  c.scale = scale_of(6, 1, FloatRect{-95, 95, -138.5f, 138.5f});  // Everest-D a4: 0.5 mm dots, 190 units
  float len = static_cast<float>(1 + r.below(40));
  float pitch = len / static_cast<float>(1 + r.below(8));
  float x0 = static_cast<float>(r.below(21) - 10), y0 = static_cast<float>(r.below(21) - 10);
  float dx = r.chance(0.7) ? len * static_cast<float>(r.sign()) : 0;
  float dy = dx == 0 || r.chance(0.5) ? len * static_cast<float>(r.sign()) : 0;
  c.line = LineCase{x0, y0, x0 + dx, y0 + dy, pitch};
  return c;
}

Case exact_pitch_arc(Rand &r) {
  Case c = random_arc(r);
  ArcWalk &w = c.walk;
  int steps = 5 + r.below(400);
  double chord_per_radius = 2 * sin(steps * w.step / 2);
  double kx = static_cast<double>(c.scale.kx / c.scale.span_x), ky = static_cast<double>(c.scale.ky / c.scale.span_y);
  w.rx = fabs(w.pitch) / chord_per_radius / kx;  // a circle on paper
  w.ry = w.rx * kx / ky;
  return c;
}

int case_count() {
  const char *env = getenv("TACTO_WALK_CASES");
  long n = env != nullptr ? strtol(env, nullptr, 10) : 0;
  return n > 0 ? static_cast<int>(n) : 3000;
}

struct Family {
  const char *name;
  std::function<Case(Rand &)> make;
  int share;  // cases are case_count() / share
};

std::ostream &operator<<(std::ostream &os, const Family &f) { return os << f.name; }

}  // namespace

class WalkDifferential : public ::testing::TestWithParam<Family> {};

TEST_P(WalkDifferential, FastWalkFindsThePlainWalksDots) {
  const Family &f = GetParam();
  Rand r(0x7ac70 + f.share * 977 + strlen(f.name));
  int n = std::max(1, case_count() / f.share), failures = 0;
  for (int i = 0; i < n && failures < 5; i++) {
    std::string diff = compare(f.make(r));
    if (!diff.empty()) {
      ADD_FAILURE() << f.name << " case " << i << ": " << diff;
      failures++;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Walks, WalkDifferential,
                         ::testing::Values(Family{"RandomLines", random_line, 1}, Family{"RandomArcs", random_arc, 1},
                                           Family{"TieLines", tie_line, 4}, Family{"TieArcs", tie_arc, 4},
                                           Family{"EdgeLines", edge_line, 4}, Family{"EdgeArcs", edge_arc, 4},
                                           Family{"SplitLines", split_line, 4},
                                           Family{"ExactPitchLines", exact_pitch_line, 4},
                                           Family{"ExactPitchArcs", exact_pitch_arc, 4}),
                         [](const ::testing::TestParamInfo<Family> &info) { return std::string(info.param.name); });

// Hand-picked cases: not finite, degenerate, and beyond any chord.
TEST(WalkCases, DegenerateAndNonFinite) {
  PaperScale s = scale_of(1, 1, paper_window(1));
  std::vector<Case> cases;
  auto line = [&](float x0, float y0, float x1, float y1, float p) {
    Case c{};
    c.scale = s;
    c.line = LineCase{x0, y0, x1, y1, p};
    cases.push_back(c);
  };
  auto arc = [&](double rx, double ry, double t0, double t1, float p) {
    Case c{};
    c.scale = s;
    c.arc = true;
    c.walk = ArcWalk{1, 2, rx, ry, t0, t1, ARC_STEP, p, 0};
    cases.push_back(c);
  };
  line(0, 0, INFINITY, 0, 1);
  line(NAN, 0, 1, 1, 1);
  line(0, 0, 1, 1, NAN);
  line(0, 0, 1, 1, 1e-30f);  // every sub-step a dot
  line(0, 0, 1, 1, 1e30f);   // only the start
  line(3e38f, -3e38f, -3e38f, 3e38f, 1);
  line(1e-40f, 0, 2e-40f, 1e-45f, 1e-5f);  // subnormal coordinates
  arc(0, 1, 0, 6.283184, 0.15f);           // flat: a line traced back and forth
  arc(1, 0, 0, 6.283184, -0.15f);
  arc(0.1, 0.1, 0, 6.283184, 5);  // pitch beyond the diameter
  arc(0.1, 0.1, 0, 6.283184, 1.9f);  // pitch just under the diameter
  arc(10, 0.01, 0, 6.283184, 1.5f);  // very flat
  arc(1, 1, 0, 6.283184, NAN);
  arc(1, 1, 0, 6.283184, 1e-30f);
  arc(1e30, 1e30, 0, 6.283184, 1);
  arc(1, 1, 600, 606.283184, 1);  // large angles
  arc(2, 1, 1e9, 1e9 + 6.283184, 0.4f);
  arc(2, 1, 4e12, 4e12 - 6.283184, -0.4f);  // a step of about two units in the last place
  arc(1.5, 0.7, 0, 100 * 6.283184, 0.3f);   // a hundred turns
  for (const Case &c : cases) EXPECT_EQ(compare(c), "");
}

// Drawn for real, with rotation and mirroring on, the commands trace the
// same dots as the plain walks pushed through the same plotting.
class WalkPlotted : public DrawTest {};

TEST_F(WalkPlotted, RotatedAndMirroredFiguresTraceThePlainWalksDots) {
  Rand r(99);
  select_paper(ESA721, 1);
  set_window(-13.1, 9.7, -4.4, 30.2);
  set_rotate(1, 1.5, -2, 0.7);
  set_mirror(1, 3);
  PaperScale scale = paper_scale(page_geom);
  size_t dots = 0;
  for (int i = 0; i < 40; i++) {
    float x0 = static_cast<float>(r.uniform(-12, 9)), y0 = static_cast<float>(r.uniform(-4, 30));
    float x1 = static_cast<float>(r.uniform(-12, 9)), y1 = static_cast<float>(r.uniform(-4, 30));
    float rx = static_cast<float>(r.log_uniform(0.2, 8)), ry = static_cast<float>(r.log_uniform(0.2, 8));
    float a0 = static_cast<float>(r.uniform(-360, 360)), a1 = static_cast<float>(r.uniform(-360, 360));
    float pitch = static_cast<float>(r.sign()) * pitch_mm(r);

    size_t mark = echoed().size();
    pitch_line(x0, y0, x1, y1, fabs(pitch));
    draw_ellipse(x0, y0, rx, ry, a0, a1, pitch);
    std::string drawn = echoed().substr(mark);

    mark = echoed().size();
    plain_line(x0, y0, x1, y1, fabs(pitch), scale, plot_sink, nullptr);
    ArcWalk w{x0, y0, rx, ry, to_radian(a0), to_radian(a1), ARC_STEP, pitch, 0};
    if (pitch > 0 && w.t1 < w.t0) w.t1 += 6.283184;
    if (pitch < 0 && w.t0 < w.t1) w.t1 -= 6.283184;
    plain_arc(w, scale, plot_sink, nullptr);
    std::string plain = echoed().substr(mark);
    dots += traced_dots(plain).size();
    EXPECT_EQ(drawn, plain) << i;
  }
  EXPECT_GT(dots, 400u);
}
