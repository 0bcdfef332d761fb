// kana.h - the Japanese Braille translator: single-byte (half-width)
// katakana mixed with digits, Latin letters and punctuation become six-dot
// cells written in Braille ASCII, ready to be drawn like any Braille line.
#ifndef TACTO_TEXT_KANA_H
#define TACTO_TEXT_KANA_H

enum : int { KANA_BUFFER = 200 };  // capacity of a translation, terminator included

// Translates text into Braille ASCII in out (KANA_BUFFER bytes, always
// terminated); cells beyond the capacity are dropped. Bytes the translator
// has no cells for give none. Returns the length written.
int kana_translate(const char *text, char *out);

#endif
