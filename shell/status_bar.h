// The status bar: nine panels that show the options, each click changing its option, and the
// snapshot of the options a command may force.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

void UpdateStatusPanel(Session& s);
void ClickStatusPanel(Session& s, int panel);  // 1 to 9
// "Set" keeps the options a command may force; "Retrieve" resets the per-problem state.
void OptionSnapshot(Session& s, const std::string& command);

}  // namespace tavimor
