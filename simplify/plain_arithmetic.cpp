// Sums, products, quotients and whole powers of whole numbers, worked out without the rewrite
// loop.
#include "simplify/plain_arithmetic.h"

#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <string_view>

#include "core/expr_node.h"
#include "simplify/coefficients.h"

namespace tavimor {

namespace {

// Below 1E9 a whole number is written with all its digits, and the product of two is exact.
constexpr std::int64_t kBound = 1'000'000'000;
constexpr std::size_t kMostDigits = 9;
constexpr int kMostExponent = 9;
constexpr std::int64_t kFinestBinaryFraction = 1024;

// p/q in lowest terms, q > 0.
struct Fraction {
  std::int64_t p = 0;
  std::int64_t q = 1;
};

class Reader {
 public:
  Reader(std::string_view text, bool floating) : text_(text), floating_(floating) {}

  // The value of the whole text, or nothing.
  std::optional<Fraction> Whole() {
    const std::optional<Fraction> value = Sum();
    if (!value || at_ != text_.size()) return std::nullopt;
    if (floating_ && value->q != 1) return std::nullopt;  // a decimal is written by the loop
    return value;
  }

 private:
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  // Lowest terms within the bound.
  std::optional<Fraction> Made(std::int64_t p, std::int64_t q) const {
    if (q == 0) return std::nullopt;
    ToLowestTerms(p, q);
    if (std::llabs(p) >= kBound || q >= kBound) return std::nullopt;
    // In floating point a half, a quarter, ... down to 1/1024 is held exactly, each step's
    // value written in full: the order of the steps cannot change the answer.
    if (floating_ && (q > kFinestBinaryFraction || (q & (q - 1)) != 0)) return std::nullopt;
    return Fraction{p, q};
  }

  // sum := ["+" | "-"] term {("+" | "-") term}
  std::optional<Fraction> Sum() {
    bool minus = false;
    if (Peek() == '-' || Peek() == '+') {
      minus = Peek() == '-';
      ++at_;
    }
    std::optional<Fraction> value = Term();
    if (!value) return std::nullopt;
    if (minus) {
      if (value->p == 0) return std::nullopt;  // "-0" is kept as written
      value->p = -value->p;
    }
    while (Peek() == '+' || Peek() == '-') {
      const bool subtract = Peek() == '-';
      ++at_;
      const std::optional<Fraction> next = Term();
      if (!next) return std::nullopt;
      const std::int64_t p = next->p * value->q;
      value = Made(value->p * next->q + (subtract ? -p : p), value->q * next->q);
      if (!value) return std::nullopt;
    }
    return value;
  }

  // term := power {("*" | "/") power}
  std::optional<Fraction> Term() {
    std::optional<Fraction> value = Power();
    while (value && (Peek() == '*' || Peek() == '/')) {
      const bool divide = Peek() == '/';
      ++at_;
      const std::optional<Fraction> next = Power();
      if (!next) return std::nullopt;
      value = divide ? Made(value->p * next->q, value->q * next->p)
                     : Made(value->p * next->p, value->q * next->q);
    }
    return value;
  }

  // power := primary ["^" digit]
  std::optional<Fraction> Power() {
    const std::optional<Fraction> base = Primary();
    if (!base || Peek() != '^') return base;
    ++at_;
    const char digit = Peek();
    if (!IsAsciiDigit(digit) || digit - '0' > kMostExponent) return std::nullopt;
    ++at_;
    if (IsAsciiDigit(Peek()) || Peek() == '^') return std::nullopt;
    const int exponent = digit - '0';
    if (exponent == 0 && base->p == 0) return std::nullopt;
    std::optional<Fraction> value = Fraction{1, 1};
    for (int i = 0; i < exponent && value; ++i) {
      value = Made(value->p * base->p, value->q * base->q);
    }
    return value;
  }

  // primary := whole number | "(" sum ")"
  std::optional<Fraction> Primary() {
    if (Peek() == '(') {
      ++at_;
      const std::optional<Fraction> value = Sum();
      if (!value || Peek() != ')') return std::nullopt;
      ++at_;
      return value;
    }
    const std::size_t start = at_;
    while (IsAsciiDigit(Peek())) ++at_;
    const std::optional<std::int64_t> value = PlainWholeNumber(text_.substr(start, at_ - start));
    if (!value) return std::nullopt;
    return Fraction{*value, 1};
  }

  std::string_view text_;
  bool floating_;
  std::size_t at_ = 0;
};

// In floating point, "p/q" or "-p/q" of whole numbers that do not divide: one division, written
// as the loop writes a number ("77/4" is 19.25).
std::optional<std::string> FloatingQuotient(const Session& s, std::string_view text) {
  if (!s.ExactToFloat) return std::nullopt;
  const bool minus = !text.empty() && text[0] == '-';
  if (minus) text.remove_prefix(1);
  const std::size_t bar = text.find('/');
  if (bar == std::string_view::npos) return std::nullopt;
  const std::optional<std::int64_t> p = PlainWholeNumber(text.substr(0, bar));
  const std::optional<std::int64_t> q = PlainWholeNumber(text.substr(bar + 1));
  if (!p || !q || *p == 0 || *q == 0 || *p % *q == 0) return std::nullopt;
  const double value = static_cast<double>(*p) / static_cast<double>(*q);
  return FormatValue(s, minus ? -value : value);
}

}  // namespace

std::optional<std::string> PlainArithmetic(const Session& s, const std::string& text) {
  if (std::optional<std::string> quotient = FloatingQuotient(s, text)) return quotient;
  const std::optional<Fraction> value = Reader(text, s.ExactToFloat).Whole();
  if (!value) return std::nullopt;
  return LowestTermsText(value->p, value->q);
}

std::optional<std::int64_t> PlainWholeNumber(std::string_view digits) {
  if (digits.empty() || digits.size() > kMostDigits || (digits[0] == '0' && digits.size() > 1)) {
    return std::nullopt;
  }
  std::int64_t value = 0;
  for (const char c : digits) {
    if (!IsAsciiDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

void ToLowestTerms(std::int64_t& p, std::int64_t& q) {
  if (q < 0) {
    p = -p;
    q = -q;
  }
  const std::int64_t g = std::gcd(p, q);
  if (g > 1) {
    p /= g;
    q /= g;
  }
}

std::string LowestTermsText(std::int64_t p, std::int64_t q) {
  if (q == 1) return std::to_string(p);
  return std::to_string(p) + "/" + std::to_string(q);
}

}  // namespace tavimor
