// Solving a set of linear equations by elimination: the button that opens the window, and the
// words that drive an open window from the terminal and the tests.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// cmdSolveByElim: method 1, help number 296; builds the grid and opens the window, or runs in
// silence to the result with "show result only". Returns the error message shown, or empty.
std::string cmdSolveByElim(Session& s, bool right_button);
// cmdSolveBySubs: method 2, help number 297; builds the grid and opens the window for the
// substitution method (offered only when steps are shown).
std::string cmdSolveBySubs(Session& s, bool right_button);

// A word for the open elimination window, with what it does.
struct SystemWord {
  const char* word;
  const char* argument;  // "TEXT" for a word that takes one, else nullptr
  const char* what;
};
const std::vector<SystemWord>& SystemWords();
bool IsSystemWord(const std::string& word);
// Whether the system window of the session has closed (or was never opened).
bool SystemWindowClosed(const Session& s);
// Runs a word on the open window: "ero TEXT" (the ERO tried and kept), "undo" (the trial, else
// the last ERO kept, taken back), "assist" (one click of ERO Assist), "assist-all" (clicks until
// the reduced form is read), "ok" (keeps a trial), "continue" (the Done click: the reduced form
// read and the window closed). False with the reason in `refusal` when it cannot run; a
// command that ran and failed leaves its message in `error`.
bool RunSystemWord(Session& s, const std::string& word, const std::string& argument,
                   std::string& error, std::string& refusal);

}  // namespace tavimor
