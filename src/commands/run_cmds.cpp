// run_cmds.cpp - commands that act on the run state itself.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "platform/platform.h"

int cmd_log(const Command &) {
  if (run_state.run_mode != MODE_NORMAL) return 1;  // a trace run only echoes
  return log_list(1);
}

int cmd_error(const Command &) { return error_list(1); }

int cmd_step(const Command &) {
  run_state.step_mode = 1;
  return 1;
}

int cmd_nostep(const Command &) {
  run_state.step_mode = 0;
  return 1;
}

int cmd_alarm(const Command &) {
  static const char *const echoes[3] = {"// no alarm!\n", "// alarm when executed or error happen!\n",
                                        "// alarm only when error happen!\n"};
  int level = iparam(1);
  if (level < 0 || level > 2) {
    beep(220, 150);
    return 0;
  }
  run_state.alarm = level;
  if (echoing()) echo("%s", echoes[level]);
  return 1;
}

int cmd_output(const Command &) {
  run_state.echo_out = run_state.saved_echo = run_state.std_out;
  return 1;
}

// `test` and `debug`: enter a trace mode from normal or the other one.
static int enter_trace(int mode, const char *word, const char *already) {
  RunState &r = run_state;
  if (r.in_print) {
    echo("%s%s //0 mode %d\n", r.indent, word, r.run_mode);
    return 1;
  }
  if (r.run_mode == mode) return put_warning(already);
  r.run_mode = mode;
  r.saved_echo = r.echo_out;
  if (r.echo_to_console) r.echo_out = stderr;
  echo("%s%s // mode %d (return by 'bye').\n", r.indent, word, mode);
  return 1;
}

int cmd_test(const Command &) { return enter_trace(MODE_TEST, "test", ": now on test mode"); }

int cmd_debug(const Command &) { return enter_trace(MODE_DEBUG, "debug", ": now on debug mode"); }

int cmd_bye(const Command &) {
  run_state.leave_requested = 1;
  return 1;
}

int cmd_system(const Command &) {
  FILE *saved = run_state.echo_out;
  run_state.echo_out = stderr;
  run_user_shell();
  run_state.echo_out = saved;
  return 1;
}

int cmd_wait(const Command &) {
  // The echo carries the line as it was read, line feed and all.
  if (echoing()) echo("%swait // until any key is pressed.\n", run_state.line_copy);
  fflush(stdout);
  get_key();
  return 1;
}

int cmd_version(const Command &) {
  fprintf(stderr, "%sversion //0 %s\n", run_state.indent, TACTO_VERSION);
  fflush(stderr);
  return 1;
}

int cmd_comment(const Command &) {
  if (echoing()) echo("%s", run_state.line_copy);
  return 1;
}

int cmd_empty(const Command &) {
  if (echoing()) echo("\n");
  return 1;
}

int cmd_quit(const Command &) {
  end_job();
  run_state.quit_requested = 1;
  return 1;
}
