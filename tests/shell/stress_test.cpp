// The longest and deepest inputs the pool allows: every command ends in its result or its
// message, with the work item whole and usable, never a crash.
#include <gtest/gtest.h>

#include "core/node_pool.h"
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

}  // namespace
}  // namespace tavimor
