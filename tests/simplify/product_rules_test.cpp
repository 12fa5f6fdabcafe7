// Tests of the rules of products: signs, brackets, fractions, and the collection of a product
// into one coefficient and sorted factors with their exponents added.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/regenerate.h"
#include "simplify/collect_product.h"
#include "simplify/simplify_driver.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

using Products = SimplifyTest;

TEST_F(Products, FactorOfZeroInATermSaysATerm) {
  EXPECT_EQ(OnePass("x*0*y+z", 4), "0+z");
  EXPECT_EQ(s.Message, "1#Simplify by replacing a term having a factor of zero by zero.");
  EXPECT_EQ(Run("x*0*y+z"), "z");
}

TEST_F(Products, SeveralFactorsOfOneArePlural) {
  EXPECT_EQ(OnePass("1*x/1", 4), "x");
  EXPECT_NE(s.Message.find("dropping the unnecessary factors of 1."), std::string::npos);
}

TEST_F(Products, OneThatIsPartOfTheCoefficientStays) {
  EXPECT_EQ(OnePass("1/4*z", 4), "1/4*z");
  EXPECT_FALSE(fired);
}

TEST_F(Products, OnlySortingIsSortFactors) {
  EXPECT_EQ(OnePass("x*2", 4), "2*x");
  EXPECT_EQ(s.Message, "356#Sort factors.");
  Run("x*2");
  EXPECT_EQ(level, kLevelSort);
}

TEST_F(Products, CoefficientAsADecimalWithExactToFloat) {
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("6/4*x", 4), "1.5*x");
  EXPECT_EQ(s.Message.substr(0, 4), "356#");
}

TEST_F(Products, ExponentsSubtractBelowTheLine) {
  EXPECT_EQ(Run("x^5/x^2"), "x^3");
  EXPECT_EQ(Run("x^2/x^5"), "1/x^3");
  s.ExponentToReciprocal = false;
  EXPECT_EQ(Run("x^2/x^5"), "x^(-3)");
  EXPECT_EQ(Run("x/x^2"), "x^(-1)");
}

TEST_F(Products, HelpNumberFollowsTheBitsOfWhatWasDone) {
  OnePass("x^2*3*x/x", 4);  // sorting, exponents, canceling nothing: 360
  EXPECT_EQ(s.Message.substr(0, 4), "360#");
  OnePass("x^2*6/x^2/4", 4);  // reduced coefficient and canceling: 357 plus sorting
  EXPECT_EQ(s.Message.substr(0, 4), "358#");
  OnePass("x^3*6/x^2/4*x", 4);  // all three kinds
  EXPECT_EQ(s.Message.substr(0, 4), "362#");
  OnePass("x^3/x*y/y", 4);  // exponents and canceling
  EXPECT_EQ(s.Message.substr(0, 4), "361#");
}

TEST_F(Products, FactorsSortNumbersLettersBracketsPowersOfPowersFunctions) {
  const NodeIdx n = Load("sin(x)*x^2^3*(x+1)*y*x*2^x*3/5*2");
  std::vector<std::string> keys;
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next)
    keys.push_back(FactorSortKey(s, c));
  EXPECT_EQ(keys[0], "Esin(x)1");
  EXPECT_EQ(keys[1], "Dx^21");
  EXPECT_EQ(keys[2], "C(x+1)1");
  EXPECT_EQ(keys[3], "By1");
  EXPECT_EQ(keys[4], "Bx1");
  EXPECT_EQ(keys[5], "A3000002.0000001");
  EXPECT_EQ(keys[6], "A1");
  EXPECT_EQ(keys[7], "A2");
  EXPECT_EQ(Run("sin(x)*x^2^3*(x+1)*y*x*2^x*3/5*2"), "6/5*2^x*x^7*y*(x+1)*sin(x)");
}

TEST_F(Products, NegativeTermBecomesASubtraction) {
  EXPECT_EQ(OnePass("y+(-2)*x", 3), "y-2*x");
  EXPECT_NE(s.Message.find("replacing the addition of a negative quantity by a subtraction."),
            std::string::npos);
  EXPECT_EQ(OnePass("y-(-2)*x", 3), "y+2*x");
  EXPECT_NE(s.Message.find("replacing the subtraction of a negative quantity by an addition."),
            std::string::npos);
}

TEST_F(Products, LonePlusBeforeAProductIsDropped) {
  // Once ended as "+2*x", a plus that reads back as the number +2.
  EXPECT_EQ(Run("+(x+x)"), "2*x");
  EXPECT_EQ(OnePass("+x*y", 3), "x*y");
  EXPECT_NE(s.Message.find("dropping the unnecessary + sign."), std::string::npos);
}

TEST_F(Products, PlusBeforeANumberOnlyIsSilent) {
  EXPECT_EQ(OnePass("x*(+2)", 3), "x*2");
  EXPECT_EQ(s.Message, kSkipMessage);
}

TEST_F(Products, SignedNumberAtTheFrontIsLeftAlone) {
  EXPECT_EQ(OnePass("-1/2*a", 3), "-1/2*a");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Run("-1/2*a"), "-1/2*a");
  EXPECT_FALSE(result);
}

TEST_F(Products, BracketsAroundAProductDrop) {
  EXPECT_EQ(OnePass("6/(3*x)", 3), "6/3/x");
  EXPECT_EQ(s.Message, "16#Simplify the term @6/(3*x)@ by dropping the brackets.");
  EXPECT_EQ(Run("6/(3*x)"), "2/x");
}

TEST_F(Products, ZeroDenominatorIsTheDivisionError) {
  try {
    Run("x/(y-y)");
    FAIL() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), RunTimeErrorNumber::DivisionByZero);
  }
}

TEST_F(Products, ZeroOverZeroIsIndeterminate) {
  try {
    Run("x*0/0");
    FAIL() << "no error";
  } catch (const AppError& error) {
    EXPECT_EQ(error.Number(), kErrorZeroOverZero);
  }
}

TEST_F(Products, LargeCoefficientsTurnToFloats) {
  EXPECT_EQ(Run("3000000000*x*3"), "9E9*x");
  EXPECT_EQ(Run("x/3000000000*3"), "1E-09*x");
}

}  // namespace
}  // namespace tavimor
