// A product equal to zero replaced by one equation per factor that holds the unknown.
#pragma once

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The equation in hand is a product equal to 0: each factor holding the unknown becomes an
// equation of its own on the stack, the first factor on top; constant factors and denominators
// are divided or multiplied away. Writes the steps (115 to 120). True when a hint was shown, and
// the run is to unwind.
bool SplitFactors(Session& s, SolveRun& run);

}  // namespace tavimor
