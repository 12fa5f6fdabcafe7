// Tests of products and powers of sums in one letter multiplied out without the rewrite loop:
// every answer is the expansion's, and every other text is left to it.
#include "simplify/plain_polynomial.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "manipulate/factor.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class PlainExpansionTest : public SessionTest {
 protected:
  // A random polynomial text in x: sums of products of brackets, powers, numbers and x.
  static std::string RandomText(std::mt19937& random) {
    auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    auto linear = [&] {
      static const int kCoefficients[] = {1, 1, 2, 3, -1, -2, 5};
      const int a = kCoefficients[pick(7)];
      const int b = pick(19) - 9;
      std::string text = a == 1 ? "x" : a == -1 ? "-x" : std::to_string(a) + "*x";
      if (pick(5) == 0) text = "x^2" + std::string(a < 0 ? "" : "+") + text;
      if (b != 0) text += (b > 0 ? "+" : "") + std::to_string(b);
      return "(" + text + ")";
    };
    auto factor = [&]() -> std::string {
      switch (pick(7)) {
        case 0:
        case 1:
        case 2: return linear();
        case 3: return linear() + "^" + std::to_string(2 + pick(3));
        case 4: return std::to_string(2 + pick(11));
        case 5: return "x";
        default: return "x^" + std::to_string(2 + pick(2));
      }
    };
    std::string text;
    const int terms = 1 + pick(3);
    for (int t = 0; t < terms; ++t) {
      const bool minus = pick(2) == 0;
      if (t > 0 || minus) text += minus ? "-" : "+";
      const int factors = 1 + pick(3);
      for (int f = 0; f < factors; ++f) text += (f > 0 ? "*" : "") + factor();
    }
    return text;
  }

  // Each text read is compared with the expansion; returns how many were read.
  int CheckRandom(unsigned seed, int count) {
    std::mt19937 random(seed);
    int read = 0;
    for (int i = 0; i < count; ++i) {
      const std::string text = RandomText(random);
      const std::optional<std::string> plain = PlainExpansion(s, text);
      if (!plain) continue;
      ++read;
      s.RewriteCount = 0;
      EXPECT_EQ(*plain, ExpandedTextByRules(s, text)) << text;
    }
    return read;
  }
};

TEST_F(PlainExpansionTest, EveryAnswerIsTheExpansions) { EXPECT_GT(CheckRandom(3, 1500), 400); }

TEST_F(PlainExpansionTest, TheAnswersStandUnderTheOptionsOfLetters) {
  const std::vector<std::function<void()>> settings = {
      [this] { s.DistributeMinus = !s.DistributeMinus; },
      [this] { s.ExponentToReciprocal = !s.ExponentToReciprocal; },
      [this] { s.ComplexForm = 1; },
      [this] { s.DecimalPoint = ","; },
  };
  unsigned seed = 4;
  for (const auto& set : settings) {
    set();
    EXPECT_GT(CheckRandom(seed++, 400), 100);
  }
}

TEST_F(PlainExpansionTest, MultipliesOutTheUsualForms) {
  EXPECT_EQ(PlainExpansion(s, "(x-3)^2"), "x^2-6*x+9");
  EXPECT_EQ(PlainExpansion(s, "x*(x+2)"), "x^2+2*x");
  EXPECT_EQ(PlainExpansion(s, "3*(x+2)"), "3*x+6");
  EXPECT_EQ(PlainExpansion(s, "-(x+1)*(x-1)"), "-x^2+1");
  EXPECT_EQ(PlainExpansion(s, "(x+1)*(x-1)-x^2"), "-1");
  EXPECT_EQ(PlainExpansion(s, "3*(x-x)"), "0");
  EXPECT_EQ(PlainExpansion(s, "(t+1)^2"), "t^2+2*t+1");
}

TEST_F(PlainExpansionTest, OtherTextsAreLeftToTheExpansion) {
  for (const char* text : {"x-4",
                           "2*x+1",
                           "(x+1)",
                           "3+(x+1)",
                           "(x+1)^1*2",
                           "(x)*2",
                           "(2*x)*(x+1)",
                           "((x+1))*2",
                           "(x+1)^7",
                           "(x+1)^0*3",
                           "x^8*(x+1)",
                           "(x+1)/2",
                           "(x+1)*(y+1)",
                           "a*(x+1)",
                           "e*(x+1)",
                           "(x+1)*sqrt(x)",
                           "1.5*(x+1)",
                           "2*-(x+1)",
                           "2x*(x+1)",
                           "1000000000*(x+1)",
                           "100000*(x+1)*100000",
                           "(x+1",
                           ""}) {
    EXPECT_FALSE(PlainExpansion(s, text)) << text;
  }
  s.ExactToFloat = true;
  EXPECT_FALSE(PlainExpansion(s, "(x-3)^2"));  // the loop writes floating-point numbers
}

}  // namespace
}  // namespace tavimor
