// print_screen.cpp - the print job: its questions, and the copies it runs.
#include "menus/print_screen.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "devices/embosser.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/winstack.h"
#include "interp/reader.h"
#include "menus/console_io.h"
#include "platform/paths.h"
#include "platform/platform.h"

// Where the bytes of a job went.
static const char kNoTempFile[] = "temporary file in [%s] was not made (%s)";

PrintScreen print_screen_state;

static void reset_print_screen() { print_screen_state = PrintScreen(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_print_screen);

// A file name asked with its default (console_io); 0 when the user goes back
// or the input has ended.
static int ask_name(const char *label, const char *fallback, char *out, int size) {
  int got = ask_file_name(label, fallback, out, size);
  return got > 0 || (got == 0 && !console_io.at_end);
}

// Mode, copies and output, each asked until the answer is valid; 0 when
// the user goes back.
static int ask_settings() {
  static const int modes[2] = {ST_PLOTTER_MODE, ST_PRINTER_MODE};
  static const int outputs[3] = {ST_TO_PRINTER, ST_TO_FILE, ST_TO_EXCHANGE};
  PrintScreen &p = print_screen_state;
  char prompt[256];
  snprintf(prompt, sizeof prompt, "\n%s\n%s [%s] = ", screen_text(ST_MODE_CHOICES), screen_text(ST_MODE),
           screen_text(modes[p.printer_mode ? 1 : 0]));
  if (!ask_number(prompt, 2, 0, 0, 1, &p.printer_mode)) return 0;
  snprintf(prompt, sizeof prompt, screen_text(ST_COPIES_PROMPT), p.copies);
  // Three characters wide, so that 100 is read, and refused.
  if (!ask_number(prompt, 3, p.copies, 1, 99, &p.copies)) return 0;
  snprintf(prompt, sizeof prompt, "\n%s\n%s [%s] ? ", screen_text(ST_OUTPUT_CHOICES), screen_text(ST_OUTPUT),
           screen_text(outputs[p.output]));
  return ask_number(prompt, 2, TO_PRINTER, TO_PRINTER, TO_EXCHANGE, &p.output);
}

// The Y/N question; 1 to go on, 0 to go back.
static int confirm(const char *question) {
  for (;;) {
    fputs(question, stderr);
    int key = get_key();
    if (key == KEY_ENTER || key == 'y' || key == '1') return !keys_at_end();
    if (key == 'n' || key == '0' || key == KEY_ESCAPE) return 0;
    beep(220, 150);
  }
}

// One copy: the program interpreted with the output open. 0 after the
// error when a file is not open.
static int print_copy(const char *program, const char *output, int printer_mode) {
  RunState &r = run_state;
  FILE *in = fopen(program, "r");
  if (in == nullptr) return put_errorf("Tacto [%s] was not open", program);
  copy_text(r.fname, NAME_SIZE, program);
  copy_text(r.program_file, PROGRAM_FILE_SIZE, program);
  winstack_set_top(in, program);
  FILE *out = fopen(output, "w");
  if (out == nullptr) {
    fclose(in);
    return put_errorf("output [%s] was not open", output);
  }
  begin_copy(out, printer_mode);
  r.print_out = out;
  r.run_aborted = 0;
  interpret(in);
  if (r.log_on) log_list(2);
  if (ps.active) ps_close();
  fclose(in);
  end_copy(printer_mode);
  fclose(out);
  r.print_out = nullptr;
  r.echo_out = r.std_out;
  return 1;
}

// Sends the copy just made to the printer and says where it went; a
// failure is the destination's one error, told from the program's lines.
static int send_copy(const char *program, const char *output, const Destination &d) {
  RunState &r = run_state;
  r.line_number = 0;
  copy_text(r.cname, NAME_SIZE, "print");
  const char *slash = strrchr(program, '/');
  int job_id = 0;
  if (!deliver_file(d, output, slash != nullptr ? slash + 1 : program, &job_id)) return 0;
  if (job_id > 0) fprintf(stderr, screen_text(ST_SENT_JOB), d.label, job_id);
  else fprintf(stderr, screen_text(ST_SENT_COPY), d.label);
  return 1;
}

// The copies of a job into `output`, each sent on to `d` when it is given;
// 1 when every copy was made (and sent), 0 after the first failure.
static int run_copies(const char *program, const char *output, int copies, int printer_mode, int target,
                      const Destination *d) {
  RunState &r = run_state;
  int saved_print = r.in_print;
  r.in_print = 1;
  if (target == TO_EXCHANGE) r.run_mode = MODE_CONVERT;
  int ok = 1;
  for (int copy = 1; copy <= copies && ok; copy++) {
    fprintf(stderr, screen_text(ST_COPY), copy);
    ok = print_copy(program, output, printer_mode) && (d == nullptr || send_copy(program, output, *d));
  }
  if (r.run_mode == MODE_CONVERT) r.run_mode = MODE_NORMAL;
  r.in_print = saved_print;
  return ok;
}

int print_job(const char *program, const Destination &d, int copies, int printer_mode) {
  if (!destination_usable(d)) return 0;
  std::string temp = make_temp_file("tacto-print");
  if (temp.empty()) return put_errorf(kNoTempFile, temp_dir().c_str(), strerror(errno));
  int ok = run_copies(program, temp.c_str(), copies, printer_mode, TO_PRINTER, &d);
  unlink(temp.c_str());
  return ok;
}

int print_screen() {
  RunState &r = run_state;
  screen_title("program", screen_text(ST_PRINT_TITLE));

  char program[PROGRAM_FILE_SIZE];
  if (!ask_name(screen_text(ST_TACTO_FILE), r.program_file, program, sizeof program)) return 1;
  FILE *probe = fopen(program, "r");
  if (probe == nullptr) {
    refuse_with_key("Tacto [%s] was not open", program, "\n   ");
    return 1;
  }
  fclose(probe);
  copy_text(r.program_file, PROGRAM_FILE_SIZE, program);

  if (!ask_settings()) return 1;
  int target = print_screen_state.output;
  char output[PROGRAM_FILE_SIZE];
  char fallback[PROGRAM_FILE_SIZE];
  Destination d;
  if (target == TO_PRINTER) {
    parse_destination(serial.port, serial, &d);
    if (!destination_usable(d)) {
      press_any_key("\n   press any key ? ");
      return 1;
    }
  } else {
    std::string ext = target == TO_FILE ? ".out" : ".tgx";
    copy_text(fallback, sizeof fallback, (path_dir(program) + path_base(program) + ext).c_str());
    if (!ask_name(screen_text(target == TO_FILE ? ST_OUTPUT_FILE : ST_EXCHANGE_FILE), fallback, output, sizeof output)) return 1;
    FILE *test = fopen(output, "w");
    if (test == nullptr) {
      refuse_with_key("file [%s] was not open", output, "   ");
      return 1;
    }
    fclose(test);
  }

  char question[2 * PROGRAM_FILE_SIZE + 64];
  if (target == TO_PRINTER) {
    fprintf(stderr, screen_text(ST_DESTINATION), d.label);
    snprintf(question, sizeof question, screen_text(ST_PRINT_CONFIRM), program,
             printer_table[page_geom.printer].name);
  } else {
    snprintf(question, sizeof question, screen_text(ST_CONVERT_CONFIRM), program, output);
  }
  if (!confirm(question)) return 1;

  const PrintScreen &p = print_screen_state;
  int ok = target == TO_PRINTER ? print_job(program, d, p.copies, p.printer_mode)
                                : run_copies(program, output, p.copies, p.printer_mode, target, nullptr);
  // A job that failed is not reported as executed.
  if (!ok) {
    wait_for_key("");
    return 1;
  }

  if (r.errlist_on) error_list(2);
  if (r.error_count > 0) wait_for_key(" ");
  copy_text(r.fname, NAME_SIZE, program);
  r.error_count = r.warning_count = 0;
  fprintf(stderr, screen_text(ST_EXECUTED), program);
  if (target == TO_PRINTER) fprintf(stderr, screen_text(ST_SENT_LINE), d.label);
  else fprintf(stderr, screen_text(ST_WRITTEN_LINE), output);
  wait_for_key("\n   ");
  return 1;
}
