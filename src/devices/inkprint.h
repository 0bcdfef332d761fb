// inkprint.h - what ink print writes into the PostScript document instead
// of dots: stroked segments cut to the window and frame, and text, both with
// the ink-print pen (devices/postscript.h).
#ifndef TACTO_DEVICES_INKPRINT_H
#define TACTO_DEVICES_INKPRINT_H

#include <string>

// One stroked segment between two world points with the pen. The points are
// rotated and mirrored like dots, and the segment is cut to the window and
// frame (nothing is written when no part of it is inside). Nothing outside
// ink print.
void ink_line(double x0, double y0, double x1, double y1);

// The PostScript strings of the two text commands: "(text)" up to the first
// line feed, and the hexadecimal "< 0041 889f >" form of the two-byte text.
std::string ink_latin_string(const char *text);
std::string ink_kanji_string(const char *text);

// A text at world x with its baseline at world y, in the pen's colour and
// the European or (`japanese`) Japanese font and size. Nothing outside ink
// print.
void ink_text(double x, double base, const char *text, int japanese);

#endif
