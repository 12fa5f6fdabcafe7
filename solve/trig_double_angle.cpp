// Equations where one angle is double the other: A*sin(2X)+B*sin(X)=0 and A*sin(2X)+B*cos(X)=0
// by the double angle and a product, A*cos(2X)+B*cos(X)+C=0 and A*sin(X)+B*cos(2X)+C=0 as a
// quadratic in cos(X) or sin(X).
#include <string>
#include <vector>

#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/trig_forms.h"

namespace tavimor {

namespace {

// The terms that are not "0", joined into a sum.
std::string SumOf(const std::vector<std::string>& terms) {
  std::vector<std::string> kept;
  for (const std::string& term : terms) {
    if (term != "0" && !term.empty()) kept.push_back(term);
  }
  return kept.empty() ? "0" : JoinTerms(kept);
}

std::string Bracketed(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

}  // namespace

// 2*A*sin(X)*cos(X)+B*sin(X) = sin(X)*(B+2*A*cos(X))   help 185 to 188
// 2*A*sin(X)*cos(X)+B*cos(X) = cos(X)*(B+2*A*sin(X))   help 189 to 192
FormStatus SolveDoubleSinSin(Session& s, SolveRun& run, const TrigEquation& eq, bool cosine) {
  const std::string& x = eq.x;
  const std::string sin_x = "sin(" + x + ")";
  const std::string cos_x = "cos(" + x + ")";
  const std::string& a = eq.coefficients.Sin2Coef;
  const std::string& b = cosine ? eq.coefficients.CosCoef : eq.coefficients.SinCoef;
  const std::string single = cosine ? cos_x : sin_x;
  const std::string other = cosine ? sin_x : cos_x;
  TrigLine(s,
           cosine ? "189#This is a trigonometric equation of the form @A*sin(2*" + x + ")+B*cos(" +
                        x + ")=0@ .  The key thing to notice is that one angle is double the other."
                  : "185#This is a trigonometric equation of the form @A*sin(2" + x + ")+B*sin(" +
                        x + ")=0@.  The key thing to notice is that one angle is double the other.",
           true);
  // 1. sin(2X) -> 2*sin(X)*cos(X)
  std::string left = SimplifyText(
      s, SumOf({TimesText(s, a, "2*" + sin_x + "*" + cos_x), TimesText(s, b, single)}));
  if (TrigStep(s,
               std::string(cosine ? "190" : "186") +
                   "#This form can always be solved by using the double angle trigonometric "
                   "identity to make the replacement @sin(2*" +
                   x + ")->2*" + sin_x + "*" + cos_x + "@ .  Then the equation becomes:",
               left, "0")) {
    return FormStatus::FormChanged;
  }
  // 2. The common factor.
  const std::string inner = SimplifyText(s, "(" + b + ")+2*(" + a + ")*" + other);
  left = single + "*(" + inner + ")";
  if (TrigStep(s, std::string(cosine ? "191" : "187") + "#Now the left side can be factored.", left,
               "0")) {
    return FormStatus::FormChanged;
  }
  // 3. The angle for its alias.
  if (eq.alias) {
    left = WithAngle(s, left, eq);
    if (TrigStep(s,
                 std::string(cosine ? "192" : "188") + "#Substituting back @" + eq.angle +
                     "@ for " + x + " gives:",
                 left, "0")) {
      return FormStatus::FormChanged;
    }
  }
  run.SavedLeft = left;
  run.SavedRight = "0";
  return FormStatus::FormChanged;
}

// cos(2X) -> 2*cos(X)^2-1: A*cos(2X)+B*cos(X)+C = 2A*cos(X)^2+B*cos(X)+C-A   help 193 to 198
// cos(2X) -> 1-2*sin(X)^2: B*sin(X)+A*cos(2X)+C = -2A*sin(X)^2+B*sin(X)+C+A   help 199 to 204
FormStatus SolveDoubleCosCos(Session& s, SolveRun& run, const TrigEquation& eq, bool sine) {
  const std::string& x = eq.x;
  const std::string function = sine ? "sin(" + x + ")" : "cos(" + x + ")";
  TrigLine(s,
           sine ? "199#This is a trigonometric equation of the form @A*sin(" + x + ")+B*cos(2" + x +
                      ")+C=0@ .  The key thing to notice is that one angle is double the other."
                : "193#This is a trigonometric equation of the form @A*cos(2" + x + ")+B*cos(" + x +
                      ")+C=0@ .  The key thing to notice is that one angle is double the other.",
           true);
  // 1. The coefficients of the quadratic.
  const std::string a = Bracketed(s, eq.coefficients.Cos2Coef);
  const std::string b = sine ? eq.coefficients.SinCoef : eq.coefficients.CosCoef;
  const std::string c = Bracketed(s, eq.coefficients.TrigConst);
  const std::string a2 = SimplifyText(s, (sine ? "-2*" : "2*") + a);
  const std::string c2 = SimplifyText(s, c + (sine ? "+" : "-") + a);
  // 2. The double angle replaced.
  std::string left = SumOf({TimesText(s, a2, function + "^2"), TimesText(s, b, function), c2});
  if (TrigStep(s,
               sine ? "200#This form can always be solved by using the double angle "
                      "trigonometric identity to make the replacement @cos(2*" +
                          x + ")->1-2*sin(" + x + ")^2@ .  Then the equation becomes:"
                    : "194#This form can always be solved by using the double angle "
                      "trigonometric identity to make the replacement @cos(2*" +
                          x + ")->2*cos(" + x + ")^2-1@ .  Then the equation becomes:",
               left, "0")) {
    return FormStatus::FormChanged;
  }
  // 3. The quadratic in an alias.
  const std::string y = QuadraticAlias(s, run.WorkLeft);
  left = SimplifyText(s, SumOf({TimesText(s, a2, y + "^2"), TimesText(s, Bracketed(s, b), y), c2}));
  if (TrigStep(s,
               std::string(sine ? "201" : "195") +
                   "#This is an equation of the quadratic form.  To see this temporarily replace "
                   "@" +
                   function + "@ with the alias " + y + ".",
               left, "0")) {
    return FormStatus::FormChanged;
  }
  // 4 and 5. Solved for the alias; each value gives an equation in the function of the angle.
  run.SavedLeft = left;
  run.SavedRight = "0";
  return SolveInAlias(s, run, y, WithAngle(s, function, eq),
                      sine ? kSineAliasBack : kCosineAliasBack);
}

}  // namespace tavimor
