// The longest and deepest inputs the pool allows: every command ends in its result or its
// message, with the work item whole and usable, never a crash.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "core/node_pool.h"
#include "core/validate.h"
#include "present/text_picture.h"
#include "shell/algebra_file.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Stress : public SessionTest {
 protected:
  Stress() { StartUp(s, "."); }
  int ItemNodes() {
    return 2 + CountChildren(s, kLeftRoot, true) + CountChildren(s, kRightRoot, true);
  }
  // Presses Simplify until it finds nothing, or at most `presses` times, and checks the item.
  void SimplifyFully(int presses) {
    s.StreamingOutput = true;
    for (int i = 0; i < presses; ++i) {
      std::string error;
      EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
      EXPECT_TRUE(error.empty() || error == "Error in Simplify.") << error;
      EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
      EXPECT_FALSE(s.Pool[kLeftRoot].Text.empty());
    }
  }
};

// Twenty brackets of forty-five terms: 921 nodes of the 999 the pool gives.
std::string LongestSum() {
  std::string text;
  for (int b = 0; b < 20; ++b) {
    text += b == 0 ? "(" : "+(";
    for (int t = 0; t < 45; ++t) text += t == 0 ? "x" : "+x";
    text += ")";
  }
  return text;
}

TEST_F(Stress, LongestSumThePoolHoldsSimplifies) {
  ASSERT_TRUE(cmdLoadEquation(s, LongestSum(), false));
  EXPECT_GT(s.Pool.NodesInUse, 900);
  SimplifyFully(2);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "900*x");
}

TEST_F(Stress, DeepestNestingThePoolHoldsEndsWhole) {
  std::string text = "x";
  for (int i = 0; i < 480; ++i) text = "-(" + text + "+1)";
  ASSERT_TRUE(cmdLoadEquation(s, text, false));
  SimplifyFully(3);
  // The item is still usable: a side of it can be worked on again.
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdBrackets", false, error), PressOutcome::Done);
  EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
}

TEST_F(Stress, ItemBeyondThePoolIsRefusedAndTheOldItemStays) {
  ASSERT_TRUE(cmdLoadEquation(s, "x+x", false));
  EXPECT_FALSE(cmdLoadEquation(s, LongestSum() + "+" + LongestSum(), false));
  EXPECT_EQ(frontend.messages.back().text, "Error in input string.");
  EXPECT_EQ(frontend.messages.back().help_number, 2);
  // The pool was taken anew for the refused load; the tutor goes on with the next item.
  EXPECT_TRUE(cmdLoadEquation(s, "x+x", false));
  SimplifyFully(1);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "2*x");
}

TEST_F(Stress, LongestTextOfOneNumberLoads) {
  const std::string digits = "7." + std::string(4998, '7');
  ASSERT_TRUE(cmdLoadEquation(s, digits, false));
  EXPECT_EQ(s.Form.item_kind, "number");
}

// A hundred thousand distinct problems typed one after another: the list stops at its bound with
// a message, and finding a problem in it never grows with the number typed.
TEST_F(Stress, HundredThousandDistinctProblemsKeepTheListWithinItsBound) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 100000; ++i) {
    ASSERT_TRUE(cmdLoadEquation(s, "x+" + std::to_string(i), false));
    ASSERT_LE(static_cast<int>(s.ListEntries.size()), kListCapacity);
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  EXPECT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity);
  ASSERT_FALSE(frontend.messages.empty());
  EXPECT_EQ(frontend.messages.back().text, ListFullText());
  // A problem of the list is still found, its comment shown, nothing added.
  ASSERT_TRUE(cmdLoadEquation(s, "x+7", false));
  EXPECT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity);
  RecordProperty("seconds_for_100000_loads", std::to_string(seconds));
  std::printf("100000 distinct loads in %.2f s\n", seconds);
}

class HostileFiles : public Stress {
 protected:
  HostileFiles()
      : dir_(std::filesystem::temp_directory_path() /
             ("tavimor_hostile_" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(dir_);
  }
  ~HostileFiles() override { std::filesystem::remove_all(dir_); }
  std::string Write(const std::string& name, const std::string& bytes) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  std::filesystem::path dir_;
};

TEST_F(HostileFiles, EndlessDeviceFolderAndHugeFileAreRefusedWithAReason) {
  for (const std::string& path :
       {std::string("/dev/zero"), std::string("/dev/urandom"), dir_.string(),
        Write("huge.txt", "Eqn:x\r\n" + std::string(kMaxFileBytes + 1, '\r'))}) {
    const ReadOutcome outcome = ReadAlgebraFile(s, path);
    EXPECT_FALSE(outcome.ok) << path;
    EXPECT_FALSE(outcome.problem.empty()) << path;
    EXPECT_TRUE(s.ListEntries.empty());
  }
}

TEST_F(HostileFiles, MixedLineEndsControlBytesAndAThousandEntriesRoundTrip) {
  std::string bytes;
  for (int i = 0; i < kListCapacity / 2; ++i) {
    bytes += "Eqn:x=" + std::to_string(i) + (i % 3 == 0 ? "\r" : i % 3 == 1 ? "\n" : "\r\n");
    bytes += "Comment:\x1b[2J\x07\xff" + std::string(i % 7, '\r') + "\n";
  }
  ASSERT_TRUE(ReadAlgebraFile(s, Write("mixed.txt", bytes)).ok);
  ASSERT_EQ(static_cast<int>(s.ListEntries.size()), kListCapacity);
  const std::string copy = (dir_ / "copy.txt").string();
  ASSERT_TRUE(WriteAlgebraFile(s, copy));
  const std::vector<std::string> first = s.ListEntries;
  ASSERT_TRUE(ReadAlgebraFile(s, copy).ok);
  EXPECT_EQ(s.ListEntries, first);  // a second save changes nothing: no entry is duplicated
}

// Long and hostile inputs: nesting far deeper than a drawing can hold, inputs beyond what the
// pool could ever hold, and numbers beyond the largest float.

std::string Nested(const std::string& open, int depth, const std::string& inner,
                   const std::string& close) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += open;
  text += inner;
  for (int i = 0; i < depth; ++i) text += close;
  return text;
}

int CriticalMessages(const RecordingFrontend& frontend) {
  int count = 0;
  for (const RecordedMessage& m : frontend.messages) count += m.icon == MessageIcon::Critical;
  return count;
}

TEST_F(Stress, DeepRootsTellOnceThatTheyAreTooDeepToDraw) {
  ASSERT_TRUE(cmdLoadEquation(s, Nested("sqrt(", 600, "x", ")"), false));
  EXPECT_LE(CriticalMessages(frontend), 1);
  frontend.messages.clear();
  frontend.work_space.clear();
  s.StreamingOutput = true;
  std::string error;
  EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
  ASSERT_EQ(CriticalMessages(frontend), 1);
  EXPECT_NE(frontend.messages[0].text.find("too deep or too large to draw"), std::string::npos);
  // Set for a terminal, each step's mathematics stays one line of its text, not a square of
  // characters as deep as the roots: a few megabytes at most, not hundreds.
  std::size_t bytes = 0;
  for (const std::string& line : RenderForTerminal(s, frontend.work_space)) bytes += line.size();
  EXPECT_LT(bytes, 8'000'000u);
  EXPECT_EQ(s.Pool.NodesInUse, ItemNodes());
}

TEST_F(Stress, ADeeplyNestedSumTellsOncePerCommand) {
  ASSERT_TRUE(cmdLoadEquation(s, Nested("(", 498, "x", "+1)"), false));
  EXPECT_LE(CriticalMessages(frontend), 1);
  s.StreamingOutput = false;  // one step per press, as in the window
  for (int press = 0; press < 3; ++press) {
    frontend.messages.clear();
    std::string error;
    EXPECT_EQ(PressButton(s, "cmdSimplify", false, error), PressOutcome::Done);
    EXPECT_LE(CriticalMessages(frontend), 1);
  }
}

// Deep items with every button on offer pressed once, all steps at once: each command ends in
// its result or its message, and the item stays whole. Roots that each carry a factor are the
// costliest nesting there is (several narrated rewrites per level, each re-reading the enclosing
// text), so they go 60 deep; functions go 160 deep.
TEST_F(Stress, EveryButtonOnADeeplyNestedItemLeavesItWhole) {
  frontend.each_value = "2";
  for (const std::string& item :
       {Nested("arcsin(cos(ln(exp(", 40, "x", "))))"), Nested("sqrt(", 80, "x", ")"),
        Nested("sqrt(", 60, "x", "4)"), Nested("sqrt(", 40, "x", "444444444444)")}) {
    ASSERT_TRUE(cmdLoadEquation(s, item, false)) << item.substr(0, 40);
    s.StreamingOutput = true;
    int pressed = 0;
    for (const CommandWord& word : CommandWords()) {
      if (!ButtonOnOffer(s, word.button)) continue;
      ++pressed;
      std::string error;
      PressButton(s, word.button, word.right_button, error);
      EXPECT_EQ(s.Pool.NodesInUse, ItemNodes()) << word.button << " on " << item.substr(0, 40);
      EXPECT_FALSE(s.Pool[kLeftRoot].Text.empty()) << word.button;
    }
    EXPECT_GE(pressed, 10) << item.substr(0, 40);
  }
}

TEST_F(Stress, AMillionNestedBracketsAreRefusedAtOnce) {
  ASSERT_TRUE(cmdLoadEquation(s, "x+1", false));
  EXPECT_FALSE(cmdLoadEquation(s, Nested("(", 1000000, "x", ")"), false));
  EXPECT_NE(frontend.messages.back().text.find("The input is too long"), std::string::npos);
  EXPECT_EQ(s.Pool[kLeftRoot].Text, "x+1");
}

TEST_F(Stress, TheLongestInputsEndInAnItemOrAMessage) {
  const std::size_t most = kMaxInputLength;
  const std::vector<std::string> inputs = {
      Nested("(", static_cast<int>((most - 1) / 2), "x", ")"),
      Nested("sqrt(", static_cast<int>((most - 1) / 6), "x", ")"),
      Nested("[", static_cast<int>((most - 1) / 2), "x", "]"),
      "x" + Nested(";x", static_cast<int>((most - 1) / 2), "", ""),
      "1" + Nested("+1", static_cast<int>((most - 1) / 2), "", ""),
      "1" + std::string(most - 1, '0'),
      "0." + std::string(most - 3, '0') + "1",
  };
  for (const std::string& input : inputs) {
    frontend.messages.clear();
    const bool loaded = cmdLoadEquation(s, input, false);
    EXPECT_TRUE(loaded || !frontend.messages.empty()) << input.substr(0, 40);
    EXPECT_EQ(s.Pool.NodesInUse, ItemNodes()) << input.substr(0, 40);
  }
}

TEST_F(Stress, NumbersBeyondTheLargestFloatAreRefused) {
  for (const char* input : {"1E309", "1E309+1E309", "x=1E400", "."}) {
    frontend.messages.clear();
    EXPECT_FALSE(cmdLoadEquation(s, input, false)) << input;
    ASSERT_EQ(frontend.messages.size(), 1u) << input;
  }
}

}  // namespace
}  // namespace tavimor
