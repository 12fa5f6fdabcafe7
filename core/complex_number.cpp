// Complex numbers in floating point: their arithmetic, their elementary functions on the principal
// branch, and the complex value of a whole tree.
#include "core/complex_number.h"

#include <cmath>
#include <string>

#include "core/errors.h"
#include "core/evaluate.h"
#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/number_format.h"

namespace tavimor {

namespace {

[[noreturn]] void InvalidCall() {
  throw RunTimeError(RunTimeErrorNumber::InvalidCall, "Invalid procedure call or argument");
}

[[noreturn]] void DivisionByZero() {
  throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
}

Complex Checked(Complex z) {
  if (std::isnan(z.real()) || std::isnan(z.imag())) InvalidCall();
  if (std::isinf(z.real()) || std::isinf(z.imag())) {
    throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
  }
  return z;
}

const Complex kI(0.0, 1.0);

bool IsUnitLetter(const Session& s, char letter) {
  return (letter == 'i' && s.ComplexForm == 1) || (letter == 'j' && s.ComplexForm == 2);
}

Complex LeafValue(Session& s, const ExprNode& node) {
  if (node.Kind == kKindNumber) {
    if (node.Text == "+") return 1.0;
    if (node.Text == "-") return -1.0;
    return ParseNumberText(node.Text, s.Dp()).value_or(0.0);
  }
  if (node.Kind != kKindVariable || node.Text.empty()) return 0.0;
  if (IsUnitLetter(s, node.Text[0])) return kI;
  return ValueAsNumber(s, VarValue(s, node.Text[0]));
}

Complex ValueOf(Session& s, NodeIdx n);

// The value the children of a node make together.
Complex ContentValue(Session& s, NodeIdx n) {
  const NodePool& pool = s.Pool;
  const NodeIdx first = pool[n].FirstChild;
  Complex a = 0.0;
  switch (ContentShapeOf(pool, n)) {
    case Shape::Sum:
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const Complex v = ValueOf(s, c);
        a += pool[c].Role == kRoleMinus ? -v : v;
      }
      return a;
    case Shape::Product:
      a = 1.0;
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const Complex v = ValueOf(s, c);
        if (pool[c].Role == kRoleDenominator) {
          if (v == Complex(0.0)) DivisionByZero();
          a /= v;
        } else {
          a *= v;
        }
      }
      return a;
    case Shape::Power: {
      const Complex exponent = ValueOf(s, first);
      const Complex base = ValueOf(s, pool[first].Next);
      // A real power of a negative number with an odd root is real: (-8)^(1/3) = -2.
      if (base.imag() == 0.0 && base.real() < 0.0 && exponent.imag() == 0.0) {
        const double e = exponent.real();
        for (int k = 1; k < 100 && e != std::nearbyint(e); ++k) {
          const double m = e * k;
          if (std::fabs(m - std::nearbyint(m)) < 1e-9) {
            if (k % 2 == 1) return -std::pow(-base.real(), e);
            break;
          }
        }
      }
      return ComplexPowerValue(base.real(), base.imag(), exponent.real(), exponent.imag());
    }
    case Shape::OneChild: return ValueOf(s, first);
    case Shape::Number:
    case Shape::Letter:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::Broken: break;
  }
  return first == kNoNode ? 0.0 : ValueOf(s, first);
}

Complex ValueOf(Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (node.FirstChild == kNoNode) return LeafValue(s, node);
  const Complex a = ContentValue(s, n);
  const Shape shape = ShapeOf(s.Pool, n);
  if (shape != Shape::Function && shape != Shape::SquareRoot) return Checked(a);
  const std::string text = s.Pool[n].Text;
  return Checked(ComplexFunction(s, text.substr(0, text.find('(')), a));
}

}  // namespace

Complex ComplexAdd(double a, double b, double c, double d) { return {a + c, b + d}; }
Complex ComplexSubtract(double a, double b, double c, double d) { return {a - c, b - d}; }
Complex ComplexMultiply(double a, double b, double c, double d) {
  return {a * c - b * d, a * d + b * c};
}
Complex ComplexDivide(double a, double b, double c, double d) {
  const double q = c * c + d * d;
  if (q == 0.0) DivisionByZero();
  return {(a * c + b * d) / q, (b * c - a * d) / q};
}
Complex ComplexScale(double a, double b, double factor) { return {a * factor, b * factor}; }
Complex ComplexNegate(double a, double b) { return {-a, -b}; }
double ComplexAbs(double a, double b) { return std::hypot(a, b); }
Complex ComplexSqrt(double a, double b) { return std::sqrt(Complex(a, b == 0.0 ? 0.0 : b)); }
Complex ComplexFromPolar(double magnitude, double angle) {
  return {magnitude * std::cos(angle), magnitude * std::sin(angle)};
}
Complex ComplexExp(double a, double b) { return ComplexFromPolar(std::exp(a), b); }
Complex ComplexLog(double a, double b) {
  if (a == 0.0 && b == 0.0) InvalidCall();
  return {std::log(ComplexAbs(a, b)), std::atan2(b == 0.0 ? 0.0 : b, a)};
}
Complex ComplexSin(double a, double b) { return std::sin(Complex(a, b)); }
Complex ComplexCos(double a, double b) { return std::cos(Complex(a, b)); }
Complex ComplexTan(double a, double b) { return std::tan(Complex(a, b)); }
// arcsin z = -i*ln(i*z + sqrt(1-z^2)), arccos z = pi/2 - arcsin z, arctan z = i/2*ln((i+z)/(i-z)).
Complex ComplexArcsin(double a, double b) { return std::asin(Complex(a, b == 0.0 ? 0.0 : b)); }
Complex ComplexArccos(double a, double b) { return std::acos(Complex(a, b == 0.0 ? 0.0 : b)); }
Complex ComplexArctan(double a, double b) {
  if (a == 0.0 && std::fabs(b) == 1.0) InvalidCall();  // arctan(+-i) has no value
  return std::atan(Complex(a, b));
}

Complex ComplexPowerValue(double a, double b, double c, double d) {
  if (a == 0.0 && b == 0.0) {
    if (c > 0.0) return 0.0;
    if (c == 0.0 && d == 0.0) return 1.0;
    DivisionByZero();
  }
  // Whole powers by repeated multiplication, so that (1+i)^2 is 2i and not 1E-16+2i.
  if (d == 0.0 && c == std::nearbyint(c) && std::fabs(c) <= 64.0) {
    Complex result = 1.0;
    const Complex base(a, b);
    for (int k = 0; k < static_cast<int>(std::fabs(c)); ++k) result *= base;
    return c < 0.0 ? Complex(1.0) / result : result;
  }
  const double r = ComplexAbs(a, b);
  const double theta = std::atan2(b, a);
  return ComplexFromPolar(std::pow(r, c) * std::exp(-d * theta), d * std::log(r) + c * theta);
}

Complex ComplexFunction(const Session& s, const std::string& name, Complex a) {
  const double in = s.Degrees ? kDegreeFactor : 1.0;
  const double out = s.Degrees ? 1.0 / kDegreeFactor : 1.0;
  const Complex angle = a * in;
  if (name == "sin") return ComplexSin(angle.real(), angle.imag());
  if (name == "cos") return ComplexCos(angle.real(), angle.imag());
  if (name == "tan") return ComplexTan(angle.real(), angle.imag());
  if (name == "cot" || name == "sec" || name == "csc") {
    const Complex v = name == "cot"   ? ComplexTan(angle.real(), angle.imag())
                      : name == "sec" ? ComplexCos(angle.real(), angle.imag())
                                      : ComplexSin(angle.real(), angle.imag());
    return ComplexDivide(1.0, 0.0, v.real(), v.imag());
  }
  if (name == "arcsin") return ComplexArcsin(a.real(), a.imag()) * out;
  if (name == "arccos") return ComplexArccos(a.real(), a.imag()) * out;
  if (name == "arctan") return ComplexArctan(a.real(), a.imag()) * out;
  if (name == "exp") return ComplexExp(a.real(), a.imag());
  if (name == "sqrt") return ComplexSqrt(a.real(), a.imag());
  if (name == "ln") return ComplexLog(a.real(), a.imag());
  if (name == "log") return ComplexLog(a.real(), a.imag()) / std::log(10.0);
  return a;
}

int EvaluateComplex(Session& s, NodeIdx n, double& re, double& im) {
  re = 0.0;
  im = 0.0;
  try {
    const Complex v = ValueOf(s, n);
    re = v.real();
    im = v.imag();
  } catch (const RunTimeError&) {
    return 0;
  }
  if (im == 0.0) return 1;
  return re == 0.0 ? 2 : 3;
}

}  // namespace tavimor
