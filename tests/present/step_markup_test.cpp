// Tests of the step-message markup and of writing messages into the work space.
#include <gtest/gtest.h>

#include "present/step_markup.h"
#include "present/work_space.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class StepMessages : public SessionTest {
 protected:
  StepMessages() {
    s.StreamingOutput = false;
    NewNode(s);  // node 2
    NewNode(s);  // node 3
  }
  std::string Transcript() const { return frontend.Transcript(); }
};

TEST(StepMarkup, HelpNumberIsTheLeadingNumber) {
  EXPECT_EQ(HelpNumberOf("88#Simplify"), 88);
  EXPECT_EQ(HelpNumberOf("Simplify"), 0);
  EXPECT_EQ(HelpNumberOf("#x"), 0);
}

TEST(StepMarkup, PrefixUpToTheFirstHashIsRemoved) {
  EXPECT_EQ(StripHelpPrefix("88#Simplify @x@"), "Simplify @x@");
  EXPECT_EQ(StripHelpPrefix("5#"), "");
}

TEST(StepMarkup, MessageWithoutHashIsKeptWhole) {
  EXPECT_EQ(HelpNumberOf("Combine like terms"), 0);
  EXPECT_EQ(StripHelpPrefix("Combine like terms"), "Combine like terms");
}

TEST(StepMarkup, FindBreakTakesTheEarlierMark) {
  int position = 0;
  std::string mark;
  FindBreak("ab|cd\\e", position, mark);
  EXPECT_EQ(position, 3);
  EXPECT_EQ(mark, "|");
  FindBreak("a\\|b", position, mark);
  EXPECT_EQ(position, 2);
  EXPECT_EQ(mark, "\\");
  FindBreak("plain", position, mark);
  EXPECT_EQ(position, 0);
  EXPECT_EQ(mark, "");
}

TEST(StepMarkup, LongerRelationsAreFoundFirst) {
  std::string text = "x>=1";
  std::string right;
  int code = 0;
  FindRelation(text, right, code);
  EXPECT_EQ(code, 5);
  EXPECT_EQ(text, "x");
  EXPECT_EQ(right, "1");
}

TEST(StepMarkup, ArrowSplitsBeforeEquals) {
  std::string text = "a->b=c";
  std::string right;
  int code = 0;
  FindRelation(text, right, code);
  EXPECT_EQ(code, 6);
  EXPECT_EQ(text, "a");
  EXPECT_EQ(right, "b=c");
}

TEST(StepMarkup, EveryRelationHasItsCode) {
  const std::vector<std::pair<std::string, int>> cases = {
      {"a<=b", 4}, {"a>b", 3}, {"a<b", 2}, {"a=b", 1}, {"a+b", 0}};
  for (const auto& [relation, expected] : cases) {
    std::string text = relation;
    std::string right;
    int code = -1;
    FindRelation(text, right, code);
    EXPECT_EQ(code, expected) << relation;
  }
}

TEST_F(StepMessages, HelpNumberAloneWritesAnEmptyLine) {
  s.Message = "5#";
  ShowStep(s, kLeftRoot);
  EXPECT_EQ(s.HelpNumber, 5);
  ASSERT_FALSE(frontend.work_space.empty());
  EXPECT_EQ(frontend.work_space[0].kind, RunKind::LineEnd);
}

TEST_F(StepMessages, OnlyTheFirstPairOfALineIsTypeset) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "a@x=1@b@y@", false);
  EXPECT_EQ(Transcript(), "a@x=1@b@y@\n");
  int pictures = 0;
  for (const RichRun& run : frontend.work_space) {
    if (run.kind == RunKind::Picture) {
      ++pictures;
      EXPECT_EQ(run.picture.relation, 1);
      EXPECT_EQ(run.picture.left, "x");
      EXPECT_EQ(run.picture.right, "1");
    }
  }
  EXPECT_EQ(pictures, 1);
  EXPECT_EQ(frontend.work_space.back().kind, RunKind::LineEnd);
  EXPECT_EQ(frontend.work_space[frontend.work_space.size() - 2].text, "b@y@");
}

TEST_F(StepMessages, BarsEndLinesAndDoubleBarsGiveAnEmptyLine) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "one|two||three", false);
  EXPECT_EQ(Transcript(), "one\ntwo\n\nthree\n");
  EXPECT_TRUE(frontend.pauses.empty());
}

TEST_F(StepMessages, PauseMarkEndsALineAndPausesWhenNotStreaming) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "first\\|second", false);
  EXPECT_EQ(Transcript(), "first\n\nsecond\n");
  EXPECT_EQ(frontend.pauses, std::vector<std::string>{"print"});
}

TEST_F(StepMessages, MessageStartingWithAPauseDoesNotPauseThere) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "\\text", false);
  EXPECT_TRUE(frontend.pauses.empty());
  EXPECT_EQ(Transcript(), "\ntext\n");
}

TEST_F(StepMessages, StreamingNeverPauses) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "a\\b\\c", true);
  EXPECT_TRUE(frontend.pauses.empty());
  EXPECT_EQ(Transcript(), "a\nb\nc\n");
}

TEST_F(StepMessages, RelationInsideMathematicsIsDrawnAsARelation) {
  WorkSpaceSink box(s);
  WriteMessage(s, box, "Since @x>=1@ holds", true);
  const RichRun& picture = frontend.work_space[1];
  ASSERT_EQ(picture.kind, RunKind::Picture);
  EXPECT_EQ(picture.picture.relation, 5);
  EXPECT_EQ(Transcript(), "Since @x>=1@ holds\n");
}

TEST_F(StepMessages, WriteTextAppliesItsFormatAndLineEnds) {
  WorkSpaceSink box(s);
  WriteText(s, box, "Consider  ", 1, 0, "TFF12");
  ASSERT_EQ(frontend.work_space.size(), 2u);
  EXPECT_EQ(frontend.work_space[0].kind, RunKind::LineEnd);
  const TextFormat& f = frontend.work_space[1].format;
  EXPECT_TRUE(f.bold);
  EXPECT_FALSE(f.italic);
  EXPECT_FALSE(f.underline);
  EXPECT_EQ(f.colour, 12);
  EXPECT_EQ(f.Rgb(), 0xFF0000u);
  EXPECT_EQ(f.size, s.FontSize);
  EXPECT_FALSE(s.WritingWorkSpace);
}

TEST_F(StepMessages, FormatStringsOfTheSixteenColours) {
  EXPECT_EQ(TextFormat::Parse("FFF0", 12).Rgb(), 0x000000u);
  EXPECT_EQ(TextFormat::Parse("FTF0", 12).italic, true);
  EXPECT_EQ(TextFormat::Parse("FFF4", 12).Rgb(), 0x800000u);
  EXPECT_EQ(TextFormat::Parse("FFF9", 12).Rgb(), 0x0000FFu);
  EXPECT_EQ(TextFormat::Parse("FFF15", 12).Rgb(), 0xFFFFFFu);
  EXPECT_EQ(TextFormat::Parse("FFT2", 12).underline, true);
}

TEST_F(StepMessages, HeadingIsBoldInItsSizeThenALineEnd) {
  WorkSpaceSink box(s);
  WriteHeading(s, box, "Solving", 0, 0, 16.0f);
  ASSERT_EQ(frontend.work_space.size(), 2u);
  EXPECT_TRUE(frontend.work_space[0].format.bold);
  EXPECT_EQ(frontend.work_space[0].format.size, 16.0f);
  EXPECT_EQ(frontend.work_space[1].kind, RunKind::LineEnd);
}

TEST_F(StepMessages, RuleAfterTwoLineEndsInItsColour) {
  WorkSpaceSink box(s);
  WriteRule(s, box, 9);
  EXPECT_EQ(Transcript(), "\n\n_____________________________");
  EXPECT_EQ(frontend.work_space.back().format.colour, 9);
}

TEST_F(StepMessages, PictureKeepsItsMathematicsAndBaselineOffset) {
  WorkSpaceSink box(s);
  Picture picture;
  picture.left = "x";
  picture.drawing.height = 30.0f;
  picture.drawing.baseline = 20.0f;
  InsertPicture(s, box, picture, 1, 2, true);
  EXPECT_EQ(Transcript(), "\n\t@x@\n\n");
  const RichRun& run = frontend.work_space[2];
  // height - baseline - 0.35 * font height (12 points at the fixed metrics)
  EXPECT_FLOAT_EQ(run.picture.baseline_offset, 30.0f - 20.0f - 0.35f * 12.0f);
  EXPECT_EQ(run.picture.Tag(), "20;x");
}

TEST_F(StepMessages, ShowStepDrawsTheSideByThePanelCaption) {
  LoadSide(s, kLeftRoot, "2*x");
  LoadSide(s, kRightRoot, "4");
  s.Message = "12#Divide @x@";
  s.Form.panel1_caption = "Expression";
  ShowStep(s, kLeftRoot);
  EXPECT_EQ(s.HelpNumber, 12);
  EXPECT_EQ(s.Message, "Divide @x@");
  s.Message = "Left";
  s.Form.panel1_caption = "Left Side";
  s.DoToBothSidesQ = "*2";
  ShowStep(s, kLeftRoot);
  EXPECT_EQ(s.DoToBothSidesQ, "");
  s.Message = "Right";
  s.Form.panel1_caption = "Right Side";
  ShowStep(s, kRightRoot);
  EXPECT_EQ(Transcript(), "Divide @x@\n\n\t@2*x@\n\nLeft\n\n\t@2*x=4@\n\nRight\n\n\t@2*x=4@\n\n");
}

TEST_F(StepMessages, ReportStepCountsWritesAndPaces) {
  s.SolveDetail = 1;
  EXPECT_FALSE(ReportStep(s, "20#Subtract 3", "2*x", "4", 1));
  EXPECT_EQ(s.StepCount, 1);
  EXPECT_EQ(s.HelpNumber, 20);
  EXPECT_EQ(Transcript(), "Subtract 3\n\n\t@2*x=4@\n\n");
  EXPECT_EQ(frontend.pauses, std::vector<std::string>{""});
}

TEST_F(StepMessages, ReportStepWithoutDetailWritesNothing) {
  s.SolveDetail = 0;
  EXPECT_FALSE(ReportStep(s, "20#Subtract 3", "2*x", "4", 1));
  EXPECT_EQ(s.StepCount, 1);
  EXPECT_EQ(Transcript(), "");
}

TEST_F(StepMessages, ReportStepGivesAWantedHintAndStops) {
  s.SolveDetail = 0;
  s.HintState = 1;
  EXPECT_TRUE(ReportStep(s, "31#Divide both sides by @2@", "x", "2", 1));
  EXPECT_EQ(s.HintState, 2);
  EXPECT_EQ(s.HelpNumber, 31);
  EXPECT_EQ(frontend.hints, std::vector<std::string>{"Divide both sides by @2@\n"});
  EXPECT_EQ(frontend.hint_help, std::vector<int>{31});
}

TEST_F(StepMessages, StepThatCannotBeAHintPassesTheHintOn) {
  s.SolveDetail = 0;
  s.HintState = 1;
  EXPECT_FALSE(ReportStep(s, "31#Tidy up", "x", "2", 0));
  EXPECT_EQ(s.HintState, 1);
  EXPECT_TRUE(frontend.hints.empty());
}

TEST_F(StepMessages, NoteWritesAndPacesThenStopsACancelledSolve) {
  s.SolveDetail = 1;
  ShowNote(s, "44#No solution");
  EXPECT_EQ(s.HelpNumber, 44);
  EXPECT_EQ(Transcript(), "No solution\n");
  EXPECT_EQ(frontend.pauses.size(), 1u);
  s.AutoSolveTag = "Cancel;";
  try {
    ShowNote(s, "Next");
    FAIL() << "a cancelled solve goes on";
  } catch (const AppError& error) {
    EXPECT_EQ(error.Number(), 0x80045401u);
  }
}

TEST_F(StepMessages, PacingButtonGoesOnWithEnter) {
  frontend.pause_answers = {PauseInput::Continue};
  EXPECT_NO_THROW(ShowWaitButton(s, ""));
  EXPECT_EQ(s.AutoSolveTag, "");
}

TEST_F(StepMessages, F1AtThePacingButtonShowsHelpAndWaitsOn) {
  s.HelpNumber = 77;
  frontend.pause_answers = {PauseInput::Help, PauseInput::Continue};
  ShowWaitButton(s, "");
  EXPECT_EQ(frontend.help_shown, std::vector<int>{77});
  EXPECT_EQ(frontend.pauses.size(), 2u);
}

TEST_F(StepMessages, RightButtonAsksAndYesCancels) {
  frontend.pause_answers = {PauseInput::RightButton};
  frontend.yes = true;
  try {
    ShowWaitButton(s, "");
    FAIL() << "no cancel";
  } catch (const AppError& error) {
    EXPECT_EQ(error.Number(), kErrorCancel);
  }
  EXPECT_EQ(frontend.questions, std::vector<std::string>{"Really want to stop AutoSolve?"});
  EXPECT_EQ(s.AutoSolveTag, "Cancel;");
}

TEST_F(StepMessages, RightButtonAndNoGoesOn) {
  frontend.pause_answers = {PauseInput::RightButton};
  frontend.yes = false;
  EXPECT_NO_THROW(ShowWaitButton(s, ""));
  EXPECT_EQ(s.AutoSolveTag, "");
}

TEST_F(StepMessages, EscapeCancelsWithoutAsking) {
  frontend.pause_answers = {PauseInput::Escape};
  EXPECT_THROW(ShowWaitButton(s, ""), AppError);
  EXPECT_TRUE(frontend.questions.empty());
}

TEST_F(StepMessages, RightButtonDoesNothingForTheTools) {
  frontend.pause_answers = {PauseInput::RightButton, PauseInput::Continue};
  EXPECT_NO_THROW(ShowWaitButton(s, "simp frac"));
  EXPECT_TRUE(frontend.questions.empty());
  EXPECT_EQ(frontend.pauses.size(), 2u);
}

TEST_F(StepMessages, EscapeInsideAMessageStopsTheCommand) {
  frontend.pause_answers = {PauseInput::Escape};
  WorkSpaceSink box(s);
  EXPECT_THROW(WriteMessage(s, box, "a\\b", false), AppError);
  EXPECT_EQ(Transcript(), "a\n");
}

TEST_F(StepMessages, HintBoxNeverPauses) {
  ShowHint(s, "one\\two");
  EXPECT_TRUE(frontend.pauses.empty());
  EXPECT_EQ(frontend.hints, std::vector<std::string>{"one\ntwo\n"});
}

}  // namespace
}  // namespace tavimor
