// Tests of the Evaluate button: which letters are asked for, what the sentence says, and that the
// student's item is as it was afterwards.
#include <gtest/gtest.h>

#include "core/evaluate.h"
#include "shell/buttons.h"
#include "shell/evaluate_command.h"
#include "shell/main_flow.h"
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

TEST_F(Evaluate, ExactFractionsComeOutAsDecimals) {
  EXPECT_NE(Press("x/3", std::vector<std::string>{"1"}).find("@0.333333333333333@"),
            std::string::npos);
  EXPECT_FALSE(s.ExactToFloat);  // the option is the student's again afterwards
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
