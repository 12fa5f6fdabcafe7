// The shape rules of a product: signs gathered at the front, brackets dropped, division by a
// fraction made a multiplication, fractions multiplied into one.
#pragma once

#include "core/session.h"

namespace tavimor {

// -(-x) -> x, 2*(-x) -> -2*x, a/(-2) -> -a/2, +x -> x; a term's sign moves into the sum (15).
bool CollapseProductSigns(Session& s, NodeIdx& slot);
// a*(b*c) -> a*b*c, a/(b*c) -> a/b/c (16).
bool DropProductBrackets(Session& s, NodeIdx& slot);
// a/(b/c) -> a*c/b (17).
bool DivideByFraction(Session& s, NodeIdx& slot);
// (a/b)*(c/d) -> a*c/b/d (18).
bool MultiplyFractions(Session& s, NodeIdx& slot);

}  // namespace tavimor
