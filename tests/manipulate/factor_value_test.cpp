// The value oracle for Factor over the items students type: three presses in a row never change
// the value of the factoring corpus, the simplify corpus, or the sample course's expressions and
// equation sides.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>

#include "core/input_split.h"
#include "core/validate.h"
#include "manipulate/factor.h"
#include "shell/algebra_file.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class FactorValueOracle : public SessionTest {
 protected:
  void Check(std::string text) {
    frontend.messages.clear();
    if (ValidateInput(s, text) != 0) return;
    for (const ItemSides& item : SplitInput(text)) {
      for (const std::string& side : {item.left, item.right}) {
        if (side.empty()) continue;
        InitNodePool(s);
        std::string factored = side;
        for (int press = 0; press < 3; ++press) {
          s.RewriteCount = 0;
          std::string record;
          if (!FactorText(s, factored, record, press % 2 == 0 ? "20" : "10")) break;
          ++presses;
        }
        std::mt19937 random(static_cast<unsigned>(side.size()));
        std::uniform_real_distribution<double> value(0.3, 2.7);
        for (int k = 0; k < 3; ++k) {
          std::map<char, double> letters;
          for (char c = 'a'; c <= 'z'; ++c) letters[c] = value(random);
          for (char c = 'A'; c <= 'Z'; ++c) letters[c] = value(random);
          NumericValue at(s, letters);
          const double before = at.Of(side);
          if (!std::isfinite(before)) continue;
          const double after = at.Of(factored);
          EXPECT_NEAR(after, before, 1e-9 * std::max(1.0, std::fabs(before)))
              << side << " -> " << factored;
          ++checked;
        }
      }
    }
  }
  void CheckFile(const std::string& path) {
    std::ifstream corpus(path);
    for (std::string line; std::getline(corpus, line);) {
      if (!line.empty()) Check(line);
    }
  }
  int checked = 0;
  int presses = 0;
};

TEST_F(FactorValueOracle, FactoringCorpusKeepsItsValue) {
  CheckFile(std::string(TAVIMOR_BENCH_DIR) + "/corpus/factor.txt");
  EXPECT_GE(checked, 80);
  EXPECT_GE(presses, 30);
}

TEST_F(FactorValueOracle, SimplifyCorpusKeepsItsValue) {
  CheckFile(std::string(TAVIMOR_BENCH_DIR) + "/corpus/simplify.txt");
  EXPECT_GE(checked, 100);
}

TEST_F(FactorValueOracle, SampleCourseKeepsItsValue) {
  ASSERT_TRUE(ReadAlgebraFile(s, std::string(TAVIMOR_DATA_DIR) + "/samples.txt").ok);
  const std::vector<std::string> entries = s.ListEntries;
  for (const std::string& entry : entries) {
    if (entry.rfind("Eqn:", 0) == 0) Check(entry.substr(4));
  }
  EXPECT_GE(checked, 100);
}

}  // namespace
}  // namespace tavimor
