// legibility_bench.cpp - the legibility checks on a crowded A4 page: 20,000
// dots in 55 straight figures crossing each other at random and 40 Braille
// labels, taken in and checked as one page.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "bench_support.h"
#include "devices/legibility.h"

struct BenchDot {
  int line, label;
  double x, y;
};

// The page: each figure a line of dots 0.35 mm apart, each label six cells.
static std::vector<BenchDot> crowded_page() {
  std::vector<BenchDot> page;
  std::mt19937 rng(7);
  std::uniform_real_distribution<double> across(10, 200), down(10, 287);
  for (int line = 1; page.size() < 20000 - 40 * 36; line++) {
    double x0 = across(rng), y0 = down(rng), x1 = across(rng), y1 = down(rng);
    int n = static_cast<int>(std::hypot(x1 - x0, y1 - y0) / 0.35);
    for (int i = 0; i <= n && page.size() < 20000 - 40 * 36; i++)
      page.push_back(BenchDot{line, 0, x0 + (x1 - x0) * i / std::max(n, 1), y0 + (y1 - y0) * i / std::max(n, 1)});
  }
  for (int l = 0; l < 40; l++) {
    double x = across(rng), y = down(rng);
    for (int k = 0; k < 36; k++) page.push_back(BenchDot{1000 + l, 1, x + (k / 6) * 6 + (k % 2) * 2.1, y + (k / 2 % 3) * 2.2});
  }
  return page;
}

static void BM_LegibilityPage(benchmark::State &state) {
  std::vector<BenchDot> page = crowded_page();
  long problems = 0;
  for (auto _ : state) {
    Legibility check;
    legibility_begin(check, LEGIBILITY_LABEL_MM, LEGIBILITY_LINE_MM);
    for (const BenchDot &d : page) {
      int f = legibility_figure(check, "page.txt", d.line, d.label ? "braille" : "line");
      legibility_dot(check, f, Place{d.x, d.y, d.x / 10, d.y / 10}, d.label);
    }
    legibility_end_page(check);
    problems = static_cast<long>(check.findings.size());
    benchmark::DoNotOptimize(problems);
  }
  state.counters["dot"] = per_step(static_cast<double>(page.size()));
  state.counters["findings"] = static_cast<double>(problems);
}
BENCHMARK(BM_LegibilityPage)->Unit(benchmark::kMillisecond);
