// The buttons of the Fraction panel: simplify one fraction of integers, add two of them.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Each narrates its work in the command frame and is disabled after use. Returns the error
// message shown, or empty.
std::string cmdSimplifyFraction(Session& s, bool right_button);
std::string cmdAddFractions(Session& s, bool right_button);

}  // namespace tavimor
