// winstack.cpp - push_win and pop_win.
#include "geometry/winstack.h"

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "geometry/transform.h"

WinStack stackwin;

static void reset_winstack() {
  stackwin = WinStack();
  stackwin.depth = STACK_BASE;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_winstack);

// The current state into a record.
static void save_into(WinRecord &r, FILE *stream) {
  r.program_stream = stream;
  copy_text(r.program_name, sizeof r.program_name, run_state.fname);
  r.p = page_geom.p;
  r.f = page_geom.f;
  r.w = page_geom.w;
  r.line_number = run_state.line_number;
  r.rotate_on = xform.rotate_on;
  r.rotate_saved = xform.rotate_saved;
  r.rotate_cx = xform.rotate_cx;
  r.rotate_cy = xform.rotate_cy;
  r.rotate_angle = xform.rotate_angle;
  r.mirror_on = xform.mirror_on;
  r.mirror_shift = xform.mirror_shift;
}

void winstack_set_top(FILE *stream, const char *name) {
  stackwin.depth = STACK_BASE;
  stackwin.stream = stream;
  save_into(stackwin.rec[STACK_BASE], stream);
  copy_text(stackwin.rec[STACK_BASE].program_name, sizeof stackwin.rec[STACK_BASE].program_name, name);
}

int push_win(FILE *stream) {
  if (stackwin.depth < STACK_BASE || stackwin.depth >= STACK_LIMIT) {
    return put_errorf("push_win overflow deep = %d", stackwin.depth);
  }
  stackwin.depth++;
  save_into(stackwin.rec[stackwin.depth], stream);
  return 1;
}

int pop_win() {
  // The record pushed last sits at the limit itself, so popping is allowed
  // there too: twenty-three nested programs all restore their callers.
  if (stackwin.depth < STACK_BASE || stackwin.depth > STACK_LIMIT) {
    return put_errorf("pop_win underflow deep = %d", stackwin.depth);
  }
  const WinRecord &r = stackwin.rec[stackwin.depth];
  stackwin.stream = r.program_stream;
  copy_text(run_state.fname, NAME_SIZE, r.program_name);
  page_geom.p = r.p;
  page_geom.f = r.f;
  page_geom.w = r.w;
  run_state.line_number = r.line_number;
  xform.rotate_on = r.rotate_on;
  xform.rotate_saved = r.rotate_saved;
  xform.rotate_cx = r.rotate_cx;
  xform.rotate_cy = r.rotate_cy;
  xform.rotate_angle = r.rotate_angle;
  xform.mirror_on = r.mirror_on;
  xform.mirror_shift = r.mirror_shift;
  stackwin.depth--;
  return 1;
}
