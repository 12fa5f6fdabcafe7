// The general number format and the scientific patterns ("0.00E-0") that numbers are written in.
#include "core/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "core/errors.h"

namespace tavimor {

namespace {

constexpr int kGeneralFigures = 15;

void RequireFinite(double x) {
  if (!std::isfinite(x)) throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
}

std::string ExponentText(int exponent, bool always_sign, int min_digits) {
  std::string digits = std::to_string(std::abs(exponent));
  while (static_cast<int>(digits.size()) < min_digits) digits.insert(0, "0");
  if (exponent < 0) return "-" + digits;
  return always_sign ? "+" + digits : digits;
}

}  // namespace

DecimalDigits RoundToFigures(double x, int figures) {
  RequireFinite(x);
  if (x == 0.0) return {"0", 0};
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(x),
                                    std::chars_format::scientific, figures - 1);
  // d.ddddde+XX, read in place.
  const char* e_at = std::find(buffer, result.ptr, 'e');
  DecimalDigits out;
  out.digits.reserve(static_cast<std::size_t>(e_at - buffer));
  for (const char* c = buffer; c != e_at; ++c) {
    if (*c != '.') out.digits += *c;
  }
  const char* exponent = e_at + 1;
  if (exponent != result.ptr && *exponent == '+') ++exponent;
  std::from_chars(exponent, result.ptr, out.exponent);
  while (out.digits.size() > 1 && out.digits.back() == '0') out.digits.pop_back();
  return out;
}

std::string FullNumberText(std::string_view text, char decimal_point) {
  const std::size_t e = text.find('E');
  if (e == std::string_view::npos || !ParseNumberText(text, decimal_point))
    return std::string(text);
  std::string_view mantissa = text.substr(0, e);
  std::string sign;
  if (!mantissa.empty() && (mantissa[0] == '-' || mantissa[0] == '+')) {
    if (mantissa[0] == '-') sign = "-";
    mantissa.remove_prefix(1);
  }
  const int exponent = std::atoi(std::string(text.substr(e + 1)).c_str());
  if (exponent > 400 || exponent < -400) return std::string(text);
  // The digits, and where the decimal point stands among them once the exponent has moved it.
  std::string digits;
  int point = -1;
  for (const char c : mantissa) {
    if (c == decimal_point) {
      point = static_cast<int>(digits.size());
    } else {
      digits += c;
    }
  }
  if (point < 0) point = static_cast<int>(digits.size());
  point += exponent;
  if (point <= 0) {
    digits.insert(0, static_cast<std::size_t>(1 - point), '0');
    point = 1;
  }
  if (point > static_cast<int>(digits.size())) {
    digits.append(static_cast<std::size_t>(point) - digits.size(), '0');
  }
  std::string whole = digits.substr(0, static_cast<std::size_t>(point));
  std::string fraction = digits.substr(static_cast<std::size_t>(point));
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  if (whole == "0" && fraction.empty()) sign.clear();
  return sign + whole + (fraction.empty() ? "" : decimal_point + fraction);
}

std::string GeneralNumberFormat(double x, char decimal_point) {
  const DecimalDigits d = RoundToFigures(x, kGeneralFigures);
  if (d.digits == "0") return "0";
  const int n = static_cast<int>(d.digits.size());
  const int k = d.exponent;
  const int decimals = std::max(0, n - 1 - k);
  std::string s;
  s.reserve(static_cast<std::size_t>(n) + 24);
  if (x < 0.0) s += '-';
  if (k >= 15 || k < -4 || decimals > kGeneralFigures) {
    s += d.digits[0];
    if (n > 1) {
      s += decimal_point;
      s.append(d.digits, 1);
    }
    s += 'E';
    s += ExponentText(k, true, 2);
  } else if (k >= 0) {
    if (n <= k + 1) {
      s += d.digits;
      s.append(static_cast<std::size_t>(k + 1 - n), '0');
    } else {
      s.append(d.digits, 0, static_cast<std::size_t>(k + 1));
      s += decimal_point;
      s.append(d.digits, static_cast<std::size_t>(k + 1));
    }
  } else {
    s += '0';
    s += decimal_point;
    s.append(static_cast<std::size_t>(-k - 1), '0');
    s += d.digits;
  }
  return s;
}

std::string ScientificPatternFormat(double x, int decimals, char decimal_point,
                                    bool exponent_plus) {
  RequireFinite(x);
  char buffer[64];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, x, std::chars_format::scientific, decimals);
  const std::string text(buffer, result.ptr);
  const std::size_t e_at = text.find('e');
  std::string mantissa = text.substr(0, e_at);
  if (const std::size_t dot = mantissa.find('.'); dot != std::string::npos) {
    mantissa[dot] = decimal_point;
  }
  return mantissa + "E" + ExponentText(std::atoi(text.c_str() + e_at + 1), exponent_plus, 1);
}

namespace {

// Characters appended to a buffer known to be long enough.
struct PlainBuffer {
  char* begin;
  char* end;
  PlainBuffer& operator+=(char c) {
    *end++ = c;
    return *this;
  }
};

}  // namespace

std::optional<double> ParseNumberText(std::string_view text, char decimal_point) {
  // Shape check: [+-] digits/point (at least one digit, at most one point) [E [+-] digits]
  std::size_t i = 0;
  const std::size_t n = text.size();
  // The plain form is never longer than the text: short texts are read on the stack, so that
  // reading a number allocates nothing.
  std::array<char, 64> stack{};
  std::string heap;
  if (n > stack.size()) heap.resize(n);
  char* const start = n > stack.size() ? heap.data() : stack.data();
  PlainBuffer plain{start, start};
  if (i < n && (text[i] == '+' || text[i] == '-')) {
    if (text[i] == '-') plain += '-';
    ++i;
  }
  int digits = 0;
  bool point = false;
  for (; i < n; ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      ++digits;
      plain += c;
    } else if (c == decimal_point && !point) {
      point = true;
      plain += '.';
    } else {
      break;
    }
  }
  if (digits == 0) return std::nullopt;
  bool negative_exponent = false;
  if (i < n && text[i] == 'E') {
    plain += 'e';
    ++i;
    if (i < n && (text[i] == '+' || text[i] == '-')) {
      negative_exponent = text[i] == '-';
      plain += text[i];
      ++i;
    }
    int exponent_digits = 0;
    for (; i < n && text[i] >= '0' && text[i] <= '9'; ++i) {
      plain += text[i];
      ++exponent_digits;
    }
    if (exponent_digits == 0) return std::nullopt;
  }
  if (i != n) return std::nullopt;
  double value = 0.0;
  const auto result = std::from_chars(plain.begin, plain.end, value);
  if (result.ec == std::errc::result_out_of_range) {
    if (negative_exponent) return 0.0;  // below the smallest float: zero
    return std::nullopt;
  }
  if (result.ec != std::errc{} || result.ptr != plain.end) return std::nullopt;
  return value;
}

}  // namespace tavimor
