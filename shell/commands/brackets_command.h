// The Brackets button: one set of unneeded brackets removed per press.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Removes one set of unneeded brackets from the current side per press, counting the presses
// since the panel was selected ("one", "another", "more"). Returns the error message shown, or
// empty.
std::string cmdBrackets(Session& s, bool right_button = false);

}  // namespace tavimor
