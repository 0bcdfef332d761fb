// brltable.cpp - the cell table and the character normalisation.
#include "text/brltable.h"

const BrailleCell braille_cells[BRAILLE_CELLS] = {
    {' ', "000000"},  {'A', "100000"}, {'B', "110000"}, {'C', "100100"}, {'D', "100110"}, {'E', "100010"},
    {'F', "110100"},  {'G', "110110"}, {'H', "110010"}, {'I', "010100"}, {'J', "010110"}, {'K', "101000"},
    {'L', "111000"},  {'M', "101100"}, {'N', "101110"}, {'O', "101010"}, {'P', "111100"}, {'Q', "111110"},
    {'R', "111010"},  {'S', "011100"}, {'T', "011110"}, {'U', "101001"}, {'V', "111001"}, {'X', "101101"},
    {'Y', "101111"},  {'Z', "101011"}, {'&', "111101"}, {'=', "111111"}, {'(', "111011"}, {'!', "011101"},
    {')', "011111"},  {'*', "100001"}, {'<', "110001"}, {'%', "100101"}, {'?', "100111"}, {':', "100011"},
    {'$', "110101"},  {']', "110111"}, {'\\', "110011"}, {'[', "010101"}, {'W', "010111"}, {'1', "010000"},
    {'2', "011000"},  {'3', "010010"}, {'4', "010011"}, {'5', "010001"}, {'6', "011010"}, {'7', "011011"},
    {'8', "011001"},  {'9', "001010"}, {'0', "001011"}, {'/', "001100"}, {'+', "001101"}, {'#', "001111"},
    {'>', "001110"},  {'-', "001001"}, {'\'', "001000"}, {'@', "000100"}, {'^', "000110"}, {'_', "000111"},
    {'.', "000101"},  {'"', "000010"}, {';', "000011"}, {',', "000001"},
};

int normalize_char(int c) {
  c &= 0xff;
  if (c >= 32 && c <= 95) return c;
  if (c >= 'a' && c <= 'z') return c - 32;
  switch (c) {
    case '`': return '@';
    case '{': return '[';
    case '|': return '\\';
    case '}': return ']';
    case '~': return '^';
    case 127: return '5';
    case 7: return '\t';
    case 10: return '\n';
    case 12: return '\f';
    default: break;
  }
  if (c < 32) return ' ';
  if (c >= 160) return ' ';
  // 128-159 stand for the cells of the embosser's own upper half.
  static const char upper[32] = {'^', 'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J', 'K', 'L', 'M', 'N', 'O',
                                 'P', 'Q', 'R', 'S', 'T', 'U', 'V', 'X', 'Y', 'Z', '&', 'W', '[', '\\', '^', '_'};
  return upper[c - 128];
}

const BrailleCell *find_cell(int c) {
  for (const BrailleCell &cell : braille_cells)
    if (cell.key == c) return &cell;
  return nullptr;
}

// The table above ordered by dot mask: character m - 1 raises the dots of mask m.
static const char by_mask[] = "A1B'K2L@CIF/MSP\"E3H9O6R^DJG>NTQ,*5<-U8V.%[$+X!&;:4\\0Z7(_?W]#Y)=";
static_assert(sizeof by_mask == BRAILLE_CELLS, "one character per mask 1-63");

int mask_to_ascii(int mask) { return mask >= 1 && mask < BRAILLE_CELLS ? by_mask[mask - 1] : 0; }
