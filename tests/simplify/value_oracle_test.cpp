// The value oracle over the items students type: Simplify never changes the value of the corpus
// of the benchmarks or of the sample course's expressions and equation sides.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>
#include <set>

#include "core/validate.h"
#include "shell/algebra_file.h"
#include "simplify/simplify_driver.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ValueOracle : public SessionTest {
 protected:
  // Simplifies the text and compares its value with the original at random points.
  void Check(std::string text) {
    frontend.messages.clear();
    if (ValidateInput(s, text) != 0) return;
    for (const ItemSides& item : SplitInput(text)) {
      for (const std::string& side : {item.left, item.right}) {
        if (side.empty()) continue;
        InitNodePool(s);
        s.RewriteCount = 0;
        const std::string simplified = SimplifyText(s, side);
        std::mt19937 random(static_cast<unsigned>(side.size()));
        std::uniform_real_distribution<double> value(0.3, 2.7);
        for (int k = 0; k < 3; ++k) {
          std::map<char, double> letters;
          for (char c = 'a'; c <= 'z'; ++c) letters[c] = value(random);
          for (char c = 'A'; c <= 'Z'; ++c) letters[c] = value(random);
          NumericValue at(s, letters);
          const double before = at.Of(side);
          if (!std::isfinite(before)) continue;
          EXPECT_NEAR(at.Of(simplified), before, 1e-9 * std::max(1.0, std::fabs(before)))
              << side << " -> " << simplified;
          ++checked;
        }
      }
    }
  }
  int checked = 0;
};

TEST_F(ValueOracle, BenchmarkCorpusKeepsItsValue) {
  std::ifstream corpus(std::string(TAVIMOR_BENCH_DIR) + "/corpus/simplify.txt");
  for (std::string line; std::getline(corpus, line);) {
    if (!line.empty()) Check(line);
  }
  EXPECT_GE(checked, 100);
}

TEST_F(ValueOracle, SampleCourseKeepsItsValue) {
  ASSERT_TRUE(ReadAlgebraFile(s, std::string(TAVIMOR_DATA_DIR) + "/samples.txt").ok);
  const std::vector<std::string> entries = s.ListEntries;
  for (const std::string& entry : entries) {
    if (entry.rfind("Eqn:", 0) == 0) Check(entry.substr(4));
  }
  EXPECT_GE(checked, 100);
}

}  // namespace
}  // namespace tavimor
