// The command words of the front ends and the buttons they press.
#pragma once

#include <string>
#include <vector>

namespace tavimor {

struct CommandWord {
  const char* word;
  const char* button;
  bool right_button;  // the right mouse button: expand a denominator, factor the LCM too
  const char* what;   // a few words for the list of commands
};

const std::vector<CommandWord>& CommandWords();
// The entry of a word, or nullptr.
const CommandWord* FindCommandWord(const std::string& word);

}  // namespace tavimor
