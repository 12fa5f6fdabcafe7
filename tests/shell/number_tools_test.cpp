// Tests of the Number panel's tools: a number to significant figures, and its prime factors one
// a press of the dialog's button.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <utility>

#include "core/errors.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "shell/number_tools.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class NumberTools : public SessionTest {
 protected:
  NumberTools() { StartUp(s, "."); }
  // Loads the item, presses the button; the transcript of the press alone.
  std::string Press(const std::string& item, const char* button) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    frontend.work_space.clear();
    std::string error;
    EXPECT_EQ(PressButton(s, button, false, error), PressOutcome::Done);
    last_error = error;
    return frontend.Transcript();
  }
  std::string last_error;
};

TEST(FiguresBox, UpAndDownStayWithinOneToTwenty) {
  EXPECT_EQ(FiguresUp(3), 4);
  EXPECT_EQ(FiguresUp(20), 20);
  EXPECT_EQ(FiguresDown(3), 2);
  EXPECT_EQ(FiguresDown(1), 1);
  EXPECT_EQ(kStartFigures, 3);
}

TEST_F(NumberTools, SignificantFiguresStartAtThree) {
  const std::string out = Press("3.14159", "cmdSigFigs");
  EXPECT_EQ(frontend.figures_asked, (std::vector<std::string>{"3.14159 (3 to start)"}));
  EXPECT_NE(out.find("The number 3.14159 expressed to 3 significant figures is 3.14"),
            std::string::npos)
      << out;
  EXPECT_EQ(s.HelpNumber, 276);
}

TEST_F(NumberTools, SignificantFiguresArePaddedWithZeros) {
  frontend.figures_answer = 5;
  const std::string out = Press("2", "cmdSigFigs");
  EXPECT_NE(out.find("The number 2 expressed to 5 significant figures is 2.0000"),
            std::string::npos)
      << out;
}

TEST_F(NumberTools, SignificantFiguresOfALargeNumberUseTheExponent) {
  frontend.figures_answer = 4;
  const std::string out = Press("123456789000", "cmdSigFigs");
  EXPECT_NE(out.find("The number 123456789000 expressed to 4 significant figures is 1.235E11"),
            std::string::npos)
      << out;
}

TEST_F(NumberTools, ClosedSignificantFiguresDialogWritesNothing) {
  frontend.figures_cancel = true;
  EXPECT_EQ(Press("2.5", "cmdSigFigs").find("significant figures is"), std::string::npos);
}

TEST_F(NumberTools, OneAndThreeCloseTheDialogByTheMagnitudeTest) {
  const std::pair<const char*, const char*> cases[] = {
      {"1", "The number 1 is neither prime nor composite and can't be factored"},
      {"3", "The number 3 is prime and can't be factored"},
      {"-1", "The number -1 is neither prime nor composite and can't be factored"},
      {"-2", "The number -2 is prime and can't be factored"}};
  for (const auto& [number, expected] : cases) {
    frontend.messages.clear();
    frontend.factor_forms.clear();
    const std::string out = Press(number, "cmdFactor");
    const std::string sentence = expected;
    ASSERT_EQ(frontend.messages.size(), 1u);
    EXPECT_EQ(frontend.messages[0].text, sentence);
    EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Information);
    EXPECT_NE(out.find(sentence), std::string::npos);
    EXPECT_TRUE(frontend.factor_forms.empty());  // the dialog closes at once
  }
}

TEST_F(NumberTools, MinusTwelveHasTheSignOnTheFirstFactor) {
  const std::string out = Press("-12", "cmdFactor");
  EXPECT_NE(out.find("The number -12 in factored form is -2 * 2 * 3"), std::string::npos) << out;
  ASSERT_EQ(frontend.factor_forms.size(), 3u);
  EXPECT_EQ(frontend.factor_forms[0], "[OK] Number to be factored:  -12");
  EXPECT_EQ(frontend.factor_forms[1],
            "[OK] Number to be factored:  -12\r\n-12 can be factored as -2 * 6 so -12 can now be "
            "written as\r\n-2 * 6");
  EXPECT_EQ(frontend.factor_forms[2],
            "[Close] Number to be factored:  -12\r\n-12 can be factored as -2 * 6 so -12 can now "
            "be written as\r\n-2 * 6\r\n6 can be factored as 2 * 3 so -12 can now be written "
            "as\r\n-2 * 2 * 3\r\nThe number is now completely factored.");
  EXPECT_EQ(s.HelpNumber, 275);
}

TEST_F(NumberTools, NinetySevenTakesOneClickAndIsPrime) {
  const std::string out = Press("97", "cmdFactor");
  ASSERT_EQ(frontend.factor_forms.size(), 2u);  // one press of OK, one of Close
  EXPECT_EQ(frontend.factor_forms[1].substr(0, 7), "[Close]");
  EXPECT_NE(frontend.factor_forms[1].find("The number is now completely factored."),
            std::string::npos);
  EXPECT_NE(out.find("The number 97 is prime and can't be factored"), std::string::npos) << out;
}

TEST_F(NumberTools, ClosedFactorDialogWritesNothing) {
  frontend.factor_presses = 1;
  const std::string out = Press("360", "cmdFactor");
  EXPECT_EQ(frontend.factor_forms.size(), 2u);
  EXPECT_EQ(out.find("factored form"), std::string::npos);
}

TEST_F(NumberTools, NonIntegerCannotBeFactored) {
  FactorFormState form;
  EXPECT_EQ(LoadFactorForm(s, "2.5", form), FactorFormStart::NonInteger);
  EXPECT_STREQ(kNonIntegerText, "Can't factor a non-integer");
  // Through the button, which a non-integer leaves disabled, the box says the same.
  ASSERT_TRUE(cmdLoadEquation(s, "2.5", false));
  EXPECT_FALSE(ButtonOnOffer(s, "cmdFactor"));
  s.Form.Button("cmdFactor").enabled = true;
  frontend.messages.clear();
  std::string error;
  PressButton(s, "cmdFactor", false, error);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Can't factor a non-integer");
  EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Exclamation);
}

TEST_F(NumberTools, TwoToTheTwentiethFitsTheTable) {
  const std::vector<std::int32_t> factors = FactorByClicks(1 << 20);
  EXPECT_EQ(factors, std::vector<std::int32_t>(20, 2));
}

TEST_F(NumberTools, MoreThanTwentyFactorsEndInTheCommandsError) {
  EXPECT_THROW(FactorByClicks(1 << 21), RunTimeError);
  const std::string out = Press("2097152", "cmdFactor");
  EXPECT_EQ(last_error, "Error in Prime Factors.");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2097152");
  EXPECT_EQ(out.find("factored form"), std::string::npos);
}

TEST_F(NumberTools, NumbersAboveTwoToTheThirtyFactorToo) {
  EXPECT_EQ(FactorByClicks(2147483646), (std::vector<std::int32_t>{2, 3, 3, 7, 11, 31, 151, 331}));
  EXPECT_EQ(FactorByClicks(2147483629), (std::vector<std::int32_t>{2147483629}));
}

// Every integer up to 10^5 multiplies back from its factors, each prime, ascending.
TEST(PrimeFactorTool, FactorsMultiplyBackToEveryNumberUpTo100000) {
  for (std::int32_t n = -100000; n <= 100000; ++n) {
    const std::vector<std::int32_t> factors = FactorByClicks(n);
    std::int64_t product = 1;
    for (std::size_t k = 0; k < factors.size(); ++k) {
      product *= factors[k];
      if (std::abs(n) < 4) continue;
      const std::int64_t p = std::llabs(factors[k]);
      ASSERT_GE(p, 2) << n;
      for (std::int64_t d = 2; d * d <= p; ++d) ASSERT_NE(p % d, 0) << n << ": " << p;
      if (k > 0) {
        ASSERT_LE(std::llabs(factors[k - 1]), p) << n;
        ASSERT_GT(factors[k], 0) << n;
      }
    }
    ASSERT_EQ(product, n) << n;
  }
}

}  // namespace
}  // namespace tavimor
