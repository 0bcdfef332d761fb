// console_io.h - what the menu screens read from the user: a number (one key,
// or a short line), a text such as a file name, and names completed from a
// default. Enter keeps the default shown in brackets; a period or Escape
// goes back to the menu.
#ifndef TACTO_MENUS_CONSOLE_IO_H
#define TACTO_MENUS_CONSOLE_IO_H

#include <cstdio>

enum : int {
  KEEP_DEFAULT = -999,  // nothing typed: Enter alone
  BACK_TO_MENU = -998,  // a period or Escape
  TEXT_SIZE = 72,       // longest text the screens accept
};

struct ConsoleIo {
  FILE *in;    // where lines are read (standard input; tests replace it)
  int at_end;  // a line read met the end of input
};
extern ConsoleIo console_io;

// Reads one line of at most `size` - 1 characters into buf, without its line
// end; the rest of a longer line is dropped. 0 at the end of input (buf "").
int read_console_line(char *buf, int size);

// The number reader of width n. n = 1: one key; Enter gives KEEP_DEFAULT,
// Escape BACK_TO_MENU, a digit its value, anything else -1. n > 1: a line of
// at most n characters; nothing typed (or the end of input) gives
// KEEP_DEFAULT, a line starting with a period or holding Escape
// BACK_TO_MENU, a number its value and anything else -1.
int read_number(int n);

// The text reader: a line of at most TEXT_SIZE characters without its
// surrounding blanks into buf (size bytes). Returns 1 when a text was typed,
// 0 when nothing was (buf is left as it is: the default), -1 for a period or
// Escape.
int read_text(char *buf, int size);

// Completes a typed file name from a default: the directory, base name and
// extension that the typed name lacks are taken from the default.
void merge_name(const char *typed, const char *fallback, char *out, int size);

// Asks for a number within lo..hi until one is given, showing `prompt`
// before each read of `width` characters. 1 with *value set; 0 when the user
// goes back or the input has ended. Enter alone stands for `if_enter` (which
// may be BACK_TO_MENU).
int ask_number(const char *prompt, int width, int if_enter, int lo, int hi, int *value);

// Asks for a file name after "\n<label> [<fallback>] = ": what is typed is
// completed from the fallback, Enter takes the fallback. Returns read_text's
// answer (1, 0, or -1 with out unchanged).
int ask_file_name(const char *label, const char *fallback, char *out, int size);

// A screen's title and how to leave it; `name` names the activity in messages.
void screen_title(const char *name, const char *title);

// Reports the error `format` with a name and waits for a key after `lead`
// and "press any key ? " in the screen language. Returns 0.
int refuse_with_key(const char *format, const char *name, const char *lead);

// The name with its extension replaced (".ps", ".bmp").
void replace_extension(const char *name, const char *ext, char *out, int size);

#endif
