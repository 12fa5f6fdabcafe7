// A decimal number as a fraction with a small denominator, when it is one.
#include "manipulate/decimal_to_fraction.h"

#include <cmath>

#include "manipulate/reduce_fraction.h"

namespace tavimor {

namespace {

constexpr double kSmallestNumerator = -32766.0;
constexpr double kLargestNumerator = 32767.0;

bool InSixteenBits(double n) { return n > kSmallestNumerator - 2.0 && n < kLargestNumerator + 1.0; }

// The first d from 2 to 99 for which d*value is whole within the bound; 0 for none.
int WholeMultiple(double value, double& whole) {
  for (int d = 2; d <= 99; ++d) {
    const double m = d * value;
    const double r = std::nearbyint(m);
    if (std::fabs(r - m) < kDecimalFractionBound) {
      whole = r;
      return d;
    }
  }
  return 0;
}

}  // namespace

int DecimalToFraction(double value, double& numerator, double& denominator) {
  if (!std::isfinite(value)) return 0;
  double whole = 0.0;
  int d = WholeMultiple(value, whole);
  if (d != 0) {
    numerator = whole;
    denominator = d;
  } else if (value != 0.0 && (d = WholeMultiple(1.0 / value, whole)) != 0 && whole != 0.0) {
    // value = d / whole
    numerator = whole < 0.0 ? -d : d;
    denominator = std::fabs(whole);
  } else {
    return 0;
  }
  if (numerator >= kLargestNumerator || numerator < kSmallestNumerator) return 2;
  int flag = 0;
  ReduceFraction(numerator, denominator, flag);
  if (flag != 0 || !InSixteenBits(numerator) || !InSixteenBits(denominator)) return 2;
  return 1;
}

}  // namespace tavimor
