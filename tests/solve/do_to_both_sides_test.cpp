// Tests of the operations a student applies to both sides of an equation: each step and its
// narration, the check of Q, the square root's sign, and an equation that stays as it was on a
// refusal or an error.
#include <gtest/gtest.h>

#include <cmath>

#include "core/evaluate.h"
#include "shell/commands/both_sides_command.h"
#include "shell/main_flow.h"
#include "solve/do_to_both_sides.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class BothSides : public SessionTest {
 protected:
  BothSides() {
    StartUp(s, ".");
    s.SolveDetail = 1;
    s.StreamingOutput = true;
  }
  void Equation(const std::string& text) {
    cmdLoadEquation(s, text, false);
    frontend.work_space.clear();
    frontend.messages.clear();
    frontend.questions.clear();
  }
  std::string Apply(BothSidesOperation operation, const std::string& q = "",
                    std::optional<char> sign = std::nullopt) {
    s.DoToBothSidesQ = q;
    return cmdApply(s, operation, sign);
  }
  std::string Now() const { return s.Pool[kLeftRoot].Text + "=" + s.Pool[kRightRoot].Text; }
  std::string Transcript() const { return frontend.Transcript(); }
  // The value of a side at x.
  double ValueAt(const std::string& text, double x) {
    const NodeIdx n = Load(text);
    SetVarValue(s, 'x', x);
    EvaluateAll(s, n);
    const double value = ValueAsNumber(s, s.Pool[n].Value);
    FreeChildren(s, n);
    FreeNode(s, n);
    return value;
  }
};

TEST_F(BothSides, SwapSidesWritesOneLine) {
  Equation("7=2*x+3");
  Apply(BothSidesOperation::SwapSides);
  EXPECT_EQ(Now(), "2*x+3=7");
  EXPECT_EQ(Transcript(), "Swapping sides yields:\n\n\t@2*x+3=7@\n\n");
  EXPECT_EQ(s.HelpNumber, 105);
}

TEST_F(BothSides, SubtractingANumberWritesTheStepAndItsSimplification) {
  Equation("2*x+3=7");
  Apply(BothSidesOperation::SubtractQ, "3");
  EXPECT_EQ(Now(), "2*x=4");
  EXPECT_EQ(Transcript(),
            "Subtracting @3@ from both sides yields:\n\n\t@(2*x+3)-(3)=(7)-(3)@\n\n"
            "Simplifying this yields:\n\n\t@2*x=4@\n\n");
  EXPECT_EQ(s.HelpNumber, 142);
}

TEST_F(BothSides, EachOperationWithQNamesQInItsStep) {
  const std::pair<BothSidesOperation, std::string> steps[] = {
      {BothSidesOperation::AddQ, "Adding @5@ to both sides yields:"},
      {BothSidesOperation::MultiplyByQ, "Multiplying both sides by @5@ yields:"},
      {BothSidesOperation::DivideByQ, "Dividing both sides by @5@ yields:"},
      {BothSidesOperation::QthPower, "Raising both sides to the power @5@ yields:"},
      {BothSidesOperation::QthRoot, "Taking the n'th root where @n=5@ yields:"},
  };
  for (const auto& [operation, words] : steps) {
    Equation("x=y");
    Apply(operation, "5");
    EXPECT_EQ(Transcript().rfind(words, 0), 0u) << Transcript();
  }
}

TEST_F(BothSides, FunctionsOfBothSidesNameTheirFunction) {
  const std::tuple<BothSidesOperation, std::string, std::string> steps[] = {
      {BothSidesOperation::Sine, "Taking the sine of both sides yields:", "sin(x)=sin(y)"},
      {BothSidesOperation::Cosine, "Taking the cosine of both sides yields:", "cos(x)=cos(y)"},
      {BothSidesOperation::Tangent, "Taking the tangent of both sides yields:", "tan(x)=tan(y)"},
      {BothSidesOperation::Arcsine,
       "Taking the arcsin of both sides yields:", "arcsin(x)=arcsin(y)"},
      {BothSidesOperation::Arccosine,
       "Taking the arccosine of both sides yields:", "arccos(x)=arccos(y)"},
      {BothSidesOperation::Arctangent,
       "Taking the arctangent of both sides yields:", "arctan(x)=arctan(y)"},
      {BothSidesOperation::NaturalLog,
       "Taking the natural logarithm of both sides yields:", "ln(x)=ln(y)"},
      {BothSidesOperation::Log10,
       "Taking the base 10 logarithm of both sides yields:", "log(x)=log(y)"},
      {BothSidesOperation::EToThePower,
       "Raising e to the power of both sides yields:", "e^(x)=e^(y)"},
      {BothSidesOperation::TenToThePower,
       "Raising 10 to the power of both sides yields:", "10^(x)=10^(y)"},
      {BothSidesOperation::Square, "Squaring both sides yields:", "(x)^2=(y)^2"},
      {BothSidesOperation::Reciprocal,
       "Taking the reciprocal of both sides yields:", "1/(x)=1/(y)"},
  };
  for (const auto& [operation, words, raw] : steps) {
    Equation("x=y");
    EXPECT_EQ(Apply(operation), "");
    EXPECT_EQ(Transcript().rfind(words + "\n\n\t@" + raw + "@", 0), 0u) << Transcript();
  }
}

TEST_F(BothSides, QIsNotAskedForSubtractingTheRightSide) {
  Equation("x^2=5*x");
  EXPECT_EQ(Apply(BothSidesOperation::SubtractRightSide, ""), "");
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Pool[kRightRoot].Text, "0");
  EXPECT_EQ(
      Transcript().rfind("Subtracting the right side from both sides yields:\n\n\t@(x^2)-(5*x)="
                         "(5*x)-(5*x)@",
                         0),
      0u)
      << Transcript();
}

TEST_F(BothSides, SubtractingTheRightSideLeavesZeroWhateverTheSide) {
  for (const std::string equation : {"x=sin(x)+1/x", "x=2", "x+1=(x-1)^2", "y=-x"}) {
    Equation(equation);
    Apply(BothSidesOperation::SubtractRightSide);
    EXPECT_EQ(s.Pool[kRightRoot].Text, "0") << equation;
  }
}

TEST_F(BothSides, QthRootOfTwoIsTheSquareRootWithOneSign) {
  Equation("x^2=9");
  Apply(BothSidesOperation::QthRoot, "2");
  EXPECT_TRUE(frontend.questions.empty());
  // The square root of a square keeps its root: x may be negative.
  EXPECT_EQ(Now(), "sqrt(x^2)=3");
  EXPECT_NE(Transcript().find("@(x^2)^(1/2)=(9)^(1/2)@"), std::string::npos) << Transcript();
}

TEST_F(BothSides, SquareRootAsksForTheSignOfTheRightSide) {
  Equation("x^2=9");
  frontend.yes = false;
  Apply(BothSidesOperation::SquareRoot);
  ASSERT_EQ(frontend.questions.size(), 1u);
  EXPECT_EQ(frontend.questions[0], kSquareRootSignQuestion);
  EXPECT_EQ(Transcript().rfind("Taking the square root of both sides and using the - sign on the "
                               "right side yields:\n\n\t@sqrt(x^2)=-sqrt(9)@",
                               0),
            0u)
      << Transcript();
  EXPECT_EQ(s.Pool[kRightRoot].Text, "-3");
  EXPECT_EQ(s.HelpNumber, 136);
}

TEST_F(BothSides, SquareRootWithThePlusSignGiven) {
  Equation("x^2=9");
  Apply(BothSidesOperation::SquareRoot, "", '+');
  EXPECT_TRUE(frontend.questions.empty());
  EXPECT_EQ(s.Pool[kRightRoot].Text, "3");
  EXPECT_NE(Transcript().find("using the + sign on the right side yields:"), std::string::npos);
}

TEST_F(BothSides, ReciprocalOfAZeroSideFailsAsDivisionByZeroAndKeepsTheEquation) {
  Equation("x-x=0");
  const std::string error = Apply(BothSidesOperation::Reciprocal);
  EXPECT_EQ(error, "You are attempting to divide by 0 and this is undefined.");
  EXPECT_EQ(Now(), "x-x=0");
}

TEST_F(BothSides, ApplyLeavesQEmpty) {
  Equation("2*x=4");
  Apply(BothSidesOperation::DivideByQ, "2");
  EXPECT_EQ(s.DoToBothSidesQ, "");
  EXPECT_EQ(Now(), "x=2");
}

TEST_F(BothSides, QThatIsAnEquationIsRefused) {
  Equation("2*x=4");
  Apply(BothSidesOperation::AddQ, "x=1");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "The textbox for Q must contain a valid expression, not an equation");
  EXPECT_EQ(Now(), "2*x=4");
  EXPECT_EQ(Transcript(), "");
}

TEST_F(BothSides, EmptyQIsRefused) {
  for (const std::string q : {"", "   "}) {
    Equation("2*x=4");
    frontend.messages.clear();
    Apply(BothSidesOperation::MultiplyByQ, q);
    ASSERT_EQ(frontend.messages.size(), 1u);
    EXPECT_EQ(frontend.messages[0].text, "The textbox for Q must contain a valid expression");
    EXPECT_EQ(Now(), "2*x=4");
  }
}

TEST_F(BothSides, InvalidQGivesTheMessageOfTheInputCheck) {
  Equation("2*x=4");
  Apply(BothSidesOperation::DivideByQ, "(x+1");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error in input string.  Unmatched brackets.");
  EXPECT_EQ(frontend.messages[0].help_number, 2);
  EXPECT_EQ(Now(), "2*x=4");
}

TEST_F(BothSides, QIsCheckedOnlyForTheOperationsThatUseIt) {
  Equation("x=2");
  Apply(BothSidesOperation::Square, "=junk(");
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Pool[kRightRoot].Text, "4");
}

TEST_F(BothSides, LogarithmOfAProductWithAnExponentialBringsTheExponentDown) {
  Equation("3*e^x=12");
  Apply(BothSidesOperation::NaturalLog);
  EXPECT_EQ(
      Transcript().rfind("Taking the natural logarithm of both sides yields:\n"
                         "\n\t@ln(3*e^x)=ln(12)@\n\nSimplifying this yields:\n\n\t@ln(3)+x*ln(e)=",
                         0),
      0u)
      << Transcript();
}

TEST_F(BothSides, Base10LogarithmOfExpBringsItsArgumentDown) {
  Equation("2*exp(x)/10^x=5");
  Apply(BothSidesOperation::Log10);
  EXPECT_NE(Transcript().find("@log(2)+x*log(exp(1))-x*log(10)="), std::string::npos)
      << Transcript();
}

TEST_F(BothSides, ExponentialsAndTheRestOfAProductAreSplit) {
  std::string coefficient;
  std::string exponential;
  SplitExpoTerm2(s, "3*x*e^(2*x)/2^x", coefficient, exponential);
  EXPECT_EQ(coefficient, "3*x");
  EXPECT_EQ(exponential, "e^(2*x)/2^x");
  SplitExpoTerm2(s, "exp(x)/5", coefficient, exponential);
  EXPECT_EQ(coefficient, "1/5");
  EXPECT_EQ(exponential, "exp(x)");
  SplitExpoTerm2(s, "2*y", coefficient, exponential);
  EXPECT_EQ(coefficient, "2*y");
  EXPECT_EQ(exponential, "1");
}

// Each operation applied to an equation true at x = 2 gives an equation true there too (the
// square root with the sign of the true side; both sides within the domain of each function).
TEST_F(BothSides, EveryOperationKeepsASolutionOfTheEquation) {
  for (int index = 0; index < kBothSidesOperationCount; ++index) {
    const auto operation = static_cast<BothSidesOperation>(index);
    Equation("x/4=x-3/2");
    ASSERT_EQ(Apply(operation, "3", '+'), "") << BothSidesCaption(operation);
    const std::string left = s.Pool[kLeftRoot].Text;
    const std::string right = s.Pool[kRightRoot].Text;
    const double at_left = ValueAt(left, 2.0);
    const double at_right = ValueAt(right, 2.0);
    EXPECT_NEAR(at_left, at_right, 1e-9 * (1.0 + std::abs(at_left)))
        << BothSidesCaption(operation) << ": " << Now();
  }
}

}  // namespace
}  // namespace tavimor
