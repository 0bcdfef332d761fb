// embosser.cpp - embosser byte streams: plotter mode, dot addresses, sizes,
// form feeds and whole pages sent from the dot map.
#include "devices/embosser.h"

#include <cstdarg>
#include <cstring>

#include "devices/bitmap.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "interp/diag.h"
#include "raster/dmap.h"
#include "raster/plot.h"
#include "shell/run_state.h"

Embosser embosser;

void reset_embosser() {
  embosser = Embosser();
  embosser.out = stdout;
  embosser.output_enabled = 1;
}

int emit(const char *text, int length) {
  if (!embosser.output_enabled) return 0;
  if (embosser.output_suppressed) return 1;
  for (int i = 0; i < length; i++) fputc(static_cast<unsigned char>(text[i]), embosser.out);
  return 1;
}

// Writes formatted text to the embosser.
static void emitf(const char *format, ...) __attribute__((format(printf, 1, 2)));
static void emitf(const char *format, ...) {
  char buf[128];
  va_list ap;
  va_start(ap, format);
  int n = vsnprintf(buf, sizeof buf, format, ap);
  va_end(ap);
  if (n > static_cast<int>(sizeof buf) - 1) n = sizeof buf - 1;
  if (n > 0) emit(buf, n);
}

// Plotter mode switches are silent in traces and in PostScript output.
static int silent() { return ps.active || bmp.active || run_state.run_mode != MODE_NORMAL; }

// Everest-D set-up values per paper: LS, CH, LP.
struct EverestRow {
  int paper, ls, ch, lp;
};
static const EverestRow everest_rows[] = {
    {4, 50, 27, 22}, {5, 50, 39, 34}, {6, 27, 32, 27}, {7, 50, 46, 40}, {8, 50, 28, 23}, {9, 50, 34, 25},
};

static void send_everest_setup() {
  const PageGeom &g = page_geom;
  const EverestRow *row = &everest_rows[2];
  for (const EverestRow &r : everest_rows)
    if (r.paper == g.paper) row = &r;
  emitf("%cDBT%d,TD%d,DP%d,LS%d,TM%d,BI%d,CH%d,LP%d;\n", 27, 0, 0, 1, row->ls, 1, 2, row->ch, row->lp);
  double width = (g.p.x1 - g.p.x0) * pitch_x();
  double height = (g.p.y1 - g.p.y0) * pitch_y();
  emitf("%cFOR%.2f:%.2f,WX%.2f,HY%.2f;\n", 27, 0.0, 0.0, width, height);
}

void enter_plotter_mode() {
  if (!silent() && !embosser.plotter_mode) {
    if (page_geom.printer == EVEREST_D) {
      if (!embosser.everest_setup_sent) {
        send_everest_setup();
        embosser.everest_setup_sent = 1;
      }
    } else {
      emitf("%c%c%c", 27, 27, 'G');
    }
  }
  embosser.plotter_mode = 1;
}

void leave_plotter_mode() {
  if (!silent() && embosser.plotter_mode && page_geom.printer != EVEREST_D) emitf("%c", 13);
  embosser.plotter_mode = 0;
}

void emit_dot_address(int row, int col) {
  // The bytes "%c%c%c%c" would give, without formatting every dot.
  const char address[4] = {static_cast<char>(col / 32 + 32), static_cast<char>(col % 32 + 96),
                           static_cast<char>(row / 32 + 32), static_cast<char>(row % 32 + 64)};
  emit(address, 4);
}

void emit_move(int row, int col) {
  emitf("%c", 29);
  emit_dot_address(row, col);
}

void emit_everest_dot(int dx, int dy) {
  // x is measured from the right edge of the sheet.
  emitf("%.2f:%.2f\n", (page_geom.p.x1 - dx) * pitch_x(), dy * pitch_y());
}

void send_dot_size(int code) {
  plot_state.dot_size = code;
  if (ps.active) return;
  enter_plotter_mode();
  emitf("%c%cD%d", 27, 27, code);
}

void send_form_feed() {
  leave_plotter_mode();
  if (run_state.run_mode != MODE_NORMAL) return;  // traces carry no page bytes
  switch (page_geom.printer) {
    case ESA721: emitf("%c", 12); break;
    case ESA600G: emitf("%c%c", 12, 10); break;
    default:
      emitf(";%c%c", 12, 10);
      embosser.everest_setup_sent = 0;
      break;
  }
}

// Sends one scan of a row for one size; returns 1 when it found a dot.
static int scan_row(int row, int size, int left_to_right) {
  int found = 0;
  for (int i = dmap.col_min; i <= dmap.col_max; i++) {
    int col = left_to_right ? i : dmap.col_max - (i - dmap.col_min);
    if (get_dot(row, col) != size) continue;
    if (!found) send_dot_size(size);
    found = 1;
    emit_dot_address(row, col);
  }
  return found;
}

// The page as PostScript circles or bitmap dots (the image jobs' printer mode).
static void dmap_to_picture() {
  for (int row = dmap.row_min; row <= dmap.row_max; row++)
    for (int col = dmap.col_min; col <= dmap.col_max; col++) {
      int v = get_dot(row, col);
      if (v == 3) continue;
      if (ps.active) ps_dot(row, col, v);
      else bmp_cell(row, col, v);
    }
}

int print_dmap() {
  if (!dmap.in_use) return put_error("no dot map");
  fprintf(stderr, "print_dmap %d\n", page_geom.printer);
  int size_in_force = plot_state.dot_size;
  static const int sizes[3] = {1, 0, 2};
  if (ps.active || bmp.active) {
    dmap_to_picture();
  } else {
    enter_plotter_mode();
    if (page_geom.printer == ESA721) {
      int left_to_right = 1;  // the head sweeps back and forth
      for (int row = dmap.row_min; row <= dmap.row_max; row++)
        for (int size : sizes)
          if (scan_row(row, size, left_to_right)) left_to_right = !left_to_right;
    } else if (page_geom.printer == ESA600G) {
      for (int size : sizes) {
        int first = 1;
        for (int row = dmap.row_min; row <= dmap.row_max; row++)
          for (int col = dmap.col_min; col <= dmap.col_max; col++) {
            if (get_dot(row, col) != size) continue;
            if (first) send_dot_size(size);
            first = 0;
            emit_dot_address(row, col);
          }
      }
    }
  }
  plot_state.dot_size = size_in_force;
  dmap.row_lo = page_geom.p.y1;
  dmap.row_hi = 0;
  return 1;
}

void begin_job() {
  if (page_geom.printer == EVEREST_D) {
    embosser.everest_setup_sent = 0;  // every job starts with its set-up lines
    embosser.plotter_mode = 0;
  } else if (embosser.job_open) {
    return;
  }
  embosser.job_open = 1;
  enter_plotter_mode();
}

void end_job() {
  if (!embosser.job_open) return;
  leave_plotter_mode();
  embosser.job_open = 0;
}
