// ink.cpp - the ink-print state and its commands, the text commands
// alphanumeric and kanjikana, and the stroked lines, paths and axes that
// stand for dots when ink-print output is on.
#include "text/ink.h"

#include <cmath>
#include <vector>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "devices/postscript.h"
#include "draw/axes.h"
#include "geometry/page.h"
#include "geometry/transform.h"

InkState ink;
[[maybe_unused]] static const int reset_listed = add_reset(reset_ink);

const char *const font_table[12] = {"/Times-Roman", "/Helvetica", "/Courier", "/Symbol",
    "/Ryumin-Light-RKSJ-H", "/Ryumin-Light-RKSJ-v", "/GothicBBB-Medium-RKSJ-H", "/GothicBBB-Medium-RKSJ-V",
    "/Ryumin-Light-EUC-H", "/Ryumin-Light-EUC-v", "/GothicBBB-Medium-EUC-H", "/GothicBBB-Medium-EUC-V"};

// The console's colour numbering.
const char *const colour_names[16] = {"black", "blue", "green", "cyan", "red", "magenta", "brown", "light gray",
    "dark gray", "light blue", "light green", "light cyan", "light red", "light magenta", "yellow", "white"};

static const double *const P = run_state.param;

void reset_ink() {
  ink = InkState();
  ink.join = 1;
  ink.width = 1.0f;
  ink.esize = 24;
  ink.jsize = 18;
  ink.efont = 2;
  ink.jfont = 6;
}

void ink_document_closed() {
  ink.red = ink.green = ink.blue = 0.0f;
  ink.width = 0.0f;
}

int ink_active() { return ps.active && ps.ink_print && ps.file != nullptr; }

// A colour or width value as written: as set, but a value that is not a
// finite number (which PostScript could not read) as 0.
static double component(float v) { return std::isfinite(v) ? v : 0.0; }

// Width, colour or grey, and join: the state every stroke is written with.
static void write_stroke_state() {
  ps_printf("\n%.2f setlinewidth\n", component(ink.width));
  if (ink.use_rgb)
    ps_printf("%.2f %.2f %.2f setrgbcolor\n", component(ink.red), component(ink.green), component(ink.blue));
  else
    ps_printf("%.2f setgray\n", component(ink.gray));
  ps_printf("%d setlinejoin\n", ink.join);
}

// ---- strokes ----------------------------------------------------------------

// Liang-Barsky: cuts the segment to the rectangle; 0 when nothing is left.
static int clip_segment(double *x0, double *y0, double *x1, double *y1, double xmin, double xmax, double ymin,
                        double ymax) {
  double t0 = 0.0, t1 = 1.0;
  double dx = *x1 - *x0, dy = *y1 - *y0;
  const double p[4] = {-dx, dx, -dy, dy};
  const double q[4] = {*x0 - xmin, xmax - *x0, *y0 - ymin, ymax - *y0};
  for (int i = 0; i < 4; i++) {
    if (p[i] == 0.0) {
      if (q[i] < 0.0) return 0;
      continue;
    }
    double t = q[i] / p[i];
    if (p[i] < 0.0) {
      if (t > t1) return 0;
      if (t > t0) t0 = t;
    } else {
      if (t < t0) return 0;
      if (t < t1) t1 = t;
    }
  }
  double sx = *x0, sy = *y0;
  *x0 = sx + t0 * dx;
  *y0 = sy + t0 * dy;
  *x1 = sx + t1 * dx;
  *y1 = sy + t1 * dy;
  return 1;
}

void ink_line(double x0, double y0, double x1, double y1) {
  if (!ink_active()) return;
  if (!std::isfinite(x0) || !std::isfinite(y0) || !std::isfinite(x1) || !std::isfinite(y1)) return;
  transform_point(&x0, &y0);
  transform_point(&x1, &y1);
  // The part a row of dots would show: inside the window and the frame.
  const FloatRect &w = page_geom.w;
  const IntRect &f = page_geom.f;
  double xmin = std::fmax(w.x0, dot_to_world_x(f.x0)), xmax = std::fmin(w.x1, dot_to_world_x(f.x1));
  double ymin = std::fmax(w.y0, dot_to_world_y(f.y0)), ymax = std::fmin(w.y1, dot_to_world_y(f.y1));
  if (!clip_segment(&x0, &y0, &x1, &y1, xmin, xmax, ymin, ymax)) return;
  int px0, py0, px1, py1;
  ps_point_from_world(x0, y0, &px0, &py0);
  ps_point_from_world(x1, y1, &px1, &py1);
  ps_flush_page_start();
  ps_path_break();
  write_stroke_state();
  ps_printf("%d %d moveto\n", px0, py0);
  ps_printf("%d %d lineto\n", px1, py1);
  ps_printf("stroke\n");
}

// Starts a stroke at a page point.
static void start_path(int x, int y) {
  ps_path_end();
  write_stroke_state();
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

void ink_path(int x, int y, int kind) {
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

// One axis: the line from a to b and the ticks. `vertical` selects yaxis.
static void ink_axis(const double *p, int vertical) {
  if (!ink_active()) return;
  double ox = p[1], oy = p[2], a = p[3], b = p[4], unit = p[5], pitch = p[7];
  int tick = trunc_int(p[6]);
  for (int i = 1; i <= 7; i++)
    if (!std::isfinite(p[i])) return;
  if (!(unit > 0.0) || !(pitch > 0.0) || a == b) return;
  if (vertical) ink_line(ox, a, ox, b);
  else ink_line(a, oy, b, oy);
  if (tick == 0) return;

  double length_mm = std::fabs(static_cast<double>(tick)) * pitch;
  double length = vertical ? mm_to_dx(length_mm) : mm_to_dy(length_mm);
  if (tick < 0) length = -length;
  double origin = vertical ? oy : ox;
  double lo = std::fmin(a, b), hi = std::fmax(a, b);
  if (!xform.rotate_on && !xform.mirror_on) {
    // Ticks beyond the window would be cut away whole: do not count them.
    const FloatRect &w = page_geom.w;
    lo = std::fmax(lo, vertical ? w.y0 : w.x0);
    hi = std::fmin(hi, vertical ? w.y1 : w.x1);
    if (lo > hi) return;
  }
  double k0 = std::ceil((lo - origin) / unit - 1e-9);
  double k1 = std::floor((hi - origin) / unit + 1e-9);
  if (!std::isfinite(k0) || !std::isfinite(k1)) return;
  if (k1 - k0 >= AXIS_TICK_LIMIT) k1 = k0 + AXIS_TICK_LIMIT - 1;
  for (double k = k0; k <= k1; k += 1.0) {
    double at = origin + k * unit;
    if (vertical) ink_line(ox, at, ox + length, at);
    else ink_line(at, oy, at, oy + length);
  }
}

void ink_xaxis(const double *p) { ink_axis(p, 0); }

void ink_yaxis(const double *p) { ink_axis(p, 1); }

// ---- text -------------------------------------------------------------------

// span * (v - lo) / (hi - lo) + start, rounded; -1 outside [start, end).
static int band_point(double v, double lo, double hi, int start, int end) {
  if (hi == lo) return -1;
  int p = trunc_int((end - start) * (v - lo) / (hi - lo) + start + 0.5);
  return (p >= start && p < end) ? p : -1;
}

int ink_point_x(double wx) {
  PsBox b = ps_page_box();
  return band_point(wx, page_geom.w.x0, page_geom.w.x1, b.x0, b.x1);
}

int ink_point_y(double wy) {
  PsBox b = ps_page_box();
  return band_point(wy, page_geom.w.y0, page_geom.w.y1, b.y0, b.y1);
}

std::string ink_latin_string(const char *text) {
  std::string body;
  for (const char *c = text; *c != '\0' && *c != '\n'; c++) body += *c;
  // Parentheses that pair up stand as they are, which PostScript allows; a
  // stray one, and every backslash, is escaped so the string still ends.
  std::vector<char> escape(body.size(), 0);
  std::vector<size_t> open;
  for (size_t i = 0; i < body.size(); i++) {
    if (body[i] == '\\') {
      escape[i] = 1;
    } else if (body[i] == '(') {
      open.push_back(i);
    } else if (body[i] == ')') {
      if (open.empty()) escape[i] = 1;
      else open.pop_back();
    }
  }
  for (size_t i : open) escape[i] = 1;
  std::string out = "(";
  for (size_t i = 0; i < body.size(); i++) {
    if (escape[i]) out += '\\';
    out += body[i];
  }
  out += ")";
  return out;
}

std::string ink_kanji_string(const char *text) {
  const unsigned char *c = reinterpret_cast<const unsigned char *>(text);
  std::string out = "< ";
  char group[8];
  while (*c != '\0') {
    if (*c >= 128) {
      // A lead byte and its trail byte; a lead byte at the end stands alone.
      unsigned trail = c[1];
      snprintf(group, sizeof group, "%02x%02x ", *c, trail);
      c += trail != 0 ? 2 : 1;
    } else {
      snprintf(group, sizeof group, "00%02x ", *c);
      c++;
    }
    out += group;
  }
  out += ">";
  return out;
}

// alphanumeric and kanjikana: x, y and the text; the baseline lies 2 mm below y.
static int ink_text(int japanese) {
  double x = P[1], y = P[2];
  double base = y - mm_to_dy(2.0);
  const FloatRect &w = page_geom.w;
  if (!(x >= w.x0 && x <= w.x1)) {
    if (japanese) return put_errorf("illegal wx0 %.2f (%.2f-%.2f)", x, w.x0, w.x1);
    return put_errorf("out of range wx0 %.2f (%.2f-%.2f)", x, w.x0, w.x1);
  }
  if (!(base >= w.y0 && base <= w.y1)) {
    if (japanese) return put_errorf("illegal wy0 %.2f (%.2f-%.2f)", base, w.y0, w.y1);
    return put_errorf("out of range wy0 %.2f (%.2f-%.2f)", base, w.y0, w.y1);
  }
  int px = ink_point_x(x), py = ink_point_y(base);
  std::string text = japanese ? ink_kanji_string(run_state.ptr) : ink_latin_string(run_state.ptr);
  if (!ink_active()) return 1;
  ps_flush_page_start();
  ps_path_break();
  ps_printf("\n%.2f %.2f %.2f setrgbcolor\n", component(ink.red), component(ink.green), component(ink.blue));
  ps_printf("%.2f setgray\n", component(ink.gray));
  ps_printf("%.2f setlinewidth\n", component(ink.width));
  ps_printf("%s findfont\n", font_table[japanese ? ink.jfont : ink.efont]);
  ps_printf("%d scalefont setfont\n", japanese ? ink.jsize : ink.esize);
  ps_printf("%d %d moveto\n", px, py);
  ps_printf("%s show stroke\n", text.c_str());
  return 1;
}

int cmd_alphanumeric(const Command &) { return ink_text(0); }

int cmd_kanjikana(const Command &) { return ink_text(1); }

// ---- state commands ---------------------------------------------------------

int cmd_rgbcolor(const Command &) {
  ink.red = static_cast<float>(P[1]);
  ink.green = static_cast<float>(P[2]);
  ink.blue = static_cast<float>(P[3]);
  ink.use_rgb = 1;
  return 1;
}

int cmd_cmykcolor(const Command &) {
  ink.cyan = static_cast<float>(P[1]);
  ink.magenta = static_cast<float>(P[2]);
  ink.yellow = static_cast<float>(P[3]);
  ink.black = static_cast<float>(P[4]);
  return 1;
}

// An integer setting within lo-hi, or the error worded by `format` (which
// may show the value).
static int set_int(int *field, int lo, int hi, const char *format) {
  int n = trunc_int(P[1]);
  if (n < lo || n > hi) return put_errorf(format, n);
  *field = n;
  return 1;
}

// A fraction setting within 0.0-1.0, or the error `message`.
static int set_fraction(float *field, const char *message) {
  double v = P[1];
  if (!(v >= 0.0 && v <= 1.0)) return put_error(message);
  *field = static_cast<float>(v);
  return 1;
}

int cmd_cap(const Command &) { return set_int(&ink.cap, 0, 2, "cap must be 0, 1 or 2"); }

int cmd_join(const Command &) { return set_int(&ink.join, 0, 2, "join must be 0, 1 or 2"); }

int cmd_gray(const Command &) {
  if (!set_fraction(&ink.gray, "gray must be 0.0-1.0")) return 0;
  ink.use_rgb = 0;
  return 1;
}

int cmd_width(const Command &) { return set_fraction(&ink.width, "width must be 0.0-1.0"); }

int cmd_esize(const Command &) { return set_int(&ink.esize, 1, 100, "illegal European fontsize %d (1-100)"); }

int cmd_jsize(const Command &) { return set_int(&ink.jsize, 1, 100, "illegal Japanese font size %d (1-100)"); }

int cmd_efont(const Command &) { return set_int(&ink.efont, 0, 3, "illegal European font %d (0-3)"); }

int cmd_jfont(const Command &) { return set_int(&ink.jfont, 4, 11, "illegal Japanese font %d (4-11)"); }
