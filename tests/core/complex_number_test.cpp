// Tests of complex arithmetic, the elementary functions at complex arguments and the complex
// value of a tree.
#include "core/complex_number.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/errors.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

constexpr double kPi = 3.14159265358979323846;

void ExpectNear(Complex z, double re, double im) {
  EXPECT_NEAR(z.real(), re, 1e-12);
  EXPECT_NEAR(z.imag(), im, 1e-12);
}

TEST(ComplexArithmetic, AddSubtractMultiplyDivide) {
  ExpectNear(ComplexAdd(1, 2, 3, -1), 4, 1);
  ExpectNear(ComplexSubtract(1, 2, 3, -1), -2, 3);
  ExpectNear(ComplexMultiply(1, 2, 3, -1), 5, 5);
  ExpectNear(ComplexDivide(5, 5, 3, -1), 1, 2);
  ExpectNear(ComplexScale(1, -2, 3), 3, -6);
  ExpectNear(ComplexNegate(1, -2), -1, 2);
  EXPECT_DOUBLE_EQ(ComplexAbs(3, 4), 5);
}

TEST(ComplexArithmetic, DivisionByZeroIsTheRunTimeError) {
  EXPECT_THROW(ComplexDivide(1, 1, 0, 0), RunTimeError);
}

TEST(ComplexArithmetic, SquareRootIsThePrincipalOne) {
  ExpectNear(ComplexSqrt(-4, 0), 0, 2);
  ExpectNear(ComplexSqrt(3, 4), 2, 1);
  ExpectNear(ComplexSqrt(0, -2), 1, -1);
}

TEST(ComplexArithmetic, ExponentialAndLogarithmInvertEachOther) {
  ExpectNear(ComplexExp(0, kPi), -1, 0);
  ExpectNear(ComplexLog(-1, 0), 0, kPi);
  const Complex z = ComplexLog(3, -4);
  ExpectNear(ComplexExp(z.real(), z.imag()), 3, -4);
  ExpectNear(ComplexFromPolar(2, kPi / 2), 0, 2);
  EXPECT_THROW(ComplexLog(0, 0), RunTimeError);
}

TEST(ComplexArithmetic, TrigFunctionsAndTheirInverses) {
  ExpectNear(ComplexSin(0, 1), 0, std::sinh(1.0));
  ExpectNear(ComplexCos(0, 1), std::cosh(1.0), 0);
  const Complex t = ComplexTan(0.5, 0.25);
  const Complex quotient = ComplexSin(0.5, 0.25) / ComplexCos(0.5, 0.25);
  ExpectNear(t, quotient.real(), quotient.imag());
  for (const Complex z : {Complex(2, 0), Complex(0.3, -0.7), Complex(-1.5, 2)}) {
    const Complex a = ComplexArcsin(z.real(), z.imag());
    ExpectNear(ComplexSin(a.real(), a.imag()), z.real(), z.imag());
    const Complex b = ComplexArccos(z.real(), z.imag());
    ExpectNear(ComplexCos(b.real(), b.imag()), z.real(), z.imag());
    const Complex c = ComplexArctan(z.real(), z.imag());
    ExpectNear(ComplexTan(c.real(), c.imag()), z.real(), z.imag());
  }
  EXPECT_THROW(ComplexArctan(0, 1), RunTimeError);
}

TEST(ComplexArithmetic, WholePowersAreExactAndOthersPrincipal) {
  const Complex square = ComplexPowerValue(1, 1, 2, 0);
  EXPECT_EQ(square.real(), 0.0);
  EXPECT_EQ(square.imag(), 2.0);
  ExpectNear(ComplexPowerValue(0, 1, 0, 1), std::exp(-kPi / 2), 0);  // i^i
  ExpectNear(ComplexPowerValue(-4, 0, 0.5, 0), 0, 2);
  ExpectNear(ComplexPowerValue(0, 0, 2, 0), 0, 0);
  EXPECT_THROW(ComplexPowerValue(0, 0, -1, 0), RunTimeError);
}

using EvaluateComplexTest = SessionTest;

TEST_F(EvaluateComplexTest, TheUnitOfTheOptionsIsTheImaginaryUnit) {
  s.ComplexForm = 1;
  double re = 0.0;
  double im = 0.0;
  EXPECT_EQ(EvaluateComplex(s, Load("(1+2*i)*(3-i)"), re, im), 3);
  EXPECT_DOUBLE_EQ(re, 5.0);
  EXPECT_DOUBLE_EQ(im, 5.0);
  EXPECT_EQ(EvaluateComplex(s, Load("i^2"), re, im), 1);
  EXPECT_DOUBLE_EQ(re, -1.0);
  EXPECT_EQ(EvaluateComplex(s, Load("sqrt(-4)"), re, im), 2);
  EXPECT_DOUBLE_EQ(im, 2.0);
  s.ComplexForm = 2;
  EXPECT_EQ(EvaluateComplex(s, Load("3*j"), re, im), 2);
  EXPECT_DOUBLE_EQ(im, 3.0);
}

TEST_F(EvaluateComplexTest, UnderRealArithmeticTheLetterIIsALetter) {
  s.ComplexForm = 0;
  double re = 0.0;
  double im = 0.0;
  EXPECT_EQ(EvaluateComplex(s, Load("2*i+1"), re, im), 1);
  EXPECT_DOUBLE_EQ(re, 1.0);
  EXPECT_EQ(EvaluateComplex(s, Load("sqrt(-1)"), re, im), 2);
}

TEST_F(EvaluateComplexTest, AnOddRootOfANegativeNumberStaysReal) {
  double re = 0.0;
  double im = 0.0;
  EXPECT_EQ(EvaluateComplex(s, Load("(-8)^(1/3)"), re, im), 1);
  EXPECT_NEAR(re, -2.0, 1e-12);
}

TEST_F(EvaluateComplexTest, ADivisionByZeroCannotBeEvaluated) {
  double re = 0.0;
  double im = 0.0;
  EXPECT_EQ(EvaluateComplex(s, Load("1/(2-2)"), re, im), 0);
  s.ComplexForm = 1;
  EXPECT_EQ(EvaluateComplex(s, Load("ln(0*i)"), re, im), 0);
}

}  // namespace
}  // namespace tavimor
