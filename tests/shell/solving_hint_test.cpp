// Tests of the Solving hint button: the hint is the step solve would write next, at every stage
// of a solve, and the equation is left as it was.
#include <gtest/gtest.h>

#include <random>

#include "core/scoped_override.h"
#include "shell/buttons.h"
#include "shell/commands/auto_solve_command.h"
#include "shell/commands/solving_hint_command.h"
#include "shell/main_flow.h"
#include "simplify/simplify_driver.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class SolvingHint : public SessionTest {
 protected:
  SolvingHint() { StartUp(s, "."); }
};

// A fresh tutor with the equation loaded.
struct Tutor {
  Tutor() : s(frontend) { StartUp(s, "."); }
  RecordingFrontend frontend;
  Session s;
};

// The hint on the equation, or empty when none is shown.
std::string HintOf(const std::string& equation) {
  Tutor t;
  cmdLoadEquation(t.s, equation, false);
  cmdSolvingHint(t.s);
  return t.frontend.hints.empty() ? "" : t.frontend.hints.front();
}

// The first step solve writes on the equation (its message, then the equation it leads to).
struct FirstStep {
  std::string message;
  std::string equation;
};
FirstStep FirstStepOf(const std::string& equation) {
  Tutor t;
  t.s.SolveDetail = 1;
  t.s.StreamingOutput = true;
  cmdLoadEquation(t.s, equation, false);
  t.frontend.work_space.clear();
  AutoSolveCommand(t.s);
  const std::string transcript = t.frontend.Transcript();
  const std::string start = "by following these steps:\n";
  std::size_t from = transcript.find(start);
  if (from == std::string::npos) return {};
  from += start.size();
  const std::string mark = "\n\n\t@";
  const std::size_t picture = transcript.find(mark, from);
  if (picture == std::string::npos) {
    // A line with no equation (the equation is solved): the line alone.
    return {transcript.substr(from, transcript.find("\n\n", from) + 2 - from), ""};
  }
  const std::size_t start_of_equation = picture + mark.size();
  const std::size_t end = transcript.find('@', start_of_equation);
  return {transcript.substr(from, picture + 1 - from),
          transcript.substr(start_of_equation, end - start_of_equation)};
}

TEST_F(SolvingHint, ShowsTheNextStepAndLeavesTheEquation) {
  cmdLoadEquation(s, "2*x+3=7", false);
  frontend.work_space.clear();
  EXPECT_EQ(cmdSolvingHint(s), "");
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "This is an equation in which the unknown occurs just once.  Invert the operations "
            "that were applied to the unknown, one at a time, starting with the outermost, until "
            "@x@ is isolated.\n\nSubtract @3@ from both sides.\n");
  EXPECT_EQ(frontend.hint_help, std::vector<int>{142});
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2*x+3");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "7");
  EXPECT_EQ(frontend.Transcript(), "");
  EXPECT_EQ(s.HintState, 0);
  EXPECT_EQ(s.SolveDetail, 1);
}

TEST_F(SolvingHint, ButtonOfTheEquationPanelRunsIt) {
  cmdLoadEquation(s, "x/3=2", false);
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSolvingHint", false, error), PressOutcome::Done);
  EXPECT_EQ(frontend.hints.size(), 1u);
}

TEST_F(SolvingHint, SolvedEquationHintsThatItIsSolved) {
  EXPECT_EQ(HintOf("x=7"), "This equation is now solved for @x@ .\n\n");
}

TEST_F(SolvingHint, ErrorInTheRunGivesItsMessageAndKeepsTheEquation) {
  cmdLoadEquation(s, "x=1", false);
  // A pool too full to solve in: the run fails with the command's message.
  std::vector<NodeIdx> taken;
  try {
    for (;;) taken.push_back(NewNode(s));
  } catch (const std::exception&) {
  }
  for (int k = 0; k < 1 && !taken.empty(); ++k) {
    FreeNode(s, taken.back());
    taken.pop_back();
  }
  EXPECT_EQ(cmdSolvingHint(s), "Error in Solving Hint.");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "1");
  EXPECT_EQ(s.HintState, 0);
}

// Equations in which x occurs once, under layers of sums and products, with sides as Simplify
// leaves them (so that solve begins with a step that can be a hint): at each stage the hint is
// the step solve writes next.
TEST(SolvingHintProperty, HintIsTheStepSolveWritesNextAtEachStage) {
  std::mt19937 random(20261122);
  std::uniform_int_distribution<int> number(2, 9);
  std::uniform_int_distribution<int> layer(0, 4);
  std::uniform_int_distribution<int> depth(1, 4);
  int stages = 0;
  for (int k = 0; k < 40; ++k) {
    std::string side = "x";
    for (int d = depth(random); d > 0; --d) {
      const std::string c = std::to_string(number(random));
      switch (layer(random)) {
        case 0: side = "(" + side + ")+" + c; break;
        case 1: side = c + "*(" + side + ")"; break;
        case 2: side = "(" + side + ")/" + c; break;
        case 3: side = c + "-(" + side + ")"; break;
        default: side = "(" + side + ")-" + c; break;
      }
    }
    std::string equation;
    {
      Tutor t;
      equation = SimplifyText(t.s, side) + "=" + std::to_string(number(random));
    }
    for (int stage = 0; stage < 8; ++stage) {
      const std::string hint = HintOf(equation);
      const FirstStep step = FirstStepOf(equation);
      ASSERT_FALSE(hint.empty()) << equation;
      if (step.message.empty()) {
        EXPECT_EQ(hint, "This equation is now solved for @x@ .\n\n") << equation;
        break;
      }
      // A step that can't be a hint passes the hint on: the property is about the others.
      if (step.message.rfind("Transpose (add or subtract)", 0) == 0 ||
          step.message.rfind("Simplify each side of the equation", 0) == 0) {
        break;
      }
      EXPECT_EQ(hint, step.message) << equation;
      ++stages;
      if (step.equation.empty() || step.equation == equation) break;
      equation = step.equation;
    }
  }
  EXPECT_GE(stages, 40);
}

}  // namespace
}  // namespace tavimor
