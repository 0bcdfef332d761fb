// kana.cpp - the kana translator. One table of cells serves both the single
// bytes (indexed by the byte) and the combinations: a small kana or a sound
// mark finds the combined form by arithmetic on the byte before it, so the
// contracted sounds, the voiced and semi-voiced forms and the foreign sounds
// all live in the same array above the single bytes, and some of their
// places coincide with single bytes on purpose (ki + small ya is the entry
// of the byte 0xDF). Rules around the table insert the number sign, the
// foreign-letter and capital signs, the connector, the decimal point and the
// thousands mark.
#include "text/kana.h"

#include "text/brltable.h"

// Half-width katakana bytes (JIS X 0201).
enum : int {
  HK_WO = 0xA6,
  HK_SMALL_A, HK_SMALL_I, HK_SMALL_U, HK_SMALL_E, HK_SMALL_O,
  HK_SMALL_YA, HK_SMALL_YU, HK_SMALL_YO, HK_SMALL_TSU, HK_LONG,
  HK_A, HK_I, HK_U, HK_E, HK_O,
  HK_KA, HK_KI, HK_KU, HK_KE, HK_KO,
  HK_SA, HK_SHI, HK_SU, HK_SE, HK_SO,
  HK_TA, HK_CHI, HK_TSU, HK_TE, HK_TO,
  HK_NA, HK_NI, HK_NU, HK_NE, HK_NO,
  HK_HA, HK_HI, HK_FU, HK_HE, HK_HO,
  HK_MA, HK_MI, HK_MU, HK_ME, HK_MO,
  HK_YA, HK_YU, HK_YO,
  HK_RA, HK_RI, HK_RU, HK_RE, HK_RO,
  HK_WA, HK_N, HK_VOICED, HK_SEMI_VOICED,
};
static_assert(HK_A == 0xB1 && HK_HA == 0xCA && HK_N == 0xDD && HK_SEMI_VOICED == 0xDF, "JIS X 0201 order");

enum : int {
  KANA_ENTRIES = 1005,  // single bytes 0-255, then the combinations
  PENDING_SIZE = 20,    // cells held back for a following mark
  VOICED_SHIFT = 360,   // voiced form of byte p: entry p + 360
  SEMI_SHIFT = 680,     // semi-voiced form of byte p: entry p + 680
};

// Entry of p followed by a small vowel c (0xA7-0xAB) or small ya/yu/yo c (0xAC-0xAE).
static constexpr int small_vowel(int p, int c) { return (c - 163) * 40 + p; }
static constexpr int small_y(int p, int c) { return (c - 171) * 40 + p; }
static constexpr int voiced(int p) { return p + VOICED_SHIFT; }
static constexpr int semi_voiced(int p) { return p + SEMI_SHIFT; }

// A cell in the translator's own code, from its dot list ("1246"): the
// byte 0x80 + mask without dot 6, 0xE0 + mask - 32 with it.
static constexpr unsigned char cell(const char *dots) {
  int mask = 0;
  for (; *dots; dots++) mask |= 1 << (*dots - '1');
  return static_cast<unsigned char>(mask < 32 ? 0x80 + mask : 0xE0 + mask - 32);
}

// The letter cells a-z; digits 1-9, 0 take those of a-j.
static constexpr const char *letter_dots[26] = {
    "1",    "12",   "14",   "145",   "15",   "124",  "1245", "125",   "24",   "245", "13",   "123",  "134",
    "1345", "135",  "1234", "12345", "1235", "234",  "2345", "136",   "1236", "2456", "1346", "13456", "1356",
};

// One filled entry: its index and one or two cells as dot lists.
struct KanaRow {
  int index;
  const char *first, *second;
};

static constexpr KanaRow kana_rows[] = {
    // Punctuation and symbols.
    {'.', "256", ""}, {',', "2", ""}, {'-', "36", ""}, {'!', "235", ""}, {'?', "236", ""},
    {'(', "2356", ""}, {')', "2356", ""}, {':', "2", ""}, {';', "23", ""}, {'<', "35", ""},
    {'=', "25", ""}, {'>', "26", ""}, {'/', "34", ""}, {'\'', "3", ""}, {'"', "236", ""},
    {'#', "146", ""}, {'$', "1456", ""}, {'%', "12456", ""}, {'&', "12346", ""}, {'*', "16", ""},
    {'+', "26", ""}, {'@', "246", ""}, {'[', "12356", ""}, {']', "23456", ""}, {'^', "45", ""},
    {'_', "36", ""}, {'{', "126", ""}, {'|', "1256", ""}, {'}', "345", ""}, {'~', "36", ""},
    {'\\', "1246", ""}, {'`', "5", "15"},

    // Kana punctuation: full stop, corner brackets, comma, middle dot.
    {0xA1, "256", ""}, {0xA2, "36", ""}, {0xA3, "36", ""}, {0xA4, "56", ""}, {0xA5, "5", ""},

    // Single kana.
    {HK_WO, "35", ""}, {HK_SMALL_TSU, "2", ""}, {HK_LONG, "25", ""},
    {HK_A, "1", ""}, {HK_I, "12", ""}, {HK_U, "14", ""}, {HK_E, "124", ""}, {HK_O, "24", ""},
    {HK_KA, "16", ""}, {HK_KI, "126", ""}, {HK_KU, "146", ""}, {HK_KE, "1246", ""}, {HK_KO, "246", ""},
    {HK_SA, "156", ""}, {HK_SHI, "1256", ""}, {HK_SU, "1456", ""}, {HK_SE, "12456", ""}, {HK_SO, "2456", ""},
    {HK_TA, "135", ""}, {HK_CHI, "1235", ""}, {HK_TSU, "1345", ""}, {HK_TE, "12345", ""}, {HK_TO, "2345", ""},
    {HK_NA, "13", ""}, {HK_NI, "123", ""}, {HK_NU, "134", ""}, {HK_NE, "1234", ""}, {HK_NO, "234", ""},
    {HK_HA, "136", ""}, {HK_HI, "1236", ""}, {HK_FU, "1346", ""}, {HK_HE, "12346", ""}, {HK_HO, "2346", ""},
    {HK_MA, "1356", ""}, {HK_MI, "12356", ""}, {HK_MU, "13456", ""}, {HK_ME, "123456", ""}, {HK_MO, "23456", ""},
    {HK_YA, "34", ""}, {HK_YU, "346", ""}, {HK_YO, "345", ""},
    {HK_RA, "15", ""}, {HK_RI, "125", ""}, {HK_RU, "145", ""}, {HK_RE, "1245", ""}, {HK_RO, "245", ""},
    {HK_WA, "3", ""}, {HK_N, "356", ""},

    // Small kana standing alone: the small mark 45, then the kana.
    {HK_SMALL_A, "45", "1"}, {HK_SMALL_I, "45", "12"}, {HK_SMALL_U, "45", "14"},
    {HK_SMALL_E, "45", "124"}, {HK_SMALL_O, "45", "24"},
    {HK_SMALL_YA, "45", "34"}, {HK_SMALL_YU, "45", "346"}, {HK_SMALL_YO, "45", "345"},

    // Contracted sounds: 4, then the a/u/o kana of the consonant. The entry
    // of ki + small ya is the one of the byte 0xDF, which also stands for a
    // semi-voiced mark with nothing before it.
    {small_y(HK_KI, HK_SMALL_YA), "4", "16"},  {small_y(HK_KI, HK_SMALL_YU), "4", "146"},
    {small_y(HK_KI, HK_SMALL_YO), "4", "246"},
    {small_y(HK_SHI, HK_SMALL_YA), "4", "156"}, {small_y(HK_SHI, HK_SMALL_YU), "4", "1456"},
    {small_y(HK_SHI, HK_SMALL_YO), "4", "2456"},
    {small_y(HK_CHI, HK_SMALL_YA), "4", "135"}, {small_y(HK_CHI, HK_SMALL_YU), "4", "1345"},
    {small_y(HK_CHI, HK_SMALL_YO), "4", "2345"},
    {small_y(HK_NI, HK_SMALL_YA), "4", "13"},   {small_y(HK_NI, HK_SMALL_YU), "4", "134"},
    {small_y(HK_NI, HK_SMALL_YO), "4", "234"},
    {small_y(HK_HI, HK_SMALL_YA), "4", "136"},  {small_y(HK_HI, HK_SMALL_YU), "4", "1346"},
    {small_y(HK_HI, HK_SMALL_YO), "4", "2346"},
    {small_y(HK_MI, HK_SMALL_YA), "4", "1356"}, {small_y(HK_MI, HK_SMALL_YU), "4", "13456"},
    {small_y(HK_MI, HK_SMALL_YO), "4", "23456"},
    {small_y(HK_RI, HK_SMALL_YA), "4", "15"},   {small_y(HK_RI, HK_SMALL_YU), "4", "145"},
    {small_y(HK_RI, HK_SMALL_YO), "4", "245"},

    // Voiced forms: 5, then the plain kana.
    {voiced(HK_U), "5", "14"},
    {voiced(HK_KA), "5", "16"},   {voiced(HK_KI), "5", "126"},   {voiced(HK_KU), "5", "146"},
    {voiced(HK_KE), "5", "1246"}, {voiced(HK_KO), "5", "246"},
    {voiced(HK_SA), "5", "156"},  {voiced(HK_SHI), "5", "1256"}, {voiced(HK_SU), "5", "1456"},
    {voiced(HK_SE), "5", "12456"}, {voiced(HK_SO), "5", "2456"},
    {voiced(HK_TA), "5", "135"},  {voiced(HK_CHI), "5", "1235"}, {voiced(HK_TSU), "5", "1345"},
    {voiced(HK_TE), "5", "12345"}, {voiced(HK_TO), "5", "2345"},
    {voiced(HK_HA), "5", "136"},  {voiced(HK_HI), "5", "1236"},  {voiced(HK_FU), "5", "1346"},
    {voiced(HK_HE), "5", "12346"}, {voiced(HK_HO), "5", "2346"},

    // Semi-voiced forms: 6, then the plain kana.
    {semi_voiced(HK_HA), "6", "136"},   {semi_voiced(HK_HI), "6", "1236"}, {semi_voiced(HK_FU), "6", "1346"},
    {semi_voiced(HK_HE), "6", "12346"}, {semi_voiced(HK_HO), "6", "2346"},

    // Voiced contracted sounds: 45, then the a/u/o kana of the consonant.
    {small_y(voiced(HK_KI), HK_SMALL_YA), "45", "16"},  {small_y(voiced(HK_KI), HK_SMALL_YU), "45", "146"},
    {small_y(voiced(HK_KI), HK_SMALL_YO), "45", "246"},
    {small_y(voiced(HK_SHI), HK_SMALL_YA), "45", "156"}, {small_y(voiced(HK_SHI), HK_SMALL_YU), "45", "1456"},
    {small_y(voiced(HK_SHI), HK_SMALL_YO), "45", "2456"},
    {small_y(voiced(HK_CHI), HK_SMALL_YA), "45", "135"}, {small_y(voiced(HK_CHI), HK_SMALL_YU), "45", "1345"},
    {small_y(voiced(HK_CHI), HK_SMALL_YO), "45", "2345"},
    {small_y(voiced(HK_HI), HK_SMALL_YA), "45", "136"},  {small_y(voiced(HK_HI), HK_SMALL_YU), "45", "1346"},
    {small_y(voiced(HK_HI), HK_SMALL_YO), "45", "2346"},

    // Semi-voiced contracted sounds: 46, then the ha-row kana.
    {small_y(semi_voiced(HK_HI), HK_SMALL_YA), "46", "136"},
    {small_y(semi_voiced(HK_HI), HK_SMALL_YU), "46", "1346"},
    {small_y(semi_voiced(HK_HI), HK_SMALL_YO), "46", "2346"},

    // Foreign sounds with a small vowel. Compound sounds: 26 (voiced 256),
    // then the kana of the consonant and the small vowel.
    {small_vowel(HK_U, HK_SMALL_I), "26", "12"},   {small_vowel(HK_U, HK_SMALL_E), "26", "124"},
    {small_vowel(HK_U, HK_SMALL_O), "26", "24"},
    {small_vowel(HK_KU, HK_SMALL_A), "26", "16"},  {small_vowel(HK_KU, HK_SMALL_I), "26", "126"},
    {small_vowel(HK_KU, HK_SMALL_E), "26", "1246"}, {small_vowel(HK_KU, HK_SMALL_O), "26", "246"},
    {small_vowel(HK_TSU, HK_SMALL_A), "26", "135"}, {small_vowel(HK_TSU, HK_SMALL_I), "26", "1235"},
    {small_vowel(HK_TSU, HK_SMALL_E), "26", "12345"}, {small_vowel(HK_TSU, HK_SMALL_O), "26", "2345"},
    {small_vowel(HK_FU, HK_SMALL_A), "26", "136"}, {small_vowel(HK_FU, HK_SMALL_I), "26", "1236"},
    {small_vowel(HK_FU, HK_SMALL_E), "26", "12346"}, {small_vowel(HK_FU, HK_SMALL_O), "26", "2346"},
    {small_vowel(HK_TO, HK_SMALL_U), "26", "1345"},
    {small_vowel(voiced(HK_KU), HK_SMALL_A), "256", "16"}, {small_vowel(voiced(HK_KU), HK_SMALL_I), "256", "126"},
    {small_vowel(voiced(HK_KU), HK_SMALL_E), "256", "1246"},
    {small_vowel(voiced(HK_KU), HK_SMALL_O), "256", "246"},
    {small_vowel(voiced(HK_U), HK_SMALL_A), "256", "136"}, {small_vowel(voiced(HK_U), HK_SMALL_I), "256", "1236"},
    {small_vowel(voiced(HK_U), HK_SMALL_E), "256", "12346"},
    {small_vowel(voiced(HK_U), HK_SMALL_O), "256", "2346"},
    {small_vowel(voiced(HK_TO), HK_SMALL_U), "256", "1345"},
    // Contracted foreign sounds: 4 (voiced 45), then the kana of the
    // consonant and the small vowel.
    {small_vowel(HK_I, HK_SMALL_E), "4", "124"},    {small_vowel(HK_KI, HK_SMALL_E), "4", "1246"},
    {small_vowel(HK_SHI, HK_SMALL_E), "4", "12456"}, {small_vowel(HK_CHI, HK_SMALL_E), "4", "12345"},
    {small_vowel(HK_NI, HK_SMALL_E), "4", "1234"},  {small_vowel(HK_HI, HK_SMALL_E), "4", "12346"},
    {small_vowel(HK_SU, HK_SMALL_I), "4", "1256"},  {small_vowel(HK_TE, HK_SMALL_I), "4", "1235"},
    {small_vowel(voiced(HK_KI), HK_SMALL_E), "45", "1246"},
    {small_vowel(voiced(HK_SHI), HK_SMALL_E), "45", "12456"},
    {small_vowel(voiced(HK_CHI), HK_SMALL_E), "45", "12345"},
    {small_vowel(voiced(HK_HI), HK_SMALL_E), "45", "12346"},
    {small_vowel(voiced(HK_SU), HK_SMALL_I), "45", "1256"},
    {small_vowel(voiced(HK_TE), HK_SMALL_I), "45", "1235"},
    // Foreign sounds with a small yu or yo: 46 (voiced 456), then the kana.
    {small_y(HK_TE, HK_SMALL_YU), "46", "1345"}, {small_y(HK_FU, HK_SMALL_YU), "46", "346"},
    {small_y(HK_FU, HK_SMALL_YO), "46", "345"},
    {small_y(voiced(HK_TE), HK_SMALL_YU), "456", "1345"}, {small_y(voiced(HK_U), HK_SMALL_YU), "456", "346"},
    {small_y(voiced(HK_U), HK_SMALL_YO), "456", "345"},
};

struct KanaTable {
  unsigned char cells[KANA_ENTRIES][3];  // one or two cells, zero-terminated; empty when unused
  int filled;
  int clashes;  // rows that fell outside the table or onto a filled entry
};

static constexpr void put_row(KanaTable &t, int index, const char *first, const char *second) {
  if (index < 0 || index >= KANA_ENTRIES || t.cells[index][0] != 0) {
    t.clashes++;
    return;
  }
  t.cells[index][0] = cell(first);
  t.cells[index][1] = second[0] != '\0' ? cell(second) : 0;
  t.filled++;
}

static constexpr KanaTable build_table() {
  KanaTable t{};
  for (int i = 0; i < 26; i++) {
    put_row(t, 'a' + i, letter_dots[i], "");
    put_row(t, 'A' + i, letter_dots[i], "");
  }
  const char digits[] = "1234567890";
  for (int i = 0; i < 10; i++) put_row(t, digits[i], letter_dots[i], "");
  for (const KanaRow &r : kana_rows) put_row(t, r.index, r.first, r.second);
  return t;
}

static constexpr KanaTable table = build_table();
static_assert(table.clashes == 0, "every row has an entry of its own");
static_assert(table.filled == 262, "filled entries");

// Marks the rules insert.
static constexpr unsigned char NUMBER_SIGN = cell("3456");
static constexpr unsigned char FOREIGN_SIGN = cell("56");
static constexpr unsigned char CAPITAL_SIGN = cell("6");
static constexpr unsigned char CONNECTOR = cell("36");
static constexpr unsigned char DOT_2 = cell("2");  // decimal point; also ends a number before a new one
static constexpr unsigned char DOT_3 = cell("3");  // thousands mark; apostrophe
static constexpr unsigned char DOT_5 = cell("5");
static constexpr unsigned char DOTS_14 = cell("14");
static constexpr unsigned char LATIN_QUESTION = cell("236");
static constexpr unsigned char KANA_QUESTION = cell("26");

// State flags.
enum : int {
  FOREIGN = 1,  // Latin letters in progress
  NUMBER = 2,   // digits in progress
  CAPITAL = 4,  // a capital sign was given in this word
};

struct Translator {
  const unsigned char *text;  // the input, at the byte being translated
  unsigned char out[KANA_BUFFER];
  int out_len;
  unsigned char pending[PENDING_SIZE];  // the last character's cells, held back for a mark
  int pending_len;
  int p;  // the previous byte, raised by a sound mark to reach the combinations
  int flags;
};

// The cells of an entry; empty outside the table.
static const unsigned char *entry(int index) {
  static const unsigned char none[1] = {0};
  return index >= 0 && index < KANA_ENTRIES ? table.cells[index] : none;
}

static void append(Translator &t, unsigned char code) {
  if (t.out_len < KANA_BUFFER - 1) t.out[t.out_len++] = code;
}

static void flush(Translator &t) {
  for (int i = 0; i < t.pending_len; i++) append(t, t.pending[i]);
  t.pending_len = 0;
}

static void pend(Translator &t, unsigned char code) {
  if (t.pending_len < PENDING_SIZE) t.pending[t.pending_len++] = code;
}

static void pend_entry(Translator &t, int index) {
  for (const unsigned char *c = entry(index); *c; c++) pend(t, *c);
}

static int is_digit(int c) { return c >= '0' && c <= '9'; }
static int is_capital(int c) { return c >= 'A' && c <= 'Z'; }

// A byte of a short list (never the terminator).
static int one_of(int c, const char *list) {
  for (; *list; list++)
    if (c == static_cast<unsigned char>(*list)) return 1;
  return 0;
}

// Capitals among the next three bytes.
static int capitals_ahead(const unsigned char *s) {
  int n = 0;
  for (int k = 1; k <= 3 && s[k] != 0; k++) n += is_capital(s[k]);
  return n;
}

// The capital sign, doubled when a run of capitals follows.
static void pend_capital(Translator &t) {
  pend(t, CAPITAL_SIGN);
  if (capitals_ahead(t.text) >= 2) pend(t, CAPITAL_SIGN);
}

// A small kana: its combination with the byte before, or the kana alone.
// Returns the new previous byte.
static int small_kana(Translator &t, int c) {
  if (t.pending_len == 0) {
    pend_entry(t, c);
    return c;
  }
  int index = c <= HK_SMALL_O ? small_vowel(t.p, c) : small_y(t.p, c);
  if (entry(index)[0] != 0) {
    t.pending_len = 0;
    pend_entry(t, index);
    flush(t);
    return 0;
  }
  flush(t);
  pend(t, entry(c)[1]);  // the kana without its small mark
  return c;
}

// A voiced or semi-voiced mark changes the kana held back. Returns the new
// previous byte.
static int sound_mark(Translator &t, int c) {
  if (t.pending_len == 0) return t.p;  // nothing to mark: ignored
  int index = t.p + (c == HK_SEMI_VOICED ? SEMI_SHIFT : VOICED_SHIFT);
  if (entry(index)[0] == 0) {
    flush(t);
    return c;
  }
  t.pending_len = 0;
  pend_entry(t, index);
  return index;
}

// Translates one byte; the first rule that applies is used.
static void translate_byte(Translator &t) {
  const unsigned char *s = t.text;
  int c = s[0];
  int next_p = c;
  if (c == ' ') {
    flush(t);
    pend(t, ' ');
    t.flags = 0;
  } else if (c == 0xFC && t.p == '\'') {
    // An apostrophe before a shortened year: number sign, then dot 3.
    append(t, NUMBER_SIGN);
    t.pending_len = 0;
    pend(t, DOT_3);
  } else if (c == '?') {
    flush(t);
    pend(t, t.p < 160 ? LATIN_QUESTION : KANA_QUESTION);
    next_p = t.p;
  } else if (is_digit(c) && t.p == '.' && (t.flags & NUMBER)) {
    t.pending_len = 0;  // the full stop becomes the decimal point
    append(t, DOT_2);
    pend_entry(t, c);
  } else if (is_digit(c) && t.p == ',' && (t.flags & NUMBER)) {
    t.pending_len = 0;
    if (is_digit(s[1]) && is_digit(s[2]) && !is_digit(s[3])) {
      append(t, DOT_3);  // a group of three digits: the thousands mark
    } else {
      append(t, DOT_2);  // two numbers in a row
      append(t, NUMBER_SIGN);
    }
    pend_entry(t, c);
  } else if (is_digit(c)) {
    t.flags &= ~CAPITAL;
    flush(t);
    if (!(t.flags & NUMBER)) {
      t.flags |= NUMBER;
      pend(t, NUMBER_SIGN);
    }
    pend_entry(t, c);
  } else if (((c >= HK_A && c <= HK_O) || (c >= HK_RA && c <= HK_RO)) && (t.flags & NUMBER) &&
             !(t.flags & FOREIGN)) {
    // These kana read like digits: the connector keeps them apart.
    t.flags &= ~NUMBER;
    flush(t);
    append(t, CONNECTOR);
    pend_entry(t, c);
  } else if (c >= 'a' && c <= 'j' && (t.flags & NUMBER) && (t.flags & FOREIGN)) {
    t.flags &= ~NUMBER;
    flush(t);
    pend(t, FOREIGN_SIGN);
    pend_entry(t, c);
  } else if (!(t.flags & FOREIGN) && ((c >= 'a' && c <= 'z') || one_of(c, "#$%&@|*"))) {
    t.flags = (t.flags | FOREIGN) & ~NUMBER;
    flush(t);
    pend(t, FOREIGN_SIGN);
    pend_entry(t, c);
  } else if (is_capital(c)) {
    t.flags &= ~NUMBER;
    flush(t);
    if (!(t.flags & FOREIGN)) {
      pend(t, FOREIGN_SIGN);
      pend_capital(t);
      t.flags |= FOREIGN;
    } else if (!(t.flags & CAPITAL)) {
      pend_capital(t);
    }
    t.flags |= CAPITAL;
    pend_entry(t, c);
  } else if (c >= HK_A && c <= HK_N && (t.flags & FOREIGN)) {
    t.flags = 0;
    flush(t);
    pend(t, CONNECTOR);
    pend_entry(t, c);
  } else if (one_of(c, "<>=:~")) {
    t.flags &= ~NUMBER;
    flush(t);
    if (c == ':') {
      pend(t, DOT_5);
      pend(t, DOT_2);
    } else if (c == '~') {
      pend(t, DOT_5);
      pend(t, DOTS_14);
    } else {
      pend_entry(t, c);
      pend_entry(t, c);
    }
  } else if ((c >= 33 && c <= 126) || (c >= HK_SMALL_TSU && c <= HK_N)) {
    // A full stop or comma inside a number keeps the number going.
    if (!((t.flags & NUMBER) && (c == '.' || c == ','))) t.flags &= ~NUMBER;
    flush(t);
    pend_entry(t, c);
  } else if (c >= HK_SMALL_A && c <= HK_SMALL_YO) {
    next_p = small_kana(t, c);
  } else if (c == HK_VOICED || c == HK_SEMI_VOICED) {
    next_p = sound_mark(t, c);
  } else if (c == '\r' || c == '\f') {
    flush(t);
    pend(t, c == '\r' ? 'C' : 'E');
  } else {
    flush(t);
    pend_entry(t, c);
  }
  t.p = next_p;
}

int kana_translate(const char *text, char *out) {
  Translator t{};
  t.text = reinterpret_cast<const unsigned char *>(text);
  for (; *t.text != 0; t.text++) translate_byte(t);
  flush(t);
  // From the translator's code to Braille ASCII; blanks and letters stay.
  for (int i = 0; i < t.out_len; i++) {
    int b = t.out[i];
    if (b >= 0x81 && b <= 0x9F) b = mask_to_ascii(b - 0x80);
    else if (b >= 0xE0) b = mask_to_ascii(b - 0xE0 + 32);
    out[i] = static_cast<char>(b);
  }
  out[t.out_len] = '\0';
  return t.out_len;
}
