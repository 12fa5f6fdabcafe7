// Making a validated input the work item: the pool anew, the sides parsed into nodes 2 and 3.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

enum class ItemShape { Expression, Equation, SetOfEquations };

// Reinitialises the pool, takes nodes 2 and 3, and loads the input: a set of equations goes into
// EquationList row by row; else the left side into node 2 and the right side, if any, into
// node 3, each parsed, with its numbers normalised and its text regenerated. A run-time error
// on the way propagates to the caller, whose message is "Error in input string.".
ItemShape LoadItemTrees(Session& s, const std::string& input);

}  // namespace tavimor
