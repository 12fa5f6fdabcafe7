// The Factor button: one factoring per press, told step by step or as its result.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Left button: factor; right button: factor, the LCM out of denominators too. Returns the error
// message shown, or empty.
std::string cmdAutoFactor(Session& s, bool right_button);

}  // namespace tavimor
