// The narration of a rule that does several things in one step: a heading, actions, a closing.
#include "simplify/step_parts.h"

namespace tavimor {

void AddStepPart(StepParts& parts, const std::string& text) { parts.push_back(text); }

std::string JoinStepParts(const StepParts& parts) {
  if (parts.size() == 3 && parts[1].find('@') == std::string::npos && parts[0].size() >= 2) {
    std::string action = parts[1];
    if (!action.empty() && action.back() == '|') action.pop_back();
    return parts[0].substr(0, parts[0].size() - 2) + " " + action + "  " + parts[2];
  }
  std::string out;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i != 0) out += "   - ";
    out += parts[i];
  }
  return out;
}

}  // namespace tavimor
