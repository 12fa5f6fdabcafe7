// The three EROs: the keyboard syntax and its refusals, the trial, keeping and taking back of an
// ERO, the snapping of results and of typed numbers, and the steps in the work space.
#include <gtest/gtest.h>

#include <random>

#include "linsys/row_operations.h"
#include "system_fixture.h"

namespace tavimor {
namespace {

using Rows = std::vector<std::vector<std::string>>;

struct ParseCase {
  const char* name;
  const char* text;
  int kind;
  int row;
  int row2;
  bool second;
  const char* factor;
};

class KeyboardEro : public SystemTest, public ::testing::WithParamInterface<ParseCase> {};

TEST_P(KeyboardEro, ReadsTheForm) {
  const ParseCase& c = GetParam();
  const SystemGrid g = Grid("x+y+z=1; x-y=2; y+z=3; x=4");
  Ero e;
  ASSERT_TRUE(ParseEROText(s, c.text, g, 3, e)) << c.text;
  EXPECT_EQ(e.kind, c.kind);
  EXPECT_EQ(e.row, c.row);
  if (c.kind != 1) {
    EXPECT_EQ(e.row2, c.row2);
  }
  if (c.kind != 3) {
    EXPECT_EQ(e.second, c.second);
    EXPECT_EQ(e.factor.Text(s), c.factor);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, KeyboardEro,
    ::testing::Values(ParseCase{"RowTimesNumber", "R1*3", 1, 1, 0, false, "3"},
                      ParseCase{"RowOverNumber", "R1/3", 1, 1, 0, true, "3"},
                      ParseCase{"NumberTimesRow", "3*R2", 1, 2, 0, false, "3"},
                      ParseCase{"NumberBeforeRow", "3R2", 1, 2, 0, false, "3"},
                      ParseCase{"NegativeNumberBeforeRow", "-2R3", 1, 3, 0, false, "-2"},
                      ParseCase{"BlanksIgnored", " R 1 * 3 ", 1, 1, 0, false, "3"},
                      ParseCase{"BracketedExpression", "R1*(2/3+1/3)", 1, 1, 0, false, "1"},
                      ParseCase{"BracketedFraction", "(2/3)R4", 1, 4, 0, false, "2/3"},
                      ParseCase{"RowPlusRow", "R1+R2", 2, 1, 2, false, "1"},
                      ParseCase{"RowMinusRow", "R1-R2", 2, 1, 2, true, "1"},
                      ParseCase{"RowPlusRowTimesNumber", "R1+R2*3", 2, 1, 2, false, "3"},
                      ParseCase{"RowMinusRowOverNumber", "R1-R2/3", 2, 1, 2, true, "1/3"},
                      ParseCase{"RowPlusNumberTimesRow", "R1+3*R2", 2, 1, 2, false, "3"},
                      ParseCase{"RowPlusNumberRow", "R3+3R2", 2, 3, 2, false, "3"},
                      ParseCase{"DecimalFactorIsExact", "R1-0.5R2", 2, 1, 2, true, "1/2"},
                      ParseCase{"Swap", "R1;R4", 3, 1, 4, false, "1"}),
    [](const ::testing::TestParamInfo<ParseCase>& param) { return std::string(param.param.name); });

class KeyboardEroRefused : public SystemTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(KeyboardEroRefused, GivesNoOperation) {
  const SystemGrid g = Grid("x+y+z=1; x-y=2; y+z=3; x=4");
  Ero e;
  EXPECT_FALSE(ParseEROText(s, GetParam(), g, 3, e)) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Refusals, KeyboardEroRefused,
                         ::testing::Values("R5*2", "R0*2", "R1*0", "R1/0", "0R1", "R1+0R2",
                                           "R1-R2/0", "r1*2", "R1*", "R1*3x", "R1;R1", "R1+R1",
                                           "R1;R2;R3", "", "R1*(x)", "R1*(1/0)", "R1 R2",
                                           "R99999*2", "*R1", "R1*2)"));

TEST_F(SystemTest, TypedRowBeyondTheSystemIsRefusedWithItsMessage) {
  Open("x+y+z=1; x-y=2; y+z=3; x=4");
  const Rows before = Texts(form.grid);
  EXPECT_FALSE(EnterKeyboardEro(s, form, "R5*2"));
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error in the ERO description.");
  EXPECT_EQ(frontend.messages[0].help_number, 40);
  EXPECT_EQ(Texts(form.grid), before);
  EXPECT_FALSE(form.Pending());
}

TEST_F(SystemTest, TrialChangesTheRowAndShowsItsComment) {
  Open("2x+4y=6; x-y=1");
  form.panel = 1;
  form.ero1_row = 1;
  form.ero1_divide = true;
  form.ero1_number = "2";
  ASSERT_TRUE(cmdTest(s, form));
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "2", "3"}, {"1", "-1", "1"}}));
  EXPECT_EQ(form.comments[0], std::string(9, ' ') + "\xe2\x86\x90 R1 / 2");
  // Every other control waits for OK or Cancel.
  EXPECT_TRUE(form.OkVisible());
  EXPECT_FALSE(form.PanelsEnabled());
  EXPECT_FALSE(form.AssistEnabled());
  EXPECT_EQ(WorkSpace().find("Apply ERO"), std::string::npos);
}

TEST_F(SystemTest, CancelTakesTheTrialBack) {
  Open("2x+4y=6; x-y=1");
  form.panel = 2;
  form.ero2_row = 2;
  form.ero2_row2 = 1;
  form.ero2_subtract = true;
  form.ero2_number = "0.5";
  ASSERT_TRUE(cmdTest(s, form));
  EXPECT_EQ(Texts(form.grid), (Rows{{"2", "4", "6"}, {"0", "-3", "-2"}}));
  cmdUndo(s, form);
  EXPECT_EQ(Texts(form.grid), (Rows{{"2", "4", "6"}, {"1", "-1", "1"}}));
  EXPECT_EQ(form.comments[1], "");
  EXPECT_TRUE(form.PanelsEnabled());
}

TEST_F(SystemTest, SwapIsTakenBackByASecondSwap) {
  Open("2x+4y=6; x-y=1");
  form.panel = 3;
  form.ero3_row = 1;
  form.ero3_row2 = 2;
  ASSERT_TRUE(cmdTest(s, form));
  EXPECT_EQ(Texts(form.grid), (Rows{{"1", "-1", "1"}, {"2", "4", "6"}}));
  EXPECT_EQ(form.comments[0], std::string(9, ' ') + "\xe2\x86\x90");
  EXPECT_EQ(form.comments[1], std::string(9, ' ') + "\xe2\x86\x90");
  cmdUndo(s, form);
  EXPECT_EQ(Texts(form.grid), (Rows{{"2", "4", "6"}, {"1", "-1", "1"}}));
}

TEST_F(SystemTest, OkWritesTheStepWithTheSystem) {
  Open("2x+4y=6; x-y=1");
  ASSERT_TRUE(EnterKeyboardEro(s, form, "R2-3R1"));
  cmdOK(s, form);
  EXPECT_NE(WorkSpace().find("Apply ERO # 2, replacing R2 \xe2\x86\x92 R2 - 3 * R1.  The system of "
                             "equations becomes:\n\t@2*x+4*y=6@\n\t@-5*x-13*y=-17@\n"),
            std::string::npos)
      << WorkSpace();
  EXPECT_FALSE(form.Pending());
  EXPECT_EQ(s.HelpNumber, 296);
}

TEST_F(SystemTest, NegativeFactorIsBracketedInTheComment) {
  Open("2x+4y=6; x-y=1");
  ASSERT_TRUE(EnterKeyboardEro(s, form, "R1*-2"));
  EXPECT_EQ(form.comments[0], std::string(9, ' ') + "\xe2\x86\x90 R1 * (-2)");
}

TEST_F(SystemTest, ZeroFactorFromThePanelIsRefused) {
  Open("2x+4y=6; x-y=1");
  for (const bool divide : {false, true}) {
    form.panel = 1;
    form.ero1_divide = divide;
    form.ero1_number = "0";
    EXPECT_FALSE(cmdTest(s, form));
  }
  ASSERT_EQ(frontend.messages.size(), 2u);
  EXPECT_EQ(frontend.messages[0].text, "Error in Solve by Elimination.");
  EXPECT_EQ(Texts(form.grid), (Rows{{"2", "4", "6"}, {"1", "-1", "1"}}));
}

TEST_F(SystemTest, KeyboardSetsThePanelAsTheStudentWould) {
  Open("2x+4y=6; x-y=1");
  form.keyboard = "R2-R1/2";
  ASSERT_TRUE(EnterKeyboardEro(s, form, form.keyboard));
  EXPECT_EQ(form.panel, 2);
  EXPECT_EQ(form.ero2_row, 2);
  EXPECT_EQ(form.ero2_row2, 1);
  EXPECT_TRUE(form.ero2_subtract);
  EXPECT_EQ(form.ero2_number, "1/2");
  EXPECT_EQ(form.keyboard, "");
  EXPECT_EQ(Texts(form.grid), (Rows{{"2", "4", "6"}, {"0", "-3", "-2"}}));
}

TEST_F(SystemTest, TypedNumberAsShownStandsForTheFullCoefficient) {
  Open("x/3+y=1; x+y=2");
  // 1/3 shows as 0.333: typing what one reads cancels exactly.
  ASSERT_TRUE(EnterKeyboardEro(s, form, "R1-0.333R2"));
  EXPECT_EQ(form.grid.At(1, 1).Text(s), "0");
  cmdOK(s, form);
  // Row 1 is now 0, 2/3, 1/3: 0.667 reads as 2/3.
  ASSERT_TRUE(EnterKeyboardEro(s, form, "R1/0.667"));
  EXPECT_EQ(form.grid.At(1, 2).Text(s), "1");
  EXPECT_EQ(form.grid.At(1, 3).Text(s), "1/2");
}

TEST_F(SystemTest, ClickOnACoefficientCopiesItAsShown) {
  Open("x/3+y=1; x+y=2");
  form.panel = 2;
  ClickGridCell(s, form, 0, 1);
  EXPECT_EQ(form.ero2_number, "0.333");
  form.panel = 1;
  ClickGridCell(s, form, 2, 4);
  EXPECT_EQ(form.ero1_number, "1");
}

TEST_F(SystemTest, AnyTypedTextIsReadOrRefusedWithoutHarm) {
  const SystemGrid g = Grid("x+y+z=1; x-y=2; y+z=3; x=4");
  std::mt19937 rng(7);
  const std::string alphabet = "R0123456789*/+-;().,Ex ";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 16);
  int accepted = 0;
  for (int trial = 0; trial < 20000; ++trial) {
    std::string text;
    for (int k = length(rng); k > 0; --k) text += alphabet[pick(rng)];
    Ero e;
    if (!ParseEROText(s, text, g, 3, e)) continue;
    ++accepted;
    EXPECT_GE(e.row, 1) << text;
    EXPECT_LE(e.row, 4) << text;
    EXPECT_GE(e.kind, 1) << text;
    EXPECT_LE(e.kind, 3) << text;
    if (e.kind != 1) {
      EXPECT_NE(e.row, e.row2) << text;
      EXPECT_GE(e.row2, 1) << text;
      EXPECT_LE(e.row2, 4) << text;
    }
    EXPECT_FALSE(e.factor.IsZero()) << text;
  }
  EXPECT_GT(accepted, 0);
}

TEST(RowSnapping, ExactEntriesAreNeverSnapped) {
  SystemGrid g;
  g.rows = 2;
  g.cols = 2;
  g.vars = {'x'};
  g.At(1, 1) = GridNumber::Fraction(1, 20000000000);
  g.At(1, 2) = GridNumber::Fraction(20000000001, 20000000000);
  ApplyEro(g, Ero{2, 1, 2, false, GridNumber(1)});
  EXPECT_EQ(g.At(1, 1).Numerator(), 1);
  EXPECT_EQ(g.At(1, 1).Denominator(), 20000000000);
  ApplyEro(g, Ero{1, 1, 0, false, GridNumber(1)});
  EXPECT_FALSE(g.At(1, 2).IsOne());
}

TEST(RowSnapping, ScaleNearOneBecomesExactlyOne) {
  SystemGrid g;
  g.rows = 1;
  g.cols = 3;
  g.vars = {'x', 'y'};
  g.At(1, 1) = GridNumber::Float(0.1 + 0.2);
  g.At(1, 2) = GridNumber::Float(0.6);
  Ero e{1, 1, 0, true, GridNumber::Float(0.3)};
  ApplyEro(g, e);
  EXPECT_TRUE(g.At(1, 1).IsOne());
  EXPECT_FALSE(g.At(1, 2).IsOne());
}

TEST(RowSnapping, AdditionBelowTheBoundBecomesExactlyZero) {
  SystemGrid g;
  g.rows = 2;
  g.cols = 2;
  g.vars = {'x'};
  g.At(1, 1) = GridNumber::Float(0.1 + 0.2);
  g.At(2, 1) = GridNumber::Float(0.3);
  g.At(1, 2) = GridNumber::Float(1e-9);
  Ero e{2, 1, 2, true, GridNumber(1)};
  ApplyEro(g, e);
  EXPECT_TRUE(g.At(1, 1).IsZero());
  EXPECT_FALSE(g.At(1, 2).IsZero());
}

}  // namespace
}  // namespace tavimor
