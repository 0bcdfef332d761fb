// functions.h - the function curves y = f(x): one engine walks any member of
// the family (parabolas, hyperbolas, the normal curve, sin, cos, tan, powers,
// exponentials, logarithms, the Weibull curve and the polynomials f1..f5)
// over 10 000 sub-steps of the x range and places a dot wherever a pitch of
// paper has been covered along the curve. A table row per member holds its
// formula, its parameter count, its own checks and its message wordings.
#ifndef TACTO_CURVES_FUNCTIONS_H
#define TACTO_CURVES_FUNCTIONS_H

struct PageGeom;

// Sub-steps of every function curve, whatever the range and the pitch.
enum : int { CURVE_STEPS = 10000 };

// The six common values that open every member's parameter list.
enum : int { CURVE_COMMON = 6 };

// Checks a member makes beyond the common ones.
enum CurveCheck : int {
  CHECK_NONE,
  CHECK_LOG_DOMAIN,     // before all others: x0 and x1 must be positive
  CHECK_POSITIVE_BASE,  // before the pitch: the first coefficient must be positive
  CHECK_NONZERO,        // after the ranges: the first coefficient must not be 0
};

// The texts a member reports its refusals with (printf formats).
struct CurveWording {
  const char *pitch;        // pitch not above 0
  const char *pitch_again;  // the pitch tested again after the coefficient check, or null
  const char *no_x;         // x0 = x1 (x0, x1)
  const char *x1_off;       // ascending range ending left of the window (x1)
  const char *x0_off;       // descending range starting right of the window (x0)
  const char *no_y;         // y0 = y1 (y0, y1)
  const char *y_up_off;     // ascending y range below the window (y0, y1)
  const char *y_down_off;   // descending y range above the window (y0, y1)
};

// Y relative to oy at X relative to ox; c holds the member's coefficients.
// branch is +1, or -1 for the second pass of a two-branch member.
typedef double (*CurveFormula)(const float *c, double X, int branch);

struct CurveMember {
  const char *word;          // the command word as matched ("pow" echoes as POW)
  int coefficients;          // own parameters between the common values and the pitch
  CurveFormula y;
  CurveCheck check;
  const char *check_message; // the check's text, with the tested value(s)
  const CurveWording *wording;
  int branches;              // 2: the upper branch over the whole range, then the lower
  int pole;                  // coefficient holding a pole never to be sampled, or -1
};

extern const CurveMember curve_members[];
extern const int curve_member_count;

// The member named by a command word (exact, lower case), or null.
const CurveMember *find_curve(const char *word);

// Values a member reads: the six common ones, its coefficients, the pitch.
int curve_value_count(const CurveMember &m);

// Plots a member in the window of g. v holds ox, oy, x0, x1, y0, y1, the
// coefficients and the pitch (mm). Dots go through plot_dot with path codes
// 1 (a path starts), 2 (it goes on) and 3 (it ends, no tactile dot).
// Returns 1, or 0 after a reported refusal with nothing drawn.
int plot_curve(const CurveMember &m, const float *v, const PageGeom &g);

#endif
