// The Tree button: the tree of the side in use, shown in the tree view.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The help topic of the tree view.
inline constexpr int kTreeViewHelp = 397;

// cmdTree: fills the tree view from the side in use (node 3 under the caption "Right Side", else
// node 2), every entry shown, and sets the help topic of the view. Returns the error message
// shown, or empty.
std::string cmdTree(Session& s, bool right_button);

}  // namespace tavimor
