// Tests of the rules of complex numbers: the classes of a term, products and quotients, powers,
// functions at complex arguments, and Euler's formula both ways.
#include "simplify/complex_rules.h"

#include <gtest/gtest.h>

#include "core/regenerate.h"
#include "simplify/euler_formula.h"
#include "simplify/simplify_driver.h"
#include "simplify/trig_identities.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

class ComplexNumbers : public SimplifyTest {
 protected:
  ComplexNumbers() { s.ComplexForm = 1; }

  // The product rule once on the whole of the text.
  std::string Product(const std::string& text) {
    NodeIdx root = Load(text);
    fired = ComplexProductRule(s, root);
    RegenerateAll(s, root);
    return N(root).Text;
  }

  int Classify(const std::string& text, double& re, double& im) {
    return ClassifyComplex(s, Load(text), re, im);
  }
};

TEST_F(ComplexNumbers, ClassesOfTerms) {
  double re = 0.0;
  double im = 0.0;
  EXPECT_EQ(Classify("x+1", re, im), kNotComplex);
  EXPECT_EQ(Classify("-3", re, im), kRealNumber);
  EXPECT_EQ(re, -3.0);
  EXPECT_EQ(Classify("-2*i", re, im), kPureImaginary);
  EXPECT_EQ(im, -2.0);
  EXPECT_EQ(Classify("3-i", re, im), kComplexNumber);
  EXPECT_EQ(re, 3.0);
  EXPECT_EQ(im, -1.0);
  EXPECT_EQ(Classify("x*i+1", re, im), kOtherComplex);
}

TEST_F(ComplexNumbers, TheUnitIsTheOneOfTheOptions) {
  double re = 0.0;
  double im = 0.0;
  s.ComplexForm = 2;
  EXPECT_EQ(Classify("2+3*j", re, im), kComplexNumber);
  EXPECT_EQ(Classify("2+3*i", re, im), kNotComplex);
  s.ComplexForm = 3;
  EXPECT_EQ(Classify("2-sqrt(-1)", re, im), kComplexNumber);
  EXPECT_EQ(im, -1.0);
}

TEST_F(ComplexNumbers, NumberTextLeavesOutZeroPartsAndUnitFactors) {
  EXPECT_EQ(ComplexNumberText(s, 5, 5), "5+5*i");
  EXPECT_EQ(ComplexNumberText(s, 3, -1), "3-i");
  EXPECT_EQ(ComplexNumberText(s, 0, -2), "-2*i");
  EXPECT_EQ(ComplexNumberText(s, 0, 1), "i");
  EXPECT_EQ(ComplexNumberText(s, -4, 0), "-4");
  s.ComplexForm = 3;
  EXPECT_EQ(ComplexNumberText(s, 1, 2), "1+2*sqrt(-1)");
  EXPECT_EQ(ReciprocalOfUnit(s), "1/sqrt(-1)");
}

TEST_F(ComplexNumbers, SquareOfTheUnitIsMinusOne) {
  EXPECT_EQ(OnePass("i^2", 6), "-1");
  EXPECT_EQ(s.Message, "59#Simplify using the property of complex numbers that @i^2=-1@ .");
  EXPECT_EQ(Run("i^7"), "-i");
}

TEST_F(ComplexNumbers, ConjugatesMultiplyToARealNumber) {
  EXPECT_EQ(Product("(1+i)*(1-i)"), "2");
  EXPECT_EQ(s.Message, "27#Simplify by multiplying complex numbers @(1+i)*(1-i)->2@ .");
}

TEST_F(ComplexNumbers, ARealFactorDistributesOverAComplexNumber) {
  EXPECT_EQ(Product("3*(1+i)"), "3+3*i");
  EXPECT_EQ(s.Message, "26#Simplify by distributing over the complex number @3*(1+i)->3+3*i@ .");
}

TEST_F(ComplexNumbers, ARealDenominatorDividesIntoAComplexNumber) {
  EXPECT_EQ(Product("(2+2*i)/2"), "1+i");
  EXPECT_EQ(s.Message,
            "28#Simplify by dividing the real number into the complex number @(2+2*i)/2->1+i@ .");
}

TEST_F(ComplexNumbers, ReciprocalOfTheUnitIsMinusTheUnit) {
  EXPECT_EQ(Product("1/i"), "-i");
  EXPECT_EQ(s.Message, "24#Simplify using the property of complex numbers that @1/i=-i@ .");
}

TEST_F(ComplexNumbers, ReciprocalOfTheUnitInsideALargerTermIsAStepPart) {
  EXPECT_EQ(Product("3*x/i"), "-3*x*i");
  EXPECT_EQ(s.Message,
            "25#Simplify the term  @3*x/i@ by:|   - using the property of complex numbers that "
            "@1/i=-i@ .|   - The result is:");
}

TEST_F(ComplexNumbers, WithRealArithmeticNoComplexRuleFires) {
  s.ComplexForm = 0;
  EXPECT_EQ(Run("i^2"), "i^2");
  EXPECT_EQ(Product("(1+i)*(1-i)"), "(1+i)*(1-i)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Product("3*(1+i)"), "3*(1+i)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Product("(2+2*i)/2"), "(2+2*i)/2");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Product("1/i"), "1/i");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Run("(1+i)*(1-i)"), "(-i+1)*(i+1)");
}

TEST_F(ComplexNumbers, ProductsStayWhileComplexProductsIsCleared) {
  s.ComplexProducts = false;
  EXPECT_EQ(Product("(1+i)*(1-i)"), "(1+i)*(1-i)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Run("(1+i)^2"), "(i+1)^2");
}

TEST_F(ComplexNumbers, AQuotientThatIsNoWholeNumberWaitsForFloatingPoint) {
  EXPECT_EQ(Product("(1+i)/2"), "(1+i)/2");
  EXPECT_FALSE(fired);
  s.ExactToFloat = true;
  EXPECT_EQ(Product("(1+i)/2"), "0.5+0.5*i");
}

TEST_F(ComplexNumbers, AFactorOneIsNotDistributed) {
  EXPECT_EQ(Product("1*(1+i)"), "1*(1+i)");
  EXPECT_FALSE(fired);
}

TEST_F(ComplexNumbers, OtherFactorsOfTheProductStay) { EXPECT_EQ(Product("x*(1+i)*(1-i)"), "x*2"); }

TEST_F(ComplexNumbers, WholePowersOfComplexNumbersAreExact) {
  NodeIdx root = Load("(1+i)^3");
  std::string text;
  std::string message;
  ASSERT_TRUE(ComplexPower(s, root, text, message));
  EXPECT_EQ(text, "-2+2*i");
  EXPECT_EQ(message, "65#Simplify by evaluating the complex exponential @(1+i)^3->-2+2*i@ .");
  EXPECT_EQ(Run("(1+2*i)^2"), "4*i-3");
}

TEST_F(ComplexNumbers, OtherPowersNeedFloatingPoint) {
  NodeIdx root = Load("i^i");
  std::string text;
  std::string message;
  EXPECT_FALSE(ComplexPower(s, root, text, message));
  s.ExactToFloat = true;
  ASSERT_TRUE(ComplexPower(s, root, text, message));
  EXPECT_EQ(text, "0.207879576350762+(0)*i");
}

TEST_F(ComplexNumbers, FunctionsOfComplexArgumentsAreEvaluated) {
  EXPECT_EQ(Run("sin(i)"), "1.1752011936438*i");
  EXPECT_EQ(s.Message.substr(0, 3), "53#");
  EXPECT_EQ(Run("ln(-1)"), "ln(-1)");  // an integer waits for floating point
  s.ExactToFloat = true;
  EXPECT_EQ(Run("ln(-1)"), "3.14159265358979*i");
  s.ComplexForm = 0;
  EXPECT_EQ(Run("ln(-1)"), "ln(-1)");
}

TEST_F(ComplexNumbers, SquareRootOfANegativeNumberIsImaginaryUnderEachOption) {
  EXPECT_EQ(Run("sqrt(-4)"), "2*i");
  s.ComplexForm = 2;
  EXPECT_EQ(Run("sqrt(-4)"), "2*j");
  s.ComplexForm = 3;
  EXPECT_EQ(Run("sqrt(-4)"), "2*sqrt(-1)");
}

TEST_F(ComplexNumbers, EulerFormulaBreaksTheExponentialApart) {
  s.TrigMode = kTrigBreakApart;
  EXPECT_EQ(OnePass("e^(i*x)", 5), "cos(x)+i*sin(x)");
  EXPECT_EQ(s.Message,
            "363#Break apart the complex exponential by using Euler's formula "
            "@e^(i*x)=cos(x)+i*sin(x)@ .");
  EXPECT_EQ(OnePass("e^(-i*x)", 5), "cos(-x)+i*sin(-x)");
  EXPECT_EQ(OnePass("e^(1+i*x)", 5), "e^1*(cos(x)+i*sin(x))");
  s.ExponentToExponentialFunction = true;
  EXPECT_EQ(OnePass("exp(2+3*i*x)", 5), "exp(2)*(cos(3*x)+i*sin(3*x))");
}

TEST_F(ComplexNumbers, EulerFormulaWaitsForItsModeAndTheOptions) {
  EXPECT_EQ(OnePass("e^(i*x)", 5), "e^(i*x)");
  EXPECT_FALSE(fired);
  s.TrigMode = kTrigBreakApart;
  s.SpecialP = true;
  EXPECT_EQ(OnePass("e^(i*p)", 5), "e^(i*p)");  // left to e^(i*pi) = -1
  EXPECT_FALSE(fired);
  s.ComplexForm = 0;
  EXPECT_EQ(OnePass("e^(i*x)", 5), "e^(i*x)");
  EXPECT_FALSE(fired);
}

TEST_F(ComplexNumbers, CosAndUnitTimesSinCombineIntoTheExponential) {
  s.TrigMode = kTrigCombine;
  NodeIdx root = Load("cos(x)+i*sin(x)");
  ASSERT_TRUE(CombinePhasor(s, root));
  RegenerateAll(s, root);
  EXPECT_EQ(N(root).Text, "e^(i*x)");
  EXPECT_EQ(s.Message,
            "363#Combine the sin and the cos into an exponential using Euler's formula.");
  s.ExponentToExponentialFunction = true;
  root = Load("2*cos(x)-2*i*sin(x)");
  ASSERT_TRUE(CombinePhasor(s, root));
  RegenerateAll(s, root);
  EXPECT_EQ(N(root).Text, "2*exp(-i*x)");
}

}  // namespace
}  // namespace tavimor
