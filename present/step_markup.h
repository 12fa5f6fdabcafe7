// The step-message markup: the help prefix, line marks, and the relation inside inline mathematics.
#pragma once

#include <string>

namespace tavimor {

// The leading number of a message (0 if none) and the message without the prefix up to and
// including its first "#".
int HelpNumberOf(const std::string& message);
std::string StripHelpPrefix(const std::string& message);

// The first "|" or "\\" in the text (1-based), and which; 0 and "" if neither occurs.
void FindBreak(const std::string& text, int& position, std::string& mark);

// Splits the text at the first relation found, in the order "->", ">=", "<=", ">", "<", "=":
// `text` becomes the left side, `right` the right side, `code` 6, 5, 4, 3, 2 or 1; code 0 and an
// empty right side if none occurs.
void FindRelation(std::string& text, std::string& right, int& code);

// The note of a command that found nothing of its own to do on a side that the first silent
// simplification changed, closed by the command's own sentence ("There is nothing to expand.",
// "There is nothing to factor.").
std::string SimplifiedInsteadNote(const std::string& input, const std::string& simplified,
                                  const std::string& closing);

}  // namespace tavimor
