// The substitution assistant: a variable chosen in an equation, the equation solved for it and
// set aside, the solution substituted into the others and simplified, until none remain; then
// back-substitution through the set-aside equations from last to first.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "linsys/grid_number.h"

namespace tavimor {

struct SysEqState;

inline constexpr const char* kSubsCaption =
    " The Tavimor - Solve System of Linear Equations by Substitution";
inline constexpr const char* kSubsError = "Error in Solve by Substitution.";
inline constexpr int kSubsHelp = 297;

// An equation set aside: its letter alone on the left, the rest on the right as coefficients of
// the letters (column order) and a constant.
struct SetAsideEquation {
  int column = 0;
  std::vector<GridNumber> right;  // right[c - 1] for the letter of column c; right[cols - 1] the
                                  // constant
};

enum class SubsPhase {
  Choosing,     // a variable is to be clicked, then OK
  Substituted,  // the solution is substituted: Continue simplifies
  BackStart,    // none remain: Continue back-substitutes
  Done,         // the box says so: the next click closes
};

struct SubstitutionState {
  bool active = false;
  SubsPhase phase = SubsPhase::Choosing;
  std::vector<int> remaining;  // the rows of the grid still in play, in order
  std::vector<SetAsideEquation> set_aside;
  int chosen_row = 0;  // ChosenRow, ChosenCol: the cell clicked; 0 none
  int chosen_col = 0;
  bool any_chosen_before = false;
  // The remaining equations with the solution put in, as text, until Continue simplifies them.
  std::vector<std::string> substituted;
};

// The start of the window for substitution: the texts at the top, the system in standard form.
void StartSubstitution(Session& s, SysEqState& form);
// A click on a coefficient or letter cell of a row: selects that variable in that equation. A
// zero coefficient is an empty cell and selects nothing.
bool ClickSubstitutionCell(SysEqState& form, int row, int column);
// OK in the choosing phase. False, with the message shown, when no usable choice is made.
bool SubstitutionOK(Session& s, SysEqState& form);
// Continue: simplify after a substitution, back-substitute, or close once done.
void SubstitutionContinue(Session& s, SysEqState& form);
// The equations as the terminal lists them: remaining ones (substituted or not) and those set
// aside.
std::vector<std::string> SubstitutionLines(const Session& s, const SysEqState& form);

}  // namespace tavimor
