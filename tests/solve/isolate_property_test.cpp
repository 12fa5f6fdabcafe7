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
    int last = -1;
    for (int k = 0; k < depth; ++k) {
      const int c = Number(1, 9);
      const std::string b = "(" + a + ")";
      int layer = Number(0, 12);
      // ln straight around e^ (or the reverse) is left out: its value waits for the function
      // values of the simplifier.
      while ((layer == 10 && last == 12) || (layer == 12 && last == 10)) layer = Number(0, 12);
      last = layer;
      switch (layer) {
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
        case 11: a = b + "^4"; break;
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

  // The real roots of left - right on [-30, 30] where it changes sign without a pole: between
  // two sample points of opposite signs, or at a sample point of value 0 whose neighbours have
  // opposite signs (a value that only underflows to 0 is no root).
  std::vector<double> NumericRoots(const std::string& left, double right) {
    const int steps = 6000;
    std::vector<double> xs;
    std::vector<double> fs;
    for (int k = 0; k <= steps; ++k) {
      xs.push_back(-30.0 + 60.0 * k / steps);
      fs.push_back(ValueAt(left, xs.back()) - right);
    }
    std::vector<double> roots;
    for (int k = 1; k < steps; ++k) {
      const double f0 = fs[static_cast<std::size_t>(k - 1)];
      const double f1 = fs[static_cast<std::size_t>(k)];
      const double f2 = fs[static_cast<std::size_t>(k + 1)];
      if (!std::isfinite(f0) || !std::isfinite(f1) || !std::isfinite(f2)) continue;
      if (f1 == 0.0) {
        if (f0 != 0.0 && f2 != 0.0 && (f0 < 0.0) != (f2 < 0.0)) {
          roots.push_back(xs[static_cast<std::size_t>(k)]);
        }
        continue;
      }
      if (f2 == 0.0 || (f1 < 0.0) == (f2 < 0.0)) continue;
      double a = xs[static_cast<std::size_t>(k)];
      double b = xs[static_cast<std::size_t>(k + 1)];
      double fa = f1;
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

// Any side in which x occurs once, under any function or exponent the tutor knows, is isolated
// to the end in a bounded number of steps, and nothing but the run-time error of a command
// (a number beyond the arithmetic's range) stops it.
TEST_F(IsolationProperty, EveryLayerComesOffInBoundedSteps) {
  const char* wrappers[] = {"sin",    "cos",    "tan", "cot", "sec", "csc", "arcsin",
                            "arccos", "arctan", "log", "exp", "ln",  "sqrt"};
  const char* exponents[] = {"2", "3", "4", "(1/3)", "(2/3)", "(-2)", "(-1)", "(1/2)", "x"};
  int ended = 0;
  for (int trial = 0; trial < 200; ++trial) {
    std::string a = "x";
    const int depth = Number(1, 3);
    for (int k = 0; k < depth; ++k) {
      const std::string b = "(" + a + ")";
      switch (Number(0, 3)) {
        case 0: a = std::string(wrappers[Number(0, 12)]) + b; break;
        case 1: {
          const std::string e = exponents[Number(0, 7)];
          a = b + "^" + e;
          break;
        }
        case 2: a = std::to_string(Number(2, 9)) + "^" + b; break;
        default: a = std::to_string(Number(1, 9)) + "*" + b + "-" + std::to_string(Number(1, 9));
      }
    }
    const std::string right = std::to_string(Number(-9, 9));
    try {
      const std::string answers = IsolateAll(SimplifyText(s, a), right);
      EXPECT_FALSE(answers.empty()) << a << "=" << right;
      ++ended;
    } catch (const RunTimeError&) {
    }
  }
  EXPECT_GT(ended, 150);
}

}  // namespace
}  // namespace tavimor
