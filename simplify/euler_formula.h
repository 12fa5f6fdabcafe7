// Euler's formula e^(i*x) = cos(x)+i*sin(x): the complex exponential broken apart into cos and
// sin, and a pair of cos and sin combined back into it.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Whether the unit of the options is a node of the subtree.
bool ContainsUnitNode(const Session& s, NodeIdx n);

// Break apart trig, pass 5: exp(a+b*unit) or e^(a+b*unit) -> e^a*(cos(b)+unit*sin(b)) (363).
// e^(i*p) and its kin stay for the rule of complex numbers while e and p are constants.
bool BreakApartEuler(Session& s, NodeIdx& slot);

// B*cos(x)+A*sin(x) with A the imaginary unit times B: the term B*e^(unit*x), or with
// A = -unit*B the term B*e^(-unit*x), written e^(...) or exp(...) as the options write the
// exponential. `a` and `b` are the signed coefficients; false when they are no such pair.
bool EulerTermOfPair(Session& s, const std::string& a, const std::string& b, const std::string& x,
                     std::string& term);

}  // namespace tavimor
