// macro_test.cpp - define, undefine and the substitution of parameters.
#include "interp/macro.h"

#include <string>

#include "core/run_state.h"
#include "interp/commands.h"
#include "support/test_env.h"

class MacroTest : public TactoTest {
 protected:
  // Runs the argument look-up on a parameter text for a command word, as
  // its reader does (text commands look up their first two words only).
  std::string look(const char *command, const char *params) {
    copy_text(run_state.cname, NAME_SIZE, command);
    copy_text(run_state.ptr, LINE_SIZE, params);
    const Command *cmd = match_command(command);
    last_ok_ = lookup(cmd != nullptr && (cmd->flags & F_RAW_TEXT) ? LOOKUP_TEXT : LOOKUP_PARAMS);
    return run_state.ptr;
  }
  int last_ok_ = 0;
};

TEST_F(MacroTest, DefineAppendsAndRedefineKeepsThePlace) {
  EXPECT_EQ(define_macro("r 5"), 1);
  EXPECT_EQ(define_macro("w 2*r"), 1);
  EXPECT_EQ(define_macro("r 7"), 1);
  EXPECT_EQ(vtab.count, 2);
  EXPECT_STREQ(vtab.entry[1].word, "r");
  EXPECT_STREQ(vtab.entry[1].text, "7");
  EXPECT_EQ(vtab.entry[1].number, 1);
  std::string e = errors();
  EXPECT_NE(e.find("defined r 5 in rec. 1\n"), std::string::npos);
  EXPECT_NE(e.find("defined w 2*r in rec. 2\n"), std::string::npos);
  EXPECT_NE(e.find("redefined r 7 in rec. 1\n"), std::string::npos);
}

TEST_F(MacroTest, DefinedLinesGoToTheEchoInTraces) {
  run_state.run_mode = MODE_DEBUG;
  define_macro("x 1");
  EXPECT_EQ(echoed(), "defined x 1 in rec. 1\n");
}

TEST_F(MacroTest, ReplacementKeepsInnerBlanks) {
  define_macro("pair   1 2  ");
  EXPECT_STREQ(vtab.entry[1].text, "1 2  ");
}

TEST_F(MacroTest, LengthLimitsAreExact) {
  std::string word36(36, 'a'), word37(37, 'b');
  EXPECT_EQ(define_macro((word36 + " 1").c_str()), 1);
  EXPECT_EQ(define_macro((word37 + " 1").c_str()), 0);
  std::string text29(29, '1'), text30(30, '2');
  EXPECT_EQ(define_macro(("t " + text29).c_str()), 1);
  EXPECT_EQ(define_macro(("u " + text30).c_str()), 0);
  EXPECT_EQ(vtab.count, 2);
  std::string e = errors();
  EXPECT_NE(e.find("define too long entry word (" + word37 + ")"), std::string::npos);
  EXPECT_NE(e.find("define replaced string is too long"), std::string::npos);
}

TEST_F(MacroTest, RefusedWordsAndMissingParts) {
  EXPECT_EQ(define_macro("1x 5"), 0);
  EXPECT_EQ(define_macro("_x 5"), 0);
  EXPECT_EQ(define_macro(""), 0);
  EXPECT_EQ(define_macro("lonely"), 0);
  EXPECT_EQ(undefine_macro("x"), 0);  // the table is empty
  define_macro("x 1");
  EXPECT_EQ(undefine_macro("_x"), 0);
  EXPECT_EQ(undefine_macro(""), 0);
  std::string e = errors();
  EXPECT_NE(e.find("define non-alphabetical entry word (1x)"), std::string::npos);
  EXPECT_NE(e.find("define non-alphabetical entry word (_x)"), std::string::npos);
  EXPECT_NE(e.find("define no entry word"), std::string::npos);
  EXPECT_NE(e.find("define empty string (lonely)"), std::string::npos);
  EXPECT_NE(e.find("undefine empty variable table"), std::string::npos);
  EXPECT_NE(e.find("undefine non-alphabetical entry word (_x)"), std::string::npos);
  EXPECT_NE(e.find("undefine no entry word"), std::string::npos);
  EXPECT_EQ(vtab.count, 1);
}

TEST_F(MacroTest, TheThirtyFirstWordIsRefused) {
  for (int i = 1; i <= MACRO_ENTRIES; i++) {
    std::string def = "w" + std::to_string(i) + " " + std::to_string(i);
    ASSERT_EQ(define_macro(def.c_str()), 1);
  }
  EXPECT_EQ(define_macro("extra 1"), 0);
  EXPECT_EQ(vtab.count, MACRO_ENTRIES);
  EXPECT_NE(errors().find("define variable table is full (rec. 30 < 30)"), std::string::npos);
  EXPECT_EQ(define_macro("w3 33"), 1);  // redefining still works when full
}

TEST_F(MacroTest, UndefineRenumbersAndIgnoresUnknownWords) {
  define_macro("a 1");
  define_macro("b 2");
  define_macro("c 3");
  define_macro("d 4");
  EXPECT_EQ(undefine_macro("b"), 1);
  EXPECT_EQ(vtab.count, 3);
  EXPECT_STREQ(vtab.entry[2].word, "c");
  EXPECT_EQ(vtab.entry[2].number, 2);
  EXPECT_STREQ(vtab.entry[3].word, "d");
  EXPECT_EQ(vtab.entry[3].number, 3);
  EXPECT_NE(errors().find("undefined b 2 in rec. 2\n"), std::string::npos);
  EXPECT_EQ(undefine_macro("zz"), 1);
  EXPECT_EQ(vtab.count, 3);
}

TEST_F(MacroTest, CaseRules) {
  define_macro("R 5");
  define_macro("r 6");  // a different word for define
  EXPECT_EQ(vtab.count, 2);
  // The argument look-up ignores case and takes the first record.
  EXPECT_EQ(look("circle", "r R"), "5.0000 5.0000 ");
  // The command word look-up is exact.
  define_macro("Circ circle");
  copy_text(run_state.cname, NAME_SIZE, "circ");
  lookup(LOOKUP_WORD);
  EXPECT_STREQ(run_state.cname, "circ");
  copy_text(run_state.cname, NAME_SIZE, "Circ");
  lookup(LOOKUP_WORD);
  EXPECT_STREQ(run_state.cname, "circle");
}

TEST_F(MacroTest, TwoLevelsOfSubstitution) {
  define_macro("a b");
  define_macro("b c");
  define_macro("c 3");
  define_macro("x y");
  define_macro("y 2");
  EXPECT_EQ(look("line", "x"), "2.0000 ");
  // A third level is not expanded: "c" is then evaluated as an unknown variable.
  look("line", "a");
  EXPECT_EQ(last_ok_, 0);
  std::string e = errors();
  EXPECT_NE(e.find("undefined variable c"), std::string::npos);
  EXPECT_NE(e.find("lookup unevaluate"), std::string::npos);
}

TEST_F(MacroTest, ExpressionsCommentsAndTextCommands) {
  define_macro("A 10");
  EXPECT_EQ(look("line", "1+1 2*3 // note"), "2.0000 6.0000 // note ");
  EXPECT_EQ(look("line", "// all comment"), "// all comment");
  EXPECT_EQ(look("braille", "A 2 A B"), "10.0000 2.0000 ");
  EXPECT_EQ(last_ok_, 1);
}
