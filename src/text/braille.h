// braille.h - one line of Braille on the page: the cells of a Braille ASCII
// text drawn as dots, or handed to the ESA721's own Braille when it embosses
// text in portrait.
#ifndef TACTO_TEXT_BRAILLE_H
#define TACTO_TEXT_BRAILLE_H

// Draws a Braille ASCII text (up to its first line feed) whose cells' top
// row lies 2 mm above the world point (x, y). Returns 1, or 0 after an
// overflow or "too long" warning, with nothing drawn.
int draw_braille(float x, float y, const char *text);

#endif
