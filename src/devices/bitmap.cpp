// bitmap.cpp - the bitmap writer (placeholder until the writer lands).
#include "devices/bitmap.h"

BitmapState bmp;
void reset_bitmap() { bmp = BitmapState(); }
int bmp_alloc() { return 0; }
int bmp_set_pixel(long) { return 1; }
void bmp_dot(int, int, int) {}
void bmp_plot(double, double, int) {}
void bmp_plot0(int, int) {}
int bmp_write(const char *) { return 1; }
