// Quotients of whole numbers and of one letter's powers, simplified without the rewrite loop.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// The simplified form of a text "A/B" (either side may stand in brackets) whose sides are each a
// whole number below 1E9, or such a number (with its sign, and its "*" when written) times a
// letter or its square up to its ninth power: exactly what the rewrite loop would give, read off
// the numbers. Nothing for any other text, and for the quotients whose form depends on options
// or would leave the letter in the denominator (those go through the loop): a denominator of 0,
// a letter that stands for a constant, two letters, a fraction times a power, a fraction in
// floating-point arithmetic.
std::optional<std::string> PlainQuotient(const Session& s, const std::string& text);

}  // namespace tavimor
