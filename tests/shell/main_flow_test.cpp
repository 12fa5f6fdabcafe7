// Tests of the main command flow: loading and classifying items, panels and buttons, the status
// bar, and the frame every expression command runs in.
#include <gtest/gtest.h>

#include "present/work_space.h"
#include "shell/buttons.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// What an engine does to put a new text into a side: the old subtree goes, the new one is parsed.
void Replace(Session& s, NodeIdx side, const std::string& text) {
  FreeChildren(s, side);
  LoadSide(s, side, text);
}

class MainFlow : public SessionTest {
 protected:
  MainFlow() {
    s.StreamingOutput = false;
    StartUp(s, ".");
  }
  bool Load(const std::string& text) { return cmdLoadEquation(s, text, false); }
  const ExpressionCommand& Simplify() { return *FindExpressionCommand("cmdSimplify"); }
  std::string Transcript() const { return frontend.Transcript(); }
};

TEST_F(MainFlow, OkWithAnEmptyBoxDoesNothing) {
  EXPECT_FALSE(Load(""));
  EXPECT_TRUE(frontend.work_space.empty());
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Form.visible_panel, -1);
}

TEST_F(MainFlow, OkWithOnlyBlanksDoesNothing) {
  EXPECT_FALSE(Load("    "));
  EXPECT_TRUE(frontend.work_space.empty());
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Form.visible_panel, -1);
}

TEST_F(MainFlow, RefusedItemShowsItsMessageAndChangesNothing) {
  Load("2x+3=7");
  const std::string before = Transcript();
  EXPECT_FALSE(Load("2x+"));
  EXPECT_EQ(Transcript(), before);
  EXPECT_EQ(frontend.messages.back().text,
            "Error in input string.  Invalid symbol + at end of expression.");
  EXPECT_EQ(frontend.messages.back().help_number, 2);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2*x+3");
}

TEST_F(MainFlow, EquationSelectsTheEquationPanel) {
  EXPECT_TRUE(Load("2*x+3=7"));
  EXPECT_EQ(Transcript(), "\nConsider  the equation  @2*x+3=7@  \n");
  EXPECT_EQ(frontend.work_space[1].format.bold, true);
  EXPECT_EQ(frontend.work_space[1].format.colour, 12);
  EXPECT_EQ(s.Form.visible_panel, kPanelEquation);
  EXPECT_EQ(PanelCaption(s, s.Form.visible_panel), "Equation");
  EXPECT_EQ(s.Form.focus, "cmdAutoSolve");
  EXPECT_EQ(s.Form.item_kind, "equation");
  ASSERT_EQ(s.EquationList.size(), 1u);
}

TEST_F(MainFlow, NumberSelectsTheNumberPanelWithoutADrawing) {
  EXPECT_TRUE(Load("12"));
  EXPECT_EQ(Transcript(), "\nConsider  the number  12  \n");
  EXPECT_EQ(s.Form.visible_panel, kPanelNumber);
  EXPECT_EQ(s.Form.focus, "cmdSigFigs");
  EXPECT_TRUE(s.Form.Enabled("cmdFactor"));
}

TEST_F(MainFlow, LargestIntegerBoundItselfLeavesFactorDisabled) {
  Load("2147483647");
  EXPECT_EQ(s.Form.visible_panel, kPanelNumber);
  EXPECT_FALSE(s.Form.Enabled("cmdFactor"));
  Load("2147483646");
  EXPECT_TRUE(s.Form.Enabled("cmdFactor"));
}

TEST_F(MainFlow, DecimalNumberLeavesFactorDisabled) {
  Load("3.5");
  EXPECT_EQ(s.Form.visible_panel, kPanelNumber);
  EXPECT_FALSE(s.Form.Enabled("cmdFactor"));
}

TEST_F(MainFlow, NumberInScientificFormIsWrittenOutInFull) {
  Load("123456789000");
  EXPECT_EQ(Transcript(), "\nConsider  the number  123456789000  \n");
}

TEST_F(MainFlow, NumberBelowTheBoundIsWrittenOutInFull) {
  Load("2147483646");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2.147483646E9");
  EXPECT_EQ(Transcript(), "\nConsider  the number  2147483646  \n");
  EXPECT_TRUE(s.Form.Enabled("cmdFactor"));
}

TEST_F(MainFlow, TinyNumberIsWrittenOutInFull) {
  Load("-1.5E-12");
  EXPECT_EQ(Transcript(), "\nConsider  the number  -0.0000000000015  \n");
}

TEST_F(MainFlow, FractionAndSumOfFractionsShareThePanelWithTheOtherButton) {
  Load("1/2");
  EXPECT_EQ(s.Form.item_kind, "fraction");
  EXPECT_EQ(s.Form.visible_panel, kPanelFraction);
  EXPECT_TRUE(s.Form.Enabled("cmdSimplifyFraction"));
  EXPECT_FALSE(s.Form.Enabled("cmdAddFractions"));
  EXPECT_EQ(s.Form.focus, "cmdSimplifyFraction");
  Load("1/2+1/3");
  EXPECT_EQ(s.Form.item_kind, "sum of fractions");
  EXPECT_EQ(s.Form.visible_panel, kPanelFraction);
  EXPECT_FALSE(s.Form.Enabled("cmdSimplifyFraction"));
  EXPECT_TRUE(s.Form.Enabled("cmdAddFractions"));
  EXPECT_EQ(s.Form.focus, "cmdAddFractions");
}

TEST_F(MainFlow, ThreeFractionsAreAnExpression) {
  Load("1/2+1/3+1/4");
  EXPECT_EQ(s.Form.item_kind, "expression");
  EXPECT_EQ(s.Form.visible_panel, kPanelExpression);
  EXPECT_EQ(PanelCaption(s, kPanelExpression), "Expression");
  EXPECT_EQ(s.Form.focus, "cmdSimplify");
}

TEST_F(MainFlow, SetOfEquationsDrawsEachItemOnItsOwnLine) {
  Load("x+y=3;x-y=1");
  EXPECT_EQ(Transcript(), "\nConsider  the set of equations:\n\t@x+y=3@\n\t@x-y=1@\n");
  EXPECT_EQ(s.Form.visible_panel, kPanelMultiEquations);
  EXPECT_EQ(s.Form.focus, "cmdSubstitute");
  EXPECT_TRUE(s.Form.Enabled("cmdSolveBySubs"));
  s.SolveDetailDefault = 0;
  Load("a=1;b=2");
  EXPECT_FALSE(s.Form.Enabled("cmdSolveBySubs"));
}

TEST_F(MainFlow, RightButtonOnOkClearsTheWorkSpaceFirst) {
  Load("x");
  cmdLoadEquation(s, "y", true);
  EXPECT_EQ(frontend.clears, 1);
  EXPECT_EQ(Transcript(), "\nConsider  the expression  @y@  \n");
}

TEST_F(MainFlow, TypedProblemIsRememberedInTheList) {
  Load("2x + 3 = 7");
  EXPECT_EQ(s.ListEntries, (std::vector<std::string>{"Eqn:2x+3=7", "Comment:"}));
  EXPECT_EQ(s.Form.equation_box_items, std::vector<std::string>{"2x+3=7"});
  EXPECT_TRUE(s.Form.Visible("cmdNextEquation"));
  EXPECT_TRUE(s.EqnAddedFlag);
  EXPECT_EQ(s.EqnInsertPos, 3);
  Load("2x+3=7");
  EXPECT_EQ(s.ListEntries.size(), 2u);
}

TEST_F(MainFlow, KnownProblemWritesItsComment) {
  s.ListEntries = {"Topic:Linear", "Comment:", "Eqn:2x+3=7", "Comment:Start by subtracting 3."};
  s.EqnInsertPos = 3;
  Load("2 x+3=7");
  EXPECT_EQ(Transcript(), "\nConsider  the equation  @2*x+3=7@  \nStart by subtracting 3.\n");
  EXPECT_EQ(s.ListEntries.size(), 4u);
}

TEST_F(MainFlow, NewProblemGoesInAtTheInsertPosition) {
  s.ListEntries = {"Topic:A", "Comment:", "Topic:B", "Comment:"};
  s.EqnInsertPos = 3;
  Load("x=1");
  EXPECT_EQ(s.ListEntries, (std::vector<std::string>{"Topic:A", "Comment:", "Eqn:x=1",
                                                     "Comment:", "Topic:B", "Comment:"}));
  EXPECT_EQ(s.EqnInsertPos, 5);
}

TEST_F(MainFlow, NextOnTheLastEntryReloadsThatEntry) {
  Load("x=1");
  Load("x=2");
  frontend.work_space.clear();
  EXPECT_TRUE(cmdNextEquation(s, false));
  EXPECT_EQ(s.Pool[kRightRoot].Text, "2");
  s.Form.equation_box_selected = 0;
  cmdNextEquation(s, false);
  EXPECT_EQ(s.Pool[kRightRoot].Text, "2");
  EXPECT_EQ(s.Form.equation_box_selected, 1);
}

TEST_F(MainFlow, LoadReturnsThePerProblemState) {
  s.SolveDetailDefault = 2;
  s.SolveDetail = 0;
  s.HintState = 2;
  s.TrigMode = 1;
  s.ExactToFloat = true;  // forced by a command; the snapshot holds false
  Load("x");
  EXPECT_EQ(s.SolveDetail, 2);
  EXPECT_EQ(s.HintState, 0);
  EXPECT_EQ(s.TrigMode, 0);
  EXPECT_FALSE(s.ExactToFloat);
}

TEST_F(MainFlow, SelectTabResetsTheExpressionPanel) {
  Load("2x=4");
  cmdDoRHS(s);
  EXPECT_EQ(s.Form.panel1_caption, "Right Side");
  SelectTab(s, kPanelExpression);
  EXPECT_EQ(s.Form.panel1_caption, "Expression");
  EXPECT_EQ(s.Form.Button("cmdBrackets").tag, "restart");
  EXPECT_FALSE(s.Form.Visible("cmdShowEqnFrame"));
  EXPECT_TRUE(s.Form.Enabled("cmdCombineLogs"));
}

TEST_F(MainFlow, WorkingOnASideAndBack) {
  Load("sin(x)=ln(x)+log(x)");
  cmdDoLHS(s);
  EXPECT_EQ(s.Form.visible_panel, kPanelExpression);
  EXPECT_EQ(PanelCaption(s, kPanelExpression), "Left Side");
  EXPECT_TRUE(s.Form.Visible("cmdShowEqnFrame"));
  EXPECT_EQ(s.Form.panel1_extra_height, 600);
  EXPECT_TRUE(s.Form.Enabled("cmdExpandTrig"));
  EXPECT_FALSE(s.Form.Enabled("cmdCombineLogs"));
  cmdDoRHS(s);
  EXPECT_FALSE(s.Form.Enabled("cmdExpandTrig"));
  EXPECT_TRUE(s.Form.Enabled("cmdCombineLogs"));
  cmdShowEqnFrame(s);
  EXPECT_EQ(s.Form.visible_panel, kPanelEquation);
}

TEST_F(MainFlow, LogAndTrigButtonsFollowTheText) {
  const std::vector<std::tuple<std::string, bool, bool>> cases = {
      {"log(x)+log(y)", true, false}, {"ln(x)-ln(y)", true, false}, {"log(x)+ln(y)", true, false},
      {"log(x)+1", false, false},     {"tan(x)+1", false, true},    {"i*exp(x)", false, true},
      {"sqrt(2)*e^x", false, true},   {"x+1", false, false}};
  for (const auto& [text, logs, trig] : cases) {
    Load(text);
    EXPECT_EQ(s.Form.Enabled("cmdCombineLogs"), logs) << text;
    EXPECT_EQ(s.Form.Enabled("cmdExpandTrig"), trig) << text;
    EXPECT_EQ(s.Form.Enabled("cmdCombineTrig"), trig) << text;
  }
}

TEST_F(MainFlow, ButtonsOnOfferAreOnTheVisiblePanelVisibleAndEnabled) {
  Load("x=1");
  EXPECT_TRUE(ButtonOnOffer(s, "cmdDoLHS"));
  EXPECT_FALSE(ButtonOnOffer(s, "cmdSimplify"));
  EXPECT_FALSE(ButtonOnOffer(s, "cmdShowEqnFrame"));
  cmdDoLHS(s);
  EXPECT_TRUE(ButtonOnOffer(s, "cmdShowEqnFrame"));
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdNoSuchButton", false, error), PressOutcome::NotOnOffer);
  EXPECT_EQ(PressButton(s, "cmdDoLHS", false, error), PressOutcome::NotOnOffer);
  EXPECT_EQ(PressButton(s, "cmdShowEqnFrame", false, error), PressOutcome::Done);
  EXPECT_EQ(s.Form.visible_panel, kPanelEquation);
}

TEST_F(MainFlow, EveryButtonOfThePanelsRuns) {
  // Only OK, which loads the typed item, has no command of the table.
  for (const CommandRow& row : CommandRows()) {
    if (std::string(row.button) == "cmdLoadEquation") continue;
    EXPECT_TRUE(ButtonIsBuilt(row.button)) << row.button;
  }
}

TEST_F(MainFlow, TooltipsAreTheSystemsDescriptions) {
  EXPECT_EQ(ButtonTooltip("cmdExpand"),
            "Expand the expression (right click to expand a denominator)");
  EXPECT_EQ(ButtonTooltip("cmdLoadEquation"),
            "Right click on OK or Next to first clear the workspace");
  EXPECT_EQ(PanelOfButton("cmdSubstitute"), kPanelMultiEquations);
}

TEST_F(MainFlow, CaptionNamesTheProgramAndTheUntitledList) {
  EXPECT_EQ(s.Form.caption, FormCaption());
  EXPECT_NE(s.Form.caption.find(" The Tavimor "), std::string::npos);
  EXPECT_NE(s.Form.caption.find(" - [Untitled]"), std::string::npos);
}

// The status bar.

TEST_F(MainFlow, StatusPanelsShowTheOptions) {
  s.SolveDetail = 1;
  s.StreamingOutput = false;
  UpdateStatusPanel(s);
  EXPECT_EQ(s.Form.status_panels,
            (std::array<std::string, 9>{"show steps one-by-one ", "real arithmetic only ",
                                        "exact arithmetic ", "radians ", "quads by compl. sq. ",
                                        "unknown = x ", "e = 2.718.. ", "p = variable ",
                                        "d = variable "}));
}

TEST_F(MainFlow, DetailPanelCyclesThroughItsThreeStates) {
  s.SolveDetail = s.SolveDetailDefault = 0;
  UpdateStatusPanel(s);
  EXPECT_EQ(s.Form.status_panels[0], "show result only ");
  ClickStatusPanel(s, 1);
  EXPECT_EQ(s.Form.status_panels[0], "show steps one-by-one ");
  EXPECT_TRUE(s.Form.Enabled("cmdSolveBySubs"));
  ClickStatusPanel(s, 1);
  EXPECT_EQ(s.Form.status_panels[0], "show steps in a stream ");
  ClickStatusPanel(s, 1);
  EXPECT_EQ(s.Form.status_panels[0], "show result only ");
  EXPECT_EQ(s.SolveDetailDefault, 0);
  EXPECT_FALSE(s.Form.Enabled("cmdSolveBySubs"));
}

TEST_F(MainFlow, ComplexPanelCyclesThroughFourForms) {
  const std::vector<std::string> texts = {
      "cplx arithmetic (using i) ", "cplx arithmetic (using j) ",
      "complex arithmetic (not using i or j) ", "real arithmetic only "};
  for (const std::string& text : texts) {
    ClickStatusPanel(s, 2);
    EXPECT_EQ(s.Form.status_panels[1], text);
  }
  EXPECT_EQ(s.ComplexForm, 0);
}

TEST_F(MainFlow, TogglePanels) {
  ClickStatusPanel(s, 3);
  EXPECT_EQ(s.Form.status_panels[2], "floating pt. arithmetic ");
  EXPECT_TRUE(s.ExactToFloat);
  ClickStatusPanel(s, 4);
  EXPECT_EQ(s.Form.status_panels[3], "degrees ");
  ClickStatusPanel(s, 7);
  EXPECT_EQ(s.Form.status_panels[6], "e = variable ");
  ClickStatusPanel(s, 8);
  EXPECT_EQ(s.Form.status_panels[7], "p = pi ");
}

TEST_F(MainFlow, QuadraticPanelCycles) {
  const std::vector<std::string> texts = {"quads by graphing ", "quads by factoring ",
                                          "quads by formula ", "quads by compl. sq. "};
  for (const std::string& text : texts) {
    ClickStatusPanel(s, 5);
    EXPECT_EQ(s.Form.status_panels[4], text);
  }
}

TEST_F(MainFlow, UnknownPanelAsksForTheLetter) {
  frontend.text_answer = "t";
  ClickStatusPanel(s, 6);
  EXPECT_EQ(s.Unknown, "t");
  EXPECT_EQ(s.Form.status_panels[5], "unknown = t ");
  frontend.text_answer = "tt";
  ClickStatusPanel(s, 6);
  EXPECT_EQ(s.Unknown, "t");
  frontend.text_answer.reset();
  ClickStatusPanel(s, 6);
  EXPECT_EQ(s.Unknown, "t");
}

TEST_F(MainFlow, DegreePanelReadsVariableInRadians) {
  ClickStatusPanel(s, 9);
  EXPECT_TRUE(s.SpecialD);
  EXPECT_EQ(s.Form.status_panels[8], "d = variable ");
  ClickStatusPanel(s, 4);
  EXPECT_EQ(s.Form.status_panels[8], "d = degrees ");
}

TEST_F(MainFlow, EulerPanelShowsTheDecimalComma) {
  StartUp(s, ",");
  EXPECT_EQ(s.Form.status_panels[6], "e = 2,718.. ");
}

TEST_F(MainFlow, ClickKeepsTheNewOptionsForTheNextLoad) {
  ClickStatusPanel(s, 3);
  Load("x");
  EXPECT_TRUE(s.ExactToFloat);
}

// The command frame.

TEST_F(MainFlow, ResultPhrasesForEachSide) {
  EXPECT_EQ(
      ResultPhrases("Simplifying", "There is nothing to simplify"),
      (std::array<std::string, 6>{"Simplifying on the left side of the equation yields",
                                  "There is nothing to simplify on the left side of the equation.",
                                  "Simplifying on the right side of the equation yields",
                                  "There is nothing to simplify on the right side of the equation.",
                                  "Simplifying yields", "There is nothing to simplify."}));
}

TEST_F(MainFlow, ResultOnlyWritesOneLineAndOneDrawing) {
  s.SolveDetailDefault = 0;
  Load("x+x");
  frontend.work_space.clear();
  RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx side) {
    Replace(session, side, "2*x");
    return true;
  });
  EXPECT_EQ(Transcript(), "Simplifying yields\n\n\t@2*x@\n\n");
}

TEST_F(MainFlow, NothingToDoSaysSo) {
  Load("x");
  frontend.work_space.clear();
  RunExpressionCommand(s, Simplify(), [](Session&, NodeIdx) { return false; });
  EXPECT_EQ(Transcript(), "There is nothing to simplify.\n");
}

TEST_F(MainFlow, OneByOneEachPressShowsOneStep) {
  Load("x+x+x");
  frontend.work_space.clear();
  int presses = 0;
  const SideEngine one_step = [&presses](Session& session, NodeIdx side) {
    ++presses;
    session.Message = "55#Combine like terms";
    Replace(session, side, presses == 1 ? "2*x+x" : "3*x");
    ShowStep(session, side);
    return true;
  };
  RunExpressionCommand(s, Simplify(), one_step);
  EXPECT_EQ(Transcript(), "Combine like terms\n\n\t@2*x+x@\n\n");
  RunExpressionCommand(s, Simplify(), one_step);
  EXPECT_EQ(Transcript(), "Combine like terms\n\n\t@2*x+x@\n\nCombine like terms\n\n\t@3*x@\n\n");
  EXPECT_EQ(s.HelpNumber, 55);
}

TEST_F(MainFlow, StreamingStepsEndWithTheNothingSentence) {
  s.StreamingOutput = true;
  Load("x+x");
  frontend.work_space.clear();
  RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx side) {
    session.Message = "55#Combine like terms";
    Replace(session, side, "2*x");
    ShowStep(session, side);
    return true;
  });
  EXPECT_EQ(Transcript(), "Combine like terms\n\n\t@2*x@\n\nThere is nothing to simplify.\n");
}

TEST_F(MainFlow, CommandOnTheRightSideChangesNodeThreeAndShowsBothSides) {
  s.SolveDetailDefault = 0;
  Load("x+x=3+4");
  cmdDoRHS(s);
  frontend.work_space.clear();
  RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx side) {
    EXPECT_EQ(side, kRightRoot);
    Replace(session, side, "7");
    return true;
  });
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "7");
  EXPECT_EQ(Transcript(), "Simplifying on the right side of the equation yields\n\n\t@x+x=7@\n\n");
}

TEST_F(MainFlow, NothingOnTheLeftSideNamesTheSide) {
  Load("x=3+4");
  cmdDoLHS(s);
  frontend.work_space.clear();
  RunExpressionCommand(s, Simplify(), [](Session&, NodeIdx) { return false; });
  EXPECT_EQ(Transcript(), "There is nothing to simplify on the left side of the equation.\n");
}

struct ErrorCase {
  std::uint32_t number;
  std::string text;
  int help;
};

TEST_F(MainFlow, NumberedErrorsHaveTheirSentencesAndHelpTopics) {
  const std::vector<ErrorCase> cases = {
      {0x80045402u, "You are attempting to take the logarithm of 0 and this is undefined.", 255},
      {0x80045403u, "You are attempting to take the natural logarithm of 0 and this is undefined.",
       256},
      {0x80045404u,
       "You are attempting to take the tangent of an angle for which the tangent is undefined.",
       257},
      {0x80045405u, "You are attempting to raise 0 to non-positive power and this is undefined.",
       258},
      {0x80045406u, "You are attempting to evaluate 0/0 and this is indeterminate.", 259}};
  for (const ErrorCase& c : cases) {
    Load("log(x)");
    const std::string shown = RunExpressionCommand(
        s, Simplify(), [&c](Session&, NodeIdx) -> bool { throw AppError(c.number, "numbered"); });
    EXPECT_EQ(shown, c.text);
    EXPECT_EQ(frontend.messages.back().text, c.text);
    EXPECT_EQ(frontend.messages.back().help_number, c.help);
    EXPECT_EQ(s.HelpNumber, c.help);
  }
}

TEST_F(MainFlow, DivisionByZeroHasItsSentence) {
  Load("1/x");
  RunExpressionCommand(s, Simplify(), [](Session&, NodeIdx) -> bool {
    throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  });
  EXPECT_EQ(frontend.messages.back().text,
            "You are attempting to divide by 0 and this is undefined.");
  EXPECT_EQ(frontend.messages.back().help_number, 260);
}

TEST_F(MainFlow, OtherErrorsGiveTheCommandsTextAndRestoreBothSides) {
  Load("x+1=2");
  cmdDoLHS(s);
  const std::string shown =
      RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx side) -> bool {
        session.Pool[side].Text = "broken";
        for (;;) NewNode(session);  // the pool runs out
      });
  EXPECT_EQ(shown, "Error in Simplify.");
  EXPECT_EQ(frontend.messages.back().text, "Error in Simplify.");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "2");
  EXPECT_EQ(s.Pool.NodesInUse, 4);  // nodes 2 and 3, and the two terms of x+1
  EXPECT_EQ(s.DetailNow, 0);
}

TEST_F(MainFlow, EachCommandHasItsOwnErrorText) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"cmdSimplify", "Error in Simplify."},        {"cmdExpandTrig", "Error in Simplify."},
      {"cmdCombineTrig", "Error in Simplify."},     {"cmdExpand", "Error in Expand."},
      {"cmdAutoFactor", "Error in Factor."},        {"cmd1Frac", "Error in Combining Fractions."},
      {"cmdCombineLogs", "Error in Combine Logs."}, {"cmdCSExpr", "Error in Complete the Square."}};
  for (const auto& [button, text] : cases) {
    Load("x");
    const ExpressionCommand* command = FindExpressionCommand(button);
    ASSERT_NE(command, nullptr) << button;
    RunExpressionCommand(s, *command, [](Session&, NodeIdx) -> bool {
      throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
    });
    EXPECT_EQ(frontend.messages.back().text, text);
  }
}

TEST_F(MainFlow, CancelStopsQuietlyAndRestoresTheSides) {
  Load("x+x");
  frontend.messages.clear();
  frontend.pause_answers = {PauseInput::Escape};
  const std::string shown = RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx side) {
    Replace(session, side, "2*x");
    ShowWaitButton(session, "");
    return true;
  });
  EXPECT_EQ(shown, "");
  EXPECT_TRUE(frontend.messages.empty());
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+x");
  EXPECT_EQ(s.AutoSolveTag, "");
}

TEST_F(MainFlow, DiagnosticsLabelCountsNodesTimeAndSteps) {
  Load("x+1");
  RunExpressionCommand(s, Simplify(), [](Session& session, NodeIdx) {
    session.StepCount = 2;
    return false;
  });
  const std::string& label = s.Form.diagnostics;
  EXPECT_EQ(label.rfind("n=", 0), 0u);
  EXPECT_NE(label.find(", t="), std::string::npos);
  EXPECT_NE(label.find("s\n"), std::string::npos);
  EXPECT_NE(label.find("\nsteps=2"), std::string::npos);
}

// Sixty terms: beyond the fifty terms one level of the parser holds.
std::string SixtyTermSum() {
  std::string text = "x";
  for (int i = 1; i < 60; ++i) text += "+x";
  return text;
}

TEST_F(MainFlow, SumsFactoredForAnItemAreDroppedAtTheNextLoad) {
  ASSERT_TRUE(Load("(x^2-1)/(x-1)"));
  std::string error;
  ASSERT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
  EXPECT_FALSE(s.KeptAnswers.empty());
  // Loading the same item again works its factorings out again: a batch that repeats its items
  // measures real work.
  ASSERT_TRUE(Load("(x^2-1)/(x-1)"));
  EXPECT_TRUE(s.KeptAnswers.empty());
}

TEST_F(MainFlow, TextsParsedForAnItemAreDroppedAtTheNextLoad) {
  ASSERT_TRUE(Load("x^2-5x+6=0"));
  std::string error;
  ASSERT_EQ(PressButton(s, "cmdAutoSolve", false, error), PressOutcome::Done);
  EXPECT_FALSE(s.ParsedTexts.empty());
  ASSERT_TRUE(Load("x^2-5x+6=0"));
  EXPECT_TRUE(s.ParsedTexts.empty());
}

TEST_F(MainFlow, AFailedLoadKeepsThePreviousItemWhole) {
  ASSERT_TRUE(Load("2x+3x=10"));
  cmdDoLHS(s);
  const FormState before = s.Form;
  frontend.work_space.clear();
  EXPECT_FALSE(Load(SixtyTermSum()));
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error in input string.");
  EXPECT_EQ(frontend.messages[0].help_number, 2);
  // No "Consider" without its item.
  EXPECT_EQ(Transcript(), "");
  EXPECT_EQ(s.Form.item_kind, "equation");
  EXPECT_EQ(s.Form.visible_panel, before.visible_panel);
  EXPECT_EQ(s.Form.panel1_caption, "Left Side");
  EXPECT_EQ(s.Form.equation_box_items, before.equation_box_items);
  EXPECT_EQ(s.Pool[kRightRoot].Text, "10");
  ASSERT_EQ(s.EquationList.size(), 1u);
  EXPECT_EQ(s.EquationList[0][1], "10");
  // The buttons on offer act on the kept item.
  s.StreamingOutput = true;
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
  EXPECT_TRUE(error.empty()) << error;
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "5*x");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "10");
}

TEST_F(MainFlow, AFailedLoadAfterSeveralLoadsKeepsTheLatestItem) {
  ASSERT_TRUE(Load("x+1=2"));
  ASSERT_TRUE(Load("3y-y=8"));
  ASSERT_TRUE(Load("a+a+b"));
  EXPECT_FALSE(Load(SixtyTermSum()));
  EXPECT_EQ(s.Form.item_kind, "expression");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "a+a+b");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "");
  EXPECT_NE(s.Pool[kLeftRoot].FirstChild, kNoNode);
  s.StreamingOutput = true;
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2*a+b");
  // The next load works on a pool started anew.
  ASSERT_TRUE(Load("x-x"));
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x-x");
}

TEST_F(MainFlow, AFailedFirstLoadLeavesNothingOnOffer) {
  EXPECT_FALSE(Load(SixtyTermSum()));
  EXPECT_EQ(s.Form.item_kind, "");
  EXPECT_EQ(s.Form.visible_panel, -1);
  EXPECT_EQ(Transcript(), "");
}

}  // namespace
}  // namespace tavimor
