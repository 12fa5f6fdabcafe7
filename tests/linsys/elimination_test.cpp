// The elimination assistant: the choice of each ERO from the grid alone, every sentence of why,
// and the reading of the reduced form.
#include <gtest/gtest.h>

#include "linsys/elimination.h"
#include "system_fixture.h"

namespace tavimor {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// Clicks ERO Assist until the reduced form is read; the number of clicks.
int AssistToTheEnd(Session& s, SysEqState& form) {
  int clicks = 0;
  while (!form.closed && clicks < 1000) {
    cmdAssistElim(s, form);
    ++clicks;
  }
  return clicks;
}

TEST_F(SystemTest, ZeroInThePivotPositionNeedsASwapFirst) {
  // y=2; x=3 with the letters in the order y, x reads [1 0 | 2], [0 1 | 3]: so write x first.
  Open("0x+y=2; x=3");
  EXPECT_EQ(Texts(form.grid), (Rows{{"0", "1", "2"}, {"1", "0", "3"}}));
  cmdAssistElim(s, form);
  EXPECT_EQ(form.assist_text,
            "The goal is to put the system into RREF form.  The first required operation is in "
            "column 1, so it becomes the pivot column.  Row 1 becomes the pivot row.  The pivot "
            "position is on the diagonal and is shown in blue.  The first task is to get a 1 in "
            "the pivot position.  But we can't use the usual ERO # 1 to do it because that would "
            "mean dividing by 0, so instead we apply ERO # 3 and interchange rows 1 and 2.");
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "0", "3"}, {"0", "1", "2"}}));
  EXPECT_NE(WorkSpace().find("Apply ERO # 3, swapping R1 and R2.  The system of equations "
                             "becomes:\n\t@x=3@\n\t@y=2@\n"),
            std::string::npos)
      << WorkSpace();
}

TEST_F(SystemTest, FirstColumnOfZerosHasNothingToDo) {
  Open("x-x+y=2; y+z=3");
  cmdAssistElim(s, form);
  EXPECT_EQ(form.assist_text.rfind("The goal is to put the system into RREF form.  There is "
                                   "nothing to do in column 1.  The first required operation is "
                                   "in column 2, so it becomes the pivot column.  Row 1 becomes "
                                   "the pivot row.  The pivot position is shown in blue.",
                                   0),
            0u)
      << form.assist_text;
  EXPECT_EQ(form.blue_row, 1);
  EXPECT_EQ(form.blue_col, 2);
}

TEST_F(SystemTest, ScaleIsToldAndSetsThePivotToOne) {
  Open("2x+3y=8; x-y=-1");
  cmdAssistElim(s, form);
  EXPECT_NE(form.assist_text.find("The first task is to get a 1 in the pivot position.  Do this by "
                                  "applying ERO # 1, i.e. by dividing the pivot row (row 1) "
                                  "through by the pivot.  "),
            std::string::npos);
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "3/2", "4"}, {"1", "-1", "-1"}}));
  EXPECT_EQ(form.comments[0], std::string(9, ' ') + "\xe2\x86\x90 R1 / 2");
  cmdAssistElim(s, form);
  EXPECT_EQ(form.assist_text,
            "We continue working on column 1, applying ERO # 2 to get 0's above and below the "
            "pivot position.  To get a 0 in row 2 we subtract a suitable multiple of the pivot "
            "row (row 1) from it.");
  EXPECT_EQ(form.comments[1], std::string(9, ' ') + "\xe2\x86\x90 R2 - 1 * R1");
}

TEST_F(SystemTest, PivotOfOneBeginsWithTheAdditions) {
  Open("x+y=3; -2x+y=0");
  cmdAssistElim(s, form);
  EXPECT_NE(form.assist_text.find("The pivot already equals 1 so we can begin applying ERO # 2 to "
                                  "get 0's above and below it.  To get a 0 in row 2 we subtract "
                                  "a suitable multiple of the pivot row (row 1) from it."),
            std::string::npos);
  // A negative multiple is added.
  EXPECT_EQ(form.comments[1], std::string(9, ' ') + "\xe2\x86\x90 R2 + 2 * R1");
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "1", "3"}, {"0", "3", "6"}}));
  cmdAssistElim(s, form);
  EXPECT_EQ(form.assist_text.rfind("Column 1 is now in RREF form.  The next required operation "
                                   "is in column 2, so it becomes the new pivot column.  The row "
                                   "below the previous pivot row becomes the new pivot row.  The "
                                   "pivot position is on the diagonal and is shown in blue.  The "
                                   "first task",
                                   0),
            0u);
}

TEST_F(SystemTest, ReducedFormIsAnnouncedThenReadThenTheWindowCloses) {
  Open("x+y=3; x-y=1");
  while (!form.reduced) cmdAssistElim(s, form);
  EXPECT_EQ(form.assist_text,
            "You are done!  The system of equations is now in RREF form.  This window will now "
            "close.");
  EXPECT_EQ(form.assist_caption, "Done");
  EXPECT_FALSE(form.closed);
  cmdAssistElim(s, form);
  EXPECT_TRUE(form.closed);
  EXPECT_NE(WorkSpace().find("This form shows that the system of equations has a unique "
                             "solution, namely:\n\t@x=2@\n\t@y=1@\n"),
            std::string::npos)
      << WorkSpace();
  EXPECT_EQ(form.reading.kind, SystemKind::Unique);
}

TEST_F(SystemTest, ZeroRowWithAConstantIsInconsistentAndNamesTheEquation) {
  Open("x+y=1; 2x+2y=7");
  AssistToTheEnd(s, form);
  EXPECT_EQ(form.reading.kind, SystemKind::None);
  EXPECT_NE(WorkSpace().find("This form shows that the system of equations is inconsistent and "
                             "has no solution.  No values of the variables will satisfy equation "
                             "2, which states that @0=5@ ."),
            std::string::npos)
      << WorkSpace();
}

TEST_F(SystemTest, TwoEqualEquationsHaveInfinitelyManySolutionsAndARedundancy) {
  Open("x+y=2; x+y=2");
  AssistToTheEnd(s, form);
  EXPECT_EQ(form.reading.kind, SystemKind::Infinite);
  EXPECT_NE(WorkSpace().find("This form shows that the system of equations has an infinite "
                             "number of solutions.  Any value of variable y will satisfy the "
                             "equations.  If a value is supplied for variable y then variable x "
                             "is determined as well.\nAlso, the zero row at the bottom of the "
                             "RREF form shows that the system of equations is redundant.\n"),
            std::string::npos)
      << WorkSpace();
}

TEST_F(SystemTest, SeveralFreeVariablesAreListed) {
  Open("x+y+z+w=1; 2x+2y+2z+2w=2; 3x+3y+3z+3w=3");
  AssistToTheEnd(s, form);
  EXPECT_NE(WorkSpace().find("Any value of variables y, z and w will satisfy the equations.  If "
                             "values are supplied for variables y, z and w then variable x is "
                             "determined as well.\nAlso, the zero rows at the bottom of the RREF "
                             "form show that the system of equations is redundant."),
            std::string::npos)
      << WorkSpace();
}

TEST(VariableListText, MarksEachVariable) {
  EXPECT_EQ(VariableList({'x'}), "variable %x");
  EXPECT_EQ(VariableList({'x', 'y'}), "variables %x and %y");
  EXPECT_EQ(VariableList({'x', 'y', 'z'}), "variables %x, %y and %z");
}

TEST_F(SystemTest, AssistantWorksFromTheGridAfterTheStudentsOwnEros) {
  Open("2x+4y=6; x-y=1");
  ASSERT_TRUE(EnterKeyboardEro(s, form, "R1;R2"));
  cmdOK(s, form);
  // Row 1 is now x-y=1 with a pivot of 1: the assistant goes straight to the additions.
  cmdAssistElim(s, form);
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "-1", "1"}, {"0", "6", "4"}}));
  AssistToTheEnd(s, form);
  EXPECT_EQ(form.reading.solution,
            (std::vector<std::pair<char, std::string>>{{'x', "5/3"}, {'y', "2/3"}}));
}

TEST_F(SystemTest, ResultOnlyRunsInSilenceToTheResult) {
  s.SolveDetailDefault = 0;  // "show result only", as the next load takes it
  LoadSet("x+y=3; x-y=1");
  EXPECT_FALSE(StartSysSolve(s, form));
  EXPECT_TRUE(form.closed);
  const std::string text = WorkSpace();
  EXPECT_NE(
      text.find("Solving this system of equations by elimination puts it into Row-Reduced "
                "Echelon (or Gauss-Jordan) Form:\n\t@x=2@\n\t@y=1@\nThis means that the system "
                "of equations has a unique solution, namely:\n\t@x=2@\n\t@y=1@\n"),
      std::string::npos)
      << text;
  EXPECT_EQ(text.find("Apply ERO"), std::string::npos);
}

TEST_F(SystemTest, ExactTestCountsATinyEntryAsNonZero) {
  SystemGrid g;
  g.rows = 2;
  g.cols = 3;
  g.vars = {'x', 'y'};
  g.At(1, 1) = GridNumber(1);
  g.At(2, 1) = GridNumber::Float(1e-17);
  g.At(2, 2) = GridNumber(1);
  AssistChoice choice;
  ASSERT_TRUE(ChooseNextEro(g, choice));
  EXPECT_EQ(choice.code, 5);
  EXPECT_EQ(choice.ero.row, 2);
  ApplyAssistEro(g, choice);
  // The assistant's own addition sets the entry of the pivot column exactly.
  EXPECT_TRUE(g.At(2, 1).IsZero());
  EXPECT_TRUE(g.At(2, 1).Exact());
}

TEST_F(SystemTest, UndoTakesBackTheLastEroAndTheDoneState) {
  Open("x+y=3; x-y=1");
  while (!form.reduced) cmdAssistElim(s, form);
  ASSERT_TRUE(TakeBackLastEro(s, form));
  EXPECT_FALSE(form.reduced);
  EXPECT_EQ(form.assist_caption, "ERO Assist");
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "1", "3"}, {"0", "1", "1"}}));
}

}  // namespace
}  // namespace tavimor
