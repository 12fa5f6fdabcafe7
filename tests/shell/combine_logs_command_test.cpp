// The Combine logs button in its command frame: the result, the nothing sentence, the error of a
// logarithm of 0, and the item kept when nothing combines.
#include <gtest/gtest.h>

#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class CombineLogsCommand : public SessionTest {
 protected:
  CombineLogsCommand() {
    s.StreamingOutput = true;
    StartUp(s, ".");
  }
  // Loads the item and runs the button's engine in its frame, as a press does; the transcript.
  std::string Run(const std::string& item) {
    EXPECT_TRUE(cmdLoadEquation(s, item, false));
    frontend.work_space.clear();
    const CommandRow& row = *FindCommandRow("cmdCombineLogs");
    error = RunExpressionCommand(s, row.frame, [&row](Session& session, NodeIdx side) {
      return row.engine(session, side, false);
    });
    return frontend.Transcript();
  }
  std::string error;
};

TEST_F(CombineLogsCommand, TheButtonIsBuilt) { EXPECT_TRUE(ButtonIsBuilt("cmdCombineLogs")); }

TEST_F(CombineLogsCommand, OneLnHasNoLogarithmsToCombine) {
  EXPECT_NE(Run("ln(x)").find("There are no logarithms that can be combined."), std::string::npos);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "ln(x)");
}

TEST_F(CombineLogsCommand, TwoLnsBecomeOne) {
  const std::string transcript = Run("ln(x)+ln(y)");
  EXPECT_NE(transcript.find("using property 1 of logarithms"), std::string::npos) << transcript;
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "ln(x*y)");
  EXPECT_EQ(s.HelpNumber, 82);
}

TEST_F(CombineLogsCommand, LogarithmOfZeroIsTheErrorAndTheItemStays) {
  Run("ln(x-x)+ln(y)");
  EXPECT_EQ(error, "You are attempting to take the natural logarithm of 0 and this is undefined.");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "ln(x-x)+ln(y)");
}

}  // namespace
}  // namespace tavimor
