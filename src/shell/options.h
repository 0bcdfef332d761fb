// options.h - the long options ("--output=plan.ps", "--print=cups:emb"), our
// additions beside the single-letter ones, read into one plain record.
#ifndef TACTO_SHELL_OPTIONS_H
#define TACTO_SHELL_OPTIONS_H

// What a command-line run produces instead of the embosser stream on
// standard output.
enum : int {
  PRODUCE_STREAM = 0,  // the embosser stream on standard output (no long option)
  PRODUCE_FILE,        // --output=FILE
  PRODUCE_PRINT,       // --print[=DEST]
  PRODUCE_VIEW,        // --braille-view[=K]
  PRODUCE_CHECK,       // --check[=LABEL_MM,LINE_MM]
};

// The kind of an --output file, by its extension.
enum : int { OUTPUT_STREAM = 0, OUTPUT_PS, OUTPUT_BMP, OUTPUT_PNG, OUTPUT_SVG, OUTPUT_PDF };

enum : int { OPTION_TEXT_SIZE = 256 };

struct LongOptions {
  int help;       // --help: the usage on standard output, status 0
  int version;    // --version
  int produce;    // PRODUCE_*
  char output[OPTION_TEXT_SIZE];  // --output=FILE
  int output_kind;                // OUTPUT_*
  int dpi;                        // --dpi=N; 0 when not given
  int view_scale;                 // --braille-view=K (1 when K is not given)
  double label_mm, line_mm;       // --check=LABEL_MM,LINE_MM (3 and 2)
  int print_default;              // --print without =DEST: the saved destination
  char print_to[OPTION_TEXT_SIZE];  // --print=DEST
  int copies;                     // --copies=N; 0 when not given
};

// The record before any option: nothing asked for.
LongOptions no_long_options();

// 1 when the argument is a long option ("--" and a name).
int is_long_option(const char *arg);

// Reads one long option into `o`; 1, or 0 after printing what is wrong with
// it on the error stream.
int read_long_option(const char *arg, LongOptions *o);

// Checks the options together once all are read (one product at a time,
// --copies only with --print, --dpi only with a picture, a program file for
// every product); 1, or 0 after printing why not.
int check_long_options(const LongOptions &o, int has_program);

// The kind of an output file by its extension (any case).
int output_kind_of(const char *path);

// The usage with the long options, on standard output (--help).
void print_long_usage();

#endif
