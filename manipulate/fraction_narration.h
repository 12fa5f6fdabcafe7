// The narrations of the Fraction panel: one fraction of integers simplified, two of them added.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The largest integer the fraction tools handle, as the overflow message names it.
inline constexpr const char* kLcdLimitText = "2147483648";

// Writes the sentence of a fraction that needs no steps (undefined, zero, an integer, a
// numerator of size 1) with its help number, and the fraction after it where the sentence asks
// for one. False, and nothing written, when the fraction needs the steps.
bool TrivialFraction(Session& s, std::int32_t n, std::int32_t d);

// Shows how n/d is simplified: the trivial cases, else the numerator and denominator factored
// into primes, each cancellation, and the fraction in simplest form.
void SimplifyFractionNarration(Session& s, std::int32_t n, std::int32_t d);

// Shows how n1/d1 + n2/d2 is added: the normal form, the trivial cases, else the four steps
// through the lowest common denominator. An LCD past 2147483647 is refused in a warning box,
// and the run ends with the tangent error, which the command's trap closes quietly.
void AddFractionsNarration(Session& s, std::int32_t n1, std::int32_t d1, std::int32_t n2,
                           std::int32_t d2);

// The text of a product of factors joined by " * ".
std::string FactorList(const std::vector<std::int64_t>& factors);

}  // namespace tavimor
