// macro.cpp - the macro table and the look-up that substitutes macros into
// command words and parameter texts and evaluates every parameter word.
#include "interp/macro.h"

#include <cctype>
#include <cstring>
#include <string>
#include <strings.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "interp/calc.h"

MacroTable vtab;

void reset_macros() { vtab.count = 0; }
[[maybe_unused]] static const int reset_listed = add_reset(reset_macros);

// Where the "defined" lines go: the echo stream when echoing, else the console.
static FILE *macro_out() {
  int m = run_state.run_mode;
  return (m == MODE_DEBUG || m == MODE_TEST) ? run_state.echo_out : stderr;
}

// Splits off the first word at a blank or line feed; "" when there is none.
static std::string first_word(const char *t, const char **rest) {
  t += strspn(t, " ");
  size_t n = strcspn(t, " \n");
  if (rest != nullptr) *rest = t + n;
  return std::string(t, n);
}

int define_macro(const char *text) {
  const char *rest = nullptr;
  std::string word = first_word(text, &rest);
  if (word.empty()) return put_error("define no entry word");
  if (word.size() >= MACRO_WORD_SIZE) return put_errorf("define too long entry word (%s)", word.c_str());
  if (!isalpha(static_cast<unsigned char>(word[0]))) {
    return put_errorf("define non-alphabetical entry word (%s)", word.c_str());
  }
  rest += strspn(rest, " ");
  std::string repl(rest, strcspn(rest, "\n"));
  if (repl.empty()) return put_errorf("define empty string (%s)", word.c_str());
  if (repl.size() > MACRO_TEXT_MAX) return put_errorf("define replaced string is too long (%s)", repl.c_str());
  for (int i = 1; i <= vtab.count; i++) {
    MacroEntry &e = vtab.entry[i];
    if (word == e.word) {
      copy_text(e.text, MACRO_TEXT_SIZE, repl.c_str());
      fprintf(macro_out(), "redefined %s %s in rec. %d\n", e.word, e.text, e.number);
      return 1;
    }
  }
  // A new word needs a free record; a redefinition never does.
  if (vtab.count >= MACRO_ENTRIES) {
    return put_errorf("define variable table is full (rec. %d < %d)", vtab.count, MACRO_ENTRIES);
  }
  MacroEntry &e = vtab.entry[++vtab.count];
  e.number = vtab.count;
  copy_text(e.word, MACRO_WORD_SIZE, word.c_str());
  copy_text(e.text, MACRO_TEXT_SIZE, repl.c_str());
  fprintf(macro_out(), "defined %s %s in rec. %d\n", e.word, e.text, e.number);
  return 1;
}

int undefine_macro(const char *text) {
  if (vtab.count <= 0) return put_error("undefine empty variable table");
  std::string word = first_word(text, nullptr);
  if (word.empty()) return put_error("undefine no entry word");
  if (!isalpha(static_cast<unsigned char>(word[0]))) {
    return put_errorf("undefine non-alphabetical entry word (%s)", word.c_str());
  }
  int k = 0;
  for (int i = 1; i <= vtab.count; i++) {
    MacroEntry e = vtab.entry[i];
    if (word == e.word) {
      fprintf(macro_out(), "undefined %s %s in rec. %d\n", e.word, e.text, e.number);
      continue;
    }
    k++;
    vtab.entry[k] = e;
    vtab.entry[k].number = k;
  }
  vtab.count = k;
  return 1;
}

// The replacement of a word (ignoring case), or the word itself.
static const char *substitute(const std::string &word) {
  for (int i = 1; i <= vtab.count; i++)
    if (strcasecmp(vtab.entry[i].word, word.c_str()) == 0) return vtab.entry[i].text;
  return word.c_str();
}

// One substitution pass over a text; text commands keep only two words.
static std::string substitute_pass(const std::string &text, int text_command) {
  std::string out;
  const char *p = text.c_str();
  int words = 0;
  for (;;) {
    p += strspn(p, " \n");
    size_t n = strcspn(p, " \n");
    if (n == 0) break;
    std::string word(p, n);
    out += substitute(word);
    out += ' ';
    p += n;
    if (text_command && ++words == 2) break;
  }
  return out;
}

int lookup(int mode) {
  RunState &r = run_state;
  if (mode == LOOKUP_WORD) {
    for (int i = 1; i <= vtab.count; i++) {
      if (strcmp(vtab.entry[i].word, r.cname) == 0) {
        copy_text(r.cname, NAME_SIZE, vtab.entry[i].text);
        break;
      }
    }
    return 1;
  }
  int text_command = mode == LOOKUP_TEXT;
  std::string once = substitute_pass(r.ptr, text_command);
  std::string twice = substitute_pass(once, text_command);

  // Evaluate every word up to a "//" word; the comment is carried over.
  std::string out;
  const char *p = twice.c_str();
  int words = 0, ok = 1;
  p += strspn(p, " ");
  if (strncmp(p, "//", 2) == 0 && (p[2] == ' ' || p[2] == '\0')) return 1;
  for (;;) {
    p += strspn(p, " ");
    size_t n = strcspn(p, " ");
    if (n == 0) break;
    std::string word(p, n);
    if (word == "//") {
      out += p;
      break;
    }
    double v = evaluate(word.c_str());
    if (calc.error) {
      put_error("lookup unevaluate");
      ok = 0;
    }
    char num[400];  // "%.4f" of the largest double fits
    snprintf(num, sizeof num, "%.4f ", v);
    out += num;
    p += n;
    if (text_command && ++words == 2) break;
  }
  if (out.size() >= LINE_SIZE) return put_error("too long parameters");
  copy_text(r.ptr, LINE_SIZE, out.c_str());
  return ok;
}
