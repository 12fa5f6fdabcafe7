// Products in the house form: one sign, one coefficient in lowest terms, factors sorted, like
// bases combined through their exponents.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Collects and sorts the product at the node (help 356 to 362). `level` comes back 1 for a
// change of form only, 2 when factors were sorted.
bool CollectProduct(Session& s, NodeIdx& slot, int& level);
// The same, for the dispatch table.
bool CollectProductRule(Session& s, NodeIdx& slot);
// The key a factor is sorted by: numbers first (numerator before denominator), then powers of
// numbers by value, then letters in alphabetical order, brackets, powers of powers, functions.
std::string FactorSortKey(Session& s, NodeIdx factor);

}  // namespace tavimor
