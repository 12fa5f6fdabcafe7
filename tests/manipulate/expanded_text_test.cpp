// Tests of the silent expansion of a text: when nothing is multiplied out, the loop is not run a
// second time, and the answer is the one running it again gives.
#include <gtest/gtest.h>

#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "manipulate/expand.h"
#include "manipulate/factor.h"
#include "simplify/simplify_driver.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ExpandedTextTest : public SessionTest {
 protected:
  // The expansion followed by the loop, always: the answer ExpandedText must give.
  std::string ExpandedThenSimplified(const std::string& text) {
    TempTree tree(s, text, TempTree::Depth::Whole);
    ScopedOverride detail(s.DetailNow, std::int16_t{0});
    ScopedOverride message(s.Message);
    ScopedOverride mode(s.ExpandMode, std::int16_t{1});
    ExpandTree(s, tree.RootSlot());
    int level = 0;
    SimplifyTree(s, tree.RootSlot(), level);
    return s.Pool[tree.RootSlot()].Text;
  }

  // Every item of a file (a bench corpus, or the samples' "Eqn:" lines), and both sides of an
  // equation; sets of equations are left out.
  std::vector<std::string> Texts(const std::string& path) {
    std::vector<std::string> texts;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.rfind("Eqn:", 0) == 0) line.erase(0, 4);
      if (line.empty() || line.find(';') != std::string::npos || line.find(':') != line.npos) {
        continue;
      }
      const std::size_t eq = line.find('=');
      if (eq == std::string::npos) {
        texts.push_back(line);
      } else {
        texts.push_back(line.substr(0, eq));
        texts.push_back(line.substr(eq + 1));
      }
    }
    return texts;
  }
};

TEST_F(ExpandedTextTest, GivesWhatExpandingAndSimplifyingAgainGives) {
  int checked = 0;
  std::vector<std::string> files = {std::string(TAVIMOR_DATA_DIR) + "/samples.txt"};
  for (const char* corpus : {"simplify.txt", "expand.txt", "factor.txt", "solve.txt"}) {
    files.push_back(std::string(TAVIMOR_BENCH_DIR) + "/corpus/" + corpus);
  }
  for (const std::string& file : files) {
    for (const std::string& text : Texts(file)) {
      std::string expected;
      try {
        s.RewriteCount = 0;
        expected = ExpandedThenSimplified(text);
      } catch (const std::exception&) {
        continue;  // a text the expansion refuses is refused either way
      }
      s.RewriteCount = 0;
      EXPECT_EQ(ExpandedTextByRules(s, text), expected) << text;
      ++checked;
    }
  }
  EXPECT_GT(checked, 300);
}

TEST_F(ExpandedTextTest, TextsWithNothingToMultiplyOutComeBackSimplified) {
  EXPECT_EQ(ExpandedText(s, "x+x"), "2*x");
  EXPECT_EQ(ExpandedText(s, "2*x+1"), "2*x+1");
  EXPECT_EQ(ExpandedText(s, "(x*log(2)-x*log(3))/x"), "log(2)-log(3)");
  EXPECT_EQ(ExpandedText(s, "(x+1)^2"), "x^2+2*x+1");
}

}  // namespace
}  // namespace tavimor
