// Tests of algebra files: reading and writing entries, the decimal separator, the bound of the
// list, the recent files and the topic display's model.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "shell/algebra_file.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

namespace fs = std::filesystem;

class AlgebraFile : public SessionTest {
 protected:
  AlgebraFile()
      : dir_(fs::temp_directory_path() / ("tavimor_files_" + std::to_string(::getpid()))) {
    fs::create_directories(dir_);
  }
  ~AlgebraFile() override { fs::remove_all(dir_); }

  std::string Write(const std::string& name, const std::string& bytes) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  static std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
  }
  fs::path dir_;
};

TEST_F(AlgebraFile, ReadingAndWritingAreExactInverses) {
  const std::vector<std::string> files = {
      "Topic:Linear equations\r\nSubTop:One variable\r\nEqn:2*x+3=7\r\nComment:Start by "
      "subtracting 3.\r\nEqn:5*x=10\r\nComment:\r\n",
      "Eqn:x^2=4\r\nComment:Two answers.\r\nThe second is negative.\r\n\r\nEqn:x=1\r\nComment:\r\n",
      "Topic:Old form\r\nEqn:x+1\r\nComment:\r\nTopic:Another\r\nEqn:y\r\nComment:caf\xE9 \x80 "
      "\x93quoted\x94\r\n",
      "Comment:A file may begin with a comment\r\n\r\n\r\n"};
  for (const std::string& bytes : files) {
    const std::string path = Write("round.txt", bytes);
    ASSERT_TRUE(ReadAlgebraFile(s, path).ok);
    const std::string copy = (dir_ / "copy.txt").string();
    ASSERT_TRUE(WriteAlgebraFile(s, copy));
    EXPECT_EQ(Bytes(copy), bytes);
  }
}

TEST_F(AlgebraFile, LineFeedOnlyFilesAreReadAndWrittenWithCrLf) {
  const std::string path = Write("lf.txt", "Eqn:x=1\nComment:one\ntwo\n");
  ASSERT_TRUE(ReadAlgebraFile(s, path).ok);
  EXPECT_EQ(s.ListEntries, (std::vector<std::string>{"Eqn:x=1", "Comment:one\r\ntwo"}));
  EXPECT_EQ(BytesFromEntries(s.ListEntries), "Eqn:x=1\r\nComment:one\r\ntwo\r\n");
}

TEST_F(AlgebraFile, SingleByteTextBecomesUtf8AndBack) {
  EXPECT_EQ(Utf8FromWindows1252("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(Windows1252FromUtf8("caf\xC3\xA9 \xE2\x82\xAC"), "caf\xE9 \x80");
  EXPECT_EQ(Windows1252FromUtf8("\xE2\x89\xA4"), "?");  // ≤ has no byte of its own
}

TEST_F(AlgebraFile, ExactlyAThousandEntriesLoad) {
  std::string bytes;
  for (int i = 0; i < 500; ++i) bytes += "Eqn:x=" + std::to_string(i) + "\r\nComment:\r\n";
  ASSERT_TRUE(ReadAlgebraFile(s, Write("full.txt", bytes)).ok);
  EXPECT_EQ(s.ListEntries.size(), 1000u);
}

TEST_F(AlgebraFile, AThousandAndOneEntriesGiveAnEmptyListAndNoName) {
  std::string bytes;
  for (int i = 0; i < 500; ++i) bytes += "Eqn:x=" + std::to_string(i) + "\r\nComment:\r\n";
  bytes += "Eqn:x=1000\r\n";
  s.FileName = "before.txt";
  const ReadOutcome outcome = ReadAlgebraFile(s, Write("over.txt", bytes));
  EXPECT_FALSE(outcome.ok);
  EXPECT_TRUE(s.ListEntries.empty());
  EXPECT_EQ(s.FileName, "");
  EXPECT_NE(outcome.problem.find("at most 1000 entries"), std::string::npos);
}

TEST_F(AlgebraFile, StrayFirstLineGivesAnEmptyList) {
  EXPECT_FALSE(ReadAlgebraFile(s, Write("stray.txt", "Hello\r\nEqn:x=1\r\n")).ok);
  EXPECT_TRUE(s.ListEntries.empty());
}

TEST_F(AlgebraFile, MissingFileIsToldAndLeavesNoName) {
  s.FileName = "gone.txt";
  const ReadOutcome outcome = ReadAlgebraFile(s, (dir_ / "gone.txt").string());
  EXPECT_FALSE(outcome.ok);
  EXPECT_EQ(s.FileName, "");
  EXPECT_EQ(outcome.problem.rfind("The file ", 0), 0u);
}

TEST_F(AlgebraFile, EquationLinesTakeTheDecimalCommaOfTheMachine) {
  s.DecimalPoint = ",";
  ASSERT_TRUE(ReadAlgebraFile(s, Write("comma.txt", "Eqn:x=1.5\r\nComment:1.5 stays\r\n")).ok);
  EXPECT_EQ(s.ListEntries, (std::vector<std::string>{"Eqn:x=1,5", "Comment:1.5 stays"}));
}

TEST_F(AlgebraFile, EquationLinesTakeTheDecimalPointOfTheMachine) {
  ASSERT_TRUE(ReadAlgebraFile(s, Write("point.txt", "Eqn:f(1,2)\r\nComment:\r\n")).ok);
  EXPECT_EQ(s.ListEntries.front(), "Eqn:f(1.2)");
}

TEST_F(AlgebraFile, OnlyTheFirstLineOfAnEquationIsConverted) {
  ASSERT_TRUE(ReadAlgebraFile(s, Write("cont.txt", "Eqn:x=1,5\r\n2,5\r\nComment:\r\n")).ok);
  EXPECT_EQ(s.ListEntries.front(), "Eqn:x=1.5\r\n2,5");
}

TEST_F(AlgebraFile, InterruptedSaveLeavesTheOldFileWhole) {
  const std::string path = Write("keep.txt", "Eqn:x=1\r\nComment:old\r\n");
  // A temporary file that cannot be made stands for a save cut off before the rename.
  fs::create_directory(path + ".saving");
  s.ListEntries = {"Eqn:x=2", "Comment:new"};
  EXPECT_FALSE(WriteAlgebraFile(s, path));
  EXPECT_EQ(Bytes(path), "Eqn:x=1\r\nComment:old\r\n");
  fs::remove(path + ".saving");
  EXPECT_TRUE(WriteAlgebraFile(s, path));
  EXPECT_EQ(Bytes(path), "Eqn:x=2\r\nComment:new\r\n");
  EXPECT_FALSE(fs::exists(path + ".saving"));
}

TEST_F(AlgebraFile, SaveQuestionForAnUnnamedOrANamedList) {
  EXPECT_EQ(AskSaveChangesText(s), "The contents of the Listbox has never been saved.  Save it?");
  s.FileName = "mine.txt";
  EXPECT_EQ(AskSaveChangesText(s), "The algebra file has changed.  Save the changes?");
  EXPECT_FALSE(HasUnsavedChanges(s));
  StartUp(s, ".");
  cmdLoadEquation(s, "x=3", false);
  EXPECT_TRUE(HasUnsavedChanges(s));
}

TEST_F(AlgebraFile, RecentFilesShiftDown) {
  std::array<std::string, 4> recent = {"a", "b", "c", "d"};
  AddRecentFile(recent, "e");
  EXPECT_EQ(recent, (std::array<std::string, 4>{"e", "a", "b", "c"}));
  AddRecentFile(recent, "b");
  EXPECT_EQ(recent, (std::array<std::string, 4>{"b", "e", "a", "c"}));
  AddRecentFile(recent, "b");
  EXPECT_EQ(recent, (std::array<std::string, 4>{"b", "e", "a", "c"}));
  AddRecentFile(recent, "c");
  EXPECT_EQ(recent, (std::array<std::string, 4>{"c", "b", "e", "a"}));
  std::array<std::string, 4> empty = {"", "", "", ""};
  AddRecentFile(empty, "x");
  EXPECT_EQ(empty, (std::array<std::string, 4>{"x", "", "", ""}));
}

TEST_F(AlgebraFile, ACommentNamingATopicShowsAsATopic) {
  s.ListEntries = {"Topic:Linear",    "Comment:", "Eqn:x=1", "Comment:Topic: see below",
                   "Topic:Quadratic", "Comment:"};
  const std::vector<Heading> topics = LoadTopics(s);
  ASSERT_EQ(topics.size(), 3u);
  EXPECT_EQ(topics[0].caption, "Linear");
  EXPECT_EQ(topics[1].position, 4);
  EXPECT_EQ(topics[2].caption, "Quadratic");
  // The list and its saving stay right.
  EXPECT_EQ(
      BytesFromEntries(s.ListEntries).find("Comment:Topic: see below\r\n") != std::string::npos,
      true);
}

TEST_F(AlgebraFile, SubtopicsLieBetweenTheirTopicAndTheNext) {
  s.ListEntries = {
      "Topic:A", "SubTop:A1", "Eqn:x=1", "Comment:", "SubTop:A2", "Topic:B", "SubTop:B1"};
  const std::vector<Heading> topics = LoadTopics(s);
  const std::vector<Heading> a = LoadSubTopics(s, topics, 1);
  ASSERT_EQ(a.size(), 2u);
  EXPECT_EQ(a[0].caption, "A1");
  EXPECT_EQ(a[1].position, 5);
  EXPECT_EQ(LoadSubTopics(s, topics, 2).size(), 1u);
}

TEST_F(AlgebraFile, EquationsOfAHeadingFillTheBoxAndSetTheInsertPosition) {
  s.ListEntries = {"Topic:A", "Eqn:x=1", "Comment:", "Eqn:x=2", "Comment:", "Topic:B", "Eqn:y"};
  LoadEqns(s, 2);
  EXPECT_EQ(s.Form.equation_box_items, (std::vector<std::string>{"x=1", "x=2"}));
  EXPECT_EQ(s.EqnInsertPos, 6);
  EXPECT_EQ(s.Form.equation_box_text, "x=1");
  EXPECT_TRUE(s.Form.Enabled("cmdNextEquation"));
  LoadEqns(s, 7);
  EXPECT_EQ(s.EqnInsertPos, 8);
  EXPECT_FALSE(s.Form.Enabled("cmdNextEquation"));
}

TEST_F(AlgebraFile, RetypedEquationWithOtherSpacingShowsItsCommentAndAddsNothing) {
  s.ListEntries = {"Eqn:2*x+3=7", "Comment:Start by subtracting 3."};
  StartUp(s, ".");
  cmdLoadEquation(s, "2 * x + 3 = 7", false);
  EXPECT_EQ(s.ListEntries.size(), 2u);
  EXPECT_FALSE(HasUnsavedChanges(s));
  EXPECT_NE(frontend.Transcript().find("Start by subtracting 3."), std::string::npos);
}

}  // namespace
}  // namespace tavimor
