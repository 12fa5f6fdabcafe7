// The check that cannot lie, for the solver: in generated equations where the unknown occurs
// once, every answer solve states satisfies the equation, and no real solution is lost.
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

class SolveProperty : public SessionTest {
 protected:
  SolveProperty() {
    StartUp(s, ".");
    s.SolveDetail = 0;
    s.SolveDetailDefault = 0;
    s.StreamingOutput = true;
  }

  // One layer around the expression: a sum, a product, a quotient, a power, a root, exp or ln.
  std::string Wrap(const std::string& inner) {
    const int k = static_cast<int>(random_() % 5) + 2;
    const std::string n = std::to_string(k);
    switch (random_() % 9) {
      case 0: return inner + "+" + n;
      case 1: return n + "-(" + inner + ")";
      case 2: return n + "*(" + inner + ")";
      case 3: return "(" + inner + ")/" + n;
      case 4: return n + "/(" + inner + ")";
      case 5: return "(" + inner + ")^2";
      case 6: return "(" + inner + ")^3";
      case 7: return "sqrt(" + inner + ")";
      default: return random_() % 2 == 0 ? "exp(" + inner + ")" : "ln(" + inner + ")";
    }
  }

  // f(x) - right, or NaN where it has no real value.
  double Residual(const std::string& left, double right, double x) {
    NumericValue value(s, {{'x', x}, {'e', std::exp(1.0)}});
    const double v = value.Of(left);
    if (value.met_undefined || !std::isfinite(v)) return NAN;
    return v - right;
  }

  // The real roots of left = right in [-8, 8], by sign changes between continuous points.
  std::vector<double> Roots(const std::string& left, double right) {
    std::vector<double> roots;
    const double step = 0.01;
    double a = -8.0;
    double fa = Residual(left, right, a);
    for (int i = 1; i <= 1600; ++i) {
      const double b = -8.0 + i * step;
      const double fb = Residual(left, right, b);
      if (std::isfinite(fa) && std::isfinite(fb) && fa * fb < 0 && std::fabs(fa - fb) < 1.0) {
        double lo = a;
        double hi = b;
        double flo = fa;
        for (int k = 0; k < 60; ++k) {
          const double mid = (lo + hi) / 2;
          const double fm = Residual(left, right, mid);
          if (!std::isfinite(fm)) break;
          if (flo * fm <= 0) {
            hi = mid;
          } else {
            lo = mid;
            flo = fm;
          }
        }
        roots.push_back((lo + hi) / 2);
      }
      a = b;
      fa = fb;
    }
    return roots;
  }

  std::mt19937 random_{20261122};
};

TEST_F(SolveProperty, EveryAnswerSatisfiesTheEquationAndNoRealRootIsLost) {
  int solved = 0;
  int roots_found = 0;
  for (int round = 0; round < 300; ++round) {
    std::string left = "x";
    const int layers = 1 + static_cast<int>(random_() % 3);
    for (int l = 0; l < layers; ++l) left = Wrap(left);
    const int right = static_cast<int>(random_() % 9) - 2;
    const std::string equation = left + "=" + std::to_string(right);
    // The command as the student presses it, with the result only: the answers it states.
    ASSERT_TRUE(cmdLoadEquation(s, equation, false)) << equation;
    std::string error;
    PressButton(s, "cmdAutoSolve", false, error);
    // A command that stops with an arithmetic error (x=1/0 from 1/x=0) states nothing; the
    // search below then must find no root either.
    const std::string answers = error.empty() ? s.SolveAnswers : "";
    std::vector<double> values;
    if (!answers.empty() && !IsReservedAnswer(answers)) {
      for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
        const std::string piece = GetPiece(answers, k, "; ");
        double a = NAN;
        try {
          NumericValue value(s, {{'e', std::exp(1.0)}});
          a = value.Of(piece);
        } catch (const std::exception&) {
          ADD_FAILURE() << equation << ": the answer " << piece << " has no value";
        }
        // An answer with no real value (a root of a negative number) is the check's to reject.
        if (!std::isfinite(a)) continue;
        values.push_back(a);
        const double lhs = Residual(left, 0.0, a);
        if (!std::isfinite(lhs)) continue;  // outside the domain: the check rejects it
        EXPECT_LE(std::fabs(lhs - right), 1e-7 * (std::fabs(lhs) + std::fabs(right) + 1))
            << equation << " at x = " << piece;
      }
    }
    for (const double root : Roots(left, right)) {
      ++roots_found;
      bool found = false;
      for (const double v : values)
        found = found || std::fabs(v - root) <= 1e-6 * (1 + std::fabs(root));
      EXPECT_TRUE(found) << equation << " loses the root " << root << " (answers: " << answers
                         << ")";
    }
    ++solved;
  }
  EXPECT_EQ(solved, 300);
  // The search meets real roots in many equations: the check is not an empty one.
  EXPECT_GT(roots_found, 100);
}

}  // namespace
}  // namespace tavimor
