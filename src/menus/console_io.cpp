// console_io.cpp - numbers, texts and file names typed at the menu screens.
#include "menus/console_io.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "platform/platform.h"

ConsoleIo console_io;

static void reset_console_io() { console_io = ConsoleIo(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_console_io);

static FILE *input() { return console_io.in != nullptr ? console_io.in : stdin; }

int read_console_line(char *buf, int size) {
  fflush(stderr);
  int n = 0, c = 0, got = 0;
  while ((c = getc(input())) != EOF) {
    got = 1;
    if (c == '\n') break;
    if (c == '\r') continue;
    if (n < size - 1) buf[n++] = static_cast<char>(c);
  }
  buf[n] = '\0';
  if (c == EOF && !got) {
    console_io.at_end = 1;
    return 0;
  }
  return 1;
}

// The text between leading and trailing blanks.
static std::string trimmed(const char *s) {
  const char *b = s;
  while (*b == ' ' || *b == '\t') b++;
  const char *e = b + strlen(b);
  while (e > b && (e[-1] == ' ' || e[-1] == '\t')) e--;
  return std::string(b, e - b);
}

int read_number(int n) {
  if (n <= 1) {
    int key = get_key();
    if (key == KEY_ENTER) return KEEP_DEFAULT;
    if (key == KEY_ESCAPE) return BACK_TO_MENU;
    if (key >= '0' && key <= '9') return key - '0';
    return -1;
  }
  char line[LINE_SIZE];
  if (n > LINE_SIZE - 1) n = LINE_SIZE - 1;
  if (!read_console_line(line, n + 1)) return KEEP_DEFAULT;
  std::string text = trimmed(line);
  if (text.empty()) return KEEP_DEFAULT;
  if (text[0] == '.' || text.find('\x1b') != std::string::npos) return BACK_TO_MENU;
  char *end = nullptr;
  errno = 0;
  long v = strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0') return -1;
  if (errno == ERANGE || v > INT_MAX || v < INT_MIN) return -1;
  return static_cast<int>(v);
}

int read_text(char *buf, int size) {
  char line[TEXT_SIZE + 1];
  if (!read_console_line(line, sizeof line)) return 0;
  std::string text = trimmed(line);
  if (text.empty()) return 0;
  if (text[0] == '.' || text.find('\x1b') != std::string::npos) return -1;
  copy_text(buf, size, text.c_str());
  return 1;
}

void merge_name(const char *typed, const char *fallback, char *out, int size) {
  std::string dir = path_dir(typed), base = path_base(typed), ext = path_ext(typed);
  if (dir.empty()) dir = path_dir(fallback);
  if (base.empty()) base = path_base(fallback);
  if (ext.empty()) ext = path_ext(fallback);
  copy_text(out, size, (dir + base + ext).c_str());
}

int ask_number(const char *prompt, int width, int if_enter, int lo, int hi, int *value) {
  for (;;) {
    fputs(prompt, stderr);
    int n = read_number(width);
    if (n == KEEP_DEFAULT) n = if_enter;
    if (n == BACK_TO_MENU || console_io.at_end) return 0;
    if (n >= lo && n <= hi) {
      beep(1760, 50);
      *value = n;
      return 1;
    }
    beep(220, 150);
  }
}

int ask_file_name(const char *label, const char *fallback, char *out, int size) {
  fprintf(stderr, "\n%s [%s] = ", label, fallback);
  char typed[TEXT_SIZE + 1] = "";
  int got = read_text(typed, sizeof typed);
  if (got > 0) merge_name(typed, fallback, out, size);
  else if (got == 0) copy_text(out, size, fallback);
  return got;
}

void screen_title(const char *name, const char *title) {
  copy_text(run_state.fname, NAME_SIZE, name);
  copy_text(run_state.cname, NAME_SIZE, name);
  beep(1760, 50);
  fprintf(stderr, "\n\n%s\n%s\n", title, screen_text(ST_BACK_HINT));
}

int refuse_with_key(const char *format, const char *name, const char *lead) {
  put_errorf(format, name);
  wait_for_key(lead);
  return 0;
}

void replace_extension(const char *name, const char *ext, char *out, int size) {
  std::string merged = path_dir(name) + path_base(name) + ext;
  copy_text(out, size, merged.c_str());
}
