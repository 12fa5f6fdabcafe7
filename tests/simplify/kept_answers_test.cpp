// Answers kept for the item: their keys tell the options apart, a kept answer is the one worked
// out, and the sums and products the loop left in house form stay so, under their options only.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/errors.h"
#include "simplify/kept_answers.h"
#include "simplify/simplify_driver.h"
#include "support/loop_answer.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

class KeptAnswers : public SimplifyTest {
 protected:
  // How many keys of the session open with the letter.
  std::size_t KeptUnder(char what) const {
    std::size_t count = 0;
    for (const auto& [key, answer] : s.KeptAnswers) count += key[0] == what ? 1 : 0;
    return count;
  }
};

TEST_F(KeptAnswers, EveryOptionOfTheLoopHasItsOwnKey) {
  const std::string plain = OptionKey(s, 's', "x+1");
  EXPECT_NE(OptionKey(s, 'f', "x+1"), plain);
  EXPECT_NE(OptionKey(s, 's', "x+2"), plain);
  const auto differs = [&](auto& field, auto other) {
    const auto saved = field;
    field = other;
    const bool different = OptionKey(s, 's', "x+1") != plain;
    field = saved;
    return different;
  };
  EXPECT_TRUE(differs(s.ExactToFloat, !s.ExactToFloat));
  EXPECT_TRUE(differs(s.ExponentToReciprocal, !s.ExponentToReciprocal));
  EXPECT_TRUE(differs(s.DistributeMinus, !s.DistributeMinus));
  EXPECT_TRUE(differs(s.PythagorasRules, !s.PythagorasRules));
  EXPECT_TRUE(differs(s.ComplexForm, static_cast<std::int16_t>(s.ComplexForm + 1)));
  EXPECT_TRUE(differs(s.ExpandMode, static_cast<std::int16_t>(s.ExpandMode + 1)));
  EXPECT_TRUE(differs(s.TrigMode, static_cast<std::int16_t>(s.TrigMode + 1)));
  EXPECT_TRUE(differs(s.EvaluateInverseTrig, static_cast<std::int16_t>(s.EvaluateInverseTrig + 1)));
  EXPECT_TRUE(differs(s.DecimalPoint, std::string(s.DecimalPoint == "." ? "," : ".")));
  // Two small numbers side by side are not one larger one.
  s.TrigMode = 1;
  s.EvaluateInverseTrig = 12;
  const std::string first = OptionKey(s, 's', "x");
  s.TrigMode = 11;
  s.EvaluateInverseTrig = 2;
  EXPECT_NE(OptionKey(s, 's', "x"), first);
}

TEST_F(KeptAnswers, AKeptAnswerIsTheOneWorkedOut) {
  int worked = 0;
  const auto work = [&worked] {
    ++worked;
    return std::string("answer");
  };
  EXPECT_EQ(KeptAnswer(s, 'q', "x", work), "answer");
  EXPECT_EQ(KeptAnswer(s, 'q', "x", work), "answer");
  EXPECT_EQ(worked, 1);
  s.ExactToFloat = !s.ExactToFloat;
  EXPECT_EQ(KeptAnswer(s, 'q', "x", work), "answer");
  EXPECT_EQ(worked, 2);
}

TEST_F(KeptAnswers, ASumInHouseFormStaysUnderItsOptionsOnly) {
  EXPECT_EQ(OnePass("x^2+2*x+1", 4), "x^2+2*x+1");
  EXPECT_FALSE(fired);
  EXPECT_EQ(KeptUnder('S'), 1U);
  EXPECT_EQ(OnePass("x^2+2*x+1", 4), "x^2+2*x+1");
  EXPECT_FALSE(fired);
  EXPECT_EQ(KeptUnder('S'), 1U);
  // The same text unsorted is another node: it is collected, and not kept as staying.
  EXPECT_EQ(OnePass("2*x+x^2+1", 4), "x^2+2*x+1");
  EXPECT_TRUE(fired);
  EXPECT_EQ(KeptUnder('S'), 1U);
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("x^2+2*x+1", 4), "x^2+2*x+1");
  EXPECT_FALSE(fired);
  EXPECT_EQ(KeptUnder('S'), 2U);
}

TEST_F(KeptAnswers, AProductThatStaysInOneModeIsCollectedInAnother) {
  // 1/2*x stays in exact work, and becomes 0.5*x in floating point.
  EXPECT_EQ(OnePass("1/2*x", 4), "1/2*x");
  EXPECT_FALSE(fired);
  EXPECT_EQ(OnePass("1/2*x", 4), "1/2*x");
  EXPECT_FALSE(fired);
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("1/2*x", 4), "0.5*x");
  EXPECT_TRUE(fired);
}

TEST_F(KeptAnswers, ATextAskedAgainIsAnsweredAsTheLoopAnsweredIt) {
  s.RewriteCount = 0;
  const std::string first = SimplifyText(s, "2*sqrt(x)+3*sqrt(x)+x^2");
  const int rewrites = s.RewriteCount;
  EXPECT_EQ(first, LoopAnswer(s, "2*sqrt(x)+3*sqrt(x)+x^2"));
  EXPECT_GT(rewrites, 0);
  s.RewriteCount = 0;
  EXPECT_EQ(SimplifyText(s, "2*sqrt(x)+3*sqrt(x)+x^2"), first);
  // The kept answer counts the rewrites the loop made, against the loop's bound.
  EXPECT_EQ(s.RewriteCount, rewrites);
  s.RewriteCount = kRewriteLimit;
  EXPECT_THROW(SimplifyText(s, "2*sqrt(x)+3*sqrt(x)+x^2"), RunTimeError);
}

TEST_F(KeptAnswers, ATextAskedUnderOtherOptionsIsWorkedOutAgain) {
  s.RewriteCount = 0;
  EXPECT_EQ(SimplifyText(s, "1/2*x+x"), "3/2*x");
  s.ExactToFloat = true;
  EXPECT_EQ(SimplifyText(s, "1/2*x+x"), "1.5*x");
  s.ExactToFloat = false;
  EXPECT_EQ(SimplifyText(s, "1/2*x+x"), "3/2*x");
}

TEST_F(KeptAnswers, ManyKeptAnswersStartAfresh) {
  for (int i = 0; i < 5000; ++i) KeepAsStaying(s, "k" + std::to_string(i));
  EXPECT_LE(s.KeptAnswers.size(), 4096U);
  EXPECT_TRUE(KnownToStay(s, "k4999"));
  EXPECT_FALSE(KnownToStay(s, "k0"));
}

}  // namespace
}  // namespace tavimor
