// Solving a set of linear equations by elimination: the button that opens the window, and the
// words that drive an open window.
#include "shell/commands/solve_system_command.h"

#include <memory>
#include <sstream>

#include "core/message_box.h"

#include "linsys/sys_eq_form.h"
#include "shell/command_frame.h"

namespace tavimor {

namespace {

const std::vector<SystemWord> kWords = {
    {"ero", "TEXT", "apply an ERO typed as on the keyboard: R2*3, R1-2R3, R1;R2"},
    {"undo", nullptr, "take back the last ERO"},
    {"assist", nullptr, "ERO Assist: the next ERO, with why"},
    {"assist-all", nullptr, "ERO Assist until the reduced form is read"},
    {"ok", nullptr, "keep the ERO on trial"},
    {"continue", nullptr, "read the reduced form and close the window"},
    {"choose", "ROW LETTER", "substitution: pick the letter to solve for in that equation"},
};

// The words of the substitution window: choose, ok, continue.
bool RunSubstitutionWord(Session& s, SysEqState& form, const std::string& word,
                         const std::string& argument, std::string& error, std::string& refusal) {
  int row = 0;
  int column = 0;
  if (word == "choose") {
    std::istringstream parts(argument);
    std::string row_text;
    std::string letter;
    parts >> row_text >> letter;
    if (!row_text.empty() && (row_text[0] == 'R' || row_text[0] == 'r')) row_text.erase(0, 1);
    const bool digits = !row_text.empty() && row_text.size() <= 2 &&
                        row_text.find_first_not_of("0123456789") == std::string::npos;
    row = digits ? std::stoi(row_text) : 0;
    if (letter.size() == 1) column = ColumnOfVar(form.grid, letter[0]);
    if (row < 1 || row > form.grid.rows || letter.size() != 1 || column >= form.grid.cols) {
      refusal = "choose takes an equation's number and a letter of the system: choose 1 x";
      return false;
    }
    if (form.grid.At(row, column).IsZero()) {
      refusal = "Equation " + std::to_string(row) + " has no " + letter + " to solve for.";
      return false;
    }
  } else if (word != "ok" && word != "continue") {
    refusal = "The substitution window takes choose ROW LETTER, ok and continue.";
    return false;
  }
  if (word == "ok" && form.subs.phase != SubsPhase::Choosing) {
    refusal = "Click on Continue: continue.";
    return false;
  }
  if (word == "continue" && form.subs.phase == SubsPhase::Choosing) {
    refusal = "Choose a variable first (choose ROW LETTER), then ok.";
    return false;
  }
  error = RunCommandFrame(
      s, kSubsError,
      [&](NodeIdx) {
        if (word == "choose") {
          if (form.subs.phase != SubsPhase::Choosing) return;
          ClickSubstitutionCell(form, row, column);
        } else if (word == "ok") {
          SubstitutionOK(s, form);
        } else {
          SubstitutionContinue(s, form);
        }
      },
      [] {});
  if (!error.empty()) form.closed = true;
  return true;
}

// A click can never loop for ever: each one changes the grid or ends the run; this bounds a
// run of the assistant all the same.
constexpr int kMostClicks = 100000;

}  // namespace

std::string cmdSolveByElim(Session& s, bool) {
  return RunCommandFrame(
      s, kElimError,
      [&s](NodeIdx) {
        s.SysMethod = 1;
        s.HelpNumber = static_cast<std::int16_t>(kElimHelp);
        auto form = std::make_shared<SysEqState>();
        s.SystemWindow = form;
        if (StartSysSolve(s, *form)) s.Screen().OpenSystemWindow(s, *form);
      },
      [] {});
}

std::string cmdSolveBySubs(Session& s, bool) {
  return RunCommandFrame(
      s, kSubsError,
      [&s](NodeIdx) {
        s.SysMethod = 2;
        s.HelpNumber = static_cast<std::int16_t>(kSubsHelp);
        auto form = std::make_shared<SysEqState>();
        s.SystemWindow = form;
        const std::string message = BuildGrid(s, form->grid);
        if (!message.empty()) {
          form->closed = true;
          ShowCustomMessage(s, "Error: " + message, 41);
          return;
        }
        form->comments.assign(static_cast<std::size_t>(form->grid.rows), "");
        StartSubstitution(s, *form);
        s.Screen().OpenSystemWindow(s, *form);
      },
      [] {});
}

const std::vector<SystemWord>& SystemWords() { return kWords; }

bool IsSystemWord(const std::string& word) {
  for (const SystemWord& entry : kWords) {
    if (word == entry.word) return true;
  }
  return false;
}

bool SystemWindowClosed(const Session& s) {
  return s.SystemWindow == nullptr || s.SystemWindow->closed;
}

bool RunSystemWord(Session& s, const std::string& word, const std::string& argument,
                   std::string& error, std::string& refusal) {
  const std::shared_ptr<SysEqState> form = s.SystemWindow;
  if (form == nullptr || form->closed) {
    refusal = "No system of equations is open: load a set of equations and type elim or subs.";
    return false;
  }
  if (form->method == 2) return RunSubstitutionWord(s, *form, word, argument, error, refusal);
  if (word == "choose") {
    refusal = "choose picks a variable in the substitution window (subs).";
    return false;
  }
  if (word == "ero" && argument.empty()) {
    refusal = "ero takes the operation, for example: ero R2-3R1";
    return false;
  }
  if (form->Pending() && word != "ok" && word != "undo") {
    refusal = "An ERO is on trial: ok keeps it, undo takes it back.";
    return false;
  }
  if (word == "ok" && !form->Pending()) {
    refusal = "No ERO is on trial.";
    return false;
  }
  if ((word == "ero") && form->reduced) {
    refusal = "The system is in RREF form: continue reads it.";
    return false;
  }
  if (word == "continue" && !form->reduced) {
    refusal = "The system is not in RREF form yet: assist takes the next step.";
    return false;
  }
  bool taken_back = true;
  error = RunCommandFrame(
      s, kElimError,
      [&](NodeIdx) {
        if (word == "ero") {
          if (EnterKeyboardEro(s, *form, argument)) cmdOK(s, *form);
        } else if (word == "undo") {
          taken_back = TakeBackLastEro(s, *form);
        } else if (word == "ok") {
          cmdOK(s, *form);
        } else if (word == "assist" || word == "continue") {
          cmdAssistElim(s, *form);
        } else if (word == "assist-all") {
          for (int click = 0; click < kMostClicks && !form->read; ++click) cmdAssistElim(s, *form);
        }
      },
      [] {});
  if (!error.empty()) form->closed = true;
  if (!taken_back) {
    refusal = "There is no ERO to take back.";
    return false;
  }
  return true;
}

}  // namespace tavimor
