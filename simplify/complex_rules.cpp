// Complex numbers in the tree: recognising a+b*unit, products and quotients of such numbers,
// their powers, and functions at complex arguments, each written exactly where it can be.
#include "simplify/complex_rules.h"

#include <cmath>
#include <vector>

#include "core/complex_number.h"
#include "core/node_queries.h"
#include "core/node_shape.h"
#include "core/number_format.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/factor_texts.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

constexpr double kIntegerBound = 2147483648.0;  // parts of exact arithmetic stay below 2^31

bool IsUnitNode(const Session& s, NodeIdx n) {
  if (s.ComplexForm <= 0) return false;
  const ExprNode& node = s.Pool[n];
  if (s.ComplexForm == 3) return node.Kind == kKindFunction && node.Text == "sqrt(-1)";
  return node.Kind == kKindVariable && node.Text == ImagUnitText(s);
}

bool HasUnit(const Session& s, NodeIdx n) {
  if (IsUnitNode(s, n)) return true;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (HasUnit(s, c)) return true;
  }
  return false;
}

bool IsWhole(double v) { return v == std::nearbyint(v) && std::fabs(v) < kIntegerBound; }
bool IsWhole(Complex z) { return IsWhole(z.real()) && IsWhole(z.imag()); }

// What a number made of terms and factors reads: its value, and whether it has a real and an
// imaginary term.
struct Reading {
  Complex value = 0.0;
  bool real_term = false;
  bool imaginary_term = false;
};

bool ReadNode(Session& s, NodeIdx n, Reading& out);

bool ReadContent(Session& s, NodeIdx n, Reading& out) {
  const NodePool& pool = s.Pool;
  switch (ContentShapeOf(pool, n)) {
    case Shape::Sum:
      out.value = 0.0;
      for (NodeIdx c = pool[n].FirstChild; c != kNoNode; c = pool[c].Next) {
        Reading term;
        if (!ReadNode(s, c, term)) return false;
        out.value += pool[c].Role == kRoleMinus ? -term.value : term.value;
        out.real_term = out.real_term || term.real_term;
        out.imaginary_term = out.imaginary_term || term.imaginary_term;
      }
      return true;
    case Shape::Product: {
      out.value = 1.0;
      bool unit = false;
      for (NodeIdx c = pool[n].FirstChild; c != kNoNode; c = pool[c].Next) {
        const ExprNode& factor = pool[c];
        if (IsPseudoSign(factor)) {
          if (factor.Text == "-") out.value = -out.value;
          continue;
        }
        if (IsUnitNode(s, c) && factor.Role == kRoleNumerator && !unit) {
          unit = true;
          out.value *= Complex(0.0, 1.0);
          continue;
        }
        if (!IsNumberLeaf(factor)) return false;
        const double v = ParseNumberText(factor.Text, s.Dp()).value_or(0.0);
        if (factor.Role == kRoleDenominator) {
          if (v == 0.0) return false;
          out.value /= v;
        } else {
          out.value *= v;
        }
      }
      (unit ? out.imaginary_term : out.real_term) = true;
      return true;
    }
    case Shape::OneChild: return ReadNode(s, pool[n].FirstChild, out);
    case Shape::Number:
    case Shape::Letter:
    case Shape::Power:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::Broken: return false;
  }
  return false;
}

bool ReadNode(Session& s, NodeIdx n, Reading& out) {
  const ExprNode& node = s.Pool[n];
  if (IsUnitNode(s, n)) {
    out.value = Complex(0.0, 1.0);
    out.imaginary_term = true;
    return true;
  }
  if (IsNumberLeaf(node)) {
    const std::optional<double> v = ParseNumberText(node.Text, s.Dp());
    if (!v) return false;
    out.value = *v;
    out.real_term = true;
    return true;
  }
  switch (ShapeOf(s.Pool, n)) {
    case Shape::Sum:
    case Shape::Product:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::OneChild: return node.FirstChild != kNoNode && ReadContent(s, n, out);
    case Shape::Number:
    case Shape::Letter:
    case Shape::Power:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Broken: return false;
  }
  return false;
}

// A factor of a product as ClassifyComplex sees it.
struct Factor {
  NodeIdx node = kNoNode;
  char role = kRoleNumerator;
  int kind = kNotComplex;
  Complex value = 0.0;
  std::string text;
};

// The product of the two, or the first divided by the second; false when the parts are not
// all integers (or the quotient is not whole) and ExactToFloat is off.
bool Combine(const Session& s, const Factor& a, const Factor& b, Complex& result) {
  if (b.role == kRoleDenominator) {
    result = ComplexDivide(a.value.real(), a.value.imag(), b.value.real(), b.value.imag());
  } else {
    result = ComplexMultiply(a.value.real(), a.value.imag(), b.value.real(), b.value.imag());
  }
  const bool exact = IsWhole(a.value) && IsWhole(b.value) && IsWhole(result);
  return exact || s.ExactToFloat;
}

// The help number and the words of a pair that can be combined, or 0.
int PairKind(const Factor& a, const Factor& b, const char*& word) {
  const bool a_number = a.kind >= kRealNumber && a.kind <= kComplexNumber;
  const bool b_number = b.kind >= kRealNumber && b.kind <= kComplexNumber;
  if (!a_number || !b_number || a.role != kRoleNumerator) return 0;
  if (b.role == kRoleDenominator) {
    if (a.kind != kComplexNumber || b.kind != kRealNumber) return 0;
    word = "dividing the real number into the complex number";
    return 28;
  }
  if (a.kind == kRealNumber || b.kind == kRealNumber) {
    if (a.kind != kComplexNumber && b.kind != kComplexNumber) return 0;
    if (a.value == Complex(1.0) || b.value == Complex(1.0)) return 0;  // 1*(a+b*i) says nothing
    word = "distributing over the complex number";
    return 26;
  }
  word = "multiplying complex numbers";
  return 27;
}

// 1/unit -> -unit.
bool UnitInDenominator(Session& s, NodeIdx& slot, const std::vector<Factor>& factors,
                       bool negative) {
  std::size_t unit_at = factors.size();
  for (std::size_t k = 0; k < factors.size(); ++k) {
    if (factors[k].role == kRoleDenominator && IsUnitNode(s, factors[k].node)) {
      unit_at = k;
      break;
    }
  }
  if (unit_at == factors.size()) return false;
  const std::string unit = ImagUnitText(s);
  std::vector<std::string> numerator;
  std::vector<std::string> denominator;
  for (std::size_t k = 0; k < factors.size(); ++k) {
    if (k == unit_at) continue;
    if (factors[k].role == kRoleDenominator) {
      denominator.push_back(factors[k].text);
    } else if (factors[k].text != "1") {
      numerator.push_back(factors[k].text);
    }
  }
  const bool all = !negative && numerator.empty() && denominator.empty();
  numerator.push_back(unit);
  const std::string text = (negative ? "" : "-") + JoinFactors(numerator, denominator);
  const std::string fact = "@" + ReciprocalOfUnit(s) + "=-" + unit + "@ .";
  std::string message;
  if (all) {
    message = "24#Simplify using the property of complex numbers that " + fact;
  } else {
    StepParts parts;
    AddStepPart(parts, "Simplify the term  @" + s.Pool[slot].Text + "@ by:|");
    AddStepPart(parts, "using the property of complex numbers that " + fact + "|");
    AddStepPart(parts, "The result is:");
    message = "25#" + JoinStepParts(parts);
  }
  ReplaceNodeContents(s, slot, text, true);
  s.Message = message;
  return true;
}

}  // namespace

int ClassifyComplex(Session& s, NodeIdx n, double& re, double& im) {
  re = 0.0;
  im = 0.0;
  Reading reading;
  if (!ReadNode(s, n, reading)) return HasUnit(s, n) ? kOtherComplex : kNotComplex;
  re = reading.value.real();
  im = reading.value.imag();
  if (reading.real_term && reading.imaginary_term) return kComplexNumber;
  return reading.imaginary_term ? kPureImaginary : kRealNumber;
}

int ClassifyComplexArgument(Session& s, NodeIdx function, double& re, double& im) {
  re = 0.0;
  im = 0.0;
  Reading reading;
  if (s.Pool[function].FirstChild == kNoNode || !ReadContent(s, function, reading)) {
    return HasUnit(s, function) ? kOtherComplex : kNotComplex;
  }
  re = reading.value.real();
  im = reading.value.imag();
  if (reading.real_term && reading.imaginary_term) return kComplexNumber;
  return reading.imaginary_term ? kPureImaginary : kRealNumber;
}

std::string ComplexNumberText(Session& s, double re, double im) {
  if (im == 0.0) return FormatValue(s, re);
  const std::string unit = ImagUnitText(s);
  const double size = std::fabs(im);
  const std::string imaginary = size == 1.0 ? unit : FormatValue(s, size) + "*" + unit;
  if (re == 0.0) return (im < 0.0 ? "-" : "") + imaginary;
  return FormatValue(s, re) + (im < 0.0 ? "-" : "+") + imaginary;
}

std::string ReciprocalOfUnit(const Session& s) { return "1/" + ImagUnitText(s); }

bool ComplexProductRule(Session& s, NodeIdx& slot) {
  if (!s.ComplexProducts || s.ComplexForm <= 0) return false;
  const NodeIdx n = slot;
  if (ContentShapeOf(s.Pool, n) != Shape::Product) return false;
  std::vector<Factor> factors;
  bool negative = false;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (IsPseudoSign(s.Pool[c])) {
      negative = negative != (s.Pool[c].Text == "-");
      continue;
    }
    Factor f;
    f.node = c;
    f.role = s.Pool[c].Role;
    f.text = s.Pool[c].Text;
    double re = 0.0;
    double im = 0.0;
    f.kind = ClassifyComplex(s, c, re, im);
    f.value = Complex(re, im);
    factors.push_back(f);
  }
  if (UnitInDenominator(s, slot, factors, negative)) return true;
  for (std::size_t a = 0; a < factors.size(); ++a) {
    for (std::size_t b = 0; b < factors.size(); ++b) {
      if (a == b) continue;
      // A pair of numerators is taken in its order, a quotient numerator first.
      if (factors[b].role == kRoleNumerator && b < a) continue;
      const char* word = "";
      const int help = PairKind(factors[a], factors[b], word);
      if (help == 0) continue;
      Complex value;
      if (!Combine(s, factors[a], factors[b], value)) continue;
      const std::string result = ComplexNumberText(s, value.real(), value.imag());
      const char joint = factors[b].role == kRoleDenominator ? '/' : '*';
      const std::string old_text = factors[a].text + joint + factors[b].text;
      // The other factors stay as they are, a factor 1 dropped.
      std::vector<std::string> numerator;
      std::vector<std::string> denominator;
      for (std::size_t k = 0; k < factors.size(); ++k) {
        if (k == b || (k != a && factors[k].text == "1")) continue;
        const std::string t = k == a ? BracketIfNeeded(s, result) : factors[k].text;
        (factors[k].role == kRoleDenominator ? denominator : numerator).push_back(t);
      }
      const std::string text = numerator.size() == 1 && denominator.empty() && !negative
                                   ? result
                                   : (negative ? "-" : "") + JoinFactors(numerator, denominator);
      ReplaceNodeContents(s, slot, text, true);
      s.Message =
          std::to_string(help) + "#Simplify by " + word + " @" + old_text + "->" + result + "@ .";
      return true;
    }
  }
  return false;
}

bool ComplexPower(Session& s, NodeIdx power, std::string& text, std::string& message) {
  if (!s.ComplexProducts || s.ComplexForm <= 0) return false;
  const NodeIdx exponent = s.Pool[power].FirstChild;
  if (exponent == kNoNode) return false;
  const NodeIdx base = s.Pool[exponent].Next;
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  double d = 0.0;
  const int base_kind = ClassifyComplex(s, base, a, b);
  const int exponent_kind = ClassifyComplex(s, exponent, c, d);
  if (base_kind < kRealNumber || base_kind > kComplexNumber) return false;
  if (exponent_kind < kRealNumber || exponent_kind > kComplexNumber) return false;
  if (b == 0.0 && d == 0.0) return false;  // a real power: the rules of real numbers
  if (a == 0.0 && b == 0.0) return false;
  const bool whole_power = d == 0.0 && c >= 0.0 && IsWhole(c) && c <= 64.0;
  const Complex value = ComplexPowerValue(a, b, c, d);
  if (!std::isfinite(value.real()) || !std::isfinite(value.imag())) return false;
  if (whole_power && IsWhole(a) && IsWhole(b) && IsWhole(value)) {
    text = ComplexNumberText(s, value.real(), value.imag());
  } else if (s.ExactToFloat) {
    text =
        FormatValue(s, value.real()) + "+(" + FormatValue(s, value.imag()) + ")*" + ImagUnitText(s);
  } else {
    return false;
  }
  message = "65#Simplify by evaluating the complex exponential @" + s.Pool[power].Text + "->" +
            text + "@ .";
  return true;
}

bool FunctionOfComplex(Session& s, const std::string& name, double re, double im,
                       std::string& text) {
  if (s.ComplexForm <= 0) return false;
  if (!s.ExactToFloat && !(IsWhole(re) && IsWhole(im))) return false;
  Complex value;
  try {
    value = ComplexFunction(s, name, Complex(re, im));
  } catch (const RunTimeError&) {
    return false;
  }
  if (!std::isfinite(value.real()) || !std::isfinite(value.imag())) return false;
  text = ComplexValueText(s, value.real(), value.imag());
  return true;
}

std::string ComplexValueText(Session& s, double re, double im) {
  // Parts below the last figure a number's text holds are rounding: ln(-1) is pi*i, not
  // 1E-17+pi*i.
  const double size = std::hypot(re, im);
  if (std::fabs(re) < 1e-15 * size) re = 0.0;
  if (std::fabs(im) < 1e-15 * size) im = 0.0;
  return ComplexNumberText(s, re, im);
}

}  // namespace tavimor
