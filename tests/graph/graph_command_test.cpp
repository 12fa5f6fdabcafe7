// The Graph button: the refusals in a message box, and the window opened over the classified
// equations.
#include <gtest/gtest.h>

#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// A recording front end that also shows graphs.
class GraphRecordingFrontend : public RecordingFrontend {
 public:
  void OpenGraphWindow(Session& s) override {
    ++opened;
    kinds.clear();
    for (const EquationRow& row : s.EquationList) kinds.push_back(row[3]);
  }
  int opened = 0;
  std::vector<std::string> kinds;
};

class GraphButton : public ::testing::Test {
 protected:
  GraphButton() : s(frontend) { StartUp(s, "."); }
  PressOutcome Press(const std::string& item) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    std::string error;
    return PressButton(s, "cmdGraph", false, error);
  }
  GraphRecordingFrontend frontend;
  Session s;
};

TEST_F(GraphButton, OpensTheWindowOverTheClassifiedEquation) {
  EXPECT_EQ(Press("y=x^2"), PressOutcome::Done);
  EXPECT_EQ(frontend.opened, 1);
  EXPECT_EQ(frontend.kinds, std::vector<std::string>{"1"});
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(GraphButton, EquationInOtherLettersIsRefusedWithItsTopic) {
  Press("y=a*x");
  EXPECT_EQ(frontend.opened, 0);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text, "Error: Can't graph y=a*x.");
  EXPECT_EQ(frontend.messages[0].help_number, 13);
}

TEST_F(GraphButton, StandsOnTheEquationAndMultiEquationPanels) {
  EXPECT_TRUE(ButtonIsBuilt("cmdGraph"));
  const CommandWord* word = FindCommandWord("graph");
  ASSERT_NE(word, nullptr);
  EXPECT_STREQ(word->button, "cmdGraph");
}

}  // namespace
}  // namespace tavimor
