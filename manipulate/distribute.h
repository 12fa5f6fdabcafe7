// Distributing the other factors of a product over a bracketed sum among them.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The text of the product with its first bracketed sum multiplied out: each term of the bracket
// with the other factors, signs multiplied: "-(a+b)" gives "-a-b", "2*(x-1)" gives "2*x-2" (a
// term 1 leaves the multiplier alone).
// Empty when the product holds no bracketed sum among its numerator factors.
std::string DistributeProduct(const Session& s, NodeIdx product);
// The same over a given numerator factor of the product that is a bracketed sum.
std::string DistributeProductOver(const Session& s, NodeIdx product, NodeIdx bracket);
// The product with its denominator factor `bracket`, a bracketed sum, multiplied by the other
// denominator factors: 1/(a+b)/c -> 1/(a*c+b*c). The numerator stays in front.
std::string DistributeDenominator(const Session& s, NodeIdx product, NodeIdx bracket);
// A bracket "(" or "[" whose content is a sum.
bool IsBracketedSum(const Session& s, NodeIdx n);

// The product of two signs: "+" when they agree, "-" otherwise; "1" counts as "+".
char SignProduct(char outer, char inner);

}  // namespace tavimor
