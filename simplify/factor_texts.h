// Small questions and texts shared by the rules of products, powers and radicals.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The text of a node's content: without the brackets or the function name around it.
std::string ContentText(const ExprNode& node);
// The pseudo numbers "-" and "+" that stand for a unary sign.
bool IsPseudoSign(const ExprNode& node);
// A number leaf other than the pseudo signs.
bool IsNumberLeaf(const ExprNode& node);
bool IsBracketNode(const ExprNode& node);
// A bracket or function whose content is a product (its first child a factor).
bool HoldsProduct(const Session& s, NodeIdx n);
// A bracket or function whose content is a product with a denominator factor.
bool HoldsFraction(const Session& s, NodeIdx n);
// A function node of the given name, such as "sqrt".
bool IsFunctionNamed(const ExprNode& node, std::string_view name);
// The text is exactly one number, sign included.
bool IsNumberToken(const Session& s, const std::string& text);
// Numerator texts joined by "*", each denominator text led by "/"; "1" when no numerator.
std::string JoinFactors(const std::vector<std::string>& numerator,
                        const std::vector<std::string>& denominator);
// The text wrapped in brackets when it is a sum, a product or a negative number.
std::string BracketIfNeeded(Session& s, const std::string& text);
// The text as the base of a power: bracketed when it is a sum, a product, a negative number or
// a power itself.
std::string BaseText(Session& s, const std::string& text);
// A node's text as an operand: a bracket or function as it stands, a number, a letter; for a
// bracket that only shows (an exponent's) the brackets are kept too. Anything else bracketed.
std::string OperandText(Session& s, NodeIdx n);
// The text of a bracket holding one quantity without its brackets; of a shown-only bracket
// without its brackets; otherwise the text itself.
std::string NormalisedText(const Session& s, NodeIdx n);

}  // namespace tavimor
