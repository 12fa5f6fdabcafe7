// Pressing a button of the main form by name, as a front end does: only a button that is on
// offer runs, and only once its engine has been built.
#include "shell/buttons.h"

#include <algorithm>
#include <functional>
#include <map>

#include "shell/evaluate_command.h"
#include "shell/main_flow.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// The buttons whose commands run today, and what they run; an expression command's message of
// failure comes back in `error`.
using ButtonAction = std::function<void(Session&, bool, std::string&)>;

ButtonAction ExpressionButton(const char* button, std::int16_t trig_mode) {
  return [button, trig_mode](Session& s, bool, std::string& error) {
    s.TrigMode = trig_mode;
    error = RunExpressionCommand(s, *FindExpressionCommand(button), &SimplifySide);
    s.TrigMode = 0;
  };
}

const std::map<std::string, ButtonAction> kBuiltButtons = {
    {"cmdSimplify", ExpressionButton("cmdSimplify", 0)},
    {"cmdBrackets", [](Session& s, bool, std::string&) { cmdBrackets(s); }},
    {"cmdEvaluate", [](Session& s, bool, std::string& error) { error = cmdEvaluate(s); }},
    {"cmdDoLHS", [](Session& s, bool, std::string&) { cmdDoLHS(s); }},
    {"cmdDoRHS", [](Session& s, bool, std::string&) { cmdDoRHS(s); }},
    {"cmdShowEqnFrame", [](Session& s, bool, std::string&) { cmdShowEqnFrame(s); }},
};

}  // namespace

int PanelOfButton(const std::string& button) {
  for (int panel = 0; panel <= 4; ++panel) {
    const std::vector<std::string>& buttons = PanelButtons(panel);
    if (std::find(buttons.begin(), buttons.end(), button) != buttons.end()) return panel;
  }
  return -1;
}

bool ButtonIsBuilt(const std::string& button) { return kBuiltButtons.count(button) != 0; }

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
  const auto it = kBuiltButtons.find(button);
  if (it == kBuiltButtons.end()) return PressOutcome::NotBuilt;
  s.RewriteCount = 0;
  s.DrawFailureShown = false;
  it->second(s, right_button, error);
  return PressOutcome::Done;
}

}  // namespace tavimor
