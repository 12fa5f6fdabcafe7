// Tests of the Evaluate button: which letters are asked for, what the sentence says, and that the
// student's item is as it was afterwards.
#include <gtest/gtest.h>

#include "core/evaluate.h"
#include "core/validate.h"
#include "shell/buttons.h"
#include "shell/evaluate_command.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Evaluate : public SessionTest {
 protected:
  Evaluate() {
    s.StreamingOutput = true;
    StartUp(s, ".");
  }
  // Loads the item (an equation on its left side), gives the values, presses the button; the
  // sentence written, if any. Options set before are kept as the options dialog keeps them.
  std::string Press(const std::string& item, std::optional<std::vector<std::string>> values) {
    OptionSnapshot(s, "Set");
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    if (s.Form.item_kind == "equation") cmdDoLHS(s);
    frontend.work_space.clear();
    frontend.values_answer = std::move(values);
    std::string error;
    EXPECT_EQ(PressButton(s, "cmdEvaluate", false, error), PressOutcome::Done);
    return frontend.Transcript();
  }
};

TEST_F(Evaluate, AsksForEachLetterOnceInTheOrderMet) {
  EXPECT_NE(Press("y*x+y^2", std::vector<std::string>{"3", "2"})
                .find("With y = 3; x = 2 the expression evaluates to @15@ ."),
            std::string::npos);
  ASSERT_EQ(frontend.asked_letters.size(), 1u);
  EXPECT_EQ(frontend.asked_letters[0], (std::vector<std::string>{"y", "x"}));
}

TEST_F(Evaluate, ConstantsAreNotAskedFor) {
  s.SpecialP = true;
  s.SpecialD = true;
  Press("p*x+e+d", std::vector<std::string>{"1"});
  EXPECT_EQ(frontend.asked_letters[0], (std::vector<std::string>{"x"}));
}

TEST_F(Evaluate, TheItemStaysAsItWas) {
  Press("x^2+2*x=3", std::vector<std::string>{"5"});
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x^2+2*x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "3");
  EXPECT_EQ(s.Form.panel1_caption, "Left Side");
  EXPECT_NE(
      frontend.Transcript().find("With x = 5 the left side of the equation evaluates to @35@ ."),
      std::string::npos);
}

TEST_F(Evaluate, TheLastValuesAreSuggestedNextTime) {
  Press("x+1", std::vector<std::string>{"7"});
  EXPECT_EQ(std::get<std::string>(VarValue(s, 'x')), "7");
}

TEST_F(Evaluate, CancelWritesNothing) {
  EXPECT_EQ(Press("x+1", std::nullopt), "");
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
}

TEST_F(Evaluate, AValueWithAnEqualsSignIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"y=2"}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "The value of x can't hold an = sign.");
}

TEST_F(Evaluate, AnEmptyValueIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"  "}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Please give a value for x.");
}

TEST_F(Evaluate, AValueBeyondTheLargestFloatIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"1E309"}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "Error in input string.  The number  1E309  is too large: the largest number the tutor "
            "can work with is about 1.8E308.");
}

TEST_F(Evaluate, ALoneDecimalPointIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"."}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "Error in input string.  The decimal point  .  has no digit beside it.");
}

TEST_F(Evaluate, ExactFractionsComeOutAsDecimalsInTheChosenFigures) {
  EXPECT_NE(Press("x/3", std::vector<std::string>{"1"}).find("@0.333@"), std::string::npos);
  EXPECT_FALSE(s.ExactToFloat);  // the option is the student's again afterwards
  s.SigFigs = 6;
  EXPECT_NE(Press("x/3", std::vector<std::string>{"2"}).find("@0.666667@"), std::string::npos);
}

TEST_F(Evaluate, LargeValueIsShownInTheChosenFigures) {
  EXPECT_NE(Press("3^x", std::vector<std::string>{"40"}).find("@1.22E19@"), std::string::npos);
}

TEST_F(Evaluate, SmallValueIsNeverShownAsZero) {
  EXPECT_NE(Press("x*1E12", std::vector<std::string>{"1E-12"}).find("evaluates to @1@ ."),
            std::string::npos);
  EXPECT_NE(Press("x+1E-12", std::vector<std::string>{"0"}).find("evaluates to @1E-12@ ."),
            std::string::npos);
}

TEST_F(Evaluate, FunctionValuesInDegreesReadExactly) {
  s.Degrees = true;
  EXPECT_NE(Press("sin(x)*2", std::vector<std::string>{"30"})
                .find("With x = 30 the expression evaluates to @1@ .  (angle in degrees)."),
            std::string::npos);
  EXPECT_NE(
      Press("arcsin(x)+arccos(x)", std::vector<std::string>{"0.5"}).find("evaluates to @90@ ."),
      std::string::npos);
  s.SigFigs = 8;
  EXPECT_NE(Press("sin(x)", std::vector<std::string>{"30"}).find("evaluates to @0.5@ ."),
            std::string::npos);
  EXPECT_NE(Press("cos(x)", std::vector<std::string>{"60"}).find("evaluates to @0.5@ ."),
            std::string::npos);
}

TEST_F(Evaluate, SpecialValuesCancelExactly) {
  s.Degrees = true;
  EXPECT_NE(Press("sqrt(3)/2-cos(x)", std::vector<std::string>{"30"}).find("evaluates to @0@ ."),
            std::string::npos);
  s.Degrees = false;
  s.SpecialP = true;
  EXPECT_NE(Press("sin(x)", std::vector<std::string>{"p"}).find("evaluates to @0@ ."),
            std::string::npos);
  EXPECT_NE(Press("tan(x)^2", std::vector<std::string>{"p/3"}).find("evaluates to @3@ ."),
            std::string::npos);
}

TEST_F(Evaluate, FunctionValuesAreRoundedToFifteenFigures) {
  s.Degrees = true;
  const NodeIdx root = Load("sin(30)");
  EvaluateAllRounded(s, root);
  EXPECT_EQ(ValueAsNumber(s, s.Pool[root].Value), 0.5);
  EvaluateAll(s, root);  // the graph's own walk keeps the full value
  EXPECT_NE(ValueAsNumber(s, s.Pool[root].Value), 0.5);
}

TEST_F(Evaluate, SquareRootOfANegativeFractionIsComplexUnderRealArithmetic) {
  for (const char* v : {"-0.5", "-0.25", "-1", "-4", "-2.5"}) {
    EXPECT_NE(Press("sqrt(x)", std::vector<std::string>{v})
                  .find("This expression cannot be evaluated further over the real numbers but "
                        "it can be evaluated over the complex numbers."),
              std::string::npos)
        << v;
    EXPECT_EQ(frontend.Transcript().find("0.707"), std::string::npos) << v;
  }
  for (const char* item : {"x^(1/2)", "x^0.5", "x^(3/2)+1"}) {
    EXPECT_NE(Press(item, std::vector<std::string>{"-0.5"}).find("cannot be evaluated further"),
              std::string::npos)
        << item;
  }
}

TEST_F(Evaluate, EvenRootOfANegativeFractionIsComplexButAnOddRootIsNot) {
  EXPECT_NE(Press("x^(3/4)", std::vector<std::string>{"-0.5"}).find("cannot be evaluated further"),
            std::string::npos);
  // The cube root of -8 is real: never told as complex.
  EXPECT_EQ(Press("x^(1/3)", std::vector<std::string>{"-8"}).find("cannot be evaluated further"),
            std::string::npos);
}

TEST_F(Evaluate, SquareRootOfANegativeFractionWithComplexArithmetic) {
  s.ComplexForm = 1;
  EXPECT_NE(Press("sqrt(x)", std::vector<std::string>{"-0.25"})
                .find("With x = -0.25 the expression evaluates to @0.5*i@ ."),
            std::string::npos);
}

TEST_F(Evaluate, AValueWithLettersIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"hello"}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "The value of x must be a number or an expression of numbers.");
  EXPECT_EQ(frontend.refused_letters, (std::vector<std::string>{"x"}));
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
}

TEST_F(Evaluate, AValueFailingTheInputCheckIsRefusedWithItsMessage) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"2+*3"}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  std::string typed = "2+*3";
  EXPECT_EQ(frontend.messages[0].text, ValidationMessage(s, typed));
  EXPECT_FALSE(frontend.messages[0].text.empty());
}

TEST_F(Evaluate, AValueOfTwoPiecesIsRefused) {
  EXPECT_EQ(Press("x+1", std::vector<std::string>{"1;2"}), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "The value of x must be a number or an expression of numbers.");
}

TEST_F(Evaluate, AValueOfNumbersAndConstantsIsTaken) {
  s.SpecialP = true;
  EXPECT_NE(Press("x+1", std::vector<std::string>{"1/2"}).find("evaluates to @1.5@ ."),
            std::string::npos);
  EXPECT_NE(Press("x*2", std::vector<std::string>{"sqrt(4)"}).find("evaluates to @4@ ."),
            std::string::npos);
  EXPECT_NE(Press("x", std::vector<std::string>{"p"}).find("evaluates to @3.14@ ."),
            std::string::npos);
}

TEST_F(Evaluate, ARefusedValueIsAskedForAgain) {
  frontend.values_answers_again.push_back({"ab"});
  frontend.values_answers_again.push_back({"3"});
  EXPECT_NE(Press("x+1", std::vector<std::string>{"hello"})
                .find("With x = 3 the expression evaluates to @4@ ."),
            std::string::npos);
  ASSERT_EQ(frontend.asked_letters.size(), 3u);
  EXPECT_EQ(frontend.messages.size(), 2u);
  EXPECT_EQ(frontend.refused_letters, (std::vector<std::string>{"x", "x"}));
  // What was typed is offered again, to be put right.
  EXPECT_EQ(frontend.suggested_values[1], (std::vector<std::string>{"hello"}));
  EXPECT_EQ(frontend.suggested_values[2], (std::vector<std::string>{"ab"}));
}

TEST_F(Evaluate, ComplexValueWithComplexArithmetic) {
  s.ComplexForm = 1;
  EXPECT_NE(Press("sqrt(x)", std::vector<std::string>{"-4"})
                .find("With x = -4 the expression evaluates to @2*i@ ."),
            std::string::npos);
}

TEST_F(Evaluate, ZeroToANegativePowerHasItsOwnMessage) {
  s.ExponentToReciprocal = false;
  Press("x^(-2)+1", std::vector<std::string>{"0"});
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "You are attempting to raise 0 to non-positive power and this is undefined.");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x^(-2)+1");
}

}  // namespace
}  // namespace tavimor
