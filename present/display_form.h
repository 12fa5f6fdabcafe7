// The form a tree is drawn in: what the written text needs and a reader does not.
#pragma once

#include "core/session.h"

namespace tavimor {

// In a fraction, a coefficient 1 above the line in front of other factors is not drawn:
// 1/2*x is drawn as x over 2, and -1/2*a/b as -a over 2b. A power of a power is drawn with
// its base in brackets: x^2^3 as (x^2)^3, never as x to a raised 23. Works on a tree made for
// drawing.
void PrepareForDisplay(Session& s, NodeIdx root);

}  // namespace tavimor
