// Golden transcripts of the tree command: each file under golden/tree holds an item, its
// options, and the exact output (message boxes as lines beginning "! ").
// TAVIMOR_UPDATE_GOLDEN=1 writes the output into the files instead, for review in a diff.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/tree_command.h"
#include "shell/option_keys.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

namespace fs = std::filesystem;

struct GoldenCase {
  std::string header;  // everything up to and including the "---" line
  std::string item;
  std::vector<std::pair<std::string, std::string>> settings;
  bool decimal_comma = false;
  int status = 0;
  std::string expected;
};

GoldenCase ReadCase(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  GoldenCase c;
  std::string line;
  bool body = false;
  std::ostringstream expected;
  while (std::getline(in, line)) {
    if (body) {
      expected << line << '\n';
      continue;
    }
    c.header += line + '\n';
    if (line == "---") {
      body = true;
    } else if (line.rfind("item: ", 0) == 0) {
      c.item = line.substr(6);
    } else if (line.rfind("set: ", 0) == 0) {
      const std::string setting = line.substr(5);
      const std::size_t equals = setting.find('=');
      c.settings.emplace_back(setting.substr(0, equals), setting.substr(equals + 1));
    } else if (line == "decimal-comma") {
      c.decimal_comma = true;
    } else if (line.rfind("status: ", 0) == 0) {
      c.status = std::stoi(line.substr(8));
    }
  }
  c.expected = expected.str();
  return c;
}

std::vector<fs::path> GoldenFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(TAVIMOR_GOLDEN_DIR) / "tree")) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST(TreeGolden, EveryTranscriptMatches) {
  const bool update = std::getenv("TAVIMOR_UPDATE_GOLDEN") != nullptr;
  const std::vector<fs::path> files = GoldenFiles();
  ASSERT_GE(files.size(), 20u);
  for (const fs::path& path : files) {
    GoldenCase c = ReadCase(path);
    RecordingFrontend frontend;
    Session s(frontend);
    if (c.decimal_comma) s.DecimalPoint = ",";
    for (const auto& [key, value] : c.settings) {
      std::string error;
      ASSERT_TRUE(SetOptionFromText(s, key, value, true, error)) << path << ": " << error;
    }
    std::ostringstream out;
    const int status = RunTreeCommand(s, c.item, out);
    std::string actual = out.str();
    for (const RecordedMessage& m : frontend.messages) actual += "! " + m.text + "\n";
    if (update) {
      std::string header;
      std::istringstream lines(c.header);
      for (std::string line; std::getline(lines, line);) {
        if (line.rfind("status: ", 0) != 0) header += line + "\n";
      }
      header.insert(header.size() - 4, "status: " + std::to_string(status) + "\n");
      std::ofstream(path, std::ios::binary) << header << actual;
      continue;
    }
    EXPECT_EQ(status, c.status) << path;
    EXPECT_EQ(actual, c.expected) << path;
  }
}

}  // namespace
}  // namespace tavimor
