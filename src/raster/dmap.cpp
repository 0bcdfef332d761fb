// dmap.cpp - the dot map, the gap rule, the erasers and the page send-off.
#include "raster/dmap.h"

#include <cstdlib>
#include <cstring>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/sink.h"

DotMap dmap;

// The map as an output: it takes the dots of figures in printer mode, and
// Braille cells whenever it is in use. A path end is a position only.
static int collect_dot(const SinkDot &d, int taken) {
  if (taken || !dmap.in_use) return 0;
  if (!d.grid && (d.kind == PATH_END || !dmap.printer_mode)) return 0;
  put_dot(d.row, d.col, d.size);
  return 1;
}

static const Sink kDotMapSink = {"dot map", RANK_DOT_MAP, collect_dot, nullptr, nullptr, nullptr, nullptr, nullptr};

void reset_dmap() {
  if (dmap.rows != nullptr) free_dmap();
  dmap = DotMap();
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_dmap) + add_sink(&kDotMapSink);

// Bytes in one row of the map.
static int row_bytes() { return dmap.col_max / 4 + 2; }

int alloc_dmap() {
  if (dmap.rows != nullptr) free_dmap();
  const IntRect &g = page_geom.default_grid;  // the map is always portrait
  dmap.row_min = g.y0;
  dmap.row_max = g.y1;
  dmap.col_min = g.x0;
  dmap.col_max = g.x1;
  dmap.rows = static_cast<uint8_t **>(calloc(dmap.row_max + 1, sizeof(uint8_t *)));
  if (dmap.rows == nullptr) {
    put_errorf("did not get dmap[%d] in heap", 0);
    fatal_exit(1);
  }
  for (int r = 0; r <= dmap.row_max; r++) {
    dmap.rows[r] = static_cast<uint8_t *>(malloc(row_bytes()));
    if (dmap.rows[r] == nullptr) {
      put_errorf("did not get dmap[%d] in heap", r);
      fatal_exit(1);
    }
  }
  dmap.in_use = 1;
  dmap.has_dots = 0;
  clear_dmap();
  return 1;
}

int clear_dmap() {
  if (dmap.rows == nullptr) return 1;
  for (int r = 0; r <= dmap.row_max; r++) memset(dmap.rows[r], 255, row_bytes());
  dmap.row_lo = page_geom.p.y1;
  dmap.row_hi = 0;
  return 1;
}

int free_dmap() {
  if (dmap.rows != nullptr) {
    for (int r = 0; r <= dmap.row_max; r++) free(dmap.rows[r]);
    free(dmap.rows);
  }
  dmap.rows = nullptr;
  dmap.in_use = 0;
  dmap.has_dots = 0;
  return 1;
}

static int inside(int row, int col) {
  return dmap.rows != nullptr && row >= dmap.row_min && row <= dmap.row_max && col >= dmap.col_min &&
         col <= dmap.col_max;
}

// Reads and writes a cell that is known to lie inside the map.
static int cell(int row, int col) { return (dmap.rows[row][col / 4] >> (2 * (col % 4))) & 3; }

static void store(int row, int col, int size) {
  uint8_t &b = dmap.rows[row][col / 4];
  int shift = 2 * (col % 4);
  b = static_cast<uint8_t>((b & ~(3 << shift)) | ((size & 3) << shift));
}

int set_dot(int row, int col, int size) {
  if (!inside(row, col)) return put_errorf("overflow set_dot (%d, %d)", row, col);
  if (size < 0 || size > 6) return put_errorf("illegal size %d set_dot(0-6)", size);
  if (run_state.run_mode == MODE_CONVERT && size != 3) {
    if (row < dmap.row_lo) dmap.row_lo = row;
    if (row > dmap.row_hi) dmap.row_hi = row;
  }
  store(row, col, size);
  return 1;
}

int get_dot(int row, int col) {
  if (dmap.rows == nullptr || row < dmap.row_min || row > dmap.row_max) {
    put_errorf("overflow x get_dot(%d, %d)", row, col);
    return 3;
  }
  if (col < dmap.col_min || col > dmap.col_max) {
    put_errorf("overflow y get_dot(%d, %d)", row, col);
    return 3;
  }
  return cell(row, col);
}

// Clamps a range centre +- radius to [lo, hi] without overflowing.
static void clamp_range(int centre, long long radius, int lo, int hi, int *from, int *to) {
  long long a = centre - radius, b = centre + radius;
  *from = static_cast<int>(a < lo ? lo : a);
  *to = static_cast<int>(b > hi ? hi : b);
}

int put_dot(int row, int col, int size_code) {
  if (!dmap.in_use) return 0;
  if (row < dmap.row_min || row > dmap.row_max) {
    return put_errorf("overflow x %d put_dot(%d, %d)", row, dmap.row_min, dmap.row_max);
  }
  if (col < dmap.col_min || col > dmap.col_max) {
    return put_errorf("overflow y %d put_dot(%d, %d)", col, dmap.col_min, dmap.col_max);
  }
  int size = size_code & 3;
  if (dmap.gap_flag == 0) {
    set_dot(row, col, size_code);
  } else {
    long long gr = dmap.gap_rows, gc = dmap.gap_cols, limit = gr * gc;
    int occupied = 0;
    int r0, r1, c0, c1;
    clamp_range(row, gr, dmap.row_min, dmap.row_max, &r0, &r1);
    clamp_range(col, gc, dmap.col_min, dmap.col_max, &c0, &c1);
    for (int r = r0; r <= r1; r++) {
      for (int c = c0; c <= c1; c++) {
        long long dr = row - r, dc = col - c;
        if (dr * dr + dc * dc > limit) continue;
        int centre = r == row && c == col;
        int v = cell(r, c);
        if (dmap.gap_flag == 2) {
          if (v != 3) store(r, c, 3);
        } else if (dmap.gap_value >= 1) {
          if (centre) store(r, c, size);
          else if (v != 3) store(r, c, 3);
        } else if (dmap.gap_value == 0) {
          if (centre) store(r, c, size);
        } else if (v != 3) {
          occupied = 1;  // only where there is room
        }
      }
    }
    if (dmap.gap_value < 0 && !occupied) set_dot(row, col, size_code);
  }
  dmap.has_dots = 1;
  return 1;
}

void each_map_dot(void (*put)(int row, int col, int size)) {
  for (int row = dmap.row_min; row <= dmap.row_max; row++)
    for (int col = dmap.col_min; col <= dmap.col_max; col++) {
      int v = cell(row, col);
      if (v != 3) put(row, col, v);
    }
}

int print_dmap() {
  if (!dmap.in_use) return put_error("no dot map");
  fprintf(stderr, "print_dmap %d\n", page_geom.printer);
  offer_map();
  dmap.row_lo = page_geom.p.y1;
  dmap.row_hi = 0;
  return 1;
}

void flush_page() {
  if (!dmap.in_use || !dmap.has_dots) return;
  print_dmap();
  clear_dmap();
  dmap.has_dots = 0;
}

void reset_gap() {
  dmap.gap_flag = dmap.gap_value = dmap.gap_rows = dmap.gap_cols = 0;
}

int set_gap(int flag, double value_mm) {
  if (flag < 0 || flag > 2) return put_errorf("illeegal gap_flag %d (0-2)\n", flag);
  if (!dmap.in_use) return 1;
  if (flag == 0) {
    reset_gap();
    return 1;
  }
  dmap.gap_flag = flag;
  dmap.gap_value = trunc_int(value_mm);
  double v = value_mm < 0 ? -value_mm : value_mm;
  const PageGeom &g = page_geom;
  // The row radius takes the horizontal pitch in portrait; kept so.
  dmap.gap_rows = trunc_int(v / (g.portrait ? g.pitch_h : g.pitch_v));
  dmap.gap_cols = trunc_int(v / (g.portrait ? g.pitch_v : g.pitch_h));
  return 1;
}

// Transforms and maps a world point to its device cell; 0 outside.
static int cell_of(double *wx, double *wy, DotPos *pos) {
  transform_point(wx, wy);
  return map_plot(*wx, *wy, pos);
}

int scrape(double wx, double wy, double radius_mm) {
  if (!dmap.in_use) return 0;
  int radius = trunc_int(radius_mm / page_geom.pitch_h);
  if (radius == 0) return 0;
  DotPos pos;
  if (!cell_of(&wx, &wy, &pos)) return 0;
  if (!inside(pos.row, pos.col)) return put_errorf("overflow (%d, %d)", pos.row, pos.col);
  fprintf(stderr, "\nscrape (%.2f, %.2f) radius %d dot", wx, wy, radius);
  long long rr = static_cast<long long>(radius) * radius;
  int r0, r1, c0, c1;
  clamp_range(pos.row, radius < 0 ? -static_cast<long long>(radius) : radius, dmap.row_min, dmap.row_max,
              &r0, &r1);
  clamp_range(pos.col, radius < 0 ? -static_cast<long long>(radius) : radius, dmap.col_min, dmap.col_max,
              &c0, &c1);
  for (int r = r0; r <= r1; r++) {
    for (int c = c0; c <= c1; c++) {
      long long dr = r - pos.row, dc = c - pos.col;
      if (dr * dr + dc * dc <= rr) store(r, c, 3);
    }
  }
  return 1;
}

int erase_rect(double wx, double wy, double a, double b) {
  if (!dmap.in_use) return 0;
  DotPos pos;
  if (!cell_of(&wx, &wy, &pos)) return 0;
  const PageGeom &g = page_geom;
  // The same scales in both orientations; kept so.
  int rows = trunc_int((g.p.y1 - g.p.y0) * a / ((double)g.w.y1 - g.w.y0));
  int cols = trunc_int((g.p.x1 - g.p.x0) * b / ((double)g.w.x1 - g.w.x0));
  if (rows < 0 || cols < 0) return 1;
  int r0, r1, c0, c1;
  clamp_range(pos.row, rows, dmap.row_min, dmap.row_max, &r0, &r1);
  clamp_range(pos.col, cols, dmap.col_min, dmap.col_max, &c0, &c1);
  for (int r = r0; r <= r1; r++)
    for (int c = c0; c <= c1; c++) store(r, c, 3);
  return 1;
}
