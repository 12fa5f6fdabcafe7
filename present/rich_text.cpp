// What the work space and the hint box are made of: runs of formatted text, line ends, pictures.
#include "present/rich_text.h"

#include <charconv>

namespace tavimor {

namespace {

const char* kRelationTexts[] = {"", "=", "<", ">", "<=", ">=", "->"};

}  // namespace

TextFormat TextFormat::Parse(const std::string& format, float size) {
  TextFormat f;
  f.size = size;
  if (format.size() < 3) return f;
  f.bold = format[0] == 'T';
  f.italic = format[1] == 'T';
  f.underline = format[2] == 'T';
  int colour = 0;
  const char* end = format.data() + format.size();
  if (std::from_chars(format.data() + 3, end, colour).ptr == end && colour >= 0 && colour < 16) {
    f.colour = colour;
  }
  return f;
}

std::string Picture::Mathematics() const {
  if (!IsRelationCode(relation)) return left;
  return left + kRelationTexts[relation] + right;
}

std::string Picture::Tag() const {
  // The baseline is a 32-bit float: its own shortest text.
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, drawing.baseline);
  return std::string(buffer, result.ptr) + ";" + Mathematics();
}

std::string PlainText(const RichText& text) {
  std::string out;
  for (const RichRun& run : text) {
    switch (run.kind) {
      case RunKind::Text: out += run.text; break;
      case RunKind::LineEnd: out += "\n"; break;
      case RunKind::Tab: out += "\t"; break;
      case RunKind::Picture: out += "@" + run.picture.Mathematics() + "@"; break;
    }
  }
  return out;
}

}  // namespace tavimor
