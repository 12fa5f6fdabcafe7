// Tests of the solver's polynomial forms: linear equations, quadratics by each method with their
// fall-backs, the denominators cleared and the sides expanded.
#include <gtest/gtest.h>

#include "solve/auto_solve.h"
#include "solve/solve_linear.h"
#include "solve/solve_quadratic.h"
#include "support/solve_fixture.h"

namespace tavimor {
namespace {

class PolynomialForms : public SolveTest {
 protected:
  // The last hint the solver gives on the equation.
  std::string Hint(const std::string& equation) {
    const std::vector<std::string>& hints = Hints(equation);
    return hints.empty() ? "" : hints.back();
  }
};

TEST_F(PolynomialForms, LinearTermsTransposedThenFactoredOut) {
  EXPECT_EQ(Solve("a*x+b*x=c-2"), "(c-2)/(a+b)");
  EXPECT_TRUE(Wrote("Factor out @x@ on the left side."));
}

TEST_F(PolynomialForms, LinearWithBracketsIsExpandedFirst) {
  EXPECT_EQ(Solve("3*(x-2)=2*(x+1)"), "8");
  EXPECT_TRUE(Wrote("Expand on the left side of the equation."));
  EXPECT_TRUE(Wrote("Expand on the right side of the equation."));
}

TEST_F(PolynomialForms, LinearWithFractionalCoefficientsNeedsNoLcd) {
  EXPECT_EQ(Solve("x/2+x/3=5"), "6");
  EXPECT_FALSE(Wrote("fractional (rational) equation"));
}

TEST_F(PolynomialForms, OneFractionalCoefficientAloneHasNoLcdStep) {
  EXPECT_EQ(Solve("x/2+1=3"), "4");
  EXPECT_FALSE(Wrote("LCD"));
}

TEST_F(PolynomialForms, LinearSolverMovesTermsAndFactorsOutTheUnknown) {
  SolveRun run;
  run.Unknown = "x";
  PolynomialView view;
  view.LinTerms = "a*x+b*x";
  view.LinCoef = "a+b";
  view.NegConst = "5";
  EXPECT_FALSE(SolveLinear(s, run, view, false));
  EXPECT_EQ(run.WorkLeft, "x*(a+b)");
  EXPECT_EQ(run.WorkRight, "5");
  EXPECT_EQ(s.StepCount, 2);
  EXPECT_TRUE(
      Wrote("This is a linear equation.  Transpose (add or subtract) all terms containing "
            "@x@ to the left side and all constant terms to the right side."));
  EXPECT_TRUE(Wrote("Factor out @x@ on the left side."));
  EXPECT_EQ(s.HelpNumber, 153);
}

TEST_F(PolynomialForms, LinearHintTellsToFactorOutWhenTermsAreSeveral) {
  SolveRun run;
  run.Unknown = "x";
  PolynomialView view;
  view.LinTerms = "a*x+b*x";
  view.LinCoef = "a+b";
  view.NegConst = "5";
  s.SolveDetail = 0;
  s.HintState = 1;
  EXPECT_TRUE(SolveLinear(s, run, view, false));
  EXPECT_EQ(s.HintState, 2);
  EXPECT_EQ(s.HelpNumber, 154);
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_NE(frontend.hints[0].find("Then factor out"), std::string::npos);
}

TEST_F(PolynomialForms, SquareWithoutLinearTermIsIsolated) {
  s.QuadraticMethod = 0;
  const std::string answers = Solve("x^2-4=0");
  EXPECT_TRUE(answers == "2; -2" || answers == "-2; 2") << answers;
  EXPECT_FALSE(Wrote("by factoring"));
}

TEST_F(PolynomialForms, SquareWithoutLinearTermMovedBySolverWhenSeveralTerms) {
  SolveRun run;
  run.Unknown = "x";
  PolynomialView view;
  view.QuadTerms = "a*x^2+x^2";
  view.QuadCoef = "a+1";
  view.NegConst = "4";
  EXPECT_FALSE(SolveQuadraticNoLinear(s, run, view, false));
  EXPECT_EQ(run.WorkLeft, "x^2*(a+1)");
  EXPECT_EQ(s.HelpNumber, 311);
  EXPECT_TRUE(Wrote("This is a quadratic equation with the linear term absent."));
}

TEST_F(PolynomialForms, SquareIsZeroWhateverTheMethod) {
  for (int method = 0; method < 4; ++method) {
    s.QuadraticMethod = static_cast<std::int16_t>(method);
    EXPECT_EQ(Solve("x^2=0"), "0") << method;
    EXPECT_EQ(Solve("3*x^2=0"), "0") << method;
  }
}

TEST_F(PolynomialForms, SquareIsZeroSolverWritesFourLines) {
  SolveRun run;
  run.Unknown = "x";
  EXPECT_FALSE(SolveSquareIsZero(s, run, "a"));
  EXPECT_EQ(run.WorkLeft, "x");
  EXPECT_EQ(run.WorkRight, "0");
  EXPECT_EQ(s.StepCount, 4);
  EXPECT_TRUE(Wrote("Then take the square root."));
  EXPECT_EQ(s.HelpNumber, 158);
}

TEST_F(PolynomialForms, SquareIsZeroCountsItsStepsWhenNotShown) {
  s.SolveDetail = 0;
  SolveRun run;
  run.Unknown = "x";
  EXPECT_FALSE(SolveSquareIsZero(s, run, "2"));
  EXPECT_EQ(s.StepCount, 4);
  EXPECT_EQ(frontend.Transcript(), "");
}

TEST_F(PolynomialForms, NoConstantIsFactoredWhateverTheMethod) {
  for (int method = 0; method < 4; ++method) {
    s.QuadraticMethod = static_cast<std::int16_t>(method);
    const std::string answers = Solve("x^2+x=0");
    EXPECT_NE(answers.find("0"), std::string::npos) << method << ": " << answers;
    EXPECT_NE(answers.find("-1"), std::string::npos) << method << ": " << answers;
  }
}

TEST_F(PolynomialForms, NoConstantSolverTakesOutTheCommonFactor) {
  SolveRun run;
  run.Unknown = "x";
  run.WorkLeft = "2*x^2+4*x";
  run.WorkRight = "0";
  EXPECT_FALSE(FactorNoConstant(s, run));
  EXPECT_EQ(s.HelpNumber, 164);
  EXPECT_NE(run.WorkLeft, "2*x^2+4*x");
  EXPECT_TRUE(
      Wrote("This is a quadratic equation with the constant term absent and is "
            "factorable."));
}

TEST_F(PolynomialForms, FactoringSplitsIntoTwoEquations) {
  s.QuadraticMethod = 0;
  const std::string answers = Solve("x^2-5*x+6=0");
  EXPECT_TRUE(answers == "2; 3" || answers == "3; 2") << answers;
  EXPECT_TRUE(
      Wrote("This is a quadratic equation.  To solve it by factoring, write the left side "
            "in factored form."));
}

TEST_F(PolynomialForms, FactoringWithNoRealRootsSaysSo) {
  s.QuadraticMethod = 0;
  EXPECT_EQ(Solve("x^2+x+1=0"), "no-solution");
  EXPECT_TRUE(
      Wrote("This is a quadratic equation that has no solutions over the real numbers "
            "(its roots are complex)."));
}

TEST_F(PolynomialForms, FactoringNeverDeniesIrrationalRoots) {
  s.QuadraticMethod = 0;
  const std::string answers = Solve("x^2-2*x-1=0");
  EXPECT_NE(answers, "no-solution");
  EXPECT_NE(answers.find("sqrt(2)"), std::string::npos) << answers;
}

TEST_F(PolynomialForms, FormulaGivesBothRootsWithCoefficients) {
  s.QuadraticMethod = 1;
  const std::string answers = Solve("x^2-5*x+6=0");
  EXPECT_TRUE(answers == "3; 2" || answers == "2; 3") << answers;
  EXPECT_TRUE(Wrote("@a=1@,"));
  EXPECT_TRUE(Wrote("@b=-5@,"));
  EXPECT_TRUE(Wrote("@c=6@,"));
  EXPECT_TRUE(Wrote("@D=1@."));
  EXPECT_TRUE(Wrote("In this case the solutions are:"));
}

TEST_F(PolynomialForms, FormulaWithIrrationalRootsKeepsTheSquareRoot) {
  s.QuadraticMethod = 1;
  const std::string answers = Solve("x^2-2*x-1=0");
  EXPECT_NE(answers.find("sqrt(2)"), std::string::npos) << answers;
  EXPECT_NE(answers.find("; "), std::string::npos) << answers;
}

TEST_F(PolynomialForms, FormulaWithNegativeDiscriminantHasNoRealSolution) {
  s.QuadraticMethod = 1;
  EXPECT_EQ(Solve("x^2+2*x+5=0"), "no-solution");
  EXPECT_TRUE(Wrote("In this case the discriminant D is negative"));
}

TEST_F(PolynomialForms, FormulaWithZeroDiscriminantGivesOneRoot) {
  s.QuadraticMethod = 1;
  EXPECT_EQ(Solve("x^2-6*x+9=0"), "3");
  EXPECT_TRUE(Wrote("In this case the discriminant D is zero"));
}

TEST_F(PolynomialForms, TransposedFirstWhenTheRightSideIsNotZero) {
  s.QuadraticMethod = 1;
  const std::string answers = Solve("x^2+6=5*x");
  EXPECT_TRUE(answers == "3; 2" || answers == "2; 3") << answers;
  EXPECT_TRUE(Wrote("It can be solved with the quadratic formula."));
  EXPECT_TRUE(Wrote("Now, follow these steps:"));
}

TEST_F(PolynomialForms, CompletingTheSquareAddsTheQuantityToBothSides) {
  s.QuadraticMethod = 2;
  const std::string answers = Solve("x^2+2*x=3");
  EXPECT_TRUE(answers == "1; -3" || answers == "-3; 1") << answers;
  EXPECT_TRUE(
      Wrote("Take the linear coefficient, divide it by 2 and then square it.  This gives "
            "@1@."));
  EXPECT_TRUE(Wrote("Now factor the perfect square on the left side."));
}

TEST_F(PolynomialForms, CompletingTheSquareOfAPerfectSquareOnlyFactors) {
  s.QuadraticMethod = 2;
  EXPECT_EQ(Solve("x^2+6*x+9=0"), "-3");
  EXPECT_TRUE(Wrote("simply factor the left side since it is already a perfect square."));
}

TEST_F(PolynomialForms, CompletingTheSquareDividesByTheLeadingCoefficient) {
  s.QuadraticMethod = 2;
  Solve("3*x^2-2*x-1=x+4");
  EXPECT_TRUE(
      Wrote("Then divide both sides of the equation by @3@ so the coefficient of the "
            "quadratic term becomes 1."));
}

TEST_F(PolynomialForms, CompletingTheSquareHintNamesTheQuantity) {
  s.QuadraticMethod = 2;
  EXPECT_NE(Hint("x^2+2*x=3").find("Add @1@ to both sides of the equation."), std::string::npos);
  EXPECT_EQ(s.HelpNumber, 315);
}

TEST_F(PolynomialForms, QuadraticRootsAreSimplified) {
  EXPECT_EQ(QuadraticRoots(s, "1", "-5", "1"), "3; 2");
}

TEST_F(PolynomialForms, GraphingWithTheUnknownYGraphsZ) {
  s.QuadraticMethod = 3;
  const std::string answers = Solve("y^2-5*y+6=0", "y");
  EXPECT_TRUE(answers == "3; 2" || answers == "2; 3") << answers;
  EXPECT_TRUE(Wrote("Replace the constant 0 on the right side by the variable z."));
  ASSERT_FALSE(s.EquationList.empty());
  EXPECT_EQ(s.EquationList[0][0], "z");
}

TEST_F(PolynomialForms, GraphingWithALiteralCoefficientUsesTheFormula) {
  s.QuadraticMethod = 3;
  Solve("a*x^2+x+1=0");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_NE(frontend.messages[0].text.find("The graphing method can be used only if the"),
            std::string::npos);
  EXPECT_TRUE(Wrote("with the quadratic formula") || Wrote("Identify the coefficients"));
}

TEST_F(PolynomialForms, GraphingReadsTheRootsAsDecimals) {
  s.QuadraticMethod = 3;
  const std::string answers = Solve("x^2-2=0+2*x-1");
  EXPECT_EQ(answers.find("sqrt"), std::string::npos) << answers;
  EXPECT_TRUE(Wrote("crosses the x axis at two points"));
}

TEST_F(PolynomialForms, GraphingWithNoRealRootsHasNoSolution) {
  s.QuadraticMethod = 3;
  EXPECT_EQ(Solve("x^2+x+1=0"), "no-solution");
  EXPECT_TRUE(Wrote("In this case there are no such points"));
}

TEST_F(PolynomialForms, QuadraticHintByMethod) {
  s.QuadraticMethod = 1;
  EXPECT_NE(Hint("x^2-5*x+6=0").find("Identify the coefficients a, b, c"), std::string::npos);
  EXPECT_EQ(s.HelpNumber, 313);
  s.QuadraticMethod = 0;
  EXPECT_NE(Hint("x^2-5*x+6=0").find("You will find that it can be factored as"),
            std::string::npos);
  EXPECT_EQ(s.HelpNumber, 312);
  s.QuadraticMethod = 3;
  EXPECT_NE(Hint("x^2-5*x+6=0").find("It is a parabola."), std::string::npos);
  EXPECT_EQ(s.HelpNumber, 316);
}

TEST_F(PolynomialForms, RationalEquationClearsDenominators) {
  s.QuadraticMethod = 1;
  const std::string answers = Solve("x/(x-1)=1/(x-1)+2");
  EXPECT_EQ(answers, "1");  // the check of the command rejects it: x-1 vanishes there
  EXPECT_TRUE(
      Wrote("This is a fractional (rational) equation.  Eliminate the denominators.  "
            "Multiply the equation through by the LCD (lowest common denominator), "
            "namely @(x-1)@ .  To help find the LCD, turn non-fraction terms into "
            "fractions with denominators of 1."));
  EXPECT_TRUE(Wrote("Carry out the multiplication."));
}

TEST_F(PolynomialForms, RationalEquationWithTwoDenominatorsBecomesQuadratic) {
  s.QuadraticMethod = 1;
  const std::string answers = Solve("1/x+1/(x+1)=1/2");
  EXPECT_NE(answers.find("sqrt(17)"), std::string::npos) << answers;
  EXPECT_TRUE(Wrote("Sort and/or simplify."));
}

TEST_F(PolynomialForms, RationalHintNamesTheLcd) {
  EXPECT_NE(Hint("1/x+1/(x+1)=1/2").find("Find the LCD (lowest common denominator), namely"),
            std::string::npos);
  EXPECT_EQ(s.HelpNumber, 113);
}

TEST_F(PolynomialForms, IdentityAndContradictionAfterExpanding) {
  EXPECT_EQ(Solve("2*(x+1)=2*x+2"), "any-value");
  EXPECT_EQ(Solve("2*(x+1)=2*x+3"), "no-solution");
}

TEST_F(PolynomialForms, FactorableHigherDegreeIsFactoredAtTheLastRung) {
  const std::string answers = Solve("x^3-6*x^2+11*x-6=0");
  for (const char* root : {"1", "2", "3"}) {
    EXPECT_NE(answers.find(root), std::string::npos) << answers;
  }
  EXPECT_TRUE(Wrote("This equation is factorable.  Factor the left side."));
}

}  // namespace
}  // namespace tavimor
