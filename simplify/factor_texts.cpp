// Small questions and texts shared by the rules of products, powers and radicals.
#include "simplify/factor_texts.h"

#include "core/number_text.h"
#include "core/pieces.h"
#include "core/text_predicates.h"

namespace tavimor {

std::string ContentText(const ExprNode& node) {
  if (IsBracketNode(node) && node.Text.size() >= 2) {
    return node.Text.substr(1, node.Text.size() - 2);
  }
  if (node.Kind == kKindFunction) {
    const std::size_t open = node.Text.find('(');
    if (open != std::string::npos && node.Text.size() >= open + 2) {
      return node.Text.substr(open + 1, node.Text.size() - open - 2);
    }
  }
  return node.Text;
}

bool IsPseudoSign(const ExprNode& node) {
  return node.Kind == kKindNumber && node.FirstChild == kNoNode &&
         (node.Text == "-" || node.Text == "+");
}

bool IsNumberLeaf(const ExprNode& node) {
  return node.Kind == kKindNumber && node.FirstChild == kNoNode && !IsPseudoSign(node);
}

bool IsBracketNode(const ExprNode& node) {
  return node.Kind == kKindBracket || node.Kind == kKindHiddenBracket;
}

bool HoldsProduct(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (!IsBracketNode(node) && node.Kind != kKindFunction) return false;
  return node.FirstChild != kNoNode && IsProductRole(s.Pool[node.FirstChild].Role);
}

bool HoldsFraction(const Session& s, NodeIdx n) {
  if (!HoldsProduct(s, n)) return false;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (s.Pool[c].Role == kRoleDenominator) return true;
  }
  return false;
}

bool IsFunctionNamed(const ExprNode& node, std::string_view name) {
  return node.Kind == kKindFunction && node.Text.size() > name.size() &&
         node.Text.compare(0, name.size(), name) == 0 && node.Text[name.size()] == '(';
}

bool IsNumberToken(const Session& s, const std::string& text) {
  return !text.empty() && NumberEnd(s, text, 1) == static_cast<int>(text.size());
}

std::string JoinFactors(const std::vector<std::string>& numerator,
                        const std::vector<std::string>& denominator) {
  std::string text;
  for (const std::string& factor : numerator) AppendPiece(text, '*', factor);
  if (text.empty()) text = "1";
  for (const std::string& factor : denominator) text += "/" + factor;
  return text;
}

std::string BracketIfNeeded(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

std::string BaseText(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) || IsPowerText(s, text) ? "(" + text + ")" : text;
}

std::string OperandText(Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (IsBracketNode(node) || node.Kind == kKindFunction || node.Kind == kKindVariable) {
    return node.Text;
  }
  if (node.Kind == kKindNumber && node.FirstChild == kNoNode) {
    return node.Text[0] == '-' ? "(" + node.Text + ")" : node.Text;
  }
  return "(" + node.Text + ")";
}

std::string NormalisedText(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (!IsBracketNode(node)) return node.Text;
  const NodeIdx first = node.FirstChild;
  if (node.Kind == kKindHiddenBracket || (first != kNoNode && s.Pool[first].Role == kRoleNone)) {
    return ContentText(node);
  }
  return node.Text;
}

}  // namespace tavimor
