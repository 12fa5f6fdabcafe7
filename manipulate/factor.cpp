// Factoring: the place to factor, the chain of methods, the record, and the Factor button.
#include "manipulate/factor.h"

#include <optional>
#include <utility>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "manipulate/distribute.h"
#include "manipulate/expand.h"
#include "present/step_markup.h"
#include "present/work_space.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/plain_arithmetic.h"
#include "simplify/plain_polynomial.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// The colour of the help texts, in which the rule after the steps is drawn.

// The silent simplify loop on a tree; Message and the detail kept.
bool SimplifyTreeSilently(Session& s, NodeIdx& root) {
  ScopedOverride keep_detail(s.DetailNow, std::int16_t{0});
  ScopedOverride keep_message(s.Message);
  int level = 0;
  const std::string before = s.Pool[root].Text;
  SimplifyTree(s, root, level);
  return s.Pool[root].Text != before;
}

bool IsSumNode(const Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  return first != kNoNode && IsSumRole(s.Pool[first].Role);
}

// The node whose text is factored: a function's argument or a power's base is the node below.
NodeIdx PowerBase(const Session& s, NodeIdx power) { return s.Pool[s.Pool[power].FirstChild].Next; }

}  // namespace

std::string ExpandedText(Session& s, const std::string& text) {
  // Arithmetic of whole numbers has nothing to expand: it is worked out; and products of sums
  // in one letter with whole coefficients are multiplied out as numbers.
  if (std::optional<std::string> plain = PlainArithmetic(s, text)) return *std::move(plain);
  if (std::optional<std::string> plain = PlainExpansion(s, text)) return *std::move(plain);
  return ExpandedTextByRules(s, text);
}

std::string ExpandedTextByRules(Session& s, const std::string& text) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  ScopedOverride keep_detail(s.DetailNow, std::int16_t{0});
  ScopedOverride keep_message(s.Message);
  ScopedOverride keep_mode(s.ExpandMode, std::int16_t{1});
  // The expansion opens with the same silent loop: when nothing was multiplied out, the tree is
  // already where the loop leaves it, and running it again would change nothing.
  if (ExpandTree(s, tree.RootSlot())) SimplifyTreeSilently(s, tree.RootSlot());
  return s.Pool[tree.RootSlot()].Text;
}

std::string FactorRecordText(const std::string& simplified, int place, const std::string& part,
                             const FactorFinding& finding, const std::string& whole,
                             const std::string& result) {
  std::string record = simplified + kFactorRecordSeparator + std::to_string(place) +
                       kFactorRecordSeparator + part + kFactorRecordSeparator +
                       std::to_string(finding.code);
  for (const std::string& value : finding.values) record += kFactorRecordSeparator + value;
  return record + kFactorRecordSeparator + whole + kFactorRecordSeparator + result;
}

std::string FactorRecordField(const std::string& record, int index) {
  return GetPiece(record, index, kFactorRecordSeparator);
}

std::vector<std::string> FactorRecordValues(const std::string& record) {
  const int count = CountPieces(record, kFactorRecordSeparator);
  std::vector<std::string> values;
  for (int i = 5; i <= count - 2; ++i) values.push_back(FactorRecordField(record, i));
  return values;
}

bool FactorPart(Session& s, NodeIdx& root, NodeIdx part, int place, std::string& record,
                const std::string& mode) {
  if (!IsSumNode(s, part)) return false;
  const std::string text = ContentText(s.Pool[part]);
  FactorFinding found;
  const bool done = FactorByAlias(s, text, mode, found) ||
                    FactorCommon(s, text, FactorDepth(mode), found) ||
                    FactorSquares(s, text, found) || FactorCubes(s, text, found) ||
                    FactorGrouping(s, text, found) || FactorQuadratic(s, text, found) ||
                    FactorPolynomial(s, text, found);
  if (!done) return false;
  {
    ScopedOverride keep_message(s.Message);
    NodeIdx slot = part;
    ReplaceNodeContents(s, slot, found.factored, false);
  }
  RegenerateAll(s, root);
  const std::string whole = place == kPlaceWhole ? found.factored : s.Pool[root].Text;
  {
    ScopedOverride keep_minus(s.DistributeMinus, false);
    ScopedOverride keep_products(s.ComplexProducts, false);
    SimplifyTreeSilently(s, root);
  }
  record =
      FactorRecordText(FactorRecordField(record, 1), place, text, found, whole, s.Pool[root].Text);
  return true;
}

bool FactorTree(Session& s, NodeIdx& slot, std::string& record, const std::string& mode) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind == kKindVariable || node.Kind == kKindNumber) return false;
  if (node.Kind == kKindFunction) {
    if (!IsFunctionNamed(node, "sqrt")) return false;
    return FactorPart(s, slot, slot, kPlaceRootArgument, record, mode);
  }
  if (node.Kind == kKindPower) {
    return FactorPart(s, slot, PowerBase(s, slot), kPlacePowerBase, record, mode);
  }
  if (IsSumNode(s, slot)) return FactorPart(s, slot, slot, kPlaceWhole, record, mode);
  const NodeIdx first = node.FirstChild;
  if (first == kNoNode || !IsProductRole(s.Pool[first].Role)) return false;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Kind == kKindFunction && IsFunctionNamed(factor, "sqrt")) {
      if (FactorPart(s, slot, c, kPlaceRootFactor, record, mode)) return true;
    } else if (factor.Kind == kKindPower) {
      if (FactorPart(s, slot, PowerBase(s, c), kPlacePowerFactor, record, mode)) return true;
    } else if (IsBracketedSum(s, c)) {
      if (FactorPart(s, slot, c, kPlaceBracketFactor, record, mode)) return true;
    }
  }
  return false;
}

bool FactorText(Session& s, std::string& text, std::string& record, const std::string& mode) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  const bool changed = SimplifyTreeSilently(s, tree.RootSlot());
  record = changed ? s.Pool[tree.RootSlot()].Text : "";
  if (!FactorTree(s, tree.RootSlot(), record, mode)) return false;
  text = FactorRecordField(record, CountPieces(record, kFactorRecordSeparator));
  return true;
}

std::string NothingToFactorNote(const std::string& input, const std::string& simplified) {
  if (simplified.empty() || simplified == input) return "";
  return SimplifiedInsteadNote(input, simplified, "There is nothing to factor.");
}

bool FactorSide(Session& s, NodeIdx side, bool lcm) {
  // "Show all details" does not run the engine at all.
  if (s.DetailNow >= 2) return false;
  const std::string mode = std::string(lcm ? "1" : "2") + (s.DetailNow >= 1 ? "1" : "0");
  const std::string input = s.Pool[side].Text;
  std::string text = input;
  std::string record;
  const bool factored = FactorText(s, text, record, mode);
  if (!factored) {
    const std::string simplified = FactorRecordField(record, 1);
    const std::string note = NothingToFactorNote(input, simplified);
    if (note.empty()) return false;
    ShowHint(s, note);
    FreeChildren(s, side);
    LoadSide(s, side, simplified);
    return false;
  }
  FreeChildren(s, side);
  LoadSide(s, side, text);
  s.HelpNumber = static_cast<std::int16_t>(std::atoi(FactorRecordField(record, 4).c_str()));
  if (s.DetailNow >= 1) {
    s.Message = NarrateFactoring(SideOfPanel(s), record);
    ShowStepClosedByRule(s, side);
  }
  return true;
}

}  // namespace tavimor
