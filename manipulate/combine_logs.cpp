// Combining logarithms: a sum of logarithms made into one logarithm through the three
// properties of logarithms and the change of base, each step narrated.
#include "manipulate/combine_logs.h"

#include <cmath>
#include <numeric>
#include <vector>

#include "core/errors.h"
#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "present/work_space.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/inverse_functions.h"
#include "simplify/radical_rules.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

bool IsLogName(const std::string& name) { return name == "ln" || name == "log"; }

bool HoldsLog(const std::string& text) {
  return text.find("ln(") != std::string::npos || text.find("log(") != std::string::npos;
}

int CountOf(const std::string& text, const std::string& what) {
  int count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++count;
  }
  return count;
}

// The fast test of a mode: two logarithms of one base, one of each, or any logarithm.
bool ContainsLogs(const std::string& text, int mode) {
  const int ln = CountOf(text, "ln(");
  const int log = CountOf(text, "log(");
  switch (mode) {
    case kLogModeSameBase: return ln >= 2 || log >= 2;
    case kLogModeChangeBase: return ln >= 1 && log >= 1;
    default: return ln + log >= 1;
  }
}

// A text that stands as one quantity: a letter, a number without a sign, a function, a bracket.
bool IsSingleQuantity(Session& s, const std::string& text) {
  if (IsNumberToken(s, text)) return text[0] != '-';
  return IsOneOperand(s, text);
}

std::string Bracketed(Session& s, const std::string& text) {
  return IsSingleQuantity(s, text) ? text : "(" + text + ")";
}

// A factor of a product: a sum is bracketed.
std::string AsFactor(Session& s, const std::string& text) {
  return IsSumText(s, text) || (!text.empty() && text[0] == '-') ? "(" + text + ")" : text;
}

// A denominator: anything but one quantity is bracketed.
std::string AsDenominator(Session& s, const std::string& text) { return Bracketed(s, text); }

// The exponent as a reduced fraction has an odd numerator: x^3 and x^(1/3) keep the sign of x.
bool OddExponent(Session& s, const std::string& exponent) {
  const std::optional<double> value = ConstantValue(s, exponent);
  if (!value) return false;
  for (int q = 1; q <= 12; ++q) {
    const double p = *value * q;
    if (std::fabs(p - std::nearbyint(p)) < 1e-9) {
      return std::llabs(std::llround(p)) % 2 == 1;
    }
  }
  return false;
}

// A term of a sum that is a logarithm with or without a coefficient.
struct LogTerm {
  NodeIdx node = kNoNode;
  bool minus = false;
  std::string name;         // "ln" or "log"
  std::string log_text;     // the logarithm factor
  std::string coefficient;  // empty for a lone logarithm
  bool negated = false;     // a pseudo "-" factor in the term
};

bool ReadLogTerm(Session& s, NodeIdx term, LogTerm& out) {
  const ExprNode& node = s.Pool[term];
  out = LogTerm{};
  out.node = term;
  out.minus = node.Role == kRoleMinus;
  if (node.Kind == kKindFunction) {
    out.name = FunctionNameOf(node.Text);
    out.log_text = node.Text;
    return IsLogName(out.name);
  }
  const NodeIdx first = node.FirstChild;
  if (node.Kind != kKindSumOrProduct || first == kNoNode || !IsProductRole(s.Pool[first].Role)) {
    return false;
  }
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Kind == kKindFunction && factor.Role == kRoleNumerator &&
        IsLogName(FunctionNameOf(factor.Text)) && out.log_text.empty()) {
      out.name = FunctionNameOf(factor.Text);
      out.log_text = factor.Text;
      continue;
    }
    if (HoldsLog(factor.Text)) return false;
    if (IsPseudoSign(factor) && factor.Role == kRoleNumerator) {
      if (factor.Text == "-") out.negated = !out.negated;
      continue;
    }
    (factor.Role == kRoleDenominator ? down : up).push_back(factor.Text);
  }
  if (out.log_text.empty()) return false;
  if (!up.empty() || !down.empty()) out.coefficient = JoinFactors(up, down);
  return true;
}

// The sign of a term as it is written in a sum: "-" for a subtracted term.
std::string Signed(const LogTerm& term, const std::string& text, bool first) {
  const bool minus = term.minus != term.negated;
  if (minus) return "-" + text;
  return first ? text : "+" + text;
}

// c*log(a) -> log(a^c). Empty when the coefficient holds the protected exponent.
std::string CoefficientInside(Session& s, const LogTerm& term) {
  if (!s.ProtectedExponent.empty() &&
      term.coefficient.find(s.ProtectedExponent) != std::string::npos) {
    return "";
  }
  const std::string argument = ArgumentOf(term.log_text);
  return term.name + "(" + BaseText(s, argument) + "^" + Bracketed(s, term.coefficient) + ")";
}

std::string Converted(const std::string& lead, const std::string& old_text,
                      const std::string& new_text) {
  return lead + " to convert @" + old_text + "->" + new_text + "@ .\\|";
}

constexpr const char* kProperty3 = "using property 3 of logarithms";

// log(x) in natural logarithms, by the options.
std::string ChangeOfBase(Session& s, const std::string& argument, std::string& coefficient) {
  if (s.ExactToFloat) {
    coefficient = "0" + s.DecimalPoint + "434294481903252";
    return coefficient + "*ln(" + argument + ")";
  }
  if (!s.ExponentToExponentialFunction && s.SpecialE) {
    coefficient = "log(e)";
    return "log(e)*ln(" + argument + ")";
  }
  coefficient = "1/ln(10)";
  return "ln(" + argument + ")/ln(10)";
}

// Where the pair or lone term lies, and how the sum is written again around it.
std::string RebuiltSum(Session& s, NodeIdx sum, NodeIdx first, NodeIdx second,
                       const std::string& new_term, bool new_minus) {
  std::string text;
  for (NodeIdx c = s.Pool[sum].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == second) continue;
    const bool minus = c == first ? new_minus : s.Pool[c].Role == kRoleMinus;
    const std::string body = c == first ? new_term : s.Pool[c].Text;
    if (minus) {
      text += "-" + body;
    } else {
      AppendPiece(text, '+', body);
    }
  }
  return text;
}

// The coefficient of a term moved inside its logarithm, narrated; false when it may not move.
bool MoveCoefficient(Session& s, LogTerm& term, StepParts& parts, bool& property3) {
  if (term.coefficient.empty()) return true;
  const std::string inside = CoefficientInside(s, term);
  if (inside.empty()) return false;
  AddStepPart(parts, Converted(kProperty3, s.Pool[term.node].Text, inside));
  term.log_text = inside;
  term.coefficient.clear();
  property3 = true;
  return true;
}

// The first pair (or lone term) of the mode among the terms of a sum.
bool FindLogPair(Session& s, NodeIdx sum, int mode, LogTerm& first, LogTerm& second) {
  std::vector<LogTerm> terms;
  for (NodeIdx c = s.Pool[sum].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    LogTerm term;
    if (ReadLogTerm(s, c, term)) terms.push_back(term);
  }
  for (std::size_t i = 0; i < terms.size(); ++i) {
    if (mode == kLogModeLone) {
      if (!terms[i].coefficient.empty() && !CoefficientInside(s, terms[i]).empty()) {
        first = terms[i];
        return true;
      }
      continue;
    }
    for (std::size_t j = i + 1; j < terms.size(); ++j) {
      const bool same = terms[i].name == terms[j].name;
      if (same != (mode == kLogModeSameBase)) continue;
      const bool protected_i =
          !terms[i].coefficient.empty() && CoefficientInside(s, terms[i]).empty();
      const bool protected_j =
          !terms[j].coefficient.empty() && CoefficientInside(s, terms[j]).empty();
      if (protected_i || protected_j) continue;
      first = terms[i];
      second = terms[j];
      return true;
    }
  }
  return false;
}

// A lone logarithm with a coefficient, at the root or as a term of a sum.
bool CombineLone(Session& s, NodeIdx& slot, NodeIdx sum, LogTerm term) {
  StepParts parts;
  const std::string shown = Signed(term, s.Pool[term.node].Text, true);
  AddStepPart(parts, "Make @" + shown + "@ into one logarithm by:|");
  bool property3 = false;
  if (!MoveCoefficient(s, term, parts, property3)) return false;
  AddStepPart(parts, "The result is:");
  const bool minus = term.minus != term.negated;
  if (sum == kNoNode) {
    ReplaceNodeContents(s, slot, (minus ? "-" : "") + term.log_text, true);
  } else {
    ReplaceNodeContents(s, slot, RebuiltSum(s, sum, term.node, kNoNode, term.log_text, minus),
                        true);
  }
  s.Message = std::to_string(81 + kLogModeLone + 3) + "#" + JoinStepParts(parts);
  return true;
}

// The rule at one node: a pair of its terms made into one logarithm.
bool CombinePair(Session& s, NodeIdx& slot, int mode, bool at_root) {
  const NodeIdx first_child = s.Pool[slot].FirstChild;
  if (first_child == kNoNode) return false;
  const bool sum = IsSumRole(s.Pool[first_child].Role);
  if (!sum) {
    // A lone product term stands at the root only.
    if (mode != kLogModeLone || !at_root) return false;
    LogTerm term;
    if (!ReadLogTerm(s, slot, term) || term.coefficient.empty()) return false;
    if (CoefficientInside(s, term).empty()) return false;
    return CombineLone(s, slot, kNoNode, term);
  }
  LogTerm a;
  LogTerm b;
  if (!FindLogPair(s, slot, mode, a, b)) return false;
  if (mode == kLogModeLone) return CombineLone(s, slot, slot, a);

  StepParts parts;
  const std::string pair_text =
      Signed(a, s.Pool[a.node].Text, true) + Signed(b, s.Pool[b.node].Text, false);
  AddStepPart(parts, "Make @" + pair_text + "@ into one logarithm by:|");
  bool property3 = false;
  bool moved = !a.coefficient.empty() || !b.coefficient.empty();
  if (!MoveCoefficient(s, a, parts, property3) || !MoveCoefficient(s, b, parts, property3)) {
    return false;
  }
  // ln with log: the log goes to ln by the change of base.
  if (mode == kLogModeChangeBase) {
    LogTerm& common = a.name == "log" ? a : b;
    const std::string argument = ArgumentOf(common.log_text);
    std::string coefficient;
    const std::string changed = ChangeOfBase(s, argument, coefficient);
    AddStepPart(parts, Converted("using the change of base formula", common.log_text, changed));
    const std::string inside =
        "ln(" + BaseText(s, argument) + "^" + Bracketed(s, coefficient) + ")";
    AddStepPart(parts, Converted(kProperty3, changed, inside));
    common.log_text = inside;
    common.name = "ln";
    property3 = true;
  }
  const bool minus_a = a.minus != a.negated;
  const bool minus_b = b.minus != b.negated;
  const std::string x = ArgumentOf(a.log_text);
  const std::string y = ArgumentOf(b.log_text);
  const std::string old_text =
      (minus_a ? "-" : "") + a.log_text + (minus_b ? "-" : "+") + b.log_text;
  std::string combined;
  bool new_minus = false;
  if (minus_a == minus_b) {
    combined = a.name + "(" + AsFactor(s, x) + "*" + AsFactor(s, y) + ")";
    new_minus = minus_a;
    if (minus_a) {
      AddStepPart(parts,
                  "factoring out a - sign and then using property 1 of logarithms to "
                  "convert @" +
                      old_text + "->-" + combined + "@ .\\|");
    } else {
      AddStepPart(parts, Converted("using property 1 of logarithms", old_text, combined));
    }
  } else {
    const std::string& top = minus_a ? y : x;
    const std::string& bottom = minus_a ? x : y;
    combined = a.name + "(" + AsFactor(s, top) + "/" + AsDenominator(s, bottom) + ")";
    AddStepPart(parts, Converted("using property 2 of logarithms", old_text, combined));
  }
  std::string power_form;
  StepParts power_parts;
  if (PowerRuleOnLog(s, combined, moved, power_form, power_parts)) {
    for (const std::string& part : power_parts) AddStepPart(parts, part);
    combined = power_form;
    property3 = true;
  }
  AddStepPart(parts, "The result is:");
  ReplaceNodeContents(s, slot, RebuiltSum(s, slot, a.node, b.node, combined, new_minus), true);
  const int level = property3 ? 1 : 0;
  s.Message = std::to_string(81 + mode + 3 * level) + "#" + JoinStepParts(parts);
  return true;
}

// One walk of the tree, children before parents; the first combination ends it.
bool CombineLogsPass(Session& s, NodeIdx& root, int mode) {
  if (!ContainsLogs(s.Pool[root].Text, mode)) return false;
  const NodeIdx top = root;
  return ForEachSlotUntil(s, root, false, [&s, mode, top](NodeIdx& slot) {
    return CombinePair(s, slot, mode, slot == top);
  });
}

}  // namespace

std::string ArgumentOf(const std::string& text) {
  const std::size_t open = text.find('(');
  const std::size_t close = text.rfind(')');
  if (open == std::string::npos || close == std::string::npos || close <= open) return "";
  return text.substr(open + 1, close - open - 1);
}

bool PowerRuleOnLog(Session& s, const std::string& text, bool arguments_positive,
                    std::string& result, StepParts& parts) {
  parts.clear();
  const std::string name = FunctionNameOf(text);
  if (!IsLogName(name)) return false;
  const std::string argument = ArgumentOf(text);
  if (argument.empty()) return false;
  const TempTree t(s, argument, TempTree::Depth::Whole);
  const NodeIdx root = t.Root();
  const ExprNode& node = t[root];
  // A power: log(b^n) = n*log(b).
  if (node.Kind == kKindPower) {
    const NodeIdx exponent = node.FirstChild;
    const NodeIdx base = t[exponent].Next;
    const std::string n = t[exponent].Text;
    if (!arguments_positive && !KnownNonNegative(s, base) && !OddExponent(s, n)) return false;
    result = Bracketed(s, NormalisedText(s, exponent)) + "*" + name + "(" +
             NormalisedText(s, base) + ")";
    parts.push_back(Converted(kProperty3, text, result));
    return true;
  }
  // A product of powers with a common whole exponent above 1.
  const NodeIdx first = node.FirstChild;
  if (node.Kind != kKindSumOrProduct || first == kNoNode || !IsProductRole(t[first].Role)) {
    return false;
  }
  struct Factor {
    NodeIdx base;
    long long n;
    bool below;
  };
  std::vector<Factor> factors;
  long long common = 0;
  bool non_negative = true;
  for (NodeIdx c = first; c != kNoNode; c = t[c].Next) {
    const ExprNode& factor = t[c];
    Factor f{c, 1, factor.Role == kRoleDenominator};
    if (factor.Kind == kKindPower) {
      const ExprNode& exponent = t[factor.FirstChild];
      if (!IsPositiveIntegerText(s, exponent.Text)) return false;
      f.base = exponent.Next;
      f.n = std::llround(SafeValue(s, exponent.Text));
    }
    if (IsPseudoSign(factor)) return false;
    non_negative = non_negative && KnownNonNegative(s, f.base);
    common = std::gcd(common, f.n);
    factors.push_back(f);
  }
  if (common <= 1 || factors.size() < 2) return false;
  if (!arguments_positive && !non_negative && common % 2 == 0) return false;
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (const Factor& f : factors) {
    const long long n = f.n / common;
    const std::string base = t[f.base].Text;
    const std::string power = n == 1 ? base : BaseText(s, base) + "^" + std::to_string(n);
    (f.below ? down : up).push_back(power);
  }
  const std::string inner = JoinFactors(up, down);
  const std::string as_power = "(" + inner + ")^" + std::to_string(common);
  parts.push_back(Converted("using the properties of exponents", argument, as_power));
  const std::string before = name + "(" + as_power + ")";
  result = std::to_string(common) + "*" + name + "(" + inner + ")";
  parts.push_back(Converted(kProperty3, before, result));
  return true;
}

bool CombineLogs(Session& s, NodeIdx& root) {
  bool result = false;
  int rewrites = 0;
  int mode = kLogModeSameBase;
  while (mode <= kLogModeLone) {
    const std::string before = s.Pool[root].Text;
    if (!CombineLogsPass(s, root, mode)) {
      ++mode;
      continue;
    }
    if (++rewrites > kRewriteLimit) {
      throw RunTimeError(RunTimeErrorNumber::Overflow, "Combine logs does not come to an end");
    }
    RegenerateAll(s, root);
    {
      ScopedOverride message(s.Message);
      ScopedOverride detail(s.DetailNow, std::int16_t{0});
      int level = 0;
      SimplifyTree(s, root, level);
    }
    // A coefficient that went inside and came out again under Simplify is no progress.
    if (s.Pool[root].Text == before) {
      ++mode;
      continue;
    }
    result = true;
    if (s.DetailNow > 0) {
      ShowStep(s, root);
      if (!s.StreamingOutput) return result;
    }
  }
  return result;
}

bool CombineLogsSide(Session& s, NodeIdx side) {
  NodeIdx root = side;
  return CombineLogs(s, root);
}

bool CombineLogsOnSide(Session& s, std::string& side) {
  if (!HoldsLog(side)) return false;
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  ScopedOverride message(s.Message);
  ScopedOverride help(s.HelpNumber);
  TempTree tree(s, side, TempTree::Depth::Whole);
  RegenerateAll(s, tree.RootSlot());
  if (!CombineLogs(s, tree.RootSlot())) return false;
  const std::string& combined = s.Pool[tree.Root()].Text;
  if (combined == side) return false;
  side = combined;
  return true;
}

bool CombineLogsOnSides(Session& s, std::string& left, std::string& right, std::string& sentence) {
  const bool on_left = CombineLogsOnSide(s, left);
  const bool on_right = CombineLogsOnSide(s, right);
  sentence.clear();
  if (on_left && on_right) {
    sentence = "Combine the logarithms on each side of the equation.";
  } else if (on_left) {
    sentence = "Combine the logarithms on the left side of the equation.";
  } else if (on_right) {
    sentence = "Combine the logarithms on the right side of the equation.";
  }
  return on_left || on_right;
}

}  // namespace tavimor
