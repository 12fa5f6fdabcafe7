// The linear forms of the solver: a x = c, a x^2 = c without a linear term, and a x^2 = 0.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/polynomial_view.h"
#include "solve/solve_state.h"

namespace tavimor {

// A step of a form solver: counted always, written and paced when steps are shown; a requested
// stop raises the cancel error.
void FormStep(Session& s, const std::string& message, const std::string& left,
              const std::string& right);

// The unknown's terms to the left side, the constants to the right (152), then the unknown
// factored out when its terms are several (153); isolation divides by the coefficient. In hint
// mode the hint (154) is shown and the result is true: the run unwinds. `already_sorted` when
// the sides stand so already.
bool SolveLinear(Session& s, SolveRun& run, const PolynomialView& view, bool already_sorted);
// The same for a x^2 + c = 0: the squares to the left (310), x^2 factored out (311, 392); hint 393.
bool SolveQuadraticNoLinear(Session& s, SolveRun& run, const PolynomialView& view,
                            bool already_sorted);
// a x^2 = 0: four lines down to x = 0 (155 to 158); hint 159.
bool SolveSquareIsZero(Session& s, SolveRun& run, const std::string& quad_coef);

}  // namespace tavimor
