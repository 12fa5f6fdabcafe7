// Scanning text for brackets and function calls: matching, closing, stripping.
#pragma once

#include <string>
#include <string_view>

#include "core/session.h"

namespace tavimor {

// Whether "(" ")" and "[" "]" each balance, and every bracket closes in its own kind.
bool BracketsMatch(std::string_view text);
// The position (1-based) of the bracket that closes the one at `position`, counting "(" and "["
// alike as open and ")" and "]" alike as close; 0 if it is never closed.
int FindCloseBracket(std::string_view text, int position);
// How deep the brackets nest, "(" and "[" alike: 2 for "sqrt((x+1)*2)".
int BracketNesting(std::string_view text);
// Removes pairs of outer brackets while the text starts with one whose closing bracket is the
// last character.
std::string StripBrackets(std::string_view text);
// The 1-based index in the function table of the name that stands at `position` (the last in
// table order that fits), or 0.
int FunctionNameAt(const Session& s, std::string_view text, int position);
// If a function name stands at `position` and its argument is bracketed, the position of the
// bracket that closes the argument; else 0.
int FunctionEnd(const Session& s, std::string_view text, int position);

}  // namespace tavimor
