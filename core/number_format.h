// The general number format and the scientific patterns ("0.00E-0") that numbers are written in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavimor {

// The decimal digits of a finite value rounded to `figures` significant figures, trailing zeros
// dropped ("12345" for 123.45), and the power of ten of the first digit (2). Zero gives "0", 0.
struct DecimalDigits {
  std::string digits;
  int exponent = 0;
};
DecimalDigits RoundToFigures(double x, int figures);

// The general number format: the shortest text that gives the value back to 15 significant
// figures. Plain notation while the power of ten of the first digit lies from -4 to 14 and no
// more than 15 decimals are needed; else scientific with a signed exponent of at least two
// digits ("1E+15", "3.33333333333333E-02"). The decimal separator is `decimal_point`.
std::string GeneralNumberFormat(double x, char decimal_point);

// The pattern "0." + `decimals` zeros + "E-0" (or "E+0" with `exponent_plus`): the mantissa with
// exactly that many decimals and the exponent without padding ("1.23E3", "5E-10").
std::string ScientificPatternFormat(double x, int decimals, char decimal_point,
                                    bool exponent_plus = false);

// A number text in E notation written out in full, every digit kept: "2.147483646E9" gives
// "2147483646", "-1.5E-3" gives "-0.0015". Any other text comes back as it is, and so does an
// exponent beyond 400, which no finite number needs.
std::string FullNumberText(std::string_view text, char decimal_point);

// Reads a whole text as a number written with `decimal_point`: optional sign, digits with at
// most one separator, optional "E", sign and digits. Nothing if the text is not exactly a number
// or its value is too large for a 64-bit float.
std::optional<double> ParseNumberText(std::string_view text, char decimal_point);

}  // namespace tavimor
