// walk.cpp - jump-and-confirm dot walks.
//
// The walks reproduced here, exactly:
//   line: c(0) = x0, c(k+1) = fl(c(k) + s) in double for each coordinate; at
//     each k up to PITCH_LINE_STEPS + WALK_SLACK the end test on c(k), then
//     the dot test mx * mx + my * my >= p2 with mx = mm_along_x(c(k) - lx)
//     (a double difference, long double product and quotient, rounded back
//     to double) and (lx, ly) the last dot.
//   arc: t(0) = t0, t(k+1) = fl(t(k) + step); while t(k) is not past t1 the
//     same dot test on ox = rx * cos(t(k)), oy = ry * sin(t(k)) against the
//     last dot's (u, v).
//
// Exact jumps (exact_run). Let 2^e <= |c| < 2^(e+1) and q = 2^(e-52). The
// doubles in [2^e, 2^(e+1)] are exactly the multiples of q there, so an
// exact sum in that range rounds to the nearest multiple of q; c is one, so
// fl(c + s) = c + d with d the multiple of q nearest to s, the same at every
// step, unless s lies half-way between two multiples (a tie: then the parity
// of c decides). When every result lies in [2^e + q, 2^(e+1) - q], every
// exact sum is within q/2 of it and so inside the range. c after n steps is
// then exactly c + n * d, and double arithmetic computes that without
// rounding (both n * d and the sum are multiples of q below 2^53 q). Where
// this does not hold (zero, subnormal or non-finite values, a tie, a binade
// edge within reach) the walk takes a plain sub-step: fl(c + s).
//
// Finding the next dot. The dot test at step k is a predicate D(k) of the
// exact position; the walk's dot is the first k after the last dot with
// D(k). D is decided by the walk's own expression, or without it where a
// cheaper value with a proven error bound already decides it:
//   line: X = fl(Kx * fl(c - lx)) with Kx the double nearest kx / span_x
//     is within 4 * 2^-53 of mx, relatively (three roundings each way, two
//     of them in long double), so f = fl(X * X + Y * Y) is within 2^-48 of
//     the walk's own sum: f >= p2 (1 + 2^-40) proves D, f < p2 (1 - 2^-40)
//     proves not D; in between the walk's expression decides. (p2 between
//     2^-500 and 2^500 keeps underflow far below these margins.)
//   arc: cosines and sines come from the library (the walk's own values) or
//     from at most ROTATION_LIMIT rotations by the window's exact step; see
//     arc_verdict for the bounds.
// Line: every operation of the test rounds monotonically and c(k) - lx only
// grows in size, so D is monotone in k: false up to the dot, true from it.
// The dot is found from a guess (the last spacing) by checking the steps at
// and just before it (first_true_near). The end tests compare the exact
// positions with the walk's own bounds (a tenth of a sub-step beyond the end
// one way, short of it the other) and are monotone too.
// Arc: the true chord (in real numbers) grows with the angle as long as the
// tangent has turned less than a right angle since the last dot (the chord
// lies inside the cone of the tangents it passed, so it has a positive part
// along the current tangent), or, for any ellipse with semi-axes a and b on
// paper, while tan(angle / 2) < 2 min(a^2, b^2) / |a^2 - b^2| (from the
// derivative of 4 sin^2(angle / 2) (a^2 sin^2 m + b^2 cos^2 m)). Inside that
// range a step whose computed chord is below the pitch by more than all
// errors together rules out every earlier step too. Outside it, plain steps
// up to the next dot.
#include "draw/walk.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "geometry/page.h"
#include "raster/plot.h"

// A line walk never goes this many sub-steps past its end; only coordinates
// that are not finite, which never meet the end test, ever reach the limit.
static const int WALK_SLACK = 100;

// Longest run taken in one jump; keeps index arithmetic far from overflow.
static const long RUN_CAP = 1L << 40;

// Rotations of a cosine and sine pair before the library is asked again.
static const int ROTATION_LIMIT = 64;

// 2^e for a normal a > 0 with 2^e <= a < 2^(e+1).
static double binade_floor(double a) {
  uint64_t bits;
  memcpy(&bits, &a, sizeof bits);
  bits &= 0x7ff0000000000000ull;
  double r;
  memcpy(&r, &bits, sizeof r);
  return r;
}

// The number n of further steps for which c + k * d, k <= n, is exactly
// what k additions of s give; *d receives the exact increment. 0 when no
// jump is proven (then the caller adds s itself).
static long exact_run(double c, double s, double *d) {
  *d = 0;
  if (s == 0) return RUN_CAP;  // the coordinate stays where it is
  double a = fabs(c);
  if (!(a >= 8 * fabs(s) && a >= DBL_MIN && a <= DBL_MAX)) return 0;  // too near zero to be worth a run
  double lo = binade_floor(a), q = lo * 0x1p-52;
  double m = fabs(s / q);  // exact: a power-of-two scaling to a normal value
  if (!(m >= 1 && m <= 0x1p51)) return 0;
  double whole = static_cast<double>(static_cast<int64_t>(m));
  double frac = m - whole;  // exact
  if (frac == 0.5) return 0;
  double step = (frac > 0.5 ? whole + 1 : whole) * q;
  *d = s > 0 ? step : -step;
  long n;
  if ((c > 0) == (s > 0)) {  // moving away from zero
    double top = 2 * lo - q;
    n = static_cast<long>(std::min((top - a) / step, static_cast<double>(RUN_CAP)));
    if (a + n * step > top) n--;
  } else {
    double bottom = lo + q;
    if (a - step < bottom) return 0;
    n = static_cast<long>(std::min((a - bottom) / step, static_cast<double>(RUN_CAP)));
    if (a - n * step < bottom) n--;
  }
  return n;
}

// The first index in [lo, hi] where a predicate that is false up to some
// index and true from it holds, or hi + 1; searched outwards from a guess.
template <class Pred>
static long first_true(long lo, long hi, long guess, Pred pred) {
  long a, b;  // pred is false before a and true at b (b == hi + 1: nowhere)
  guess = std::max(lo, std::min(hi, guess));
  if (pred(guess)) {
    b = guess;
    a = lo;
    for (long step = 1;; step *= 2) {
      long j = b - step;
      if (j < lo) break;
      if (!pred(j)) {
        a = j + 1;
        break;
      }
      b = j;
    }
  } else {
    a = guess + 1;
    b = hi + 1;
    for (long step = 1;; step *= 2) {
      long j = a - 1 + step;
      if (j > hi) break;
      if (pred(j)) {
        b = j;
        break;
      }
      a = j + 1;
    }
  }
  while (a < b) {
    long m = a + (b - a) / 2;
    if (pred(m)) b = m;
    else a = m + 1;
  }
  return b;
}

// first_true for a guess that is usually right or one off: the steps at and
// next to the guess first, the wider search only when those do not settle it.
template <class Pred>
static inline long first_true_near(long lo, long hi, long guess, Pred pred) {
  long k = std::max(lo, std::min(hi, guess));
  if (pred(k)) {
    if (k == lo || !pred(k - 1)) return k;
    if (k - 1 == lo || !pred(k - 2)) return k - 1;
    return first_true(lo, k - 2, k - 3, pred);
  }
  if (k == hi || pred(k + 1)) return k + 1;
  if (k + 1 == hi) return hi + 1;
  return first_true(k + 2, hi, k + 2, pred);
}

// Steps to cover `pitch` at `rate` millimetres a step, at least 1.
static long steps_for(double pitch, double rate) {
  double n = pitch / rate;
  if (!(n < 1e6)) n = 1e6;
  return std::max(1L, static_cast<long>(ceil(n)));
}

// ---------------------------------------------------------------- lines

namespace {
struct LineTest {
  const PaperScale *scale;
  double p2, lo2, hi2;  // p2 and p2 (1 -+ 2^-40)
  double kx, ky;        // millimetres per world unit, in double
  double lx, ly;        // the last dot
};
}  // namespace

// The line's dot test at (cx, cy) as the walk writes it.
static bool plain_dot_at(const LineTest &t, double cx, double cy) {
  double mx = mm_along_x(*t.scale, cx - t.lx);
  double my = mm_along_y(*t.scale, cy - t.ly);
  return mx * mx + my * my >= t.p2;
}

// The same verdict, from the cheap distance where its margin decides.
static inline bool line_dot_at(const LineTest &t, double cx, double cy) {
  double X = t.kx * (cx - t.lx), Y = t.ky * (cy - t.ly);
  double f = X * X + Y * Y;
  if (f >= t.hi2) return true;
  if (f < t.lo2) return false;
  return plain_dot_at(t, cx, cy);
}

PaperScale paper_scale(const PageGeom &g) {
  double px = g.portrait ? g.pitch_h : g.pitch_v;
  double py = g.portrait ? g.pitch_v : g.pitch_h;
  PaperScale s;
  s.kx = (long double)(g.p.x1 - g.p.x0) * px;
  s.span_x = (long double)g.w.x1 - g.w.x0;
  s.ky = (long double)(g.p.y1 - g.p.y0) * py;
  s.span_y = (long double)g.w.y1 - g.w.y0;
  return s;
}

void walk_line_dots(float x0, float y0, float x1, float y1, float pitch, const PaperScale &scale,
                    DotSink sink, void *ctx) {
  double wx = (double)x1 - x0, wy = (double)y1 - y0;
  const double p2 = (double)pitch * pitch;
  const double sx = wx * 0.0001, sy = wy * 0.0001;
  // Walking towards smaller values the bound lies a tenth of a sub-step short
  // of the end, so the final sub-step is never examined; kept so on purpose.
  const int test_x = x0 != x1, test_y = y0 != y1;
  const int up_x = x0 < x1, up_y = y0 < y1;
  const double stop_x = up_x ? x1 + 0.1 * sx : x1 - 0.1 * sx;
  const double stop_y = up_y ? y1 + 0.1 * sy : y1 - 0.1 * sy;
  auto ended = [&](double cx, double cy) {
    return (test_x && (up_x ? cx > stop_x : cx < stop_x)) || (test_y && (up_y ? cy > stop_y : cy < stop_y));
  };

  sink(ctx, x0, y0, PATH_DOT);
  LineTest t{&scale, p2, p2 * (1 - 0x1p-40), p2 * (1 + 0x1p-40), static_cast<double>(scale.kx / scale.span_x),
             static_cast<double>(scale.ky / scale.span_y), x0, y0};
  const int fast = std::isfinite(x0) && std::isfinite(y0) && std::isfinite(x1) && std::isfinite(y1) &&
                   std::isfinite(t.kx) && std::isfinite(t.ky) && t.kx != 0 && t.ky != 0 && p2 >= 0x1p-500 &&
                   p2 <= 0x1p500;
  const long last = PITCH_LINE_STEPS + WALK_SLACK;
  long last_dot = 0, spacing = steps_for(pitch, sqrt(t.kx * sx * t.kx * sx + t.ky * sy * t.ky * sy));
  auto dot = [&](double px, double py, long i) {
    sink(ctx, px, py, PATH_DOT);
    t.lx = px;
    t.ly = py;
    spacing = std::max(1L, i - last_dot);
    last_dot = i;
  };
  double cx = x0, cy = y0;
  double dx = 0, dy = 0;  // exact increments of the runs in hand
  long run_x = 0, run_y = 0;  // steps left in them
  for (long i = 0; i <= last;) {
    if (fast && run_x < 2) run_x = exact_run(cx, sx, &dx);
    if (fast && run_y < 2) run_y = exact_run(cy, sy, &dy);
    long n = std::min({run_x, run_y, last - i});
    if (n >= 4) {
      // Sub-steps i .. i + n, at exactly (cx + k dx, cy + k dy), k = 0 .. n.
      auto ended_at = [&](long k) { return ended(cx + k * dx, cy + k * dy); };
      long end = ended_at(n) ? first_true(0, n, n, ended_at) : n + 1;
      auto dot_at = [&](long k) { return line_dot_at(t, cx + k * dx, cy + k * dy); };
      for (long b = 0; b < end;) {
        long k = first_true_near(b, end - 1, last_dot - i + spacing, dot_at);
        if (k >= end) break;
        dot(cx + k * dx, cy + k * dy, i + k);
        b = k + 1;
      }
      if (end <= n) return;
      cx += n * dx;
      cy += n * dy;
      i += n;
      run_x -= n;
      run_y -= n;
    } else {  // a plain sub-step
      if (ended(cx, cy)) return;
      if (fast ? line_dot_at(t, cx, cy) : plain_dot_at(t, cx, cy)) dot(cx, cy, i);
    }
    // Out of the run (or the plain step): an addition as the walk makes it.
    cx += sx;
    cy += sy;
    i++;
    run_x = std::max(0L, run_x - 1);
    run_y = std::max(0L, run_y - 1);
  }
}

// ----------------------------------------------------------------- arcs

namespace {
// Cosine and sine at step k of the current run: the library's (rot == 0,
// the walk's own values) or rot rotations by the run's step away from them.
struct Probe {
  long k;
  double c, s;
  int rot;
};

// What a step's dot test says: a dot; no dot here; no dot here nor at any
// earlier step since the last dot.
enum Verdict { DOT, NO_DOT, NO_DOT_SO_FAR };

struct ArcRun {
  const PaperScale *scale;
  double rx, ry;
  double p2, kx, ky;       // kx, ky: millimetres per world unit, in double
  double a2, b2;           // squared semi-axes on paper
  double lo_rel, hi_rel;   // p2 (1 -+ 2^-40)
  double lo_abs, hi_abs;   // p2 -+ the bound on all errors
  double angle_lim;        // the chord grows up to this angle on any ellipse of this shape
  double cross_min;        // the least tangent product taken as positive
  double u, v, cl, sl, tl; // the last dot: offsets, cosine, sine, angle
  double t, dt, cd, sd;    // the run: first angle, exact step, its cosine and sine
};
}  // namespace

static inline void probe_library(const ArcRun &r, Probe &p, long k) {
  double t = r.t + k * r.dt;
  p.k = k;
  p.c = cos(t);
  p.s = sin(t);
  p.rot = 0;
}

static inline void probe_move(const ArcRun &r, Probe &p, long k) {
  if (k == p.k) return;
  if (p.rot >= ROTATION_LIMIT || (k != p.k + 1 && k != p.k - 1)) return probe_library(r, p, k);
  double sd = k > p.k ? r.sd : -r.sd;
  double c = p.c * r.cd - p.s * sd;
  double s = p.s * r.cd + p.c * sd;
  p.c = c;
  p.s = s;
  p.k = k;
  p.rot++;
}

// The dot test at the probe's step. Bounds, with the library's cosine and
// sine taken as within 2^-48 of the truth (a sixteenth of the accuracy it
// states) and A = |kx rx|, B = |ky ry|, S2 = A^2 + B^2:
//   - up to 64 rotations by a step of at most 1/64 keep cosine and sine
//     within 2^-39 of the truth (each adds at most 2^-46.9, the growth
//     factor stays below e), so the chord in millimetres is within
//     A 2^-38.8 and B 2^-38.8 of the true one and f within S2 2^-36.7 of
//     the true squared chord;
//   - the walk's own sum is within S2 2^-44.5 of the true squared chord;
//   - with the library's values f is within 2^-48 of the walk's sum,
//     relatively.
// lo_abs and hi_abs lie S2 2^-34 + p2 2^-40 from p2, more than all of these
// together: below lo_abs the true chord is short of the pitch by more than
// the walk's error, so while the chord grows no earlier step reaches it.
static inline Verdict arc_verdict(const ArcRun &r, Probe &p) {
  for (;;) {
    double ox = r.rx * p.c, oy = r.ry * p.s;
    double ex = ox - r.u, ey = oy - r.v;
    double X = r.kx * ex, Y = r.ky * ey;
    double f = X * X + Y * Y;
    if (f < r.lo_abs) return NO_DOT_SO_FAR;
    if (p.rot == 0) {
      if (f >= r.hi_rel) return DOT;
      if (f < r.lo_rel) return NO_DOT;
      double mx = mm_along_x(*r.scale, ex);
      double my = mm_along_y(*r.scale, ey);
      return mx * mx + my * my >= r.p2 ? DOT : NO_DOT;
    }
    if (f >= r.hi_abs) return DOT;
    probe_library(r, p, p.k);
  }
}

// Whether the true chord grows all the way from the last dot to the probe's
// step. The tangent product carries errors of at most S2 2^-38.9.
static inline bool chord_grows(const ArcRun &r, const Probe &p) {
  double angle = fabs(r.t + p.k * r.dt - r.tl);
  if (angle <= r.angle_lim) return true;
  if (!(angle <= 3.0)) return false;
  return r.a2 * r.sl * p.s + r.b2 * r.cl * p.c > r.cross_min;
}

// The usual case, settled at once: the probe (library values, inside the
// range where the chord grows) is a dot and the step before it rules out
// every earlier one.
static inline bool quick_dot(const ArcRun &r, const Probe &p) {
  double ex = r.rx * p.c - r.u, ey = r.ry * p.s - r.v;
  double X = r.kx * ex, Y = r.ky * ey;
  if (p.rot != 0 || !(X * X + Y * Y >= r.hi_rel)) return false;
  double c = p.c * r.cd + p.s * r.sd, s = p.s * r.cd - p.c * r.sd;  // one step back
  ex = r.rx * c - r.u;
  ey = r.ry * s - r.v;
  X = r.kx * ex;
  Y = r.ky * ey;
  return X * X + Y * Y < r.lo_abs;
}

// The first dot at a step in [b, hi] of the run, hi + 1 when there is none,
// or -1 when the chord is not known to grow that far. Leaves the probe at
// the dot with the library's values.
static long arc_next_dot(const ArcRun &r, long b, long hi, long guess, Probe &p) {
  long k = std::max(b, std::min(hi, guess));
  probe_move(r, p, k);
  if (!chord_grows(r, p)) return -1;
  if (arc_verdict(r, p) != DOT) {
    for (k++; k <= hi; k++) {
      probe_move(r, p, k);
      if (!chord_grows(r, p)) return -1;
      if (arc_verdict(r, p) == DOT) break;
    }
  }
  // No dot at or before k - 1, unless a step below says otherwise.
  Probe at_k = p;
  for (long j = k - 1; j >= b; j--) {
    probe_move(r, p, j);
    Verdict v = arc_verdict(r, p);
    if (v == NO_DOT_SO_FAR) break;
    if (v == DOT) {
      k = j;
      at_k = p;
    }
  }
  if (k <= hi) {
    p = at_k;
    if (p.rot != 0) probe_library(r, p, k);
  }
  return k;
}

void walk_arc_dots(const ArcWalk &w, const PaperScale &scale, DotSink sink, void *ctx) {
  const double p2 = (double)w.pitch * w.pitch;
  const int ccw = w.pitch > 0;
  double c0 = cos(w.t0), s0 = sin(w.t0);
  double u = w.rx * c0, v = w.ry * s0;
  sink(ctx, w.cx + u, w.cy + v, PATH_START);
  const double step = ccw ? w.step : -w.step;
  auto past = [&](double t) { return !(ccw ? t <= w.t1 : t >= w.t1); };

  ArcRun r;
  r.scale = &scale;
  r.rx = w.rx;
  r.ry = w.ry;
  r.p2 = p2;
  r.kx = static_cast<double>(scale.kx / scale.span_x);
  r.ky = static_cast<double>(scale.ky / scale.span_y);
  double A = r.kx * w.rx, B = r.ky * w.ry;
  r.a2 = A * A;
  r.b2 = B * B;
  double s2 = r.a2 + r.b2;
  double err = s2 * 0x1p-34 + p2 * 0x1p-40;
  r.lo_rel = p2 * (1 - 0x1p-40);
  r.hi_rel = p2 * (1 + 0x1p-40);
  r.lo_abs = p2 - err;
  r.hi_abs = p2 + err;
  double diff = fabs(r.a2 - r.b2);
  r.angle_lim = std::min(3.0, 0.99 * (diff > 0 ? 2 * atan(2 * std::min(r.a2, r.b2) / diff) : M_PI));
  r.cross_min = s2 * 0x1p-30;
  r.u = u;
  r.v = v;
  r.cl = c0;
  r.sl = s0;
  r.tl = w.t0;

  int fast = std::isfinite(w.cx) && std::isfinite(w.cy) && std::isfinite(w.t0) && std::isfinite(w.t1) &&
             std::isfinite(r.kx) && std::isfinite(r.ky) && r.a2 > 0 && r.b2 > 0 && s2 >= 0x1p-400 &&
             s2 <= 0x1p400 && p2 >= s2 * 0x1p-20 && p2 <= 0x1p400 && fabs(step) <= 1.0 / 64;
  // No chord of the ellipse reaches a pitch longer than its longest axis.
  int dots_possible = !fast || !(p2 > 4 * std::max(r.a2, r.b2) * (1 + 0x1p-40) + err);
  long last_dot = 0, spacing = steps_for(fabs(w.pitch), sqrt(r.a2 * s0 * s0 + r.b2 * c0 * c0) * fabs(step));
  int plain = !fast;  // plain steps: no proof of a growing chord, or none possible
  double t = w.t0;
  for (long i = 0; dots_possible && !past(t);) {
    double dt = 0;
    long n = plain ? 0 : exact_run(t, step, &dt);
    if (n < 2) {  // a plain step
      double c = cos(t), s = sin(t);
      double ox = w.rx * c, oy = w.ry * s;
      double mx = mm_along_x(scale, ox - r.u);
      double my = mm_along_y(scale, oy - r.v);
      if (mx * mx + my * my >= p2) {
        sink(ctx, w.cx + ox, w.cy + oy, PATH_ON);
        r.u = ox;
        r.v = oy;
        r.cl = c;
        r.sl = s;
        r.tl = t;
        spacing = std::max(1L, i - last_dot);
        last_dot = i;
        plain = !fast;
      }
      t += step;
      i++;
      continue;
    }
    // Steps i .. i + n, at exactly t + k dt, k = 0 .. n.
    r.t = t;
    r.dt = dt;
    r.cd = cos(dt);
    r.sd = sin(dt);
    auto past_at = [&](long k) { return past(t + k * dt); };
    long end = past_at(n) ? first_true(0, n, n, past_at) : n + 1;
    Probe p{-2, 0, 0, 0};
    long b = 0;
    while (b < end) {
      long k = std::max(b, std::min(end - 1, last_dot - i + spacing));
      probe_move(r, p, k);
      if (!(k > b && fabs(r.t + k * dt - r.tl) <= r.angle_lim && quick_dot(r, p))) {
        k = arc_next_dot(r, b, end - 1, k, p);
      }
      if (k < 0) {
        plain = 1;
        break;
      }
      if (k >= end) break;
      double ox = w.rx * p.c, oy = w.ry * p.s;
      sink(ctx, w.cx + ox, w.cy + oy, PATH_ON);
      r.u = ox;
      r.v = oy;
      r.cl = p.c;
      r.sl = p.s;
      r.tl = t + k * dt;
      spacing = std::max(1L, i + k - last_dot);
      last_dot = i + k;
      b = k + 1;
    }
    if (plain) {  // on from step b with plain steps
      t += b * dt;
      i += b;
      continue;
    }
    if (end <= n) break;
    t += n * dt;
    t += step;
    i += n + 1;
  }
  double ex = w.rx * cos(w.t1), ey = w.ry * sin(w.t1);
  if (w.oval_end && ccw) sink(ctx, ex, ey, PATH_END);
  else sink(ctx, w.cx + ex, w.cy + ey, PATH_END);
}

void plot_sink(void *, double x, double y, int kind) {
  plot_dot(static_cast<float>(x), static_cast<float>(y), kind);
}
