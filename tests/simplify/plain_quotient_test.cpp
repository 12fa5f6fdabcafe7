// Tests of quotients read off their numbers: every answer is the rewrite loop's, under every
// option that could change it.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "simplify/plain_quotient.h"
#include "simplify/simplify_driver.h"
#include "support/loop_answer.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class PlainQuotientTest : public SessionTest {
 protected:
  // Every quotient of the sides below, each side bare and in brackets; returns how many were read
  // off their numbers, each checked against the loop.
  int CheckAll() {
    const std::vector<std::string> numbers = {"0", "1", "2", "3", "4", "6", "12", "999999999"};
    std::vector<std::string> sides;
    for (const std::string& n : numbers) {
      for (const char* sign : {"", "-"}) {
        sides.push_back(sign + n);
        if (n == "0") continue;
        for (const char* power : {"x", "x^2", "x^3", "y", "e"}) {
          sides.push_back(std::string(sign) + (n == "1" ? "" : n + "*") + power);
        }
      }
    }
    int read = 0;
    for (const std::string& up : sides) {
      for (const std::string& down : sides) {
        for (const std::string& text :
             {up + "/" + down, "(" + up + ")/(" + down + ")", up + "/(" + down + ")"}) {
          const std::optional<std::string> plain = PlainQuotient(s, text);
          if (!plain) continue;
          ++read;
          EXPECT_EQ(*plain, LoopAnswer(s, text)) << text;
        }
      }
    }
    return read;
  }
};

TEST_F(PlainQuotientTest, EveryQuotientReadOffItsNumbersIsTheLoops) { EXPECT_GT(CheckAll(), 500); }

TEST_F(PlainQuotientTest, TheAnswersStandUnderEveryOption) {
  const std::vector<std::function<void()>> settings = {
      [this] { s.ExactToFloat = true; },
      [this] { s.ExponentToReciprocal = !s.ExponentToReciprocal; },
      [this] { s.ExponentToRadical = !s.ExponentToRadical; },
      [this] { s.DistributeMinus = !s.DistributeMinus; },
      [this] { s.SpecialE = false; },
      [this] { s.ComplexForm = 1; },
      [this] { s.DecimalPoint = ","; },
  };
  for (const auto& set : settings) {
    set();
    EXPECT_GT(CheckAll(), 300);
  }
}

TEST_F(PlainQuotientTest, OtherTextsGoThroughTheLoop) {
  for (const char* text :
       {"x+1", "(x+1)/2", "2/x", "(2*x)/(4)", "x/y", "6/0", "(6/2)/3", "((6))/2", "-(6)/2", "+6/4",
        "(2*e)/(e)", "06/2", "1000000000/2", "x^10/x", "2*x*y/x"}) {
    EXPECT_FALSE(PlainQuotient(s, text)) << text;
  }
  s.ExactToFloat = true;
  EXPECT_FALSE(PlainQuotient(s, "1/3"));
}

TEST_F(PlainQuotientTest, SimplifyTextGivesTheSameEitherWay) {
  for (const char* text : {"(6)/(4)", "(-2*x)/(x)", "(x^2)/(x^2)", "(12*x)/(-3*x)", "6/3"}) {
    bool changed_rules = false;
    bool changed_quick = false;
    EXPECT_EQ(SimplifyText(s, text, changed_quick), SimplifyTextByRules(s, text, changed_rules));
    EXPECT_EQ(changed_quick, changed_rules) << text;
  }
}

}  // namespace
}  // namespace tavimor
