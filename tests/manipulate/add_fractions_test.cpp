// Adding fractions: the record of one addition (form code, factored denominators, the LCD, the
// equivalent fractions, the single fraction), the sums it leaves alone, and the solver's
// CombineFractions.
#include <gtest/gtest.h>

#include <string>

#include "core/pieces.h"
#include "manipulate/add_fractions.h"
#include "manipulate/add_fractions_narration.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class AddingFractions : public SessionTest {
 protected:
  // Adds once; the simplified whole, or "" when nothing was added.
  std::string Add(const std::string& text) {
    std::string result = text;
    added = AddFractions(s, result, record);
    return added ? result : "";
  }
  std::string Field(int field) const { return AddFractionsField(record, field); }
  int Code() const { return std::stoi(Field(kFieldCode)); }

  bool added = false;
  std::string record;
};

TEST_F(AddingFractions, SameDenominatorsAddTheNumerators) {
  EXPECT_EQ(Add("x/3+2*x/3"), "x");
  EXPECT_EQ(Code(), kFormSameDenominator);
  EXPECT_EQ(Field(kFieldLcd), "3");
}

TEST_F(AddingFractions, OneDenominatorStaysAsItIsWritten) {
  EXPECT_FALSE(Add("x/(x^2-1)+1/(x^2-1)").empty());
  EXPECT_EQ(Code(), kFormSameDenominator);
  EXPECT_EQ(Field(kFieldLcd), "(x^2-1)");
  EXPECT_EQ(Field(kFieldSingle), "(x+1)/(x^2-1)");
}

TEST_F(AddingFractions, NumbersOverTheLeastCommonMultiple) {
  EXPECT_EQ(Add("1/6+1/4"), "5/12");
  EXPECT_EQ(Code(), kFormAsWritten);
  EXPECT_EQ(Field(kFieldLcd), "12");
  EXPECT_EQ(Field(kFieldEquivalent), "2/12+3/12");
  EXPECT_EQ(Field(kFieldSingle), "(5)/(12)");
}

TEST_F(AddingFractions, ATermWithoutADenominatorIsWrittenOverOne) {
  EXPECT_EQ(Add("x+1/x"), "(x^2+1)/x");
  EXPECT_EQ(Code(), kFormTermsAsFractions);
  EXPECT_EQ(Field(kFieldAsFractions), "x/1+1/x");
  EXPECT_EQ(Field(kFieldLcd), "x");
}

TEST_F(AddingFractions, DenominatorsAreFactoredForTheLcd) {
  EXPECT_EQ(Add("1/(x^2-1)+1/(x+1)"), "x/(x+1)/(x-1)");
  EXPECT_EQ(Code(), kFormFactoredDenominators);
  EXPECT_EQ(Field(kFieldFactored), "1/((x+1)*(x-1))+1/(x+1)");
  EXPECT_EQ(Field(kFieldLcd), "(x+1)*(x-1)");
}

TEST_F(AddingFractions, BothTermsAsFractionsAndFactoredDenominators) {
  EXPECT_FALSE(Add("2+1/(x^2-x)").empty());
  EXPECT_EQ(Code(), kFormBoth);
  EXPECT_EQ(Field(kFieldFactored), "2/1+1/(x*(x-1))");
  EXPECT_EQ(Field(kFieldLcd), "x*(x-1)");
}

TEST_F(AddingFractions, OppositeSumsAreOneFactorWithASignOnTheTerm) {
  EXPECT_EQ(Add("1/(x-1)+x/(1-x)"), "-1");
  EXPECT_EQ(Field(kFieldLcd), "(x-1)");
}

TEST_F(AddingFractions, AFractionInsideALargerExpressionIsSubstituted) {
  EXPECT_EQ(Add("2*(1/x+1/y)^2"), "2*(x+y)^2/x^2/y^2");
  EXPECT_EQ(Field(kFieldBefore), "2*(1/x+1/y)^2");
  EXPECT_EQ(Field(kFieldSingle), "(x+y)/(x*y)");
  EXPECT_EQ(Field(kFieldSubstituted), "2*((x+y)/(x*y))^2");
}

TEST_F(AddingFractions, NoFractionsNothingToAdd) {
  EXPECT_EQ(Add("x+1"), "");
  EXPECT_EQ(Add("x*y"), "");
  EXPECT_FALSE(added);
}

TEST_F(AddingFractions, TrigFunctionsOverTrigDenominatorsAreLeftToTheTrigRules) {
  EXPECT_EQ(Add("sin(x)/cos(x)+cos(x)/sin(x)"), "");
}

TEST_F(AddingFractions, LcdPastTheLargestIntegerIsToldAndNothingAdded) {
  EXPECT_EQ(Add("1/65536+1/65537"), "");
  ASSERT_EQ(frontend.messages.size(), 1U);
  EXPECT_NE(
      frontend.messages[0].text.find("Error!  This program can't compute the LCM of 65536 and "
                                     "65537 because it is bigger than the largest integer"),
      std::string::npos);
}

TEST_F(AddingFractions, CombineGivesOneForASumOverItsLcd) {
  std::string text = "1/x+1/(x+1)";
  std::string report;
  EXPECT_EQ(CombineFractions(s, text, report), 1);
  EXPECT_EQ(text, "(2*x+1)/x/(x+1)");
  EXPECT_EQ(CountPieces(report, "; "), 6);
  EXPECT_EQ(GetPiece(report, 1, "; "), "0");
  EXPECT_EQ(GetPiece(report, 2, "; "), "1/x+1/(x+1)");
  EXPECT_EQ(GetPiece(report, 3, "; "), "(x+1)/(x*(x+1))+x/(x*(x+1))");
  EXPECT_EQ(GetPiece(report, 4, "; "), "x*(x+1)");
  EXPECT_EQ(GetPiece(report, 5, "; "), "(x+1)+x");
  EXPECT_EQ(GetPiece(report, 6, "; "), text);
}

TEST_F(AddingFractions, CombineGivesTwoWhenTheSingleFractionCancels) {
  std::string text = "1/(x-1)-2/(x^2-1)";
  std::string report;
  EXPECT_EQ(CombineFractions(s, text, report), 2);
  EXPECT_EQ(text, "1/(x+1)");
  EXPECT_EQ(GetPiece(report, 4, "; "), "(x-1)*(x+1)");
}

TEST_F(AddingFractions, CombineGivesZeroWithNothingToAdd) {
  for (const char* nothing : {"x+1", "2*x/3", "x^2"}) {
    std::string text = nothing;
    std::string report = "kept";
    EXPECT_EQ(CombineFractions(s, text, report), 0) << nothing;
    EXPECT_EQ(text, nothing);
    EXPECT_EQ(report, "kept");
  }
}

TEST_F(AddingFractions, CombineWritesNoStep) {
  s.DetailNow = 1;
  std::string text = "1/x+1/y";
  std::string report;
  EXPECT_EQ(CombineFractions(s, text, report), 1);
  EXPECT_TRUE(frontend.work_space.empty());
  EXPECT_EQ(s.DetailNow, 1);
}

TEST_F(AddingFractions, TheButtonWorksOnTheSideItself) {
  // 90 fractions deep: a copy of the side besides the side itself would run the pool out.
  std::string nested = "x";
  for (int i = 0; i < 90; ++i) nested = "1/(1+" + nested + ")";
  const NodeIdx side = Load(nested);
  AddFractionsOutcome outcome;
  ASSERT_NO_THROW(outcome = AddFractionsSide(s, side));
  EXPECT_TRUE(outcome.added);
  EXPECT_NE(N(side).Text, nested);
}

TEST_F(AddingFractions, TheButtonLeavesTheSideAsInputWhenNothingIsAdded) {
  const NodeIdx side = Load("x+x+1");
  const AddFractionsOutcome outcome = AddFractionsSide(s, side);
  EXPECT_FALSE(outcome.added);
  EXPECT_EQ(outcome.simplified, "2*x+1");
  EXPECT_EQ(N(side).Text, "x+x+1");
}

}  // namespace
}  // namespace tavimor
