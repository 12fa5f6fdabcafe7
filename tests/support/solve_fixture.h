// A session set for solving with every step streamed, with the solver's answers, hints and
// transcript at hand: the base of the solver's tests.
#pragma once

#include <string>
#include <vector>

#include "solve/auto_solve.h"
#include "support/session_fixture.h"

namespace tavimor {

class SolveTest : public SessionTest {
 protected:
  SolveTest() {
    s.SolveDetail = 1;
    s.StreamingOutput = true;
  }
  // Solves for the unknown; the answers as the solver states them ("2; -3", "no-solution").
  std::string Solve(const std::string& equation, const std::string& unknown = "x") {
    std::string answers;
    AutoSolve(s, equation, unknown, answers);
    return answers;
  }
  // The hints the solver gives in hint mode on the equation, in order; nothing is written.
  const std::vector<std::string>& Hints(const std::string& equation) {
    s.SolveDetail = 0;
    s.HintState = 1;
    Solve(equation);
    return frontend.hints;
  }
  std::string Transcript() const { return frontend.Transcript(); }
  bool Wrote(const std::string& text) const { return Transcript().find(text) != std::string::npos; }
  std::size_t Where(const std::string& text) const { return Transcript().find(text); }
};

}  // namespace tavimor
