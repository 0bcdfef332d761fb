// device_cmds.cpp - output commands.
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
