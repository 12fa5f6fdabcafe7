// The interactive tutor: one line a command or an item, with line editing at a terminal.
#pragma once

#include "cli/cli_options.h"

namespace tavimor {

// Runs the tutor on standard input until "quit" or its end; returns the exit status.
int Interactive(const CliOptions& options);

}  // namespace tavimor
