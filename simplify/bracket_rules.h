// Brackets and signs: brackets that say nothing go, bracketed terms of a sum are opened, a minus
// is distributed over a bracket, a plus on a number is dropped.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Removes one bracket at the node that is not required (five cases, tried in order).
bool BracketRule(Session& s, NodeIdx& slot);
// How a bracketed product sits in the product around it (the numbers are the cases as the
// bracket rule tells them).
enum class NestedProduct {
  SoleNumerator = 1,     // the one numerator over denominators: (a*b)/c
  SeveralFractions = 2,  // one of several fractions: left alone
  OnlyFraction = 3,      // the only fraction among its factors
  Plain = 4,             // any other factor
  SoleDenominator = 5,   // the one denominator: a/(b*c)
};
NestedProduct ClassifyNestedProduct(Session& s, NodeIdx n);
// Opens the first bracketed term of a sum (all of them with `all_at_once`), signs multiplied.
bool FlattenSumBrackets(Session& s, NodeIdx& slot, bool all_at_once);
// -(a+b) -> -a-b, while the DistributeMinus switch is on.
bool DistributeMinusOverBracket(Session& s, NodeIdx& slot);
// +2 -> 2.
bool DropPlusOnNumber(Session& s, NodeIdx& slot);

// Strips the text's outer brackets and parses it into the node (a function keeps its name);
// with `simplify`, the bracket rule then runs at the node with Message and HelpNumber kept, so
// that the brackets just written do not show.
void ReplaceNodeContents(Session& s, NodeIdx& slot, const std::string& text, bool simplify);

// The common tail of a rule: the flagged ReplaceNodeContents, then the rule's message.
void RewriteNode(Session& s, NodeIdx& slot, const std::string& text, const std::string& message);

// Applies the bracket rule over the inner nodes of a tree, children first, until one fires.
bool RemoveOneBracket(Session& s, NodeIdx& root);

}  // namespace tavimor
