// Combining logarithms: a sum of logarithms made into one logarithm through the three
// properties of logarithms and the change of base, each step narrated.
#pragma once

#include <string>

#include "core/session.h"
#include "simplify/step_parts.h"

namespace tavimor {

// 1: logarithms of one base; 2: ln with log, by the change of base; 3: a lone logarithm whose
// coefficient goes inside.
inline constexpr int kLogModeSameBase = 1;
inline constexpr int kLogModeChangeBase = 2;
inline constexpr int kLogModeLone = 3;

// The text between the first "(" and the last ")".
std::string ArgumentOf(const std::string& text);

// n*log(a) the other way round: log(a^n) = n*log(a), log(a^2*b^2) = 2*log(a*b). `text` is a
// logarithm; false when its argument has no common exponent above 1 that may come out (an even
// one only over bases that cannot be negative, unless `arguments_positive` says the logarithms
// this came from had positive arguments already). `parts` gets the narrated lines: the
// exponents first when they changed, then property 3.
bool PowerRuleOnLog(Session& s, const std::string& text, bool arguments_positive,
                    std::string& result, StepParts& parts);

// The Combine logs engine on a tree: pairs of logarithms combined, mode by mode, each firing
// followed by a silent Simplify and shown at the detail level; in "show one at a time" mode one
// step a press. True if it combined anything.
bool CombineLogs(Session& s, NodeIdx& root);
// The engine on a side of the work item, for the command frame.
bool CombineLogsSide(Session& s, NodeIdx side);

// The silent engine on a side's text, for the solver: the text changes where logarithms
// combine; true if they did.
bool CombineLogsOnSide(Session& s, std::string& side);
// Both sides; `sentence` says which changed ("Combine the logarithms on each side of the
// equation." or on the left or right side), empty when neither did.
bool CombineLogsOnSides(Session& s, std::string& left, std::string& right, std::string& sentence);

}  // namespace tavimor
