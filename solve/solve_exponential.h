// The exponential equation of two terms: a coefficient and exponentials on each side, the
// logarithm of both sides taken to bring the exponents down.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// left-right simplified is a sum of two terms, the unknown stands only in exponents, and each
// exponential is a term or a direct factor of one.
bool IsTwoTermExponential(Session& s, const std::string& left, const std::string& right,
                          const std::string& unknown);

// A term split into its coefficient (the factors that are no exponential of the unknown) and
// its exponentials (the term divided by the coefficient, simplified).
struct ExponentialSplit {
  std::string Coefficient = "1";
  std::string Exponentials = "1";
};
ExponentialSplit SplitExponentialTerm(Session& s, const std::string& term,
                                      const std::string& unknown);

// One row of a side's exponentials: its sign, its exponent (empty for a coefficient), its base
// ("exp" for a call of exp).
struct ExponentialRow {
  char Sign = '+';
  std::string Exponent;
  std::string Base;
};
std::vector<ExponentialRow> ListExponentials(Session& s, const ExponentialSplit& split);

// The logarithm of both sides of a two-term exponential equation, each exponent brought down.
// FormNotThisForm when the moved form is no two-term exponential; FormNoSolution when the signs
// of the two sides can never agree.
FormStatus SolveTwoTermExponential(Session& s, SolveRun& run);

}  // namespace tavimor
