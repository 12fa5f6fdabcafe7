// Tests of whole-number arithmetic worked out without the rewrite loop: every answer is the
// loop's, and the expansion's, under every option that could change it.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "manipulate/factor.h"
#include "simplify/plain_arithmetic.h"
#include "simplify/simplify_driver.h"
#include "support/loop_answer.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class PlainArithmeticTest : public SessionTest {
 protected:
  // A random text of small whole numbers, operators, powers and brackets; depth levels deep.
  std::string RandomText(std::mt19937& random, int depth) {
    auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    if (depth == 0 || pick(4) == 0) {
      const int n = pick(14);
      if (pick(6) == 0) return "(-" + std::to_string(n) + ")";
      return std::to_string(n);
    }
    const std::string a = RandomText(random, depth - 1);
    const std::string b = RandomText(random, depth - 1);
    switch (pick(9)) {
      case 7: return "+" + a + "+" + b;  // as exponents are summed: "+1+1"
      case 8: return "(+" + a + ")*" + b;
      case 0: return a + "+" + b;
      case 1: return a + "-" + b;
      case 2: return "(" + a + ")*(" + b + ")";
      case 3: return "(" + a + ")/(" + b + ")";
      case 4: return "(" + a + ")^" + std::to_string(pick(4));
      case 5: return "-(" + a + ")";
      default: return a + "*" + b;
    }
  }

  // Random texts, each worked out and compared with the loop (and the expansion); returns how many
  // were worked out.
  int CheckRandom(unsigned seed, int count) {
    std::mt19937 random(seed);
    int worked = 0;
    for (int i = 0; i < count; ++i) {
      const std::string text = RandomText(random, 3);
      const std::optional<std::string> plain = PlainArithmetic(s, text);
      if (!plain) continue;
      ++worked;
      EXPECT_EQ(*plain, LoopAnswer(s, text)) << text;
      s.RewriteCount = 0;
      EXPECT_EQ(*plain, ExpandedTextByRules(s, text)) << text;
    }
    return worked;
  }
};

TEST_F(PlainArithmeticTest, EveryAnswerIsTheLoops) { EXPECT_GT(CheckRandom(1, 3000), 1500); }

TEST_F(PlainArithmeticTest, HalvesAndQuartersInFloatingPointAreTheLoops) {
  s.ExactToFloat = true;
  std::mt19937 random(11);
  int worked = 0;
  for (int i = 0; i < 2000; ++i) {
    const auto pick = [&random](int n) {
      return std::to_string(random() % static_cast<unsigned>(n));
    };
    const std::string text = pick(9) + "*(" + pick(9) + "/" + std::to_string(1 << (random() % 4)) +
                             ")^" + pick(3) + "-" + pick(9) + "*(" + pick(5) + "/" +
                             std::to_string(1 << (random() % 3)) + ")+" + pick(20);
    const std::optional<std::string> plain = PlainArithmetic(s, text);
    if (!plain) continue;
    ++worked;
    EXPECT_EQ(*plain, LoopAnswer(s, text)) << text;
  }
  EXPECT_GT(worked, 200);
}

TEST_F(PlainArithmeticTest, AQuotientInFloatingPointIsWrittenAsTheLoopWritesIt) {
  s.ExactToFloat = true;
  std::mt19937 random(23);
  int worked = 0;
  for (int i = 0; i < 3000; ++i) {
    const int digits_p = 1 + static_cast<int>(random() % 9);
    const int digits_q = 1 + static_cast<int>(random() % 9);
    auto number = [&random](int digits) {
      std::string text = std::to_string(1 + random() % 9);
      for (int d = 1; d < digits; ++d) text += std::to_string(random() % 10);
      return text;
    };
    const std::string text =
        std::string(random() % 3 == 0 ? "-" : "") + number(digits_p) + "/" + number(digits_q);
    const std::optional<std::string> plain = PlainArithmetic(s, text);
    if (!plain) continue;
    ++worked;
    EXPECT_EQ(*plain, LoopAnswer(s, text)) << text;
  }
  EXPECT_GT(worked, 2500);
  s.DecimalPoint = ",";
  EXPECT_EQ(PlainArithmetic(s, "77/4"), LoopAnswer(s, "77/4"));
  EXPECT_EQ(PlainArithmetic(s, "-1/3"), LoopAnswer(s, "-1/3"));
}

TEST_F(PlainArithmeticTest, TheAnswersStandUnderEveryOption) {
  const std::vector<std::function<void()>> settings = {
      [this] { s.ExactToFloat = true; },
      [this] { s.ExponentToReciprocal = !s.ExponentToReciprocal; },
      [this] { s.DistributeMinus = !s.DistributeMinus; },
      [this] { s.ComplexForm = 1; },
      [this] { s.DecimalPoint = ","; },
  };
  unsigned seed = 2;
  for (const auto& set : settings) {
    set();
    EXPECT_GT(CheckRandom(seed++, 1000), 200);
  }
}

TEST_F(PlainArithmeticTest, WorksOutTheUsualForms) {
  EXPECT_EQ(PlainArithmetic(s, "(-2)^2/4"), "1");
  EXPECT_EQ(PlainArithmetic(s, "(1/2)^2/4"), "1/16");
  EXPECT_EQ(PlainArithmetic(s, "(-3)*(-3)-4*(1)*(6)"), "-15");
  EXPECT_EQ(PlainArithmetic(s, "-(3/6)"), "-1/2");
  EXPECT_EQ(PlainArithmetic(s, "5-5"), "0");
  EXPECT_EQ(PlainArithmetic(s, "+1+1"), "2");
  EXPECT_EQ(PlainArithmetic(s, "+1-1"), "0");
  EXPECT_EQ(PlainArithmetic(s, "+2"), LoopAnswer(s, "+2"));
}

TEST_F(PlainArithmeticTest, OtherTextsGoThroughTheLoop) {
  for (const char* text : {"x+1",         "2*x",     "6/0",   "0^0",   "2*-3", "6/-2", "2*+3",
                           "2^-1",        "2^10",    "2^2^2", "1.5+1", "1E5",  "06",   "1000000000",
                           "99999*99999", "40000^2", "2(3)",  "(2",    "2)",   ""}) {
    EXPECT_FALSE(PlainArithmetic(s, text)) << text;
  }
  s.ExactToFloat = true;
  EXPECT_FALSE(PlainArithmetic(s, "1/3*3"));  // 0.333333333333333*3 in floating point
  EXPECT_EQ(PlainArithmetic(s, "1/2"), "0.5");
  EXPECT_FALSE(PlainArithmetic(s, "1/2048*2048"));
  EXPECT_EQ(PlainArithmetic(s, "0/7"), LoopAnswer(s, "0/7"));
  EXPECT_FALSE(PlainArithmetic(s, "1/0"));
  EXPECT_FALSE(PlainArithmetic(s, "1/-2"));
  EXPECT_EQ(PlainArithmetic(s, "6/3+1"), "3");
  EXPECT_EQ(PlainArithmetic(s, "2*(1/2)^2+3*(1/2)-2"), "0");
}

}  // namespace
}  // namespace tavimor
