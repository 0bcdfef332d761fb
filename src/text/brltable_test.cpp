// brltable_test.cpp - the character normalisation and the cell table as the
// drawing and the kana translator use them.
#include "text/brltable.h"

#include <gtest/gtest.h>

// The classes of bytes at their edges; only TAB, LF and FF end without a cell.
TEST(BrlTable, NormalisationFoldsEveryByteOntoTheCells) {
  const int cases[][2] = {
      {0, ' '},    {7, '\t'},   {9, ' '},    {10, '\n'},  {12, '\f'},  {31, ' '},  {95, '_'},
      {'`', '@'},  {'a', 'A'},  {'{', '['},  {'~', '^'},  {127, '5'},  {128, '^'}, {150, 'V'},
      {151, 'X'},  {154, '&'},  {155, 'W'},  {157, '\\'}, {159, '_'},  {160, ' '}, {255, ' '},
      {-127, 'A'},
  };
  for (const auto &c : cases) EXPECT_EQ(normalize_char(c[0]), c[1]) << c[0];
  for (int c = 0; c < 256; c++) {
    int n = normalize_char(c);
    EXPECT_EQ(find_cell(n) == nullptr, n == '\t' || n == '\n' || n == '\f') << c;
  }
}

// The by-mask string must be the cell table reordered.
TEST(BrlTable, MaskStringIsTheCellTableOrderedByDots) {
  for (int mask = 1; mask < 64; mask++) {
    const BrailleCell *cell = find_cell(mask_to_ascii(mask));
    ASSERT_NE(cell, nullptr) << mask;
    int dots = 0;
    for (int k = 0; k < 6; k++) dots |= (cell->pattern[k] == '1') << k;
    EXPECT_EQ(dots, mask) << cell->key;
  }
  EXPECT_EQ(mask_to_ascii(64), 0);
}
