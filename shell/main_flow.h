// The main command flow, screen-free: start-up, loading an item, panels, status bar, and the
// frame every expression command runs in.
#pragma once

#include <functional>
#include <string>

#include "core/session.h"

namespace tavimor {

// Panel numbers and their buttons.
inline constexpr int kPanelNumber = 0;
inline constexpr int kPanelExpression = 1;
inline constexpr int kPanelEquation = 2;
inline constexpr int kPanelFraction = 3;
inline constexpr int kPanelMultiEquations = 4;

// The caption of a panel as it stands now.
std::string PanelCaption(const Session& s, int panel);
// The buttons of a panel, in their order on the form.
const std::vector<std::string>& PanelButtons(int panel);
// The tooltip of a button, the system's description of it; empty for an unknown name.
std::string ButtonTooltip(const std::string& button);

// Start-up: the decimal separator, the caption, the per-problem state, the status bar and the
// option snapshot. The settings and recent files come through the options layer.
void StartUp(Session& s, const std::string& decimal_point);
std::string FormCaption();

// The OK button. With the right button the work space is cleared first. Returns false when the
// box was empty or the text was refused (its message has been shown).
bool cmdLoadEquation(Session& s, const std::string& typed, bool right_button);
// The Next button: the selection of the equation list moves one down, unless it stands on the
// last entry, and that entry is loaded as OK loads it.
bool cmdNextEquation(Session& s, bool right_button);
// Makes the validated text the work item, writes "Consider  ..." and selects the panel.
void LoadEquation(Session& s, const std::string& text);
// Remembers a typed problem in the open list, or writes the comment of a known one.
void AddToEquationList(Session& s, const std::string& text);
void SelectTab(Session& s, int index);
void UpdateButtonEnabling(Session& s);

// The Brackets button: removes one set of unneeded brackets from the current side per press,
// counting the presses since the panel was selected ("one", "another", "more").
void cmdBrackets(Session& s);

// Working on one side of an equation, and back.
void cmdDoLHS(Session& s);
void cmdDoRHS(Session& s);
void cmdShowEqnFrame(Session& s);

// The status bar: nine panels, each click changing its option.
void UpdateStatusPanel(Session& s);
void ClickStatusPanel(Session& s, int panel);  // 1 to 9
// "Set" keeps the options a command may force; "Retrieve" resets the per-problem state.
void OptionSnapshot(Session& s, const std::string& command);

// The side a command works on: node 3 under the caption "Right Side", else node 2.
NodeIdx CurrentSide(const Session& s);
// Loads both sides anew from their texts on a fresh pool.
void RestoreSides(Session& s, const std::string& left, const std::string& right);
void ResetDiagnostics(Session& s);
void ShowDiagnostics(Session& s);

// An expression command as the frame knows it.
struct ExpressionCommand {
  const char* button;   // "cmdSimplify"
  const char* name;     // "Simplify"
  const char* nothing;  // "There is nothing to simplify"
  const char* verb;     // "Simplifying"
  const char* error;    // "Error in Simplify."
};
// The expression commands by button name; nullptr for another name.
const ExpressionCommand* FindExpressionCommand(const std::string& button);

// The six result sentences of a command.
std::array<std::string, 6> ResultPhrases(const std::string& verb, const std::string& nothing);
// Writes the outcome of a command that showed no steps, by the caption of panel 1.
void ShowResult(Session& s, const std::array<std::string, 6>& phrases, bool changed);

// An engine runs on the side (node 2 or 3) and says whether it changed it.
using SideEngine = std::function<bool(Session&, NodeIdx)>;
// The frame of an expression command: keeps both sides, runs the engine at the detail level of
// the options, writes the result, and on a run-time or numbered error shows its message and
// restores both sides. Returns the error message shown, or empty.
std::string RunExpressionCommand(Session& s, const ExpressionCommand& command,
                                 const SideEngine& engine);
// The message of a failed command: a numbered mathematical error has its own sentence and help
// topic; any other error gives the command's text. The saved sides become the work item again.
std::string CommandError(Session& s, const std::string& command_text, const std::exception& error,
                         const std::string& left, const std::string& right);

}  // namespace tavimor
