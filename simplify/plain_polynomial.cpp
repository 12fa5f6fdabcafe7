// Sums of terms in one letter with whole or fractional coefficients, collected without the
// rewrite loop.
#include "simplify/plain_polynomial.h"

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
constexpr int kMostDegree = 4;

// p/q in lowest terms, q > 0.
struct Ratio {
  std::int64_t p = 0;
  std::int64_t q = 1;
};

std::optional<Ratio> Made(std::int64_t p, std::int64_t q) {
  if (q == 0) return std::nullopt;
  if (p == 0) return Ratio{0, 1};
  if (q != 1) ToLowestTerms(p, q);
  if (std::llabs(p) >= kBound || q >= kBound) return std::nullopt;
  return Ratio{p, q};
}

// a + b (or a - b), or nothing past the bound.
std::optional<Ratio> Added(const Ratio& a, const Ratio& b, bool subtract) {
  if (b.p == 0) return a;
  const std::int64_t bp = subtract ? -b.p : b.p;
  if (a.p == 0) return Ratio{bp, b.q};
  if (a.q == 1 && b.q == 1) return Made(a.p + bp, 1);
  return Made(a.p * b.q + bp * a.q, a.q * b.q);
}

// A polynomial in the letter: the coefficient of each power, the constant first.
using Polynomial = std::array<Ratio, kMostDegree + 1>;

std::optional<Polynomial> Plus(const Polynomial& a, const Polynomial& b, bool subtract) {
  Polynomial sum;
  for (std::size_t i = 0; i <= kMostDegree; ++i) {
    const std::optional<Ratio> r = Added(a[i], b[i], subtract);
    if (!r) return std::nullopt;
    sum[i] = *r;
  }
  return sum;
}

// The product, or the quotient by a number; nothing past the bounds.
std::optional<Polynomial> Times(const Polynomial& a, const Polynomial& b) {
  Polynomial product;
  for (std::size_t i = 0; i <= kMostDegree; ++i) {
    if (a[i].p == 0) continue;
    for (std::size_t j = 0; j <= kMostDegree; ++j) {
      if (b[j].p == 0) continue;
      if (i + j > kMostDegree) return std::nullopt;
      const std::optional<Ratio> term = Made(a[i].p * b[j].p, a[i].q * b[j].q);
      if (!term) return std::nullopt;
      const std::optional<Ratio> r = Added(product[i + j], *term, false);
      if (!r) return std::nullopt;
      product[i + j] = *r;
    }
  }
  return product;
}

bool IsNumber(const Polynomial& a) {
  for (std::size_t i = 1; i <= kMostDegree; ++i) {
    if (a[i].p != 0) return false;
  }
  return true;
}

bool IsZero(const Polynomial& a) {
  for (const Ratio& c : a) {
    if (c.p != 0) return false;
  }
  return true;
}

// The power of the one term of a monomial; -1 for none or for two or more terms.
int MonomialPower(const Polynomial& a) {
  int power = -1;
  for (std::size_t i = 0; i <= kMostDegree; ++i) {
    if (a[i].p == 0) continue;
    if (power >= 0) return -1;
    power = static_cast<int>(i);
  }
  return power;
}

// The quotient of a monomial by a monomial of no higher power (a number other than 0 included);
// nothing for any other pair.
std::optional<Polynomial> Over(const Polynomial& a, const Polynomial& b) {
  const int top = MonomialPower(a);
  const int bottom = MonomialPower(b);
  Polynomial quotient;
  if (IsNumber(b)) {
    if (b[0].p == 0) return std::nullopt;
    for (std::size_t i = 0; i <= kMostDegree; ++i) {
      if (a[i].p == 0) continue;
      const std::optional<Ratio> r = Made(a[i].p * b[0].q, a[i].q * b[0].p);
      if (!r) return std::nullopt;
      quotient[i] = *r;
    }
    return quotient;
  }
  if (top < bottom || bottom < 1) return std::nullopt;
  const Ratio& up = a[static_cast<std::size_t>(top)];
  const Ratio& down = b[static_cast<std::size_t>(bottom)];
  const std::optional<Ratio> r = Made(up.p * down.q, up.q * down.p);
  if (!r) return std::nullopt;
  quotient[static_cast<std::size_t>(top - bottom)] = *r;
  return quotient;
}

// A factor as read: its polynomial, and whether it was a bracketed sum of two or more terms (in
// brackets of its own or not).
struct Factor {
  Polynomial value;
  bool bracketed_sum = false;
};

class Reader {
 public:
  Reader(const Session& s, std::string_view text) : s_(s), text_(text) {}

  // The polynomial of the whole text, when it holds the letter; else nothing.
  std::optional<Polynomial> Whole() {
    const std::optional<Polynomial> value = Sum(nullptr);
    if (!value || at_ != text_.size() || letter_ == '\0') return std::nullopt;
    return value;
  }

  char Letter() const { return letter_; }

 private:
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  // sum := ["+" | "-"] term {("+" | "-") term}; `sum_inside` tells whether it is a sum of two
  // or more terms, or one term that is a bracketed sum.
  std::optional<Polynomial> Sum(bool* sum_inside) {
    Polynomial total;
    int count = 0;
    bool sole_bracketed_sum = false;
    bool first = true;
    while (first || Peek() == '+' || Peek() == '-') {
      bool minus = false;
      if (Peek() == '+' || Peek() == '-') {
        minus = Peek() == '-';
        ++at_;
      }
      first = false;
      bool bracketed_sum = false;
      const std::optional<Polynomial> term = Term(bracketed_sum);
      if (!term) return std::nullopt;
      // A minus before a bracketed sum is multiplied in only where the options distribute it.
      if (minus && bracketed_sum && !s_.DistributeMinus) return std::nullopt;
      const std::optional<Polynomial> sum = Plus(total, *term, minus);
      if (!sum) return std::nullopt;
      total = *sum;
      sole_bracketed_sum = bracketed_sum;
      ++count;
    }
    if (sum_inside != nullptr) *sum_inside = count >= 2 || sole_bracketed_sum;
    return total;
  }

  // term := power {("*" | "/") power}, where a bracketed sum stands alone and a divisor is a
  // number other than 0, or a monomial whose power the term so far has at least (x^3/x is x^2).
  std::optional<Polynomial> Term(bool& bracketed_sum) {
    std::optional<Factor> first = Power();
    if (!first) return std::nullopt;
    Polynomial value = first->value;
    bracketed_sum = first->bracketed_sum;
    while (Peek() == '*' || Peek() == '/') {
      const bool divide = Peek() == '/';
      ++at_;
      if (bracketed_sum) return std::nullopt;
      const std::optional<Factor> next = Power();
      if (!next || next->bracketed_sum) return std::nullopt;
      // In floating point the loop writes a quotient as a decimal.
      if (divide && s_.ExactToFloat) return std::nullopt;
      const std::optional<Polynomial> result =
          divide ? Over(value, next->value) : Times(value, next->value);
      if (!result) return std::nullopt;
      value = *result;
    }
    return value;
  }

  // power := primary ["^" digit from 2 to 9], of the letter only (a power of a number in a
  // denominator is written with a negative exponent under some options).
  std::optional<Factor> Power() {
    const bool letter = IsAsciiLetter(Peek());
    std::optional<Factor> base = Primary();
    if (!base || Peek() != '^') return base;
    ++at_;
    const char digit = Peek();
    if (!letter || !IsAsciiDigit(digit) || digit < '2') return std::nullopt;
    ++at_;
    if (IsAsciiDigit(Peek()) || Peek() == '^') return std::nullopt;
    Polynomial value;
    value[0] = Ratio{1, 1};
    for (int i = 0; i < digit - '0'; ++i) {
      const std::optional<Polynomial> product = Times(value, base->value);
      if (!product) return std::nullopt;
      value = *product;
    }
    return Factor{value, false};
  }

  // primary := whole number | the letter | "(" sum ")"
  std::optional<Factor> Primary() {
    const char c = Peek();
    if (c == '(') {
      ++at_;
      bool sum_inside = false;
      const std::optional<Polynomial> value = Sum(&sum_inside);
      if (!value || Peek() != ')') return std::nullopt;
      ++at_;
      // A sum that comes to one term (2*x-x) is that term.
      return Factor{*value, sum_inside && MonomialPower(*value) < 0 && !IsZero(*value)};
    }
    Factor factor;
    if (IsAsciiLetter(c)) {
      if (letter_ == '\0') {
        if (IsConstantVar(s_, c)) return std::nullopt;
        letter_ = c;
      } else if (c != letter_) {
        return std::nullopt;
      }
      ++at_;
      if (IsAsciiLetter(Peek()) || Peek() == '(') return std::nullopt;  // a function's name
      factor.value[1] = Ratio{1, 1};
      return factor;
    }
    const std::size_t start = at_;
    while (IsAsciiDigit(Peek())) ++at_;
    const std::optional<std::int64_t> value = PlainWholeNumber(text_.substr(start, at_ - start));
    if (!value) return std::nullopt;
    factor.value[0] = Ratio{*value, 1};
    return factor;
  }

  const Session& s_;
  std::string_view text_;
  std::size_t at_ = 0;
  char letter_ = '\0';
};

// Whether a character may stand in a text the reader takes: a quick look that turns away texts
// with functions, decimals and the like before any reading.
bool MayBePlain(std::string_view text) {
  char before = '\0';
  for (const char c : text) {
    const bool letter = IsAsciiLetter(c);
    if (!letter && !IsAsciiDigit(c) && c != '+' && c != '-' && c != '*' && c != '/' && c != '^' &&
        c != '(' && c != ')') {
      return false;
    }
    if (IsAsciiLetter(before) && (letter || c == '(')) return false;  // a function's name
    before = c;
  }
  return true;
}

}  // namespace

std::optional<std::string> PlainPolynomial(const Session& s, const std::string& text) {
  if (!MayBePlain(text)) return std::nullopt;
  Reader reader(s, text);
  const std::optional<Polynomial> value = reader.Whole();
  if (!value) return std::nullopt;
  std::string out;
  for (int power = kMostDegree; power >= 0; --power) {
    const Ratio c = (*value)[static_cast<std::size_t>(power)];
    if (c.p == 0) continue;
    if (c.p < 0) {
      out += '-';
    } else if (!out.empty()) {
      out += '+';
    }
    const bool one = std::llabs(c.p) == 1 && c.q == 1;
    if (power == 0 || !one) out += LowestTermsText(std::llabs(c.p), c.q);
    if (power == 0) continue;
    if (!one) out += '*';
    out += reader.Letter();
    if (power > 1) {
      out += '^';
      out += static_cast<char>('0' + power);
    }
  }
  return out.empty() ? std::string("0") : out;
}

}  // namespace tavimor
