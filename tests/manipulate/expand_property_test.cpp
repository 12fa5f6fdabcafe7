// Properties of Expand over generated products and powers of sums: the value never changes at
// random points, the loop always ends, and nothing that can be multiplied out is left.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/input_split.h"
#include "manipulate/expand.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ProductGenerator {
 public:
  explicit ProductGenerator(unsigned seed) : random_(seed) {}

  std::string Expression() {
    std::string text = Chance(0.2) ? "-" : "";
    text += Term();
    if (Chance(0.4)) text += (Chance(0.5) ? "+" : "-") + Term();
    return text;
  }

 private:
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(random_) < p; }
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

  std::string Simple() {
    switch (Pick(4)) {
      case 0: return std::to_string(1 + Pick(4));
      case 1: return std::string(1, "xyz"[Pick(3)]);
      case 2: return std::to_string(2 + Pick(3)) + "*" + std::string(1, "xyz"[Pick(3)]);
      default: return std::string(1, "xy"[Pick(2)]) + "^2";
    }
  }
  std::string Sum(int terms) {
    std::string sum = Chance(0.2) ? "-" : "";
    sum += Simple();
    for (int i = 1; i < terms; ++i) sum += (Chance(0.6) ? "+" : "-") + Simple();
    return "(" + sum + ")";
  }
  std::string Factor() {
    switch (Pick(7)) {
      case 0: return Simple();
      case 1:
      case 2: return Sum(2 + Pick(2));
      case 3: return Sum(2) + "^" + std::to_string(2 + Pick(5));  // binomial theorem from ^4
      case 4: return Sum(3) + "^" + std::to_string(2 + Pick(2));
      case 5: return Sum(2 + Pick(4)) + "^2";  // up to five terms
      default: return "2^(x*" + Sum(2) + ")";  // a bracket in an exponent stays
    }
  }
  // One factor of any kind; the others small, so that every expansion fits in the pool.
  std::string Term() {
    std::string term = Factor();
    const int more = Pick(2);
    for (int i = 0; i < more; ++i) term += "*" + (Chance(0.5) ? Simple() : Sum(2 + Pick(2)));
    if (Chance(0.15)) term += "/" + (Chance(0.5) ? Sum(2) : std::string(1, "xyz"[Pick(3)]));
    return term;
  }

  std::mt19937 random_;
};

// A product that still holds a bracketed sum it could multiply out, or a power of a sum of at
// most five terms, outside exponents (and outside denominators unless they are expanded).
bool HasExpandablePlace(const Session& s, NodeIdx n, int mode, std::string& where) {
  const ExprNode& node = s.Pool[n];
  if (node.Role == kRoleExponent) return false;
  if (node.Role == kRoleDenominator && mode != 2) return false;
  auto is_bracketed_sum = [&s](NodeIdx c) {
    const ExprNode& b = s.Pool[c];
    return (b.Kind == kKindBracket || b.Kind == kKindHiddenBracket) && b.FirstChild != kNoNode &&
           IsSumRole(s.Pool[b.FirstChild].Role);
  };
  if (node.FirstChild != kNoNode && IsProductRole(s.Pool[node.FirstChild].Role)) {
    int denominators = 0;
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      denominators += s.Pool[c].Role == kRoleDenominator ? 1 : 0;
    }
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      if (!is_bracketed_sum(c)) continue;
      if (s.Pool[c].Role == kRoleNumerator ||
          (mode == 2 && s.Pool[c].Role == kRoleDenominator && denominators >= 2)) {
        where = node.Text;
        return true;
      }
    }
  }
  if (node.Kind == kKindPower) {
    const NodeIdx base = s.Pool[node.FirstChild].Next;
    if (s.Pool[base].Kind == kKindBracket && is_bracketed_sum(base)) {
      int terms = 0;
      for (NodeIdx c = s.Pool[base].FirstChild; c != kNoNode; c = s.Pool[c].Next) ++terms;
      if (terms <= kTheoremMaxTerms) {
        where = node.Text;
        return true;
      }
    }
  }
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (HasExpandablePlace(s, c, mode, where)) return true;
  }
  return false;
}

class ExpandProperties : public SessionTest {};

TEST_F(ExpandProperties, ValueKeptNothingLeftAndTheLoopEnds) {
  ProductGenerator generate(20261122);
  std::mt19937 points(7);
  std::uniform_real_distribution<double> value(0.5, 1.5);
  int checked = 0;
  int changed = 0;
  for (int item = 0; item < 400; ++item) {
    const std::string text = generate.Expression();
    const int mode = 1 + item % 2;
    InitNodePool(s);
    s.ExpandMode = static_cast<std::int16_t>(mode);
    s.DetailNow = 0;
    s.RewriteCount = 0;
    NodeIdx root = NewNode(s);
    std::string result;
    try {
      LoadSide(s, root, text);
      changed += ExpandTree(s, root) ? 1 : 0;
      result = s.Pool[root].Text;
      s.RewriteCount = 0;
      EXPECT_FALSE(ExpandTree(s, root)) << text << " -> " << result;
      std::string where;
      EXPECT_FALSE(HasExpandablePlace(s, root, mode, where))
          << text << " -> " << result << " still holds " << where;
    } catch (const RunTimeError& error) {
      // Only a division by zero that the item itself holds, as in y/(x-x).
      NumericValue at(s, {{'x', value(points)}, {'y', value(points)}, {'z', value(points)}});
      InitNodePool(s);
      const double undefined = at.Of(text);
      EXPECT_TRUE(error.Number() == RunTimeErrorNumber::DivisionByZero &&
                  (at.met_undefined || !std::isfinite(undefined)))
          << text << ": " << error.what();
      continue;
    }
    for (int p = 0; p < 3; ++p) {
      NumericValue at(s, {{'x', value(points)}, {'y', value(points)}, {'z', value(points)}});
      const double before = at.Of(text);
      const double after = at.Of(result);
      if (!std::isfinite(before)) continue;
      EXPECT_NEAR(after, before, 1e-9 * std::max(1.0, std::fabs(before)))
          << text << " -> " << result;
      ++checked;
    }
  }
  EXPECT_GT(changed, 250);
  EXPECT_GT(checked, 1000);
}

}  // namespace
}  // namespace tavimor
