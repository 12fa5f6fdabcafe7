// The check of what the student typed, refusing bad input with one exact message.
#include "core/validate.h"

#include <algorithm>
#include <string_view>

#include "core/brackets.h"
#include "core/pieces.h"
#include "present/message_box.h"

namespace tavimor {

namespace {

constexpr int kValidationHelp = 2;

bool OneOf(char c, std::string_view set) {
  return c != '\0' && set.find(c) != std::string_view::npos;
}

// The whole character that starts at `at`, so that a refused non-ASCII sign shows whole.
std::string CharacterAt(const std::string& text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  std::size_t length = 1;
  if (lead >= 0xF0) {
    length = 4;
  } else if (lead >= 0xE0) {
    length = 3;
  } else if (lead >= 0xC0) {
    length = 2;
  }
  return text.substr(at, std::min(length, text.size() - at));
}

// The tests of one item, in their order; `name` is "input string" or the item itself.
std::string ItemMessage(const Session& s, const std::string& item, const std::string& name) {
  const std::string head = "Error in " + name + ".  ";
  if (!BracketsMatch(item)) return head + "Unmatched brackets.";
  const auto equals = std::count(item.begin(), item.end(), '=');
  if (equals > 1) return head + "Too many = signs.";
  if (equals == 1) {
    const std::size_t at = item.find('=');
    if (at == 0) return head + "Missing left side.";
    if (at == item.size() - 1) return head + "Missing right side.";
  }
  const int n = static_cast<int>(item.size());
  auto at = [&](int p) {
    return (p >= 1 && p <= n) ? item[static_cast<std::size_t>(p - 1)] : '\0';
  };
  for (int p = 1; p <= n; ++p) {
    const char c = at(p);
    const char next = at(p + 1);
    const char before = at(p - 1);
    if (p == 1 && OneOf(c, "/*^")) {
      return head + "Invalid symbol " + c + " at beginning of expression.";
    }
    if (OneOf(c, "=([") && OneOf(next, "/*^)]")) {
      return head + "Invalid symbol " + next + " at beginning of expression.";
    }
    if (OneOf(c, "=)]") && OneOf(before, "+-/*^([")) {
      return head + "Invalid symbol " + before + " at end of expression.";
    }
    if (p == n && OneOf(c, "+-/*^([")) {
      return head + "Invalid symbol " + c + " at end of expression.";
    }
    if (const int f = FunctionNameAt(s, item, p); f != 0) {
      const std::string& fname = s.FunctionNames[static_cast<std::size_t>(f)];
      if (at(p + static_cast<int>(fname.size())) != '(') {
        return head + "The argument of the " + fname + " function must be enclosed in brackets.";
      }
    }
    if (OneOf(c, "+-/*^") && OneOf(next, "+-/*^")) {
      return head + "An operator (+, -, *, / or ^) is followed by the symbol " + next;
    }
  }
  const char dp = s.Dp();
  for (int p = 1; p <= n;) {
    if (!IsAsciiDigit(at(p)) && at(p) != dp) {
      ++p;
      continue;
    }
    std::string run;
    while (p <= n && (IsAsciiDigit(at(p)) || at(p) == dp)) run += at(p++);
    if (std::count(run.begin(), run.end(), dp) > 1) return head + "A number is given as  " + run;
  }
  return "";
}

}  // namespace

void RemoveSpaces(std::string& text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
}

std::string ValidationMessage(Session& s, std::string& text) {
  InitFunctionTable(s);
  RemoveSpaces(text);
  const char dp = s.Dp();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!(OneOf(c, "+-/*^()[]=;") || c == dp || IsAsciiDigit(c) || IsAsciiLetter(c))) {
      return "Error in input string.  The character  " + CharacterAt(text, i) + "  is not allowed.";
    }
  }
  if (text.find(";;") != std::string::npos) {
    return "Error in input string.  Nothing between  ;  and  ;";
  }
  if (!text.empty() && text.back() == ';') return "Error in input string.  Illegal  ;  at the end.";
  // An empty first item would load as an empty equation of the set.
  if (!text.empty() && text.front() == ';') {
    return "Error in input string.  Illegal  ;  at the beginning.";
  }
  const int items = CountPieces(text, ";");
  for (int i = 1; i <= items; ++i) {
    const std::string item = GetPiece(text, i, ";");
    std::string message = ItemMessage(s, item, items == 1 ? "input string" : item);
    if (!message.empty()) return message;
  }
  return "";
}

int ValidateInput(Session& s, std::string& text) {
  const std::string message = ValidationMessage(s, text);
  if (message.empty()) return 0;
  ShowCustomMessage(s, message, kValidationHelp);
  return -1;
}

}  // namespace tavimor
