// bitmap.cpp - the bitmap writer: the pixel page, the three dot stamps and
// the one-bit BMP file, rows bottom-up.
#include "devices/bitmap.h"

#include <cstdio>
#include <cstdlib>

#include "core/process.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "raster/dmap.h"
#include "raster/sink.h"

BitmapState bmp;

static void reset_bitmap() {
  free(bmp.pixels);
  bmp = BitmapState();
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_bitmap);

int bmp_alloc() {
  free(bmp.pixels);
  bmp.pixels = static_cast<uint8_t *>(calloc(BMP_PIXELS, 1));
  return bmp.pixels != nullptr;
}

void bmp_free() {
  free(bmp.pixels);
  bmp.pixels = nullptr;
}

int bmp_set_pixel(long index) {
  if (bmp.pixels == nullptr || index < 0 || index >= BMP_PIXELS) return 1;
  bmp.pixels[index] = 1;
  return 0;
}

int bmp_width() { return page_geom.portrait ? BMP_WIDTH : BMP_HEIGHT; }

// Pixel offsets of the stamps, each adding to the smaller ones.
struct Offset {
  int dr, dc;
};
static const Offset kSmall[] = {{-1, -1}, {-1, 0}, {-1, 1}, {0, -1}, {0, 0}, {0, 1}, {1, -1}, {1, 0}, {1, 1}};
static const Offset kMedium[] = {
    // rows r +- 2 and r +- 3 across c - 1 .. c + 1
    {-2, -1}, {-2, 0}, {-2, 1}, {2, -1}, {2, 0}, {2, 1}, {-3, -1}, {-3, 0}, {-3, 1}, {3, -1}, {3, 0}, {3, 1},
    // columns c +- 2 and c +- 3 across r - 1 .. r + 1
    {-1, -2}, {0, -2}, {1, -2}, {-1, 2}, {0, 2}, {1, 2}, {-1, -3}, {0, -3}, {1, -3}, {-1, 3}, {0, 3}, {1, 3},
    // the diagonals
    {-2, -2}, {-2, 2}, {2, -2}, {2, 2}};
static const Offset kLarge[] = {
    {-4, -1}, {-4, 0}, {-4, 1}, {4, -1}, {4, 0}, {4, 1}, {-1, -4}, {0, -4}, {1, -4}, {-1, 4}, {0, 4}, {1, 4},
    {-2, -3}, {-2, 3}, {2, -3}, {2, 3}, {3, -2}, {3, 2}, {-3, -2}, {-3, 2}};

static void stamp(long long r, long long c, long long width, const Offset *set, int n) {
  for (int i = 0; i < n; i++) {
    long long index = (r + set[i].dr) * width + (c + set[i].dc);
    if (index < 0 || index >= BMP_PIXELS) continue;  // off either end of the page
    bmp_set_pixel(static_cast<long>(index));
  }
}

void bmp_dot(int x, int y, int size) {
  long long width = bmp_width();
  long long c = 2LL * x, r = 2LL * y - 2;
  stamp(r, c, width, kSmall, sizeof kSmall / sizeof kSmall[0]);
  if (size >= 1) stamp(r, c, width, kMedium, sizeof kMedium / sizeof kMedium[0]);
  if (size >= 2) stamp(r, c, width, kLarge, sizeof kLarge / sizeof kLarge[0]);
}

void bmp_plot(double wx, double wy, int size) {
  // The ESA600G's own size codes 3-6 stand for sizes 0, 1, 2 and 0.
  static const int from_code[7] = {0, 1, 2, 0, 1, 2, 0};
  if (size >= 0 && size <= 6) size = from_code[size];
  int x, y;
  ps_point_from_world(wx, wy, &x, &y);
  bmp_dot(x, y, size);
}

void bmp_cell(int row, int col, int size) {
  int x, y;
  ps_point_from_dot(row, col, &x, &y);
  bmp_dot(x, y, size > 2 ? 2 : size);
}

// Little-endian fields of the file header.
static void bmp_put32(FILE *f, uint32_t v) {
  for (int i = 0; i < 4; i++) fputc(static_cast<int>((v >> (8 * i)) & 0xff), f);
}

static void bmp_put16(FILE *f, uint16_t v) {
  fputc(v & 0xff, f);
  fputc((v >> 8) & 0xff, f);
}

int bmp_write(const char *name) {
  FILE *f = fopen(name, "wb");
  if (f == nullptr) return 1;
  int width = bmp_width();
  int height = BMP_PIXELS / width;
  fputs("BM", f);
  bmp_put32(f, BMP_FILE_SIZE);  // the portrait sizes, in landscape too
  bmp_put16(f, 0);
  bmp_put16(f, 0);
  bmp_put32(f, BMP_DATA_OFFSET);
  bmp_put32(f, 40);
  bmp_put32(f, static_cast<uint32_t>(width));
  bmp_put32(f, static_cast<uint32_t>(height));
  bmp_put16(f, 1);
  bmp_put16(f, 1);
  bmp_put32(f, 0);
  bmp_put32(f, BMP_IMAGE_SIZE);
  for (int i = 0; i < 4; i++) bmp_put32(f, 0);
  const unsigned char palette[8] = {0, 0, 0, 0, 255, 255, 255, 0};  // 0 black, 1 white
  fwrite(palette, 1, sizeof palette, f);

  // Eight pixels a byte, leftmost in the top bit; black is bit 0 and the
  // bits past the row's end are white. Rows are padded to four bytes.
  int packed = (width + 7) / 8;
  int row_bytes = (packed + 3) / 4 * 4;
  unsigned char line[(BMP_HEIGHT + 7) / 8 + 4];
  for (int row = 0; row < height; row++) {
    const uint8_t *px = bmp.pixels != nullptr ? bmp.pixels + static_cast<long>(row) * width : nullptr;
    for (int b = 0; b < row_bytes; b++) line[b] = 0;
    for (int b = 0; b < packed; b++) {
      unsigned char byte = 0xff;
      for (int bit = 0; bit < 8; bit++) {
        int col = b * 8 + bit;
        if (col < width && px != nullptr && px[col]) byte &= static_cast<unsigned char>(~(0x80 >> bit));
      }
      line[b] = byte;
    }
    fwrite(line, 1, row_bytes, f);
  }
  int failed = ferror(f);
  if (fclose(f) != 0) failed = 1;
  return failed ? 1 : 0;
}

void bmp_start() {
  if (dmap.in_use) free_dmap();
  dmap.printer_mode = 0;
  bmp.active = 1;
}

void bmp_stop() {
  bmp.active = 0;
  bmp_free();
}

// The bitmap as an output: it takes every dot while a picture is made, like
// PostScript, and the picture is one sheet: feeds end nothing.
static int take_dot(const SinkDot &d, int taken) {
  if (taken || !bmp.active) return 0;
  if (d.grid) {
    if (dmap.in_use) return 0;
    bmp_cell(d.row, d.col, 1);
    return 1;
  }
  if (dmap.in_use) put_dot(d.row, d.col, d.size);
  else bmp_plot(d.wx, d.wy, d.size);
  return 1;
}

static int take_quietly(const SinkDot &, int taken) { return !taken && bmp.active; }

static int take_size(int *, int taken) { return !taken && bmp.active; }

static int take_feed(int taken) { return !taken && bmp.active; }

static int send_map(int taken) {
  if (taken || !bmp.active) return 0;
  each_map_dot(bmp_cell);
  return 1;
}

static int drawing() { return bmp.active; }

static const Sink kBitmapSink = {"bitmap", RANK_BITMAP, take_dot, take_quietly, take_size, take_feed, send_map,
                                 drawing};
[[maybe_unused]] static const int sink_listed = add_sink(&kBitmapSink);
