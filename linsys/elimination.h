// The elimination assistant: the next ERO worked out from the grid alone, why it is done, and
// the reading of the reduced row echelon form.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "linsys/row_operations.h"
#include "linsys/system_grid.h"

namespace tavimor {

// The next ERO towards the reduced form, with the pivot it works on. False when the grid is in
// reduced row echelon form.
struct AssistChoice {
  Ero ero;
  int pivot_row = 0;  // PR
  int pivot_col = 0;  // PC
  int code = 0;       // 1 swap, 3 scale, 5 row addition: the announcement
};
bool ChooseNextEro(const SystemGrid& g, AssistChoice& choice);
// Applies the assistant's ERO: a scale sets the pivot to 1 exactly, a row addition the entry in
// the pivot column to 0 exactly.
void ApplyAssistEro(SystemGrid& g, const AssistChoice& choice);

// Where the narration left off: the previous pivot and the last code told.
struct NarrationState {
  int previous_pivot_row = 0;
  int previous_pivot_col = 0;
  int last_code = 0;
};
// The sentences that tell why the ERO is done (codes 1, 3, 5, with the opening of a new
// pivot), and moves the narration state on.
std::string AssistReason(const Session& s, const AssistChoice& choice, NarrationState& state);

// What the reduced form says.
enum class SystemKind { Unique, Infinite, None };
struct SystemReading {
  SystemKind kind = SystemKind::Unique;
  int inconsistent_row = 0;
  int pivots = 0;
  std::vector<char> free_vars;
  std::vector<char> pivot_vars;
  std::vector<std::pair<char, std::string>> solution;  // letter and value text
};
SystemReading ReadReducedForm(const Session& s, const SystemGrid& g);
// "variable %x" or "variables %x, %y and %z".
std::string VariableList(const std::vector<char>& letters);
// How a unique solution is introduced: in the window, after the reduced form was shown, or alone.
enum class ReadingVoice { Window, AfterForm, Alone };
// The narration of the reading, in the step markup.
std::string ReadingText(const Session& s, const SystemGrid& g, const SystemReading& reading,
                        ReadingVoice voice);

// The system as lines of the step markup, one equation a line.
std::string SystemLines(const Session& s, const SystemGrid& g);
// Runs the assistant's choices to the reduced form, silently. Returns the number of EROs.
int EliminateSilently(SystemGrid& g);

}  // namespace tavimor
