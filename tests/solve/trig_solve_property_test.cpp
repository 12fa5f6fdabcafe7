// The check that cannot lie, for trigonometric equations: in generated equations of each form,
// every answer the solver gives satisfies the equation.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "core/pieces.h"
#include "shell/main_flow.h"
#include "solve/auto_solve.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class TrigSolveProperty : public SessionTest {
 protected:
  TrigSolveProperty() {
    StartUp(s, ".");
    s.SolveDetail = 0;
    s.StreamingOutput = true;
  }

  // A whole number from -5 to 5 other than 0, as text.
  std::string Coefficient() {
    int k = static_cast<int>(random_() % 10) - 5;
    if (k >= 0) ++k;
    return std::to_string(k);
  }
  // "+k*term" or "-k*term" to follow another term.
  std::string Plus(const std::string& term) {
    const std::string k = Coefficient();
    return (k.front() == '-' ? "" : "+") + k + "*" + term;
  }
  std::string Shift() { return std::to_string(static_cast<int>(random_() % 3) + 1); }

  // Solves left=right and checks every answer that is a real number; the count of answers
  // checked.
  int CheckAnswers(const std::string& left, const std::string& right) {
    const std::string equation = left + "=" + right;
    std::string answers;
    try {
      AutoSolve(s, equation, "x", answers);
    } catch (const std::exception& e) {
      ADD_FAILURE() << equation << ": " << e.what();
      return 0;
    }
    int checked = 0;
    for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
      const std::string piece = GetPiece(answers, k, "; ");
      if (piece.empty() || IsReservedAnswer(piece)) continue;
      double a = NAN;
      double l = NAN;
      double r = NAN;
      try {
        NumericValue answer(s, {});
        a = answer.Of(piece);
        // A value with no real value (arcsin beyond 1) is the check's to reject.
        if (!std::isfinite(a)) continue;
        NumericValue at(s, {{'x', a}});
        l = at.Of(left);
        r = at.Of(right);
      } catch (const std::exception& e) {
        ADD_FAILURE() << equation << ": the answer " << piece << " has no value: " << e.what();
        continue;
      }
      EXPECT_LE(std::fabs(l - r), 1e-7 * (std::fabs(l) + std::fabs(r) + 1))
          << equation << " at x = " << piece << " (answers: " << answers << ")";
      ++checked;
    }
    return checked;
  }

  std::mt19937 random_{20261122};
};

TEST_F(TrigSolveProperty, EveryAnswerOfEachFormSatisfiesTheEquation) {
  // Each form as left and right sides, from random coefficients.
  using Sides = std::pair<std::string, std::string>;
  const std::vector<std::function<Sides()>> forms = {
      // one function of one angle, quadratic in it
      [&] {
        return Sides{Coefficient() + "*sin(x)^2" + Plus("sin(x)"), Coefficient()};
      },
      [&] {
        return Sides{Coefficient() + "*tan(x)^2" + Plus("tan(x)"), Coefficient()};
      },
      // by the tangent, with and without a shift
      [&] {
        return Sides{Coefficient() + "*sin(x)" + Plus("cos(x)"), "0"};
      },
      [&] {
        return Sides{Coefficient() + "*sin(x+" + Shift() + ")", Coefficient() + "*cos(x)"};
      },
      // by a phase angle
      [&] {
        return Sides{Coefficient() + "*sin(x)" + Plus("cos(x)"), Coefficient()};
      },
      [&] {
        return Sides{Coefficient() + "*sin(x+" + Shift() + ")" + Plus("cos(x)"), Coefficient()};
      },
      // the double angles
      [&] {
        return Sides{Coefficient() + "*sin(2*x)" + Plus("sin(x)"), "0"};
      },
      [&] {
        return Sides{Coefficient() + "*sin(2*x)" + Plus("cos(x)"), "0"};
      },
      [&] {
        return Sides{Coefficient() + "*cos(2*x)" + Plus("cos(x)"), Coefficient()};
      },
      [&] {
        return Sides{Coefficient() + "*sin(x)" + Plus("cos(2*x)"), Coefficient()};
      },
      // an angle with an alias
      [&] {
        return Sides{Coefficient() + "*sin(4*x)" + Plus("sin(2*x)"), "0"};
      },
      [&] {
        return Sides{Coefficient() + "*cos(6*x)" + Plus("cos(3*x)"), Coefficient()};
      },
  };
  std::vector<int> checked(forms.size(), 0);
  for (int round = 0; round < 30; ++round) {
    for (std::size_t f = 0; f < forms.size(); ++f) {
      const auto [left, right] = forms[f]();
      checked[f] += CheckAnswers(left, right);
    }
  }
  // Every form gave real answers to check: none of the checks is an empty one.
  for (std::size_t f = 0; f < forms.size(); ++f)
    EXPECT_GT(checked[f], 5) << "form " << f << ": " << checked[f];
}

}  // namespace
}  // namespace tavimor
