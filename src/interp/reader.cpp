// reader.cpp - the program reader: one line at a time, prefixes, comments,
// indentation, macro substitution of the command word, assignments,
// dispatch, and the step, error-limit and quit checks after each command.
#include "interp/reader.h"

#include <cstring>
#include <strings.h>

#include "core/diag.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "devices/postscript.h"
#include "interp/calc.h"
#include "interp/commands.h"
#include "interp/macro.h"
#include "platform/platform.h"
#include "raster/plot.h"

int line_prefix() {
  RunState &r = run_state;
  if (r.in_help) {
    fprintf(stderr, "\nhelp %d: ", r.prompt_help++);
  } else if (r.log_on) {
    fprintf(stderr, "\nlog %d: ", r.prompt_log++);
  } else if (r.run_mode == MODE_TEST) {
    fprintf(stderr, "\ntest %d: ", r.prompt_test++);
  } else if (r.run_mode == MODE_DEBUG) {
    fprintf(stderr, "\ndebug %d: ", r.prompt_debug++);
  } else if (!r.in_print && strcasecmp(r.fname, "console") == 0) {
    fprintf(stderr, "\nconsole %d: ", r.prompt_console++);
    r.in_console = 1;
  }
  fflush(stderr);
  return 1;
}

int read_line(FILE *stream, char *buf) {
  if (stream == nullptr || fgets(buf, 95, stream) == nullptr) return 0;
  // Program files written on other systems end their lines with CR LF.
  size_t n = strlen(buf);
  if (n >= 2 && buf[n - 2] == '\r' && buf[n - 1] == '\n') {
    buf[n - 2] = '\n';
    buf[n - 1] = '\0';
  }
  return 1;
}

// The table's flags of a command word (0 for an unknown word).
static int flags_of(const char *word) {
  const Command *cmd = match_command(word);
  return cmd != nullptr ? cmd->flags : 0;
}

// Echoes a comment line as it was read, in the echoing modes.
static void echo_raw_line() {
  if (echoing()) echo("%s", run_state.line_copy);
}

// Splits the prepared line into the command word and the parameter text.
static void split_line(const char *line) {
  size_t n = strcspn(line, " \n");
  if (n >= NAME_SIZE) n = NAME_SIZE - 1;
  memcpy(run_state.cname, line, n);
  run_state.cname[n] = '\0';
  const char *rest = line + strcspn(line, " \n");
  if (*rest == ' ') {
    while (*rest == ' ') rest++;
  }
  size_t m = strcspn(rest, "\n");
  if (m >= LINE_SIZE) m = LINE_SIZE - 1;
  memcpy(run_state.ptr, rest, m);
  run_state.ptr[m] = '\0';
}

// `bye`: leaves the program, or in the console's test and debug modes only
// the mode. Returns 1 when reading goes on.
static int handle_bye() {
  RunState &r = run_state;
  r.leave_requested = 0;
  if (r.in_console && (r.run_mode == MODE_TEST || r.run_mode == MODE_DEBUG) && !r.in_print) {
    r.run_mode = MODE_NORMAL;
    r.echo_out = r.saved_echo;
    log_list(2);
    return 1;
  }
  if (!r.in_console || r.in_print) {
    if (r.run_mode != MODE_CONVERT) r.run_mode = MODE_NORMAL;
    r.echo_out = r.saved_echo;
    r.in_console = 1;
  }
  reset_macros();
  log_list(2);
  return 0;
}

// The checks after every command; 0 when the program ends here.
static int after_command() {
  RunState &r = run_state;
  if (r.step_mode) {
    fflush(stdout);
    if (read_raw_key() == KEY_ESCAPE) r.step_mode = 0;
  }
  beep(1760, 50);
  ps_flush();
  if (r.error_count >= r.max_errors) {
    // Nested programs end together; the prompt is shown once.
    if (!r.run_aborted) {
      fprintf(stderr, "\n !!! over max %d errors !!!\n press any key ? ", r.max_errors);
      fflush(stderr);
      get_key();
      r.run_aborted = 1;
    }
    return 0;
  }
  return r.quit_requested ? 0 : 1;
}

int interpret(FILE *stream) {
  RunState &r = run_state;
  if (r.in_print && r.print_out != nullptr) r.echo_out = r.print_out;
  else if (r.log_on && diag_lists.log_file != nullptr) r.echo_out = diag_lists.log_file;
  else r.echo_out = r.std_out;
  r.console_input = stream == stdin;

  for (;;) {
    line_prefix();
    if (!read_line(stream, r.s)) break;
    next_design(0);
    r.line_number++;
    copy_text(r.line_copy, LINE_SIZE, r.s);

    // Leading blanks become the echo indentation; tabs stay.
    size_t blanks = strspn(r.s, " ");
    memset(r.indent, ' ', blanks);
    r.indent[blanks] = '\0';
    char *line = r.s + blanks;

    if (strncmp(line, "/*", 2) == 0) {
      r.comment_depth++;
      echo_raw_line();
      continue;
    }
    if (strncmp(line, "*/", 2) == 0) {
      if (r.comment_depth == 0) {
        echo_raw_line();
        split_line(line);
        put_error("unmatched */");
        continue;
      }
      if (r.comment_depth >= 2) {
        r.comment_depth--;
        echo_raw_line();
        continue;
      }
      r.comment_depth = 0;
      if (echoing()) echo("%s*/\n", r.indent);
      if (line[2] == '\0' || line[3] == '\n' || line[3] == '\0') continue;
      line += 2;
      line += strspn(line, " ");
      // The rest is a command line of its own.
    } else if (r.comment_depth > 0) {
      echo_raw_line();
      continue;
    }

    split_line(line);
    if (!(flags_of(r.cname) & (F_RAW_TEXT | F_KEEP_WORD))) lookup(LOOKUP_WORD);

    const Command *cmd = nullptr;
    // Text commands keep an '=' in their text, and `calc` takes its
    // assignment itself ("calc r = 2*pi"), blanks and all.
    if (strchr(line, '=') != nullptr && !(flags_of(r.cname) & (F_RAW_TEXT | F_OWN_ASSIGNMENT)) &&
        strncmp(line, "//", 2) != 0) {
      copy_text(r.cname, NAME_SIZE, "assign");
      evaluate(line);
    } else {
      cmd = match_command(r.cname);
      dispatch(stream);
    }
    if (r.leave_requested) {
      if (handle_bye()) continue;
      break;
    }
    if (r.run_mode == MODE_CONVERT && cmd != nullptr && (cmd->flags & F_NO_STEP)) continue;
    if (!after_command()) break;
  }
  if (embosser.job_open) end_job();
  return 1;
}
