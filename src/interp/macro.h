// macro.h - the macro table: words that stand for other text, entered by
// `define` and removed by `undefine`, substituted into command words and
// parameter texts by lookup.
#ifndef TACTO_INTERP_MACRO_H
#define TACTO_INTERP_MACRO_H

enum : int {
  MACRO_ENTRIES = 30,
  MACRO_WORD_SIZE = 37,  // 36 characters and the terminator
  MACRO_TEXT_SIZE = 95,  // replacements hold at most 29 characters
  MACRO_TEXT_MAX = 29,
};

struct MacroEntry {
  int number;                   // equals the record's position, from 1
  char word[MACRO_WORD_SIZE];
  char text[MACRO_TEXT_SIZE];
};

struct MacroTable {
  int count;                            // entries in use, 0-30
  MacroEntry entry[MACRO_ENTRIES + 1];  // entry[0] is the header slot
};
extern MacroTable vtab;

// Empties the table.
void reset_macros();

// `define WORD TEXT`: enters or replaces a word; 0 after an error.
int define_macro(const char *text);

// `undefine WORD`: removes a word; 0 after an error.
int undefine_macro(const char *text);

// What lookup substitutes.
enum : int {
  LOOKUP_WORD = 0,    // run_state.cname, by the first entry equal to it (with case)
  LOOKUP_PARAMS = 1,  // every word of run_state.ptr
  LOOKUP_TEXT = 2,    // the first two words of run_state.ptr (a text command's x y)
};

// LOOKUP_WORD replaces the command word. The others substitute the words
// (ignoring case, two passes) and evaluate them, writing the values back as
// "%.4f"; with LOOKUP_TEXT the rest of the text is dropped. Reports "lookup
// unevaluate"; 0 after an error.
int lookup(int mode);

#endif
