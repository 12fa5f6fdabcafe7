// A parsed equation side evaluated at many points, its letters bound afresh for each; the
// student's variable table is kept and put back.
#pragma once

#include <cmath>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include "core/evaluate.h"
#include "core/scoped_override.h"
#include "core/session.h"
#include "core/temp_tree.h"

namespace tavimor {

// The value of a point with no real value.
inline constexpr float kUndefinedValue = 1.2345E+35f;

class CurveTree {
 public:
  CurveTree(Session& s, const std::string& expression)
      : s_(s),
        keep_names_(s.VarNames),
        keep_values_(s.VarValues),
        keep_count_(s.VarCount),
        tree_(s, expression, TempTree::Depth::Whole) {}

  void Bind(char letter, double value) { SetVarValue(s_, letter, NodeValue{value}); }

  // The value with the letters as bound, or kUndefinedValue where there is none (a pole, a root
  // of a negative number, a logarithm of zero or less, a value beyond a 32-bit float).
  float Value() {
    try {
      EvaluateAll(s_, tree_.Root());
      const double result = ValueAsNumber(s_, s_.Pool[tree_.Root()].Value);
      const auto single = static_cast<float>(result);
      if (!std::isfinite(single)) return kUndefinedValue;
      return single;
    } catch (const std::exception&) {
      return kUndefinedValue;
    }
  }

  // The value with one letter bound to `value`.
  float At(char letter, double value) {
    Bind(letter, value);
    return Value();
  }

 private:
  Session& s_;
  ScopedOverride<std::vector<char>> keep_names_;
  ScopedOverride<std::vector<NodeValue>> keep_values_;
  ScopedOverride<std::int16_t> keep_count_;
  TempTree tree_;
};

}  // namespace tavimor
