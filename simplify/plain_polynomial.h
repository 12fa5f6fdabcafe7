// Sums of terms in one letter with whole or fractional coefficients, collected or multiplied out
// without the rewrite loop.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// The simplified form of a text in one letter (not a constant's) whose terms are products and
// quotients of whole numbers below 1E9, the letter and its whole powers, of degree up to the
// fourth, with brackets around a term or around a whole term of a sum: the like terms collected,
// in falling powers, each coefficient in lowest terms before its power ("x^2-5*x+25/4", "1/4*x",
// "-x+10", "0"), exactly as the rewrite loop gives it. Nothing for any other text: a bracketed
// sum that is multiplied, divided or raised to a power (the loop leaves those standing), a
// division by anything but a number, a power of a number (in a denominator some options write it
// with a negative exponent), a decimal, a second letter or a function, a number beyond the bound,
// or a fraction in floating-point arithmetic.
std::optional<std::string> PlainPolynomial(const Session& s, const std::string& text);

// The expanded form of a text in one letter (not a constant's) and whole numbers below 1E9,
// joined by +, -, * and whole powers up to the sixth, with brackets, in which a bracketed sum of
// two or more terms is multiplied by something or raised to a power of 2 or more: the terms in
// falling powers, each coefficient written before its power ("3*x^2-x+5", "-x^2", "0"), as
// expanding gives it. Nothing for any other text: a bracket that is not multiplied out, a
// quotient, a decimal, a second letter, a coefficient or power beyond the bound (the twelfth),
// floating-point arithmetic, or a text with nothing to multiply out (which expanding leaves as it
// stands).
std::optional<std::string> PlainExpansion(const Session& s, const std::string& text);

}  // namespace tavimor
