// utf8text.cpp - UTF-8 program text. The kana folding writes the bytes a
// legacy program would hold for the same text, so the translator and its
// combinations by arithmetic on the byte before work unchanged.
#include "text/utf8text.h"

#include <cstring>
#include <iconv.h>
#include <sys/stat.h>

#include "text/brltable.h"

// Bytes of a character from its first byte; 0 for a byte that cannot start one.
static int char_length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

int utf8_bom_length(const char *text, size_t len) {
  return len >= 3 && memcmp(text, "\xEF\xBB\xBF", 3) == 0 ? 3 : 0;
}

int utf8_decode(const char *s, size_t len, unsigned *code) {
  const unsigned char *u = reinterpret_cast<const unsigned char *>(s);
  if (len == 0) return 0;
  int n = char_length(u[0]);
  if (n == 0 || static_cast<size_t>(n) > len) return 0;
  unsigned c = u[0] & (0x7Fu >> n);
  if (n == 1) c = u[0];
  for (int i = 1; i < n; i++) {
    if ((u[i] & 0xC0) != 0x80) return 0;
    c = c << 6 | (u[i] & 0x3Fu);
  }
  static const unsigned least[5] = {0, 0, 0x80, 0x800, 0x10000};  // shorter forms are overlong
  if (c < least[n] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return 0;
  *code = c;
  return n;
}

int is_utf8_text(const char *text, size_t len) {
  int multibyte = 0;
  unsigned code;
  for (size_t i = 0; i < len;) {
    int n = utf8_decode(text + i, len - i, &code);
    if (n == 0) return 0;
    multibyte |= n > 1;
    i += static_cast<size_t>(n);
  }
  return multibyte;
}

int stream_is_utf8(FILE *f) {
  // Only a regular file ends and can be read again: /dev/zero would not end.
  struct stat st;
  if (fstat(fileno(f), &st) != 0 || !S_ISREG(st.st_mode)) return -1;
  long start = ftell(f);
  if (start < 0 || fseek(f, start, SEEK_SET) != 0) return -1;
  enum : size_t { CHUNK = 4096 };
  char buf[CHUNK + 4];
  size_t have = 0;  // bytes in buf: a character cut by the last read, then the new ones
  int valid = 1, multibyte = 0;
  unsigned code;
  while (valid) {
    size_t got = fread(buf + have, 1, CHUNK, f);
    have += got;
    int end = got == 0;
    size_t i = 0;
    while (i < have) {
      int n = char_length(static_cast<unsigned char>(buf[i]));
      if (!end && n > 1 && i + static_cast<size_t>(n) > have) break;  // the next read completes it
      n = utf8_decode(buf + i, have - i, &code);
      if (n == 0) {
        valid = 0;
        break;
      }
      multibyte |= n > 1;
      i += static_cast<size_t>(n);
    }
    if (end) break;
    memmove(buf, buf + i, have - i);
    have -= i;
  }
  clearerr(f);
  fseek(f, start, SEEK_SET);
  char head[3];
  size_t n = fread(head, 1, sizeof head, f);
  if (utf8_bom_length(head, n) == 0) fseek(f, start, SEEK_SET);
  return valid && multibyte;
}

// ---- faults -----------------------------------------------------------------

static void note_fault(TextFault *fault, int kind, const char *s, int n, unsigned code) {
  if (fault->count++ > 0) return;
  fault->kind = kind;
  fault->code = code;
  fault->text[0] = '\0';
  // A control code would garble the message: only its code point names it.
  int printable = kind != FAULT_NOT_UTF8 && code >= 0x20 && !(code >= 0x7F && code < 0xA0);
  if (printable && n < FAULT_TEXT_SIZE) {
    memcpy(fault->text, s, static_cast<size_t>(n));
    fault->text[n] = '\0';
  }
}

std::string fault_message(const TextFault &fault) {
  const char *what = "";
  switch (fault.kind) {
    case FAULT_NOT_UTF8: what = "not UTF-8 text:"; break;
    case FAULT_NO_KANA: what = "no kana cell for"; break;
    case FAULT_NO_BRAILLE: what = "no Braille cell for"; break;
    case FAULT_NO_SJIS: what = "no Shift_JIS code for"; break;
    default: return "";
  }
  char text[96];
  if (fault.kind == FAULT_NOT_UTF8)
    snprintf(text, sizeof text, "%s byte 0x%02X", what, fault.code);
  else if (fault.text[0] != '\0')
    snprintf(text, sizeof text, "%s %s (U+%04X)", what, fault.text, fault.code);
  else
    snprintf(text, sizeof text, "%s U+%04X", what, fault.code);
  std::string out = text;
  if (fault.count > 1) out += " and " + std::to_string(fault.count - 1) + " more";
  return out;
}

// ---- conversions --------------------------------------------------------------

// Calls take(code, bytes, length) for every character of text; take
// returns 1, or -1 when the character has no code, which is noted in fault
// as `missing`. Bytes that are no UTF-8 are noted and skipped. Returns 1
// when nothing was noted.
template <typename Take>
static int each_char(const char *text, TextFault *fault, int missing, Take take) {
  TextFault unused{};
  if (fault == nullptr) fault = &unused;
  *fault = TextFault{};
  size_t len = strlen(text);
  unsigned code;
  for (size_t i = 0; i < len;) {
    int n = utf8_decode(text + i, len - i, &code);
    if (n == 0) {
      note_fault(fault, FAULT_NOT_UTF8, text + i, 1, static_cast<unsigned char>(text[i]));
      i++;
      continue;
    }
    if (take(code, text + i, n) < 0) note_fault(fault, missing, text + i, n, code);
    i += static_cast<size_t>(n);
  }
  return fault->count == 0;
}

// A bounded output buffer, always terminated.
struct Output {
  char *p;
  size_t size, used;
};

static Output output(char *p, size_t size) {
  if (size > 0) p[0] = '\0';
  return Output{p, size, 0};
}

static void put(Output &o, unsigned c) {
  if (o.used + 1 >= o.size) return;
  o.p[o.used++] = static_cast<char>(c);
  o.p[o.used] = '\0';
}

// Full-width katakana U+30A1 to U+30FA as half-width katakana: a voiced or
// semi-voiced letter is its letter followed by the mark. Null where the
// translator has no cell: small wa, ka and ke, wi, we, and the voiced wa-row.
static const char *const katakana_fold[] = {
    "ｧ", "ｱ", "ｨ", "ｲ", "ｩ", "ｳ", "ｪ", "ｴ", "ｫ", "ｵ",              // ァアィイゥウェエォオ
    "ｶ", "ｶﾞ", "ｷ", "ｷﾞ", "ｸ", "ｸﾞ", "ｹ", "ｹﾞ", "ｺ", "ｺﾞ",         // カガキギクグケゲコゴ
    "ｻ", "ｻﾞ", "ｼ", "ｼﾞ", "ｽ", "ｽﾞ", "ｾ", "ｾﾞ", "ｿ", "ｿﾞ",         // サザシジスズセゼソゾ
    "ﾀ", "ﾀﾞ", "ﾁ", "ﾁﾞ", "ｯ", "ﾂ", "ﾂﾞ", "ﾃ", "ﾃﾞ", "ﾄ", "ﾄﾞ",    // タダチヂッツヅテデトド
    "ﾅ", "ﾆ", "ﾇ", "ﾈ", "ﾉ",                                        // ナニヌネノ
    "ﾊ", "ﾊﾞ", "ﾊﾟ", "ﾋ", "ﾋﾞ", "ﾋﾟ", "ﾌ", "ﾌﾞ", "ﾌﾟ",             // ハバパヒビピフブプ
    "ﾍ", "ﾍﾞ", "ﾍﾟ", "ﾎ", "ﾎﾞ", "ﾎﾟ",                              // ヘベペホボポ
    "ﾏ", "ﾐ", "ﾑ", "ﾒ", "ﾓ",                                        // マミムメモ
    "ｬ", "ﾔ", "ｭ", "ﾕ", "ｮ", "ﾖ",                                   // ャヤュユョヨ
    "ﾗ", "ﾘ", "ﾙ", "ﾚ", "ﾛ",                                        // ラリルレロ
    nullptr, "ﾜ", nullptr, nullptr, "ｦ", "ﾝ",                       // ヮワヰヱヲン
    "ｳﾞ", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,     // ヴヵヶヷヸヹヺ
};
enum : unsigned {
  KATAKANA_FIRST = 0x30A1,
  KATAKANA_LAST = 0x30FA,
  HIRAGANA_FIRST = 0x3041,  // U+3041-U+3096 lie 0x60 below their katakana
  HIRAGANA_LAST = 0x3096,
  HIRAGANA_SHIFT = 0x60,
  HALFWIDTH_FIRST = 0xFF61,  // U+FF61-U+FF9F are the bytes 0xA1-0xDF in order
  HALFWIDTH_LAST = 0xFF9F,
  HALFWIDTH_BYTE = 0xA1,
  FULLWIDTH_FIRST = 0xFF01,  // U+FF01-U+FF5E are ASCII 0x21-0x7E
  FULLWIDTH_LAST = 0xFF5E,
  FULLWIDTH_SHIFT = 0xFEE0,
};
static_assert(sizeof katakana_fold / sizeof *katakana_fold == KATAKANA_LAST - KATAKANA_FIRST + 1,
              "one entry per katakana");

// The other characters with a code: spacing and combining marks, the
// ideographic space and the Japanese punctuation, as the character they
// stand for.
struct Alias {
  unsigned code, as;
};
static const Alias kana_aliases[] = {
    {0x3000, ' '},     // ideographic space
    {0x3001, 0xFF64},  // 、
    {0x3002, 0xFF61},  // 。
    {0x300C, 0xFF62},  // 「
    {0x300D, 0xFF63},  // 」
    {0x30FB, 0xFF65},  // ・
    {0x30FC, 0xFF70},  // ー
    {0x3099, 0xFF9E},  // combining voiced mark
    {0x309B, 0xFF9E},  // ゛
    {0x309A, 0xFF9F},  // combining semi-voiced mark
    {0x309C, 0xFF9F},  // ゜
};

// Writes the translator's code of one character; -1 when it has none.
static int put_kana(Output &out, unsigned code) {
  if (code >= FULLWIDTH_FIRST && code <= FULLWIDTH_LAST) code -= FULLWIDTH_SHIFT;
  for (const Alias &a : kana_aliases)
    if (code == a.code) code = a.as;
  if (code >= HIRAGANA_FIRST && code <= HIRAGANA_LAST) code += HIRAGANA_SHIFT;
  if (code < 0x80) {
    put(out, code);
  } else if (code >= HALFWIDTH_FIRST && code <= HALFWIDTH_LAST) {
    put(out, code - HALFWIDTH_FIRST + HALFWIDTH_BYTE);
  } else if (code >= KATAKANA_FIRST && code <= KATAKANA_LAST && katakana_fold[code - KATAKANA_FIRST]) {
    const char *fold = katakana_fold[code - KATAKANA_FIRST];
    unsigned half;
    for (size_t i = 0, len = strlen(fold); i < len; i += 3)  // each half-width letter is three bytes
      if (utf8_decode(fold + i, len - i, &half) == 3) put(out, half - HALFWIDTH_FIRST + HALFWIDTH_BYTE);
  } else {
    return -1;
  }
  return 1;
}

int fold_kana(const char *text, char *out, size_t size, TextFault *fault) {
  Output o = output(out, size);
  return each_char(text, fault, FAULT_NO_KANA, [&o](unsigned code, const char *, int) { return put_kana(o, code); });
}

enum : unsigned { BRAILLE_FIRST = 0x2800, BRAILLE_SIX_DOTS = 0x2840 };

int braille_from_utf8(const char *text, char *out, size_t size, TextFault *fault) {
  Output o = output(out, size);
  return each_char(text, fault, FAULT_NO_BRAILLE, [&o](unsigned code, const char *, int) {
    if (code < 0x80) {
      put(o, code);
    } else if (code == BRAILLE_FIRST) {
      put(o, ' ');
    } else if (code > BRAILLE_FIRST && code < BRAILLE_SIX_DOTS) {  // dots 7 and 8 have no six-dot cell
      put(o, static_cast<unsigned>(mask_to_ascii(static_cast<int>(code - BRAILLE_FIRST))));
    } else {
      return -1;
    }
    return 1;
  });
}

int kanji_hex_from_utf8(const char *text, std::string *hex, TextFault *fault) {
  // Code page 932 rather than plain Shift_JIS: it writes ASCII as ASCII
  // (not the yen sign and overline) and knows the characters Japanese
  // editors produce, such as the full-width tilde and the circled digits.
  iconv_t cd = iconv_open("CP932", "UTF-8");
  *hex = "< ";
  int ok = each_char(text, fault, FAULT_NO_SJIS, [cd, hex](unsigned code, const char *bytes, int n) {
    unsigned char sjis[4];
    size_t len = 1;
    if (code < 0x80) {
      sjis[0] = static_cast<unsigned char>(code);
    } else {
      if (cd == reinterpret_cast<iconv_t>(-1)) return -1;
      char *from = const_cast<char *>(bytes), *to = reinterpret_cast<char *>(sjis);
      size_t from_left = static_cast<size_t>(n), to_left = sizeof sjis;
      if (iconv(cd, &from, &from_left, &to, &to_left) == static_cast<size_t>(-1) || from_left != 0) return -1;
      len = sizeof sjis - to_left;
    }
    char group[8];
    if (len == 1) snprintf(group, sizeof group, "00%02x ", sjis[0]);
    else if (len == 2) snprintf(group, sizeof group, "%02x%02x ", sjis[0], sjis[1]);
    else return -1;
    *hex += group;
    return 1;
  });
  if (cd != reinterpret_cast<iconv_t>(-1)) iconv_close(cd);
  *hex += ">";
  return ok;
}
