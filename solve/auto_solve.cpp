// The equation solver's driver: the stack of equations, the pass and its inner loop, the ladder
// of forms, the isolation loop, the end of a branch and the exit.
#include "solve/auto_solve.h"

#include "core/errors.h"
#include "core/pieces.h"
#include "core/scoped_override.h"
#include "core/text_predicates.h"
#include "manipulate/add_fractions.h"
#include "manipulate/combine_logs.h"
#include "manipulate/factor.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/clear_denominators.h"
#include "solve/equation_moves.h"
#include "solve/exponential_alias.h"
#include "solve/isolate.h"
#include "solve/polynomial_view.h"
#include "solve/solve_exponential.h"
#include "solve/solve_linear.h"
#include "solve/solve_logarithmic.h"
#include "solve/solve_no_unknown.h"
#include "solve/solve_quadratic.h"
#include "solve/solve_radical.h"
#include "solve/solve_state.h"
#include "solve/solver_writes.h"
#include "solve/split_factors.h"
#include "solve/trig_equations.h"

namespace tavimor {

bool IsReservedAnswer(const std::string& text) {
  return text == kUnsolvable || text == kNoSolution || text == kAnyValue;
}

namespace {

// Where the driver goes next.
enum class Next {
  Pass,       // step 5: split a product equal to 0, then the inner loop
  Inner,      // step 7: the inner loop's round and the ladder
  Isolate,    // step 20: the isolation loop
  EndBranch,  // steps 21 to 23
  Leave,      // a hint was shown: everything unwinds
  Exit,       // the normal exit
};

// "Has a fraction": a sum with at least one term that is a product with a denominator.
// A solver of one rung of the ladder of forms.
using FormSolver = FormStatus (*)(Session&, SolveRun&);

bool HasFraction(Session& s, const std::string& text) {
  if (!IsSumText(s, text)) return false;
  for (const SignedTerm& term : SignedTerms(s, text)) {
    if (IsProductText(s, term.text) && HasDenominatorText(s, term.text)) return true;
  }
  return false;
}

class Driver {
 public:
  Driver(Session& s, SolveRun& run, int round_limit)
      : s_(s), run_(run), round_limit_(round_limit) {}

  // True at the normal exit, false when a hint unwound the run.
  bool Run() {
    if (SimplifySides()) return false;
    Next at = Next::Pass;
    for (;;) {
      switch (at) {
        case Next::Pass: at = Pass(); break;
        case Next::Inner: at = InnerRound(); break;
        case Next::Isolate: at = IsolationLoop(); break;
        case Next::EndBranch: at = EndOfBranch(); break;
        case Next::Leave: return false;
        case Next::Exit: return true;
      }
    }
  }

 private:
  // One round of the driver. A run that keeps going round without coming to an end is stopped
  // with the command's run-time error, and the student's equation stays as it was. Each round
  // may also simplify as much as one command may.
  void Round() {
    if (++rounds_ > round_limit_) {
      throw RunTimeError(RunTimeErrorNumber::Overflow, "The solver does not come to an end");
    }
    s_.RewriteCount = 0;
  }

  bool Step(const std::string& message, bool hint) {
    return SolverStep(s_, message, run_.WorkLeft, run_.WorkRight, hint);
  }

  // Step 4: each side parsed, regenerated and simplified silently; 101 if either changed.
  bool SimplifySides() {
    bool changed = false;
    for (std::string* side : {&run_.WorkLeft, &run_.WorkRight}) {
      const std::string regenerated = RegeneratedText(s_, *side);
      bool side_changed = false;
      *side = SimplifyText(s_, regenerated, side_changed);
      changed = changed || side_changed;
    }
    if (!changed) return false;
    return Step("101#Simplify each side of the equation and/or write it in a sorted form.", false);
  }

  // Steps 5 and 6.
  Next Pass() {
    Round();
    if (run_.WorkRight == "0" && IsProductText(s_, run_.WorkLeft)) {
      if (SplitFactors(s_, run_)) return Next::Leave;
    }
    if (s_.HintState == 2) return Next::Leave;
    return Next::Inner;
  }

  // CombineFractions on a copy of the text; the copy is kept when the result is at least
  // `at_least`.
  int CombineInto(std::string& text, int at_least, std::string* report = nullptr) {
    std::string copy = text;
    std::string record;
    const int result = CombineFractions(s_, copy, record);
    if (report != nullptr) *report = record;
    // A text that combining leaves as it was has nothing more to combine.
    if (result < at_least || copy == text) return result < at_least ? result : 0;
    text = copy;
    return result;
  }

  // After a layer undone: the fractions on the right side combined (107), then the logarithms on
  // each side (108).
  bool AfterLayer() {
    if (CombineInto(run_.WorkRight, 1) > 0) {
      if (Step("107#Combine the fractions on the right side.", false)) return true;
    }
    std::string sentence;
    if (CombineLogsOnSides(s_, run_.WorkLeft, run_.WorkRight, sentence)) {
      if (Step("108#" + sentence, false)) return true;
    }
    return false;
  }

  // Steps 7 to 15, then the ladder.
  Next InnerRound() {
    Round();
    // 7. Terms common to both sides.
    const std::string cancelled = CancelCommonTerms(s_, run_.WorkLeft, run_.WorkRight);
    if (!cancelled.empty()) {
      if (Step("100#Simplify by " + cancelled + " both sides of the equation.", true)) {
        return Next::Leave;
      }
      return Next::Pass;
    }
    // 8. A common factor. (A two-term exponential equation keeps its factor: the logarithm of
    // both sides brings it down.)
    const CommonFactorFinding common =
        FindCommonFactor(s_, run_.WorkLeft, run_.WorkRight, run_.Unknown);
    if (common.factor != "1" && common.factor != "0" &&
        !IsTwoTermExponential(s_, run_.WorkLeft, run_.WorkRight, run_.Unknown)) {
      const bool right_was_zero = run_.WorkRight == "0";
      run_.WorkLeft =
          ScaleSide(s_, run_.WorkLeft, '/', common.factor, IsSumText(s_, run_.WorkLeft));
      run_.WorkRight =
          ScaleSide(s_, run_.WorkRight, '/', common.factor, IsSumText(s_, run_.WorkRight));
      if (common.occurrences > 0) {
        run_.WorkLeft = SimplifyText(
            s_, "(" + common.factor + ")*(" + run_.WorkLeft + "-(" + run_.WorkRight + "))");
        run_.WorkRight = "0";
        const std::string message =
            right_was_zero
                ? "102#Factor out the common factor @" + common.factor + "@. "
                : "102#Move everything to the left side and factor out the common factor @" +
                      common.factor +
                      "@.  |(Note that you can't simply cancel this factor out because it "
                      "contains @" +
                      run_.Unknown + "@ and doing so would cause you to lose a solution.)";
        if (Step(message, true)) return Next::Leave;
        return Next::Pass;
      }
      if (Step("103#Simplify by dividing both sides through by the common factor @" +
                   common.factor + "@ .",
               true)) {
        return Next::Leave;
      }
    }
    // 9. The logarithms on each side.
    {
      std::string sentence;
      if (CombineLogsOnSides(s_, run_.WorkLeft, run_.WorkRight, sentence)) {
        if (Step("104#" + sentence, true)) return Next::Leave;
      }
    }
    // 10. The unknown on the left.
    run_.OccursLeft = static_cast<std::int16_t>(CountOccurrences(s_, run_.WorkLeft, run_.Unknown));
    run_.OccursRight =
        static_cast<std::int16_t>(CountOccurrences(s_, run_.WorkRight, run_.Unknown));
    if (run_.OccursLeft == 0 && run_.OccursRight > 0) {
      std::swap(run_.WorkLeft, run_.WorkRight);
      std::swap(run_.OccursLeft, run_.OccursRight);
      if (Step("105#Swap the left side and right side to get @" + run_.Unknown +
                   "@ on the left side.",
               true)) {
        return Next::Leave;
      }
    }
    // 11. The fractions of a right side free of the unknown.
    if (run_.OccursRight == 0) {
      while (CombineInto(run_.WorkRight, 1) >= 1) {
        Round();
        if (Step("106#Combine the fractions on the right side.", true)) return Next::Leave;
      }
    }
    // 12. The unknown just once: isolate it.
    if (run_.OccursLeft + run_.OccursRight == 1) {
      run_.OnceIntroShown = false;
      return Next::Isolate;
    }
    // 13. Like terms across the sides.
    const LikeTermMove like = MoveLikeTerm(s_, run_.WorkLeft, run_.WorkRight);
    if (like.found) {
      const std::string op = like.subtract ? "-" : "+";
      run_.WorkLeft = SimplifyText(s_, run_.WorkLeft + op + "(" + like.term + ")");
      run_.WorkRight = SimplifyText(s_, run_.WorkRight + op + "(" + like.term + ")");
      if (Step(std::string("100#Simplify by ") + (like.subtract ? "subtracting" : "adding") + " @" +
                   like.term + "@ on both sides of the equation.",
               true)) {
        return Next::Leave;
      }
      return Next::Pass;
    }
    // 14. Every occurrence inside one outer layer: undo that layer.
    if (run_.OccursRight == 0 && run_.OccursLeft > 0) {
      FormStatus status = FormStatus::FormNotThisForm;
      std::string message;
      if (IsolateOuterLayer(s_, run_, status, message)) {
        if (s_.HintState == 2) return Next::Leave;
        if (status == FormStatus::FormNoSolution && s_.HintState == 0) {
          ShowNote(s_, message);
          return Next::Isolate;
        }
        if (Step(message, true) || AfterLayer()) return Next::Leave;
        return Next::Pass;
      }
    }
    // 15. Fractions on a side that cancel when combined.
    for (int side = 0; side < 2; ++side) {
      std::string& text = side == 0 ? run_.WorkLeft : run_.WorkRight;
      std::string report;
      while (CombineInto(text, 2, &report) >= 2) {
        Round();
        const std::string where = side == 0 ? "@ on the left side of the equation."
                                            : "@ on the right side of the equation.";
        if (Step((side == 0 ? "111" : "112") + std::string("#Combine the fractions @") +
                     GetPiece(report, 2, "; ") + where,
                 true)) {
          return Next::Leave;
        }
      }
    }
    return Ladder();
  }

  // Step 16: the ladder of forms.
  Next Ladder() {
    const std::string moved = SimplifyText(s_, "(" + run_.WorkLeft + ")-(" + run_.WorkRight + ")");
    const PolynomialView view = ClassifyPolynomial(s_, moved, run_.Unknown);
    // 16.1 A rational equation: the sides over one denominator.
    bool want_lcd = true;
    if (view.OtherTerms == "0" && view.QuadCoef == "0" && !HasFraction(s_, view.LinCoef)) {
      want_lcd = false;
    }
    if (view.OtherTerms == "0" && s_.QuadraticMethod == 2 && view.QuadCoef != "0" &&
        view.LinCoef != "0" && view.ConstTerm != "0" && !HasFraction(s_, view.QuadCoef) &&
        !HasFraction(s_, view.LinCoef)) {
      want_lcd = false;
    }
    if (want_lcd) {
      std::string joined =
          run_.WorkLeft + (run_.WorkRight.rfind('-', 0) == 0 ? "" : "+") + run_.WorkRight;
      std::string report;
      // A sum whose fraction also cancels (2) has its terms over the LCD all the same.
      if (CombineFractions(s_, joined, report) >= 1) {
        bool hint_shown = false;
        const bool cleared = ClearDenominators(s_, run_, report, hint_shown);
        if (hint_shown) return Next::Leave;
        if (cleared) return EndOfPass();
      }
    }
    // 16.2 Expansion.
    const bool want_expand = !(view.OtherTerms == "0" && view.QuadCoef == "0") &&
                             !(view.OtherTerms == "0" && view.QuadCoef != "0" &&
                               view.LinCoef != "0" && view.ConstTerm != "0");
    if (want_expand) {
      bool hint_shown = false;
      const bool expanded = ExpandSides(s_, run_, hint_shown);
      if (hint_shown) return Next::Leave;
      if (expanded) return EndOfPass();
    }
    // 16.3 Everything to the left side.
    run_.SavedLeft = run_.WorkLeft;
    run_.SavedRight = run_.WorkRight;
    run_.WorkLeft = moved;
    run_.WorkRight = "0";
    // 16.4 The unknown in some other way than as a power of 1 or 2.
    if (view.OtherTerms != "0") {
      // The rungs of the other forms, each on the moved form and the saved sides, in order: the
      // radical, logarithmic and exponential solvers, then the trigonometric ones.
      for (const FormSolver rung :
           {&SolveRadical, &SolveLogarithmic, &SolveTwoTermExponential, &SolveExponentialByAlias,
            &SolveSameTrigFunction, &SolveTrigonometric}) {
        const FormStatus status = rung(s_, run_);
        if (s_.HintState == 2) return Next::Leave;
        if (status == FormStatus::FormNotThisForm) continue;
        return AfterForm(status);
      }
      return LastRung();
    }
    // 16.5 A linear or quadratic equation.
    if (view.QuadCoef != "0" || view.LinCoef != "0") {
      const bool already_sorted = view.NegConst == run_.SavedRight;
      bool hint_shown = false;
      if (view.QuadCoef == "0") {
        hint_shown = SolveLinear(s_, run_, view, already_sorted);
      } else if (view.LinCoef == "0" && view.ConstTerm != "0") {
        hint_shown = SolveQuadraticNoLinear(s_, run_, view, already_sorted);
      } else if (view.LinCoef == "0") {
        hint_shown = SolveSquareIsZero(s_, run_, view.QuadCoef);
      } else if (view.ConstTerm == "0") {
        if (FactorNoConstant(s_, run_)) return Next::Leave;
        return EndOfPass();
      } else {
        if (SolveQuadratic(s_, run_, view.QuadCoef)) return Next::Leave;
        if (s_.HintState == 2) return Next::Leave;
        if (run_.WorkRight == kNoSolution || run_.WorkLeft == run_.Unknown) {
          return Next::Isolate;
        }
        return EndOfPass();
      }
      if (hint_shown || s_.HintState == 2) return Next::Leave;
      run_.OnceIntroShown = false;
      return Next::Isolate;
    }
    // 16.6 The unknown has cancelled.
    if (SolveNoUnknown(s_, run_, view.ConstTerm)) return Next::Leave;
    return Next::Isolate;
  }

  // What the driver does after a form solver that applied.
  Next AfterForm(FormStatus status) {
    if (s_.HintState == 2) return Next::Leave;
    switch (status) {
      case FormStatus::FormChanged:
        run_.WorkLeft = run_.SavedLeft;
        run_.WorkRight = run_.SavedRight;
        return Next::Pass;
      case FormStatus::FormUnsolvable:
        run_.WorkLeft = run_.Unknown;
        run_.WorkRight = kUnsolvable;
        return Next::Isolate;
      case FormStatus::FormNoSolution:
        run_.WorkLeft = run_.Unknown;
        run_.WorkRight = kNoSolution;
        return Next::Isolate;
      case FormStatus::FormNotThisForm:
      case FormStatus::FormAgain:
      case FormStatus::FormStepped: break;
    }
    return Next::Isolate;
  }

  // Step 19: the end of a pass.
  Next EndOfPass() { return s_.HintState == 2 ? Next::Leave : Next::Pass; }

  // Rung 16.4.7: everything moved to the left (148); the left side factored if it can be, else
  // the branch is unsolvable (114).
  Next LastRung() {
    if (run_.SavedRight != "0") {
      if (Step("148#Transpose (add or subtract) everything to the left side of the equation.",
               false)) {
        return Next::Leave;
      }
    }
    bool hint_shown = false;
    if (FactorLeftSide(s_, run_, hint_shown)) {
      if (hint_shown) return Next::Leave;
      return EndOfPass();
    }
    if (SolverLine(s_, "114#This equation is unsolvable with this version of the program.", true)) {
      return Next::Leave;
    }
    run_.WorkLeft = run_.Unknown;
    run_.WorkRight = kUnsolvable;
    return Next::Isolate;
  }

  // Step 20: one layer at a time until the left side is the unknown.
  Next IsolationLoop() {
    while (run_.WorkLeft != run_.Unknown) {
      Round();
      std::string message;
      const FormStatus status = IsolateStep(s_, run_, message);
      if (s_.HintState == 2) return Next::Leave;
      if (status == FormStatus::FormAgain) continue;
      if (status == FormStatus::FormNoSolution && s_.HintState == 0) {
        ShowNote(s_, message);
        continue;
      }
      // A layer no rule undoes: the branch ends as unsolvable, told as a line of its own.
      if (status == FormStatus::FormUnsolvable) {
        if (SolverLine(s_, message, true)) return Next::Leave;
        continue;
      }
      if (Step(message, true) || AfterLayer()) return Next::Leave;
      if (status == FormStatus::FormChanged) return Next::Pass;
    }
    return Next::EndBranch;
  }

  // Steps 21 to 23.
  Next EndOfBranch() {
    Round();
    if (!IsReservedAnswer(run_.WorkRight)) {
      if (SolverLine(s_, "109#This equation is now solved for @" + run_.Unknown + "@ .|", false)) {
        return Next::Leave;
      }
    }
    run_.Answers += "; " + run_.WorkRight;
    if (run_.PendingCount <= 1) return Next::Exit;
    run_.ResizePending(run_.PendingCount - 1);
    run_.WorkLeft = run_.Row(run_.PendingCount)[0];
    run_.WorkRight = run_.Row(run_.PendingCount)[1];
    --s_.StepCount;  // the announcement of the next equation is no step of its own
    if (Step("110#Now proceed to solve the equation:", false)) return Next::Leave;
    // An equation off the stack does not pass through the split until its first change.
    return Next::Inner;
  }

  Session& s_;
  SolveRun& run_;
  int round_limit_;
  int rounds_ = 0;
};

}  // namespace

void AutoSolve(Session& s, const std::string& equation, const std::string& unknown,
               std::string& answers, int round_limit) {
  ScopedOverride extra(s.ExtraUnknown, unknown);
  ScopedOverride reciprocal(s.ExponentToReciprocal, true);
  ScopedOverride radical(s.ExponentToRadical, true);
  // Powers and logarithms keep the unknown's coefficients where they stand: x*log(3) is not
  // folded back into log(3^x) once the exponent has been brought down.
  ScopedOverride protect(s.ProtectedExponent, unknown);
  answers.clear();
  SolveRun run;
  run.Unknown = unknown;
  const std::size_t equals = equation.find('=');
  run.WorkLeft = equation.substr(0, equals);
  run.WorkRight = equals == std::string::npos ? "0" : equation.substr(equals + 1);
  if (run.WorkRight.empty()) run.WorkRight = "0";
  run.PendingEquations = {{run.WorkLeft, run.WorkRight}};
  run.PendingCount = 1;
  Driver driver(s, run, round_limit);
  const bool finished = driver.Run();
  answers = finished && run.Answers.size() >= 2 ? run.Answers.substr(2) : run.Answers;
}

}  // namespace tavimor
