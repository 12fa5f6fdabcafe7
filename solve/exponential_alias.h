// The exponential equation in one base whose exponents are multiples of one common exponent:
// that exponential replaced by an alias, the equation in the alias solved, the alias put back.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The common exponent U of the exponentials of `text` whose exponents, less their constant
// parts, are whole multiples of U; and the exponential E that the alias stands for. Found is
// false when there is none.
struct CommonExponent {
  bool Found = false;
  bool SameBase = true;
  std::string U;
  std::string E;
};
CommonExponent FindCommonExponent(Session& s, const std::string& text, const std::string& unknown);

// The exponentials of the saved sides replaced by powers of the alias, the equation solved for
// it, and E = each value put in hand. FormNotThisForm when the unknown stands in no exponential,
// in exponentials of different bases, or in two terms whose exponents have no common multiple;
// FormUnsolvable when it also stands outside them, or (with more terms) the exponents have no
// common multiple.
FormStatus SolveExponentialByAlias(Session& s, SolveRun& run);

}  // namespace tavimor
