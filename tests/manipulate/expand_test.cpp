// Tests of expansion: distributions, low powers written as products, the binomial and
// multinomial theorems, denominators, the narration of each step and its pacing.
#include <gtest/gtest.h>

#include <string>

#include "core/pieces.h"
#include "manipulate/distribute.h"
#include "manipulate/expand.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Expansion : public SessionTest {
 protected:
  // Expands a text to the end or for one press; the tree's text comes back.
  std::string Expand(const std::string& text, int detail = 0, bool streaming = true) {
    root = Load(text);
    s.DetailNow = static_cast<std::int16_t>(detail);
    s.StreamingOutput = streaming;
    s.RewriteCount = 0;
    expanded = ExpandTree(s, root);
    return N(root).Text;
  }
  // One more press of the button on the same tree.
  bool Press() {
    s.RewriteCount = 0;
    return ExpandTree(s, root);
  }
  // The steps written: each shows the new form indented below its message.
  int StepsShown() const {
    int count = 0;
    for (const RichRun& run : frontend.work_space) count += run.kind == RunKind::Tab ? 1 : 0;
    return count;
  }

  NodeIdx root = 0;
  bool expanded = false;
};

TEST_F(Expansion, NumberTimesSumIsExpandedInOneStep) {
  EXPECT_EQ(Expand("2(x+1)", 1), "2*x+2");
  EXPECT_TRUE(expanded);
  EXPECT_EQ(s.HelpNumber, 75);
  EXPECT_EQ(frontend.Transcript().substr(0, 7), "Expand.");
  EXPECT_NE(frontend.Transcript().find("@2*x+2@"), std::string::npos);
}

TEST_F(Expansion, SquareOfASumIsFirstWrittenAsAProduct) {
  EXPECT_EQ(Expand("(x+1)^2", 1, false), "x+x*(x+1)+1");
  EXPECT_EQ(s.HelpNumber, 76);
  EXPECT_EQ(frontend.Transcript().rfind(
                "In order to expand this, first express it as @(x+1)*(x+1)@ .\n\nNow expand as "
                "@x*(x+1)+(x+1)@ ,\n\n. . . and simplify.",
                0),
            0u)
      << frontend.Transcript();
  EXPECT_TRUE(Press());
  EXPECT_EQ(N(root).Text, "x^2+2*x+1");
  EXPECT_FALSE(Press());
}

TEST_F(Expansion, FifthPowerOfABinomialUsesTheBinomialTheorem) {
  EXPECT_EQ(Expand("(x+1)^5", 1), "x^5+5*x^4+10*x^3+10*x^2+5*x+1");
  EXPECT_EQ(s.HelpNumber, 413);
  EXPECT_EQ(frontend.Transcript().rfind(
                "Expand @(x+1)^5@ using the binomial theorem which states that "
                "@(x+1)^5=x^5+5*x^4*1+10*x^3*1^2+10*x^2*1^3+5*x*1^4+1^5@ .\n\nNow simplify.",
                0),
            0u)
      << frontend.Transcript();
}

TEST_F(Expansion, CubeOfThreeTermsUsesTheMultinomialTheorem) {
  Expand("(a+b+c)^3", 1);
  EXPECT_EQ(s.HelpNumber, 414);
  EXPECT_NE(
      frontend.Transcript().find(
          "Expand @(a+b+c)^3@ using the multinomial theorem which states that "
          "@(a+b+c)^3=a^3+3*a^2*b+3*a^2*c+3*a*b^2+6*a*b*c+3*a*c^2+b^3+3*b^2*c+3*b*c^2+c^3@ ."),
      std::string::npos)
      << frontend.Transcript();
}

TEST_F(Expansion, SixTermsInTheBracketAreNotOpened) {
  EXPECT_EQ(Expand("(a+b+c+d+e+f)^3", 1), "(a+b+c+d+e+f)^3");
  EXPECT_FALSE(expanded);
  EXPECT_TRUE(frontend.work_space.empty());
}

TEST_F(Expansion, DenominatorIsExpandedOnlyInTheRightClickForm) {
  s.ExpandMode = 1;
  Expand("1/(x*(x+1))");
  EXPECT_FALSE(expanded);
  s.ExpandMode = 2;
  EXPECT_EQ(Expand("1/(x*(x+1))"), "1/(x^2+x)");
  EXPECT_TRUE(expanded);
}

TEST_F(Expansion, SumInTheDenominatorTakesTheOtherDenominators) {
  s.ExpandMode = 2;
  EXPECT_EQ(Expand("1/(x+1)/x", 1), "1/(x^2+x)");
  EXPECT_NE(frontend.Transcript().find("Expand as @1/(x*x+x)@ ,"), std::string::npos);
}

TEST_F(Expansion, TermThatBecomesASumIsOpenedIntoItsSum) {
  EXPECT_EQ(Expand("3+2(x+1)", 1), "2*x+5");
  EXPECT_EQ(frontend.Transcript().rfind("Expand as @2*x+2+3@ ,\n\n. . . and simplify.", 0), 0u)
      << frontend.Transcript();
}

TEST_F(Expansion, ContentOfAFunctionIsExpanded) { EXPECT_EQ(Expand("sin(2(x+1))"), "sin(2*x+2)"); }

TEST_F(Expansion, PowerOfASumInTheDenominatorInTheRightClickForm) {
  s.ExpandMode = 1;
  EXPECT_EQ(Expand("1/(x+1)^2"), "1/(x+1)^2");
  s.ExpandMode = 2;
  EXPECT_EQ(Expand("1/(x+1)^2"), "1/(x^2+2*x+1)");
  EXPECT_EQ(Expand("3/(x-1)^5"), "3/(x^5-5*x^4+10*x^3-10*x^2+5*x-1)");
}

TEST_F(Expansion, BracketInsideAnExponentIsNotTouched) {
  EXPECT_EQ(Expand("2^(x*(x+1))"), "2^(x*(x+1))");
  EXPECT_FALSE(expanded);
  EXPECT_EQ(Expand("2^((x+1)^2)*(y+1)"), "2^((x+1)^2)+2^((x+1)^2)*y");
}

TEST_F(Expansion, OtherModeValuesRewriteNothing) {
  for (const std::int16_t mode : {0, 3, -1}) {
    s.ExpandMode = mode;
    EXPECT_EQ(Expand("2(x+1)"), "2*(x+1)");
    EXPECT_FALSE(expanded);
  }
}

TEST_F(Expansion, OneStepPerPressWhenShownOneAtATime) {
  Expand("(x+1)*(x+2)*(x+3)", 1, false);
  int presses = 1;
  EXPECT_EQ(StepsShown(), 1);
  while (Press()) {
    ++presses;
    EXPECT_EQ(StepsShown(), presses);
    ASSERT_LT(presses, 20);
  }
  EXPECT_EQ(N(root).Text, "x^3+6*x^2+11*x+6");
  const std::string streamed = frontend.Transcript();
  frontend.work_space.clear();
  Expand("(x+1)*(x+2)*(x+3)", 1, true);
  EXPECT_EQ(StepsShown(), presses);
  EXPECT_EQ(frontend.Transcript(), streamed);
}

TEST_F(Expansion, SilentExpansionShowsNothing) {
  EXPECT_EQ(Expand("(x-1)^3"), "x^3-3*x^2+3*x-1");
  EXPECT_TRUE(frontend.work_space.empty());
}

TEST_F(Expansion, NothingToExpandLeavesTheSimplifiedFormInFieldOne) {
  Expand("x+x");
  EXPECT_FALSE(expanded);
  EXPECT_EQ(GetPiece(s.Message, 1, kExpandRecordSeparator), "2*x");
  EXPECT_EQ(CountPieces(s.Message, kExpandRecordSeparator), 5);
  Expand("2x+1");
  EXPECT_EQ(GetPiece(s.Message, 1, kExpandRecordSeparator), "2*x+1");
}

TEST_F(Expansion, NoteTellsTheSimplifiedFormWhenNothingWasExpanded) {
  Expand("x+x");
  EXPECT_EQ(NothingToExpandNote("x+x", s.Message),
            "Note:  The expression can be simplified like this:||@x+x->2*x@  ||There is nothing "
            "to expand.");
  Expand("2*x+1");
  EXPECT_EQ(NothingToExpandNote("2*x+1", s.Message), "");
}

TEST_F(Expansion, SideIsExpandedWithDenominatorsOnlyWhenAsked) {
  const NodeIdx side = Load("1/(x*(x+1))");
  EXPECT_FALSE(ExpandSide(s, side, false));
  EXPECT_EQ(s.ExpandMode, 1);
  EXPECT_TRUE(ExpandSide(s, side, true));
  EXPECT_EQ(N(side).Text, "1/(x^2+x)");
  EXPECT_EQ(s.ExpandMode, 1);
}

TEST_F(Expansion, TheoremStatementIsLeftOutWhenItIsTooLong) {
  Expand("(a+b+c+d)^3", 1);
  EXPECT_EQ(s.HelpNumber, 414);
  EXPECT_EQ(
      frontend.Transcript().rfind(
          "Expand @(a+b+c+d)^3@ using the multinomial theorem.  (Press F1 for more info.)", 0),
      0u)
      << frontend.Transcript();
}

TEST_F(Expansion, ProductOrderOfTheWrittenFactorsIsKept) {
  const NodeIdx product = Load("a*(x+y)*b");
  EXPECT_EQ(DistributeProduct(s, product), "a*x*b+a*y*b");
  const NodeIdx signed_product = Load("-2*(x-1)/y");
  EXPECT_EQ(DistributeProduct(s, signed_product), "-2*x/y+2/y");
}

TEST_F(Expansion, FactorInTheNumeratorComesBeforeADenominatorSum) {
  s.ExpandMode = 2;
  const NodeIdx n = Load("(x+1)/(x+2)/x");
  EXPECT_EQ(FindDistributableFactor(s, n), Child(n, 1));
  s.ExpandMode = 1;
  const NodeIdx d = Load("1/(x+2)/x");
  EXPECT_EQ(FindDistributableFactor(s, d), kNoNode);
  s.ExpandMode = 2;
  EXPECT_EQ(FindDistributableFactor(s, d), Child(d, 2));
  EXPECT_EQ(DistributeDenominator(s, d, Child(d, 2)), "1/(x*x+2*x)");
}

TEST_F(Expansion, PowerIsTakenDownOneFactorAtATime) {
  EXPECT_EQ(PowerToProduct(s, Load("(x+1)^2")), "(x+1)*(x+1)");
  EXPECT_EQ(PowerToProduct(s, Load("(x+1)^3")), "(x+1)^2*(x+1)");
  int n = 0;
  int k = 0;
  EXPECT_TRUE(PowerOfSum(s, Load("(a-b+c)^4"), n, k));
  EXPECT_EQ(n, 4);
  EXPECT_EQ(k, 3);
  EXPECT_FALSE(PowerOfSum(s, Load("(a*b)^4"), n, k));
  EXPECT_FALSE(PowerOfSum(s, Load("(a+b)^x"), n, k));
}

TEST_F(Expansion, TheoremWritesSignedAndCompoundTermsInBrackets) {
  std::string expansion;
  std::string formula;
  ASSERT_TRUE(PowerByTheorem(s, Load("(2*x-y)^4"), expansion, formula));
  EXPECT_EQ(expansion, "(2*x)^4+4*(2*x)^3*(-y)+6*(2*x)^2*(-y)^2+4*(2*x)*(-y)^3+(-y)^4");
  EXPECT_EQ(formula, "(2*x-y)^4=" + expansion);
}

TEST_F(Expansion, TheoremCoefficientsAreMultinomial) {
  std::string expansion;
  std::string formula;
  ASSERT_TRUE(PowerByTheorem(s, Load("(a+b+c)^4"), expansion, formula));
  EXPECT_EQ(expansion,
            "a^4+4*a^3*b+4*a^3*c+6*a^2*b^2+12*a^2*b*c+6*a^2*c^2+4*a*b^3+12*a*b^2*c+12*a*b*c^2+"
            "4*a*c^3+b^4+4*b^3*c+6*b^2*c^2+4*b*c^3+c^4");
  EXPECT_TRUE(formula.empty());
  ASSERT_TRUE(PowerByTheorem(s, Load("(a+b+c+d+e)^2"), expansion, formula));
  EXPECT_EQ(CountPieces(expansion, "+"), 15);
  EXPECT_FALSE(PowerByTheorem(s, Load("(a+b+c+d+e+f)^2"), expansion, formula));
}

TEST_F(Expansion, TheoremDeclinesAnExpansionBeyondItsRoom) {
  std::string expansion;
  std::string formula;
  EXPECT_FALSE(PowerByTheorem(s, Load("(a+b+c+d+e)^7"), expansion, formula));
  EXPECT_FALSE(PowerByTheorem(s, Load("(x+1)^200"), expansion, formula));
  EXPECT_TRUE(expansion.empty());
  EXPECT_EQ(Expand("(x+1)^200"), "(x+1)^200");
  EXPECT_FALSE(expanded);
}

// The narration of each form, from the record of the step.
TEST(ExpansionNarration, FirstDistributionSaysExpand) {
  EXPECT_EQ(DistributionStepMessage("2*(x+1); 0; ; 2*x+2; "), "75#Expand.");
}

TEST(ExpansionNarration, LaterDistributionSaysNowExpand) {
  EXPECT_EQ(DistributionStepMessage("x; 0; x*(x+1); x*x+x; "),
            "75#In order to expand this, first express it as @x*(x+1)@ .||Now expand.");
}

TEST(ExpansionNarration, SimplifiedResultIsAnnounced) {
  EXPECT_EQ(DistributionStepMessage("x*(x+1); 1; ; x*x+x; x^2+x"),
            "76#Expand as @x*x+x@ ,||. . . and simplify.");
  EXPECT_EQ(DistributionStepMessage("(x+1)^2; 1; (x+1)*(x+1); x*(x+1)+(x+1); x+x*(x+1)+1"),
            "76#In order to expand this, first express it as @(x+1)*(x+1)@ .||Now expand as "
            "@x*(x+1)+(x+1)@ ,||. . . and simplify.");
}

TEST(ExpansionNarration, SecondRewriteAsksToSimplifyAndExpress) {
  EXPECT_EQ(DistributionStepMessage("(x+1)^2; 2; (x+1)*(x+1); x*(x+1)+(x+1); "),
            "75#In order to expand this, first simplify it and express it as @(x+1)*(x+1)@ "
            ".||Now expand.");
}

TEST(ExpansionNarration, LaterStepWithoutInnerRewriteAsksToSimplifyFirst) {
  EXPECT_EQ(DistributionStepMessage("2*(x+1)*x; 2; ; 2*x*x+2*x; 2*x^2+2*x"),
            "76#In order to expand this, first simplify it as @2*(x+1)*x@ .||Now expand as "
            "@2*x*x+2*x@ ,||. . . and simplify.");
}

TEST(ExpansionNarration, BinomialTheoremWithItsStatement) {
  EXPECT_EQ(TheoremStepMessage("2:(a+b)^5; 0; (a+b)^5=a^5+5*a^4*b; a^5+5*a^4*b; "),
            "413#Expand @(a+b)^5@ using the binomial theorem which states that "
            "@(a+b)^5=a^5+5*a^4*b@ .  The result is");
  EXPECT_EQ(TheoremStepMessage("2:(a+b)^5; 0; (a+b)^5=a^5+5*a^4*b; a^5+5*a^4*b; a^5+5a^4b"),
            "413#Expand @(a+b)^5@ using the binomial theorem which states that "
            "@(a+b)^5=a^5+5*a^4*b@ .||Now simplify.");
}

TEST(ExpansionNarration, MultinomialTheoremWithoutStatement) {
  EXPECT_EQ(TheoremStepMessage("4:(a+b+c+d)^3; 0; (a+b+c+d)^3; a^3; "),
            "414#Expand @(a+b+c+d)^3@ using the multinomial theorem.  (Press F1 for more info.)");
  EXPECT_EQ(TheoremStepMessage("3:y*(a+b+c)^3; 2; (a+b+c)^3; a^3; "),
            "414#Now expand In order to expand this, first simplify it as @y*(a+b+c)^3@ "
            ".||@(a+b+c)^3@ using the multinomial theorem.  (Press F1 for more info.)");
}

}  // namespace
}  // namespace tavimor
