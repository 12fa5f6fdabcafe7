// The check of what the student typed, refusing bad input with one exact message.
#pragma once

#include <cstddef>
#include <string>

#include "core/session.h"

namespace tavimor {

// The longest input that is worked on. Written out, a tree of the pool's 1000 nodes stays below
// it unless its numbers are padded with zeros: a node holds one number (24 characters at the
// longest in its normal form), letter, sign or function call. A longer input is refused before
// anything else is checked, so that a huge paste costs no parsing.
inline constexpr std::size_t kMaxInputLength = 24000;

// Trims both ends, then removes every blank that remains.
void RemoveSpaces(std::string& text);

// The message that refuses the text, or empty when the text is good. `text` loses its blanks.
std::string ValidationMessage(Session& s, std::string& text);

// 0 if the input is good; -1 if it is bad, after its message has been shown with help number 2.
int ValidateInput(Session& s, std::string& text);

}  // namespace tavimor
