// A decimal number as a fraction with a small denominator, when it is one.
#pragma once

namespace tavimor {

// The bound within which d*value counts as a whole number: the rounding error of a number typed
// with fifteen significant digits (0.333333333333333 is 1/3, 0.142857142857143 is 1/7).
inline constexpr double kDecimalFractionBound = 1e-12;

// 1 when the value is a fraction with a denominator up to 99 (or the reciprocal of one), in
// lowest terms in `numerator`/`denominator`; 2 when it is one but a part lies outside the 16-bit
// range; 0 when it is none.
int DecimalToFraction(double value, double& numerator, double& denominator);

}  // namespace tavimor
