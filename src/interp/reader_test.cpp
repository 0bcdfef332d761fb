// reader_test.cpp - line reading, comments, indentation, assignments,
// macros in the command word, the error limit, bye and quit.
#include "interp/reader.h"

#include <string>

#include "core/run_state.h"
#include "interp/calc.h"
#include "interp/macro.h"
#include "platform/platform.h"
#include "support/test_env.h"

class ReaderTest : public TactoTest {};

TEST_F(ReaderTest, LongLinesContinueAsTheNextLine) {
  std::string line150(150, 'a');
  run_program(line150 + "\n");
  std::string e = errors();
  EXPECT_EQ(run_state.line_number, 2);
  EXPECT_NE(e.find("line 1 \"" + std::string(94, 'a') + "\": unknown command"), std::string::npos);
  EXPECT_NE(e.find("line 2 \"" + std::string(56, 'a') + "\": unknown command"), std::string::npos);
}

TEST_F(ReaderTest, ALineOfNinetyFourCharactersLeavesAnEmptyLine) {
  run_state.run_mode = MODE_TEST;
  std::string comment = "//" + std::string(92, 'c');
  run_program(comment + "\nversion\n");
  EXPECT_EQ(run_state.line_number, 3);
  EXPECT_EQ(echoed(), comment + "\n" + "Version //0 11.20\n");
}

TEST_F(ReaderTest, CommentBlocks) {
  run_state.run_mode = MODE_TEST;
  run_program(
      "/* one */\n"  // the block stays open: nothing after "/*" is looked at
      "version\n"
      "/*\n"         // depth 2
      "*/\n"         // depth 1
      "*/ version\n" // closes and runs the rest
      "version\n"
      "*/\n"
      "*/x\n");      // a fourth character of line feed: nothing runs
  EXPECT_EQ(echoed(),
            "/* one */\nversion\n/*\n*/\n*/\nVersion //0 11.20\nVersion //0 11.20\n*/\n*/x\n");
  std::string e = errors();
  EXPECT_NE(e.find("line 7 \"*/\": unmatched */"), std::string::npos);
  EXPECT_NE(e.find("line 8 \"*/x\": unmatched */"), std::string::npos);
  EXPECT_EQ(run_state.comment_depth, 0);
  EXPECT_EQ(run_state.error_count, 2);
}

TEST_F(ReaderTest, AClosingLineAtDepthOneIsSilentOnItsOwn) {
  run_state.run_mode = MODE_TEST;
  run_program("/*\n  */\n  */x\n");
  // The closing echo keeps the line's indentation.
  EXPECT_EQ(echoed(), "/*\n  */\n  */x\n");
  EXPECT_EQ(run_state.error_count, 1);
}

TEST_F(ReaderTest, IndentationIsKeptAndTabsAreNotBlanks) {
  run_state.run_mode = MODE_TEST;
  run_program("   version\n\tversion\n");
  EXPECT_EQ(echoed(), "   Version //0 11.20\n");
  std::string e = errors();
  EXPECT_NE(e.find("   version //0 11.20\n"), std::string::npos);
  EXPECT_NE(e.find("\"\tversion\": unknown command"), std::string::npos);
}

TEST_F(ReaderTest, LinesWithAnEqualSignAreAssignments) {
  run_program("x=3\ny = x*2\nbraille 10 10 a=b\n// z=1\ncalc w = y + 1\n");
  EXPECT_DOUBLE_EQ(evaluate("y"), 6.0);
  EXPECT_DOUBLE_EQ(evaluate("w"), 7.0);
  evaluate("z");
  EXPECT_EQ(calc.error, 1);  // the comment assigned nothing
  EXPECT_EQ(run_state.error_count, 1);
  EXPECT_EQ(errors().find("lexicon"), std::string::npos);
}

TEST_F(ReaderTest, MacrosReplaceTheCommandWordWithCase) {
  run_state.run_mode = MODE_TEST;
  run_program("define v version\nv\nV\n");
  std::string out = echoed();
  EXPECT_NE(out.find("define v version\ndefined v version in rec. 1\nVersion //0 11.20\n"), std::string::npos);
  EXPECT_NE(errors().find("\"V\": unknown command"), std::string::npos);
}

TEST_F(ReaderTest, EmptyLinesAndCommentsEchoInTraces) {
  run_state.run_mode = MODE_DEBUG;
  run_program("\n  // note\n");
  EXPECT_EQ(echoed(), "\n  // note\n");
}

TEST_F(ReaderTest, PrefixesCountOnAndAreNeverReset) {
  run_state.run_mode = MODE_TEST;
  run_program("version\n");
  run_program("version\n");
  std::string e = errors();
  EXPECT_NE(e.find("\ntest 1: "), std::string::npos);
  EXPECT_NE(e.find("\ntest 4: "), std::string::npos);  // two lines and two ends of input
  EXPECT_EQ(run_state.line_number, 2);
}

TEST_F(ReaderTest, UnmatchedCommentEndsGoStraightToTheNextLine) {
  std::string program;
  for (int i = 0; i < 10; i++) program += "*/\n";
  run_program(program + "version\nversion\n");
  EXPECT_EQ(run_state.error_count, 10);
  // The limit is checked after a command, so the first version still runs.
  EXPECT_EQ(count_of(errors(), "version //0 11.20"), 1);
}

TEST_F(ReaderTest, WaitEchoesTheLineAsRead) {
  run_state.run_mode = MODE_TEST;
  platform_script_keys("x");
  run_program("  wait\n");
  EXPECT_EQ(echoed(), "  wait\nwait // until any key is pressed.\n");
  EXPECT_EQ(platform.script, "");
}

TEST_F(ReaderTest, TheTenthErrorEndsTheRunAfterItsCommand) {
  std::string program;
  for (int i = 0; i < 12; i++) program += "nonsense\n";
  run_program(program);
  EXPECT_EQ(run_state.error_count, 10);
  EXPECT_EQ(run_state.line_number, 10);
  EXPECT_NE(errors().find("\n !!! over max 10 errors !!!\n press any key ? "), std::string::npos);
}

TEST_F(ReaderTest, ByeAndQuitEndTheProgram) {
  run_state.run_mode = MODE_TEST;
  run_program("define a 1\nbye\nversion\n");
  EXPECT_EQ(echoed().find("Version"), std::string::npos);
  EXPECT_EQ(run_state.run_mode, MODE_NORMAL);  // bye left test mode
  EXPECT_EQ(vtab.count, 0);                    // and emptied the macros
  EXPECT_NE(errors().find("   /// 0 error and 0 warning ///\n"), std::string::npos);
  run_program("quit\nversion\n");
  EXPECT_EQ(run_state.quit_requested, 1);
  EXPECT_EQ(errors().find("version //0"), std::string::npos);
}

TEST_F(ReaderTest, ByeInTheConsolesTraceModeOnlyLeavesTheMode) {
  run_state.run_mode = MODE_DEBUG;
  run_state.in_console = 1;
  run_program("bye\nversion\nbye\nversion\n");
  // The first bye returned to normal mode; the second ended the program.
  EXPECT_EQ(count_of(errors(), "version //0 11.20"), 1);
}

TEST_F(ReaderTest, StepModeWaitsForAKeyAndEscapeLeavesIt) {
  platform_script_keys("ab\x1b");
  run_program("step\nversion\nversion\nversion\nversion\n");
  EXPECT_EQ(run_state.step_mode, 0);
  EXPECT_EQ(platform.script, "");
}
