// The check of what the student typed, refusing bad input with one exact message.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Trims both ends, then removes every blank that remains.
void RemoveSpaces(std::string& text);

// The message that refuses the text, or empty when the text is good. `text` loses its blanks.
std::string ValidationMessage(Session& s, std::string& text);

// 0 if the input is good; -1 if it is bad, after its message has been shown with help number 2.
int ValidateInput(Session& s, std::string& text);

}  // namespace tavimor
