// calc.h - the calculator: every numeric argument is an expression with
// + - * / ^, parentheses, variables and the functions sin cos tan log log10
// exp sqrt dx dy; assignments create variables.
#ifndef TACTO_INTERP_CALC_H
#define TACTO_INTERP_CALC_H

enum : int {
  CALC_VARIABLES = 100,
  CALC_NAME_SIZE = 16,  // names of at most 9 characters
  CALC_TEXT_SIZE = 256, // longest expression text accepted
};

struct CalcVar {
  char name[CALC_NAME_SIZE];
  double value;
};

struct CalcState {
  CalcVar var[CALC_VARIABLES];
  int count;   // variables in use
  int error;   // set by every failure of the last evaluation
};
extern CalcState calc;

// Evaluates an expression, or an assignment when the text holds '='.
// Failures are reported through put_error and set calc.error.
double evaluate(const char *text);

// The `calc` command: joins the words up to "//", removes blanks and
// evaluates; in debug and test mode prints "   %s = %.4f\n".
int calc_command(const char *text);

#endif
