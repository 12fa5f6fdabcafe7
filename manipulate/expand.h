// Expansion: products multiplied out over bracketed sums and integer powers of sums opened, one
// place at a time, each step narrated.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The record of a step while it is worked out, five fields parted by "; ": the form before the
// expansion, the count of expansions so far, the form after an inner rewrite (or the theorem's
// statement), the expanded form, the simplified form (empty when simplifying changed nothing).
inline constexpr const char* kExpandRecordSeparator = "; ";
inline constexpr const char* kFreshExpandRecord = "; 0; ; ; ";

// Largest bracket that the multinomial theorem opens, and the most terms it writes out.
inline constexpr int kTheoremMaxTerms = 5;
inline constexpr int kTheoremMaxProducts = 100;

// Expands the tree step by step; in "show one at a time" mode stops after one shown step. True
// if anything was expanded. On return Message holds the record; its field 1 is the tree after
// the silent first simplification when nothing was expanded.
bool ExpandTree(Session& s, NodeIdx& root);
// One walk of the tree with one pass (1 products, 2 low powers, 3 theorem) in the order of the
// simplify loop's pass 9; stops at the first place that fires and fills the record.
bool ExpandPass(Session& s, int pass, NodeIdx& root, std::string& record);

// The factor of the node a distribution starts from: a bracketed sum in the numerator, or in the
// denominator beside another denominator factor when denominators are expanded too; 0 if none.
NodeIdx FindDistributableFactor(const Session& s, NodeIdx n);
// A positive integer power n of a bracketed sum of k terms.
bool PowerOfSum(const Session& s, NodeIdx n, int& exponent, int& term_count);
// b^2 -> b*b; b^n -> b^(n-1)*b.
std::string PowerToProduct(const Session& s, NodeIdx power);
// The expansion of a power of a sum of 2 to 5 terms by the multinomial theorem, and the
// statement of the theorem for the message (empty when it is too long to read). False, with
// nothing written, for more terms or an expansion beyond kTheoremMaxProducts products or the
// system's integers.
bool PowerByTheorem(Session& s, NodeIdx power, std::string& expansion, std::string& formula);

// Expand on one side for the command frame: with `denominators` ExpandMode is 2 for the run and
// 1 again afterwards. True if anything was expanded.
bool ExpandSide(Session& s, NodeIdx side, bool denominators);
// The note for a side that the first simplification changed but that had nothing to expand:
// empty when the simplified form (field 1 of the record) is the input.
std::string NothingToExpandNote(const std::string& input, const std::string& record);

// The narration of a distribution step and of a theorem step from their record.
std::string DistributionStepMessage(const std::string& record);
std::string TheoremStepMessage(const std::string& record);

}  // namespace tavimor
