// The two sample files: they read as algebra files, hold a real course, and every problem loads.
#include <gtest/gtest.h>

#include <set>

#include "shell/algebra_file.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Samples : public SessionTest {
 protected:
  // Loads every problem of the file as OK does; returns how many there were.
  int LoadEvery(const std::string& name) {
    const ReadOutcome outcome = ReadAlgebraFile(s, std::string(TAVIMOR_DATA_DIR) + "/" + name);
    EXPECT_TRUE(outcome.ok) << outcome.problem;
    const std::vector<std::string> entries = s.ListEntries;
    StartUp(s, ".");
    int problems = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (entries[i].rfind("Eqn:", 0) != 0) continue;
      ++problems;
      EXPECT_TRUE(i + 1 < entries.size() && entries[i + 1].rfind("Comment:", 0) == 0) << entries[i];
      EXPECT_GT(entries[i + 1].size(), 8u) << "a problem without a comment: " << entries[i];
      frontend.messages.clear();
      EXPECT_TRUE(cmdLoadEquation(s, entries[i].substr(4), false)) << entries[i];
      EXPECT_TRUE(frontend.messages.empty()) << entries[i];
      kinds.insert(s.Form.item_kind);
    }
    return problems;
  }
  std::set<std::string> kinds;
};

TEST_F(Samples, EveryProblemOfTheCourseLoads) {
  EXPECT_GE(LoadEvery("samples.txt"), 60);
  EXPECT_EQ(kinds, (std::set<std::string>{"number", "fraction", "sum of fractions", "expression",
                                          "equation", "set of equations"}));
}

TEST_F(Samples, TheCourseHasTopicsAndSubtopics) {
  ASSERT_TRUE(ReadAlgebraFile(s, std::string(TAVIMOR_DATA_DIR) + "/samples.txt").ok);
  const std::vector<Heading> topics = LoadTopics(s);
  EXPECT_GE(topics.size(), 5u);
  for (std::size_t t = 1; t <= topics.size(); ++t) {
    EXPECT_FALSE(LoadSubTopics(s, topics, static_cast<int>(t)).empty()) << topics[t - 1].caption;
  }
}

TEST_F(Samples, EveryIdentityLoadsAsAnEquation) {
  EXPECT_GE(LoadEvery("trig ids.txt"), 20);
  EXPECT_EQ(kinds, std::set<std::string>{"equation"});
}

}  // namespace
}  // namespace tavimor
