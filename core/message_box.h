// The system's message box: a text and the help topic its help button leads to.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The standard message of the system, with a help button for `help_number` (0: no topic).
void ShowCustomMessage(Session& s, const std::string& text, int help_number);
// A message box with the critical icon, for a broken tree.
void ShowCriticalMessage(Session& s, const std::string& text);

}  // namespace tavimor
