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

// Steps as a rate, shown as the time one step takes.
inline benchmark::Counter per_step(double steps) {
  return benchmark::Counter(steps, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

#endif
