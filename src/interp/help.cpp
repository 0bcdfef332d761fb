// help.cpp - the help browser.
#include "interp/help.h"

#include <cstring>
#include <strings.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "interp/reader.h"
#include "platform/platform.h"

HelpState help_state;

static void reset_help() { help_state = HelpState(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_help);

int help_file_usable() {
  FILE *f = fopen(help_state.path, "r");
  if (f == nullptr) return 0;
  fclose(f);
  return 1;
}

static int continues(const char *line) { return strncmp(line, "  ", 2) == 0; }

// Shows the title and the "menu" entry of the help file.
static void help_menu(FILE *help) {
  char title[MSG_SIZE];
  snprintf(title, sizeof title, screen_text(ST_HELP_TITLE), TACTO_VERSION);
  // Only the menu's screens are cleared: a program's `help` keeps the run's
  // messages in view.
  if (run_state.console_input) clear_screen();
  fprintf(stderr, "\n%s\n", title);
  char line[LINE_SIZE];
  int in_menu = 0;
  while (read_line(help, line)) {
    if (in_menu) {
      if (!continues(line)) break;
      fputs(line, stderr);
    } else if (strncasecmp(line, "menu", 3) == 0) {
      fputs(line, stderr);
      in_menu = 1;
    }
  }
  fflush(stderr);
  rewind(help);
}

// Prints the entry that answers a query; returns 1 when something was printed.
static int answer(FILE *help, const char *query) {
  static const char *const printers[4] = {"esa72", "esa60", "plott", "print"};
  char line[LINE_SIZE];
  int state = 0, printed = 0;
  size_t n = strlen(query) < 3 ? strlen(query) : 3;
  while (read_line(help, line)) {
    if (state != 0) {
      if (!continues(line)) break;
      fputs(line, help_state.out);
      continue;
    }
    if (continues(line)) continue;
    int printer_head = 0;
    for (const char *p : printers)
      if (strncasecmp(line, p, 5) == 0) printer_head = 1;
    if (printer_head && strncasecmp(line, query, 5) == 0 && strlen(query) >= 5 &&
        strncasecmp(line, "plot x y", 8) != 0) {
      fputs(line, help_state.out);
      state = 1;
      printed = 1;
      continue;
    }
    // Any other head line, the printer and plotter ones too, on three letters.
    if (n > 0 && strncasecmp(line, query, n) == 0 && strncasecmp(line, "esa", 3) != 0 &&
        strncasecmp(line, "plott", 5) != 0) {
      fputs(line, help_state.out);
      state = 2;
      printed = 1;
    }
  }
  rewind(help);
  fflush(help_state.out);
  return printed;
}

int help_browser(FILE *stream) {
  help_state.out = run_state.log_on ? run_state.echo_out : stderr;
  help_state.queries = help_state.errors = 0;
  FILE *help = fopen(help_state.path, "r");
  if (help == nullptr) {
    put_error("\"tacto.hlp\" can not open");
    run_state.help_open = 0;
    press_any_key(screen_text(ST_HELP_PRESS_KEY));
    return 1;
  }
  help_menu(help);
  char line[LINE_SIZE];
  for (;;) {
    line_prefix();
    if (!read_line(stream, line)) break;
    help_state.queries++;
    char *query = line + strspn(line, " ");
    query[strcspn(query, "\n")] = '\0';
    if (!answer(help, query)) {
      if (strncasecmp(query, "bye", 3) == 0) break;
      if (query[0] == '\0') {
        help_menu(help);
        continue;
      }
      help_state.errors++;
      fprintf(help_state.out, "error %d? help line %d \"%s\": unknown command", help_state.errors,
              help_state.queries, query);
      fflush(help_state.out);
      beep(220, 150);
      continue;
    }
    if (run_state.run_mode == MODE_DEBUG || run_state.run_mode == MODE_TEST) fputs("\n", help_state.out);
    if (strncasecmp(query, "quit", 4) == 0) {
      run_state.quit_requested = 1;
      wait_for_key("  ");
      break;
    }
  }
  fclose(help);
  return 1;
}
