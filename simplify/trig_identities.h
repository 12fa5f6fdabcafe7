// The trigonometric identities of the simplify loop's last pass: the rules Simplify always
// applies, and those of Break apart trig (TrigMode 1) and Combine trig (TrigMode 2).
#pragma once

#include "core/session.h"

namespace tavimor {

// The TrigMode of each command that runs the simplify loop.
inline constexpr std::int16_t kTrigSimplify = 0;
inline constexpr std::int16_t kTrigBreakApart = 1;
inline constexpr std::int16_t kTrigCombine = 2;

// Any mode: sin(-x) = -sin(x) and its kin (help 367 to 376), shifts by whole right angles
// (370 to 372), cot, sec and csc as reciprocals (21).
bool TrigOfNegative(Session& s, NodeIdx& slot);
bool TrigAngleShift(Session& s, NodeIdx& slot);
bool EliminateReciprocalTrig(Session& s, NodeIdx& slot);
// Break apart: the angle of a sum (402), a double angle (403), a half angle squared (404), the
// tangent as sine over cosine (364).
bool BreakApartAngles(Session& s, NodeIdx& slot);
bool SplitDoubleAngle(Session& s, NodeIdx& slot);
bool ExpandHalfAngle(Session& s, NodeIdx& slot);
bool BreakApartTanCot(Session& s, NodeIdx& slot);
// Combine: sine over cosine as a tangent (364).
bool CombineToTangent(Session& s, NodeIdx& slot);
// Any mode while PythagorasRules holds: sin(x)^2+cos(x)^2 = 1 and its forms (365), inside a
// bracket or function, and in a sum.
bool PythagorasInTerm(Session& s, NodeIdx& slot);
bool PythagorasInSum(Session& s, NodeIdx& slot);
// Combine: the angle of a sum (402), a sine with a phase angle (263), the double angle of the
// cosine (366) and of the sine (403).
bool CombineAngles(Session& s, NodeIdx& slot);
bool CombinePhasor(Session& s, NodeIdx& slot);
bool CombineDoubleCos(Session& s, NodeIdx& slot);
bool CombineDoubleSine(Session& s, NodeIdx& slot);

}  // namespace tavimor
