// The one rewrite loop: ten passes over the tree, one rewrite at a time, each step narrated.
#include "simplify/simplify_driver.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/tree_walk.h"
#include "manipulate/factor_fraction.h"
#include "present/work_space.h"
#include "simplify/bracket_rules.h"
#include "simplify/collect_product.h"
#include "simplify/collect_sum.h"
#include "simplify/complex_rules.h"
#include "simplify/euler_formula.h"
#include "simplify/function_values.h"
#include "simplify/inverse_functions.h"
#include "simplify/kept_answers.h"
#include "simplify/log_rules.h"
#include "simplify/plain_arithmetic.h"
#include "simplify/plain_polynomial.h"
#include "simplify/plain_quotient.h"
#include "simplify/power_rules.h"
#include "simplify/product_rules.h"
#include "simplify/radical_rules.h"
#include "simplify/trig_identities.h"

namespace tavimor {

namespace {

// Where a row's rules may fire. Beside the shapes, a row may name what every one of its rules
// asks first (a node kind, a trig mode, an option), so that a node without it is not offered.
enum class Where {
  Any,
  Sum,
  Product,
  Power,
  Function,
  Variable,
  Number,
  FunctionNode,         // a node of the function kind
  PowerOrFunctionNode,  // a node of the power or the function kind
  BreakApartFunction,   // trig identities broken apart, at a function node
  BreakApartPower,      // trig identities broken apart, at a power node
  CombineProductNode,   // trig identities combined, at a sum-or-product node
  Combine,              // trig identities combined
  Pythagoras,           // the Pythagorean rules chosen
};

struct PassRow {
  int pass;
  Where where;
  std::vector<RewriteRule> rules;
};

bool FlattenOneBracket(Session& s, NodeIdx& slot) { return FlattenSumBrackets(s, slot, false); }

// A rule that found a node already in its house form finds it so again: the loop offers it the
// same sums and products at every pass of every simplification of the item. The nodes it left
// are kept for the item by the rule, the node's kind and text and the options, and passed over.
template <char What, RewriteRule Rule>
bool UnlessKnownToStay(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  std::string key = OptionKey(s, What, {});
  key += node.Kind;
  key += node.Text;
  if (KnownToStay(s, key)) return false;
  if (Rule(s, slot)) return true;
  KeepAsStaying(s, std::move(key));
  return false;
}

// The dispatch table. Rows of rule families that are not part of the tutor yet stay empty.
const std::vector<PassRow> kPasses = {
    {1, Where::Any, {&BracketRule}},  // brackets that say nothing
    {2,
     Where::Any,  // inverse functions cancel, functions of functions
     {&CancelInverseText, &FunctionOfFunction}},
    {3, Where::Sum, {&FlattenOneBracket}},  // brackets inside a sum
    {3,
     Where::Product,  // the shape of a product
     {&CollapseProductSigns, &DropProductBrackets, &DivideByFraction, &MultiplyFractions}},
    {4, Where::Sum, {&UnlessKnownToStay<'S', &CollectSum>}},  // collect and sort a sum
    {4,
     Where::Product,  // collect and sort a product; complex numbers; factor-and-cancel; -(a+b)
     {&UnlessKnownToStay<'P', &CollectProductRule>, &ComplexProductRule, &FactorFractionRule,
      &DistributeMinusOverBracket}},
    {5,
     Where::PowerOrFunctionNode,  // the written form of powers; ln(1/x) = -ln(x); Euler's formula
     {&ExponentialForm, &RadicalForm, &LogOfReciprocal, &BreakApartEuler}},
    {6, Where::Power, {&PowerRules}},  // powers
    {7,
     Where::Function,  // values of functions, square roots, the power inside a logarithm
     {&SpecialValue, &EvaluateFunction, &SquareRootStructure, &LogOfPower, &SplitFractionRoot}},
    {8,
     Where::Product,  // radicals, ratios of logarithms, products of exponentials
     {&Rationalise, &CombineSquareRoots, &RadicalToExponent, &RatioOfLogs, &ProductOfExp}},
    {9,
     Where::Variable,  // e, p, d as numbers
     {&ConstantToNumber}},
    {9, Where::Number, {&DropPlusOnNumber}},  // +2 -> 2
    // Trig identities, in this order; TrigMode says which may fire.
    {10, Where::FunctionNode, {&TrigOfNegative, &TrigAngleShift, &EliminateReciprocalTrig}},
    {10, Where::BreakApartFunction, {&BreakApartAngles, &SplitDoubleAngle}},
    {10, Where::BreakApartPower, {&ExpandHalfAngle}},
    {10, Where::BreakApartFunction, {&BreakApartTanCot}},
    {10, Where::CombineProductNode, {&CombineToTangent}},
    {10, Where::Pythagoras, {&PythagorasInTerm, &PythagorasInSum}},
    {10, Where::Combine, {&CombineAngles, &CombinePhasor, &CombineDoubleCos, &CombineDoubleSine}},
};

bool Matches(const Session& s, NodeIdx n, Where where) {
  // A sum or a product is met where it stands: on its own, or as the content of a bracket or a
  // function.
  switch (where) {
    case Where::Any: return true;
    case Where::Sum: return ContentShapeOf(s.Pool, n) == Shape::Sum;
    case Where::Product:  // in house form a product begins with a numerator
      return ContentShapeOf(s.Pool, n) == Shape::Product &&
             s.Pool[s.Pool[n].FirstChild].Role == kRoleNumerator;
    case Where::Power: return ShapeOf(s.Pool, n) == Shape::Power;
    case Where::Function: {
      const Shape shape = ShapeOf(s.Pool, n);
      return shape == Shape::Function || shape == Shape::SquareRoot;
    }
    case Where::Variable: return ShapeOf(s.Pool, n) == Shape::Letter;
    case Where::Number: return ShapeOf(s.Pool, n) == Shape::Number;
    case Where::FunctionNode: return s.Pool[n].Kind == kKindFunction;
    case Where::PowerOrFunctionNode:
      return s.Pool[n].Kind == kKindPower || s.Pool[n].Kind == kKindFunction;
    case Where::BreakApartFunction:
      return s.TrigMode == kTrigBreakApart && s.Pool[n].Kind == kKindFunction;
    case Where::BreakApartPower:
      return s.TrigMode == kTrigBreakApart && s.Pool[n].Kind == kKindPower;
    case Where::CombineProductNode:
      return s.TrigMode == kTrigCombine && s.Pool[n].Kind == kKindSumOrProduct;
    case Where::Combine: return s.TrigMode == kTrigCombine;
    case Where::Pythagoras: return s.PythagorasRules;
  }
  return false;
}

// Counts rewrites against the loop's bound: past it, the run-time error of a loop that does not
// end.
void CountRewrites(Session& s, int count) {
  s.RewriteCount += count;
  if (s.RewriteCount > kRewriteLimit) {
    throw RunTimeError(RunTimeErrorNumber::Overflow, "The simplify loop does not come to an end");
  }
}

}  // namespace

void RaiseStepLevel(const std::string& message, int& level) {
  int here = kLevelStep;
  if (message == kSkipMessage) {
    here = kLevelSilent;
  } else if (message == kSortTermsMessage || message == kSortFactorsMessage) {
    here = kLevelSort;
  }
  level = std::max(level, here);
}

bool ApplyPassAtNode(Session& s, NodeIdx& slot, int pass) {
  // The rows of each pass, in the table's order, found once.
  static const std::array<std::vector<const PassRow*>, 11> rows_of_pass = [] {
    std::array<std::vector<const PassRow*>, 11> rows;
    for (const PassRow& row : kPasses) rows[static_cast<std::size_t>(row.pass)].push_back(&row);
    return rows;
  }();
  if (pass < 1 || pass > 10) return false;
  for (const PassRow* row : rows_of_pass[static_cast<std::size_t>(pass)]) {
    if (!Matches(s, slot, row->where)) continue;
    for (const RewriteRule rule : row->rules) {
      if (rule(s, slot)) return true;
    }
  }
  return false;
}

bool ApplyPassToTree(Session& s, int pass, NodeIdx& root) {
  // Pass 9 is offered every slot, leaves included; the others every node with children.
  return ForEachSlotUntil(s, root, pass == 9,
                          [&s, pass](NodeIdx& slot) { return ApplyPassAtNode(s, slot, pass); });
}

bool SimplifyTree(Session& s, NodeIdx& root, int& step_level) {
  step_level = kLevelNothing;
  bool result = false;
  int pass = 1;
  while (pass <= 10) {
    if (!ApplyPassToTree(s, pass, root)) {
      ++pass;
      continue;
    }
    CountRewrites(s, 1);
    RaiseStepLevel(s.Message, step_level);
    RegenerateAll(s, root);
    if (s.Message != kSkipMessage) {
      result = true;
      if (s.DetailNow >= 1) {
        ShowStep(s, root);
        if (!s.StreamingOutput) return result;
      }
    }
    pass = 1;
  }
  return result;
}

std::string SimplifyText(Session& s, const std::string& text, bool& changed) {
  // Arithmetic of whole numbers is worked out, a quotient of one letter's powers read off its
  // numbers, and the like terms of a sum in one letter collected as numbers.
  for (const auto reading : {&PlainArithmetic, &PlainQuotient, &PlainPolynomial}) {
    if (std::optional<std::string> plain = reading(s, text)) {
      changed = *plain != text;
      return *std::move(plain);
    }
  }
  // The solver asks the same text again (a side simplified after each move, then again by the
  // next test): the loop's answer is kept for the item with the count of its rewrites, which a
  // text asked again adds to the loop's bound as the loop would have.
  std::string key = OptionKey(s, 'L', text);
  if (const std::string* kept = FindKeptAnswer(s, key)) {
    // Kept as "<rewrites>|<answer>".
    const std::size_t bar = kept->find('|');
    CountRewrites(s, std::stoi(kept->substr(0, bar)));
    std::string result = kept->substr(bar + 1);
    changed = result != text;
    return result;
  }
  const int before = s.RewriteCount;
  std::string result = SimplifyTextByRules(s, text, changed);
  KeepAnswer(s, std::move(key), std::to_string(s.RewriteCount - before) + "|" + result);
  return result;
}

std::string SimplifyTextByRules(Session& s, const std::string& text, bool& changed) {
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  ScopedOverride message(s.Message);
  ScopedOverride help(s.HelpNumber);
  TempTree tree(s, text, TempTree::Depth::Whole);
  NodeIdx root = tree.Root();
  int level = 0;
  SimplifyTree(s, root, level);
  const std::string result = s.Pool[root].Text;
  changed = result != text;
  return result;
}

std::string SimplifyText(Session& s, const std::string& text) {
  bool changed = false;
  return SimplifyText(s, text, changed);
}

namespace {

// The simplified text under ExactToFloat, and whether it is one number.
bool SimplifiedNumber(Session& s, const std::string& text, std::string& number) {
  {
    ScopedOverride exact_to_float(s.ExactToFloat, true);
    number = SimplifyText(s, text);
  }
  return !number.empty() && NumberEnd(s, number, 1) == static_cast<int>(number.size());
}

}  // namespace

bool IsNumericText(Session& s, const std::string& text) {
  std::string number;
  return SimplifiedNumber(s, text, number);
}

std::optional<double> NumericTextValue(Session& s, const std::string& text) {
  std::string number;
  if (!SimplifiedNumber(s, text, number)) return std::nullopt;
  return SafeValue(s, number);
}

bool IsPositiveNumericText(Session& s, const std::string& text) {
  std::string number;
  return SimplifiedNumber(s, text, number) && number[0] != '-';
}

bool IsNegativeNumericText(Session& s, const std::string& text) {
  std::string number;
  return SimplifiedNumber(s, text, number) && number[0] == '-';
}

bool IsBeyondUnitText(Session& s, const std::string& text) {
  std::string number;
  return SimplifiedNumber(s, text, number) && std::fabs(SafeValue(s, number)) > 1.0;
}

bool SimplifySide(Session& s, NodeIdx side) {
  int level = 0;
  NodeIdx root = side;
  return SimplifyTree(s, root, level);
}

}  // namespace tavimor
