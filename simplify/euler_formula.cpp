// Euler's formula e^(i*x) = cos(x)+i*sin(x): the complex exponential broken apart into cos and
// sin, and a pair of cos and sin combined back into it.
#include "simplify/euler_formula.h"

#include <vector>

#include "core/node_queries.h"
#include "core/node_shape.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/inverse_functions.h"
#include "simplify/simplify_driver.h"
#include "simplify/trig_identities.h"

namespace tavimor {

namespace {

bool IsUnit(const Session& s, const ExprNode& node) {
  if (s.ComplexForm == 3) return node.Kind == kKindFunction && node.Text == "sqrt(-1)";
  return node.Kind == kKindVariable && node.Text == ImagUnitText(s);
}

// Signed terms joined into a sum: "-" or "+" before each but a leading "+".
void AddTerm(std::string& sum, bool negative, const std::string& term) {
  if (sum.empty()) {
    sum = (negative ? "-" : "") + term;
  } else {
    sum += (negative ? "-" : "+") + term;
  }
}

// The coefficient of the unit in a term that is the unit times other factors; false when the
// unit is not one plain factor of it. A term without the unit is no imaginary term.
bool ImaginaryCoefficient(const Session& s, NodeIdx term, bool& has_unit, std::string& b) {
  const ExprNode& node = s.Pool[term];
  has_unit = false;
  if (IsUnit(s, node)) {
    has_unit = true;
    b = "1";
    return true;
  }
  if (ContentShapeOf(s.Pool, term) != Shape::Product) {
    return !ContainsUnitNode(s, term);
  }
  std::vector<std::string> numerator;
  std::vector<std::string> denominator;
  bool negative = false;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (IsPseudoSign(factor)) {
      negative = negative != (factor.Text == "-");
    } else if (!has_unit && factor.Role == kRoleNumerator && IsUnit(s, factor)) {
      has_unit = true;
    } else if (ContainsUnitNode(s, c)) {
      return false;
    } else {
      (factor.Role == kRoleDenominator ? denominator : numerator).push_back(factor.Text);
    }
  }
  b = (negative ? "-" : "") + JoinFactors(numerator, denominator);
  return true;
}

}  // namespace

bool ContainsUnitNode(const Session& s, NodeIdx n) {
  if (IsUnit(s, s.Pool[n])) return true;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (ContainsUnitNode(s, c)) return true;
  }
  return false;
}

bool BreakApartEuler(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigBreakApart || s.ComplexForm <= 0) return false;
  const ExprNode& node = s.Pool[slot];
  const std::string old_text = node.Text;
  NodeIdx exponent = kNoNode;  // the node whose content is the exponent
  bool power = false;
  if (node.Kind == kKindPower) {
    exponent = node.FirstChild;
    const NodeIdx base = s.Pool[exponent].Next;
    if (!s.SpecialE || s.Pool[base].Kind != kKindVariable || s.Pool[base].Text != "e") {
      return false;
    }
    power = true;
  } else if (IsFunctionNamed(node, "exp")) {
    exponent = slot;
  } else {
    return false;
  }
  // e^(i*p) = -1 is a property of complex numbers while e and p are constants.
  if (s.SpecialE && s.SpecialP) {
    static constexpr const char* kUnitTimesPi[] = {"", "i*p", "j*p", "p*sqrt(-1)"};
    const char* unit_pi = kUnitTimesPi[s.ComplexForm];
    if (old_text == "e^(" + std::string(unit_pi) + ")" ||
        old_text == "exp(" + std::string(unit_pi) + ")") {
      return false;
    }
  }
  // The terms of the exponent, each with its sign.
  std::vector<std::pair<bool, NodeIdx>> terms;
  NodeIdx content = exponent;
  if (power && s.Pool[exponent].FirstChild == kNoNode) {
    terms.emplace_back(false, exponent);
  } else {
    if (ContentShapeOf(s.Pool, content) == Shape::OneChild) content = s.Pool[content].FirstChild;
    if (ContentShapeOf(s.Pool, content) == Shape::Sum) {
      for (NodeIdx c = s.Pool[content].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
        terms.emplace_back(s.Pool[c].Role == kRoleMinus, c);
      }
    } else {
      terms.emplace_back(false, content);
    }
  }
  std::string real;
  std::string imaginary;
  for (const auto& [negative, term] : terms) {
    bool has_unit = false;
    std::string b;
    if (!ImaginaryCoefficient(s, term, has_unit, b)) return false;
    if (!has_unit) {
      AddTerm(real, negative, s.Pool[term].Text);
      continue;
    }
    bool minus = negative;
    if (b.size() > 1 && b[0] == '-') {
      minus = !minus;
      b.erase(0, 1);
    }
    AddTerm(imaginary, minus, b);
  }
  if (imaginary.empty()) return false;
  const std::string unit = ImagUnitText(s);
  const std::string angle = imaginary;
  std::string result = "cos(" + angle + ")+" + unit + "*sin(" + angle + ")";
  if (!real.empty()) {
    const std::string factor = power ? "e^" + BaseText(s, real) : "exp(" + real + ")";
    result = factor + "*(" + result + ")";
  }
  const std::string formula = old_text + "=" + result;
  RewriteFunctionAs(
      s, slot, "(" + result + ")",
      "363#Break apart the complex exponential by using Euler's formula @" + formula + "@ .");
  return true;
}

bool EulerTermOfPair(Session& s, const std::string& a, const std::string& b, const std::string& x,
                     std::string& term) {
  if (s.ComplexForm <= 0 || b.empty() || b == "0") return false;
  const std::string unit = ImagUnitText(s);
  const std::string ratio = SimplifyText(s, "(" + a + ")/(" + b + ")");
  std::string exponent;
  if (ratio == unit) {
    exponent = unit + "*" + BracketIfNeeded(s, x);
  } else if (ratio == "-" + unit) {
    exponent = "-" + unit + "*" + BracketIfNeeded(s, x);
  } else {
    return false;
  }
  exponent = SimplifyText(s, exponent);
  const std::string exponential = s.ExponentToExponentialFunction || !s.SpecialE
                                      ? "exp(" + exponent + ")"
                                      : "e^(" + exponent + ")";
  if (b == "1") {
    term = exponential;
  } else if (b == "-1") {
    term = "-" + exponential;
  } else {
    term = b + "*" + exponential;
  }
  return true;
}

}  // namespace tavimor
