// The longest and deepest inputs the pool allows: every command ends in its result or its
// message, with the work item whole and usable, never a crash.
#include <gtest/gtest.h>

#include "core/node_pool.h"
#include "core/validate.h"
#include "present/text_picture.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Stress : public SessionTest {
 protected:
  Stress() { StartUp(s, "."); }
  int ItemNodes() {
    return 2 + CountChildren(s, kLeftRoot, true) + CountChildren(s, kRightRoot, true);
  }
  // Presses Simplify until it finds nothing, or at most `presses` times, and checks the item.
  void SimplifyFully(int presses) {
    s.StreamingOutput = true;
    for (int i = 0; i < presses; ++i) {
      std::string error;
      EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
      EXPECT_TRUE(error.empty() || error == "Error in Simplify.") << error;
      EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
      EXPECT_FALSE(s.Pool[kLeftRoot].Text.empty());
    }
  }
};

// Twenty brackets of forty-five terms: 921 nodes of the 999 the pool gives.
std::string LongestSum() {
  std::string text;
  for (int b = 0; b < 20; ++b) {
    text += b == 0 ? "(" : "+(";
    for (int t = 0; t < 45; ++t) text += t == 0 ? "x" : "+x";
    text += ")";
  }
  return text;
}

TEST_F(Stress, LongestSumThePoolHoldsSimplifies) {
  ASSERT_TRUE(cmdLoadEquation(s, LongestSum(), false));
  EXPECT_GT(s.Pool.NodesInUse, 900);
  SimplifyFully(2);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "900*x");
}

TEST_F(Stress, DeepestNestingThePoolHoldsEndsWhole) {
  std::string text = "x";
  for (int i = 0; i < 480; ++i) text = "-(" + text + "+1)";
  ASSERT_TRUE(cmdLoadEquation(s, text, false));
  SimplifyFully(3);
  // The item is still usable: a side of it can be worked on again.
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdBrackets", false, error), PressOutcome::Done);
  EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
}

TEST_F(Stress, ItemBeyondThePoolIsRefusedAndTheOldItemStays) {
  ASSERT_TRUE(cmdLoadEquation(s, "x+x", false));
  EXPECT_FALSE(cmdLoadEquation(s, LongestSum() + "+" + LongestSum(), false));
  EXPECT_EQ(frontend.messages.back().text, "Error in input string.");
  EXPECT_EQ(frontend.messages.back().help_number, 2);
  // The pool was taken anew for the refused load; the tutor goes on with the next item.
  EXPECT_TRUE(cmdLoadEquation(s, "x+x", false));
  SimplifyFully(1);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2*x");
}

TEST_F(Stress, LongestTextOfOneNumberLoads) {
  const std::string digits = "7." + std::string(4998, '7');
  ASSERT_TRUE(cmdLoadEquation(s, digits, false));
  EXPECT_EQ(s.Form.item_kind, "number");
}

// Long and hostile inputs: nesting far deeper than a drawing can hold, inputs beyond what the
// pool could ever hold, and numbers beyond the largest float.

std::string Nested(const std::string& open, int depth, const std::string& inner,
                   const std::string& close) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += open;
  text += inner;
  for (int i = 0; i < depth; ++i) text += close;
  return text;
}

int CriticalMessages(const RecordingFrontend& frontend) {
  int count = 0;
  for (const RecordedMessage& m : frontend.messages) count += m.icon == MessageIcon::Critical;
  return count;
}

TEST_F(Stress, DeepRootsTellOnceThatTheyAreTooDeepToDraw) {
  ASSERT_TRUE(cmdLoadEquation(s, Nested("sqrt(", 600, "x", ")"), false));
  EXPECT_LE(CriticalMessages(frontend), 1);
  frontend.messages.clear();
  frontend.work_space.clear();
  s.StreamingOutput = true;
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
  ASSERT_EQ(CriticalMessages(frontend), 1);
  EXPECT_NE(frontend.messages[0].text.find("too deep or too large to draw"), std::string::npos);
  // Set for a terminal, each step's mathematics stays one line of its text, not a square of
  // characters as deep as the roots: a few megabytes at most, not hundreds.
  std::size_t bytes = 0;
  for (const std::string& line : RenderForTerminal(s, frontend.work_space)) bytes += line.size();
  EXPECT_LT(bytes, 8'000'000u);
  EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
}

TEST_F(Stress, ADeeplyNestedSumTellsOncePerCommand) {
  ASSERT_TRUE(cmdLoadEquation(s, Nested("(", 498, "x", "+1)"), false));
  EXPECT_LE(CriticalMessages(frontend), 1);
  s.StreamingOutput = false;  // one step per press, as in the window
  for (int press = 0; press < 3; ++press) {
    frontend.messages.clear();
    std::string error;
    EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
    EXPECT_LE(CriticalMessages(frontend), 1);
  }
}

TEST_F(Stress, AMillionNestedBracketsAreRefusedAtOnce) {
  ASSERT_TRUE(cmdLoadEquation(s, "x+1", false));
  EXPECT_FALSE(cmdLoadEquation(s, Nested("(", 1000000, "x", ")"), false));
  EXPECT_NE(frontend.messages.back().text.find("The input is too long"), std::string::npos);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
}

TEST_F(Stress, TheLongestInputsEndInAnItemOrAMessage) {
  const std::size_t most = kMaxInputLength;
  const std::vector<std::string> inputs = {
      Nested("(", static_cast<int>((most - 1) / 2), "x", ")"),
      Nested("sqrt(", static_cast<int>((most - 1) / 6), "x", ")"),
      Nested("[", static_cast<int>((most - 1) / 2), "x", "]"),
      "x" + Nested(";x", static_cast<int>((most - 1) / 2), "", ""),
      "1" + Nested("+1", static_cast<int>((most - 1) / 2), "", ""),
      "1" + std::string(most - 1, '0'),
      "0." + std::string(most - 3, '0') + "1",
  };
  for (const std::string& input : inputs) {
    frontend.messages.clear();
    const bool loaded = cmdLoadEquation(s, input, false);
    EXPECT_TRUE(loaded || !frontend.messages.empty()) << input.substr(0, 40);
    EXPECT_EQ(s.Pool.NodesInUse, ItemNodes()) << input.substr(0, 40);
  }
}

TEST_F(Stress, NumbersBeyondTheLargestFloatAreRefused) {
  for (const char* input : {"1E309", "1E309+1E309", "x=1E400", "."}) {
    frontend.messages.clear();
    EXPECT_FALSE(cmdLoadEquation(s, input, false)) << input;
    ASSERT_EQ(frontend.messages.size(), 1u) << input;
  }
}

}  // namespace
}  // namespace tavimor
