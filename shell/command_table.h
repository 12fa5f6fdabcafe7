// The one table of the main form's buttons: where each stands, its caption and tooltip, the words
// the terminal tutor knows it by, the texts of its frame, and what it runs.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// Panel numbers, in the order of the form's tabs.
inline constexpr int kPanelNumber = 0;
inline constexpr int kPanelExpression = 1;
inline constexpr int kPanelEquation = 2;
inline constexpr int kPanelFraction = 3;
inline constexpr int kPanelMultiEquations = 4;
inline constexpr int kPanelCount = 5;

// The texts of the frame an expression command runs in (see command_frame.h).
struct ExpressionCommand {
  const char* name;     // "Simplify"
  const char* nothing;  // "There is nothing to simplify"
  const char* verb;     // "Simplifying"
  const char* error;    // "Error in Simplify."
};

// A word of the terminal tutor and the mouse button it stands for.
struct TerminalWord {
  const char* word;  // nullptr for none
  const char* what;  // a few words for the list of commands
};

// The engine of an expression command: works on the side (node 2 or 3), says whether it changed
// it. `right_button` is the right mouse button (a denominator expanded too, the LCM factored).
using SideEngineFn = bool (*)(Session& s, NodeIdx side, bool right_button);
// A command with a frame of its own (shell/commands/): returns the error message shown, or empty.
using OwnCommandFn = std::string (*)(Session& s, bool right_button);

struct CommandRow {
  const char* button;       // the name on the form: "cmdSimplify"
  unsigned panels;          // one bit per panel the button stands on; 0 for the OK button
  const char* caption;      // as the window shows it
  const char* tooltip;      // the system's description of the button
  TerminalWord left;        // the word for a press with the left mouse button
  TerminalWord right;       // the word for the right mouse button, if it does something else
  ExpressionCommand frame;  // the frame's texts of an expression command; name nullptr otherwise
  SideEngineFn engine;      // an expression command's engine, once built
  OwnCommandFn command;     // or a command with its own frame, once built
};

// Every row, in the order of the buttons on their panels.
const std::vector<CommandRow>& CommandRows();
// The row of a button, or nullptr.
const CommandRow* FindCommandRow(const std::string& button);
// The buttons of a panel, in their order on the form.
const std::vector<std::string>& PanelButtons(int panel);
// The panel a button belongs to (the first, for one on two panels), or -1 for an unknown name.
int PanelOfButton(const std::string& button);
// The tooltip of a button; empty for an unknown name.
std::string ButtonTooltip(const std::string& button);
// The caption of a button; empty for an unknown name.
std::string ButtonCaption(const std::string& button);
// Whether the button's engine has been built.
bool ButtonIsBuilt(const std::string& button);
// The frame texts of an expression command; nullptr for another name.
const ExpressionCommand* FindExpressionCommand(const std::string& button);

// A command word of the terminal tutor and the press it makes.
struct CommandWord {
  const char* word;
  const char* button;
  bool right_button;
  const char* what;
};
const std::vector<CommandWord>& CommandWords();
// The entry of a word, or nullptr. A word that two buttons share (add-fractions on the
// Expression and the Fraction panel) presses the one on `panel`, the visible panel; with no
// button of the word there, or no panel given, the first.
const CommandWord* FindCommandWord(const std::string& word, int panel = -1);

}  // namespace tavimor
