// curve_cmds.cpp - curve commands: function curves, splines, broken lines
// and box plots. The dispatcher has read the numbers (and the data list of
// the data curves); the handlers narrow them and hand them to the curve
// modules.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/run_state.h"
#include "curves/bwplot.h"
#include "curves/functions.h"
#include "curves/splines.h"
#include "geometry/page.h"
#include "geometry/transform.h"

int cmd_function_curve(const Command &cmd) {
  const CurveMember *m = find_curve(cmd.word);
  if (m == nullptr) return 0;
  float v[PARAM_SIZE];
  int count = curve_value_count(*m);
  for (int i = 0; i < count && i + 1 < PARAM_SIZE; i++) v[i] = fparam(i + 1);
  return plot_curve(*m, v, page_geom);
}

// The data list after `first` parameters: its count, at most a reader's worth.
static int pair_count(int first) {
  int n = iparam(first + 1);
  return n > MAX_PAIRS ? MAX_PAIRS : n;
}

// Copies the data pairs out of the parameter list.
static void data_points(int first, int n, double *xs, double *ys) {
  for (int k = 1; k <= n; k++) {
    xs[k - 1] = param(first + 2 * k);
    ys[k - 1] = param(first + 2 * k + 1);
  }
}

// The conversion mode's copy of the data list and its end mark.
static void convert_points(int first, int count) {
  for (int k = 1; k <= count; k++)
    echo("%s   %.3f %.3f\n", run_state.indent, world_to_grid_x(param(first + 2 * k)),
         world_to_grid_y(param(first + 2 * k + 1)));
  echo("%s   9999 0\n", run_state.indent);
}

// Debug and test runs list each point as the spline takes it in.
static void list_point(int k, double x, double y) { echo("%d (%.2f, %.2f)\n", k, x, y); }

int cmd_spline(const Command &) {
  const char *in = run_state.indent;
  int n = pair_count(8);
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      echo("%sspline %d %d %d %d %d %d %d %.3f //0 with %d points\n", in, world_to_dot_x(param(1)),
           world_to_dot_x(param(2)), world_to_dot_y(param(3)), world_to_dot_y(param(4)), iparam(5),
           trunc_int(param(6) * dots_per_unit_x()), trunc_int(param(7) * dots_per_unit_y()), param(8), n);
      break;
    case MODE_TEST:
      echo("%sspline %.3f %.3f %.3f %.3f %d %.3f %.3f %.3f //0 with %d points\n", in, param(1), param(2), param(3),
           param(4), iparam(5), param(6), param(7), param(8), n);
      break;
    case MODE_CONVERT:
      echo("%sspline %.3f %.3f %.3f %.3f %d %.3f %.3f %.3f\n", in, world_to_grid_x(param(1)),
           world_to_grid_x(param(2)), world_to_grid_y(param(3)), world_to_grid_y(param(4)), iparam(5),
           param(6) * dots_per_unit_x(), param(7) * dots_per_unit_y(), param(8));
      convert_points(8, n);
      return 1;
    default:
      break;
  }
  double xs[MAX_PAIRS], ys[MAX_PAIRS];
  if (n > 0) data_points(8, n, xs, ys);
  SplineArgs a;
  a.x0 = fparam(1);
  a.x1 = fparam(2);
  a.y0 = fparam(3);
  a.y1 = fparam(4);
  a.kind = iparam(5);
  a.dx = fparam(6);
  a.dy = fparam(7);
  a.pitch = fparam(8);
  return draw_spline(a, xs, ys, n, page_geom, run_state.run_mode == MODE_NORMAL ? nullptr : list_point);
}

int cmd_bline(const Command &) {
  int n = pair_count(1);
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      echo("%scline %.3f // with %d points\n", run_state.indent, param(1), n);
      break;
    case MODE_CONVERT:
      echo("%scline %.3f // with %d points\n", run_state.indent, param(1), n);
      convert_points(1, n);
      return 1;
    default:
      break;
  }
  double xs[MAX_PAIRS], ys[MAX_PAIRS];
  if (n > 0) data_points(1, n, xs, ys);
  return draw_bline(fparam(1), xs, ys, n);
}

int cmd_bwplot(const Command &) {
  return draw_bwplot(fparam(1), fparam(2), fparam(3), fparam(4), fparam(5), fparam(6), fparam(7), fparam(8),
                     fparam(9), fparam(10));
}
