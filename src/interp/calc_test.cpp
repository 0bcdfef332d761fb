// calc_test.cpp - the calculator's grammar, variables, functions and messages.
#include "interp/calc.h"

#include <cmath>

#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "support/test_env.h"

class CalcTest : public TactoTest {};

TEST_F(CalcTest, PrecedenceAndAssociativity) {
  EXPECT_DOUBLE_EQ(evaluate("2^3^2"), 512.0);
  EXPECT_DOUBLE_EQ(evaluate("-2^2"), -4.0);
  EXPECT_DOUBLE_EQ(evaluate("2*(3+4"), 14.0);  // the missing parenthesis goes unreported
  EXPECT_DOUBLE_EQ(evaluate("10-4-3"), 3.0);
  EXPECT_DOUBLE_EQ(evaluate("12/3/2"), 2.0);
  EXPECT_DOUBLE_EQ(evaluate("2^-1"), 0.5);
  EXPECT_DOUBLE_EQ(evaluate("1+2*3^2"), 19.0);
  EXPECT_DOUBLE_EQ(evaluate(" 1 + 2 "), 3.0);
  EXPECT_EQ(calc.error, 0);
  EXPECT_EQ(run_state.error_count, 0);
}

TEST_F(CalcTest, TextAfterACompleteExpressionIsIgnored) {
  EXPECT_DOUBLE_EQ(evaluate("3#4"), 3.0);
  EXPECT_DOUBLE_EQ(evaluate("1 2"), 1.0);
  EXPECT_EQ(run_state.error_count, 0);
  EXPECT_DOUBLE_EQ(evaluate("#"), 0.0);
  EXPECT_EQ(calc.error, 1);
  EXPECT_NE(errors().find("\"tacto\": lexicon #"), std::string::npos);
}

TEST_F(CalcTest, VariablesAreCaseSensitiveFunctionsAreNot) {
  EXPECT_DOUBLE_EQ(evaluate("a=1"), 1.0);
  EXPECT_DOUBLE_EQ(evaluate("a+1"), 2.0);
  EXPECT_EQ(calc.error, 0);
  EXPECT_DOUBLE_EQ(evaluate("A"), 0.0);
  EXPECT_EQ(calc.error, 1);
  EXPECT_NE(errors().find("undefined variable A"), std::string::npos);
  EXPECT_DOUBLE_EQ(evaluate("SQRT(4)"), 2.0);
  EXPECT_DOUBLE_EQ(evaluate("Log10(1000)"), 3.0);
  EXPECT_DOUBLE_EQ(evaluate("exp(0)+log(1)"), 1.0);
  EXPECT_EQ(calc.error, 0);
  EXPECT_DOUBLE_EQ(evaluate("foo(2)"), 0.0);
  EXPECT_NE(errors().find("illigal function foo"), std::string::npos);
}

TEST_F(CalcTest, AnglesFollowTheUnitWithTheProgramsFactor) {
  EXPECT_DOUBLE_EQ(evaluate("sin(90)"), sin(90 * 0.01745328888888889));
  EXPECT_NE(evaluate("sin(90)"), 1.0);  // 3.141592/180, not the exact factor
  xform.degree_mode = 0;
  EXPECT_DOUBLE_EQ(evaluate("cos(0)"), 1.0);
  EXPECT_DOUBLE_EQ(evaluate("tan(1)"), tan(1.0));
}

TEST_F(CalcTest, PiPresetIsTheProgramsOwnValue) {
  evaluate("pi=3.141596");
  EXPECT_DOUBLE_EQ(evaluate("pi"), 3.141596);
  EXPECT_DOUBLE_EQ(evaluate("2*pi"), 6.283192);
}

TEST_F(CalcTest, AssignmentsStoreAndReportTrailingText) {
  EXPECT_DOUBLE_EQ(evaluate("x = 2 + 3"), 5.0);
  EXPECT_DOUBLE_EQ(evaluate("x"), 5.0);
  EXPECT_DOUBLE_EQ(evaluate("x=x*2"), 10.0);
  EXPECT_DOUBLE_EQ(evaluate("x"), 10.0);
  evaluate("y=4)");  // stored all the same
  EXPECT_EQ(calc.error, 1);
  EXPECT_DOUBLE_EQ(evaluate("y"), 4.0);
  evaluate("3=4");
  EXPECT_EQ(calc.error, 1);
  evaluate("z 4=4");
  EXPECT_EQ(calc.error, 1);
  std::string e = errors();
  EXPECT_NE(e.find("lexicon )"), std::string::npos);
  EXPECT_NE(e.find("lexicon 3"), std::string::npos);
  EXPECT_NE(e.find("lexicon 4"), std::string::npos);
}

TEST_F(CalcTest, VariableTableLimits) {
  evaluate("abcdefghi=1");  // nine characters
  EXPECT_EQ(calc.error, 0);
  evaluate("abcdefghij=1");  // ten
  EXPECT_EQ(calc.error, 1);
  EXPECT_NE(errors().find("too long variable name abcdefghij"), std::string::npos);
  for (int i = calc.count; i < CALC_VARIABLES; i++) {
    char text[32];
    snprintf(text, sizeof text, "v%d=%d", i, i);
    evaluate(text);
    ASSERT_EQ(calc.error, 0) << text;
  }
  evaluate("over=1");
  EXPECT_EQ(calc.error, 1);
  EXPECT_NE(errors().find("variable table overflow"), std::string::npos);
  evaluate("v50=7");  // an existing name is still written
  EXPECT_EQ(calc.error, 0);
  EXPECT_DOUBLE_EQ(evaluate("v50"), 7.0);
}

TEST_F(CalcTest, MillimetresToWorldLengths) {
  // ESA721 a4: 20.7 world units over 599 dots of 0.345576 mm.
  double expect_x = 20.7 / (599 * 0.345576) * 10.0;
  EXPECT_NEAR(evaluate("dx(10)"), expect_x, 1e-6);
  EXPECT_DOUBLE_EQ(evaluate("dy(5)"), mm_to_dy(5));
}

TEST_F(CalcTest, OverlongAndDeepExpressionsAreSafe) {
  std::string deep(200, '(');
  deep += "1";
  EXPECT_DOUBLE_EQ(evaluate(deep.c_str()), 1.0);
  std::string minus(200, '-');
  minus += "2";
  EXPECT_DOUBLE_EQ(evaluate(minus.c_str()), 2.0);
  std::string longer(300, '1');
  evaluate(longer.c_str());
  EXPECT_EQ(calc.error, 1);
}

TEST_F(CalcTest, CalcCommandJoinsWordsAndShowsTheValueInTraces) {
  run_state.run_mode = MODE_TEST;
  EXPECT_EQ(calc_command("r = 2 * 3 // six"), 1);
  EXPECT_DOUBLE_EQ(evaluate("r"), 6.0);
  EXPECT_NE(errors().find("   r=2*3 = 6.0000\n"), std::string::npos);
  run_state.run_mode = MODE_NORMAL;
  EXPECT_EQ(calc_command("1 + 1"), 1);
  EXPECT_EQ(errors().find("="), std::string::npos);
}
