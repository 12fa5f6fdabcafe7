// The rules of a power node: trivial powers, negative exponents, powers of powers, of exp, of
// square roots and of products, numeric powers and roots of numbers.
#include "simplify/power_rules.h"

#include <cmath>
#include <cstdlib>

#include "core/errors.h"
#include "core/evaluate.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "core/temp_tree.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/complex_rules.h"
#include "simplify/factor_texts.h"

namespace tavimor {

namespace {

// What the rules read off a power p = b^e.
struct Power {
  NodeIdx node = kNoNode;
  NodeIdx exponent = kNoNode;
  NodeIdx base = kNoNode;
  std::string p;   // the whole power
  std::string e;   // the exponent, brackets that only group it taken off
  std::string b;   // the base, brackets around one quantity taken off
  std::string et;  // the exponent as an operand: bracketed when compound
  std::string bt;  // the base as an operand: bracketed when compound
  bool e_number = false;
  bool b_number = false;
};

// A rule's outcome: the text the power becomes and the message.
struct Outcome {
  std::string text;
  std::string message;
};

using PowerRule = bool (*)(Session&, const Power&, Outcome&);

bool Is(const Session& s, const std::string& text, double value) {
  return IsNumberToken(s, text) && SafeValue(s, text) == value;
}

std::string Fact(const std::string& help, const std::string& property, const Power& w,
                 const std::string& result) {
  return help + "#Simplify using the property of " + property + " that @" + w.p + "=" + result +
         "@ .";
}

bool IsWhole(double value) { return std::isfinite(value) && value == std::nearbyint(value); }

// A value exact work may write: a whole number below the bound of exact arithmetic. 3^40 is
// whole, but its digits do not fit a number's text: it stays a power.
bool IsExact(double value) { return IsWhole(value) && std::fabs(value) < kIntegerBound; }

// 1^x = 1, x^0 = 1, 0^n = 0, x^1 = x, x^(-1) = 1/x, powers of the imaginary unit, e^(i*p) = -1.
bool TrivialPower(Session& s, const Power& w, Outcome& out) {
  if (w.b_number && Is(s, w.b, 1.0)) {
    out = {"1", Fact("248", "exponents", w, "1")};  // 1^x = 1
    return true;
  }
  if (w.e_number && Is(s, w.e, 0.0)) {
    out.text = "1";  // x^0 = 1
    out.message = w.b_number && Is(s, w.b, 0.0)
                      ? "56#Simplify using the property of exponents that @0^0=1@ ."
                      : Fact("55", "exponents", w, "1");
    return true;
  }
  if (w.e_number && w.b_number && Is(s, w.b, 0.0) && SafeValue(s, w.e) > 0.0) {
    out = {"0", Fact("56", "exponents", w, "0")};  // 0^n = 0 for n > 0
    return true;
  }
  if (w.e_number && Is(s, w.e, 1.0)) {
    out = {w.bt, Fact("57", "exponents", w, w.b)};  // x^1 = x
    return true;
  }
  if (w.e_number && Is(s, w.e, -1.0) && s.ExponentToReciprocal) {
    // x^(-1) = 1/x; (x^2)^(-1) = 1/x^2, a signed base keeps its brackets.
    const std::string result = "1/" + (w.b[0] == '-' ? w.bt : w.b);
    out = {result, Fact("58", "negative exponents", w, result)};
    return true;
  }
  const std::string unit = ImagUnitText(s);
  if (w.b == unit && IsIntegerText(s, w.e)) {
    // i^n by n modulo 4: 1, i, -1, -i.
    const long n = ((std::lround(SafeValue(s, w.e)) % 4) + 4) % 4;
    const std::string results[] = {"1", unit, "-1", "-" + unit};
    out = {results[n], Fact("59", "complex numbers", w, results[n])};
    return true;
  }
  if (s.SpecialE && s.SpecialP && s.ComplexForm >= 1 && s.ComplexForm <= 3) {
    const char* forms[] = {"", "e^(i*p)", "e^(j*p)", "e^(p*sqrt(-1))"};
    if (w.p == forms[s.ComplexForm]) {  // Euler: e^(i*pi) = -1
      out = {"-1", std::to_string(229 + s.ComplexForm) +
                       "#Simplify using the property of complex numbers that @" + w.p + "=-1@ ."};
      return true;
    }
  }
  return false;
}

// x^(-n) = 1/x^n.
bool NegativeExponent(Session& s, const Power& w, Outcome& out) {
  if (!s.ExponentToReciprocal) return false;
  std::string positive = w.e;
  if (!NegatedText(s, positive)) return false;
  const std::string result = "1/" + w.bt + "^" + BaseText(s, positive);
  out = {result, Fact("60", "negative exponents", w, result)};
  return true;
}

// (c^f)^e = c^(e*f).
bool PowerOfPower(Session& s, const Power& w, Outcome& out) {
  const ExprNode& base = s.Pool[w.base];
  if (base.Kind != kKindPower) return false;
  const NodeIdx inner_exponent = base.FirstChild;
  const NodeIdx inner_base = s.Pool[inner_exponent].Next;
  const std::string result =
      OperandText(s, inner_base) + "^(" + w.et + "*" + OperandText(s, inner_exponent) + ")";
  out = {result, Fact("61", "exponents", w, result)};
  return true;
}

// exp(x)^e = exp(e*x).
bool PowerOfExp(Session& s, const Power& w, Outcome& out) {
  const ExprNode& base = s.Pool[w.base];
  if (!IsFunctionNamed(base, "exp")) return false;
  const std::string result = "exp(" + w.et + "*" + BracketIfNeeded(s, ContentText(base)) + ")";
  out = {result, "249#Simplify using the rule that @" + w.p + "=" + result + "@ ."};
  return true;
}

bool HasOtherLetter(const Session& s, const std::string& text) {
  for (std::size_t k = 0; k < text.size(); ++k) {
    if (!IsAsciiLetter(text[k])) continue;
    // The letters of a function name are no quantities.
    std::size_t end = k;
    while (end < text.size() && IsAsciiLetter(text[end])) ++end;
    if (end < text.size() && text[end] == '(' && end - k > 1) {
      k = end;
      continue;
    }
    if (!IsConstantVar(s, text[k])) return true;
  }
  return false;
}

// a^ln(y) = y^ln(a) for a constant a, and the same with log: the logarithm and the base swap.
bool ConstantPowerOfLog(Session& s, const Power& w, Outcome& out) {
  const ExprNode& exponent = s.Pool[w.exponent];
  const bool ln = IsFunctionNamed(exponent, "ln");
  if (!ln && !IsFunctionNamed(exponent, "log")) return false;
  const std::string argument = ContentText(exponent);
  if (!HasOtherLetter(s, argument) || HasOtherLetter(s, w.b)) return false;
  const std::string result = BaseText(s, argument) + "^" + (ln ? "ln(" : "log(") + w.b + ")";
  out = {result, "249#Simplify using the rule that @" + w.p + "=" + result + "@ ."};
  return true;
}

// sqrt(x)^2 = x; sqrt(x)^e = x^(e/2).
bool PowerOfSquareRoot(Session& s, const Power& w, Outcome& out) {
  const ExprNode& base = s.Pool[w.base];
  if (!IsFunctionNamed(base, "sqrt")) return false;
  const std::string x = ContentText(base);
  if (w.e == "2") {
    out = {x, "62#Simplify using the fact that the square and square root cancel: @" + w.p + "=" +
                  x + "@ ."};
    return true;
  }
  const std::string result = BaseText(s, x) + "^(" + w.et + "/2)";
  out = {result, Fact("68", "radicals", w, result)};
  return true;
}

// (a*b)^e = a^e*b^e.
bool PowerOfProduct(Session& s, const Power& w, Outcome& out) {
  const ExprNode& base = s.Pool[w.base];
  if (base.Kind != kKindBracket || !HoldsProduct(s, w.base)) return false;
  if (!s.ProtectedExponent.empty() && w.e.find(s.ProtectedExponent) != std::string::npos) {
    return false;
  }
  std::string result;
  for (NodeIdx c = base.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    result += factor.Role == kRoleDenominator ? "/" : "*";
    if (factor.Kind == kKindPower) {
      const NodeIdx inner_exponent = factor.FirstChild;
      result += OperandText(s, s.Pool[inner_exponent].Next) + "^(" +
                OperandText(s, inner_exponent) + "*" + w.et + ")";
    } else if (factor.Text == "-") {
      result += "(-1)^" + w.et;
    } else if (factor.Text[0] == '-') {
      result += "(" + factor.Text + ")^" + w.et;
    } else {
      result += factor.Text + "^" + w.et;
    }
  }
  if (result[0] == '*') result.erase(0, 1);
  if (result[0] == '/') result = "1" + result;
  out = {result, "63#Simplify by converting a power of products into a product of powers."};
  return true;
}

std::string Evaluated(const Power& w, const std::string& help, const std::string& result) {
  return help + "#Simplify by evaluating the exponential @" + w.p + "->" + result + "@ .";
}

// a^n for numbers a and n, when the value is exact or floats are wanted.
bool NumericPower(Session& s, const Power& w, Outcome& out) {
  if (!w.b_number || !w.e_number) return false;
  const double a = SafeValue(s, w.b);
  const double n = SafeValue(s, w.e);
  if (a == 0.0 && n <= 0.0) throw AppError(kErrorZeroPower, "0 to a non-positive power");
  if (n > 0.0 || IsWhole(n)) {
    if (a < 0.0 && !IsWhole(n)) return false;
    const double value = std::pow(a, n);
    if (!std::isfinite(value) || (!IsExact(value) && !s.ExactToFloat)) return false;
    const std::string result = FormatValue(s, value);
    out = {result, Evaluated(w, "64", result)};
    return true;
  }
  // A negative exponent that is no whole number: 1 over an exact root.
  const int k = DenominatorOf(n);
  if (k <= 0 || std::fabs(n) > 1e6) return false;
  const long m = std::lround(std::fabs(n) * k);
  if (a < 0.0 && k % 2 == 0) return false;
  const double value = std::pow(std::fabs(a), std::fabs(n));
  if (!IsExact(value) && !s.ExactToFloat) return false;
  const bool negative = a < 0.0 && m % 2 == 1;
  const std::string result = (negative ? "-1/" : "1/") + FormatValue(s, value);
  out = {result, Evaluated(w, "307", result)};
  return true;
}

// The exponent as m/k with whole numbers and k of at least 2.
bool WholeFraction(Session& s, const std::string& e, long& m, long& k) {
  const std::size_t slash = e.find('/');
  if (slash == std::string::npos) return false;
  const std::string top = e.substr(0, slash);
  const std::string bottom = e.substr(slash + 1);
  if (!IsIntegerText(s, top) || !IsIntegerText(s, bottom)) return false;
  m = std::lround(SafeValue(s, top));
  k = std::lround(SafeValue(s, bottom));
  return k >= 2;
}

// 8^(1/3) = 2; 8^(2/3) = (8^(1/3))^2 = 2^2.
bool RootOfNumber(Session& s, const Power& w, Outcome& out) {
  long m = 0;
  long k = 0;
  if (!w.b_number || !WholeFraction(s, w.e, m, k)) return false;
  const double a = SafeValue(s, w.b);
  if (a == 0.0) {
    if (m <= 0) throw AppError(kErrorZeroPower, "0 to a non-positive power");
    out = {"0", "266#Simplify using the fact that zero raised to any positive power is zero."};
    return true;
  }
  if (a < 0.0 && k % 2 == 0) return false;
  const double r = (a < 0.0 ? -1.0 : 1.0) * std::pow(std::fabs(a), 1.0 / static_cast<double>(k));
  if (std::fabs(r - std::nearbyint(r)) > 1e-10) return false;
  // The root must be exact: 1E-33^(1/3) is no 0, and 8.0000000001^(1/3) no 2.
  const double whole = std::nearbyint(r);
  if (whole == 0.0 || std::pow(std::fabs(whole), static_cast<double>(k)) != std::fabs(a)) {
    return false;
  }
  const std::string root = FormatValue(s, whole);
  const std::string fact = "@" + w.bt + "^(1/" + std::to_string(k) + ")=" + root + "@ .";
  if (m == 1) {
    out = {root, "308#Simplify using the fact that " + fact};
    return true;
  }
  const std::string power = m < 0 ? "(" + std::to_string(m) + ")" : std::to_string(m);
  out.text = "(" + root + ")^" + power;
  out.message = "308#Simplify using the fact that @" + w.p + "=(" + w.bt + "^(1/" +
                std::to_string(k) + "))^" + power + "@ ,|and that " + fact;
  return true;
}

// (a+b*i)^(c+d*i) evaluated   help 65
bool ComplexPowerRule(Session& s, const Power& w, Outcome& out) {
  return ComplexPower(s, w.node, out.text, out.message);
}

// In their order; the first that fires wins.
constexpr PowerRule kPowerRules[] = {
    &TrivialPower,      &NegativeExponent, &PowerOfPower, &PowerOfExp,   &ConstantPowerOfLog,
    &PowerOfSquareRoot, &PowerOfProduct,   &NumericPower, &RootOfNumber, &ComplexPowerRule,
};

}  // namespace

int DenominatorOf(double value) {
  for (int k = 1; k < 100; ++k) {
    const double m = value * k;
    if (std::fabs(m - std::nearbyint(m)) < 1e-9) return k;
  }
  return 0;
}

bool NegatedText(Session& s, std::string& text) {
  if (text.empty() || text[0] != '-') return false;
  if (text.size() > 1 && IsNumberToken(s, text)) {
    text.erase(0, 1);
    return true;
  }
  const TempTree t(s, text, TempTree::Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  const NodeIdx first = root.FirstChild;
  if (first == kNoNode) return false;
  if (IsProductRole(t[first].Role)) {
    text.erase(0, 1);
    return true;
  }
  if (!IsSumRole(t[first].Role)) return false;
  std::string positive;
  for (NodeIdx c = first; c != kNoNode; c = t[c].Next) {
    if (t[c].Role != kRoleMinus) return false;
    AppendPiece(positive, '+', t[c].Text);
  }
  text = positive;
  return true;
}

bool PowerRules(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  if (s.Pool[n].Kind != kKindPower) return false;
  Power w;
  w.node = n;
  w.exponent = s.Pool[n].FirstChild;
  w.base = s.Pool[w.exponent].Next;
  w.p = s.Pool[n].Text;
  w.e = NormalisedText(s, w.exponent);
  w.b = NormalisedText(s, w.base);
  w.et = OperandText(s, w.exponent);
  w.bt = OperandText(s, w.base);
  w.e_number = IsNumberToken(s, w.e);
  w.b_number = IsNumberToken(s, w.b);
  Outcome out;
  for (const PowerRule rule : kPowerRules) {
    if (!rule(s, w, out)) continue;
    ReplaceNodeContents(s, slot, out.text, true);
    s.Message = out.message;
    return true;
  }
  return false;
}

}  // namespace tavimor
