// Tests of the help pages: their title, their text for a terminal, the index and search, their
// mathematics read without touching the work item, and the check of their format.
#include "shell/help_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "shell/main_flow.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace tavimor {
namespace {

constexpr const char* kPage =
    "<h1>Collect like terms</h1>\n"
    "<p>Like terms are added: @2x+3x@ becomes @5*x@.</p>\n"
    "<h2>Why it is true</h2>\n"
    "<ul>\n<li>@2*x+3*x=(2+3)*x@ by the <b>distributive</b> law.</li>\n</ul>\n"
    "<p class=\"see\">See also: <a href=\"24.html\">Combine numbers</a> &amp; more.</p>\n";

class HelpPages : public SessionTest {
 protected:
  HelpPages() { StartUp(s, "."); }
  bool HasProblem(const std::string& html, const std::string& part,
                  const std::string& folder = "/no/folder") {
    const std::vector<std::string> problems = HelpPageProblems(s, html, folder);
    return std::any_of(problems.begin(), problems.end(),
                       [&](const std::string& p) { return p.find(part) != std::string::npos; });
  }
};

TEST_F(HelpPages, TitleIsTheTextOfTheH1) {
  EXPECT_EQ(HelpPageTitle(kPage), "Collect like terms");
  EXPECT_EQ(HelpPageTitle("<p>no heading</p>"), "");
}

TEST_F(HelpPages, PageNumberComesFromTheFileName) {
  EXPECT_EQ(HelpPageNumber("24.html"), 24);
  EXPECT_EQ(HelpPageNumber("/x/y/363.html"), 363);
  EXPECT_EQ(HelpPageNumber("index.html"), -1);
  EXPECT_EQ(HelpPageNumber("024.html"), -1);
  EXPECT_EQ(HelpPageNumber("24.htm"), -1);
}

TEST_F(HelpPages, TextHasTheTitleInCapitalsUnderlined) {
  const std::string text = HelpPageAsText(s, kPage);
  EXPECT_EQ(text.rfind("COLLECT LIKE TERMS\n==================\n", 0), 0u) << text;
  EXPECT_NE(text.find("Why it is true\n--------------\n"), std::string::npos) << text;
}

TEST_F(HelpPages, TextWritesTheMathematicsAsTheTutorDoes) {
  const std::string text = HelpPageAsText(s, kPage);
  EXPECT_NE(text.find("Like terms are added: 2*x+3*x becomes 5*x."), std::string::npos) << text;
  EXPECT_NE(text.find("  * 2*x+3*x=(2+3)*x by the distributive law."), std::string::npos) << text;
}

TEST_F(HelpPages, TextGivesLinksAsTheNumberToSee) {
  const std::string text = HelpPageAsText(s, kPage);
  EXPECT_NE(text.find("See also: Combine numbers (see 24) & more."), std::string::npos) << text;
  EXPECT_EQ(text.find('<'), std::string::npos) << text;
}

TEST_F(HelpPages, LongParagraphsAreWrapped) {
  std::string words;
  for (int i = 0; i < 40; ++i) words += "word ";
  const std::string text = HelpPageAsText(s, "<h1>T</h1><p>" + words + "</p>");
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find('\n', start);
    EXPECT_LE(end - start, 78u);
    start = end + 1;
  }
}

TEST_F(HelpPages, MathematicsIsReadWithoutTouchingTheWorkItem) {
  ASSERT_TRUE(cmdLoadEquation(s, "x^2=4", false));
  const HelpMath math = ReadHelpMath(s, "(x+1)*(x-1)=y");
  ASSERT_TRUE(math.ok) << math.refusal;
  EXPECT_EQ(math.relation, kRelationEquals);
  EXPECT_EQ(math.right, "y");
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x^2");
  EXPECT_EQ(s.Pool[kRightRoot].Text, "4");
}

TEST_F(HelpPages, MathematicsTheTutorRefusesIsNamed) {
  const HelpMath math = ReadHelpMath(s, "2x+");
  EXPECT_FALSE(math.ok);
  EXPECT_FALSE(math.refusal.empty());
  EXPECT_EQ(HelpMathText(s, "2x+"), "2x+");
}

TEST_F(HelpPages, WellFormedPageHasNoProblems) {
  TempFolder folder("well-formed");
  folder.Write("24.html", "<h1>Combine numbers</h1>");
  EXPECT_EQ(HelpPageProblems(s, kPage, folder.Path()), std::vector<std::string>{});
}

TEST_F(HelpPages, PageNeedsExactlyOneH1) {
  EXPECT_TRUE(HasProblem("<p>x</p>", "0 h1 headings"));
  EXPECT_TRUE(HasProblem("<h1>a</h1><h1>b</h1>", "2 h1 headings"));
}

TEST_F(HelpPages, OnlyTheAllowedTagsMayStand) {
  EXPECT_TRUE(HasProblem("<html><h1>a</h1></html>", "<html> is not allowed"));
  EXPECT_TRUE(HasProblem("<h1>a</h1><p style=\"x\">b</p>", "attributes that are not allowed"));
  EXPECT_TRUE(HasProblem("<h1>a</h1><a href=\"http://x\">b</a>", "not of the form"));
}

TEST_F(HelpPages, TagsMustBeClosedInOrder) {
  EXPECT_TRUE(HasProblem("<h1>a</h1><p>b", "<p> is not closed"));
  EXPECT_TRUE(HasProblem("<h1>a</h1><p><b>b</p></b>", "closes no open"));
}

TEST_F(HelpPages, AtSignsMustPairUp) {
  EXPECT_TRUE(HasProblem("<h1>a</h1><p>@x+1</p>", "has no partner"));
  EXPECT_TRUE(HasProblem("<h1>a</h1><p>@x+1@ and @y</p>", "has no partner"));
}

TEST_F(HelpPages, MathematicsMustBeReadable) {
  EXPECT_TRUE(HasProblem("<h1>a</h1><p>@2x+@</p>", "cannot be read"));
  EXPECT_FALSE(HasProblem("<h1>a</h1><p>@x^2=4@</p>", "cannot be read"));
}

TEST_F(HelpPages, LinkMustLeadToAPage) {
  TempFolder folder("links");
  folder.Write("61.html", "<h1>x</h1>");
  EXPECT_TRUE(HasProblem("<h1>a</h1><a href=\"62.html\">b</a>", "leads to no page", folder.Path()));
  EXPECT_FALSE(
      HasProblem("<h1>a</h1><a href=\"61.html\">b</a>", "leads to no page", folder.Path()));
}

TEST_F(HelpPages, IndexListsThePagesByNumberWithTheirTitles) {
  TempFolder folder("index");
  folder.Write("61.html", "<h1>Power of a power</h1>");
  folder.Write("7.html", "<h1>Seven</h1><p>about brackets</p>");
  folder.Write("notes.txt", "not a page");
  const std::vector<HelpIndexEntry> index = HelpPageIndex(folder.Path());
  ASSERT_EQ(index.size(), 2u);
  EXPECT_EQ(index[0].number, 7);
  EXPECT_EQ(index[0].title, "Seven");
  EXPECT_EQ(index[1].number, 61);
  EXPECT_EQ(index[1].title, "Power of a power");
}

TEST_F(HelpPages, SearchFindsWordsInTitlesAndText) {
  TempFolder folder("search");
  folder.Write("61.html", "<h1>Power of a power</h1>");
  folder.Write("7.html", "<h1>Seven</h1><p>About BRACKETS and powers</p>");
  const std::vector<HelpIndexEntry> powers = SearchHelpPages(folder.Path(), "power");
  EXPECT_EQ(powers.size(), 2u);
  const std::vector<HelpIndexEntry> both = SearchHelpPages(folder.Path(), "brackets power");
  ASSERT_EQ(both.size(), 1u);
  EXPECT_EQ(both[0].number, 7);
  EXPECT_TRUE(SearchHelpPages(folder.Path(), "logarithm").empty());
  EXPECT_TRUE(SearchHelpPages(folder.Path(), "  ").empty());
}

// Every page shipped so far is in the shared format, whoever wrote it.
TEST_F(HelpPages, EveryShippedPageIsWellFormed) {
  int pages = 0;
  for (const char* part : {"algebra", "program"}) {
    const std::string folder = std::string(TAVIMOR_DATA_DIR) + "/help/" + part;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      if (file.path().extension() != ".html") continue;
      ++pages;
      const std::optional<std::string> html = ReadHelpPage(file.path().string());
      ASSERT_TRUE(html.has_value()) << file.path();
      for (const std::string& problem : HelpPageProblems(s, *html, folder)) {
        ADD_FAILURE() << file.path().filename().string() << ": " << problem;
      }
      if (std::string(part) == "algebra") {
        EXPECT_GE(HelpPageNumber(file.path().string()), 1) << file.path();
      }
    }
  }
  EXPECT_GE(pages, 1);
}

}  // namespace
}  // namespace tavimor
