// commands_test.cpp - matching, the table-driven echoes, and the table
// against the help file.
#include "interp/commands.h"

#include <cstring>
#include <fstream>
#include <set>
#include <string>

#include "core/run_state.h"
#include "support/test_env.h"

class CommandsTest : public TactoTest {};

static std::string matched(const char *word) {
  const Command *c = match_command(word);
  return c == nullptr ? "(none)" : c->word;
}

TEST_F(CommandsTest, SignificantLettersAndFirstMatchWins) {
  EXPECT_EQ(matched("CIRCLE"), "circle");
  EXPECT_EQ(matched("cir"), "circle");
  EXPECT_EQ(matched("circles"), "circle");
  EXPECT_EQ(matched("ci"), "(none)");
  EXPECT_EQ(matched("printe"), "(none)");  // seven letters for printer
  EXPECT_EQ(matched("printer"), "printer");
  EXPECT_EQ(matched("plot"), "plot");
  EXPECT_EQ(matched("plotter"), "plotter");
  EXPECT_EQ(matched("ff3"), "ff");
  EXPECT_EQ(matched("form"), "formfeed");
  EXPECT_EQ(matched("f1"), "f1");
  EXPECT_EQ(matched("ln5"), "ln");
  EXPECT_EQ(matched("kanj"), "kanjikana");
  EXPECT_EQ(matched("kan"), "(none)");
  EXPECT_EQ(matched("esa7"), "esa721");
  EXPECT_EQ(matched("esa"), "(none)");
  EXPECT_EQ(matched("//"), "//");
  EXPECT_EQ(matched(""), "");
  EXPECT_EQ(matched("\tline"), "(none)");
}

TEST_F(CommandsTest, CurveFamilyMatchesInItsOrder) {
  const char *order[] = {"vparabola", "hparabola", "hyperbola", "normal", "rhyperbola", "f1", "f2", "f3", "f4",
                         "f5", "sin", "cos", "tan", "pow", "exp", "weibull", "l10", "ln"};
  int last = -1;
  for (const char *w : order) {
    const Command *c = match_command(w);
    ASSERT_NE(c, nullptr) << w;
    int at = static_cast<int>(c - command_table);
    EXPECT_GT(at, last) << w;
    last = at;
  }
}

TEST_F(CommandsTest, EveryCommandIsReachableByItsOwnWord) {
  for (int i = 0; i < command_count; i++) {
    const Command &c = command_table[i];
    EXPECT_EQ(match_command(c.word), &c) << c.word;
  }
}

// Fills param[1..] and echoes a row in a run mode.
static std::string echo_of(const char *word, int mode, std::initializer_list<double> values,
                           const char *text = "") {
  Capture out;
  run_state.echo_out = out.file();
  run_state.run_mode = mode;
  int i = 1;
  for (double v : values) run_state.param[i++] = v;
  copy_text(run_state.ptr, LINE_SIZE, text);
  copy_text(run_state.fname0, NAME_SIZE, text);
  echo_command(*match_command(word));
  return out.text();
}

TEST_F(CommandsTest, DebugEchoesShowDotsTestEchoesShowWorldValues) {
  copy_text(run_state.indent, LINE_SIZE, "  ");
  // ESA721 a4: world 0 0 is dot 300 395; one unit is 599/20.7 dots across.
  EXPECT_EQ(echo_of("line", MODE_DEBUG, {0, 0, 0, 0, 2}), "  line 300 395 300 395 2.000\n");
  EXPECT_EQ(echo_of("line", MODE_TEST, {0, 0, 5, 5, 1}), "  line 0.000 0.000 5.000 5.000 1.000\n");
  EXPECT_EQ(echo_of("circle", MODE_TEST, {0, 0, 5, 0, 360, 1.5}),
            "  circle 0.000 0.000 5.000 0.000 360.000 1.500\n");
  EXPECT_EQ(echo_of("parallelogram", MODE_TEST, {0, 0, 1, 1, 45, 1}),
            "  PARallelogram 0.000 0.000 1.000 1.000 45.000 1.000\n");
  EXPECT_EQ(echo_of("ellipse", MODE_TEST, {3, 0, 1, 1, 0, 90, 1}),
            "  ellipse  3 0.000 1.000 1.000 0.000 90.000 1.000\n");  // "%2.f" as it stands
  EXPECT_EQ(echo_of("rgbcolor", MODE_TEST, {1, 0.5, 0}), "  rglcolor 1.000 0.500 0.000\n");
  EXPECT_EQ(echo_of("pow", MODE_TEST, {0, 0, 0, 1, 0, 1, 2, 1, 1, 0, 0, 1}),
            "  POW 0.000 0.000 0.000 1.000 0.000 1.000 2.000 1.000 1.0000 0.000 0.000 1.000\n");
  EXPECT_EQ(echo_of("brl", MODE_DEBUG, {0, 0}, "AB C"), "  brl 300 395 AB C\n");
  EXPECT_EQ(echo_of("braille", MODE_TEST, {1, 2}, "x"), "  brl 1.000 2.000 x\n");
  EXPECT_EQ(echo_of("gap", MODE_TEST, {1, 2.4}), "  gap 1   2\n");
  EXPECT_EQ(echo_of("version", MODE_TEST, {}), "  Version //0 11.20\n");
  EXPECT_EQ(echo_of("include", MODE_TEST, {}, "sub.txt"), "  include sub.txt\n");
  EXPECT_EQ(echo_of("log", MODE_TEST, {}, "run.log"), "log run.log\n");
  EXPECT_EQ(echo_of("line", MODE_NORMAL, {0, 0, 1, 1, 1}), "");
}

TEST_F(CommandsTest, ConversionModeEchoesUnroundedGridValues) {
  EXPECT_EQ(echo_of("line", MODE_CONVERT, {0, 0, 0, 0, 2}), "line 299.500 395.000 299.500 395.000 2.000\n");
  EXPECT_EQ(echo_of("ellipse", MODE_CONVERT, {0, 0, 1, 1, 0, 90, 1}).substr(0, 24), "ellipse 299.500 395.000 ");
}

TEST_F(CommandsTest, HugeValuesEchoWithoutOverflow) {
  std::string e = echo_of("line", MODE_DEBUG, {1e300, -1e300, 0, 0, 1});
  EXPECT_EQ(e.substr(0, 5), "line ");
}

TEST_F(CommandsTest, UnknownCommandsAreReported) {
  copy_text(run_state.cname, NAME_SIZE, "foo");
  EXPECT_EQ(dispatch(nullptr), 0);
  EXPECT_NE(errors().find("\"foo\": unknown command"), std::string::npos);
}

// Every command's usage line heads an entry of the help file ("bye" has
// none, so that "bye" leaves the help browser).
TEST_F(CommandsTest, HelpFileHasAnEntryPerCommand) {
  std::ifstream in(TACTO_HELP);
  ASSERT_TRUE(in.good());
  std::set<std::string> heads;
  std::string line;
  while (std::getline(in, line)) {
    EXPECT_LE(line.size(), 94u) << line;
    if (line.compare(0, 2, "  ") != 0) heads.insert(line);
  }
  for (int i = 0; i < command_count; i++) {
    const Command &c = command_table[i];
    if (c.usage[0] == '\0' || strcmp(c.word, "bye") == 0) continue;
    EXPECT_EQ(heads.count(c.usage), 1u) << c.usage;
  }
  EXPECT_EQ(heads.count("bye"), 0u);
}
