// Values of functions: exact special values of sin, cos, tan and their inverses, logarithms of
// powers of ten, numeric evaluation, and the constants e, p and d as numbers.
#include "simplify/function_values.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "core/errors.h"
#include "core/evaluate.h"
#include "core/number_text.h"
#include "manipulate/reduce_fraction.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/complex_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/inverse_functions.h"
#include "simplify/radical_rules.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

constexpr double kPi = 3.14159265358979;

std::string SpecialMessage(int help, const std::string& old_text) {
  return std::to_string(help) + "#Simplify using the special value of @" + old_text + "@ .";
}

// One row of the exact table: the angle in degrees and the values of sin, cos, tan ("" where the
// table has none, "pole" for the tangent of 90).
struct SpecialAngle {
  int degrees;
  const char* sin;
  const char* cos;
  const char* tan;
};
constexpr std::array<SpecialAngle, 9> kSpecialAngles = {{
    {0, "0", "1", "0"},
    {30, "1/2", "sqrt(3)/2", "sqrt(3)/3"},
    {45, "sqrt(2)/2", "sqrt(2)/2", "1"},
    {60, "sqrt(3)/2", "1/2", "sqrt(3)"},
    {90, "1", "0", "pole"},
    {120, "", "-1/2", ""},
    {135, "", "-sqrt(2)/2", ""},
    {150, "", "-sqrt(3)/2", ""},
    {180, "", "-1", ""},
}};

// The value of f at a reduced angle from the table; empty when the table has none.
std::string TableValue(const std::string& f, long long degrees) {
  const bool negative = degrees < 0 && f != "cos";
  const long long size = std::llabs(degrees);
  for (const SpecialAngle& row : kSpecialAngles) {
    if (row.degrees != size) continue;
    std::string value = f == "sin" ? row.sin : (f == "cos" ? row.cos : row.tan);
    if (value == "pole") {
      throw AppError(kErrorTangent, "The tangent of an angle for which it is undefined");
    }
    if (value.empty()) return "";
    if (negative && value != "0") value = "-" + value;
    return value;
  }
  return "";
}

// The angle brought to the principal angle: -90 to 90 for sin and tan, 0 to 180 for cos.
long long PrincipalAngle(const std::string& f, long long degrees) {
  long long a = degrees % 360;
  if (a < 0) a += 360;
  if (f == "cos") return a <= 180 ? a : 360 - a;
  if (a <= 90) return a;
  if (f == "sin") return a < 270 ? 180 - a : a - 360;
  return a <= 270 ? a - 180 : a - 360;  // tan
}

// An angle in degrees written in the form of the argument: 30, 30*d or p/6.
std::string AngleText(int code, long long degrees) {
  if (code == 1) return std::to_string(degrees);
  if (code == 2) return std::to_string(degrees) + "*d";
  if (degrees == 0) return "0*p";
  double a = static_cast<double>(degrees);
  double b = 180.0;
  int flag = 0;
  ReduceFraction(a, b, flag);
  const long long top = std::llround(a);
  const long long bottom = std::llround(b);
  std::string text = top == 1 ? "p" : (top == -1 ? "-p" : std::to_string(top) + "*p");
  if (bottom != 1) text += "/" + std::to_string(bottom);
  return text;
}

// sin, cos, tan at an angle of the exact table (help 49 degrees, 50 d-units, 51 p).
bool TrigSpecialValue(Session& s, NodeIdx& slot, const std::string& f) {
  const AngleTerm angle = AngleOfTerm(s, slot);
  const int code = std::abs(angle.code);
  double degrees = 0.0;
  int help = 0;
  if (s.Degrees) {
    if (code != 1) return false;
    degrees = angle.number;
    help = 49;
  } else if (code == 2 && s.SpecialD) {
    degrees = angle.number;
    help = 50;
  } else if (code == 3 && s.SpecialP) {
    degrees = 180.0 * static_cast<double>(angle.a) / static_cast<double>(angle.b);
    help = 51;
  } else {
    return false;
  }
  const double whole = std::nearbyint(degrees);
  if (std::fabs(degrees - whole) > 1e-9 || std::fabs(whole) > 1e9) return false;
  const auto given = static_cast<long long>(whole);
  const long long reduced = PrincipalAngle(f, given);
  const std::string value = TableValue(f, reduced);
  if (value.empty()) return false;
  const std::string old_text = s.Pool[slot].Text;
  if (reduced == given) {
    RewriteFunctionAs(s, slot, value, SpecialMessage(help, old_text));
    return true;
  }
  const std::string principal = f + "(" + AngleText(code, reduced) + ")";
  StepParts parts;
  AddStepPart(parts, "Simplify @" + old_text + "@ by:|");
  AddStepPart(parts, "first reducing the angle to the principal angle: @" + old_text + "=" +
                         principal + "@ .|");
  AddStepPart(parts, "then using the special value of @" + principal + "@ .|");
  AddStepPart(parts, "The result is:");
  RewriteFunctionAs(s, slot, value, "398#" + JoinStepParts(parts));
  return true;
}

// An angle in degrees as the options write it: a number, or a multiple of p.
std::string InverseAngleText(const Session& s, long long degrees) {
  if (s.Degrees) return std::to_string(degrees);
  if (degrees == 0) return "0";
  return AngleText(3, degrees);
}

// arcsin, arccos, arctan at the values of the exact table (help 89, 22, 229).
bool InverseSpecialValue(Session& s, NodeIdx& slot, const std::string& f) {
  if (!s.Degrees && !s.SpecialP) return false;
  std::string x = ContentText(s.Pool[slot]);
  const bool negative = !x.empty() && x[0] == '-';
  if (negative) x.erase(0, 1);
  // The values as they are typed and as the simplify loop writes them (1/2*sqrt(3)).
  const auto is = [&x](const char* typed, const char* sorted) { return x == typed || x == sorted; };
  long long degrees = -1;  // arcsin or arctan of the size of x
  if (f == "arctan") {
    if (x == "0") degrees = 0;
    if (is("sqrt(3)/3", "1/3*sqrt(3)")) degrees = 30;
    if (x == "1") degrees = 45;
    if (x == "sqrt(3)") degrees = 60;
  } else {
    if (x == "0") degrees = 0;
    if (x == "1/2") degrees = 30;
    if (is("sqrt(2)/2", "1/2*sqrt(2)")) degrees = 45;
    if (is("sqrt(3)/2", "1/2*sqrt(3)")) degrees = 60;
    if (x == "1") degrees = 90;
  }
  if (degrees < 0) return false;
  int help = f == "arcsin" ? 89 : (f == "arccos" ? 22 : 229);
  long long result = negative ? -degrees : degrees;
  if (f == "arccos") result = negative ? 90 + degrees : 90 - degrees;
  const std::string old_text = s.Pool[slot].Text;
  RewriteFunctionAs(s, slot, InverseAngleText(s, result), SpecialMessage(help, old_text));
  return true;
}

// 10^n in the number form, n from -10 to 10, matched against the argument of log.
bool LogOfPowerOfTen(const Session& s, const std::string& x, int& n) {
  // Every text below opens with the 1 of its power of ten: others are passed over unformatted.
  if (x.empty() || x[0] != '1') return false;
  for (int k = 1; k <= 10; ++k) {
    const std::string power = FormatValue(s, std::pow(10.0, k));
    if (x == power) {
      n = k;
      return true;
    }
    if (x == "1/" + power) {
      n = -k;
      return true;
    }
  }
  if (x == "1") {
    n = 0;
    return true;
  }
  return false;
}

// The help prefix of the evaluation of each function.
constexpr std::array<std::pair<const char*, const char*>, 10> kEvaluationPrefixes = {{
    {"sin", "53#"},
    {"cos", "54#"},
    {"tan", "373#"},
    {"arcsin", "374#"},
    {"arccos", "375#"},
    {"arctan", "376#"},
    {"log", "377#"},
    {"ln", "378#"},
    {"exp", "379#"},
    {"sqrt", "380#"},
}};

std::string EvaluationPrefix(const std::string& f) {
  for (const auto& [name, prefix] : kEvaluationPrefixes) {
    if (f == name) return prefix;
  }
  return "";
}

double Tangent(double radians) {
  const double value = std::tan(radians);
  if (!std::isfinite(value) || std::fabs(value) >= 1e9) {
    throw AppError(kErrorTangent, "The tangent of an angle for which it is undefined");
  }
  return value;
}

double Trig(const std::string& f, double radians) {
  if (f == "sin") return std::sin(radians);
  if (f == "cos") return std::cos(radians);
  return Tangent(radians);
}

// arcsin through the arctangent, as the tutor has always computed it; arccos is 90 less it.
double Arcsin(double x) {
  if (x == 1.0) return kPi / 2.0;
  if (x == -1.0) return -kPi / 2.0;
  return std::atan(x / std::sqrt(1.0 - x * x));
}

}  // namespace

AngleTerm AngleOfTerm(Session& s, NodeIdx function_node) {
  AngleTerm angle;
  const NodeIdx first = s.Pool[function_node].FirstChild;
  if (first == kNoNode) return angle;
  double sign = 1.0;
  double numerator = 1.0;
  double denominator = 1.0;
  char unit = 0;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    const bool below = factor.Role == kRoleDenominator;
    if (factor.Role != kRoleNone && !IsProductRole(factor.Role)) return angle;
    if (IsPseudoSign(factor) && !below) {
      if (factor.Text == "-") sign = -sign;
      continue;
    }
    if (factor.Kind == kKindNumber && IsNumberToken(s, factor.Text)) {
      const double value = SafeValue(s, factor.Text);
      if (below) {
        if (value == 0.0) return angle;
        denominator *= value;
      } else {
        numerator *= value;
      }
      continue;
    }
    if (factor.Kind == kKindVariable && !below && unit == 0 &&
        (factor.Text == "p" || factor.Text == "d")) {
      unit = factor.Text[0];
      continue;
    }
    return angle;
  }
  const double value = sign * numerator / denominator;
  if (unit == 0) {
    if (s.Pool[first].Role != kRoleNone) return angle;  // a number alone, not a fraction
    angle.code = 1;
    angle.number = value;
  } else if (unit == 'd') {
    if (denominator != 1.0) return angle;
    angle.code = 2;
    angle.number = value;
  } else {
    const double top = sign * numerator;
    if (top != std::nearbyint(top) || denominator != std::nearbyint(denominator) ||
        std::fabs(top) > 1e9 || std::fabs(denominator) > 1e9) {
      return angle;
    }
    angle.code = 3;
    angle.a = std::llround(top);
    angle.b = std::llround(denominator);
    if (angle.b < 0) {
      angle.a = -angle.a;
      angle.b = -angle.b;
    }
  }
  if (value < 0.0) angle.code = -angle.code;
  return angle;
}

bool SpecialValue(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string old_text = node.Text;
  const std::string f = FunctionNameOf(old_text);
  const std::string x = ContentText(node);
  const bool inverse_values = s.EvaluateInverseTrig > 0;
  int help = 0;
  std::string result;
  int power = 0;
  if (old_text == "ln(e)" && s.SpecialE) {
    result = "1";
    help = 47;
  } else if (old_text == "exp(0)") {
    result = "1";
    help = 236;
  } else if (old_text == "ln(1)") {
    result = "0";
    help = 301;
  } else if (f == "log" && LogOfPowerOfTen(s, x, power)) {
    result = std::to_string(power);
    help = 302;
  } else if (old_text == "sin(0)" || old_text == "tan(0)") {
    result = "0";
    help = 48;
  } else if (old_text == "cos(0)") {
    result = "1";
    help = 48;
  } else if (old_text == "arcsin(0)" && inverse_values) {
    result = "0";
    help = 89;
  } else if (old_text == "arctan(0)" && inverse_values) {
    result = "0";
    help = 229;
  } else if (old_text == "arccos(1)" && inverse_values) {
    result = "0";
    help = 22;
  } else if ((f == "sin" || f == "cos" || f == "tan") && !s.ExactToFloat) {
    return TrigSpecialValue(s, slot, f);
  } else if ((f == "arcsin" || f == "arccos" || f == "arctan") && inverse_values &&
             !s.ExactToFloat) {
    return InverseSpecialValue(s, slot, f);
  } else if (s.SpecialP && ((old_text == "exp(i*p)" && s.ComplexForm == 1) ||
                            (old_text == "exp(j*p)" && s.ComplexForm == 2) ||
                            (old_text == "exp(p*sqrt(-1))" && s.ComplexForm == 3))) {
    result = "-1";
    help = 232 + s.ComplexForm;
  } else {
    return false;
  }
  RewriteFunctionAs(s, slot, result, SpecialMessage(help, old_text));
  return true;
}

bool EvaluateFunction(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string old_text = node.Text;
  const std::string f = FunctionNameOf(old_text);
  const std::string prefix = EvaluationPrefix(f);
  if (prefix.empty()) return false;
  if (f == "sqrt") return SquareRootValue(s, slot);
  const bool inverse = f == "arcsin" || f == "arccos" || f == "arctan";
  if (inverse && s.EvaluateInverseTrig == 0) return false;
  const bool trig = f == "sin" || f == "cos" || f == "tan";
  const std::string x = ContentText(node);
  // The narration, written only when the function is evaluated.
  const auto message = [&prefix, &old_text] {
    return prefix + "Simplify this expression by evaluating @" + old_text + "@ .";
  };
  // A complex argument is evaluated with complex numbers.
  if (s.ComplexForm > 0) {
    double re = 0.0;
    double im = 0.0;
    std::string value;
    const int kind = ClassifyComplexArgument(s, slot, re, im);
    if (kind == kPureImaginary || kind == kComplexNumber) {
      if (!FunctionOfComplex(s, f, re, im, value)) return false;
      RewriteFunctionAs(s, slot, value, message());
      return true;
    }
  }
  double result = 0.0;
  if (!IsNumberToken(s, x)) {
    if (!trig || !s.ExactToFloat || s.Degrees) return false;
    const AngleTerm angle = AngleOfTerm(s, slot);
    const int code = std::abs(angle.code);
    if (code == 2 && s.SpecialD) {
      result = Trig(f, angle.number * kDegreeFactor);
    } else if (code == 3 && s.SpecialP) {
      result = Trig(f, static_cast<double>(angle.a) / static_cast<double>(angle.b) * kPi);
    } else {
      return false;
    }
  } else {
    const double v = SafeValue(s, x);
    if (v == 0.0 && f == "log") throw AppError(kErrorLogZero, "The logarithm of 0");
    if (v == 0.0 && f == "ln") throw AppError(kErrorLnZero, "The natural logarithm of 0");
    if (IsIntegerText(s, x) && !s.ExactToFloat) return false;
    // ln(-0.5) = ln(0.5)+pi*i, arcsin(1.5) and arccos(1.5) are complex.
    const bool complex_value = ((f == "log" || f == "ln") && v < 0.0) ||
                               ((f == "arcsin" || f == "arccos") && std::fabs(v) > 1.0);
    if (complex_value && s.ComplexForm > 0) {
      std::string value;
      if (!FunctionOfComplex(s, f, v, 0.0, value)) return false;
      RewriteFunctionAs(s, slot, value, message());
      return true;
    }
    if ((f == "log" || f == "ln") && v < 0.0) return false;
    if ((f == "arcsin" || f == "arccos") && std::fabs(v) > 1.0) {
      s.HelpNumber = static_cast<std::int16_t>(f == "arcsin" ? 374 : 375);
      return false;
    }
    const double to_unit = s.Degrees ? kDegreeFactor : 1.0;
    if (trig) {
      result = Trig(f, v * to_unit);
    } else if (f == "arcsin") {
      result = Arcsin(v) / to_unit;
    } else if (f == "arccos") {
      result = (kPi / 2.0 - Arcsin(v)) / to_unit;
    } else if (f == "arctan") {
      result = std::atan(v) / to_unit;
    } else if (f == "ln") {
      result = std::log(v);
    } else if (f == "log") {
      result = std::log10(v);
    } else {
      result = std::exp(v);
    }
  }
  if (!std::isfinite(result)) throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
  RewriteFunctionAs(s, slot, FormatValue(s, result), message());
  return true;
}

bool ConstantToNumber(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindVariable || node.Role == kRoleBase || !s.ExactToFloat) return false;
  std::string number;
  std::string message;
  if (node.Text == "e" && s.SpecialE) {
    number = "2" + s.DecimalPoint + "71828182845905";
    message = "92#Simplify by evaluating the number e.";
  } else if (node.Text == "p" && s.SpecialP) {
    number = "3" + s.DecimalPoint + "14159265358979";
    message = "92#Simplify by evaluating the number pi.";
  } else if (node.Text == "d" && s.SpecialD && !s.Degrees) {
    number = "1" + s.DecimalPoint + "74532925199433E-02";
    message = "400#Simplify by converting from degrees to radians.";
  } else {
    return false;
  }
  ReplaceNodeContents(s, slot, number, true);
  s.Message = message;
  return true;
}

}  // namespace tavimor
