// Sums in the house form: zero terms gone, terms sorted from highest power to lowest, like terms
// combined with exact coefficients.
#include "simplify/collect_sum.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "manipulate/reduce_fraction.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

// Bits of what a collection did; the help number is 380 plus the bits.
constexpr int kBitDropped = 1;   // an initial + sign or zero terms dropped
constexpr int kBitSorted = 2;    // terms sorted
constexpr int kBitCombined = 4;  // like terms combined

struct Entry {
  SplitParts parts;
  std::string key;
  NodeIdx node = kNoNode;
  std::string text;  // the term with its sign, as written before
};

// The rank of a power with a number exponent n: 50 - n, at least 20; a very negative exponent
// ranks with the numbers' neighbours instead of beyond the range of an int.
double PowerRank(double n) {
  const double rank = 50.0 - n;
  if (!(rank < 1e6)) return 1e6;  // also a NaN exponent
  return std::max(20.0, rank);
}

// The rank as the head of a sort key, written to a fixed width so that keys compared as text
// order the ranks as numbers: 47.5 between 47 and 48, and 110 after 99.
std::string RankKey(double rank) {
  // A whole rank (the usual case) is written as the format below writes it, without the format.
  if (!std::signbit(rank) && rank < 1e7 && rank == std::floor(rank)) {
    std::string key = "0000000.0000";
    for (auto whole = static_cast<long>(rank), place = 6L; whole > 0; whole /= 10, --place) {
      key[static_cast<std::size_t>(place)] = static_cast<char>('0' + whole % 10);
    }
    return key;
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%012.4f", rank);
  return text.data();
}

// Exact work stops at the bound: like terms whose coefficients reach it are left as they are,
// so that no digit is lost (1E20+1 stays as it is).
bool BeyondExact(const Session& s, double value) {
  return !s.ExactToFloat && !(std::fabs(value) < kIntegerBound);
}

std::string SignedText(const Session& s, NodeIdx term) {
  return std::string(s.Pool[term].Role == kRoleMinus ? "-" : "+") + s.Pool[term].Text;
}

}  // namespace

SplitParts SplitTerm(Session& s, NodeIdx term) {
  SplitParts parts;
  const ExprNode& node = s.Pool[term];
  double sign = node.Role == kRoleMinus ? -1.0 : 1.0;
  if (node.Kind == kKindNumber && node.FirstChild == kNoNode) {
    parts.numerator = sign * SnapToInteger(s, node.Text);
    return parts;
  }
  if (node.Kind != kKindSumOrProduct || node.FirstChild == kNoNode) {
    parts.numerator = sign;
    parts.numerator_text = node.Text;
    return parts;
  }
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    const bool number = factor.Kind == kKindNumber && factor.FirstChild == kNoNode;
    if (number && (factor.Text == "-" || factor.Text == "+")) {
      if (factor.Text == "-") sign = -sign;
      continue;
    }
    if (factor.Role == kRoleDenominator) {
      if (number) {
        parts.denominator *= SnapToInteger(s, factor.Text);
      } else {
        AppendPiece(parts.denominator_text, '/', factor.Text);
      }
    } else if (number) {
      parts.numerator *= SnapToInteger(s, factor.Text);
    } else {
      AppendPiece(parts.numerator_text, '*', factor.Text);
    }
  }
  parts.numerator *= sign;
  return parts;
}

double TermRank(Session& s, NodeIdx term, int depth) {
  const ExprNode& node = s.Pool[term];
  if (node.Kind == kKindNumber) return 99;
  if (node.Kind == kKindBracket || node.Kind == kKindHiddenBracket) return 98;
  if (node.Kind == kKindVariable) return 49;
  if (node.Kind == kKindPower) {
    const ExprNode& exponent_node = s.Pool[node.FirstChild];
    const std::string& exponent = exponent_node.Text;
    // A number leaf is its own value; anything else is simplified to find out.
    if (exponent_node.Kind == kKindNumber && exponent_node.FirstChild == kNoNode &&
        exponent != "-" && exponent != "+") {
      return PowerRank(SafeValue(s, exponent));
    }
    if (const std::optional<double> n = NumericTextValue(s, exponent)) return PowerRank(*n);
    return 19;
  }
  if (node.Kind == kKindFunction) {
    return node.Text.rfind("sin(", 0) == 0 || node.Text.rfind("arcsin(", 0) == 0 ? 12 : 11;
  }
  const NodeIdx first = node.FirstChild;
  if (depth == 1 && node.Kind == kKindSumOrProduct && first != kNoNode &&
      IsProductRole(s.Pool[first].Role)) {
    double top = 99;
    double bottom = 99;
    for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
      double& side = s.Pool[c].Role == kRoleDenominator ? bottom : top;
      side = std::min(side, TermRank(s, c, 2));
    }
    return top >= 49 && bottom >= 19 && bottom <= 49 ? 100 - bottom : top;
  }
  return 55;
}

bool CollectSum(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || !IsSumRole(s.Pool[first].Role)) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  const int count = CountChildren(s, n, false);
  // 1. The terms, zero terms dropped, and the heading word.
  std::vector<Entry> entries;
  entries.reserve(static_cast<std::size_t>(count));
  int zeros = 0;
  std::string word;
  const bool initial_plus = s.Pool[first].Role == kRoleLeadingPlus;
  for (NodeIdx t = first; t != kNoNode; t = s.Pool[t].Next) {
    Entry entry;
    entry.parts = SplitTerm(s, t);
    entry.node = t;
    entry.text = SignedText(s, t);
    if (s.Pool[t].Role == kRoleMinus) word = "difference ";
    if (!entry.parts.numerator_text.empty() || !entry.parts.denominator_text.empty() ||
        count >= 3) {
      word = "sum ";
    }
    if (entry.parts.numerator == 0.0) {
      ++zeros;
      continue;
    }
    entry.key =
        RankKey(TermRank(s, t, 1)) + entry.parts.numerator_text + entry.parts.denominator_text;
    entries.push_back(std::move(entry));
  }
  // 2. Bubble sort by key.
  int bits = 0;
  int level = 0;
  for (bool swapped = true; swapped;) {
    swapped = false;
    for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
      if (entries[i].key > entries[i + 1].key) {
        std::swap(entries[i], entries[i + 1]);
        swapped = true;
        bits |= kBitSorted;
        level = 1;
      }
    }
  }
  if (initial_plus || zeros > 0) {
    bits |= kBitDropped;
    level = 2;
  }
  // 4. Runs of equal keys: like terms are combined (the narration of each kept for step 5).
  std::string text;
  std::vector<std::string> runs;
  const auto keep_term = [&s, &text](const Entry& entry) {
    const std::string term =
        FormatCoefficient(s, entry.parts.numerator, entry.parts.denominator,
                          entry.parts.numerator_text, entry.parts.denominator_text);
    if (term[0] != '-') text += '+';
    text += term;
  };
  for (std::size_t i = 0; i < entries.size();) {
    std::size_t j = i + 1;
    while (j < entries.size() && entries[j].key == entries[i].key) ++j;
    const Entry& head = entries[i];
    if (j - i == 1) {
      keep_term(head);
      i = j;
      continue;
    }
    double a = 0.0;
    double b = 1.0;
    std::string old_run;
    bool beyond = false;
    for (std::size_t k = i; k < j; ++k) {
      const double c = entries[k].parts.numerator;
      const double d = entries[k].parts.denominator;
      beyond = beyond || BeyondExact(s, c) || BeyondExact(s, d);
      a = a * d + c * b;  // a/b + c/d = (a*d + c*b) / (b*d)
      b = b * d;
      old_run += entries[k].text;
    }
    if (beyond || BeyondExact(s, a) || BeyondExact(s, b)) {
      for (std::size_t k = i; k < j; ++k) keep_term(entries[k]);
      i = j;
      continue;
    }
    int flag = 0;
    ReduceFraction(a, b, flag);
    if (!old_run.empty() && old_run[0] == '+') old_run.erase(0, 1);
    std::string new_run = "0";
    if (a != 0.0) {
      new_run = FormatCoefficient(s, a, b, head.parts.numerator_text, head.parts.denominator_text);
      if (new_run[0] != '-') text += '+';
      text += new_run;
    }
    bits |= kBitCombined;
    runs.push_back(std::string(a != 0.0 ? "combining like terms @" : "canceling @") + old_run +
                   "->" + new_run + "@ .|");
    i = j;
  }
  if (!text.empty() && text[0] == '+') text.erase(0, 1);
  if (text.empty()) text = "0";
  // The level; a sum already in its house form is left as it is, and told nothing.
  if (text != old_text && level == 0) level = 2;
  if (level == 0) return false;
  // 5. The narration, and its closing.
  StepParts parts;
  AddStepPart(parts, "Simplify the " + word + "@" + old_text + "@ by:|");
  if (initial_plus) AddStepPart(parts, "dropping the initial + sign.|");
  if (zeros > 0) AddStepPart(parts, "dropping 0 terms.|");
  if (bits & kBitSorted) {
    AddStepPart(parts,
                "sorting the terms (from highest power to lowest power, in alphabetical order and "
                "numbers last).|");
  }
  for (const std::string& run : runs) AddStepPart(parts, run);
  AddStepPart(parts, "The result is:");
  ReplaceNodeContents(s, slot, text, true);
  s.Message = bits == kBitSorted ? std::string(kSortTermsMessage)
                                 : std::to_string(380 + bits) + "#" + JoinStepParts(parts);
  return true;
}

}  // namespace tavimor
