// Tests of putting new text into a node, splitting an input, and the session's tables.
#include <gtest/gtest.h>

#include "core/input_split.h"
#include "core/tree_edit.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using TreeEdit = SessionTest;

TEST_F(TreeEdit, ReplacingAFunctionsContentsKeepsItsName) {
  const NodeIdx root = Load("2*sin(x)");
  const NodeIdx function = Child(root, 2);
  ReplaceNodeContents(s, function, "(a+b)");
  EXPECT_EQ(N(function).Text, "sin(a+b)");
  EXPECT_EQ(N(function).Kind, 'F');
  EXPECT_EQ(N(Child(function, 1)).Text, "a");
  EXPECT_EQ(N(Child(function, 2)).Text, "b");
}

TEST_F(TreeEdit, ReplacingOtherContentsMakesABracket) {
  const NodeIdx root = Load("2*x");
  const NodeIdx letter = Child(root, 2);
  const auto before = s.Pool.NodesInUse;
  ReplaceNodeContents(s, letter, "((y-1))");
  EXPECT_EQ(N(letter).Text, "(y-1)");
  EXPECT_EQ(N(letter).Kind, '(');
  EXPECT_EQ(s.Pool.NodesInUse, before + 2);
}

TEST_F(TreeEdit, ReplacedContentsFreeTheOldSubtree) {
  const NodeIdx root = Load("a+b*c*d");
  const NodeIdx product = Child(root, 2);
  const auto before = s.Pool.NodesInUse;
  ReplaceNodeContents(s, product, "z");
  // Three factors gone; one letter under the new bracket.
  EXPECT_EQ(s.Pool.NodesInUse, before - 2);
  EXPECT_EQ(N(product).Text, "(z)");
}

TEST(SplitInput, EachItemIsSplitAtItsFirstEquals) {
  const std::vector<ItemSides> items = SplitInput("a=b;c=d");
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].left, "a");
  EXPECT_EQ(items[0].right, "b");
  EXPECT_EQ(items[1].left, "c");
  EXPECT_EQ(items[1].right, "d");
}

TEST(SplitInput, ItemWithoutEqualsHasAnEmptyRightSide) {
  const std::vector<ItemSides> items = SplitInput("x+1");
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0].left, "x+1");
  EXPECT_EQ(items[0].right, "");
}

TEST_F(TreeEdit, LoadSideNormalisesNumbersAndRegenerates) {
  const NodeIdx n = Load("2.50x+1E10");
  EXPECT_EQ(N(n).Text, "2.5*x+1E10");
}

TEST_F(TreeEdit, FunctionTableInItsOrder) {
  InitFunctionTable(s);
  const std::vector<std::string> names = {"sin", "cos", "tan",  "arcsin", "arccos", "arctan", "ln",
                                          "exp", "log", "sqrt", "cot",    "sec",    "csc"};
  for (int i = 1; i <= kFunctionCount; ++i) {
    EXPECT_EQ(s.FunctionNames[static_cast<std::size_t>(i)], names[static_cast<std::size_t>(i - 1)]);
    EXPECT_EQ(s.FunctionNameLengths[static_cast<std::size_t>(i)],
              static_cast<std::int16_t>(names[static_cast<std::size_t>(i - 1)].size()));
  }
}

TEST_F(TreeEdit, FirstRunOptions) {
  s.SpecialP = true;
  s.SigFigs = 7;
  s.Unknown = "t";
  s.SetFirstRunOptions();
  EXPECT_EQ(s.Unknown, "x");
  EXPECT_TRUE(s.SpecialE);
  EXPECT_FALSE(s.SpecialP);
  EXPECT_FALSE(s.SpecialD);
  EXPECT_FALSE(s.Degrees);
  EXPECT_EQ(s.ComplexForm, 0);
  EXPECT_EQ(s.SolveDetail, 1);
  EXPECT_EQ(s.SolveDetailDefault, 1);
  EXPECT_FALSE(s.StreamingOutput);
  EXPECT_EQ(s.FontSize, 12.0f);
  EXPECT_EQ(s.SigFigs, 3);
  EXPECT_TRUE(s.ExponentToRadical);
  EXPECT_TRUE(s.ExponentToReciprocal);
  EXPECT_FALSE(s.ExponentToExponentialFunction);
  EXPECT_FALSE(s.ExactToFloat);
  EXPECT_EQ(s.EvaluateInverseTrig, 1);
  EXPECT_EQ(s.QuadraticMethod, 2);
  EXPECT_EQ(s.GraphParms, kFactoryGraphParms);
}

}  // namespace
}  // namespace tavimor
