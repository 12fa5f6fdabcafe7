// The check of what the student typed, refusing bad input with one exact message.
#include "core/validate.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

#include "core/brackets.h"
#include "core/message_box.h"
#include "core/number_format.h"
#include "core/number_text.h"

namespace tavimor {

namespace {

constexpr int kValidationHelp = 2;

// A number in a message: whole when short, else its start and "...".
std::string ShownNumber(const std::string& number) {
  constexpr std::size_t kShown = 30;
  return number.size() <= kShown + 2 ? number : number.substr(0, kShown) + "...";
}

// Why a number of the item cannot be worked with: a decimal point without a digit, a value
// beyond the largest float, or one so small that it would read as 0. Empty when all are good.
std::string NumberProblem(const Session& s, const std::string& item, const std::string& head) {
  const char dp = s.Dp();
  const int n = static_cast<int>(item.size());
  for (int p = 1; p <= n;) {
    const char c = item[static_cast<std::size_t>(p - 1)];
    if (!IsAsciiDigit(c) && c != dp) {
      ++p;
      continue;
    }
    const int end = NumberEnd(s, item, p);
    if (end == 0) {
      return head + "The decimal point  " + std::string(1, dp) + "  has no digit beside it.";
    }
    const std::string number =
        item.substr(static_cast<std::size_t>(p - 1), static_cast<std::size_t>(end - p + 1));
    const std::optional<double> value = ParseNumberText(number, dp);
    if (!value || !std::isfinite(*value)) {
      return head + "The number  " + ShownNumber(number) +
             "  is too large: the largest number the tutor can work with is about 1.8E308.";
    }
    if (*value == 0.0 && number.find_first_of("123456789") < number.find('E')) {
      return head + "The number  " + ShownNumber(number) +
             "  is too small: it would count as 0 (the smallest is about 4.9E-324).";
    }
    p = end + 1;
  }
  return "";
}

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
  return NumberProblem(s, item, head);
}

}  // namespace

void RemoveSpaces(std::string& text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
}

std::string ValidationMessage(Session& s, std::string& text) {
  InitFunctionTable(s);
  RemoveSpaces(text);
  // Checked before anything else, so that a huge paste is refused at once.
  if (text.size() > kMaxInputLength) {
    return "Error in input string.  The input is too long: it has " + std::to_string(text.size()) +
           " characters, and at most " + std::to_string(kMaxInputLength) +
           " fit in the tutor's memory for expressions.";
  }
  const char dp = s.Dp();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!(IsAsciiLetter(c) || IsAsciiDigit(c) || c == dp || OneOf(c, "+-/*^()[]=;"))) {
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
  // The items in one pass: a text of many items is split in linear time.
  std::vector<std::string> items;
  for (std::size_t from = 0;;) {
    const std::size_t at = text.find(';', from);
    items.push_back(text.substr(from, at == std::string::npos ? std::string::npos : at - from));
    if (at == std::string::npos) break;
    from = at + 1;
  }
  for (const std::string& item : items) {
    std::string message = ItemMessage(s, item, items.size() == 1 ? "input string" : item);
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
