// Tests of the polynomial tools: coefficients of a text, roots by Laguerre's method against
// known roots, division by a root, cleaned evaluation, square roots of terms, GCD and LCM.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "manipulate/integer_gcd.h"
#include "manipulate/polynomial.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Polynomials : public SessionTest {
 protected:
  // The largest distance from a found root to the nearest true root, each true root used once.
  static double WorstError(std::vector<Complex> found, std::vector<Complex> truth) {
    double worst = 0.0;
    EXPECT_EQ(found.size(), truth.size());
    for (const Complex& r : truth) {
      auto nearest = std::min_element(found.begin(), found.end(), [&r](Complex a, Complex b) {
        return std::abs(a - r) < std::abs(b - r);
      });
      if (nearest == found.end()) return INFINITY;
      worst = std::max(worst, std::abs(*nearest - r));
      found.erase(nearest);
    }
    return worst;
  }
  // The roots of the polynomial with these roots, times a leading coefficient.
  std::vector<Complex> RootsOf(const std::vector<Complex>& truth, double leading = 1.0) {
    std::vector<double> p = PolynomialFromRoots(truth);
    for (double& c : p) c *= leading;
    return PolynomialRoots(s, p, static_cast<int>(truth.size()));
  }
};

TEST_F(Polynomials, CoefficientsOfASumInOneLetter) {
  std::vector<double> c;
  std::int16_t degree = 0;
  ASSERT_TRUE(IsPolynomial(s, "3x^2-2x+5", c, degree));
  EXPECT_EQ(degree, 2);
  EXPECT_EQ(c, (std::vector<double>{5, -2, 3}));
  ASSERT_TRUE(IsPolynomial(s, "-x^2+x/3-2/5*x^4", c, degree));
  EXPECT_EQ(degree, 4);
  EXPECT_DOUBLE_EQ(c[1], 1.0 / 3.0);
  EXPECT_DOUBLE_EQ(c[4], -0.4);
  EXPECT_EQ(c[2], -1.0);
}

TEST_F(Polynomials, LeadingCoefficientOfAHalf) {
  std::vector<double> c;
  std::int16_t degree = 0;
  ASSERT_TRUE(IsPolynomial(s, "x^3/2+1", c, degree));
  EXPECT_EQ(degree, 3);
  EXPECT_EQ(c, (std::vector<double>{1, 0, 0, 0.5}));
  const std::vector<Complex> roots = PolynomialRoots(s, c, degree);
  // x^3 = -2: the real root -2^(1/3) and 2^(1/3) at angles of 60 degrees either side.
  const double r = std::cbrt(2.0);
  EXPECT_LT(WorstError(roots, {-r, std::polar(r, std::numbers::pi / 3),
                               std::polar(r, -std::numbers::pi / 3)}),
            1e-9);
}

TEST_F(Polynomials, TwoLettersAreNoPolynomial) {
  std::vector<double> c;
  std::int16_t degree = 0;
  EXPECT_FALSE(IsPolynomial(s, "x^2+y", c, degree));
  EXPECT_FALSE(IsPolynomial(s, "x*y+1", c, degree));
  EXPECT_FALSE(IsPolynomial(s, "x^(1/2)+1", c, degree));
  EXPECT_FALSE(IsPolynomial(s, "sin(x)+1", c, degree));
  EXPECT_FALSE(IsPolynomial(s, "1/x+1", c, degree));
  EXPECT_EQ(s.Pool.NodesInUse, 0);
}

TEST_F(Polynomials, CubeRootsOfOneAreOneAndAConjugatePair) {
  std::vector<double> c;
  std::int16_t degree = 0;
  ASSERT_TRUE(IsPolynomial(s, "x^3-1", c, degree));
  const std::vector<Complex> roots = PolynomialRoots(s, c, degree);
  ASSERT_EQ(roots.size(), 3u);
  // Sorted by real part: the pair first, then 1 with no imaginary part left.
  EXPECT_EQ(roots[2].imag(), 0.0);
  EXPECT_NEAR(roots[2].real(), 1.0, 1e-9);
  EXPECT_NEAR(roots[0].real(), -0.5, 1e-9);
  EXPECT_NEAR(std::abs(roots[0].imag()), std::sqrt(3.0) / 2, 1e-9);
  EXPECT_NEAR(roots[0].imag(), -roots[1].imag(), 1e-9);
  // The pair is one quadratic factor x^2+x+1.
  const std::vector<double> pair = PolynomialFromRoots({roots[0], roots[1]});
  EXPECT_EQ(pair, (std::vector<double>{1, 1, 1}));
}

TEST_F(Polynomials, SquarePlusOneStartsWithAComplexSquareRoot) {
  std::vector<Complex> a{1.0, 0.0, 1.0};
  Complex x = 0.0;
  int iterations = 0;
  LaguerreRoot(s, a, 2, x, iterations);
  EXPECT_NEAR(std::abs(x.imag()), 1.0, 1e-12);
  EXPECT_NEAR(x.real(), 0.0, 1e-12);
  EXPECT_LE(iterations, 3);
  EXPECT_LT(WorstError(PolynomialRoots(s, {1, 0, 1}, 2), {Complex(0, 1), Complex(0, -1)}), 1e-9);
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(Polynomials, IntegerRootsAreFound) {
  const std::vector<Complex> truth{-3, -1, 2, 4, 5};
  const std::vector<Complex> roots = RootsOf(truth);
  EXPECT_LT(WorstError(roots, truth), 1e-9);
  // Whole roots read as whole to 1e-8, and stay real.
  for (const Complex& r : roots) {
    EXPECT_LT(std::fabs(r.real() - std::round(r.real())), 1e-9);
    EXPECT_EQ(r.imag(), 0.0);
  }
}

TEST_F(Polynomials, RationalRootsWithALeadingCoefficient) {
  const std::vector<Complex> truth{0.5, -1.0 / 3.0, 0.75, -2.5};
  EXPECT_LT(WorstError(RootsOf(truth, 24.0), truth), 1e-9);
}

TEST_F(Polynomials, ComplexPairsAreFound) {
  const std::vector<Complex> truth{Complex(1, 2), Complex(1, -2), Complex(-0.5, 0.25),
                                   Complex(-0.5, -0.25), 3.0};
  EXPECT_LT(WorstError(RootsOf(truth, -2.0), truth), 1e-9);
}

TEST_F(Polynomials, DegreeTwentyWithWellSeparatedRoots) {
  std::vector<Complex> truth;
  for (int k = 1; k <= 10; ++k) {
    truth.emplace_back(0.2 * k - 1.1, 0.3 + 0.05 * k);
    truth.emplace_back(0.2 * k - 1.1, -0.3 - 0.05 * k);
  }
  EXPECT_LT(WorstError(RootsOf(truth), truth), 1e-9);
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(Polynomials, DegreeTwentyRootsOfUnity) {
  std::vector<double> p(21, 0.0);
  p[0] = -1.0;
  p[20] = 1.0;
  std::vector<Complex> truth;
  for (int k = 0; k < 20; ++k) truth.push_back(std::polar(1.0, 2 * std::numbers::pi * k / 20));
  EXPECT_LT(WorstError(PolynomialRoots(s, p, 20), truth), 1e-9);
}

TEST_F(Polynomials, NoRootToFindEndsAfterEightyIterationsWithTheMessage) {
  // A constant written as degree 2: every step is the circle of radius 1 + |x| at angle iter.
  Complex x = 0.0;
  int iterations = 0;
  LaguerreRoot(s, {1.0, 0.0, 0.0}, 2, x, iterations);
  EXPECT_EQ(iterations, 80);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Too many iterations in Laguerre");
  EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Critical);
}

TEST_F(Polynomials, LeadingCoefficientZeroIsADivisionByZero) {
  try {
    PolynomialRoots(s, {1.0, 2.0, 0.0}, 2);
    ADD_FAILURE() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), RunTimeErrorNumber::DivisionByZero);
  }
  EXPECT_TRUE(PolynomialRoots(s, {4.0}, 0).empty());
}

TEST_F(Polynomials, DegreeAboveTwentyRaisesTheRunTimeError) {
  std::vector<double> p(22, 1.0);
  EXPECT_THROW(PolynomialRoots(s, p, 21), RunTimeError);
}

// A root of multiplicity m moves by about the m-th root of the rounding of the coefficients
// (2.2e-16) times a factor of the other roots: no method that works on the values can do better.
// Measured over these four roots: 4e-8 for a double root, 3e-5 for a triple, 6e-4 for a
// quadruple one; the bounds below allow three times that.
TEST_F(Polynomials, RepeatedRootsWithinWhatTheirMultiplicityAllows) {
  const std::vector<double> bound{1e-9, 1.2e-7, 1e-4, 2e-3};
  for (const double r : {1.1, 1.0 / 3.0, -2.7, 7.0 / 3.0}) {
    for (std::size_t m = 1; m <= 4; ++m) {
      std::vector<Complex> truth(m, Complex(r));
      truth.push_back(0.5);
      truth.push_back(-4.0);
      EXPECT_LT(WorstError(RootsOf(truth), truth), bound[m - 1]) << r << " times " << m;
    }
  }
  // Simple roots beside the cluster keep their full accuracy.
  const std::vector<Complex> roots = RootsOf({1.1, 1.1, 1.1, 0.5, -4.0});
  EXPECT_NEAR(roots.front().real(), -4.0, 1e-12);
}

TEST_F(Polynomials, RootsAreSortedByRealPart) {
  const std::vector<Complex> roots = RootsOf({3.0, -1.0, Complex(0, 2), Complex(0, -2), 7.0});
  for (std::size_t i = 1; i < roots.size(); ++i) {
    EXPECT_LE(roots[i - 1].real(), roots[i].real());
  }
}

TEST_F(Polynomials, DivisionByAnIntegerRootIsExact) {
  // (x-1)(x-2)(x+3)(x-4) = x^4-4x^3-7x^2+34x-24
  const std::vector<double> p{-24, 34, -7, -4, 1};
  double remainder = 1.0;
  EXPECT_EQ(DividePolynomial(p, 2.0, remainder), (std::vector<double>{12, -11, -2, 1}));
  EXPECT_EQ(remainder, 0.0);
  EXPECT_EQ(DividePolynomial(p, -3.0, remainder), (std::vector<double>{-8, 14, -7, 1}));
  EXPECT_EQ(remainder, 0.0);
  DividePolynomial(p, 3.0, remainder);
  EXPECT_EQ(remainder, -12.0);
  Complex complex_remainder = 1.0;
  const std::vector<Complex> q =
      DividePolynomial(std::vector<Complex>{1, 0, 1}, Complex(0, 1), complex_remainder);
  EXPECT_EQ(complex_remainder, Complex(0.0));
  EXPECT_EQ(q, (std::vector<Complex>{Complex(0, 1), 1.0}));
}

TEST_F(Polynomials, CleanedEvaluationLosesTheNoiseOfRebuiltRoots) {
  const std::vector<double> p = PolynomialFromRoots({0.1, 0.2, 0.3});
  EXPECT_NE(p[0], -0.006);  // the rounding of the rebuilt coefficients
  EXPECT_EQ(EvaluateCleaned(p, 0.1), 0.0);
  EXPECT_EQ(EvaluateCleaned(p, 0.3), 0.0);
  EXPECT_NEAR(EvaluateCleaned(p, 1.0), 0.9 * 0.8 * 0.7, 1e-12);
  EXPECT_EQ(EvaluateCleaned({-24, 34, -7, -4, 1}, 4.0), 0.0);
}

TEST_F(Polynomials, GcdOfANumberWithItselfIsTheNumber) {
  EXPECT_EQ(GcdOf(360, 360), 360);
  EXPECT_EQ(GcdOf(97, 97), 97);
  EXPECT_EQ(LcmOf(s, 360, 360), 360);
}

TEST_F(Polynomials, LcmBeyondTheIntegersIsToldWithBothNumbers) {
  EXPECT_EQ(LcmOf(s, 65536, 65537), 0);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_NE(frontend.messages[0].text.find("the LCM of 65536 and 65537 because"),
            std::string::npos);
}

TEST_F(Polynomials, SquareRootsOfTerms) {
  EXPECT_EQ(SquareRootOfExpression(s, "4*x^2"), "2*x");
  EXPECT_EQ(SquareRootOfExpression(s, "8"), "2*sqrt(2)");
  EXPECT_EQ(SquareRootOfExpression(s, "x+1"), "sqrt(x+1)");
  EXPECT_EQ(SquareRootOfExpression(s, "sin(x)"), "sqrt(sin(x))");
  EXPECT_EQ(SquareRootOfExpression(s, "x^3"), "x^(3/2)");
  EXPECT_EQ(SquareRootOfExpression(s, "9*(x+1)^2"), "3*(x+1)");
  EXPECT_EQ(SquareRootOfExpression(s, "-9*x^2"), "3*x*sqrt(-1)");
}

TEST_F(Polynomials, TwoImaginaryUnitsMakeMinusOne) {
  std::int32_t factor = 0;
  EXPECT_EQ(CollectImaginaryRoots(s, "sqrt(2)*sqrt(-1)*sqrt(3)*sqrt(-1)", factor),
            "sqrt(2)*sqrt(3)");
  EXPECT_EQ(factor, -1);
  EXPECT_EQ(CollectImaginaryRoots(s, "sqrt(-1)*sqrt(5)*x", factor), "sqrt(5)*x*sqrt(-1)");
  EXPECT_EQ(factor, 1);
  EXPECT_EQ(CollectImaginaryRoots(s, "2*x", factor), "2*x");
  EXPECT_EQ(factor, 1);
}

}  // namespace
}  // namespace tavimor
