// Tests of the one table of buttons: every front end reads the same rows, and the frame every
// command runs in.
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "core/errors.h"
#include "present/step_markup.h"
#include "shell/buttons.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

TEST(CommandTable, EveryButtonOnAPanelHasACaption) {
  for (int panel = 0; panel < kPanelCount; ++panel) {
    ASSERT_FALSE(PanelButtons(panel).empty()) << panel;
    for (const std::string& button : PanelButtons(panel)) {
      EXPECT_FALSE(ButtonCaption(button).empty()) << button;
    }
  }
}

TEST(CommandTable, PanelsHoldTheirButtonsInTheirOrderOnTheForm) {
  EXPECT_EQ(PanelButtons(kPanelNumber), (std::vector<std::string>{"cmdSigFigs", "cmdFactor"}));
  EXPECT_EQ(PanelButtons(kPanelEquation),
            (std::vector<std::string>{"cmdAutoSolve", "cmdDoToEqn", "cmdDoLHS", "cmdDoRHS",
                                      "cmdSolvingHint", "cmdGraph"}));
  EXPECT_EQ(PanelButtons(kPanelMultiEquations),
            (std::vector<std::string>{"MultiAutoSolve", "cmdSolveByElim", "cmdSolveBySubs",
                                      "cmdSubstitute", "cmdGraph"}));
  EXPECT_EQ(PanelButtons(kPanelExpression).size(), 13u);
  EXPECT_EQ(PanelButtons(kPanelExpression).front(), "cmdSimplify");
}

TEST(CommandTable, GraphStandsOnTwoPanelsAndBelongsToTheFirst) {
  EXPECT_EQ(PanelOfButton("cmdGraph"), kPanelEquation);
  EXPECT_EQ(PanelOfButton("cmdSimplify"), kPanelExpression);
  EXPECT_EQ(PanelOfButton("cmdLoadEquation"), -1);  // above the panels
  EXPECT_EQ(PanelOfButton("cmdNoSuchButton"), -1);
}

TEST(CommandTable, TooltipsAreTheSystemsDescriptions) {
  EXPECT_EQ(ButtonTooltip("cmdSimplify"), "Simplify the expression");
  EXPECT_EQ(ButtonTooltip("cmdLoadEquation"),
            "Right click on OK or Next to first clear the workspace");
  EXPECT_EQ(ButtonTooltip("cmdNoSuchButton"), "");
}

TEST(CommandTable, EveryWordIsUniqueOnItsPanelAndPressesAButtonOfIt) {
  std::set<std::pair<std::string, int>> seen;
  for (const CommandWord& word : CommandWords()) {
    const int panel = PanelOfButton(word.button);
    EXPECT_TRUE(seen.insert({word.word, panel}).second) << word.word;
    EXPECT_GE(panel, 0) << word.word;
    EXPECT_EQ(FindCommandWord(word.word, panel), &word);
  }
  EXPECT_EQ(FindCommandWord("frobnicate"), nullptr);
}

TEST(CommandTable, AddFractionsPressesTheAddButtonOfTheVisiblePanel) {
  EXPECT_STREQ(FindCommandWord("add-fractions", kPanelExpression)->button, "cmd1Frac");
  EXPECT_STREQ(FindCommandWord("add-fractions", kPanelFraction)->button, "cmdAddFractions");
  // With no add button on the panel, or no panel, the first of the word.
  EXPECT_STREQ(FindCommandWord("add-fractions", kPanelNumber)->button, "cmd1Frac");
  EXPECT_STREQ(FindCommandWord("add-fractions")->button, "cmd1Frac");
  EXPECT_STREQ(FindCommandWord("reduce", kPanelFraction)->button, "cmdSimplifyFraction");
  EXPECT_STREQ(FindCommandWord("sig-figs", kPanelNumber)->button, "cmdSigFigs");
  EXPECT_STREQ(FindCommandWord("prime-factors", kPanelNumber)->button, "cmdFactor");
}

TEST(CommandTable, TheRightButtonHasAWordOfItsOwn) {
  const CommandWord* word = FindCommandWord("expand-denominators");
  ASSERT_NE(word, nullptr);
  EXPECT_STREQ(word->button, "cmdExpand");
  EXPECT_TRUE(word->right_button);
  EXPECT_FALSE(FindCommandWord("expand")->right_button);
}

TEST(CommandTable, ABuiltRowRunsEitherAnEngineInTheFrameOrItsOwnCommand) {
  for (const CommandRow& row : CommandRows()) {
    EXPECT_FALSE(row.engine != nullptr && row.command != nullptr) << row.button;
    if (row.engine != nullptr) {
      EXPECT_NE(row.frame.name, nullptr) << row.button;
    }
    EXPECT_EQ(ButtonIsBuilt(row.button), row.engine != nullptr || row.command != nullptr);
  }
  EXPECT_TRUE(ButtonIsBuilt("cmdSimplify"));
  EXPECT_NE(FindExpressionCommand("cmdSimplify"), nullptr);
  EXPECT_EQ(FindExpressionCommand("cmdEvaluate"), nullptr);
}

class CommandFrame : public SessionTest {
 protected:
  CommandFrame() {
    s.StreamingOutput = false;
    StartUp(s, ".");
    cmdLoadEquation(s, "x+x=(y)", false);
  }
};

TEST_F(CommandFrame, AFailureRestoresBothSidesAndShowsOneMessage) {
  const std::size_t messages = frontend.messages.size();
  const std::string shown = RunCommandFrame(
      s, "Error in Something.",
      [&](NodeIdx side) {
        s.DetailNow = 2;
        FreeChildren(s, side);
        LoadSide(s, side, "q");
        throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "full");
      },
      [] { FAIL() << "nothing is closed after a failure"; });
  EXPECT_EQ(shown, "Error in Something.");
  EXPECT_EQ(frontend.messages.size(), messages + 1);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "(y)");
  EXPECT_EQ(s.DetailNow, 0);
}

TEST_F(CommandFrame, ASuccessClosesAfterTheDiagnostics) {
  s.Form.diagnostics.clear();
  bool closed_after_diagnostics = false;
  const std::string shown = RunCommandFrame(
      s, "Error in Something.", [&](NodeIdx side) { EXPECT_EQ(side, kLeftRoot); },
      [&] { closed_after_diagnostics = !s.Form.diagnostics.empty(); });
  EXPECT_EQ(shown, "");
  EXPECT_TRUE(closed_after_diagnostics);
}

TEST_F(CommandFrame, TheRightSideIsWorkedOnUnderItsCaption) {
  std::string error;
  PressButton(s, "cmdDoRHS", false, error);
  NodeIdx worked = kNoNode;
  RunCommandFrame(
      s, "Error.", [&](NodeIdx side) { worked = side; }, [] {});
  EXPECT_EQ(worked, kRightRoot);
}

TEST_F(CommandFrame, BracketsRunInTheFrameAndReportTheirDiagnostics) {
  std::string error;
  PressButton(s, "cmdDoRHS", false, error);
  s.Form.diagnostics.clear();
  EXPECT_EQ(PressButton(s, "cmdBrackets", false, error), PressOutcome::Done);
  EXPECT_EQ(error, "");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "y");
  EXPECT_FALSE(s.Form.diagnostics.empty());
}

// A command that found nothing of its own but simplified the side on the way, as Factor does.
bool SimplifiesButFindsNothing(Session& s, NodeIdx side) {
  const std::string input = s.Pool[side].Text;
  FreeChildren(s, side);
  LoadSide(s, side, "2*x");
  TellSimplifiedInstead(s, side, input, "2*x",
                        SimplifiedInsteadNote(input, "2*x", "There is nothing to factor."));
  return false;
}

TEST_F(CommandFrame, ANoteOfASimplificationTakesThePlaceOfTheResultSentence) {
  std::string error;
  PressButton(s, "cmdDoLHS", false, error);
  const std::string before = frontend.Transcript();
  RunExpressionCommand(s, *FindExpressionCommand("cmdAutoFactor"), &SimplifiesButFindsNothing);
  ASSERT_EQ(frontend.hints.size(), 1u);
  EXPECT_EQ(frontend.hints[0],
            "Note:  The expression can be simplified like this:\n\n@x+x->2*x@  \n\nThere is "
            "nothing to factor.\n");
  EXPECT_EQ(frontend.Transcript(), before);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "(y)");
}

TEST_F(CommandFrame, TheNextCommandWritesItsResultSentenceAgain) {
  std::string error;
  PressButton(s, "cmdDoLHS", false, error);
  RunExpressionCommand(s, *FindExpressionCommand("cmdAutoFactor"), &SimplifiesButFindsNothing);
  RunExpressionCommand(s, *FindExpressionCommand("cmdAutoFactor"),
                       [](Session&, NodeIdx) { return false; });
  EXPECT_NE(frontend.Transcript().find("There is nothing to factor on the left side of the "
                                       "equation."),
            std::string::npos);
}

TEST(SimplifiedInsteadNote, NamesTheFormsAndTheCommandsOwnSentence) {
  EXPECT_EQ(SimplifiedInsteadNote("x+x", "2*x", "There is nothing to expand."),
            "Note:  The expression can be simplified like this:||@x+x->2*x@  ||There is nothing "
            "to expand.");
}

}  // namespace
}  // namespace tavimor
