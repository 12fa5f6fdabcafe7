// Tests of loading a validated input as the work item.
#include <gtest/gtest.h>

#include "shell/load_item.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using LoadItem = SessionTest;

TEST_F(LoadItem, EquationFillsNodesTwoAndThree) {
  EXPECT_EQ(LoadItemTrees(s, "2*x+3=7"), ItemShape::Equation);
  EXPECT_EQ(N(kLeftRoot).Text, "2*x+3");
  EXPECT_EQ(N(kRightRoot).Text, "7");
  EXPECT_EQ(N(kRightRoot).Kind, 'N');
  ASSERT_EQ(s.EquationList.size(), 1u);
  EXPECT_EQ(s.EquationList[0][0], "2*x+3");
  EXPECT_EQ(s.EquationList[0][1], "7");
}

TEST_F(LoadItem, ExpressionLeavesTheRightSideEmpty) {
  EXPECT_EQ(LoadItemTrees(s, "x^2-1"), ItemShape::Expression);
  EXPECT_EQ(N(kLeftRoot).Text, "x^2-1");
  EXPECT_EQ(N(kRightRoot).Text, "");
  EXPECT_TRUE(s.EquationList.empty());
}

TEST_F(LoadItem, SetOfEquationsGoesIntoTheListRowByRow) {
  EXPECT_EQ(LoadItemTrees(s, "x+y=3;x-y=1;z"), ItemShape::SetOfEquations);
  ASSERT_EQ(s.EquationList.size(), 3u);
  EXPECT_EQ(s.EquationList[1][0], "x-y");
  EXPECT_EQ(s.EquationList[1][1], "1");
  EXPECT_EQ(s.EquationList[2][0], "z");
  EXPECT_EQ(s.EquationList[2][1], "");
  EXPECT_EQ(s.Pool.NodesInUse, 2);
}

TEST_F(LoadItem, EachLoadDiscardsEarlierTrees) {
  LoadItemTrees(s, "(a+b)*(c+d)=e");
  LoadItemTrees(s, "x=1");
  EXPECT_EQ(s.Pool.NodesInUse, 2);
  EXPECT_EQ(N(kLeftRoot).Text, "x");
}

TEST_F(LoadItem, TooLargeAnItemRaisesTheRunTimeError) {
  std::string side;
  for (int i = 0; i < 45; ++i) side += "(a+b+c+d+e+f+g+h+i+j+k+l)";
  EXPECT_THROW(LoadItemTrees(s, "(" + side + ")*(" + side + ")"), RunTimeError);
}

}  // namespace
}  // namespace tavimor
