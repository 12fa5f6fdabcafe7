// Questions asked of a text through a short-lived tree; none leaves a mark on the pool.
#include "core/text_predicates.h"

#include <cmath>

#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/regenerate.h"
#include "core/temp_tree.h"

namespace tavimor {

namespace {

using Depth = TempTree::Depth;

bool IsSumNode(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  return node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
         IsSumRole(s.Pool[node.FirstChild].Role);
}

bool IsProductNode(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  return node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
         s.Pool[node.FirstChild].Role == kRoleNumerator;
}

bool HasDenominatorNode(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (node.Kind != kKindSumOrProduct) return false;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (s.Pool[c].Role == kRoleDenominator) return true;
  }
  return false;
}

// An integer, or a hidden bracket around an integer alone.
bool IntegerOrHiddenInteger(const Session& s, NodeIdx n, std::string& text) {
  const ExprNode& node = s.Pool[n];
  if (IsIntegerNode(s, n)) {
    text = node.Text;
    return true;
  }
  if (node.Kind == kKindHiddenBracket && node.FirstChild != kNoNode &&
      s.Pool[node.FirstChild].Next == kNoNode && IsIntegerNode(s, node.FirstChild)) {
    text = s.Pool[node.FirstChild].Text;
    return true;
  }
  return false;
}

// Each term of a sum with its role; a text that is no sum is one added term.
template <typename Visit>
void ForEachTerm(const Session& s, NodeIdx root, Visit visit) {
  if (IsSumNode(s, root)) {
    for (NodeIdx c = s.Pool[root].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      visit(c, s.Pool[c].Role);
    }
  } else {
    visit(root, kRolePlus);
  }
}

}  // namespace

bool IsProductText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  return IsProductNode(s, t.Root());
}

bool IsPowerText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  return t[t.Root()].Kind == kKindPower;
}

bool IsSumText(Session& s, std::string_view text) {
  // A sum is what the first step of reading finds two terms or more in; every other reading
  // (a product, a bracket, a function, a number) is no sum at the top.
  return TopLevelTermCount(s, text) > 1;
}

bool IsSquareText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  return root.Kind == kKindPower && t[root.FirstChild].Text == "2";
}

bool HasDenominatorText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  return HasDenominatorNode(s, t.Root());
}

bool IsReciprocalText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  if (root.Kind != kKindSumOrProduct || root.FirstChild == kNoNode) return false;
  const ExprNode& first = t[root.FirstChild];
  if (first.Role != kRoleNumerator || first.Text != "1" || first.Next == kNoNode) return false;
  for (NodeIdx c = first.Next; c != kNoNode; c = t[c].Next) {
    if (t[c].Role != kRoleDenominator) return false;
  }
  return true;
}

bool NeedsBrackets(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::OneLevel);
  const NodeIdx root = t.Root();
  if (IsProductNode(s, root) || IsSumNode(s, root)) return true;
  return t[root].Kind == kKindNumber && t[root].FirstChild == kNoNode &&
         SafeValue(s, t[root].Text) < 0.0;
}

bool AnyTermHasDenominator(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::Whole);
  if (!IsSumNode(s, t.Root())) return false;
  for (NodeIdx c = t[t.Root()].FirstChild; c != kNoNode; c = t[c].Next) {
    if (HasDenominatorNode(s, c)) return true;
  }
  return false;
}

bool NumericFractionParts(Session& s, std::string_view text, std::string& numerator,
                          std::string& denominator) {
  const TempTree t(s, std::string(text), Depth::Whole);
  const ExprNode& root = t[t.Root()];
  if (root.Kind != kKindSumOrProduct || root.FirstChild == kNoNode) return false;
  const NodeIdx first = root.FirstChild;
  const NodeIdx second = t[first].Next;
  if (second == kNoNode || t[second].Next != kNoNode) return false;
  if (t[first].Role != kRoleNumerator || t[second].Role != kRoleDenominator) return false;
  std::string top;
  std::string bottom;
  if (!IntegerOrHiddenInteger(s, first, top) || !IntegerOrHiddenInteger(s, second, bottom)) {
    return false;
  }
  numerator = top;
  denominator = bottom;
  return true;
}

int SumSignClass(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::Whole);
  bool plus = false;
  bool minus = false;
  bool not_whole = false;
  ForEachTerm(s, t.Root(), [&](NodeIdx term, char role) {
    if (!IsIntegerNode(s, term)) {
      not_whole = true;
    } else if (role == kRoleMinus || t[term].Text[0] == '-') {
      minus = true;
    } else {
      plus = true;
    }
  });
  if (not_whole) return 4;
  if (plus && minus) return 3;
  return minus ? 2 : 1;
}

int CoefficientClass(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::Whole);
  double largest = 0.0;
  bool not_whole = false;
  ForEachTerm(s, t.Root(), [&](NodeIdx term, char) {
    if (!IsIntegerNode(s, term)) {
      not_whole = true;
    } else {
      largest = std::max(largest, std::fabs(SafeValue(s, t[term].Text)));
    }
  });
  if (not_whole || largest > 2.0) return 3;
  return largest <= 1.0 ? 1 : 2;
}

std::string RegeneratedText(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::Whole);
  RegenerateAll(s, t.Root());
  return t[t.Root()].Text;
}

int CountTerms(Session& s, std::string_view text) {
  const TempTree t(s, std::string(text), Depth::Whole);
  return IsSumNode(s, t.Root()) ? CountChildren(s, t.Root(), false) : 1;
}

int CountOccurrences(Session& s, std::string_view text, std::string_view name) {
  const TempTree t(s, std::string(text), Depth::Whole);
  return static_cast<int>(FindOccurrences(s, name, t.Root()).size());
}

int WrapDepth(Session& s, std::string_view text, std::string_view name) {
  if (text == name) return 0;
  const TempTree t(s, std::string(text), Depth::Whole);
  const std::vector<NodeIdx> found = FindOccurrences(s, name, t.Root());
  if (found.size() != 1) return -1;
  int count = 0;
  for (NodeIdx n = found.front();;) {
    const ExprNode& node = t[n];
    const char role = node.Role;
    if (role == kRoleDenominator || role == kRoleMinus || role == kRoleBase ||
        role == kRoleExponent || node.Kind == kKindFunction) {
      ++count;
    }
    // A subtracted product led by a number, as in -2*x, costs no extra layer.
    if (role == kRoleMinus && node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
        t[node.FirstChild].Role == kRoleNumerator && t[node.FirstChild].Kind == kKindNumber) {
      --count;
    }
    const NodeIdx parent = ParentOf(s, n);
    if (parent == kNoNode) break;
    if (IsProductRole(role) || IsSumRole(role)) {
      count += CountChildren(s, parent, false) - 1;
    }
    const NodeIdx first = t[parent].FirstChild;
    const NodeIdx second = t[first].Next;
    if (t[first].Role == kRoleNumerator && t[first].Text == "1" && second != kNoNode &&
        t[second].Role == kRoleDenominator) {
      --count;
    }
    n = parent;
  }
  return count;
}

}  // namespace tavimor
