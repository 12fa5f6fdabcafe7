// Properties of Complete the square over generated quadratics, alone and inside larger
// expressions: the completed form keeps the value at random points and holds the square.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "manipulate/complete_square.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class QuadraticGenerator {
 public:
  explicit QuadraticGenerator(unsigned seed) : random_(seed) {}

  // a*x^2+b*x+c with small whole or fractional coefficients, the terms in any order, sometimes
  // inside a product, a power or a root, or beside other terms.
  std::string Expression() {
    std::string terms[3] = {Coefficient(true) + "*x^2", Coefficient(true) + "*x",
                            Coefficient(false)};
    if (Pick(3) == 0) std::swap(terms[0], terms[1 + Pick(2)]);
    std::string sum = terms[0];
    for (int i = 1; i < 3; ++i) sum += (terms[i][0] == '-' ? "" : "+") + terms[i];
    switch (Pick(5)) {
      case 0: return "3*(" + sum + ")+x";
      case 1: return "sqrt(" + sum + ")";
      case 2: return "(" + sum + ")^2-1";
      default: return sum;
    }
  }

 private:
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
  std::string Coefficient(bool nonzero) {
    int n = Pick(13) - 6;
    if (n == 0 && nonzero) n = 1;
    std::string text = std::to_string(n);
    if (Pick(4) == 0) text = "(" + text + "/" + std::to_string(2 + Pick(3)) + ")";
    return text;
  }

  std::mt19937 random_;
};

class CompleteSquareProperties : public SessionTest {};

TEST_F(CompleteSquareProperties, KeepsTheValueAtRandomPoints) {
  QuadraticGenerator generator(20261122u);
  std::mt19937 points(7u);
  std::uniform_real_distribution<double> point(-3.0, 3.0);
  int converted = 0;
  for (int round = 0; round < 300; ++round) {
    InitNodePool(s);
    s.RewriteCount = 0;  // as each command starts
    const std::string input = generator.Expression();
    std::string text = input;
    std::string record;
    bool done = false;
    try {
      done = CompleteTheSquare(s, text, record);
    } catch (const std::exception& error) {
      ADD_FAILURE() << input << ": " << error.what();
    }
    if (!done) continue;
    ++converted;
    EXPECT_NE(text.find(")^2"), std::string::npos) << input << " -> " << text;
    for (int k = 0; k < 5; ++k) {
      const double x = point(points);
      NumericValue before(s, {{'x', x}});
      NumericValue after(s, {{'x', x}});
      const double want = before.Of(input);
      const double got = after.Of(text);
      if (!std::isfinite(want)) continue;
      EXPECT_NEAR(got, want, 1e-9 * std::max(1.0, std::fabs(want)))
          << input << " -> " << text << " at x = " << x;
    }
  }
  EXPECT_GT(converted, 200);
}

}  // namespace
}  // namespace tavimor
