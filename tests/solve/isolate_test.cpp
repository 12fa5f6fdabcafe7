// The isolation of the unknown, driven the way the solver's loop drives it: one layer a call,
// each step written, until the left side is the unknown.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/scoped_override.h"
#include "present/work_space.h"
#include "solve/isolate.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Isolation : public SessionTest {
 protected:
  Isolation() {
    NewNode(s);  // node 2
    NewNode(s);  // node 3
    s.StreamingOutput = true;
    s.SolveDetail = 1;
  }

  void Start(const std::string& left, const std::string& right) {
    run = SolveRun{};
    run.Unknown = "x";
    s.ExtraUnknown = "x";
    run.WorkLeft = left;
    run.WorkRight = right;
    run.ResizePending(1);
    run.Row(1) = {left, right};
  }

  // The isolation loop: call, write, repeat until the left side is the unknown.
  void Isolate(const std::string& left, const std::string& right) {
    Start(left, right);
    for (int rounds = 0; run.WorkLeft != run.Unknown; ++rounds) {
      ASSERT_LT(rounds, 40) << "the loop did not end: " << run.WorkLeft << "=" << run.WorkRight;
      std::string message;
      const FormStatus status = IsolateStep(s, run, message);
      statuses.push_back(status);
      if (s.HintState == 2) return;
      if (status == FormStatus::FormAgain) continue;
      if (status == FormStatus::FormNoSolution && s.HintState == 0) {
        ShowNote(s, message);
        continue;
      }
      if (ReportStep(s, message, run.WorkLeft, run.WorkRight, 1)) return;
    }
  }

  std::string Transcript() const { return frontend.Transcript(); }

  SolveRun run;
  std::vector<FormStatus> statuses;
};

constexpr const char* kIntro =
    "This is an equation in which the unknown occurs just once.  Invert the operations that were "
    "applied to the unknown, one at a time, starting with the outermost, until @x@ is isolated.";

TEST_F(Isolation, LinearEquationSubtractsThenDividesWithTheIntroductionFirst) {
  Isolate("2*x+1", "5");
  EXPECT_EQ(Transcript(), std::string(kIntro) +
                              "\n\nSubtract @1@ from both sides.\n\n\t@2*x=4@\n\n"
                              "Divide both sides by @2@ .\n\n\t@x=2@\n\n");
  EXPECT_EQ(run.WorkRight, "2");
  EXPECT_EQ(s.StepCount, 2);
}

TEST_F(Isolation, OneLayerHasNoIntroduction) {
  Isolate("x+1", "5");
  EXPECT_EQ(Transcript(), "Subtract @1@ from both sides.\n\n\t@x=4@\n\n");
  EXPECT_FALSE(run.OnceIntroShown);
}

TEST_F(Isolation, SquareOfTheUnknownGivesBothSolutionsInOneRightSide) {
  Isolate("x^2", "9");
  EXPECT_EQ(run.WorkRight, "3; -3");
  ASSERT_EQ(statuses.size(), 1u);
  EXPECT_EQ(statuses[0], FormStatus::FormAgain);
  EXPECT_EQ(Transcript(),
            "Take the square root of both sides.  This gives 2 equations, one with a + sign on the "
            "right side, the other with a - sign on the right side.  The first equation is:\n"
            "\n\t@x=3@\n\nThe other equation is:\n\n\t@x=-3@\n\n");
  EXPECT_EQ(s.StepCount, 1);
  EXPECT_EQ(run.PendingCount, 1);
}

TEST_F(Isolation, SquareOfASumBranchesWithThePositiveRootFirst) {
  Isolate("(x+1)^2", "9");
  EXPECT_EQ(run.PendingCount, 2);
  EXPECT_EQ(run.Row(1)[0], "x+1");
  EXPECT_EQ(run.Row(1)[1], "-3");
  EXPECT_EQ(run.Row(2)[0], "x+1");
  EXPECT_EQ(run.Row(2)[1], "3");
  EXPECT_EQ(run.WorkRight, "2");
  EXPECT_EQ(Transcript(),
            std::string(kIntro) +
                "\n\nTake the square root of both sides.  This gives 2 equations, one with a + "
                "sign on the right side, the other with a - sign on the right side.  The first "
                "equation is:\n\n\t@x+1=3@\n\nThe other equation is:\n\n\t@x+1=-3@\n\n"
                "Now proceed to solve the equation:\n\n\t@x+1=3@\n\n"
                "Subtract @1@ from both sides.\n\n\t@x=2@\n\n");
  // The two equations count as one step, the announcement of the first as none.
  EXPECT_EQ(s.StepCount, 2);
}

TEST_F(Isolation, OddPowerOfANegativeNumberTakesThreeMoves) {
  Isolate("x^3", "-8");
  EXPECT_EQ(Transcript(),
            "The right side is negative.  Extract a factor of -1 from it.\n\n\t@x^3=(-1)*(8)@\n\n"
            "Now raise both sides to the power @1/3@ .\n\n\t@x=(-1)^(1/3)*(8)^(1/3)@\n\n"
            "Simplify the right side.  Use the fact that @(-1)^(1/3)=-1@ .\n\n\t@x=-2@\n\n");
  EXPECT_EQ(run.WorkRight, "-2");
}

TEST_F(Isolation, SquareRootEqualToANegativeNumberSquaresWithoutATest) {
  Isolate("sqrt(x)", "-1");
  EXPECT_EQ(Transcript(), "Square both sides.\n\n\t@x=1@\n\n");
}

TEST_F(Isolation, SineBeyondOneHasNoRealSolution) {
  Isolate("sin(x)", "2");
  EXPECT_EQ(statuses.back(), FormStatus::FormNoSolution);
  EXPECT_EQ(run.WorkRight, "no-solution");
  EXPECT_EQ(Transcript(), "This equation has no solution over the real numbers.\n");
  EXPECT_EQ(s.HelpNumber, 257);
}

TEST_F(Isolation, SineBeyondOneWithComplexNumbersTakesTheArcsine) {
  s.ComplexForm = 1;
  Isolate("sin(x)", "2");
  EXPECT_EQ(Transcript(), "Take the arcsin of both sides.\n\n\t@x=arcsin(2)@\n\n");
}

TEST_F(Isolation, PowersOfOneBaseEquateTheExponents) {
  Isolate("2^x", "8");
  EXPECT_EQ(
      Transcript(),
      "Use the fact that 2 and 8 can both be expressed as whole powers of 2 so the equation "
      "can be written as\n\n\t@(2)^x=(2)^3@\n\n"
      "Since the bases are the same the exponents must also be the same.  That is,\n\n\t@x=3@\n\n");
}

TEST_F(Isolation, OtherBaseTakesBaseTenLogarithms) {
  Isolate("3^x", "5");
  EXPECT_EQ(Transcript(),
            "Take the base 10 logarithm of both sides (note that the natural logarithm would work "
            "just as well).\n\n\t@log(3^x)=log(5)@\n\n"
            "On the left side use the property of logarithms @log(Q^m)->m*log(Q)@ to bring down "
            "the exponent.\n\n\t@x*log(3)=log(5)@\n\n"
            "Divide both sides by @log(3)@ .\n\n\t@x=log(5)/log(3)@\n\n");
}

TEST_F(Isolation, ExponentialEqualToZeroHasNoSolution) {
  Isolate("e^x", "0");
  EXPECT_EQ(Transcript(), "This equation has no solution.\n");
  EXPECT_EQ(s.HelpNumber, 215);
  EXPECT_EQ(run.WorkLeft, "x");
}

TEST_F(Isolation, HintIsTheFirstStepAndStopsTheLoop) {
  s.SolveDetail = 0;
  s.HintState = 1;
  Isolate("2*x+1", "5");
  EXPECT_EQ(s.HintState, 2);
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0], std::string(kIntro) + "\n\nSubtract @1@ from both sides.\n");
  EXPECT_EQ(Transcript(), "");
}

TEST_F(Isolation, HintOfASquareRootHasNoBlankBehindItsComma) {
  s.SolveDetail = 0;
  s.HintState = 1;
  Isolate("x^2", "9");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Take the square root of both sides.  This gives 2 equations,one with a + sign on the "
            "right, the other with a - sign.\n");
  EXPECT_EQ(s.HelpNumber, 138);
}

TEST_F(Isolation, HintOfAnOtherBaseIsTheLogarithmStep) {
  s.SolveDetail = 0;
  s.HintState = 1;
  Isolate("3^x", "5");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Take the base 10 logarithm of both sides (note that the natural logarithm would work "
            "just as well).\n");
  EXPECT_EQ(s.HelpNumber, 133);
}

TEST_F(Isolation, OuterLayerAroundSeveralOccurrencesIsUndone) {
  Start("2*(x^2+x)", "6");
  FormStatus status = FormStatus::FormNotThisForm;
  std::string message;
  ASSERT_TRUE(IsolateOuterLayer(s, run, status, message));
  EXPECT_EQ(status, FormStatus::FormChanged);
  EXPECT_EQ(message, "144#Divide both sides by @2@ .");
  EXPECT_EQ(run.WorkLeft, "x^2+x");
  EXPECT_EQ(run.WorkRight, "3");
}

TEST_F(Isolation, OuterLayerIsLeftAloneWhenTheUnknownIsInTwoChildren) {
  Start("x^2+x", "6");
  FormStatus status = FormStatus::FormNotThisForm;
  std::string message;
  EXPECT_FALSE(IsolateOuterLayer(s, run, status, message));
  EXPECT_EQ(run.WorkLeft, "x^2+x");
  EXPECT_EQ(run.WorkRight, "6");
  EXPECT_TRUE(message.empty());
}

TEST_F(Isolation, OuterExponentialEqualToZeroEndsWithNoSolution) {
  Start("e^(x^2+x)", "0");
  FormStatus status = FormStatus::FormNotThisForm;
  std::string message;
  ASSERT_TRUE(IsolateOuterLayer(s, run, status, message));
  EXPECT_EQ(status, FormStatus::FormNoSolution);
  EXPECT_EQ(message, "215#This equation has no solution.");
  EXPECT_EQ(run.WorkLeft, "x");
}

TEST_F(Isolation, FourthPowerKeepsBothRealRoots) {
  Isolate("x^4", "16");
  EXPECT_EQ(run.PendingCount, 2);
  EXPECT_EQ(run.Row(1)[1], "-4");
  EXPECT_EQ(run.WorkRight, "2; -2");
}

TEST_F(Isolation, CotangentIsUndoneThroughTheTangent) {
  Isolate("cot(x)", "2");
  EXPECT_EQ(Transcript(),
            "Take the reciprocal of both sides.\n\n\t@tan(x)=1/2@\n\n"
            "Take the arctan of both sides.\n\n\t@x=arctan(1/2)@\n\n");
}

TEST_F(Isolation, PowerPutAsAnExponentKeepsItsBrackets) {
  Isolate("ln(x)^3", "9");
  EXPECT_EQ(Transcript(),
            "Raise both sides to the power @1/3@ .\n\n\t@ln(x)=9^(1/3)@\n\n"
            "Antilog to base e on both sides.\n\n\t@x=e^(9^(1/3))@\n\n");
}

TEST_F(Isolation, HintOfAnOddPowerOfANegativeNumberIsItsFirstMove) {
  s.SolveDetail = 0;
  s.HintState = 1;
  Isolate("x^3", "-8");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0], "The right side is negative.  Extract a factor of -1 from it.\n");
  EXPECT_EQ(s.HelpNumber, 219);
  EXPECT_EQ(run.WorkLeft, "x^3");
}

TEST_F(Isolation, HintOfPowersOfOneBaseIsTheRewrittenEquation) {
  s.SolveDetail = 0;
  s.HintState = 1;
  Isolate("2^x", "8");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Use the fact that 2 and 8 can both be expressed as whole powers of 2 so the equation "
            "can be written as\n");
  EXPECT_EQ(s.HintState, 2);
}

TEST_F(Isolation, NegativeBaseUsesItsOwnPowers) {
  Isolate("(-2)^x", "-8");
  EXPECT_EQ(run.WorkRight, "3");
}

TEST_F(Isolation, PositiveBaseToANegativeNumberHasNoRealSolution) {
  Isolate("3^x", "-5");
  EXPECT_EQ(Transcript(), "This equation has no solution over the real numbers.\n");
  EXPECT_EQ(s.HelpNumber, 216);
}

TEST_F(Isolation, EvenPowerOfANegativeNumberHasNoRealSolution) {
  Isolate("x^2", "-4");
  EXPECT_EQ(run.WorkRight, "no-solution");
  EXPECT_EQ(s.HelpNumber, 218);
}

TEST_F(Isolation, NaturalExponentialTakesTheNaturalLogarithm) {
  Isolate("e^(2*x)", "5");
  EXPECT_EQ(Transcript(), std::string(kIntro) +
                              "\n\nTake the natural logarithm of both sides.\n\n\t@2*x=ln(5)@\n\n"
                              "Divide both sides by @2@ .\n\n\t@x=1/2*ln(5)@\n\n");
}

TEST_F(Isolation, DenominatorIsMultipliedOut) {
  Isolate("x/3", "2");
  EXPECT_EQ(Transcript(), "Multiply both sides by @3@ .\n\n\t@x=6@\n\n");
}

TEST_F(Isolation, ReciprocalOfTheUnknownIsTakenOfBothSides) {
  Isolate("1/x", "4");
  EXPECT_EQ(Transcript(), "Take the reciprocal of both sides.\n\n\t@x=1/4@\n\n");
}

TEST_F(Isolation, EvenPowerOverAnOddRootKeepsBothRealRoots) {
  Isolate("x^(2/3)", "4");
  EXPECT_EQ(run.PendingCount, 2);
  EXPECT_EQ(run.WorkRight, "8");
}

TEST_F(Isolation, ReciprocalEqualToZeroHasNoSolution) {
  Isolate("1/(x+1)", "0");
  EXPECT_EQ(run.WorkRight, "no-solution");
  EXPECT_EQ(Transcript(), std::string(kIntro) + "\n\nThis equation has no solution.\n");
}

TEST_F(Isolation, CubeRootOfTheUnknownEqualToANegativeNumberIsCubed) {
  Isolate("x^(1/3)", "-2");
  EXPECT_EQ(Transcript(), "Raise both sides to the power @3@ .\n\n\t@x=-8@\n\n");
  EXPECT_EQ(s.HelpNumber, 309);
}

TEST_F(Isolation, FourthRootOfTheUnknownEqualToANegativeNumberHasNoRealSolution) {
  Isolate("x^(1/4)", "-2");
  EXPECT_EQ(run.WorkRight, "no-solution");
  EXPECT_EQ(s.HelpNumber, 222);
}

TEST_F(Isolation, EvenPowerEqualToANegativeValueOfConstantsHasNoRealSolution) {
  Isolate("x^4", "1/e^9-4");
  EXPECT_EQ(run.WorkRight, "no-solution");
  EXPECT_EQ(s.HelpNumber, 222);
}

TEST_F(Isolation, LogarithmOfOneIsZero) {
  Isolate("e^x", "1");
  EXPECT_EQ(Transcript(), "Take the natural logarithm of both sides.\n\n\t@x=0@\n\n");
}

TEST_F(Isolation, BaseTenTakesCommonLogarithms) {
  Isolate("10^x", "7");
  EXPECT_EQ(Transcript(), "Take the logarithm to base 10 of both sides.\n\n\t@x=log(7)@\n\n");
}

TEST_F(Isolation, OtherBaseWithAPowerOnTheRightBringsDownBothExponents) {
  Isolate("3^x", "e^2");
  EXPECT_NE(Transcript().find("On both sides use the property of logarithms "
                              "@log(Q^m)->m*log(Q)@ to bring down the exponent.\n"),
            std::string::npos)
      << Transcript();
}

TEST_F(Isolation, OtherBaseWithAReciprocalOnTheRightTakesItsSignOut) {
  Isolate("3^x", "1/e");
  EXPECT_NE(Transcript().find("On the left side use the property of logarithms "
                              "@log(Q^m)->m*log(Q)@ to bring down the exponent.\n\n"
                              "On the right side use the property of logarithms "
                              "@log(1/Q)->-log(Q)@ .\n"),
            std::string::npos)
      << Transcript();
}

TEST_F(Isolation, OuterSquareOfASumBranches) {
  Start("(x^2+x)^2", "4");
  FormStatus status = FormStatus::FormNotThisForm;
  std::string message;
  ASSERT_TRUE(IsolateOuterLayer(s, run, status, message));
  EXPECT_EQ(status, FormStatus::FormChanged);
  EXPECT_EQ(message, "139#Now proceed to solve the equation:");
  EXPECT_EQ(run.PendingCount, 2);
  EXPECT_EQ(run.Row(1)[1], "-2");
  EXPECT_EQ(run.WorkLeft, "x^2+x");
  EXPECT_EQ(run.WorkRight, "2");
}

TEST_F(Isolation, StopAskedForDuringItsOwnStepsUnwinds) {
  s.AutoSolveTag = "Cancel;";
  Start("3^x", "5");
  std::string message;
  try {
    IsolateStep(s, run, message);
    ADD_FAILURE() << "the stop was not raised";
  } catch (const AppError& e) {
    EXPECT_EQ(e.Number(), kErrorCancel);
  }
  EXPECT_EQ(s.StepCount, 1);
}

TEST_F(Isolation, IntroductionGoesOnTheFirstLogarithmStep) {
  Isolate("3^(x+1)", "5");
  EXPECT_EQ(Transcript().rfind(std::string(kIntro) +
                                   "\n\nTake the base 10 logarithm of both sides (note that the "
                                   "natural logarithm would work just as well).\n\n\t"
                                   "@log(3^(x+1))=log(5)@\n\n",
                               0),
            0u)
      << Transcript();
  EXPECT_EQ(Transcript().find(kIntro, 1), std::string::npos);
}

TEST_F(Isolation, IntroductionGoesOnTheNegativeFactorStep) {
  Isolate("(x+1)^3", "-8");
  EXPECT_EQ(Transcript().rfind(std::string(kIntro) +
                                   "\n\nThe right side is negative.  Extract a factor of -1 from "
                                   "it.\n\n\t@(x+1)^3=(-1)*(8)@\n\n",
                               0),
            0u)
      << Transcript();
  EXPECT_EQ(run.WorkRight, "-3");
}

TEST_F(Isolation, StepsCountTheSameWhetherShownOrNot) {
  for (const auto& [left, right] : std::vector<std::pair<std::string, std::string>>{
           {"x^3", "-8"}, {"3^x", "5"}, {"(x+1)^2", "9"}, {"x^2", "9"}, {"2^x", "8"}}) {
    s.SolveDetail = 1;
    s.StepCount = 0;
    Isolate(left, right);
    const int shown = s.StepCount;
    const std::string answer = run.WorkRight;
    s.SolveDetail = 0;
    s.StepCount = 0;
    frontend.work_space.clear();
    Isolate(left, right);
    EXPECT_EQ(s.StepCount, shown) << left << "=" << right;
    EXPECT_EQ(run.WorkRight, answer) << left << "=" << right;
    EXPECT_EQ(Transcript(), "") << left << "=" << right;
  }
}

TEST(LayerCounting, CountsTheOperationsAroundTheUnknown) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  EXPECT_EQ(LayerCount(s, "x", "x"), 0);
  EXPECT_EQ(LayerCount(s, "x+1", "x"), 1);
  EXPECT_EQ(LayerCount(s, "2*x+1", "x"), 2);
  EXPECT_EQ(LayerCount(s, "x^2+x", "x"), -1);
}

TEST(OnceIntroduction, GoesBetweenNumberAndTextOnce) {
  bool shown = false;
  EXPECT_EQ(AddOnceIntro("142#Subtract @1@ from both sides.", "y", shown),
            "142#This is an equation in which the unknown occurs just once.  Invert the "
            "operations that were applied to the unknown, one at a time, starting with the "
            "outermost, until @y@ is isolated.||Subtract @1@ from both sides.");
  EXPECT_TRUE(shown);
  EXPECT_EQ(AddOnceIntro("144#Divide both sides by @2@ .", "y", shown),
            "144#Divide both sides by @2@ .");
}

}  // namespace
}  // namespace tavimor

namespace tavimor {
namespace {

struct FunctionCase {
  const char* name;
  const char* left;
  const char* right;
  int complex_form;
  bool exponential_function;
  const char* new_left;
  const char* new_right;
  const char* message;
};

void PrintTo(const FunctionCase& c, std::ostream* out) { *out << c.name; }

class FunctionInversion : public SessionTest, public ::testing::WithParamInterface<FunctionCase> {};

TEST_P(FunctionInversion, TakesTheInverseOnTheRightWithItsSentence) {
  const FunctionCase& c = GetParam();
  s.ComplexForm = static_cast<std::int16_t>(c.complex_form);
  s.ExponentToExponentialFunction = c.exponential_function;
  std::string left = c.left;
  std::string right = c.right;
  std::string message;
  InvertFunction(s, left, right, message);
  EXPECT_EQ(left, c.new_left);
  EXPECT_EQ(right, c.new_right);
  EXPECT_EQ(message, c.message);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FunctionInversion,
    ::testing::Values(
        FunctionCase{"SineWithinOne", "sin(x+1)", "1/2", 0, false, "x+1", "arcsin(1/2)",
                     "121#Take the arcsin of both sides."},
        FunctionCase{"SineBeyondMinusOne", "sin(x)", "-3/2", 0, false, "x", "no-solution",
                     "257#This equation has no solution over the real numbers."},
        FunctionCase{"CosineBeyondOne", "cos(x)", "2", 0, false, "x", "no-solution",
                     "257#This equation has no solution over the real numbers."},
        FunctionCase{"CosineBeyondOneWithComplexNumbers", "cos(x)", "2", 1, false, "x", "arccos(2)",
                     "122#Take the arccos of both sides."},
        FunctionCase{"CosineOfALetter", "cos(x)", "a", 0, false, "x", "arccos(a)",
                     "122#Take the arccos of both sides."},
        FunctionCase{"TangentBeyondOne", "tan(x)", "5", 0, false, "x", "arctan(5)",
                     "123#Take the arctan of both sides."},
        FunctionCase{"Arcsine", "arcsin(x)", "1/2", 0, false, "x", "sin(1/2)",
                     "124#Take the sin of both sides."},
        FunctionCase{"Arccosine", "arccos(x)", "1/2", 0, false, "x", "cos(1/2)",
                     "125#Take the cos of both sides."},
        FunctionCase{"Arctangent", "arctan(x)", "2", 0, false, "x", "tan(2)",
                     "126#Take the tan of both sides."},
        FunctionCase{"NaturalLogarithm", "ln(x)", "2*y", 0, false, "x", "e^(2*y)",
                     "127#Antilog to base e on both sides."},
        FunctionCase{"NaturalLogarithmAsExponentialFunction", "ln(x)", "2", 0, true, "x", "exp(2)",
                     "127#Take the exponential function of both sides."},
        FunctionCase{"ExponentialOfZero", "exp(x)", "0", 0, false, "x", "no-solution",
                     "128#This equation has no solution."},
        FunctionCase{"ExponentialOfANegativeNumber", "exp(x)", "-2", 0, false, "x", "no-solution",
                     "128#This equation has no solution over the real numbers."},
        FunctionCase{"ExponentialOfAPower", "exp(x)", "y^3", 0, false, "x", "ln(y^3)",
                     "128#Take the natural logarithm both sides.  On the right side use the "
                     "property of logarithms @ln(Q^m)->m*ln(Q)@ to bring down the exponent."},
        FunctionCase{"ExponentialOfAReciprocal", "exp(x)", "1/y", 0, false, "x", "ln(1/y)",
                     "128#Take the natural logarithm both sides.  On the right side use the "
                     "property of logarithms @ln(1/Q)->-ln(Q)@ ."},
        FunctionCase{"CommonLogarithm", "log(x)", "-2", 0, false, "x", "10^(-2)",
                     "129#Antilog to base 10 on both sides."},
        FunctionCase{"SquareRoot", "sqrt(x-1)", "y+1", 0, false, "x-1", "(y+1)^2",
                     "130#Square both sides."},
        FunctionCase{"Secant", "sec(x)", "2", 0, false, "cos(x)", "1/(2)",
                     "141#Take the reciprocal of both sides."},
        FunctionCase{"Cosecant", "csc(x)", "2", 0, false, "sin(x)", "1/(2)",
                     "141#Take the reciprocal of both sides."}));

}  // namespace
}  // namespace tavimor
