// Tests of sums in one letter collected without the rewrite loop: every answer is the loop's,
// under every option that could change it, and every other text is left to the loop.
#include "simplify/plain_polynomial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "support/loop_answer.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class PlainPolynomialTest : public SessionTest {
 protected:
  // A random text of terms in x: numbers, fractions, powers, products and quotients, with
  // brackets around terms and around whole sums, as the solver writes its sides and moves.
  static std::string RandomText(std::mt19937& random, int depth) {
    auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    auto factor = [&]() -> std::string {
      switch (pick(12)) {
        case 0: return std::to_string(1 + pick(12));
        case 1: return "(" + std::string(pick(2) == 0 ? "-" : "") + std::to_string(pick(9)) + ")";
        case 2: return "(" + std::to_string(1 + pick(9)) + "/" + std::to_string(1 + pick(8)) + ")";
        case 3: return "x^" + std::to_string(2 + pick(3));
        case 4: return "(" + std::to_string(1 + pick(9)) + "*x)";
        case 5: return "(x+x)";
        case 6: return "(" + std::to_string(2 + pick(3)) + "*x-x)";
        case 7: return "(x-x)";
        case 8: return "((2*x)-(0))";
        default: return "x";
      }
    };
    auto term = [&]() -> std::string {
      if (depth > 0 && pick(5) == 0) return "(" + RandomText(random, depth - 1) + ")";
      std::string text = factor();
      for (int f = pick(3); f > 0; --f) text += (pick(4) == 0 ? "/" : "*") + factor();
      return text;
    };
    std::string text = pick(6) == 0 ? "-" : pick(12) == 0 ? "+" : "";
    text += term();
    for (int t = pick(4); t > 0; --t) text += (pick(2) == 0 ? "-" : "+") + term();
    return text;
  }

  // Random texts, each read and compared with the loop; returns how many were read.
  int CheckRandom(unsigned seed, int count) {
    std::mt19937 random(seed);
    int read = 0;
    for (int i = 0; i < count; ++i) {
      // In x mostly, else in a letter that some option makes a constant.
      std::string text = RandomText(random, 2);
      const char letter = "xxxxtpdei"[random() % 9];
      std::replace(text.begin(), text.end(), 'x', letter);
      const std::optional<std::string> plain = PlainPolynomial(s, text);
      if (!plain) continue;
      ++read;
      EXPECT_EQ(*plain, LoopAnswer(s, text)) << text;
    }
    return read;
  }
};

TEST_F(PlainPolynomialTest, EveryAnswerIsTheLoops) { EXPECT_GT(CheckRandom(1, 6000), 2000); }

TEST_F(PlainPolynomialTest, TheAnswersStandUnderEveryOption) {
  const std::vector<std::function<void()>> settings = {
      [this] { s.ExactToFloat = true; },
      [this] { s.ExactToFloat = false; },
      [this] { s.DistributeMinus = !s.DistributeMinus; },
      [this] { s.ExponentToReciprocal = !s.ExponentToReciprocal; },
      [this] { s.ExponentToRadical = !s.ExponentToRadical; },
      [this] { s.ComplexForm = 1; },
      [this] { s.TrigMode = 1; },
      [this] { s.DecimalPoint = ","; },
      [this] { s.SpecialE = !s.SpecialE; },
      [this] { s.SpecialP = !s.SpecialP; },
      [this] { s.SpecialD = !s.SpecialD; },
      [this] { s.Degrees = !s.Degrees; },
  };
  unsigned seed = 2;
  for (const auto& set : settings) {
    set();
    EXPECT_GT(CheckRandom(seed++, 1500), 200);
  }
}

TEST_F(PlainPolynomialTest, CollectsTheSolversTexts) {
  EXPECT_EQ(PlainPolynomial(s, "2*x+1-1"), "2*x");
  EXPECT_EQ(PlainPolynomial(s, "x/4"), "1/4*x");
  EXPECT_EQ(PlainPolynomial(s, "(1/4*x)*(4)"), "x");
  EXPECT_EQ(PlainPolynomial(s, "10-x"), "-x+10");
  EXPECT_EQ(PlainPolynomial(s, "(2*x+2)-(10)"), "2*x-8");
  EXPECT_EQ(PlainPolynomial(s, "x^2-5*x+(25/4)"), "x^2-5*x+25/4");
  EXPECT_EQ(PlainPolynomial(s, "(x^2-5*x+6)-(0)"), "x^2-5*x+6");
  EXPECT_EQ(PlainPolynomial(s, "3*x-(3*x)"), "0");
  EXPECT_EQ(PlainPolynomial(s, "x"), "x");
  EXPECT_EQ(PlainPolynomial(s, "((2*x)-(0))/(x)"), "2");
  EXPECT_EQ(PlainPolynomial(s, "(1/4*x^2)/(x^2)"), "1/4");
  EXPECT_EQ(PlainPolynomial(s, "x^3/(2*x)"), "1/2*x^2");
  EXPECT_EQ(PlainPolynomial(s, "x/x"), LoopAnswer(s, "x/x"));
}

TEST_F(PlainPolynomialTest, OtherTextsGoThroughTheLoop) {
  for (const char* text :
       {"5*(x-2)",   "(x+4)/2", "(x-3)^2", "2*(x+1)-7", "x/x^2",        "0/x",
        "(x^2+x)/x", "x/(x+1)", "1/x",     "(2*x)^2",   "x^1",          "x^0",
        "x^10",      "x^2^2",   "0.5*x",   "x+y",       "a*x",          "e*x",
        "sin(x)",    "xy",      "2*-x",    "x/0",       "1000000000*x", "99999*99999*x",
        "2^2",       "7",       "06*x",    "(x",        "x)",           ""}) {
    EXPECT_FALSE(PlainPolynomial(s, text)) << text;
  }
  s.ExactToFloat = true;
  EXPECT_FALSE(PlainPolynomial(s, "x/4"));  // 0.25*x, written by the loop
  EXPECT_EQ(PlainPolynomial(s, "2*x+1-1"), "2*x");
  s.ExactToFloat = false;
  s.DistributeMinus = false;
  EXPECT_FALSE(PlainPolynomial(s, "x-(x+1)"));
  EXPECT_EQ(PlainPolynomial(s, "(2*x+2)-(10)"), LoopAnswer(s, "(2*x+2)-(10)"));
}

}  // namespace
}  // namespace tavimor
