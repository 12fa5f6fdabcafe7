// Tests of numbers as text: recognising, classing, normalising and formatting.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/number_format.h"
#include "core/number_text.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using NumberText = SessionTest;

TEST_F(NumberText, IntegerBoundIsExclusive) {
  EXPECT_TRUE(IsIntegerText(s, "2147483646"));
  EXPECT_FALSE(IsIntegerText(s, "2147483647"));
  EXPECT_FALSE(IsIntegerText(s, "-2147483647"));
  EXPECT_TRUE(IsIntegerText(s, "-2147483646"));
}

TEST_F(NumberText, WholeValuedDecimalIsAnInteger) {
  EXPECT_TRUE(IsIntegerText(s, "2.0"));
  EXPECT_FALSE(IsIntegerText(s, "3000000000"));
  EXPECT_FALSE(IsIntegerText(s, "2.5"));
  EXPECT_FALSE(IsIntegerText(s, ""));
  EXPECT_FALSE(IsIntegerText(s, "2x"));
  EXPECT_TRUE(IsIntegerText(s, "1E3"));
}

TEST_F(NumberText, DecimalAndPositiveIntegers) {
  EXPECT_TRUE(IsDecimalIntegerText(s, "4.0"));
  EXPECT_FALSE(IsDecimalIntegerText(s, "4"));
  EXPECT_TRUE(IsPositiveIntegerText(s, "4"));
  EXPECT_FALSE(IsPositiveIntegerText(s, "0"));
  EXPECT_FALSE(IsPositiveIntegerText(s, "-4"));
}

TEST_F(NumberText, IntegerNodeNeedsKindNumber) {
  const NodeIdx n = Load("7");
  EXPECT_TRUE(IsIntegerNode(s, n));
  const NodeIdx v = Load("x");
  EXPECT_FALSE(IsIntegerNode(s, v));
}

TEST_F(NumberText, NumberEndStopsAtASecondPoint) { EXPECT_EQ(NumberEnd(s, "3.5.2", 1), 3); }
TEST_F(NumberText, NumberEndTakesALeadingPoint) { EXPECT_EQ(NumberEnd(s, ".5", 1), 2); }
TEST_F(NumberText, NumberEndOfALonePointIsZero) { EXPECT_EQ(NumberEnd(s, ".", 1), 0); }
TEST_F(NumberText, NumberEndOfALoneSignIsZero) { EXPECT_EQ(NumberEnd(s, "-", 1), 0); }
TEST_F(NumberText, NumberEndLeavesABareE) { EXPECT_EQ(NumberEnd(s, "2E", 1), 1); }
TEST_F(NumberText, NumberEndLeavesAnESignWithoutDigits) { EXPECT_EQ(NumberEnd(s, "2E+", 1), 1); }
TEST_F(NumberText, NumberEndTakesASignedExponent) { EXPECT_EQ(NumberEnd(s, "2E+3", 1), 4); }
TEST_F(NumberText, NumberEndTakesOnlyCapitalE) { EXPECT_EQ(NumberEnd(s, "2e3", 1), 1); }

TEST_F(NumberText, NumberEndWithinLongerText) {
  EXPECT_EQ(NumberEnd(s, "x-1.5E-4y", 2), 8);
  EXPECT_EQ(NumberEnd(s, "x+12", 3), 4);
  EXPECT_EQ(NumberEnd(s, "x+12", 1), 0);
  EXPECT_EQ(NumberEnd(s, "E3", 1), 0);
  EXPECT_EQ(NumberEnd(s, "12", 5), 0);
}

TEST_F(NumberText, NumberEndFollowsTheDecimalComma) {
  s.DecimalPoint = ",";
  EXPECT_EQ(NumberEnd(s, "3,5", 1), 3);
  EXPECT_EQ(NumberEnd(s, "3.5", 1), 1);
}

TEST_F(NumberText, SafeValueOfNonNumbersIsZero) {
  EXPECT_EQ(SafeValue(s, ""), 0.0);
  EXPECT_EQ(SafeValue(s, "x"), 0.0);
  EXPECT_EQ(SafeValue(s, "2x"), 0.0);
  EXPECT_EQ(SafeValue(s, "-2.5E2"), -250.0);
  EXPECT_EQ(SafeValue(s, "1E999"), 0.0);
  EXPECT_EQ(SafeValue32(s, "1.5"), 1.5f);
  EXPECT_EQ(SafeValue32(s, "1E300"), 0.0f);
}

TEST_F(NumberText, TinyNumberNormalisesToScientific) {
  EXPECT_EQ(NormaliseNumberText(s, "0.0000000001"), "1E-10");
}

TEST_F(NumberText, LargeNumberNormalisesToScientific) {
  EXPECT_EQ(NormaliseNumberText(s, "123456789000"), "1.23456789E11");
}

TEST_F(NumberText, WholeNumbersBelowABillionStayAsWritten) {
  EXPECT_EQ(NormaliseNumberText(s, "0"), "0");
  EXPECT_EQ(NormaliseNumberText(s, "7"), "7");
  EXPECT_EQ(NormaliseNumberText(s, "120"), "120");
  EXPECT_EQ(NormaliseNumberText(s, "999999999"), "999999999");
  EXPECT_EQ(NormaliseNumberText(s, "1000000000"), "1E9");
  EXPECT_EQ(NormaliseNumberText(s, "007"), "7");
  EXPECT_EQ(NormaliseNumberText(s, "00"), "0");
  EXPECT_EQ(NormaliseNumberText(s, "-0"), "-0");
}

TEST_F(NumberText, PlainDecimalStays) { EXPECT_EQ(NormaliseNumberText(s, "0.5"), "0.5"); }

TEST_F(NumberText, NormaliseKeepsSignAndDropsNeedlessZeros) {
  EXPECT_EQ(NormaliseNumberText(s, "-2.50"), "-2.5");
  EXPECT_EQ(NormaliseNumberText(s, "+007"), "+7");
  EXPECT_EQ(NormaliseNumberText(s, "2E3"), "2000");
  EXPECT_EQ(NormaliseNumberText(s, "1E9"), "1E9");
  EXPECT_EQ(NormaliseNumberText(s, "1E20"), "1E20");
  EXPECT_EQ(NormaliseNumberText(s, "96000000000"), "9.6E10");
  EXPECT_EQ(NormaliseNumberText(s, "0"), "0");
  EXPECT_EQ(NormaliseNumberText(s, "x"), "");
}

TEST_F(NumberText, NormalFormIsItsOwnNormalForm) {
  // Rounding to 15 figures can carry a number over the bound of the plain form.
  EXPECT_EQ(NormaliseNumberText(s, "999999999.9999995"), "1E9");
  EXPECT_EQ(NormaliseNumberText(s, "1E9"), "1E9");
  EXPECT_EQ(NormaliseNumberText(s, "0.00000000099999999999999999"), "1E-09");
  for (const char* text : {"123.456", "1E-10", "9.99999999E8", "1.5E20", "0.001", "-2.5E-12"}) {
    const std::string once = NormaliseNumberText(s, text);
    EXPECT_EQ(NormaliseNumberText(s, once), once) << text;
  }
}

TEST_F(NumberText, NormaliseWritesTheDecimalComma) {
  s.DecimalPoint = ",";
  EXPECT_EQ(NormaliseNumberText(s, "0,50"), "0,5");
  EXPECT_EQ(NormaliseNumberText(s, "123456789000"), "1,23456789E11");
}

TEST_F(NumberText, ScientificFormForEveryValue) {
  EXPECT_EQ(ScientificNumberText(s, "0"), "0E0");
  EXPECT_EQ(ScientificNumberText(s, "5"), "5E0");
  EXPECT_EQ(ScientificNumberText(s, "2500"), "2.5E3");
  EXPECT_EQ(ScientificNumberText(s, "-0.05"), "-5E-2");
  EXPECT_EQ(ScientificNumberText(s, "1E15"), "1E15");
}

TEST_F(NumberText, FormatResultSnapsNearIntegers) {
  EXPECT_EQ(FormatResult(s, "2.000000001"), "2");
  EXPECT_EQ(FormatResult(s, "-3.9999999999"), "-4");
}

TEST_F(NumberText, FormatResultOfATinyNumberIsScientific) {
  EXPECT_EQ(FormatResult(s, "0.000000001"), "1E-9");
}

TEST_F(NumberText, FormatResultKeepsSignificantFigures) {
  EXPECT_EQ(FormatResult(s, "3.14159"), "3.14");
  EXPECT_EQ(FormatResult(s, "-0.0123456"), "-0.0123");
  EXPECT_EQ(FormatResult(s, "12345678901"), "1.23E10");
  EXPECT_EQ(FormatResult(s, "20000000000"), "2E10");
  EXPECT_EQ(FormatResult(s, "-"), "-");
  EXPECT_EQ(FormatResult(s, "+"), "+");
}

TEST_F(NumberText, FormatResultOfTheEmptyStringSaysSo) {
  EXPECT_EQ(FormatResult(s, ""), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Empty string in MTFormat function");
}

TEST_F(NumberText, FormatSigFigsRoundsToFigures) {
  EXPECT_EQ(FormatSigFigs(s, 1234.5678, 3), "1230");
  EXPECT_EQ(FormatSigFigs(s, 0.000123456, 2), "0.00012");
  EXPECT_EQ(FormatSigFigs(s, 2e9, 3), "2.00E9");
  EXPECT_EQ(FormatSigFigs(s, 1.5e-10, 2), "1.5E-10");
  EXPECT_EQ(FormatSigFigs(s, 9.996, 3), "10");
}

TEST_F(NumberText, PadSigFigsAppendsZerosWithTheSeparator) {
  EXPECT_EQ(PadSigFigs(s, 3, "2"), "2.00");
  s.DecimalPoint = ",";
  EXPECT_EQ(PadSigFigs(s, 3, "2"), "2,00");
}

TEST_F(NumberText, PadSigFigsKeepsFiguresAndExponent) {
  EXPECT_EQ(PadSigFigs(s, 4, "1.5"), "1.500");
  EXPECT_EQ(PadSigFigs(s, 2, "0.05"), "0.050");
  EXPECT_EQ(PadSigFigs(s, 3, "2.5E12"), "2.50E12");
  EXPECT_EQ(PadSigFigs(s, 3, "0"), "0");
  EXPECT_EQ(PadSigFigs(s, 2, "120"), "120");
}

TEST_F(NumberText, TrimZerosRemovesTrailingZeros) {
  std::string text = "1.2300";
  TrimZeros(text);
  EXPECT_EQ(text, "1.23");
  text = "500";
  TrimZeros(text);
  EXPECT_EQ(text, "5");
}

TEST(PrimeFactors, NegativeNumberGetsANegativeFirstFactor) {
  EXPECT_EQ(PrimeFactors(-12), (std::vector<std::int64_t>{-2, 2, 3}));
}

TEST(PrimeFactors, FactorsComeInAscendingOrder) {
  EXPECT_EQ(PrimeFactors(360), (std::vector<std::int64_t>{2, 2, 2, 3, 3, 5}));
  EXPECT_EQ(PrimeFactors(4), (std::vector<std::int64_t>{2, 2}));
  EXPECT_EQ(PrimeFactors(97), (std::vector<std::int64_t>{97}));
  EXPECT_EQ(PrimeFactors(2147483646), (std::vector<std::int64_t>{2, 3, 3, 7, 11, 31, 151, 331}));
}

TEST(PrimeFactors, SmallNumbersAreTheirOwnList) {
  EXPECT_EQ(PrimeFactors(3), (std::vector<std::int64_t>{3}));
  EXPECT_EQ(PrimeFactors(-2), (std::vector<std::int64_t>{-2}));
  EXPECT_EQ(PrimeFactors(0), (std::vector<std::int64_t>{0}));
  EXPECT_EQ(PrimeFactors(1), (std::vector<std::int64_t>{1}));
}

TEST(PrimeFactors, ProductGivesTheNumberBack) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::int64_t> pick(-100000, 100000);
  for (int i = 0; i < 500; ++i) {
    const std::int64_t n = pick(random);
    std::int64_t product = 1;
    for (const std::int64_t f : PrimeFactors(n)) product *= f;
    EXPECT_EQ(product, n);
  }
}

TEST(FullNumberText, ENotationIsWrittenOutInFull) {
  EXPECT_EQ(FullNumberText("2.147483646E9", '.'), "2147483646");
  EXPECT_EQ(FullNumberText("1.23456789E11", '.'), "123456789000");
  EXPECT_EQ(FullNumberText("1E20", '.'), "100000000000000000000");
  EXPECT_EQ(FullNumberText("-1.5E-3", '.'), "-0.0015");
  EXPECT_EQ(FullNumberText("1E-10", '.'), "0.0000000001");
  EXPECT_EQ(FullNumberText("2,5E-1", ','), "0,25");
  EXPECT_EQ(FullNumberText("1.25E1", '.'), "12.5");
  EXPECT_EQ(FullNumberText("12.5", '.'), "12.5");  // no E: as it is
  EXPECT_EQ(FullNumberText("x", '.'), "x");
}

TEST(GeneralNumberFormat, ShortestTextToFifteenFigures) {
  EXPECT_EQ(GeneralNumberFormat(0.1 + 0.2, '.'), "0.3");
  EXPECT_EQ(GeneralNumberFormat(1.0 / 3.0, '.'), "0.333333333333333");
  EXPECT_EQ(GeneralNumberFormat(2.0 / 3.0, '.'), "0.666666666666667");
  EXPECT_EQ(GeneralNumberFormat(-42.0, '.'), "-42");
  EXPECT_EQ(GeneralNumberFormat(0.0, '.'), "0");
  EXPECT_EQ(GeneralNumberFormat(123456789012345.0, '.'), "123456789012345");
}

TEST(GeneralNumberFormat, ScientificWithPlusAndTwoDigitExponent) {
  EXPECT_EQ(GeneralNumberFormat(1e15, '.'), "1E+15");
  EXPECT_EQ(GeneralNumberFormat(1e-10, '.'), "1E-10");
  EXPECT_EQ(GeneralNumberFormat(0.00001, '.'), "1E-05");
  EXPECT_EQ(GeneralNumberFormat(0.0001, '.'), "0.0001");
  EXPECT_EQ(GeneralNumberFormat(3.14159265358979 / 180.0, '.'), "1.74532925199433E-02");
  EXPECT_EQ(GeneralNumberFormat(1.0 / 30.0, ','), "3,33333333333333E-02");
}

TEST(GeneralNumberFormat, RoundTripsToFifteenFigures) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
  std::uniform_int_distribution<int> power(-30, 30);
  for (int i = 0; i < 2000; ++i) {
    const double x = mantissa(random) * std::pow(10.0, power(random));
    const std::string text = GeneralNumberFormat(x, '.');
    const std::optional<double> back = ParseNumberText(text, '.');
    ASSERT_TRUE(back.has_value()) << text;
    EXPECT_NEAR(*back, x, std::fabs(x) * 1e-14) << text;
  }
}

TEST(ScientificPatternFormat, MantissaDecimalsAndBareExponent) {
  EXPECT_EQ(ScientificPatternFormat(123456789000.0, 0, '.'), "1E11");
  EXPECT_EQ(ScientificPatternFormat(1234.5678, 2, '.'), "1.23E3");
  EXPECT_EQ(ScientificPatternFormat(0.00123, 1, ','), "1,2E-3");
  EXPECT_EQ(ScientificPatternFormat(5.0, 2, '.', true), "5.00E+0");
}

}  // namespace
}  // namespace tavimor
