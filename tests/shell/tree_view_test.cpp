// Tests of the Tree button: the tree view of the side in use, its labels and its help topic.
#include <gtest/gtest.h>

#include "present/tree_labels.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/commands/tree_view_command.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class TreeView : public SessionTest {
 protected:
  TreeView() { StartUp(s, "."); }
  // Loads the item, presses a button on it in turn, then Tree; the entries of the view.
  std::vector<TreeViewEntry> Tree(const std::string& item, const char* first = nullptr) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    std::string error;
    if (first != nullptr) {
      EXPECT_EQ(PressButton(s, first, false, error), PressOutcome::Done);
    }
    EXPECT_EQ(PressButton(s, "cmdTree", false, error), PressOutcome::Done);
    EXPECT_EQ(error, "");
    if (frontend.tree_views.empty()) return {};
    return frontend.tree_views.back();
  }
};

TEST_F(TreeView, BareNumberAtTheRootIsOneEntryWithTheBlankRoleShown) {
  // A number stands on the Number panel, without the Tree button: the view's entries alone.
  ASSERT_TRUE(cmdLoadEquation(s, "5", false));
  const std::vector<TreeViewEntry> entries = TreeViewEntries(s, kLeftRoot);
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].depth, 0);
  EXPECT_EQ(entries[0].label, std::string(kPilcrow) + "N     5");
}

TEST_F(TreeView, SumShowsEachTermOneLevelDown) {
  const std::vector<TreeViewEntry> entries = Tree("x+2*y");
  ASSERT_GE(entries.size(), 3u);
  EXPECT_EQ(entries[0].label, std::string(kPilcrow) + kPilcrow + "     x+2*y");
  EXPECT_EQ(entries[1].depth, 1);
  EXPECT_EQ(entries[1].label, "+V     x");
  for (std::size_t i = 1; i < entries.size(); ++i) EXPECT_GE(entries[i].depth, 1);
}

TEST_F(TreeView, ShowsTheRightSideUnderItsCaption) {
  const std::vector<TreeViewEntry> entries = Tree("x+1=y^2", "cmdDoRHS");
  ASSERT_FALSE(entries.empty());
  EXPECT_NE(entries[0].label.find("y^2"), std::string::npos) << entries[0].label;
  EXPECT_EQ(entries[0].label.find("x+1"), std::string::npos) << entries[0].label;
}

TEST_F(TreeView, SetsTheHelpTopicOfTheView) {
  Tree("x+1");
  EXPECT_EQ(s.HelpNumber, kTreeViewHelp);
  EXPECT_EQ(kTreeViewHelp, 397);
}

TEST_F(TreeView, LeavesTheWorkItemAndTheWorkSpaceAlone) {
  ASSERT_TRUE(cmdLoadEquation(s, "x+1", false));
  const std::string before = frontend.Transcript();
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdTree", false, error), PressOutcome::Done);
  EXPECT_EQ(frontend.Transcript(), before);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
}

TEST_F(TreeView, IsTheTerminalWordTree) {
  const CommandWord* word = FindCommandWord("tree");
  ASSERT_NE(word, nullptr);
  EXPECT_EQ(std::string(word->button), "cmdTree");
  EXPECT_TRUE(ButtonIsBuilt("cmdTree"));
}

}  // namespace
}  // namespace tavimor
