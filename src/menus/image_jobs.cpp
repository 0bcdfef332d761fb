// image_jobs.cpp - the screens "Generate a PostScript file" and "Generate a
// Bitmap file", and the runs behind them.
#include "menus/image_jobs.h"

#include <cstdio>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "devices/bitmap.h"
#include "devices/postscript.h"
#include "geometry/winstack.h"
#include "interp/reader.h"
#include "menus/console_io.h"
#include "raster/dmap.h"

ImageJobs image_jobs;

static void reset_image_jobs() { image_jobs = ImageJobs(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_image_jobs);

// Opens a program for reading; 0 after "Tacto [%s] was not open".
static FILE *open_program(const char *program) {
  FILE *in = fopen(program, "r");
  if (in == nullptr) refuse_with_key("Tacto [%s] was not open", program, "\n   ");
  return in;
}

// Interprets a whole program as a job of the utility screens.
static void run_whole_program(FILE *in, const char *program) {
  RunState &r = run_state;
  int saved_print = r.in_print;
  char saved_name[NAME_SIZE];
  copy_text(saved_name, NAME_SIZE, r.fname);
  r.in_print = 1;
  r.run_aborted = 0;
  copy_text(r.fname, NAME_SIZE, program);
  copy_text(r.program_file, PROGRAM_FILE_SIZE, program);
  winstack_set_top(in, r.fname);
  interpret(in);
  r.in_print = saved_print;
  copy_text(r.fname, NAME_SIZE, saved_name);
}

int make_postscript(const char *program, const char *output, int ink_print, int printer_mode) {
  FILE *in = open_program(program);
  if (in == nullptr) return 0;
  if (ps.active) ps_close();  // a document a script left open ends first
  if (!ps_open(output, ink_print, 1)) {
    fclose(in);
    return 0;
  }
  bmp_stop();
  // Ink print draws lines and text, which a map of dots cannot hold.
  int collect = printer_mode && !ink_print;
  if (collect) alloc_dmap();
  run_whole_program(in, program);
  fclose(in);
  if (collect && dmap.in_use) {
    // The last page from the map, then its feed.
    flush_page();
    ps_next_page();
  }
  if (dmap.in_use) free_dmap();
  ps_close();
  fprintf(stderr, screen_text(ST_POSTSCRIPT_DONE), output);
  run_state.error_count = 0;
  run_state.warning_count = 0;
  return 1;
}

static int cannot_create(const char *output) {
  return refuse_with_key("Could not create Bitmap [%s]", output, "  ");
}

int make_bitmap(const char *program, const char *output) {
  FILE *in = open_program(program);
  if (in == nullptr) return 0;
  // Find out now, not after the whole run, whether the file can be made.
  FILE *probe = fopen(output, "wb");
  if (probe == nullptr || !bmp_alloc()) {
    if (probe != nullptr) fclose(probe);
    fclose(in);
    return cannot_create(output);
  }
  fclose(probe);
  if (ps.active) ps_close();
  bmp_start();
  run_whole_program(in, program);
  fclose(in);
  int ok = 1;
  if (bmp_write(output) != 0) ok = cannot_create(output);
  else fprintf(stderr, screen_text(ST_BITMAP_DONE), output);
  run_state.error_count = 0;
  run_state.warning_count = 0;
  bmp_stop();
  return ok;
}

// Asks for the program; 0 when the user goes back or it cannot be read.
static int ask_program(char *program, int size) {
  if (ask_file_name(screen_text(ST_TACTO_FILE), run_state.program_file, program, size) < 0) return 0;
  FILE *in = open_program(program);
  if (in == nullptr) return 0;
  fclose(in);
  copy_text(run_state.program_file, PROGRAM_FILE_SIZE, program);
  return 1;
}

// Asks for the output file; the default is the program with extension `ext`.
static int ask_output(const char *label, const char *program, const char *ext, char *output, int size) {
  char fallback[PROGRAM_FILE_SIZE];
  replace_extension(program, ext, fallback, sizeof fallback);
  return ask_file_name(label, fallback, output, size) >= 0;
}

// Asks for a choice of two, shown by name; 0 when the user goes back.
static int ask_choice(int choices, const int names[2], int *value) {
  for (;;) {
    fprintf(stderr, "\n%s\n%s [%s] = ", screen_text(choices), screen_text(ST_MODE),
            screen_text(names[*value ? 1 : 0]));
    int n = read_number(2);
    if (n == BACK_TO_MENU) return 0;
    if (n == KEEP_DEFAULT || n == 0 || n == 1) {
      if (n != KEEP_DEFAULT) *value = n;
      beep(1760, 50);
      return 1;
    }
    beep(220, 150);
  }
}

int postscript_job() {
  screen_title("image", screen_text(ST_POSTSCRIPT_TITLE));
  char program[PROGRAM_FILE_SIZE], output[PROGRAM_FILE_SIZE];
  if (!ask_program(program, sizeof program)) return 1;
  if (!ask_output(screen_text(ST_POSTSCRIPT_FILE), program, ".ps", output, sizeof output)) return 1;
  static const int prints[2] = {ST_DOT_PRINT, ST_INK_PRINT};
  if (!ask_choice(ST_PRINT_KIND_CHOICES, prints, &image_jobs.ink_print)) return 1;
  if (!image_jobs.ink_print) {
    static const int modes[2] = {ST_PLOTTER_MODE, ST_PRINTER_MODE};
    if (!ask_choice(ST_MODE_CHOICES, modes, &image_jobs.printer_mode)) return 1;
  }
  make_postscript(program, output, image_jobs.ink_print, image_jobs.printer_mode);
  return 1;
}

int image_item() {
  static const int kinds[2] = {ST_POSTSCRIPT, ST_BITMAP};
  beep(1760, 50);
  fprintf(stderr, "\n\n%s\n%s [%s] ? ", screen_text(ST_IMAGE_CHOICES), screen_text(ST_MODE),
          screen_text(kinds[image_jobs.kind ? 1 : 0]));
  int n = read_number(2);
  if (n == 0 || n == 1) image_jobs.kind = n;
  else if (n != KEEP_DEFAULT) return 1;  // a period, Escape or another number
  return image_jobs.kind ? bitmap_job() : postscript_job();
}

int bitmap_job() {
  screen_title("image", screen_text(ST_BITMAP_TITLE));
  char program[PROGRAM_FILE_SIZE], output[PROGRAM_FILE_SIZE];
  if (!ask_program(program, sizeof program)) return 1;
  if (!ask_output(screen_text(ST_BITMAP_FILE), program, ".bmp", output, sizeof output)) return 1;
  make_bitmap(program, output);
  return 1;
}
