// Solving a set of linear equations by elimination: the button that opens the window, and the
// words that drive an open window.
#include "shell/commands/solve_system_command.h"

#include <memory>

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
};

// A click can never loop for ever: each one changes the grid or ends the run; this bounds a
// run of the assistant all the same.
constexpr int kMostClicks = 100000;

}  // namespace

// The substitution method (cmdSolveBySubs) comes once the equation solver is in place; its
// window shares the grid and the texts of this one.
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
    refusal = "No system of equations is open: load a set of equations and type elim.";
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
