// The one rewrite loop: ten passes over the tree, one rewrite at a time, each step narrated.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// Rewrites in one command past which the loop gives up with the command's run-time error.
inline constexpr int kRewriteLimit = 5000;

// Step levels of a run: nothing fired, only silent rewrites, only sorting, a real step.
inline constexpr int kLevelNothing = 0;
inline constexpr int kLevelSilent = 1;
inline constexpr int kLevelSort = 2;
inline constexpr int kLevelStep = 3;

inline constexpr const char* kSkipMessage = "Skip message";
// The messages of a step that only sorts: the loop counts them below a real step.
inline constexpr const char* kSortTermsMessage = "382#Sort terms.";
inline constexpr const char* kSortFactorsMessage = "356#Sort factors.";

// A rewrite rule: given the slot that holds a node, rewrites once and puts its message in
// Message (true), or leaves the tree as it was (false).
using RewriteRule = bool (*)(Session&, NodeIdx&);

// Runs the passes to a fixed point; in "show one at a time" mode stops after one shown step.
// True if a step with a real message fired; `step_level` is the highest level seen.
bool SimplifyTree(Session& s, NodeIdx& root, int& step_level);
// One post-order walk of the tree with one pass; stops at the first rule that fires.
bool ApplyPassToTree(Session& s, int pass, NodeIdx& root);
// The rules of a pass at one node, in their order, until one fires.
bool ApplyPassAtNode(Session& s, NodeIdx& slot, int pass);
void RaiseStepLevel(const std::string& message, int& level);

// The simplify loop on a text, silently: DetailNow 0 and Message kept. `changed` tells whether
// the text changed.
std::string SimplifyText(Session& s, const std::string& text, bool& changed);
// The same, always through the loop (SimplifyText reads some quotients off their numbers).
std::string SimplifyTextByRules(Session& s, const std::string& text, bool& changed);
std::string SimplifyText(Session& s, const std::string& text);

// Questions about the value of a text, asked of its simplified form under ExactToFloat.
bool IsNumericText(Session& s, const std::string& text);
// The value of a text that simplifies to one number in floating point ("(5/2)" gives 2.5).
std::optional<double> NumericTextValue(Session& s, const std::string& text);
bool IsPositiveNumericText(Session& s, const std::string& text);
bool IsNegativeNumericText(Session& s, const std::string& text);
bool IsBeyondUnitText(Session& s, const std::string& text);

// The Simplify, Break apart trig and Combine trig engine on a side, for the command frame.
bool SimplifySide(Session& s, NodeIdx side);

}  // namespace tavimor
