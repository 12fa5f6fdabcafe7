// Square roots and the two written forms of powers: exponential function or e^x, radical or
// fractional exponent; square roots of numbers, of products and of fractions; radicals in
// products.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// e^x <-> exp(x), by ExponentToExponentialFunction (help 19).
bool ExponentialForm(Session& s, NodeIdx& slot);
// x^(1/2) <-> sqrt(x), by ExponentToRadical (help 20).
bool RadicalForm(Session& s, NodeIdx& slot);
// The value of the square root of a number, a factor pulled out, or the imaginary unit written
// (help 52, 88, 303 to 305, 380).
bool SquareRootValue(Session& s, NodeIdx& slot);
// sqrt(sqrt(x)) = x^(1/4) (96); sqrt(a*b) = sqrt(a)*sqrt(b) (98).
bool SquareRootStructure(Session& s, NodeIdx& slot);
// sqrt(a/b) = sqrt(a)/sqrt(b) (94).
bool SplitFractionRoot(Session& s, NodeIdx& slot);
// 1/sqrt(2) = sqrt(2)/2 (93).
bool Rationalise(Session& s, NodeIdx& slot);
// sqrt(2)*sqrt(3) = sqrt(6) (95).
bool CombineSquareRoots(Session& s, NodeIdx& slot);
// x*sqrt(x) = x*x^(1/2), so that the exponents can be added (265).
bool RadicalToExponent(Session& s, NodeIdx& slot);

// Whether a factor is never negative for real values of its letters: a number at or above 0, an
// even whole power, a square root, an exponential.
bool KnownNonNegative(const Session& s, NodeIdx n);

// The codes of SquareRootOfNumber. The negative of a code is the same with the imaginary unit
// (-kRootFactorOut: a factor and the unit pulled out).
inline constexpr int kRootNotANumber = 0;   // the text comes back
inline constexpr int kRootIsANumber = 1;    // sqrt(9) = 3
inline constexpr int kRootStays = 2;        // sqrt(6) stays a radical
inline constexpr int kRootFactorOut = 3;    // sqrt(8) = 2*sqrt(2)
inline constexpr int kRootOfMinusOne = -4;  // sqrt(-1) written as it stands

// The square root of a number text in simplest form, with its code.
std::string SquareRootOfNumber(Session& s, const std::string& text, int& code);

}  // namespace tavimor
