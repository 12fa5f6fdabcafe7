// The narration of a rule that does several things in one step: a heading, actions, a closing.
#pragma once

#include <string>
#include <vector>

namespace tavimor {

using StepParts = std::vector<std::string>;

void AddStepPart(StepParts& parts, const std::string& text);
// Three parts with no "@" in the action fold into one sentence: the heading without its last two
// characters, a blank, the action without its "|", two blanks, the closing. Otherwise the parts
// in order, each after the first led by "   - ".
std::string JoinStepParts(const StepParts& parts);

}  // namespace tavimor
