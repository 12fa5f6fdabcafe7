// The equation solver's driver: one equation solved for one letter, every step narrated.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Driver rounds in one run past which the solver gives up with the command's run-time error.
inline constexpr int kSolveRoundLimit = 2000;

// Solves `equation` (left=right, or a bare left side equal to 0) for `unknown`. On return
// `answers` holds the solutions joined by "; ", or one of the reserved words "unsolvable",
// "no-solution", "any-value" among them. With HintState 1 the first step that would be written
// is shown as the hint (HintState 2) and the run unwinds. ExtraUnknown is the unknown for the
// run's duration, and the exponent options are forced to reciprocals and radicals. Past
// `round_limit` rounds the run gives up with a run-time error.
void AutoSolve(Session& s, const std::string& equation, const std::string& unknown,
               std::string& answers, int round_limit = kSolveRoundLimit);

// Whether the text is one of the three reserved words of a right side.
bool IsReservedAnswer(const std::string& text);

}  // namespace tavimor
