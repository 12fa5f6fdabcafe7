// The value of an expression text at given values of its letters, for checks that a rewrite
// keeps the value. It reads the tutor's own trees; it is the tests' own, not the tutor's
// evaluation.
#pragma once

#include <cmath>
#include <map>
#include <string>

#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/session.h"

namespace tavimor {

class NumericValue {
 public:
  NumericValue(Session& s, std::map<char, double> letters) : s_(s), letters_(std::move(letters)) {}

  // Whether a division by zero or 0 to a power of at most 0 was met on the way.
  bool met_undefined = false;

  double Of(const std::string& text) {
    const NodeIdx root = NewNode(s_);
    s_.Pool[root].Text = text;
    double value = NAN;
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
  double Content(NodeIdx n) {
    const NodeIdx first = s_.Pool[n].FirstChild;
    const char role = s_.Pool[first].Role;
    if (role == '+' || role == '-' || role == '1') {
      double sum = 0.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        sum += (s_.Pool[c].Role == '-' ? -1.0 : 1.0) * Node(c);
      }
      return sum;
    }
    if (role == 'N' || role == 'D') {
      double product = 1.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        const std::string& t = s_.Pool[c].Text;
        double v = 0.0;
        if (s_.Pool[c].Kind == kKindNumber && t == "-") {
          v = -1.0;
        } else if (s_.Pool[c].Kind == kKindNumber && t == "+") {
          v = 1.0;
        } else {
          v = Node(c);
        }
        if (s_.Pool[c].Role == 'D' && v == 0.0) met_undefined = true;
        product = s_.Pool[c].Role == 'D' ? product / v : product * v;
      }
      return product;
    }
    return Node(first);
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

  Session& s_;
  std::map<char, double> letters_;
};

}  // namespace tavimor
