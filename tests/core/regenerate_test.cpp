// Tests of regeneration: the canonical text rebuilt from trees edited by hand.
#include <gtest/gtest.h>

#include "core/parse.h"
#include "core/regenerate.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class RegenerateTest : public SessionTest {
 protected:
  // A node with Kind, Role and Text, appended under `parent` (0: a root).
  NodeIdx Make(NodeIdx parent, char role, char kind, const std::string& text) {
    const NodeIdx n = NewNode(s);
    s.Pool[n].Role = role;
    s.Pool[n].Kind = kind;
    s.Pool[n].Text = text;
    if (parent != kNoNode) AppendChild(s, parent, n);
    return n;
  }
  std::string Regenerated(NodeIdx root) {
    RegenerateAll(s, root);
    return N(root).Text;
  }
};

TEST_F(RegenerateTest, LeadingMinusRoleWritesTheSign) {
  const NodeIdx sum = Make(0, ' ', ' ', "stale");
  Make(sum, '-', 'V', "x");
  Make(sum, '+', 'V', "y");
  EXPECT_EQ(Regenerated(sum), "-x+y");
}

TEST_F(RegenerateTest, RoleOneWritesALeadingPlus) {
  const NodeIdx sum = Make(0, ' ', ' ', "");
  Make(sum, '1', 'V', "x");
  Make(sum, '+', 'V', "y");
  EXPECT_EQ(Regenerated(sum), "+x+y");
}

TEST_F(RegenerateTest, PseudoMinusSitsBeforeTheNextFactor) {
  const NodeIdx product = Make(0, ' ', ' ', "");
  Make(product, 'N', 'N', "-");
  Make(product, 'N', 'V', "x");
  Make(product, 'N', 'V', "y");
  EXPECT_EQ(Regenerated(product), "-x*y");
}

TEST_F(RegenerateTest, Fractions) {
  const NodeIdx a = Make(0, ' ', ' ', "");
  Make(a, 'N', 'N', "2");
  Make(a, 'D', 'V', "x");
  EXPECT_EQ(Regenerated(a), "2/x");
  const NodeIdx b = Make(0, ' ', ' ', "");
  Make(b, 'N', 'N', "1");
  Make(b, 'D', 'V', "x");
  Make(b, 'D', 'V', "y");
  EXPECT_EQ(Regenerated(b), "1/x/y");
}

TEST_F(RegenerateTest, PowerOfBracketsReadsBaseCaretExponent) {
  const NodeIdx power = Make(0, ' ', 'P', "");
  const NodeIdx exponent = Make(power, 'E', '[', "");
  Make(exponent, '+', 'V', "c");
  Make(exponent, '+', 'V', "d");
  const NodeIdx base = Make(power, 'B', '(', "");
  Make(base, '+', 'V', "a");
  Make(base, '+', 'V', "b");
  EXPECT_EQ(Regenerated(power), "(a+b)^(c+d)");
}

TEST_F(RegenerateTest, FunctionKeepsItsNameFromTheOldText) {
  const NodeIdx function = Make(0, ' ', 'F', "sin(stale)");
  Make(function, '+', 'V', "x");
  Make(function, '+', 'N', "1");
  EXPECT_EQ(Regenerated(function), "sin(x+1)");
}

TEST_F(RegenerateTest, BracketWithOneChild) {
  const NodeIdx bracket = Make(0, ' ', '(', "");
  Make(bracket, ' ', 'V', "z");
  EXPECT_EQ(Regenerated(bracket), "(z)");
}

TEST_F(RegenerateTest, NegativeNumberUnderMinusReadsDoubleMinus) {
  const NodeIdx sum = Make(0, ' ', ' ', "");
  Make(sum, '+', 'V', "x");
  Make(sum, '-', 'N', "-2");
  EXPECT_EQ(Regenerated(sum), "x--2");
}

TEST_F(RegenerateTest, LeafIsLeftAsItIs) {
  const NodeIdx leaf = Make(0, ' ', 'V', "q");
  EXPECT_EQ(Regenerated(leaf), "q");
}

TEST_F(RegenerateTest, ChangedRoleReachesEveryAncestor) {
  const NodeIdx root = Load("a*(b+c)^2-d");
  // The inner sum b+c becomes b-c.
  const NodeIdx product = Child(root, 1);
  const NodeIdx power = Child(product, 2);
  const NodeIdx base = Child(power, 2);
  s.Pool[Child(base, 2)].Role = '-';
  EXPECT_EQ(Regenerated(root), "a*(b-c)^2-d");
}

TEST_F(RegenerateTest, BrokenRoleShowsErrorAndACriticalMessage) {
  const NodeIdx sum = Make(0, ' ', ' ', "");
  Make(sum, 'Q', 'V', "x");
  EXPECT_EQ(Regenerated(sum), "Error");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error in RegenerateOne");
  EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Critical);
}

TEST_F(RegenerateTest, CanonicalTextHasStarsAndNoBlanks) {
  EXPECT_EQ(N(Load("2xy")).Text, "2*x*y");
  EXPECT_EQ(N(Load("[a]b")).Text, "(a)*b");
  EXPECT_EQ(N(Load("2(x+1)^2/(3y)")).Text, "2*(x+1)^2/(3*y)");
}

TEST_F(RegenerateTest, DeepTreeRegeneratesWithoutRecursion) {
  std::string text = "x";
  for (int i = 0; i < 300; ++i) text = "-(" + text + ")";
  const NodeIdx root = Load(text);
  EXPECT_EQ(N(root).Text, text);
}

}  // namespace
}  // namespace tavimor
