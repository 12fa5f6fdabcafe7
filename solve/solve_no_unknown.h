// An equation in which the unknown has cancelled: an identity or a contradiction.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The left side becomes the unknown, the right side "any-value" when `const_term` is "0" (an
// identity, help 150) and "no-solution" otherwise (a contradiction, help 151); the line is
// written when steps are shown, and is the hint in hint mode (true: the run unwinds).
bool SolveNoUnknown(Session& s, SolveRun& run, const std::string& const_term);

}  // namespace tavimor
