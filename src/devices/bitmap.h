// bitmap.h - a monochrome picture of the embossed sheet: an A4 page at twice
// the PostScript resolution, written as a one-bit BMP file. While it is made
// the bitmap is an output sink (raster/sink.h).
#ifndef TACTO_DEVICES_BITMAP_H
#define TACTO_DEVICES_BITMAP_H

#include <cstdint>

enum : int {
  BMP_WIDTH = 1192,   // portrait pixels across
  BMP_HEIGHT = 1684,  // portrait pixels down
  BMP_PIXELS = 2007328,
  BMP_FILE_SIZE = 256030,   // written in both orientations
  BMP_IMAGE_SIZE = 255968,  // likewise
  BMP_DATA_OFFSET = 62,
};

struct BitmapState {
  uint8_t *pixels;  // one byte a pixel, 1 black; null when no picture is made
  int active;       // bitmap output is on
};
extern BitmapState bmp;

// Allocates and zeroes the page; 0 when it cannot.
int bmp_alloc();

// Frees the page (bitmap output stays as it is).
void bmp_free();

// Bitmap output on: every dot is drawn as it comes (the dot map is freed
// and printer mode left).
void bmp_start();

// Bitmap output off, and the page freed.
void bmp_stop();

// Blackens one pixel; 1 when the index lies outside the page (ignored).
int bmp_set_pixel(long index);

// Pixels across the page in the current orientation (1192 or 1684).
int bmp_width();

// Stamps a dot of size 0-2 centred on page point (x, y): a 3 x 3 square, a
// disc of radius about 3 or of radius about 4 pixels. Sizes above 2 stamp 2.
void bmp_dot(int x, int y, int size);

// A dot of plot_dot: world point and size code.
void bmp_plot(double wx, double wy, int size);

// A dot at a device cell, its size capped at 2: plot0's grid dots take size
// 1, the dot map's dots their stored size.
void bmp_cell(int row, int col, int size);

// Writes the BMP file; 0 on success, 1 when it cannot be created or written.
int bmp_write(const char *name);

#endif
