// A session with a set of equations loaded, and the grid and the elimination window on it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "linsys/sys_eq_form.h"
#include "shell/main_flow.h"
#include "support/recording_frontend.h"

namespace tavimor {

class SystemTest : public ::testing::Test {
 protected:
  SystemTest() : s(frontend) { StartUp(s, "."); }

  // Loads the set as the OK button does.
  void LoadSet(const std::string& text) { ASSERT_TRUE(cmdLoadEquation(s, text, false)) << text; }

  // The grid of the set, or the message of its refusal in `refusal`.
  SystemGrid Grid(const std::string& text, std::string* refusal = nullptr) {
    LoadSet(text);
    SystemGrid g;
    const std::string message = BuildGrid(s, g);
    if (refusal != nullptr) *refusal = message;
    if (refusal == nullptr) {
      EXPECT_EQ(message, "") << text;
    }
    return g;
  }

  // The rows of a grid as exact texts.
  std::vector<std::vector<std::string>> Texts(const SystemGrid& g) { return GridNumberTexts(s, g); }

  // The elimination window on the set, shown step by step.
  void Open(const std::string& text) {
    LoadSet(text);
    ASSERT_TRUE(StartSysSolve(s, form)) << text;
  }

  std::string WorkSpace() const { return frontend.Transcript(); }

  RecordingFrontend frontend;
  Session s;
  SysEqState form;
};

}  // namespace tavimor
