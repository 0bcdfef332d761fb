// reader.h - runs one plotting program: reads it line by line, keeps the
// indentation for the echoes, handles comments and comment blocks, macro
// substitution of the command word and assignments, and dispatches.
#ifndef TACTO_INTERP_READER_H
#define TACTO_INTERP_READER_H

#include <cstdio>

// Runs the program on `stream` until its end, `bye`, `quit`, the error
// limit or a quit request. Re-entrant: nested programs call it again.
// Returns 1.
int interpret(FILE *stream);

// Prints the prompt of the current activity on the error stream and steps
// its counter. Returns 1.
int line_prefix();

// Reads one program line into `buf` with the 95-byte limit (at most 94
// characters; a longer line continues as the next). 0 at end of input.
int read_line(FILE *stream, char *buf);

#endif
