// The unknown of an equation chosen among its letters, repeated answers removed, and each answer
// substituted back into the equation to reject the false ones.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The real value of a text of numbers and constants, by simplifying and evaluating; nothing
// when it has none (an imaginary unit, a root or logarithm of a negative number, a zero
// denominator).
std::optional<double> RealValueOf(Session& s, const std::string& text);
// The letters of the text that are no constant under the options, in the order first met.
std::vector<std::string> UnknownCandidates(Session& s, const std::string& text);
// The letters that could be the unknown; the count, or -1 when s.Unknown is among them;
// `letter` becomes the candidate after the current one, or the first.
int ChooseUnknown(Session& s, const std::string& equation, std::string& letter);
// The text with `value` put in for the letter: in brackets, unless it is a number without a sign
// or the whole argument of a function. Names of functions and numbers are passed over.
std::string PutValueForLetter(Session& s, const std::string& side, const std::string& unknown,
                              const std::string& value);
// Repeated answers, "no-solution" and "unsolvable" pieces removed; each one counts as rejected.
void CleanAnswers(std::string& answers, int& rejected);
// Each answer substituted into both sides, simplified and evaluated; an answer that does not
// make the sides equal, or that can't be evaluated over the real numbers, is rejected.
void CheckSolutions(Session& s, const std::string& equation, const std::string& unknown,
                    std::string& answers, int& rejected);

}  // namespace tavimor
