// command.h - what a command handler works with: the command table's row,
// how its parameters are read, its flags and conversion letters, the limits
// of the data lists, and the current command's parameters.
#ifndef TACTO_COMMANDS_COMMAND_H
#define TACTO_COMMANDS_COMMAND_H

#include "core/run_state.h"

// How a command's parameters are read (interp/readers.h).
enum Reader : int {
  R_NONE,   // no parameters read
  R_READP,  // `count` numbers
  R_READP2, // `count` numbers, then x y data lines up to DATA_END
  R_READP3, // `count` numbers, then a text
  R_READP4, // a file name, then `count` numbers
  R_READP5, // a file name
};

// Flags of a table row.
enum : int {
  F_SKIP_CONVERT = 1,   // in conversion mode the echo is all: nothing is drawn
  F_NO_STEP = 2,        // in conversion mode skipped without the after-command step
  F_NOT_CONVERTED = 4,  // in conversion mode not even echoed: it has no output there
  F_RAW_TEXT = 8,       // its text stays as written: no macro word, no assignment
  F_KEEP_WORD = 16,     // its command word is never replaced by a macro
  F_OWN_ASSIGNMENT = 32,  // an '=' in its line is its own (calc), not an assignment
};

// A data list ends at a line holding DATA_END; at most MAX_PAIRS pairs are kept.
enum : int { DATA_END = 9999, MAX_PAIRS = 62 };

struct Command;
typedef int (*Handler)(const Command &cmd);

// Conversion letters, one per parameter, say how the echoes show it: x and y
// a position along x or y (debug: the grid dot; conversion: the unrounded
// grid position), X and Y a length along x or y in dots, V a length along y
// in dots without its sign, and - the value as read. Test echoes show every
// value as read.
struct Command {
  const char *word;      // the command word
  int sig;               // significant letters compared
  Reader reader;
  int count;             // numbers read
  Handler handler;       // does the work; reads run_state.param, ptr, fname0
  const char *echo_debug;    // debug mode echo (null: the handler echoes)
  const char *echo_test;     // test mode echo
  const char *echo_convert;  // conversion mode echo (null: echo_test)
  const char *conv;      // conversion letters, one per parameter
  int flags;
  const char *usage;     // the help file's head line for the command
};

// Parameter i (from 1) of the current command: as read, in the single
// precision the figures work in, and as an int (trunc_int).
inline double param(int i) { return run_state.param[i]; }
inline float fparam(int i) { return static_cast<float>(run_state.param[i]); }
inline int iparam(int i) { return trunc_int(run_state.param[i]); }

#endif
