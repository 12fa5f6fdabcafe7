// The walk the tests' own evaluations share: a text parsed into a tree of the tutor's, its sums
// and products combined, the tree given back to the pool however the walk ends. The value of a
// leaf, a power or a function is the evaluation's own (real or complex).
#pragma once

#include <string>

#include "core/node_pool.h"
#include "core/parse.h"
#include "core/session.h"

namespace tavimor {

// `Derived` gives `Value Node(NodeIdx)` and `void Dividing(const Value&)` (told of every divisor).
template <typename Derived, typename Value>
class TreeValue {
 public:
  explicit TreeValue(Session& s) : s_(s) {}

  Value Of(const std::string& text) {
    const NodeIdx root = NewNode(s_);
    s_.Pool[root].Text = text;
    try {
      ParseTree(s_, root);
      const Value value = Self().Node(root);
      FreeChildren(s_, root);
      FreeNode(s_, root);
      return value;
    } catch (...) {
      FreeChildren(s_, root);
      FreeNode(s_, root);
      throw;
    }
  }

 protected:
  // The value of a node's content: the sum of its terms, the product of its factors, or its one
  // child.
  Value Content(NodeIdx n) {
    const NodeIdx first = s_.Pool[n].FirstChild;
    const char role = s_.Pool[first].Role;
    if (role == '+' || role == '-' || role == '1') {
      Value sum = 0.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        sum += (s_.Pool[c].Role == '-' ? -1.0 : 1.0) * Self().Node(c);
      }
      return sum;
    }
    if (role == 'N' || role == 'D') {
      Value product = 1.0;
      for (NodeIdx c = first; c != kNoNode; c = s_.Pool[c].Next) {
        const std::string& t = s_.Pool[c].Text;
        Value v;
        if (s_.Pool[c].Kind == kKindNumber && (t == "-" || t == "+")) {
          v = t == "-" ? -1.0 : 1.0;  // a sign standing as a factor
        } else {
          v = Self().Node(c);
        }
        if (s_.Pool[c].Role == 'D') {
          Self().Dividing(v);
          product = product / v;
        } else {
          product = product * v;
        }
      }
      return product;
    }
    return Self().Node(first);
  }

  Session& s_;

 private:
  Derived& Self() { return static_cast<Derived&>(*this); }
};

}  // namespace tavimor
