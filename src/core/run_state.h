// run_state.h - the process-wide record of modes, counters, streams and the
// shared work buffers that every subsystem reads; the echo lines of the trace
// and conversion modes.
#ifndef TACTO_CORE_RUN_STATE_H
#define TACTO_CORE_RUN_STATE_H

#include <cstdio>

#define TACTO_VERSION "11.20"

// Capacities of the shared work buffers.
enum : int {
  MSG_SIZE = 95,     // msg: the message being composed
  NAME_SIZE = 95,    // fname, cname, fname0
  LINE_SIZE = 255,   // s, ptr, command
  PARAM_SIZE = 138,  // param: numbers of the current command, from index 1
  PROGRAM_FILE_SIZE = 190,
};

// Run modes.
enum : int {
  MODE_NORMAL = 0,
  MODE_DEBUG = 1,
  MODE_TEST = 2,
  MODE_CONVERT = 3,  // exchange-file conversion of the print screen
};

struct RunState {
  // Persisted in the settings block of the system file.
  int max_errors;    // errors after which the reporter stops beeping (10)
  int language;      // 0 English, 1 Japanese
  int printer;       // 0 ESA721, 1 ESA600G, 2 Everest-D
  int paper_size;    // paper index 0-9
  int alarm;         // 0 none, 1 on command and error, 2 on error only
  int output_target; // setup menu's output target (default 3)
  char program_file[PROGRAM_FILE_SIZE]; // default program for the menus

  int orientation;     // 1 portrait, 0 landscape
  int run_mode;        // MODE_*
  int echo_to_console; // test/debug echo to the error stream
  FILE *std_out;       // standard output (tests replace it)
  FILE *echo_out;      // where echo lines and summaries go
  FILE *saved_echo;    // echo_out saved by log/test/debug
  int error_count;
  int warning_count;
  int line_number;
  int comment_depth;
  int quit_requested;
  int console_input;   // the program is read from standard input
  int in_console, in_print, in_help;
  int help_open;
  int log_on, errlist_on;
  int step_mode;       // wait for a key after every command
  int leave_requested; // `bye` was read: the reader ends or leaves test/debug
  int run_aborted;     // the error limit ended this run ("over max" shown)
  FILE *print_out;     // the print run's output while one is under way

  // Shared work buffers.
  char msg[MSG_SIZE];
  char fname[NAME_SIZE];
  char cname[NAME_SIZE];
  char s[LINE_SIZE];
  char ptr[LINE_SIZE];
  char fname0[NAME_SIZE];
  char command[LINE_SIZE];
  double param[PARAM_SIZE];

  // Reader state shared with the echoes.
  char indent[LINE_SIZE];     // blanks removed from the current line
  char line_copy[LINE_SIZE];  // the line as read
  int prompt_help, prompt_log, prompt_test, prompt_debug, prompt_console;
};
extern RunState run_state;

// Restores every field to its start-up default; echo_out becomes stdout.
void reset_run_state();

// Copies text into a fixed buffer, cutting it to fit.
void copy_text(char *dst, int size, const char *src);

// Truncates toward zero like a C cast, but never overflows: NaN gives 0 and
// values beyond the int range give its ends.
int trunc_int(double v);

// 1 in the run modes that echo (debug, test, conversion).
int echoing();

// Writes an echo line to echo_out (printf format).
void echo(const char *format, ...) __attribute__((format(printf, 1, 2)));

#endif
