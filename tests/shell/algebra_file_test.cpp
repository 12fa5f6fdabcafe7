// Tests of algebra files: reading and writing entries, the decimal separator, the bound of the
// list, the recent files and the topic display's model.
#include <gtest/gtest.h>

#include <cerrno>
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

TEST_F(AlgebraFile, CrLfAndLoneCrLineEndsReadAlike) {
  for (const std::string& bytes : {std::string("Eqn:x=1\r\nComment:one\r\ntwo\r\nEqn:y\r\n"),
                                   std::string("Eqn:x=1\rComment:one\rtwo\rEqn:y\r"),
                                   std::string("Eqn:x=1\nComment:one\r\ntwo\rEqn:y")}) {
    ASSERT_TRUE(ReadAlgebraFile(s, Write("ends.txt", bytes)).ok);
    EXPECT_EQ(s.ListEntries, (std::vector<std::string>{"Eqn:x=1", "Comment:one\r\ntwo", "Eqn:y"}));
  }
}

TEST_F(AlgebraFile, CrOnlyFileIsSavedWithoutDuplicates) {
  ASSERT_TRUE(ReadAlgebraFile(s, Write("cr.txt", "Topic:A\rEqn:x\rComment:c\r")).ok);
  ASSERT_EQ(s.ListEntries.size(), 3u);
  const std::string copy = (dir_ / "copy.txt").string();
  ASSERT_TRUE(WriteAlgebraFile(s, copy));
  EXPECT_EQ(Bytes(copy), "Topic:A\r\nEqn:x\r\nComment:c\r\n");
}

TEST_F(AlgebraFile, AProblemFollowedByATopicHasNoComment) {
  s.ListEntries = {"Eqn:x=2", "Topic:Quadratic equations", "Eqn:y=3", "Comment:Done."};
  StartUp(s, ".");
  ASSERT_TRUE(cmdLoadEquation(s, "x=2", false));
  EXPECT_EQ(frontend.Transcript().find("equations"), std::string::npos) << frontend.Transcript();
  EXPECT_EQ(CommentOfProblem(s, FindProblemEntry(s, "y=3")), "Done.");
  EXPECT_EQ(FindProblemEntry(s, "x=2"), 0);
  EXPECT_EQ(FindProblemEntry(s, "x=22"), -1);
}

TEST_F(AlgebraFile, AFullListRefusesANewProblemBeforeAddingIt) {
  s.ListEntries.assign(kListCapacity - 1, "Comment:");
  s.ListEntries.front() = "Topic:Full";
  StartUp(s, ".");
  ASSERT_TRUE(cmdLoadEquation(s, "x=1", false));
  EXPECT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity - 1);
  EXPECT_FALSE(HasUnsavedChanges(s));
  ASSERT_FALSE(frontend.messages.empty());
  EXPECT_EQ(frontend.messages.back().text, ListFullText());
  // The list as it stands is saved and read back whole.
  const std::string path = (dir_ / "full.txt").string();
  ASSERT_TRUE(WriteAlgebraFile(s, path));
  EXPECT_TRUE(ReadAlgebraFile(s, path).ok);
  EXPECT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity - 1);
}

TEST_F(AlgebraFile, TwoEntriesBelowTheBoundStillTakeANewProblem) {
  s.ListEntries.assign(kListCapacity - 2, "Comment:");
  StartUp(s, ".");
  ASSERT_TRUE(cmdLoadEquation(s, "x=1", false));
  EXPECT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity);
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(AlgebraFile, SavingThroughASymbolicLinkWritesItsTargetAndKeepsItsMode) {
  const std::string target = Write("target.txt", "Eqn:x\r\nComment:\r\n");
  fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
  const std::string link = (dir_ / "link.txt").string();
  fs::create_symlink("target.txt", link);
  s.ListEntries = {"Eqn:y", "Comment:"};
  std::string reason;
  ASSERT_TRUE(WriteAlgebraFile(s, link, &reason)) << reason;
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Bytes(target), "Eqn:y\r\nComment:\r\n");
  EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(AlgebraFile, SavingReplacesAStaleTemporaryFile) {
  const std::string path = Write("list.txt", "Eqn:x\r\n");
  Write("list.txt.saving", "half a save");
  fs::permissions(dir_ / "list.txt.saving", fs::perms::owner_read);
  s.ListEntries = {"Eqn:z"};
  ASSERT_TRUE(WriteAlgebraFile(s, path));
  EXPECT_EQ(Bytes(path), "Eqn:z\r\n");
  EXPECT_FALSE(fs::exists(dir_ / "list.txt.saving"));
}

TEST_F(AlgebraFile, FailedSavesSayWhy) {
  s.ListEntries = {"Eqn:x"};
  std::string reason;
  EXPECT_FALSE(WriteAlgebraFile(s, (dir_ / "none" / "x.txt").string(), &reason));
  EXPECT_EQ(reason, "The folder " + (dir_ / "none").string() + " does not exist.");
  EXPECT_FALSE(WriteAlgebraFile(s, dir_.string(), &reason));
  EXPECT_EQ(reason, dir_.string() + " is a folder.");
  EXPECT_FALSE(WriteAlgebraFile(s, "", &reason));
  EXPECT_EQ(reason, "No file name was given.");
  EXPECT_EQ(SaveFailureReason(ENOSPC, "/a/b.txt"), "The disk is full.");
  EXPECT_EQ(SaveFailureReason(EACCES, "/a/b.txt"), "The file /a/b.txt or its folder is read-only.");
  EXPECT_EQ(SaveFailureReason(EROFS, "/a/b.txt"), "The file /a/b.txt is on a read-only disk.");
  EXPECT_EQ(FileNotSavedText("The disk is full."), "File not saved.  The disk is full.");
  EXPECT_EQ(FileNotSavedText(""), "File not saved.");
}

TEST_F(AlgebraFile, AReadOnlyFileIsNotReplaced) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may write any file";
  const std::string path = Write("locked.txt", "Eqn:x\r\n");
  fs::permissions(path, fs::perms::owner_read);
  s.ListEntries = {"Eqn:y"};
  std::string reason;
  EXPECT_FALSE(WriteAlgebraFile(s, path, &reason));
  EXPECT_EQ(reason, "The file " + path + " or its folder is read-only.");
  EXPECT_EQ(Bytes(path), "Eqn:x\r\n");
}

TEST_F(AlgebraFile, SavingOverADeviceIsRefused) {
  s.ListEntries = {"Eqn:x"};
  std::string reason;
  EXPECT_FALSE(WriteAlgebraFile(s, "/dev/null", &reason));
  EXPECT_EQ(reason, "/dev/null is not a regular file.");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(AlgebraFile, AListBeyondTheBoundIsNotSaved) {
  s.ListEntries.assign(kListCapacity + 1, "Comment:");
  std::string reason;
  EXPECT_FALSE(WriteAlgebraFile(s, (dir_ / "big.txt").string(), &reason));
  EXPECT_NE(reason.find("more than 1000 entries"), std::string::npos);
  EXPECT_FALSE(fs::exists(dir_ / "big.txt"));
}

TEST_F(AlgebraFile, WhatIsNoRegularFileIsRefused) {
  const ReadOutcome folder = ReadAlgebraFile(s, dir_.string());
  EXPECT_FALSE(folder.ok);
  EXPECT_EQ(folder.problem, "The file " + dir_.string() + " could not be opened: it is a folder.");
  const ReadOutcome device = ReadAlgebraFile(s, "/dev/zero");
  EXPECT_FALSE(device.ok);
  EXPECT_NE(device.problem.find("not a regular file"), std::string::npos);
  EXPECT_TRUE(s.ListEntries.empty());
  EXPECT_TRUE(s.FileName.empty());
}

TEST_F(AlgebraFile, AFileBeyondTheSizeBoundIsRefused) {
  const std::string path =
      Write("huge.txt", "Eqn:x\r\nComment:" + std::string(kMaxFileBytes, 'a') + "\r\n");
  const ReadOutcome outcome = ReadAlgebraFile(s, path);
  EXPECT_FALSE(outcome.ok);
  EXPECT_NE(outcome.problem.find("larger than 16 MB"), std::string::npos);
  EXPECT_TRUE(s.ListEntries.empty());
}

}  // namespace
}  // namespace tavimor
