// The logarithmic equation: logarithms to one side and the rest to the other, a coefficient
// folded into its logarithm, the change of base, and the antilog of both sides.
#pragma once

#include <string>

#include "core/session.h"
#include "manipulate/factor.h"
#include "solve/solve_state.h"

namespace tavimor {

// The code of a term for the logarithm solver: its sign and three letters: W (a function or a
// number) or F (a product); E (ln), D (log) or N (neither); X (holds the unknown) or N.
std::string LogTermCode(Session& s, const SignedTerm& term, const std::string& unknown);
// a*ln(y) -> ln(y^a), a*log(y) -> log(y^a): the side is a product with a logarithm of the
// unknown among its numerator factors.
std::string FoldCoefficient(Session& s, const std::string& side, const std::string& unknown);
// Every log(A) of the side written (ln(A)/ln(10)), and the side simplified.
std::string LogToLn(Session& s, const std::string& side);

// One step toward a single logarithm each side, and the antilog of both. FormNotThisForm when no
// logarithm holds the unknown; FormUnsolvable when the unknown also stands outside them.
FormStatus SolveLogarithmic(Session& s, SolveRun& run);

}  // namespace tavimor
