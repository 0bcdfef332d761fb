// kana_test.cpp - the kana translator: the marks its rules insert, the
// combinations found by arithmetic on the byte before, and its bound.
#include "text/kana.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>

#include "text/brltable.h"

// Braille ASCII of cells written as dot lists ("3456 1 12"); "_" is a blank.
static std::string cells(const std::string &dots) {
  std::istringstream in(dots);
  std::string word, out;
  while (in >> word) {
    char pattern[7] = "000000";
    for (char d : word)
      if (d >= '1' && d <= '6') pattern[d - '1'] = '1';
    for (const BrailleCell &c : braille_cells)
      if (strcmp(c.pattern, pattern) == 0) out += c.key;
  }
  return out;
}

// Each text must translate to its dot lists.
static void expect_cells(std::initializer_list<std::pair<const char *, const char *>> cases) {
  for (const auto &c : cases) {
    char out[KANA_BUFFER];
    int n = kana_translate(c.first, out);
    EXPECT_EQ(out, cells(c.second)) << c.first;
    EXPECT_EQ(static_cast<size_t>(n), strlen(out));
  }
}

TEST(Kana, NumbersTakeTheirSignsAndStayApartFromKana) {
  expect_cells({
      {"12", "3456 1 12"},          {"1.5", "3456 1 2 15"},       {"1,000", "3456 1 3 245 245 245"},
      {"1,00", "3456 1 2 3456 245 245"}, {"1 1", "3456 1 _ 3456 1"}, {"1:2", "3456 1 5 2 3456 12"},
      {".5", "256 3456 15"},        {"'\xFC", "3456 3"},          // apostrophe of a shortened year
      {"1\xB1", "3456 1 36 1"},     {"2\xD9", "3456 12 36 145"},  // a, ru: the connector
      {"1\xB6", "3456 1 16"},       {"1?", "3456 1 236"},         // ka: none
  });
}

TEST(Kana, LatinLettersTakeTheForeignAndCapitalSigns) {
  expect_cells({
      {"ABC", "56 6 6 1 12 14"}, {"Ab", "56 6 1 12"},         {"ABc", "56 6 1 12 14"},
      {"ab Ab", "56 1 12 _ 56 6 1 12"},                        {"a1b", "56 1 3456 1 56 12"},
      {"a1k", "56 1 3456 1 13"}, {"#", "56 146"},             {"a\xB1", "56 1 36 1"},
      {"a?", "56 1 236"},        {"=<~", "25 25 35 35 5 14"}, {"`(!)", "5 15 2356 235 2356"},
      {"\r\f", "14 15"},         {"\t\x01\x80\xA0", ""},      // C and E; bytes without cells
  });
}

// Small kana and sound marks reach the combined forms through the byte
// before them, including the raised byte a mark leaves behind.
TEST(Kana, CombinationsComeFromTheByteBefore) {
  expect_cells({
      {"\xC3\xDD\xBC\xDE", "12345 356 5 1256"},                   // te n ji
      {"\xB6\xDE\xB7\xAC\xDD\xCC\xDF", "5 16 4 16 356 6 1346"},   // ga kya n pu
      {"\xB7\xDE\xAC", "45 16"},          {"\xCB\xDF\xAE", "46 2346"},   // gya, pyo
      {"\xBA\xB0\xB1?", "246 25 1 26"},                           // ko - a ?
      {"\xCC\xA7", "26 136"},             {"\xB3\xDE\xA8", "256 1236"},  // fa, vi
      {"\xC3\xA8", "4 1235"},             {"\xC3\xDE\xAD", "456 1345"},  // ti, dyu
      {"\xC1\xAE\xAF\xB6", "4 2345 2 16"},                        // cho tsu ka
      {"\xAC", "45 34"},                  {"\xB6\xAC", "16 34"},         // no combination
      {"\xB1\xDE", "1"},                  {"\xDF\xB6", "16"},            // marks dropped
  });
}

// The translation stops at its capacity and never writes past it.
TEST(Kana, OutputIsBoundedByTheBuffer) {
  char out[KANA_BUFFER + 16];
  memset(out, 0x7f, sizeof out);
  EXPECT_EQ(kana_translate(std::string(254, 'A').c_str(), out), KANA_BUFFER - 1);
  EXPECT_EQ(std::string(out, 4), cells("56 6 6 1"));
  for (size_t i = KANA_BUFFER; i < sizeof out; i++) EXPECT_EQ(out[i], 0x7f) << i;
  unsigned seed = 12345;  // every byte value, scrambled, many times over
  char text[255] = {};
  for (int round = 0; round < 2000; round++) {
    for (int i = 0; i < 254; i++) text[i] = static_cast<char>(1 + ((seed = seed * 1103515245u + 12345u) >> 16) % 255);
    ASSERT_LE(kana_translate(text, out), KANA_BUFFER - 1);
  }
}
