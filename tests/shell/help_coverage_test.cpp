// Every help number the tutor can write leads to a page: the numbers are found in the engine's
// sources, and each needs an entry in the shipped help topic map and a page file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "shell/help_topics.h"

namespace tavimor {
namespace {

std::string FileText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void AddMatches(const std::string& text, const std::regex& pattern, std::set<int>& numbers) {
  for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it) {
    const std::string found = (*it)[1].str();
    // A list of numbers ("{105, 124, 125}") gives each of them.
    const std::regex number("\\d+");
    for (std::sregex_iterator n(found.begin(), found.end(), number); n != end; ++n) {
      numbers.insert(std::stoi(n->str()));
    }
  }
}

// The help numbers written in the sources, in the ways the code writes them: the "NNN#" prefix
// of a step message, a number handed as text to a builder of a message (Fact("61", ...)), a number
// given to HelpNumber, to a variable or constant of a help topic, or to a message box, and a table
// of help topics.
std::set<int> HelpNumbersInTheSources() {
  const std::regex kPrefix("\"(\\d{1,3})#");
  const std::regex kNumberAsText("\\b[A-Z][A-Za-z]*\\(\"(\\d{1,3})\",");
  const std::regex kAssigned(
      "\\b(?:HelpNumber|help|k[A-Za-z]*Help)\\s*=\\s*(\\d{1,3})\\b(?!\\s*[-+*/])");
  const std::regex kHelpLine("HelpNumber = ([^;]*);");
  const std::regex kMessageBox("ShowCustomMessage\\([^;]*?,\\s*(\\d{1,3})\\s*\\)\\s*;");
  const std::regex kTable("k[A-Za-z]*Help\\s*=\\s*\\{([\\d,\\s]*)\\}");
  std::set<int> numbers;
  const std::filesystem::path root(TAVIMOR_SOURCE_DIR);
  for (const char* layer : {"core", "simplify", "manipulate", "solve", "linsys", "present", "graph",
                            "shell", "qt", "cli"}) {
    if (!std::filesystem::exists(root / layer)) continue;
    for (const auto& file : std::filesystem::recursive_directory_iterator(root / layer)) {
      const std::string extension = file.path().extension().string();
      if (extension != ".cpp" && extension != ".h") continue;
      const std::string text = FileText(file.path());
      AddMatches(text, kPrefix, numbers);
      AddMatches(text, kNumberAsText, numbers);
      AddMatches(text, kAssigned, numbers);
      AddMatches(text, kMessageBox, numbers);
      AddMatches(text, kTable, numbers);
      // HelpNumber = cond ? 374 : 375, and the like: every number of the assignment.
      for (std::sregex_iterator it(text.begin(), text.end(), kHelpLine), end; it != end; ++it) {
        const std::string assigned =
            std::regex_replace((*it)[1].str(), std::regex("\"[^\"]*\""), "");
        AddMatches(assigned, std::regex("\\b(\\d{2,3})\\b"), numbers);
      }
    }
  }
  numbers.erase(0);  // no topic
  return numbers;
}

TEST(HelpCoverage, SourceScanFindsTheKnownHelpNumbers) {
  const std::set<int> numbers = HelpNumbersInTheSources();
  // A step prefix, a number as text, a constant, an assignment, a choice between two.
  for (const int known : {2, 23, 61, 69, 252, 275, 374, 375, 397}) {
    EXPECT_EQ(numbers.count(known), 1u) << known;
  }
}

// Every number a step can carry leads to a page: F1 never opens nothing on a step.
TEST(HelpCoverage, EveryHelpNumberHasAnEntryAndAPage) {
  const std::string data = TAVIMOR_DATA_DIR;
  // The map's roots are "<app dir>/help/...": with data/ as the program's folder they lead to
  // the pages in the source tree.
  const HelpTables here = ReadHelpTopics(FileText(data + "/help/" + kHelpMapFileName), data);
  for (const int number : HelpNumbersInTheSources()) {
    const std::string path = HelpPagePath(here, number);
    if (path.empty()) {
      ADD_FAILURE() << "help number " << number << " has no entry in the help topic map";
    } else if (!std::filesystem::is_regular_file(path)) {
      ADD_FAILURE() << "help number " << number << " has no page: " << path;
    }
  }
}

TEST(HelpCoverage, EveryEntryOfTheMapLeadsToAPage) {
  const std::string data = TAVIMOR_DATA_DIR;
  const HelpTables here = ReadHelpTopics(FileText(data + "/help/" + kHelpMapFileName), data);
  for (const HelpSystem& system : here.HelpSystems) {
    for (const auto& [number, page] : system.pages) {
      const std::string path = HelpPagePath(here, number);
      EXPECT_TRUE(std::filesystem::is_regular_file(path))
          << system.name << " topic " << number << ": " << path;
    }
  }
}

}  // namespace
}  // namespace tavimor
