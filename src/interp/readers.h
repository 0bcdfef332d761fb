// readers.h - the parameter readers: every command's numbers, texts and file
// names come from the parameter text through these, after macro
// substitution and evaluation of each word as an expression.
#ifndef TACTO_INTERP_READERS_H
#define TACTO_INTERP_READERS_H

#include <cstdio>

// n numbers into param[1..n]; "readp illegal param %d in %d" on failure.
int readp(const char *text, int n);

// n numbers, then x y data lines from `stream` up to 9999; param[n + 1] gets
// the pair count, pair k lands at param[n + 2k], param[n + 2k + 1].
int readp2(const char *text, int n, FILE *stream);

// n numbers, then the raw text after the second blank into ptr.
int readp3(const char *text, int n);

// A file name into fname0, then n numbers.
int readp4(const char *text, int n);

// The whole text as a file name into fname0.
int readp5(const char *text);

#endif
