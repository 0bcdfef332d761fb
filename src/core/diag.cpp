// diag.cpp - errors, warnings, the quit request and the two listing files.
#include "core/diag.h"

#include <cstdarg>
#include <cstring>
#include <strings.h>

#include "core/process.h"
#include "core/run_state.h"
#include "platform/platform.h"

DiagLists diag_lists;

static void reset_diag() {
  diag_lists.log_file = nullptr;
  diag_lists.error_file = nullptr;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_diag);

void beep(int frequency, int duration) {
  if (run_state.alarm == 0) return;
  if (run_state.alarm == 2 && frequency != 220) return;  // errors only
  for (int t = 50; t < duration; t += 50) platform_tone(frequency, 100);
}

void press_any_key(const char *prompt) {
  fputs(prompt, stderr);
  fflush(stderr);
  get_key();
}

int put_error(const char *text) {
  run_state.error_count++;
  char line[192];
  snprintf(line, sizeof line, "\nerror %d? %s line %d \"%s\": %s", run_state.error_count,
           run_state.fname, run_state.line_number, run_state.cname, text);
  fprintf(stderr, "\n%s", line);
  fflush(stderr);
  if (run_state.error_count > run_state.max_errors) return 0;
  beep(220, 150);
  if (strcasecmp(run_state.fname, "tacto") == 0) press_any_key("\n   press any key ? ");
  if (run_state.errlist_on && diag_lists.error_file != nullptr) {
    fputs(line, diag_lists.error_file);
    fflush(diag_lists.error_file);
  }
  return 0;
}

int put_warning(const char *text) {
  run_state.warning_count++;
  char line[96];
  snprintf(line, sizeof line, "\nwarning %d! %s line %d \"%s\": %s", run_state.warning_count,
           run_state.fname, run_state.line_number, run_state.cname, text);
  // A trace run's transcript (the log list) keeps its warnings; on the
  // console they are messages like the errors.
  int to_list = run_state.run_mode != MODE_NORMAL && run_state.echo_out != run_state.std_out;
  FILE *out = to_list ? run_state.echo_out : stderr;
  fputs(line, out);
  fflush(out);
  if (run_state.errlist_on && diag_lists.error_file != nullptr) {
    fputs(line, diag_lists.error_file);
    fflush(diag_lists.error_file);
  }
  beep(880, 200);
  return 0;
}

int put_errorf(const char *format, ...) {
  va_list ap;
  va_start(ap, format);
  vsnprintf(run_state.msg, MSG_SIZE, format, ap);
  va_end(ap);
  return put_error(run_state.msg);
}

int put_warningf(const char *format, ...) {
  va_list ap;
  va_start(ap, format);
  vsnprintf(run_state.msg, MSG_SIZE, format, ap);
  va_end(ap);
  return put_warning(run_state.msg);
}

void quit_job(int code) {
  beep(220, 150);
  fprintf(stderr, "   quit %d, press any key ? ", code);
  fflush(stderr);
  get_key();
  run_state.quit_requested = 1;
}

// Picks the summary line by the two counters (0 and 1 take the singular).
static const char *summary_format(const char *const forms[4]) {
  int many_errors = run_state.error_count >= 2;
  int many_warnings = run_state.warning_count >= 2;
  return forms[many_errors + 2 * many_warnings];
}

// Writes the summary chosen from `forms` where the run mode says, and into
// `list` when it is open and was not already the target.
static void write_summary(const char *const forms[4], FILE *list) {
  char text[128];
  snprintf(text, sizeof text, summary_format(forms), run_state.error_count, run_state.warning_count);
  FILE *out = run_state.run_mode != MODE_NORMAL ? run_state.echo_out : stderr;
  fputs(text, out);
  fflush(out);
  if (list != nullptr && list != out) fputs(text, list);
}

int log_list(int op) {
  if (op == 1) {
    if (run_state.log_on) log_list(2);
    FILE *f = fopen(run_state.fname0, "w");
    if (f == nullptr) {
      run_state.log_on = 0;
      return put_errorf("log %s can not open", run_state.fname0);
    }
    diag_lists.log_file = f;
    run_state.run_mode = MODE_TEST;
    run_state.saved_echo = run_state.echo_out;
    run_state.echo_out = f;
    run_state.log_on = 1;
    fprintf(f, "   /// log list (%s) ///\n", run_state.fname0);
    fprintf(f, "      (%24.24s)\n", local_time_text().c_str());
    return 1;
  }
  static const char *const forms[4] = {
      "   /// %d error and %d warning ///\n", "   /// %d errors and %d warning ///\n",
      "   /// %d error and %d warnings ///\n", "   /// %d errors and %d warnings ///\n"};
  FILE *list = run_state.log_on ? diag_lists.log_file : nullptr;
  write_summary(forms, list);
  if (list != nullptr) {
    fclose(list);
    diag_lists.log_file = nullptr;
    run_state.log_on = 0;
    run_state.run_mode = MODE_NORMAL;
    run_state.echo_out = run_state.saved_echo;
    // A trace mode entered while the list was open saved the list itself.
    if (run_state.echo_out == list) run_state.echo_out = run_state.std_out;
    if (run_state.saved_echo == list) run_state.saved_echo = run_state.std_out;
  }
  return 1;
}

int error_list(int op) {
  if (op == 1) {
    if (run_state.errlist_on) error_list(2);
    FILE *f = fopen(run_state.fname0, "w+");
    if (f == nullptr) {
      run_state.errlist_on = 0;  // before the report, which would list it
      return put_errorf("%s can not open", run_state.fname0);
    }
    diag_lists.error_file = f;
    run_state.errlist_on = 1;
    fprintf(f, "   /// error list (%s) ///", run_state.fname0);
    fprintf(f, "\n      (%24.24s)", local_time_text().c_str());
    fflush(f);
    return 1;
  }
  static const char *const forms[4] = {
      "\n   /// %d error and %d warning ///", "\n   /// %d errors and %d warning ///",
      "\n   /// %d error and %d warnings ///", "\n   /// %d errors and %d warnings ///"};
  FILE *list = run_state.errlist_on ? diag_lists.error_file : nullptr;
  write_summary(forms, list);
  if (list != nullptr) {
    fclose(list);
    diag_lists.error_file = nullptr;
    run_state.errlist_on = 0;
  }
  return 1;
}
