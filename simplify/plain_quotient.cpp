// Quotients of whole numbers and of one letter's powers, simplified without the rewrite loop.
#include "simplify/plain_quotient.h"

#include <cstdint>
#include <string_view>

#include "core/evaluate.h"
#include "core/expr_node.h"
#include "simplify/plain_arithmetic.h"

namespace tavimor {

namespace {

// One side: sign * number * letter^power (no letter: power 0).
struct Monomial {
  std::int64_t number = 1;
  char letter = '\0';
  int power = 0;
};

// "-12*x^3", "(x)", "7": the side read, or nothing.
std::optional<Monomial> ReadMonomial(const Session& s, std::string_view text) {
  if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
    text = text.substr(1, text.size() - 2);
  }
  Monomial m;
  bool minus = false;
  if (!text.empty() && text[0] == '-') {
    minus = true;
    text.remove_prefix(1);
  }
  std::size_t digits = 0;
  while (digits < text.size() && IsAsciiDigit(text[digits])) ++digits;
  if (digits > 0) {
    const std::optional<std::int64_t> number = PlainWholeNumber(text.substr(0, digits));
    if (!number) return std::nullopt;
    m.number = *number;
    text.remove_prefix(digits);
    if (text.empty()) {
      if (minus) m.number = -m.number;
      return m;
    }
    if (text[0] != '*' || m.number == 0) return std::nullopt;
    text.remove_prefix(1);
  }
  if (text.empty() || !IsAsciiLetter(text[0]) || IsConstantVar(s, text[0])) return std::nullopt;
  m.letter = text[0];
  m.power = 1;
  text.remove_prefix(1);
  if (!text.empty()) {
    if (text.size() != 2 || text[0] != '^' || text[1] < '2' || text[1] > '9') return std::nullopt;
    m.power = text[1] - '0';
  }
  if (minus) m.number = -m.number;
  return m;
}

}  // namespace

std::optional<std::string> PlainQuotient(const Session& s, const std::string& text) {
  // The one division, at the top level: no other bracket than those around a side.
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos || text.find('/', slash + 1) != std::string::npos) {
    return std::nullopt;
  }
  const std::string_view whole(text);
  const std::optional<Monomial> up = ReadMonomial(s, whole.substr(0, slash));
  if (!up) return std::nullopt;
  // Without brackets the denominator is one factor: "x/-2" is not x over -2, nor "x/2*x" x over
  // 2*x.
  const std::string_view below = whole.substr(slash + 1);
  if (below.empty() || below[0] == '-' || (below[0] != '(' && below.find('*') != below.npos)) {
    return std::nullopt;
  }
  const std::optional<Monomial> down = ReadMonomial(s, below);
  if (!down || down->number == 0) return std::nullopt;
  if (up->letter != '\0' && down->letter != '\0' && up->letter != down->letter) {
    return std::nullopt;
  }
  const int power = up->power - down->power;
  if (power < 0) return std::nullopt;
  std::int64_t p = up->number;
  std::int64_t q = down->number;
  ToLowestTerms(p, q);
  if (power == 0) {
    if (q != 1 && s.ExactToFloat) return std::nullopt;
    return LowestTermsText(p, q);
  }
  if (q != 1) return std::nullopt;
  std::string term(1, up->letter);
  if (power > 1) term += "^" + std::to_string(power);
  if (p == 1) return term;
  if (p == -1) return "-" + term;
  return std::to_string(p) + "*" + term;
}

}  // namespace tavimor
