// The system's message box: a text and the help topic its help button leads to.
#include "core/message_box.h"

namespace tavimor {

void ShowCustomMessage(Session& s, const std::string& text, int help_number) {
  s.Screen().ShowMessageBox(text, help_number, MessageIcon::Information);
}

void ShowCriticalMessage(Session& s, const std::string& text) {
  s.Screen().ShowMessageBox(text, 0, MessageIcon::Critical);
}

}  // namespace tavimor
