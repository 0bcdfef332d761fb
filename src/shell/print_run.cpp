// print_run.cpp - the command line's --print.
#include "shell/print_run.h"

#include "core/run_state.h"
#include "devices/destination.h"
#include "devices/serial.h"
#include "menus/print_screen.h"

int print_run(const LongOptions &o, const char *program) {
  Destination d;
  parse_destination(o.print_default ? serial.port : o.print_to, serial, &d);
  // A job names its program as the menu's default; a command-line run leaves that alone.
  char saved[PROGRAM_FILE_SIZE];
  copy_text(saved, PROGRAM_FILE_SIZE, run_state.program_file);
  int ok = print_job(program, d, o.copies > 0 ? o.copies : 1, 0);
  copy_text(run_state.program_file, PROGRAM_FILE_SIZE, saved);
  return ok ? 0 : 1;
}
