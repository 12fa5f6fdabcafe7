// Running an item and its command words, one line of a batch, and a whole batch file.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/terminal_frontend.h"
#include "core/session.h"

namespace tavimor {

// Runs one command word. On a refusal returns false with the sentence that says why in
// `refusal`; a command that ran and failed leaves its message in `error`.
bool RunWord(Session& s, const std::string& word, std::optional<std::string>& error,
             std::string& refusal);
// The word that takes a number after it: sig-figs N, the figures from 1 to 20.
inline constexpr const char* kFiguresWord = "sig-figs";
// Reads the figures of "sig-figs N"; false, with the sentence that says why, for anything but a
// whole number from 1 to 20.
bool ReadFiguresArgument(const std::string& text, int& figures, std::string& refusal);
// Loads the item, runs the words, and prints the work space or the JSON object (always one,
// whatever failed). Returns the exit status.
int RunItem(Session& s, TerminalFrontend& frontend, const std::string& item,
            const std::vector<std::string>& words, bool json, std::ostream& out);
// Runs the --batch file: one item and its words a line.
int RunBatch(const CliOptions& options);

}  // namespace tavimor
