// A number of the system grid: an exact fraction in lowest terms (through ReduceFraction within
// the system's integers, exact to 2^62 beyond them), a 64-bit float past that.
#pragma once

#include <cstdint>
#include <string>

#include "core/session.h"

namespace tavimor {

class GridNumber {
 public:
  GridNumber() = default;
  // A whole number.
  GridNumber(std::int64_t whole) : num_(whole) {}  // NOLINT: numbers convert freely
  // The fraction a/b in lowest terms, or its float when a part is beyond 2^62.
  static GridNumber Fraction(std::int64_t a, std::int64_t b);
  static GridNumber Float(double x);
  // A number text of the tutor ("3", "-2.5", "1.5E-03", "2/3", "-1/4"); nothing usable gives
  // false. A decimal is read exactly: 0.1 is 1/10.
  static bool FromText(const Session& s, const std::string& text, GridNumber& out);

  bool Exact() const { return exact_; }
  std::int64_t Numerator() const { return num_; }
  std::int64_t Denominator() const { return den_; }
  double Value() const;
  bool IsZero() const { return exact_ ? num_ == 0 : value_ == 0.0; }
  bool IsOne() const { return exact_ ? num_ == 1 && den_ == 1 : value_ == 1.0; }
  bool Negative() const { return exact_ ? num_ < 0 : value_ < 0.0; }

  GridNumber operator-() const;
  friend GridNumber operator+(const GridNumber& a, const GridNumber& b);
  friend GridNumber operator-(const GridNumber& a, const GridNumber& b);
  friend GridNumber operator*(const GridNumber& a, const GridNumber& b);
  // Division by zero raises the run-time error of the platform's division by zero.
  friend GridNumber operator/(const GridNumber& a, const GridNumber& b);
  friend bool operator==(const GridNumber& a, const GridNumber& b);

  // The number as the tutor writes it: "3", "-2/3", or the general number format of a float.
  std::string Text(const Session& s) const;
  // Its size at `figures` significant figures, as the grid shows it.
  std::string SigFigsText(const Session& s, int figures) const;

 private:
  bool exact_ = true;
  std::int64_t num_ = 0;
  std::int64_t den_ = 1;
  double value_ = 0.0;
};

}  // namespace tavimor
