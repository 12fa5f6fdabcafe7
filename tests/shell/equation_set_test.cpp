// Tests of the commands of a set of equations: substitution into the last equation, and every
// equation of the list solved in one go.
#include <gtest/gtest.h>

#include "shell/buttons.h"
#include "shell/commands/equation_set_commands.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class EquationSet : public SessionTest {
 protected:
  EquationSet() { StartUp(s, "."); }
  void Set(const std::string& text) {
    cmdLoadEquation(s, text, false);
    frontend.work_space.clear();
  }
  std::string Now() const { return s.Pool[kLeftRoot].Text + "=" + s.Pool[kRightRoot].Text; }
};

TEST_F(EquationSet, SubstitutionMakesTheLastEquationTheWorkItem) {
  Set("y=2*x; x+y=9");
  EXPECT_EQ(cmdSubstitute(s), "");
  EXPECT_EQ(Now(), "x+(2*x)=9");
  EXPECT_EQ(frontend.Transcript(),
            "Substituting\n     @y->2*x@  \ninto the equation @x+y=9@ yields\n\n\t@x+(2*x)=9@\n\n");
  EXPECT_EQ(s.HelpNumber, 396);
  ASSERT_EQ(s.EquationList.size(), 1u);
  EXPECT_EQ(s.EquationList[0][0], "x+(2*x)");
  EXPECT_EQ(s.Form.visible_panel, kPanelEquation);
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(EquationSet, EachEarlierEquationIsSubstitutedInTurn) {
  Set("a=b+1; b=3; a*b=c");
  cmdSubstitute(s);
  // a goes in first, then b, also into what a brought in.
  EXPECT_EQ(Now(), "((3)+1)*(3)=c");
  EXPECT_NE(frontend.Transcript().find("     @a->b+1@  \n     @b->3@  \n"), std::string::npos)
      << frontend.Transcript();
}

TEST_F(EquationSet, SubstitutionIntoBothSides) {
  Set("t=5; 2*t=t+x");
  cmdSubstitute(s);
  EXPECT_EQ(Now(), "2*(5)=(5)+x");
}

TEST_F(EquationSet, NoSubstitutionIsToldInABoxAndChangesNothing) {
  Set("y=2; a+b=3");
  EXPECT_EQ(cmdSubstitute(s), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "No substitutions were found");
  EXPECT_EQ(frontend.Transcript(), "");
  EXPECT_EQ(s.EquationList.size(), 2u);
  EXPECT_EQ(s.Form.visible_panel, kPanelMultiEquations);
}

TEST_F(EquationSet, LetterInsideAFunctionNameIsNoLetter) {
  Set("s=2; sin(x)=1");
  cmdSubstitute(s);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "No substitutions were found");
}

TEST_F(EquationSet, ItemThatIsNoEquationIsRefusedWithTheWordsKept) {
  for (const std::string set : {"y=2; y+1", "y; x+y=1"}) {
    Set(set);
    frontend.messages.clear();
    EXPECT_EQ(cmdSubstitute(s), "Error: The right side of a substitution must be an expression");
    ASSERT_EQ(frontend.messages.size(), 1u) << set;
    EXPECT_EQ(frontend.messages[0].text,
              "Error: The right side of a substitution must be an expression");
    EXPECT_EQ(frontend.messages[0].help_number, 2);
    EXPECT_EQ(frontend.Transcript(), "");
  }
}

TEST_F(EquationSet, BracketsAroundALetterOrValueAreStripped) {
  Set("(y)=(4); x=y");
  cmdSubstitute(s);
  EXPECT_EQ(Now(), "x=(4)");
  EXPECT_NE(frontend.Transcript().find("@y->4@"), std::string::npos);
}

TEST_F(EquationSet, SolveAllCountsOnlyTheEquationsOfTheList) {
  cmdLoadEquation(s, "x+1=3", false);
  cmdLoadEquation(s, "x^2+x", false);
  cmdLoadEquation(s, "2*x=8", false);
  cmdLoadEquation(s, "x+y=3; x-y=1", false);
  frontend.work_space.clear();
  EXPECT_EQ(MultiAutoSolve(s), "");
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text.rfind("time taken for 2 equations was ", 0), 0u)
      << frontend.messages[0].text;
  EXPECT_EQ(frontend.messages[0].text.back(), 's');
  const std::string transcript = frontend.Transcript();
  EXPECT_NE(transcript.find("@x=2@"), std::string::npos) << transcript;
  EXPECT_NE(transcript.find("@x=4@"), std::string::npos) << transcript;
  EXPECT_EQ(transcript.find("following these steps"), std::string::npos);
  EXPECT_EQ(s.SolveDetail, 1);
}

TEST_F(EquationSet, SolveAllTimeIsWrittenWithUpToTwoDecimals) {
  EXPECT_EQ(SolveAllTimeText(3, 0.1234, '.'), "time taken for 3 equations was 0.12s");
  EXPECT_EQ(SolveAllTimeText(1, 2.0, ','), "time taken for 1 equations was 2s");
}

TEST_F(EquationSet, SolveAllIsTheButtonOfTheSetPanel) {
  cmdLoadEquation(s, "3*x=6", false);
  cmdLoadEquation(s, "x+y=3; x-y=1", false);
  std::string error;
  EXPECT_EQ(PressButton(s, "MultiAutoSolve", false, error), PressOutcome::Done);
  ASSERT_FALSE(frontend.messages.empty());
  EXPECT_EQ(frontend.messages.back().text.rfind("time taken for 1 equations was ", 0), 0u);
}

}  // namespace
}  // namespace tavimor
