// A decimal as a fraction with a small denominator: fifteen-digit inputs, reciprocals, the
// 16-bit range, and decimals that are no such fraction.
#include <gtest/gtest.h>

#include "manipulate/decimal_to_fraction.h"

namespace tavimor {
namespace {

struct Fraction {
  int code;
  double numerator;
  double denominator;
};

Fraction Of(double value) {
  Fraction f{0, 0.0, 0.0};
  f.code = DecimalToFraction(value, f.numerator, f.denominator);
  return f;
}

TEST(DecimalToFraction, FifteenDigitThirdIsOneThird) {
  const Fraction f = Of(0.333333333333333);
  EXPECT_EQ(f.code, 1);
  EXPECT_EQ(f.numerator, 1.0);
  EXPECT_EQ(f.denominator, 3.0);
}

TEST(DecimalToFraction, FifteenDigitSeventhIsOneSeventh) {
  const Fraction f = Of(0.142857142857143);
  EXPECT_EQ(f.code, 1);
  EXPECT_EQ(f.numerator, 1.0);
  EXPECT_EQ(f.denominator, 7.0);
}

TEST(DecimalToFraction, LowestTermsWithTheSignAbove) {
  const Fraction f = Of(-0.75);
  EXPECT_EQ(f.code, 1);
  EXPECT_EQ(f.numerator, -3.0);
  EXPECT_EQ(f.denominator, 4.0);
}

TEST(DecimalToFraction, ReciprocalOfAWholeNumberBeyondTheDenominators) {
  const Fraction f = Of(1.0 / 250.0);
  EXPECT_EQ(f.code, 1);
  EXPECT_EQ(f.numerator, 1.0);
  EXPECT_EQ(f.denominator, 250.0);
}

TEST(DecimalToFraction, NumeratorBeyondSixteenBitsIsTooLarge) {
  EXPECT_EQ(Of(40000.5).code, 2);
  EXPECT_EQ(Of(-40000.5).code, 2);
}

TEST(DecimalToFraction, ADecimalThatIsNoSmallFractionGivesZero) {
  EXPECT_EQ(Of(0.1234567891).code, 0);
  EXPECT_EQ(Of(3.14159265358979).code, 0);
}

TEST(DecimalToFraction, TheBoundLiesInTheRoundingErrorOfFifteenDigits) {
  // Off by a digit in the twelfth place: no longer a third.
  EXPECT_EQ(Of(0.333333333334).code, 0);
}

}  // namespace
}  // namespace tavimor
