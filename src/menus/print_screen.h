// print_screen.h - the menu's Print item: runs a whole program as a print
// job, once per copy, to the embosser through its serial port, to a file,
// or as an exchange file of converted command lines.
#ifndef TACTO_MENUS_PRINT_SCREEN_H
#define TACTO_MENUS_PRINT_SCREEN_H

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

// Prints a program `copies` times into `output` (a file name; with
// TO_PRINTER a temporary file copied to the serial port after each copy).
// 1 when every copy was made, 0 after a reported failure.
int print_program(const char *program, const char *output, int copies, int printer_mode, int target);

#endif
