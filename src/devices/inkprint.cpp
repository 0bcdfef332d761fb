// inkprint.cpp - what ink print writes instead of dots: stroked segments cut
// to the window and frame, and text in the pen's colour and font.
#include "devices/inkprint.h"

#include <cmath>
#include <vector>

#include "core/run_state.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/transform.h"

static const char *const font_table[12] = {"/Times-Roman", "/Helvetica", "/Courier", "/Symbol",
    "/Ryumin-Light-RKSJ-H", "/Ryumin-Light-RKSJ-v", "/GothicBBB-Medium-RKSJ-H", "/GothicBBB-Medium-RKSJ-V",
    "/Ryumin-Light-EUC-H", "/Ryumin-Light-EUC-v", "/GothicBBB-Medium-EUC-H", "/GothicBBB-Medium-EUC-V"};

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
  ps_stroke_state();
  ps_printf("%d %d moveto\n", px0, py0);
  ps_printf("%d %d lineto\n", px1, py1);
  ps_printf("stroke\n");
}

// span * (v - lo) / (hi - lo) + start, rounded; -1 outside [start, end).
static int band_point(double v, double lo, double hi, int start, int end) {
  if (hi == lo) return -1;
  int p = trunc_int((end - start) * (v - lo) / (hi - lo) + start + 0.5);
  return (p >= start && p < end) ? p : -1;
}

// Page points of the ink-print text: the point in the printable band of the
// orientation, or -1 outside it.
static int ink_point_x(double wx) {
  PsBox b = ps_page_box();
  return band_point(wx, page_geom.w.x0, page_geom.w.x1, b.x0, b.x1);
}

static int ink_point_y(double wy) {
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

void ink_text(double x, double base, const char *text, int japanese) {
  int px = ink_point_x(x), py = ink_point_y(base);
  std::string shown = japanese ? ink_kanji_string(text) : ink_latin_string(text);
  if (!ink_active()) return;
  ps_flush_page_start();
  ps_path_break();
  ps_printf("\n%.2f %.2f %.2f setrgbcolor\n", ink_value(ink.red), ink_value(ink.green), ink_value(ink.blue));
  ps_printf("%.2f setgray\n", ink_value(ink.gray));
  ps_printf("%.2f setlinewidth\n", ink_value(ink.width));
  ps_printf("%s findfont\n", font_table[japanese ? ink.jfont : ink.efont]);
  ps_printf("%d scalefont setfont\n", japanese ? ink.jsize : ink.esize);
  ps_printf("%d %d moveto\n", px, py);
  ps_printf("%s show stroke\n", shown.c_str());
}
