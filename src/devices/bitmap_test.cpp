// bitmap_test.cpp - the pixel page, the dot stamps and the BMP file.
#include "devices/bitmap.h"

#include <cstdlib>

#include "core/run_state.h"
#include "geometry/page.h"
#include "menus/image_jobs.h"
#include "support/test_env.h"

class BitmapTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    ASSERT_EQ(bmp_alloc(), 1);
  }
  // The 9 x 9 pixels around (row r, column c), '#' for black.
  static std::string around(long r, long c) {
    std::string out;
    for (long dr = 4; dr >= -4; dr--) {
      for (long dc = -4; dc <= 4; dc++) out += bmp.pixels[(r + dr) * bmp_width() + c + dc] ? '#' : '.';
      out += '\n';
    }
    return out;
  }
  static int black_pixels() {
    int n = 0;
    for (long i = 0; i < BMP_PIXELS; i++) n += bmp.pixels[i];
    return n;
  }
  static uint32_t u32(const std::string &b, size_t at) {
    uint32_t v = 0;
    for (int i = 0; i < 4; i++) v |= static_cast<uint32_t>(static_cast<uint8_t>(b[at + i])) << (8 * i);
    return v;
  }
};

TEST_F(BitmapTest, ThreeStampsCentredOnTwiceThePagePoint) {
  bmp_dot(300, 400, 0);  // column 600, row 798
  EXPECT_EQ(around(798, 600), ".........\n.........\n.........\n...###...\n...###...\n...###...\n"
                              ".........\n.........\n.........\n");
  bmp_dot(300, 430, 1);  // row 858
  EXPECT_EQ(around(858, 600), ".........\n...###...\n..#####..\n.#######.\n.#######.\n.#######.\n"
                              "..#####..\n...###...\n.........\n");
  bmp_plot(0, 0, 5);  // world (0, 0) is page (297, 420); the ESA600G's code 5 is size 2
  EXPECT_EQ(around(838, 594), "...###...\n..#####..\n.#######.\n#########\n#########\n#########\n"
                              ".#######.\n..#####..\n...###...\n");
  EXPECT_EQ(black_pixels(), 9 + 37 + 57);
  bmp_cell(0, 0, 1);  // the top left cell: page (4, 775), size 1
  EXPECT_EQ(bmp.pixels[1548L * BMP_WIDTH + 8], 1);
  EXPECT_EQ(black_pixels(), 9 + 37 + 57 + 37);
}

TEST_F(BitmapTest, PixelsOffEitherEndAreIgnored) {
  EXPECT_EQ(bmp_set_pixel(-1), 1);
  EXPECT_EQ(bmp_set_pixel(BMP_PIXELS), 1);
  // Page point (0, 0): centre row -2, so only the stamp's rows 0-2 remain,
  // and in row 0 only the columns from 0 on.
  bmp_dot(0, 0, 2);
  EXPECT_EQ(black_pixels(), 4 + 5 + 3);
  bmp_dot(596, 842, 2);  // past the top right corner
  EXPECT_EQ(bmp.pixels[BMP_PIXELS - 1], 1);
  bmp_dot(-100000, 900000000, 2);  // far off: nothing, and no overflow
  bmp_dot(900000000, -100000, 2);
  bmp_free();
  EXPECT_EQ(bmp_set_pixel(0), 1);  // no page at all
}

TEST_F(BitmapTest, FilesByteForByteInBothOrientations) {
  bmp_set_pixel(0);                                   // bottom row, first pixel
  bmp_set_pixel(9);                                   // bottom row, tenth pixel
  bmp_set_pixel(1683L * BMP_WIDTH + BMP_WIDTH - 1);  // top row, last pixel
  ASSERT_EQ(bmp_write(temp_path("p.bmp").c_str()), 0);
  std::string b = read_file(temp_path("p.bmp"));
  ASSERT_EQ(b.size(), 256030u);
  const uint32_t header[] = {256030, 0, 62, 40, 1192, 1684, 0x00010001, 0, 255968, 0, 0, 0, 0};
  EXPECT_EQ(b.substr(0, 2), "BM");
  for (size_t i = 0; i < sizeof header / sizeof header[0]; i++) EXPECT_EQ(u32(b, 2 + 4 * i), header[i]) << i;
  EXPECT_EQ(b.substr(54, 8), std::string("\0\0\0\0\xff\xff\xff\0", 8));  // 0 black, 1 white
  // Rows of 149 bytes and 3 zeros; black is a 0 bit, the leftmost pixel first.
  EXPECT_EQ(b.substr(62, 3), "\x7f\xbf\xff");
  EXPECT_EQ(b.substr(62 + 148, 5), std::string("\xff\0\0\0\xff", 5));
  EXPECT_EQ(b.substr(62 + 1683 * 152 + 147, 5), std::string("\xff\xfe\0\0\0", 5));

  // Landscape: rows of 211 bytes and 1 zero, the portrait sizes in the header.
  set_landscape();
  ASSERT_EQ(bmp_write(temp_path("l.bmp").c_str()), 0);
  b = read_file(temp_path("l.bmp"));
  ASSERT_EQ(b.size(), 252766u);  // 62 + 212 x 1192
  EXPECT_EQ(u32(b, 2), 256030u);
  EXPECT_EQ(u32(b, 18), 1684u);
  EXPECT_EQ(u32(b, 22), 1192u);
  EXPECT_EQ(u32(b, 34), 255968u);
  // The last pixel is column 1683 of row 1191: the fifth bit of byte 210,
  // whose last four bits lie past the row's end and are white.
  EXPECT_EQ(b.substr(62, 2), "\x7f\xbf");
  EXPECT_EQ(b.substr(62 + 209, 4), std::string("\xff\xff\0\xff", 4));
  EXPECT_EQ(b.substr(62 + 1191 * 212 + 209), std::string("\xff\xef\0", 3));
  EXPECT_NE(bmp_write("/no/such/dir/x.bmp"), 0);
}

// Pillow opens the file and gives the grey value of each point asked for.
static std::string pillow_pixels(const std::string &path, const std::string &points) {
  std::string cmd = "/usr/bin/python3 -c \"import sys; from PIL import Image; im = Image.open(sys.argv[1]); "
                    "im.load(); g = im.convert('L'); print(im.size, [g.getpixel(p) for p in " +
                    points + "])\" '" + path + "' > '" + path + ".txt' 2>&1";
  int status = system(cmd.c_str());
  return (status == 0 ? "" : "failed: ") + read_file(path + ".txt");
}

TEST_F(BitmapTest, JobWritesAPictureThatPillowOpens) {
  std::string program = write_file("prog.txt", "dot 2\nplot 0 0 0\ncap 9\n");
  std::string out = temp_path("prog.bmp");
  copy_text(run_state.fname, NAME_SIZE, "image");
  EXPECT_EQ(make_bitmap(program.c_str(), "/no/such/dir/a.bmp"), 0);
  EXPECT_NE(errors().find(": Could not create Bitmap [/no/such/dir/a.bmp]  press any key ? "), std::string::npos);
  ASSERT_EQ(make_bitmap(program.c_str(), out.c_str()), 1);
  EXPECT_NE(errors().find("\nBitmap file [" + out + "] was generated\n"), std::string::npos);
  EXPECT_EQ(run_state.error_count, 0);  // the refused cap was counted, then cleared
  EXPECT_EQ(bmp.active, 0);
  EXPECT_EQ(bmp.pixels, nullptr);
  if (system("/usr/bin/python3 -c 'import PIL' >/dev/null 2>&1") != 0) GTEST_SKIP() << "Pillow is not installed";
  // Pixel (594, 838) counted from the bottom is 1683 - 838 = 845 from the top.
  EXPECT_EQ(pillow_pixels(out, "[(594, 845), (598, 845), (599, 845), (0, 0)]"), "(1192, 1684) [0, 0, 255, 255]\n");
}
