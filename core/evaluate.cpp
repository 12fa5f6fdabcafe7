// Floating values of trees: the variable table, the letters of an expression, and the
// bottom-up evaluation that leaves each node's value in place for the next point.
#include "core/evaluate.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/number_format.h"
#include "core/tree_walk.h"

namespace tavimor {

namespace {

constexpr double kHalfPi = 1.5707963267948966;

// The text of a constant in the decimal form of the options, or empty.
std::string_view ConstantText(const Session& s, char letter) {
  const bool comma = s.Dp() == ',';
  if (letter == 'e' && s.SpecialE) return comma ? "2,71828182845905" : "2.71828182845905";
  if (letter == 'p' && s.SpecialP) return comma ? "3,14159265358979" : "3.14159265358979";
  if (letter == 'd' && s.SpecialD && !s.Degrees) {
    return comma ? "1,74532925199433E-02" : "1.74532925199433E-02";
  }
  return {};
}

bool IsImaginaryLetter(const Session& s, char letter) {
  return (letter == 'i' && s.ComplexForm == 1) || (letter == 'j' && s.ComplexForm == 2);
}

// Texts are written into the room a text value already has.
void AssignText(NodeValue& value, std::string_view text) {
  if (auto* held = std::get_if<std::string>(&value)) {
    held->assign(text);
  } else {
    value = std::string(text);
  }
}

void AssignValue(NodeValue& value, const NodeValue& from) {
  if (const auto* text = std::get_if<std::string>(&from)) {
    AssignText(value, *text);
  } else {
    value = from;
  }
}

void LoadLeaf(Session& s, ExprNode& node) {
  if (node.Kind == kKindNumber) {
    if (node.Text == "+") {
      node.Value = std::int32_t{1};
    } else if (node.Text == "-") {
      node.Value = std::int32_t{-1};
    } else {
      AssignText(node.Value, node.Text);
    }
    return;
  }
  if (node.Kind != kKindVariable || node.Text.empty()) return;
  const char letter = node.Text[0];
  const std::string_view constant = ConstantText(s, letter);
  if (!constant.empty()) {
    AssignText(node.Value, constant);
    return;
  }
  if (IsImaginaryLetter(s, letter)) {
    node.Value = std::monostate{};
    return;
  }
  for (std::int16_t k = 0; k < s.VarCount; ++k) {
    if (s.VarNames[static_cast<std::size_t>(k)] == letter) {
      AssignValue(node.Value, s.VarValues[static_cast<std::size_t>(k)]);
      return;
    }
  }
  node.Value = std::monostate{};
}

[[noreturn]] void Domain(const char* what) {
  throw RunTimeError(RunTimeErrorNumber::InvalidCall, what);
}

double Checked(double value) {
  if (std::isnan(value)) Domain("Invalid procedure call or argument");
  if (std::isinf(value)) throw RunTimeError(RunTimeErrorNumber::Overflow, "Overflow");
  return value;
}

// arcsin through the arctangent, with the ends of its domain exact.
double ArcSin(double a) {
  if (a == 1.0) return kHalfPi;
  if (a == -1.0) return -kHalfPi;
  const double rest = 1.0 - a * a;
  if (rest < 0.0) Domain("Invalid procedure call or argument");
  return std::atan(a / std::sqrt(rest));
}

double ApplyFunction(const Session& s, std::string_view name, double a) {
  const double in = s.Degrees ? a * kDegreeFactor : a;       // the angle of a trig function
  const double out = s.Degrees ? 1.0 / kDegreeFactor : 1.0;  // an angle that comes out
  if (name == "sin") return std::sin(in);
  if (name == "cos") return std::cos(in);
  if (name == "tan") return std::tan(in);
  if (name == "cot") return 1.0 / std::tan(in);
  if (name == "sec") return 1.0 / std::cos(in);
  if (name == "csc") return 1.0 / std::sin(in);
  if (name == "arcsin") return ArcSin(a) * out;
  if (name == "arccos") return (kHalfPi - ArcSin(a)) * out;
  if (name == "arctan") return std::atan(a) * out;
  if (name == "exp") return std::exp(a);
  if (name == "sqrt") {
    if (a < 0.0) throw RootOfNegativeError();
    return std::sqrt(a);
  }
  if (name == "ln" || name == "log") {
    if (a <= 0.0) Domain("Invalid procedure call or argument");
    return name == "ln" ? std::log(a) : std::log(a) / std::log(10.0);
  }
  return a;
}

// Whether a value is a fraction m/k in lowest terms with an odd k below 100.
bool HasOddDenominator(double value) {
  for (int k = 1; k < 100; ++k) {
    const double m = value * k;
    if (std::fabs(m - std::nearbyint(m)) < 1e-9) return k % 2 == 1;
  }
  return false;
}

// The value a number's text gives back: 15 significant figures.
double RoundToFifteenFigures(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.15g", value);
  return std::strtod(text.data(), nullptr);
}

}  // namespace

void SetVarValue(Session& s, char letter, const NodeValue& value) {
  for (std::int16_t k = 0; k < s.VarCount; ++k) {
    if (s.VarNames[static_cast<std::size_t>(k)] == letter) {
      AssignValue(s.VarValues[static_cast<std::size_t>(k)], value);
      return;
    }
  }
  s.VarNames.resize(static_cast<std::size_t>(s.VarCount) + 1);
  s.VarValues.resize(static_cast<std::size_t>(s.VarCount) + 1);
  s.VarNames[static_cast<std::size_t>(s.VarCount)] = letter;
  s.VarValues[static_cast<std::size_t>(s.VarCount)] = value;
  ++s.VarCount;
}

void CollectVars(Session& s, NodeIdx n) {
  ForEachNodeParentFirst(s, n, [&s](NodeIdx cur) {
    const ExprNode& node = s.Pool[cur];
    if (node.Kind != kKindVariable || node.Text.empty()) return;
    const char letter = node.Text[0];
    for (std::int16_t k = 0; k < s.SubstitutionCount; ++k) {
      if (s.SubstitutionVars[static_cast<std::size_t>(k)] == letter) return;
    }
    s.SubstitutionVars.resize(static_cast<std::size_t>(s.SubstitutionCount) + 1);
    s.SubstitutionVars[static_cast<std::size_t>(s.SubstitutionCount)] = letter;
    ++s.SubstitutionCount;
  });
}

NodeValue VarValue(const Session& s, char letter) {
  const std::string_view constant = ConstantText(s, letter);
  if (!constant.empty()) return std::string(constant);
  if (IsImaginaryLetter(s, letter)) return std::monostate{};
  for (std::int16_t k = 0; k < s.VarCount; ++k) {
    if (s.VarNames[static_cast<std::size_t>(k)] == letter) {
      return s.VarValues[static_cast<std::size_t>(k)];
    }
  }
  return std::monostate{};
}

bool IsConstantVar(const Session& s, char letter) {
  return !ConstantText(s, letter).empty() || IsImaginaryLetter(s, letter);
}

double ValueAsNumber(const Session& s, const NodeValue& value) {
  if (const auto* i = std::get_if<std::int32_t>(&value)) return *i;
  if (const auto* d = std::get_if<double>(&value)) return *d;
  if (const auto* text = std::get_if<std::string>(&value)) {
    return ParseNumberText(*text, s.Dp()).value_or(0.0);
  }
  return 0.0;
}

void LoadLeaves(Session& s, NodeIdx n) {
  ForEachNodeParentFirst(s, n, [&s](NodeIdx cur) {
    ExprNode& node = s.Pool[cur];
    if (node.FirstChild == kNoNode) LoadLeaf(s, node);
  });
}

void EvaluateNode(Session& s, NodeIdx n) {
  NodePool& pool = s.Pool;
  const NodeIdx first = pool[n].FirstChild;
  if (first == kNoNode) return;
  double a = 0.0;
  switch (ContentShapeOf(pool, n)) {
    case Shape::Sum:
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const double v = ValueAsNumber(s, pool[c].Value);
        a += pool[c].Role == kRoleMinus ? -v : v;
      }
      break;
    case Shape::Product:
      a = 1.0;
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const double v = ValueAsNumber(s, pool[c].Value);
        if (pool[c].Role == kRoleDenominator) {
          if (v == 0.0) throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
          a /= v;
        } else {
          a *= v;
        }
      }
      break;
    case Shape::Power: {
      const double exponent = ValueAsNumber(s, pool[first].Value);
      const double base = ValueAsNumber(s, pool[pool[first].Next].Value);
      if (base == 0.0 && exponent < 0.0) {
        throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
      }
      if (base < 0.0 && exponent != std::nearbyint(exponent)) {
        // An odd root of a negative number is real, (-8)^(1/3) = -2, and is left to the rules;
        // an even one, or a power that is no fraction, is complex.
        if (HasOddDenominator(exponent)) Domain("Invalid procedure call or argument");
        throw RootOfNegativeError();
      }
      a = std::pow(base, exponent);
      break;
    }
    case Shape::OneChild:
    case Shape::Number:
    case Shape::Letter:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::Broken: a = ValueAsNumber(s, pool[first].Value); break;
  }
  ExprNode& node = pool[n];
  if (const Shape shape = ShapeOf(pool, n);
      shape == Shape::Function || shape == Shape::SquareRoot) {
    const std::string_view text = node.Text;
    a = ApplyFunction(s, text.substr(0, text.find('(')), a);
  }
  node.Value = Checked(a);
}

void EvaluateAll(Session& s, NodeIdx n) {
  LoadLeaves(s, n);
  ForEachInnerNodeChildrenFirst(s, n, [&s](NodeIdx inner) { EvaluateNode(s, inner); });
}

void EvaluateAllRounded(Session& s, NodeIdx n) {
  LoadLeaves(s, n);
  ForEachInnerNodeChildrenFirst(s, n, [&s](NodeIdx inner) {
    EvaluateNode(s, inner);
    ExprNode& node = s.Pool[inner];
    if (const Shape shape = ShapeOf(s.Pool, inner);
        shape == Shape::Function || shape == Shape::SquareRoot) {
      node.Value = RoundToFifteenFigures(std::get<double>(node.Value));
    }
  });
}

}  // namespace tavimor
