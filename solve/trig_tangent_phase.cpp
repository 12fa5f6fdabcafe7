// Sines and cosines of one angle with shifts: A*sin(X+B)+C*cos(X+D)=0 by the tangent, and
// A*sin(X+B)+C*cos(X+D)=E by a single sine with a phase angle.
#include <string>

#include "core/scoped_override.h"
#include "core/text_predicates.h"
#include "simplify/simplify_driver.h"
#include "simplify/trig_identities.h"
#include "solve/alias_solve.h"
#include "solve/trig_forms.h"

namespace tavimor {

namespace {

std::string SinOf(const std::string& x) { return "sin(" + x + ")"; }
std::string CosOf(const std::string& x) { return "cos(" + x + ")"; }

// S*sin(X)+C*cos(X) as text.
std::string SinCosSum(Session& s, const std::string& x, const std::string& sin_coef,
                      const std::string& cos_coef) {
  if (sin_coef == "0") return cos_coef == "0" ? "0" : TimesText(s, cos_coef, CosOf(x));
  if (cos_coef == "0") return TimesText(s, sin_coef, SinOf(x));
  const std::string cos_term = TimesText(s, cos_coef, CosOf(x));
  return TimesText(s, sin_coef, SinOf(x)) + (cos_term.front() == '-' ? "" : "+") + cos_term;
}

// X+P, or X-P for a P that starts with a minus, X alone for P "0".
std::string ShiftedAngle(const std::string& x, const std::string& p) {
  if (p == "0") return x;
  return x + (p.front() == '-' ? "" : "+") + p;
}

std::string SimplifiedCombining(Session& s, const std::string& text) {
  ScopedOverride mode(s.TrigMode, kTrigCombine);
  return SimplifyText(s, text);
}

// The left side with the alias written back as the angle, told by 184; false unless a hint.
bool AngleBack(Session& s, SolveRun& run, const TrigEquation& eq) {
  if (!eq.alias) return false;
  run.SavedLeft = WithAngle(s, run.SavedLeft, eq);
  run.SavedRight = WithAngle(s, run.SavedRight, eq);
  return TrigStep(s, "184#Now replace back the alias " + eq.x + " with the angle.", run.SavedLeft,
                  run.SavedRight);
}

// A cosine of X alone is left: C*cos(X) stands for the side, and the driver undoes it.
FormStatus CosineAlone(Session& s, SolveRun& run, const TrigEquation& eq,
                       const std::string& cos_coef, const std::string& right) {
  run.SavedLeft = cos_coef == "0" ? "0" : TimesText(s, cos_coef, CosOf(eq.x));
  run.SavedRight = right;
  AngleBack(s, run, eq);
  return FormStatus::FormChanged;
}

// (S)/(C) or (C)/(S), read as a tangent of an angle a with its sign: then S*sin(X)+C*cos(X) is
// one function of X and a. Only for coefficients that hold a sine or cosine themselves.
bool TryTanForm(Session& s, const std::string& x, const std::string& sin_coef,
                const std::string& cos_coef, std::string& raw, std::string& result) {
  if (sin_coef.find("sin(") == std::string::npos && sin_coef.find("cos(") == std::string::npos &&
      cos_coef.find("sin(") == std::string::npos && cos_coef.find("cos(") == std::string::npos) {
    return false;
  }
  for (int order = 0; order < 2; ++order) {
    const std::string& top = order == 0 ? sin_coef : cos_coef;
    const std::string& bottom = order == 0 ? cos_coef : sin_coef;
    std::string ratio = SimplifiedCombining(s, "(" + top + ")/(" + bottom + ")");
    const bool minus = NegatedIfNegative(ratio);
    if (ratio.rfind("tan(", 0) != 0 || FunctionArgument(ratio).empty() ||
        "tan(" + FunctionArgument(ratio) + ")" != ratio) {
      continue;
    }
    const std::string a = FunctionArgument(ratio);
    if (order == 0) {
      // S = k*sin(a)*sign, C = k*cos(a): S*sin(X)+C*cos(X) = k*cos(X-sign*a)
      raw = "(" + cos_coef + ")/cos(" + a + ")";
      const std::string size = SimplifyText(s, raw);
      const std::string angle = x + (minus ? "+" : "-") + a;
      raw = TimesText(s, "(" + raw + ")", CosOf(angle));
      result = TimesText(s, size, CosOf(angle));
    } else {
      // C = k*sin(a)*sign, S = k*cos(a): S*sin(X)+C*cos(X) = k*sin(X+sign*a)
      raw = "(" + sin_coef + ")/cos(" + a + ")";
      const std::string size = SimplifyText(s, raw);
      const std::string angle = x + (minus ? "-" : "+") + a;
      raw = TimesText(s, "(" + raw + ")", SinOf(angle));
      result = TimesText(s, size, SinOf(angle));
    }
    return true;
  }
  return false;
}

}  // namespace

std::string ExpandShifts(Session& s, const std::string& side, const std::string& x, bool& shifted) {
  const AngleSum sum = SplitAngleSum(s, side, x);
  std::vector<std::string> terms;
  for (std::size_t i = 0; i < sum.terms.size(); ++i) {
    const int row = sum.row_of_term[i];
    if (row < 0 || sum.rows[static_cast<std::size_t>(row)].shift == "0") {
      terms.push_back(sum.terms[i]);
      continue;
    }
    const TrigRow& r = sum.rows[static_cast<std::size_t>(row)];
    const std::string expanded = ExpandAngleSum(s, x, r.coefficient, r.function, r.shift);
    TrigLine(
        s,
        "206#Use the sum-of-angles trig identity to replace @" + r.term + "->" + expanded + "@ .",
        false);
    terms.push_back(expanded);
    shifted = true;
  }
  if (terms.empty()) return "0";
  std::string joined;
  for (const std::string& term : terms) {
    if (!joined.empty() && term.front() != '-') joined += "+";
    joined += term;
  }
  return joined;
}

FormStatus SolveByTangent(Session& s, SolveRun& run, const TrigEquation& eq) {
  const std::string& x = eq.x;
  TrigLine(s,
           "205#This is a trigonometric equation that can be solved by converting it to the form "
           "@A*sin(" +
               x + ")=B*cos(" + x + ")@ .",
           true);
  // 1. The shifts written out.
  bool shifted = false;
  std::string left = ExpandShifts(s, run.SavedLeft, x, shifted);
  std::string right = ExpandShifts(s, run.SavedRight, x, shifted);
  if (shifted && TrigStep(s, "206#The resulting equation is:", left, right)) {
    return FormStatus::FormChanged;
  }
  // 2. The sines on the left, the cosines on the right.
  const AngleCoefficients c = SplitByAngle(s, SimplifyText(s, "(" + left + ")-(" + right + ")"), x);
  const std::string sin_coef = c.SinCoef;
  const std::string cos_coef = SimplifyText(s, "0-(" + c.CosCoef + ")");
  if (sin_coef == "0") return CosineAlone(s, run, eq, c.CosCoef, "0");
  const std::string gathered_left = TimesText(s, sin_coef, SinOf(x));
  const std::string gathered_right =
      cos_coef == "0" ? std::string("0") : TimesText(s, cos_coef, CosOf(x));
  if (gathered_left != left || gathered_right != right) {
    left = gathered_left;
    right = gathered_right;
    if (TrigStep(s,
                 "207#Gather all sin(" + x + ") terms on the left side and all cos(" + x +
                     ") terms on the right side.",
                 left, right)) {
      return FormStatus::FormChanged;
    }
  }
  // 3. Divided by cos(X) and by the sine's coefficient.
  left = SinOf(x) + "/" + CosOf(x);
  right = SimplifyText(s, "(" + cos_coef + ")/(" + sin_coef + ")");
  if (TrigStep(s, "208#Solve for @" + left + "@ .", left, right)) return FormStatus::FormChanged;
  // 4. The tangent.
  left = "tan(" + x + ")";
  right = SimplifiedCombining(s, right);
  if (TrigStep(s, "209#Write @" + SinOf(x) + "/" + CosOf(x) + "->" + left + "@ .", left, right)) {
    return FormStatus::FormChanged;
  }
  // 5. The arctangent.
  const std::string old = "arctan(" + right + ")";
  right = SimplifyText(s, old);
  left = x;
  std::string message = "210#Take the arctan of both sides.";
  if (right.rfind("-arctan", 0) == 0) {
    message += "  Note that on the RHS the - sign can be moved to the front.";
  } else if (right.rfind("arctan", 0) != 0) {
    message += "  Note that @" + old +
               "@ has many values.  The value shown on the RHS is the principal value.";
  }
  if (TrigStep(s, message, left, right)) return FormStatus::FormChanged;
  run.SavedLeft = left;
  run.SavedRight = right;
  // 6. The angle for its alias.
  AngleBack(s, run, eq);
  return FormStatus::FormChanged;
}

FormStatus SolveByPhaseAngle(Session& s, SolveRun& run, const TrigEquation& eq) {
  const std::string& x = eq.x;
  TrigLine(s,
           "180#This is a trigonometric equation that can be solved by converting it to the form "
           "@A*sin(" +
               x + "+B)=C@ .",
           true);
  // 1. The shifts on the left written out.
  bool shifted = false;
  std::string left = ExpandShifts(s, run.SavedLeft, x, shifted);
  std::string right = run.SavedRight;
  if (shifted && TrigStep(s, "206#The resulting equation is:", left, right)) {
    return FormStatus::FormChanged;
  }
  // 2. The coefficients; a ratio that is a tangent makes one function at once.
  const AngleCoefficients c = SplitByAngle(s, left, x);
  std::string sin_coef = c.SinCoef;
  std::string cos_coef = c.CosCoef;
  // With no sine left the side is a cosine of X alone, and the driver undoes it.
  if (sin_coef == "0") return CosineAlone(s, run, eq, cos_coef, right);
  std::string raw;
  std::string single;
  if (cos_coef != "0" && TryTanForm(s, x, sin_coef, cos_coef, raw, single)) {
    if (TrigStep(s,
                 "206#Get this form by applying a sum-of-angles trig identity on the "
                 "left-hand-side.",
                 raw, right) ||
        TrigStep(s, "180#Simplify the left-hand-side.", single, right)) {
      return FormStatus::FormChanged;
    }
    run.SavedLeft = single;
    run.SavedRight = right;
    AngleBack(s, run, eq);
    return FormStatus::FormChanged;
  }
  // 3. A sum as a coefficient is grouped; a negative sine coefficient is made positive.
  const bool grouped = IsSumText(s, sin_coef) || IsSumText(s, cos_coef);
  const bool negated = !IsSumText(s, sin_coef) && NegatedIfNegative(sin_coef);
  if (negated) {
    cos_coef = SimplifyText(s, "-(" + cos_coef + ")");
    right = SimplifyText(s, "-(" + right + ")");
  }
  // 4. Told when terms were gathered or the signs changed.
  const bool several = c.sin_terms > 1 || c.cos_terms > 1;
  if (several || negated) {
    const std::string positive =
        "It is helpful to multiply the equation through by -1 so that "
        "the coefficient of @" +
        SinOf(x) + "@ is positive.";
    std::string message;
    if (!several) {
      message = "180#" + positive;
    } else {
      message =
          grouped ? "180#Group all the sin(" + x + ") terms together and all the cos(" + x +
                        ") terms together.  "
                  : "180#Combine all the sin(" + x + ") terms and all the cos(" + x + ") terms.  ";
      if (negated) message += positive;
    }
    if (TrigStep(s, message, SinCosSum(s, x, sin_coef, cos_coef), right)) {
      return FormStatus::FormChanged;
    }
  }
  // 5. The size and the phase angle. A coefficient of sin whose sign is not known keeps its own
  // sign in the size: S*sin(X)+C*cos(X) = S*sqrt(1+(C/S)^2)*sin(X+arctan(C/S)) for any S.
  const std::string size =
      IsNumericText(s, sin_coef)
          ? SimplifyText(s, "sqrt((" + sin_coef + ")^2+(" + cos_coef + ")^2)")
          : SimplifyText(s, "(" + sin_coef + ")*sqrt(1+((" + cos_coef + ")/(" + sin_coef + "))^2)");
  std::string phase = SimplifiedCombining(s, "arctan((" + cos_coef + ")/(" + sin_coef + "))");
  // 6. A negative sine coefficient turns the phase by half a turn.
  if (IsNegativeNumericText(s, sin_coef)) {
    std::string half_turn = "p";
    if (s.Degrees) {
      half_turn = "180";
    } else if (!s.SpecialP) {
      half_turn = s.Dp() == ',' ? "3,14159265358979" : "3.14159265358979";
    }
    const char* sign = IsNegativeNumericText(s, cos_coef) ? "+" : "-";
    phase = SimplifyText(s, "(" + phase + ")" + sign + half_turn);
  }
  // 7. One sine with the phase angle.
  left = TimesText(s, size, SinOf(ShiftedAngle(x, phase)));
  if (TrigStep(s,
               "263#Combine the sin and cos into a sin with a phase angle.  (Press F1 for more "
               "info.)",
               left, right)) {
    return FormStatus::FormChanged;
  }
  run.SavedLeft = left;
  run.SavedRight = right;
  // 8. The angle for its alias.
  AngleBack(s, run, eq);
  return FormStatus::FormChanged;
}

}  // namespace tavimor
