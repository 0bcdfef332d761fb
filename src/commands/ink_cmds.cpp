// ink_cmds.cpp - the ink-print pen's commands and the ink-print text
// commands alphanumeric and kanjikana.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/diag.h"
#include "devices/inkprint.h"
#include "devices/postscript.h"
#include "geometry/page.h"

// alphanumeric and kanjikana: x, y and the text; the baseline lies 2 mm below
// y. The range checks hold whatever the output.
static int ink_text_command(int japanese) {
  double x = param(1), y = param(2);
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
  ink_text(x, base, run_state.ptr, japanese);
  return 1;
}

int cmd_alphanumeric(const Command &) { return ink_text_command(0); }

int cmd_kanjikana(const Command &) { return ink_text_command(1); }

int cmd_rgbcolor(const Command &) {
  ink.red = fparam(1);
  ink.green = fparam(2);
  ink.blue = fparam(3);
  ink.use_rgb = 1;
  return 1;
}

int cmd_cmykcolor(const Command &) {
  ink.cyan = fparam(1);
  ink.magenta = fparam(2);
  ink.yellow = fparam(3);
  ink.black = fparam(4);
  return 1;
}

// An integer setting within lo-hi, or the error worded by `format` (which
// may show the value).
static int set_int(int *field, int lo, int hi, const char *format) {
  int n = iparam(1);
  if (n < lo || n > hi) return put_errorf(format, n);
  *field = n;
  return 1;
}

// A fraction setting within 0.0-1.0, or the error `message`.
static int set_fraction(float *field, const char *message) {
  double v = param(1);
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
