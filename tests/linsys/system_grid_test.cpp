// The system grid: equations to coefficients, the refusals and their messages, the limit of
// fifteen, and the grid's text.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "linsys/system_grid.h"
#include "shell/commands/solve_system_command.h"
#include "system_fixture.h"

namespace tavimor {
namespace {

using Rows = std::vector<std::vector<std::string>>;

TEST_F(SystemTest, GridTakesLettersInTheOrderFirstMetAndConstantsToTheRight) {
  const SystemGrid g = Grid("2x+3y=5; x-y+4=1");
  EXPECT_EQ(g.rows, 2);
  EXPECT_EQ(g.cols, 3);
  EXPECT_EQ(std::string(g.vars.begin(), g.vars.end()), "xy");
  EXPECT_EQ(Texts(g), (Rows{{"2", "3", "5"}, {"1", "-1", "-3"}}));
}

TEST_F(SystemTest, GridReadsLettersOnBothSides) {
  EXPECT_EQ(Texts(Grid("y=2x+1; x=3-y")), (Rows{{"1", "-2", "1"}, {"1", "1", "3"}}));
}

TEST_F(SystemTest, LetterInOneEquationHasZeroInTheOthers) {
  EXPECT_EQ(Texts(Grid("x+y+z=6; x-y=0; 2x=4")),
            (Rows{{"1", "1", "1", "6"}, {"1", "-1", "0", "0"}, {"2", "0", "0", "4"}}));
}

TEST_F(SystemTest, ConstantOnlyEquationGivesAZeroRow) {
  EXPECT_EQ(Texts(Grid("x+y=2; 3=3")), (Rows{{"1", "1", "2"}, {"0", "0", "0"}}));
}

TEST_F(SystemTest, RowOfZerosDisplaysAsZeroEqualsZero) {
  const SystemGrid g = Grid("x+y=2; 3=3");
  const std::vector<std::string> cells = RowCells(s, g, 2, 3);
  EXPECT_EQ(cells, (std::vector<std::string>{"", "0", "", "", "", "", "=", "0"}));
  EXPECT_EQ(RowEquationText(s, g, 2), "0=0");
}

TEST_F(SystemTest, FractionalCoefficientsStayExact) {
  EXPECT_EQ(Texts(Grid("x/3+y/2=1; 0.1x-y=2/7")),
            (Rows{{"1/3", "1/2", "1"}, {"1/10", "-1", "2/7"}}));
}

TEST_F(SystemTest, BracketsAreMultipliedOut) {
  EXPECT_EQ(Texts(Grid("2(x-y)=3(y+1); x=y")), (Rows{{"2", "-5", "3"}, {"1", "-1", "0"}}));
}

TEST_F(SystemTest, ExpressionInTheSetIsNotAnEquation) {
  std::string refusal;
  Grid("x+y; x=1", &refusal);
  EXPECT_EQ(refusal, "x+y is not an equation");
}

TEST_F(SystemTest, ProductOfTwoLettersIsNotLinear) {
  std::string refusal;
  Grid("x*y+x=1; x=2", &refusal);
  EXPECT_EQ(refusal, "x*y+x = 1 is not a linear equation");
}

TEST_F(SystemTest, SquareInASumIsNotLinear) {
  std::string refusal;
  Grid("x^2+y=1; x=2", &refusal);
  EXPECT_EQ(refusal, "x^2+y = 1 is not a linear equation");
}

TEST_F(SystemTest, LonePowerIsNotAValidEquation) {
  std::string refusal;
  Grid("x^2=0; x+y=2", &refusal);
  EXPECT_EQ(refusal, "x^2 = 0 is not a valid equation");
}

TEST_F(SystemTest, FunctionOfALetterIsRefused) {
  std::string refusal;
  Grid("sin(x)=0; x+y=2", &refusal);
  EXPECT_EQ(refusal, "sin(x) = 0 is not a valid equation");
}

TEST_F(SystemTest, RefusalIsShownWithErrorAndHelpForty) {
  LoadSet("x*y=1; x=2");
  cmdSolveByElim(s, false);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error: x*y = 1 is not a linear equation");
  EXPECT_EQ(frontend.messages[0].help_number, 40);
}

TEST_F(SystemTest, SixteenEquationsRaiseTheBoundsError) {
  std::string set;
  for (int i = 1; i <= 16; ++i) set += (i > 1 ? "; x+y=" : "x+y=") + std::to_string(i);
  LoadSet(set);
  SystemGrid g;
  EXPECT_THROW(BuildGrid(s, g), RunTimeError);
}

TEST_F(SystemTest, FifteenLettersEndTheCommandWithItsMessage) {
  // Fifteen letters need sixteen columns.
  LoadSet("a+b+c+f+g+h+k+m+n+q+r+t+u+v+w=1; a=2");
  cmdSolveByElim(s, false);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error in Solve by Elimination.");
}

TEST_F(SystemTest, FourteenLettersFitTheGrid) {
  const SystemGrid g = Grid("a+b+c+f+g+h+k+m+n+q+r+t+u+v=1; a=2");
  EXPECT_EQ(g.cols, 15);
}

TEST_F(SystemTest, GridCellsShowSizesAtSignificantFigures) {
  const SystemGrid g = Grid("x/3-2y=-5; x=1");
  EXPECT_EQ(RowCells(s, g, 1, 3),
            (std::vector<std::string>{"", "0.333", "x", "-", "2", "y", "=", "-5"}));
}

TEST_F(SystemTest, EntryOutsideTheTableIsABoundsError) {
  SystemGrid g;
  EXPECT_THROW(g.At(16, 1), RunTimeError);
  EXPECT_THROW(g.At(1, 0), RunTimeError);
}

}  // namespace
}  // namespace tavimor
