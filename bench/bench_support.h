// bench_support.h - what the benchmarks share: a print job into a fresh dot
// map, and counters that show time per sub-step.
#ifndef TACTO_BENCH_BENCH_SUPPORT_H
#define TACTO_BENCH_BENCH_SUPPORT_H

#include <benchmark/benchmark.h>

#include "core/process.h"
#include "core/run_state.h"
#include "raster/dmap.h"

// ESA721 a4, normal run, printer mode into a fresh dot map.
inline void start_print_job() {
  reset_all_state();
  run_state.run_mode = MODE_NORMAL;
  dmap.printer_mode = 1;
  alloc_dmap();
}

inline void end_print_job() { reset_all_state(); }

// One figure of the mixed page: kind k % 8 (line, rectangle, circle, arrow,
// pentagon, ellipse, box, x-axis) at (x, y) with extents a and b.
struct PageFigure {
  int kind;
  float x, y, a, b;
};

// The page's k-th figure from a running seed (start it at 12345): scattered
// over the ESA721 a4 window, extents 1 to 2 units (1 to 2 cm).
inline PageFigure page_figure(unsigned &seed, int k) {
  auto next = [&seed](float span) {
    seed = seed * 1103515245u + 12345u;
    return (static_cast<float>((seed >> 8) & 0xffff) / 65535.0f - 0.5f) * 2 * span;
  };
  PageFigure f;
  f.kind = k % 8;
  f.x = next(6);
  f.y = next(8);
  f.a = 1.5f + next(0.5f);
  f.b = 1.5f + next(0.5f);
  return f;
}

// Figures on the mixed page.
enum : int { PAGE_FIGURES = 500 };

// Steps as a rate, shown as the time one step takes.
inline benchmark::Counter per_step(double steps) {
  return benchmark::Counter(steps, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

#endif
