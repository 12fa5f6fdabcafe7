// The Complete the square button: one quadratic in completed square form per press, told step by
// step or as its result.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Returns the error message shown, or empty.
std::string cmdCSExpr(Session& s, bool right_button);

}  // namespace tavimor
