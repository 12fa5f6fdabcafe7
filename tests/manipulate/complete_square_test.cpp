// Completing the square: the cases of the quadratic, where it is found, the record the narration
// and the solver read, and the narration's lines.
#include <gtest/gtest.h>

#include "core/pieces.h"
#include "manipulate/complete_square.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class CompletingTheSquare : public SessionTest {
 protected:
  // Completes the square once silently; the text, or "" when nothing was converted.
  std::string Complete(const std::string& text) {
    std::string result = text;
    record.clear();
    converted = CompleteTheSquare(s, result, record);
    if (!converted) {
      EXPECT_EQ(result, text);
    }
    return converted ? result : "";
  }
  std::string Piece(int index) const { return GetPiece(record, index, kCompleteSquareSeparator); }

  bool converted = false;
  std::string record;
};

TEST_F(CompletingTheSquare, RecordHasTwentyPieces) {
  Complete("x^2+6*x+2");
  EXPECT_EQ(CountPieces(record, kCompleteSquareSeparator), 20);
}

TEST_F(CompletingTheSquare, GeneralCaseHasQNineAndRestMinusSeven) {
  EXPECT_EQ(Complete("x^2+6*x+2"), "(x+3)^2-7");
  EXPECT_EQ(Piece(1), "x^2+6*x+2");
  EXPECT_EQ(Piece(2), "");  // already in standard form
  EXPECT_EQ(Piece(3), "");  // leading coefficient 1
  EXPECT_EQ(Piece(4), "x^2+6*x+9-9+2");
  EXPECT_EQ(Piece(5), "(x^2+6*x+9)-9+2");
  EXPECT_EQ(Piece(6), "(x+3)^2-9+2");
  EXPECT_EQ(Piece(7), "-7");
  EXPECT_EQ(Piece(8), "(x+3)^2-7");
  EXPECT_EQ(Piece(9), "(x+3)^2-7");
  EXPECT_EQ(Piece(10), "4");
  EXPECT_EQ(Piece(11), "9");
  EXPECT_EQ(Piece(19), "x");
  EXPECT_EQ(Piece(20), "whole");
}

TEST_F(CompletingTheSquare, PerfectSquareHasNoRest) {
  EXPECT_EQ(Complete("x^2+2*x+1"), "(x+1)^2");
  EXPECT_EQ(Piece(10), "3");
  EXPECT_EQ(Piece(7), "");
}

TEST_F(CompletingTheSquare, PerfectSquareAtTheRootIsOneSentence) {
  Complete("x^2+2*x+1");
  EXPECT_EQ(CompletedSquareNarration(0, record),
            "69#Convert the expression @x^2+2*x+1@ to completed square form by simply factoring "
            "this perfect square.  The result is:");
}

TEST_F(CompletingTheSquare, LeadingCoefficientIsFactoredOutFirstWithoutConstant) {
  EXPECT_EQ(Complete("2*x^2+8*x"), "2*((x+2)^2-4)");
  EXPECT_EQ(Piece(3), "2*(x^2+4*x)");
  EXPECT_EQ(Piece(4), "2*(x^2+4*x+4-4)");
  EXPECT_EQ(Piece(5), "2*((x^2+4*x+4)-4)");
  EXPECT_EQ(Piece(6), "2*((x+2)^2-4)");
  EXPECT_EQ(Piece(10), "2");
  EXPECT_EQ(Piece(11), "4");
}

TEST_F(CompletingTheSquare, NegativeLeadingCoefficientMarksTheCase) {
  EXPECT_EQ(Complete("-x^2+4*x+1"), "-((x-2)^2-5)");
  EXPECT_EQ(Piece(3), "-(x^2-4*x-1)");
  EXPECT_EQ(Piece(10), "-4");
}

TEST_F(CompletingTheSquare, NegativePerfectSquareIsTheTrinomialInTheBrackets) {
  EXPECT_EQ(Complete("-x^2-2*x-1"), "-(x+1)^2");
  EXPECT_EQ(Piece(10), "-3");
  EXPECT_EQ(CompletedSquareNarration(0, record),
            "69#Convert the expression @-x^2-2*x-1@ to completed square form by following these "
            "steps:||   - Factor out the coefficient of the quadratic term: @-(x^2+2*x+1)@ .\\|"
            "   - The trinomial in the brackets is a perfect square.  Write it in factored form.  "
            "The result is the completed square form:");
}

TEST_F(CompletingTheSquare, FractionalHalfOfTheLinearCoefficient) {
  EXPECT_EQ(Complete("x^2+3*x+1"), "(x+3/2)^2-5/4");
  EXPECT_EQ(Piece(11), "9/4");
}

TEST_F(CompletingTheSquare, StandardFormIsWrittenWhenTheTermsAreOutOfOrder) {
  EXPECT_EQ(Complete("6*x+x^2+2"), "(x+3)^2-7");
  EXPECT_EQ(Piece(2), "x^2+6*x+2");
  EXPECT_NE(CompletedSquareNarration(0, record).find(
                "   - Write the expression as a quadratic in x in standard form, like this: "
                "@x^2+6*x+2@ .\\|"),
            std::string::npos);
}

TEST_F(CompletingTheSquare, AnyLetterWillDo) { EXPECT_EQ(Complete("t^2-4*t"), "(t-2)^2-4"); }

TEST_F(CompletingTheSquare, QuadraticInsideALargerExpressionIsRewrittenInPlace) {
  EXPECT_EQ(Complete("3*(x^2+4*x+1)+x"), "3*((x+2)^2-3)+x");
  EXPECT_EQ(Piece(1), "x^2+4*x+1");
  EXPECT_EQ(Piece(20), "part");
  EXPECT_EQ(Piece(9), "3*((x+2)^2-3)+x");
  const std::string narration = CompletedSquareNarration(0, record);
  EXPECT_NE(narration.find("   - Simplify 'the rest: @-3@ .\\|"), std::string::npos);
  const std::string closing =
      "   - Substituting this completed square form back into the original expression gives:";
  ASSERT_GT(narration.size(), closing.size());
  EXPECT_EQ(narration.substr(narration.size() - closing.size()), closing);
}

TEST_F(CompletingTheSquare, ArgumentOfAFunctionKeepsTheFunction) {
  EXPECT_EQ(Complete("sqrt(x^2+2*x+5)"), "sqrt((x+1)^2+4)");
}

TEST_F(CompletingTheSquare, FirstQuadraticFromTheLeftIsTakenOnePerCall) {
  EXPECT_EQ(Complete("sqrt(x^2+2*x+5)+t^2-6*t"), "sqrt((x+1)^2+4)+t^2-6*t");
}

TEST_F(CompletingTheSquare, NextPressFindsTheQuadraticBesideACompletedOne) {
  // The root is a quadratic in t whose constant is the root of the completed one.
  EXPECT_EQ(Complete("sqrt((x+1)^2+4)+t^2-6*t"), "(t-3)^2+sqrt((x+1)^2+4)-9");
  EXPECT_EQ(Piece(19), "t");
}

TEST_F(CompletingTheSquare, NothingToConvertWithoutAQuadratic) {
  EXPECT_EQ(Complete("x^3+x"), "");
  EXPECT_EQ(Complete("2*x+3"), "");
  EXPECT_EQ(Complete("x^2"), "");
  EXPECT_EQ(Complete("sin(x)+1"), "");
  EXPECT_FALSE(converted);
}

TEST_F(CompletingTheSquare, QuadraticAlreadyInCompletedFormIsLeftAlone) {
  // No linear term and a leading 1: x^2+1 is (x-0)^2+1 already.
  EXPECT_EQ(Complete("x^2+1"), "");
}

TEST_F(CompletingTheSquare, SolverReadsTheTermsTheConstantQAndTheSquare) {
  EXPECT_EQ(Complete("2*x^2+8*x+6"), "2*((x+2)^2-1)");
  EXPECT_EQ(Piece(13), "2");
  EXPECT_EQ(Piece(14), "x^2+4*x");
  EXPECT_EQ(Piece(15), "3");
  EXPECT_EQ(Piece(16), "4");
  EXPECT_EQ(Piece(17), "(x+2)^2");
  EXPECT_EQ(Piece(18), "-1");
}

TEST_F(CompletingTheSquare, GeneralNarrationAtTheRoot) {
  Complete("x^2+6*x+2");
  EXPECT_EQ(CompletedSquareNarration(1, record),
            "69#Convert the expression @x^2+6*x+2@ on the left side of the equation to completed "
            "square form by following these steps:||"
            "   - Take the coefficient of the linear term, divide it by 2, and then square it.  "
            "This gives @9@ .\\|"
            "   - Call this quantity Q.  Add and subtract Q, like this: @x^2+6*x+9-9+2@ .\\|"
            "   - Use brackets to group the first 3 terms: @(x^2+6*x+9)-9+2@ .||      The "
            "bracketed group had Q added to it to make it a so-called 'perfect square'.||      "
            "The rest had Q subtracted from it and is called 'the rest'.\\|"
            "   - Write the 'perfect square' in factored form: @(x+3)^2-9+2@ .\\|"
            "   - Simplify 'the rest'.  The result is the completed square form:");
}

TEST_F(CompletingTheSquare, SilentAndLeavesTheDetailAlone) {
  s.DetailNow = 1;
  Complete("x^2+6*x+2");
  EXPECT_EQ(s.DetailNow, 1);
  EXPECT_TRUE(frontend.work_space.empty());
}

}  // namespace
}  // namespace tavimor
