// Tests of the questions asked of texts and nodes.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/node_queries.h"
#include "core/parse.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using Predicates = SessionTest;

TEST_F(Predicates, NeedsBracketsForNegativeNumbersProductsAndSums) {
  EXPECT_TRUE(NeedsBrackets(s, "-3"));
  EXPECT_FALSE(NeedsBrackets(s, "3"));
  EXPECT_FALSE(NeedsBrackets(s, "x"));
  EXPECT_FALSE(NeedsBrackets(s, "x^2"));
  EXPECT_TRUE(NeedsBrackets(s, "2*x"));
  EXPECT_TRUE(NeedsBrackets(s, "a+b"));
  EXPECT_TRUE(NeedsBrackets(s, "-x"));
  EXPECT_FALSE(NeedsBrackets(s, "(a+b)"));
}

TEST_F(Predicates, CountTermsOfABracketIsOne) {
  EXPECT_EQ(CountTerms(s, "(a+b)"), 1);
  EXPECT_EQ(CountTerms(s, "a+b-c"), 3);
  EXPECT_EQ(CountTerms(s, "2*x"), 1);
}

TEST_F(Predicates, FractionKindOfSimpleFractionsAndTheirSum) {
  EXPECT_EQ(FractionKind(s, Load("1/2")), 1);
  EXPECT_EQ(FractionKind(s, Load("1/2+1/3")), 2);
  EXPECT_EQ(FractionKind(s, Load("x/2")), 0);
  EXPECT_EQ(FractionKind(s, Load("-1/2-3/4")), 2);
  EXPECT_EQ(FractionKind(s, Load("1/2+1/3+1/4")), 0);
  EXPECT_EQ(FractionKind(s, Load("(-1)/2")), 1);
  EXPECT_EQ(FractionKind(s, Load("5")), 0);
}

TEST_F(Predicates, ReciprocalIsOneOverDenominatorsOnly) {
  EXPECT_TRUE(IsReciprocalText(s, "1/x/y"));
  EXPECT_FALSE(IsReciprocalText(s, "2/x"));
  EXPECT_FALSE(IsReciprocalText(s, "1/x*y"));
  EXPECT_FALSE(IsReciprocalText(s, "1"));
}

TEST_F(Predicates, SumsAndTheirTermsReadOffTheTextAreThoseOfTheTree) {
  // Both are told without a tree where they can be: the answer (or the error) is the tree's.
  const std::vector<std::string> pieces = {"x", "2", "-", "+",    "*",    "/",   "^", "(",
                                           ")", "[", "]", "1E-5", "sin(", "3.5", "y", "2^-x"};
  std::mt19937 random(31);
  int sums = 0;
  for (int i = 0; i < 4000; ++i) {
    std::string text;
    for (int k = 1 + static_cast<int>(random() % 9); k > 0; --k) {
      text += pieces[random() % pieces.size()];
    }
    auto from_tree = [&](auto&& question) -> std::string {
      try {
        const TempTree t(s, text, TempTree::Depth::OneLevel);
        return question(t.Root()) ? "yes" : "no";
      } catch (const RunTimeError& e) {
        return e.what();
      }
    };
    auto told = [&](auto&& question) -> std::string {
      try {
        return question() ? "yes" : "no";
      } catch (const RunTimeError& e) {
        return e.what();
      }
    };
    // Whether a text is a sum is read off its top level alone: where the tree finds it no sum
    // and refuses it further down (its brackets, its factors), the answer is simply no.
    const std::string sum = told([&] { return IsSumText(s, text); });
    const std::string sum_of_tree = from_tree([&](NodeIdx root) {
      const ExprNode& node = s.Pool[root];
      return node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
             IsSumRole(s.Pool[node.FirstChild].Role);
    });
    if (sum != sum_of_tree) {
      EXPECT_EQ(sum, "no") << text << ": " << sum_of_tree;
    }
    EXPECT_EQ(told([&] { return HasDenominatorText(s, text); }), from_tree([&](NodeIdx root) {
                const ExprNode& node = s.Pool[root];
                if (node.Kind != kKindSumOrProduct) return false;
                for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
                  if (s.Pool[c].Role == kRoleDenominator) return true;
                }
                return false;
              }))
        << text;
    sums += sum == "yes" ? 1 : 0;
    // The terms of a sum read off the text are the tree's children, sign for sign.
    if (sum == "yes") {
      const std::vector<TopLevelTerm> terms = TopLevelTerms(s, text);
      const TempTree t(s, text, TempTree::Depth::OneLevel);
      std::size_t k = 0;
      for (NodeIdx c = t[t.Root()].FirstChild; c != kNoNode; c = t[c].Next, ++k) {
        ASSERT_LT(k, terms.size()) << text;
        EXPECT_EQ(terms[k].role, t[c].Role) << text;
        EXPECT_EQ(terms[k].text, t[c].Text) << text;
      }
      EXPECT_EQ(k, terms.size()) << text;
    }
  }
  EXPECT_GT(sums, 500);
}

TEST_F(Predicates, ShapeOfTheRoot) {
  EXPECT_TRUE(IsProductText(s, "2*x"));
  EXPECT_FALSE(IsProductText(s, "2+x"));
  EXPECT_TRUE(IsSumText(s, "2+x"));
  EXPECT_TRUE(IsSumText(s, "+a+b"));
  EXPECT_FALSE(IsSumText(s, "(2+x)"));
  EXPECT_TRUE(IsPowerText(s, "x^3"));
  EXPECT_FALSE(IsPowerText(s, "2x^3"));
  EXPECT_TRUE(IsSquareText(s, "(a+b)^2"));
  EXPECT_FALSE(IsSquareText(s, "a^3"));
  EXPECT_TRUE(HasDenominatorText(s, "x/y"));
  EXPECT_FALSE(HasDenominatorText(s, "x*y"));
  EXPECT_FALSE(HasDenominatorText(s, "x/y+1"));
}

TEST_F(Predicates, AnyTermHasDenominator) {
  EXPECT_TRUE(AnyTermHasDenominator(s, "x+1/y"));
  EXPECT_FALSE(AnyTermHasDenominator(s, "x+y"));
  EXPECT_FALSE(AnyTermHasDenominator(s, "1/y"));
}

TEST_F(Predicates, NumericFractionPartsOfIntegersOnly) {
  std::string top;
  std::string bottom;
  EXPECT_TRUE(NumericFractionParts(s, "3/4", top, bottom));
  EXPECT_EQ(top, "3");
  EXPECT_EQ(bottom, "4");
  EXPECT_TRUE(NumericFractionParts(s, "(-3)/4", top, bottom));
  EXPECT_EQ(top, "-3");
  EXPECT_FALSE(NumericFractionParts(s, "x/4", top, bottom));
  EXPECT_FALSE(NumericFractionParts(s, "1.5/4", top, bottom));
  EXPECT_FALSE(NumericFractionParts(s, "1/2/3", top, bottom));
}

TEST_F(Predicates, SumSignClass) {
  EXPECT_EQ(SumSignClass(s, "1+2+3"), 1);
  EXPECT_EQ(SumSignClass(s, "-1-2"), 2);
  EXPECT_EQ(SumSignClass(s, "1-2"), 3);
  EXPECT_EQ(SumSignClass(s, "1+x"), 4);
}

TEST_F(Predicates, CoefficientClass) {
  EXPECT_EQ(CoefficientClass(s, "1-1+1"), 1);
  EXPECT_EQ(CoefficientClass(s, "2-1"), 2);
  EXPECT_EQ(CoefficientClass(s, "3+1"), 3);
  EXPECT_EQ(CoefficientClass(s, "1.5+1"), 3);
}

TEST_F(Predicates, CountOccurrencesCountsEveryNode) {
  EXPECT_EQ(CountOccurrences(s, "x^2+2*x+1", "x"), 2);
  EXPECT_EQ(CountOccurrences(s, "x", "x"), 1);
  EXPECT_EQ(CountOccurrences(s, "sin(x)+sin(x)", "sin(x)"), 2);
}

TEST_F(Predicates, WrapDepthMeasuresHowDeepTheUnknownSits) {
  EXPECT_EQ(WrapDepth(s, "x", "x"), 0);
  EXPECT_EQ(WrapDepth(s, "x+x", "x"), -1);
  EXPECT_EQ(WrapDepth(s, "y", "x"), -1);
  EXPECT_EQ(WrapDepth(s, "2*x", "x"), 1);
  EXPECT_EQ(WrapDepth(s, "2*x+3", "x"), 2);
  EXPECT_EQ(WrapDepth(s, "sin(x)", "x"), 1);
  EXPECT_EQ(WrapDepth(s, "x^2", "x"), 1);
  EXPECT_EQ(WrapDepth(s, "1/x", "x"), 1);
  EXPECT_EQ(WrapDepth(s, "3-x", "x"), 2);
}

TEST_F(Predicates, EveryPredicateLeavesNodesInUseAsItWas) {
  const std::vector<std::string> texts = {"x^2+2*x+1",  "(a+b)/c", "-3",     "1/x/y",
                                          "sin(x+1)^2", "2E3",     "",       "+a+b",
                                          "(x)",        "1/2+1/3", "[x+1]*2"};
  std::string a;
  std::string b;
  const std::vector<std::function<void(const std::string&)>> predicates = {
      [&](const std::string& t) { IsProductText(s, t); },
      [&](const std::string& t) { IsPowerText(s, t); },
      [&](const std::string& t) { IsSumText(s, t); },
      [&](const std::string& t) { IsSquareText(s, t); },
      [&](const std::string& t) { HasDenominatorText(s, t); },
      [&](const std::string& t) { IsReciprocalText(s, t); },
      [&](const std::string& t) { NeedsBrackets(s, t); },
      [&](const std::string& t) { AnyTermHasDenominator(s, t); },
      [&](const std::string& t) { NumericFractionParts(s, t, a, b); },
      [&](const std::string& t) { SumSignClass(s, t); },
      [&](const std::string& t) { CoefficientClass(s, t); },
      [&](const std::string& t) { CountTerms(s, t); },
      [&](const std::string& t) { CountOccurrences(s, t, "x"); },
      [&](const std::string& t) { WrapDepth(s, t, "x"); },
      [&](const std::string& t) { ContainsImagUnit(s, t); },
  };
  NewNode(s);
  const auto before = s.Pool.NodesInUse;
  for (const auto& predicate : predicates) {
    for (const std::string& text : texts) {
      predicate(text);
      EXPECT_EQ(s.Pool.NodesInUse, before) << text;
    }
  }
}

TEST_F(Predicates, PredicateOnAFullPoolRaisesAndGivesBackItsNodes) {
  while (s.Pool.NodesInUse < kPoolSize - 3) NewNode(s);
  const auto before = s.Pool.NodesInUse;
  EXPECT_THROW(IsSquareText(s, "a*b*c*d"), RunTimeError);
  EXPECT_EQ(s.Pool.NodesInUse, before);
  // A sum is told without a tree.
  EXPECT_TRUE(IsSumText(s, "a+b+c+d"));
  EXPECT_EQ(s.Pool.NodesInUse, before);
}

TEST_F(Predicates, IsChildOfAndTopChildBelow) {
  const NodeIdx root = Load("a+b*c");
  const NodeIdx product = Child(root, 2);
  const NodeIdx c = Child(product, 2);
  EXPECT_TRUE(IsChildOf(s, product, root));
  EXPECT_FALSE(IsChildOf(s, c, root));
  EXPECT_EQ(TopChildBelow(s, c, root), product);
  EXPECT_EQ(TopChildBelow(s, product, root), product);
  EXPECT_EQ(TopChildBelow(s, root, root), 0);
}

TEST_F(Predicates, FractionClassByKind) {
  EXPECT_EQ(FractionClass(s, Load("x/y")), 1);
  const NodeIdx bracket = Child(Load("2(x/y)"), 2);
  EXPECT_EQ(FractionClass(s, bracket), 2);
  EXPECT_EQ(FractionClass(s, Load("sin(x/y)")), 3);
  const NodeIdx hidden = Child(Load("(a/b)^2"), 2);
  EXPECT_EQ(N(hidden).Kind, '(');
  const NodeIdx exponent = Child(Load("x^(a/b)"), 1);
  EXPECT_EQ(FractionClass(s, exponent), 4);
  EXPECT_EQ(FractionClass(s, Load("x*y")), 0);
  EXPECT_EQ(FractionClass(s, Load("x")), 0);
}

TEST_F(Predicates, FindOccurrencesInPostOrder) {
  const NodeIdx root = Load("x*(x+1)");
  const std::vector<NodeIdx> found = FindOccurrences(s, "x", root);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0], Child(root, 1));
  EXPECT_EQ(found[1], Child(Child(root, 2), 1));
  EXPECT_EQ(FindOccurrences(s, "x*(x+1)", root), std::vector<NodeIdx>{root});
}

TEST_F(Predicates, IntegerPowerOfASum) {
  std::string power;
  int terms = 0;
  EXPECT_TRUE(IsIntegerPowerOfSum(s, Load("(a+b-c)^3"), power, terms));
  EXPECT_EQ(power, "3");
  EXPECT_EQ(terms, 3);
  EXPECT_FALSE(IsIntegerPowerOfSum(s, Load("(a+b)^x"), power, terms));
  EXPECT_FALSE(IsIntegerPowerOfSum(s, Load("(a*b)^2"), power, terms));
  EXPECT_FALSE(IsIntegerPowerOfSum(s, Load("(a+b)^(-2)"), power, terms));
}

TEST_F(Predicates, SquaredFactor) {
  const NodeIdx root = Load("3*x^2");
  const NodeIdx power = Child(root, 2);
  const NodeIdx base = Child(power, 2);
  EXPECT_TRUE(IsSquaredFactorOf(s, base, root));
  const NodeIdx cube = Load("3*x^3");
  EXPECT_FALSE(IsSquaredFactorOf(s, Child(Child(cube, 2), 2), cube));
}

TEST_F(Predicates, ImaginaryUnitFollowsTheComplexForm) {
  EXPECT_EQ(ImagUnitText(s), "sqrt(-1)");
  s.ComplexForm = 1;
  EXPECT_EQ(ImagUnitText(s), "i");
  EXPECT_TRUE(ContainsImagUnit(s, "2+3*i"));
  EXPECT_FALSE(ContainsImagUnit(s, "2+3*j"));
  s.ComplexForm = 2;
  EXPECT_EQ(ImagUnitText(s), "j");
  s.ComplexForm = 3;
  EXPECT_EQ(ImagUnitText(s), "sqrt(-1)");
  EXPECT_TRUE(ContainsImagUnit(s, "1+sqrt(-1)"));
}

TEST_F(Predicates, CountAndCollectImaginaryUnits) {
  s.ComplexForm = 1;
  const NodeIdx root = Load("i*x+2*i-sqrt(-1)");
  EXPECT_EQ(CountImagUnits(s, root), 3);
  EXPECT_EQ(CollectImagUnits(s, root), 3);
  EXPECT_EQ(s.ImagNodes.size(), 3u);
  const NodeIdx unit = Load("i");
  EXPECT_EQ(CollectImagUnits(s, unit), 1);
  EXPECT_EQ(s.ImagNodes, std::vector<NodeIdx>{unit});
}

}  // namespace
}  // namespace tavimor
