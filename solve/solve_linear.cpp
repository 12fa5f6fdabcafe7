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

// What sorting the terms in one power of the unknown says and writes: the power's text ("x" or
// "x^2"), the terms and their factored coefficient, the sentences and their help numbers.
struct SortedPower {
  std::string power;
  std::string terms;
  std::string coefficient;
  std::string sum_test;  // factoring out is written when this is a sum
  std::string text;      // the opening sentence
  const char* transpose_help;
  const char* factor_sorted_help;
  const char* factor_help;
  int hint_help;
};

// Terms in the power to the left, constants to the right, then the power factored out of a sum
// of terms; in hint mode the sentence of the next step instead.
bool TransposeAndFactorOut(Session& s, SolveRun& run, const PolynomialView& view,
                           bool already_sorted, const SortedPower& p) {
  if (!already_sorted) {
    run.WorkLeft = p.terms;
    run.WorkRight = view.NegConst;
    FormStep(s, p.transpose_help + p.text, run.WorkLeft, run.WorkRight);
  }
  const bool several = IsSumText(s, p.sum_test);
  if (several) {
    run.WorkLeft = p.power + "*(" + p.coefficient + ")";
    run.WorkRight = view.NegConst;
    FormStep(s,
             already_sorted ? p.factor_sorted_help + p.text
                            : p.factor_help + ("Factor out @" + p.power + "@ on the left side."),
             run.WorkLeft, run.WorkRight);
  }
  if (s.HintState == 1) {
    std::string hint = p.text;
    if (!already_sorted && several) {
      hint += "  ||Then factor out @" + p.power + "@ on the left side.";
    }
    return GiveHint(s, p.hint_help, hint);
  }
  return false;
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
  return TransposeAndFactorOut(
      s, run, view, already_sorted,
      {x, view.LinTerms, view.LinCoef, view.LinTerms, text, "152#", "153#", "153#", 154});
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
  return TransposeAndFactorOut(
      s, run, view, already_sorted,
      {x + "^2", view.QuadTerms, view.QuadCoef, view.QuadCoef, text, "310#", "392#", "311#", 393});
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
