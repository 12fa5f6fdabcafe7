// Combining logarithms: the three properties, the change of base, lone coefficients, the
// protected exponent, and the silent entry for a side's text.
#include <gtest/gtest.h>

#include <string>

#include "manipulate/combine_logs.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class CombineLogsTest : public SessionTest {
 protected:
  std::string Combine(const std::string& text) {
    NodeIdx root = Load(text);
    s.DetailNow = 0;
    combined = CombineLogs(s, root);
    return N(root).Text;
  }
  bool combined = false;
};

TEST_F(CombineLogsTest, SumOfTwoLnsUsesPropertyOne) {
  EXPECT_EQ(Combine("ln(a)+ln(b)"), "ln(a*b)");
  EXPECT_TRUE(combined);
  EXPECT_EQ(s.Message,
            "82#Make @ln(a)+ln(b)@ into one logarithm by:|   - using property 1 of logarithms to "
            "convert @ln(a)+ln(b)->ln(a*b)@ .\\|   - The result is:");
}

TEST_F(CombineLogsTest, DifferenceOfLogsUsesPropertyTwo) {
  EXPECT_EQ(Combine("log(a)-log(b)"), "log(a/b)");
  EXPECT_NE(s.Message.find("using property 2 of logarithms to convert @log(a)-log(b)->log(a/b)@"),
            std::string::npos);
}

TEST_F(CombineLogsTest, TwoSubtractedLnsFactorOutTheMinus) {
  EXPECT_EQ(Combine("-ln(a)-ln(b)"), "-ln(a*b)");
  EXPECT_NE(s.Message.find("factoring out a - sign and then using property 1 of logarithms to "
                           "convert @-ln(a)-ln(b)->-ln(a*b)@ .\\|"),
            std::string::npos);
}

TEST_F(CombineLogsTest, CoefficientGoesInsideFirstByPropertyThree) {
  EXPECT_EQ(Combine("2*ln(x)+ln(y)"), "ln(x^2*y)");
  EXPECT_EQ(s.Message,
            "85#Make @2*ln(x)+ln(y)@ into one logarithm by:|   - using property 3 of logarithms "
            "to convert @2*ln(x)->ln(x^2)@ .\\|   - using property 1 of logarithms to convert "
            "@ln(x^2)+ln(y)->ln(x^2*y)@ .\\|   - The result is:");
}

TEST_F(CombineLogsTest, LnWithLogChangesTheBase) {
  EXPECT_EQ(Combine("ln(x)+log(y)"), "ln(x*y^log(e))");
  EXPECT_NE(s.Message.find("using the change of base formula to convert @log(y)->log(e)*ln(y)@"),
            std::string::npos);
  EXPECT_EQ(s.Message.substr(0, 3), "86#");
}

TEST_F(CombineLogsTest, ChangeOfBaseInFloats) {
  s.ExactToFloat = true;
  EXPECT_EQ(Combine("ln(x)+log(y)"), "ln(x*y^0.434294481903252)");
}

TEST_F(CombineLogsTest, ChangeOfBaseWithoutTheConstantE) {
  s.SpecialE = false;
  const std::string result = Combine("ln(x)+log(y)");
  EXPECT_NE(s.Message.find("@log(y)->ln(y)/ln(10)@"), std::string::npos) << s.Message;
  EXPECT_TRUE(combined) << result;
}

TEST_F(CombineLogsTest, OneLnHasNothingToCombine) {
  EXPECT_EQ(Combine("ln(x)"), "ln(x)");
  EXPECT_FALSE(combined);
}

TEST_F(CombineLogsTest, LoneCoefficientGoesInside) {
  EXPECT_EQ(Combine("2*ln(x)+y"), "ln(x^2)+y");
  EXPECT_EQ(s.Message.substr(0, 3), "87#");
}

TEST_F(CombineLogsTest, CoefficientThatComesOutAgainIsNoChange) {
  EXPECT_EQ(Combine("3*ln(x)"), "3*ln(x)");
  EXPECT_FALSE(combined);
}

TEST_F(CombineLogsTest, CommonExponentsComeOutInFront) {
  EXPECT_EQ(Combine("ln(x^3)+ln(y^3)"), "3*ln(x*y)");
}

TEST_F(CombineLogsTest, ProtectedCoefficientStaysOutside) {
  s.ProtectedExponent = "n";
  EXPECT_EQ(Combine("n*ln(x)+ln(y)"), "n*ln(x)+ln(y)");
  EXPECT_FALSE(combined);
}

TEST_F(CombineLogsTest, OtherTermsKeepTheirPlaces) {
  EXPECT_EQ(Combine("ln(a)+x-ln(b)"), "ln(a/b)+x");
}

TEST_F(CombineLogsTest, ThreeLnsBecomeOne) { EXPECT_EQ(Combine("ln(a)+ln(b)-ln(c)"), "ln(a*b/c)"); }

TEST_F(CombineLogsTest, SumsGoInBrackets) {
  EXPECT_EQ(Combine("ln(x+1)-ln(x-1)"), "ln((x+1)/(x-1))");
}

TEST_F(CombineLogsTest, SideTextForTheSolver) {
  std::string side = "log(x)+log(x-3)";
  EXPECT_TRUE(CombineLogsOnSide(s, side));
  EXPECT_EQ(side, "log(x*(x-3))");
  std::string plain = "x+1";
  EXPECT_FALSE(CombineLogsOnSide(s, plain));
  EXPECT_EQ(plain, "x+1");
}

TEST_F(CombineLogsTest, SentenceNamesTheSidesThatChanged) {
  std::string left = "ln(x)+ln(2)";
  std::string right = "3";
  std::string sentence;
  EXPECT_TRUE(CombineLogsOnSides(s, left, right, sentence));
  EXPECT_EQ(sentence, "Combine the logarithms on the left side of the equation.");
  left = "ln(a)-ln(b)";
  right = "ln(c)+ln(d)";
  EXPECT_TRUE(CombineLogsOnSides(s, left, right, sentence));
  EXPECT_EQ(sentence, "Combine the logarithms on each side of the equation.");
}

}  // namespace
}  // namespace tavimor
