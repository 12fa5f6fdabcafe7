// Rules of the simplify loop on ln, log and exp that are no cancellations: the reciprocal inside
// a logarithm, the power inside a logarithm, the ratio of logarithms, products of exponentials.
#include "simplify/log_rules.h"

#include <cmath>
#include <string>
#include <vector>

#include "core/number_text.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/combine_logs.h"
#include "manipulate/reduce_fraction.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/factor_texts.h"
#include "simplify/inverse_functions.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

// The help number of the power rule on a logarithm inside Simplify.
constexpr int kLogOfPowerHelp = 252;

bool IsLog(const ExprNode& node) {
  if (node.Kind != kKindFunction) return false;
  const std::string name = FunctionNameOf(node.Text);
  return name == "ln" || name == "log";
}

// The argument of a logarithm as base^exponent: a whole number as a power of its one prime
// (8 = 2^3), a power as it stands, anything else to the power 1. The exponent must be a number.
bool BaseAndExponent(Session& s, const std::string& argument, std::string& base, double& exponent) {
  if (IsPositiveIntegerText(s, argument)) {
    const double n = SafeValue(s, argument);
    if (n < 2.0) return false;
    const std::vector<std::int64_t> primes = PrimeFactors(static_cast<std::int64_t>(n));
    if (primes.empty() || primes.front() != primes.back()) return false;
    base = std::to_string(primes.front());
    exponent = static_cast<double>(primes.size());
    return true;
  }
  const TempTree t(s, argument, TempTree::Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  if (root.Kind == kKindPower) {
    const ExprNode& power = t[root.FirstChild];
    if (!IsNumberToken(s, power.Text)) return false;
    base = t[power.Next].Text;
    exponent = SafeValue(s, power.Text);
    return true;
  }
  base = argument;
  exponent = 1.0;
  return true;
}

}  // namespace

bool LogOfReciprocal(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (!IsLog(node)) return false;
  const NodeIdx first = node.FirstChild;
  if (first == kNoNode || s.Pool[first].Role != kRoleNumerator || s.Pool[first].Text != "1") {
    return false;
  }
  std::vector<std::string> q;
  for (NodeIdx c = s.Pool[first].Next; c != kNoNode; c = s.Pool[c].Next) {
    if (s.Pool[c].Role != kRoleDenominator) return false;
    q.push_back(s.Pool[c].Text);
  }
  if (q.empty()) return false;
  const std::string name = FunctionNameOf(node.Text);
  const std::string product = JoinFactors(q, {});
  const std::string help = name == "ln" ? "242#" : "243#";
  RewriteFunctionAs(s, slot, "-" + name + "(" + product + ")",
                    help + "Simplify using the property of logarithms that @" + name + "(1/Q)=-" +
                        name + "(Q)@ .");
  return true;
}

bool LogOfPower(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (!IsLog(node)) return false;
  const std::string old_text = node.Text;
  std::string result;
  StepParts lines;
  if (!PowerRuleOnLog(s, old_text, false, result, lines)) return false;
  const std::string help = std::to_string(kLogOfPowerHelp) + "#";
  if (lines.size() == 1) {
    RewriteFunctionAs(s, slot, result,
                      help + "Simplify " + lines[0].substr(0, lines[0].size() - 2));
    return true;
  }
  StepParts parts;
  AddStepPart(parts, "Simplify @" + old_text + "@ by:|");
  for (const std::string& line : lines) AddStepPart(parts, line.substr(0, line.size() - 1));
  AddStepPart(parts, "The result is:");
  RewriteFunctionAs(s, slot, result, help + JoinStepParts(parts));
  return true;
}

bool RatioOfLogs(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  NodeIdx top = kNoNode;
  NodeIdx bottom = kNoNode;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (!IsLog(s.Pool[c])) continue;
    NodeIdx& which = s.Pool[c].Role == kRoleDenominator ? bottom : top;
    if (which == kNoNode) which = c;
  }
  if (top == kNoNode || bottom == kNoNode) return false;
  const std::string name = FunctionNameOf(s.Pool[top].Text);
  if (FunctionNameOf(s.Pool[bottom].Text) != name) return false;
  std::string base_top;
  std::string base_bottom;
  double m = 0.0;
  double k = 0.0;
  if (!BaseAndExponent(s, ContentText(s.Pool[top]), base_top, m) ||
      !BaseAndExponent(s, ContentText(s.Pool[bottom]), base_bottom, k) || base_top != base_bottom ||
      k == 0.0 || (m == 1.0 && k == 1.0)) {
    return false;
  }
  // ln(a^m)/ln(a^k) = m/k.
  int flag = 0;
  ReduceFraction(m, k, flag);
  if (flag != 0) return false;
  const std::string ratio =
      k == 1.0 ? FormatValue(s, m) : FormatValue(s, m) + "/" + FormatValue(s, k);
  std::vector<std::string> up;
  std::vector<std::string> down;
  up.push_back(ratio);
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == top || c == bottom) continue;
    (s.Pool[c].Role == kRoleDenominator ? down : up).push_back(s.Pool[c].Text);
  }
  const std::string old_text = s.Pool[n].Text;
  const std::string new_text = JoinFactors(up, down);
  const int kind = k == 1.0 ? 1 : 2;
  RewriteNode(s, slot, new_text,
              std::to_string(243 + kind) +
                  "#The ratio of logarithms can be simplified by first reducing it like this: @" +
                  old_text + "->" + new_text + "@ .");
  return true;
}

bool ProductOfExp(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  NodeIdx first = kNoNode;
  NodeIdx second = kNoNode;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode && second == kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Kind != kKindFunction || FunctionNameOf(factor.Text) != "exp") continue;
    (first == kNoNode ? first : second) = c;
  }
  if (second == kNoNode) return false;
  const bool first_below = s.Pool[first].Role == kRoleDenominator;
  const bool second_below = s.Pool[second].Role == kRoleDenominator;
  const std::string a = ContentText(s.Pool[first]);
  const std::string b = ContentText(s.Pool[second]);
  std::string exponent;
  bool below = first_below;
  int help = 250;
  if (first_below == second_below) {
    exponent = a + (b[0] == '-' ? "" : "+") + b;
  } else {
    // exp(a)/exp(b): the numerator's exponent less the denominator's.
    const std::string& up = first_below ? b : a;
    const std::string& down = first_below ? a : b;
    exponent = up + "-" + (IsSumText(s, down) ? "(" + down + ")" : down);
    below = false;
    help = 251;
  }
  const std::string combined = "exp(" + exponent + ")";
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == second) continue;
    if (c == first) {
      (below ? down : up).push_back(combined);
      continue;
    }
    (s.Pool[c].Role == kRoleDenominator ? down : up).push_back(s.Pool[c].Text);
  }
  const std::string old_text = s.Pool[n].Text;
  const std::string new_text = JoinFactors(up, down);
  RewriteNode(s, slot, new_text,
              std::to_string(help) + "#Simplify using the fact that @" + old_text + "->" +
                  new_text + "@ .");
  return true;
}

}  // namespace tavimor
