// print_run.h - the command line's --print: the program embossed to a
// destination, as the menu's Print item does, with nothing on standard output.
#ifndef TACTO_SHELL_PRINT_RUN_H
#define TACTO_SHELL_PRINT_RUN_H

#include "shell/options.h"

// Embosses the program file `o.copies` times (once when not given) in
// plotter mode to `o.print_to`, or to the saved destination with
// `o.print_default`. The settings stay as they were. Returns the exit
// status: 0 when every copy reached the destination, 1 otherwise.
int print_run(const LongOptions &o, const char *program);

#endif
