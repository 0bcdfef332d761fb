// options.cpp - the long options: each one's name, its value and its range.
#include "shell/options.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <strings.h>

#include "core/run_state.h"
#include "devices/preview.h"
#include "devices/serial.h"

LongOptions no_long_options() {
  LongOptions o = LongOptions();
  o.view_scale = 1;
  o.label_mm = 3;
  o.line_mm = 2;
  return o;
}

int is_long_option(const char *arg) { return arg[0] == '-' && arg[1] == '-' && arg[2] != '\0'; }

int output_kind_of(const char *path) {
  const char *dot = strrchr(path, '.');
  if (dot == nullptr || strchr(dot, '/') != nullptr) return OUTPUT_STREAM;
  static const struct {
    const char *ext;
    int kind;
  } kinds[] = {{".ps", OUTPUT_PS}, {".bmp", OUTPUT_BMP}, {".png", OUTPUT_PNG}, {".svg", OUTPUT_SVG}, {".pdf", OUTPUT_PDF}};
  for (const auto &k : kinds)
    if (strcasecmp(dot, k.ext) == 0) return k.kind;
  return OUTPUT_STREAM;
}

// A whole number from lo to hi, the whole text; 0 when it is not one.
static int whole_number(const char *text, int lo, int hi, int *out) {
  char *end = nullptr;
  errno = 0;
  long v = strtol(text, &end, 10);
  if (end == text || *end != '\0' || errno != 0 || v < lo || v > hi) return 0;
  *out = static_cast<int>(v);
  return 1;
}

// A number of millimetres from 0 to 100, up to `stop`; 0 when it is not one.
static int millimetres(const char *text, char stop, double *out) {
  char *end = nullptr;
  double v = strtod(text, &end);
  if (end == text || *end != stop || !(v >= 0 && v <= 100)) return 0;
  *out = v;
  return 1;
}

// Sets a product, refusing a second one.
static int choose_product(LongOptions *o, int produce, const char *arg) {
  if (o->produce != PRODUCE_STREAM && o->produce != produce) {
    fprintf(stderr, "!!! only one of --output, --print, --braille-view and --check at a time: %s\n", arg);
    return 0;
  }
  o->produce = produce;
  return 1;
}

int read_long_option(const char *arg, LongOptions *o) {
  const char *name = arg + 2;
  const char *eq = strchr(name, '=');
  size_t len = eq != nullptr ? static_cast<size_t>(eq - name) : strlen(name);
  const char *value = eq != nullptr ? eq + 1 : nullptr;
  auto is = [&](const char *word) { return strlen(word) == len && strncmp(name, word, len) == 0; };

  if ((is("help") || is("version")) && value == nullptr) {
    (is("help") ? o->help : o->version) = 1;
    return 1;
  }
  if (is("output")) {
    if (value == nullptr || value[0] == '\0' || strlen(value) >= OPTION_TEXT_SIZE) {
      fprintf(stderr, "!!! --output needs a file name of at most %d characters: %s\n", OPTION_TEXT_SIZE - 1, arg);
      return 0;
    }
    if (!choose_product(o, PRODUCE_FILE, arg)) return 0;
    copy_text(o->output, OPTION_TEXT_SIZE, value);
    o->output_kind = output_kind_of(value);
    return 1;
  }
  if (is("dpi")) {
    if (value == nullptr || !whole_number(value, PREVIEW_DPI_MIN, PREVIEW_DPI_MAX, &o->dpi)) {
      fprintf(stderr, "!!! --dpi takes a whole number from %d to %d: %s\n", PREVIEW_DPI_MIN, PREVIEW_DPI_MAX, arg);
      return 0;
    }
    return 1;
  }
  if (is("braille-view")) {
    if (value != nullptr && !whole_number(value, 1, 64, &o->view_scale)) {
      fprintf(stderr, "!!! --braille-view takes a whole number from 1 to 64: %s\n", arg);
      return 0;
    }
    return choose_product(o, PRODUCE_VIEW, arg);
  }
  if (is("check")) {
    if (value != nullptr) {
      const char *comma = strchr(value, ',');
      if (comma == nullptr || !millimetres(value, ',', &o->label_mm) || !millimetres(comma + 1, '\0', &o->line_mm)) {
        fprintf(stderr, "!!! --check takes two distances in mm from 0 to 100, as --check=3,2: %s\n", arg);
        return 0;
      }
    }
    return choose_product(o, PRODUCE_CHECK, arg);
  }
  if (is("print")) {
    if (value != nullptr && (value[0] == '\0' || strlen(value) >= PORT_NAME_SIZE)) {
      fprintf(stderr, "!!! --print needs a destination of at most %d characters: %s\n", PORT_NAME_SIZE - 1, arg);
      return 0;
    }
    if (!choose_product(o, PRODUCE_PRINT, arg)) return 0;
    o->print_default = value == nullptr;
    copy_text(o->print_to, OPTION_TEXT_SIZE, value != nullptr ? value : "");
    return 1;
  }
  if (is("copies")) {
    if (value == nullptr || !whole_number(value, 1, 99, &o->copies)) {
      fprintf(stderr, "!!! --copies takes a whole number from 1 to 99: %s\n", arg);
      return 0;
    }
    return 1;
  }
  fprintf(stderr, "!!! illegal option: %s\n", arg);
  fputs("usage: tacto -e -j -t -d -r -h [< infile] [> outfile]\n", stderr);
  return 0;
}

int check_long_options(const LongOptions &o, int has_program) {
  if (o.help || o.version) return 1;
  if (o.copies != 0 && o.produce != PRODUCE_PRINT) {
    fputs("!!! --copies goes with --print\n", stderr);
    return 0;
  }
  int picture = o.produce == PRODUCE_FILE &&
                (o.output_kind == OUTPUT_PNG || o.output_kind == OUTPUT_SVG || o.output_kind == OUTPUT_PDF);
  if (o.dpi != 0 && !picture) {
    fputs("!!! --dpi goes with --output of a .png, .svg or .pdf file\n", stderr);
    return 0;
  }
  if (o.produce != PRODUCE_STREAM && !has_program) {
    fputs("!!! --output, --print, --braille-view and --check need a program file\n", stderr);
    return 0;
  }
  return 1;
}

void print_long_usage() {
  static const char *const lines[] = {
      "usage: tacto [-e|-j] [-7|-6|-i] [-t|-d] [-r] [-h] [LONG OPTIONS] [infile]",
      "  -e, -j                English or Japanese messages",
      "  -7, -6, -i            ESA721, ESA600G or Index Everest-D embosser",
      "  -t, -d                test or debug mode: every command and dot traced",
      "  -r                    start from the built-in settings",
      "  -h, -?                the short usage, on the error stream",
      "  --help                this text",
      "  --version             the version",
      "  --output=FILE         write the run to FILE by its extension: .ps tactile PostScript,",
      "                        .bmp bitmap, .png .svg .pdf a preview of the sheet, else the",
      "                        embosser stream",
      "  --dpi=N               the resolution of a .png preview (100)",
      "  --braille-view[=K]    each page's dot grid as Unicode braille on standard output,",
      "                        K by K grid positions to a braille dot (1)",
      "  --check[=L,M]         legibility checks: labels within L mm (3) of another figure,",
      "                        figures running within M mm (2) of each other; status 3 when",
      "                        something was found",
      "  --print[=DEST]        emboss to DEST (COM1, /dev/usb/lp0, socket://HOST:PORT,",
      "                        cups:QUEUE), by default the saved destination",
      "  --copies=N            copies to --print (1-99)",
      "Without a program file the menu runs; `help` in a program lists the commands.",
  };
  for (const char *line : lines) printf("%s\n", line);
}
