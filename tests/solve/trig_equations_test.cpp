// Tests of the trigonometric equations: the terms read by their angle, the common angle, each of
// the forms solved with its messages, the unsolvable ones, and the hints.
#include <gtest/gtest.h>

#include <cmath>

#include "shell/main_flow.h"
#include "solve/auto_solve.h"
#include "solve/trig_equations.h"
#include "solve/trig_forms.h"
#include "solve/trig_terms.h"
#include "support/numeric_value.h"
#include "support/solve_fixture.h"

namespace tavimor {
namespace {

class TrigTest : public SolveTest {
 protected:
  TrigTest() { StartUp(s, "."); }
  // The first hint the solver gives for the equation.
  std::string Hint(const std::string& equation) {
    const std::vector<std::string>& hints = Hints(equation);
    return hints.empty() ? "" : hints.front();
  }
  // A run with the equation moved to the left, as the ladder hands it to a rung.
  SolveRun Moved(const std::string& moved, const std::string& left, const std::string& right) {
    SolveRun run;
    run.Unknown = "x";
    run.WorkLeft = moved;
    run.WorkRight = "0";
    run.SavedLeft = left;
    run.SavedRight = right;
    run.PendingEquations = {{left, right}};
    return run;
  }
};

TEST_F(TrigTest, ReplaceAllLeavesTheTailOfALongerName) {
  EXPECT_EQ(ReplaceAll("sin(x)+arcsin(x)-2*sin(x)", "sin(x)", "Q"), "Q+arcsin(x)-2*Q");
  EXPECT_EQ(ReplaceAll("cos(x)", "sin(x)", "Q"), "cos(x)");
}

TEST_F(TrigTest, NegatedIfNegativeStripsOneMinus) {
  std::string text = "-3/2";
  EXPECT_TRUE(NegatedIfNegative(text));
  EXPECT_EQ(text, "3/2");
  EXPECT_FALSE(NegatedIfNegative(text));
  EXPECT_EQ(text, "3/2");
}

TEST_F(TrigTest, SplitByAngleGathersEachFieldWithItsSign) {
  const AngleCoefficients c =
      SplitByAngle(s, "3*sin(x)-sin(-x)+2*cos(x)+5*cos(2*x)-sin(2*x)+7+tan(x)", "x");
  EXPECT_EQ(c.SinCoef, "4");
  EXPECT_EQ(c.CosCoef, "2");
  EXPECT_EQ(c.Cos2Coef, "5");
  EXPECT_EQ(c.Sin2Coef, "-1");
  EXPECT_EQ(c.TrigConst, "7");
  EXPECT_EQ(c.TrigOther, "tan(x)");
  EXPECT_EQ(c.sin_terms, 2);
  EXPECT_EQ(c.cos_terms, 1);
}

TEST_F(TrigTest, SplitByAngleSendsAPowerOfAFunctionToTheOtherTerms) {
  const AngleCoefficients c = SplitByAngle(s, "sin(x)^2+cos(x)", "x");
  EXPECT_EQ(c.TrigOther, "sin(x)^2");
  EXPECT_EQ(c.CosCoef, "1");
  EXPECT_EQ(c.SinCoef, "0");
}

TEST_F(TrigTest, SplitAngleSumReadsShiftsAndLeavesTheRest) {
  const AngleSum sum = SplitAngleSum(s, "2*sin(x+30)-cos(x)+sin(2*x)+5", "x");
  ASSERT_EQ(sum.rows.size(), 2u);
  EXPECT_EQ(sum.rows[0].coefficient, "2");
  EXPECT_EQ(sum.rows[0].function, "sin(");
  EXPECT_EQ(sum.rows[0].shift, "30");
  EXPECT_EQ(sum.rows[1].coefficient, "-1");
  EXPECT_EQ(sum.rows[1].function, "cos(");
  EXPECT_EQ(sum.rows[1].shift, "0");
  EXPECT_EQ(sum.rest, "sin(2*x)+5");
}

TEST_F(TrigTest, ExpandAngleSumFollowsTheSignsOfTheIdentity) {
  EXPECT_EQ(ExpandAngleSum(s, "x", "1", "sin(", "30"), "sin(x)*cos(30)+cos(x)*sin(30)");
  EXPECT_EQ(ExpandAngleSum(s, "x", "1", "sin(", "-30"), "sin(x)*cos(30)-cos(x)*sin(30)");
  EXPECT_EQ(ExpandAngleSum(s, "x", "2", "cos(", "30"), "2*cos(x)*cos(30)-2*sin(x)*sin(30)");
  EXPECT_EQ(ExpandAngleSum(s, "x", "1", "cos(", "-30"), "cos(x)*cos(30)+sin(x)*sin(30)");
  EXPECT_EQ(ExpandAngleSum(s, "x", "-1", "sin(", "30"), "-sin(x)*cos(30)-cos(x)*sin(30)");
  EXPECT_EQ(ExpandAngleSum(s, "x", "1", "sin(-", "30"), "-sin(x)*cos(30)+cos(x)*sin(30)");
}

TEST_F(TrigTest, CommonAngleIsTheSmallerOfADoubleAngle) {
  std::string angle;
  ASSERT_TRUE(FindCommonAngle(s, {"4*x", "2*x"}, "x", angle));
  EXPECT_EQ(angle, "2*x");
  ASSERT_TRUE(FindCommonAngle(s, {"x", "2*x", "x"}, "x", angle));
  EXPECT_EQ(angle, "x");
}

TEST_F(TrigTest, CommonAngleOfShiftedArgumentsIsTheirCommonPart) {
  std::string angle;
  ASSERT_TRUE(FindCommonAngle(s, {"x+30", "x"}, "x", angle));
  EXPECT_EQ(angle, "x");
}

TEST_F(TrigTest, TripleAngleHasACommonPartButNoRatio) {
  std::string angle;
  ASSERT_TRUE(FindCommonAngle(s, {"3*x", "x"}, "x", angle));
  EXPECT_EQ(angle, "x");
  EXPECT_FALSE(FindCommonAngle(s, {"x^2", "x"}, "x", angle));
}

TEST_F(TrigTest, OneOccurrenceIsInvertedAndNeverAliased) {
  EXPECT_EQ(Solve("sin(x)=1/2"), "arcsin(1/2)");
  EXPECT_FALSE(Wrote("alias"));
  EXPECT_FALSE(Wrote("trigonometric equation"));
}

TEST_F(TrigTest, SameFunctionGivesAQuadraticInTheAliasAndTwoRows) {
  EXPECT_EQ(Solve("2*sin(x)^2-sin(x)=1"), "arcsin(1); -arcsin(1/2)");
  EXPECT_TRUE(
      Wrote("This is a trig equation containing the same trig function of the same angle.  "
            "Temporarily replace the trig function @sin(x)@ with the alias Q and proceed to "
            "solve for Q."));
  EXPECT_TRUE(
      Wrote("Now replace back the alias Q with @sin(x)@ in each equation.\nThe first equation "
            "is:"));
  EXPECT_TRUE(Wrote("@sin(x)=1@"));
  EXPECT_TRUE(Wrote("@sin(x)=-1/2@"));
}

TEST_F(TrigTest, SameFunctionWithTheUnknownOutsideIsUnsolvable) {
  EXPECT_EQ(Solve("sin(x)+x=1"), "unsolvable");
  EXPECT_TRUE(
      Wrote("This equation is unsolvable because x occurs both inside and outside a trig "
            "function."));
  EXPECT_EQ(s.HelpNumber, 170);
}

TEST_F(TrigTest, UnknownOutsideTheFunctionsIsUnsolvableByTheForms) {
  SolveRun run = Moved("sin(x)+x-1", "sin(x)+x", "1");
  EXPECT_EQ(SolveTrigonometric(s, run), FormStatus::FormUnsolvable);
  EXPECT_EQ(s.HelpNumber, 181);
  EXPECT_TRUE(
      Wrote("This equation can't be solved with algebra because x occurs both inside and "
            "outside a trigonometric function."));
}

TEST_F(TrigTest, NoTrigFunctionIsNotThisForm) {
  SolveRun run = Moved("x^x-2", "x^x", "2");
  EXPECT_EQ(SolveTrigonometric(s, run), FormStatus::FormNotThisForm);
  EXPECT_EQ(SolveSameTrigFunction(s, run), FormStatus::FormNotThisForm);
  EXPECT_EQ(Transcript(), "");
}

TEST_F(TrigTest, SineEqualToCosineIsSolvedByTheTangent) {
  EXPECT_EQ(Solve("sin(x)=cos(x)"), "arctan(1)");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation that can be solved by converting it to the "
            "form @A*sin(x)=B*cos(x)@ ."));
  EXPECT_TRUE(Wrote("Solve for @sin(x)/cos(x)@ ."));
  EXPECT_TRUE(Wrote("Write @sin(x)/cos(x)->tan(x)@ ."));
  EXPECT_TRUE(Wrote("Take the arctan of both sides."));
  // The sides were already sin(x) and cos(x): nothing to gather.
  EXPECT_FALSE(Wrote("Gather all"));
}

TEST_F(TrigTest, NegativeTangentTellsTheSignMovesToTheFront) {
  EXPECT_EQ(Solve("3*sin(x)+4*cos(x)=0"), "-arctan(4/3)");
  EXPECT_TRUE(
      Wrote("Gather all sin(x) terms on the left side and all cos(x) terms on the right side."));
  EXPECT_TRUE(Wrote("@3*sin(x)=-4*cos(x)@"));
  EXPECT_TRUE(
      Wrote("Take the arctan of both sides.  Note that on the RHS the - sign can be moved "
            "to the front."));
}

TEST_F(TrigTest, ExactTangentInDegreesIsThePrincipalValue) {
  s.Degrees = true;
  EXPECT_EQ(Solve("sin(x)=cos(x)"), "45");
  EXPECT_TRUE(
      Wrote("Take the arctan of both sides.  Note that @arctan(1)@ has many values.  The "
            "value shown on the RHS is the principal value."));
}

TEST_F(TrigTest, SinePlusCosineIsOneTakesAPhaseAngle) {
  EXPECT_EQ(Solve("sin(x)+cos(x)=1"), "-arctan(1)+arcsin(1/2*sqrt(2))");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation that can be solved by converting it to the "
            "form @A*sin(x+B)=C@ ."));
  EXPECT_TRUE(
      Wrote("Combine the sin and cos into a sin with a phase angle.  (Press F1 for more "
            "info.)"));
  EXPECT_TRUE(Wrote("@sqrt(2)*sin(x+arctan(1))=1@"));
}

TEST_F(TrigTest, ShiftedSineInDegreesIsWrittenOutFirst) {
  s.Degrees = true;
  EXPECT_EQ(Solve("sin(x+30)+cos(x)=1"), "arcsin(1/3*sqrt(3))-60");
  EXPECT_TRUE(
      Wrote("Use the sum-of-angles trig identity to replace "
            "@sin(x+30)->sin(x)*cos(30)+cos(x)*sin(30)@ ."));
  EXPECT_TRUE(Wrote("The resulting equation is:"));
  EXPECT_TRUE(Wrote("Combine all the sin(x) terms and all the cos(x) terms.  "));
  EXPECT_TRUE(Wrote("@sqrt(3)*sin(x+60)=1@"));
}

TEST_F(TrigTest, ConstantsAreMovedToTheRightFirst) {
  EXPECT_EQ(Solve("sin(x)+cos(x)+1=0"), "-arctan(1)-arcsin(1/2*sqrt(2))");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation.  First transpose (add or subtract) sines and "
            "cosines to the left side of the equation and constants to the right."));
}

// The phase shift of a negative sine coefficient: half a turn in the units of the options.
class PhaseShift : public TrigTest {
 protected:
  std::string Left() {
    SolveRun run = Moved("cos(x)-sqrt(5)*sin(x)+sin(x)-1", "cos(x)-sqrt(5)*sin(x)+sin(x)", "1");
    TrigEquation eq;
    eq.angle = "x";
    eq.x = "x";
    EXPECT_EQ(SolveByPhaseAngle(s, run, eq), FormStatus::FormChanged);
    EXPECT_TRUE(Wrote("Group all the sin(x) terms together and all the cos(x) terms together."));
    return run.SavedLeft;
  }
};

TEST_F(PhaseShift, InDegreesIsOneHundredEighty) {
  s.Degrees = true;
  EXPECT_NE(Left().find("-180)"), std::string::npos);
}

TEST_F(PhaseShift, WithSpecialPIsP) {
  s.SpecialP = true;
  EXPECT_NE(Left().find("-p)"), std::string::npos);
}

TEST_F(PhaseShift, InRadiansIsTheNumber) {
  EXPECT_NE(Left().find("-3.14159265358979)"), std::string::npos);
}

TEST_F(TrigTest, NegativeSineCoefficientIsMadePositive) {
  SolveRun run = Moved("-2*sin(x)+cos(x)-1", "-2*sin(x)+cos(x)", "1");
  TrigEquation eq;
  eq.angle = "x";
  eq.x = "x";
  EXPECT_EQ(SolveByPhaseAngle(s, run, eq), FormStatus::FormChanged);
  EXPECT_TRUE(
      Wrote("It is helpful to multiply the equation through by -1 so that the coefficient "
            "of @sin(x)@ is positive."));
  EXPECT_EQ(run.SavedRight, "-1");
}

TEST_F(TrigTest, DoubleSineIsFactoredThenSplit) {
  EXPECT_EQ(Solve("sin(2*x)+sin(x)=0"), "0; arccos(-1/2)");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation of the form @A*sin(2x)+B*sin(x)=0@.  The "
            "key thing to notice is that one angle is double the other."));
  EXPECT_TRUE(
      Wrote("This form can always be solved by using the double angle trigonometric identity "
            "to make the replacement @sin(2*x)->2*sin(x)*cos(x)@ .  Then the equation becomes:"));
  EXPECT_TRUE(Wrote("Now the left side can be factored."));
  EXPECT_TRUE(Wrote("@sin(x)*(2*cos(x)+1)=0@"));
  EXPECT_TRUE(Wrote("Replace this equation with 2 new equations."));
}

TEST_F(TrigTest, DoubleSineWithCosineIsFactoredByTheCosine) {
  EXPECT_EQ(Solve("sin(2*x)+cos(x)=0"), "arccos(0); -arcsin(1/2)");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation of the form @A*sin(2*x)+B*cos(x)=0@ .  The "
            "key thing to notice is that one angle is double the other."));
  EXPECT_TRUE(Wrote("@cos(x)*(2*sin(x)+1)=0@"));
}

TEST_F(TrigTest, DoubleCosineIsAQuadraticInTheCosine) {
  EXPECT_EQ(Solve("cos(2*x)+cos(x)=0"), "arccos(1/2); arccos(-1)");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation of the form @A*cos(2x)+B*cos(x)+C=0@ .  "
            "The key thing to notice is that one angle is double the other."));
  EXPECT_TRUE(Wrote("@2*cos(x)^2+cos(x)-1=0@"));
  EXPECT_TRUE(
      Wrote("This is an equation of the quadratic form.  To see this temporarily replace "
            "@cos(x)@ with the alias Y."));
  EXPECT_TRUE(
      Wrote("Now replace back the alias Y with @cos(x)@ in each equation.\nThe first equation "
            "is:"));
}

TEST_F(TrigTest, SineWithDoubleCosineIsAQuadraticInTheSine) {
  EXPECT_EQ(Solve("sin(x)+cos(2*x)=1"), "0; arcsin(1/2)");
  EXPECT_TRUE(Wrote("to make the replacement @cos(2*x)->1-2*sin(x)^2@ ."));
  EXPECT_TRUE(Wrote("temporarily replace @sin(x)@ with the alias Y."));
}

TEST_F(TrigTest, DoubleCosineWithNoRealValueHasNoSolution) {
  EXPECT_EQ(Solve("cos(2*x)+5*cos(x)+10=0"), "no-solution");
}

TEST_F(TrigTest, AngleThatIsNotTheUnknownGetsAnAlias) {
  EXPECT_EQ(Solve("sin(4*x)+sin(2*x)=0"), "0; 1/2*arccos(-1/2)");
  EXPECT_TRUE(
      Wrote("This is a trigonometric equation.  It is helpful to temporarily replace "
            "@2*x@ with the alias Q and proceed to solve for Q."));
  EXPECT_TRUE(Wrote("@sin(Q)+sin(2*Q)=0@"));
  EXPECT_TRUE(Wrote("Substituting back @2*x@ for Q gives:"));
  EXPECT_TRUE(Wrote("@sin(2*x)*(2*cos(2*x)+1)=0@"));
}

TEST_F(TrigTest, TangentOfAnAliasIsPutBackAsTheAngle) {
  EXPECT_EQ(Solve("sin(2*x)=cos(2*x)"), "1/2*arctan(1)");
  EXPECT_TRUE(Wrote("Now replace back the alias Q with the angle."));
  EXPECT_TRUE(Wrote("@2*x=arctan(1)@"));
}

TEST_F(TrigTest, TripleAngleFitsNoFormAndIsUnsolvable) {
  EXPECT_EQ(Solve("sin(3*x)+sin(x)=0"), "unsolvable");
  EXPECT_TRUE(Wrote("This trigonometric equation is unsolvable."));
  EXPECT_EQ(s.HelpNumber, 182);
}

TEST_F(TrigTest, CosinesOfShiftedAnglesWithNoSineLeftAreSolvedByTheCosine) {
  s.Degrees = true;
  EXPECT_EQ(Solve("cos(x+30)+cos(x-30)=0"), "90");
}

TEST_F(TrigTest, PhaseAngleWithNoSineLeftIsSolvedByTheCosine) {
  s.Degrees = true;
  const std::string answer = Solve("cos(x+30)+cos(x-30)=1");
  EXPECT_NE(answer.find("arccos("), std::string::npos) << answer;
  EXPECT_NE(s.HelpNumber, 0);
}

TEST_F(TrigTest, SineCoefficientWithLettersKeepsItsSignInThePhaseForm) {
  const std::string answer = Solve("a*sin(x)+b*cos(x)=c");
  // True for a negative a as well as a positive one.
  for (const double a : {-2.0, 3.0}) {
    NumericValue at_answer(s, {{'a', a}, {'b', 1.0}, {'c', 1.0}});
    const double x = at_answer.Of(answer);
    ASSERT_TRUE(std::isfinite(x)) << answer;
    NumericValue at_x(s, {{'a', a}, {'b', 1.0}, {'c', 1.0}, {'x', x}});
    EXPECT_NEAR(at_x.Of("a*sin(x)+b*cos(x)"), 1.0, 1e-9) << answer << " at a = " << a;
  }
}

TEST_F(TrigTest, EachFormGivesTheSameAnswersAndStepCountWithoutItsSteps) {
  for (const char* equation :
       {"2*sin(x)^2-sin(x)=1", "3*sin(x)+4*cos(x)=0", "sin(x+1)+cos(x)=1", "sin(2*x)+sin(x)=0",
        "sin(2*x)+cos(x)=0", "cos(2*x)+cos(x)=0", "sin(x)+cos(2*x)=1", "sin(4*x)+sin(2*x)=0"}) {
    s.SolveDetail = 1;
    s.StepCount = 0;
    const std::string shown = Solve(equation);
    const int shown_steps = s.StepCount;
    s.SolveDetail = 0;
    s.StepCount = 0;
    EXPECT_EQ(Solve(equation), shown) << equation;
    EXPECT_EQ(s.StepCount, shown_steps) << equation;
  }
}

TEST_F(TrigTest, NothingIsWrittenWithTheResultOnly) {
  s.SolveDetail = 0;
  EXPECT_EQ(Solve("sin(4*x)+sin(2*x)=0"), "0; 1/2*arccos(-1/2)");
  EXPECT_EQ(Transcript(), "");
}

TEST_F(TrigTest, HintOfEachFormIsItsOwn) {
  EXPECT_EQ(Hint("3*sin(x)+4*cos(x)=0"),
            "This is a trigonometric equation of the form\n     @A*sin(x+B)+C*cos(x+D)=0@ .  \n"
            "Use the trigonometric identities:\n     @sin(x+B)=sin(x)*cos(B)+cos(x)*sin(B)@ , \n"
            "and\n     @cos(x+D)=cos(x)*cos(D)-sin(x)*sin(D)@ , \nto convert it to the form\n"
            "     @E*sin(x)=F*cos(x)@ , \nthen to\n     @sin(x)/cos(x)=F/E@ ,\n then to\n"
            "     @tan(x)=F/E@ ,\nthen to\n     @x=arctan(F/E)@ \n");
  EXPECT_EQ(s.HelpNumber, 205);
}

TEST_F(TrigTest, HintOfTheDoubleSineFormNamesTheIdentity) {
  EXPECT_EQ(Hint("sin(2*x)+sin(x)=0")
                .rfind("This is a trigonometric equation of the form\n     "
                       "@A*sin(x)+B*sin(2x)=0@ .  \nUse the trigonometric "
                       "identity\n",
                       0),
            0u);
  EXPECT_EQ(s.HelpNumber, 185);
}

TEST_F(TrigTest, HintOfTheDoubleSineWithCosineFactorsByTheCosine) {
  EXPECT_EQ(Hint("sin(2*x)+cos(x)=0"),
            "This is a trigonometric equation of the form\n     @A*cos(x)+B*sin(2x)=0@ .  \nUse "
            "the trigonometric identity \n     @sin(2x)=2*sin(x)*cos(x)@  \nto convert it to\n   "
            " @A*cos(x)+2*B*sin(x)*cos(x)=0@ .\nThen factor to convert it to \n     "
            "@cos(x)*(A+2*B*sin(x))=0@ .\nThen replace it with two new equations:\n     "
            "@cos(x)=0@  \nand\n     @A+2*B*sin(x)=0@ .\n");
  EXPECT_EQ(s.HelpNumber, 189);
}

TEST_F(TrigTest, HintOfAnAliasSaysWhereAndBack) {
  const std::string hint = Hint("cos(4*x)+cos(2*x)=0");
  EXPECT_NE(hint.find("@A+B*cos(Q)+C*cos(2Q)=0@ ,\nwhere @Q=2*x@ .  "), std::string::npos);
  EXPECT_NE(hint.find("Solve for Y,  \nthen back-substitute for Q and solve for x."),
            std::string::npos);
}

TEST_F(TrigTest, HintOfThePhaseAngleFormSaysWhatToSolveFor) {
  const std::string hint = Hint("sin(x)+cos(x)=1");
  EXPECT_NE(hint.find("(i.e., a form that has a single sin and a single cos with no phase "
                      "angles), then combine the sin and cos into a single sin with a phase "
                      "angle\n     @H*sin(x+I)=E@ \nThen solve for x.\n"),
            std::string::npos);
  EXPECT_EQ(s.HelpNumber, 180);
}

TEST_F(TrigTest, HintOfTheSameFunctionIsTheAlias) {
  EXPECT_EQ(Hint("2*sin(x)^2-sin(x)=1"),
            "This is a trigonometric equation containing the same trig function of the same "
            "angle.  Temporarily replace the trig function @sin(x)@ with the alias Q.\nThe "
            "resulting equation is @-Q+2*Q^2=1@ .  Solve it for Q.\nOnce solved, replace back "
            "the alias Q with the trig function @sin(x)@ and proceed to solve for x.\n");
}

TEST_F(TrigTest, HintOfAnUnsolvableTrigEquationIsTheNote) {
  EXPECT_EQ(Hint("sin(3*x)+sin(x)=0"), "This trigonometric equation is unsolvable.\n");
}

TEST_F(TrigTest, HintTextOfTheQuadraticFormsUsesTheirAlias) {
  EXPECT_EQ(TrigHintText(4, "x", "x", "x", "Y"),
            "This is a trigonometric equation of the form|     @A+B*sin(x)+C*cos(2x)=0@ .  |"
            "Use the trigonometric identity |     @cos(2x)=1-2*(sin(x))^2@  |to convert it to|"
            "     @A+B*sin(x)+C-2*C*(sin(x))^2=0@ ,|or to |     @A+B*Y+C-2*C*Y^2=0@ , |where Y "
            "= sin(x).  This is a quadratic equation in Y.  Solve for Y.");
}

}  // namespace
}  // namespace tavimor
