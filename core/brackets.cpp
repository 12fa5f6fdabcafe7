// Scanning text for brackets and function calls: matching, closing, stripping.
#include "core/brackets.h"

#include <algorithm>
#include <vector>

namespace tavimor {

namespace {

bool IsOpen(char c) { return c == '(' || c == '['; }
bool IsClose(char c) { return c == ')' || c == ']'; }

}  // namespace

// One pass: each kind balances on its own, and each closing bracket closes the innermost open
// one in its own kind. With both counts balanced the innermost open bracket is the one that
// FindCloseBracket pairs with it, so this is the same test in linear time.
bool BracketsMatch(std::string_view text) {
  int rounds = 0;
  int squares = 0;
  std::vector<char> open;
  for (const char c : text) {
    if (IsOpen(c)) {
      ++(c == '(' ? rounds : squares);
      open.push_back(c);
    } else if (IsClose(c)) {
      if (--(c == ')' ? rounds : squares) < 0) return false;
      if (open.empty()) return false;
      const char opener = open.back();
      open.pop_back();
      if ((opener == '(') != (c == ')')) return false;
    }
  }
  return rounds == 0 && squares == 0;
}

int FindCloseBracket(std::string_view text, int position) {
  int depth = 0;
  for (int p = position; p <= static_cast<int>(text.size()); ++p) {
    const char c = text[static_cast<std::size_t>(p - 1)];
    if (IsOpen(c)) ++depth;
    if (IsClose(c) && --depth == 0) return p;
  }
  return 0;
}

int BracketNesting(std::string_view text) {
  int depth = 0;
  int deepest = 0;
  for (const char c : text) {
    if (IsOpen(c)) deepest = std::max(deepest, ++depth);
    if (IsClose(c)) --depth;
  }
  return deepest;
}

namespace {

// One scan pairs every bracket, so that nested outer pairs come off in linear time.
std::string StripDeepBrackets(std::string_view text) {
  const std::size_t n = text.size();
  std::vector<std::size_t> partner(n, n);
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < n; ++i) {
    if (IsOpen(text[i])) {
      open.push_back(i);
    } else if (IsClose(text[i]) && !open.empty()) {
      partner[open.back()] = i;
      open.pop_back();
    }
  }
  std::size_t first = 0;
  std::size_t last = n;  // one past the end
  while (last - first >= 2 && IsOpen(text[first]) && partner[first] == last - 1) {
    ++first;
    --last;
  }
  return std::string(text.substr(first, last - first));
}

// Outer pairs peeled one at a time this many, each by a scan of its own; deeper nestings are
// left to the single scan above.
constexpr int kPeeledOneByOne = 4;

}  // namespace

std::string StripBrackets(std::string_view text) {
  std::size_t first = 0;
  std::size_t last = text.size();  // one past the end
  for (int layer = 0; layer < kPeeledOneByOne; ++layer) {
    if (last - first < 2 || !IsOpen(text[first]) ||
        FindCloseBracket(text, static_cast<int>(first) + 1) != static_cast<int>(last)) {
      return std::string(text.substr(first, last - first));
    }
    ++first;
    --last;
  }
  return StripDeepBrackets(text.substr(first, last - first));
}

int FunctionNameAt(const Session& s, std::string_view text, int position) {
  if (position < 1) return 0;
  const auto start = static_cast<std::size_t>(position - 1);
  if (start >= text.size()) return 0;
  const char first = text[start];
  if (!s.FunctionNameStarts[static_cast<unsigned char>(first)]) return 0;
  const std::string_view rest = text.substr(start);
  // The last name that matches is the one read: looked for from the last.
  for (int i = kFunctionCount; i >= 1; --i) {
    const std::string& name = s.FunctionNames[static_cast<std::size_t>(i)];
    // The first letter is compared before the rest is.
    if (!name.empty() && name[0] == first && rest.starts_with(name)) return i;
  }
  return 0;
}

int FunctionEnd(const Session& s, std::string_view text, int position) {
  const int index = FunctionNameAt(s, text, position);
  if (index == 0) return 0;
  const int open = position + s.FunctionNameLengths[static_cast<std::size_t>(index)];
  if (open > static_cast<int>(text.size()) || !IsOpen(text[static_cast<std::size_t>(open - 1)])) {
    return 0;
  }
  return FindCloseBracket(text, open);
}

}  // namespace tavimor
