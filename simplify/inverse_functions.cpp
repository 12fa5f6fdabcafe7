// Inverse functions that cancel and functions of functions: sqrt(x)^2, log(10^x), e^ln(x),
// sin(arcsin(x)), cos(arctan(x)) and their kin.
#include "simplify/inverse_functions.h"

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "core/evaluate.h"
#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/radical_rules.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

bool StartsWith(std::string_view text, std::string_view start) {
  return text.size() >= start.size() && text.compare(0, start.size(), start) == 0;
}
bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Every bracket of the text closes within it, and none closes before it opens.
bool BracketsBalance(const std::string& text) {
  int depth = 0;
  for (const char c : text) {
    if (c == '(') ++depth;
    if (c == ')' && --depth < 0) return false;
  }
  return depth == 0;
}

// The text names a quantity that is never negative (sqrt(x^2) = x only then).
bool KnownNonNegativeText(Session& s, const std::string& text) {
  const TempTree t(s, text, TempTree::Depth::Whole);
  return KnownNonNegative(s, t.Root());
}

// An angle given as a number (after silent simplification) that lies in [low, high] degrees, or
// the same range in radians; an angle with a letter never does.
bool AngleWithin(Session& s, const std::string& text, double low, double high) {
  const std::optional<double> value = ConstantValue(s, text);
  if (!value) return false;
  const double degrees = s.Degrees ? *value : *value / kDegreeFactor;
  return degrees >= low - 1e-9 && degrees <= high + 1e-9;
}

// 90-x in degrees, 1.5707963267949-x in floating point, p/2-x with p; empty otherwise.
std::string RightAngleLess(Session& s, const std::string& x) {
  const std::string operand = IsOneOperand(s, x) && x[0] != '-' ? x : "(" + x + ")";
  if (s.Degrees) return "90-" + operand;
  if (s.ExactToFloat) return "1" + s.DecimalPoint + "5707963267949-" + operand;
  if (s.SpecialP) return "p/2-" + operand;
  return "";
}

// The single child of a node, or 0.
NodeIdx OnlyChild(const Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || s.Pool[first].Next != kNoNode) return kNoNode;
  return first;
}

struct Pair {
  const char* outer;
  const char* inner;
  int help;
};

// The pairs of functions, in row order; the last row that matches decides.
constexpr std::array<Pair, 18> kPairs = {{
    {"sin", "arcsin", 29},
    {"cos", "arccos", 30},
    {"tan", "arctan", 31},
    {"arcsin", "sin", 32},
    {"arccos", "cos", 33},
    {"arctan", "tan", 34},
    {"ln", "exp", 35},
    {"exp", "ln", 36},
    {"sin", "arctan", 37},
    {"cos", "arctan", 38},
    {"sin", "arccos", 39},
    {"tan", "arccos", 40},
    {"cos", "arcsin", 41},
    {"tan", "arcsin", 42},
    {"log", "exp", 246},
    {"exp", "log", 247},
    {"arcsin", "cos", 37},
    {"arccos", "sin", 37},
}};

// The result of row `row` (1-based) for the argument x, or empty where it would not hold.
std::string PairResult(Session& s, int row, const std::string& x) {
  // An inverse of a periodic function gives back only an angle of its principal range:
  // arcsin(sin(x)) = x for x from -90 to 90 degrees, and no rewrite for a letter.
  switch (row) {
    case 4: return AngleWithin(s, x, -90.0, 90.0) ? x : "";
    case 5: return AngleWithin(s, x, 0.0, 180.0) ? x : "";
    case 6: return AngleWithin(s, x, -89.999999, 89.999999) ? x : "";
    case 17: return AngleWithin(s, x, 0.0, 180.0) ? RightAngleLess(s, x) : "";
    case 18: return AngleWithin(s, x, -90.0, 90.0) ? RightAngleLess(s, x) : "";
    default: break;
  }
  if (row <= 8) return x;
  // From row 9 on the argument is bracketed unless it is one token.
  const std::string b = IsOneOperand(s, x) && x[0] != '-' ? x : "(" + x + ")";
  switch (row) {
    case 9: return b + "/sqrt(" + b + "^2+1)";
    case 10: return "1/sqrt(" + b + "^2+1)";
    case 11:
    case 13: return "sqrt(-" + b + "^2+1)";
    case 12: return "sqrt(-" + b + "^2+1)/" + b;
    case 14: return b + "/sqrt(-" + b + "^2+1)";
    case 15:
      if (x == "1") return "";
      return b + (s.SpecialE ? "*log(e)" : "*log(exp(1))");
    case 16:
      if (x == "1") return "";
      return b + (s.SpecialE ? "^log(e)" : "^log(exp(1))");
    default: return "";
  }
}

// arctan(1/tan(x)) = 90-x, for an angle strictly between 0 and 180 degrees.
bool ArctanOfReciprocalTangent(Session& s, NodeIdx& slot) {
  const NodeIdx first = s.Pool[slot].FirstChild;
  if (first == kNoNode || s.Pool[first].Text != "1") return false;
  const NodeIdx second = s.Pool[first].Next;
  if (second == kNoNode || s.Pool[second].Next != kNoNode ||
      s.Pool[second].Role != kRoleDenominator || s.Pool[second].Kind != kKindFunction) {
    return false;
  }
  const std::string x = ContentText(s.Pool[second]);
  if (!AngleWithin(s, x, 1e-9, 180.0 - 1e-9)) return false;
  const std::string result = RightAngleLess(s, x);
  if (result.empty()) return false;
  const std::string old_text = s.Pool[slot].Text;
  RewriteFunctionAs(s, slot, result,
                    "37#Simplify using the fact that @" + old_text + "=" + result + "@ .");
  return true;
}

}  // namespace

// The text is one operand as the parser sees it: a number, a letter, a function or a bracket.
bool IsOneOperand(Session& s, const std::string& text) {
  if (text.empty()) return false;
  if (!BracketsBalance(text)) return false;
  const TempTree t(s, text, TempTree::Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  switch (root.Kind) {
    case kKindNumber:
    case kKindVariable:
    case kKindFunction:
    case kKindBracket: return root.Text == text;
    default: return false;
  }
}

void RewriteFunctionAs(Session& s, NodeIdx& slot, const std::string& text,
                       const std::string& message) {
  ExprNode& node = s.Pool[slot];
  node.Kind = kKindSumOrProduct;
  if (text.size() > 1 && text[0] == '-' && IsSumRole(node.Role)) {
    const std::string size = text.substr(1);
    if (!IsSumText(s, size)) {
      node.Role = node.Role == kRoleMinus ? kRolePlus : kRoleMinus;
      RewriteNode(s, slot, size, message);
      return;
    }
  }
  RewriteNode(s, slot, text, message);
}

std::optional<double> ConstantValue(Session& s, const std::string& text) {
  if (IsNumberToken(s, text)) return SafeValue(s, text);
  if (!BracketsBalance(text)) return std::nullopt;
  const TempTree t(s, text, TempTree::Depth::Whole);
  bool constants_only = true;
  ForEachNodeParentFirst(s, t.Root(), [&s, &t, &constants_only](NodeIdx n) {
    const ExprNode& node = t[n];
    if (node.Kind != kKindVariable) return;
    const char letter = node.Text.empty() ? ' ' : node.Text[0];
    if ((letter != 'e' && letter != 'p' && letter != 'd') || !IsConstantVar(s, letter)) {
      constants_only = false;
    }
  });
  if (!constants_only) return std::nullopt;
  try {
    EvaluateAllRounded(s, t.Root());
  } catch (const RunTimeError&) {
    return std::nullopt;  // no real value: a root of a negative number, a division by 0
  } catch (const AppError&) {
    return std::nullopt;
  }
  const double value = ValueAsNumber(s, s.Pool[t.Root()].Value);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

std::string FunctionNameOf(const std::string& text) {
  const std::size_t open = text.find('(');
  return open == std::string::npos ? "" : text.substr(0, open);
}

bool CancelInverseText(Session& s, NodeIdx& slot) {
  // Every form below opens with "sqrt(", "log(10^", "10^log(", "e^ln(" or "ln(e^": others are
  // passed over before their text is copied.
  {
    const std::string_view text = s.Pool[slot].Text;
    if (!StartsWith(text, "sqrt(") && !StartsWith(text, "log(10^") &&
        !StartsWith(text, "10^log(") && !StartsWith(text, "e^ln(") && !StartsWith(text, "ln(e^")) {
      return false;
    }
  }
  const std::string old_text = s.Pool[slot].Text;
  std::string x;
  std::string stem;
  const auto frame = [&old_text](std::string_view start, std::string_view end) {
    if (!StartsWith(old_text, start) || !EndsWith(old_text, end) ||
        old_text.size() <= start.size() + end.size()) {
      return std::string();
    }
    return old_text.substr(start.size(), old_text.size() - start.size() - end.size());
  };
  const auto whole = [&s, &x](const std::string& inner) {
    if (inner.empty() || !IsOneOperand(s, inner)) return false;
    x = inner;
    return true;
  };
  if (std::string inner = frame("sqrt(", "^2)"); whole(inner)) {
    // sqrt(x^2) is x only where x cannot be negative.
    if (!KnownNonNegativeText(s, x)) return false;
    stem = "8#Simplify using the fact that the square and square root cancel";
  } else if (inner = frame("sqrt(", ")^2");
             !inner.empty() && IsOneOperand(s, "sqrt(" + inner + ")")) {
    x = inner;
    stem = "8#Simplify using the fact that the square and square root cancel";
  } else if (whole(frame("log(10^", ")")) || whole(frame("10^log(", ")"))) {
    stem =
        "9#Simplify using the fact that the logarithm to base 10 and exponentiation with base 10 "
        "cancel";
  } else if (s.SpecialE && (whole(frame("e^ln(", ")")) || whole(frame("ln(e^", ")")))) {
    stem =
        "10#Simplify using the fact that the logarithm to base e and exponentiation with base e "
        "cancel";
  } else {
    // 10^log(x+1): the exponent is the function, its argument the result.
    const bool ten = StartsWith(old_text, "10^log(");
    const bool e = s.SpecialE && StartsWith(old_text, "e^ln(");
    if ((!ten && !e) || s.Pool[slot].Kind != kKindPower) return false;
    const ExprNode& exponent = s.Pool[s.Pool[slot].FirstChild];
    if (exponent.Kind != kKindFunction || exponent.Text != old_text.substr(ten ? 3 : 2)) {
      return false;
    }
    x = ContentText(exponent);
    stem = ten ? "11#Simplify using the fact that the logarithm to base 10 and exponentiation with "
                 "base 10 cancel"
               : "12#Simplify using the fact that the logarithm to base e and exponentiation with "
                 "base e cancel";
  }
  RewriteFunctionAs(s, slot, x, stem + ": @" + old_text + "=" + x + "@ .");
  return true;
}

bool FunctionOfFunction(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  if (StartsWith(node.Text, "arctan(1/tan(")) return ArctanOfReciprocalTangent(s, slot);
  // Every form below has one function or power inside: others are passed over before their
  // text is copied.
  const NodeIdx child = OnlyChild(s, slot);
  if (child == kNoNode) return false;
  const ExprNode& inner_node = s.Pool[child];
  if (inner_node.Kind != kKindFunction && inner_node.Kind != kKindPower) return false;
  const std::string old_text = node.Text;
  const std::string outer = FunctionNameOf(old_text);
  if (inner_node.Kind == kKindFunction && inner_node.Role == kRoleNone) {
    const std::string inner = FunctionNameOf(inner_node.Text);
    int row = 0;
    for (std::size_t k = 0; k < kPairs.size(); ++k) {
      if (outer == kPairs[k].outer && inner == kPairs[k].inner) row = static_cast<int>(k) + 1;
    }
    if (row != 0) {
      const std::string x = ContentText(inner_node);
      const std::string result = PairResult(s, row, x);
      if (result.empty()) return false;
      const Pair& pair = kPairs[static_cast<std::size_t>(row - 1)];
      const std::string help = std::to_string(pair.help) + "#";
      const std::string message =
          row <= 8 ? help + "Simplify by canceling the " + outer + " and " + inner + " functions."
                   : help + "Simplify the " + outer + " of the " + inner + " function.";
      RewriteFunctionAs(s, slot, result, message);
      return true;
    }
  }
  // sqrt(b^t) = b^(t/2); sqrt(b^2) = b where b cannot be negative.
  if (outer == "sqrt" && inner_node.Kind == kKindPower) {
    const ExprNode& exponent = s.Pool[inner_node.FirstChild];
    const NodeIdx base = exponent.Next;
    const std::string t = exponent.Text;
    const std::string b = s.Pool[base].Text;
    const bool non_negative = KnownNonNegative(s, base);
    if (t == "2") {
      if (!non_negative) return false;
      RewriteFunctionAs(s, slot, b,
                        "43#Simplify using the fact that the square and square root cancel: @" +
                            old_text + "=" + b + "@ .");
      return true;
    }
    // For a base that may be negative only a whole exponent that is no odd multiple of 2 keeps
    // the value: sqrt(x^6) is |x|^3, not x^3.
    const bool whole = exponent.Kind == kKindNumber && IsNumberToken(s, t) &&
                       std::fmod(SafeValue(s, t), 1.0) == 0.0;
    if (!non_negative && (!whole || std::fmod(std::fabs(SafeValue(s, t)), 4.0) == 2.0)) {
      return false;
    }
    const std::string result = BaseText(s, b) + "^(" + t + "/2)";
    RewriteFunctionAs(
        s, slot, result,
        "44#Simplify using the property of radicals that @" + old_text + "=" + result + "@ .");
    return true;
  }
  // ln(e^x) = x, log(10^x) = x.
  if (inner_node.Kind == kKindPower && ((outer == "ln" && s.SpecialE) || outer == "log")) {
    const ExprNode& exponent = s.Pool[inner_node.FirstChild];
    const std::string& base = s.Pool[exponent.Next].Text;
    if (base != (outer == "ln" ? "e" : "10")) return false;
    const std::string result = exponent.Text;
    const std::string message =
        outer == "ln" ? "45#Simplify using the fact that the logarithm to base e and "
                        "exponentiation with base e cancel: @"
                      : "46#Simplify using the fact that the logarithm to base 10 and "
                        "exponentiation with base 10 cancel: @";
    RewriteFunctionAs(s, slot, result, message + old_text + "=" + result + "@ .");
    return true;
  }
  return false;
}

}  // namespace tavimor
