// draw_cmds_test.cpp - the drawing commands through the interpreter: their
// echoes in debug (dots), test (as read) and conversion mode (grid values,
// nothing drawn), and the parameters reaching the figures.
#include "commands/handlers.h"

#include "core/run_state.h"
#include "raster/dmap.h"
#include "support/draw_testing.h"
#include "support/test_env.h"

class DrawCmdsTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    use_mm_page();  // x -> 2x + 190, y -> 2y + 277, lengths twice
  }
  // The echo of one command line alone (trace lines left out).
  std::string echo_of(const std::string &line, int mode) {
    run_state.run_mode = mode;
    size_t before = echoed().size();
    run_program(line + "\n");
    std::istringstream in(echoed().substr(before));
    std::string text, out;
    while (std::getline(in, text))
      if (text.compare(0, 8, "   plot ") != 0 && text.compare(0, 8, "   Plot ") != 0) out += text + "\n";
    return out;
  }
};

struct EchoCase {
  const char *line;
  const char *debug, *test, *convert;
};

static const EchoCase ECHOES[] = {
    {"line 1 2 3 4 1.5", "line 192 281 196 285 1.500\n", "line 1.000 2.000 3.000 4.000 1.500\n",
     "line 192.000 281.000 196.000 285.000 1.500\n"},
    {"hatch 1 2 3 4 0.5", "hatch 192 281 196 285 1\n", "hatch 1.000 2.000 3.000 4.000 0.500\n",
     "hatch 192.000 281.000 196.000 285.000 1.000\n"},
    {"xaxis 1 2 -3 4 0.5 2 1.5", "xaxis 192 281 184 198 1 2 1.500\n",
     "xaxis 1.000 2.000 -3.000 4.000 0.500 2 1.500\n",
     "xaxis 192.000 281.000 184.000 198.000 1.000 2 1.500\n"},
    {"yaxis 1 2 -3 4 0.5 -2 1.5", "yaxis 192 281 271 285 1 -2 1.500\n",
     "yaxis 1.000 2.000 -3.000 4.000 0.500 -2 1.500\n",
     "yaxis 192.000 281.000 271.000 285.000 1.000 -2 1.500\n"},
    {"rectangle 1 2 3 4 1.5", "rectangle 192 281 196 285 1.500\n",
     "rectangle 1.000 2.000 3.000 4.000 1.500\n", "rectangle 192.000 281.000 196.000 285.000 1.500\n"},
    {"diamond 1 2 3 4 1.5", "diamond 192 281 6 8 1.500\n", "diamond 1.000 2.000 3.000 4.000 1.500\n",
     "diamond 192.000 281.000 6.000 8.000 1.500\n"},
    {"box 1 2 3 4 1.5", "box 192 281 6 8 1.500\n", "box 1.000 2.000 3.000 4.000 1.500\n",
     "box 192.000 281.000 6.000 8.000 1.500\n"},
    {"eraser 1 2 3 4", "eraser 192 281 6 8\n", "eraser 1.000 2.000 3.000 4.000\n",
     "eraser 192.000 281.000 6.000 8.000\n"},
    {"bwplot 1 2 -3 -1 0 1 3 -2 1 1.5", "bwplot 192 281 -6 -2 0 2 6 4 2 1.500\n",
     "bwplot 1.000 2.000 -3.000 -1.000 0.000 1.000 3.000 -2.000 1.000 1.500\n",
     "bwplot 192.000 281.000 -6.000 -2.000 0.000 2.000 6.000 4.000 2.000 1.500\n"},
    {"polygon 5 1 2 3 1.5", "polygon 5 192 281 6 1.500\n", "polygon 5 1.000 2.000 3.000 1.500\n",
     "polygon 5 192.000 281.000 6.000 1.500\n"},
    {"parallelogram 1 2 3 4 60 1.5", "PARallelogram 192 281 6 8 60 1.500\n",
     "PARallelogram 1.000 2.000 3.000 4.000 60.000 1.500\n",
     "PARallelogram 192.000 281.000 6.000 8.000 60.000 1.500\n"},
    {"arrow 1 2 3 4 30 2 1 1.5", "arrow 192 281 196 285 30.000 4.000 1 1.500\n",
     "arrow 1.000 2.000 3.000 4.000 30.000 2.000 1 1.500\n",
     "arrow 192.000 281.000 196.000 285.000 30.000 4.000 1 1.500\n"},
    {"dart 1 2 45 3 30 2 1 1.5", "dart 192 281 45.000 6 30.000 4 1 1.500\n",
     "dart 1.000 2.000 45.000 3.000 30.000 2.000 1 1.500\n",
     "dart 192.000 281.000 45.000 6.000 30.000 4.000 1 1.500\n"},
    {"circle 1 2 3 0 90 1.5", "circle 192 281 6 0.000 90.000 1.500\n",
     "circle 1.000 2.000 3.000 0.000 90.000 1.500\n", "circle 192.000 281.000 6.000 0.000 90.000 1.500\n"},
    {"ellipse 1 2 3 4 0 90 1.5", "ellipse 192 281 6 8 0.000 90.000 1.500\n",
     "ellipse  1 2.000 3.000 4.000 0.000 90.000 1.500\n",
     "ellipse 192.000 281.000 6.000 8.000 0.000 90.000 1.500\n"},
    {"oval 1 2 3 2 1 5 1.5", "oval 192 281 196 281 192 287 1.500\n",
     "oval 1.000 2.000 3.000 2.000 1.000 5.000 1.500\n",
     "oval 192.000 281.000 196.000 281.000 192.000 287.000 1.500\n"},
};

TEST_F(DrawCmdsTest, DebugEchoesInDots) {
  for (const EchoCase &c : ECHOES) EXPECT_EQ(echo_of(c.line, MODE_DEBUG), c.debug) << c.line;
}

TEST_F(DrawCmdsTest, TestEchoesAsRead) {
  for (const EchoCase &c : ECHOES) EXPECT_EQ(echo_of(c.line, MODE_TEST), c.test) << c.line;
}

// Conversion mode echoes grid values and draws nothing at all.
TEST_F(DrawCmdsTest, ConversionModeEchoesAndDrawsNothing) {
  for (const EchoCase &c : ECHOES) EXPECT_EQ(echo_of(c.line, MODE_CONVERT), c.convert) << c.line;
  EXPECT_TRUE(traced_dots(echoed()).empty());
  EXPECT_EQ(emitted(), "");
  EXPECT_EQ(run_state.error_count, 0);
}

// The indentation of the line leads the echo, also when the command refuses.
TEST_F(DrawCmdsTest, IndentedEchoComesBeforeTheChecks) {
  EXPECT_EQ(echo_of("    yaxis 0 0 0 1 1 0 1", MODE_TEST), "    yaxis 0.000 0.000 0.000 1.000 1.000 0 1.000\n");
  EXPECT_EQ(count_of(errors(), ": illegal pic (0)"), 1);
}

// Parameters arrive in their order; counts and head types are truncated.
TEST_F(DrawCmdsTest, ParametersReachTheFigures) {
  run_state.run_mode = MODE_DEBUG;
  run_program("line 0 0 4 0 1.9999\npolygon 2.9 0 0 1 1\narrow 0 0 4 0 90 2 3.7 0.9999\n");
  EXPECT_EQ(traced_dots(echoed()),
            plain({{190, 277}, {194, 277}, {198, 277},
                   {190, 277}, {192, 277}, {194, 277}, {196, 277}, {198, 277}, {198, 277}}));
  EXPECT_EQ(count_of(errors(), ": few angles of polygone (2)"), 1);
}

// eraser cx cy a b clears a rows and b columns either side of the centre:
// here one row and four columns (x from -2 to 2) of a line of dots at every
// whole millimetre from -4 to 4 (columns 182 to 198 on row 277).
TEST_F(DrawCmdsTest, EraserClearsItsRectangleOfTheDotMap) {
  alloc_dmap();
  dmap.printer_mode = 1;
  run_program("line -4 0 4 0 0.9999\neraser 0 0 0.5 2\n");
  for (int col = 182; col <= 198; col += 2) {
    bool erased = col >= 186 && col <= 194;
    EXPECT_EQ(get_dot(277, col) == 3, erased) << col;
  }
}
