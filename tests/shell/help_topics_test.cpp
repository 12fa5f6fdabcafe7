// Tests of the help topic map: how its file is read, and which page a help number opens.
#include "shell/help_topics.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace tavimor {
namespace {

constexpr const char* kTwoSystems =
    "[the help systems]\n"
    "program help << 10\n"
    "algebra help << 500\n"
    "[root directory of each help system]\n"
    "program help = /opt/help/program\n"
    "algebra help = /opt/help/algebra\n"
    "[program help]\n"
    "5 << using.html\n"
    "[algebra help]\n"
    "5 << 5.html\n"
    "61 << 61.html\n";

TEST(HelpTopicMap, ReadsTheSystemsTheirRootsAndPages) {
  const HelpTables tables = ReadHelpTopics(kTwoSystems, "/app");
  ASSERT_EQ(tables.HelpSystems.size(), 2u);
  EXPECT_EQ(tables.HelpSystems[0].name, "program help");
  EXPECT_EQ(tables.HelpSystems[0].max_number, 10);
  EXPECT_EQ(tables.HelpSystems[1].root, "/opt/help/algebra");
  EXPECT_EQ(tables.HelpSystems[1].pages.at(61), "61.html");
}

TEST(HelpTopicMap, CommentsTabsAndBlankLinesDoNotCount) {
  const HelpTables tables = ReadHelpTopics(
      "' the map\n"
      "\n"
      "  [the help systems]   ' systems first\n"
      "\talgebra help\t<<\t100\t\n"
      "   \t  \n"
      "[root directory of each help system]\n"
      "algebra help = /h   ' where the pages are\n"
      "[algebra help]\n"
      "' 7 << 7.html\n"
      "\t23\t\t23.html   ' a tab, not arrows\n",
      "/app");
  ASSERT_EQ(tables.HelpSystems.size(), 1u);
  const HelpSystem& algebra = tables.HelpSystems[0];
  EXPECT_EQ(algebra.max_number, 100);
  EXPECT_EQ(algebra.root, "/h");
  EXPECT_EQ(algebra.pages.size(), 1u);
  EXPECT_EQ(algebra.pages.at(23), "23.html");
}

TEST(HelpTopicMap, CarriageReturnsAreLineEnds) {
  const HelpTables tables = ReadHelpTopics(
      "[the help systems]\r\nalgebra help << 9\r\n[algebra help]\r\n4 << 4.html\r\n", "/app");
  ASSERT_EQ(tables.HelpSystems.size(), 1u);
  EXPECT_EQ(tables.HelpSystems[0].pages.at(4), "4.html");
}

TEST(HelpTopicMap, AppDirIsReplacedByTheProgramsFolder) {
  const HelpTables tables = ReadHelpTopics(
      "[the help systems]\nalgebra help << 9\n"
      "[root directory of each help system]\nalgebra help = <app dir>/help/algebra\n",
      "/usr/lib/tavimor");
  EXPECT_EQ(tables.HelpSystems[0].root, "/usr/lib/tavimor/help/algebra");
}

TEST(HelpTopicMap, QuotedValuesLoseTheirQuotes) {
  const HelpTables tables = ReadHelpTopics(
      "[the help systems]\nalgebra help << 9\n"
      "[root directory of each help system]\nalgebra help = \"<app dir>/my help\"\n"
      "[algebra help]\n3 << \"three.html\"\n",
      "/app");
  EXPECT_EQ(tables.HelpSystems[0].root, "/app/my help");
  EXPECT_EQ(tables.HelpSystems[0].pages.at(3), "three.html");
}

TEST(HelpTopicMap, NumberAboveTheSystemsHighestIsIgnored) {
  const HelpTables tables = ReadHelpTopics(
      "[the help systems]\nalgebra help << 50\n[algebra help]\n50 << 50.html\n51 << 51.html\n",
      "/app");
  EXPECT_EQ(tables.HelpSystems[0].pages.count(50), 1u);
  EXPECT_EQ(tables.HelpSystems[0].pages.count(51), 0u);
}

TEST(HelpTopicMap, HoldsAtMostThreeSystems) {
  const HelpTables tables =
      ReadHelpTopics("[the help systems]\na << 1\nb << 1\nc << 1\nd << 1\n", "/app");
  EXPECT_EQ(tables.HelpSystems.size(), 3u);
}

TEST(HelpTopicMap, MissingFileLeavesTheTablesEmptyAndHelpShowsNothing) {
  RecordingFrontend frontend;
  Session s(frontend);
  s.Help = ReadHelpTopics(kTwoSystems, "/app");
  LoadHelpTopics(s, "/no/such/folder/anywhere");
  EXPECT_TRUE(s.Help.HelpSystems.empty());
  EXPECT_FALSE(ShowHelp(s, 5));
  EXPECT_TRUE(frontend.help_pages.empty());
}

TEST(HelpPagePath, FirstSystemWithThePageWins) {
  const HelpTables tables = ReadHelpTopics(kTwoSystems, "/app");
  EXPECT_EQ(HelpPagePath(tables, 5), "/opt/help/program/using.html");
  EXPECT_EQ(HelpPagePath(tables, 61), "/opt/help/algebra/61.html");
  EXPECT_EQ(HelpPagePath(tables, 62), "");
}

TEST(HelpPagePath, SlashOnlyWhenTheRootEndsWithoutOne) {
  for (const char* root : {"/h/", "c:\\h\\"}) {
    std::ostringstream map;
    map << "[the help systems]\na << 9\n[root directory of each help system]\na = " << root
        << "\n[a]\n1 << 1.html\n";
    EXPECT_EQ(HelpPagePath(ReadHelpTopics(map.str(), "/app"), 1), std::string(root) + "1.html");
  }
}

class HelpShown : public ::testing::Test {
 protected:
  HelpShown() : folder("help-shown"), s(frontend) {
    folder.Write("program/using.html", "<h1>Using</h1>");
    folder.Write("algebra/61.html", "<h1>Power of a power</h1>");
    folder.Write("algebra/7.html", "<h1>Seven</h1>");
    s.Help = ReadHelpTopics(
        "[the help systems]\nprogram help << 100\nalgebra help << 500\n"
        "[root directory of each help system]\n"
        "program help = <app dir>/program\nalgebra help = \"<app dir>/algebra/\"\n"
        "[program help]\n7 << using.html\n"
        "[algebra help]\n7 << 7.html\n61 << 61.html\n62 << 62.html\n63 << book.chm::/63.htm\n",
        folder.Path());
  }
  TempFolder folder;
  RecordingFrontend frontend;
  Session s;
};

TEST_F(HelpShown, TopicAbsentFromTheFirstSystemOpensFromTheSecond) {
  EXPECT_TRUE(ShowHelp(s, 61));
  ASSERT_EQ(frontend.help_pages.size(), 1u);
  EXPECT_EQ(frontend.help_pages[0], folder.Path() + "/algebra/61.html");
}

TEST_F(HelpShown, TopicInBothSystemsOpensFromTheFirst) {
  EXPECT_TRUE(ShowHelp(s, 7));
  ASSERT_EQ(frontend.help_pages.size(), 1u);
  EXPECT_EQ(frontend.help_pages[0], folder.Path() + "/program/using.html");
}

TEST_F(HelpShown, HelpNumberZeroOpensNothing) {
  EXPECT_FALSE(ShowHelp(s, 0));
  EXPECT_TRUE(frontend.help_pages.empty());
}

TEST_F(HelpShown, PageWhoseFileIsMissingOpensNothing) {
  EXPECT_FALSE(ShowHelp(s, 62));
  EXPECT_TRUE(frontend.help_pages.empty());
}

TEST_F(HelpShown, CompiledHelpFileIsNotOpened) {
  EXPECT_FALSE(ShowHelp(s, 63));
  EXPECT_TRUE(frontend.help_pages.empty());
}

TEST_F(HelpShown, NumberNoSystemHoldsOpensNothing) {
  EXPECT_FALSE(ShowHelp(s, 400));
  EXPECT_FALSE(ShowHelp(s, 9999));
  EXPECT_TRUE(frontend.help_pages.empty());
}

TEST_F(HelpShown, ProgramHelpIsTheIndexPageOfItsSystem) {
  EXPECT_EQ(ProgramHelpPath(s.Help), folder.Path() + "/program/index.html");
  EXPECT_EQ(AlgebraHelpFolder(s.Help), folder.Path() + "/algebra/");
}

// The shipped map: every algebra entry is NNN.html for its own number, every page file has an
// entry, and the roots stand beside the program.
TEST(ShippedHelpMap, EveryEntryNamesThePageOfItsOwnNumber) {
  std::ifstream in(std::string(TAVIMOR_DATA_DIR) + "/help/" + kHelpMapFileName);
  ASSERT_TRUE(in);
  std::ostringstream text;
  text << in.rdbuf();
  const HelpTables tables = ReadHelpTopics(text.str(), "/app");
  ASSERT_EQ(tables.HelpSystems.size(), 2u);
  EXPECT_EQ(HelpSystemRoot(tables, kProgramHelpSystem), "/app/help/program");
  EXPECT_EQ(AlgebraHelpFolder(tables), "/app/help/algebra");
  const HelpSystem* algebra = nullptr;
  for (const HelpSystem& system : tables.HelpSystems) {
    if (system.name == kAlgebraHelpSystem) algebra = &system;
  }
  ASSERT_NE(algebra, nullptr);
  EXPECT_GT(algebra->pages.size(), 200u);
  for (const auto& [number, page] : algebra->pages) {
    EXPECT_EQ(page, std::to_string(number) + ".html") << "topic " << number;
  }
  for (const auto& file :
       std::filesystem::directory_iterator(std::string(TAVIMOR_DATA_DIR) + "/help/algebra")) {
    const std::string name = file.path().filename().string();
    const int number = std::atoi(name.c_str());
    EXPECT_EQ(algebra->pages.count(number), 1u) << name << " has no entry in the map";
  }
}

}  // namespace
}  // namespace tavimor
