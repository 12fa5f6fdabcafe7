// The Do to both sides button and the dialog's Apply, and the terminal tutor's both-sides word.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"
#include "solve/do_to_both_sides.h"

namespace tavimor {

// The Do to both sides button: the window opens its dialog of operations on both sides; the
// terminal tutor has the word both-sides instead.
std::string cmdDoToEqn(Session& s, bool right_button);

// The dialog's Apply: checks Q (s.DoToBothSidesQ) and refuses with its message, else applies the
// operation in a command frame of its own. Returns the error message shown, or empty.
std::string cmdApply(Session& s, BothSidesOperation operation,
                     std::optional<char> root_sign = std::nullopt);

// The terminal word and the words of its operations.
inline constexpr const char* kBothSidesWord = "both-sides";
struct BothSidesWord {
  const char* word;
  BothSidesOperation operation;
};
const std::vector<BothSidesWord>& BothSidesWords();
// How many more words the operation's word takes: the value Q, or the sign of a square root.
int BothSidesArguments(const std::string& operation_word);

// "both-sides OP [Q]": the operation with its value, as Apply would run it. False with the
// refusal when the word is not understood, no equation is at hand, or the dialog refuses Q
// (its message is the refusal). `error` gets the message of a command that failed.
bool RunBothSidesWord(Session& s, const std::string& argument, std::string& error,
                      std::string& refusal);

}  // namespace tavimor
