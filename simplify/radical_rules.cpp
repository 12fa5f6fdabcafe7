// Square roots and the two written forms of powers: exponential function or e^x, radical or
// fractional exponent; square roots of numbers, of products and of fractions; radicals in
// products.
#include "simplify/radical_rules.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "core/errors.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/node_shape.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "manipulate/factor.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

std::string Converted(const std::string& help, const std::string& old_text,
                      const std::string& new_text) {
  return help + "#Convert to the equivalent form: @" + old_text + "->" + new_text + "@ .";
}

// A function node becomes the plain quantity its rule wrote.
void RewriteFunction(Session& s, NodeIdx& slot, const std::string& text,
                     const std::string& message) {
  s.Pool[slot].Kind = kKindSumOrProduct;
  RewriteNode(s, slot, text, message);
}

bool IsSquareRoot(const ExprNode& node) { return IsFunctionNamed(node, "sqrt"); }

// The number argument of a square root, or empty.
std::string NumberArgument(const Session& s, const ExprNode& node) {
  if (!IsSquareRoot(node)) return "";
  const std::string x = ContentText(node);
  return IsNumberToken(s, x) ? x : "";
}

bool IsNegativeNumber(const Session& s, const ExprNode& node) {
  return node.Kind == kKindNumber && IsNumberToken(s, node.Text) && node.Text[0] == '-';
}

}  // namespace

bool KnownNonNegative(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  switch (ShapeOf(s.Pool, n)) {
    case Shape::Number: return IsNumberToken(s, node.Text) && !IsNegativeNumber(s, node);
    case Shape::SquareRoot: return true;
    case Shape::Function: return IsFunctionNamed(node, "exp");
    case Shape::Power: {
      const ExprNode& exponent = s.Pool[node.FirstChild];
      const ExprNode& base = s.Pool[exponent.Next];
      if (s.SpecialE && base.Kind == kKindVariable && base.Text == "e") return true;
      if (exponent.Kind != kKindNumber || !IsIntegerText(s, exponent.Text)) return false;
      return std::llabs(std::atoll(exponent.Text.c_str())) % 2 == 0;
    }
    case Shape::Letter:
    case Shape::Sum:
    case Shape::Product:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::OneChild:
    case Shape::Broken: return false;
  }
  return false;
}

// e^x -> exp(x) with the exponential function chosen, exp(x) -> e^x without it (help 19).
bool ExponentialForm(Session& s, NodeIdx& slot) {
  if (!s.SpecialE) return false;
  ExprNode& node = s.Pool[slot];
  const std::string old_text = node.Text;
  if (s.ExponentToExponentialFunction) {
    std::string x;
    if (node.Kind == kKindPower) {
      const NodeIdx exponent = node.FirstChild;
      const ExprNode& base = s.Pool[s.Pool[exponent].Next];
      if (base.Kind != kKindVariable || base.Text != "e") return false;
      x = NormalisedText(s, exponent);
    } else if (IsFunctionNamed(node, "exp") && node.Role == kRoleDenominator) {
      x = ContentText(node);
    } else {
      return false;
    }
    if (node.Role == kRoleDenominator) {
      // a/e^x = a*exp(-x): the factor moves up with its exponent negated.
      const std::string negated = SimplifyText(s, "-(" + x + ")");
      const std::string new_text = "exp(" + negated + ")";
      s.Pool[slot].Role = kRoleNumerator;
      s.Pool[slot].Kind = kKindSumOrProduct;
      RewriteNode(s, slot, new_text, Converted("19", "1/" + old_text, new_text));
      return true;
    }
    const std::string new_text = "exp(" + x + ")";
    s.Pool[slot].Kind = kKindSumOrProduct;
    RewriteNode(s, slot, new_text, Converted("19", old_text, new_text));
    return true;
  }
  if (!IsFunctionNamed(node, "exp")) return false;
  const std::string x = ContentText(node);
  const std::string exponent = IsNumberToken(s, x) && x[0] != '-' ? x : "(" + x + ")";
  const std::string new_text = x.size() == 1 && IsAsciiLetter(x[0]) ? "e^" + x : "e^" + exponent;
  RewriteFunction(s, slot, new_text, Converted("19", old_text, new_text));
  return true;
}

// x^(1/2) -> sqrt(x) with radicals chosen, sqrt(x) -> x^(1/2) without them (help 20).
bool RadicalForm(Session& s, NodeIdx& slot) {
  ExprNode& node = s.Pool[slot];
  const std::string old_text = node.Text;
  if (s.ExponentToRadical) {
    if (node.Kind != kKindPower) return false;
    const NodeIdx exponent = node.FirstChild;
    const ExprNode& e = s.Pool[exponent];
    const bool half = e.Text == "(1/2)" || (IsNumberLeaf(e) && SafeValue(s, e.Text) == 0.5);
    if (!half) return false;
    const std::string new_text = "sqrt(" + NormalisedText(s, e.Next) + ")";
    RewriteNode(s, slot, new_text, Converted("20", old_text, new_text));
    return true;
  }
  if (!IsSquareRoot(node)) return false;
  const std::string half = s.ExactToFloat ? "^0" + s.DecimalPoint + "5" : "^(1/2)";
  const std::string new_text = BaseText(s, ContentText(node)) + half;
  RewriteFunction(s, slot, new_text, Converted("20", old_text, new_text));
  return true;
}

std::string SquareRootOfNumber(Session& s, const std::string& text, int& code) {
  code = kRootNotANumber;
  if (!IsNumberToken(s, text)) return text;
  const std::string unit = ImagUnitText(s);
  const double v = SafeValue(s, text);
  const double r = std::sqrt(std::fabs(v));
  if (!IsIntegerText(s, text) || s.ExactToFloat || r == std::nearbyint(r)) {
    if (v == -1.0) {
      code = unit == "sqrt(-1)" ? kRootOfMinusOne : -kRootIsANumber;
      return unit;
    }
    // Every negative number has an imaginary root, one between -1 and 0 as well: sqrt(-0.25)
    // is 0.5*i, never 0.5.
    if (v < 0.0) {
      code = -kRootIsANumber;
      return FormatValue(s, r) + "*" + unit;
    }
    code = kRootIsANumber;
    return FormatValue(s, r);
  }
  // Pairs of equal primes come out of the radical; the rest stays inside.
  const std::vector<std::int64_t> primes = PrimeFactors(static_cast<std::int64_t>(std::fabs(v)));
  std::int64_t outside = 1;
  std::int64_t inside = 1;
  for (std::size_t k = 0; k < primes.size(); ++k) {
    if (k + 1 < primes.size() && primes[k] == primes[k + 1]) {
      outside *= primes[k];
      ++k;
    } else {
      inside *= primes[k];
    }
  }
  std::string result = "sqrt(" + std::to_string(inside) + ")";
  code = kRootStays;
  if (v < 0.0) {
    result += "*" + unit;
    code = -kRootStays;
  }
  if (outside != 1) {
    result = std::to_string(outside) + "*" + result;
    code = code > 0 ? kRootFactorOut : -kRootFactorOut;
  }
  return result;
}

// sqrt(8) -> 2*sqrt(2), sqrt(4) -> 2, sqrt(-4) -> 2*i.
bool SquareRootValue(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  const std::string x = NumberArgument(s, node);
  if (x.empty()) return false;
  const std::string old_text = node.Text;
  int code = kRootNotANumber;
  const std::string result = SquareRootOfNumber(s, x, code);
  std::string message;
  switch (code) {
    case kRootFactorOut:
      message = "88#Simplify by pulling a factor out of the square root @" + old_text + "->" +
                result + "@ .";
      break;
    case -kRootFactorOut:
      message = s.ComplexForm == 0
                    ? "305#Simplify @" + old_text +
                          "@ by pulling factors out of it including a factor of the square root "
                          "of -1."
                    : "304#Simplify by writing @" + old_text +
                          "@ as an imaginary number and pulling a factor out of the square root.";
      break;
    case -kRootIsANumber:
    case -kRootStays:
      message =
          s.ComplexForm == 0
              ? "303#Simplify @" + old_text + "@ by pulling out a factor of the square root of -1."
              : "52#Simplify by writing @" + old_text + "@ as an imaginary number.";
      break;
    case kRootIsANumber:
      message = "380#Simplify this expression by evaluating @" + old_text + "@ .";
      break;
    default: return false;  // kRootStays, kRootOfMinusOne: the radical stays as it is
  }
  RewriteFunction(s, slot, result, message);
  return true;
}

bool SquareRootStructure(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (!IsSquareRoot(node)) return false;
  const std::string old_text = node.Text;
  const NodeIdx first = node.FirstChild;
  if (first == kNoNode) return false;
  // sqrt(sqrt(x)) = x^(1/4).
  if (s.Pool[first].Role == kRoleNone && s.Pool[first].Next == kNoNode &&
      IsSquareRoot(s.Pool[first])) {
    const std::string new_text = BaseText(s, ContentText(s.Pool[first])) + "^(1/4)";
    RewriteFunction(s, slot, new_text,
                    "96#Simplify using the rule that @" + old_text + "=" + new_text + "@ .");
    return true;
  }
  // sqrt(a*x^2+b*x+c) = sqrt(a*(x+h)^2) when b^2-4*a*c = 0.
  if (IsSumRole(s.Pool[first].Role)) {
    std::string square;
    if (!PerfectSquareOfQuadratic(s, ContentText(node), square)) return false;
    const std::string new_text = SimplifyText(s, "sqrt(" + square + ")");
    if (new_text == old_text) return false;
    RewriteFunction(s, slot, new_text,
                    "97#The radical @" + old_text +
                        "@ can be simplified by first factoring its contents like this:");
    return true;
  }
  // sqrt(a*b) = sqrt(a)*sqrt(b), for a product with no fraction in it. It holds only while at
  // most one factor can be negative: sqrt((x+2)*(x-2)) at x = -3 is sqrt(5), but
  // sqrt(x+2)*sqrt(x-2) there is i*sqrt(5)*i = -sqrt(5).
  if (!HoldsProduct(s, slot) || HoldsFraction(s, slot)) return false;
  int maybe_negative = 0;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    if (!KnownNonNegative(s, c)) ++maybe_negative;
  }
  if (maybe_negative > 1) return false;
  std::string new_text;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    const std::string factor = s.Pool[c].Text == "-" ? "-1" : s.Pool[c].Text;
    new_text += (s.Pool[c].Role == kRoleDenominator ? "/" : "*") + ("sqrt(" + factor + ")");
  }
  new_text.erase(0, 1);
  RewriteFunction(s, slot, new_text,
                  "98#Simplify using the rule that @" + old_text + "=" + new_text + "@ .");
  return true;
}

bool SplitFractionRoot(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (!IsSquareRoot(node)) return false;
  const NodeIdx first = node.FirstChild;
  if (first == kNoNode || s.Pool[first].Role != kRoleNumerator) return false;
  const NodeIdx second = s.Pool[first].Next;
  if (second == kNoNode || s.Pool[second].Role != kRoleDenominator ||
      s.Pool[second].Next != kNoNode) {
    return false;
  }
  // sqrt(a/b) = sqrt(a)/sqrt(b) fails only for a >= 0 and b < 0 (sqrt(1/(-1)) is i, but
  // sqrt(1)/sqrt(-1) is -i): the denominator must be known not to be negative, or the numerator
  // a negative number.
  if (!KnownNonNegative(s, second) && !IsNegativeNumber(s, s.Pool[first])) return false;
  const std::string new_text =
      "sqrt(" + NormalisedText(s, first) + ")/sqrt(" + NormalisedText(s, second) + ")";
  RewriteFunction(s, slot, new_text, "94#Simplify by splitting up the square root of a fraction.");
  return true;
}

bool Rationalise(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Role != kRoleDenominator) continue;
    const std::string x = NumberArgument(s, factor);
    if (x.empty()) continue;
    // Numerator and denominator multiplied by the root: 1/sqrt(a) = sqrt(a)/a.
    s.Pool[c].Role = kRoleNumerator;
    RegenerateOne(s, n);
    std::string text = ContentText(s.Pool[n]) + (x[0] == '-' ? "/(" + x + ")" : "/" + x);
    if (text.rfind("1*", 0) == 0) text.erase(0, 2);
    if (text.rfind("-1*", 0) == 0) text.erase(1, 2);
    RewriteNode(s, slot, text, "93#Simplify by rationalizing the denominator.");
    return true;
  }
  return false;
}

bool CombineSquareRoots(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const std::string x = NumberArgument(s, s.Pool[c]);
    if (x.empty() || !IsPositiveIntegerText(s, x)) continue;
    for (NodeIdx d = s.Pool[c].Next; d != kNoNode; d = s.Pool[d].Next) {
      const std::string y = NumberArgument(s, s.Pool[d]);
      if (y.empty() || !IsPositiveIntegerText(s, y) || s.Pool[d].Role != s.Pool[c].Role) continue;
      // sqrt(a)*sqrt(b) = sqrt(a*b), a 32-bit product.
      const std::int64_t product = std::llround(SafeValue(s, x)) * std::llround(SafeValue(s, y));
      if (product >= static_cast<std::int64_t>(kIntegerBound)) {
        throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
      }
      std::vector<std::string> up;
      std::vector<std::string> down;
      for (NodeIdx f = s.Pool[n].FirstChild; f != kNoNode; f = s.Pool[f].Next) {
        if (f == d) continue;
        const std::string text = f == c ? "sqrt(" + std::to_string(product) + ")" : s.Pool[f].Text;
        (s.Pool[f].Role == kRoleDenominator ? down : up).push_back(text);
      }
      RewriteNode(s, slot, JoinFactors(up, down), "95#Simplify by combining the square roots.");
      return true;
    }
  }
  return false;
}

bool RadicalToExponent(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (!IsSquareRoot(factor)) continue;
    const std::string x = ContentText(factor);
    if (IsNumberToken(s, x)) continue;
    const std::string as_base = BaseText(s, x);
    bool shared = false;
    for (NodeIdx d = s.Pool[n].FirstChild; d != kNoNode && !shared; d = s.Pool[d].Next) {
      if (d == c) continue;
      const ExprNode& other = s.Pool[d];
      const NodeIdx base =
          other.Kind == kKindPower ? s.Pool[other.FirstChild].Next : static_cast<NodeIdx>(d);
      const std::string& text = s.Pool[base].Text;
      shared = text == x || text == as_base;
    }
    if (!shared) continue;
    const std::string old_text = factor.Text;
    NodeIdx& where = SlotOf(s, c);
    s.Pool[where].Kind = kKindSumOrProduct;
    ReplaceNodeContents(s, where, as_base + "^(1/2)", true);
    s.Message = "265#The radical @" + old_text +
                "@ can be combined with other factors by first writing it in exponential form "
                "like this:";
    return true;
  }
  return false;
}

}  // namespace tavimor
