// Properties of Simplify over many generated sums and products: the value never changes at
// random points, the loop always ends, and a second Simplify finds nothing to do.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/errors.h"
#include "core/validate.h"
#include "simplify/simplify_driver.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class SumGenerator {
 public:
  explicit SumGenerator(unsigned seed) : random_(seed) {}

  std::string Sum(int depth) {
    std::string sum = Chance(0.2) ? "-" : (Chance(0.1) ? "+" : "");
    sum += Term(depth);
    const int terms = Pick(4);
    for (int i = 0; i < terms; ++i) sum += (Chance(0.5) ? "+" : "-") + Term(depth);
    return sum;
  }

 private:
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(random_) < p; }
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

  std::string Factor(int depth) {
    switch (depth <= 0 ? Pick(3) : Pick(6)) {
      case 0: return std::to_string(Pick(5));
      case 1: return std::string(1, "xyz"[Pick(3)]);
      case 2: return std::string(1, "xy"[Pick(2)]) + "^" + std::to_string(2 + Pick(3));
      case 3: return "(" + Sum(depth - 1) + ")";
      case 4: return "(" + Term(depth - 1) + ")";
      default: return "(-(" + Sum(depth - 1) + "))";
    }
  }
  std::string Term(int depth) {
    std::string term = Factor(depth);
    const int factors = Pick(3);
    for (int i = 0; i < factors; ++i) term += (Chance(0.8) ? "*" : "/") + Factor(depth);
    return term;
  }

  std::mt19937 random_;
};

// Runs Simplify on the text with the options as they are, checking the value at three points,
// the end of the loop and that a second run finds nothing; an arithmetic error only where the
// value is truly undefined. Counts the values checked.
void CheckItem(Session& s, const std::string& text, std::mt19937& points, int& checked) {
  std::uniform_real_distribution<double> value(0.3, 2.7);
  InitNodePool(s);
  s.RewriteCount = 0;
  NodeIdx root = NewNode(s);
  std::string simplified;
  try {
    LoadSide(s, root, text);
    int level = 0;
    SimplifyTree(s, root, level);
    simplified = s.Pool[root].Text;
    EXPECT_FALSE(SimplifyTree(s, root, level)) << text << " -> " << simplified;
    EXPECT_EQ(s.Pool[root].Text, simplified) << text;
  } catch (const AppError& error) {
    NumericValue at(s, {{'x', value(points)}, {'y', value(points)}, {'z', value(points)}});
    InitNodePool(s);
    const double undefined = at.Of(text);
    EXPECT_TRUE(!std::isfinite(undefined) || at.met_undefined) << text << ": " << error.what();
    return;
  } catch (const RunTimeError& error) {
    if (error.Number() == RunTimeErrorNumber::DivisionByZero) {
      NumericValue at(s, {{'x', value(points)}, {'y', value(points)}, {'z', value(points)}});
      InitNodePool(s);
      const double undefined = at.Of(text);
      EXPECT_TRUE(!std::isfinite(undefined) || at.met_undefined) << text << ": division by zero";
      return;
    }
    // Only the pool may run out on a large item; the loop itself always ends.
    EXPECT_NE(error.Number(), RunTimeErrorNumber::Overflow) << text << ": " << error.what();
    EXPECT_LT(s.RewriteCount, 5000) << text;
    return;
  }
  for (int k = 0; k < 3; ++k) {
    NumericValue at(s, {{'x', value(points)}, {'y', value(points)}, {'z', value(points)}});
    InitNodePool(s);
    const double before = at.Of(text);
    if (!std::isfinite(before)) continue;
    const double after = at.Of(simplified);
    EXPECT_NEAR(after, before, 1e-9 * std::max(1.0, std::fabs(before)))
        << text << " -> " << simplified;
    ++checked;
  }
}

TEST(SimplifyProperty, ValueStaysTheLoopEndsAndASecondRunFindsNothing) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  SumGenerator generator(20261121);
  std::mt19937 points(5);
  int checked = 0;
  int accepted = 0;
  for (int i = 0; i < 2000; ++i) {
    std::string text = generator.Sum(2);
    if (ValidateInput(s, text) != 0) continue;  // as the OK button would refuse it
    ++accepted;
    CheckItem(s, text, points, checked);
  }
  EXPECT_GT(accepted, 1000);
  EXPECT_GT(checked, 2000);
}

constexpr const char* kNumbers[] = {"1", "2", "3", "4", "6", "8", "9", "12", "0.5"};
constexpr const char* kExponents[] = {"2",     "3", "(-1)", "(-2)",  "(1/2)",
                                      "(1/3)", "0", "1",    "(3/2)", "(2/3)"};

// Products of powers, radicals and fractions of positive quantities.
class PowerGenerator {
 public:
  explicit PowerGenerator(unsigned seed) : random_(seed) {}

  std::string Term(int depth) {
    std::string term = Chance(0.15) ? "-" : "";
    term += Factor(depth);
    const int factors = Pick(4);
    for (int i = 0; i < factors; ++i) term += (Chance(0.7) ? "*" : "/") + Factor(depth);
    return term;
  }

 private:
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(random_) < p; }
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
  std::string Letter() { return std::string(1, "xyz"[Pick(3)]); }
  std::string Number() { return kNumbers[Pick(9)]; }
  std::string Exponent() { return kExponents[Pick(10)]; }
  std::string Positive(int depth) {
    switch (depth <= 0 ? Pick(3) : Pick(5)) {
      case 0: return Number();
      case 1: return Letter();
      case 2: return Letter() + "^" + std::to_string(1 + Pick(4));
      case 3: return Positive(depth - 1) + "*" + Positive(depth - 1);
      default: return "(" + Positive(depth - 1) + "/" + Positive(depth - 1) + ")";
    }
  }
  std::string Factor(int depth) {
    switch (depth <= 0 ? Pick(4) : Pick(9)) {
      case 0: return Number();
      case 1: return Letter();
      case 2: return Letter() + "^" + Exponent();
      case 3: return Number() + "^" + Exponent();
      case 4: return "sqrt(" + Positive(depth - 1) + ")";
      case 5: return "(" + Term(depth - 1) + ")^" + Exponent();
      case 6: return "(" + Term(depth - 1) + ")";
      case 7: return "sqrt(" + Positive(depth - 1) + ")^" + Exponent();
      default: return "(" + Letter() + "^" + Exponent() + ")^" + Exponent();
    }
  }

  std::mt19937 random_;
};

TEST(SimplifyProperty, ProductsPowersAndRadicalsKeepTheirValueUnderEveryFormOption) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  PowerGenerator generator(7);
  std::mt19937 points(11);
  int checked = 0;
  int accepted = 0;
  for (int i = 0; i < 1600; ++i) {
    std::string text = generator.Term(2);
    if (ValidateInput(s, text) != 0) continue;
    ++accepted;
    // Each item under one of the combinations of the four form options.
    s.ExponentToReciprocal = (i & 1) == 0;
    s.ExponentToRadical = (i & 2) == 0;
    s.ExactToFloat = (i & 4) != 0;
    s.ExponentToExponentialFunction = (i & 8) != 0;
    CheckItem(s, text, points, checked);
  }
  EXPECT_GT(accepted, 1000);
  EXPECT_GT(checked, 2500);
}

}  // namespace
}  // namespace tavimor
