// The terms of an equation's sides as the radical and logarithm solvers list them, and the move
// of every term not marked to stay.
#include "solve/side_terms.h"

#include "core/text_predicates.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

std::vector<SideTerm> ListSideTerms(Session& s, const std::string& side) {
  std::vector<SideTerm> terms;
  if (IsSumText(s, side)) {
    for (const SignedTerm& term : SignedTerms(s, side)) terms.push_back({term, false});
  } else {
    terms.push_back({SignedTerm{false, side}, false});
  }
  return terms;
}

bool MoveUnflagged(Session& s, std::string& left, std::string& right,
                   const std::vector<SideTerm>& left_terms,
                   const std::vector<SideTerm>& right_terms) {
  std::string moved;
  for (const std::vector<SideTerm>* terms : {&left_terms, &right_terms}) {
    for (const SideTerm& t : *terms) {
      if (t.stays || t.term.text == "0") continue;
      // a - (+t) on both sides: the term's sign reversed
      moved += (t.term.minus ? "+(" : "-(") + t.term.text + ")";
    }
  }
  if (moved.empty()) return false;
  left = SimplifyText(s, "(" + left + ")" + moved);
  right = SimplifyText(s, "(" + right + ")" + moved);
  return true;
}

}  // namespace tavimor
