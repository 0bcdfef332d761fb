// page.cpp - printers, papers, frame, window, origin and the unit conversions.
#include "geometry/page.h"

#include <cmath>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"

PageGeom page_geom;

const PrinterRow printer_table[3] = {
    {"ESA721", 0.345576, 0.317215, {7, 6, 18, 33}, {6, 7, 15, 33}},
    {"ESA600G", 0.25391095, 0.255620713, {8, 8, 21, 41}, {8, 8, 21, 41}},
    {"Everest-D", 0.5, 0.5, {5, 5, 12, 20}, {5, 5, 12, 20}},
};

const PaperRow paper_table[10] = {
    {"b5", ESA721, 479, 724, {-8.28, 8.28, -11.48, 11.48}, PAPER_B5},
    {"a4", ESA721, 599, 790, {-10.35, 10.35, -12.53, 12.53}, PAPER_A4},
    {"b5", ESA600G, 633, 936, {-8.28, 8.55, -12.48, 11.48}, PAPER_B5},
    {"a4", ESA600G, 831, 1023, {-10.35, 10.75, -13.62, 12.53}, PAPER_A4},
    {"b5", EVEREST_D, 324, 474, {-8.1, 8.1, -11.85, 11.85}, PAPER_B5},
    {"b4", EVEREST_D, 474, 688, {-11.85, 11.85, -17.2, 17.2}, PAPER_B4},
    {"a4", EVEREST_D, 380, 554, {-9.5, 9.5, -13.85, 13.85}, PAPER_A4},
    {"a3", EVEREST_D, 554, 800, {-13.85, 13.85, -20.0, 20.0}, PAPER_A3},
    {"p8", EVEREST_D, 331, 459, {-8.28, 8.28, -11.48, 11.48}, PAPER_P8},
    {"p10", EVEREST_D, 414, 501, {-10.35, 10.35, -12.53, 12.53}, PAPER_P10},
};

// Loads a paper row and its printer row into the record (portrait).
static void load_paper(PageGeom &g, int paper) {
  const PaperRow &row = paper_table[paper];
  const PrinterRow &pr = printer_table[row.printer];
  for (int &flag : g.paper_flag) flag = 0;
  g.paper_flag[row.flag] = 1;
  g.printer = row.printer;
  g.paper = paper;
  g.default_grid = IntRect{0, row.x1, 0, row.y1};
  g.default_frame = g.default_grid;
  g.p = g.f = g.default_grid;
  g.default_window = FloatRect{static_cast<float>(row.window[0]), static_cast<float>(row.window[1]),
                               static_cast<float>(row.window[2]), static_cast<float>(row.window[3])};
  g.w = g.default_window;
  g.pitch_h = pr.pitch_h;
  g.pitch_v = pr.pitch_v;
  int *gaps[4] = {g.gap_h, g.gap_v, g.gap_s, g.gap_l};
  for (int i = 0; i < 4; i++) {
    gaps[i][0] = pr.gap_landscape[i];
    gaps[i][1] = pr.gap_portrait[i];
  }
}

static void reset_page_geom() {
  page_geom = PageGeom();
  page_geom.portrait = 1;
  load_paper(page_geom, 1);
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_page_geom);

int select_paper(int printer, int paper) {
  if (printer < 0 || printer > 2) return put_errorf("illegal printer %d (0-2)", printer);
  static const int first[3] = {0, 2, 4}, last[3] = {1, 3, 9};
  if (paper < first[printer] || paper > last[printer]) return put_errorf("illegal paper_size %d (0-9)\n", paper);
  set_portrait();
  load_paper(page_geom, paper);
  run_state.printer = page_geom.printer;
  run_state.paper_size = paper;
  run_state.orientation = 1;
  set_portrait();
  return 1;
}

int paper_command(int flag) {
  static const int b5[3] = {0, 2, 4}, a4[3] = {1, 3, 6};
  int printer = page_geom.printer;
  int paper = -1;
  if (flag == PAPER_B5 && printer >= 0 && printer <= 2) paper = b5[printer];
  if (flag == PAPER_A4 && printer >= 0 && printer <= 2) paper = a4[printer];
  if (printer == EVEREST_D) {
    if (flag == PAPER_B4) paper = 5;
    if (flag == PAPER_A3) paper = 7;
    if (flag == PAPER_P8) paper = 8;
    if (flag == PAPER_P10) paper = 9;
  }
  if (paper < 0) return put_error("invalid printer");
  return select_paper(printer, paper);
}

void set_portrait() {
  if (page_geom.portrait) return;
  page_geom.portrait = 1;
  run_state.orientation = 1;
  page_geom.p = page_geom.f = page_geom.default_grid;
  page_geom.w = page_geom.default_window;
}

void set_landscape() {
  if (page_geom.portrait) {
    page_geom.portrait = 0;
    run_state.orientation = 0;
    const IntRect &d = page_geom.default_grid;
    page_geom.p = page_geom.f = IntRect{d.y0, d.y1, d.x0, d.x1};
    const FloatRect &dw = page_geom.default_window;
    page_geom.w = FloatRect{dw.y0, dw.y1, dw.x0, dw.x1};
  }
}

// A window range the mapping can use: finite ends, the first below the second.
static int proper_range(float a, float b) { return std::isfinite(a) && std::isfinite(b) && a < b; }

int set_frame(int x0, int x1, int y0, int y1, double wx0, double wx1, double wy0, double wy1) {
  const IntRect &p = page_geom.p;
  if (x0 < p.x0 || x0 > p.x1) return put_errorf("frame out of grid: x0 = %d (%d-%d)", x0, p.x0, p.x1);
  if (y0 < p.y0 || y0 > p.y1) return put_errorf("frame out of grid: y0 = %d (%d-%d)", y0, p.y0, p.y1);
  if (x1 < x0 || x1 > p.x1) return put_errorf("frame out of range: x1 = %d (%d-%d)", x1, x0, p.x1);
  if (y1 < y0 || y1 > p.y1) return put_errorf("frame out of range: y1 = %d (%d-%d)", y1, y0, p.y1);
  // The window is kept in single precision: it must still be a proper range
  // once narrowed (values that meet or overflow there are refused too).
  FloatRect w{static_cast<float>(wx0), static_cast<float>(wx1), static_cast<float>(wy0),
              static_cast<float>(wy1)};
  if (!proper_range(w.x0, w.x1)) return put_errorf("frame illegal x range of window (%.2f-%.2f)", wx0, wx1);
  if (!proper_range(w.y0, w.y1)) return put_errorf("frame illegal y range of window (%.2f-%.2f)", wy0, wy1);
  page_geom.f = IntRect{x0, x1, y0, y1};
  page_geom.w = w;
  return 1;
}

int set_window(double wx0, double wx1, double wy0, double wy1) {
  const IntRect &f = page_geom.f;
  return set_frame(f.x0, f.x1, f.y0, f.y1, wx0, wx1, wy0, wy1);
}

int check_bias(double bias_x, double bias_y) {
  if (!(bias_x > 0)) return put_errorf("negative or zero bias x = %.2f", bias_x);
  if (!(bias_y > 0)) return put_errorf("negative or zero bias y = %.2f", bias_y);
  return 1;
}

int set_origin(double ox, double oy, double bias_x, double bias_y) {
  if (!check_bias(bias_x, bias_y)) return 0;
  const FloatRect &w = page_geom.w;
  const IntRect &f = page_geom.f;
  // Through the frame checks, so that a shift or scale that leaves no usable
  // window (an infinite or collapsed range) is refused like a bad window.
  return set_frame(f.x0, f.x1, f.y0, f.y1, (w.x0 - ox) / bias_x, (w.x1 - ox) / bias_x, (w.y0 - oy) / bias_y,
                   (w.y1 - oy) / bias_y);
}

int set_fmt(int columns, int rows) {
  return set_window(1.0, columns + 1.0, 0.0, rows + 0.3);
}

double pitch_x() { return page_geom.portrait ? page_geom.pitch_h : page_geom.pitch_v; }
double pitch_y() { return page_geom.portrait ? page_geom.pitch_v : page_geom.pitch_h; }

int gap_h() { return page_geom.gap_h[page_geom.portrait ? 1 : 0]; }
int gap_v() { return page_geom.gap_v[page_geom.portrait ? 1 : 0]; }
int gap_s() { return page_geom.gap_s[page_geom.portrait ? 1 : 0]; }
int gap_l() { return page_geom.gap_l[page_geom.portrait ? 1 : 0]; }

double vh_ratio() {
  const PageGeom &g = page_geom;
  long double v = (long double)(g.p.y1 - g.p.y0) * pitch_y() / ((long double)g.w.y1 - g.w.y0);
  long double h = (long double)(g.p.x1 - g.p.x0) * pitch_x() / ((long double)g.w.x1 - g.w.x0);
  return static_cast<double>(v / h + 0.00005L);
}

void show_geometry() {
  const PageGeom &g = page_geom;
  beep(1760, 50);
  const char *paper = paper_table[g.paper].name;
  const char *printer = printer_table[g.printer].name;
  FILE *out = run_state.run_mode != MODE_NORMAL ? run_state.echo_out : stderr;
  fprintf(out, "  grid(%d %d %d %d)\n", g.p.x0, g.p.x1, g.p.y0, g.p.y1);
  fprintf(out, "  frame(%d %d %d %d)\n", g.f.x0, g.f.x1, g.f.y0, g.f.y1);
  fprintf(out, "  window(%.2f %.2f %.2f %.2f)\n", g.w.x0, g.w.x1, g.w.y0, g.w.y1);
  if (run_state.run_mode != MODE_NORMAL) {
    fprintf(out, "%s and ", paper);
    fputs(g.portrait ? "portrait " : "landscape ", out);
    fprintf(out, "on %s\n", printer);
    fprintf(out, "V/H ratio: %.4f\n", vh_ratio());
  } else {
    fprintf(out, "%s ", paper);
    fputs(g.portrait ? "portrait, ," : "landscape, ", out);
    fprintf(out, "%s\n", printer);
    fprintf(out, "V/H ratio: %.4f\n", vh_ratio());
    fprintf(out, "dot gap: h %d, v %d, s %d, l %d\n", gap_h(), gap_v(), gap_s(), gap_l());
  }
  fflush(out);
}

double dx_to_mm(double d) {
  const PageGeom &g = page_geom;
  return static_cast<double>((long double)(g.p.x1 - g.p.x0) * pitch_x() * d /
                             ((long double)g.w.x1 - g.w.x0));
}

double dy_to_mm(double d) {
  const PageGeom &g = page_geom;
  return static_cast<double>((long double)(g.p.y1 - g.p.y0) * pitch_y() * d /
                             ((long double)g.w.y1 - g.w.y0));
}

double mm_to_dx(double mm) {
  const PageGeom &g = page_geom;
  return static_cast<double>(((long double)g.w.x1 - g.w.x0) * mm / pitch_x() /
                             (long double)(g.p.x1 - g.p.x0));
}

double mm_to_dy(double mm) {
  const PageGeom &g = page_geom;
  return static_cast<double>(((long double)g.w.y1 - g.w.y0) * mm / pitch_y() /
                             (long double)(g.p.y1 - g.p.y0));
}

double dots_per_unit_x() {
  const PageGeom &g = page_geom;
  return (g.p.x1 - g.p.x0) / ((double)g.w.x1 - g.w.x0);
}

double dots_per_unit_y() {
  const PageGeom &g = page_geom;
  return (g.p.y1 - g.p.y0) / ((double)g.w.y1 - g.w.y0);
}
