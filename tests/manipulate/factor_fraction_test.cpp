// Factor-and-cancel in the simplify loop: a fraction whose factored sums share a factor, the
// negative of a factor matched, and the fractions it leaves alone.
#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <random>
#include <string>

#include "manipulate/factor_fraction.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

class FactorFraction : public SimplifyTest {};

TEST_F(FactorFraction, DifferenceOfSquaresBelowCancelsWithTheNumerator) {
  EXPECT_EQ(OnePass("(x+1)/(x^2-1)", 4), "(x+1)/(x+1)/(x-1)");
  EXPECT_TRUE(fired);
  EXPECT_EQ(s.Message,
            "23#The fraction @(x+1)/(x^2-1)@ can be simplified by first factoring it like this:");
}

TEST_F(FactorFraction, FactoredFormCancelsToTheEnd) {
  EXPECT_EQ(Run("(x+1)/(x^2-1)"), "1/(x-1)");
  EXPECT_EQ(Run("(x^2-4)/(x^2+4*x+4)"), "(x-2)/(x+2)");
  EXPECT_EQ(Run("(x^2+5*x+6)/(x^2-9)"), "(x+2)/(x-3)");
}

TEST_F(FactorFraction, NegativeOfAFactorCancelsToMinusOne) { EXPECT_EQ(Run("(x-1)/(1-x)"), "-1"); }

TEST_F(FactorFraction, CommonNumberOfASumCancelsWithTheDenominator) {
  EXPECT_EQ(Run("(2*x+2)/4"), "1/2*(x+1)");
}

TEST_F(FactorFraction, NothingSharedLeavesTheFractionAlone) {
  EXPECT_EQ(OnePass("(x+1)/(x^2+1)", 4), "(x+1)/(x^2+1)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(OnePass("(x^2-1)/(x+2)", 4), "(x^2-1)/(x+2)");
  EXPECT_FALSE(fired);
}

TEST_F(FactorFraction, AProductWithoutADenominatorIsNoFraction) {
  EXPECT_EQ(OnePass("(x+1)*(x^2-1)", 4), "(x+1)*(x^2-1)");
  EXPECT_FALSE(fired);
}

TEST_F(FactorFraction, ASecondRunFindsNothing) {
  const std::string once = Run("(x^3-x)/(x^2+x)");
  EXPECT_EQ(once, "x-1");
  EXPECT_EQ(Run(once), once);
  EXPECT_FALSE(result);
}

TEST_F(FactorFraction, ANegativeNumberBelowGivesItsSignToTheFraction) {
  FractionFactors fraction;
  AddFactorsOf(s, "-2*(z-2)", true, fraction);
  EXPECT_TRUE(fraction.minus);
  ASSERT_EQ(fraction.down.size(), 2U);
  EXPECT_EQ(fraction.down[0], "2");
  EXPECT_EQ(FractionText(fraction), "-1/2/(z-2)");
}

TEST_F(FactorFraction, SumsAreFactoredAsFarAsTheyGo) {
  EXPECT_EQ(FactoredCompletely(s, "x^3-x"), "x*(x+1)*(x-1)");
  EXPECT_EQ(FactoredCompletely(s, "x^2+1"), "x^2+1");
}

TEST_F(FactorFraction, AKeptFactoringIsTheOneWorkedOut) {
  for (const char* sum : {"x^2-1", "x^2+5*x+6", "x^4-1", "2*x+4"}) {
    EXPECT_EQ(FactoredCompletely(s, sum), FactorTextCompletely(s, sum)) << sum;
    EXPECT_EQ(FactoredCompletely(s, sum), FactorTextCompletely(s, sum)) << sum;
  }
}

TEST_F(FactorFraction, ASumOfTheFirstDegreeWithoutACommonDivisorIsItsOwnFactoring) {
  // Read off the text without factoring: the answer factoring gives, for every such sum and for
  // those just beside it (a common divisor, a leading minus, a constant's letter).
  std::mt19937 random(5);
  int read = 0;
  for (int i = 0; i < 600; ++i) {
    const int a = 1 + static_cast<int>(random() % 12);
    const int b = 1 + static_cast<int>(random() % 40);
    const char letter = "xxxxtyepi"[random() % 9];
    std::string sum = (a == 1 ? "" : std::to_string(a) + "*") + std::string(1, letter) +
                      (random() % 2 == 0 ? "+" : "-") + std::to_string(b);
    if (random() % 8 == 0) sum = "-" + sum;
    if (random() % 3 == 0) s.ExactToFloat = !s.ExactToFloat;
    s.RewriteCount = 0;
    EXPECT_EQ(FactoredCompletely(s, sum), FactorTextCompletely(s, sum)) << sum;
    read += std::gcd(a, b) == 1 ? 1 : 0;
  }
  EXPECT_GT(read, 300);
}

// How many fractions the session keeps as ones that stay (their keys open with "x").
std::size_t FractionsKeptAsStaying(const Session& s) {
  std::size_t count = 0;
  for (const auto& [key, answer] : s.KeptAnswers) count += key[0] == 'x' ? 1 : 0;
  return count;
}

TEST_F(FactorFraction, AFractionThatStaysIsKeptAsOneThatStaysUnderItsOptions) {
  EXPECT_EQ(OnePass("(x+1)/(x^2+1)", 4), "(x+1)/(x^2+1)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(FractionsKeptAsStaying(s), 1U);
  // Asked again, it stays as it is known to.
  EXPECT_EQ(OnePass("(x+1)/(x^2+1)", 4), "(x+1)/(x^2+1)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(FractionsKeptAsStaying(s), 1U);
  // Under other options it is worked out anew, and kept apart.
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("(x+1)/(x^2+1)", 4), "(x+1)/(x^2+1)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(FractionsKeptAsStaying(s), 2U);
  // A fraction that cancels is not kept as one that stays.
  s.ExactToFloat = false;
  EXPECT_EQ(OnePass("(x+1)/(x^2-1)", 4), "(x+1)/(x+1)/(x-1)");
  EXPECT_TRUE(fired);
  EXPECT_EQ(FractionsKeptAsStaying(s), 2U);
}

TEST_F(FactorFraction, AFractionThatCancelsStillCancelsAfterOnesThatStay) {
  // The same sums in a fraction that stays and in one that cancels: what stays is the fraction,
  // not its factors.
  EXPECT_EQ(OnePass("(x+1)/(x-1)", 4), "(x+1)/(x-1)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(Run("(x+1)*(x-1)/(x-1)"), "x+1");
  EXPECT_EQ(OnePass("(x+1)/(x-1)", 4), "(x+1)/(x-1)");
  EXPECT_FALSE(fired);
}

// 1/(1+1/(1+...1/(1+x))), `depth` fractions deep.
std::string NestedFraction(int depth) {
  std::string text = "x";
  for (int i = 0; i < depth; ++i) text = "1/(1+" + text + ")";
  return text;
}

TEST_F(FactorFraction, DeeplyNestedFractionsDoNotRunThePoolOut) {
  // Each depth factored on a tree of its own would copy the rest of the nesting again.
  EXPECT_NO_THROW(Run(NestedFraction(90)));
}

}  // namespace
}  // namespace tavimor
