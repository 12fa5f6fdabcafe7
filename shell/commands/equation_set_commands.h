// The commands of a set of equations: the other equations substituted into the last one, and
// every equation of the list solved in one go.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Replaces every leaf of the tree whose text is `letter` by "(" value ")".
void ReplaceVariable(Session& s, NodeIdx node, const std::string& value, const std::string& letter);

// Substitutes each earlier row (letter = value) into the last row of the set, writes the step,
// and makes the result the work item. Returns "" when done, "No substitutions were found" when
// nothing changed, or the message of a set that can't be substituted into.
std::string SubstituteEquations(Session& s);

// The Substitute button. Returns the error message shown, or empty.
std::string cmdSubstitute(Session& s, bool right_button = false);

// Every equation of the list solved with the result only, then the count and the time told in
// a box. Returns the error message shown, or empty.
std::string MultiAutoSolve(Session& s, bool right_button = false);

// The box MultiAutoSolve ends with.
std::string SolveAllTimeText(int count, double seconds, char decimal_point);

}  // namespace tavimor
