// Lists as text: pieces of a string joined by a separator, counted from 1.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavimor {

// The number of occurrences of the separator plus one.
std::int16_t CountPieces(std::string_view text, std::string_view separator);
// The piece with that index, counted from 1; "Error" outside 1 to CountPieces.
std::string GetPiece(std::string_view text, int index, std::string_view separator);
// Appends `piece` to `text`, led by the separator unless `text` is still empty.
void AppendPiece(std::string& text, char separator, std::string_view piece);
// Puts `value` in place of the piece with that index; pieces missing up to it are added empty.
void SetPiece(std::string& text, int index, std::string_view separator, std::string_view value);

}  // namespace tavimor
