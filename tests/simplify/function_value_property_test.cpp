// Properties of the function, logarithm and combine-logs rules over many generated items: the
// value never changes at random points where the item is defined.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "core/errors.h"
#include "manipulate/combine_logs.h"
#include "simplify/simplify_driver.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

constexpr double kE = 2.718281828459045;
constexpr double kPi = 3.14159265358979;

// The shapes of the items; capitals are filled with operands.
const std::vector<std::string> kTemplates = {
    "ln(A)+ln(B)",
    "ln(A)-ln(B)",
    "2*ln(A)+3*ln(B)",
    "log(A)-2*log(B)",
    "ln(A)+log(B)",
    "-ln(A)-ln(B)+x",
    "ln(1/A)",
    "log(1/A/B)",
    "ln(A^3)",
    "ln(A^2)",
    "ln(A^3*B^3)",
    "ln(8)/ln(2)",
    "log(9)/log(27)*A",
    "exp(A)*exp(B)",
    "exp(A)/exp(B)",
    "sin(arcsin(C))",
    "cos(arctan(A))",
    "tan(arccos(C))",
    "sin(arccos(C))",
    "cos(arcsin(C))",
    "tan(arcsin(C))",
    "sin(arctan(A))",
    "log(exp(A))",
    "exp(log(A))",
    "sqrt(A^2)",
    "sqrt(A^4)",
    "sqrt(A^6)",
    "sqrt(A)^2",
    "log(10^A)",
    "10^log(A)",
    "e^ln(A)",
    "ln(e^A)",
    "arcsin(sin(A))",
    "arctan(tan(A))",
    "arccos(cos(A))",
    "sin(N)+cos(N)",
    "ln(N)*arctan(N)",
    "exp(N)-log(N)",
    "arcsin(D)+arccos(D)",
    "sin(K*p/6)+cos(K*p/4)",
    "tan(K*p/3)",
    "sin(K*p/4)*B",
    "arctan(1/tan(A))",
    "ln(A)*ln(B)+ln(x)",
};

class ItemGenerator {
 public:
  explicit ItemGenerator(unsigned seed) : random_(seed) {}

  std::string Item() {
    std::string item = kTemplates[Pick(kTemplates.size())];
    Fill(item, 'A', {"x", "y", "(x+1)", "(2*x)", "(x*y)", "(x^2+1)", "3", "0.5"});
    Fill(item, 'B', {"x", "y", "(y+2)", "(3*y)", "2", "(x^2)"});
    Fill(item, 'C', {"(x/3)", "0.5", "(-x/4)", "(y/5)"});
    Fill(item, 'D', {"0.5", "-0.3", "0.9", "(x/3)"});
    Fill(item, 'N', {"0.5", "1.7", "2.25", "3"});
    Fill(item, 'K', {"1", "2", "3", "5", "7", "-1", "-5", "11", "13"});
    return item;
  }

 private:
  std::size_t Pick(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_);
  }
  void Fill(std::string& item, char slot, const std::vector<std::string>& choices) {
    for (std::size_t at = item.find(slot); at != std::string::npos; at = item.find(slot)) {
      item.replace(at, 1, choices[Pick(choices.size())]);
    }
  }
  std::mt19937 random_;
};

// The value of a text at the point, NaN where it is not a real number.
double ValueAt(Session& s, const std::string& text, double x, double y) {
  NumericValue at(s, {{'x', x}, {'y', y}, {'e', kE}, {'p', kPi}});
  const double value = at.Of(text);
  return at.met_undefined ? NAN : value;
}

bool Close(double a, double b) { return std::fabs(a - b) <= 1e-8 * std::max(1.0, std::fabs(a)); }

// Rewrites the text with `rewrite` and checks the value at five points where it is defined.
template <typename Rewrite>
void CheckKeepsValue(Session& s, const std::string& text, std::mt19937& points, Rewrite rewrite,
                     int& checked) {
  InitNodePool(s);
  s.RewriteCount = 0;
  NodeIdx root = NewNode(s);
  try {
    LoadSide(s, root, text);
    rewrite(root);
  } catch (const std::exception& error) {
    ADD_FAILURE() << text << ": " << error.what();
    return;
  }
  const std::string result = s.Pool[root].Text;
  std::uniform_real_distribution<double> value(0.3, 2.7);
  for (int k = 0; k < 5; ++k) {
    const double x = value(points);
    const double y = value(points);
    InitNodePool(s);
    const double before = ValueAt(s, text, x, y);
    if (!std::isfinite(before) || std::fabs(before) > 1e8) continue;
    const double after = ValueAt(s, result, x, y);
    EXPECT_TRUE(Close(before, after)) << text << " -> " << result << " at x=" << x << ", y=" << y
                                      << ": " << before << " against " << after;
    ++checked;
  }
}

class FunctionValueProperty : public SessionTest {};

TEST_F(FunctionValueProperty, SimplifyKeepsTheValueOfFunctionsAndLogarithms) {
  ItemGenerator items(20261122);
  std::mt19937 points(7);
  int checked = 0;
  for (int k = 0; k < 400; ++k) {
    const std::string item = items.Item();
    s.SpecialP = true;
    s.ExactToFloat = k % 3 == 0;
    s.ExponentToExponentialFunction = k % 2 == 0;
    CheckKeepsValue(
        s, item, points,
        [this](NodeIdx& root) {
          int level = 0;
          SimplifyTree(s, root, level);
        },
        checked);
  }
  EXPECT_GT(checked, 1000);
}

TEST_F(FunctionValueProperty, CombineLogsKeepsTheValue) {
  ItemGenerator items(99);
  std::mt19937 points(3);
  int checked = 0;
  for (int k = 0; k < 300; ++k) {
    const std::string item = items.Item();
    s.ExactToFloat = k % 4 == 0;
    s.SpecialE = k % 5 != 0;
    CheckKeepsValue(
        s, item, points, [this](NodeIdx& root) { CombineLogs(s, root); }, checked);
  }
  EXPECT_GT(checked, 700);
}

// In degrees the angle is a number of degrees: the value of the result against the sine, cosine
// and tangent of that many degrees.
TEST_F(FunctionValueProperty, SpecialValuesInDegreesAreTheTrueValues) {
  s.Degrees = true;
  const char* const names[] = {"sin", "cos", "tan"};
  for (int degrees = -720; degrees <= 720; degrees += 15) {
    for (const char* name : names) {
      const std::string f = name;
      const double radians = degrees * kPi / 180.0;
      const double expected =
          f == "sin" ? std::sin(radians) : (f == "cos" ? std::cos(radians) : std::tan(radians));
      InitNodePool(s);
      NodeIdx root = NewNode(s);
      const std::string text = f + "(" + std::to_string(degrees) + ")";
      LoadSide(s, root, text);
      int level = 0;
      try {
        SimplifyTree(s, root, level);
      } catch (const AppError& error) {
        EXPECT_EQ(error.Number(), kErrorTangent) << text;
        EXPECT_GT(std::fabs(expected), 1e9) << text;
        continue;
      }
      const std::string result = s.Pool[root].Text;
      InitNodePool(s);
      if (result.find('(') != std::string::npos && result.find("sqrt") == std::string::npos) {
        continue;  // an angle off the table stays a function
      }
      EXPECT_TRUE(Close(expected, ValueAt(s, result, 0.0, 0.0))) << text << " -> " << result;
    }
  }
}

}  // namespace
}  // namespace tavimor
