// The Solving hint button: the next step of the solver told in the hint box, not taken.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Runs the solver silently on the current equation for the unknown until its first step that can
// be a hint, and shows that step in the hint box. The equation stays as it is. Returns the error
// message shown, or empty.
std::string cmdSolvingHint(Session& s, bool right_button = false);

}  // namespace tavimor
