// embosser.cpp - embosser byte streams: plotter mode, dot addresses, sizes,
// form feeds and whole pages sent from the dot map; the embosser as the
// last of the output sinks, and the copies of a print run.
#include "devices/embosser.h"

#include <cstdarg>
#include <cstring>
#include <unistd.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"
#include "raster/plot.h"
#include "raster/sink.h"

Embosser embosser;

void reset_embosser() {
  embosser = Embosser();
  embosser.out = stdout;
  embosser.output_enabled = 1;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_embosser);

int emit(const char *text, int length) {
  if (!embosser.output_enabled) return 0;
  if (embosser.output_suppressed) return 1;
  if (embosser.hold_terminal && embosser.out == stdout) {
    embosser.held_bytes += length;
    return 1;
  }
  for (int i = 0; i < length; i++) fputc(static_cast<unsigned char>(text[i]), embosser.out);
  return 1;
}

void hold_terminal_bytes() {
  embosser.hold_terminal = isatty(fileno(stdout));
  embosser.held_bytes = 0;
}

void report_held_bytes() {
  if (embosser.held_bytes > 0) {
    fprintf(stderr, screen_text(ST_HELD_BYTES), embosser.held_bytes);
    fflush(stderr);
  }
  embosser.hold_terminal = 0;
  embosser.held_bytes = 0;
}

// Writes formatted text to the embosser.
static void emit_formatted(const char *format, ...) __attribute__((format(printf, 1, 2)));
static void emit_formatted(const char *format, ...) {
  char buf[128];
  va_list ap;
  va_start(ap, format);
  int n = vsnprintf(buf, sizeof buf, format, ap);
  va_end(ap);
  if (n > static_cast<int>(sizeof buf) - 1) n = sizeof buf - 1;
  if (n > 0) emit(buf, n);
}

// Plotter-mode switches send no bytes while a picture is drawn or a trace runs.
static int no_mode_bytes() { return picture_output() || run_state.run_mode != MODE_NORMAL; }

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
  emit_formatted("%cDBT%d,TD%d,DP%d,LS%d,TM%d,BI%d,CH%d,LP%d;\n", 27, 0, 0, 1, row->ls, 1, 2, row->ch, row->lp);
  double width = (g.p.x1 - g.p.x0) * pitch_x();
  double height = (g.p.y1 - g.p.y0) * pitch_y();
  emit_formatted("%cFOR%.2f:%.2f,WX%.2f,HY%.2f;\n", 27, 0.0, 0.0, width, height);
}

void enter_plotter_mode() {
  if (!no_mode_bytes() && !embosser.plotter_mode) {
    if (page_geom.printer == EVEREST_D) {
      if (!embosser.everest_setup_sent) {
        send_everest_setup();
        embosser.everest_setup_sent = 1;
      }
    } else {
      emit_formatted("%c%c%c", 27, 27, 'G');
    }
  }
  embosser.plotter_mode = 1;
}

void leave_plotter_mode() {
  if (!no_mode_bytes() && embosser.plotter_mode && page_geom.printer != EVEREST_D) emit_formatted("%c", 13);
  embosser.plotter_mode = 0;
}

void emit_dot_address(int row, int col) {
  // The bytes "%c%c%c%c" would give, without formatting every dot.
  const char address[4] = {static_cast<char>(col / 32 + 32), static_cast<char>(col % 32 + 96),
                           static_cast<char>(row / 32 + 32), static_cast<char>(row % 32 + 64)};
  emit(address, 4);
}

void emit_move(int row, int col) {
  emit_formatted("%c", 29);
  emit_dot_address(row, col);
}

// An Everest-D dot line "%.2f:%.2f\n" for a grid dot.
static void emit_everest_dot(int dx, int dy) {
  // x is measured from the right edge of the sheet.
  emit_formatted("%.2f:%.2f\n", (page_geom.p.x1 - dx) * pitch_x(), dy * pitch_y());
}

// The size command ESC ESC D and the code.
static void send_dot_size(int code) {
  enter_plotter_mode();
  emit_formatted("%c%cD%d", 27, 27, code);
}

void send_form_feed() {
  leave_plotter_mode();
  if (run_state.run_mode != MODE_NORMAL) return;  // traces carry no page bytes
  switch (page_geom.printer) {
    case ESA721: emit_formatted("%c", 12); break;
    case ESA600G: emit_formatted("%c%c", 12, 10); break;
    default:
      emit_formatted(";%c%c", 12, 10);
      embosser.everest_setup_sent = 0;
      break;
  }
}

// Sends one scan of a row for one size, the size itself before its first dot
// unless *sent; returns 1 when it found a dot.
static int scan_row(int row, int size, int left_to_right, int *sent) {
  int found = 0;
  for (int i = dmap.col_min; i <= dmap.col_max; i++) {
    int col = left_to_right ? i : dmap.col_max - (i - dmap.col_min);
    if (get_dot(row, col) != size) continue;
    if (!*sent) send_dot_size(size);
    *sent = found = 1;
    emit_dot_address(row, col);
  }
  return found;
}

// The page collected in the dot map: dot by dot, a size at a time. The
// ESA721's head sweeps back and forth along each row; the ESA600G takes
// each size over the whole page. The Everest-D takes no map.
static int send_map(int taken) {
  if (taken) return 0;
  static const int sizes[3] = {1, 0, 2};
  enter_plotter_mode();
  if (page_geom.printer == ESA721) {
    int left_to_right = 1;
    for (int row = dmap.row_min; row <= dmap.row_max; row++)
      for (int size : sizes) {
        int sent = 0;
        if (scan_row(row, size, left_to_right, &sent)) left_to_right = !left_to_right;
      }
  } else if (page_geom.printer == ESA600G) {
    for (int size : sizes) {
      int sent = 0;
      for (int row = dmap.row_min; row <= dmap.row_max; row++) scan_row(row, size, 1, &sent);
    }
  }
  return 1;
}

// The embosser's own dot: an address, or on the Everest-D a millimetre line.
static void emboss(const SinkDot &d) {
  enter_plotter_mode();
  if (page_geom.printer == EVEREST_D) emit_everest_dot(d.dx, d.dy);
  else emit_dot_address(d.row, d.col);
}

// Whatever no other output took. A figure's dot is embossed in plotter mode
// without a map (in printer mode it belongs to the map, and is lost without
// one); a path end is a position only.
static int take_dot(const SinkDot &d, int taken) {
  if (taken) return 0;
  if (d.grid || (d.kind != PATH_END && !dmap.printer_mode && !dmap.in_use)) emboss(d);
  return 1;
}

static int take_move(const SinkDot &to, int taken) {
  if (taken) return 0;
  enter_plotter_mode();
  emit_move(to.row, to.col);
  return 1;
}

// The ESA600G has its own codes for the sizes, another set when mirrored.
// The code is sent at once only when the page is embossed as drawn.
static int take_size(int *code, int taken) {
  if (taken) return 0;
  if (page_geom.printer == ESA600G) {
    static const int plain[3] = {3, 1, 2}, mirrored[3] = {6, 4, 5};
    *code = xform.mirror_on ? mirrored[*code] : plain[*code];
  }
  if (run_state.run_mode == MODE_NORMAL && !dmap.in_use) send_dot_size(*code);
  return 1;
}

static int take_feed(int taken) {
  if (taken) return 0;
  send_form_feed();
  return 1;
}

static const Sink kEmbosserSink = {"embosser", RANK_EMBOSSER, take_dot, take_move, take_size, take_feed,
                                   send_map, nullptr};
[[maybe_unused]] static const int sink_listed = add_sink(&kEmbosserSink);

void begin_copy(FILE *out, int printer_mode) {
  embosser.out = out;
  if (printer_mode) {
    alloc_dmap();
    dmap.printer_mode = 1;
  }
  embosser.everest_setup_sent = 0;  // every copy starts with the set-up lines
  embosser.plotter_mode = 0;
}

void end_copy(int printer_mode) {
  if (printer_mode) {
    // The last page, unless the program's own feed has sent it already:
    // an empty sheet would only waste paper.
    if (dmap.has_dots && plot_state.feeds_suppressed) flush_page();
    else if (dmap.has_dots) page_feed(2);
    free_dmap();
    dmap.printer_mode = 0;
  }
  embosser.out = stdout;
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
