// Pressing a button of the main form by name, as a front end does: only a button that is on
// offer runs, and only once its engine has been built.
#pragma once

#include <string>

#include "core/session.h"
#include "shell/command_table.h"

namespace tavimor {

enum class PressOutcome {
  Done,        // the command ran (it may have shown its own error message)
  NotOnOffer,  // the button is not on the visible panel, or hidden, or disabled
  NotBuilt,    // the button's engine is not part of the tutor yet
};

// Whether the button can be pressed now: on the visible panel, visible and enabled.
bool ButtonOnOffer(const Session& s, const std::string& button);
// Presses the button; `right_button` for the right mouse button. `error` gets the message of a
// command that failed.
PressOutcome PressButton(Session& s, const std::string& button, bool right_button,
                         std::string& error);

}  // namespace tavimor
