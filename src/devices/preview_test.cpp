// preview_test.cpp - the sheet's measures against the PostScript writer, and
// the three preview formats read back by other programs: Pillow for the
// PNG, the SVG's own paths, poppler for the PDF.
#include "devices/preview.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <regex>
#include <sstream>

#include "devices/postscript.h"
#include "support/test_env.h"

class PreviewTest : public TactoTest {
 protected:
  const Sheet a4{210, 297, 1};
  // The dots every format draws on its first page: x, y in mm, size.
  const double dots[3][3] = {{20, 30, 0}, {105, 148.5, 2}, {190.5, 280, 1}};
  std::string draw(const std::string &name, int dpi = 0) {
    std::string path = temp_path(name);
    EXPECT_EQ(preview_begin(pv, path.c_str(), a4, dpi), 1);
    for (const auto &d : dots) preview_dot(pv, d[0], d[1], static_cast<int>(d[2]), 0);
    EXPECT_EQ(preview_end_page(pv), 1);
    preview_set_sheet(pv, Sheet{210, 297, 0});
    preview_dot(pv, 250, 20, 1, 0);
    EXPECT_EQ(preview_end_page(pv), 1);
    EXPECT_EQ(preview_end(pv), 1);  // the page after the last feed stays unwritten
    return path;
  }
  // What a shell command printed, or its failure.
  std::string output_of(const std::string &command) {
    std::string out = temp_path("tool.txt");
    int status = system((command + " > '" + out + "' 2>&1").c_str());
    return (status == 0 ? "" : "failed: ") + read_file(out);
  }
  static bool have(const char *probe) { return system((std::string(probe) + " >/dev/null 2>&1").c_str()) == 0; }
  Preview pv;
};

TEST_F(PreviewTest, GridDotsSitWhereThePostScriptWriterPutsThem) {
  // ESA721 a4: the PostScript box holds the grid almost at its true size and
  // nearly in the middle of the page (2 points off), so the two agree within
  // 0.7 mm, in portrait and turned.
  for (int portrait = 1; portrait >= 0; portrait--) {
    if (!portrait) set_landscape();
    double page_height = portrait ? 842 : 596;
    for (int row : {0, 395, 790})
      for (int col : {0, 300, 599}) {
        int x, y;
        double x_mm, y_mm;
        ps_point_from_dot(row, col, &x, &y);
        sheet_dot_mm(page_geom, row, col, &x_mm, &y_mm);
        EXPECT_NEAR(x_mm, x * 25.4 / 72, 0.7) << portrait << " " << row << " " << col;
        EXPECT_NEAR(y_mm, (page_height - y) * 25.4 / 72, 0.7) << portrait << " " << row << " " << col;
      }
  }
  Sheet s = sheet_of(page_geom);
  EXPECT_EQ(sheet_width(s), 297);
  EXPECT_EQ(sheet_height(s), 210);
  select_paper(ESA600G, 3);  // its a4 grid is 211 mm wide: the sheet grows to hold it
  EXPECT_NEAR(sheet_of(page_geom).width_mm, 831 * 0.25391095, 1e-9);
  select_paper(EVEREST_D, 7);
  EXPECT_EQ(sheet_of(page_geom).height_mm, 420);
  EXPECT_NEAR(sheet_dot_radius_mm(2), 3 * 25.4 / 72, 1e-12);
  EXPECT_EQ(sheet_dot_radius_mm(9), sheet_dot_radius_mm(2));
}

TEST_F(PreviewTest, PngIsGreyWithDarkDiscsAtTheDots) {
  if (!have("/usr/bin/python3 -c 'import PIL'")) GTEST_SKIP() << "Pillow is not installed";
  std::string path = draw("sheet.png"), big = draw("big.png", 300);
  EXPECT_FALSE(have(("test -e '" + temp_path("sheet-3.png") + "'").c_str()));
  // Centres of the dark blobs (weighted by darkness), in pixels from the top left.
  const char *script =
      "import sys\nfrom PIL import Image\nfor name in sys.argv[1:]:\n"
      " im = Image.open(name); w, h = im.size; px = im.load(); seen = set(); out = []\n"
      " for y in range(h):\n  for x in range(w):\n   if px[x, y] < 255 and (x, y) not in seen:\n"
      "    todo = [(x, y)]; seen.add((x, y)); sw = sx = sy = 0\n"
      "    while todo:\n     a, b = todo.pop(); k = 255 - px[a, b]; sw += k; sx += k * a; sy += k * b\n"
      "     for n in ((a+1, b), (a-1, b), (a, b+1), (a, b-1)):\n"
      "      if 0 <= n[0] < w and 0 <= n[1] < h and n not in seen and px[n] < 255: seen.add(n); todo.append(n)\n"
      "    out.append('%.2f %.2f' % (sx / sw, sy / sw))\n"
      " print(im.mode, w, h, ', '.join(out))\n";
  std::string found = output_of("/usr/bin/python3 -c \"" + std::string(script) + "\" '" + path + "' '" +
                                preview_page_path(path, 2) + "' '" + preview_page_path(big, 2) + "'");
  std::smatch m;
  ASSERT_TRUE(std::regex_match(found, m, std::regex("L 827 1169 (.*), (.*), (.*)\nL 1169 827 (.*)\nL 3508 2480 (.*)\n")))
      << found;
  for (int i = 0; i < 3; i++) {
    double x, y;
    ASSERT_EQ(sscanf(m[i + 1].str().c_str(), "%lf %lf", &x, &y), 2);
    EXPECT_NEAR(x + 0.5, dots[i][0] * 100 / 25.4, 1.0) << i;  // a pixel's centre lies half a pixel in
    EXPECT_NEAR(y + 0.5, dots[i][1] * 100 / 25.4, 1.0) << i;
  }
  double x, y;
  ASSERT_EQ(sscanf(m[5].str().c_str(), "%lf %lf", &x, &y), 2);
  EXPECT_NEAR(x + 0.5, 250 * 300 / 25.4, 1.0);
  EXPECT_NEAR(y + 0.5, 20 * 300 / 25.4, 1.0);
}

TEST_F(PreviewTest, SvgHasOneCirclePerDotAndAFilePerPage) {
  std::string path = draw("sheet.svg");
  std::string svg = read_file(path);
  // Each path's points on the circle: its start and every curve's end, six numbers apart.
  std::vector<std::vector<double>> circles;
  std::regex shape(" d=\"([^\"]*)\"");
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), shape); it != std::sregex_iterator(); ++it) {
    std::vector<double> v, on;
    std::istringstream in(std::regex_replace((*it)[1].str(), std::regex("[A-Za-z]"), " "));
    for (double d; in >> d;) v.push_back(d);
    ASSERT_EQ(v.size() % 6, 2u);
    for (size_t k = 0; k < v.size(); k += 6) on.insert(on.end(), {v[k], v[k + 1]});
    circles.push_back(on);
  }
  ASSERT_EQ(circles.size(), 3u);
  const double pt = 72 / 25.4;
  for (int n = 0; n < 3; n++) {
    double x0 = 1e9, x1 = -1e9, y0 = 1e9, y1 = -1e9;
    for (size_t k = 0; k < circles[n].size(); k += 2) {
      x0 = std::min(x0, circles[n][k]), x1 = std::max(x1, circles[n][k]);
      y0 = std::min(y0, circles[n][k + 1]), y1 = std::max(y1, circles[n][k + 1]);
    }
    EXPECT_NEAR((x0 + x1) / 2, dots[n][0] * pt, 0.01) << n;
    EXPECT_NEAR((y0 + y1) / 2, dots[n][1] * pt, 0.01) << n;
    EXPECT_NEAR(std::max(x1 - x0, y1 - y0), 2 * (dots[n][2] + 1), 0.01) << n;  // radius: size + 1 points
  }
  EXPECT_NE(svg.find("width=\"595.275591pt\" height=\"841.889764pt\""), std::string::npos) << svg.substr(0, 300);
  std::string second = read_file(preview_page_path(path, 2));
  EXPECT_NE(second.find("width=\"841.889764pt\" height=\"595.275591pt\""), std::string::npos);
  EXPECT_EQ(count_of(second, " d=\""), 1);
}

TEST_F(PreviewTest, PdfHoldsEveryPageAndRendersTheDots) {
  if (!have("command -v pdfinfo") || !have("command -v pdftoppm")) GTEST_SKIP() << "poppler-utils are not installed";
  std::string path = draw("sheet.pdf");
  std::string info = output_of("pdfinfo -l 2 '" + path + "'");
  EXPECT_TRUE(std::regex_search(info, std::regex("\nPages: +2\n"))) << info;
  EXPECT_TRUE(std::regex_search(info, std::regex("\nPage +1 size: +595.276 x 841.89 pts"))) << info;
  EXPECT_TRUE(std::regex_search(info, std::regex("\nPage +2 size: +841.89 x 595.276 pts"))) << info;
  EXPECT_TRUE(std::regex_search(info, std::regex("\nCreator: +Tacto\n"))) << info;
  // Page 1 at 72 dpi as a grey map: a point per pixel (596 pixels cover 595.3 points), the dots black, between them white.
  EXPECT_EQ(output_of("pdftoppm -f 1 -l 1 -r 72 -gray '" + path + "' '" + temp_path("page") + "'"), "");
  std::string pgm = read_file(temp_path("page-1.pgm"));
  ASSERT_EQ(pgm.compare(0, 15, "P5\n596 842\n255\n"), 0) << pgm.substr(0, 20);
  auto grey = [&](double x_mm, double y_mm) {
    return static_cast<uint8_t>(pgm[15 + lround(y_mm * 72 / 25.4 - 0.5) * 596 + lround(x_mm * 72 / 25.4 - 0.5)]);
  };
  for (const auto &d : dots) EXPECT_LT(grey(d[0], d[1]), 64) << d[0];
  EXPECT_EQ(grey(105, 155), 255);
  EXPECT_EQ(grey(60, 90), 255);
}

TEST_F(PreviewTest, FilesThatCannotBeWrittenAreNamedWithTheReason) {
  EXPECT_EQ(preview_begin(pv, "/no/such/dir/sheet.pdf", a4, 0), 0);
  EXPECT_NE(errors().find(": cannot create /no/such/dir/sheet.pdf: No such file or directory"), std::string::npos);
  EXPECT_EQ(preview_end(pv), 0);
  EXPECT_EQ(preview_begin(pv, "sheet.gif", a4, 0), 0);
  EXPECT_NE(errors().find(": cannot tell the kind of preview sheet.gif (.png, .svg or .pdf)"), std::string::npos);
  EXPECT_EQ(preview_begin(pv, "sheet.png", a4, 5000), 0);
  EXPECT_NE(errors().find(": illegal dpi 5000 (10-600)"), std::string::npos);

  // A later page whose file is in the way: the first page is written, the rest refused once.
  std::string path = temp_path("sheet.png");
  ASSERT_EQ(mkdir(preview_page_path(path, 2).c_str(), 0700), 0);
  ASSERT_EQ(preview_begin(pv, path.c_str(), a4, 0), 1);
  EXPECT_EQ(preview_end_page(pv), 1);
  preview_dot(pv, 10, 10, 0, 0);
  preview_dot(pv, 20, 10, 0, 1);
  EXPECT_EQ(preview_end(pv), 0);
  EXPECT_EQ(count_of(errors(), "cannot create " + preview_page_path(path, 2) + ": Is a directory"), 1);
  EXPECT_EQ(read_file(path).compare(1, 3, "PNG"), 0);

  // A full disk: the write fails and says so.
  std::string full = temp_path("full.svg");
  ASSERT_EQ(symlink("/dev/full", full.c_str()), 0);
  ASSERT_EQ(preview_begin(pv, full.c_str(), a4, 0), 1);
  preview_dot(pv, 10, 10, 2, 1);
  EXPECT_EQ(preview_end(pv), 0);
  EXPECT_NE(errors().find("cannot write " + full + ": No space left on device"), std::string::npos);
}
