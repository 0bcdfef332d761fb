// bitmap.h - a monochrome picture of the embossed sheet: an A4 page at twice
// the PostScript resolution, written as a one-bit BMP file.
#ifndef TACTO_DEVICES_BITMAP_H
#define TACTO_DEVICES_BITMAP_H

#include <cstdint>

enum : int {
  BMP_WIDTH = 1192,   // portrait pixels across
  BMP_HEIGHT = 1684,  // portrait pixels down
  BMP_PIXELS = 2007328,
};

struct BitmapState {
  uint8_t *pixels;  // one byte a pixel, 1 black; null when no picture is made
  int active;       // bitmap output is on
};
extern BitmapState bmp;

// Frees the page and switches bitmap output off.
void reset_bitmap();

// Allocates and zeroes the page; 0 when it cannot.
int bmp_alloc();

// Blackens one pixel; 1 when the index lies outside the page (ignored).
int bmp_set_pixel(long index);

// Stamps a dot of size 0-2 centred on page point (x, y).
void bmp_dot(int x, int y, int size);

// A dot of plot_dot (world point) and of plot0 (device cell).
void bmp_plot(double wx, double wy, int size);
void bmp_plot0(int row, int col);

// Writes the BMP file; 0 on success.
int bmp_write(const char *name);

#endif
