// The value of an expression text at given values of its letters, for checks that a rewrite
// keeps the value. It reads the tutor's own trees; it is the tests' own, not the tutor's
// evaluation.
#pragma once

#include <cmath>
#include <map>
#include <string>

#include "core/number_text.h"
#include "core/session.h"
#include "support/tree_value.h"

namespace tavimor {

class NumericValue : public TreeValue<NumericValue, double> {
 public:
  NumericValue(Session& s, std::map<char, double> letters)
      : TreeValue(s), letters_(std::move(letters)) {}

  // Whether a division by zero or 0 to a power of at most 0 was met on the way.
  bool met_undefined = false;

 private:
  friend class TreeValue<NumericValue, double>;

  void Dividing(double v) {
    if (v == 0.0) met_undefined = true;
  }

  double Node(NodeIdx n) {
    const ExprNode& node = s_.Pool[n];
    switch (node.Kind) {
      case kKindNumber: return SafeValue(s_, node.Text);
      case kKindVariable: return letters_.at(node.Text[0]);
      case kKindPower: {
        const NodeIdx e = node.FirstChild;
        const double exponent = Node(e);
        const double base = Node(s_.Pool[e].Next);
        if (base == 0.0 && exponent <= 0.0) met_undefined = true;
        return std::pow(base, exponent);
      }
      case kKindFunction: {
        const double x = Content(n);
        const std::string name = node.Text.substr(0, node.Text.find('('));
        if (name == "sin") return std::sin(x);
        if (name == "cos") return std::cos(x);
        if (name == "tan") return std::tan(x);
        if (name == "cot") return 1.0 / std::tan(x);
        if (name == "sec") return 1.0 / std::cos(x);
        if (name == "csc") return 1.0 / std::sin(x);
        if (name == "arcsin") return std::asin(x);
        if (name == "arccos") return std::acos(x);
        if (name == "arctan") return std::atan(x);
        if (name == "ln") return std::log(x);
        if (name == "log") return std::log10(x);
        if (name == "exp") return std::exp(x);
        if (name == "sqrt") return std::sqrt(x);
        return NAN;
      }
      default: return Content(n);
    }
  }

  std::map<char, double> letters_;
};

}  // namespace tavimor
