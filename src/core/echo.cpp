// echo.cpp - the echo stream.
#include "core/echo.h"

#include <cstdarg>

#include "core/run_state.h"

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
