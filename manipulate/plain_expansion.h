// Products and whole powers of sums in one letter with whole coefficients, multiplied out without
// the rewrite loop.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// The expanded form of a text in one letter (not a constant's) and whole numbers below 1E9,
// joined by +, -, * and whole powers up to the sixth, with brackets, in which a bracketed sum of
// two or more terms is multiplied by something or raised to a power of 2 or more: the terms in
// falling powers, each coefficient written before its power ("3*x^2-x+5", "-x^2", "0"), as
// expanding gives it. Nothing for any other text: a bracket that is not multiplied out, a
// quotient, a decimal, a second letter, a coefficient or power beyond the bound, or a text with
// nothing to multiply out (which expanding leaves as it stands).
std::optional<std::string> PlainExpansion(const Session& s, const std::string& text);

}  // namespace tavimor
