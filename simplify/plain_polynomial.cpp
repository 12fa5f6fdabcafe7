// Sums of terms in one letter with whole or fractional coefficients, collected or multiplied out
// without the rewrite loop.
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
// The highest power held: a collection goes to the fourth, an expansion to the twelfth.
constexpr std::size_t kCollectDegree = 4;
constexpr std::size_t kExpandDegree = 12;

// What the reader does with a bracketed sum of two or more terms: a collection leaves it to the
// loop unless it stands alone as a term (the loop keeps 5*(x-2) as it stands), an expansion
// multiplies it out wherever it is multiplied or raised to a power (and takes no quotients).
enum class Reading { Collect, Expand };

// The highest whole exponent written.
int MostExponent(Reading reading) { return reading == Reading::Collect ? 9 : 6; }

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

// A polynomial in the letter with N coefficients (up to the power N - 1), the constant first.
template <std::size_t N>
using Polynomial = std::array<Ratio, N>;

template <std::size_t N>
std::optional<Polynomial<N>> Plus(const Polynomial<N>& a, const Polynomial<N>& b, bool subtract) {
  Polynomial<N> sum;
  for (std::size_t i = 0; i < N; ++i) {
    const std::optional<Ratio> r = Added(a[i], b[i], subtract);
    if (!r) return std::nullopt;
    sum[i] = *r;
  }
  return sum;
}

// The product; nothing past the bounds of size and of the highest power.
template <std::size_t N>
std::optional<Polynomial<N>> Times(const Polynomial<N>& a, const Polynomial<N>& b) {
  Polynomial<N> product;
  for (std::size_t i = 0; i < N; ++i) {
    if (a[i].p == 0) continue;
    for (std::size_t j = 0; j < N; ++j) {
      if (b[j].p == 0) continue;
      if (i + j >= N) return std::nullopt;
      const std::optional<Ratio> term = Made(a[i].p * b[j].p, a[i].q * b[j].q);
      if (!term) return std::nullopt;
      const std::optional<Ratio> r = Added(product[i + j], *term, false);
      if (!r) return std::nullopt;
      product[i + j] = *r;
    }
  }
  return product;
}

template <std::size_t N>
bool IsNumber(const Polynomial<N>& a) {
  for (std::size_t i = 1; i < N; ++i) {
    if (a[i].p != 0) return false;
  }
  return true;
}

template <std::size_t N>
bool IsZero(const Polynomial<N>& a) {
  for (const Ratio& c : a) {
    if (c.p != 0) return false;
  }
  return true;
}

// The power of the one term of a monomial; -1 for none or for two or more terms.
template <std::size_t N>
int MonomialPower(const Polynomial<N>& a) {
  int power = -1;
  for (std::size_t i = 0; i < N; ++i) {
    if (a[i].p == 0) continue;
    if (power >= 0) return -1;
    power = static_cast<int>(i);
  }
  return power;
}

// The quotient of a monomial by a monomial of no higher power (a number other than 0 included);
// nothing for any other pair.
template <std::size_t N>
std::optional<Polynomial<N>> Over(const Polynomial<N>& a, const Polynomial<N>& b) {
  Polynomial<N> quotient;
  if (IsNumber(b)) {
    if (b[0].p == 0) return std::nullopt;
    for (std::size_t i = 0; i < N; ++i) {
      if (a[i].p == 0) continue;
      const std::optional<Ratio> r = Made(a[i].p * b[0].q, a[i].q * b[0].p);
      if (!r) return std::nullopt;
      quotient[i] = *r;
    }
    return quotient;
  }
  const int top = MonomialPower(a);
  const int bottom = MonomialPower(b);
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
template <std::size_t N>
struct Factor {
  Polynomial<N> value;
  bool bracketed_sum = false;
};

template <std::size_t N>
class Reader {
 public:
  using Poly = Polynomial<N>;
  using Part = Factor<N>;

  Reader(const Session& s, std::string_view text, Reading reading)
      : s_(s), text_(text), reading_(reading) {}

  // The polynomial of the whole text, when it holds the letter (and for an expansion, when
  // something in it is multiplied out); else nothing.
  std::optional<Poly> Whole() {
    const std::optional<Poly> value = Sum(nullptr);
    if (!value || at_ != text_.size() || letter_ == '\0') return std::nullopt;
    if (reading_ == Reading::Expand && !expands_) return std::nullopt;
    return value;
  }

  char Letter() const { return letter_; }

 private:
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  // sum := ["+" | "-"] term {("+" | "-") term}; `sum_inside` tells whether it is a sum of two
  // or more terms, or one term that is a bracketed sum.
  std::optional<Poly> Sum(bool* sum_inside, int* terms = nullptr) {
    Poly total;
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
      const std::optional<Poly> term = Term(bracketed_sum);
      if (!term) return std::nullopt;
      // A minus before a bracketed sum is multiplied in only where the options distribute it.
      if (minus && bracketed_sum && !s_.DistributeMinus) return std::nullopt;
      const std::optional<Poly> sum = Plus(total, *term, minus);
      if (!sum) return std::nullopt;
      total = *sum;
      sole_bracketed_sum = bracketed_sum;
      ++count;
    }
    if (sum_inside != nullptr) *sum_inside = count >= 2 || sole_bracketed_sum;
    if (terms != nullptr) *terms = count;
    return total;
  }

  // term := power {("*" | "/") power}. In a collection a bracketed sum stands alone and a divisor
  // is a number other than 0 or a monomial whose power the term so far has at least (x^3/x is
  // x^2); in an expansion a bracketed sum among two or more factors is multiplied out, and there
  // is no divisor.
  std::optional<Poly> Term(bool& bracketed_sum) {
    std::optional<Part> first = Power();
    if (!first) return std::nullopt;
    Poly value = first->value;
    bracketed_sum = first->bracketed_sum;
    bool sum_among = bracketed_sum;
    while (Peek() == '*' || Peek() == '/') {
      const bool divide = Peek() == '/';
      ++at_;
      const bool collect = reading_ == Reading::Collect;
      if ((collect && bracketed_sum) || (!collect && divide)) return std::nullopt;
      const std::optional<Part> next = Power();
      if (!next || (collect && next->bracketed_sum)) return std::nullopt;
      // In floating point the loop writes a quotient as a decimal.
      if (divide && s_.ExactToFloat) return std::nullopt;
      const std::optional<Poly> result =
          divide ? Over(value, next->value) : Times(value, next->value);
      if (!result) return std::nullopt;
      value = *result;
      sum_among = sum_among || next->bracketed_sum;
      bracketed_sum = false;
    }
    if (reading_ == Reading::Expand) {
      // A bracketed sum that stands alone is not multiplied out: it is left to the loop.
      if (bracketed_sum) return std::nullopt;
      expands_ = expands_ || sum_among;
    }
    return value;
  }

  // power := primary ["^" digit from 2], of the letter only in a collection (a power of a
  // number in a denominator is written with a negative exponent under some options); in an
  // expansion a bracketed sum to a power is multiplied out, and the power is one factor.
  std::optional<Part> Power() {
    const bool letter = IsAsciiLetter(Peek());
    std::optional<Part> base = Primary();
    if (!base || Peek() != '^') return base;
    ++at_;
    const char digit = Peek();
    if ((reading_ == Reading::Collect && !letter) || !IsAsciiDigit(digit) || digit < '2' ||
        digit - '0' > MostExponent(reading_)) {
      return std::nullopt;
    }
    ++at_;
    if (IsAsciiDigit(Peek()) || Peek() == '^') return std::nullopt;
    Poly value;
    value[0] = Ratio{1, 1};
    for (int i = 0; i < digit - '0'; ++i) {
      const std::optional<Poly> product = Times(value, base->value);
      if (!product) return std::nullopt;
      value = *product;
    }
    if (base->bracketed_sum) expands_ = true;
    return Part{value, false};
  }

  // primary := whole number | the letter | "(" sum ")"
  std::optional<Part> Primary() {
    const char c = Peek();
    if (c == '(') {
      ++at_;
      bool sum_inside = false;
      int terms = 0;
      const std::optional<Poly> value = Sum(&sum_inside, &terms);
      if (!value || Peek() != ')') return std::nullopt;
      ++at_;
      // In a collection a sum that comes to one term (2*x-x) is that term; an expansion takes
      // only brackets around two or more terms as written.
      if (reading_ == Reading::Expand) {
        if (terms < 2) return std::nullopt;
        return Part{*value, true};
      }
      return Part{*value, sum_inside && MonomialPower(*value) < 0 && !IsZero(*value)};
    }
    Part factor;
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
  Reading reading_;
  std::size_t at_ = 0;
  char letter_ = '\0';
  bool expands_ = false;  // something was multiplied out
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

// The polynomial written as the loop writes it: the terms in falling powers, each coefficient in
// lowest terms before its power ("x^2-5*x+25/4", "1/4*x", "-x+10", "0").
template <std::size_t N>
std::string Written(const Polynomial<N>& value, char letter) {
  std::string out;
  for (int power = static_cast<int>(N) - 1; power >= 0; --power) {
    const Ratio c = value[static_cast<std::size_t>(power)];
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
    out += letter;
    if (power > 1) {
      out += '^';
      out += std::to_string(power);
    }
  }
  return out.empty() ? std::string("0") : out;
}

template <std::size_t N>
std::optional<std::string> Read(const Session& s, const std::string& text, Reading reading) {
  if (!MayBePlain(text)) return std::nullopt;
  Reader<N> reader(s, text, reading);
  const std::optional<Polynomial<N>> value = reader.Whole();
  if (!value) return std::nullopt;
  return Written(*value, reader.Letter());
}

}  // namespace

std::optional<std::string> PlainPolynomial(const Session& s, const std::string& text) {
  return Read<kCollectDegree + 1>(s, text, Reading::Collect);
}

std::optional<std::string> PlainExpansion(const Session& s, const std::string& text) {
  // In floating point the loop writes its numbers its own way; there it does the work.
  if (s.ExactToFloat) return std::nullopt;
  return Read<kExpandDegree + 1>(s, text, Reading::Expand);
}

}  // namespace tavimor
