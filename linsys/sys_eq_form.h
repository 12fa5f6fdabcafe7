// The window that solves a set of linear equations by elimination, screen-free: the grid, the
// ERO panels and the number box as data, the trial of an ERO and its undo, the assistant, and
// what each control shows and whether it can be used. Both front ends drive it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"
#include "linsys/elimination.h"
#include "linsys/row_operations.h"
#include "linsys/substitution.h"
#include "linsys/system_grid.h"

namespace tavimor {

inline constexpr const char* kElimCaption =
    " The Tavimor - Solve System of Linear Equations by Elimination";
inline constexpr const char* kAssistCaption = "ERO Assist";
inline constexpr const char* kAssistTip = "let the program apply the next ERO automatically";
inline constexpr const char* kDoneCaption = "Done";
inline constexpr const char* kKeyboardLabel = "ERO via keyboard:";
inline constexpr const char* kKeyboardTip = "enter any ERO via the keyboard";
inline constexpr const char* kNumberBoxHint = "Hint: click on a coefficient to copy it here";
inline constexpr const char* kDoneText =
    "You are done!  The system of equations is now in RREF form.  This window will now close.";
inline constexpr const char* kEroError = "Error in the ERO description.";
inline constexpr const char* kElimError = "Error in Solve by Elimination.";
inline constexpr int kElimHelp = 296;

// The state of the elimination window (SysEqForm), what the window shows and what its buttons do.
struct SysEqState {
  SystemGrid grid;
  std::int16_t method = 1;  // SysMethod: 1 elimination

  // The ERO panels as the student set them. `panel` is the open one (1 to 3), 0 none.
  std::int16_t panel = 0;
  std::int16_t ero1_row = 1;
  bool ero1_divide = false;  // ERO1Op(1)
  std::string ero1_number;   // ERO1Num
  std::int16_t ero2_row = 1;
  std::int16_t ero2_row2 = 2;
  bool ero2_subtract = false;  // ERO2Op(1)
  std::string ero2_number;     // ERO2Num
  std::int16_t ero3_row = 1;
  std::int16_t ero3_row2 = 2;
  std::string keyboard;  // txtInput

  // The ERO on trial: PendingKind 0 while the window waits.
  Ero pending;
  std::vector<GridNumber> saved_row;  // SavedRow, 1-based at index column - 1
  bool factor_from_keyboard = false;  // FactorFromKeyboard
  std::vector<std::string> comments;  // the comment beside each row, index row - 1
  // The grid before each ERO kept, the last on top.
  std::vector<SystemGrid> undo_list;
  SystemGrid before_trial;

  // The assistant.
  std::string assist_text;  // the box at the top of the window
  std::string assist_caption = kAssistCaption;
  NarrationState narration;
  int blue_row = 0;  // the pivot cell painted blue; 0 none
  int blue_col = 0;
  bool reduced = false;  // the form is reached: the next click reads it and closes
  bool closed = false;
  bool read = false;  // the reduced form has been read
  SystemReading reading;
  // The substitution method (method 2).
  SubstitutionState subs;

  // What the controls offer.
  bool Pending() const { return pending.kind != 0; }
  bool PanelsEnabled() const { return !closed && !Pending() && !reduced; }
  bool TestEnabled() const { return PanelsEnabled() && panel != 0; }
  bool OkVisible() const { return Pending(); }
  bool AssistEnabled() const { return !closed && !Pending(); }
  // Which of the four row buttons of a set are shown: rows 1 to 4, as many as there are rows.
  int RowButtons() const { return grid.rows < 4 ? grid.rows : 4; }
};

// Writes a step of the window to the work space: "|" parts lines, a line that is one equation
// alone is set indented.
void WriteStep(Session& s, const std::string& message);

// The grid's lines: 2 x rows - 1 lines of 3 x cols - 1 cells, and the comment cell beside a
// row. An equation takes every other line.
std::vector<std::vector<std::string>> GridLines(const Session& s, const SysEqState& form);
// The grid as lines of text, the cells aligned, for the terminal.
std::vector<std::string> GridTextLines(const Session& s, const SysEqState& form);

// cmdSolveByElim's start: builds the grid, tells a refusal ("Error: " and the message, help
// 40), runs in silence with SolveDetail 0, else makes the window ready in `form`. True when the
// window is to be opened.
bool StartSysSolve(Session& s, SysEqState& form);

// cmdTest: tries the ERO of the open panel. False (and a message) when it is refused.
bool cmdTest(Session& s, SysEqState& form);
// cmdOK: keeps the ERO on trial and writes it to the work space.
void cmdOK(Session& s, SysEqState& form);
// cmdUndo (the "Cancel" button): takes the trial back.
void cmdUndo(Session& s, SysEqState& form);
// Takes back the trial, else the last ERO kept (the grid as it was before it). False when there
// is nothing to take back.
bool TakeBackLastEro(Session& s, SysEqState& form);
// Enter in the keyboard line: the ERO it names is set in its panel and tried.
bool EnterKeyboardEro(Session& s, SysEqState& form, const std::string& text);
// A click on a cell of the grid: copies the coefficient, as shown, into the open number box.
void ClickGridCell(Session& s, SysEqState& form, int line, int cell);
// cmdAssistElim: one ERO with its reasons, or, once the form is reached, the reading; the next
// click after that closes the window.
void cmdAssistElim(Session& s, SysEqState& form);

}  // namespace tavimor
