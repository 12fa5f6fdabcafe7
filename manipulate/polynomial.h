// Polynomials in one letter: their coefficients, all their complex roots by Laguerre's method,
// division by a root, evaluation without noise, and square roots of terms.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/complex_number.h"
#include "core/session.h"

namespace tavimor {

inline constexpr int kRootMaxIterations = 80;    // Laguerre iterations for one root
inline constexpr double kRootRoundoff = 2e-9;    // rounding error per unit of the error sum
inline constexpr double kRootEpsilon = 1e-8;     // real roots, cleaning, pairs of conjugates
inline constexpr int kMaxPolynomialDegree = 20;  // the room for roots

// The coefficients of the text, indexed by power, when it is a sum of terms c*x^n in exactly
// one letter after simplifying; `degree` is the highest power with a coefficient other than 0.
bool IsPolynomial(Session& s, const std::string& text, std::vector<double>& coefficients,
                  std::int16_t& degree);

// One root of the polynomial of that degree by Laguerre's method, from the start value in x.
// After 80 iterations "Too many iterations in Laguerre" is told and x is what it has become.
void LaguerreRoot(Session& s, const std::vector<Complex>& a, int degree, Complex& x,
                  int& iterations);
// All roots, each found on the deflated polynomial and polished on the whole one, sorted by
// their real parts. A degree beyond 20 raises the run-time error of a full table, a leading
// coefficient 0 that of a division by zero.
std::vector<Complex> PolynomialRoots(Session& s, const std::vector<double>& coefficients,
                                     int degree);

// Synthetic division by (x - root), in the running order of the deflation: the quotient, and
// the remainder out.
std::vector<double> DividePolynomial(const std::vector<double>& p, double root, double& remainder);
std::vector<Complex> DividePolynomial(const std::vector<Complex>& p, Complex root,
                                      Complex& remainder);
// Horner's rule in which a running value below 1e-8 of the largest coefficient met is 0.
double EvaluateCleaned(const std::vector<double>& coefficients, double x);
// The real coefficients of the product of (x - r) over the roots, noise cleaned as above.
std::vector<double> PolynomialFromRoots(const std::vector<Complex>& roots);

// The square root of a term in simplified form: numbers by SquareRootOfNumber, powers halved,
// products factor by factor, anything else under sqrt.
std::string SquareRootOfExpression(Session& s, const std::string& text);
// Takes at most two imaginary units out of a product text; two of them give the factor -1, one
// is moved to the end. The text without them comes back.
std::string CollectImaginaryRoots(Session& s, const std::string& text, std::int32_t& factor);

}  // namespace tavimor
