// The check that cannot lie, for complex answers: in generated quadratics, solved with complex
// numbers by each method, every answer solve states satisfies the equation in complex arithmetic.
#include <gtest/gtest.h>

#include <complex>
#include <random>
#include <string>

#include "core/pieces.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "solve/auto_solve.h"
#include "support/complex_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ComplexQuadraticProperty : public SessionTest {
 protected:
  ComplexQuadraticProperty() {
    StartUp(s, ".");
    s.SolveDetail = 0;
    s.SolveDetailDefault = 0;
    s.StreamingOutput = true;
  }

  std::mt19937 random_{20261122};
};

TEST_F(ComplexQuadraticProperty, EveryStatedAnswerSatisfiesTheQuadratic) {
  constexpr char kUnits[] = {'i', 'i', 'j', '?'};  // sqrt(-1) is read as i by the oracle
  int complex_answers = 0;
  int answers_checked = 0;
  for (int round = 0; round < 200; ++round) {
    const int form = 1 + static_cast<int>(random_() % 3);
    const int a = 1 + static_cast<int>(random_() % 4);
    const int b = static_cast<int>(random_() % 13) - 6;
    const int c = static_cast<int>(random_() % 19) - 4;
    const std::string equation = std::to_string(a) + "*x^2+" + "(" + std::to_string(b) + ")*x+" +
                                 "(" + std::to_string(c) + ")=0";
    s.ComplexForm = static_cast<std::int16_t>(form);
    s.SavedComplexForm = s.ComplexForm;
    s.QuadraticMethod = static_cast<std::int16_t>(random_() % 4);
    ASSERT_TRUE(cmdLoadEquation(s, equation, false)) << equation;
    std::string error;
    PressButton(s, "cmdAutoSolve", false, error);
    ASSERT_TRUE(error.empty()) << equation << ": " << error;
    const std::string answers = s.SolveAnswers;
    if (answers.empty() || IsReservedAnswer(answers)) continue;
    for (int k = 1; k <= CountPieces(answers, "; "); ++k) {
      const std::string piece = GetPiece(answers, k, "; ");
      ComplexValue value(s, kUnits[form], {});
      const std::complex<double> z = value.Of(piece);
      ASSERT_TRUE(std::isfinite(z.real()) && std::isfinite(z.imag())) << equation << ": " << piece;
      const std::complex<double> residual =
          static_cast<double>(a) * z * z + static_cast<double>(b) * z + static_cast<double>(c);
      const double scale = a * std::norm(z) + std::abs(b) * std::abs(z) + std::abs(c) + 1.0;
      EXPECT_LE(std::abs(residual), 1e-7 * scale)
          << equation << " under complex form " << form << " at x = " << piece;
      ++answers_checked;
      if (z.imag() != 0.0) ++complex_answers;
    }
  }
  // Many of the quadratics have complex roots: the check is not an empty one.
  EXPECT_GT(answers_checked, 150);
  EXPECT_GT(complex_answers, 40);
}

}  // namespace
}  // namespace tavimor
