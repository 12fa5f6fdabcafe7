// Numeric coefficients of terms: reading them exactly and writing a coefficient with its texts.
#include "simplify/coefficients.h"

#include <algorithm>
#include <cmath>

#include "core/number_format.h"
#include "core/number_text.h"

namespace tavimor {

double SnapToInteger(const Session& s, const std::string& text) {
  const std::optional<double> value = ParseNumberText(text, s.Dp());
  if (!value) return 0.0;
  if (std::fabs(*value) > 32768.0) return *value;
  // A small number is no rounding noise around 0: 1E-12 stays 1E-12.
  const double nearest = std::nearbyint(*value);
  return std::fabs(*value - nearest) < 1e-10 && nearest != 0.0 ? nearest : *value;
}

std::string FormatValue(const Session& s, double value) {
  // A whole number below 1E9 is written as its digits: the general form, without the work.
  if (std::fabs(value) < 1e9 && value == std::nearbyint(value)) {
    return std::to_string(static_cast<long long>(value));
  }
  // A whole number of up to 15 digits keeps them all in the general form, which writes it from
  // 1E9 on as its digits without trailing zeros and a power of ten (4444400000 is 4.4444E9).
  if (std::fabs(value) < 1e15 && value == std::nearbyint(value)) {
    std::string digits = std::to_string(static_cast<long long>(std::fabs(value)));
    const std::size_t exponent = digits.size() - 1;
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    std::string text = value < 0.0 ? "-" : "";
    text += digits.front();
    if (digits.size() > 1) text += s.DecimalPoint + digits.substr(1);
    return text + "E" + std::to_string(exponent);
  }
  // Below 1E9 and without a power of ten the general form is its own normal form (its 15 figures
  // read back as the same 15 figures): it is not read back and written again.
  std::string general = GeneralNumberFormat(value, s.Dp());
  if (general.find('E') == std::string::npos) {
    const std::size_t start = general[0] == '-' ? 1 : 0;
    const std::size_t point = std::min(general.find(s.Dp()), general.size());
    if (point - start <= 9) return general;
  }
  const std::string text = NormaliseNumberText(s, general);
  return text.empty() ? general : text;
}

std::string FormatCoefficient(const Session& s, double a, double b, const std::string& numerator,
                              const std::string& denominator) {
  std::string text = a < 0.0 ? "-" : "";
  const std::size_t sign = text.size();
  // A coefficient of one before a numerator is not written (nor worked out).
  if (std::fabs(a) != 1.0 || b != 1.0 || numerator.empty()) {
    text += FormatValue(s, std::fabs(a));
    if (b != 1.0) text.append("/").append(FormatValue(s, b));
  }
  if (!numerator.empty()) {
    if (text.size() > sign) text += '*';
    text += numerator;
  }
  if (!denominator.empty()) text.append("/").append(denominator);
  return text;
}

}  // namespace tavimor
