// draw_bench.cpp - the cost of the dot walks: a pitch line (10 001 distance
// evaluations), a full circle (6 000 angle steps), a 20-sided polygon and a
// page of 500 mixed figures, all drawn into the dot map as a print job does.
#include <benchmark/benchmark.h>

#include "bench_support.h"

#include "core/run_state.h"
#include "draw/arrows.h"
#include "draw/axes.h"
#include "draw/lines.h"
#include "draw/shapes.h"
#include "geometry/page.h"
#include "raster/dmap.h"

static void BM_PitchLine(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) benchmark::DoNotOptimize(pitch_line(-8, -10, 8, 10, 2));
  state.counters["substep"] = per_step(PITCH_LINE_STEPS + 1);
  end_print_job();
}
BENCHMARK(BM_PitchLine);

// A 10 cm line (one world unit is a centimetre on this page) at 1.5 mm
// pitch: 67 dots. The diagonal through the centre crosses zero on both axes.
static void BM_PitchLine10cm(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) benchmark::DoNotOptimize(pitch_line(-3, -4, 3, 4, 1.5));
  end_print_job();
}
BENCHMARK(BM_PitchLine10cm);

static void BM_FullCircle(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) benchmark::DoNotOptimize(draw_circle(0, 0, 8, 0, 360, 1.5));
  state.counters["substep"] = per_step(6000);
  end_print_job();
}
BENCHMARK(BM_FullCircle);

static void BM_Polygon20(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) benchmark::DoNotOptimize(draw_polygon(20, 0, 0, 8, 1.5));
  state.counters["substep"] = per_step(20.0 * (PITCH_LINE_STEPS + 1));
  end_print_job();
}
BENCHMARK(BM_Polygon20);

// 500 figures in turn: lines, rectangles, circles, arrows, pentagons,
// ellipses, boxes and axes at scattered places on the page; the map is
// cleared between pages, as a printed page would be.
static void draw_page() {
  unsigned seed = 12345;
  for (int k = 0; k < PAGE_FIGURES; k++) {
    PageFigure f = page_figure(seed, k);
    float x = f.x, y = f.y, a = f.a, b = f.b;
    switch (f.kind) {
      case 0: pitch_line(x, y, x + a, y + b, 1.5); break;
      case 1: draw_rectangle(x, y, x + a, y + b, 1.5); break;
      case 2: draw_circle(x, y, a, 0, 360, 1.5); break;
      case 3: draw_arrow(x, y, x + a, y - b, 30, 0.5, 0, 1.5); break;
      case 4: draw_polygon(5, x, y, a, 1.5); break;
      case 5: draw_ellipse(x, y, a, b, 0, 360, 1.5); break;
      case 6: draw_box(x, y, a, b, 1.5); break;
      case 7: draw_xaxis(x, y, x - a, x + a, 0.5, 2, 1.5); break;
    }
  }
}

static void BM_MixedPage500(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) {
    draw_page();
    clear_dmap();
  }
  state.counters["figure"] = benchmark::Counter(500, benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
  end_print_job();
}
BENCHMARK(BM_MixedPage500)->Unit(benchmark::kMillisecond);

// The distance test alone, as the walk makes it 10 001 times: with the
// plain conversions, and with their fixed parts worked out once.
static void BM_DistancePlain(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) {
    double c = 0, hits = 0;
    for (int i = 0; i <= PITCH_LINE_STEPS; i++, c += 0.0016) {
      double mx = dx_to_mm(c), my = dy_to_mm(c);
      hits += mx * mx + my * my >= 4;
    }
    benchmark::DoNotOptimize(hits);
  }
  state.counters["substep"] = per_step(PITCH_LINE_STEPS + 1);
  end_print_job();
}
BENCHMARK(BM_DistancePlain);

static void BM_DistanceScaled(benchmark::State &state) {
  start_print_job();
  for (auto _ : state) {
    const PaperScale s = paper_scale(page_geom);
    double c = 0, hits = 0;
    for (int i = 0; i <= PITCH_LINE_STEPS; i++, c += 0.0016) {
      double mx = mm_along_x(s, c), my = mm_along_y(s, c);
      hits += mx * mx + my * my >= 4;
    }
    benchmark::DoNotOptimize(hits);
  }
  state.counters["substep"] = per_step(PITCH_LINE_STEPS + 1);
  end_print_job();
}
BENCHMARK(BM_DistanceScaled);

BENCHMARK_MAIN();
