// The check that cannot lie, for isolation: equations in which the unknown occurs once, built
// at random from layers of sums, products, quotients, powers, roots, exp and ln, are isolated to
// the end (branches of square roots included), the answers checked; every answer kept satisfies
// the equation at full precision, and every real root a numeric search finds is among them.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "core/pieces.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/check_solutions.h"
#include "solve/isolate.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class IsolationProperty : public SessionTest {
 protected:
  IsolationProperty() {
    NewNode(s);  // node 2
    NewNode(s);  // node 3
    s.SolveDetail = 0;
    s.StreamingOutput = true;
  }

  // A side with x once inside `depth` random layers.
  std::string Layered(int depth) {
    std::string a = "x";
    for (int k = 0; k < depth; ++k) {
      const int c = Number(1, 9);
      const std::string b = "(" + a + ")";
      switch (Number(0, 11)) {
        case 0: a = b + "+" + std::to_string(c); break;
        case 1: a = b + "-" + std::to_string(c); break;
        case 2: a = std::to_string(c) + "-" + b; break;
        case 3: a = std::to_string(c) + "*" + b; break;
        case 4: a = "-" + std::to_string(c) + "*" + b; break;
        case 5: a = b + "/" + std::to_string(c); break;
        case 6: a = std::to_string(c) + "/" + b; break;
        case 7: a = b + "^2"; break;
        case 8: a = b + "^3"; break;
        case 9: a = "sqrt" + b; break;
        case 10: a = "e^" + b; break;
        default: a = "ln" + b; break;
      }
    }
    return a;
  }

  int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

  // The isolation loop with the stack of branches, as the solver runs it; the answers joined
  // by "; ".
  std::string IsolateAll(const std::string& left, const std::string& right) {
    SolveRun run;
    run.Unknown = "x";
    s.ExtraUnknown = "x";
    run.WorkLeft = left;
    run.WorkRight = right;
    run.ResizePending(1);
    run.Row(1) = {left, right};
    std::string answers;
    for (int rounds = 0; rounds < 200; ++rounds) {
      if (run.WorkLeft == run.Unknown) {
        answers += "; " + run.WorkRight;
        if (run.PendingCount == 1) return answers.substr(2);
        run.ResizePending(run.PendingCount - 1);
        run.WorkLeft = run.Row(run.PendingCount)[0];
        run.WorkRight = run.Row(run.PendingCount)[1];
        continue;
      }
      std::string message;
      IsolateStep(s, run, message);
    }
    ADD_FAILURE() << "the isolation did not end: " << left << "=" << right;
    return "";
  }

  double ValueAt(const std::string& text, double x) {
    NumericValue value(s, {{'x', x}, {'e', std::exp(1.0)}});
    return value.Of(text);
  }

  // The real roots of left - right on [-30, 30] where it changes sign without a pole.
  std::vector<double> NumericRoots(const std::string& left, double right) {
    std::vector<double> roots;
    const int steps = 6000;
    double x0 = -30.0;
    double f0 = ValueAt(left, x0) - right;
    for (int k = 1; k <= steps; ++k) {
      const double x1 = -30.0 + 60.0 * k / steps;
      const double f1 = ValueAt(left, x1) - right;
      if (std::isfinite(f0) && f0 == 0.0) {
        roots.push_back(x0);
      } else if (std::isfinite(f0) && std::isfinite(f1) && f1 != 0.0 && (f0 < 0.0) != (f1 < 0.0)) {
        double a = x0;
        double b = x1;
        double fa = f0;
        for (int i = 0; i < 80; ++i) {
          const double m = 0.5 * (a + b);
          const double fm = ValueAt(left, m) - right;
          if (!std::isfinite(fm)) break;
          if (fm == 0.0) {
            a = m;
            b = m;
            break;
          }
          if ((fa < 0.0) == (fm < 0.0)) {
            a = m;
            fa = fm;
          } else {
            b = m;
          }
        }
        const double root = 0.5 * (a + b);
        const double residual = ValueAt(left, root) - right;
        if (std::isfinite(residual) && std::fabs(residual) < 1e-6 * (1.0 + std::fabs(right))) {
          roots.push_back(root);
        }
      }
      x0 = x1;
      f0 = f1;
    }
    return roots;
  }

  std::mt19937 random{20261122};
};

TEST_F(IsolationProperty, AnswersSatisfyTheEquationAndNoRealRootIsLost) {
  int checked = 0;
  for (int trial = 0; trial < 300; ++trial) {
    // The solver simplifies both sides before it isolates.
    const std::string left = SimplifyText(s, Layered(Number(1, 3)));
    const int r = Number(-9, 9);
    const std::string right = std::to_string(r);
    std::string answers;
    try {
      answers = IsolateAll(left, right);
    } catch (const RunTimeError&) {
      continue;  // the simplifier's own limits (a number beyond 32 bits) end a command
    }
    int rejected = 0;
    CleanAnswers(answers, rejected);
    CheckSolutions(s, left + "=" + right, "x", answers, rejected);
    std::vector<double> kept;
    if (answers != "no-solution" && answers != "unsolvable") {
      for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
        const std::string piece = GetPiece(answers, k, "; ");
        const double x = ValueAt(piece, 0.0);
        ASSERT_TRUE(std::isfinite(x)) << left << "=" << right << " gave " << piece;
        const double residual = ValueAt(left, x) - r;
        EXPECT_LE(std::fabs(residual), 1e-6 * (1.0 + std::fabs(r) + std::fabs(ValueAt(left, x))))
            << left << "=" << right << " gave x=" << piece;
        kept.push_back(x);
      }
    }
    ASSERT_NE(answers, "unsolvable") << left << "=" << right;
    for (const double root : NumericRoots(left, r)) {
      bool found = false;
      for (const double x : kept) found = found || std::fabs(x - root) <= 1e-5 * (1 + std::fabs(x));
      EXPECT_TRUE(found) << left << "=" << right << " lost the root " << root << " (answers "
                         << answers << ")";
    }
    ++checked;
  }
  EXPECT_GT(checked, 250);
}

}  // namespace
}  // namespace tavimor
