// The complex value of an expression text at given values of its letters, the letter of the
// imaginary unit (and sqrt(-1)) read as i. The tests' own evaluation, kept apart from the tutor's.
#pragma once

#include <cmath>
#include <complex>
#include <map>
#include <string>

#include "core/number_text.h"
#include "core/session.h"
#include "support/tree_value.h"

namespace tavimor {

class ComplexValue : public TreeValue<ComplexValue, std::complex<double>> {
 public:
  using Value = std::complex<double>;

  ComplexValue(Session& s, char unit, std::map<char, double> letters)
      : TreeValue(s), unit_(unit), letters_(std::move(letters)) {}

 private:
  friend class TreeValue<ComplexValue, Value>;

  void Dividing(const Value&) {}

  Value Node(NodeIdx n) {
    const ExprNode& node = s_.Pool[n];
    switch (node.Kind) {
      case kKindNumber: return SafeValue(s_, node.Text);
      case kKindVariable:
        if (node.Text[0] == unit_) return Value(0.0, 1.0);
        return letters_.at(node.Text[0]);
      case kKindPower: {
        const NodeIdx e = node.FirstChild;
        const Value exponent = Node(e);
        const Value base = Node(s_.Pool[e].Next);
        if (exponent.imag() == 0.0 && exponent.real() == std::nearbyint(exponent.real())) {
          Value result = 1.0;
          for (int k = 0; k < std::abs(static_cast<int>(exponent.real())); ++k) result *= base;
          return exponent.real() < 0.0 ? 1.0 / result : result;
        }
        return std::pow(base, exponent);
      }
      case kKindFunction: {
        const Value x = Content(n);
        const std::string name = node.Text.substr(0, node.Text.find('('));
        if (name == "sin") return std::sin(x);
        if (name == "cos") return std::cos(x);
        if (name == "tan") return std::tan(x);
        if (name == "ln") return std::log(x);
        if (name == "exp") return std::exp(x);
        if (name == "sqrt") return std::sqrt(x);
        return Value(NAN, NAN);
      }
      default: return Content(n);
    }
  }

  char unit_;
  std::map<char, double> letters_;
};

}  // namespace tavimor
