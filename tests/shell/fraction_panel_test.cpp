// Tests of the Fraction panel: the narration of a simplified fraction and of two fractions added,
// each case with its sentence and help number, through the panel's buttons.
#include <gtest/gtest.h>

#include "manipulate/fraction_narration.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class FractionPanel : public SessionTest {
 protected:
  FractionPanel() {
    s.StreamingOutput = true;
    StartUp(s, ".");
  }
  // Loads the item, presses the button; the transcript of the press alone.
  std::string Press(const std::string& item, const char* button) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    frontend.work_space.clear();
    std::string error;
    EXPECT_EQ(PressButton(s, button, false, error), PressOutcome::Done);
    EXPECT_EQ(error, "");
    return frontend.Transcript();
  }
  std::string Reduce(const std::string& item) { return Press(item, "cmdSimplifyFraction"); }
  std::string Add(const std::string& item) { return Press(item, "cmdAddFractions"); }
  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
};

TEST_F(FractionPanel, ZeroDenominatorIsUndefined) {
  EXPECT_TRUE(Has(Reduce("7/0"), "This fraction is undefined and can't be simplified."));
  EXPECT_EQ(s.HelpNumber, 277);
}

TEST_F(FractionPanel, ZeroNumeratorSimplifiesToZero) {
  EXPECT_TRUE(Has(Reduce("0/5"), "This fraction simplifies to 0."));
  EXPECT_EQ(s.HelpNumber, 278);
}

TEST_F(FractionPanel, DenominatorThatDividesGivesTheInteger) {
  EXPECT_TRUE(Has(Reduce("6/3"), "This fraction simplifies to the integer 2."));
  EXPECT_EQ(s.HelpNumber, 279);
}

TEST_F(FractionPanel, DenominatorMinusOneGivesTheNegatedInteger) {
  EXPECT_TRUE(Has(Reduce("6/(-1)"), "This fraction simplifies to the integer -6."));
  EXPECT_EQ(s.HelpNumber, 279);
}

TEST_F(FractionPanel, NumeratorOneCannotBeSimplified) {
  EXPECT_TRUE(Has(Reduce("1/5"), "This fraction can't be simplified."));
  EXPECT_EQ(s.HelpNumber, 280);
}

TEST_F(FractionPanel, NumeratorOneOverNegativeIsWrittenWithTheSignOnTop) {
  const std::string out = Reduce("1/(-5)");
  EXPECT_TRUE(
      Has(out, "This fraction can't be simplified but could also be written as:\n\n\t@-1/5@"))
      << out;
  EXPECT_EQ(s.HelpNumber, 281);
}

TEST_F(FractionPanel, BothSignsMinusOneCancel) {
  const std::string out = Reduce("-1/(-5)");
  EXPECT_TRUE(Has(out,
                  "This fraction can only be simplified by cancelling out - signs and writing it "
                  "as:\n\n\t@1/5@"))
      << out;
  EXPECT_EQ(s.HelpNumber, 282);
}

TEST_F(FractionPanel, SixEighthsCancelsOneTwoToThreeQuarters) {
  const std::string out = Reduce("6/8");
  EXPECT_TRUE(Has(out,
                  "To simplify this fraction, factor the numerator and the denominator "
                  "completely\nand look for cancellations:\n\n\t@(2*3)/(2*2*2)@"))
      << out;
  EXPECT_TRUE(Has(out,
                  "Cancelling 2 in the numerator and 2 in the denominator reduces the "
                  "fraction to:\n\n\t@3/(2*2)@"))
      << out;
  EXPECT_EQ(out.find("Cancelling 2", out.find("Cancelling 2") + 1), std::string::npos);
  EXPECT_TRUE(Has(out,
                  "All possible cancellations between the numerator and denominator have "
                  "been made.\nThe fraction in simplest form is:\n\n\t@3/4@"))
      << out;
  EXPECT_EQ(s.HelpNumber, 286);
}

TEST_F(FractionPanel, NoCommonPrimeMeansNoCancellations) {
  const std::string out = Reduce("9/10");
  EXPECT_TRUE(Has(out,
                  "There are no cancellations possible between the numerator and "
                  "denominator."));
  EXPECT_TRUE(Has(out, "@9/10@"));
  EXPECT_EQ(s.HelpNumber, 285);
}

TEST_F(FractionPanel, NegativeDenominatorMovesTheSignToTheNumerator) {
  const std::string out = Reduce("6/(-8)");
  EXPECT_TRUE(Has(out,
                  "To simplify this fraction, move the - sign to the numerator, factor the "
                  "numerator\nand the denominator completely, and look for cancellations:"));
  EXPECT_TRUE(Has(out, "@(-2*3)/(2*2*2)@"));
  EXPECT_TRUE(Has(out, "@-3/4@"));
}

TEST_F(FractionPanel, BothNegativeCancelTheSignsFirst) {
  const std::string out = Reduce("-12/(-18)");
  EXPECT_TRUE(Has(out,
                  "To simplify this fraction, cancel - signs, factor the numerator and the "
                  "denominator completely,\nand look for more cancellations:"));
  EXPECT_TRUE(Has(out, "@2/3@"));
}

TEST_F(FractionPanel, TheSimplifyButtonIsDisabledAfterUse) {
  Reduce("6/8");
  EXPECT_FALSE(s.Form.Enabled("cmdSimplifyFraction"));
  EXPECT_FALSE(ButtonOnOffer(s, "cmdSimplifyFraction"));
  // A new fraction brings it back.
  ASSERT_TRUE(cmdLoadEquation(s, "2/4", false));
  EXPECT_TRUE(ButtonOnOffer(s, "cmdSimplifyFraction"));
}

TEST_F(FractionPanel, SixthAndQuarterShareTwoAndKeepThreeAndTwo) {
  const std::string out = Add("1/6+1/4");
  EXPECT_TRUE(Has(out, "To add or subtract two fractions generally requires 4 steps:"));
  EXPECT_TRUE(Has(out, "first denominator factored = 2 * 3\nsecond denominator factored = 2 * 2"))
      << out;
  EXPECT_TRUE(Has(out,
                  "The LCD must contain all the factors that both denominators have in "
                  "common: 2\nas well as any remaining factors from the first "
                  "denominator: 3\nas well as any remaining factors from the second "
                  "denominator: 2"))
      << out;
  EXPECT_TRUE(Has(out, "Multiplying all these factors together gives the LCD:\n\n\t@12@"));
  EXPECT_TRUE(Has(out,
                  "To do this multiply the first fraction by @2/2@ and the second fraction "
                  "by @3/3@.\nThis gives:\n\n\t@2/12+3/12@"))
      << out;
  EXPECT_TRUE(Has(out, "Step 3:  Combine the fractions.  This gives:\n\n\t@5/12@"));
  EXPECT_TRUE(Has(out, "In this case it is already in simplest form."));
  EXPECT_EQ(s.HelpNumber, 294);
}

TEST_F(FractionPanel, HalfAndThirdHaveNoCommonFactors) {
  const std::string out = Add("1/2+1/3");
  EXPECT_TRUE(Has(out, "have in common: (in this case there are none)\n")) << out;
  EXPECT_TRUE(Has(out, "gives the LCD:\n\n\t@6@"));
  EXPECT_TRUE(Has(out, "@5/6@"));
}

TEST_F(FractionPanel, OneDenominatorDividingTheOtherMultipliesOnlyTheOther) {
  const std::string out = Add("1/2-1/4");
  EXPECT_TRUE(Has(out, "from the second denominator: 2\n")) << out;
  EXPECT_TRUE(Has(out, "from the first denominator: (in this case there are none)\n"));
  EXPECT_TRUE(
      Has(out, "To do this multiply the first fraction by @2/2@.  This gives:\n\n\t@2/4-1/4@"))
      << out;
  EXPECT_TRUE(Has(out, "@1/4@"));
}

TEST_F(FractionPanel, SumReducedAtTheEnd) {
  const std::string out = Add("1/6+1/3");
  EXPECT_TRUE(Has(out,
                  "In this case we can divide numerator and denominator by 3 and reduce the "
                  "fraction to:\n\n\t@1/2@"))
      << out;
}

TEST_F(FractionPanel, SumThatIsAnInteger) {
  const std::string out = Add("1/2+3/2");
  EXPECT_TRUE(Has(out,
                  "Because both fractions have the same denominator we can simply combine "
                  "the numerators\nover the denominator.  This expression equals:\n\n\t@4/2@"));
  EXPECT_TRUE(Has(out, "or\n\n\t@2@")) << out;
}

TEST_F(FractionPanel, SameDenominatorsCombineTheNumerators) {
  const std::string out = Add("1/3+2/3");
  EXPECT_TRUE(Has(out,
                  "Because both fractions have the same denominator we can simply combine "
                  "the numerators\nover the denominator.  This expression equals:\n\n\t@3/3@"))
      << out;
  EXPECT_TRUE(Has(out, "or\n\n\t@1@"));
  EXPECT_EQ(s.HelpNumber, 290);
}

TEST_F(FractionPanel, NegativeDenominatorsAreRewrittenFirst) {
  const std::string out = Add("1/(-2)+1/3");
  EXPECT_TRUE(Has(out, "First rewrite this as:\n\n\t@-1/2+1/3@")) << out;
  EXPECT_TRUE(Has(out, "@-1/6@"));
}

TEST_F(FractionPanel, UndefinedFractionCannotBeCombined) {
  EXPECT_TRUE(
      Has(Add("1/0+1/3"), "These fractions can't be combined because one of them is undefined."));
  EXPECT_EQ(s.HelpNumber, 288);
}

TEST_F(FractionPanel, ZeroFractionsGiveTheOther) {
  EXPECT_TRUE(Has(Add("0/2+0/3"), "Both fractions are zero so this expression equals 0."));
  EXPECT_TRUE(
      Has(Add("0/2+3/5"), "The first fraction is zero so this expression equals\n\n\t@3/5@"));
  EXPECT_TRUE(
      Has(Add("3/5-0/2"), "The second fraction is zero so this expression equals\n\n\t@3/5@"));
  EXPECT_EQ(s.HelpNumber, 289);
}

TEST_F(FractionPanel, LcdPastTheLargestIntegerIsRefusedWithItsValue) {
  const std::string out = Add("1/65537+1/65539");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "Error!  This program can't add these fractions because the LCD is 4295229443, which "
            "is bigger than the largest integer it can handle, which is 2^31 or 2147483648");
  EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Exclamation);
  // The run closes quietly: no step after the factors, no error message, the item kept.
  EXPECT_FALSE(Has(out, "Multiplying all these factors"));
  EXPECT_FALSE(Has(out, "Step 2"));
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "1/65537+1/65539");
}

TEST_F(FractionPanel, TheAddButtonIsDisabledAfterUse) {
  Add("1/2+1/3");
  EXPECT_FALSE(ButtonOnOffer(s, "cmdAddFractions"));
}

TEST_F(FractionPanel, StepsOneAtATimePauseBetweenSteps) {
  s.StreamingOutput = false;
  s.SolveDetail = 1;
  Reduce("12/18");
  EXPECT_EQ(frontend.pauses, (std::vector<std::string>{"simp frac", "simp frac", "simp frac"}));
  frontend.pauses.clear();
  Add("1/6+1/4");
  EXPECT_EQ(frontend.pauses, (std::vector<std::string>{"add fracs", "add fracs", "add fracs"}));
}

TEST_F(FractionPanel, StoppingAtAPauseEndsTheNarration) {
  s.StreamingOutput = false;
  s.SolveDetail = 1;
  frontend.pause_answers.push_back(PauseInput::Escape);
  const std::string out = Reduce("12/18");
  EXPECT_FALSE(Has(out, "Cancelling"));
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "12/18");
}

}  // namespace
}  // namespace tavimor
