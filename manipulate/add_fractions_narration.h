// The Add fractions button on a side: the first silent simplification, one sum made into one
// fraction, and the sentences that tell how.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Help topics of the two kinds of step: fractions over one denominator already, and the steps
// through the lowest common denominator.
inline constexpr int kSameDenominatorHelp = 290;
inline constexpr int kLowestCommonDenominatorHelp = 291;

// The message of an addition from its record: the side (0 expression, 1 left, 2 right), the
// text the first simplification made of the side (empty when it changed nothing), the sum that
// was added, and whether it was the whole side. Starts with the help number and "#".
std::string AddFractionsMessage(int side, const std::string& simplified_first,
                                const std::string& record, const std::string& sum, bool whole);

// What a press did: whether a sum was added, whether an LCD too large stopped it (told in its
// message box), and the side after the first silent simplification.
struct AddFractionsOutcome {
  bool added = false;
  bool overflow = false;
  std::string simplified;
};
// Adds the fractions of one sum of the side, told as a step when steps are shown.
AddFractionsOutcome AddFractionsSide(Session& s, NodeIdx side);

// The note for a side that only the first simplification changed; empty when it did not.
std::string NothingToAddNote(const std::string& input, const std::string& simplified);

}  // namespace tavimor
