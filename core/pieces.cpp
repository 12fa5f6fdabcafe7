// Lists as text: pieces of a string joined by a separator, counted from 1.
#include "core/pieces.h"

#include "core/errors.h"

namespace tavimor {

std::int16_t CountPieces(std::string_view text, std::string_view separator) {
  int count = 1;
  if (!separator.empty()) {
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, at + separator.size())) {
      ++count;
    }
  }
  if (count > INT16_MAX) throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
  return static_cast<std::int16_t>(count);
}

std::string GetPiece(std::string_view text, int index, std::string_view separator) {
  if (index < 1 || index > CountPieces(text, separator)) return "Error";
  if (separator.empty()) return std::string(text);
  std::size_t start = 0;
  for (int i = 1; i < index; ++i) start = text.find(separator, start) + separator.size();
  const std::size_t end = text.find(separator, start);
  return std::string(text.substr(start, end == std::string_view::npos ? end : end - start));
}

void SetPiece(std::string& text, int index, std::string_view separator, std::string_view value) {
  if (index < 1 || separator.empty()) return;
  while (CountPieces(text, separator) < index) text += separator;
  std::size_t start = 0;
  for (int i = 1; i < index; ++i) start = text.find(separator, start) + separator.size();
  const std::size_t end = text.find(separator, start);
  text.replace(start, end == std::string::npos ? std::string::npos : end - start, value);
}

void AppendPiece(std::string& text, char separator, std::string_view piece) {
  if (!text.empty()) text += separator;
  text += piece;
}

}  // namespace tavimor
