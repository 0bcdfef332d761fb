// winstack.cpp - push_win, pop_win and the nested program runs.
#include "geometry/winstack.h"

#include <string>

#include "core/diag.h"
#include "core/echo.h"
#include "core/process.h"
#include "core/run_state.h"
#include "geometry/transform.h"
#include "interp/reader.h"
#include "platform/platform.h"

WinStack stackwin;
[[maybe_unused]] static const int reset_listed = add_reset(reset_winstack);

void reset_winstack() {
  stackwin = WinStack();
  stackwin.depth = STACK_BASE;
}

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

// A name without a directory is looked for beside the current program.
static std::string resolve(const char *file) {
  std::string name = file;
  if (name.find('/') != std::string::npos) return name;
  return path_dir(run_state.fname) + name;
}

// The shared steps of paste and rpaste; `angle` is used when `rotated`.
static int run_nested(const char *file, double ox, double oy, double bias_x, double bias_y, int rotated,
                      double angle) {
  copy_text(run_state.cname, NAME_SIZE, "paste");
  std::string path = resolve(file);
  if (!check_bias(bias_x, bias_y)) return 0;
  if (!push_win(stackwin.stream)) {
    return put_errorf("stack can not be pushed. deep = %d", stackwin.depth);
  }
  const FloatRect w = page_geom.w;
  const IntRect f = page_geom.f;
  if (!set_frame(f.x0, f.x1, f.y0, f.y1, (w.x0 - ox) / bias_x, (w.x1 - ox) / bias_x, (w.y0 - oy) / bias_y,
                 (w.y1 - oy) / bias_y)) {
    pop_win();
    return 0;
  }
  const FloatRect &nw = page_geom.w;
  if (rotated && run_state.run_mode == MODE_CONVERT)
    echo("%d %d %d %d %.3f %.3f %.3f %.3f\n", f.x0, f.x1, f.y0, f.y1, nw.x0, nw.x1, nw.y0, nw.y1);
  FILE *in = fopen(path.c_str(), "r");
  if (in == nullptr) {
    put_errorf(rotated ? "paste file %s can not open." : "paste %s can not open.", path.c_str());
    pop_win();
    return 0;
  }
  copy_text(run_state.fname, NAME_SIZE, path.c_str());
  run_state.line_number = 0;
  stackwin.stream = in;
  if (rotated) set_rotate(1, ox, oy, angle);
  interpret(in);
  if (rotated) set_rotate(0, 0, 0, 0);
  if (fclose(in) != 0 && !rotated) {
    fputs("fclose errer \n", stderr);
    get_key();
    return 0;
  }
  pop_win();
  if (rotated && run_state.run_mode == MODE_CONVERT) {
    const FloatRect &cw = page_geom.w;
    const IntRect &cf = page_geom.f;
    echo("%d %d %d %d %.3f %.3f %.3f %.3f\n", cf.x0, cf.x1, cf.y0, cf.y1, cw.x0, cw.x1, cw.y0, cw.y1);
  }
  return 1;
}

int paste(const char *file, double ox, double oy, double bias_x, double bias_y) {
  return run_nested(file, ox, oy, bias_x, bias_y, 0, 0.0);
}

int rpaste(const char *file, double ox, double oy, double bias_x, double bias_y, double angle) {
  return run_nested(file, ox, oy, bias_x, bias_y, 1, angle);
}
