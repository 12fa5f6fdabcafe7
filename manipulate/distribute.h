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

// The product of two signs: "+" when they agree, "-" otherwise; "1" counts as "+".
char SignProduct(char outer, char inner);

}  // namespace tavimor
