// Numbers as text: the recogniser, the exact/floating test, and the forms results are written in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

namespace tavimor {

// Exact work stops here: an integer's size is below this bound.
inline constexpr double kIntegerBound = 2147483647.0;

// The last position (1-based) of the number that starts at `position`, a leading sign included,
// or 0 when no number starts there.
int NumberEnd(const Session& s, std::string_view text, int position);

bool IsIntegerText(const Session& s, std::string_view text);
bool IsIntegerNode(const Session& s, NodeIdx n);
bool IsDecimalIntegerText(const Session& s, std::string_view text);
bool IsPositiveIntegerText(const Session& s, std::string_view text);

// The value of a number text; 0.0 for the empty or a non-numeric text.
double SafeValue(const Session& s, std::string_view text);
// The same as a 32-bit float, for graph data.
float SafeValue32(const Session& s, std::string_view text);

// Every number of the subtree in its one normal form; the pseudo numbers "-" and "+" stay.
void NormaliseNumbers(Session& s, NodeIdx n);
std::string NormaliseNumberText(const Session& s, std::string_view text);
std::string ScientificNumberText(const Session& s, std::string_view text);

std::string FormatSigFigs(const Session& s, double x, int figures);
std::string FormatResult(Session& s, std::string_view text);
std::string PadSigFigs(const Session& s, int figures, std::string_view text);
void TrimZeros(std::string& text);

// The prime factors of a whole number in ascending order, the first negative for a negative
// number; a number of size at most 3 is its own list.
std::vector<std::int64_t> PrimeFactors(std::int64_t number);

}  // namespace tavimor
