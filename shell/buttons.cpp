// Pressing a button of the main form by name, as a front end does: only a button that is on
// offer runs, and only once its engine has been built.
#include "shell/buttons.h"

#include <algorithm>

#include "shell/command_frame.h"

namespace tavimor {

bool ButtonOnOffer(const Session& s, const std::string& button) {
  if (s.Form.visible_panel < 0) return false;
  const std::vector<std::string>& buttons = PanelButtons(s.Form.visible_panel);
  if (std::find(buttons.begin(), buttons.end(), button) == buttons.end()) return false;
  return s.Form.Visible(button) && s.Form.Enabled(button);
}

PressOutcome PressButton(Session& s, const std::string& button, bool right_button,
                         std::string& error) {
  error.clear();
  if (!ButtonOnOffer(s, button)) return PressOutcome::NotOnOffer;
  const CommandRow* row = FindCommandRow(button);
  if (row == nullptr || (row->engine == nullptr && row->command == nullptr)) {
    return PressOutcome::NotBuilt;
  }
  if (row->engine != nullptr) {
    const SideEngineFn engine = row->engine;
    error =
        RunExpressionCommand(s, row->frame, [engine, right_button](Session& session, NodeIdx side) {
          return engine(session, side, right_button);
        });
  } else {
    error = row->command(s, right_button);
  }
  return PressOutcome::Done;
}

}  // namespace tavimor
