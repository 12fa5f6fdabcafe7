// Tests of the equation solver's driver: the steps it writes, the answers it gives, and hint
// mode.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/pieces.h"
#include "solve/auto_solve.h"
#include "support/numeric_value.h"
#include "support/solve_fixture.h"

namespace tavimor {
namespace {

using AutoSolveTest = SolveTest;

TEST_F(AutoSolveTest, EqualSidesAreAnIdentityWithNoStep) {
  EXPECT_EQ(Solve("x=x"), "any-value");
  EXPECT_EQ(s.StepCount, 0);
  EXPECT_EQ(Transcript(), "This equation is an identity.  Any value of @x@ is a solution.\n\n");
  EXPECT_EQ(s.HelpNumber, 150);
}

TEST_F(AutoSolveTest, ContradictionHasNoSolution) {
  EXPECT_EQ(Solve("x+1=x+2"), "no-solution");
  EXPECT_TRUE(Wrote("This equation has no solution."));
  EXPECT_EQ(s.HelpNumber, 151);
}

TEST_F(AutoSolveTest, UnknownOnTheRightIsSwappedFirst) {
  EXPECT_EQ(Solve("5=x"), "5");
  EXPECT_EQ(Transcript().find("Swap the left side and right side to get @x@ on the left side."),
            0u);
  EXPECT_TRUE(Wrote("@x=5@"));
  EXPECT_TRUE(Wrote("This equation is now solved for @x@ ."));
}

TEST_F(AutoSolveTest, SquareEqualToUnknownSplitsIntoTwoEquations) {
  EXPECT_EQ(Solve("x^2=x"), "0; 1");
  EXPECT_TRUE(
      Wrote("Move everything to the left side and factor out the common factor @x@.  \n(Note "
            "that you can't simply cancel this factor out because it contains @x@ and doing so "
            "would cause you to lose a solution.)"));
  EXPECT_TRUE(Wrote("@x*(x-1)=0@"));
  EXPECT_TRUE(
      Wrote("Replace this equation with 2 new equations.  Each new equation comes from "
            "setting one of the factors to zero.  The first new equation (which is "
            "already solved) is:"));
  EXPECT_TRUE(Wrote("The next new equation is:"));
  EXPECT_TRUE(Wrote("Now proceed to solve the equation:"));
  EXPECT_LT(Where("The first new equation"), Where("The next new equation is:"));
}

TEST_F(AutoSolveTest, LikeTermIsSubtractedThenTheSidesSwap) {
  EXPECT_EQ(Solve("x+5=3*x"), "5/2");
  EXPECT_TRUE(Wrote("Simplify by subtracting @x@ on both sides of the equation."));
  EXPECT_TRUE(Wrote("@5=2*x@"));
  EXPECT_LT(Where("subtracting @x@"), Where("Swap the left side and right side"));
}

TEST_F(AutoSolveTest, LikeTermsOnBothSidesShareTheirCommonFactor) {
  // 2*x-4*x: the terms as they stand share 2*x, which holds the unknown, so it is factored out
  // rather than cancelled, and no solution is lost.
  EXPECT_EQ(Solve("2*x=4*x"), "0");
  EXPECT_TRUE(Wrote("Move everything to the left side and factor out the common factor @2*x@."));
}

TEST_F(AutoSolveTest, ConstantTermsAreNotCollectedBeforeTheCommonFactorIsSought) {
  EXPECT_EQ(Solve("2*x+3=7"), "2");
  EXPECT_FALSE(Wrote("common factor"));
  EXPECT_TRUE(Wrote("Subtract @3@ from both sides."));
}

TEST_F(AutoSolveTest, SolvedFactorAfterEarlierAnswersIsAnAnswerOfItsOwn) {
  // The negative branch of the square root splits x*(x-2)=0 after the positive branch has
  // ended: its answer 0 stands apart from what came before.
  const std::string answers = Solve("(x^2-2*x-1)^2=1");
  EXPECT_NE(("; " + answers + ";").find("; 0;"), std::string::npos) << answers;
  EXPECT_NE(("; " + answers + ";").find("; 2;"), std::string::npos) << answers;
  EXPECT_EQ(answers.find(","), std::string::npos) << answers;
}

TEST_F(AutoSolveTest, DenominatorOfAProductEqualToZeroIsClearedWithoutATest) {
  EXPECT_EQ(Solve("x*(x-1)/(x-2)=0"), "0; 1");
  EXPECT_TRUE(Wrote("Multiply both sides by the factor @(x-2)@ ."));
}

TEST_F(AutoSolveTest, ConstantFactorOfAProductEqualToZeroIsDividedAway) {
  EXPECT_EQ(Solve("3*(x-2)=0"), "2");
  EXPECT_TRUE(Wrote("Divide both sides by the factor @3@ ."));
}

TEST_F(AutoSolveTest, SwapOfSeveralOccurrencesSwapsTheCounts) {
  // With the counts swapped, the square root holding both occurrences is undone at once.
  Solve("2=sqrt(x^2+x)");
  EXPECT_TRUE(Wrote("Swap the left side and right side"));
  EXPECT_TRUE(Wrote("Square both sides."));
  EXPECT_LT(Where("Swap the left side"), Where("Square both sides."));
}

TEST_F(AutoSolveTest, NoEqualsSignSolvesTheSideEqualToZero) {
  EXPECT_EQ(Solve("2*x-4"), Solve("2*x-4=0"));
  EXPECT_EQ(Solve("2*x-4"), "2");
}

TEST_F(AutoSolveTest, ResultOnlyWritesNothingAndGivesTheSameAnswers) {
  const std::string shown = Solve("x^2=x");
  const int steps = s.StepCount;
  frontend.work_space.clear();
  s.SolveDetail = 0;
  s.StepCount = 0;
  EXPECT_EQ(Solve("x^2=x"), shown);
  EXPECT_EQ(Transcript(), "");
  EXPECT_EQ(s.StepCount, steps);
}

TEST_F(AutoSolveTest, CommonNumberFactorIsDividedOut) {
  EXPECT_EQ(Solve("2*x+4=6"), "1");
  EXPECT_TRUE(Wrote("Simplify by dividing both sides through by the common factor @2@ ."));
}

TEST_F(AutoSolveTest, CommonTermsAreCancelled) {
  EXPECT_EQ(Solve("x^2+3=x^2+x"), "3");
  EXPECT_TRUE(Wrote("Simplify by subtracting @x^2@ from both sides of the equation."));
}

TEST_F(AutoSolveTest, SidesThatSimplifyAreWrittenOnce) {
  Solve("x+x=4");
  EXPECT_EQ(Transcript().find("Simplify each side of the equation and/or write it in a sorted "
                              "form."),
            0u);
}

TEST_F(AutoSolveTest, AnEquationBeyondTheBuiltFormsIsUnsolvable) {
  EXPECT_EQ(Solve("x^x=2"), "unsolvable");
  EXPECT_TRUE(Wrote("Transpose (add or subtract) everything to the left side of the equation."));
  EXPECT_TRUE(Wrote("This equation is unsolvable with this version of the program."));
  EXPECT_EQ(s.HelpNumber, 114);
}

TEST_F(AutoSolveTest, OptionsAreRestoredAfterTheRun) {
  s.ExponentToReciprocal = false;
  s.ExponentToRadical = false;
  s.ExtraUnknown = "t";
  Solve("2*x=4");
  EXPECT_FALSE(s.ExponentToReciprocal);
  EXPECT_FALSE(s.ExponentToRadical);
  EXPECT_EQ(s.ExtraUnknown, "t");
}

TEST_F(AutoSolveTest, RunPastItsBoundOfRoundsStopsWithARunTimeError) {
  std::string answers;
  s.ExponentToRadical = false;
  EXPECT_THROW(AutoSolve(s, "x^2=x", "x", answers, 3), RunTimeError);
  EXPECT_FALSE(s.ExponentToRadical);
  EXPECT_NO_THROW(AutoSolve(s, "x^2=x", "x", answers));
  EXPECT_EQ(answers, "0; 1");
}

TEST_F(AutoSolveTest, CompletingTheSquareIsInTheUnknownAmongOtherLetters) {
  // y*x^2-x+k*y^2-1=0 is a quadratic in x with coefficients in y and k, not one in y.
  s.QuadraticMethod = 2;  // completing the square
  const std::string answers = Solve("k*y^2+y*x^2=x+1");
  EXPECT_TRUE(
      Wrote("divide both sides of the equation by @y@ so the coefficient of the "
            "quadratic term becomes 1."));
  EXPECT_EQ(Where("@y^2+"), std::string::npos);
  const double k = 2.0;
  const double y = 0.5;
  int checked = 0;
  for (int piece = 1; piece <= 2; ++piece) {
    const std::string answer = GetPiece(answers, piece, "; ");
    ASSERT_FALSE(answer.empty()) << answers;
    const double x = NumericValue(s, {{'k', k}, {'y', y}}).Of(answer);
    EXPECT_NEAR(k * y * y + y * x * x, x + 1.0, 1e-9) << answer;
    ++checked;
  }
  EXPECT_EQ(checked, 2);
}

TEST_F(AutoSolveTest, OtherLetterIsSolvedFor) { EXPECT_EQ(Solve("3*y=x", "y"), "1/3*x"); }

class AutoSolveHint : public AutoSolveTest {
 protected:
  AutoSolveHint() {
    s.SolveDetail = 0;
    s.HintState = 1;
  }
};

TEST_F(AutoSolveHint, FirstStepIsTheHintAndNothingIsWritten) {
  Solve("5=x");
  EXPECT_EQ(s.HintState, 2);
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0], "Swap the left side and right side to get @x@ on the left side.\n");
  EXPECT_EQ(s.HelpNumber, 105);
  EXPECT_EQ(Transcript(), "");
}

TEST_F(AutoSolveHint, StepThatIsNoHintPassesItOn) {
  // 101 is no hint: the hint is the next step.
  Solve("x+x=4");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Simplify by dividing both sides through by the common factor @2@ .\n");
  EXPECT_EQ(s.HelpNumber, 103);
}

TEST_F(AutoSolveHint, SplitIntoNewEquationsIsShownAtOnce) {
  Solve("x*(x-1)=0");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Replace this equation with 2 new equations.  Each new equation comes from setting "
            "one of the factors to zero.\n");
  EXPECT_EQ(s.HelpNumber, 118);
}

TEST_F(AutoSolveHint, SolvedEquationHintsThatItIsSolved) {
  Solve("x=2+3");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0], "This equation is now solved for @x@ .\n\n");
  EXPECT_EQ(s.HelpNumber, 109);
}

TEST_F(AutoSolveHint, UnsolvableLineIsTheHint) {
  Solve("x^x=2");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0], "This equation is unsolvable with this version of the program.\n");
}

}  // namespace
}  // namespace tavimor
