// The terminal's help: a help page printed as text, and the index of the algebra pages.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// Prints the page in the file as text; a page that cannot be read is told on `err`.
void PrintHelpPageFile(const Session& s, const std::string& path, std::ostream& out,
                       std::ostream& err);
// Prints the number and title of every algebra page; false, with a line on `err`, when there is
// none.
bool PrintHelpIndex(const Session& s, std::ostream& out, std::ostream& err);
// "help", "help index": the index; "help N": the page of topic N, through the help topic map;
// "help program": the program's help page. Returns the exit status.
int RunHelpCommand(Session& s, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err);

}  // namespace tavimor
