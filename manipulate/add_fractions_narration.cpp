// The Add fractions button on a side: the first silent simplification, one sum made into one
// fraction, and the sentences that tell how.
#include "manipulate/add_fractions_narration.h"

#include <cstdlib>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "manipulate/add_fractions.h"
#include "present/step_markup.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

const char* const kSimplifyFirst[] = {
    "Simplify the expression before trying to add fractions:||            @",
    "Simplify the left side of the equation before trying to add fractions:||            @",
    "Simplify the right side of the equation before trying to add fractions:||            @",
};
const char* const kIntoOneFraction[] = {
    " into one fraction by ",
    " on the left side of the equation into one fraction by ",
    " on the right side of the equation into one fraction by ",
};
const char* const kExpressTerms[] = {
    "",
    "following these steps:|   - Express all terms as fractions like this ",
    "following these steps:|   - Express fractions with factored denominators like this ",
    ("following these steps:|   - Express all terms as fractions with factored denominators "
     "like this "),
};

std::string Field(const std::string& record, int field) { return AddFractionsField(record, field); }

}  // namespace

std::string AddFractionsMessage(int side, const std::string& simplified_first,
                                const std::string& record, const std::string& sum, bool whole) {
  const int code = std::atoi(Field(record, kFieldCode).c_str());
  std::string text = std::to_string(code == kFormSameDenominator ? kSameDenominatorHelp
                                                                 : kLowestCommonDenominatorHelp) +
                     "#";
  if (!simplified_first.empty()) text += kSimplifyFirst[side] + simplified_first + "@ .\\|";
  text += "Make @" + sum + "@" + kIntoOneFraction[side];
  if (code == kFormSameDenominator) {
    return text + "adding the numerators over the common denominator.  The result is:";
  }
  if (code == kFormAsWritten) {
    text += "following these steps:|";
  } else {
    const int form = code == kFormTermsAsFractions ? kFieldAsFractions : kFieldFactored;
    text += kExpressTerms[code] + std::string("@") + Field(record, form) + "@ .\\";
  }
  text += "   - Find the lowest common denominator, namely @" + Field(record, kFieldLcd) + "@ .\\";
  text += "   - Express each fraction as an equivalent fraction over the LCD like this @" +
          Field(record, kFieldEquivalent) + "@ .\\";
  if (whole)
    return text +
           "   - Make a single fraction by adding the numerators over the LCD.  The result is:";
  text += "   - Make a single fraction by adding the numerators over the LCD like this @" +
          Field(record, kFieldSingle) + "@ .\\";
  text += "   - Substitute the new fraction into the expression to give @" +
          Field(record, kFieldSubstituted) + "@ .\\";
  if (Field(record, kFieldSimplified) != Field(record, kFieldSubstituted)) {
    text += "   - After simplifying the result is:";
  }
  return text;
}

std::string NothingToAddNote(const std::string& input, const std::string& simplified) {
  if (simplified.empty() || simplified == input) return "";
  return SimplifiedInsteadNote(input, simplified, "There are no fractions to add.");
}

AddFractionsOutcome AddFractionsSide(Session& s, NodeIdx side) {
  AddFractionsOutcome outcome;
  const std::string input = s.Pool[side].Text;
  // Worked on the side's own tree, which is loaded again afterwards: no copy of it is made.
  NodeIdx root = side;
  {
    ScopedOverride detail(s.DetailNow, std::int16_t{0});
    ScopedOverride message(s.Message);
    ScopedOverride help(s.HelpNumber);
    int level = 0;
    SimplifyTree(s, root, level);
  }
  outcome.simplified = s.Pool[root].Text;
  const std::string& simplified = outcome.simplified;
  FractionSum sum;
  const bool added = AddFractionsAt(s, root, 1, sum) || AddFractionsAt(s, root, 2, sum);
  const std::string text = s.Pool[root].Text;
  FreeChildren(s, side);
  LoadSide(s, side, added ? text : input);
  outcome.overflow = sum.overflow;
  outcome.added = added;
  if (!added) return outcome;
  const std::string first = simplified == input ? "" : simplified;
  const std::string message = AddFractionsMessage(0, first, sum.record, sum.sum, sum.whole);
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
  if (s.DetailNow >= 1) {
    s.Message = AddFractionsMessage(SideOfPanel(s), first, sum.record, sum.sum, sum.whole);
    ShowStep(s, side);
  }
  return outcome;
}

}  // namespace tavimor
