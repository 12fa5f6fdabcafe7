// The terms of an equation's sides as the radical and logarithm solvers list them, and the move
// of every term not marked to stay.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "manipulate/factor.h"

namespace tavimor {

// One term of a side, with its sign, and whether it stays where it is.
struct SideTerm {
  SignedTerm term;
  bool stays = false;
};

// A sum gives its terms, a subtracted term with its minus in front; anything else is one term.
std::vector<SideTerm> ListSideTerms(Session& s, const std::string& side);
// Every term that does not stay is subtracted on both sides, and both sides are simplified.
// False when nothing was to move.
bool MoveUnflagged(Session& s, std::string& left, std::string& right,
                   const std::vector<SideTerm>& left_terms,
                   const std::vector<SideTerm>& right_terms);

}  // namespace tavimor
