// The check that cannot lie, for linear, quadratic and rational equations: under each quadratic
// method the stated answers are exactly the real solutions, computed here independently of the
// solver; roots where a denominator vanishes are rejected, and none is lost.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "core/pieces.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "solve/auto_solve.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// A coefficient: a whole number, or a fraction p/q, with its text and value.
struct Coefficient {
  std::string text;
  double value = 0;
};

class PolynomialSolveProperty : public SessionTest, public ::testing::WithParamInterface<int> {
 protected:
  PolynomialSolveProperty() {
    StartUp(s, ".");
    s.SolveDetail = 0;
    s.SolveDetailDefault = 0;
    s.StreamingOutput = true;
    s.QuadraticMethod = static_cast<std::int16_t>(GetParam());
  }

  int Whole(int low, int high) {
    return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
  }
  int NonZero(int low, int high) {
    int k = 0;
    while (k == 0) k = Whole(low, high);
    return k;
  }
  Coefficient Make(bool fractional) {
    const int p = NonZero(-6, 6);
    if (!fractional) return {"(" + std::to_string(p) + ")", static_cast<double>(p)};
    const int q = Whole(2, 5);
    return {"(" + std::to_string(p) + "/" + std::to_string(q) + ")", static_cast<double>(p) / q};
  }

  // The values of the stated answers; empty for a reserved word.
  std::vector<double> Stated(const std::string& equation, std::string& answers) {
    EXPECT_TRUE(cmdLoadEquation(s, equation, false)) << equation;
    std::string error;
    PressButton(s, "cmdAutoSolve", false, error);
    EXPECT_EQ(error, "") << equation;
    answers = s.SolveAnswers;
    std::vector<double> values;
    if (answers.empty() || IsReservedAnswer(answers)) return values;
    for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
      const std::string piece = GetPiece(answers, k, "; ");
      NumericValue value(s, {});
      const double v = value.Of(piece);
      EXPECT_TRUE(std::isfinite(v)) << equation << ": the answer " << piece;
      values.push_back(v);
    }
    return values;
  }

  // The stated answers are exactly the expected real roots, each once.
  void ExpectRoots(const std::string& equation, std::vector<double> expected) {
    std::string answers;
    std::vector<double> stated = Stated(equation, answers);
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end(),
                               [](double a, double b) { return std::fabs(a - b) < 1e-9; }),
                   expected.end());
    std::sort(stated.begin(), stated.end());
    ASSERT_EQ(stated.size(), expected.size()) << equation << " gives " << answers;
    for (std::size_t i = 0; i < stated.size(); ++i) {
      EXPECT_NEAR(stated[i], expected[i], 1e-7 * (1 + std::fabs(expected[i])))
          << equation << " gives " << answers;
    }
    if (expected.empty()) {
      EXPECT_TRUE(answers == "no-solution") << equation << " gives " << answers;
    }
  }

  std::mt19937 random_{20261122};
};

TEST_P(PolynomialSolveProperty, LinearAnswersAreTheSolution) {
  for (int round = 0; round < 40; ++round) {
    const bool fractional = round % 2 == 1;
    const Coefficient a = Make(fractional);
    const Coefficient b = Make(fractional);
    const Coefficient c = Make(false);
    Coefficient d = Make(fractional);
    if (std::fabs(a.value - d.value) < 1e-12) d = {"(" + std::to_string(7) + ")", 7.0};
    // a x + b = d x + c
    const std::string equation = a.text + "*x+" + b.text + "=" + d.text + "*x+" + c.text;
    ExpectRoots(equation, {(c.value - b.value) / (a.value - d.value)});
  }
}

TEST_P(PolynomialSolveProperty, QuadraticAnswersAreTheRealRoots) {
  for (int round = 0; round < 40; ++round) {
    const bool fractional = round % 4 == 3;
    const Coefficient a = Make(fractional);
    const Coefficient b = Make(fractional);
    const Coefficient c = Make(false);
    const Coefficient r = Make(false);
    // a x^2 + b x + c = r x^2 - ... keeps it quadratic: a x^2 + b x = r with r moved.
    const std::string equation = a.text + "*x^2+" + b.text + "*x+" + c.text + "=" + r.text;
    const double cc = c.value - r.value;
    const double disc = b.value * b.value - 4 * a.value * cc;
    std::vector<double> roots;
    if (std::fabs(disc) < 1e-12) {
      roots.push_back(-b.value / (2 * a.value));
    } else if (disc > 0) {
      roots.push_back((-b.value + std::sqrt(disc)) / (2 * a.value));
      roots.push_back((-b.value - std::sqrt(disc)) / (2 * a.value));
    }
    ExpectRoots(equation, roots);
  }
}

TEST_P(PolynomialSolveProperty, QuadraticsWithIntegerRootsGiveThem) {
  for (int round = 0; round < 30; ++round) {
    const int p = Whole(-6, 6);
    const int q = Whole(-6, 6);
    const int k = NonZero(-3, 3);
    // k (x - p)(x - q) = 0, typed expanded.
    const int b = -k * (p + q);
    const int c = k * p * q;
    if (b == 0 || c == 0) continue;
    const std::string equation =
        std::to_string(k) + "*x^2+(" + std::to_string(b) + ")*x+(" + std::to_string(c) + ")=0";
    ExpectRoots(equation, {static_cast<double>(p), static_cast<double>(q)});
  }
}

TEST_P(PolynomialSolveProperty, RationalAnswersAreTheSolutionsWhereTheEquationHasAValue) {
  for (int round = 0; round < 30; ++round) {
    const int p = Whole(-5, 5);
    const int m = NonZero(-4, 4);
    const int n = Whole(-4, 4);
    // x/(x-p) = m/(x-p) + n: clearing gives x = m + n (x - p), so (1-n) x = m - n p.
    const std::string equation = "x/(x-(" + std::to_string(p) + "))=(" + std::to_string(m) +
                                 ")/(x-(" + std::to_string(p) + "))+(" + std::to_string(n) + ")";
    std::vector<double> roots;
    if (n != 1) {
      const double x = static_cast<double>(m - n * p) / (1 - n);
      if (std::fabs(x - p) > 1e-9) roots.push_back(x);  // a root where x-p vanishes is no root
    }
    if (n == 1 && m == p) continue;  // x = x where defined: every x but p
    ExpectRoots(equation, roots);
  }
}

std::string MethodName(const ::testing::TestParamInfo<int>& param) {
  static const char* const kNames[] = {"Factoring", "Formula", "CompletingTheSquare", "Graphing"};
  return kNames[param.param];
}

INSTANTIATE_TEST_SUITE_P(EachQuadraticMethod, PolynomialSolveProperty,
                         ::testing::Values(0, 1, 2, 3), MethodName);

}  // namespace
}  // namespace tavimor
