// The frame every command runs in: both sides kept, the diagnostics, the detail level, the error
// trap that restores the sides, and the result sentences of an expression command.
#pragma once

#include <array>
#include <exception>
#include <functional>
#include <string>

#include "core/session.h"
#include "shell/command_table.h"

namespace tavimor {

// The side a command works on: node 3 under the caption "Right Side", else node 2.
NodeIdx CurrentSide(const Session& s);
// Loads both sides anew from their texts on a fresh pool.
void RestoreSides(Session& s, const std::string& left, const std::string& right);
void ResetDiagnostics(Session& s);
void ShowDiagnostics(Session& s);

// Runs a command: `work` on the current side, then the diagnostics, then `close` to write what
// remains to say. Any error on the way shows the command's message (or a numbered error's own
// sentence) once and makes the kept sides the work item again. `DetailNow` is 0 afterwards.
// Returns the error message shown, or empty.
std::string RunCommandFrame(Session& s, const std::string& error_text,
                            const std::function<void(NodeIdx side)>& work,
                            const std::function<void()>& close);

// An engine runs on the side (node 2 or 3) and says whether it changed it.
using SideEngine = std::function<bool(Session&, NodeIdx)>;
// The frame of an expression command: the engine at the detail level of the options, then the
// result sentence.
std::string RunExpressionCommand(Session& s, const ExpressionCommand& command,
                                 const SideEngine& engine);

// Puts the side back in the form that was input when the engine's first simplification left
// `simplified` in it, and tells `note` (empty: none) in the hint box, unless the two forms are
// set alike on paper (1/(x*(x+1)) and 1/x/(x+1)), where the note would show nothing. The frame
// then writes no result sentence of its own. True if the note was told.
bool TellSimplifiedInstead(Session& s, NodeIdx side, const std::string& input,
                           const std::string& simplified, const std::string& note);

// The six result sentences of a command.
std::array<std::string, 6> ResultPhrases(const std::string& verb, const std::string& nothing);
// Writes the outcome of a command that showed no steps, by the caption of panel 1.
void ShowResult(Session& s, const std::array<std::string, 6>& phrases, bool changed);
// The message of a failed command: a numbered mathematical error has its own sentence and help
// topic; any other error gives the command's text. The saved sides become the work item again.
std::string CommandError(Session& s, const std::string& command_text, const std::exception& error,
                         const std::string& left, const std::string& right);

}  // namespace tavimor
