// Values of functions: exact special values of sin, cos, tan and their inverses, logarithms of
// powers of ten, numeric evaluation, and the constants e, p and d as numbers.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// How an angle argument is written, with its parts.
struct AngleTerm {
  int code = 0;         // 1 a number, 2 number*d, 3 a*p/b, 0 none; negative for a negative angle
  double number = 0.0;  // the number of code 1 and 2 (with its sign)
  long long a = 0;      // a*p/b, with its sign
  long long b = 1;
};

// Splits a function node's argument into its angle form.
AngleTerm AngleOfTerm(Session& s, NodeIdx function_node);

// Exact values: ln(e), exp(0), log of a power of ten, sin/cos/tan at the special angles (with
// the angle reduced to the principal angle, help 398), and the inverse functions there.
bool SpecialValue(Session& s, NodeIdx& slot);
// A function of a number evaluated (floats where the options say so), square roots of numbers;
// log(0), ln(0) and tan at a pole raise their errors.
bool EvaluateFunction(Session& s, NodeIdx& slot);
// e, p and d as numbers under exact-to-float (pass 9).
bool ConstantToNumber(Session& s, NodeIdx& slot);

}  // namespace tavimor
