// The substitution assistant: its refusals, the redundant and inconsistent cases, and generated
// systems up to four by four solved and checked in every equation.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "linsys/sys_eq_form.h"
#include "shell/buttons.h"
#include "shell/commands/solve_system_command.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Substitution : public SessionTest {
 protected:
  SysEqState& Open(const std::string& item) {
    StartUp(s, ".");
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    EXPECT_EQ(cmdSolveBySubs(s, false), "");
    EXPECT_NE(s.SystemWindow, nullptr);
    return *s.SystemWindow;
  }

  // Chooses the first letter of the first remaining equation, OK, Continue, to the end.
  void RunToTheEnd(SysEqState& form) {
    for (int click = 0; click < 100 && form.subs.phase != SubsPhase::Done; ++click) {
      if (form.subs.phase == SubsPhase::Choosing) {
        bool clicked = false;
        for (const int row : form.subs.remaining) {
          for (int c = 1; c < form.grid.cols && !clicked; ++c) {
            clicked = ClickSubstitutionCell(form, row, c);
          }
        }
        ASSERT_TRUE(SubstitutionOK(s, form));
      } else {
        SubstitutionContinue(s, form);
      }
    }
    ASSERT_EQ(form.subs.phase, SubsPhase::Done);
  }

  std::string LastMessage() const {
    return frontend.messages.empty() ? "" : frontend.messages.back().text;
  }
};

TEST_F(Substitution, WindowIsForSubstitutionWithItsOpeningText) {
  SysEqState& form = Open("x+y=3; x-y=1");
  EXPECT_EQ(form.method, 2);
  EXPECT_EQ(s.HelpNumber, kSubsHelp);
  EXPECT_NE(form.assist_text.find("Do this by clicking on a variable in an equation."),
            std::string::npos);
  EXPECT_NE(frontend.Transcript().find(
                "To solve this system of equations, first write it in standard form:"),
            std::string::npos);
}

TEST_F(Substitution, OnlyOfferedWhenStepsAreShown) {
  StartUp(s, ".");
  s.SolveDetailDefault = 0;  // "show result only"
  ASSERT_TRUE(cmdLoadEquation(s, "x+y=3; x-y=1", false));
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSolveBySubs", false, error), PressOutcome::NotOnOffer);
  s.SolveDetailDefault = 1;
  ASSERT_TRUE(cmdLoadEquation(s, "x+y=3; x-y=1", false));
  EXPECT_EQ(PressButton(s, "cmdSolveBySubs", false, error), PressOutcome::Done);
  EXPECT_EQ(s.SysMethod, 2);
}

TEST_F(Substitution, ZeroCoefficientCannotBeChosen) {
  SysEqState& form = Open("x=3; x+y=1");
  EXPECT_FALSE(ClickSubstitutionCell(form, 1, 2));
  EXPECT_EQ(form.subs.chosen_row, 0);
  EXPECT_TRUE(ClickSubstitutionCell(form, 2, 2));
}

TEST_F(Substitution, OkWithoutAChoiceAsksForOne) {
  SysEqState& form = Open("x+y=3; x-y=1");
  EXPECT_FALSE(SubstitutionOK(s, form));
  EXPECT_EQ(LastMessage(), "You must first click on a variable in an equation.");
}

TEST_F(Substitution, ChoiceInASetAsideEquationIsRefused) {
  SysEqState& form = Open("x+y+z=6; 2x-y+z=3; x+2y-z=2");
  ASSERT_TRUE(ClickSubstitutionCell(form, 1, 1));
  ASSERT_TRUE(SubstitutionOK(s, form));
  SubstitutionContinue(s, form);
  ASSERT_TRUE(ClickSubstitutionCell(form, 1, 2));
  EXPECT_FALSE(SubstitutionOK(s, form));
  EXPECT_EQ(LastMessage(), "You must first click on a variable in one of the remaining equations.");
}

TEST_F(Substitution, EqualEquationsAreRedundantWithInfinitelyManySolutions) {
  SysEqState& form = Open("x+y=2; x+y=2");
  ASSERT_TRUE(ClickSubstitutionCell(form, 1, 1));
  ASSERT_TRUE(SubstitutionOK(s, form));
  SubstitutionContinue(s, form);
  EXPECT_NE(form.assist_text.find("This indicates that the system of equations is redundant."),
            std::string::npos);
  EXPECT_NE(form.assist_text.find("so drop it."), std::string::npos);
  RunToTheEnd(form);
  EXPECT_EQ(form.reading.kind, SystemKind::Infinite);
  EXPECT_NE(frontend.Transcript().find("has an infinite number of solutions."), std::string::npos);
}

TEST_F(Substitution, InconsistentPairEndsAtOnceWithNoSolution) {
  SysEqState& form = Open("x+y=2; x+y=3");
  ASSERT_TRUE(ClickSubstitutionCell(form, 1, 2));
  ASSERT_TRUE(SubstitutionOK(s, form));
  SubstitutionContinue(s, form);
  EXPECT_EQ(form.subs.phase, SubsPhase::Done);
  EXPECT_EQ(form.reading.kind, SystemKind::None);
  EXPECT_NE(form.assist_text.find("This window will now close."), std::string::npos);
  EXPECT_NE(frontend.Transcript().find("This indicates that the system of equations has no "
                                       "solution."),
            std::string::npos);
}

TEST_F(Substitution, EquationsWithNoLetterLeftAreReadWithoutAChoice) {
  SysEqState& form = Open("0x+0y=1; 0x+0y=0");
  EXPECT_TRUE(SubstitutionOK(s, form));
  EXPECT_EQ(form.subs.phase, SubsPhase::Done);
  EXPECT_EQ(form.reading.kind, SystemKind::None);
}

TEST_F(Substitution, LastEquationGoesStraightToBackSubstitution) {
  SysEqState& form = Open("2x=4; x+y=5");
  ASSERT_TRUE(ClickSubstitutionCell(form, 1, 1));
  ASSERT_TRUE(SubstitutionOK(s, form));
  SubstitutionContinue(s, form);
  ASSERT_TRUE(ClickSubstitutionCell(form, 2, 2));
  ASSERT_TRUE(SubstitutionOK(s, form));
  EXPECT_NE(form.assist_text.find("There are no remaining equations so we now begin the "
                                  "back-substitution phase on the set-aside equations."),
            std::string::npos);
  RunToTheEnd(form);
  ASSERT_EQ(form.reading.kind, SystemKind::Unique);
  EXPECT_EQ(form.reading.solution[0].second, "2");
  EXPECT_EQ(form.reading.solution[1].second, "3");
}

// Generated systems: a unique solution is found and satisfies every equation; a copy of an
// equation (redundant) or a shifted copy (inconsistent) is read as such.
TEST_F(Substitution, GeneratedSystemsAreSolvedOrReadAsTheyAre) {
  std::mt19937 random(4242);
  std::uniform_int_distribution<int> small(-5, 5);
  const std::string letters = "xyzwuv";
  for (int trial = 0; trial < 100; ++trial) {
    const int n = 2 + trial % 5;
    std::vector<std::vector<int>> a(static_cast<std::size_t>(n),
                                    std::vector<int>(static_cast<std::size_t>(n)));
    std::vector<int> solution(static_cast<std::size_t>(n));
    for (int& v : solution) v = small(random);
    for (auto& row : a) {
      for (int& c : row) c = small(random);
    }
    const int twist = trial % 4;  // 0, 1 as drawn; 2 a copied equation; 3 a shifted copy
    if (twist >= 2) a.back() = a.front();
    std::string item;
    std::vector<int> constants;
    for (std::size_t i = 0; i < a.size(); ++i) {
      std::string left;
      int k = 0;
      for (std::size_t j = 0; j < a[i].size(); ++j) {
        k += a[i][j] * solution[j];
        left += (a[i][j] < 0 ? "-" : "+") + std::to_string(std::abs(a[i][j])) + letters[j];
      }
      if (twist == 3 && i + 1 == a.size()) k += 1;
      constants.push_back(k);
      item += (item.empty() ? "" : "; ") + left + "=" + std::to_string(k);
    }
    s.SystemWindow.reset();
    InitNodePool(s);
    StartUp(s, ".");
    ASSERT_TRUE(cmdLoadEquation(s, item, false)) << item;
    ASSERT_EQ(cmdSolveBySubs(s, false), "") << item;
    SysEqState& form = *s.SystemWindow;
    ASSERT_FALSE(form.closed) << item;
    RunToTheEnd(form);
    if (twist == 2) {
      EXPECT_EQ(form.reading.kind, SystemKind::Infinite) << item;
    } else if (twist == 3) {
      EXPECT_EQ(form.reading.kind, SystemKind::None) << item;
    } else {
      EXPECT_NE(form.reading.kind, SystemKind::None) << item;
    }
    if (twist < 2 && form.reading.kind == SystemKind::Unique) {
      // Each equation holds at the values found.
      for (std::size_t i = 0; i < a.size(); ++i) {
        GridNumber sum(0);
        for (const auto& [letter, value] : form.reading.solution) {
          GridNumber v;
          ASSERT_TRUE(GridNumber::FromText(s, value, v)) << value;
          const std::size_t j = letters.find(letter);
          sum = sum + GridNumber(a[i][j]) * v;
        }
        EXPECT_EQ(sum, GridNumber(constants[i])) << item;
      }
    }
  }
}

}  // namespace
}  // namespace tavimor
