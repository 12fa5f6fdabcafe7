// Rules of the simplify loop on ln, log and exp that are no cancellations: the reciprocal inside
// a logarithm, the power inside a logarithm, the ratio of logarithms, products of exponentials.
#pragma once

#include "core/session.h"

namespace tavimor {

// ln(1/q) = -ln(q) (help 242), log(1/q) = -log(q) (243).
bool LogOfReciprocal(Session& s, NodeIdx& slot);
// ln(x^3) = 3*ln(x), ln(a^2*b^2) = 2*ln(a*b) where the exponent may come out (252).
bool LogOfPower(Session& s, NodeIdx& slot);
// ln(8)/ln(2) = 3: the arguments as powers of one base (244 a whole number, 245 a fraction).
bool RatioOfLogs(Session& s, NodeIdx& slot);
// exp(a)*exp(b) = exp(a+b) (250), exp(a)/exp(b) = exp(a-b) (251).
bool ProductOfExp(Session& s, NodeIdx& slot);

}  // namespace tavimor
