// Tests of the parser: the shapes of the trees it makes from text.
#include <gtest/gtest.h>

#include "core/brackets.h"
#include "core/parse.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ParseTest : public SessionTest {
 protected:
  // The Role, Kind and Text of a node, as "RK:text".
  std::string Codes(NodeIdx n) { return std::string{N(n).Role, N(n).Kind, ':'} + N(n).Text; }
  // The codes of all children of a node, joined by " | ".
  std::string ChildCodes(NodeIdx n) {
    std::string out;
    for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
      if (!out.empty()) out += " | ";
      out += Codes(c);
    }
    return out;
  }
  NodeIdx Parsed(const std::string& text) {
    const NodeIdx n = NewNode(s);
    s.Pool[n].Text = text;
    ParseTree(s, n);
    return n;
  }
};

TEST_F(ParseTest, NumberWithExponentIsOneLeaf) {
  const NodeIdx n = Parsed("2E3");
  EXPECT_EQ(Codes(n), " N:2E3");
  EXPECT_EQ(N(n).FirstChild, 0);
}

TEST_F(ParseTest, BareEAfterANumberIsTheLetterE) {
  EXPECT_EQ(ChildCodes(Parsed("2E")), "NN:2 | NV:E");
}

TEST_F(ParseTest, SignAfterBareEStartsATerm) {
  const NodeIdx n = Parsed("2E+x");
  EXPECT_EQ(ChildCodes(n), "+ :2E | +V:x");
  EXPECT_EQ(ChildCodes(Child(n, 1)), "NN:2 | NV:E");
}

TEST_F(ParseTest, MinusBeforeAPowerStaysOutsideIt) {
  const NodeIdx n = Parsed("-2^2");
  EXPECT_EQ(ChildCodes(n), "NN:- | NP:2^2");
  EXPECT_EQ(ChildCodes(Child(n, 2)), "EN:2 | BN:2");
}

TEST_F(ParseTest, BracketedNegativeBaseIsAPower) {
  const NodeIdx n = Parsed("(-2)^2");
  EXPECT_EQ(N(n).Kind, 'P');
  EXPECT_EQ(ChildCodes(n), "EN:2 | B(:(-2)");
  EXPECT_EQ(ChildCodes(Child(n, 2)), " N:-2");
}

TEST_F(ParseTest, NegativeNumberTimesLetter) {
  EXPECT_EQ(ChildCodes(Parsed("-2x")), "NN:-2 | NV:x");
}

TEST_F(ParseTest, LoneMinusIsAPseudoNumberFactor) {
  EXPECT_EQ(ChildCodes(Parsed("-x")), "NN:- | NV:x");
}

TEST_F(ParseTest, LonePlusIsAPseudoNumberFactor) {
  EXPECT_EQ(ChildCodes(Parsed("+x")), "NN:+ | NV:x");
}

TEST_F(ParseTest, TypedLeadingPlusHasRoleOne) {
  EXPECT_EQ(ChildCodes(Parsed("+a+b")), "1V:a | +V:b");
}

TEST_F(ParseTest, LeadingMinusOfASumIsARole) {
  EXPECT_EQ(ChildCodes(Parsed("-a+b")), "-V:a | +V:b");
}

TEST_F(ParseTest, BracketedExponentIsHidden) {
  const NodeIdx n = Parsed("x^(a+b)");
  const NodeIdx exponent = Child(n, 1);
  EXPECT_EQ(Codes(exponent), "E[:(a+b)");
  EXPECT_EQ(ChildCodes(exponent), "+V:a | +V:b");
}

TEST_F(ParseTest, SoleNumeratorBracketIsHidden) {
  EXPECT_EQ(ChildCodes(Parsed("(a+b)/c")), "N[:(a+b) | DV:c");
}

TEST_F(ParseTest, SoleNumeratorHoldingAFractionKeepsItsBracket) {
  EXPECT_EQ(ChildCodes(Parsed("(a/b)/c")), "N(:(a/b) | DV:c");
}

TEST_F(ParseTest, NumeratorBesideAnotherFactorKeepsItsBracket) {
  EXPECT_EQ(ChildCodes(Parsed("2(a+b)/c")), "NN:2 | N(:(a+b) | DV:c");
}

TEST_F(ParseTest, SoleDenominatorBracketIsHidden) {
  EXPECT_EQ(ChildCodes(Parsed("x/(a+b)")), "NV:x | D[:(a+b)");
}

TEST_F(ParseTest, SquareBracketsAreHiddenAndReadRound) {
  const NodeIdx n = Parsed("[x+1]*2");
  EXPECT_EQ(ChildCodes(n), "N[:(x+1) | NN:2");
  EXPECT_EQ(ChildCodes(Child(n, 1)), "+V:x | +N:1");
}

TEST_F(ParseTest, AllOuterBracketsGoAtOnce) {
  const NodeIdx n = Parsed("((x))");
  EXPECT_EQ(Codes(n), " (:(x)");
  EXPECT_EQ(ChildCodes(n), " V:x");
}

TEST_F(ParseTest, ImplicitProductsMakeEachLetterAFactor) {
  EXPECT_EQ(ChildCodes(Parsed("2xy")), "NN:2 | NV:x | NV:y");
  EXPECT_EQ(ChildCodes(Parsed("(a)(b)")), "N(:(a) | N(:(b)");
  EXPECT_EQ(ChildCodes(Parsed("xsin(y)")), "NV:x | NF:sin(y)");
}

TEST_F(ParseTest, ProductFactorsAreSiblingsInWrittenOrder) {
  EXPECT_EQ(ChildCodes(Parsed("2*x/y")), "NN:2 | NV:x | DV:y");
  EXPECT_EQ(ChildCodes(Parsed("a/b/c")), "NV:a | DV:b | DV:c");
}

TEST_F(ParseTest, PowersGroupFromTheLeft) {
  const NodeIdx n = Parsed("a^b^c");
  EXPECT_EQ(ChildCodes(n), "EV:c | BP:a^b");
  EXPECT_EQ(ChildCodes(Child(n, 2)), "EV:b | BV:a");
}

TEST_F(ParseTest, PowerBindsTighterThanAFactor) {
  EXPECT_EQ(ChildCodes(Parsed("2x^2")), "NN:2 | NP:x^2");
  EXPECT_EQ(ChildCodes(Parsed("x/y^2")), "NV:x | DP:y^2");
}

TEST_F(ParseTest, FunctionArgumentLiesDirectlyUnderTheFunction) {
  const NodeIdx sum = Parsed("sin(x+1)");
  EXPECT_EQ(Codes(sum), " F:sin(x+1)");
  EXPECT_EQ(ChildCodes(sum), "+V:x | +N:1");
  EXPECT_EQ(ChildCodes(Parsed("sin(x)")), " V:x");
  EXPECT_EQ(ChildCodes(Parsed("sqrt((x))")), " V:x");
  EXPECT_EQ(ChildCodes(Parsed("ln(x^2)")), " P:x^2");
}

TEST_F(ParseTest, PowerOfAFunction) {
  const NodeIdx n = Parsed("sin(x)^2");
  EXPECT_EQ(ChildCodes(n), "EN:2 | BF:sin(x)");
  EXPECT_EQ(ChildCodes(Child(n, 2)), " V:x");
}

TEST_F(ParseTest, InverseFunctionIsOneName) {
  EXPECT_EQ(Codes(Parsed("arcsin(x)")), " F:arcsin(x)");
}

TEST_F(ParseTest, NumberExponentSignStaysInTheNumber) {
  EXPECT_EQ(ChildCodes(Parsed("x-1E-5")), "+V:x | -N:1E-5");
}

TEST_F(ParseTest, ParseOneParsesOneLevelOnly) {
  const NodeIdx n = NewNode(s);
  s.Pool[n].Text = "(a+b)*c";
  ParseOne(s, n);
  const NodeIdx bracket = Child(n, 1);
  EXPECT_EQ(Codes(bracket), "N :(a+b)");
  EXPECT_EQ(N(bracket).FirstChild, 0);
}

TEST_F(ParseTest, ParseOneLeavesAParsedNodeAlone) {
  const NodeIdx n = Parsed("a+b");
  const auto before = s.Pool.NodesInUse;
  ParseOne(s, n);
  EXPECT_EQ(s.Pool.NodesInUse, before);
}

TEST_F(ParseTest, FiftyTermsParseAndTheFiftyFirstIsARunTimeError) {
  std::string fifty = "x1";
  for (int i = 2; i <= 50; ++i) fifty += "+x";
  EXPECT_NO_THROW(Parsed(fifty));
  std::string fifty_one = fifty + "+x";
  EXPECT_THROW(Parsed(fifty_one), RunTimeError);
}

TEST_F(ParseTest, FiftyFactorEntriesBoundTheFactorPass) {
  std::string factors;
  for (int i = 0; i < 25; ++i) factors += "x^";
  factors += "2";  // 51 entries before the powers merge
  EXPECT_THROW(Parsed(factors), RunTimeError);
}

TEST_F(ParseTest, UnclosedBracketIsARunTimeErrorNotAHang) {
  EXPECT_THROW(Parsed("(x+1"), RunTimeError);
  EXPECT_THROW(Parsed("2(x"), RunTimeError);
}

TEST_F(ParseTest, UnclassifiableTextLeavesKindBlank) {
  const NodeIdx n = Parsed("!");
  EXPECT_EQ(N(n).Kind, ' ');
  EXPECT_EQ(N(n).FirstChild, 0);
}

TEST_F(ParseTest, SplitPowerTakesTheLastCaret) {
  std::string base;
  std::string exponent;
  SplitPower(s, "a^b^c", base, exponent);
  EXPECT_EQ(base, "a^b");
  EXPECT_EQ(exponent, "c");
  SplitPower(s, "(a+b)^(c+d)", base, exponent);
  EXPECT_EQ(base, "(a+b)");
  EXPECT_EQ(exponent, "(c+d)");
  SplitPower(s, "2E-3^x", base, exponent);
  EXPECT_EQ(base, "2E-3");
  EXPECT_EQ(exponent, "x");
  SplitPower(s, "x", base, exponent);
  EXPECT_EQ(exponent, "");
}

TEST_F(ParseTest, IsSoleFactorCountsNumeratorsAndDenominatorsApart) {
  const NodeIdx n = Parsed("x/y/z");
  EXPECT_TRUE(IsSoleFactor(s, Child(n, 1)));
  EXPECT_FALSE(IsSoleFactor(s, Child(n, 2)));
  const NodeIdx m = Parsed("x*y/z");
  EXPECT_FALSE(IsSoleFactor(s, Child(m, 1)));
  EXPECT_TRUE(IsSoleFactor(s, Child(m, 3)));
  const NodeIdx sum = Parsed("a+b");
  EXPECT_FALSE(IsSoleFactor(s, Child(sum, 1)));
}

TEST(Brackets, FindCloseBracketCountsBothKindsAlike) {
  EXPECT_EQ(FindCloseBracket("(a[b)c]", 1), 7);
  EXPECT_EQ(FindCloseBracket("(a+b)", 1), 5);
  EXPECT_EQ(FindCloseBracket("((a)", 1), 0);
}

TEST(Brackets, NestingCountsBothKindsAlike) {
  EXPECT_EQ(BracketNesting("x+1"), 0);
  EXPECT_EQ(BracketNesting("sqrt((x+1)*2)"), 2);
  EXPECT_EQ(BracketNesting("(a)[b]"), 1);
  EXPECT_EQ(BracketNesting("([(x)])"), 3);
}

TEST(Brackets, StripBracketsRemovesOnlyEnclosingPairs) {
  EXPECT_EQ(StripBrackets("((x+1))"), "x+1");
  EXPECT_EQ(StripBrackets("(a)(b)"), "(a)(b)");
  EXPECT_EQ(StripBrackets("[(x)]"), "x");
  EXPECT_EQ(StripBrackets("x"), "x");
  // Deeper than the pairs peeled one at a time, and pairs that only look like one.
  EXPECT_EQ(StripBrackets("((((((x+1))))))"), "x+1");
  EXPECT_EQ(StripBrackets("(((((a)(b)))))"), "(a)(b)");
  EXPECT_EQ(StripBrackets("((((((a)))(b))))"), "(((a)))(b)");
  EXPECT_EQ(StripBrackets("()"), "");
}

TEST_F(ParseTest, FunctionEndFindsTheArgumentsBracket) {
  InitFunctionTable(s);
  EXPECT_EQ(FunctionEnd(s, "sin(x)+1", 1), 6);
  EXPECT_EQ(FunctionEnd(s, "arcsin(x)", 1), 9);
  EXPECT_EQ(FunctionEnd(s, "2sqrt(x+1)", 2), 10);
  EXPECT_EQ(FunctionEnd(s, "x+1", 1), 0);
  EXPECT_EQ(FunctionEnd(s, "sinx", 1), 0);
}

}  // namespace
}  // namespace tavimor
