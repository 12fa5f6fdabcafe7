// Factoring: each method on the forms students meet, the places in an expression, and the record.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "core/pieces.h"
#include "manipulate/factor.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Factoring : public SessionTest {
 protected:
  // Factors once silently; the text, or "" when nothing was factored.
  std::string Factor(const std::string& text, const std::string& mode = "20") {
    std::string result = text;
    factored = FactorText(s, result, record, mode);
    return factored ? result : "";
  }
  int Code() const { return std::atoi(FactorRecordField(record, 4).c_str()); }
  int Place() const { return std::atoi(FactorRecordField(record, 2).c_str()); }

  bool factored = false;
  std::string record;
};

TEST_F(Factoring, DifferenceOfSquares) {
  EXPECT_EQ(Factor("x^2-4"), "(x+2)*(x-2)");
  EXPECT_EQ(Code(), kMethodDifferenceOfSquares);
  EXPECT_EQ(Place(), kPlaceWhole);
}

TEST_F(Factoring, SumOfSquaresStaysUnderRealArithmetic) {
  EXPECT_EQ(Factor("x^2+4"), "");
  EXPECT_FALSE(factored);
}

TEST_F(Factoring, SumOfSquaresTakesTheImaginaryUnit) {
  s.ComplexForm = 1;
  EXPECT_EQ(Factor("x^2+4"), "(-2*i+x)*(2*i+x)");
  EXPECT_EQ(Code(), kMethodSumOfSquares);
  s.ComplexForm = 2;
  EXPECT_EQ(Factor("x^2+4"), "(-2*j+x)*(2*j+x)");
}

TEST_F(Factoring, MonicTrinomialBySumAndProduct) {
  EXPECT_EQ(Factor("x^2+5*x+6"), "(x+2)*(x+3)");
  EXPECT_EQ(Code(), kMethodSumProduct);
}

TEST_F(Factoring, TrinomialWithLeadingCoefficientByGrouping) {
  EXPECT_EQ(Factor("2*x^2+5*x+3"), "(2*x+3)*(x+1)");
  EXPECT_EQ(Code(), kMethodQuadraticGrouping);
}

TEST_F(Factoring, PerfectSquareTrinomial) {
  EXPECT_EQ(Factor("x^2+4*x+4"), "(x+2)^2");
  EXPECT_EQ(Code(), kMethodPerfectSquare);
}

TEST_F(Factoring, PerfectSquareWithLeadingMinus) {
  EXPECT_EQ(Factor("-x^2+2*x-1"), "-(x-1)^2");
  EXPECT_EQ(Code(), kMethodPerfectSquare);
  EXPECT_EQ(FactorRecordValues(record)[0], "1");
}

TEST_F(Factoring, IrreducibleTrinomialFailsTheTest) {
  EXPECT_EQ(Factor("x^2+x+1"), "");
  EXPECT_EQ(Factor("x^2+x-1"), "");
}

TEST_F(Factoring, DifferenceOfCubes) {
  EXPECT_EQ(Factor("x^3-8"), "(x-2)*(x^2+2*x+4)");
  EXPECT_EQ(Code(), kMethodDifferenceOfCubes);
}

TEST_F(Factoring, SumOfCubes) {
  EXPECT_EQ(Factor("8*x^3+27"), "(2*x+3)*(4*x^2-6*x+9)");
  EXPECT_EQ(Code(), kMethodSumOfCubes);
}

TEST_F(Factoring, FourTermsByGrouping) {
  EXPECT_EQ(Factor("x^3+2*x^2+x+2"), "(x+2)*(x^2+1)");
  EXPECT_EQ(Code(), kMethodGrouping);
}

// The brackets of two groups are compared by their values first, at a few points where the
// letters are small and positive; values only ever tell brackets apart, so the groupings whose
// brackets are equal (or opposite) are all still found, with logarithms, roots, constants and
// the variable table left as they were.
TEST_F(Factoring, FourTermsByGroupingWithBracketsOfEveryKind) {
  s.VarNames = {'a'};
  s.VarValues = {NodeValue{std::int32_t{7}}};
  s.VarCount = 1;
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a*x-a*y-b*x+b*y", "(a-b)*(x-y)"},
      {"x*ln(y)+x+ln(y)+1", "(ln(y)+1)*(x+1)"},
      {"e*x+e*y+x+y", "(e+1)*(x+y)"},
      {"a*c+a*d+b*c+b*d", "(a+b)*(c+d)"},
      {"x*sqrt(y)-x+2*sqrt(y)-2", "(sqrt(y)-1)*(x+2)"},
  };
  for (const auto& [item, factored_form] : cases) {
    EXPECT_EQ(Factor(item), factored_form) << item;
    EXPECT_EQ(Code(), kMethodGrouping) << item;
  }
  ASSERT_EQ(s.VarCount, 1);
  EXPECT_EQ(s.VarNames[0], 'a');
  EXPECT_EQ(std::get<std::int32_t>(s.VarValues[0]), 7);
}

// Where the brackets have no value at the points tried (a root or a logarithm of a negative
// number there), the values tell nothing and the simplification decides as before; the letters
// the evaluation collected are given back.
TEST_F(Factoring, FourTermsByGroupingWhereTheValuesCannotBeTaken) {
  s.SubstitutionVars = {'q'};
  s.SubstitutionCount = 1;
  EXPECT_EQ(Factor("x*sqrt(y-2)-x+2*sqrt(y-2)-2"), "(sqrt(y-2)-1)*(x+2)");
  EXPECT_EQ(Code(), kMethodGrouping);
  EXPECT_EQ(Factor("x*ln(y-3)+x+ln(y-3)+1"), "(ln(y-3)+1)*(x+1)");
  EXPECT_EQ(Code(), kMethodGrouping);
  EXPECT_EQ(s.SubstitutionVars, std::vector<char>{'q'});
  EXPECT_EQ(s.SubstitutionCount, 1);
}

TEST_F(Factoring, FourTermsWhoseGroupsShareNoBracketAreNotGrouped) {
  // The pairings give x*(x+1) and 2*(y+3), then x^2+2*y and x+6, then x^2+6 and 2*y+x: the
  // first two brackets differ in value, the others have no common factor.
  EXPECT_EQ(Factor("x^2+x+2*y+6"), "");
  EXPECT_NE(Code(), kMethodGrouping);
}

TEST_F(Factoring, CubicByDeflation) {
  EXPECT_EQ(Factor("x^3-6*x^2+11*x-6"), "(x-1)*(x^2-5*x+6)");
  EXPECT_EQ(Code(), kMethodDeflation);
}

TEST_F(Factoring, CubicWithoutRationalRootNumerically) {
  EXPECT_NE(Factor("x^3+x+1"), "");
  EXPECT_EQ(Code(), kMethodNumeric);
}

TEST_F(Factoring, RepeatedNumericRootsComeTogetherAsPowers) {
  const std::string result = Factor("x^6+2*x^4+2*x^3+x^2+2*x+1");
  EXPECT_EQ(Code(), kMethodNumeric);
  EXPECT_EQ(result.find("*(x+"), std::string::npos) << result;
  EXPECT_NE(result.find(")^2*(x^2"), std::string::npos) << result;
}

TEST_F(Factoring, SquaresOfFunctions) {
  EXPECT_NE(Factor("sin(x)^2-cos(y)^2"), "");
  EXPECT_EQ(Code(), kMethodDifferenceOfSquares);
}

TEST_F(Factoring, ArgumentOfSquareRoot) {
  // The root stays whole: both factors can be negative (at x = -3), where roots of each would
  // give the wrong sign.
  EXPECT_EQ(Factor("sqrt(x^2-4)"), "sqrt((x+2)*(x-2))");
  EXPECT_EQ(FactorRecordField(record, CountPieces(record, kFactorRecordSeparator) - 1),
            "sqrt((x+2)*(x-2))");
  EXPECT_EQ(Place(), kPlaceRootArgument);
}

TEST_F(Factoring, PerfectSquareUnderARootIsTakenByTheFirstSimplification) {
  EXPECT_EQ(Factor("sqrt(x^2+2*x+1)"), "");
  EXPECT_EQ(FactorRecordField(record, 1), "sqrt((x+1)^2)");
}

TEST_F(Factoring, PerfectSquareOfQuadraticKeepsTheLeadingFactorOutside) {
  std::string square;
  ASSERT_TRUE(PerfectSquareOfQuadratic(s, "4*x^2-12*x+9", square));
  EXPECT_EQ(square, "4*(x-3/2)^2");
  EXPECT_TRUE(PerfectSquareOfQuadratic(s, "x^2+2*x*y+y^2", square));
  EXPECT_EQ(square, "(x+y)^2");
  EXPECT_FALSE(PerfectSquareOfQuadratic(s, "x^2+1", square));
}

TEST_F(Factoring, BaseOfPower) {
  EXPECT_EQ(Factor("(x^2-1)^3"), "(x+1)^3*(x-1)^3");
  EXPECT_EQ(Place(), kPlacePowerBase);
}

TEST_F(Factoring, BracketFactorOfProduct) {
  EXPECT_EQ(Factor("y*(x^2-9)"), "y*(x+3)*(x-3)");
  EXPECT_EQ(Place(), kPlaceBracketFactor);
}

TEST_F(Factoring, CommonFactorByLowestExponents) {
  EXPECT_EQ(Factor("6*x^2*y+9*x*y^2"), "3*x*y*(2*x+3*y)");
  EXPECT_EQ(Code(), kMethodCommon);
}

TEST_F(Factoring, CommonFactorWithMinus) {
  EXPECT_EQ(Factor("-2*x^2-4*x"), "-2*x*(x+2)");
  EXPECT_EQ(Code(), kMethodCommonMinus);
}

TEST_F(Factoring, LeastCommonMultipleOutOfDenominatorsAtDepthOne) {
  EXPECT_EQ(Factor("x/2+y/3"), "");
  EXPECT_EQ(Factor("x/2+y/3", "10"), "1/6*(3*x+2*y)");
}

TEST_F(Factoring, CompletedSquareRouteReal) {
  EXPECT_NE(Factor("x^2+x/2-1"), "");
  EXPECT_EQ(Code(), kMethodCompletedSquareReal);
}

TEST_F(Factoring, CompletedSquareRouteImaginaryOnlyWithComplexNumbers) {
  EXPECT_EQ(Factor("x^2+x/2+1"), "");
  s.ComplexForm = 1;
  EXPECT_NE(Factor("x^2+x/2+1"), "");
  EXPECT_EQ(Code(), kMethodCompletedSquareImaginary);
}

TEST_F(Factoring, QuadraticInASquare) { EXPECT_EQ(Factor("x^4+5*x^2+6"), "(x^2+2)*(x^2+3)"); }

TEST_F(Factoring, AliasForARepeatedFunction) {
  EXPECT_EQ(Factor("sin(x)^2+3*sin(x)+2"), "(sin(x)+1)*(sin(x)+2)");
  EXPECT_EQ(Code(), kMethodAlias);
}

TEST_F(Factoring, AliasForAnExponential) {
  EXPECT_EQ(Factor("e^(2*x)+3*e^x+2"), "(e^x+1)*(e^x+2)");
  EXPECT_EQ(Code(), kMethodAlias);
  EXPECT_EQ(FactorRecordValues(record)[0], "e^x");
}

TEST_F(Factoring, NoAliasForAPlainPowerOfALetter) {
  EXPECT_EQ(Factor("x^2+5*x+6"), "(x+2)*(x+3)");
  EXPECT_EQ(Code(), kMethodSumProduct);
}

TEST_F(Factoring, NothingInALetterOrANumber) {
  EXPECT_EQ(Factor("x"), "");
  EXPECT_EQ(Factor("12"), "");
}

TEST_F(Factoring, QuadraticCoefficientsMayHoldTheLetterInsideAFunctionName) {
  std::string t = "t";
  std::string a;
  std::string b;
  std::string c;
  ASSERT_TRUE(QuadraticCoefficients(s, "t^2-6*t+sqrt(2)", t, a, b, c));
  EXPECT_EQ(a, "1");
  EXPECT_EQ(b, "-6");
  EXPECT_EQ(c, "sqrt(2)");
}

TEST_F(Factoring, QuadraticCoefficientsOfAQuadraticInALetter) {
  std::string x;
  std::string a;
  std::string b;
  std::string c;
  ASSERT_TRUE(QuadraticCoefficients(s, "2*x^2-3*x+1", x, a, b, c));
  EXPECT_EQ(x, "x");
  EXPECT_EQ(a, "2");
  EXPECT_EQ(b, "-3");
  EXPECT_EQ(c, "1");
  x.clear();
  EXPECT_FALSE(QuadraticCoefficients(s, "x^3+x+1", x, a, b, c));
  EXPECT_TRUE(a.empty());
}

TEST_F(Factoring, NarrationOfACommonFactor) {
  Factor("2*x^2+4*x", "21");
  EXPECT_EQ(NarrateFactoring(0, record),
            "66#This expression can be factored by following these steps:||"
            "   - Recognize the form.  It is a sum of terms with a common factor.\\|"
            "   - Identify the greatest common factor: @2*x@ .\\|"
            "   - Tentatively write the factored form like this: @2*x*(. . .+. . .)@ .  The 2 "
            "dots represent the 2 new terms with the factor removed.\\|"
            "   - Determine the 2 new terms by dividing each of the old terms by the common "
            "factor.  This gives: @2*x*(x+2)@ .\\|"
            "   - In conclusion, the result of this factoring is:");
}

TEST_F(Factoring, NarrationOfANumericFactoringIsOneSentence) {
  Factor("x^3+x+1", "21");
  EXPECT_EQ(NarrateFactoring(1, record),
            "73#The left side of the equation is a polynomial that can only be factored "
            "numerically.  The result is:");
}

TEST_F(Factoring, NumericFactoringOfAPartIsToldInSteps) {
  Factor("y*(x^3+x+1)", "21");
  ASSERT_EQ(Code(), kMethodNumeric);
  const std::string text = NarrateFactoring(0, record);
  EXPECT_EQ(text.rfind("73#This expression can be factored by following these steps:||", 0), 0u);
  EXPECT_NE(text.find("   - Use the Laguerre numerical method find the factored form @"),
            std::string::npos)
      << text;
}

TEST_F(Factoring, NothingToFactorNoteOnlyWhenSimplifyingChangedIt) {
  EXPECT_EQ(NothingToFactorNote("x+x", "2*x"),
            "Note:  The expression can be simplified like this:||@x+x->2*x@  ||There is nothing "
            "to factor.");
  EXPECT_EQ(NothingToFactorNote("x", ""), "");
}

}  // namespace
}  // namespace tavimor
