// text_test.cpp - Braille and kana labels in the real program: debug and
// test traces of the cells, the refusal at the frame's edge, the bytes the
// ESA721 embosses as text, and the bundled example.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "support/run_tacto.h"

// The trace lines of a run, without the echoes.
static std::string traced(const std::string &out) {
  std::istringstream in(out);
  std::string line, dots;
  while (std::getline(in, line))
    if (line.compare(0, 8, "   Plot ") == 0 || line.compare(0, 8, "   plot ") == 0) dots += line + "\n";
  return dots;
}

// ESA600G a4 with the window on the grid (world units are dots): 2 mm up is
// 7.82 dots, so the cells of y 500 start at dy 508, row 1023 - 508 = 515.
// The gaps are h 8, v 8, s 21.
TEST(Text, AbOnTheEsa600g) {
  RunResult r = run_program("esa600g\nframe 0 831 0 1023 0 831 0 1023\nbrl 100 500 AB\n", {"-r", "-d"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out,
            "esa600g\n"
            "frame 0 831 0 1023 0.000 831.000 0.000 1023.000\n"
            "brl 100 500 AB\n"
            "   Plot 515 100 0\n"    // A: dot 1 at the cell origin
            "   Plot 515 121 0\n"    // B: dot 1, 21 dots on
            "   Plot 523 121 0\n");  // B: dot 2, 8 dots below
}

// ESA721 portrait, window on the grid, s 15: two cells from column 569 end
// on the frame's edge 599; from 570 they would pass it.
TEST(Text, TooLongOnlyPastTheFrameEdge) {
  RunResult r = run_program("frame 0 599 0 790 0 599 0 790\nbrl 569 100 AB\nbrl 570 100 AB\n", {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(traced(r.out),
            "   plot 569.000 106.000 0\n"
            "   plot 584.000 106.000 0\n"
            "   plot 584.000 99.000 0\n");
  EXPECT_NE(r.err.find("warning 1! prog.txt line 3"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find(": too long (AB)"), std::string::npos) << r.err;
  EXPECT_EQ(count_of(r.err, "warning "), 1);
}

// A normal run on the ESA721 in portrait: a pen move (GS and the address of
// row 684, col 100), carriage return, then the cells as Braille ASCII.
TEST(Text, Esa721EmbossesBrailleAndKanaAsText) {
  RunResult r = run_program(
      "frame 0 599 0 790 0 599 0 790\n"
      "braille 100 100 x=1 {a}\n"
      "kana 100 100 1,000\n"
      "kana 100 100 \xB6\xDE\xB7\xAC\xDD\xCC\xDF\n",  // ga kya n pu
      {"-r"});
  EXPECT_EQ(r.status, 0);
  const std::string move = "\x1b\x1bG\x1d#d5L\r";
  EXPECT_EQ(r.out, move + "X=1 [A]" + move + "#A'JJJ" + move + "\"*@*0,X");
  EXPECT_EQ(count_of(r.err, "error"), 0) << r.err;
}

// The example: a labelled triangle whose kana are single bytes, drawn
// without a warning.
TEST(Text, ExampleOfBrailleAndKanaLabels) {
  std::ifstream in(std::string(TACTO_SOURCE_DIR) + "/examples/braille_labels.txt", std::ios::binary);
  std::string program((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ASSERT_FALSE(program.empty());
  int kana_bytes = 0, other_high = 0;  // half-width katakana, and any other byte above 127
  for (unsigned char c : program) (c >= 0xA1 && c <= 0xDF ? kana_bytes : other_high) += c >= 0x80;
  EXPECT_GT(kana_bytes, 20);
  EXPECT_EQ(other_high, 0);
  RunResult r = run_program(program, {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(count_of(r.err, "warning") + count_of(r.err, "error"), 0) << r.err;
  EXPECT_EQ(count_of(r.out, "\nkana "), 5);
  EXPECT_EQ(count_of(r.out, "\nbrl "), 4);
  EXPECT_GT(count_of(traced(r.out), "plot"), 300);
}
