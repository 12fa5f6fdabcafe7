// Numeric coefficients of terms: reading them exactly and writing a coefficient with its texts.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The number a text reads; within 1E-10 of an integer that integer, unless its size is above
// 32768; 0 for a text that is not numeric.
double SnapToInteger(const Session& s, const std::string& text);
// A value as number text, in the normal form of numbers.
std::string FormatValue(const Session& s, double value);
// The text of a term from its coefficient a/b and what is left of it: the size of a (left out
// when it is 1 and the numerator text follows it), "/b" when b is not 1, "*" and the numerator
// text, "/" and the denominator text; a minus in front for a negative a.
std::string FormatCoefficient(const Session& s, double a, double b, const std::string& numerator,
                              const std::string& denominator);

}  // namespace tavimor
