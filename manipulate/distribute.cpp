// Distributing the other factors of a product over a bracketed sum among them.
#include "manipulate/distribute.h"

#include <vector>

#include "core/pieces.h"

namespace tavimor {

bool IsBracketedSum(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  return (node.Kind == kKindBracket || node.Kind == kKindHiddenBracket) &&
         node.FirstChild != kNoNode && IsSumRole(s.Pool[node.FirstChild].Role);
}

namespace {

// A negative number among the factors gives its sign to the multiplier: -2 -> 2.
std::string UnsignedFactor(const ExprNode& factor, char& sign) {
  if (factor.Kind != kKindNumber || factor.Text.size() < 2 || factor.Text[0] != '-') {
    return factor.Text;
  }
  sign = SignProduct(sign, '-');
  return factor.Text.substr(1);
}

}  // namespace

char SignProduct(char outer, char inner) {
  const bool outer_minus = outer == '-';
  const bool inner_minus = inner == '-';
  return outer_minus == inner_minus ? '+' : '-';
}

std::string DistributeProduct(const Session& s, NodeIdx product) {
  NodeIdx bracket = kNoNode;
  for (NodeIdx c = s.Pool[product].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (s.Pool[c].Role == kRoleNumerator && IsBracketedSum(s, c)) {
      bracket = c;
      break;
    }
  }
  if (bracket == kNoNode) return "";
  return DistributeProductOver(s, product, bracket);
}

std::string DistributeProductOver(const Session& s, NodeIdx product, NodeIdx bracket) {
  // The other factors: those before the bracket are written before each term, those after it
  // behind; a lone sign or a factor -1 becomes the sign of the multiplier.
  char sign = '+';
  std::string before;
  std::string after;
  std::string denominators;
  bool seen_bracket = false;
  for (NodeIdx c = s.Pool[product].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (c == bracket) {
      seen_bracket = true;
      continue;
    }
    if (factor.Role == kRoleDenominator) {
      denominators += "/" + factor.Text;
      continue;
    }
    if (factor.Kind == kKindNumber && (factor.Text == "-" || factor.Text == "-1")) {
      sign = SignProduct(sign, '-');
      continue;
    }
    if (factor.Kind == kKindNumber && factor.Text == "+") continue;
    std::string& side = seen_bracket ? after : before;
    AppendPiece(side, '*', UnsignedFactor(factor, sign));
  }
  std::string text;
  for (NodeIdx t = s.Pool[bracket].FirstChild; t != kNoNode; t = s.Pool[t].Next) {
    const ExprNode& term = s.Pool[t];
    std::string body = term.Text;
    if (body == "1" && (!before.empty() || !after.empty())) body.clear();
    std::string piece = before;
    if (!body.empty()) AppendPiece(piece, '*', body);
    if (!after.empty()) AppendPiece(piece, '*', after);
    if (piece.empty()) piece = "1";
    text += std::string(1, SignProduct(sign, term.Role)) + piece + denominators;
  }
  if (!text.empty() && text[0] == '+') text.erase(0, 1);
  return text;
}

// (a+b) in the denominator times the other denominators c: a*c+b*c, each term in its order.
std::string DistributeDenominator(const Session& s, NodeIdx product, NodeIdx bracket) {
  char sign = '+';
  std::string numerator;
  std::string others;
  for (NodeIdx c = s.Pool[product].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (c == bracket) continue;
    if (factor.Kind == kKindNumber && (factor.Text == "-" || factor.Text == "-1")) {
      sign = SignProduct(sign, '-');
      continue;
    }
    if (factor.Kind == kKindNumber && factor.Text == "+") continue;
    std::string& side = factor.Role == kRoleDenominator ? others : numerator;
    AppendPiece(side, '*', UnsignedFactor(factor, sign));
  }
  if (numerator.empty()) numerator = "1";
  if (sign == '-') numerator = "-" + numerator;
  std::string sum;
  for (NodeIdx t = s.Pool[bracket].FirstChild; t != kNoNode; t = s.Pool[t].Next) {
    const ExprNode& term = s.Pool[t];
    std::string piece = term.Text == "1" && !others.empty() ? others : term.Text;
    if (term.Text != "1" && !others.empty()) piece += "*" + others;
    sum += std::string(1, SignProduct('+', term.Role)) + piece;
  }
  if (!sum.empty() && sum[0] == '+') sum.erase(0, 1);
  return numerator + "/(" + sum + ")";
}

}  // namespace tavimor
