// brltable.h - the six-dot Braille cell table (North American Braille ASCII)
// and the normalisation every text byte passes before it is looked up.
#ifndef TACTO_TEXT_BRLTABLE_H
#define TACTO_TEXT_BRLTABLE_H

enum : int { BRAILLE_CELLS = 64 };

// One row: the character and its dots 1-6 as '0'/'1'.
struct BrailleCell {
  char key;
  char pattern[7];
};
extern const BrailleCell braille_cells[BRAILLE_CELLS];

// The byte a text byte stands for: lower case to upper case, control codes
// to blanks, the upper half to cells or blanks.
int normalize_char(int c);

// The row of a normalised character, or null when it has none (TAB, LF, FF).
const BrailleCell *find_cell(int c);

// The Braille ASCII character of a dot mask 1-63 (bit 0 = dot 1 ... bit 5 =
// dot 6); 0 outside that range.
int mask_to_ascii(int mask);

#endif
