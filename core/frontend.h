// The interface through which the engines reach whoever shows their work: window, terminal or test.
#pragma once

#include <string>

namespace tavimor {

enum class MessageIcon { Information, Critical };

// Engines never paint, print or block: they report through this interface. Each front end
// implements it; tests use a recording one.
class Frontend {
 public:
  virtual ~Frontend() = default;

  // A modal message box with a help button leading to the topic `help_number` (0: no topic).
  virtual void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) = 0;
};

}  // namespace tavimor
