// Properties of Factor over generated factorable polynomials: pressed until it finds nothing it
// keeps the value at random points, and leaves no factor with a rational root to split off.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/node_pool.h"
#include "core/temp_tree.h"
#include "manipulate/factor.h"
#include "manipulate/polynomial.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// Products of integer linear factors and at most one integer quadratic, times a common factor.
// Two quadratics without real roots would leave a quartic that only the numeric method splits.
class FactorableGenerator {
 public:
  explicit FactorableGenerator(unsigned seed) : random_(seed) {}

  std::string Product() {
    static constexpr const char* kCommon[] = {"", "2*", "3*", "-1*", "-2*", "x*", "2*x*", "x^2*"};
    std::string text = kCommon[Pick(8)];
    const int linear = 1 + Pick(3);
    for (int i = 0; i < linear; ++i) {
      const int a = 1 + Pick(3);
      text += "(" + (a == 1 ? std::string() : std::to_string(a) + "*") + "x" + Signed(Constant()) +
              ")*";
    }
    if (Pick(2) == 0) text += "(x^2" + Signed(Pick(9) - 4) + "*x" + Signed(Constant()) + ")*";
    text.pop_back();
    return text;
  }

 private:
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
  int Constant() {
    const int c = Pick(9) - 4;
    return c == 0 ? 1 : c;
  }
  static std::string Signed(int n) { return (n < 0 ? "" : "+") + std::to_string(n); }

  std::mt19937 random_;
};

// A factor of degree 2 or more with integer coefficients and a rational root p/q.
bool HasRationalRoot(const std::vector<double>& p, int degree) {
  const long long lead = std::llabs(std::llround(p[static_cast<std::size_t>(degree)]));
  const long long constant = std::llabs(std::llround(p[0]));
  if (constant == 0) return true;
  for (long long q = 1; q <= lead; ++q) {
    if (lead % q != 0) continue;
    for (long long r = 1; r <= constant; ++r) {
      if (constant % r != 0) continue;
      for (const double root : {static_cast<double>(r) / q, -static_cast<double>(r) / q}) {
        double value = 0.0;
        for (int k = degree; k >= 0; --k) value = value * root + p[static_cast<std::size_t>(k)];
        if (std::fabs(value) < 1e-9) return true;
      }
    }
  }
  return false;
}

class FactorProperties : public SessionTest {
 protected:
  // The bracketed sums of the product, as the bases of powers too.
  std::vector<std::string> Factors(const std::string& text) {
    std::vector<std::string> found;
    TempTree tree(s, text, TempTree::Depth::Whole);
    const NodeIdx first = tree[tree.Root()].FirstChild;
    std::vector<NodeIdx> nodes;
    if (first != kNoNode && IsProductRole(tree[first].Role)) {
      for (NodeIdx c = first; c != kNoNode; c = tree[c].Next) nodes.push_back(c);
    } else {
      nodes.push_back(tree.Root());
    }
    for (NodeIdx n : nodes) {
      NodeIdx at = n;
      if (tree[at].Kind == kKindPower) at = tree[tree[at].FirstChild].Next;
      const std::string t = tree[at].Text;
      if (t.size() > 2 && t.front() == '(' && t.back() == ')') {
        found.push_back(t.substr(1, t.size() - 2));
      } else if (tree[at].FirstChild != kNoNode && IsSumRole(tree[tree[at].FirstChild].Role)) {
        found.push_back(t);
      }
    }
    return found;
  }
};

TEST_F(FactorProperties, PressedToTheEndKeepsTheValueAndLeavesNothingToSplit) {
  FactorableGenerator generate(20261122);
  std::mt19937 points(11);
  std::uniform_real_distribution<double> at(-2.5, 2.5);
  for (int item = 0; item < 300; ++item) {
    InitNodePool(s);
    s.DetailNow = 0;
    s.RewriteCount = 0;
    const std::string product = generate.Product();
    SCOPED_TRACE(product);
    const std::string expanded = ExpandedText(s, product);
    std::string text = expanded;
    std::string record;
    int presses = 0;
    // Each press is a command of its own: its count of rewrites starts afresh.
    while (presses < 20 && FactorText(s, text, record, "20")) {
      ++presses;
      s.RewriteCount = 0;
      EXPECT_NE(std::atoi(FactorRecordField(record, 4).c_str()), kMethodNumeric)
          << product << " -> " << text;
    }
    ASSERT_LT(presses, 20) << product << " does not come to an end: " << text;
    for (int k = 0; k < 3; ++k) {
      const double x = at(points);
      NumericValue before(s, {{'x', x}});
      NumericValue after(s, {{'x', x}});
      const double want = before.Of(expanded);
      const double got = after.Of(text);
      EXPECT_NEAR(got, want, 1e-7 * std::max(1.0, std::fabs(want)))
          << product << " = " << expanded << " -> " << text << " at x = " << x;
    }
    for (const std::string& factor : Factors(text)) {
      std::vector<double> p;
      std::int16_t degree = 0;
      if (!IsPolynomial(s, factor, p, degree) || degree < 2) continue;
      EXPECT_FALSE(HasRationalRoot(p, degree)) << product << " -> " << text << " leaves " << factor;
    }
  }
}

TEST_F(FactorProperties, IrreducibleQuadraticIsLeftAloneUnderRealArithmetic) {
  for (const char* quadratic : {"x^2+x+1", "x^2+1", "2*x^2+3*x+5", "x^2-2*x+3", "x^2+x-1"}) {
    std::string text = quadratic;
    std::string record;
    EXPECT_FALSE(FactorText(s, text, record, "20")) << quadratic << " -> " << text;
  }
}

}  // namespace
}  // namespace tavimor
