// The Useful form of one: the forms the dialog proposes, the check of a typed form, and the
// multiplication, which keeps the value of the expression.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "core/node_pool.h"
#include "manipulate/useful_form_of_one.h"
#include "shell/buttons.h"
#include "shell/commands/ufoo_command.h"
#include "shell/main_flow.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class UsefulFormOfOne : public SessionTest {
 protected:
  UfooDialogState Opened(const std::string& item) {
    StartUp(s, ".");
    cmdLoadEquation(s, item, false);
    UfooDialogState dialog;
    OpenUfooDialog(s, dialog);
    return dialog;
  }

  std::string Applied(const std::string& expression, const std::string& form, bool expand_top,
                      bool expand_bottom) {
    UfooRequest request;
    request.option = UfooOption::Other;
    request.typed = request.numerator = request.denominator = form;
    request.expand_numerator = expand_top;
    request.expand_denominator = expand_bottom;
    return UfooReportField(ApplyUFOO(s, expression, request), kUfooFieldFinal);
  }
};

TEST_F(UsefulFormOfOne, RadicalDenominatorOffersItsConjugate) {
  std::string conjugate;
  std::string kind;
  ASSERT_TRUE(CreateUFOO2(s, "1/(1+sqrt(2))", conjugate, kind));
  EXPECT_EQ(conjugate, "1-sqrt(2)");
  EXPECT_EQ(kind, "sqrt");
}

TEST_F(UsefulFormOfOne, ConjugateLeavesARationalDenominator) {
  const std::string result = Applied("1/(1+sqrt(2))", "1-sqrt(2)", false, true);
  std::string top;
  std::string bottom;
  SplitFraction(s, result, top, bottom);
  EXPECT_EQ(bottom.find("sqrt"), std::string::npos) << result;
  NumericValue value(s, {});
  EXPECT_NEAR(value.Of(result), 1.0 / (1.0 + std::sqrt(2.0)), 1e-12) << result;
}

TEST_F(UsefulFormOfOne, ComplexDenominatorOffersTheComplexConjugate) {
  s.ComplexForm = 1;
  std::string conjugate;
  std::string kind;
  ASSERT_TRUE(CreateUFOO2(s, "1/(2+i)", conjugate, kind));
  EXPECT_EQ(conjugate, "2-i");
  EXPECT_EQ(kind, "cplx");
}

TEST_F(UsefulFormOfOne, ImaginaryLetterIsAVariableWithRealArithmetic) {
  s.ComplexForm = 0;
  std::string conjugate;
  std::string kind;
  EXPECT_FALSE(CreateUFOO2(s, "1/(2+i)", conjugate, kind));
}

TEST_F(UsefulFormOfOne, OneMinusSineOffersOnePlusSine) {
  std::string conjugate;
  std::string kind;
  ASSERT_TRUE(CreateUFOO2(s, "1/(1-sin(x))", conjugate, kind));
  EXPECT_EQ(conjugate, "1+sin(x)");
  EXPECT_EQ(kind, "sin");
}

TEST_F(UsefulFormOfOne, CosineWithAnotherTermThanOneHasNoConjugate) {
  std::string conjugate;
  std::string kind;
  EXPECT_FALSE(CreateUFOO2(s, "1/(2-cos(x))", conjugate, kind));
}

TEST_F(UsefulFormOfOne, TwoBracketedDenominatorsHaveNoSingleConjugate) {
  std::string conjugate;
  std::string kind;
  EXPECT_FALSE(CreateUFOO2(s, "1/((1+sqrt(2))*(1+sqrt(3)))", conjugate, kind));
}

TEST_F(UsefulFormOfOne, NoDenominatorDisablesTheConjugate) {
  const UfooDialogState dialog = Opened("x+sqrt(2)");
  EXPECT_FALSE(dialog.OptionEnabled(UfooOption::Conjugate));
  EXPECT_TRUE(dialog.OptionEnabled(UfooOption::MinusOne));
  EXPECT_EQ(dialog.numerator_box, "-1");
  EXPECT_EQ(dialog.denominator_box, "-1");
}

TEST_F(UsefulFormOfOne, AnExpressionHasNoOtherSideToMatch) {
  const UfooDialogState dialog = Opened("1/(x+1)");
  EXPECT_FALSE(dialog.OptionEnabled(UfooOption::MatchOther));
}

TEST_F(UsefulFormOfOne, EqualDenominatorsOnBothSidesDisableMatching) {
  StartUp(s, ".");
  cmdLoadEquation(s, "1/(x+1)=3/(x+1)", false);
  std::string error;
  PressButton(s, "cmdDoLHS", false, error);
  UfooDialogState dialog;
  OpenUfooDialog(s, dialog);
  EXPECT_FALSE(dialog.OptionEnabled(UfooOption::MatchOther));
}

TEST_F(UsefulFormOfOne, MatchingFactorBringsTheDenominatorToTheOtherSides) {
  StartUp(s, ".");
  cmdLoadEquation(s, "1/x=3/(x*(x+1))", false);
  std::string error;
  PressButton(s, "cmdDoLHS", false, error);
  UfooDialogState dialog;
  OpenUfooDialog(s, dialog);
  ASSERT_TRUE(dialog.OptionEnabled(UfooOption::MatchOther));
  EXPECT_EQ(dialog.match, "x+1");
  ChooseUfooOption(s, dialog, UfooOption::MatchOther);
  EXPECT_EQ(dialog.numerator_box, "x+1");
  EXPECT_EQ(dialog.denominator_box, "x+1");
}

TEST_F(UsefulFormOfOne, PiIsShownShortAndUsedInFull) {
  UfooDialogState dialog = Opened("1/x");
  ChooseUfooOption(s, dialog, UfooOption::Pi);
  EXPECT_EQ(dialog.numerator_box, "3.14");
  s.SpecialP = true;
  ChooseUfooOption(s, dialog, UfooOption::Pi);
  EXPECT_EQ(dialog.numerator_box, "p");
}

TEST_F(UsefulFormOfOne, TypingInOtherCopiesToTheDenominator) {
  UfooDialogState dialog = Opened("1/x");
  TypeUfooNumerator(dialog, "x+2");
  EXPECT_EQ(dialog.numerator_box, "-1");  // not editable before Other is chosen
  ChooseUfooOption(s, dialog, UfooOption::Other);
  EXPECT_EQ(dialog.numerator_box, "");
  TypeUfooNumerator(dialog, "x+2");
  EXPECT_EQ(dialog.denominator_box, "x+2");
}

TEST_F(UsefulFormOfOne, EmptyNumeratorBoxIsRefused) {
  EXPECT_EQ(UfooBoxMessage(s, " "), kUfooBadNumerator);
  EXPECT_EQ(UfooBoxMessage(s, "x+"), kUfooBadNumerator);
  EXPECT_EQ(UfooBoxMessage(s, "x=2"), kUfooNotEquation);
  EXPECT_EQ(UfooBoxMessage(s, "x + 2"), "");
}

TEST_F(UsefulFormOfOne, RefusedBoxIsToldAndNotApplied) {
  UfooDialogState dialog = Opened("1/x");
  EXPECT_FALSE(ChooseUfooByText(s, dialog, "x=2"));
  ASSERT_FALSE(frontend.messages.empty());
  EXPECT_EQ(frontend.messages.back().text,
            "The numerator box must contain a valid expression, not an equation.");
}

TEST_F(UsefulFormOfOne, MinusOneTurnsTheSignsOfBothParts) {
  const std::string result = Applied("(1-x)/(2-y)", "-1", false, false);
  NumericValue value(s, {{'x', 0.3}, {'y', 0.7}});
  EXPECT_NEAR(value.Of(result), (1 - 0.3) / (2 - 0.7), 1e-12) << result;
  EXPECT_NE(result, "(1-x)/(2-y)");
}

TEST_F(UsefulFormOfOne, ReportHoldsTheFormAndTheFinalText) {
  UfooRequest request;
  request.option = UfooOption::Conjugate;
  request.numerator = request.denominator = "1-sqrt(2)";
  request.kind = "sqrt";
  request.expand_denominator = true;
  const std::string report = ApplyUFOO(s, "1/(1+sqrt(2))", request);
  EXPECT_EQ(UfooReportField(report, kUfooFieldOption), "2");
  EXPECT_EQ(UfooReportField(report, kUfooFieldForm), "(1-sqrt(2))/(1-sqrt(2))");
  EXPECT_EQ(UfooReportField(report, kUfooFieldKind), "sqrt");
  EXPECT_EQ(UfooReportField(report, kUfooFieldExpandDenominator), "-1");
  request.option = UfooOption::Other;
  EXPECT_EQ(UfooReportField(ApplyUFOO(s, "1/(1+sqrt(2))", request), kUfooFieldKind), "");
}

TEST_F(UsefulFormOfOne, ComplexProductsAndPythagorasComeBackAfterwards) {
  Applied("1/(1-sin(x))", "1+sin(x)", true, true);
  EXPECT_TRUE(s.ComplexProducts);
  EXPECT_TRUE(s.PythagorasRules);
}

// A UFOO changes how an expression looks, never its value.
TEST_F(UsefulFormOfOne, KeepsTheValueAtRandomPoints) {
  std::mt19937 random(20261122);
  const std::vector<std::string> expressions = {
      "1/(1+sqrt(2))",   "x/(x+1)", "(2x-1)/(3-x)", "3/(sqrt(x)+2)", "1/(1-sin(x))",
      "(x+2)/(x*(x-3))", "5",       "x^2/(2*x+5)"};
  const std::vector<std::string> forms = {"-1", "x+4", "sqrt(x)-2", "2", "1+sin(x)", "x^2+1"};
  std::uniform_real_distribution<double> point(0.1, 0.9);
  for (const std::string& expression : expressions) {
    for (const std::string& form : forms) {
      for (int expand = 0; expand < 4; ++expand) {
        InitNodePool(s);
        const std::string result = Applied(expression, form, (expand & 1) != 0, (expand & 2) != 0);
        for (int k = 0; k < 3; ++k) {
          const double x = point(random);
          NumericValue before(s, {{'x', x}});
          NumericValue after(s, {{'x', x}});
          const double want = before.Of(expression);
          EXPECT_NEAR(after.Of(result), want, 1e-9 * (1 + std::fabs(want)))
              << expression << " times " << form << " gives " << result;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tavimor
