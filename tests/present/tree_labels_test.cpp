// Tests of the labels of the expression tree view.
#include <gtest/gtest.h>

#include "present/tree_labels.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using TreeLabels = SessionTest;

TEST_F(TreeLabels, BareNumberAtTheRootShowsPilcrowForTheBlankRole) {
  EXPECT_EQ(NodeText1(s, Load("5")), "\xC2\xB6N     5");
}

TEST_F(TreeLabels, SumAtTheRootShowsTwoPilcrows) {
  const NodeIdx root = Load("2x+3");
  EXPECT_EQ(NodeText1(s, root), "\xC2\xB6\xC2\xB6     2*x+3");
  EXPECT_EQ(NodeText1(s, Child(root, 2)), "+N     3");
}

TEST_F(TreeLabels, ArithmeticLabelShowsTheOperatorAfterASibling) {
  const NodeIdx root = Load("a*b/c");
  EXPECT_EQ(NodeText2(s, Child(root, 1)), " a");
  EXPECT_EQ(NodeText2(s, Child(root, 2)), "* b");
  EXPECT_EQ(NodeText2(s, Child(root, 3)), "/ c");
  const NodeIdx sum = Load("+a-b+c");
  EXPECT_EQ(NodeText2(s, Child(sum, 1)), "+ a");
  EXPECT_EQ(NodeText2(s, Child(sum, 2)), "- b");
  EXPECT_EQ(NodeText2(s, Child(sum, 3)), "+ c");
  const NodeIdx plain = Load("a+b");
  EXPECT_EQ(NodeText2(s, Child(plain, 1)), " a");
  const NodeIdx power = Load("x^2");
  EXPECT_EQ(NodeText2(s, Child(power, 1)), "^ 2");
  EXPECT_EQ(NodeText2(s, Child(power, 2)), " x");
}

TEST_F(TreeLabels, ThirdLabelShowsTheOperatorOnAFirstChildToo) {
  const NodeIdx product = Load("a*b");
  EXPECT_EQ(NodeText3(s, Child(product, 1)), "* a");
  const NodeIdx sum = Load("a+b");
  EXPECT_EQ(NodeText3(s, Child(sum, 1)), "+ a");
}

}  // namespace
}  // namespace tavimor
