// The state of one run of the equation solver, which the driver and the form solvers share.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tavimor {

// What a form solver tells the driver.
enum class FormStatus : std::int16_t {
  FormUnsolvable = 0,   // the form fits but can't be solved; the solver said why
  FormChanged = 1,      // the equation changed: SavedLeft/SavedRight hold it; start the ladder over
  FormNotThisForm = 2,  // this solver does not apply: try the next rung
  FormAgain = 3,        // isolation only: write nothing, go round the isolation loop again
  FormNoSolution = 4,   // the branch ends with "no-solution"
  FormStepped = 6,      // isolation only: write the step and go on
};

// The three words that stand in the right side instead of a value; the left side then holds the
// unknown, so that the branch counts as finished.
inline constexpr const char* kUnsolvable = "unsolvable";
inline constexpr const char* kNoSolution = "no-solution";
inline constexpr const char* kAnyValue = "any-value";

// One equation waiting on the stack: left side, right side.
using PendingEquation = std::array<std::string, 2>;

// The local state of one run of the solver. A nested run (an alias solved for its own letter)
// has a state of its own.
struct SolveRun {
  std::string Unknown;
  std::string WorkLeft;
  std::string WorkRight;
  std::string SavedLeft;
  std::string SavedRight;
  // The stack of equations still to be solved: row i (from 1) is PendingEquations[i - 1]; the
  // row PendingCount is the equation in hand or the one in hand at the last branching.
  std::vector<PendingEquation> PendingEquations;
  std::int16_t PendingCount = 1;
  // The solutions found, each preceded by "; " while the run lasts.
  std::string Answers;
  bool OnceIntroShown = false;
  std::int16_t OccursLeft = 0;
  std::int16_t OccursRight = 0;
  FormStatus Status = FormStatus::FormNotThisForm;

  // The row `row` (from 1) of the stack.
  PendingEquation& Row(int row) { return PendingEquations.at(static_cast<std::size_t>(row - 1)); }
  // Grows or shrinks the stack to `count` rows, keeping the contents.
  void ResizePending(int count) {
    PendingEquations.resize(static_cast<std::size_t>(count));
    PendingCount = static_cast<std::int16_t>(count);
  }
};

}  // namespace tavimor
