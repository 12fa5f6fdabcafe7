// Tests of the rules of powers and radicals and of the options that choose their written form.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/regenerate.h"
#include "simplify/power_rules.h"
#include "simplify/radical_rules.h"
#include "simplify/simplify_driver.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

using Powers = SimplifyTest;

TEST_F(Powers, PowerMinusOneIsTheReciprocalOnlyWhenChosen) {
  EXPECT_EQ(OnePass("x^(-1)", 6), "1/x");
  EXPECT_EQ(s.Message, "58#Simplify using the property of negative exponents that @x^(-1)=1/x@ .");
  s.ExponentToReciprocal = false;
  EXPECT_EQ(Run("x^(-1)"), "x^(-1)");
  EXPECT_FALSE(result);
}

TEST_F(Powers, NegativeExponentGoesBelowTheLine) {
  EXPECT_EQ(OnePass("x^(-3)", 6), "1/x^3");
  EXPECT_EQ(s.Message,
            "60#Simplify using the property of negative exponents that @x^(-3)=1/x^3@ .");
  EXPECT_EQ(Run("x^(-a-b)"), "1/x^(a+b)");
  s.ExponentToReciprocal = false;
  EXPECT_EQ(Run("x^(-3)"), "x^(-3)");
}

TEST_F(Powers, NegatedTextOfTokensProductsAndAllNegativeSums) {
  std::string text = "-2";
  EXPECT_TRUE(NegatedText(s, text));
  EXPECT_EQ(text, "2");
  text = "-2*x";
  EXPECT_TRUE(NegatedText(s, text));
  EXPECT_EQ(text, "2*x");
  text = "-x-1";
  EXPECT_TRUE(NegatedText(s, text));
  EXPECT_EQ(text, "x+1");
  text = "-x+1";
  EXPECT_FALSE(NegatedText(s, text));
  EXPECT_EQ(text, "-x+1");
  text = "";
  EXPECT_FALSE(NegatedText(s, text));
  text = "x";
  EXPECT_FALSE(NegatedText(s, text));
}

TEST_F(Powers, PowerOfAPowerMultipliesTheExponents) {
  EXPECT_EQ(OnePass("x^2^3", 6), "x^(3*2)");
  EXPECT_EQ(s.Message, "61#Simplify using the property of exponents that @x^2^3=x^(3*2)@ .");
  EXPECT_EQ(Run("(x^2)^3"), "x^6");
}

TEST_F(Powers, PowerOfExpGoesInside) {
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(OnePass("exp(x+1)^2", 6), "exp(2*(x+1))");
  EXPECT_EQ(s.Message, "249#Simplify using the rule that @exp(x+1)^2=exp(2*(x+1))@ .");
}

TEST_F(Powers, ConstantToALogarithmSwapsWithTheArgument) {
  EXPECT_EQ(OnePass("2^ln(x)", 6), "x^ln(2)");
  EXPECT_EQ(s.Message, "249#Simplify using the rule that @2^ln(x)=x^ln(2)@ .");
  EXPECT_EQ(OnePass("x^ln(2)", 6), "x^ln(2)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(OnePass("e^ln(x)", 6), "x^ln(e)");  // e is a constant with SpecialE
}

TEST_F(Powers, PerfectSquareUnderARootIsFactoredFirst) {
  EXPECT_EQ(OnePass("sqrt(x^2+2*x+1)", 7), "sqrt((x+1)^2)");
  EXPECT_EQ(s.Message,
            "97#The radical @sqrt(x^2+2*x+1)@ can be simplified by first factoring its contents "
            "like this:");
  EXPECT_EQ(OnePass("sqrt(x^2+1)", 7), "sqrt(x^2+1)");
  EXPECT_FALSE(fired);
}

TEST_F(Powers, PowerOfAProductIsAProductOfPowers) {
  EXPECT_EQ(OnePass("(2*x)^3", 6), "2^3*x^3");
  EXPECT_EQ(s.Message, "63#Simplify by converting a power of products into a product of powers.");
  EXPECT_EQ(Run("(2*x)^3"), "8*x^3");
  EXPECT_EQ(OnePass("(-x*y^2/z)^2", 6), "(-1)^2*x^2*y^(2*2)/z^2");
}

TEST_F(Powers, ProtectedExponentKeepsThePowerTogether) {
  s.ProtectedExponent = "x";
  EXPECT_EQ(OnePass("(2*y)^x", 6), "(2*y)^x");
  EXPECT_FALSE(fired);
  s.ProtectedExponent.clear();
  EXPECT_EQ(OnePass("(2*y)^x", 6), "2^x*y^x");
}

TEST_F(Powers, NumericPowersEvaluate) {
  EXPECT_EQ(OnePass("2^10", 6), "1024");
  EXPECT_EQ(s.Message, "64#Simplify by evaluating the exponential @2^10->1024@ .");
  EXPECT_EQ(Run("(-2)^3"), "-8");
  EXPECT_EQ(Run("2^0.5"), "sqrt(2)");  // no exact value: the radical form takes it
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("2^0.5", 6), "1.4142135623731");
}

TEST_F(Powers, NegativeFractionalPowerOfANumberIsOneOverARoot) {
  EXPECT_EQ(OnePass("4^(-0.5)", 6), "1/4^0.5");  // the negative exponent comes first
  s.ExponentToReciprocal = false;
  EXPECT_EQ(OnePass("4^(-0.5)", 6), "1/2");
  EXPECT_EQ(s.Message, "307#Simplify by evaluating the exponential @4^(-0.5)->1/2@ .");
}

TEST_F(Powers, ZeroToANegativePowerIsTheErrorOfZeroPowers) {
  s.ExponentToReciprocal = false;  // else 1/0^2 comes first, and the division error
  try {
    OnePass("0^(-2)", 6);
    FAIL() << "no error";
  } catch (const AppError& error) {
    EXPECT_EQ(error.Number(), kErrorZeroPower);
  }
}

TEST_F(Powers, RootOfANumberThatIsAPerfectPower) {
  EXPECT_EQ(OnePass("8^(1/3)", 6), "2");
  EXPECT_EQ(s.Message, "308#Simplify using the fact that @8^(1/3)=2@ .");
  EXPECT_EQ(OnePass("8^(2/3)", 6), "(2)^2");
  EXPECT_EQ(s.Message,
            "308#Simplify using the fact that @8^(2/3)=(8^(1/3))^2@ ,|and that @8^(1/3)=2@ .");
  EXPECT_EQ(Run("(-8)^(1/3)"), "-2");
  EXPECT_EQ(Run("2^(1/3)"), "2^(1/3)");
  EXPECT_EQ(OnePass("0^(1/3)", 6), "0");
}

TEST_F(Powers, PowersOfTheImaginaryUnitGoRoundByFour) {
  s.ComplexForm = 1;
  EXPECT_EQ(OnePass("i^2", 6), "-1");
  EXPECT_EQ(s.Message, "59#Simplify using the property of complex numbers that @i^2=-1@ .");
  EXPECT_EQ(Run("i^3"), "-i");
  EXPECT_EQ(Run("i^4"), "1");
  EXPECT_EQ(Run("j^2"), "j^2");
  s.ComplexForm = 0;
  EXPECT_EQ(Run("i^2"), "i^2");  // a letter like any other
}

TEST_F(Powers, EToTheIPiIsMinusOne) {
  s.SpecialP = true;
  s.ComplexForm = 1;
  EXPECT_EQ(OnePass("e^(i*p)", 6), "-1");
  EXPECT_EQ(s.Message, "230#Simplify using the property of complex numbers that @e^(i*p)=-1@ .");
}

TEST_F(Powers, ExponentialFormFollowsTheOption) {
  EXPECT_EQ(OnePass("exp(x)", 5), "e^x");
  EXPECT_EQ(s.Message, "19#Convert to the equivalent form: @exp(x)->e^x@ .");
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(OnePass("e^x", 5), "exp(x)");
  EXPECT_EQ(s.Message, "19#Convert to the equivalent form: @e^x->exp(x)@ .");
  EXPECT_EQ(Run("a/e^x"), "a*exp(-x)");
  s.SpecialE = false;
  EXPECT_EQ(Run("e^x"), "e^x");
}

TEST_F(Powers, RadicalFormFollowsTheOption) {
  EXPECT_EQ(OnePass("x^(1/2)", 5), "sqrt(x)");
  EXPECT_EQ(s.Message, "20#Convert to the equivalent form: @x^(1/2)->sqrt(x)@ .");
  EXPECT_EQ(Run("x^0.5"), "sqrt(x)");
  s.ExponentToRadical = false;
  EXPECT_EQ(OnePass("sqrt(x+1)", 5), "(x+1)^(1/2)");
  EXPECT_EQ(s.Message, "20#Convert to the equivalent form: @sqrt(x+1)->(x+1)^(1/2)@ .");
  s.ExactToFloat = true;
  EXPECT_EQ(Run("sqrt(x)"), "x^0.5");
  s.DecimalPoint = ",";
  EXPECT_EQ(Run("sqrt(x)"), "x^0,5");
}

TEST_F(Powers, SquareRootsOfNumbersByTheirCodes) {
  int code = 9;
  EXPECT_EQ(SquareRootOfNumber(s, "8", code), "2*sqrt(2)");
  EXPECT_EQ(code, 3);
  EXPECT_EQ(SquareRootOfNumber(s, "-8", code), "2*sqrt(2)*sqrt(-1)");
  EXPECT_EQ(code, -3);
  EXPECT_EQ(SquareRootOfNumber(s, "-1", code), "sqrt(-1)");
  EXPECT_EQ(code, -4);
  EXPECT_EQ(SquareRootOfNumber(s, "-4", code), "2*sqrt(-1)");
  EXPECT_EQ(code, -1);
  EXPECT_EQ(SquareRootOfNumber(s, "6", code), "sqrt(6)");
  EXPECT_EQ(code, 2);
  EXPECT_EQ(SquareRootOfNumber(s, "-6", code), "sqrt(6)*sqrt(-1)");
  EXPECT_EQ(code, -2);
  EXPECT_EQ(SquareRootOfNumber(s, "9", code), "3");
  EXPECT_EQ(code, 1);
  EXPECT_EQ(SquareRootOfNumber(s, "2.25", code), "1.5");
  EXPECT_EQ(code, 1);
  EXPECT_EQ(SquareRootOfNumber(s, "x", code), "x");
  EXPECT_EQ(code, 0);
  s.ComplexForm = 1;
  EXPECT_EQ(SquareRootOfNumber(s, "-1", code), "i");
  EXPECT_EQ(code, -1);
  s.ExactToFloat = true;
  EXPECT_EQ(SquareRootOfNumber(s, "2", code), "1.4142135623731");
  EXPECT_EQ(code, 1);
}

TEST_F(Powers, SquareRootOfMinusEightTellsTheSquareRootOfMinusOne) {
  EXPECT_EQ(OnePass("sqrt(-8)", 7), "2*sqrt(2)*sqrt(-1)");
  EXPECT_EQ(s.Message,
            "305#Simplify @sqrt(-8)@ by pulling factors out of it including a factor of the "
            "square root of -1.");
  s.ComplexForm = 2;
  EXPECT_EQ(OnePass("sqrt(-8)", 7), "2*sqrt(2)*j");
  EXPECT_EQ(s.Message.substr(0, 4), "304#");
  EXPECT_EQ(OnePass("sqrt(-4)", 7), "2*j");
  EXPECT_EQ(s.Message, "52#Simplify by writing @sqrt(-4)@ as an imaginary number.");
}

TEST_F(Powers, SquareRootOfMinusOneStaysInRealArithmetic) {
  EXPECT_EQ(OnePass("sqrt(-1)", 7), "sqrt(-1)");
  EXPECT_FALSE(fired);
}

TEST_F(Powers, SquareRootOfAProductSplits) {
  EXPECT_EQ(OnePass("sqrt(4*x)", 7), "sqrt(4)*sqrt(x)");
  EXPECT_EQ(s.Message, "98#Simplify using the rule that @sqrt(4*x)=sqrt(4)*sqrt(x)@ .");
  EXPECT_EQ(Run("sqrt(4*x)"), "2*sqrt(x)");
}

TEST_F(Powers, SquareRootOfAFractionSplits) {
  EXPECT_EQ(OnePass("sqrt(x/y^2)", 7), "sqrt(x)/sqrt(y^2)");
  EXPECT_EQ(s.Message, "94#Simplify by splitting up the square root of a fraction.");
  EXPECT_EQ(OnePass("sqrt(-3/y)", 7), "sqrt(-3)/sqrt(y)");
  EXPECT_EQ(Run("sqrt(sqrt(y)/z^2)"), "y^(1/4)/sqrt(z^2)");
}

TEST_F(Powers, SquareRootOfAFractionOverADenominatorOfEitherSignStaysWhole) {
  // sqrt(1/(-1)) is i, but sqrt(1)/sqrt(-1) would be -i.
  EXPECT_EQ(OnePass("sqrt(x/y)", 7), "sqrt(x/y)");
  EXPECT_FALSE(fired);
}

TEST_F(Powers, SquareRootOfAProductSplitsWhileAtMostOneFactorCanBeNegative) {
  EXPECT_EQ(OnePass("sqrt(x^2*y)", 7), "sqrt(x^2)*sqrt(y)");
  EXPECT_EQ(OnePass("sqrt(3*y)", 7), "sqrt(3)*sqrt(y)");
  // sqrt((x+2)*(x-2)) at x = -3 is sqrt(5); sqrt(x+2)*sqrt(x-2) there is -sqrt(5).
  EXPECT_EQ(OnePass("sqrt((x+2)*(x-2))", 7), "sqrt((x+2)*(x-2))");
  EXPECT_FALSE(fired);
  EXPECT_EQ(OnePass("sqrt(x*y)", 7), "sqrt(x*y)");
  EXPECT_FALSE(fired);
}

TEST_F(Powers, SquareRootsOfNumbersCombine) {
  EXPECT_EQ(OnePass("sqrt(2)*sqrt(3)", 8), "sqrt(6)");
  EXPECT_EQ(s.Message, "95#Simplify by combining the square roots.");
  EXPECT_EQ(Run("x*sqrt(2)*sqrt(8)"), "4*x");
}

TEST_F(Powers, DenominatorIsRationalised) {
  EXPECT_EQ(OnePass("1/sqrt(2)", 8), "sqrt(2)/2");
  EXPECT_EQ(s.Message, "93#Simplify by rationalizing the denominator.");
  EXPECT_EQ(OnePass("-1/sqrt(3)", 8), "-sqrt(3)/3");
}

TEST_F(Powers, RadicalBesideItsBaseBecomesAPower) {
  EXPECT_EQ(OnePass("x*sqrt(x)", 8), "x*x^(1/2)");
  EXPECT_EQ(s.Message,
            "265#The radical @sqrt(x)@ can be combined with other factors by first writing it in "
            "exponential form like this:");
  EXPECT_EQ(Run("x*sqrt(x)"), "x^(3/2)");
  EXPECT_EQ(Run("sqrt(x)/x"), "1/sqrt(x)");
  EXPECT_EQ(Run("sqrt(x+1)*(x+1)^2"), "(x+1)^(5/2)");
}

}  // namespace
}  // namespace tavimor
