// Putting new text into a node of a tree and parsing it into place.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Strips the text's outer brackets. A function keeps its name and takes the text as argument;
// any other node becomes "(" text ")". The old subtree is freed and the new one parsed.
void ReplaceNodeContents(Session& s, NodeIdx n, const std::string& text);

}  // namespace tavimor
