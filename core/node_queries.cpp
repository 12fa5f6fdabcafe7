// Questions asked of nodes in place: family links, fractions, occurrences, imaginary units.
#include "core/node_queries.h"

#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/temp_tree.h"

namespace tavimor {

namespace {

// Post-order over the subtree (each family left to right, every node after its children, the
// node last), along the links: without recursion and without a stack. `visit` only reads.
template <typename Visit>
void PostOrder(const Session& s, NodeIdx n, Visit visit) {
  WalkGuard guard;
  NodeIdx cur = n;
  for (;;) {
    while (s.Pool[cur].FirstChild != kNoNode) {  // down to the first leaf
      guard.Step();
      cur = s.Pool[cur].FirstChild;
    }
    for (;;) {  // this node is done: on to its next sibling's subtree, or up to its parent
      guard.Step();
      visit(cur);
      if (cur == n) return;
      if (s.Pool[cur].Next != kNoNode) {
        cur = s.Pool[cur].Next;
        break;
      }
      cur = ParentOf(s, cur);
    }
  }
}

bool IsIntegerOrHiddenInteger(const Session& s, NodeIdx n) {
  if (IsIntegerNode(s, n)) return true;
  const ExprNode& node = s.Pool[n];
  return node.Kind == kKindHiddenBracket && node.FirstChild != kNoNode &&
         s.Pool[node.FirstChild].Next == kNoNode && IsIntegerNode(s, node.FirstChild);
}

bool IsImagUnit(const std::string& text, const std::string& unit) {
  return text == "sqrt(-1)" || text == unit;
}

}  // namespace

bool IsChildOf(const Session& s, NodeIdx n, NodeIdx parent) {
  WalkGuard guard;
  for (NodeIdx c = s.Pool[parent].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    guard.Step();
    if (c == n) return true;
  }
  return false;
}

NodeIdx TopChildBelow(const Session& s, NodeIdx n, NodeIdx root) {
  WalkGuard guard;
  while (n != kNoNode && n != root) {
    guard.Step();
    const NodeIdx parent = ParentOf(s, n);
    if (parent == root) return n;
    n = parent;
  }
  return kNoNode;
}

std::int16_t FractionClass(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  std::int16_t kind_class = 0;
  switch (node.Kind) {
    case kKindSumOrProduct: kind_class = 1; break;
    case kKindBracket: kind_class = 2; break;
    case kKindFunction: kind_class = 3; break;
    case kKindHiddenBracket: kind_class = 4; break;
    default: return 0;
  }
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (s.Pool[c].Role == kRoleDenominator) return kind_class;
  }
  return 0;
}

bool IsSimpleFraction(const Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode) return false;
  const NodeIdx second = s.Pool[first].Next;
  if (second == kNoNode || s.Pool[second].Next != kNoNode) return false;
  return s.Pool[first].Role == kRoleNumerator && s.Pool[second].Role == kRoleDenominator &&
         IsIntegerOrHiddenInteger(s, first) && IsIntegerOrHiddenInteger(s, second);
}

std::int16_t FractionKind(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (IsSimpleFraction(s, n) && node.Kind != kKindFunction) return 1;
  const NodeIdx first = node.FirstChild;
  if (node.Kind == kKindFunction || first == kNoNode) return 0;
  if (!IsSumRole(s.Pool[first].Role)) return 0;
  const NodeIdx second = s.Pool[first].Next;
  if (second == kNoNode || s.Pool[second].Next != kNoNode) return 0;
  for (const NodeIdx term : {first, second}) {
    if (s.Pool[term].Kind == kKindFunction || !IsSimpleFraction(s, term)) return 0;
  }
  return 2;
}

std::vector<NodeIdx> FindOccurrences(const Session& s, std::string_view name, NodeIdx n) {
  std::vector<NodeIdx> found;
  PostOrder(s, n, [&](NodeIdx node) {
    if (s.Pool[node].Text == name) found.push_back(node);
  });
  return found;
}

bool IsIntegerPowerOfSum(const Session& s, NodeIdx n, std::string& power, int& term_count) {
  const ExprNode& node = s.Pool[n];
  if (node.Kind != kKindPower || node.FirstChild == kNoNode) return false;
  const NodeIdx exponent = node.FirstChild;
  const NodeIdx base = s.Pool[exponent].Next;
  if (base == kNoNode || !IsPositiveIntegerText(s, s.Pool[exponent].Text)) return false;
  if (s.Pool[base].Kind != kKindBracket) return false;
  const NodeIdx first = s.Pool[base].FirstChild;
  if (first == kNoNode || s.Pool[first].Next == kNoNode) return false;
  if (!IsSumRole(s.Pool[first].Role)) return false;
  power = s.Pool[exponent].Text;
  term_count = CountChildren(s, base, false);
  return true;
}

bool IsSquaredFactorOf(const Session& s, NodeIdx n, NodeIdx parent) {
  const ExprNode& node = s.Pool[n];
  if (node.Role != kRoleBase || node.Prev == kNoNode) return false;
  if (s.Pool[node.Prev].Text != "2") return false;
  const NodeIdx power = ParentOf(s, n);
  return power != kNoNode && s.Pool[power].Role == kRoleNumerator && IsChildOf(s, power, parent);
}

std::string ImagUnitText(const Session& s) {
  if (s.ComplexForm == 1) return "i";
  if (s.ComplexForm == 2) return "j";
  return "sqrt(-1)";
}

bool ContainsImagUnit(Session& s, std::string_view text) {
  const std::string unit = ImagUnitText(s);
  if (text == unit) return true;
  const TempTree t(s, std::string(text), TempTree::Depth::Whole);
  return !FindOccurrences(s, unit, t.Root()).empty();
}

std::int16_t CountImagUnits(const Session& s, NodeIdx n) {
  const std::string unit = ImagUnitText(s);
  if (IsImagUnit(s.Pool[n].Text, unit)) return 1;
  int count = 0;
  PostOrder(s, n, [&](NodeIdx node) {
    if (node != n && IsImagUnit(s.Pool[node].Text, unit)) ++count;
  });
  return static_cast<std::int16_t>(count);
}

std::int16_t CollectImagUnits(Session& s, NodeIdx n) {
  const std::string unit = ImagUnitText(s);
  s.ImagNodes.clear();
  if (IsImagUnit(s.Pool[n].Text, unit)) {
    s.ImagNodes.push_back(n);
    return 1;
  }
  int count = 0;
  PostOrder(s, n, [&](NodeIdx node) {
    if (node != n && IsImagUnit(s.Pool[node].Text, unit)) {
      ++count;
      if (static_cast<int>(s.ImagNodes.size()) < kImagNodesLimit) s.ImagNodes.push_back(node);
    }
  });
  return static_cast<std::int16_t>(count);
}

}  // namespace tavimor
