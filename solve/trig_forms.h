// The solvers of the six forms of a trigonometric equation in one angle, and what they share: the
// angle with its alias, the coefficients of the moved equation, the writers of their steps.
#pragma once

#include <string>

#include "core/session.h"
#include "solve/solve_state.h"
#include "solve/trig_terms.h"

namespace tavimor {

// The equation in hand read by its angle.
struct TrigEquation {
  std::string angle;  // the common angle of every sin, cos and tan that holds the unknown
  std::string x;      // the letter the forms are told in: the unknown, or an alias for the angle
  bool alias = false;
  std::string unknown;
  AngleCoefficients coefficients;  // of the equation moved to the left side
};

// The form numbers of the hint text.
inline constexpr int kHintDoubleSinSin = 1;
inline constexpr int kHintDoubleSinCos = 2;
inline constexpr int kHintDoubleCosCos = 3;
inline constexpr int kHintDoubleSinCos2 = 4;
inline constexpr int kHintTangent = 5;
inline constexpr int kHintPhaseAngle = 6;

// A*sin(X+B)+C*cos(X+D)=0 by tan(X) = F/E.
FormStatus SolveByTangent(Session& s, SolveRun& run, const TrigEquation& eq);
// A*sin(X+B)+C*cos(X+D)=E by a single sine with a phase angle.
FormStatus SolveByPhaseAngle(Session& s, SolveRun& run, const TrigEquation& eq);
// A*sin(2X)+B*sin(X)=0, or with `cosine` A*sin(2X)+B*cos(X)=0: the double angle, then a product.
FormStatus SolveDoubleSinSin(Session& s, SolveRun& run, const TrigEquation& eq, bool cosine);
// A*cos(2X)+B*cos(X)+C=0, or with `sine` A*sin(X)+B*cos(2X)+C=0: a quadratic in cos(X) or
// sin(X), solved for an alias.
FormStatus SolveDoubleCosCos(Session& s, SolveRun& run, const TrigEquation& eq, bool sine);

// The letter of the alias for cos(X) or sin(X) in the quadratic forms.
std::string QuadraticAlias(Session& s, const std::string& work_left);

// Shared writers: a step with the equation (a hint stops the run: true), a heading or a line
// without an equation, written only when steps are shown.
bool TrigStep(Session& s, const std::string& message, const std::string& left,
              const std::string& right);
void TrigLine(Session& s, const std::string& message, bool pace);
// The text with the angle put back for the alias letter.
std::string WithAngle(Session& s, const std::string& text, const TrigEquation& eq);
// Each sine or cosine of X with a shift written by the sum-of-angles identity, one line each;
// `shifted` tells whether there was any.
std::string ExpandShifts(Session& s, const std::string& side, const std::string& x, bool& shifted);

}  // namespace tavimor
