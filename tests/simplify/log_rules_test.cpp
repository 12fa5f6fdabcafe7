// The logarithm and exponential rules of the simplify loop: the reciprocal and the power inside a
// logarithm, the ratio of logarithms, products of exponentials.
#include <gtest/gtest.h>

#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

using LogRules = SimplifyTest;

TEST_F(LogRules, LnOfAReciprocalIsMinusTheLn) {
  EXPECT_EQ(OnePass("ln(1/x)", 5), "-ln(x)");
  EXPECT_EQ(s.Message, "242#Simplify using the property of logarithms that @ln(1/Q)=-ln(Q)@ .");
}

TEST_F(LogRules, LogOfAReciprocalOfAProduct) {
  EXPECT_EQ(OnePass("log(1/x/y)", 5), "-log(x*y)");
  EXPECT_EQ(s.Message, "243#Simplify using the property of logarithms that @log(1/Q)=-log(Q)@ .");
}

TEST_F(LogRules, LnOfAFractionWithANumeratorStays) {
  OnePass("ln(2/x)", 5);
  EXPECT_FALSE(fired);
}

TEST_F(LogRules, LnOfACubeBringsTheExponentOut) {
  EXPECT_EQ(OnePass("ln(x^3)", 7), "3*ln(x)");
  EXPECT_EQ(s.Message,
            "252#Simplify using property 3 of logarithms to convert @ln(x^3)->3*ln(x)@ .");
}

TEST_F(LogRules, LnOfASquareOfALetterStays) {
  // ln(x^2) is defined for a negative x, 2*ln(x) is not.
  EXPECT_EQ(Run("ln(x^2)"), "ln(x^2)");
}

TEST_F(LogRules, LnOfAPowerOfANumber) { EXPECT_EQ(Run("ln(2^x)"), "x*ln(2)"); }

TEST_F(LogRules, LnOfAProductOfCubesTakesTheCommonExponent) {
  EXPECT_EQ(OnePass("ln(x^3*y^3)", 7), "3*ln(x*y)");
  EXPECT_EQ(s.Message,
            "252#Simplify @ln(x^3*y^3)@ by:|   - using the properties of exponents to convert "
            "@x^3*y^3->(x*y)^3@ .\\   - using property 3 of logarithms to convert "
            "@ln((x*y)^3)->3*ln(x*y)@ .\\   - The result is:");
}

TEST_F(LogRules, RatioOfLnEightOverLnTwoIsThree) {
  EXPECT_EQ(OnePass("ln(8)/ln(2)", 8), "3");
  EXPECT_EQ(s.Message,
            "244#The ratio of logarithms can be simplified by first reducing it like this: "
            "@ln(8)/ln(2)->3@ .");
  EXPECT_EQ(Run("ln(8)/ln(2)"), "3");
}

TEST_F(LogRules, RatioOfLogsToAFraction) {
  EXPECT_EQ(Run("log(4)/log(8)"), "2/3");
  EXPECT_EQ(Run("x*ln(9)/ln(27)"), "2/3*x");
}

TEST_F(LogRules, RatioOfLogsOfOtherBasesStays) { EXPECT_EQ(Run("ln(6)/ln(2)"), "ln(6)/ln(2)"); }

TEST_F(LogRules, ProductOfExponentialsAddsTheExponents) {
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(OnePass("exp(a)*exp(b)", 8), "exp(a+b)");
  EXPECT_EQ(s.Message, "250#Simplify using the fact that @exp(a)*exp(b)->exp(a+b)@ .");
}

TEST_F(LogRules, QuotientOfExponentialsSubtractsTheExponents) {
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(OnePass("exp(a)/exp(b)", 8), "exp(a-b)");
  EXPECT_EQ(s.Message, "251#Simplify using the fact that @exp(a)/exp(b)->exp(a-b)@ .");
  EXPECT_EQ(OnePass("x/exp(b)*exp(a+c)", 8), "x*exp(a+c-b)");
}

TEST_F(LogRules, QuotientOfExponentialsBracketsASumBelow) {
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(Run("exp(a)/exp(b+c)"), "exp(a-b-c)");
}

}  // namespace
}  // namespace tavimor
