// legibility.cpp - the legibility checks. Each page's dots go into a hash
// of square cells as wide as the larger distance, so a dot's neighbours are
// found in the nine cells around it, never by comparing every pair.
#include "devices/legibility.h"

#include <algorithm>
#include <cmath>

#include "core/diag.h"
#include "core/run_state.h"

void legibility_begin(Legibility &c, double label_mm, double line_mm) {
  c = Legibility();
  c.label_mm = label_mm;
  c.line_mm = line_mm;
  c.last_figure = -1;
}

int legibility_figure(Legibility &c, const char *file, int line, const char *command) {
  if (c.last_figure >= 0) {
    const LegibilityFigure &f = c.figures[c.last_figure];
    if (f.line == line && f.file == file) return c.last_figure;
  }
  std::string key = std::string(file) + ":" + std::to_string(line);
  auto found = c.figure_of.find(key);
  if (found != c.figure_of.end()) return c.last_figure = found->second;
  LegibilityFigure f{file, command, line, 0, Place{}, 0, 0, 0, Place{}};
  c.figures.push_back(f);
  c.last_figure = static_cast<int>(c.figures.size()) - 1;
  c.figure_of.emplace(key, c.last_figure);
  return c.last_figure;
}

// A figure and a position to a hundredth of a mm, as one key.
static uint64_t dot_key(int figure, double x_mm, double y_mm) {
  auto q = [](double v) -> uint64_t {
    double n = std::round(v * 100) + (1 << 20);
    return static_cast<uint64_t>(std::min(std::max(n, 0.0), double((1 << 21) - 1)));
  };
  return static_cast<uint64_t>(figure) << 42 | q(x_mm) << 21 | q(y_mm);
}

void legibility_dot(Legibility &c, int figure, const Place &at, int label) {
  if (figure < 0 || figure >= static_cast<int>(c.figures.size())) return;
  if (!std::isfinite(at.x_mm) || !std::isfinite(at.y_mm)) return;
  if (!c.seen.insert(dot_key(figure, at.x_mm, at.y_mm)).second) return;
  c.dots.push_back(LegibilityDot{at, figure, label ? 1 : 0});
}

void legibility_dropped(Legibility &c, int figure, const Place &at) {
  if (figure < 0 || figure >= static_cast<int>(c.figures.size())) return;
  LegibilityFigure &f = c.figures[figure];
  if (f.dropped++ == 0) f.first_dropped = at;
}

void legibility_pitch(Legibility &c, int figure, double pitch_mm, double spacing_mm, const Place &at) {
  if (figure < 0 || figure >= static_cast<int>(c.figures.size()) || !(pitch_mm < spacing_mm)) return;
  LegibilityFigure &f = c.figures[figure];
  if (f.small_pitch && f.pitch_mm <= pitch_mm) return;
  f.small_pitch = 1;
  f.pitch_mm = pitch_mm;
  f.spacing_mm = spacing_mm;
  f.pitch_at = at;
}

// Dots sorted by the square cell they lie in, and where each cell's run starts and ends.
struct Cells {
  double size;
  std::vector<int> order;
  std::unordered_map<uint64_t, std::pair<int, int>> span;
};

static long cell_of(double v, double size) {
  double q = std::floor(v / size);
  return static_cast<long>(std::min(std::max(q, -1e9), 1e9));
}

static uint64_t cell_key(long ix, long iy) {
  return static_cast<uint64_t>(static_cast<uint32_t>(ix)) << 32 | static_cast<uint32_t>(iy);
}

static Cells index_dots(const std::vector<LegibilityDot> &dots, const std::vector<int> &which, double size) {
  Cells cells;
  cells.size = size;
  std::vector<std::pair<uint64_t, int>> keyed;
  keyed.reserve(which.size());
  for (int i : which) keyed.emplace_back(cell_key(cell_of(dots[i].at.x_mm, size), cell_of(dots[i].at.y_mm, size)), i);
  std::sort(keyed.begin(), keyed.end());
  for (size_t b = 0; b < keyed.size();) {
    size_t e = b;
    while (e < keyed.size() && keyed[e].first == keyed[b].first) cells.order.push_back(keyed[e++].second);
    cells.span.emplace(keyed[b].first, std::make_pair(static_cast<int>(b), static_cast<int>(e)));
    b = e;
  }
  return cells;
}

// Calls visit(j, distance) for every indexed dot j within `limit` (at most
// the cell size) of the point, strictly.
template <class Visit>
static void visit_near(const Cells &cells, const std::vector<LegibilityDot> &dots, const Place &at, double limit,
                       Visit visit) {
  long ix = cell_of(at.x_mm, cells.size), iy = cell_of(at.y_mm, cells.size);
  for (long dx = -1; dx <= 1; dx++)
    for (long dy = -1; dy <= 1; dy++) {
      auto found = cells.span.find(cell_key(ix + dx, iy + dy));
      if (found == cells.span.end()) continue;
      for (int k = found->second.first; k < found->second.second; k++) {
        int j = cells.order[k];
        double d = std::hypot(dots[j].at.x_mm - at.x_mm, dots[j].at.y_mm - at.y_mm);
        if (d < limit) visit(j, d);
      }
    }
}

static uint64_t pair_key(int a, int b) { return static_cast<uint64_t>(a) << 32 | static_cast<uint32_t>(b); }

// Labels with a dot of another figure closer than label_mm: the closest
// place for each label and figure.
static void check_labels(const Legibility &c, const Cells &all, std::vector<LegibilityFinding> &out) {
  std::unordered_map<uint64_t, LegibilityFinding> closest;
  for (size_t i = 0; i < c.dots.size(); i++) {
    const LegibilityDot &d = c.dots[i];
    if (!d.label) continue;
    visit_near(all, c.dots, d.at, c.label_mm, [&](int j, double dist) {
      if (c.dots[j].figure == d.figure) return;
      auto r = closest.emplace(pair_key(d.figure, c.dots[j].figure),
                               LegibilityFinding{LEGIBILITY_LABEL, d.figure, c.dots[j].figure, dist, 0, d.at});
      if (!r.second && dist < r.first->second.distance_mm) {
        r.first->second.distance_mm = dist;
        r.first->second.at = d.at;
      }
    });
  }
  for (const auto &entry : closest) out.push_back(entry.second);
}

// The longest stretch of the given dots (indices in ascending order) that
// hangs together, dots at most `link` apart: its extent, and its first dot.
static double longest_stretch(const std::vector<LegibilityDot> &dots, const std::vector<int> &near, double link,
                              int *first) {
  Cells cells = index_dots(dots, near, link);
  std::vector<int> parent(near.size());
  for (size_t p = 0; p < near.size(); p++) parent[p] = static_cast<int>(p);
  auto root = [&](int p) {
    while (parent[p] != p) p = parent[p] = parent[parent[p]];
    return p;
  };
  for (size_t p = 0; p < near.size(); p++)
    visit_near(cells, dots, dots[near[p]].at, link * (1 + 1e-9), [&](int j, double) {
      int q = static_cast<int>(std::lower_bound(near.begin(), near.end(), j) - near.begin());
      parent[root(static_cast<int>(p))] = root(q);
    });
  struct Box {
    double x0, x1, y0, y1;
    int first;
  };
  std::unordered_map<int, Box> boxes;
  for (size_t p = 0; p < near.size(); p++) {
    const Place &at = dots[near[p]].at;
    auto r = boxes.emplace(root(static_cast<int>(p)), Box{at.x_mm, at.x_mm, at.y_mm, at.y_mm, near[p]});
    Box &b = r.first->second;
    b.x0 = std::min(b.x0, at.x_mm);
    b.x1 = std::max(b.x1, at.x_mm);
    b.y0 = std::min(b.y0, at.y_mm);
    b.y1 = std::max(b.y1, at.y_mm);
  }
  double longest = -1;
  for (const auto &entry : boxes) {
    double length = std::hypot(entry.second.x1 - entry.second.x0, entry.second.y1 - entry.second.y0);
    if (length > longest || (length == longest && entry.second.first < *first)) {
      longest = length;
      *first = entry.second.first;
    }
  }
  return longest;
}

// Figures (labels aside) whose dots stay closer than line_mm to another
// figure's for more than LEGIBILITY_RUN_MM. A stretch is measured along one
// figure over its dots that have the other figure that close; dots up to
// twice line_mm apart still make one stretch, so gaps of a dashed line do
// not break it. A crossing at right angles makes a stretch of about twice
// line_mm, and is no finding.
static void check_runs(const Legibility &c, const Cells &all, std::vector<LegibilityFinding> &out) {
  struct Near {
    std::vector<int> dots;
    double closest;
  };
  std::unordered_map<uint64_t, Near> near;  // (A, B): A's dots close to B
  std::vector<std::pair<int, double>> others;
  for (size_t i = 0; i < c.dots.size(); i++) {
    const LegibilityDot &d = c.dots[i];
    if (d.label) continue;
    others.clear();
    visit_near(all, c.dots, d.at, c.line_mm, [&](int j, double dist) {
      const LegibilityDot &e = c.dots[j];
      if (e.label || e.figure == d.figure) return;
      for (auto &o : others)
        if (o.first == e.figure) {
          o.second = std::min(o.second, dist);
          return;
        }
      others.emplace_back(e.figure, dist);
    });
    for (const auto &o : others) {
      auto r = near.emplace(pair_key(d.figure, o.first), Near{{}, o.second});
      r.first->second.dots.push_back(static_cast<int>(i));
      r.first->second.closest = std::min(r.first->second.closest, o.second);
    }
  }
  // The longer of the two stretches, reported once on the later figure.
  std::unordered_map<uint64_t, LegibilityFinding> runs;
  for (const auto &entry : near) {
    int a = static_cast<int>(entry.first >> 32), b = static_cast<int>(entry.first & 0xffffffffu);
    int first = 0;
    double length = longest_stretch(c.dots, entry.second.dots, 2 * c.line_mm, &first);
    LegibilityFinding f{LEGIBILITY_RUN, std::max(a, b), std::min(a, b), entry.second.closest, length, c.dots[first].at};
    auto r = runs.emplace(pair_key(f.figure, f.other), f);
    LegibilityFinding &kept = r.first->second;
    if (!r.second) {
      kept.distance_mm = std::min(kept.distance_mm, f.distance_mm);
      if (f.length_mm > kept.length_mm) {
        kept.length_mm = f.length_mm;
        kept.at = f.at;
      }
    }
  }
  for (const auto &entry : runs)
    if (entry.second.length_mm > LEGIBILITY_RUN_MM) out.push_back(entry.second);
}

void legibility_end_page(Legibility &c) {
  double size = std::max(c.label_mm, c.line_mm);
  if (!c.dots.empty() && size > 0) {
    std::vector<int> every(c.dots.size());
    for (size_t i = 0; i < every.size(); i++) every[i] = static_cast<int>(i);
    Cells all = index_dots(c.dots, every, size);
    std::vector<LegibilityFinding> page;
    if (c.label_mm > 0) check_labels(c, all, page);
    if (c.line_mm > 0) check_runs(c, all, page);
    std::sort(page.begin(), page.end(), [](const LegibilityFinding &x, const LegibilityFinding &y) {
      if (x.figure != y.figure) return x.figure < y.figure;
      if (x.kind != y.kind) return x.kind < y.kind;
      return x.other < y.other;
    });
    c.findings.insert(c.findings.end(), page.begin(), page.end());
  }
  c.dots.clear();
  c.seen.clear();
}

// A warning on the figure's own program line and command word.
static void warn(const LegibilityFigure &f, const char *text) {
  RunState &r = run_state;
  std::string fname = r.fname, cname = r.cname;
  int line = r.line_number;
  copy_text(r.fname, NAME_SIZE, f.file.c_str());
  copy_text(r.cname, NAME_SIZE, f.command.c_str());
  r.line_number = f.line;
  put_warning(text);
  copy_text(r.fname, NAME_SIZE, fname.c_str());
  copy_text(r.cname, NAME_SIZE, cname.c_str());
  r.line_number = line;
}

// " at wx,wy (x,y mm)", appended to a message.
static std::string place_text(const Place &at) {
  char text[80];
  snprintf(text, sizeof text, " at %.2f,%.2f (%.1f,%.1f mm)", at.wx, at.wy, at.x_mm, at.y_mm);
  return text;
}

int legibility_report(Legibility &c, FILE *out) {
  legibility_end_page(c);
  int problems = 0;
  char text[MSG_SIZE];
  for (const LegibilityFinding &f : c.findings) {
    int other = c.figures[f.other].line;
    if (f.kind == LEGIBILITY_LABEL)
      snprintf(text, sizeof text, "label %.1f mm from line %d%s", f.distance_mm, other, place_text(f.at).c_str());
    else
      snprintf(text, sizeof text, "runs %.1f mm from line %d for %.0f mm%s", f.distance_mm, other, f.length_mm,
               place_text(f.at).c_str());
    warn(c.figures[f.figure], text);
    problems++;
  }
  for (const LegibilityFigure &f : c.figures) {
    if (f.dropped > 0) {
      snprintf(text, sizeof text, "%ld dot%s dropped outside the frame%s", f.dropped, f.dropped == 1 ? "" : "s",
               place_text(f.first_dropped).c_str());
      warn(f, text);
      problems++;
    }
    if (f.small_pitch) {
      snprintf(text, sizeof text, "pitch %.2f mm < dot spacing %.2f mm%s", f.pitch_mm, f.spacing_mm,
               place_text(f.pitch_at).c_str());
      warn(f, text);
      problems++;
    }
  }
  if (problems == 0) fputs("legibility: no problems found\n", out);
  else fprintf(out, "\nlegibility: %d problem%s found\n", problems, problems == 1 ? "" : "s");
  fflush(out);
  return problems;
}
