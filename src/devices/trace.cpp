// trace.cpp - the debug and test traces as an output sink: every dot and
// pen move becomes an echo line, in dots (debug) or world values (test).
// The trace has no functions of its own to offer; it registers its sink.
#include "core/run_state.h"
#include "devices/embosser.h"
#include "raster/sink.h"

static int tracing() { return run_state.run_mode == MODE_DEBUG || run_state.run_mode == MODE_TEST; }

// A grid dot shows its device cell (debug) or world point (test); a
// figure's dot its grid dot or world point and path code, and it leaves the
// embosser's plotter mode as a trace line stands in for the dot.
static int trace_dot(const SinkDot &d, int taken) {
  if (taken || !tracing()) return 0;
  int debug = run_state.run_mode == MODE_DEBUG;
  if (d.grid) {
    if (debug) echo("   Plot %d %d 0\n", d.row, d.col);
    else echo("   plot %.3f %.3f 0\n", d.wx, d.wy);
    return 1;
  }
  leave_plotter_mode();
  if (debug) echo("   Plot %d %d %d\n", d.dx, d.dy, d.kind);
  else echo("   plot %.3f %.3f %d\n", d.wx, d.wy, d.kind);
  return 1;
}

static int trace_move(const SinkDot &to, int taken) {
  if (taken || !tracing()) return 0;
  leave_plotter_mode();
  if (run_state.run_mode == MODE_DEBUG) echo("   Move %d %d\n", to.dx, to.dy);
  else echo("   move %.3f %.3f\n", to.wx, to.wy);
  return 1;
}

static const Sink kTraceSink = {"trace", RANK_TRACE, trace_dot, trace_move, nullptr, nullptr, nullptr, nullptr};
[[maybe_unused]] static const int sink_listed = add_sink(&kTraceSink);
