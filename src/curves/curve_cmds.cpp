// curve_cmds.cpp - curve commands: function curves, splines, broken lines.
#include "curves/curve_cmds.h"

#include "geometry/page.h"
#include "geometry/transform.h"
#include "interp/commands.h"
#include "shell/run_state.h"

static const double *const P = run_state.param;

int cmd_function_curve(const Command &) { return 1; }

// Lists the data points of a spline or broken line as they were taken in.
static void list_points(int first, int count) {
  for (int k = 1; k <= count; k++)
    echo("%d (%.2f, %.2f)\n", k, P[first + 2 * k], P[first + 2 * k + 1]);
}

// The conversion mode's copy of the data list and its end mark.
static void convert_points(int first, int count) {
  for (int k = 1; k <= count; k++)
    echo("%s   %.3f %.3f\n", run_state.indent, world_to_grid_x(P[first + 2 * k]),
         world_to_grid_y(P[first + 2 * k + 1]));
  echo("%s   9999 0\n", run_state.indent);
}

int cmd_spline(const Command &) {
  const char *in = run_state.indent;
  int n = trunc_int(P[9]);
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      echo("%sspline %d %d %d %d %d %d %d %.3f //0 with %d points\n", in, world_to_dot_x(P[1]),
           world_to_dot_x(P[2]), world_to_dot_y(P[3]), world_to_dot_y(P[4]), trunc_int(P[5]),
           trunc_int(P[6] * dots_per_unit_x()), trunc_int(P[7] * dots_per_unit_y()), P[8], n);
      list_points(8, n);
      break;
    case MODE_TEST:
      echo("%sspline %.3f %.3f %.3f %.3f %d %.3f %.3f %.3f //0 with %d points\n", in, P[1], P[2], P[3], P[4],
           trunc_int(P[5]), P[6], P[7], P[8], n);
      list_points(8, n);
      break;
    case MODE_CONVERT:
      echo("%sspline %.3f %.3f %.3f %.3f %d %.3f %.3f %.3f\n", in, world_to_grid_x(P[1]), world_to_grid_x(P[2]),
           world_to_grid_y(P[3]), world_to_grid_y(P[4]), trunc_int(P[5]), P[6] * dots_per_unit_x(),
           P[7] * dots_per_unit_y(), P[8]);
      convert_points(8, n);
      return 1;
    default:
      break;
  }
  return 1;
}

int cmd_bline(const Command &) {
  int n = trunc_int(P[2]);
  switch (run_state.run_mode) {
    case MODE_DEBUG:
      echo("%scline %.3f // with %d points\n", run_state.indent, P[1], n);
      break;
    case MODE_CONVERT:
      echo("%scline %.3f // with %d points\n", run_state.indent, P[1], n);
      convert_points(1, n);
      return 1;
    default:
      break;
  }
  return 1;
}
