// The Add fractions button: one sum made into one fraction per press, told step by step or as
// its result.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Returns the error message shown, or empty.
std::string cmd1Frac(Session& s, bool right_button);

}  // namespace tavimor
