// The quadratic forms of the solver: a x^2 + b x = 0 factored, a factorable left side, and
// a x^2 + b x + c = 0 by the method the student chose.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The phrase of a quadratic method: 0 factoring, 1 formula, 2 completing the square, 3 graphing.
std::string QuadraticMethodPhrase(int method);

// The common factor taken out of the left side (164); the next pass splits the product. True when
// the step was the hint.
bool FactorNoConstant(Session& s, SolveRun& run);
// The left side factored as far as it goes (149, on right side 0); false when nothing factored.
// `hint_shown` is set when the step was the hint.
bool FactorLeftSide(Session& s, SolveRun& run, bool& hint_shown);
// a x^2 + b x + c = 0 with a, b, c non-zero, by s.QuadraticMethod. The left side ends as the
// unknown with both roots "r1; r2" (or one root, or "no-solution") on the right, or factored for
// the next pass. True when a hint was shown.
bool SolveQuadratic(Session& s, SolveRun& run, const std::string& quad_coef);
// The roots of a x^2 + b x + c from a, b and the discriminant, as "r1; r2", each simplified.
std::string QuadraticRoots(Session& s, const std::string& a, const std::string& b,
                           const std::string& discriminant);

}  // namespace tavimor
