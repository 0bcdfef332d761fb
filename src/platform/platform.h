// platform.h - the few things Tacto asks of the operating system: keys read
// without echo, the terminal bell, clearing the screen, the program's own
// path, the local time as text and the user's shell. Tests replace the keys,
// the clock and the bell through the functions at the end of this header.
#ifndef TACTO_PLATFORM_PLATFORM_H
#define TACTO_PLATFORM_PLATFORM_H

#include <string>

// Key codes as the console delivers them.
enum : int {
  KEY_ENTER = 13,
  KEY_ESCAPE = 27,
};

// Platform state: how keys are read and what the test doubles hold.
struct Platform {
  int scripted;           // 1 when keys come from `script` (tests)
  std::string script;     // scripted keys, consumed from the front
  int beeps;              // number of tones sounded since reset
  int fixed_clock;        // 1 when local_time_text returns `clock_text`
  std::string clock_text; // 24-character date for tests
  std::string exe_override; // program path for tests ("" = /proc/self/exe)
  int keys_ended;         // a key read met the end of input
};
extern Platform platform;

// Restores start-up defaults (real keys, real clock, no beeps counted).
void reset_platform();

// Reads one key without echo: from the terminal when standard input is one,
// else one byte of standard input. End of input reads as Enter.
int read_raw_key();

// Reads one key and maps it as the menus expect: Insert -> '0', End -> '1',
// other extended keys -> ' ', A-Z folded to lower case, line feed -> Enter.
int get_key();

// 1 once a key read found the end of input (no terminal, or scripted keys used up).
int keys_at_end();

// Sounds one tone (the terminal bell when there is a terminal).
void platform_tone(int frequency, int duration_ms);

// Clears the console (an ANSI clear on a terminal, nothing otherwise).
void clear_screen();

// 1 when the locale that names the character set (the first of LC_ALL,
// LC_CTYPE and LANG that is set and not empty) is a UTF-8 one, as
// "ja_JP.UTF-8" or "C.utf8"; no locale at all is "C", which is not.
int utf8_locale(const char *lc_all, const char *lc_ctype, const char *lang);

// utf8_locale of the environment: whether the terminal shows UTF-8 text.
int terminal_utf8();

// The running program's full path.
std::string program_path();

// The current local time in the 24-character form "Sun Sep 16 01:03:52 1973".
std::string local_time_text();

// Runs the user's shell interactively ($SHELL, else /bin/sh) and waits.
int run_user_shell();

// Path helpers in the manner of the classic split/merge functions.
std::string path_dir(const std::string &path);   // "a/b/c.txt" -> "a/b/"
std::string path_base(const std::string &path);  // "a/b/c.txt" -> "c"
std::string path_ext(const std::string &path);   // "a/b/c.txt" -> ".txt"

// Test doubles.
void platform_script_keys(const std::string &keys); // keys to read next
void platform_fix_clock(const std::string &text);   // time text to return

#endif
