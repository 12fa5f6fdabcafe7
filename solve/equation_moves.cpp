// The driver's moves on both sides of an equation: common terms cancelled, a common factor
// found, a side scaled, a like term moved across.
#include "solve/equation_moves.h"

#include <vector>

#include "core/brackets.h"
#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "simplify/collect_sum.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// The terms of a side; a side that is not a sum counts as a sum with "+0" behind it.
std::vector<SignedTerm> TermsOf(Session& s, const std::string& side) {
  return SignedTerms(s, IsSumText(s, side) ? side : side + "+0");
}

// The terms that are not "0", joined into a sum; "0" when none are left.
std::string Rebuild(const std::vector<SignedTerm>& terms, const std::vector<bool>& gone) {
  std::vector<std::string> kept;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    if (!gone[i] && terms[i].text != "0") kept.push_back(SignedText(terms[i]));
  }
  return kept.empty() ? "0" : JoinTerms(kept);
}

// A coefficient and what is left of a term, as the sums compare them.
struct CoefficientSplit {
  double coefficient = 1.0;
  std::string rest;
  std::string text;
};

std::vector<CoefficientSplit> SplitTerms(Session& s, const std::string& side) {
  std::vector<CoefficientSplit> splits;
  TempTree tree(s, IsSumText(s, side) ? side : side + "+0", TempTree::Depth::Whole);
  for (NodeIdx c = tree[tree.Root()].FirstChild; c != kNoNode; c = tree[c].Next) {
    if (tree[c].Text == "0") continue;
    const SplitParts parts = SplitTerm(s, c);
    splits.push_back({parts.numerator / parts.denominator,
                      parts.numerator_text + "/" + parts.denominator_text, tree[c].Text});
  }
  return splits;
}

}  // namespace

std::string CancelCommonTerms(Session& s, std::string& left, std::string& right) {
  if (left == "0" && right == "0") return "";
  if (left == right) {
    left = "0";
    right = "0";
    return "";
  }
  if (!IsSumText(s, left) && !IsSumText(s, right)) return "";
  const std::vector<SignedTerm> left_terms = TermsOf(s, left);
  const std::vector<SignedTerm> right_terms = TermsOf(s, right);
  std::vector<bool> left_gone(left_terms.size(), false);
  std::vector<bool> right_gone(right_terms.size(), false);
  std::string q;
  for (std::size_t i = 0; i < left_terms.size(); ++i) {
    if (left_terms[i].text == "0") continue;
    for (std::size_t j = 0; j < right_terms.size(); ++j) {
      if (right_gone[j] || right_terms[j].text != left_terms[i].text ||
          right_terms[j].minus != left_terms[i].minus) {
        continue;
      }
      left_gone[i] = true;
      right_gone[j] = true;
      q += (left_terms[i].minus ? "-" : "+") + left_terms[i].text;
      break;
    }
  }
  if (q.empty()) return "";
  left = Rebuild(left_terms, left_gone);
  right = Rebuild(right_terms, right_gone);
  return q[0] == '-' ? "adding @" + q.substr(1) + "@ to" : "subtracting @" + q.substr(1) + "@ from";
}

CommonFactorFinding FindCommonFactor(Session& s, const std::string& left, const std::string& right,
                                     const std::string& unknown) {
  std::string whole;
  if (left == "0" && IsSumText(s, right)) {
    whole = right;
  } else if (right == "0" && IsSumText(s, left)) {
    whole = left;
  } else {
    // (left)-(right) with its brackets dropped, the terms as they stand: nothing is collected, so
    // 2*x+3=7 looks at 2*x+3-7, whose terms share no factor, and is solved by undoing its layers.
    std::vector<std::string> terms;
    for (const SignedTerm& term : TermsOf(s, left)) {
      if (term.text != "0") terms.push_back(SignedText(term));
    }
    for (SignedTerm term : TermsOf(s, right)) {
      term.minus = !term.minus;
      if (term.text != "0") terms.push_back(SignedText(term));
    }
    whole = terms.empty() ? "0" : JoinTerms(terms);
  }
  CommonFactorFinding finding;
  const std::optional<std::string> factor = CommonFactorOf(s, whole, 2);
  if (!factor) return finding;
  finding.factor = *factor;
  finding.occurrences = CountOccurrences(s, finding.factor, unknown);
  return finding;
}

std::string ScaleSide(Session& s, const std::string& side, char op, const std::string& factor,
                      bool distribute) {
  if (side == "0") return "0";
  if (op == '*') {
    if (factor == "0") return "0";
    if (side == "1") return factor;
    if (factor == "1") return side;
  }
  const std::string f = "(" + StripBrackets(factor) + ")";
  if (distribute && IsSumText(s, side)) {
    std::vector<std::string> terms;
    for (const SignedTerm& term : SignedTerms(s, side)) {
      terms.push_back(SimplifyText(s, "(" + SignedText(term) + ")" + op + f));
    }
    return SimplifyText(s, JoinTerms(terms));
  }
  return SimplifyText(s, "(" + StripBrackets(side) + ")" + op + f);
}

LikeTermMove MoveLikeTerm(Session& s, const std::string& left, const std::string& right) {
  LikeTermMove move;
  const std::vector<CoefficientSplit> left_terms = SplitTerms(s, left);
  const std::vector<CoefficientSplit> right_terms = SplitTerms(s, right);
  for (const CoefficientSplit& l : left_terms) {
    for (const CoefficientSplit& r : right_terms) {
      if (l.rest != r.rest) continue;
      const double r0 = l.coefficient;
      const double r1 = r.coefficient;
      // Later tests override earlier ones.
      if (r1 > 0 && r0 > r1) move = {true, true, r.text};
      if (r1 < 0 && r0 > r1) move = {true, false, r.text};
      if (r0 > 0 && r0 < r1) move = {true, true, l.text};
      if (r0 < 0 && r0 < r1) move = {true, false, l.text};
      // Two equal coefficients: the term itself leaves both sides.
      if (!move.found) move = {true, r0 > 0, l.text};
      return move;
    }
  }
  return move;
}

}  // namespace tavimor
