// Sums, products, quotients and whole powers of whole numbers, worked out without the rewrite
// loop.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/session.h"

namespace tavimor {

// The simplified form of a text of whole numbers below 1E9 joined by +, -, *, / and whole powers
// up to the ninth, with brackets: the fraction in lowest terms ("-3/4") or the whole number the
// rewrite loop would give. Nothing for any other text, and wherever the loop might write the
// answer otherwise: a number of 1E9 or more along the way, a division by zero, 0^0, a sign after
// an operator. A sign may open the text or a bracket. In floating-point arithmetic only halves,
// quarters and so on down to 1/1024 may occur along the way (each held exactly), and the answer
// must be whole, except for a lone quotient "p/q" or "-p/q", which is one division written as
// the loop writes a number ("77/4" is 19.25).
std::optional<std::string> PlainArithmetic(const Session& s, const std::string& text);

// The digits of a whole number below 1E9 written without a leading zero ("0" itself is one), as
// its value; nothing for any other text.
std::optional<std::int64_t> PlainWholeNumber(std::string_view digits);
// p/q brought to lowest terms with q above 0 (q must not be 0).
void ToLowestTerms(std::int64_t& p, std::int64_t& q);
// A fraction in lowest terms as the loop writes it: "-3/4", or "5" when q is 1.
std::string LowestTermsText(std::int64_t p, std::int64_t q);

}  // namespace tavimor
