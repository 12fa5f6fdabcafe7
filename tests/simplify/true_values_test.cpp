// Tests that Simplify never states a false value: roots of negative numbers stay complex, whole
// numbers past the exact bound keep every digit, and small numbers are never snapped to zero.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "core/number_text.h"
#include "simplify/coefficients.h"
#include "simplify/collect_sum.h"
#include "simplify/factor_texts.h"
#include "simplify/radical_rules.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

using TrueValues = SimplifyTest;

// Whether a text holds the complex unit of real arithmetic.
bool HoldsSquareRootOfMinusOne(const std::string& text) {
  return text.find("sqrt(-1)") != std::string::npos;
}

TEST_F(TrueValues, SquareRootOfANegativeFractionStaysComplex) {
  int code = 0;
  EXPECT_EQ(SquareRootOfNumber(s, "-0.25", code), "0.5*sqrt(-1)");
  EXPECT_EQ(code, -1);
  s.ComplexForm = 1;
  EXPECT_EQ(SquareRootOfNumber(s, "-0.25", code), "0.5*i");
  EXPECT_EQ(code, -1);
}

TEST_F(TrueValues, SquareRootOfEveryNegativeNumberIsImaginary) {
  // Between -1 and 0, at -1 and below -1; exact and floating arithmetic alike.
  for (const bool floats : {false, true}) {
    s.ExactToFloat = floats;
    for (const char* v : {"-0.5", "-0.25", "-0.01", "-1E-12", "-0.999999", "-1", "-1.5", "-2", "-4",
                          "-12", "-2.25", "-1E20"}) {
      int code = 0;
      const std::string root = SquareRootOfNumber(s, v, code);
      EXPECT_TRUE(HoldsSquareRootOfMinusOne(root)) << v << " gave " << root;
      EXPECT_LT(code, 0) << v;
    }
  }
}

TEST_F(TrueValues, SquareRootOfRandomNegativeNumbersNeverComesOutReal) {
  std::mt19937 random(12);
  std::uniform_real_distribution<double> fraction(-1.0, 0.0);
  std::uniform_real_distribution<double> beyond(-1000.0, -1.0);
  for (int k = 0; k < 300; ++k) {
    const double v = k % 2 == 0 ? fraction(random) : beyond(random);
    if (v == 0.0) continue;
    const std::string text = FormatValue(s, v);
    const std::string simplified = SimplifyText(s, "sqrt(" + text + ")");
    EXPECT_TRUE(HoldsSquareRootOfMinusOne(simplified)) << text << " gave " << simplified;
  }
}

TEST_F(TrueValues, SquareRootOfANegativeFractionInASumStaysComplex) {
  const std::string simplified = Run("sqrt(-0.25)+x");
  EXPECT_TRUE(HoldsSquareRootOfMinusOne(simplified)) << simplified;
  EXPECT_EQ(simplified.find("+0.5"), std::string::npos) << simplified;
}

TEST_F(TrueValues, HalfPowerOfANegativeFractionStaysComplex) {
  for (const bool radicals : {true, false}) {
    s.ExponentToRadical = radicals;
    for (const char* item : {"(-0.5)^(1/2)", "(-0.5)^0.5", "(-0.25)^(1/2)", "(-1)^(1/2)",
                             "(-4)^(1/2)", "(-0.5)^(3/2)", "(-0.5)^(-1/2)"}) {
      const std::string simplified = Run(item);
      const bool complex = HoldsSquareRootOfMinusOne(simplified);
      const bool unchanged = simplified.find("^") != std::string::npos;
      EXPECT_TRUE(complex || unchanged) << item << " gave " << simplified;
      EXPECT_FALSE(IsNumberToken(s, simplified)) << item << " gave " << simplified;
    }
  }
}

TEST_F(TrueValues, OddRootOfANegativeNumberIsReal) {
  EXPECT_EQ(Run("(-8)^(1/3)"), "-2");
  EXPECT_EQ(Run("(-0.001)^(1/3)"), "(-0.001)^(1/3)");  // no whole root: left alone
}

TEST_F(TrueValues, PowerPastTheExactBoundStaysAPower) {
  EXPECT_EQ(Run("3^40"), "3^40");
  EXPECT_EQ(Run("2^31"), "2^31");
  EXPECT_EQ(Run("2^30"), "1.073741824E9");
  EXPECT_EQ(Run("(-2)^31"), "(-2)^31");
  EXPECT_EQ(Run("3^(-40)"), "1/3^40");
  s.ExactToFloat = true;
  EXPECT_EQ(Run("3^40"), "1.21576654590569E19");
}

TEST_F(TrueValues, SumOfNumbersPastTheExactBoundIsLeftAlone) {
  EXPECT_EQ(Run("10^20+1"), "10^20+1");
  EXPECT_EQ(Run("1E20+1"), "1E20+1");
  EXPECT_EQ(Run("2147483646+1"), "2.147483646E9+1");
  EXPECT_EQ(Run("2147483645+1"), "2.147483646E9");
  EXPECT_EQ(Run("1E20*x+x"), "1E20*x+x");
  s.ExactToFloat = true;
  EXPECT_EQ(Run("1E20+1"), "1E20");
}

TEST_F(TrueValues, ProductThatWouldLoseDigitsIsLeftAlone) {
  EXPECT_EQ(Run("123456789*987654321"), "123456789*987654321");
  EXPECT_EQ(Run("123456789*987654321*x"), "123456789*987654321*x");
  EXPECT_EQ(Run("-1E20*3*x"), "-3E20*x");
  EXPECT_EQ(Run("1*1E20"), "1E20");
  EXPECT_EQ(Run("46341*46341"), "2.147488281E9");  // every digit kept
  EXPECT_EQ(Run("1E20*3"), "3E20");
  EXPECT_EQ(Run("123456789*123456789"), "123456789*123456789");  // 17 figures
  s.ExactToFloat = true;
  EXPECT_EQ(Run("123456789*987654321"), "1.21932631112635E17");
}

TEST_F(TrueValues, SnappingNeverMakesZero) {
  EXPECT_EQ(SnapToInteger(s, "1E-12"), 1e-12);
  EXPECT_EQ(SnapToInteger(s, "-1E-20"), -1e-20);
  EXPECT_EQ(SnapToInteger(s, "0"), 0.0);
  EXPECT_EQ(SnapToInteger(s, "3.00000000001"), 3.0);
}

TEST_F(TrueValues, RootOfATinyNumberIsNoZero) {
  EXPECT_EQ(Run("1E-33^(1/3)"), "1E-33^(1/3)");
  EXPECT_EQ(Run("1E-30^(1/5)"), "1E-30^(1/5)");
  EXPECT_EQ(Run("8.0000000001^(1/3)"), "8.0000000001^(1/3)");
  EXPECT_EQ(Run("27^(1/3)"), "3");
  EXPECT_EQ(Run("(-27)^(1/3)"), "-3");
  EXPECT_EQ(Run("16^(3/4)"), "8");
}

TEST_F(TrueValues, SmallTermIsKept) {
  EXPECT_EQ(Run("x+1E-12"), "x+1E-12");
  EXPECT_EQ(Run("1E-12+x"), "x+1E-12");
}

TEST_F(TrueValues, SmallFactorIsNoFactorOfZero) {
  EXPECT_EQ(Run("1E-20*x"), "1E-20*x");
  EXPECT_EQ(Run("x*1E-20"), "1E-20*x");
  EXPECT_EQ(Run("1E-12*1E12*x"), "x");
}

using Ranks = SimplifyTest;

TEST_F(Ranks, FractionalExponentRanksAsTheNumberItIs) {
  EXPECT_DOUBLE_EQ(TermRank(s, Load("x^(5/2)"), 1), 47.5);
  EXPECT_DOUBLE_EQ(TermRank(s, Load("x^2.5"), 1), 47.5);
  EXPECT_DOUBLE_EQ(TermRank(s, Load("x^(-1/2)"), 1), 50.5);
}

TEST_F(Ranks, FractionalPowersSortFromHighestToLowest) {
  EXPECT_EQ(Run("x^2+x^(5/2)"), "x^(5/2)+x^2");
  EXPECT_EQ(Run("x^(5/2)+x^2"), "x^(5/2)+x^2");
  EXPECT_EQ(Run("x+x^(4/3)"), "x^(4/3)+x");
  EXPECT_EQ(Run("x^(1/3)+x"), "x+x^(1/3)");
  EXPECT_EQ(Run("x^3+x^(7/2)"), "x^(7/2)+x^3");
  EXPECT_EQ(Run("x^(-60)+1/x^2"), "1/x^2+1/x^60");
}

using Reciprocals = SimplifyTest;

TEST_F(Reciprocals, WithoutReciprocalsEveryDenominatorComesUp) {
  s.ExponentToReciprocal = false;
  EXPECT_EQ(Run("1/x"), "x^(-1)");
  EXPECT_EQ(Run("2/x^3"), "2*x^(-3)");
  EXPECT_EQ(Run("x/x^3"), "x^(-2)");
  EXPECT_EQ(Run("y/x"), "x^(-1)*y");
  EXPECT_EQ(Run("x^(-2)"), "x^(-2)");
}

TEST_F(Reciprocals, WithReciprocalsADenominatorStays) {
  EXPECT_EQ(Run("1/x"), "1/x");
  EXPECT_EQ(Run("2/x^3"), "2/x^3");
}

TEST_F(Reciprocals, PowerOfAPowerToMinusOneNarratesTheBaseWithoutBrackets) {
  EXPECT_EQ(OnePass("(x^2)^(-1)", 6), "1/x^2");
  EXPECT_NE(s.Message.find("=1/x^2@ ."), std::string::npos) << s.Message;
  EXPECT_EQ(s.Message.find("1/(x^2)"), std::string::npos) << s.Message;
  EXPECT_EQ(OnePass("(x+1)^(-1)", 6), "1/(x+1)");
  EXPECT_EQ(OnePass("(-2)^(-1)", 6), "1/(-2)");
}

}  // namespace
}  // namespace tavimor
