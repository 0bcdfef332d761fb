// diag.h - how faults are reported: numbered errors and warnings naming the
// program, line and command; the quit request; the log list and error list.
#ifndef TACTO_CORE_DIAG_H
#define TACTO_CORE_DIAG_H

#include <cstdio>

// The two listing files a program can open.
struct DiagLists {
  FILE *log_file;    // the log list (a transcript of a test run)
  FILE *error_file;  // the error list
};
extern DiagLists diag_lists;

// The alarm: one tone of `frequency` per step of 50 from 50 below `duration`,
// so (880, 200) sounds three times and (1760, 50) never. Honours `alarm`.
void beep(int frequency, int duration);

// Counts, shows, beeps and lists an error. Returns 0 so callers can
// `return put_error(...)`.
int put_error(const char *text);

// Counts, shows, lists and beeps a warning. Returns 0.
int put_warning(const char *text);

// put_error and put_warning of a message composed with a printf format into
// run_state.msg, cut to its 95 bytes. Return 0.
int put_errorf(const char *format, ...) __attribute__((format(printf, 1, 2)));
int put_warningf(const char *format, ...) __attribute__((format(printf, 1, 2)));

// Beeps, prompts "   quit %d, press any key ? ", waits for a key and sets
// the quit request; the process itself goes on.
void quit_job(int code);

// Prints "\n   press any key ? " style prompts and waits for a key.
void press_any_key(const char *prompt);

// Log list: 1 opens the file named by fname0, 2 closes with the summary.
int log_list(int op);

// Error list: 1 opens the file named by fname0, 2 closes with the summary.
int error_list(int op);

#endif
