// startup.cpp - entry, command line, start-up order, run and shutdown.
#include "shell/startup.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <strings.h>
#include <sys/stat.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "devices/postscript.h"
#include "devices/destination.h"
#include "devices/embosser.h"
#include "devices/serial.h"
#include "geometry/page.h"
#include "geometry/winstack.h"
#include "interp/calc.h"
#include "interp/help.h"
#include "interp/reader.h"
#include "menus/main_menu.h"
#include "platform/platform.h"
#include "shell/options.h"
#include "shell/print_run.h"
#include "shell/settings_file.h"

static void print_usage() {
  static const char *const lines[] = {
      "usage: tacto -ej -76i -m -td -r -h [infile] [> outfile]",
      "e: English message",
      "j: Japanese message",
      "7: ESA721 printer",
      "6: ESA600G printer",
      "i: Index Everest-D printer",
      "m: map of dots produced",
      "t: Test mode and generate tacto.log",
      "d: Debug mode and generate tacto.log",
      "r: Reset the tacto",
      "h or ?: discription of command line options",
      "infile: input file or standard input",
      "outfile: output file or standard output",
  };
  int first = 1;
  for (const char *line : lines) {
    fputs(first ? "\n\n" : "\n", stderr);
    fputs(line, stderr);
    first = 0;
  }
}

// An argument beginning with '/' is an option ("/t") unless it is a path:
// it holds a second '/' or names an existing file.
static int is_option(const char *arg) {
  if (arg[0] == '-') return 1;
  if (arg[0] != '/') return 0;
  if (strchr(arg + 1, '/') != nullptr) return 0;
  struct stat st;
  return stat(arg, &st) != 0;
}

// Closes the lists and the PostScript file and saves the system file.
static void shutdown_program() {
  if (run_state.log_on) log_list(2);
  if (ps.active) ps_close();
  if (run_state.errlist_on) error_list(2);
  save_sys_file();
}

// Shuts down and ends the process with `status` (the fatal exit).
[[noreturn]] static void end_program(int status) {
  shutdown_program();
  fputs("\n   quit job!  good bye\n", stderr);
  fflush(stdout);
  fflush(stderr);
  exit(status);
}

int tacto_main(int argc, char **argv) {
  // 1-3: defaults, buffers, the start-up names.
  reset_all_state();
  set_fatal_exit(end_program);
  apply_serial();

  // 4: options; a later file name replaces an earlier one.
  const char *input_name = nullptr;
  int language = -1, reset = 0;
  LongOptions opts = no_long_options();
  for (int i = 1; i < argc; i++) {
    const char *arg = argv[i];
    if (is_long_option(arg)) {
      if (!read_long_option(arg, &opts)) return 1;
      continue;
    }
    if (!is_option(arg)) {
      input_name = arg;
      continue;
    }
    switch (tolower(static_cast<unsigned char>(arg[1]))) {
      case '7': select_paper(0, 1); break;
      case '6': select_paper(1, 3); break;
      case 'i': select_paper(2, 6); break;
      case 'e': language = 0; break;
      case 'j': language = 1; break;
      case 't':
        run_state.run_mode = MODE_TEST;
        run_state.echo_to_console = 0;
        break;
      case 'd':
        run_state.run_mode = MODE_DEBUG;
        run_state.echo_to_console = 0;
        break;
      case 'r': reset = 1; break;
      case 'h':
      case '?': print_usage(); return 1;
      default:
        fprintf(stderr, "!!! illegal option: %s\n", arg);
        fputs("usage: tacto -e -j -t -d -r -h [< infile] [> outfile]\n", stderr);
        return 1;
    }
  }

  if (opts.help) {
    print_long_usage();
    return 0;
  }
  if (opts.version) {
    printf("tacto " TACTO_VERSION "\n");
    return 0;
  }
  if (!check_long_options(opts, input_name != nullptr)) return 1;

  // 6: the program's name, and the files named after it.
  std::string self = argc > 0 ? argv[0] : "";
  std::string base = path_base(self);
  if (base.empty() || strcasecmp(base.c_str(), "tacto") != 0) {
    fprintf(stderr, "!!! Usage: tacto -f -t -s -h infile > outfile (%s)\n", self.c_str());
    return 1;
  }
  std::string exe = program_path();
  std::string stem = path_dir(exe) + path_base(exe.empty() ? self : exe);
  sys_file.path = stem + ".sys";
  copy_text(help_state.path, HELP_PATH_SIZE, (stem + ".hlp").c_str());

  // 7-8: the system file, then the serial port again.
  int loaded = reset ? 0 : load_sys_file();
  apply_serial();
  if (loaded) set_portrait();

  // 9: the help file.
  run_state.help_open = help_file_usable();
  if (!run_state.help_open) put_error("tacto.hlp' can not open");

  // 10-11: the program to run.
  if (run_state.program_file[0] == '\0') copy_text(run_state.program_file, PROGRAM_FILE_SIZE, "tacto.txt");
  FILE *input = nullptr;
  int status = 0;
  if (input_name != nullptr) {
    copy_text(run_state.fname, NAME_SIZE, input_name);
    input = fopen(input_name, "r");
    if (input == nullptr) {
      put_errorf("input file (%s) can not open", input_name);
      quit_job(1);
      status = 1;
    }
  } else {
    copy_text(run_state.fname, NAME_SIZE, "console");
    run_state.console_input = 1;
  }

  // 12-15: names, language, banner, pi, the paper of the settings.
  copy_text(run_state.fname0, NAME_SIZE, run_state.fname);
  if (language >= 0) run_state.language = language;
  // A command-line run keeps what start-up reported on the screen; the menu
  // starts on a clear one unless start-up has an error to show.
  show_banner(input_name == nullptr && run_state.error_count == 0);
  run_state.comment_depth = 0;
  evaluate("pi=3.141596");
  select_paper(run_state.printer, run_state.paper_size);
  if (run_state.error_count > 0) press_any_key(" !!! system error !!! press any key ? ");

  // --print: the program goes to its destination instead of standard output.
  if (input != nullptr && opts.produce == PRODUCE_PRINT) {
    fclose(input);
    input = nullptr;
    status = print_run(opts, input_name);
  }
  if (input_name != nullptr) {
    if (input != nullptr) {
      beep(1760, 50);
      winstack_set_top(input, run_state.fname);
      hold_terminal_bytes();
      interpret(input);
      report_held_bytes();
    }
  } else {
    main_menu();
  }

  shutdown_program();
  fputs("\n   quit job!  good bye\n", stderr);
  if (input != nullptr) fclose(input);
  fflush(stdout);
  fflush(stderr);
  return status;
}
