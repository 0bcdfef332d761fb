// calc_test.cpp - the calculator's grammar, variables and messages.
#include "interp/calc.h"

#include "geometry/transform.h"
#include "shell/run_state.h"
#include "support/test_env.h"

class CalcTest : public TactoTest {};

TEST_F(CalcTest, PrecedenceAndAssociativity) {
  EXPECT_DOUBLE_EQ(evaluate("2^3^2"), 512.0);
  EXPECT_DOUBLE_EQ(evaluate("-2^2"), -4.0);
  EXPECT_DOUBLE_EQ(evaluate("2*(3+4"), 14.0);  // the missing parenthesis goes unreported
  EXPECT_DOUBLE_EQ(evaluate("10-4-3"), 3.0);
  EXPECT_DOUBLE_EQ(evaluate("12/3/2"), 2.0);
  EXPECT_DOUBLE_EQ(evaluate("2^-1"), 0.5);
  EXPECT_EQ(calc.error, 0);
  EXPECT_EQ(run_state.error_count, 0);
}
