// Tests of the Auto solve button: when there is nothing to do, the choice of the unknown, the
// heading, the answers as stated, and the closing rule.
#include <gtest/gtest.h>

#include "shell/buttons.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class AutoSolveCommandTest : public SessionTest {
 protected:
  AutoSolveCommandTest() {
    StartUp(s, ".");
    s.StreamingOutput = true;
  }
  // Loads the equation, presses Auto solve; what the press wrote.
  std::string Press(const std::string& item) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    frontend.work_space.clear();
    std::string error;
    EXPECT_EQ(PressButton(s, "cmdAutoSolve", false, error), PressOutcome::Done);
    EXPECT_EQ(error, "");
    return frontend.Transcript();
  }
  // The first choice of the status bar's first panel.
  void ResultOnly() {
    s.SolveDetail = 0;
    s.SolveDetailDefault = 0;
  }
  std::string LastMessage() const {
    return frontend.messages.empty() ? "" : frontend.messages.back().text;
  }
};

TEST_F(AutoSolveCommandTest, AlreadySolvedEquationHasNothingToDo) {
  EXPECT_EQ(Press("x=5"), "");
  EXPECT_EQ(LastMessage(), "There is nothing to do.  This equation is already solved for x.");
}

TEST_F(AutoSolveCommandTest, UnsimplifiedRightSideIsStillToSolve) {
  Press("x=2+3");
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Pool[kRightRoot].Text, "5");
}

TEST_F(AutoSolveCommandTest, EquationWithoutLettersHasNothingToDo) {
  EXPECT_EQ(Press("2=3"), "");
  EXPECT_EQ(LastMessage(), "There is nothing to do.  This equation does not contain any unknowns.");
}

TEST_F(AutoSolveCommandTest, OnlyLetterIsTakenWithoutAsking) {
  Press("2*y=6");
  EXPECT_TRUE(frontend.questions.empty());
  EXPECT_EQ(s.Unknown, "y");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "y");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "3");
  EXPECT_EQ(s.Form.status_panels[5], "unknown = y ");
}

TEST_F(AutoSolveCommandTest, UnknownNotInTheEquationAsksForALetter) {
  frontend.three_way_answers = {YesNoCancel::Yes};
  Press("a*y=b");
  ASSERT_EQ(frontend.questions.size(), 1u);
  EXPECT_EQ(frontend.questions[0],
            "x does not appear in this equation.\nDo you want the unknown to be a?");
  EXPECT_EQ(s.Unknown, "a");
}

TEST_F(AutoSolveCommandTest, NoOffersTheNextLetter) {
  frontend.three_way_answers = {YesNoCancel::No, YesNoCancel::Yes};
  Press("a*y=b");
  ASSERT_EQ(frontend.questions.size(), 2u);
  EXPECT_EQ(frontend.questions[1],
            "x does not appear in this equation.\nDo you want the unknown to be y?");
  EXPECT_EQ(s.Unknown, "y");
}

TEST_F(AutoSolveCommandTest, CancelSolvesNothing) {
  frontend.three_way_answers = {YesNoCancel::Cancel};
  EXPECT_EQ(Press("a*y=b"), "");
  EXPECT_EQ(s.Unknown, "x");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "a*y");
}

TEST_F(AutoSolveCommandTest, StepsOpenWithTheHeadingInItalics) {
  Press("2*x=6");
  ASSERT_FALSE(frontend.work_space.empty());
  EXPECT_EQ(frontend.work_space[0].text, "Solve this equation for x by following these steps:");
  EXPECT_TRUE(frontend.work_space[0].format.italic);
}

TEST_F(AutoSolveCommandTest, ResultOnlyStatesTheSolution) {
  ResultOnly();
  EXPECT_EQ(Press("2*x=6"), "Solving this equation yields the solution:\n\n\t@x=3@  \n");
}

TEST_F(AutoSolveCommandTest, ResultOnlyStatesTheSolutionSet) {
  ResultOnly();
  EXPECT_EQ(Press("x^2=x"),
            "Solving this equation yields the solution set:\n\n\t@x=0@  \nand\n\t@x=1@  \n");
}

TEST_F(AutoSolveCommandTest, StepsStateSeveralSolutionsAfterTheirCount) {
  const std::string shown = Press("x^2=x");
  EXPECT_NE(shown.find("The solution set consists of 2 solutions:\n\n\t@x=0@  \nand\n\t@x=1@  "),
            std::string::npos);
}

TEST_F(AutoSolveCommandTest, StepsEndWithTheClosingRule) {
  const std::string shown = Press("2*x=6");
  EXPECT_EQ(shown.substr(shown.size() - 31), "\n\n_____________________________");
}

TEST_F(AutoSolveCommandTest, ResultOnlyStatesAnIdentity) {
  ResultOnly();
  EXPECT_EQ(Press("x+1=1+x"),
            "This equation is any identity and any value of @x@ is a solution.\n");
}

TEST_F(AutoSolveCommandTest, ResultOnlyStatesNoRealSolution) {
  ResultOnly();
  EXPECT_EQ(Press("x+1=x+2"), "This equation has no solution over the real numbers.\n");
}

TEST_F(AutoSolveCommandTest, RepeatedAnswerLeavesTheSingleSolution) {
  const std::string shown = Press("(x-1)*(2*x-2)=0");
  EXPECT_NE(shown.find("The solution set consists of the single solution:\n\n\t@x=1@"),
            std::string::npos);
  EXPECT_EQ(s.SolveAnswers, "1");
}

TEST_F(AutoSolveCommandTest, SolvedEquationBecomesTheWorkItem) {
  Press("x^2=x");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "0");
  EXPECT_EQ(s.SolveAnswers, "0; 1");
}

}  // namespace
}  // namespace tavimor
