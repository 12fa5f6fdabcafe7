// The Auto solve button: the unknown chosen, the equation solved step by step, the answers
// checked and stated.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Solves the current equation for the unknown (asking which letter when the unknown does not
// occur in it), removes repeated answers, rejects those that do not check out, and states the
// result. Returns the error message shown, or empty.
std::string AutoSolveCommand(Session& s, bool right_button = false);

}  // namespace tavimor
