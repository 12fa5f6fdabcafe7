// Tests of the node pool: the free list as a stack, bounds, exhaustion, freeing and family links.
#include <gtest/gtest.h>

#include <vector>

#include "core/node_pool.h"
#include "core/parse.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using NodePoolTest = SessionTest;

TEST_F(NodePoolTest, InitChainsAllRecordsInOrder) {
  EXPECT_EQ(s.Pool.NodesInUse, 0);
  EXPECT_EQ(s.Pool[1].Prev, 0);
  EXPECT_EQ(s.Pool[1].Next, 2);
  EXPECT_EQ(s.Pool[500].Prev, 499);
  EXPECT_EQ(s.Pool[500].Next, 501);
  EXPECT_EQ(s.Pool[1000].Next, 0);
}

TEST_F(NodePoolTest, FirstTwoNodesAreTheFixedRoots) {
  EXPECT_EQ(NewNode(s), kLeftRoot);
  EXPECT_EQ(NewNode(s), kRightRoot);
  EXPECT_EQ(s.Pool.NodesInUse, 2);
}

TEST_F(NodePoolTest, NewNodeHasNoSiblingLinks) {
  const NodeIdx n = NewNode(s);
  EXPECT_EQ(s.Pool[n].Prev, 0);
  EXPECT_EQ(s.Pool[n].Next, 0);
  EXPECT_EQ(s.Pool[kFreeListHead].Next, n + 1);
  EXPECT_EQ(s.Pool[n + 1].Prev, kFreeListHead);
}

TEST_F(NodePoolTest, FreeingAndAllocatingGivesTheSameNodeBack) {
  NewNode(s);
  const NodeIdx a = NewNode(s);
  NewNode(s);
  FreeNode(s, a);
  EXPECT_EQ(NewNode(s), a);
}

TEST_F(NodePoolTest, FreeListIsAStack) {
  const NodeIdx a = NewNode(s);
  const NodeIdx b = NewNode(s);
  FreeNode(s, a);
  FreeNode(s, b);
  EXPECT_EQ(NewNode(s), b);
  EXPECT_EQ(NewNode(s), a);
}

TEST_F(NodePoolTest, ReusedNodeKeepsTheValueOfItsFormerLife) {
  const NodeIdx a = NewNode(s);
  s.Pool[a].Value = 2.5;
  s.Pool[a].Text = "x";
  s.Pool[a].Kind = 'V';
  FreeNode(s, a);
  const NodeIdx again = NewNode(s);
  ASSERT_EQ(again, a);
  EXPECT_EQ(std::get<double>(s.Pool[again].Value), 2.5);
  EXPECT_EQ(s.Pool[again].Text, "");
  EXPECT_EQ(s.Pool[again].Kind, ' ');
}

TEST_F(NodePoolTest, FreeNodeClearsEverythingButValue) {
  const NodeIdx a = NewNode(s);
  ExprNode& node = s.Pool[a];
  node.Role = 'N';
  node.Kind = 'N';
  node.Text = "3";
  node.Parent = 7;
  node.FirstChild = 9;
  node.Width = 4.0f;
  node.Value = std::string("1+2i");
  FreeNode(s, a);
  EXPECT_EQ(node.Role, ' ');
  EXPECT_EQ(node.Kind, ' ');
  EXPECT_EQ(node.Text, "");
  EXPECT_EQ(node.Parent, 0);
  EXPECT_EQ(node.FirstChild, 0);
  EXPECT_EQ(node.Width, 0.0f);
  EXPECT_EQ(std::get<std::string>(node.Value), "1+2i");
  EXPECT_EQ(s.Pool.NodesInUse, 0);
}

TEST_F(NodePoolTest, FreshNodeValueIsTheIntegerZero) {
  const NodeIdx a = NewNode(s);
  EXPECT_EQ(std::get<std::int32_t>(s.Pool[a].Value), 0);
}

TEST_F(NodePoolTest, MaxNodesInUseKeepsTheHighestCount) {
  const NodeIdx a = NewNode(s);
  const NodeIdx b = NewNode(s);
  FreeNode(s, a);
  FreeNode(s, b);
  EXPECT_EQ(s.Pool.NodesInUse, 0);
  EXPECT_GE(s.Pool.MaxNodesInUse, 2);
}

TEST_F(NodePoolTest, ExhaustedPoolRaisesTheRunTimeError) {
  for (int i = 0; i < kPoolSize - 1; ++i) NewNode(s);  // node 1 is the head and never given
  EXPECT_EQ(s.Pool.NodesInUse, kPoolSize - 1);
  EXPECT_THROW(NewNode(s), RunTimeError);
}

TEST_F(NodePoolTest, IndexZeroAndBeyondTheEndAreOutOfRange) {
  EXPECT_THROW(s.Pool[0], RunTimeError);
  EXPECT_THROW(s.Pool[1001], RunTimeError);
  EXPECT_THROW(s.Pool[-1], RunTimeError);
  EXPECT_NO_THROW(s.Pool[1000]);
}

TEST_F(NodePoolTest, SiblingAfterFirstChildHasParentZeroAndParentOfStillFindsIt) {
  const NodeIdx root = Load("a+b+c");
  const NodeIdx second = Child(root, 2);
  const NodeIdx third = Child(root, 3);
  EXPECT_EQ(N(Child(root, 1)).Parent, root);
  EXPECT_EQ(N(second).Parent, 0);
  EXPECT_EQ(ParentOf(s, second), root);
  EXPECT_EQ(ParentOf(s, third), root);
  EXPECT_EQ(ParentOf(s, root), 0);
}

TEST_F(NodePoolTest, FreeChildrenReturnsEveryNode) {
  const NodeIdx root = Load("(a+b)^(c+d)*sin(x-1)/(2x+3)-[y]");
  const auto before = s.Pool.NodesInUse;
  const int below = CountChildren(s, root, true);
  ASSERT_GT(below, 10);
  FreeChildren(s, root);
  EXPECT_EQ(s.Pool.NodesInUse, before - below);
  EXPECT_EQ(N(root).FirstChild, 0);
  EXPECT_EQ(N(root).Kind, ' ');
}

TEST_F(NodePoolTest, FreeChildrenKeepsTextAndRoleOfTheNode) {
  const NodeIdx root = Load("x*y");
  s.Pool[root].Role = 'N';
  FreeChildren(s, root);
  EXPECT_EQ(N(root).Text, "x*y");
  EXPECT_EQ(N(root).Role, 'N');
}

TEST_F(NodePoolTest, FreeChildrenOnALeafLosesItsKind) {
  const NodeIdx number = Load("5");
  ASSERT_EQ(N(number).Kind, 'N');
  FreeChildren(s, number);
  EXPECT_EQ(N(number).Kind, ' ');
  EXPECT_EQ(N(number).Text, "5");
  const NodeIdx letter = Load("x");
  FreeChildren(s, letter);
  EXPECT_EQ(N(letter).Kind, ' ');
}

TEST_F(NodePoolTest, FreeChildrenOfADeepTreeNeedsNoRecursion) {
  std::string text = "x";
  for (int i = 0; i < 300; ++i) text = "-(" + text + ")";
  const NodeIdx root = Load(text);
  const auto before = s.Pool.NodesInUse;
  const int below = CountChildren(s, root, true);
  FreeChildren(s, root);
  EXPECT_EQ(s.Pool.NodesInUse, before - below);
}

TEST_F(NodePoolTest, CountChildrenCountsChildrenOrAllDescendants) {
  const NodeIdx root = Load("a+b*c");
  EXPECT_EQ(CountChildren(s, root, false), 2);
  EXPECT_EQ(CountChildren(s, root, true), 4);
  EXPECT_EQ(CountChildren(s, Child(root, 1), true), 0);
}

TEST_F(NodePoolTest, LoopingLinksRaiseTheRunTimeErrorInsteadOfHanging) {
  const NodeIdx root = Load("a+b");
  const NodeIdx second = Child(root, 2);
  s.Pool[second].Next = Child(root, 1);  // a sibling loop
  EXPECT_THROW(FreeChildren(s, root), RunTimeError);
}

}  // namespace
}  // namespace tavimor

namespace tavimor {
namespace {

// The free list from its head, in order.
std::vector<NodeIdx> FreeList(const Session& s) { return FreeListFront(s, kPoolSize); }

// A short-lived tree of the text, made and freed whole.
void MakeAndFreeTree(Session& s, const std::string& text) {
  const NodeIdx root = NewNode(s);
  s.Pool[root].Text = text;
  ParseTree(s, root);
  FreeChildren(s, root);
  FreeNode(s, root);
}

using PoolFootprintTest = SessionTest;

TEST_F(PoolFootprintTest, ReplayLeavesThePoolAsTheTreeDid) {
  Load("a+b*c");  // a tree that stays, so the free list does not start at node 2
  const NodePool start = s.Pool;
  PoolFootprint footprint;
  ASSERT_TRUE(RunWithFootprint(s, FreeListFront(s, 100), footprint,
                               [&] { MakeAndFreeTree(s, "(x+1)^2/(y-3)+sin(z)"); }));
  const std::vector<NodeIdx> after = FreeList(s);
  const std::int16_t most = s.Pool.MaxNodesInUse;
  EXPECT_GT(footprint.taken, 10);
  s.Pool = start;
  ASSERT_TRUE(ReplayFootprint(s, footprint));
  EXPECT_EQ(FreeList(s), after);
  EXPECT_EQ(s.Pool.MaxNodesInUse, most);
  EXPECT_EQ(s.Pool.NodesInUse, start.NodesInUse);
  // Replayed twice, it permutes twice, as two runs of the tree would.
  MakeAndFreeTree(s, "(x+1)^2/(y-3)+sin(z)");
  const std::vector<NodeIdx> twice = FreeList(s);
  s.Pool = start;
  ASSERT_TRUE(ReplayFootprint(s, footprint));
  ASSERT_TRUE(ReplayFootprint(s, footprint));
  EXPECT_EQ(FreeList(s), twice);
}

TEST_F(PoolFootprintTest, ReplayNeedsTheNodesTheTreeTook) {
  PoolFootprint footprint;
  ASSERT_TRUE(RunWithFootprint(s, FreeListFront(s, 100), footprint,
                               [&] { MakeAndFreeTree(s, "a+b+c+d"); }));
  while (static_cast<int>(FreeList(s).size()) >= footprint.taken) NewNode(s);
  const std::vector<NodeIdx> before = FreeList(s);
  EXPECT_FALSE(ReplayFootprint(s, footprint));
  EXPECT_EQ(FreeList(s), before);
  EXPECT_THROW(MakeAndFreeTree(s, "a+b+c+d"), RunTimeError);
}

TEST_F(PoolFootprintTest, ATreeLargerThanTheFrontSeenIsNotRecorded) {
  PoolFootprint footprint;
  EXPECT_FALSE(
      RunWithFootprint(s, FreeListFront(s, 3), footprint, [&] { MakeAndFreeTree(s, "a+b+c+d"); }));
}

}  // namespace
}  // namespace tavimor

namespace tavimor {
namespace {

// Every field of every record, as one text.
std::string Records(const NodePool& pool) {
  std::string out;
  for (NodeIdx i = 1; i <= kPoolSize; ++i) {
    const ExprNode& r = pool[i];
    out += std::to_string(r.Prev) + "," + std::to_string(r.Next) + "," + std::to_string(r.Parent) +
           "," + std::to_string(r.FirstChild) + "," + r.Kind + r.Role + r.Text + "," +
           std::to_string(r.Value.index()) + "," +
           std::to_string(r.X + r.Y + r.Width + r.Height + r.Base + r.Scratch1 + r.Scratch2) + ";";
  }
  return out;
}

using PoolInitTest = SessionTest;

TEST_F(PoolInitTest, InitAfterUseLeavesEveryRecordAsInAFreshPool) {
  const std::string fresh = Records(NodePool{});
  Load("(x+1)^2/(y-3)+sin(z)");
  const NodeIdx a = NewNode(s);
  s.Pool[a].Value = 2.5;
  s.Pool[a].X = 3.0f;
  FreeNode(s, a);
  PoolFootprint footprint;
  ASSERT_TRUE(RunWithFootprint(s, FreeListFront(s, 100), footprint,
                               [&] { MakeAndFreeTree(s, "a*b*c*d*e*f*g*h"); }));
  ASSERT_TRUE(ReplayFootprint(s, footprint));
  InitNodePool(s);
  EXPECT_EQ(Records(s.Pool), fresh);
  // A pool that went up to its last record, copied and swapped, is reset whole too.
  while (s.Pool.NodesInUse < kPoolSize - 1) s.Pool[NewNode(s)].Text = "t";
  NodePool copy = s.Pool;
  NodePool spare;
  copy.Swap(spare);
  spare.Init();
  EXPECT_EQ(Records(spare), fresh);
}

}  // namespace
}  // namespace tavimor
