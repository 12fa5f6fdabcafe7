// Tests of the trees kept for an item: a text read again is copied into place as the parser would
// have built it, node for node, and only under what its reading depends on.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "core/node_pool.h"
#include "core/parse.h"
#include "core/parse_cache.h"
#include "core/temp_tree.h"
#include "core/tree_walk.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ParseCacheTest : public SessionTest {
 protected:
  // The tree below n as text: each node's kind, role and text, its children in brackets.
  std::string Shape(NodeIdx n) {
    const ExprNode& node = s.Pool[n];
    std::string out = std::string(1, node.Kind) + node.Role + node.Text;
    if (node.FirstChild == kNoNode) return out;
    out += "{";
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      if (c != node.FirstChild && s.Pool[c].Parent != kNoNode) out += "!parent";
      out += Shape(c) + ";";
    }
    return out + "}";
  }

  // The text parsed directly, its shape and the nodes it took.
  std::string Parsed(const std::string& text, int& taken) {
    const NodeIdx root = NewNode(s);
    s.Pool[root].Text = text;
    const int before = s.Pool.NodesInUse;
    ParseTree(s, root);
    taken = s.Pool.NodesInUse - before;
    const std::string shape = Shape(root);
    FreeChildren(s, root);
    FreeNode(s, root);
    return shape;
  }

  // The same through the kept trees (`taken` counts the root too).
  std::string Kept(const std::string& text, int& taken) {
    const int before = s.Pool.NodesInUse;
    const TempTree tree(s, text, TempTree::Depth::Whole);
    taken = s.Pool.NodesInUse - before;
    return Shape(tree.Root());
  }
};

TEST_F(ParseCacheTest, ATextReadAgainIsCopiedAsTheParserBuildsIt) {
  std::vector<std::string> texts = {"x^2-5*x+6",      "[x+1]*(x-1)", "2*sin(x)^2-sin(x)",
                                    "-2^2*x/(x+1)/3", "((x))",       "sqrt(x+3)-(x-3)",
                                    "e^(2*x)"};
  std::ifstream corpus(std::string(TAVIMOR_BENCH_DIR) + "/corpus/simplify.txt");
  for (std::string line; std::getline(corpus, line);) {
    if (!line.empty()) texts.push_back(line);
  }
  for (const std::string& text : texts) {
    int parsed_nodes = 0;
    int first_nodes = 0;
    int copied_nodes = 0;
    const std::string parsed = Parsed(text, parsed_nodes);
    EXPECT_EQ(Kept(text, first_nodes), parsed) << text;   // read and kept
    EXPECT_EQ(Kept(text, copied_nodes), parsed) << text;  // copied
    EXPECT_EQ(first_nodes, parsed_nodes + 1) << text;     // the root is taken before the parse
    EXPECT_EQ(copied_nodes, parsed_nodes + 1) << text;
  }
  EXPECT_FALSE(s.ParsedTexts.empty());
}

TEST_F(ParseCacheTest, ACopiedTreeHoldsTheNodesAParsedOneWould) {
  // The same nodes from the pool, in the same places of the tree, and the pool left the same.
  for (const std::string text : {"x^2-5*x+6", "2*sin(x)^2-sin(x)", "(a+b)*(c-d)/(e+f)^2"}) {
    int taken = 0;
    Kept(text, taken);  // read and kept
    const NodePool before = s.Pool;
    std::vector<NodeIdx> parsed_nodes;
    {
      const NodeIdx root = NewNode(s);
      s.Pool[root].Text = text;
      ParseTree(s, root);
      ForEachNodeParentFirst(s, root, [&](NodeIdx n) { parsed_nodes.push_back(n); });
      FreeChildren(s, root);
      FreeNode(s, root);
    }
    const std::vector<NodeIdx> parsed_free = FreeListFront(s, kPoolSize);
    const std::int16_t parsed_most = s.Pool.MaxNodesInUse;
    s.Pool = before;
    std::vector<NodeIdx> copied_nodes;
    {
      const TempTree tree(s, text, TempTree::Depth::Whole);
      ForEachNodeParentFirst(s, tree.Root(), [&](NodeIdx n) { copied_nodes.push_back(n); });
    }
    EXPECT_EQ(copied_nodes, parsed_nodes) << text;
    EXPECT_EQ(FreeListFront(s, kPoolSize), parsed_free) << text;
    EXPECT_EQ(s.Pool.MaxNodesInUse, parsed_most) << text;
  }
}

TEST_F(ParseCacheTest, ADifferentDecimalPointReadsTheTextAgain) {
  int taken = 0;
  const std::string with_point = Kept("1,5+x", taken);
  s.DecimalPoint = ",";
  const std::string with_comma = Kept("1,5+x", taken);
  EXPECT_NE(with_point, with_comma);
  EXPECT_EQ(with_comma, Parsed("1,5+x", taken));
}

TEST_F(ParseCacheTest, LeavesAndFailuresAreNotKept) {
  int taken = 0;
  Kept("x", taken);
  Kept("12", taken);
  EXPECT_TRUE(s.ParsedTexts.empty());
  EXPECT_ANY_THROW(Kept("(x+1", taken));
  EXPECT_TRUE(s.ParsedTexts.empty());
}

}  // namespace
}  // namespace tavimor
