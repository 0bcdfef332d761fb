// commands.h - the command table: every command word with its significant
// letters, parameter reader, handler, echo formats and help line. The table
// drives matching, dispatch, the test/debug echoes and the help index.
#ifndef TACTO_INTERP_COMMANDS_H
#define TACTO_INTERP_COMMANDS_H

#include <cstdio>

#include "commands/command.h"

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
