// The solver's steps that make a rational or bracketed equation polynomial: the denominators
// cleared by the LCD, and both sides expanded.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// Multiplies both sides through by the LCD found by CombineFractions on left+right (its `report`),
// carries out the multiplication and simplifies (113). False, the equation as it was, when the
// report's terms do not match the sides' terms. `hint_shown` is set when a step was the hint.
bool ClearDenominators(Session& s, SolveRun& run, const std::string& report, bool& hint_shown);
// Expands each side (146 left, 147 right); true if either changed. `hint_shown` is set when the
// step was the hint.
bool ExpandSides(Session& s, SolveRun& run, bool& hint_shown);

}  // namespace tavimor
