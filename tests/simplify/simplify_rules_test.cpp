// Tests of the simplify loop and its rules for brackets, signs and sums.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/number_format.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "manipulate/reduce_fraction.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/collect_sum.h"
#include "simplify/simplify_driver.h"
#include "simplify/step_parts.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

using Simplify = SimplifyTest;

// The loop.

TEST_F(Simplify, LoneNumberRootIsTriedByPassNine) {
  EXPECT_EQ(Run("+2"), "2");
  EXPECT_TRUE(result);
  EXPECT_EQ(s.Message, "381#Simplify by dropping the unnecessary + sign.");
  EXPECT_EQ(Run("x"), "x");
  EXPECT_FALSE(result);
  EXPECT_EQ(level, kLevelNothing);
}

TEST_F(Simplify, OnlySilentRewritesReturnFalseAtLevelOne) {
  EXPECT_EQ(Run("x^(y)"), "x^y");
  EXPECT_FALSE(result);
  EXPECT_EQ(level, kLevelSilent);
}

TEST_F(Simplify, PureSortIsLevelTwo) {
  EXPECT_EQ(Run("1+x"), "x+1");
  EXPECT_TRUE(result);
  EXPECT_EQ(level, kLevelSort);
}

TEST_F(Simplify, RealStepIsLevelThree) {
  Run("x+x");
  EXPECT_EQ(level, kLevelStep);
}

TEST_F(Simplify, StepLevelsByMessage) {
  int l = 0;
  RaiseStepLevel("Skip message", l);
  EXPECT_EQ(l, 1);
  RaiseStepLevel("356#Sort factors.", l);
  EXPECT_EQ(l, 2);
  RaiseStepLevel("382#Sort terms.", l);
  EXPECT_EQ(l, 2);
  RaiseStepLevel("7#Anything", l);
  EXPECT_EQ(l, 3);
  RaiseStepLevel("Skip message", l);
  EXPECT_EQ(l, 3);
}

TEST_F(Simplify, RunsToAFixedPoint) {
  EXPECT_EQ(Run("x-(2-x)+(3)"), "2*x+1");
  NodeIdx root = Load("2*x+1");
  for (int pass = 1; pass <= 10; ++pass) {
    fired = ApplyPassToTree(s, pass, root);
    EXPECT_FALSE(fired) << pass;
  }
}

TEST_F(Simplify, AfterAFiringTheSearchStartsOver) {
  // Pass 3 opens the bracket; the search starts again and runs on to pass 4, which collects.
  NodeIdx root = Load("x-(2-x)");
  s.DetailNow = 0;
  int l = 0;
  SimplifyTree(s, root, l);
  EXPECT_EQ(N(root).Text, "2*x-2");
}

TEST_F(Simplify, ShowOneAtATimeShowsExactlyOneStepPerPress) {
  s.StreamingOutput = false;
  s.DetailNow = 1;
  NodeIdx root = Load("x-(2-x)");
  EXPECT_TRUE(SimplifyTree(s, root, level));
  EXPECT_EQ(N(root).Text, "x-2+x");
  EXPECT_EQ(frontend.Transcript(),
            "Simplify by distributing the - sign over the contents of  @(2-x)@ .\n\n\t@x-2+x@\n\n");
  EXPECT_TRUE(SimplifyTree(s, root, level));
  EXPECT_EQ(N(root).Text, "2*x-2");
  EXPECT_FALSE(SimplifyTree(s, root, level));
}

TEST_F(Simplify, SilentRewritesBeforeAShownStepAreNotAnnounced) {
  s.StreamingOutput = false;
  s.DetailNow = 1;
  NodeIdx root = Load("x^(y)+x^(y)");
  EXPECT_TRUE(SimplifyTree(s, root, level));
  EXPECT_EQ(N(root).Text, "2*x^y");
  const std::string transcript = frontend.Transcript();
  EXPECT_EQ(transcript.find("brackets"), std::string::npos);
  EXPECT_NE(transcript.find("combining like terms"), std::string::npos);
}

TEST_F(Simplify, ShowOnlyFinalResultWritesNoStep) {
  s.DetailNow = 0;
  NodeIdx root = Load("x+x+(y)");
  EXPECT_TRUE(SimplifyTree(s, root, level));
  EXPECT_EQ(frontend.Transcript(), "");
}

TEST_F(Simplify, EndlessRewritingEndsInTheRunTimeError) {
  s.RewriteCount = kRewriteLimit;
  NodeIdx root = Load("x+x");
  EXPECT_THROW(SimplifyTree(s, root, level), RunTimeError);
}

TEST_F(Simplify, DeepNestingWithLargeNumbersComesToItsEnd) {
  // sqrt(sqrt(...sqrt(x*a)*a...)*a), 80 deep: each square root halves the power of x and the
  // coefficient tends to a.
  const std::string a = "444444444444";
  std::string text = "x*" + a;
  for (int k = 0; k < 79; ++k) text = "sqrt(" + text + ")*" + a;
  text = "sqrt(" + text + ")";
  s.RewriteCount = 0;
  const std::string simplified = SimplifyText(s, text);
  const std::size_t times = simplified.find("*x^");
  ASSERT_NE(times, std::string::npos) << simplified.substr(0, 80);
  const double coefficient = ParseNumberText(simplified.substr(0, times), '.').value_or(0.0);
  const double power = ParseNumberText(simplified.substr(times + 3), '.').value_or(0.0);
  EXPECT_NEAR(coefficient / 444444444444.0, 1.0, 1e-12) << simplified;
  EXPECT_NEAR(power / std::ldexp(1.0, -80), 1.0, 1e-12) << simplified;
}

TEST_F(Simplify, WholeNumbersAreWrittenInTheGeneralForm) {
  // Whole numbers of up to 15 digits are written without going through the general format, in
  // exactly its text.
  for (const std::string point : {".", ","}) {
    s.DecimalPoint = point;
    for (const double v : {1e9, 1e9 + 1.0, 4444444444.0, 444444444444.0, 120000000000.0,
                           999999999999999.0, 123456789012345.0, 100000000000000.0, -7e12,
                           -98765432100.0, 1e15, 1e16, 2.5e9, 1234.0, -17.0}) {
      const std::string general = NormaliseNumberText(s, GeneralNumberFormat(v, s.Dp()));
      EXPECT_EQ(FormatValue(s, v), general.empty() ? GeneralNumberFormat(v, s.Dp()) : general) << v;
    }
  }
}

TEST_F(Simplify, FractionalNumbersAreWrittenInTheirNormalForm) {
  // Numbers with a fractional part, of every size, are written as the general form normalised,
  // whether or not the normalising is skipped for them.
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> mantissa(1.0, 10.0);
  for (const std::string point : {".", ","}) {
    s.DecimalPoint = point;
    for (int exponent = -16; exponent <= 16; ++exponent) {
      for (int i = 0; i < 200; ++i) {
        double v = mantissa(random) * std::pow(10.0, exponent);
        if (i % 2 == 1) v = -v;
        if (i % 7 == 0) v = std::nextafter(std::pow(10.0, exponent), 0.0);  // 9.99...9
        const std::string general = NormaliseNumberText(s, GeneralNumberFormat(v, s.Dp()));
        EXPECT_EQ(FormatValue(s, v), general.empty() ? GeneralNumberFormat(v, s.Dp()) : general)
            << v;
      }
    }
    for (const double v : {999999999.9999995, 999999999.99, 0.0001, 0.00012345, 1e-5, 0.5, -0.25,
                           123456.789, 1.0 / 3.0, 2.0 / 3.0, 1e9 - 0.5}) {
      const std::string general = NormaliseNumberText(s, GeneralNumberFormat(v, s.Dp()));
      EXPECT_EQ(FormatValue(s, v), general.empty() ? GeneralNumberFormat(v, s.Dp()) : general) << v;
    }
  }
}

TEST_F(Simplify, SimplifyTextIsSilentAndKeepsTheMessage) {
  s.Message = "12#Before";
  s.HelpNumber = 12;
  s.DetailNow = 1;
  bool changed = false;
  EXPECT_EQ(SimplifyText(s, "x+x", changed), "2*x");
  EXPECT_TRUE(changed);
  EXPECT_EQ(s.Message, "12#Before");
  EXPECT_EQ(s.HelpNumber, 12);
  EXPECT_EQ(s.DetailNow, 1);
  EXPECT_EQ(frontend.Transcript(), "");
  EXPECT_EQ(SimplifyText(s, "x", changed), "x");
  EXPECT_FALSE(changed);
}

TEST_F(Simplify, NumericPredicatesSimplifyTheirText) {
  EXPECT_TRUE(IsNumericText(s, "2+3"));
  EXPECT_FALSE(IsNumericText(s, "x+1"));
  EXPECT_TRUE(IsPositiveNumericText(s, "5-2"));
  EXPECT_TRUE(IsNegativeNumericText(s, "2-5"));
  EXPECT_TRUE(IsBeyondUnitText(s, "-3+1"));
  EXPECT_FALSE(IsBeyondUnitText(s, "0.5"));
  EXPECT_FALSE(s.ExactToFloat);
  const auto before = s.Pool.NodesInUse;
  IsNumericText(s, "(a+b)-(c+d)");
  EXPECT_EQ(s.Pool.NodesInUse, before);
}

TEST_F(Simplify, StepPartsFoldThreePartsWithoutMathematics) {
  EXPECT_EQ(JoinStepParts({"Simplify the sum @0+x@ by:|", "dropping 0 terms.|", "The result is:"}),
            "Simplify the sum @0+x@ by dropping 0 terms.  The result is:");
  EXPECT_EQ(JoinStepParts({"Head:|", "one @x@.|", "The result is:"}),
            "Head:|   - one @x@.|   - The result is:");
  EXPECT_EQ(JoinStepParts({"Head:|", "one.|", "two.|", "The result is:"}),
            "Head:|   - one.|   - two.|   - The result is:");
}

// Brackets and signs.

TEST_F(Simplify, BracketsAroundTheWholeInputGoWithHelpTwo) {
  EXPECT_EQ(OnePass("(x)", 1), "x");
  EXPECT_TRUE(fired);
  EXPECT_EQ(s.Message,
            "2#The brackets around an entire expression are never required.  Simplify by "
            "removing them.");
  EXPECT_EQ(OnePass("(x+1)", 1), "x+1");
  EXPECT_EQ(s.Message.substr(0, 2), "2#");
}

TEST_F(Simplify, SignedSingleQuantityStaysInTheBracketRule) {
  NodeIdx root = Load("(-x)+y");
  NodeIdx& slot = s.Pool[root].FirstChild;
  EXPECT_FALSE(BracketRule(s, slot));
  EXPECT_EQ(N(root).Text, "(-x)+y");
}

TEST_F(Simplify, BracketAfterAMinusWaitsForTheSumRule) {
  EXPECT_EQ(OnePass("a-(b+c)", 1), "a-(b+c)");
  EXPECT_FALSE(fired);
  EXPECT_EQ(OnePass("a-(b+c)", 3), "a-b-c");
  EXPECT_EQ(s.Message, "14#Simplify by distributing the - sign over the contents of  @(b+c)@ .");
}

TEST_F(Simplify, BracketAfterADivisionStays) {
  EXPECT_EQ(OnePass("a/(b*c)", 1), "a/(b*c)");
  EXPECT_FALSE(fired);
}

TEST_F(Simplify, ExtraBracketInAFunctionGoesWithHelpNinetyNine) {
  // sin((x)): the parser takes both brackets at once, so the tree is built by hand.
  NodeIdx function = Load("sin(x)");
  const NodeIdx x = N(function).FirstChild;
  const NodeIdx bracket = NewNode(s);
  s.Pool[bracket].Kind = '(';
  s.Pool[bracket].Text = "(x)";
  s.Pool[function].FirstChild = bracket;
  s.Pool[bracket].Parent = function;
  s.Pool[bracket].FirstChild = x;
  s.Pool[x].Parent = bracket;
  RegenerateAll(s, function);
  ASSERT_EQ(N(function).Text, "sin((x))");
  EXPECT_TRUE(BracketRule(s, s.Pool[function].FirstChild));
  RegenerateAll(s, function);
  EXPECT_EQ(N(function).Text, "sin(x)");
  EXPECT_EQ(s.Message, "99#The extra brackets are not required.  Simplify by removing them.");
}

TEST_F(Simplify, ProductInAProduct) {
  EXPECT_EQ(OnePass("2*(3*x)*y", 1), "2*3*x*y");
  EXPECT_EQ(s.Message,
            "6#All products and quotients have the same priority so @(3*x)@ doesn't need "
            "brackets.  Simplify by removing them.");
  EXPECT_EQ(OnePass("(a*b)/c", 1), "a*b/c");
  EXPECT_EQ(s.Message, "Skip message");
}

TEST_F(Simplify, NestedProductClasses) {
  const NodeIdx sole = Load("(a*b)/c");
  EXPECT_EQ(ClassifyNestedProduct(s, N(sole).FirstChild), NestedProduct::SoleNumerator);
  const NodeIdx denominator = Load("a/(b*c)");
  EXPECT_EQ(ClassifyNestedProduct(s, Child(denominator, 2)), NestedProduct::SoleDenominator);
  const NodeIdx one_fraction = Load("2*(x/y)");
  EXPECT_EQ(ClassifyNestedProduct(s, Child(one_fraction, 2)), NestedProduct::OnlyFraction);
  const NodeIdx two_fractions = Load("(a/b)*(c/d)");
  EXPECT_EQ(ClassifyNestedProduct(s, Child(two_fractions, 1)), NestedProduct::SeveralFractions);
  const NodeIdx plain = Load("2*(3*x)");
  EXPECT_EQ(ClassifyNestedProduct(s, Child(plain, 2)), NestedProduct::Plain);
}

TEST_F(Simplify, FlatteningOpensOneBracketOrAllAtOnce) {
  NodeIdx one = Load("a-(b-c)+(d+e)");
  EXPECT_TRUE(FlattenSumBrackets(s, one, false));
  EXPECT_EQ(N(one).Text, "a-b+c+(d+e)");
  NodeIdx all = Load("a-(b-c)+(d+e)");
  EXPECT_TRUE(FlattenSumBrackets(s, all, true));
  EXPECT_EQ(N(all).Text, "a-b+c+d+e");
  NodeIdx hidden = Load("[a+b]+c");
  EXPECT_FALSE(FlattenSumBrackets(s, hidden, false));
}

TEST_F(Simplify, MinusStaysOnTheBracketWhileTheSwitchIsOff) {
  s.DistributeMinus = false;
  EXPECT_EQ(OnePass("-(a-b)", 4), "-(a-b)");
  EXPECT_FALSE(fired);
}

TEST_F(Simplify, ReplacingContentsWithTheFlagRemovesTheNewBracketSilently) {
  NodeIdx root = Load("2*x");
  NodeIdx& slot = s.Pool[root].FirstChild;
  s.Message = "kept";
  ReplaceNodeContents(s, slot, "((y))", true);
  RegenerateAll(s, root);
  EXPECT_EQ(N(root).Text, "y*x");
  EXPECT_EQ(s.Message, "kept");
}

// Sums.

TEST_F(Simplify, LikeTermsAreCombined) {
  EXPECT_EQ(Run("2x+3x"), "5*x");
  NodeIdx root = Load("2x+3x");
  EXPECT_TRUE(CollectSum(s, root));
  EXPECT_EQ(s.Message,
            "384#Simplify the sum @2*x+3*x@ by:|   - combining like terms @2*x+3*x->5*x@ .|   - "
            "The result is:");
}

TEST_F(Simplify, OppositeTermsCancelToZero) {
  NodeIdx root = Load("x-x");
  EXPECT_TRUE(CollectSum(s, root));
  EXPECT_EQ(N(root).Text, "0");
  EXPECT_EQ(s.Message,
            "384#Simplify the sum @x-x@ by:|   - canceling @x-x->0@ .|   - The result is:");
}

TEST_F(Simplify, PureSortIsThePlainSentence) {
  NodeIdx root = Load("3+x^2+x");
  EXPECT_TRUE(CollectSum(s, root));
  EXPECT_EQ(N(root).Text, "x^2+x+3");
  EXPECT_EQ(s.Message, "382#Sort terms.");
}

TEST_F(Simplify, HighPowersShareARankAndSortByText) { EXPECT_EQ(Run("x^40+x^31"), "x^31+x^40"); }

TEST_F(Simplify, ReciprocalComesAfterTheLetter) { EXPECT_EQ(Run("1/x+x"), "x+1/x"); }

TEST_F(Simplify, OtherFunctionsComeBeforeSine) { EXPECT_EQ(Run("sin(x)+cos(x)"), "cos(x)+sin(x)"); }

TEST_F(Simplify, InitialPlusIsDropped) {
  NodeIdx root = Load("+x+1");
  EXPECT_TRUE(CollectSum(s, root));
  EXPECT_EQ(N(root).Text, "x+1");
  EXPECT_EQ(s.Message,
            "381#Simplify the sum @+x+1@ by dropping the initial + sign.  The result is:");
}

TEST_F(Simplify, ZeroTermsAreDropped) {
  NodeIdx root = Load("0+x");
  EXPECT_TRUE(CollectSum(s, root));
  EXPECT_EQ(N(root).Text, "x");
  EXPECT_EQ(s.Message, "381#Simplify the sum @0+x@ by dropping 0 terms.  The result is:");
}

TEST_F(Simplify, HelpNumbersRunFrom381To387ByWhatTheStepHolds) {
  NodeIdx sorted_and_combined = Load("1+x+x");
  CollectSum(s, sorted_and_combined);
  EXPECT_EQ(s.Message.substr(0, 4), "386#");
  NodeIdx everything = Load("+1+0+x+x");
  CollectSum(s, everything);
  EXPECT_EQ(s.Message.substr(0, 4), "387#");
  NodeIdx dropped_and_combined = Load("0+x+x");
  CollectSum(s, dropped_and_combined);
  EXPECT_EQ(s.Message.substr(0, 4), "385#");
}

TEST_F(Simplify, HeadingWordOfANumberDifference) {
  NodeIdx root = Load("3-2");
  CollectSum(s, root);
  EXPECT_EQ(s.Message.rfind("384#Simplify the difference @3-2@ by:|", 0), 0u);
}

TEST_F(Simplify, FractionCoefficientsAddExactly) {
  EXPECT_EQ(Run("1/2+1/3"), "5/6");
  EXPECT_EQ(Run("x/2+x/3"), "5/6*x");
  EXPECT_EQ(Run("2x-x/2"), "3/2*x");
}

TEST_F(Simplify, SumInHouseFormIsLeftAlone) {
  NodeIdx root = Load("x^2+x+1");
  EXPECT_FALSE(CollectSum(s, root));
}

TEST_F(Simplify, PowerWithAHugeNegativeExponentRanksWithoutOverflow) {
  EXPECT_EQ(TermRank(s, Load("x^(-1E20)"), 1), 1000000);
  EXPECT_EQ(TermRank(s, Load("x^(-60)"), 1), 110);
  EXPECT_EQ(Run("x^(-1E20)*y+x^2"), "x^2+y/x^1E20");
}

TEST_F(Simplify, TermRanks) {
  EXPECT_EQ(TermRank(s, Load("7"), 1), 99);
  EXPECT_EQ(TermRank(s, Load("(a+b)"), 1), 98);
  EXPECT_EQ(TermRank(s, Load("x"), 1), 49);
  EXPECT_EQ(TermRank(s, Load("x^3"), 1), 47);
  EXPECT_EQ(TermRank(s, Load("x^40"), 1), 20);
  EXPECT_EQ(TermRank(s, Load("x^y"), 1), 19);
  EXPECT_EQ(TermRank(s, Load("sin(x)"), 1), 12);
  EXPECT_EQ(TermRank(s, Load("arcsin(x)"), 1), 12);
  EXPECT_EQ(TermRank(s, Load("ln(x)"), 1), 11);
  EXPECT_EQ(TermRank(s, Load("1/x^2"), 1), 52);
  EXPECT_EQ(TermRank(s, Load("3*x^2"), 1), 48);
}

TEST_F(Simplify, SplitTermTakesNumbersOut) {
  const SplitParts parts = SplitTerm(s, Load("3*x*y/2/z"));
  EXPECT_EQ(parts.numerator, 3.0);
  EXPECT_EQ(parts.denominator, 2.0);
  EXPECT_EQ(parts.numerator_text, "x*y");
  EXPECT_EQ(parts.denominator_text, "z");
  const NodeIdx sum = Load("a-2*b");
  const SplitParts minus = SplitTerm(s, Child(sum, 2));
  EXPECT_EQ(minus.numerator, -2.0);
  EXPECT_EQ(minus.numerator_text, "b");
}

TEST_F(Simplify, CoefficientTexts) {
  EXPECT_EQ(FormatCoefficient(s, 5, 1, "x", ""), "5*x");
  EXPECT_EQ(FormatCoefficient(s, 1, 1, "x", ""), "x");
  EXPECT_EQ(FormatCoefficient(s, -1, 1, "x", ""), "-x");
  EXPECT_EQ(FormatCoefficient(s, 1, 2, "x", ""), "1/2*x");
  EXPECT_EQ(FormatCoefficient(s, -3, 2, "", ""), "-3/2");
  EXPECT_EQ(FormatCoefficient(s, 1, 1, "", "x"), "1/x");
  EXPECT_EQ(FormatCoefficient(s, 2, 1, "y", "x"), "2*y/x");
  EXPECT_EQ(SnapToInteger(s, "2.00000000001"), 2.0);
  EXPECT_EQ(SnapToInteger(s, "40000.00000000001"), 40000.00000000001);
  EXPECT_EQ(SnapToInteger(s, "x"), 0.0);
}

TEST(ReduceFraction, LowestTermsWithTheSignOnTop) {
  double a = 6;
  double b = -8;
  int flag = -1;
  ReduceFraction(a, b, flag);
  EXPECT_EQ(a, -3);
  EXPECT_EQ(b, 4);
  EXPECT_EQ(flag, 0);
  a = 12;
  b = 4;
  ReduceFraction(a, b, flag);
  EXPECT_EQ(a, 3);
  EXPECT_EQ(b, 1);
  a = -4;
  b = 12;
  ReduceFraction(a, b, flag);
  EXPECT_EQ(a, -1);
  EXPECT_EQ(b, 3);
  a = 1.5;
  b = 3;
  ReduceFraction(a, b, flag);
  EXPECT_EQ(a, 0.5);
  EXPECT_EQ(b, 1);
  EXPECT_EQ(flag, 2);
  a = 3e10;
  b = 3;
  ReduceFraction(a, b, flag);
  EXPECT_EQ(a, 1e10);
  EXPECT_EQ(flag, 1);
  a = 1;
  b = 0;
  EXPECT_THROW(ReduceFraction(a, b, flag), RunTimeError);
}

}  // namespace
}  // namespace tavimor
