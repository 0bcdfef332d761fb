// main_menu.cpp - the menu loop, its keys, its quit question and the banner.
#include "menus/main_menu.h"

#include <cstdio>
#include <cstring>

#include "core/diag.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "devices/embosser.h"
#include "geometry/page.h"
#include "geometry/winstack.h"
#include "interp/help.h"
#include "interp/reader.h"
#include "menus/image_jobs.h"
#include "menus/print_screen.h"
#include "menus/setup_menu.h"
#include "platform/platform.h"

static const char kMenuKeys[] = "1s2c3t4d5l6p7i8e9h0q";

void show_banner(int clear) {
  if (clear) clear_screen();
  fputs(screen_text(ST_BANNER), stderr);
  fprintf(stderr, "   (%24.24s)\n", local_time_text().c_str());
  fflush(stderr);
}

// Runs the interpreter on the console input in a run mode (0, 1 or 2).
static void console_run(int run_mode) {
  copy_text(run_state.fname, NAME_SIZE, "console");
  run_state.run_mode = run_mode;
  run_state.run_aborted = 0;
  // Only the Console item is the console activity: there `bye` in a test or
  // debug mode entered by command only leaves the mode, while in the Test
  // and Debug items it ends the activity.
  run_state.in_console = run_mode == MODE_NORMAL;
  winstack_set_top(stdin, "console");
  hold_terminal_bytes();
  interpret(stdin);
  report_held_bytes();
  run_state.in_console = 0;
  run_state.run_mode = MODE_NORMAL;
}

// Reads menu keys until an accepted one; end of input answers Quit.
static int menu_key() {
  for (;;) {
    beep(1760, 50);
    fputs(screen_text(ST_MENU_PROMPT), stderr);
    fflush(stderr);
    int key = get_key();
    if (keys_at_end()) return 'q';
    if (key != 0 && strchr(kMenuKeys, key) != nullptr) {
      beep(1760, 50);
      return key;
    }
    beep(220, 150);
  }
}

void main_menu() {
  for (;;) {
    fputs(screen_text(ST_MENU), stderr);
    int key = menu_key();
    clear_screen();
    switch (key) {
      case '1': case 's':
        copy_text(run_state.fname, NAME_SIZE, "set");
        setup_menu();
        copy_text(run_state.fname, NAME_SIZE, "console");
        break;
      case '2': case 'c': console_run(MODE_NORMAL); break;
      case '3': case 't': console_run(MODE_TEST); break;
      case '4': case 'd': console_run(MODE_DEBUG); break;
      case '9': case 'h':
        copy_text(run_state.fname, NAME_SIZE, "console");
        run_state.in_help = 1;
        help_browser(stdin);
        run_state.in_help = 0;
        break;
      case '5': case 'l': list_directory(); break;
      case '6': case 'p': print_screen(); break;
      case '7': case 'i': image_item(); break;
      case '0': case 'q': run_state.quit_requested = 1; break;
      default:
        // Edel, the exchange-file conversion, has a screen of its own.
        fputs(screen_text(ST_NOT_AVAILABLE), stderr);
        beep(220, 150);
        break;
    }
    set_portrait();
    if (run_state.quit_requested) {
      beep(880, 200);
      show_banner(1);
      fputs(screen_text(ST_QUIT_QUESTION), stderr);
      fflush(stderr);
      int answer = get_key();
      if (!(answer == KEY_ENTER || answer == 'y' || answer == '0' || keys_at_end()))
        run_state.quit_requested = 0;
      beep(1760, 50);
      if (run_state.quit_requested) return;
    }
  }
}
