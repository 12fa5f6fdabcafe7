// Tests of the solver on radical, logarithmic and exponential equations: the steps each form
// takes, its messages, where it gives up, and its hints.
#include <gtest/gtest.h>

#include "core/pieces.h"
#include "manipulate/factor.h"
#include "solve/auto_solve.h"
#include "solve/exponential_alias.h"
#include "solve/solve_exponential.h"
#include "solve/solve_logarithmic.h"
#include "support/solve_fixture.h"

namespace tavimor {
namespace {

class NonPolynomialSolveTest : public SolveTest {
 protected:
  // The last hint the solver gives on the equation, and nothing written.
  std::string Hint(const std::string& equation) {
    const std::vector<std::string>& hints = Hints(equation);
    EXPECT_EQ(s.HintState, 2);
    EXPECT_EQ(Transcript(), "");
    return hints.empty() ? "" : hints.back();
  }
};

// Radical equations.

TEST_F(NonPolynomialSolveTest, TwoRadicalsIsolateTheFirstThenSquare) {
  EXPECT_EQ(Solve("sqrt(x)+sqrt(x+1)=3"), "16/9");
  EXPECT_TRUE(Wrote("This is a radical equation.  Isolate one of the radical terms."));
  EXPECT_TRUE(Wrote("@sqrt(x)=-sqrt(x+1)+3@"));
  EXPECT_TRUE(
      Wrote("This is a radical equation with one of the radical terms isolated.  Square "
            "both sides."));
  EXPECT_LT(Where("Isolate one of the radical terms."), Where("Square both sides."));
}

TEST_F(NonPolynomialSolveTest, LoneRootOfTheUnknownIsIsolatedNotSquaredAsAForm) {
  EXPECT_EQ(Solve("sqrt(x)=3"), "9");
  EXPECT_FALSE(Wrote("This is a radical equation"));
}

TEST_F(NonPolynomialSolveTest, RadicalWithTheUnknownOnBothSidesIsSquared) {
  EXPECT_EQ(Solve("sqrt(x)=x-2"), "4; 1");
  EXPECT_TRUE(
      Wrote("This is a radical equation with the radical term isolated.  Square both "
            "sides."));
  EXPECT_TRUE(Wrote("@x=(x-2)^2@"));
  EXPECT_EQ(Where("This is a radical equation"), Transcript().rfind("This is a radical equation"));
}

TEST_F(NonPolynomialSolveTest, RadicalTermBesideOthersIsIsolatedFirst) {
  Solve("sqrt(x+3)+3=x");
  EXPECT_TRUE(Wrote("This is a radical equation.  Isolate the radical term."));
  EXPECT_TRUE(Wrote("@sqrt(x+3)=x-3@"));
}

// Logarithmic equations.

TEST_F(NonPolynomialSolveTest, NaturalLogarithmOnEachSideIsAntilogged) {
  EXPECT_EQ(Solve("ln(x)=ln(2*x-1)"), "1");
  EXPECT_TRUE(Wrote("This is a logarithmic equation.  Antilog both sides to base e."));
  EXPECT_TRUE(Wrote("@x=2*x-1@"));
  EXPECT_GT(s.StepCount, 0);
}

TEST_F(NonPolynomialSolveTest, BaseTenLogarithmOnEachSideIsAntiloggedToBaseTen) {
  EXPECT_EQ(Solve("log(x+1)=log(3*x-5)"), "3");
  EXPECT_TRUE(Wrote("This is a logarithmic equation.  Antilog both sides to base 10."));
}

TEST_F(NonPolynomialSolveTest, BaseTenLogarithmOnTheRightIsChangedToNatural) {
  const std::string answers = Solve("ln(x)=log(x+1)");
  EXPECT_TRUE(
      Wrote("This is a logarithmic equation.  Use the change of base formula "
            "@log(y)->ln(y)/ln(10)@ to convert the base 10 logarithm on the right to a "
            "natural logarithm."));
  EXPECT_TRUE(Wrote("@ln(x)=ln(x+1)/ln(10)@"));
  // A new pass takes the equation on; it ends without a false answer.
  EXPECT_EQ(answers, "unsolvable");
}

TEST_F(NonPolynomialSolveTest, BaseTenLogarithmOnTheLeftIsChangedToNatural) {
  Solve("log(x+1)=ln(x)");
  EXPECT_TRUE(
      Wrote("This is a logarithmic equation.  Use the change of base formula "
            "@log(y)->ln(y)/ln(10)@ to convert the base 10 logarithm on the left to a "
            "natural logarithm."));
}

TEST_F(NonPolynomialSolveTest, CoefficientOnceIsIsolatedNotFolded) {
  Solve("2*ln(x)=ln(4)");
  EXPECT_FALSE(Wrote("This is a logarithmic equation."));
  EXPECT_TRUE(Wrote("This is an equation in which the unknown occurs just once."));
}

TEST_F(NonPolynomialSolveTest, CoefficientOfALogarithmGoesInsideBeforeTheAntilog) {
  // The number 2 goes into the logarithm (ln(x^2)) before both sides are antilogged; the root -1
  // comes out of the antilog and is left to the check.
  EXPECT_EQ(Solve("2*ln(x)=ln(x+2)"), "2; -1");
  EXPECT_TRUE(Wrote("@ln(x^2)=ln(x+2)@"));
  EXPECT_LT(Where("@ln(x^2)=ln(x+2)@"), Where("Antilog both sides to base e."));
  EXPECT_TRUE(Wrote("@x^2=x+2@"));
}

TEST_F(NonPolynomialSolveTest, CoefficientOfALogarithmIsFoldedIntoItsArgument) {
  EXPECT_EQ(FoldCoefficient(s, "2*ln(x)", "x"), "ln(x^2)");
  EXPECT_EQ(FoldCoefficient(s, "ln(x+1)/3", "x"), "ln((x+1)^(1/3))");
  EXPECT_EQ(FoldCoefficient(s, "-log(x)", "x"), "log(x^(-1))");
}

TEST_F(NonPolynomialSolveTest, FoldedCoefficientIsToldBeforeTheAntilog) {
  // The coefficient holds the unknown's partner ln(10): it is folded, then both sides antilogged.
  Solve("ln(x)*ln(10)=ln(x+1)");
  EXPECT_TRUE(
      Wrote("This is a logarithmic equation.  Use the property of logarithms "
            "@a*log(y)->log(y^a)@ to get rid of the factor multiplying the logarithm."));
  EXPECT_TRUE(Wrote("Antilog both sides to base e."));
  EXPECT_FALSE(Wrote("This is a logarithmic equation.  Antilog"));
}

TEST_F(NonPolynomialSolveTest, UnknownInsideAndOutsideALogarithmIsUnsolvable) {
  EXPECT_EQ(Solve("x+ln(x)=0"), "unsolvable");
  EXPECT_TRUE(
      Wrote("This equation is unsolvable because x occurs both inside and outside a "
            "logarithm function."));
  EXPECT_EQ(s.HelpNumber, 167);
}

TEST_F(NonPolynomialSolveTest, LogarithmsAreGatheredOnTheLeft) {
  Solve("ln(x)+2=ln(x+1)*3");
  EXPECT_TRUE(
      Wrote("This is a logarithmic equation.  Transpose (add or subtract) terms so all "
            "logarithms end up on the"));
}

TEST_F(NonPolynomialSolveTest, SquareOfALogarithmIsFactoredRatherThanGatheredForever) {
  EXPECT_EQ(Solve("ln(x)^2-ln(x)=2"), "1/e; e^2");
  EXPECT_FALSE(Wrote("Transpose (add or subtract) terms so all logarithms"));
}

TEST_F(NonPolynomialSolveTest, TermCodesTellWholeFactorLogarithmAndUnknown) {
  EXPECT_EQ(LogTermCode(s, {false, "ln(x)"}, "x"), "+WEX");
  EXPECT_EQ(LogTermCode(s, {true, "log(2)"}, "x"), "-WDN");
  EXPECT_EQ(LogTermCode(s, {false, "3*log(x)"}, "x"), "+FDX");
  EXPECT_EQ(LogTermCode(s, {false, "5"}, "x"), "+WNN");
  EXPECT_EQ(LogTermCode(s, {false, "x^2"}, "x"), "+FNX");
}

TEST_F(NonPolynomialSolveTest, LogToLnWritesEachBaseTenLogarithmAsAQuotient) {
  EXPECT_EQ(LogToLn(s, "log(x+1)"), "ln(x+1)/ln(10)");
  EXPECT_EQ(LogToLn(s, "ln(x)"), "ln(x)");
}

// Exponential equations of two terms.

TEST_F(NonPolynomialSolveTest, TwoBasesTakeTheBaseTenLogarithm) {
  const std::string answers = Solve("2^x=3^(x+1)");
  EXPECT_TRUE(
      Wrote("This is an exponential equation with exactly one term on each side of the "
            "equation.  Take the base 10 logarithm of both sides of the equation (but the "
            "natural logarithm would work just as well) and use the property of "
            "logarithms that @log(b^x)->x*log(b)@ to bring down the exponent."));
  EXPECT_TRUE(Wrote("@x*log(2)=(x+1)*log(3)@"));
  EXPECT_EQ(CountPieces(answers, "; "), 1);
}

TEST_F(NonPolynomialSolveTest, PowersOfETakeTheNaturalLogarithm) {
  Solve("e^(2*x)=3*e^(x+1)");
  EXPECT_TRUE(
      Wrote("Take the natural logarithm of both sides of the equation and use the "
            "property of logarithms that @ln(a*b^x)->ln(a)+x*ln(b)@ to bring down the "
            "exponent."));
}

TEST_F(NonPolynomialSolveTest, PowersOfTenAloneTakeTheBaseTenLogarithm) {
  Solve("10^(2*x)=5*10^x");
  EXPECT_TRUE(
      Wrote("Take the base 10 logarithm of both sides of the equation and use the "
            "property of logarithms that @log(a*b^x)->log(a)+x*log(b)@ to bring down the "
            "exponent."));
}

TEST_F(NonPolynomialSolveTest, OppositeSignsOfTheTwoSidesHaveNoSolution) {
  EXPECT_EQ(Solve("-2^x=3^x"), "no-solution");
  EXPECT_TRUE(
      Wrote("This is an exponential equation with exactly one term on each side of the "
            "equation.  It has no solution because the left side is always negative and "
            "the right side is always positive."));
  EXPECT_EQ(s.HelpNumber, 270);
}

TEST_F(NonPolynomialSolveTest, BothSidesNegativeAreMultipliedThroughByMinusOne) {
  Solve("-2^x=-3^(x+1)");
  EXPECT_TRUE(
      Wrote("This is an exponential equation with exactly one term on each side of the "
            "equation.  Multiply the equation through by -1."));
  EXPECT_TRUE(Wrote("@2^x=3^(x+1)@"));
  EXPECT_TRUE(Wrote("Take the base 10 logarithm"));
}

TEST_F(NonPolynomialSolveTest, TwoTermsOnTheLeftMoveTheNegativeOneToTheRight) {
  // Sorted first as -2*3^x+5^x: the first term, negative, is the one that moves.
  Solve("5^x-2*3^x=0");
  EXPECT_TRUE(
      Wrote("This is an exponential equation with exactly two terms.  Move the first "
            "term to the RHS."));
  EXPECT_TRUE(Wrote("@5^x=2*3^x@"));
}

TEST_F(NonPolynomialSolveTest, TwoPositiveTermsHaveNoSolution) {
  EXPECT_EQ(Solve("2^x+3^x=0"), "no-solution");
  EXPECT_TRUE(
      Wrote("This is an exponential equation.  It has no solution because both terms on "
            "the left side are always positive."));
  EXPECT_EQ(s.HelpNumber, 271);
}

TEST_F(NonPolynomialSolveTest, TwoTermExponentialKeepsItsCommonFactor) {
  // 2*2^x=4*3^x: dividing by 2 is left to the logarithm.
  Solve("2*2^x=4*3^x");
  EXPECT_FALSE(Wrote("common factor"));
  EXPECT_TRUE(Wrote("Take the base 10 logarithm"));
}

TEST_F(NonPolynomialSolveTest, TwoTermExponentialIsRecognisedOnlyWithExponentialTerms) {
  EXPECT_TRUE(IsTwoTermExponential(s, "2^x", "3^(x+1)", "x"));
  EXPECT_TRUE(IsTwoTermExponential(s, "5*2^x", "3^x", "x"));
  EXPECT_FALSE(IsTwoTermExponential(s, "2^x+3^x", "1", "x"));
  EXPECT_FALSE(IsTwoTermExponential(s, "x*2^x", "1", "x"));
  EXPECT_FALSE(IsTwoTermExponential(s, "x^2", "4", "x"));
}

TEST_F(NonPolynomialSolveTest, TermSplitsIntoCoefficientAndExponentials) {
  const ExponentialSplit split = SplitExponentialTerm(s, "5*2^x/7", "x");
  EXPECT_EQ(split.Coefficient, "5/7");
  EXPECT_EQ(split.Exponentials, "2^x");
  const std::vector<ExponentialRow> rows = ListExponentials(s, split);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].Exponent, "");
  EXPECT_EQ(rows[0].Base, "5/7");
  EXPECT_EQ(rows[1].Exponent, "x");
  EXPECT_EQ(rows[1].Base, "2");
}

// Exponential equations by an alias.

TEST_F(NonPolynomialSolveTest, QuadraticInAPowerOfEIsSolvedByAnAlias) {
  EXPECT_EQ(Solve("e^(2*x)-3*e^x+2=0"), "ln(2); 0");
  EXPECT_TRUE(
      Wrote("This is an exponential equation.  Temporarily replace the exponential @e^x@ "
            "with the alias Q and proceed to solve for Q."));
  EXPECT_TRUE(Wrote("@Q^2-3*Q+2=0@"));
  EXPECT_TRUE(
      Wrote("Now replace back the alias Q with @e^x@ in each equation.\nThe first "
            "equation is:"));
  EXPECT_TRUE(Wrote("@e^x=2@"));
  EXPECT_TRUE(Wrote("@e^x=1@"));
}

TEST_F(NonPolynomialSolveTest, OneValueOfTheAliasIsPutBackAlone) {
  // 4^x+8*4^x = 9*4^x = 18
  EXPECT_EQ(Solve("4^x+2*4^(x+1)=18"), "1/2");
  EXPECT_TRUE(Wrote("Now replace back the alias Q with @4^x@ ."));
}

TEST_F(NonPolynomialSolveTest, ReciprocalOfAnExponentialIsClearedThenAliased) {
  const std::string answers = Solve("e^x+e^(-x)=2");
  EXPECT_EQ(answers, "0");
  EXPECT_LT(Where("Eliminate the denominators."),
            Where("Temporarily replace the exponential @e^x@ with the alias Q"));
  EXPECT_TRUE(Wrote("@Q^2+1=2*Q@"));
}

TEST_F(NonPolynomialSolveTest, CommonExponentIsTheCommonFactorOfTheExponents) {
  const CommonExponent common = FindCommonExponent(s, "2^(4*x)+2^(2*x+1)-3", "x");
  ASSERT_TRUE(common.Found);
  EXPECT_EQ(common.U, "2*x");
  EXPECT_EQ(common.E, "2^(2*x)");
  const CommonExponent negative = FindCommonExponent(s, "e^(-x)+e^(-2*x)-2", "x");
  // Every multiple negative: the common exponent takes the minus.
  ASSERT_TRUE(negative.Found);
  EXPECT_EQ(negative.U, "-x");
  EXPECT_EQ(negative.E, "e^(-x)");
}

TEST_F(NonPolynomialSolveTest, DifferentBasesFallThroughToTheLastRung) {
  EXPECT_EQ(Solve("2^x+3^x=1"), "unsolvable");
  EXPECT_TRUE(Wrote("Transpose (add or subtract) everything to the left side of the equation."));
  EXPECT_TRUE(Wrote("This equation is unsolvable with this version of the program."));
  EXPECT_EQ(s.HelpNumber, 114);
}

TEST_F(NonPolynomialSolveTest, ExponentsWithoutACommonMultipleAreUnsolvable) {
  EXPECT_EQ(Solve("2^(x^2)+2^x=1"), "unsolvable");
  EXPECT_TRUE(
      Wrote("This exponential equation is unsolvable because the exponents are not "
            "multiples of each other."));
  EXPECT_EQ(s.HelpNumber, 172);
}

TEST_F(NonPolynomialSolveTest, TwoTermsWithoutACommonMultipleGoToTheNextRung) {
  Solve("2^(x^2)=3*2^x");
  EXPECT_FALSE(Wrote("not multiples of each other"));
}

TEST_F(NonPolynomialSolveTest, UnknownInsideAndOutsideAnExponentIsUnsolvable) {
  EXPECT_EQ(Solve("x+2^x=0"), "unsolvable");
  EXPECT_TRUE(
      Wrote("This equation is unsolvable because x occurs both inside and outside an "
            "exponent."));
  EXPECT_EQ(s.HelpNumber, 170);
}

TEST_F(NonPolynomialSolveTest, WithoutStepsTheAnswersAndTheStepCountAreTheSame) {
  for (const char* equation :
       {"sqrt(x)+sqrt(x+1)=3", "sqrt(x+3)=x-3", "ln(x)=ln(2*x-1)", "ln(x)=log(x+1)", "3^(x+1)=5^x",
        "-2^x=3^x", "e^(2*x)-3*e^x+2=0", "2^(x^2)+2^x=1", "x+ln(x)=0"}) {
    s.SolveDetail = 1;
    s.StepCount = 0;
    const std::string shown = Solve(equation);
    const int shown_steps = s.StepCount;
    frontend.work_space.clear();
    s.SolveDetail = 0;
    s.StepCount = 0;
    EXPECT_EQ(Solve(equation), shown) << equation;
    EXPECT_EQ(s.StepCount, shown_steps) << equation;
    EXPECT_EQ(Transcript(), "") << equation;
  }
}

// Hints.

TEST_F(NonPolynomialSolveTest, HintOfARadicalEquationIsTheSquaring) {
  EXPECT_EQ(Hint("sqrt(x+3)=x-3"),
            "This is a radical equation with the radical term isolated.  Square both sides.\n");
  EXPECT_EQ(s.HelpNumber, 261);
}

TEST_F(NonPolynomialSolveTest, HintOfALogarithmicEquationIsTheAntilog) {
  EXPECT_EQ(Hint("ln(x)=ln(2*x-1)"),
            "This is a logarithmic equation.  Antilog both sides to base e.\n");
  EXPECT_EQ(s.HelpNumber, 389);
}

TEST_F(NonPolynomialSolveTest, HintOfATwoTermExponentialIsTheLogarithm) {
  EXPECT_NE(Hint("3^(x+1)=5^x").find("Take the base 10 logarithm of both sides"),
            std::string::npos);
  EXPECT_EQ(s.HelpNumber, 274);
}

TEST_F(NonPolynomialSolveTest, HintOfAnAliasNamesTheAliasAndItsEquation) {
  EXPECT_EQ(Hint("e^(2*x)-3*e^x+2=0"),
            "This is an exponential equation.  Temporarily replace the exponential @e^x@ with "
            "the alias Q.\nThe resulting equation is @Q^2-3*Q+2=0@ .  Solve it for Q.\nOnce "
            "solved, replace back the alias Q with the exponential @e^x@ and proceed to solve "
            "for x.\n");
}

TEST_F(NonPolynomialSolveTest, HintOfAnUnsolvableFormIsItsReason) {
  EXPECT_EQ(Hint("x+ln(x)=0"),
            "This equation is unsolvable because x occurs both inside and outside a logarithm "
            "function.\n");
  EXPECT_EQ(s.HelpNumber, 167);
}

TEST_F(NonPolynomialSolveTest, HintOfNoSolutionIsItsReason) {
  EXPECT_NE(Hint("-2^x=3^x").find("It has no solution because the left side is always negative"),
            std::string::npos);
  EXPECT_EQ(s.HelpNumber, 270);
}

}  // namespace
}  // namespace tavimor
