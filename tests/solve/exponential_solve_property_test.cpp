// The check that cannot lie, for radical, logarithmic and exponential equations drawn at random:
// every stated answer satisfies the equation at full precision, and every real root that a
// numeric search finds on its own is among the answers.
#include <gtest/gtest.h>

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

constexpr double kE = 2.71828182845904523536;

class ExponentialSolveProperty : public SessionTest {
 protected:
  ExponentialSolveProperty() {
    StartUp(s, ".");
    s.SolveDetail = 0;
    s.SolveDetailDefault = 0;
    s.StreamingOutput = true;
  }

  int Whole(int low, int high) {
    return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
  }
  static std::string Num(int k) { return "(" + std::to_string(k) + ")"; }

  // left-right at x; NaN where either side has no real value.
  double Difference(const std::string& left, const std::string& right, double x) {
    NumericValue at(s, {{'x', x}, {'e', kE}});
    const double l = at.Of(left);
    const double r = at.Of(right);
    if (at.met_undefined || !std::isfinite(l) || !std::isfinite(r)) return NAN;
    return l - r;
  }

  // The real roots where left-right changes sign on [low, high], each found by bisection.
  std::vector<double> NumericRoots(const std::string& left, const std::string& right, double low,
                                   double high) {
    std::vector<double> roots;
    const int steps = 4000;
    double x0 = low;
    double f0 = Difference(left, right, x0);
    for (int k = 1; k <= steps; ++k) {
      const double x1 = low + (high - low) * k / steps;
      const double f1 = Difference(left, right, x1);
      if (std::isfinite(f0) && std::isfinite(f1) && (f0 == 0.0 || f0 * f1 < 0.0)) {
        double a = x0;
        double b = x1;
        double fa = f0;
        for (int i = 0; i < 100 && fa != 0.0; ++i) {
          const double m = 0.5 * (a + b);
          const double fm = Difference(left, right, m);
          if (!std::isfinite(fm)) break;
          if (fa * fm <= 0.0) {
            b = m;
          } else {
            a = m;
            fa = fm;
          }
        }
        if (roots.empty() || std::fabs(roots.back() - a) > 1e-6) roots.push_back(a);
      }
      x0 = x1;
      f0 = f1;
    }
    return roots;
  }

  // Solves through the command, so the check of the answers has run.
  void Check(const std::string& left, const std::string& right, double low, double high) {
    const std::string equation = left + "=" + right;
    ASSERT_TRUE(cmdLoadEquation(s, equation, false)) << equation;
    std::string error;
    PressButton(s, "cmdAutoSolve", false, error);
    ASSERT_EQ(error, "") << equation;
    const std::string answers = s.SolveAnswers;
    std::vector<double> stated;
    if (!answers.empty() && !IsReservedAnswer(answers)) {
      for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
        const std::string piece = GetPiece(answers, k, "; ");
        NumericValue value(s, {{'e', kE}});
        const double v = value.Of(piece);
        ASSERT_TRUE(std::isfinite(v)) << equation << ": the answer " << piece;
        stated.push_back(v);
        NumericValue at(s, {{'x', v}, {'e', kE}});
        const double l = at.Of(left);
        const double r = at.Of(right);
        EXPECT_NEAR(l, r, 1e-9 * (1 + std::fabs(l) + std::fabs(r)))
            << equation << ": the answer " << piece << " does not satisfy it";
      }
    }
    for (const double root : NumericRoots(left, right, low, high)) {
      bool found = false;
      for (const double v : stated)
        found = found || std::fabs(v - root) < 1e-6 * (1 + std::fabs(root));
      EXPECT_TRUE(found) << equation << " gives " << answers << " and loses the root " << root;
    }
  }

  std::mt19937 random_{20261122};
};

TEST_F(ExponentialSolveProperty, RadicalEquationsKeepEveryRootAndRejectTheFalseOnes) {
  for (int round = 0; round < 25; ++round) {
    const int a = Whole(-4, 9);
    const int b = Whole(-6, 6);
    // sqrt(x+a) = x+b
    Check("sqrt(x+" + Num(a) + ")", "x+" + Num(b), -10.0, 40.0);
  }
}

TEST_F(ExponentialSolveProperty, TwoTermExponentialsGiveTheirOneRoot) {
  const int bases[] = {2, 3, 5, 7, 10};
  for (int round = 0; round < 25; ++round) {
    const int a = Whole(1, 5);
    const int d = Whole(1, 5);
    const int p = bases[Whole(0, 4)];
    int q = bases[Whole(0, 4)];
    if (q == p) q = p == 2 ? 3 : 2;
    const int c = Whole(-2, 2);
    // a*p^(x+c) = d*q^x
    Check(std::to_string(a) + "*" + std::to_string(p) + "^(x+" + Num(c) + ")",
          std::to_string(d) + "*" + std::to_string(q) + "^x", -30.0, 30.0);
  }
}

TEST_F(ExponentialSolveProperty, LogarithmicEquationsKeepTheRootsWhereTheyAreDefined) {
  for (int round = 0; round < 25; ++round) {
    const int a = Whole(-5, 5);
    const int b = Whole(-5, 5);
    const int k = Whole(2, 4);
    if (round % 2 == 0) {
      // ln(x+a) = ln(k*x+b)
      Check("ln(x+" + Num(a) + ")", "ln(" + std::to_string(k) + "*x+" + Num(b) + ")", -10.0, 20.0);
    } else {
      // log(x+a) + log(x+b) = log(k)
      Check("log(x+" + Num(a) + ")+log(x+" + Num(b) + ")", "log(" + std::to_string(k) + ")", -10.0,
            20.0);
    }
  }
}

TEST_F(ExponentialSolveProperty, QuadraticsInAnExponentialKeepEveryRoot) {
  for (int round = 0; round < 25; ++round) {
    const int r1 = Whole(-3, 6);
    int r2 = Whole(-3, 6);
    if (r1 == 0 || r2 == 0 || r1 == r2) continue;
    const std::string base = round % 2 == 0 ? "e" : "2";
    // (B^x - r1)(B^x - r2) = 0, typed expanded
    Check(base + "^(2*x)-" + Num(r1 + r2) + "*" + base + "^x+" + Num(r1 * r2), "0", -10.0, 10.0);
  }
}

}  // namespace
}  // namespace tavimor
