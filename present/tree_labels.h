// The labels of a node in the expression tree view: full codes, or the operator it stands for.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// A blank code is shown as the pilcrow, so that it can be seen.
inline constexpr const char* kPilcrow = "\xC2\xB6";

// Role, Kind, five blanks, Text.
std::string NodeText1(const Session& s, NodeIdx n);
// The operator the Role stands for, a blank, the Text; "*" and "+" only after a sibling.
std::string NodeText2(const Session& s, NodeIdx n);
// As NodeText2, with "*" and "+" also on a first child.
std::string NodeText3(const Session& s, NodeIdx n);

// The entries of the tree view of a node: the node with its full label, then the entries of each
// of its children in order, one level deeper.
std::vector<TreeViewEntry> TreeViewEntries(const Session& s, NodeIdx root);

}  // namespace tavimor
