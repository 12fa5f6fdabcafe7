// The quadratic forms of the solver: a x^2 + b x = 0 factored, a factorable left side, and
// a x^2 + b x + c = 0 by factoring, by the formula, by completing the square or by graphing.
#include "solve/solve_quadratic.h"

#include <cmath>
#include <vector>

#include "core/frontend.h"
#include "core/pieces.h"
#include "core/scoped_override.h"
#include "core/text_predicates.h"
#include "manipulate/add_fractions.h"
#include "manipulate/complete_square.h"
#include "manipulate/factor.h"
#include "manipulate/polynomial.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/equation_moves.h"
#include "solve/parabola_sketch.h"
#include "solve/polynomial_view.h"
#include "solve/solve_linear.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

constexpr int kByFactoring = 0;
constexpr int kByFormula = 1;
constexpr int kByCompletingSquare = 2;
constexpr int kByGraphing = 3;

bool GiveHint(Session& s, int help, const std::string& text) {
  s.HelpNumber = static_cast<std::int16_t>(help);
  ShowHint(s, text);
  s.HintState = 2;
  return true;
}

// The common factor taken out of the text, when there is one.
bool TakeOutCommon(Session& s, std::string& text) {
  FactorFinding found;
  if (!FactorCommon(s, text, 2, found) || found.factored.empty()) return false;
  text = SimplifyText(s, found.factored);
  return true;
}

// Factor at depth 1, silently, as long as it factors; true if it factored at least once.
bool FactorFully(Session& s, std::string& text) {
  bool any = false;
  for (int round = 0; round < 20; ++round) {
    std::string record;
    std::string copy = text;
    if (!FactorText(s, copy, record, "10") || copy == text) break;
    text = copy;
    any = true;
  }
  return any;
}

// The coefficients and the discriminant of the left side.
struct Coefficients {
  bool found = false;
  std::string a, b, c, d;
};

Coefficients CoefficientsOf(Session& s, const std::string& text, const std::string& unknown) {
  Coefficients k;
  std::string letter = unknown;
  if (!QuadraticCoefficients(s, text, letter, k.a, k.b, k.c) || k.a.empty() || letter != unknown) {
    return k;
  }
  k.found = true;
  k.d = ExpandedText(s, "(" + k.b + ")*(" + k.b + ")-4*(" + k.a + ")*(" + k.c + ")");
  return k;
}

}  // namespace

std::string QuadraticMethodPhrase(int method) {
  switch (method) {
    case kByFactoring: return "by factoring";
    case kByFormula: return "with the quadratic formula";
    case kByCompletingSquare: return "by the completing the square method";
    default: return "by the graphing method";
  }
}

std::string QuadraticRoots(Session& s, const std::string& a, const std::string& b,
                           const std::string& discriminant) {
  const std::string root = "(" + SquareRootOfExpression(s, discriminant) + ")";
  std::string roots[2];
  const char* signs[2] = {"+", "-"};
  for (int i = 0; i < 2; ++i) {
    roots[i] = SimplifyText(s, "(-(" + b + ")" + signs[i] + root + ")/2/(" + a + ")");
    std::string copy = roots[i];
    std::string report;
    if (CombineFractions(s, copy, report) == 1) roots[i] = copy;
  }
  return roots[0] + "; " + roots[1];
}

bool FactorNoConstant(Session& s, SolveRun& run) {
  TakeOutCommon(s, run.WorkLeft);
  return SolverStep(s,
                    "164#This is a quadratic equation with the constant term absent and is "
                    "factorable.  Factor out the common factor on the left side.",
                    run.WorkLeft, run.WorkRight, true);
}

bool FactorLeftSide(Session& s, SolveRun& run, bool& hint_shown) {
  hint_shown = false;
  if (!FactorFully(s, run.WorkLeft)) return false;
  run.WorkRight = "0";
  hint_shown = SolverStep(s, "149#This equation is factorable.  Factor the left side.",
                          run.WorkLeft, run.WorkRight, true);
  return true;
}

namespace {

// The solve of one quadratic, its flags and texts.
class QuadraticSolve {
 public:
  QuadraticSolve(Session& s, SolveRun& run, const std::string& quad_coef)
      : s_(s), run_(run), quad_coef_(quad_coef), x_(run.Unknown) {
    method_ = s.QuadraticMethod;
    if (method_ < kByFactoring || method_ > kByGraphing) method_ = kByFormula;
  }

  bool Run() {
    if (method_ == kByCompletingSquare && !PrepareSquare()) method_ = kByFormula;
    const std::string phrase = QuadraticMethodPhrase(method_);
    if (method_ == kByCompletingSquare) {
      if (must_transpose_ || must_divide_) {
        if (SquarePreparation(phrase)) return true;
      }
    } else {
      must_transpose_ = run_.SavedRight != "0";
    }
    if (must_transpose_ && method_ != kByCompletingSquare) {
      const std::string text =
          "This is a quadratic equation.  It can be solved " + phrase + ".||" +
          "First put it into standard form.  Transpose (add or subtract) all terms to the left "
          "side of the equation so that the right side equals zero.";
      if (s_.HintState == 1) return GiveHint(s_, 165, text);
      FormStep(s_, "165#" + text, run_.WorkLeft, run_.WorkRight);
      prep_done_ = true;
    }
    const std::string hint_opening = "This is a quadratic equation.  To solve it " + phrase;
    opening_ = prep_done_ ? "Now" : hint_opening;
    if (s_.HintState == 1) return Hint(hint_opening);
    switch (method_) {
      case kByFactoring: ByFactoring(); break;
      case kByGraphing: ByGraphing(); break;
      case kByCompletingSquare: BySquare(); break;
      default: ByFormula(); break;
    }
    return false;
  }

 private:
  bool Hint(const std::string& opening) {
    switch (method_) {
      case kByFactoring: {
        std::string f = run_.WorkLeft;
        const bool common = TakeOutCommon(s_, f);
        if (FactorFully(s_, f) || common) {
          return GiveHint(s_, 312,
                          opening +
                              ", write the left side in factored form.  You will find that it "
                              "can be factored as @" +
                              f + "@ .");
        }
        if (HasRealRoots()) return FormulaHint(FormulaOpening());
        return GiveHint(s_, 312,
                        "This is a quadratic equation that has no solution over the real numbers "
                        "(its roots are complex).");
      }
      case kByCompletingSquare:
        if (perfect_square_) {
          return GiveHint(s_, 314,
                          opening + " simply factor the left side into @" + Piece(17) +
                              "@ , since the left side is already a perfect square.");
        }
        return GiveHint(s_, 315,
                        opening + " follow these steps:||Add @" + Piece(16) +
                            "@ to both sides of the equation.  This turns the left side into a "
                            "perfect square.|Then factor the new left side into @" +
                            Piece(17) + "@.  ");
      case kByGraphing:
        if (x_ != "x") {
          return GiveHint(s_, 316,
                          "Type the equation in again, replacing the name of the unknown, " + x_ +
                              ", with the new name, x.  This is necessary because this program "
                              "only plots y versus x graphs.");
        }
        return GiveHint(s_, 316,
                        opening +
                            " follow these steps:||Replace the constant 0 on the right side by the "
                            "variable y.  This replaces an equation by a function which can be "
                            "graphed.||" +
                            "Graph this function.  It is a parabola.||The solutions of the "
                            "equation are just the points where the parabola crosses the x axis, "
                            "because this is where y=0.");
      default: return FormulaHint(opening);
    }
  }

  static std::string FormulaOpening() {
    return "This is a quadratic equation.  To solve it " + QuadraticMethodPhrase(kByFormula);
  }

  bool FormulaHint(const std::string& opening) {
    return GiveHint(s_, 313,
                    opening +
                        " follow these steps:||Identify the coefficients a, b, c and calculate "
                        "the discriminant @D=b^2-4*a*c@.  |Then one solution is given by the "
                        "formula @" +
                        x_ + "=(-b+sqrt(D))/2/a@.  |The other solution is given by the formula @" +
                        x_ + "=(-b-sqrt(D))/2/a@.  ");
  }

  // Whether the discriminant is a number that is not negative.
  bool HasRealRoots() {
    const Coefficients k = CoefficientsOf(s_, run_.WorkLeft, x_);
    return k.found && IsNumericText(s_, k.d) && !IsNegativeNumericText(s_, k.d);
  }

  void ByFactoring() {
    std::string f = run_.WorkLeft;
    TakeOutCommon(s_, f);
    if (FactorFully(s_, f)) {
      run_.WorkLeft = SimplifyText(s_, f);
      Finish(317, opening_ + ", write the left side in factored form.");
      return;
    }
    // A quadratic that does not factor into rational terms still has its real roots: the
    // formula tells them rather than denying them.
    if (HasRealRoots()) {
      method_ = kByFormula;
      if (!prep_done_) opening_ = FormulaOpening();
      ByFormula();
      return;
    }
    run_.WorkLeft = x_;
    run_.WorkRight = kNoSolution;
    Finish(317,
           "This is a quadratic equation that has no solutions over the real numbers (its roots "
           "are complex).");
  }

  // The roots into the right side and the tail that tells them; false when there are none.
  std::string Roots(const Coefficients& k, const std::string& no_roots, const std::string& two,
                    const std::string& one) {
    if (IsNegativeNumericText(s_, k.d) && s_.ComplexForm == 0) {
      run_.WorkRight = kNoSolution;
      return no_roots;
    }
    if (k.d != "0") {
      run_.WorkRight = QuadraticRoots(s_, k.a, k.b, k.d);
      const std::string r1 = GetPiece(run_.WorkRight, 1, "; ");
      const std::string r2 = GetPiece(run_.WorkRight, 2, "; ");
      return two + "||        @" + x_ + "=" + r1 + "@, |and|        @" + x_ + "=" + r2 + "@ .  |";
    }
    run_.WorkRight = SimplifyText(s_, "-(" + k.b + ")/2/(" + k.a + ")");
    return one;
  }

  void ByFormula() {
    const Coefficients k = CoefficientsOf(s_, run_.WorkLeft, x_);
    if (!k.found) return;
    run_.WorkLeft = x_;
    const std::string message =
        opening_ +
        ", follow these steps:||Identify the coefficients a, b, c and calculate the "
        "discriminant @D=b^2-4*a*c@.  In this case:|        @a=" +
        k.a + "@, |        @b=" + k.b + "@, |        @c=" + k.c + "@, |and  @D=" + k.d + "@. \\" +
        "Calculate the first solution, which is given by the formula @" + x_ +
        "=(-b+sqrt(D))/2/a@,  |and the second solution, which is given by the formula @" + x_ +
        "=(-b-sqrt(D))/2/a@.  ";
    const std::string tail = Roots(
        k,
        "|In this case the discriminant D is negative so these formulas contain the square root "
        "of a negative number.  This means that the quadratic equation has no solutions over "
        "the real numbers (the solutions are complex).",
        "|In this case the solutions are:",
        "|In this case the discriminant D is zero so these formulas yield the same value, "
        "namely:");
    Finish(318, message + tail);
  }

  void ByGraphing() {
    const Coefficients k = CoefficientsOf(s_, run_.WorkLeft, x_);
    const std::string line_end = "\n";
    if (!k.found || !IsNumericText(s_, k.a) || !IsNumericText(s_, k.b) || !IsNumericText(s_, k.c)) {
      s_.Screen().ShowMessageBox("The graphing method can be used only if the " + line_end +
                                     "coefficients of the quadratic equation are all numbers." +
                                     line_end +
                                     "The Tavimor will use the quadratic formula method instead.",
                                 s_.HelpNumber, MessageIcon::Information);
      ByFormula();
      return;
    }
    if (IsNegativeNumericText(s_, k.d) && s_.ComplexForm != 0) {
      s_.Screen().ShowMessageBox("The graphing method cannot be used to find complex roots." +
                                     line_end +
                                     "The Tavimor will use the quadratic formula method instead.",
                                 s_.HelpNumber, MessageIcon::Information);
      ByFormula();
      return;
    }
    const std::string y = x_ == "y" ? "z" : "y";
    FormStep(s_,
             "321#" + opening_ +
                 " follow these steps:||Replace the constant 0 on the right side "
                 "by the variable " +
                 y + ".  This replaces an equation by a function which can be graphed.",
             run_.WorkLeft, y);
    ShowNote(s_, "321#Graph this function.  It is a parabola.");
    if (s_.SolveDetail > 0) {
      const double a = NumericTextValue(s_, k.a).value_or(0.0);
      const double b = NumericTextValue(s_, k.b).value_or(0.0);
      const double d = NumericTextValue(s_, k.d).value_or(-1.0);
      std::vector<double> real_roots;
      if (d >= 0 && a != 0) {
        real_roots.push_back((-b + std::sqrt(d)) / (2 * a));
        if (d > 0) real_roots.push_back((-b - std::sqrt(d)) / (2 * a));
      }
      DrawParabolaSketch(s_, k.a, k.b, k.c, real_roots);
    }
    if (s_.EquationList.empty()) s_.EquationList.resize(1);
    s_.EquationList[0] = {y, SimplifyText(s_, "(" + k.a + ")*x^2+(" + k.b + ")*x+(" + k.c + ")"),
                          "255", "1"};
    ScopedOverride decimals(s_.ExactToFloat, true);
    run_.WorkLeft = x_;
    const std::string message = "Look for the points where the parabola crosses the " + x_ +
                                " axis because this is where " + y +
                                "=0.  These points are the solutions of the quadratic equation.";
    const std::string tail = Roots(
        k, "  In this case there are no such points so this quadratic equation has no solutions.",
        "  In this case the parabola crosses the " + x_ +
            " axis at two points (shown with the blue dots) so this quadratic equation has two "
            "solutions:",
        "  In this case the parabola just touches the " + x_ +
            " axis at one point (shown with the blue dot) so this quadratic equation has one "
            "solution, namely:");
    Finish(321, message + tail);
  }

  std::string Piece(int n) const { return GetPiece(cs_record_, n, "; "); }

  // The flags of completing the square; false when the left side does not complete.
  bool PrepareSquare() {
    const PolynomialView right = ClassifyPolynomial(s_, run_.SavedRight, x_);
    const PolynomialView left = ClassifyTerms(s_, run_.SavedLeft, x_);  // its constants only
    const Coefficients k = CoefficientsOf(s_, run_.SavedLeft, x_);
    const bool right_has_terms = right.QuadCoef != "0" || right.LinCoef != "0";
    perfect_square_ = k.found && !right_has_terms && k.d == "0";
    std::string text = run_.WorkLeft;
    if (!CompleteTheSquare(s_, text, cs_record_, x_)) return false;
    if (Piece(14).empty() || Piece(16).empty() || Piece(17).empty()) return false;
    must_transpose_ = right_has_terms || (left.ConstTerm != "0" && !perfect_square_);
    must_divide_ = quad_coef_ != "1";
    return true;
  }

  // The first step of completing the square: the squares and linear terms to the left, the
  // constants to the right, and the sides divided by the leading coefficient. True for a hint.
  bool SquarePreparation(const std::string& phrase) {
    std::string text = "This is a quadratic equation.  It can be solved " + phrase + ".||";
    const std::string transpose =
        "First transpose (add or subtract) all quadratic and linear terms to the left side of "
        "the equation and all constant terms to the right side.";
    const std::string divide = "divide both sides of the equation by @" + quad_coef_ +
                               "@ so the coefficient of the quadratic term becomes 1.";
    if (must_transpose_ && must_divide_ && s_.HintState != 1) {
      text += transpose + "  Then " + divide;
    } else if (must_transpose_) {
      text += transpose;
    } else {
      text += "First " + divide;
      if (s_.HintState == 1) {
        text +=
            "||Then expand on the left side so that the resulting fraction breaks into "
            "separate terms.";
      }
    }
    if (s_.HintState == 1) return GiveHint(s_, 166, text);
    if (must_transpose_) {
      run_.WorkLeft = Piece(14);
      run_.WorkRight = SimplifyText(s_, "-(" + Piece(15) + ")");
    } else {
      run_.WorkLeft = ScaleSide(s_, run_.SavedLeft, '/', quad_coef_, true);
      run_.WorkRight = ScaleSide(s_, run_.SavedRight, '/', quad_coef_, true);
    }
    FormStep(s_, "166#" + text, run_.WorkLeft, run_.WorkRight);
    prep_done_ = true;
    return false;
  }

  void BySquare() {
    if (perfect_square_) {
      run_.WorkLeft = Piece(17);
      if (!prep_done_) run_.WorkRight = run_.SavedRight;
      Finish(319, opening_ + ", simply factor the left side since it is already a perfect square.");
      return;
    }
    if (!prep_done_) {
      run_.WorkLeft = run_.SavedLeft;
      run_.WorkRight = run_.SavedRight;
    }
    const std::string q = Piece(16);
    run_.WorkLeft = SimplifyText(s_, run_.WorkLeft + "+(" + q + ")");
    run_.WorkRight = SimplifyText(s_, run_.WorkRight + "+(" + q + ")");
    FormStep(s_,
             "320#" + opening_ +
                 ", follow these steps:||Take the linear coefficient, divide it by 2 and then "
                 "square it.  This gives @" +
                 q +
                 "@.  Add this quantity to both sides of the equation.  This turns the left side "
                 "into a perfect square.",
             run_.WorkLeft, run_.WorkRight);
    run_.WorkLeft = Piece(17);
    Finish(320, "Now factor the perfect square on the left side.");
  }

  // The last write, common to all methods.
  void Finish(int help, const std::string& message) {
    const std::string numbered = std::to_string(help) + "#" + message;
    if (run_.WorkRight == kNoSolution || run_.WorkRight.find(';') != std::string::npos) {
      ++s_.StepCount;
      ShowNote(s_, numbered);
      return;
    }
    FormStep(s_, numbered, run_.WorkLeft, run_.WorkRight);
  }

  Session& s_;
  SolveRun& run_;
  std::string quad_coef_;
  std::string x_;
  int method_ = kByFormula;
  bool must_transpose_ = false;
  bool must_divide_ = false;
  bool perfect_square_ = false;
  std::string cs_record_;
  bool prep_done_ = false;
  std::string opening_;
};

}  // namespace

bool SolveQuadratic(Session& s, SolveRun& run, const std::string& quad_coef) {
  QuadraticSolve solve(s, run, quad_coef);
  return solve.Run();
}

}  // namespace tavimor
