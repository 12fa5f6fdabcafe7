// A front end for tests that records every message box instead of showing it.
#pragma once

#include <string>
#include <vector>

#include "core/frontend.h"

namespace tavimor {

struct RecordedMessage {
  std::string text;
  int help_number = 0;
  MessageIcon icon = MessageIcon::Information;
};

class RecordingFrontend : public Frontend {
 public:
  void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) override {
    messages.push_back({text, help_number, icon});
  }
  std::vector<RecordedMessage> messages;
};

}  // namespace tavimor
