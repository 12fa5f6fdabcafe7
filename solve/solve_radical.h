// The radical equation: a square root holding the unknown isolated, then both sides squared.
#pragma once

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// On the saved sides of the run: one radical term isolated (262), or a lone radical term on a
// side squared away with its side (261). FormNotThisForm when no term holds a square root of the
// unknown. Squaring may add solutions: the check of the answers rejects them.
FormStatus SolveRadical(Session& s, SolveRun& run);

}  // namespace tavimor
