// setup_menu.cpp - the setup menu and the directory listing.
#include "menus/setup_menu.h"

#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "commands/steps.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "geometry/page.h"
#include "menus/console_io.h"
#include "menus/serial_screen.h"
#include "platform/platform.h"

// Asks a number within lo..hi, showing the current value; 0 on going back or
// on Enter (nothing to change), 1 with *value set.
static int ask(const char *choices, const char *label, const char *current, int lo, int hi, int *value) {
  char prompt[320];
  snprintf(prompt, sizeof prompt, "\n%s\n%s [%s] = ", choices, label, current);
  return ask_number(prompt, 2, BACK_TO_MENU, lo, hi, value);
}

static void printer_and_paper() {
  static const char *const papers[3] = {"(0: b5, 1: a4)", "(2: b5, 3: a4)",
                                        "(4: b5, 5: b4, 6: a4, 7: a3, 8: p8, 9: p10)"};
  static const int first[3] = {0, 2, 4}, last[3] = {1, 3, 9};
  int printer = page_geom.printer;
  if (!ask("(0: ESA721, 1: ESA600G, 2: Index Everest-D)", screen_text(ST_PRINTER), printer_table[printer].name, 0,
           2, &printer))
    printer = page_geom.printer;
  int paper = printer == page_geom.printer ? page_geom.paper : first[printer];
  if (!ask(papers[printer], screen_text(ST_PAPER), paper_table[paper].name, first[printer], last[printer], &paper) &&
      printer == page_geom.printer)
    return;
  choose_paper(printer, paper);
}

int setup_menu() {
  for (;;) {
    fputs(screen_text(ST_SETUP_MENU), stderr);
    int key = read_number(1);
    if (key == 1) printer_and_paper();
    else if (key == 2) serial_screen();
    else if (key == 3) {
      static const int names[2] = {ST_ENGLISH, ST_JAPANESE};
      ask(screen_text(ST_LANGUAGE_CHOICES), screen_text(ST_LANGUAGE), screen_text(names[run_state.language == 1]), 0,
          1, &run_state.language);
    } else if (key == 4) {
      char now[8];
      snprintf(now, sizeof now, "%d", run_state.alarm);
      ask(screen_text(ST_ALARM_CHOICES), screen_text(ST_ALARM), now, 0, 2, &run_state.alarm);
    } else if (key == 0 || key == KEEP_DEFAULT || key == BACK_TO_MENU || keys_at_end()) {
      return 1;
    } else {
      beep(220, 150);
    }
  }
}

int list_directory() {
  std::vector<std::string> names;
  DIR *dir = opendir(".");
  if (dir != nullptr) {
    while (struct dirent *e = readdir(dir)) {
      struct stat st;
      if (e->d_name[0] != '.' && stat(e->d_name, &st) == 0 && S_ISREG(st.st_mode)) names.push_back(e->d_name);
    }
    closedir(dir);
  }
  std::sort(names.begin(), names.end());
  fputs(screen_text(ST_LIST_TITLE), stderr);
  for (size_t i = 0; i < names.size(); i++)
    fprintf(stderr, "%-19s%s", names[i].c_str(), i % 4 == 3 || i + 1 == names.size() ? "\n" : " ");
  fprintf(stderr, screen_text(ST_FILE_COUNT), names.size());
  wait_for_key("   ");
  return 1;
}
