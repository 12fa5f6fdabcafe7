// Products and whole powers of sums in one letter with whole coefficients, multiplied out without
// the rewrite loop.
#include "manipulate/plain_expansion.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/evaluate.h"
#include "core/expr_node.h"
#include "simplify/plain_arithmetic.h"

namespace tavimor {

namespace {

// Below 1E9 a whole number is written with all its digits, and the product of two is exact.
constexpr std::int64_t kBound = 1'000'000'000;
constexpr int kMostDegree = 12;
constexpr int kMostExponent = 6;

// A polynomial in the letter: the coefficient of each power, the constant first.
struct Polynomial {
  std::array<std::int64_t, kMostDegree + 1> c{};
};

// A factor as read: its polynomial, and whether it was a bracketed sum of two or more terms.
struct Factor {
  Polynomial value;
  bool bracketed_sum = false;
};

bool WithinBound(const Polynomial& p) {
  for (const std::int64_t c : p.c) {
    if (std::llabs(c) >= kBound) return false;
  }
  return true;
}

// The product, or nothing past the bounds of degree and size.
std::optional<Polynomial> Times(const Polynomial& a, const Polynomial& b) {
  Polynomial product;
  for (int i = 0; i <= kMostDegree; ++i) {
    if (a.c[static_cast<std::size_t>(i)] == 0) continue;
    for (int j = 0; j <= kMostDegree; ++j) {
      const std::int64_t bj = b.c[static_cast<std::size_t>(j)];
      if (bj == 0) continue;
      if (i + j > kMostDegree) return std::nullopt;
      const std::int64_t term = a.c[static_cast<std::size_t>(i)] * bj;
      if (std::llabs(term) >= kBound) return std::nullopt;
      product.c[static_cast<std::size_t>(i + j)] += term;
    }
  }
  if (!WithinBound(product)) return std::nullopt;
  return product;
}

class Reader {
 public:
  Reader(const Session& s, std::string_view text) : s_(s), text_(text) {}

  // The polynomial of the whole text when something in it is multiplied out; else nothing.
  std::optional<Polynomial> Whole() {
    std::optional<Polynomial> value = Sum(nullptr);
    if (!value || at_ != text_.size() || !expands_) return std::nullopt;
    return value;
  }

  // The letter read; set once Whole has found a polynomial.
  char Letter() const { return letter_; }

 private:
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  // sum := ["+" | "-"] term {("+" | "-") term}; `terms` counts them.
  std::optional<Polynomial> Sum(int* terms) {
    Polynomial total;
    int count = 0;
    bool first = true;
    while (first || Peek() == '+' || Peek() == '-') {
      bool minus = false;
      if (Peek() == '+' || Peek() == '-') {
        minus = Peek() == '-';
        ++at_;
      }
      first = false;
      std::optional<Polynomial> term = Term();
      if (!term) return std::nullopt;
      for (std::size_t i = 0; i <= kMostDegree; ++i) total.c[i] += minus ? -term->c[i] : term->c[i];
      if (!WithinBound(total)) return std::nullopt;
      ++count;
    }
    if (terms != nullptr) *terms = count;
    return total;
  }

  // term := power {"*" power}; a bracketed sum among two or more factors is multiplied out.
  std::optional<Polynomial> Term() {
    std::optional<Factor> first = Power();
    if (!first) return std::nullopt;
    Polynomial value = first->value;
    bool sum_among = first->bracketed_sum;
    int factors = 1;
    while (Peek() == '*') {
      ++at_;
      const std::optional<Factor> next = Power();
      if (!next) return std::nullopt;
      const std::optional<Polynomial> product = Times(value, next->value);
      if (!product) return std::nullopt;
      value = *product;
      sum_among = sum_among || next->bracketed_sum;
      ++factors;
    }
    // A bracketed sum that stands alone is not multiplied out: it is left to the loop.
    if (sum_among && factors == 1) return std::nullopt;
    expands_ = expands_ || sum_among;
    return value;
  }

  // power := primary ["^" digit]; a bracketed sum to a power of 2 or more is multiplied out, and
  // the power is one factor.
  std::optional<Factor> Power() {
    std::optional<Factor> base = Primary();
    if (!base || Peek() != '^') return base;
    ++at_;
    const char digit = Peek();
    if (!IsAsciiDigit(digit) || digit - '0' > kMostExponent || digit == '0' || digit == '1') {
      return std::nullopt;
    }
    ++at_;
    if (IsAsciiDigit(Peek()) || Peek() == '^') return std::nullopt;
    Polynomial value;
    value.c[0] = 1;
    for (int i = 0; i < digit - '0'; ++i) {
      const std::optional<Polynomial> product = Times(value, base->value);
      if (!product) return std::nullopt;
      value = *product;
    }
    if (base->bracketed_sum) expands_ = true;
    return Factor{value, false};
  }

  // primary := whole number | the letter | "(" sum of two or more terms ")"
  std::optional<Factor> Primary() {
    const char c = Peek();
    if (c == '(') {
      ++at_;
      int terms = 0;
      const std::optional<Polynomial> value = Sum(&terms);
      if (!value || Peek() != ')' || terms < 2) return std::nullopt;
      ++at_;
      return Factor{*value, true};
    }
    if (IsAsciiLetter(c)) {
      if (letter_ == '\0') {
        if (IsConstantVar(s_, c)) return std::nullopt;
        letter_ = c;
      } else if (c != letter_) {
        return std::nullopt;
      }
      ++at_;
      if (IsAsciiLetter(Peek())) return std::nullopt;  // a function's name, or two letters
      Factor x;
      x.value.c[1] = 1;
      return x;
    }
    const std::size_t start = at_;
    while (IsAsciiDigit(Peek())) ++at_;
    const std::optional<std::int64_t> value = PlainWholeNumber(text_.substr(start, at_ - start));
    if (!value) return std::nullopt;
    Factor number;
    number.value.c[0] = *value;
    return number;
  }

  const Session& s_;
  std::string_view text_;
  std::size_t at_ = 0;
  char letter_ = '\0';
  bool expands_ = false;  // something was multiplied out
};

}  // namespace

std::optional<std::string> PlainExpansion(const Session& s, const std::string& text) {
  // In floating point the loop writes its numbers its own way; there it does the work.
  if (s.ExactToFloat) return std::nullopt;
  Reader reader(s, text);
  const std::optional<Polynomial> value = reader.Whole();
  if (!value) return std::nullopt;
  std::string out;
  for (int power = kMostDegree; power >= 0; --power) {
    const std::int64_t c = value->c[static_cast<std::size_t>(power)];
    if (c == 0) continue;
    if (c < 0) {
      out += '-';
    } else if (!out.empty()) {
      out += '+';
    }
    const std::int64_t size = std::llabs(c);
    if (power == 0 || size != 1) out += std::to_string(size);
    if (power == 0) continue;
    if (size != 1) out += '*';
    out += reader.Letter();
    if (power > 1) {
      out += '^';
      out += std::to_string(power);
    }
  }
  return out.empty() ? std::string("0") : out;
}

}  // namespace tavimor
