// A number of the system grid: exact fractions through ReduceFraction, floats beyond the
// system's integers.
#include "linsys/grid_number.h"

#include <cmath>
#include <numeric>

#include "core/errors.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "manipulate/reduce_fraction.h"

namespace tavimor {

namespace {

__extension__ typedef __int128 Wide;

Wide AbsWide(Wide x) { return x < 0 ? -x : x; }

Wide GcdWide(Wide a, Wide b) {
  a = AbsWide(a);
  b = AbsWide(b);
  while (b != 0) {
    const Wide r = a % b;
    a = b;
    b = r;
  }
  return a;
}

// The largest part an exact entry keeps: whole numbers to 2^62, so that a sum or product of two
// entries is exact in 128 bits.
constexpr std::int64_t kExactPart = std::int64_t{1} << 62;

// a/b from exact wide parts in lowest terms. Within the system's integers the fraction goes
// through ReduceFraction, as every exact coefficient does; beyond them it stays exact up to
// 2^62, and is a float past that.
GridNumber FromWide(Wide a, Wide b) {
  if (b == 0) throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  if (b < 0) {
    a = -a;
    b = -b;
  }
  const Wide g = GcdWide(a, b);
  if (g > 1) {
    a /= g;
    b /= g;
  }
  if (AbsWide(a) > static_cast<Wide>(kExactPart) || b > static_cast<Wide>(kExactPart)) {
    return GridNumber::Float(static_cast<double>(a) / static_cast<double>(b));
  }
  if (AbsWide(a) > static_cast<Wide>(kIntegerBound) || b > static_cast<Wide>(kIntegerBound)) {
    return GridNumber::Fraction(static_cast<std::int64_t>(a), static_cast<std::int64_t>(b));
  }
  double da = static_cast<double>(a);
  double db = static_cast<double>(b);
  int flag = 0;
  ReduceFraction(da, db, flag);
  if (flag != 0) return GridNumber::Float(da / db);
  return GridNumber::Fraction(static_cast<std::int64_t>(da), static_cast<std::int64_t>(db));
}

}  // namespace

GridNumber GridNumber::Fraction(std::int64_t a, std::int64_t b) {
  if (b == 0) throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  GridNumber n;
  if (b < 0) {
    a = -a;
    b = -b;
  }
  const std::int64_t g = std::gcd(a, b);
  n.num_ = g > 1 ? a / g : a;
  n.den_ = g > 1 ? b / g : b;
  if (std::abs(n.num_) > kExactPart || n.den_ > kExactPart) {
    return Float(static_cast<double>(a) / static_cast<double>(b));
  }
  return n;
}

GridNumber GridNumber::Float(double x) {
  GridNumber n;
  n.exact_ = false;
  n.value_ = x;
  n.num_ = 0;
  n.den_ = 1;
  return n;
}

bool GridNumber::FromText(const Session& s, const std::string& text, GridNumber& out) {
  if (text.empty()) return false;
  const std::size_t slash = text.find('/');
  if (slash != std::string::npos) {
    GridNumber a;
    GridNumber b;
    if (!FromText(s, text.substr(0, slash), a) || !FromText(s, text.substr(slash + 1), b)) {
      return false;
    }
    if (b.IsZero()) return false;
    out = a / b;
    return true;
  }
  std::size_t at = 0;
  bool negative = false;
  if (text[at] == '-' || text[at] == '+') negative = text[at++] == '-';
  // Digits, one decimal point, an optional exponent: read exactly when the parts allow.
  Wide mantissa = 0;
  int decimals = 0;
  int digits = 0;
  bool point = false;
  bool too_long = false;
  bool seen_digit = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c >= '0' && c <= '9') {
      seen_digit = true;
      if (digits < 19) {  // 10^19 by 10^18 stays within 128 bits
        mantissa = mantissa * 10 + (c - '0');
        if (mantissa != 0) ++digits;
        if (point) ++decimals;
      } else {
        too_long = true;
      }
    } else if ((c == '.' || c == ',') && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (!seen_digit) return false;
  int exponent = 0;
  if (at < text.size()) {
    if (text[at] != 'E' && text[at] != 'e') return false;
    ++at;
    bool exp_negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) exp_negative = text[at++] == '-';
    if (at == text.size()) return false;
    for (; at < text.size(); ++at) {
      if (text[at] < '0' || text[at] > '9') return false;
      exponent = std::min(exponent * 10 + (text[at] - '0'), 9999);
    }
    if (exp_negative) exponent = -exponent;
  }
  const int shift = exponent - decimals;
  if (!too_long && shift >= -18 && shift <= 18) {
    Wide a = mantissa;
    Wide b = 1;
    for (int k = 0; k < std::abs(shift); ++k) (shift > 0 ? a : b) *= 10;
    out = FromWide(negative ? -a : a, b);
    return true;
  }
  const double x = SafeValue(s, text);
  if (!std::isfinite(x)) return false;
  out = Float(x);
  return true;
}

double GridNumber::Value() const {
  return exact_ ? static_cast<double>(num_) / static_cast<double>(den_) : value_;
}

GridNumber GridNumber::operator-() const {
  if (!exact_) return Float(-value_);
  GridNumber n = *this;
  n.num_ = -num_;
  return n;
}

GridNumber operator+(const GridNumber& a, const GridNumber& b) {
  if (!a.exact_ || !b.exact_) return GridNumber::Float(a.Value() + b.Value());
  return FromWide(static_cast<Wide>(a.num_) * b.den_ + static_cast<Wide>(b.num_) * a.den_,
                  static_cast<Wide>(a.den_) * b.den_);
}

GridNumber operator-(const GridNumber& a, const GridNumber& b) { return a + (-b); }

GridNumber operator*(const GridNumber& a, const GridNumber& b) {
  if (!a.exact_ || !b.exact_) return GridNumber::Float(a.Value() * b.Value());
  return FromWide(static_cast<Wide>(a.num_) * b.num_, static_cast<Wide>(a.den_) * b.den_);
}

GridNumber operator/(const GridNumber& a, const GridNumber& b) {
  if (b.IsZero()) throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  if (!a.exact_ || !b.exact_) return GridNumber::Float(a.Value() / b.Value());
  return FromWide(static_cast<Wide>(a.num_) * b.den_, static_cast<Wide>(a.den_) * b.num_);
}

bool operator==(const GridNumber& a, const GridNumber& b) {
  if (a.exact_ && b.exact_) return a.num_ == b.num_ && a.den_ == b.den_;
  return a.Value() == b.Value();
}

std::string GridNumber::Text(const Session& s) const {
  if (!exact_) return GeneralNumberFormat(value_, s.Dp());
  std::string text = std::to_string(num_);
  if (den_ != 1) text += "/" + std::to_string(den_);
  return text;
}

std::string GridNumber::SigFigsText(const Session& s, int figures) const {
  if (exact_ && den_ == 1) return std::to_string(std::abs(num_));
  return FormatSigFigs(s, std::fabs(Value()), figures);
}

}  // namespace tavimor
