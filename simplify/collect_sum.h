// Sums in the house form: zero terms gone, terms sorted from highest power to lowest, like terms
// combined with exact coefficients.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The coefficient of a term as a fraction (signed by its role) and what is left of it.
struct SplitParts {
  double numerator = 1.0;
  double denominator = 1.0;
  std::string numerator_text;
  std::string denominator_text;
};
SplitParts SplitTerm(Session& s, NodeIdx term);

// The number by which terms are ordered; smaller first. x^3 47, x^2 48, x 49, 1/x^2 52,
// sin 12, other functions 11, brackets 98, numbers 99. A fractional exponent counts as the
// number it is: x^(5/2) ranks 47.5, between x^3 and x^2.
double TermRank(Session& s, NodeIdx term, int depth);

// Collects and sorts the sum at the node; messages 381 to 387, "382#Sort terms." for a pure sort.
bool CollectSum(Session& s, NodeIdx& slot);

}  // namespace tavimor
