// utf8text_test.cpp - UTF-8 program text: telling it from the legacy code,
// and the kana, Braille and Shift_JIS conversions checked against what the
// legacy bytes of the same text give.
#include "text/utf8text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iconv.h>
#include <unistd.h>
#include <vector>

#include "text/brltable.h"
#include "devices/inkprint.h"
#include "text/kana.h"

// Text converted by the system's iconv, independent of ours; "" when it cannot be.
static std::string iconv_text(const char *to, const char *from, std::string in) {
  iconv_t cd = iconv_open(to, from);
  std::string out(in.size() * 4 + 4, '\0');
  char *src = &in[0], *dst = &out[0];
  size_t src_left = in.size(), dst_left = out.size();
  size_t r = iconv(cd, &src, &src_left, &dst, &dst_left);
  iconv_close(cd);
  return r == static_cast<size_t>(-1) ? "" : out.substr(0, out.size() - dst_left);
}

// The characters of a UTF-8 string.
static std::vector<std::string> chars(const std::string &s) {
  std::vector<std::string> out;
  for (size_t i = 0, n; i < s.size(); i += n) {
    unsigned char b = static_cast<unsigned char>(s[i]);
    n = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
    out.push_back(s.substr(i, n));
  }
  return out;
}

TEST(Utf8Text, OnlyWellFormedMultibyteTextIsUtf8) {
  struct Case {
    const char *bytes;
    int length;
    unsigned code;
  } cases[] = {
      {"A", 1, 'A'}, {"\xC3\xA9", 2, 0xE9}, {"日", 3, 0x65E5}, {"😀", 4, 0x1F600}, {"\xEF\xBF\xBF", 3, 0xFFFF},
      {"\xB6", 0, 0}, {"\xC0\xAF", 0, 0}, {"\xE0\x80\xAF", 0, 0}, {"\xED\xA0\x80", 0, 0},  // stray, overlong, surrogate
      {"\xF4\x90\x80\x80", 0, 0}, {"\xE6\x97", 0, 0}, {"\xE6\x41\xA5", 0, 0}, {"\xF8\x88\x80\x80\x80", 0, 0},
  };
  for (const Case &c : cases) {
    unsigned code = 0;
    EXPECT_EQ(utf8_decode(c.bytes, strlen(c.bytes), &code), c.length) << c.bytes;
    EXPECT_EQ(code, c.code) << c.bytes;
  }
  unsigned code = 0;
  EXPECT_EQ(utf8_decode("日", 2, &code), 0);  // the length given counts, not the terminator
  auto is_utf8 = [](const std::string &s) { return is_utf8_text(s.data(), s.size()); };
  EXPECT_EQ(is_utf8("kana 0 0 カタカナ\n"), 1);
  EXPECT_EQ(is_utf8("\xEF\xBB\xBFline 0 0 1 1 1\n"), 1);  // a byte order mark says so
  EXPECT_EQ(is_utf8("line 0 0 1 1 1\n"), 0);               // ASCII reads the same either way
  EXPECT_EQ(is_utf8("kana 0 0 \xB6\xC0\xB6\xC5\n"), 0);    // legacy half-width katakana
  EXPECT_EQ(is_utf8("kana 0 0 カタカナ \xB6\n"), 0);       // one legacy byte spoils it
  EXPECT_EQ(utf8_bom_length("\xEF\xBB\xBF" "abc", 6), 3);
  EXPECT_EQ(utf8_bom_length("\xEF\xBB", 2), 0);
}

// A file is judged whole, across the reads it takes, and left at its start
// past a byte order mark; a pipe or a device is not judged ahead.
TEST(Utf8Text, StreamsAreJudgedWhole) {
  std::string a(4095, 'a');
  struct Case {
    std::string text;
    int utf8;
    long start;  // where the stream is left
  } cases[] = {
      {a + "日" + a, 1, 0},         {a + a + "\xB6", 0, 0},       // a character across a read; a legacy byte far in
      {a + "日\xE6\x97", 0, 0},     {"\xEF\xBB\xBFline\n", 1, 3}, // cut short at the end; the mark skipped
      {"\xEF\xBB\xBF\xB6", 0, 3},   {"", 0, 0},
  };
  for (const Case &c : cases) {
    FILE *f = tmpfile();
    fwrite(c.text.data(), 1, c.text.size(), f);
    rewind(f);
    EXPECT_EQ(stream_is_utf8(f), c.utf8) << c.text.size();
    EXPECT_EQ(ftell(f), c.start) << c.text.size();
    fclose(f);
  }
  int fds[2];
  ASSERT_EQ(pipe(fds), 0);
  FILE *in = fdopen(fds[0], "r");
  ASSERT_EQ(write(fds[1], "日本", 6), 6);
  EXPECT_EQ(stream_is_utf8(in), -1);
  char got[8] = {0};
  EXPECT_EQ(fread(got, 1, 6, in), 6u);  // nothing was consumed
  EXPECT_STREQ(got, "日本");
  fclose(in);
  close(fds[1]);
  FILE *zero = fopen("/dev/zero", "r");  // would never end
  EXPECT_EQ(stream_is_utf8(zero), -1);
  fclose(zero);
}

// ---- kana ---------------------------------------------------------------------

// One text in its legacy bytes and in the UTF-8 spellings that must fold to them.
struct KanaPair {
  std::string legacy;
  std::vector<std::string> utf8;
};

// The half-width katakana bytes 0xA1-0xDF in order, written full-width and in hiragana.
static const char FULL_WIDTH[] =
    "。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
static const char HIRAGANA[] =
    "。「」、・をぁぃぅぇぉゃゅょっーあいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほまみむめもやゆよらりるれろわん゛゜";
// The letters that take the voiced and the semi-voiced mark, and their marked forms.
static const char VOICEABLE[] = "\xB3\xB6\xB7\xB8\xB9\xBA\xBB\xBC\xBD\xBE\xBF\xC0\xC1\xC2\xC3\xC4\xCA\xCB\xCC\xCD\xCE";
static const char *const VOICED[] = {"ヴガギグゲゴザジズゼゾダヂヅデドバビブベボ", "ゔがぎぐげござじずぜぞだぢづでどばびぶべぼ"};
static const char *const SEMI_VOICED[] = {"パピプペポ", "ぱぴぷぺぽ"};

// Every spelling of the byte b: full-width, hiragana, half-width (by iconv).
static KanaPair single(int b) {
  KanaPair p{std::string(1, static_cast<char>(b)), {chars(FULL_WIDTH)[b - 0xA1], chars(HIRAGANA)[b - 0xA1]}};
  p.utf8.push_back(iconv_text("UTF-8", "CP932", p.legacy));
  return p;
}

// Every spelling of a letter with a mark: precomposed, and the letter's
// spellings followed by the mark's and by the combining mark.
static KanaPair marked(int letter, int mark, const char *const forms[2], size_t i) {
  KanaPair p{std::string{static_cast<char>(letter), static_cast<char>(mark)}, {chars(forms[0])[i], chars(forms[1])[i]}};
  for (const std::string &l : single(letter).utf8)
    for (const std::string &m : single(mark).utf8) p.utf8.insert(p.utf8.end(), {l + m, l + (mark == 0xDE ? "\u3099" : "\u309A")});
  return p;
}

static KanaPair joined(const KanaPair &a, const KanaPair &b) {
  KanaPair p{a.legacy + b.legacy, {}};
  for (const std::string &x : a.utf8)
    for (const std::string &y : b.utf8) p.utf8.push_back(x + y);
  return p;
}

// Every kana and mark alone, every voiced and semi-voiced letter, each
// letter before every small letter and the long-vowel mark, and every
// full-width ASCII character alone, after a kana and before one.
static std::vector<KanaPair> kana_pairs() {
  std::vector<KanaPair> out, letters;
  for (int b = 0xA1; b <= 0xDF; b++) out.push_back(single(b));
  for (int b = 0xB1; b <= 0xDD; b++) letters.push_back(single(b));
  for (size_t i = 0; i < strlen(VOICEABLE); i++) letters.push_back(marked(VOICEABLE[i] & 0xFF, 0xDE, VOICED, i));
  for (size_t i = 0; i < 5; i++) letters.push_back(marked(0xCA + static_cast<int>(i), 0xDF, SEMI_VOICED, i));
  for (const KanaPair &l : letters) {
    out.push_back(l);
    for (int s = 0xA7; s <= 0xB0; s++) out.push_back(joined(l, single(s)));  // small letters, ー
  }
  for (int c = 0x21; c <= 0x7E; c++) {
    std::string full = iconv_text("UTF-8", "UTF-32LE", std::string{static_cast<char>(c - 0x20), '\xFF', 0, 0});
    KanaPair ascii{std::string(1, static_cast<char>(c)), {full, std::string(1, static_cast<char>(c))}};
    out.insert(out.end(), {ascii, joined(single(0xB1), ascii), joined(ascii, single(0xB1))});
  }
  out.push_back({"\xB1 \xB2", {"ア\u3000イ", "あ イ"}});  // the ideographic space
  return out;
}

// The UTF-8 spelling of any kana text folds to its legacy bytes, so the
// translator gives the same cells for both.
TEST(Utf8Text, KanaInUtf8GivesTheCellsOfTheLegacyBytes) {
  int compared = 0;
  std::string mismatches;
  for (const KanaPair &p : kana_pairs())
    for (const std::string &u : p.utf8) {
      char folded[KANA_BUFFER], cells[KANA_BUFFER], legacy_cells[KANA_BUFFER];
      int ok = fold_kana(u.c_str(), folded, sizeof folded, nullptr);
      kana_translate(folded, cells);
      kana_translate(p.legacy.c_str(), legacy_cells);
      compared++;
      if (!ok || folded != p.legacy || strcmp(cells, legacy_cells) != 0) mismatches += "[" + u + "] ";
    }
  EXPECT_EQ(mismatches.substr(0, 400), "");
  EXPECT_GT(compared, 10000);
}

TEST(Utf8Text, KanaWithoutACellIsReportedByName) {
  char out[64];
  TextFault fault;
  EXPECT_EQ(fold_kana("ア漢イ", out, sizeof out, &fault), 0);
  EXPECT_STREQ(out, "\xB1\xB2");  // the rest is folded
  EXPECT_EQ(fault.kind, FAULT_NO_KANA);
  EXPECT_EQ(fault_message(fault), "no kana cell for 漢 (U+6F22)");
  EXPECT_EQ(fold_kana("ヰヷヶゎ", out, sizeof out, &fault), 0);  // wi, voiced wa, small ke and wa
  EXPECT_EQ(fault_message(fault), "no kana cell for ヰ (U+30F0) and 3 more");
  EXPECT_EQ(fold_kana("a\xC2\x85", out, sizeof out, &fault), 0);  // a control code is named by number
  EXPECT_EQ(fault_message(fault), "no kana cell for U+0085");
  EXPECT_EQ(fold_kana("\xB6\xC0", out, sizeof out, &fault), 0);  // legacy bytes are no UTF-8
  EXPECT_EQ(fault.kind, FAULT_NOT_UTF8);
  EXPECT_EQ(fault_message(fault), "not UTF-8 text: byte 0xB6 and 1 more");
  EXPECT_EQ(fold_kana("カナ 12", out, sizeof out, &fault), 1);
  EXPECT_EQ(fault_message(fault), "");
  memset(out, 0x7F, sizeof out);
  EXPECT_EQ(fold_kana("ガギグゲゴ", out, 5, nullptr), 1);  // cut to its buffer
  EXPECT_STREQ(out, "\xB6\xDE\xB7\xDE");
  EXPECT_EQ(out[5], 0x7F);
}

// ---- Braille patterns -------------------------------------------------------------

// Each of the 64 six-dot patterns becomes the character whose cell raises
// exactly its dots; ASCII stays for the cell table.
TEST(Utf8Text, BraillePatternsGiveTheirCells) {
  for (unsigned mask = 0; mask < 64; mask++) {
    char pattern[4] = {'\xE2', '\xA0', static_cast<char>(0x80 | mask), 0}, out[8];
    ASSERT_EQ(braille_from_utf8(pattern, out, sizeof out, nullptr), 1) << mask;
    ASSERT_EQ(strlen(out), 1u) << mask;
    const BrailleCell *cell = find_cell(normalize_char(static_cast<unsigned char>(out[0])));
    ASSERT_NE(cell, nullptr) << mask;
    for (int dot = 0; dot < 6; dot++) EXPECT_EQ(cell->pattern[dot] == '1', (mask >> dot & 1) != 0) << mask;
  }
  char out[32];
  TextFault fault;
  EXPECT_EQ(braille_from_utf8("x ⠁⠃⠉,a", out, sizeof out, &fault), 1);
  EXPECT_STREQ(out, "x ABC,a");
  EXPECT_EQ(braille_from_utf8("⠁⡀é⠃\xFF", out, sizeof out, &fault), 0);  // dot 7, an accent, a stray byte
  EXPECT_STREQ(out, "AB");
  EXPECT_EQ(fault_message(fault), "no Braille cell for ⡀ (U+2840) and 2 more");
}

// ---- Shift_JIS for the ink print ---------------------------------------------------

TEST(Utf8Text, KanjiBecomeTheShiftJisStringOfTheInkPrint) {
  std::string hex;
  TextFault fault;
  const char *const cases[][2] = {
      {"日本語", "< 93fa 967b 8cea >"}, {"あ", "< 82a0 >"}, {"A亜", "< 0041 889f >"},
      {"ｶﾅ", "< 00b6 00c5 >"}, {"\\~～①", "< 005c 007e 8160 8740 >"}, {"", "< >"},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(kanji_hex_from_utf8(c[0], &hex, &fault), 1) << c[0];
    EXPECT_EQ(hex, c[1]) << c[0];
  }
  // The same string as the legacy Shift_JIS bytes give.
  const std::string text = "触図 Tacto: 三角形の高さは 3 cm。「直角」－ＡＢＣ";
  EXPECT_EQ(kanji_hex_from_utf8(text.c_str(), &hex, nullptr), 1);
  EXPECT_EQ(hex, ink_kanji_string(iconv_text("CP932", "UTF-8", text).c_str()));
  EXPECT_EQ(kanji_hex_from_utf8("日😀本", &hex, &fault), 0);
  EXPECT_EQ(hex, "< 93fa 967b >");
  EXPECT_EQ(fault_message(fault), "no Shift_JIS code for 😀 (U+1F600)");
  EXPECT_EQ(kanji_hex_from_utf8("\x93\xFA", &hex, &fault), 0);  // Shift_JIS bytes are no UTF-8
  EXPECT_EQ(fault_message(fault), "not UTF-8 text: byte 0x93 and 1 more");
}
