// Numbers as text: the recogniser, the exact/floating test, and the forms results are written in.
#include "core/number_text.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/message_box.h"
#include "core/number_format.h"

namespace tavimor {

namespace {

// The character at a 1-based position, with an "x" behind the end so a scan never runs off.
char CharAt(std::string_view text, int position) {
  if (position >= 1 && position <= static_cast<int>(text.size())) {
    return text[static_cast<std::size_t>(position - 1)];
  }
  return 'x';
}

std::string SignOf(std::string_view text) {
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) return std::string(1, text[0]);
  return "";
}

// The shared body of NormaliseNumberText and ScientificNumberText. With `whole_range` false,
// numbers from 1E-9 to below 1E9 keep their plain form.
std::string NormaliseForm(const Session& s, std::string_view text, bool whole_range) {
  const std::optional<double> value = ParseNumberText(text, s.Dp());
  if (!value) return "";
  if (!std::isfinite(*value)) return "";
  std::string form = GeneralNumberFormat(std::fabs(*value), s.Dp());
  // The range is tested on the value as written to 15 figures, so that normalising a normal
  // text gives it back: 999999999.9999995 is written 1000000000, which is 1E9.
  const double x = ParseNumberText(form, s.Dp()).value_or(0.0);
  // "E+" -> "E"
  if (const std::size_t e = form.find("E+"); e != std::string::npos) form.erase(e + 1, 1);
  if (!whole_range && (x == 0.0 || (x >= 1e-9 && x < 1e9))) return SignOf(text) + form;
  if (x == 0.0) return SignOf(text) + "0E0";
  if (form.find('E') == std::string::npos) {
    // The significant digits and the power of ten of the first, read off the same 15-figure
    // rounding as the general form, so the value never changes.
    const DecimalDigits d = RoundToFigures(x, 15);
    std::string digits = d.digits;
    TrimZeros(digits);
    if (digits.empty()) digits = "0";
    form = digits.substr(0, 1);
    if (digits.size() > 1) form += s.DecimalPoint + digits.substr(1);
    form += "E" + std::to_string(d.exponent);
  }
  return SignOf(text) + form;
}

}  // namespace

int NumberEnd(const Session& s, std::string_view text, int position) {
  const char dp = s.Dp();
  if (position < 1 || position > static_cast<int>(text.size())) return 0;
  int p = position;
  char c = CharAt(text, p);
  if (c == '+' || c == '-') c = CharAt(text, ++p);
  bool point = false;
  int digits = 0;
  if (c == dp) {
    point = true;
  } else if (IsAsciiDigit(c)) {
    ++digits;
  } else {
    return 0;
  }
  for (;;) {
    c = CharAt(text, ++p);
    if (c == dp) {
      if (point) break;
      point = true;
    } else if (c == 'E') {
      if (digits == 0) return 0;
      int q = p + 1;
      if (CharAt(text, q) == '+' || CharAt(text, q) == '-') ++q;
      if (!IsAsciiDigit(CharAt(text, q))) return p - 1;  // the "E" is not part of the number
      while (IsAsciiDigit(CharAt(text, q + 1))) ++q;
      return q;
    } else if (IsAsciiDigit(c)) {
      ++digits;
    } else {
      break;
    }
  }
  return digits > 0 ? p - 1 : 0;
}

bool IsIntegerText(const Session& s, std::string_view text) {
  if (text.empty() || NumberEnd(s, text, 1) != static_cast<int>(text.size())) return false;
  const std::optional<double> value = ParseNumberText(text, s.Dp());
  if (!value || !(std::fabs(*value) < kIntegerBound)) return false;
  return *value == std::nearbyint(*value);
}

bool IsIntegerNode(const Session& s, NodeIdx n) {
  return s.Pool[n].Kind == kKindNumber && IsIntegerText(s, s.Pool[n].Text);
}

bool IsDecimalIntegerText(const Session& s, std::string_view text) {
  return IsIntegerText(s, text) && text.find(s.Dp()) != std::string_view::npos;
}

bool IsPositiveIntegerText(const Session& s, std::string_view text) {
  return IsIntegerText(s, text) && SafeValue(s, text) > 0.0;
}

double SafeValue(const Session& s, std::string_view text) {
  return ParseNumberText(text, s.Dp()).value_or(0.0);
}

float SafeValue32(const Session& s, std::string_view text) {
  const double value = SafeValue(s, text);
  if (std::fabs(value) > 3.4028234663852886e38) return 0.0f;  // beyond a 32-bit float
  return static_cast<float>(value);
}

void NormaliseNumbers(Session& s, NodeIdx n) {
  ExprNode& node = s.Pool[n];
  if (node.Kind == kKindNumber && node.Text != "-" && node.Text != "+") {
    std::string normal = NormaliseNumberText(s, node.Text);
    // A text that cannot be read as a float keeps its own form rather than becoming empty.
    if (!normal.empty()) node.Text = std::move(normal);
  }
  WalkGuard guard;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    guard.Step();
    NormaliseNumbers(s, c);
  }
}

std::string NormaliseNumberText(const Session& s, std::string_view text) {
  // A whole number below 1E9 written without a sign or a leading zero is its own normal form.
  if (!text.empty() && text.size() <= 9 && (text[0] != '0' || text.size() == 1) &&
      std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    return std::string(text);
  }
  return NormaliseForm(s, text, false);
}

std::string ScientificNumberText(const Session& s, std::string_view text) {
  return NormaliseForm(s, text, true);
}

std::string FormatSigFigs(const Session& s, double x, int figures) {
  if (figures < 1) figures = 1;
  const std::string scientific = ScientificPatternFormat(x, figures - 1, s.Dp());
  const double size = std::fabs(x);
  if (size <= 1e-9 || size >= 1e9) return scientific;
  return GeneralNumberFormat(ParseNumberText(scientific, s.Dp()).value_or(0.0), s.Dp());
}

std::string FormatResult(Session& s, std::string_view text) {
  if (text == "-" || text == "+") return std::string(text);
  if (text.empty()) {
    ShowCustomMessage(s, "Empty string in MTFormat function", 0);
    return "";
  }
  const std::optional<double> value = ParseNumberText(text, s.Dp());
  if (!value) return "";
  const std::string sign = SignOf(text);
  const double x = std::fabs(*value);
  if (x < kIntegerBound) {
    const double n = std::nearbyint(x);
    if (x == n || (std::fabs(x - n) < 1e-8 && n != 0.0)) {
      return sign + std::to_string(static_cast<std::int64_t>(n));
    }
  }
  std::string form = FormatSigFigs(s, x, s.SigFigs);
  if (const std::size_t e = form.find('E'); e != std::string::npos) {
    const double mantissa = ParseNumberText(form.substr(0, e), s.Dp()).value_or(0.0);
    form = GeneralNumberFormat(mantissa, s.Dp()) + form.substr(e);
  }
  return sign + form;
}

std::string PadSigFigs(const Session& s, int figures, std::string_view text) {
  const double value = SafeValue(s, text);
  if (value == 0.0) return "0";
  std::string mantissa(text);
  std::string exponent_part;
  if (const std::size_t e = mantissa.find('E'); e != std::string::npos) {
    exponent_part = mantissa.substr(e);
    mantissa.erase(e);
  }
  std::string t = FormatSigFigs(s, SafeValue(s, mantissa), figures);
  // A scientific form keeps its own exponent behind the figures.
  std::string t_exponent;
  if (const std::size_t e = t.find('E'); e != std::string::npos) {
    t_exponent = t.substr(e);
    t.erase(e);
  }
  int count = 0;
  bool started = false;
  for (const char c : t) {
    if (!started && c >= '1' && c <= '9') started = true;
    if (started && IsAsciiDigit(c)) ++count;
  }
  if (count < figures) {
    if (t.find(s.Dp()) == std::string::npos) t += s.DecimalPoint;
    t.append(static_cast<std::size_t>(figures - count), '0');
  }
  return t + t_exponent + exponent_part;
}

void TrimZeros(std::string& text) {
  while (!text.empty() && text.back() == '0') text.pop_back();
}

std::vector<std::int64_t> PrimeFactors(std::int64_t number) {
  std::int64_t value = number < 0 ? -number : number;
  if (value <= 3) return {number};
  std::vector<std::int64_t> factors;
  for (;;) {
    const auto limit = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value))) + 1;
    std::int64_t found = 0;
    for (std::int64_t d = 2; d <= limit && d < value; ++d) {
      if (value % d == 0) {
        found = d;
        break;
      }
    }
    if (found == 0) {
      factors.push_back(value);
      break;
    }
    factors.push_back(found);
    value /= found;
  }
  if (number < 0) factors.front() = -factors.front();
  return factors;
}

}  // namespace tavimor
