// The Graph button of the Equation and Multi Eqns panels.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

inline constexpr const char* kGraphError = "Error in Graph.";

// cmdGraph: classifies the equations; a set that cannot be graphed is told in a message box,
// else the graph window opens. Returns the error message shown, or empty.
std::string cmdGraph(Session& s, bool right_button);

}  // namespace tavimor
