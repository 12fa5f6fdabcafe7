// The main command flow, screen-free: start-up, loading and classifying an item, the panels, and
// working on one side of an equation.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The caption of a panel as it stands now.
std::string PanelCaption(const Session& s, int panel);

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

// Working on one side of an equation, and back.
void cmdDoLHS(Session& s);
void cmdDoRHS(Session& s);
void cmdShowEqnFrame(Session& s);

}  // namespace tavimor
