// The terminal's "tree" command: an item validated and loaded as OK does, its trees printed.
#pragma once

#include <iosfwd>
#include <string>

#include "core/session.h"

namespace tavimor {

// Exit statuses of the terminal tutor.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 2;
inline constexpr int kExitUsage = 64;

// Prints the tree of a node, one node per line, two blanks of indentation per level.
void PrintTree(const Session& s, NodeIdx root, std::ostream& out);

// Validates and loads the item; on success prints the tree of the left side, and for an
// equation a line "=" and the tree of the right side; the items of a set are separated by a
// line ";". A refused item has its message shown through the session's front end.
int RunTreeCommand(Session& s, std::string item, std::ostream& out);

}  // namespace tavimor
