// device_cmds.cpp - output commands.
#include "devices/device_cmds.h"

#include "core/diag.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "devices/postscript.h"

static const double *const P = run_state.param;

int cmd_begin(const Command &) {
  begin_job();
  return 1;
}

int cmd_end(const Command &) {
  end_job();
  return 1;
}

int cmd_printer(const Command &) {
  embosser.printer_output = 1;
  return 1;
}

int cmd_plotter(const Command &) {
  embosser.printer_output = 0;
  return 1;
}

int cmd_on_off(const Command &) {
  embosser.output_enabled = trunc_int(P[1]);
  return 1;
}

int cmd_page(const Command &) {
  int n = trunc_int(P[1]);
  if (n < 1) {
    return put_errorf("illegal page number %d (1-)", n);
  }
  // The next page of the document carries n: a page start already pending
  // writes the counter as it stands, otherwise the next feed counts it up.
  ps.page_counter = ps.page_start_pending ? n : n - 1;
  return 1;
}

int cmd_postscript(const Command &) { return ps_command(run_state.fname0, 0); }

int cmd_inkprint(const Command &) { return ps_command(run_state.fname0, 1); }
