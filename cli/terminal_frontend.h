// The terminal's side of the front-end interface: messages go to standard error.
#pragma once

#include <iostream>
#include <string>

#include "core/frontend.h"

namespace tavimor {

class TerminalFrontend : public Frontend {
 public:
  void ShowMessageBox(const std::string& text, int /*help_number*/, MessageIcon /*icon*/) override {
    std::cerr << text << '\n';
  }
};

}  // namespace tavimor
