// output_test.cpp - PostScript and bitmap files written by the real program:
// the whole document of a small program, what Ghostscript draws of it, ink
// print with awkward text and refused values, and the menu's image jobs.
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

#include "support/run_tacto.h"

static bool have(const char *probe) { return system((std::string(probe) + " >/dev/null 2>&1").c_str()) == 0; }
static bool have_ghostscript() { return have("command -v gs"); }
static bool have_pillow() { return have("/usr/bin/python3 -c 'import PIL'"); }

// Runs a command in the directory; "" when it succeeded without a word, else
// its status and output.
static std::string silent_run(const TactoDir &dir, const std::string &command) {
  int status = system(("cd '" + dir.path() + "' && " + command + " > tool.log 2>&1").c_str());
  std::string log = dir.read("tool.log");
  return status == 0 && log.empty() ? "" : "status " + std::to_string(status) + ": " + log;
}

static std::string ghostscript_verdict(const TactoDir &dir, const std::string &name) {
  return silent_run(dir, "gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=nullpage '" + name + "'");
}

// The first page rendered at 72 dpi, one pixel a point: 595 x 842 pixels,
// 75 bytes a row from the top, a 1 bit black.
struct Page {
  std::string bits;
  bool black_near(int x, int y, int r = 1) const {
    for (int row = 842 - y - r; row <= 842 - y + r; row++)
      for (int col = x - r; col <= x + r; col++)
        if (bits.size() == 75u * 842 && row >= 0 && row < 842 && col >= 0 && col < 595 &&
            (static_cast<uint8_t>(bits[row * 75 + col / 8]) & (0x80 >> (col % 8))))
          return true;
    return false;
  }
};

static Page render(const TactoDir &dir, const std::string &name) {
  silent_run(dir, "gs -q -dBATCH -dNOPAUSE -dSAFER -sPAPERSIZE=a4 -dFIXEDMEDIA -dFirstPage=1 -dLastPage=1 "
                  "-sDEVICE=pbmraw -r72 -sOutputFile=page.pbm '" + name + "'");
  std::string pbm = dir.read("page.pbm");
  Page page;
  if (pbm.compare(0, 2, "P4") == 0 && pbm.size() > 75u * 842) page.bits = pbm.substr(pbm.size() - 75 * 842);
  return page;
}

TEST(Output, TactileDocumentAndWhatGhostscriptDraws) {
  TactoDir dir;
  dir.write("prog.txt", "window -10 10 -10 10\npostscript dots.ps\ndot 2\nplot 0 0 0\nplot 5 5 0\nff\n"
                        "dot 0\nplot -10 -10 0\nplot 10 10 0\n");
  RunResult r = dir.run({"-r", "prog.txt"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "");
  std::string doc = dir.read("dots.ps");
  EXPECT_TRUE(std::regex_search(doc, std::regex("\n%%CreationDate: \\w{3} \\w{3} [ \\d]\\d \\d\\d:\\d\\d:\\d\\d \\d{4}\n")));
  // The document stays open to the end of the run and is finished at shutdown.
  EXPECT_EQ(std::regex_replace(doc, std::regex("%%CreationDate: [^\n]*\n"), ""),
            "%!PS-Adobe-3.0\n%%Creator: Tacto\n%%Title: tactile graphics\n"
            "%%Pages: (atend)\n%%DocumentFonts: (atend)\n%%BoundingBox: 0 0 596 842\n"
            "%%DocumentPaperSize: a4\n%%EndComments\n%%Page: 1 1\nnewpath\n\n1 setlinewidth\n"
            "297 420 3 0 360 arc fill stroke\n444 598 3 0 360 arc fill stroke\n"
            "showpage\n%%Page: 2 2\n4 65 1 0 360 arc fill stroke\n590 775 1 0 360 arc fill stroke\n"
            "\nshowpage clear\n%%Trailer\n%%Pages: 2\n%%DocumentFonts: Times\n%%EOF\n");
  if (!have_ghostscript()) GTEST_SKIP() << "Ghostscript is not installed";
  EXPECT_EQ(ghostscript_verdict(dir, "dots.ps"), "");
  Page page = render(dir, "dots.ps");
  EXPECT_TRUE(page.black_near(297, 420));
  EXPECT_TRUE(page.black_near(444, 598));
  EXPECT_FALSE(page.black_near(297, 430, 3));  // radius 3: ten points off is white
  EXPECT_FALSE(page.black_near(370, 509, 5));  // nothing between the two dots

  // Landscape turns the page: the centre of the landscape box, page point
  // (420, 297), lands at (596 - 297, 420) on the sheet.
  dir.write("land.txt", "postscript land.ps\ndot 2\nlandscape\nplot 0 0 0\n");
  dir.run({"-r", "land.txt"});
  Page land = render(dir, "land.ps");
  EXPECT_TRUE(land.black_near(299, 420));
  EXPECT_FALSE(land.black_near(420, 297, 3));
}

TEST(Output, InkPrintWithAwkwardTextIsAValidDocument) {
  TactoDir dir;
  dir.write("prog.txt",
            "window -10 10 -10 10\ninkprint ink.ps\nrgbcolor 0 0 1\nwidth 0.5\ncap 1\njoin 2\n"
            "line -10 0 10 0 1\ncircle 0 0 3 0 360 1\nxaxis 0 -5 -8 8 1 3 1\nyaxis -5 0 -8 8 2 -2 1\n"
            "alphanumeric -9 9 f(x) = (a)) + ((b \\ c\nalphanumeric -9 8 \xe9\xe8 \x80\xff done\\\n"
            "kanjikana -9 7 A\x88\x9f\x82\nefont 3\nalphanumeric -9 6 abc\nplot 1 1 4\nhatch -3 -3 3 3 1\n"
            "ff\ngray 0.5\nline -20 -20 20 20 1\nlandscape\nline -5 0 5 0 1\nalphanumeric 0 0 turned\n");
  RunResult r = dir.run({"-r", "prog.txt"});
  EXPECT_EQ(r.err.find("error"), std::string::npos) << r.err;
  std::string doc = dir.read("ink.ps");
  EXPECT_NE(doc.find("\n0.50 setlinewidth\n0.00 0.00 1.00 setrgbcolor\n2 setlinejoin\n4 420 moveto\n"
                     "590 420 lineto\nstroke\n"),
            std::string::npos);
  EXPECT_NE(doc.find("\n1 setlinecap\n"), std::string::npos);  // the circle is one stroke
  EXPECT_NE(doc.find("(f(x) = (a)\\) + \\(\\(b \\\\ c) show stroke\n"), std::string::npos);
  EXPECT_NE(doc.find("(\xe9\xe8 \x80\xff done\\\\) show stroke\n"), std::string::npos);
  EXPECT_NE(doc.find("< 0041 889f 8200 > show stroke\n"), std::string::npos);
  if (!have_ghostscript()) GTEST_SKIP() << "Ghostscript is not installed";
  EXPECT_EQ(ghostscript_verdict(dir, "ink.ps"), "");
  Page page = render(dir, "ink.ps");
  EXPECT_TRUE(page.black_near(100, 420));  // the stroked line across the window
  EXPECT_TRUE(page.black_near(500, 420));
  EXPECT_FALSE(page.black_near(100, 200, 5));
}

TEST(Output, RefusalsAreReportedAndTheDocumentStaysValid) {
  TactoDir dir;
  dir.write("prog.txt", "postscript /no/such/dir/a.ps\ninkprint ok.ps\ngray 2\nkanjikana 0 -99 far\n");
  RunResult r = dir.run({"-r", "prog.txt"});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.err.find("error 1? prog.txt line 1 \"postscript\": not open a postscript file (/no/such/dir/a.ps)"
                       "   press any key ? "),
            std::string::npos);
  EXPECT_NE(r.err.find("error 2? prog.txt line 3 \"gray\": gray must be 0.0-1.0"), std::string::npos);
  EXPECT_NE(r.err.find("error 3? prog.txt line 4 \"kanjikana\": illegal wy0 -99.20 (-12.53-12.53)"),
            std::string::npos);
  EXPECT_EQ(dir.read("ok.ps").find(" show "), std::string::npos);
  if (!have_ghostscript()) GTEST_SKIP() << "Ghostscript is not installed";
  EXPECT_EQ(ghostscript_verdict(dir, "ok.ps"), "");
}

// The menu's Image item with a mode, then Enter at every prompt of the job;
// "q" and the end of input quit. Skipped while the menu lacks the item.
TEST(Output, ImageItemMakesBothPictures) {
  TactoDir dir;
  dir.write("tacto.txt", "dot 2\nplot 0 0 0\n");
  RunResult ps = dir.run({"-r"}, "70\n\n\n\n\nq");
  if (ps.err.find("this screen is not available") != std::string::npos)
    GTEST_SKIP() << "the menu does not offer the image jobs yet";
  EXPECT_NE(ps.err.find("\nPostScript file [tacto.ps] was generated\n"), std::string::npos) << ps.err;
  EXPECT_NE(dir.read("tacto.ps").find("\ngsave\nnewpath\n\n1 setlinewidth\n297 420 3 0 360 arc fill stroke\n"
                                      "\ngrestore\nshowpage clear\n%%Trailer\n%%Pages: 0\n"),
            std::string::npos);
  RunResult bmp = dir.run({"-r"}, "71\n\n\nq");
  EXPECT_NE(bmp.err.find("\nBitmap file [tacto.bmp] was generated\n"), std::string::npos) << bmp.err;
  EXPECT_EQ(dir.read("tacto.bmp").size(), 256030u);
  if (have_ghostscript()) {
    EXPECT_EQ(ghostscript_verdict(dir, "tacto.ps"), "");
  }
  if (!have_pillow()) GTEST_SKIP() << "Pillow is not installed";
  // Page point (297, 420) is pixel (594, 838) from the bottom, 845 from the top.
  EXPECT_EQ(silent_run(dir, "/usr/bin/python3 -c \"from PIL import Image; im = Image.open('tacto.bmp'); im.load(); "
                            "assert im.size == (1192, 1684); g = im.convert('L'); "
                            "assert (g.getpixel((594, 845)), g.getpixel((599, 845))) == (0, 255)\""),
            "");
}
