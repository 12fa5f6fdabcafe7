// The linear forms of the solver: a x = c, a x^2 = c without a linear term, and a x^2 = 0.
#include "solve/solve_linear.h"

#include "core/errors.h"
#include "core/text_predicates.h"
#include "present/work_space.h"

namespace tavimor {

void FormStep(Session& s, const std::string& message, const std::string& left,
              const std::string& right) {
  ++s.StepCount;
  if (s.SolveDetail > 0) {
    ShowStepEqn(s, message, left, right);
    if (!s.StreamingOutput) ShowWaitButton(s, "");
  }
  if (s.AutoSolveTag.rfind("Cancel", 0) == 0) throw AppError(kErrorCancel, "Cancelled");
}

namespace {

bool GiveHint(Session& s, int help, const std::string& text) {
  s.HelpNumber = static_cast<std::int16_t>(help);
  ShowHint(s, text);
  s.HintState = 2;
  return true;
}

}  // namespace

bool SolveLinear(Session& s, SolveRun& run, const PolynomialView& view, bool already_sorted) {
  const std::string& x = run.Unknown;
  const std::string text =
      already_sorted ? "This is a linear equation which has already has all terms containing @" +
                           x + "@ on the left side and all constant terms on the right side.  " +
                           "||Factor out @" + x + "@ on the left side."
                     : "This is a linear equation.  Transpose (add or subtract) all terms "
                       "containing @" +
                           x + "@ to the left side and all constant terms to the right side.";
  if (!already_sorted) {
    run.WorkLeft = view.LinTerms;
    run.WorkRight = view.NegConst;
    FormStep(s, "152#" + text, run.WorkLeft, run.WorkRight);
  }
  const bool several = IsSumText(s, view.LinTerms);
  if (several) {
    run.WorkLeft = x + "*(" + view.LinCoef + ")";
    run.WorkRight = view.NegConst;
    FormStep(s, already_sorted ? "153#" + text : "153#Factor out @" + x + "@ on the left side.",
             run.WorkLeft, run.WorkRight);
  }
  if (s.HintState == 1) {
    std::string hint = text;
    if (!already_sorted && several) hint += "  ||Then factor out @" + x + "@ on the left side.";
    return GiveHint(s, 154, hint);
  }
  return false;
}

bool SolveQuadraticNoLinear(Session& s, SolveRun& run, const PolynomialView& view,
                            bool already_sorted) {
  const std::string& x = run.Unknown;
  const std::string opening = "This is a quadratic equation with the linear term absent.  ";
  const std::string text =
      already_sorted ? opening + "It already has all terms containing @" + x +
                           "^2@ on the left side and all constant terms on the right side.  " +
                           "||Factor out @" + x + "^2@ on the left side."
                     : opening + "Transpose (add or subtract) all terms containing @" + x +
                           "^2@ to the left side and all constant terms to the right side.";
  if (!already_sorted) {
    run.WorkLeft = view.QuadTerms;
    run.WorkRight = view.NegConst;
    FormStep(s, "310#" + text, run.WorkLeft, run.WorkRight);
  }
  const bool several = IsSumText(s, view.QuadCoef);
  if (several) {
    run.WorkLeft = x + "^2*(" + view.QuadCoef + ")";
    run.WorkRight = view.NegConst;
    FormStep(s, already_sorted ? "392#" + text : "311#Factor out @" + x + "^2@ on the left side.",
             run.WorkLeft, run.WorkRight);
  }
  if (s.HintState == 1) {
    std::string hint = text;
    if (!already_sorted && several) hint += "  ||Then factor out @" + x + "^2@ on the left side.";
    return GiveHint(s, 393, hint);
  }
  return false;
}

bool SolveSquareIsZero(Session& s, SolveRun& run, const std::string& quad_coef) {
  const std::string& x = run.Unknown;
  if (s.HintState == 1) {
    return GiveHint(s, 159,
                    "Factor out @" + x + "^2@ on the left side and then isolate it.|" +
                        "Then take the square root.  The result is " + x + " = 0");
  }
  if (s.SolveDetail > 0) {
    FormStep(s,
             "155#This is an equation of the form @A" + x + "^2=0@ .|To solve it factor out @" + x +
                 "^2@ on the left side.",
             x + "^2*(" + quad_coef + ")", "0");
    FormStep(s, "156#Then isolate @" + x + "^2@ on the left side.", x + "^2",
             "0/(" + quad_coef + ")");
    FormStep(s, "157#Then simplify.", x + "^2", "0");
    FormStep(s, "158#Then take the square root.", x, "0");
  } else {
    s.StepCount = static_cast<std::int16_t>(s.StepCount + 4);
  }
  run.WorkLeft = x;
  run.WorkRight = "0";
  return false;
}

}  // namespace tavimor
