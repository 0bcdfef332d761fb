// nested.cpp - programs run from within a program: paste, rpaste and
// include, each on the window stack.
#include "interp/nested.h"

#include <string>

#include "core/diag.h"
#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "geometry/winstack.h"
#include "interp/reader.h"
#include "platform/platform.h"

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
  if (!push_win(stackwin.stream)) return put_errorf("stack can not be pushed. deep = %d", stackwin.depth);
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
