// commands.h - the command table: every command word with its significant
// letters, parameter reader, handler, echo formats and help line. The table
// drives matching, dispatch, the test/debug echoes and the help index.
#ifndef TACTO_INTERP_COMMANDS_H
#define TACTO_INTERP_COMMANDS_H

#include <cstdio>

// How a command's parameters are read (see readers.h).
enum Reader : int {
  R_NONE,   // no parameters read
  R_READP,  // `count` numbers
  R_READP2, // `count` numbers, then x y data lines up to 9999
  R_READP3, // `count` numbers, then a text
  R_READP4, // a file name, then `count` numbers
  R_READP5, // a file name
};

// Flags of a table row.
enum : int {
  F_SKIP_CONVERT = 1,  // in run mode 3 the echo is all: nothing is drawn
  F_NO_STEP = 2,       // in run mode 3 skipped without the after-command step
  F_NO_ECHO3 = 4,      // in run mode 3 not even echoed: it has no output there
};

struct Command;
typedef int (*Handler)(const Command &cmd);

struct Command {
  const char *word;      // the command word
  int sig;               // significant letters compared
  Reader reader;
  int count;             // numbers read
  Handler handler;       // does the work; reads run_state.param, ptr, fname0
  const char *echo_debug;    // run mode 1 echo (null: the handler echoes)
  const char *echo_test;     // run mode 2 echo
  const char *echo_convert;  // run mode 3 echo (null: echo_test)
  const char *conv;      // per parameter: x y position, X Y length, - as is
  int flags;
  const char *usage;     // the help file's head line for the command
};

extern const Command command_table[];
extern const int command_count;

// The first row whose significant letters match the word ignoring case, or null.
const Command *match_command(const char *word);

// Runs the command named by run_state.cname on run_state.ptr: match, read,
// echo, handle. `stream` is the program stream (data lines of readp2).
// Reports "unknown command"; returns the handler's result (0 on failure).
int dispatch(FILE *stream);

// Writes a row's echo for the current run mode (nothing in normal mode).
void echo_command(const Command &cmd);

#endif
