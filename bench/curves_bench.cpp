// curves_bench.cpp - the cost of the curve walks: a sine across the page
// (10 001 samples, whatever the pitch) and splines through 20 points (10 000
// steps a segment over the index, or 0.0001 world units a step over x),
// drawn into the dot map as a print job does.
#include <benchmark/benchmark.h>

#include "bench_support.h"

#include <cmath>

#include "core/run_state.h"
#include "curves/functions.h"
#include "curves/splines.h"
#include "geometry/page.h"
#include "raster/dmap.h"

// y = 4 sin x over two turns (degrees), across the window, pitch 1.5 mm.
static void BM_SinCurve(benchmark::State &state) {
  start_print_job();
  const CurveMember &sine = *find_curve("sin");
  const float v[] = {0, 0, -10, 10, -6, 6, 4, 36, 0, 0, 1.5f};
  for (auto _ : state) benchmark::DoNotOptimize(plot_curve(sine, v, page_geom));
  state.counters["sample"] = per_step(CURVE_STEPS + 1);
  end_print_job();
}
BENCHMARK(BM_SinCurve);

// Twenty points on a wavy line from x = -9.5 to 9.5.
static void twenty_points(double *xs, double *ys) {
  for (int i = 0; i < 20; i++) {
    xs[i] = -9.5 + i;
    ys[i] = 3 * sin(i * 0.7) + 0.5 * (i % 3);
  }
}

static void spline_bench(benchmark::State &state, int kind) {
  start_print_job();
  double xs[20], ys[20];
  twenty_points(xs, ys);
  SplineArgs a = {-10, 10, -10, 10, kind, 0, 0, 1.5f};
  for (auto _ : state) benchmark::DoNotOptimize(draw_spline(a, xs, ys, 20, page_geom, nullptr));
  state.counters["sample"] = per_step(19.0 * SPLINE_STEPS + 1);  // both ways 19 units or segments
  end_print_job();
}

// Kind 2: natural splines x(t) and y(t) over the index, 190 001 steps.
static void BM_Spline20Parametric(benchmark::State &state) { spline_bench(state, 2); }
BENCHMARK(BM_Spline20Parametric)->Unit(benchmark::kMillisecond);

// Kind 1: y(x) over x from -9.5 to 9.5 in steps of 0.0001, also 190 001 steps.
static void BM_Spline20OverX(benchmark::State &state) { spline_bench(state, 1); }
BENCHMARK(BM_Spline20OverX)->Unit(benchmark::kMillisecond);

// Kind 3: Hermite segments over the index.
static void BM_Spline20Hermite(benchmark::State &state) { spline_bench(state, 3); }
BENCHMARK(BM_Spline20Hermite)->Unit(benchmark::kMillisecond);
