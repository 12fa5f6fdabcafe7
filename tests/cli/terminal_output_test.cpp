// Tests of what the terminal tutor writes and reads: control bytes in caret notation, valid
// UTF-8 and JSON, bounded lines with any line end, and the guess at a mistyped command.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/command_guess.h"
#include "cli/course_list.h"
#include "cli/json_output.h"
#include "cli/terminal_frontend.h"
#include "shell/main_flow.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

TEST(TerminalText, ControlBytesShowInCaretNotation) {
  EXPECT_EQ(PrintableText("a\x1b[31mb\x07\x7f"), "a^[[31mb^G^?");
  EXPECT_EQ(PrintableText("tab\tand\nline"), "tab\tand\nline");
  EXPECT_EQ(PrintableText("\r"), "^M");
}

TEST(TerminalText, C1ControlsShowAsTheEscapeTheyStandFor) {
  EXPECT_EQ(PrintableText("\xc2\x9b"
                          "2J"),
            "^[[2J");  // U+009B is ESC [
  EXPECT_EQ(PrintableText("caf\xc3\xa9 \xe2\x88\x9a"), "caf\xc3\xa9 \xe2\x88\x9a");
}

TEST(TerminalText, InvalidUtf8BecomesTheReplacementCharacter) {
  EXPECT_EQ(PrintableText("a\xff"
                          "b"),
            "a\xef\xbf\xbd"
            "b");
  EXPECT_EQ(ValidUtf8("\xc3"), "\xef\xbf\xbd");                                  // cut short
  EXPECT_EQ(ValidUtf8("\xc0\xaf"), "\xef\xbf\xbd\xef\xbf\xbd");                  // overlong
  EXPECT_EQ(ValidUtf8("\xed\xa0\x80"), "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");  // surrogate
  EXPECT_EQ(ValidUtf8("\xf0\x9f\x98\x80"), "\xf0\x9f\x98\x80");
}

TEST(TerminalText, JsonStringsAreValidUtf8WithControlsEscaped) {
  EXPECT_EQ(JsonString("a\xff\"\\\x01\n"), "\"a\xef\xbf\xbd\\\"\\\\\\u0001\\n\"");
}

TEST(TerminalInput, LinesEndInLfCrLfOrTheEndOfInput) {
  std::istringstream in("quit\r\nsimplify\nlast");
  std::string line;
  bool too_long = false;
  ASSERT_TRUE(ReadBoundedLine(in, line, 100, too_long));
  EXPECT_EQ(line, "quit");
  ASSERT_TRUE(ReadBoundedLine(in, line, 100, too_long));
  EXPECT_EQ(line, "simplify");
  ASSERT_TRUE(ReadBoundedLine(in, line, 100, too_long));
  EXPECT_EQ(line, "last");
  EXPECT_FALSE(ReadBoundedLine(in, line, 100, too_long));
}

TEST(TerminalInput, AnOverlongLineIsCutAndTold) {
  std::istringstream in(std::string(1000, 'x') + "\nnext\n");
  std::string line;
  bool too_long = false;
  ASSERT_TRUE(ReadBoundedLine(in, line, 10, too_long));
  EXPECT_TRUE(too_long);
  EXPECT_EQ(line.size(), 10u);
  ASSERT_TRUE(ReadBoundedLine(in, line, 10, too_long));
  EXPECT_FALSE(too_long);
  EXPECT_EQ(line, "next");
}

TEST(CommandGuess, EditDistanceCountsLetters) {
  EXPECT_EQ(EditDistance("simplfy", "simplify"), 1);
  EXPECT_EQ(EditDistance("smplfy", "simplify"), 2);
  EXPECT_EQ(EditDistance("x", "left"), 4);
  EXPECT_EQ(EditDistance("", "abc"), 3);
}

TEST(CommandGuess, ACommandInAnotherCaseOrNearlySpeltIsGuessed) {
  const std::vector<std::string> words = {"simplify", "evaluate", "left", "quit", "brackets"};
  EXPECT_EQ(GuessCommandWord("simplfy", words), "simplify");
  EXPECT_EQ(GuessCommandWord("Simplify", words), "simplify");
  EXPECT_EQ(GuessCommandWord("SIMPLIFY", words), "simplify");
  EXPECT_EQ(GuessCommandWord("evalute", words), "evaluate");
  EXPECT_EQ(GuessCommandWord("qiut", words), "quit");
}

TEST(CommandGuess, ProblemsAndCommandsThemselvesAreNoSlip) {
  const std::vector<std::string> words = {"simplify", "left", "hint"};
  EXPECT_EQ(GuessCommandWord("simplify", words), "");
  EXPECT_EQ(GuessCommandWord("x+1", words), "");
  EXPECT_EQ(GuessCommandWord("xy", words), "");
  EXPECT_EQ(GuessCommandWord("abc", words), "");
  EXPECT_EQ(GuessCommandWord("2x=4", words), "");
}

class Course : public SessionTest {};

TEST_F(Course, ProblemsAreNumberedWithTheirCommentsAndNoRawBytes) {
  s.ListEntries = {"Topic:Bell\x07",     "SubTop:Sub", "Eqn:x=1",
                   "Comment:one\r\ntwo", "Eqn:x=2",    "Comment:"};
  std::ostringstream out;
  PrintCourse(s, out, true);
  EXPECT_EQ(out.str(), "Bell^G\n  Sub\n    1. x=1\n      # one\n      # two\n    2. x=2\n");
  EXPECT_EQ(CourseProblems(s), (std::vector<std::string>{"x=1", "x=2"}));
}

TEST(TerminalSession, TheLiveWorkSpaceIsPrintedAndNotKept) {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in("");
  TerminalFrontend frontend(out, err, in, true);
  Session s(frontend);
  frontend.AttachSession(s);
  StartUp(s, ".");
  for (int i = 0; i < 200; ++i) {
    frontend.Reset();
    ASSERT_TRUE(cmdLoadEquation(s, "x+" + std::to_string(i), false));
    frontend.Flush();
  }
  EXPECT_TRUE(frontend.WorkSpace().empty());
  EXPECT_TRUE(frontend.Messages().empty());
  EXPECT_NE(out.str().find("Consider  the expression  x + 199"), std::string::npos);
}

TEST(TerminalSession, AnswersTypedWithCrLfAreRead) {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in("3\r\n");
  TerminalFrontend frontend(out, err, in, true);
  const auto values = frontend.AskValues({"x"}, {""});
  ASSERT_TRUE(values.has_value());
  EXPECT_EQ(values->front(), "3");
}

}  // namespace
}  // namespace tavimor
