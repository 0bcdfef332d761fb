// calc.cpp - the calculator: a lexer over a private copy of the text and a
// recursive-descent evaluator. Failures are reported and contribute 0;
// evaluation goes on to the end and the caller reads calc.error.
#include "interp/calc.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <strings.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"

CalcState calc;

static void reset_calc() { calc = CalcState(); }
[[maybe_unused]] static const int reset_listed = add_reset(reset_calc);

// Token kinds, in the program's numbering.
enum : int {
  T_NUMBER, T_NAME, T_ADD, T_MUL, T_POW, T_OPEN, T_CLOSE, T_SEMI, T_ASSIGN, T_QUERY, T_OTHER, T_END
};

// The lexer's state for one evaluation.
struct Lexer {
  char text[CALC_TEXT_SIZE];  // private copy of the expression
  int pos;                    // start of the next token
  int kind;                   // kind of the current token
  char first;                 // first character of the current token
  char word[CALC_TEXT_SIZE];  // text of a name or number token
  double value;               // value of a number token
};

static void next_token(Lexer &lx) {
  const char *t = lx.text;
  while (t[lx.pos] != '\0' && static_cast<unsigned char>(t[lx.pos]) <= ' ') lx.pos++;
  char c = t[lx.pos];
  lx.first = c;
  lx.word[0] = '\0';
  if (c == '\0') {
    lx.kind = T_END;
    return;
  }
  int start = lx.pos;
  if (isdigit(static_cast<unsigned char>(c))) {
    while (isdigit(static_cast<unsigned char>(t[lx.pos])) || t[lx.pos] == '.') lx.pos++;
    memcpy(lx.word, t + start, lx.pos - start);
    lx.word[lx.pos - start] = '\0';
    lx.value = strtod(lx.word, nullptr);
    lx.kind = T_NUMBER;
    return;
  }
  if (isalpha(static_cast<unsigned char>(c))) {
    while (isalnum(static_cast<unsigned char>(t[lx.pos]))) lx.pos++;
    memcpy(lx.word, t + start, lx.pos - start);
    lx.word[lx.pos - start] = '\0';
    lx.kind = T_NAME;
    return;
  }
  lx.pos++;
  switch (c) {
    case '+': case '-': lx.kind = T_ADD; break;
    case '*': case '/': lx.kind = T_MUL; break;
    case '^': lx.kind = T_POW; break;
    case '(': lx.kind = T_OPEN; break;
    case ')': lx.kind = T_CLOSE; break;
    case ';': lx.kind = T_SEMI; break;
    case '=': lx.kind = T_ASSIGN; break;
    case '?': lx.kind = T_QUERY; break;
    default: lx.kind = T_OTHER; break;
  }
}

// Reports a failure and marks the evaluation as failed.
static double fail(const char *format, const char *arg) {
  put_errorf(format, arg);
  calc.error = 1;
  return 0.0;
}

static double fail_char(char c) {
  put_errorf("lexicon %c", c);
  calc.error = 1;
  return 0.0;
}

static CalcVar *find_variable(const char *name) {
  for (int i = 0; i < calc.count; i++)
    if (strcmp(calc.var[i].name, name) == 0) return &calc.var[i];
  return nullptr;
}

// Stores a value under a name, creating the variable when it is new.
static void store_variable(const char *name, double value) {
  CalcVar *v = find_variable(name);
  if (v == nullptr) {
    if (strlen(name) >= 10) {
      fail("too long variable name %s", name);
      return;
    }
    if (calc.count >= CALC_VARIABLES) {
      put_errorf("variable table overflow");
      calc.error = 1;
      return;
    }
    v = &calc.var[calc.count++];
    copy_text(v->name, CALC_NAME_SIZE, name);
    v->value = 0.0;
  }
  v->value = value;
}

static double expression(Lexer &lx);
static double power(Lexer &lx);

static double call_function(const char *name, double arg) {
  double angle = xform.degree_mode ? arg * TACTO_DEGREE : arg;
  if (strcasecmp(name, "sin") == 0) return sin(angle);
  if (strcasecmp(name, "cos") == 0) return cos(angle);
  if (strcasecmp(name, "tan") == 0) return tan(angle);
  if (strcasecmp(name, "log") == 0) return log(arg);
  if (strcasecmp(name, "log10") == 0) return log10(arg);
  if (strcasecmp(name, "exp") == 0) return exp(arg);
  if (strcasecmp(name, "sqrt") == 0) return sqrt(arg);
  if (strcasecmp(name, "dx") == 0) return mm_to_dx(arg);
  if (strcasecmp(name, "dy") == 0) return mm_to_dy(arg);
  return fail("illigal function %s", name);
}

static double unary(Lexer &lx) {
  switch (lx.kind) {
    case T_NUMBER: {
      double v = lx.value;
      next_token(lx);
      return v;
    }
    case T_NAME: {
      char name[CALC_TEXT_SIZE];
      copy_text(name, CALC_TEXT_SIZE, lx.word);
      next_token(lx);
      if (lx.kind == T_OPEN) {
        next_token(lx);
        double arg = expression(lx);
        next_token(lx);  // past the closing parenthesis, unchecked
        return call_function(name, arg);
      }
      CalcVar *v = find_variable(name);
      if (v == nullptr) return fail("undefined variable %s", name);
      return v->value;
    }
    case T_ADD: {
      char sign = lx.first;
      next_token(lx);
      double v = power(lx);
      return sign == '-' ? -v : v;
    }
    case T_OPEN: {
      next_token(lx);
      double v = expression(lx);
      next_token(lx);  // unchecked: "2*(3+4" is 14
      return v;
    }
    default:
      return fail_char(lx.first);
  }
}

static double power(Lexer &lx) {
  double v = unary(lx);
  while (lx.kind == T_POW) {
    next_token(lx);
    v = pow(v, power(lx));  // right-associative
  }
  return v;
}

static double term(Lexer &lx) {
  double v = power(lx);
  while (lx.kind == T_MUL) {
    char op = lx.first;
    next_token(lx);
    double p = power(lx);
    v = op == '*' ? v * p : v / p;
  }
  return v;
}

static double expression(Lexer &lx) {
  double v = term(lx);
  while (lx.kind == T_ADD) {
    char op = lx.first;
    next_token(lx);
    double t = term(lx);
    v = op == '+' ? v + t : v - t;
  }
  return v;
}

double evaluate(const char *text) {
  calc.error = 0;
  if (strlen(text) >= CALC_TEXT_SIZE) {
    put_error("too long expression");
    calc.error = 1;
    return 0.0;
  }
  Lexer lx;
  copy_text(lx.text, CALC_TEXT_SIZE, text);
  lx.pos = 0;
  next_token(lx);
  if (strchr(text, '=') == nullptr) return expression(lx);

  // An assignment statement: NAME = expression.
  if (lx.kind != T_NAME) return fail_char(lx.first);
  char name[CALC_TEXT_SIZE];
  copy_text(name, CALC_TEXT_SIZE, lx.word);
  next_token(lx);
  if (lx.kind != T_ASSIGN) return fail_char(lx.first);
  next_token(lx);
  double v = expression(lx);
  int failed = calc.error;
  store_variable(name, v);
  if (lx.kind != T_END) fail_char(lx.first);
  calc.error |= failed;
  return v;
}

int calc_command(const char *text) {
  // Join the words up to "//", then drop every blank.
  char joined[LINE_SIZE] = "";
  size_t len = 0;
  const char *p = text;
  for (;;) {
    p += strspn(p, " \t\n");
    size_t n = strcspn(p, " \t\n");
    if (n == 0 || (n == 2 && strncmp(p, "//", 2) == 0)) break;
    if (len + n >= sizeof joined) n = sizeof joined - 1 - len;
    memcpy(joined + len, p, n);
    len += n;
    joined[len] = '\0';
    p += strcspn(p, " \t\n");
  }
  double v = evaluate(joined);
  if (run_state.run_mode == MODE_DEBUG || run_state.run_mode == MODE_TEST) {
    fprintf(stderr, "   %s = %.4f\n", joined, v);
    fflush(stderr);
  }
  return calc.error ? 0 : 1;
}
