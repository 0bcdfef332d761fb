// platform.cpp - terminal keys, bell, clock, paths and shells on Linux.
#include "platform/platform.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

Platform platform;

void reset_platform() {
  platform.scripted = 0;
  platform.script.clear();
  platform.beeps = 0;
  platform.fixed_clock = 0;
  platform.clock_text.clear();
  platform.exe_override.clear();
  platform.keys_ended = 0;
}

int keys_at_end() { return platform.keys_ended; }

void platform_script_keys(const std::string &keys) {
  platform.scripted = 1;
  platform.script = keys;
}

void platform_fix_clock(const std::string &text) {
  platform.fixed_clock = 1;
  platform.clock_text = text;
}

// Reads one byte from the terminal in non-canonical mode without echo.
// `wait_ms` < 0 waits for ever; otherwise returns -1 when nothing arrives.
static int tty_byte(int wait_ms) {
  if (wait_ms >= 0) {
    struct pollfd p = {STDIN_FILENO, POLLIN, 0};
    if (poll(&p, 1, wait_ms) <= 0) return -1;
  }
  unsigned char c = 0;
  ssize_t n = read(STDIN_FILENO, &c, 1);
  return n == 1 ? c : -1;
}

// Reads one key from the terminal; escape sequences of the cursor keys come
// back as the console's extended codes (0 followed by a scan code).
static int tty_key(int *scan) {
  struct termios old_mode, raw;
  int have_mode = tcgetattr(STDIN_FILENO, &old_mode) == 0;
  if (have_mode) {
    raw = old_mode;
    raw.c_lflag &= ~(ICANON | ECHO);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    tcsetattr(STDIN_FILENO, TCSANOW, &raw);
  }
  fflush(stdout);
  fflush(stderr);
  int c = tty_byte(-1);
  *scan = -1;
  if (c == KEY_ESCAPE) {
    int next = tty_byte(50);
    if (next == '[' || next == 'O') {
      // Read the rest of the sequence: digits and ';' then a final letter or '~'.
      std::string seq;
      for (int i = 0; i < 8; i++) {
        int b = tty_byte(50);
        if (b < 0) break;
        seq += static_cast<char>(b);
        if ((b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z') || b == '~') break;
      }
      c = 0;
      if (seq == "2~") *scan = 82;                                         // Insert
      else if (seq == "4~" || seq == "F" || seq == "8~") *scan = 79;        // End
      else *scan = 0;
    }
  }
  if (have_mode) tcsetattr(STDIN_FILENO, TCSANOW, &old_mode);
  if (c < 0) c = KEY_ENTER;
  return c;
}

int read_raw_key() {
  if (platform.scripted) {
    if (platform.script.empty()) {
      platform.keys_ended = 1;
      return KEY_ENTER;
    }
    int c = static_cast<unsigned char>(platform.script[0]);
    platform.script.erase(0, 1);
    return c;
  }
  if (isatty(STDIN_FILENO)) {
    int scan;
    int c = tty_key(&scan);
    if (c == 0) return scan == 82 ? '0' : scan == 79 ? '1' : ' ';
    return c;
  }
  int c = getc(stdin);
  if (c == EOF) {
    platform.keys_ended = 1;
    return KEY_ENTER;
  }
  return c;
}

int get_key() {
  int c = read_raw_key();
  if (c == '\n' || c == '\r') return KEY_ENTER;
  if (c >= 'A' && c <= 'Z') return c - 'A' + 'a';
  return c;
}

void platform_tone(int frequency, int duration_ms) {
  (void)frequency;
  (void)duration_ms;
  platform.beeps++;
  if (platform.scripted) return;
  if (isatty(STDERR_FILENO)) {
    fputc('\a', stderr);
    fflush(stderr);
  }
}

void clear_screen() {
  // The screen is the error stream's: standard output may carry embosser bytes.
  if (isatty(STDERR_FILENO)) {
    fputs("\x1b[H\x1b[2J", stderr);
    fflush(stderr);
  }
}

int utf8_locale(const char *lc_all, const char *lc_ctype, const char *lang) {
  const char *name = "C";
  for (const char *v : {lang, lc_ctype, lc_all})
    if (v != nullptr && *v != '\0') name = v;
  // The character set lies between the '.' and an '@' modifier; its
  // spellings differ in case and punctuation ("UTF-8", "utf8").
  const char *dot = strchr(name, '.');
  if (dot == nullptr) return 0;
  std::string set;
  for (const char *p = dot + 1; *p != '\0' && *p != '@'; p++)
    if (isalnum(static_cast<unsigned char>(*p))) set += static_cast<char>(tolower(static_cast<unsigned char>(*p)));
  return set == "utf8";
}

int terminal_utf8() { return utf8_locale(getenv("LC_ALL"), getenv("LC_CTYPE"), getenv("LANG")); }

std::string program_path() {
  if (!platform.exe_override.empty()) return platform.exe_override;
  char buf[4096];
  ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
  if (n <= 0) return "";
  buf[n] = '\0';
  return buf;
}

std::string local_time_text() {
  if (platform.fixed_clock) return platform.clock_text;
  time_t now = time(nullptr);
  struct tm tmv;
  localtime_r(&now, &tmv);
  char buf[64];
  strftime(buf, sizeof buf, "%a %b %e %H:%M:%S %Y", &tmv);
  return buf;
}

int run_user_shell() {
  const char *shell = getenv("SHELL");
  if (shell == nullptr || *shell == '\0') shell = "/bin/sh";
  fflush(stdout);
  fflush(stderr);
  pid_t pid = fork();
  if (pid < 0) return -1;
  if (pid == 0) {
    execl(shell, shell, static_cast<char *>(nullptr));
    _exit(127);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
  }
  return status;
}

std::string path_dir(const std::string &path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

std::string path_base(const std::string &path) {
  size_t slash = path.rfind('/');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return name;
  return name.substr(0, dot);
}

std::string path_ext(const std::string &path) {
  size_t slash = path.rfind('/');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return "";
  return name.substr(dot);
}
