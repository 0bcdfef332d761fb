// braille_test.cpp - drawing a Braille line through the interpreter: the
// cell layout by orientation, normalisation, the refusals and their
// warnings, the dot size and pattern around the cells, and which outputs
// take dots rather than text.
#include "text/braille.h"

#include <sstream>
#include <string>

#include "core/run_state.h"
#include "devices/embosser.h"
#include "raster/dmap.h"
#include "raster/plot.h"
#include "support/test_env.h"

// ESA721 a4 with the window on the grid: world units are dots, and 2 mm
// along y is 6.30 dots in portrait (5.79 in landscape).
static const std::string PAGE = "frame 0 599 0 790 0 599 0 790\n";

class BrailleTest : public TactoTest {
 protected:
  // The dots ("row col kind") traced by a debug run.
  std::string dots(const std::string &program) {
    run_state.run_mode = MODE_DEBUG;
    size_t before = echoed().size();
    run_program(program);
    std::istringstream in(echoed().substr(before));
    std::string line, out;
    while (std::getline(in, line))
      if (line.compare(0, 8, "   Plot ") == 0) out += line.substr(8) + "\n";
    return out;
  }
};

// Dots 1, 2, 3 down the left column, then 6, 5, 4 up the right one, with
// the ESA721's landscape gaps h 7, v 6, s 18; device row 790 - dx, col 599 - dy.
TEST_F(BrailleTest, CellsFollowTheGapsOfTheOrientation) {
  EXPECT_EQ(dots("landscape\nframe 0 790 0 599 0 790 0 599\nbrl 10 100 =A\n"),
            "780 493 0\n780 499 0\n780 505 0\n"  // dots 1 2 3 of = at dx 10, dy 106 100 94
            "773 505 0\n773 499 0\n773 493 0\n"  // dots 6 5 4 at dx 17
            "762 493 0\n");                      // A one cell on, at dx 28
}

TEST_F(BrailleTest, TextIsNormalisedAndBytesWithoutACellAreBlanks) {
  std::string upper = dots(PAGE + "brl 10 100 AB[\n");
  EXPECT_EQ(dots(PAGE + "brl 10 100 ab{\n"), upper);
  EXPECT_EQ(dots(PAGE + "brl 10 100 \x81\x82\x9c\n"), upper);
  EXPECT_EQ(dots(PAGE + "brl 10 100 A\tA\n"), "684 10 0\n684 40 0\n");
  EXPECT_EQ(dots(PAGE + "brl 10 100 \n"), "");
  EXPECT_EQ(run_state.warning_count, 0);
}

// Each refusal names the text (for kana, its translation) and draws
// nothing; a dot below the frame is refused by itself.
TEST_F(BrailleTest, RefusalsWarnWordForWord) {
  EXPECT_EQ(dots(PAGE + "brl -1 100 AB\nbrl 1 790 AB\nbrl 570 100 AB\nkana 570 100 12\n"), "");
  EXPECT_EQ(dots("frame 0 599 95 790 0 599 0 790\nbrl 10 96.7 Y\n"),  // Y: dots 1 3 4 5 6, top at dy 103
            "687 10 0\n694 16 0\n687 16 0\n");                         // 3 and 6 fall at dy 89
  std::string err = errors();
  for (const char *message : {": overflow AB: -1.00 (0.00-599)\n", ": overflow AB: 796.30 ( 0-790\n",
                              ": too long (AB)\n", ": too long (#AB)\n", ": plot0 y0: 89 (95, 790)\n"})
    EXPECT_NE(err.find(message), std::string::npos) << message << err;
  EXPECT_EQ(run_state.warning_count, 6);
}

// Cells are size 1 in the dot map whatever the dot size; the size and the
// dash pattern are back afterwards.
TEST_F(BrailleTest, CellsAreSizeOneAndThePatternIsResumed) {
  ASSERT_EQ(alloc_dmap(), 1);
  run_program(PAGE + "printer\ndot 2\ndesign 1 1 1 0 0\nbrl 10 100 B\n");
  EXPECT_EQ(get_dot(684, 10), 1);  // dot 1
  EXPECT_EQ(get_dot(691, 10), 1);  // dot 2, 7 dots lower
  EXPECT_EQ(plot_state.dot_size, 2);
  EXPECT_EQ(plot_state.pattern_on, 1);
}

// Only the ESA721 in portrait, receiving dot by dot, embosses text itself;
// elsewhere A is one dot address after the enter sequence.
TEST_F(BrailleTest, OtherOutputsGetTheCellsAsDots) {
  const std::string settings[] = {"printer\n" + PAGE, "landscape\nframe 0 790 0 599 0 790 0 599\n",
                                  "esa600g\n" + PAGE, "on_off 0\n" + PAGE};
  for (const std::string &setting : settings) {
    reset_embosser();
    reset_dmap();  // printer mode off again
    embosser.out = device_.file();
    size_t before = emitted().size();
    run_program(setting + "brl 100 100 A\n");
    std::string bytes = emitted().substr(before);
    if (setting[0] == 'o') EXPECT_EQ(bytes, "");  // output off
    else EXPECT_EQ(bytes.substr(0, 3) + std::to_string(bytes.size()), "\x1b\x1bG7") << setting;
  }
}
