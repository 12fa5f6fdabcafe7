// The parser: the text of a node becomes its subtree, one level at a time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

namespace tavimor {

// Entries one level of the parser may make; the next raises the run-time error.
inline constexpr int kParseEntryLimit = 50;

// ParseOne on the node, then ParseTree on each child in order.
void ParseTree(Session& s, NodeIdx n);
// Parses one level of the node's Text: sets Kind and makes the children, whose Text is not
// parsed further. Does nothing on a number, a variable, or a node that has children.
void ParseOne(Session& s, NodeIdx n);
// How many terms ParseOne would make of the text at its top level (1 for a text that is no sum),
// found without a tree; raises the run-time errors that reading them would (a bracket never
// closed, more terms than one level may hold).
int TopLevelTermCount(const Session& s, std::string_view text);
// One term of a sum as ParseOne makes it: its sign as its role, its text without the sign.
struct TopLevelTerm {
  char role = ' ';
  std::string_view text;  // within the text read
};
// The terms ParseOne would make of a sum, read off the text; empty when it finds one term (a
// bracket, a product, a function: their reading goes further than the top level).
std::vector<TopLevelTerm> TopLevelTerms(const Session& s, std::string_view text);
// Splits at the last "^" of a chain: `a^b^c` has base `a^b` and exponent `c`. An empty exponent
// means the text is no power.
void SplitPower(const Session& s, std::string_view text, std::string& base, std::string& exponent);
// Kind "[" for a bracket that the structure shows: an exponent, or the sole numerator or sole
// denominator of a product unless the bracket holds a fraction itself.
void MarkBracket(Session& s, NodeIdx n);
// Whether the node is the only numerator or the only denominator of its product.
bool IsSoleFactor(const Session& s, NodeIdx n);

}  // namespace tavimor
