// Floating values of trees: the variable table, the letters of an expression, and the
// bottom-up evaluation that leaves each node's value in place for the next point.
#pragma once

#include <string>

#include "core/errors.h"
#include "core/session.h"

namespace tavimor {

// The factor that turns degrees into radians.
inline constexpr double kDegreeFactor = 0.017453292519943278;

// The run-time error of an even root of a negative number (a square root, or a negative base
// to a fraction with an even denominator or to a power that is no fraction): its value is
// complex, not undefined.
class RootOfNegativeError : public RunTimeError {
 public:
  RootOfNegativeError()
      : RunTimeError(RunTimeErrorNumber::InvalidCall, "Invalid procedure call or argument") {}
};

// Puts a letter's value in the table, adding the letter if it is new.
void SetVarValue(Session& s, char letter, const NodeValue& value);
// Adds each letter of the tree to SubstitutionVars once, in the order first met.
void CollectVars(Session& s, NodeIdx n);
// The constant a letter stands for under the options, else its value in the table, else empty.
NodeValue VarValue(const Session& s, char letter);
// Whether the letter is one of the constants: i, j, e, p or d as the options make them.
bool IsConstantVar(const Session& s, char letter);
// The floating value of a node's value: a text is read, an empty value is 0.
double ValueAsNumber(const Session& s, const NodeValue& value);
// Fills Value of every leaf of the subtree.
void LoadLeaves(Session& s, NodeIdx n);
// Fills Value of a node from the values of its children. Division by zero and a root or a
// logarithm outside its domain raise the run-time error.
void EvaluateNode(Session& s, NodeIdx n);
// LoadLeaves, then EvaluateNode on every inner node, children first. No text is parsed and,
// once the values have their room, nothing is allocated.
void EvaluateAll(Session& s, NodeIdx n);
// EvaluateAll, with the value of each function rounded to the 15 significant figures a number's
// text holds, as the values of the rewrite loop are: sin(30) in degrees is 0.5, not
// 0.49999999999999994.
void EvaluateAllRounded(Session& s, NodeIdx n);

}  // namespace tavimor
