// draw_testing.h - helpers shared by the drawing tests: a page where one
// world unit is one millimetre (two dots), and the dots read back from the
// debug and test traces.
#ifndef TACTO_TESTS_SUPPORT_DRAW_TESTING_H
#define TACTO_TESTS_SUPPORT_DRAW_TESTING_H

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "geometry/page.h"
#include "support/test_env.h"

// One traced dot: grid dots in debug mode, world values in test mode.
struct TracedDot {
  double x, y;
  int kind;
  bool operator==(const TracedDot &o) const { return x == o.x && y == o.y && kind == o.kind; }
};

inline std::ostream &operator<<(std::ostream &os, const TracedDot &d) {
  return os << "(" << d.x << ", " << d.y << ", " << d.kind << ")";
}

// The Everest-D a4 grid (0-380 by 0-554 dots, 0.5 mm apart) under the window
// -95..95 by -138.5..138.5: world (x, y) is dot (2x + 190, 2y + 277) and one
// unit is exactly one millimetre on paper in both directions.
inline void use_mm_page() {
  select_paper(EVEREST_D, 6);
  set_window(-95, 95, -138.5, 138.5);
}

// Hand-derived dot lists use pitches a hair under a whole millimetre
// (0.9999, 1.9999): on segments of 2 or 4 mm every dot then falls exactly on
// the sub-step at the whole millimetre. (On a 1 mm segment 0.9999 would be
// reached one sub-step early, at 0.9999 mm.)

// The same grid with y stretched: one unit is 1 mm across and 2 mm up.
inline void use_stretched_page() {
  select_paper(EVEREST_D, 6);
  set_window(-95, 95, -69.25, 69.25);
}

// Every "   Plot dx dy kind" or "   plot x y kind" line of a trace, in order.
inline std::vector<TracedDot> traced_dots(const std::string &trace) {
  std::vector<TracedDot> dots;
  std::istringstream in(trace);
  std::string line;
  while (std::getline(in, line)) {
    TracedDot d;
    if (sscanf(line.c_str(), "   Plot %lf %lf %d", &d.x, &d.y, &d.kind) == 3 ||
        sscanf(line.c_str(), "   plot %lf %lf %d", &d.x, &d.y, &d.kind) == 3)
      dots.push_back(d);
  }
  return dots;
}

// Dots (debug mode) of kind 0, as the hand-derived lists write them.
inline std::vector<TracedDot> plain(std::initializer_list<std::pair<int, int>> cells) {
  std::vector<TracedDot> dots;
  for (const auto &c : cells) dots.push_back(TracedDot{double(c.first), double(c.second), 0});
  return dots;
}

// A drawing test: the millimetre page in debug mode, its dots read back.
class DrawTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    use_mm_page();
    run_state.run_mode = MODE_DEBUG;
  }
  std::vector<TracedDot> dots() const { return traced_dots(echoed()); }
};

#endif
