// The complex value of an expression text at given values of its letters, the letter of the
// imaginary unit (and sqrt(-1)) read as i. The tests' own evaluation, kept apart from the tutor's.
#pragma once

#include <cmath>
#include <complex>
#include <map>
#include <string>

#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/session.h"

namespace tavimor {

class ComplexValue {
 public:
  using Value = std::complex<double>;

  ComplexValue(Session& s, char unit, std::map<char, double> letters)
      : s_(s), unit_(unit), letters_(std::move(letters)) {}

  Value Of(const std::string& text) {
    const NodeIdx root = NewNode(s_);
    s_.Pool[root].Text = text;
    Value value(NAN, NAN);
    try {
      ParseTree(s_, root);
      value = Node(root);
    } catch (...) {
      FreeChildren(s_, root);
      FreeNode(s_, root);
      throw;
    }
    FreeChildren(s_, root);
    FreeNode(s_, root);
    return value;
  }

 private:
  Value Content(NodeIdx n) {
    const NodeIdx first = s_.Pool[n].FirstChild;
    const char role = s_.Pool[first].Role;
    if (role == '+' || role == '-' || role == '1') {
      Value sum = 0.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        sum += (s_.Pool[c].Role == '-' ? -1.0 : 1.0) * Node(c);
      }
      return sum;
    }
    if (role == 'N' || role == 'D') {
      Value product = 1.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        const std::string& t = s_.Pool[c].Text;
        Value v;
        if (s_.Pool[c].Kind == kKindNumber && (t == "-" || t == "+")) {
          v = t == "-" ? -1.0 : 1.0;
        } else {
          v = Node(c);
        }
        product = s_.Pool[c].Role == 'D' ? product / v : product * v;
      }
      return product;
    }
    return Node(first);
  }

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

  Session& s_;
  char unit_;
  std::map<char, double> letters_;
};

}  // namespace tavimor
