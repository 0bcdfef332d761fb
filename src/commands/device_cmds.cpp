// device_cmds.cpp - output commands, the ink-print pen's among them.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "devices/bitmap.h"
#include "devices/embosser.h"
#include "devices/postscript.h"
#include "raster/dmap.h"

int cmd_begin(const Command &) {
  begin_job();
  return 1;
}

int cmd_end(const Command &) {
  end_job();
  return 1;
}

int cmd_printer(const Command &) {
  dmap.printer_mode = 1;
  return 1;
}

int cmd_plotter(const Command &) {
  dmap.printer_mode = 0;
  return 1;
}

int cmd_on_off(const Command &) {
  embosser.output_enabled = iparam(1);
  return 1;
}

int cmd_page(const Command &) {
  int n = iparam(1);
  if (n < 1) return put_errorf("illegal page number %d (1-)", n);
  // The next page of the document carries n: a page start already pending
  // writes the counter as it stands, otherwise the next feed counts it up.
  ps.page_counter = ps.page_start_pending ? n : n - 1;
  return 1;
}

// postscript FILE and inkprint FILE: a document already open is finished
// first; inside an image job the command is refused, as the job owns the
// output and a second document would take its dots.
static int open_document(int ink_print) {
  const char *name = run_state.fname0;
  if (ps.menu_job || bmp.active) return put_errorf("postscript is not available in an image job (%s)", name);
  if (ps.active) ps_close();
  return ps_open(name, ink_print, 0);
}

int cmd_postscript(const Command &) { return open_document(0); }

int cmd_inkprint(const Command &) { return open_document(1); }

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
