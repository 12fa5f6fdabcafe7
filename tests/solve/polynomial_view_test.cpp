// Tests of the polynomial view of an expression and of the driver's moves on both sides.
#include <gtest/gtest.h>

#include <exception>
#include <random>
#include <string>
#include <vector>

#include "manipulate/factor.h"
#include "solve/equation_moves.h"
#include "solve/polynomial_view.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using PolynomialViewTest = SessionTest;

TEST_F(PolynomialViewTest, SortsSquaredLinearConstantAndOtherTerms) {
  const PolynomialView view = ClassifyPolynomial(s, "3*x^2-2*x+5-sqrt(x)", "x");
  EXPECT_EQ(view.QuadTerms, "3*x^2");
  EXPECT_EQ(view.QuadCoef, "3");
  EXPECT_EQ(view.LinTerms, "-2*x");
  EXPECT_EQ(view.LinCoef, "-2");
  EXPECT_EQ(view.ConstTerm, "5");
  EXPECT_EQ(view.NegConst, "-5");
  EXPECT_EQ(view.OtherTerms, "-sqrt(x)");
}

TEST_F(PolynomialViewTest, OtherLettersAreConstants) {
  const PolynomialView view = ClassifyPolynomial(s, "a*x+b", "x");
  EXPECT_EQ(view.LinCoef, "a");
  EXPECT_EQ(view.ConstTerm, "b");
  EXPECT_EQ(view.OtherTerms, "0");
  EXPECT_EQ(ConstantPart(s, "a*x+b", "x"), "b");
}

TEST_F(PolynomialViewTest, ASingleTermIsClassifiedWhole) {
  EXPECT_EQ(ClassifyPolynomial(s, "x^2", "x").QuadCoef, "1");
  EXPECT_EQ(ClassifyPolynomial(s, "4*x", "x").LinCoef, "4");
  EXPECT_EQ(ClassifyPolynomial(s, "7", "x").ConstTerm, "7");
  EXPECT_EQ(ClassifyPolynomial(s, "0", "x").ConstTerm, "0");
  EXPECT_EQ(ClassifyPolynomial(s, "x*sin(x)", "x").OtherTerms, "x*sin(x)");
}

TEST_F(PolynomialViewTest, CoefficientsReadOffTheTextAreThoseOfTheExpansion) {
  // A coefficient written as a whole number before the unknown (or its square) is read off the
  // text; it must be the quotient that expanding gives, for every shape of term and letter.
  const std::vector<std::string> numbers = {
      "", "2", "17", "100", "999999999", "1000000000", "123456789012345", "0", "05"};
  for (const char* letter_text : {"x", "y", "Q"}) {
    const std::string letter = letter_text;
    for (const std::string& power : {letter, letter + "^2"}) {
      for (const std::string& n : numbers) {
        for (const char* sign : {"", "-"}) {
          const std::string term = std::string(sign) + (n.empty() ? "" : n + "*") + power;
          const PolynomialView view = ClassifyPolynomial(s, term + "+1", letter);
          const std::string& coefficient = power == letter ? view.LinCoef : view.QuadCoef;
          EXPECT_EQ(coefficient, ExpandedText(s, "(" + term + ")/" + power)) << term;
        }
      }
    }
  }
}

TEST_F(PolynomialViewTest, CoefficientsNotWrittenPlainlyAreExpanded) {
  EXPECT_EQ(ClassifyPolynomial(s, "0.5*x+3", "x").LinCoef, "0.5");
  EXPECT_EQ(ClassifyPolynomial(s, "x/3+1", "x").LinCoef, "1/3");
  EXPECT_EQ(ClassifyPolynomial(s, "2*x+3*x", "x").LinCoef, "5");
  EXPECT_EQ(ClassifyPolynomial(s, "x^2-x^2+x", "x").QuadCoef, ExpandedText(s, "(x^2-x^2)/x^2"));
  EXPECT_EQ(ClassifyTerms(s, "3*x^2-2*x+5", "x").QuadCoef, "0");  // not asked for
  EXPECT_EQ(ClassifyTerms(s, "3*x^2-2*x+5", "x").ConstTerm, "5");
}

TEST_F(PolynomialViewTest, CoefficientsReadOffTheFactorsAreThoseOfTheExpansion) {
  // A coefficient made of other factors (logarithms, roots, letters, fractions, a sign, numbers
  // written in every way) is the quotient read off the factors, expanded where they allow: it
  // must be what expanding the whole fraction gives.
  const std::vector<std::string> factors = {
      "log(3)", "sqrt(2)", "a",  "pi",         "5",   "(a+1)", "ln(7)", "e",   "b",  "-",
      "/2",     "/a",      "05", "1000000000", "0.5", "1.50",  "0",     "/05", "/0", "2E3"};
  std::mt19937 random(9);
  auto pick = [&random](std::size_t n) { return random() % n; };
  int checked = 0;
  for (int i = 0; i < 600; ++i) {
    const std::string power = pick(3) == 0 ? "x^2" : "x";
    std::string expression;
    const std::size_t terms = 1 + pick(3);
    for (std::size_t t = 0; t < terms; ++t) {
      std::string term = power;
      for (std::size_t f = pick(3); f > 0; --f) {
        const std::string& factor = factors[pick(factors.size())];
        if (factor == "-") {
          term = "-" + term;
        } else if (factor[0] == '/') {
          term += factor;
        } else {
          term = pick(2) == 0 ? factor + "*" + term : term + "*" + factor;
        }
      }
      if (t > 0 && term[0] != '-') term = (pick(2) == 0 ? "+" : "-") + term;
      expression += term;
    }
    expression += "+1";
    // Both ways either give the same coefficient or fail alike (a division by zero, 0/0).
    std::string coefficient;
    std::string expected;
    try {
      const PolynomialView view = ClassifyPolynomial(s, expression, "x");
      const std::string& terms_of_power = power == "x" ? view.LinTerms : view.QuadTerms;
      if (terms_of_power == "0") continue;
      coefficient = power == "x" ? view.LinCoef : view.QuadCoef;
      s.RewriteCount = 0;
      expected = ExpandedTextByRules(s, "(" + terms_of_power + ")/" + power);
    } catch (const std::exception&) {
      coefficient = expected = "";
      const PolynomialView view = ClassifyTerms(s, expression, "x");
      const std::string& terms_of_power = power == "x" ? view.LinTerms : view.QuadTerms;
      EXPECT_ANY_THROW(ExpandedTextByRules(s, "(" + terms_of_power + ")/" + power)) << expression;
    }
    EXPECT_EQ(coefficient, expected) << expression;
    ++checked;
  }
  EXPECT_GT(checked, 400);
}

using EquationMoves = SessionTest;

TEST_F(EquationMoves, CancelsATermStandingOnBothSides) {
  std::string left = "x+3";
  std::string right = "2*x+3";
  EXPECT_EQ(CancelCommonTerms(s, left, right), "subtracting @3@ from");
  EXPECT_EQ(left, "x");
  EXPECT_EQ(right, "2*x");
}

TEST_F(EquationMoves, CancelsASubtractedTermByAddingIt) {
  std::string left = "x^2-4";
  std::string right = "3*x-4";
  EXPECT_EQ(CancelCommonTerms(s, left, right), "adding @4@ to");
  EXPECT_EQ(left, "x^2");
  EXPECT_EQ(right, "3*x");
}

TEST_F(EquationMoves, EqualSidesBecomeZeroSilently) {
  std::string left = "x";
  std::string right = "x";
  EXPECT_EQ(CancelCommonTerms(s, left, right), "");
  EXPECT_EQ(left, "0");
  EXPECT_EQ(right, "0");
}

TEST_F(EquationMoves, ATermWithTheOtherSignStays) {
  std::string left = "x+3";
  std::string right = "5-3";
  EXPECT_EQ(CancelCommonTerms(s, left, right), "");
  EXPECT_EQ(left, "x+3");
}

TEST_F(EquationMoves, CommonFactorHoldingTheUnknown) {
  const CommonFactorFinding found = FindCommonFactor(s, "x^2", "x", "x");
  EXPECT_EQ(found.factor, "x");
  EXPECT_EQ(found.occurrences, 1);
}

TEST_F(EquationMoves, CommonNumberFactor) {
  const CommonFactorFinding found = FindCommonFactor(s, "2*x+4", "6", "x");
  EXPECT_EQ(found.factor, "2");
  EXPECT_EQ(found.occurrences, 0);
}

TEST_F(EquationMoves, TermsKeepTheirFormWhenTheFactorIsSought) {
  // 2*x+3-7: the terms 2*x, 3 and -7 share nothing, though 2*x-4 would share 2.
  EXPECT_EQ(FindCommonFactor(s, "2*x+3", "7", "x").factor, "1");
  // 2*x-4*x: the terms share 2*x.
  EXPECT_EQ(FindCommonFactor(s, "2*x", "4*x", "x").factor, "2*x");
}

TEST_F(EquationMoves, ScaleSideDividesEachTermOfASum) {
  EXPECT_EQ(ScaleSide(s, "2*x+4", '/', "2", true), "x+2");
  EXPECT_EQ(ScaleSide(s, "0", '/', "2", false), "0");
  EXPECT_EQ(ScaleSide(s, "1", '*', "a", false), "a");
  EXPECT_EQ(ScaleSide(s, "a", '*', "0", false), "0");
}

TEST_F(EquationMoves, LikeTermWithTheSmallerCoefficientIsMoved) {
  const LikeTermMove move = MoveLikeTerm(s, "2*x", "4*x");
  ASSERT_TRUE(move.found);
  EXPECT_TRUE(move.subtract);
  EXPECT_EQ(move.term, "2*x");
}

TEST_F(EquationMoves, NegativeLikeTermIsAdded) {
  const LikeTermMove move = MoveLikeTerm(s, "x^2+x", "-3*x");
  ASSERT_TRUE(move.found);
  EXPECT_FALSE(move.subtract);
  EXPECT_EQ(move.term, "3*x");
}

TEST_F(EquationMoves, EqualLikeTermsLeaveBothSides) {
  const LikeTermMove move = MoveLikeTerm(s, "-x-1", "-x+2");
  ASSERT_TRUE(move.found);
  EXPECT_FALSE(move.subtract);
  EXPECT_EQ(move.term, "x");
}

TEST_F(EquationMoves, NoLikeTerms) { EXPECT_FALSE(MoveLikeTerm(s, "x^2", "x").found); }

}  // namespace
}  // namespace tavimor
