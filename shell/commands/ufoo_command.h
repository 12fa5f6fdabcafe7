// The Useful form of one button: its dialog as data (the five choices, the two boxes, the two
// check boxes), Apply in the command frame, and the terminal tutor's word.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "manipulate/useful_form_of_one.h"

namespace tavimor {

inline constexpr const char* kUfooCaption =
    "Multiply the expression by a Useful Form Of One (UFOO)";
inline constexpr const char* kUfooError = "Error in UFOO.";
inline constexpr const char* kUfooNothing = "We can't apply a UFOO";
inline constexpr const char* kUfooOptionsHeading = "Options after applying the UFOO";
inline constexpr const char* kUfooExpandNumerator = "Expand the numerator";
inline constexpr const char* kUfooExpandDenominator = "Expand the denominator";
inline constexpr const char* kUfooBoxLabel = "UFOO  =";
inline constexpr const char* kUfooWord = "ufoo";

// The caption of each option button; the first two are pictures of -1/-1 and pi/pi.
const std::vector<std::string>& UfooOptionCaptions();

// The dialog UFOO, screen-free.
struct UfooDialogState {
  NodeIdx side = kLeftRoot;
  UfooOption option = UfooOption::MinusOne;
  std::string numerator_box;    // Text1(0)
  std::string denominator_box;  // Text1(1)
  bool expand_numerator = false;
  bool expand_denominator = false;
  bool conjugate_found = false;
  std::string conjugate;
  std::string conjugate_kind;
  bool match_found = false;
  std::string match;

  bool OptionEnabled(UfooOption o) const {
    if (o == UfooOption::Conjugate) return conjugate_found;
    if (o == UfooOption::MatchOther) return match_found;
    return true;
  }
  // The numerator box takes typing only with "Other".
  bool BoxesEditable() const { return option == UfooOption::Other; }
};

// Form_Load: the side, the forms found, the first choice.
void OpenUfooDialog(Session& s, UfooDialogState& dialog);
// A click on an option button: the boxes filled from it. A disabled option changes nothing.
void ChooseUfooOption(Session& s, UfooDialogState& dialog, UfooOption option);
// Typing in the numerator box with "Other": the denominator box copies it.
void TypeUfooNumerator(UfooDialogState& dialog, const std::string& text);
// The choice a word names: "-1", "pi", "conjugate", "match", or an expression typed (Other), the
// check boxes left as the choice set them. False, with the reason shown in a message box, for a
// choice that is not on offer or a refused expression.
bool ChooseUfooByText(Session& s, UfooDialogState& dialog, const std::string& text);
// The lines that list the choices on offer, for a front end without the dialog.
std::vector<std::string> UfooChoiceLines(Session& s, const UfooDialogState& dialog);
// Apply's check of the numerator box (BadExpr): false, with the message shown, when refused.
bool UfooApplyAllowed(Session& s, const UfooDialogState& dialog);

// cmdUFOO: opens the dialog through the front end and applies the choice, or writes nothing
// when it is cancelled. Returns the error message shown, or empty.
std::string cmdUFOO(Session& s, bool right_button);
// Apply: multiplies the side by the dialog's form in the command frame and tells the result.
std::string ApplyUfooDialog(Session& s, const UfooDialogState& dialog);

}  // namespace tavimor
