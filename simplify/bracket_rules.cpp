// Brackets and signs: brackets that say nothing go, bracketed terms of a sum are opened, a minus
// is distributed over a bracket, a plus on a number is dropped.
#include "simplify/bracket_rules.h"

#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/tree_edit.h"
#include "manipulate/distribute.h"
#include "simplify/simplify_driver.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

bool IsBracket(const ExprNode& node) {
  return node.Kind == kKindBracket || node.Kind == kKindHiddenBracket;
}

// The single quantity c takes the place of its bracket n: Kind, Text and children; c is freed.
void MoveUp(Session& s, NodeIdx n, NodeIdx c) {
  ExprNode& node = s.Pool[n];
  ExprNode& child = s.Pool[c];
  node.Kind = child.Kind;
  node.Text = child.Text;
  node.FirstChild = child.FirstChild;
  if (node.FirstChild != kNoNode) s.Pool[node.FirstChild].Parent = n;
  child.FirstChild = kNoNode;
  FreeNode(s, c);
}

NodeIdx LastChild(const Session& s, NodeIdx n) {
  NodeIdx c = s.Pool[n].FirstChild;
  while (c != kNoNode && s.Pool[c].Next != kNoNode) c = s.Pool[c].Next;
  return c;
}

// The children of n take its place in its sibling chain; n takes the data of its first child.
void SpliceChildren(Session& s, NodeIdx n, bool take_first_role) {
  const NodeIdx first = s.Pool[n].FirstChild;
  const NodeIdx last = LastChild(s, n);
  const NodeIdx old_next = s.Pool[n].Next;
  const NodeIdx second = s.Pool[first].Next;
  ExprNode& node = s.Pool[n];
  node.Kind = s.Pool[first].Kind;
  node.Text = s.Pool[first].Text;
  if (take_first_role) node.Role = s.Pool[first].Role;
  node.FirstChild = s.Pool[first].FirstChild;
  if (node.FirstChild != kNoNode) s.Pool[node.FirstChild].Parent = n;
  if (second != kNoNode) {
    node.Next = second;
    s.Pool[second].Prev = n;
    s.Pool[second].Parent = kNoNode;
    s.Pool[last].Next = old_next;
    if (old_next != kNoNode) s.Pool[old_next].Prev = last;
  }
  s.Pool[first].FirstChild = kNoNode;
  s.Pool[first].Next = kNoNode;
  FreeNode(s, first);
}

// The factors of a product other than one, joined: numerators with "*", denominators with "/".
void OtherFactors(const Session& s, NodeIdx product, NodeIdx except, std::string& numerators,
                  std::string& denominators) {
  for (NodeIdx c = s.Pool[product].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == except) continue;
    std::string& list = s.Pool[c].Role == kRoleDenominator ? denominators : numerators;
    AppendPiece(list, '*', s.Pool[c].Text);
  }
  // A leading lone sign reads as a plain sign.
  if (numerators.rfind("-*", 0) == 0 || numerators.rfind("+*", 0) == 0) numerators.erase(1, 1);
}

bool OpenNested(Session& s, NodeIdx n, const std::string& old_text) {
  const ExprNode& node = s.Pool[n];
  const NodeIdx enclosing = ParentOf(s, n);
  if (IsSumRole(node.Role)) {
    SpliceChildren(s, n, false);
    s.Message = "7#All sums and differences have the same priority so @" + old_text +
                "@ doesn't need brackets.  Simplify by removing them.";
    return true;
  }
  const NestedProduct kind = ClassifyNestedProduct(s, n);
  if (kind == NestedProduct::SeveralFractions) return false;
  // The narration of a fraction taken into the product is told before the tree changes.
  std::string narration;
  if (kind == NestedProduct::OnlyFraction && enclosing != kNoNode) {
    std::string numerators;
    std::string denominators;
    OtherFactors(s, enclosing, n, numerators, denominators);
    StepParts parts;
    const bool term = IsSumRole(s.Pool[enclosing].Role);
    AddStepPart(parts, std::string(term ? "Simplify the term @" : "Simplify the expression @") +
                           s.Pool[enclosing].Text + "@ by :|");
    AddStepPart(parts, "starting with the fraction  @" + old_text + "@ .|");
    if (!numerators.empty()) {
      AddStepPart(parts, "including  @" + numerators +
                             "@ in the numerator (i.e. multiplying it into the numerator).|");
    }
    if (!denominators.empty()) {
      AddStepPart(parts, "including  @" + denominators +
                             "@ in the denominator (i.e. multiplying it into the denominator).|");
    }
    AddStepPart(parts, "The result is :");
    narration = "5#" + JoinStepParts(parts);
  }
  SpliceChildren(s, n, true);
  if (enclosing != kNoNode) {
    // The sole numerator or denominator may have changed: each hidden bracket is decided anew.
    for (NodeIdx c = s.Pool[enclosing].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      if (s.Pool[c].Kind == kKindHiddenBracket) {
        s.Pool[c].Kind = kKindBracket;
        MarkBracket(s, c);
      }
    }
  }
  if (kind == NestedProduct::SoleNumerator) {
    s.Message = kSkipMessage;
  } else if (kind == NestedProduct::OnlyFraction) {
    s.Message = narration;
  } else {
    s.Message = "6#All products and quotients have the same priority so @" + old_text +
                "@ doesn't need brackets.  Simplify by removing them.";
  }
  return true;
}

}  // namespace

bool BracketRule(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const ExprNode& node = s.Pool[n];
  if (!IsBracket(node) || node.FirstChild == kNoNode) return false;
  const char sign = node.Text.size() > 1 ? node.Text[1] : ' ';
  const bool signed_content = sign == '+' || sign == '-';
  const NodeIdx c = node.FirstChild;
  const char child_role = s.Pool[c].Role;
  const NodeIdx parent = ParentOf(s, n);
  const std::string old_text = node.Text;
  // 1. An extra bracket in a function: sin((x)).
  if (parent != kNoNode && node.Prev == kNoNode && node.Next == kNoNode &&
      node.Kind == kKindBracket && s.Pool[parent].Kind == kKindFunction) {
    s.Pool[parent].FirstChild = c;
    s.Pool[c].Parent = parent;
    s.Pool[n].FirstChild = kNoNode;
    FreeNode(s, n);
    slot = c;
    s.Message = "99#The extra brackets are not required.  Simplify by removing them.";
    return true;
  }
  // 2. Brackets around the entire expression.
  if (node.Prev == kNoNode && parent == kNoNode) {
    if (child_role == kRoleNone) {
      MoveUp(s, n, c);
    } else {
      s.Pool[n].Text = old_text.substr(1, old_text.size() - 2);
      s.Pool[n].Kind = kKindSumOrProduct;
    }
    s.Message =
        "2#The brackets around an entire expression are never required.  Simplify by removing "
        "them.";
    return true;
  }
  // 3. A bracket around a single quantity.
  if (child_role == kRoleNone) {
    if (signed_content) return false;
    if (node.Role == kRoleExponent && s.Pool[c].Kind == kKindPower) return false;
    // A power as the base of a power keeps its brackets in the drawing: nothing to tell.
    const bool silent = IsSoleFactor(s, n) || node.Role == kRoleExponent ||
                        (node.Role == kRoleBase && s.Pool[c].Kind == kKindPower);
    MoveUp(s, n, c);
    s.Message = silent ? std::string(kSkipMessage)
                       : "3#The brackets around a single quantity like @" + old_text +
                             "@ are not required.  Simplify by removing them.";
    return true;
  }
  // 4. A product inside a term of a sum.
  if (IsSumRole(node.Role) && IsProductRole(child_role)) {
    if (signed_content) return false;
    s.Pool[n].Text = old_text.substr(1, old_text.size() - 2);
    s.Pool[n].Kind = kKindSumOrProduct;
    s.Message =
        "4#Multiplication and division take precedence over addition and subtraction, so the "
        "brackets around @" +
        old_text + "@ are not required.  Simplify by removing them.";
    return true;
  }
  // 5. A sum in a sum, or a product in a product.
  const bool sum_in_sum = IsSumRole(node.Role) && IsSumRole(child_role);
  const bool product_in_product = IsProductRole(node.Role) && IsProductRole(child_role);
  if (!sum_in_sum && !product_in_product) return false;
  if (signed_content) return false;
  if (node.Role == kRoleMinus || node.Role == kRoleDenominator) return false;
  return OpenNested(s, n, old_text);
}

NestedProduct ClassifyNestedProduct(Session& s, NodeIdx n) {
  const NodeIdx enclosing = ParentOf(s, n);
  int numerators = 0;
  int denominators = 0;
  int fractions = 0;
  if (enclosing != kNoNode) {
    for (NodeIdx c = s.Pool[enclosing].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      if (s.Pool[c].Role == kRoleNumerator) ++numerators;
      if (s.Pool[c].Role == kRoleDenominator) ++denominators;
      if (FractionClass(s, c) != 0) ++fractions;
    }
  }
  const bool fraction = FractionClass(s, n) != 0;
  const char role = s.Pool[n].Role;
  if (numerators == 1 && role == kRoleNumerator && denominators >= 1 && !fraction) {
    return NestedProduct::SoleNumerator;
  }
  if (denominators == 1 && role == kRoleDenominator && !fraction) {
    return NestedProduct::SoleDenominator;
  }
  if (fraction && fractions == 1) return NestedProduct::OnlyFraction;
  if (fraction) return NestedProduct::SeveralFractions;
  return NestedProduct::Plain;
}

bool FlattenSumBrackets(Session& s, NodeIdx& slot, bool all_at_once) {
  const NodeIdx n = slot;
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || !IsSumRole(s.Pool[first].Role)) return false;
  bool any_bracket = false;
  for (NodeIdx t = first; t != kNoNode; t = s.Pool[t].Next) {
    any_bracket = any_bracket || s.Pool[t].Kind == kKindBracket;
  }
  if (!any_bracket) return false;
  std::string text;
  std::string sign_word;
  std::string opened;
  for (NodeIdx t = first; t != kNoNode; t = s.Pool[t].Next) {
    const ExprNode& term = s.Pool[t];
    const char outer = term.Role == kRoleMinus ? '-' : '+';
    if (term.Kind != kKindBracket || (!opened.empty() && !all_at_once)) {
      text += std::string(1, outer) + term.Text;
      continue;
    }
    if (opened.empty()) {
      opened = term.Text;
      sign_word = (term.Role == kRolePlus && term.Prev == kNoNode) ? " " : std::string(1, outer);
    }
    const NodeIdx inner_first = term.FirstChild;
    if (inner_first != kNoNode && IsSumRole(s.Pool[inner_first].Role)) {
      for (NodeIdx i = inner_first; i != kNoNode; i = s.Pool[i].Next) {
        text += std::string(1, SignProduct(outer, s.Pool[i].Role)) + s.Pool[i].Text;
      }
    } else {
      std::string inner = term.Text.substr(1, term.Text.size() - 2);
      char inner_sign = '+';
      if (!inner.empty() && (inner[0] == '+' || inner[0] == '-')) {
        inner_sign = inner[0];
        inner.erase(0, 1);
      }
      text += std::string(1, SignProduct(outer, inner_sign)) + inner;
    }
  }
  if (!text.empty() && text[0] == '+') text.erase(0, 1);
  ReplaceNodeContents(s, slot, text, true);
  if (sign_word == " ") {
    s.Message = "13#All sums and differences have the same priority so @" + opened +
                "@ doesn't need brackets.  Simplify by removing them.";
  } else {
    s.Message = "14#Simplify by distributing the " + sign_word + " sign over the contents of  @" +
                opened + "@ .";
  }
  return true;
}

bool DistributeMinusOverBracket(Session& s, NodeIdx& slot) {
  if (!s.DistributeMinus) return false;
  const NodeIdx n = slot;
  const ExprNode& node = s.Pool[n];
  if (node.Text.rfind("-(", 0) != 0 || CountChildren(s, n, false) != 2) return false;
  const NodeIdx bracket = s.Pool[node.FirstChild].Next;
  const ExprNode& second = s.Pool[bracket];
  if (!IsBracket(second) || second.FirstChild == kNoNode ||
      !IsSumRole(s.Pool[second.FirstChild].Role)) {
    return false;
  }
  const std::string old_text = node.Text;
  const std::string text = DistributeProduct(s, n);
  if (text.empty()) return false;
  ReplaceNodeContents(s, slot, text, true);
  s.Message = "90#Simplify by distributing the - sign over the contents of  @" + old_text + "@ .";
  return true;
}

bool DropPlusOnNumber(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const ExprNode& number = s.Pool[n];
  if (number.Kind != kKindNumber || number.Text.size() < 2 || number.Text[0] != '+') return false;
  const std::string text = number.Text;
  const NodeIdx parent = ParentOf(s, n);
  if (parent != kNoNode && s.Pool[parent].Role == kRoleExponent && IsBracket(s.Pool[parent]) &&
      s.Pool[n].Prev == kNoNode && s.Pool[n].Next == kNoNode) {
    NodeIdx parent_slot = parent;
    ReplaceNodeContents(s, parent_slot, text.substr(1), true);
  } else {
    ReplaceNodeContents(s, slot, text.substr(1), true);
  }
  s.Message = "381#Simplify by dropping the unnecessary + sign.";
  return true;
}

void ReplaceNodeContents(Session& s, NodeIdx& slot, const std::string& text, bool simplify) {
  ReplaceNodeContents(s, slot, text);
  if (!simplify) return;
  ScopedOverride message(s.Message);
  ScopedOverride help(s.HelpNumber);
  BracketRule(s, slot);
}

void RewriteNode(Session& s, NodeIdx& slot, const std::string& text, const std::string& message) {
  ReplaceNodeContents(s, slot, text, true);
  s.Message = message;
}

bool RemoveOneBracket(Session& s, NodeIdx& root) { return ApplyPassToTree(s, 1, root); }

}  // namespace tavimor
