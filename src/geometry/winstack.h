// winstack.h - the window stack behind nested programs: the caller's
// geometry, rotation, mirroring and reading position, saved before another
// program runs (interp/nested) and restored afterwards.
#ifndef TACTO_GEOMETRY_WINSTACK_H
#define TACTO_GEOMETRY_WINSTACK_H

#include <cstdio>

#include "geometry/page.h"

enum : int {
  STACK_BASE = 5,    // depth of the top-level program
  STACK_LIMIT = 28,  // push refused from here on: 23 records at most
};

struct WinRecord {
  FILE *program_stream;
  char program_name[96];
  IntRect p, f;
  FloatRect w;
  int line_number;
  int rotate_on, rotate_saved;
  float rotate_cx, rotate_cy, rotate_angle;
  int mirror_on;
  float mirror_shift;
};

struct WinStack {
  WinRecord rec[STACK_LIMIT + 1];
  int depth;
  FILE *stream;  // the program being read now
};
extern WinStack stackwin;

// Makes a top-level program current (record 5, depth 5).
void winstack_set_top(FILE *stream, const char *name);

// Saves the current state; 0 with "push_win overflow deep = %d".
int push_win(FILE *stream);

// Restores the state of the current depth; 0 with "pop_win underflow deep = %d".
int pop_win();

#endif
