// help.h - the help browser: looks up command descriptions in the help file
// beside the program. Entries are unindented head lines followed by lines
// that begin with two blanks; the "menu" entry lists the commands.
#ifndef TACTO_INTERP_HELP_H
#define TACTO_INTERP_HELP_H

#include <cstdio>

enum : int { HELP_PATH_SIZE = 751 };  // as the settings file stores it

struct HelpState {
  char path[HELP_PATH_SIZE];  // the help file, set at start-up beside the program
  FILE *out;    // help output: the log list when open, else the error stream
  int queries;  // queries read in this visit
  int errors;   // unknown queries in this visit
};
extern HelpState help_state;

// 1 when the help file can be opened.
int help_file_usable();

// Reads queries from `stream` until its end, `bye` or `quit`. Returns 1.
int help_browser(FILE *stream);

#endif
