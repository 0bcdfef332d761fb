// utf8text.h - program text written in UTF-8: telling it from the legacy
// single-byte code, and turning it into what the text commands work on:
// the half-width katakana bytes of the kana translator, Braille ASCII for
// the Braille cells, and the Shift_JIS hexadecimal string of the ink print.
#ifndef TACTO_TEXT_UTF8TEXT_H
#define TACTO_TEXT_UTF8TEXT_H

#include <cstddef>
#include <cstdio>
#include <string>

// What a conversion had to leave out.
enum : int {
  FAULT_NONE = 0,
  FAULT_NOT_UTF8,    // a byte that is not part of a well-formed UTF-8 character
  FAULT_NO_KANA,     // a character the kana translator has no cell for
  FAULT_NO_BRAILLE,  // a character that is neither ASCII nor a six-dot pattern
  FAULT_NO_SJIS,     // a character Shift_JIS cannot write
};

enum : int { FAULT_TEXT_SIZE = 8 };  // a character of up to four bytes, terminated

// The first character a conversion left out, and how many it left out.
struct TextFault {
  int kind;                     // FAULT_NONE when nothing was left out
  unsigned code;                // its code point, or the stray byte's value
  char text[FAULT_TEXT_SIZE];   // the character as UTF-8; "" for a stray byte or a control code
  int count;                    // characters (or stray bytes) left out in all
};

// 3 when text (len bytes) begins with a UTF-8 byte order mark, else 0.
int utf8_bom_length(const char *text, size_t len);

// Decodes the character at s (len bytes available): its length 1-4 with
// *code set, or 0 when the bytes are no well-formed character (a stray
// continuation byte, an overlong form, a surrogate, beyond U+10FFFF, cut short).
int utf8_decode(const char *s, size_t len, unsigned *code);

// 1 when the bytes are well-formed UTF-8 holding at least one multibyte
// character (a byte order mark counts as one); 0 for plain ASCII and for
// anything else, which is read as the legacy single-byte code.
int is_utf8_text(const char *text, size_t len);

// The coding of a whole stream read from its current position, as
// is_utf8_text decides it: 1 UTF-8, 0 legacy, -1 when the stream is no
// regular file (a pipe, a terminal, a device: decide line by line). A
// regular file is left where it was, past a byte order mark found there.
int stream_is_utf8(FILE *f);

// Folds UTF-8 text to the single-byte codes the kana translator works on:
// full-width katakana, hiragana and half-width katakana to half-width
// katakana (a voiced or semi-voiced letter to its letter and the mark, small
// letters small), the long-vowel mark, 。「」、・, the ideographic space and
// full-width ASCII to their codes; ASCII stays. Writes out (size bytes,
// always terminated; the result is never longer than the text). Returns 1,
// or 0 with *fault naming what had no code (left out; the rest is folded).
int fold_kana(const char *text, char *out, size_t size, TextFault *fault);

// Braille ASCII of UTF-8 text: each six-dot pattern U+2800-U+283F becomes
// the character of its dots (U+2800 a blank), ASCII stays for the cell table.
// Writes out as fold_kana does. Returns 1, or 0 with *fault naming what had
// no cell (left out).
int braille_from_utf8(const char *text, char *out, size_t size, TextFault *fault);

// The ink print's hexadecimal string of UTF-8 text in Shift_JIS (the
// Windows code page 932, through iconv): "< 93fa 967b 8cea >", one group per
// character, "00xx" for a single byte. Returns 1, or 0 with *fault naming
// what Shift_JIS cannot write (left out).
int kanji_hex_from_utf8(const char *text, std::string *hex, TextFault *fault);

// The warning for a fault, naming the character and its code point:
// "no kana cell for 漢 (U+6F22)", "... and 2 more" when more were left out.
std::string fault_message(const TextFault &fault);

#endif
