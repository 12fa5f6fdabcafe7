// Polynomials of degree 3 and more: a rational root divided out, or every factor numerically.
#include <algorithm>
#include <cmath>

#include "core/node_queries.h"
#include "core/number_format.h"
#include "core/pieces.h"
#include "manipulate/factor.h"
#include "manipulate/polynomial.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr int kLargestDenominator = 12;
constexpr double kCandidateTolerance = 1e-4;
constexpr double kRepeatedRoot = 1e-5;

std::string Whole(double x) { return std::to_string(static_cast<long long>(std::llround(x))); }

// The polynomial written from its coefficients, highest power first.
std::string PolynomialText(Session& s, const std::vector<double>& p, const std::string& x) {
  std::vector<std::string> terms;
  for (int k = static_cast<int>(p.size()) - 1; k >= 0; --k) {
    if (p[k] == 0.0) continue;
    const std::string power = k == 0 ? "" : (k == 1 ? x : x + "^" + std::to_string(k));
    std::string number = GeneralNumberFormat(p[k], s.Dp());
    if (!power.empty() && number == "1") number = "";
    if (!power.empty() && number == "-1") number = "-";
    const bool joint = !power.empty() && !number.empty() && number != "-";
    terms.push_back(number + (joint ? "*" : "") + power);
  }
  return terms.empty() ? "0" : JoinTerms(terms);
}

std::string LetterOf(const std::string& text) {
  for (char ch : text) {
    if (IsAsciiLetter(ch)) return std::string(1, ch);
  }
  return "x";
}

}  // namespace

// A rational root r gives the factor (x-r)   help 74; else the factors numerically   help 73
bool FactorPolynomial(Session& s, const std::string& part, FactorFinding& found) {
  std::vector<double> p;
  std::int16_t degree = 0;
  if (!IsPolynomial(s, part, p, degree) || degree < 3 || degree > kMaxPolynomialDegree) {
    return false;
  }
  p.resize(static_cast<std::size_t>(degree) + 1);
  std::string x;
  {
    std::string letter;
    for (std::size_t i = 0; i < part.size(); ++i) {
      if (IsAsciiLetter(part[i]) && (i + 1 >= part.size() || part[i + 1] != '(')) {
        letter = std::string(1, part[i]);
        break;
      }
    }
    x = letter.empty() ? LetterOf(part) : letter;
  }
  const bool integers = std::all_of(p.begin(), p.end(), [](double c) {
    return std::fabs(c - std::round(c)) < 1e-12 && std::fabs(c) < 2e9;
  });
  const std::vector<Complex> roots = PolynomialRoots(s, p, degree);
  if (integers) {
    // The rational roots in the order a student tries them: 1, -1, 2, -2, ...
    std::vector<std::pair<long long, long long>> rational;  // numerator, denominator
    for (const Complex& root : roots) {
      if (std::fabs(root.imag()) > kRootEpsilon) continue;
      for (long long q = 1; q <= kLargestDenominator; ++q) {
        const double scaled = root.real() * static_cast<double>(q);
        // A repeated root comes out only to about half the digits: the candidate is tested exactly.
        if (std::fabs(scaled - std::round(scaled)) < kCandidateTolerance &&
            std::fabs(EvaluateCleaned(p, std::round(scaled) / static_cast<double>(q))) <
                kRootEpsilon) {
          rational.emplace_back(std::llround(scaled), q);
          break;
        }
      }
    }
    if (!rational.empty()) {
      std::sort(rational.begin(), rational.end(), [](const auto& l, const auto& r) {
        const double lv = std::fabs(static_cast<double>(l.first) / l.second);
        const double rv = std::fabs(static_cast<double>(r.first) / r.second);
        if (l.second != r.second) return l.second < r.second;
        if (lv != rv) return lv < rv;
        return l.first > r.first;
      });
      const auto [num, den] = rational.front();
      const double root = static_cast<double>(num) / static_cast<double>(den);
      double remainder = 0.0;
      std::vector<double> quotient = DividePolynomial(p, root, remainder);
      for (double& q : quotient) q = std::round(q / static_cast<double>(den) * 1e9) / 1e9;
      const std::string root_text =
          den == 1 ? Whole(static_cast<double>(num))
                   : Whole(static_cast<double>(num)) + "/" + Whole(static_cast<double>(den));
      const std::string factor =
          den == 1 ? (num == 0 ? x : "(" + JoinTerms({x, Whole(-static_cast<double>(num))}) + ")")
                   : "(" +
                         JoinTerms({Whole(static_cast<double>(den)) + "*" + x,
                                    Whole(-static_cast<double>(num))}) +
                         ")";
      const std::string other = PolynomialText(s, quotient, x);
      found.code = kMethodDeflation;
      found.factored = factor + "*(" + other + ")";
      found.values = {x, root_text, factor, part, other, found.factored};
      return true;
    }
  }
  // Numerically: real roots linear, conjugate pairs quadratic (or linear with the unit). A
  // repeated root comes out as a few roots close together: they take one value, so that their
  // factors are written alike and come together as a power.
  std::vector<Complex> merged = roots;
  for (std::size_t i = 1; i < merged.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (std::abs(merged[i] - merged[j]) < kRepeatedRoot * std::max(1.0, std::abs(merged[j]))) {
        merged[i] = merged[j];
        break;
      }
    }
  }
  std::vector<std::string> factors;
  const std::string lead = GeneralNumberFormat(p[static_cast<std::size_t>(degree)], s.Dp());
  if (lead != "1") factors.push_back(lead == "-1" ? "-1" : lead);
  for (const Complex& root : merged) {
    if (std::fabs(root.imag()) <= kRootEpsilon) {
      factors.push_back("(" + JoinTerms({x, GeneralNumberFormat(-root.real(), s.Dp())}) + ")");
    } else if (root.imag() > 0) {
      if (s.ComplexForm > 0) {
        for (double sign : {1.0, -1.0}) {
          const std::string im = GeneralNumberFormat(-sign * root.imag(), s.Dp());
          factors.push_back("(" +
                            JoinTerms({x, GeneralNumberFormat(-root.real(), s.Dp()),
                                       im + "*" + ImagUnitText(s)}) +
                            ")");
        }
      } else {
        const double b = -2.0 * root.real();
        const double c = std::norm(root);
        factors.push_back("(" +
                          JoinTerms({x + "^2", GeneralNumberFormat(b, s.Dp()) + "*" + x,
                                     GeneralNumberFormat(c, s.Dp())}) +
                          ")");
      }
    }
  }
  std::string product;
  for (const std::string& f : factors) AppendPiece(product, '*', f);
  found.code = kMethodNumeric;
  found.factored = SimplifyText(s, product);
  found.values = {found.factored};
  return true;
}

}  // namespace tavimor
