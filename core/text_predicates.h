// Questions asked of a text through a short-lived tree; none leaves a mark on the pool.
#pragma once

#include <string>
#include <string_view>

#include "core/session.h"

namespace tavimor {

// One level parsed.
bool IsProductText(Session& s, std::string_view text);
bool IsPowerText(Session& s, std::string_view text);
bool IsSumText(Session& s, std::string_view text);
bool IsSquareText(Session& s, std::string_view text);
bool HasDenominatorText(Session& s, std::string_view text);
bool IsReciprocalText(Session& s, std::string_view text);
// Whether the text needs brackets as a base or a factor: a product, a sum, or a negative number.
bool NeedsBrackets(Session& s, std::string_view text);

// The whole tree parsed.
bool AnyTermHasDenominator(Session& s, std::string_view text);
// A product of exactly one integer numerator and one integer denominator (either may sit in a
// hidden bracket); the integers' texts come out.
bool NumericFractionParts(Session& s, std::string_view text, std::string& numerator,
                          std::string& denominator);
// 1 all terms whole numbers added, 2 all subtracted, 3 a mix, 4 a term that is not whole.
int SumSignClass(Session& s, std::string_view text);
// 1 all terms of size 1, 2 all of size at most 2, 3 otherwise or a term not whole.
int CoefficientClass(Session& s, std::string_view text);
int CountTerms(Session& s, std::string_view text);
// The text as its tree writes it back: brackets that change nothing are gone.
std::string RegeneratedText(Session& s, std::string_view text);
int CountOccurrences(Session& s, std::string_view text, std::string_view name);
// How deep the one occurrence of `name` sits: 0 for the text itself, -1 unless it occurs once.
int WrapDepth(Session& s, std::string_view text, std::string_view name);

}  // namespace tavimor
