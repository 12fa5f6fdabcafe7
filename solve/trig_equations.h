// The two rungs of the solver's ladder for trigonometric equations: one function of one angle
// replaced by an alias, and the six forms in sines and cosines of one angle.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// One trig function of one angle is the only place the unknown occurs: the function is replaced
// by an alias, the equation solved for it, and each value gives an equation of its own.
FormStatus SolveSameTrigFunction(Session& s, SolveRun& run);

// Sines, cosines and tangents of one angle: the angle found (and replaced by an alias unless it
// is the unknown), the equation read by its coefficients and solved by the first form that fits;
// in hint mode the form's hint is shown instead.
FormStatus SolveTrigonometric(Session& s, SolveRun& run);

// The hint of a form (1 to 6): the form stated, the identity, the conversion and what follows.
// `y` is the alias of the quadratic forms 3 and 4.
std::string TrigHintText(int form, const std::string& angle, const std::string& x,
                         const std::string& unknown, const std::string& y);

// The common angle of the arguments: a ratio of 1/2, 1 or 2 between them, else their common
// part as whole multiples. False when there is none.
bool FindCommonAngle(Session& s, const std::vector<std::string>& arguments,
                     const std::string& unknown, std::string& angle);

}  // namespace tavimor
