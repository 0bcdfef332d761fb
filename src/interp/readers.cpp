// readers.cpp - parameter readers: numbers, data lists, texts, file names.
#include "interp/readers.h"

#include <cstdlib>
#include <cstring>
#include <string>

#include "commands/command.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "interp/macro.h"
#include "interp/reader.h"

// Substitutes and evaluates `text` into ptr (`mode` as lookup takes it), then
// reads n numbers into param[1..n]. `who` names the reader in its message.
static int read_numbers(const char *text, int n, const char *who, int mode = LOOKUP_PARAMS) {
  RunState &r = run_state;
  if (text != r.ptr) copy_text(r.ptr, LINE_SIZE, text);
  if (!lookup(mode)) return 0;
  const char *p = r.ptr;
  for (int i = 1; i <= n && i < PARAM_SIZE; i++) {
    char *end = nullptr;
    double v = strtod(p, &end);
    if (end == p) return put_errorf("%s illegal param %d in %d", who, i, n);
    r.param[i] = v;
    p = end;
  }
  return 1;
}

int readp(const char *text, int n) { return read_numbers(text, n, "readp"); }

int readp2(const char *text, int n, FILE *stream) {
  RunState &r = run_state;
  if (!read_numbers(text, n, "readp2")) return 0;
  char line[LINE_SIZE];
  for (int k = 1; k <= MAX_PAIRS + 1; k++) {
    r.line_number++;
    if (!read_line(stream, line)) return put_error("readp2 data can not read");
    copy_text(r.ptr, LINE_SIZE, line);
    if (!lookup(LOOKUP_PARAMS)) return 0;
    const char *p = r.ptr;
    for (int pos = 1; pos <= 2; pos++) {
      int at = n + 2 * k + pos - 1;
      char *end = nullptr;
      double v = strtod(p, &end);
      if (end == p) return put_errorf("readp2 illegal data %.2lf (%d, %d)", r.param[at - 1], k, pos);
      r.param[at] = v;
      p = end;
    }
    // 9999 in either place ends the data: the pairs before it count.
    if (r.param[n + 2 * k] == DATA_END || r.param[n + 2 * k + 1] == DATA_END) {
      r.param[n + 1] = k - 1;
      return 1;
    }
  }
  return put_error("readp2 data end (9999) was not found");
}

int readp3(const char *text, int n) {
  RunState &r = run_state;
  char raw[LINE_SIZE];
  copy_text(raw, LINE_SIZE, text);
  if (!read_numbers(text, n, "readp3", LOOKUP_TEXT)) return 0;
  // The text starts after the second blank character of the raw parameters.
  const char *p = raw;
  for (int blanks = 0; blanks < 2 && p != nullptr; blanks++) {
    p = strchr(p, ' ');
    if (p != nullptr) p++;
  }
  copy_text(r.ptr, LINE_SIZE, p != nullptr ? p : "");
  return 1;
}

int readp4(const char *text, int n) {
  RunState &r = run_state;
  if (text[0] == '\0') return put_error("readp4 no program file");
  size_t w = strcspn(text, " ");
  std::string name(text, w);
  std::string rest(text + w);
  copy_text(r.fname0, NAME_SIZE, name.c_str());
  return read_numbers(rest.c_str(), n, "readp4");
}

int readp5(const char *text) {
  if (text[0] == '\0') return put_error("readp5 no program file");
  copy_text(run_state.fname0, NAME_SIZE, text);
  return 1;
}
