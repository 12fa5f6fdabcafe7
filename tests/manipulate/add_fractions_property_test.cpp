// Properties of Add fractions over generated sums: the value is kept at random points, one press
// leaves one fraction, and the LCD stated is the least common multiple of the denominators.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "core/node_pool.h"
#include "core/temp_tree.h"
#include "manipulate/add_fractions.h"
#include "manipulate/factor.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// Denominator factors and the polynomial each multiplies out to: a factor at most squared.
constexpr const char* kFactors[] = {"x", "(x+1)", "(x-1)", "(x+2)", "(2*x+1)", "(x-3)"};
constexpr int kFactorCount = 6;

class SumGenerator {
 public:
  explicit SumGenerator(unsigned seed) : random_(seed) {}

  // A denominator as a product of factors, each 0 to 2 times, and its powers.
  std::string Denominator(std::vector<int>& powers) {
    powers.assign(kFactorCount, 0);
    std::string text;
    const int count = 1 + Pick(2);
    for (int i = 0; i < count; ++i) ++powers[static_cast<std::size_t>(Pick(kFactorCount))];
    for (int f = 0; f < kFactorCount; ++f) {
      const int p = std::min(powers[static_cast<std::size_t>(f)], 2);
      powers[static_cast<std::size_t>(f)] = p;
      if (p == 0) continue;
      text += (text.empty() ? "" : "*") + std::string(kFactors[f]) + (p == 2 ? "^2" : "");
    }
    return text;
  }

  std::string Numerator() {
    static constexpr const char* kNumerators[] = {"1", "2", "x", "3*x", "x+1", "x^2-2", "-1"};
    return kNumerators[Pick(7)];
  }

  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

 private:
  std::mt19937 random_;
};

class AddFractionsProperties : public SessionTest {
 protected:
  // Whether the text is a sum with a term that has a denominator.
  bool SumWithAFraction(const std::string& text) {
    TempTree tree(s, text, TempTree::Depth::Whole);
    const NodeIdx first = tree[tree.Root()].FirstChild;
    if (first == kNoNode || !IsSumRole(tree[first].Role)) return false;
    for (NodeIdx term = first; term != kNoNode; term = tree[term].Next) {
      for (NodeIdx f = tree[term].FirstChild; f != kNoNode; f = tree[f].Next) {
        if (tree[f].Role == kRoleDenominator) return true;
      }
    }
    return false;
  }
};

TEST_F(AddFractionsProperties, ValueKeptAndOneFractionLeft) {
  SumGenerator generate(20261122);
  std::mt19937 points(5);
  std::uniform_real_distribution<double> at(-2.7, 2.7);
  for (int item = 0; item < 150; ++item) {
    InitNodePool(s);
    s.RewriteCount = 0;
    std::vector<int> powers;
    std::string sum;
    const int terms = 2 + generate.Pick(2);
    for (int t = 0; t < terms; ++t) {
      if (t > 0) sum += generate.Pick(3) == 0 ? "-" : "+";
      const std::string numerator = generate.Numerator();
      sum += (numerator.size() > 1 && t > 0 ? "(" + numerator + ")" : numerator);
      if (generate.Pick(5) != 0) sum += "/(" + generate.Denominator(powers) + ")";
    }
    SCOPED_TRACE(sum);
    std::string text = sum;
    std::string record;
    if (!AddFractions(s, text, record)) continue;
    EXPECT_FALSE(SumWithAFraction(text)) << sum << " -> " << text;
    for (int k = 0; k < 3; ++k) {
      const double x = at(points);
      NumericValue before(s, {{'x', x}});
      NumericValue after(s, {{'x', x}});
      const double want = before.Of(sum);
      const double got = after.Of(text);
      if (!std::isfinite(want) || std::fabs(want) > 1e6) continue;
      EXPECT_NEAR(got, want, 1e-7 * std::max(1.0, std::fabs(want)))
          << sum << " -> " << text << " at x = " << x;
    }
  }
}

TEST_F(AddFractionsProperties, PressedToTheEndNestedSumsKeepTheirValue) {
  const char* const kItems[] = {
      "1/(1/x+1)+x",         "(1/x+1/y)/(1/x-1/y)", "2*(1/x+1/y)^2", "sqrt(1/x+1/y)+1/x",
      "x/(x+1)-(x-1)/x",     "1/(x-y)+1/(y-x)+1/y", "a/b+c/d+e/f",   "(x+1/x)^2-1/x^2",
      "1/(x^2-y^2)+1/(x+y)", "3/(2*x)-x/6+1/(x*y)",
  };
  std::mt19937 points(17);
  std::uniform_real_distribution<double> at(0.3, 2.9);
  for (const char* item : kItems) {
    InitNodePool(s);
    s.RewriteCount = 0;
    std::string text = item;
    std::string record;
    int presses = 0;
    while (presses < 12 && AddFractions(s, text, record)) {
      ++presses;
      s.RewriteCount = 0;
      for (int k = 0; k < 3; ++k) {
        const std::map<char, double> values = {
            {'x', at(points)}, {'y', at(points)}, {'a', at(points)}, {'b', at(points)},
            {'c', at(points)}, {'d', at(points)}, {'e', at(points)}, {'f', at(points)}};
        NumericValue before(s, values);
        NumericValue after(s, values);
        const double want = before.Of(item);
        if (!std::isfinite(want) || std::fabs(want) > 1e6) continue;
        EXPECT_NEAR(after.Of(text), want, 1e-7 * std::max(1.0, std::fabs(want)))
            << item << " -> " << text;
      }
    }
    EXPECT_GE(presses, 1) << item;
    EXPECT_LT(presses, 12) << item << " does not come to an end: " << text;
  }
}

TEST_F(AddFractionsProperties, LcdIsTheLeastCommonMultipleOfPolynomialDenominators) {
  SumGenerator generate(7);
  std::mt19937 points(3);
  std::uniform_real_distribution<double> at(-2.7, 2.7);
  for (int item = 0; item < 100; ++item) {
    InitNodePool(s);
    s.RewriteCount = 0;
    std::vector<int> a;
    std::vector<int> b;
    // Written multiplied out, so that Add fractions must factor them.
    const std::string da = "(" + ExpandedText(s, generate.Denominator(a)) + ")";
    const std::string db = "(" + ExpandedText(s, generate.Denominator(b)) + ")";
    // The expected LCD: each factor at its highest power.
    std::string lcd;
    for (std::size_t f = 0; f < a.size(); ++f) {
      const int p = std::max(a[f], b[f]);
      for (int k = 0; k < p; ++k) lcd += (lcd.empty() ? "" : "*") + std::string(kFactors[f]);
    }
    const std::string sum = "1/" + da + "+x/" + db;
    SCOPED_TRACE(sum);
    std::string text = sum;
    std::string record;
    ASSERT_TRUE(AddFractions(s, text, record));
    const std::string stated = AddFractionsField(record, kFieldLcd);
    for (int k = 0; k < 3; ++k) {
      const double x = at(points);
      NumericValue want(s, {{'x', x}});
      NumericValue got(s, {{'x', x}});
      const double expected = want.Of(lcd);
      EXPECT_NEAR(std::fabs(got.Of(stated)), std::fabs(expected),
                  1e-9 * std::max(1.0, std::fabs(expected)))
          << sum << ": LCD " << stated << ", expected " << lcd;
    }
  }
}

TEST_F(AddFractionsProperties, LcdIsTheLeastCommonMultipleOfIntegerDenominators) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> denominator(2, 360);
  for (int item = 0; item < 200; ++item) {
    InitNodePool(s);
    const int a = denominator(random);
    const int b = denominator(random);
    const int c = denominator(random);
    const std::string sum =
        "1/" + std::to_string(a) + "+1/" + std::to_string(b) + "-1/" + std::to_string(c);
    std::string text = sum;
    std::string record;
    ASSERT_TRUE(AddFractions(s, text, record)) << sum;
    EXPECT_EQ(AddFractionsField(record, kFieldLcd), std::to_string(std::lcm(std::lcm(a, b), c)))
        << sum;
  }
}

}  // namespace
}  // namespace tavimor
