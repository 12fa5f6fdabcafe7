// Adding fractions: a sum with fractions in it made into one fraction over the lowest common
// denominator, the record its narration is told from, and the silent form the solver uses.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

inline constexpr const char* kAddFractionsSeparator = "; ";

// Form codes of the record's field 2.
inline constexpr int kFormAsWritten = 0;         // no rewriting was needed
inline constexpr int kFormTermsAsFractions = 1;  // terms were turned into fractions
inline constexpr int kFormFactoredDenominators = 2;
inline constexpr int kFormBoth = 3;
inline constexpr int kFormSameDenominator = 4;  // the fractions already share their denominator

// Fields of the record, counted from 1.
inline constexpr int kFieldBefore = 1;       // the sum as it stood
inline constexpr int kFieldCode = 2;         // the form code
inline constexpr int kFieldFactored = 3;     // the sum with factored denominators
inline constexpr int kFieldAsFractions = 4;  // the sum with every term a fraction
inline constexpr int kFieldLcd = 5;          // the lowest common denominator
inline constexpr int kFieldEquivalent = 6;   // the terms as equivalent fractions over the LCD
inline constexpr int kFieldSingle = 7;       // the single fraction
inline constexpr int kFieldSubstituted = 8;  // the whole with the single fraction in its place
inline constexpr int kFieldSimplified = 9;   // the whole after silent simplification

// Adds the fractions of the first sum that has any (pass 1 the whole tree at the slot, pass 2
// each sum from the bottom up) and puts the simplified whole in place. False, the tree as it
// was, when no sum has fractions to add; an LCD past 2147483647 is told in a message box and
// adds nothing. The record is filled on success.
bool AddFractionsTree(Session& s, NodeIdx& slot, int pass, std::string& record);
// The same on a text: pass 1, then pass 2; the text becomes the simplified whole.
bool AddFractions(Session& s, std::string& text, std::string& record);
std::string AddFractionsField(const std::string& record, int field);

// What one addition found, beyond the record: the numerators over the LCD as a sum, and whether
// the single fraction cancels a factor of its numerator with the LCD.
struct FractionSum {
  std::string record;
  std::string sum;  // the text of the sum that was added
  std::string numerators;
  bool cancels = false;
  bool whole = false;     // the sum was the whole text
  bool overflow = false;  // an LCD past 2147483647 stopped the addition (told in a message box)
};
// AddFractionsTree with what the solver and the narration need besides the record.
bool AddFractionsAt(Session& s, NodeIdx& slot, int pass, FractionSum& sum);

// The sum in `text` put over one denominator, silently (no step is written).
// Returns 0 when there is nothing to add: the text is no sum with a fraction among its terms, or
// the LCD is 1; `text` and `report` are left alone.
// Returns 1 when the terms were put over the LCD: `text` is now that single fraction.
// Returns 2 when, beyond that, the single fraction cancelled a factor of its numerator with the
// LCD (factor-and-cancel), so `text` is simpler than the plain sum over the LCD.
// `report` holds pieces joined by "; ": 1 the form code ("0" to "4"), 2 the text before, 3 the
// sum of the terms each written over the LCD, 4 the LCD, 5 the numerators of those terms as a sum
// (each multiplied by what its denominator lacked), 6 the single fraction.
int CombineFractions(Session& s, std::string& text, std::string& report);

}  // namespace tavimor
