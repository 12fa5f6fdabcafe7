// Tests of the list editor: loading, the edits of both lists, promote and demote, moves, cut,
// copy and paste, and what closing with Keep Changes or Cancel Changes leaves in the list.
#include "shell/list_editor.h"

#include <gtest/gtest.h>

#include "shell/algebra_file.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using Entries = std::vector<std::string>;

class ListEditorTest : public SessionTest {
 protected:
  void SetList(Entries entries) {
    s.ListEntries = std::move(entries);
    s.ListEditedFlag = false;
    s.TopicsStaleFlag = true;
  }
  static std::vector<std::string> Texts(const std::vector<EditorItem>& items) {
    std::vector<std::string> out;
    for (const EditorItem& item : items) out.push_back(item.text);
    return out;
  }
};

const Entries kCourse = {"Topic:Linear",    "Comment:one unknown",
                         "Eqn:2*x=4",       "Comment:first",
                         "Eqn:x+1=3",       "Comment:",
                         "SubTop:Harder",   "Comment:",
                         "Eqn:3*x-1=x",     "Comment:",
                         "Topic:Quadratic", "Comment:",
                         "Eqn:x^2=4",       "Comment:"};

TEST_F(ListEditorTest, OpeningAndClosingWithoutAChangeLeavesTheFileClean) {
  SetList(kCourse);
  ListEditor editor(s);
  EXPECT_FALSE(editor.Changed());
  editor.Keep();
  EXPECT_EQ(s.ListEntries, kCourse);
  EXPECT_FALSE(s.ListEditedFlag);
  EXPECT_FALSE(s.TopicsStaleFlag);
  EXPECT_FALSE(HasUnsavedChanges(s));
}

TEST_F(ListEditorTest, AListWithoutHeadingCommentsStaysCleanThoughItGainsEmptyComments) {
  SetList({"Topic:Linear", "Eqn:2*x=4", "SubTop:Harder", "Eqn:x=1", "Comment:c"});
  ListEditor editor(s);
  EXPECT_EQ(s.ListEntries, (Entries{"Topic:Linear", "Comment:", "Eqn:2*x=4", "Comment:",
                                    "SubTop:Harder", "Comment:", "Eqn:x=1", "Comment:c"}));
  EXPECT_FALSE(editor.Changed());
  editor.Keep();
  EXPECT_FALSE(s.ListEditedFlag);
  EXPECT_FALSE(HasUnsavedChanges(s));
}

TEST_F(ListEditorTest, TheLastEntryWithoutACommentGetsOne) {
  EXPECT_EQ(InputListModern({"Eqn:x=1"}), (Entries{"Eqn:x=1", "Comment:"}));
  EXPECT_EQ(InputListModern({"Eqn:x=1", "Comment:a", "Eqn:x=2"}),
            (Entries{"Eqn:x=1", "Comment:a", "Eqn:x=2", "Comment:"}));
}

TEST_F(ListEditorTest, LoadShowsHeadingsWithSubtopicsIndentedAndSelectsTheFirst) {
  SetList(kCourse);
  ListEditor editor(s);
  EXPECT_EQ(Texts(editor.Topics()),
            (std::vector<std::string>{"Linear", "        Harder", "Quadratic"}));
  EXPECT_EQ(editor.SelectedTopic(), 0);
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"2*x=4", "x+1=3"}));
  EXPECT_EQ(editor.CommentOfSelectedTopic(), "one unknown");
  editor.SelectEqn(0);
  EXPECT_EQ(editor.CommentOfSelectedEqn(), "first");
  editor.SelectTopic(1);
  EXPECT_TRUE(editor.NoEqnSelected());
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"3*x-1=x"}));
}

TEST_F(ListEditorTest, EquationsBeforeAnyHeadingComeFirstWhenRebuilt) {
  SetList({"Eqn:y=2", "Comment:", "Topic:T", "Comment:", "Eqn:x=1", "Comment:"});
  ListEditor editor(s);
  EXPECT_EQ(editor.CreateNewInputList(), s.ListEntries);
}

TEST_F(ListEditorTest, CancelAfterAConfirmedLossRestoresTheListAsItWas) {
  SetList({"Topic:Linear", "Eqn:2*x=4"});
  const Entries before = s.ListEntries;
  ListEditor editor(s);
  ASSERT_TRUE(editor.TopicNew("Fractions", "adding"));
  editor.SelectEqn(-1);
  ASSERT_TRUE(editor.EqnNew("1/x=2", ""));
  EXPECT_TRUE(editor.Changed());
  editor.Discard();
  EXPECT_EQ(s.ListEntries, InputListModern(before));
  EXPECT_FALSE(s.ListEditedFlag);
}

TEST_F(ListEditorTest, ATopicWithEightLeadingBlanksOfItsOwnIsTakenForADemotedItem) {
  SetList({"Topic:Linear", "Comment:", "Topic:        Indented", "Comment:"});
  ListEditor editor(s);
  EXPECT_EQ(Texts(editor.Topics()), (std::vector<std::string>{"Linear", "        Indented"}));
  EXPECT_EQ(editor.CreateNewInputList(),
            (Entries{"Topic:Linear", "Comment:", "SubTop:Indented", "Comment:"}));
  EXPECT_TRUE(editor.Changed());
}

TEST_F(ListEditorTest, ASubtopicWithEightBlanksOfItsOwnKeepsThem) {
  SetList({"Topic:A", "Comment:", "SubTop:        B", "Comment:"});
  ListEditor editor(s);
  EXPECT_EQ(editor.Topics()[1].text, std::string(16, ' ') + "B");
  EXPECT_FALSE(editor.Changed());
}

TEST_F(ListEditorTest, KeepChangesReplacesTheListAndMarksTheFileChanged) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectTopic(2);
  ASSERT_TRUE(editor.EqnNew("x^2-1=0", "difference of squares"));
  editor.Keep();
  EXPECT_TRUE(s.ListEditedFlag);
  EXPECT_TRUE(s.TopicsStaleFlag);
  EXPECT_TRUE(HasUnsavedChanges(s));
  EXPECT_EQ(s.ListEntries.size(), kCourse.size() + 2);
  EXPECT_EQ(s.ListEntries[12], "Eqn:x^2-1=0");  // no equation selected: first of its box
  EXPECT_EQ(s.ListEntries[13], "Comment:difference of squares");
}

TEST_F(ListEditorTest, AnEmptyTextFromTheInputBoxCancelsTheAction) {
  SetList(kCourse);
  ListEditor editor(s);
  EXPECT_FALSE(editor.TopicNew("", "comment"));
  EXPECT_FALSE(editor.EqnNew("", ""));
  editor.SelectEqn(0);
  EXPECT_FALSE(editor.EqnEdit("", "x"));
  EXPECT_FALSE(editor.Changed());
}

TEST_F(ListEditorTest, NewItemsGoBehindTheSelection) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectEqn(0);
  ASSERT_TRUE(editor.EqnNew("5*x=10", ""));
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"2*x=4", "5*x=10", "x+1=3"}));
  EXPECT_EQ(editor.SelectedEqn(), 1);
  editor.SelectTopic(0);
  ASSERT_TRUE(editor.TopicNew("Between", ""));
  EXPECT_EQ(Texts(editor.Topics())[1], "Between");
  EXPECT_TRUE(editor.Eqns().empty());
}

TEST_F(ListEditorTest, EditingACommentKeepsTheOldTextInTheStore) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectEqn(0);
  ASSERT_TRUE(editor.EqnEdit("2*x=6", "changed"));
  EXPECT_EQ(editor.CommentOfSelectedEqn(), "changed");
  EXPECT_EQ(editor.GetStuff(2), "first");  // texts are only added
  editor.SetEqnComment("again");
  editor.Keep();
  EXPECT_EQ(s.ListEntries[2], "Eqn:2*x=6");
  EXPECT_EQ(s.ListEntries[3], "Comment:again");
}

TEST_F(ListEditorTest, TheFirstHeadingCannotBeDemoted) {
  SetList(kCourse);
  ListEditor editor(s);
  EXPECT_FALSE(editor.Demote());
  editor.SelectTopic(2);
  EXPECT_TRUE(editor.Demote());
  EXPECT_EQ(editor.Topics()[2].text, "        Quadratic");
  EXPECT_FALSE(editor.Demote());  // already a subtopic
  EXPECT_TRUE(editor.Promote());
  EXPECT_EQ(editor.Topics()[2].text, "Quadratic");
  EXPECT_FALSE(editor.Promote());
  EXPECT_FALSE(editor.Changed());
}

TEST_F(ListEditorTest, AHeadingMovesWithItsEquations) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectTopic(2);
  ASSERT_TRUE(editor.MoveTopic(-1));
  EXPECT_EQ(editor.SelectedTopic(), 1);
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"x^2=4"}));
  editor.SelectTopic(2);
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"3*x-1=x"}));
  EXPECT_FALSE(editor.MoveTopic(+1));  // already last
}

TEST_F(ListEditorTest, AnEquationMovesUpAndDownWithinItsHeading) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectEqn(1);
  ASSERT_TRUE(editor.MoveEqn(-1));
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"x+1=3", "2*x=4"}));
  EXPECT_FALSE(editor.MoveEqn(-1));
  editor.Keep();
  EXPECT_EQ(s.ListEntries[2], "Eqn:x+1=3");
  EXPECT_EQ(s.ListEntries[5], "Comment:first");  // the comment went along
}

TEST_F(ListEditorTest, ATopicCutCarriesItsEquationsAndPastesBehindTheSelection) {
  SetList(kCourse);
  ListEditor editor(s);
  ASSERT_TRUE(editor.TopicCut());
  EXPECT_EQ(Texts(editor.Topics()), (std::vector<std::string>{"Harder", "Quadratic"}));
  editor.SelectTopic(1);
  std::string refusal;
  ASSERT_TRUE(editor.TopicPaste(refusal));
  EXPECT_EQ(Texts(editor.Topics()), (std::vector<std::string>{"Harder", "Quadratic", "Linear"}));
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"2*x=4", "x+1=3"}));
  EXPECT_EQ(editor.CommentOfSelectedTopic(), "one unknown");
}

TEST_F(ListEditorTest, CopyingAnEquationLeavesItAndPastesASecond) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectEqn(0);
  ASSERT_TRUE(editor.EqnCopy());
  editor.SelectTopic(2);
  std::string refusal;
  ASSERT_TRUE(editor.EqnPaste(refusal));
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"2*x=4", "x^2=4"}));
  editor.SelectTopic(0);
  EXPECT_EQ(editor.Eqns().size(), 2u);
  editor.SelectEqn(1);
  ASSERT_TRUE(editor.EqnCut());
  EXPECT_EQ(Texts(editor.Eqns()), (std::vector<std::string>{"2*x=4"}));
}

TEST_F(ListEditorTest, NothingSelectedLeavesTheEquationButtonsWithoutEffect) {
  SetList(kCourse);
  ListEditor editor(s);
  ASSERT_TRUE(editor.NoEqnSelected());
  EXPECT_FALSE(editor.EqnCut());
  EXPECT_FALSE(editor.EqnCopy());
  EXPECT_FALSE(editor.EqnEdit("x=1", ""));
  std::string refusal;
  EXPECT_FALSE(editor.EqnPaste(refusal));  // nothing cut or copied yet
}

TEST_F(ListEditorTest, APasteThatWouldOverfillTheListIsRefusedWithTheReason) {
  Entries big;
  for (int i = 0; i < kListCapacity / 2; ++i) {
    big.push_back("Eqn:x=" + std::to_string(i));
    big.push_back("Comment:");
  }
  SetList(big);
  ListEditor editor(s);
  editor.SelectEqn(0);
  ASSERT_TRUE(editor.EqnCopy());
  std::string refusal;
  EXPECT_FALSE(editor.EqnPaste(refusal));
  EXPECT_EQ(refusal, ListFullText());
  EXPECT_FALSE(editor.EqnNew("x=9", ""));
  EXPECT_FALSE(editor.Changed());
}

TEST_F(ListEditorTest, AHeadingMovedToTheTopIsATopic) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectTopic(1);
  ASSERT_TRUE(editor.MoveTopic(-1));
  EXPECT_EQ(Texts(editor.Topics())[0], "Harder");
  ASSERT_TRUE(editor.TopicCut());
  EXPECT_EQ(Texts(editor.Topics())[0], "Linear");
}

TEST_F(ListEditorTest, EditsRoundTripThroughASaveAndAReadByteForByte) {
  SetList(kCourse);
  ListEditor editor(s);
  editor.SelectTopic(1);
  ASSERT_TRUE(editor.Promote());
  ASSERT_TRUE(editor.EqnNew("(x+1)/2=3", "a fraction; with a comment"));
  editor.SelectTopic(0);
  ASSERT_TRUE(editor.TopicEdit("Linear equations", "one unknown, first degree"));
  editor.Keep();
  const std::string bytes = BytesFromEntries(s.ListEntries);
  bool ok = false;
  const Entries read = EntriesFromBytes(bytes, '.', ok);
  ASSERT_TRUE(ok);
  EXPECT_EQ(read, s.ListEntries);
  EXPECT_EQ(BytesFromEntries(read), bytes);
}

}  // namespace
}  // namespace tavimor
