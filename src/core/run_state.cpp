// run_state.cpp - the run state record, its start-up defaults and the echo.
#include "core/run_state.h"

#include <climits>
#include <cstdarg>
#include <cstring>

#include "core/process.h"

RunState run_state;

void reset_run_state() {
  run_state = RunState();
  run_state.max_errors = 10;
  run_state.language = 0;
  run_state.printer = 0;
  run_state.paper_size = 1;
  run_state.alarm = 1;
  run_state.output_target = 3;
  run_state.orientation = 1;
  run_state.run_mode = MODE_NORMAL;
  run_state.std_out = stdout;
  run_state.echo_out = stdout;
  run_state.saved_echo = stdout;
  run_state.prompt_help = run_state.prompt_log = run_state.prompt_test = 1;
  run_state.prompt_debug = run_state.prompt_console = 1;
  copy_text(run_state.fname, NAME_SIZE, "tacto");
  copy_text(run_state.cname, NAME_SIZE, "tacto");
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_run_state);

void copy_text(char *dst, int size, const char *src) {
  if (size <= 0) return;
  size_t n = strlen(src);
  if (n > static_cast<size_t>(size - 1)) n = size - 1;
  memmove(dst, src, n);
  dst[n] = '\0';
}

int trunc_int(double v) {
  if (!(v == v)) return 0;
  if (v >= 2147483647.0) return INT_MAX;
  if (v <= -2147483648.0) return INT_MIN;
  return static_cast<int>(v);
}

int echoing() {
  int m = run_state.run_mode;
  return m == MODE_DEBUG || m == MODE_TEST || m == MODE_CONVERT;
}

void echo(const char *format, ...) {
  va_list ap;
  va_start(ap, format);
  vfprintf(run_state.echo_out, format, ap);
  va_end(ap);
  fflush(run_state.echo_out);
}
