// postscript.cpp - the PostScript writer: header and trailer of the menu
// job and of the script commands, pages, the landscape turn, the mapping of
// world points and dot-map cells onto the page box, the dot circles, and in
// ink print the pen and the strokes that plot_dot's path codes make.
#include "devices/postscript.h"

#include <climits>
#include <cmath>
#include <cstdarg>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "platform/platform.h"
#include "raster/dmap.h"
#include "raster/sink.h"

PsState ps;
InkState ink;

static void reset_postscript() {
  if (ps.file != nullptr) fclose(ps.file);
  ps = PsState();
}

static void reset_ink() {
  ink = InkState();
  ink.join = 1;
  ink.width = 1.0f;
  ink.esize = 24;
  ink.jsize = 18;
  ink.efont = 2;
  ink.jfont = 6;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_postscript) + add_reset(reset_ink);

int ink_active() { return ps.active && ps.ink_print && ps.file != nullptr; }

void ps_printf(const char *format, ...) {
  if (ps.file == nullptr) return;
  va_list ap;
  va_start(ap, format);
  vfprintf(ps.file, format, ap);
  va_end(ap);
}

void ps_path_break() {
  if (!ps.path_written) return;
  ps_printf("stroke\n");
  ps.path_written = 0;
}

// Strokes and ends an open ink-print stroke.
static void ps_path_end() {
  ps_path_break();
  ps.path_open = 0;
}

// A colour or width value as written: as set, but a value that is not a
// finite number (which PostScript could not read) as 0.
double ink_value(float v) { return std::isfinite(v) ? v : 0.0; }

void ps_stroke_state() {
  ps_printf("\n%.2f setlinewidth\n", ink_value(ink.width));
  if (ink.use_rgb)
    ps_printf("%.2f %.2f %.2f setrgbcolor\n", ink_value(ink.red), ink_value(ink.green), ink_value(ink.blue));
  else
    ps_printf("%.2f setgray\n", ink_value(ink.gray));
  ps_printf("%d setlinejoin\n", ink.join);
}

// Starts a stroke at a page point.
static void start_path(int x, int y) {
  ps_path_end();
  ps_stroke_state();
  ps_printf("%d setlinecap\n", ink.cap);
  ps_printf("%d %d moveto\n", x, y);
  ps.path_open = 1;
  ps.path_written = 1;
  ps.path_x = x;
  ps.path_y = y;
}

// Draws the stroke on to a page point; after a break it picks up at its last point.
static void extend_path(int x, int y) {
  if (!ps.path_written) {
    ps_printf("%d %d moveto\n", ps.path_x, ps.path_y);
    ps.path_written = 1;
  }
  ps_printf("%d %d lineto\n", x, y);
  ps.path_x = x;
  ps.path_y = y;
}

// A stroke of plot_dot's path codes at a page point: 1 starts it, 2 extends
// it, 3 ends and strokes it. A 2 without a start starts one.
static void ink_path(int x, int y, int kind) {
  if (!ink_active()) return;
  switch (kind) {
    case 1:
      start_path(x, y);
      break;
    case 2:
      if (ps.path_open) extend_path(x, y);
      else start_path(x, y);  // its start fell outside the window
      break;
    case 3:
      if (!ps.path_open) break;
      extend_path(x, y);
      ps_path_end();
      break;
    default:
      break;
  }
}

// The header. The menu job and the script commands differ in the title's
// capital and in the gsave that the menu job's trailer undoes.
static void write_header(int ink_print, int menu_job) {
  ps_printf("%%!PS-Adobe-3.0\n");
  ps_printf("%%%%Creator: Tacto\n");
  if (ink_print) ps_printf("%%%%Title: inkprint graphics\n");
  else if (menu_job) ps_printf("%%%%Title: Tactile graphics\n");
  else ps_printf("%%%%Title: tactile graphics\n");
  ps_printf("%%%%CreationDate: %s\n", local_time_text().c_str());
  ps_printf("%%%%Pages: (atend)\n");
  ps_printf("%%%%DocumentFonts: (atend)\n");
  ps_printf("%%%%BoundingBox: 0 0 596 842\n");
  ps_printf("%%%%DocumentPaperSize: a4\n");
  ps_printf("%%%%EndComments\n");
  ps_printf("%%%%Page: 1 1\n");
  if (menu_job) ps_printf("gsave\n");
  ps_printf("newpath\n\n");
  ps_printf("1 setlinewidth\n");
}

int ps_open(const char *name, int ink_print, int menu_job) {
  if (ps.file != nullptr) ps_close();  // one document at a time
  FILE *f = fopen(name, "w");
  if (f == nullptr) {
    if (menu_job) put_errorf("postscript file (%s) was not open", name);
    else put_errorf("not open a postscript file (%s)", name);
    press_any_key("   press any key ? ");
    return 0;
  }
  ps = PsState();
  ps.file = f;
  write_header(ink_print, menu_job);
  ps.active = 1;
  ps.ink_print = ink_print ? 1 : 0;
  ps.menu_job = menu_job ? 1 : 0;
  ps.page_counter = 1;
  ps.page_start_pending = 0;
  return 1;
}

void ps_close() {
  if (ps.file == nullptr) {
    ps.active = 0;
    return;
  }
  ps_path_end();
  if (ps.menu_job) {
    // The menu job counts the page started by its last feed, which is empty.
    ps_printf("\ngrestore\n");
    ps_printf("showpage clear\n");
    ps_printf("%%%%Trailer\n");
    ps_printf("%%%%Pages: %d\n", ps.page_counter - 1);
  } else {
    ps_printf("\nshowpage clear\n");
    ps_printf("%%%%Trailer\n");
    ps_printf("%%%%Pages: %d\n", ps.page_counter);
  }
  ps_printf("%%%%DocumentFonts: Times\n");
  ps_printf("%%%%EOF\n");
  int failed = ferror(ps.file);
  if (fclose(ps.file) != 0 || failed) put_error("postscript file was not written completely");
  ps.file = nullptr;
  ps.active = 0;
  ps.ink_print = 0;
  ps.menu_job = 0;
  ps.page_start_pending = 0;
  // Closing a document resets the pen's colour and width to 0.
  ink.red = ink.green = ink.blue = 0.0f;
  ink.width = 0.0f;
}

void ps_flush_page_start() {
  if (!ps.active || !ps.page_start_pending) return;
  ps_path_end();
  ps_printf("showpage\n");
  ps_printf("%%%%Page: %d %d\n", ps.page_counter, ps.page_counter);
  ps.page_start_pending = 0;
  // showpage puts the page upright again; a landscape sheet stays turned.
  if (!page_geom.portrait) {
    ps_printf("596 0 translate\n");
    ps_printf("90 rotate\n");
  }
}

void ps_turn_page() {
  if (!ps.active) return;
  ps_path_end();
  ps_printf("596 0 translate\n");
  ps_printf("90 rotate\n");
}

void ps_flush() {
  if (!ps.active) return;
  // A stroke never runs on into the next command.
  ps_path_end();
  if (ps.file != nullptr) fflush(ps.file);
}

PsBox ps_page_box() {
  if (page_geom.portrait) return PsBox{4, 590, 65, 775};
  return PsBox{65, 775, 4, 590};
}

// span * (v - lo) / (hi - lo) + start, rounded by +0.5 and truncated.
static int scale_point(double v, double lo, double hi, int start, int end) {
  if (hi == lo) return start;
  return trunc_int((end - start) * (v - lo) / (hi - lo) + start + 0.5);
}

void ps_point_from_world(double wx, double wy, int *x, int *y) {
  PsBox b = ps_page_box();
  const FloatRect &w = page_geom.w;
  *x = scale_point(wx, w.x0, w.x1, b.x0, b.x1);
  *y = scale_point(wy, w.y0, w.y1, b.y0, b.y1);
}

void ps_point_from_dot(int row, int col, int *x, int *y) {
  const IntRect &p = page_geom.p;
  int u, v;
  if (page_geom.portrait) {
    u = col;
    v = p.y1 - row;
  } else {
    u = p.x1 - row;
    v = p.y1 - col;
  }
  PsBox b = ps_page_box();
  *x = scale_point(u, p.x0, p.x1, b.x0, b.x1);
  *y = scale_point(v, p.y0, p.y1, b.y0, b.y1);
}

void ps_plot(double wx, double wy, int kind, int size) {
  if (!ps.active) return;
  int x, y;
  ps_point_from_world(wx, wy, &x, &y);
  int r = size + 1;
  if (!ps.ink_print) {
    if (xform.mirror_on) ps_printf("%d %d %d 0 360 arc stroke\n", x, y, r);
    else if (kind != PATH_END) ps_printf("%d %d %d 0 360 arc fill stroke\n", x, y, r);
    return;
  }
  if (kind >= PATH_START && kind <= PATH_END) {
    ink_path(x, y, kind);
  } else if (kind >= 4) {
    // Kinds 4 and above are dots in ink print too; a plain dot (0) is
    // tactile only and leaves the ink-print copy alone.
    ps_path_break();
    ps_printf("\n%d %d %d 0 360 arc fill stroke\n", x, y, r);
  }
  if (xform.mirror_on) {
    ps_path_break();
    ps_printf("\n%d %d %d 0 360 arc stroke\n", x, y, r);
  }
}

void ps_dot(int row, int col, int size) {
  if (!ps.active) return;
  if (size < 0) size = 0;
  if (size > 2) size = 2;
  int x, y;
  ps_point_from_dot(row, col, &x, &y);
  ps_path_break();
  if (xform.mirror_on) ps_printf("%d %d %d 0 360 arc stroke\n", x, y, size + 1);
  else ps_printf("%d %d %d 0 360 arc fill stroke\n", x, y, size + 1);
}

void ps_next_page() {
  if (ps.page_counter < INT_MAX) ps.page_counter++;  // `page` may have set it very high
  ps.page_start_pending = 1;
}

// PostScript as an output: it takes every dot while a document is open.
// The first dot of a page writes the pending page start. While a dot map is
// in use (the image job's printer mode) the dots of figures go into it, to
// be sent as circles at the page end, and a Braille cell's dot goes on down
// the sinks.
static int take_dot(const SinkDot &d, int taken) {
  if (taken || !ps.active) return 0;
  if (d.grid) {
    if (dmap.in_use) return 0;
    // A pending page start is written instead of the dot.
    if (ps.page_start_pending) ps_flush_page_start();
    else ps_dot(d.row, d.col, 1);
    return 1;
  }
  ps_flush_page_start();
  if (dmap.in_use) {
    put_dot(d.row, d.col, d.size);
    return 1;
  }
  leave_plotter_mode();
  ps_plot(d.wx, d.wy, d.kind, d.size);
  return 1;
}

// Moves and sizes are taken and leave no trace in the document.
static int take_quietly(const SinkDot &, int taken) { return !taken && ps.active; }

static int take_size(int *, int taken) { return !taken && ps.active; }

static int take_feed(int taken) {
  if (taken || !ps.active) return 0;
  ps_next_page();
  return 1;
}

static int send_map(int taken) {
  if (taken || !ps.active) return 0;
  each_map_dot(ps_dot);
  return 1;
}

static int drawing() { return ps.active; }

static const Sink kPostScriptSink = {"PostScript", RANK_POSTSCRIPT, take_dot, take_quietly, take_size, take_feed,
                                     send_map, drawing};
[[maybe_unused]] static const int sink_listed = add_sink(&kPostScriptSink);
