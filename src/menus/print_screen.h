// print_screen.h - the menu's Print item: runs a whole program as a print
// job, once per copy, to the embosser's destination (a serial port, a
// device, a socket or a CUPS queue), to a file, or as an exchange file of
// converted command lines. The command line's --print runs the same job.
#ifndef TACTO_MENUS_PRINT_SCREEN_H
#define TACTO_MENUS_PRINT_SCREEN_H

#include "devices/destination.h"

// Where a print job's output goes.
enum : int { TO_PRINTER = 0, TO_FILE = 1, TO_EXCHANGE = 2 };

// The answers the screen remembers for the whole run.
struct PrintScreen {
  int copies;        // 0 until a count was given
  int printer_mode;  // 0 plotter mode, 1 printer mode (pages from the dot map)
  int output;        // TO_PRINTER, TO_FILE or TO_EXCHANGE
};
extern PrintScreen print_screen_state;

// The screen: asks for the program, the mode, the copies and the output,
// confirms, and prints. Returns 1 to the menu (also after a refusal).
int print_screen();

// Embosses a program `copies` times to `d`: each copy is made in a temporary
// file and delivered titled with the program's file name, and "copy N: sent
// to LABEL" (with the CUPS job number) follows on the error stream. 1 when
// every copy reached the destination; 0 after the first failure's error.
// Waits for no key.
int print_job(const char *program, const Destination &d, int copies, int printer_mode);

#endif
