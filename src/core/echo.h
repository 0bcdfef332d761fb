// echo.h - the echo lines of the trace and conversion modes: commands, dots
// and moves as the run sees them, written to run_state.echo_out.
#ifndef TACTO_CORE_ECHO_H
#define TACTO_CORE_ECHO_H

// 1 in the run modes that echo (debug, test, conversion).
int echoing();

// Writes an echo line to echo_out (printf format).
void echo(const char *format, ...) __attribute__((format(printf, 1, 2)));

#endif
