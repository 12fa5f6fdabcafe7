// Guessing the command a mistyped word meant, so that a slip never loads it as a problem.
#pragma once

#include <string>
#include <vector>

namespace tavimor {

// The number of letters to insert, delete or replace to turn one word into the other.
int EditDistance(const std::string& a, const std::string& b);

// The command a single typed word probably meant: one of `commands` in another case, or within
// two letters of one. Empty for a command itself, for a word of fewer than three characters, for
// anything but letters and hyphens, and when nothing is near.
std::string GuessCommandWord(const std::string& word, const std::vector<std::string>& commands);

}  // namespace tavimor
