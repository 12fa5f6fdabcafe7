// The long-input mode of the fuzz targets: a short input that stands for one of up to 100,000
// characters, so that the fuzzer reaches long sums, deep nesting and huge numbers quickly.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tavimor {

// A first byte 1 marks a long input: the next byte n sets the length, 1024 + 400 * n characters
// (up to 103,024), and the rest is a pattern. A pattern "open" is repeated up to that length; a
// pattern "open", byte 2, "core", byte 2, "close" gives open * k, core, close * k, as deep as the
// length allows. Short inputs come back as they are.
inline constexpr std::uint8_t kLongInputMark = 1;
inline constexpr char kLongInputSeparator = '\x02';

inline std::string ExpandLongInput(const std::uint8_t* data, std::size_t size) {
  const std::string raw(reinterpret_cast<const char*>(data), size);
  if (size < 3 || data[0] != kLongInputMark) return raw;
  const std::size_t length = 1024 + 400 * static_cast<std::size_t>(data[1]);
  const std::string pattern = raw.substr(2);
  const std::size_t first = pattern.find(kLongInputSeparator);
  const std::size_t second =
      first == std::string::npos ? std::string::npos : pattern.find(kLongInputSeparator, first + 1);
  std::string text;
  text.reserve(length + pattern.size());
  if (second == std::string::npos) {
    while (text.size() < length) text += pattern;
    text.resize(length);
    return text;
  }
  const std::string open = pattern.substr(0, first);
  const std::string core = pattern.substr(first + 1, second - first - 1);
  const std::string close = pattern.substr(second + 1);
  const std::size_t step = open.size() + close.size();
  const std::size_t depth = step == 0 || length <= core.size()
                                ? 1
                                : std::max<std::size_t>(1, (length - core.size()) / step);
  for (std::size_t i = 0; i < depth; ++i) text += open;
  text += core;
  for (std::size_t i = 0; i < depth; ++i) text += close;
  return text;
}

}  // namespace tavimor
