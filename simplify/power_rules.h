// The rules of a power node: trivial powers, negative exponents, powers of powers, of exp, of
// square roots and of products, numeric powers and roots of numbers.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// True if the text is a negative quantity, which it then becomes the positive form of: a signed
// token, a product with a sign, or a sum whose terms are all subtracted.
bool NegatedText(Session& s, std::string& text);
// The rules of a power, tried in their order; the first that fires wins.
bool PowerRules(Session& s, NodeIdx& slot);
// The denominator k of a value m/k with k below 100, or 0.
int DenominatorOf(double value);

}  // namespace tavimor
