// The tools of the Number panel, screen-free: a number to significant figures, and the prime
// factors found one a step as the factoring dialog shows them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The figures box of the significant-figures dialog: where it starts and its bounds.
inline constexpr int kStartFigures = 3;
inline constexpr int kMinFigures = 1;
inline constexpr int kMaxFigures = 20;

// The up and down buttons of the figures box: one more or one fewer, within 1 to 20.
std::int16_t FiguresUp(std::int16_t figures);
std::int16_t FiguresDown(std::int16_t figures);

// "The number ... expressed to ... significant figures is ...", the number shown with exactly
// that many figures.
std::string SigFigsSentence(const Session& s, const std::string& number, int figures);

// The prime-factor dialog as data: the number, the factors found (slot 0 holds what is left to
// factor), the text of its box and the caption of its button.
struct FactorFormState {
  std::string Number;
  std::array<std::int32_t, 21> Factors{};
  std::int16_t FactorCount = 0;
  std::string FactorsText;  // the factors so far, joined by " * "
  std::string box;
  std::string caption = "OK";
  bool negative = false;
};

// What loading the dialog found.
enum class FactorFormStart {
  NonInteger,  // "Can't factor a non-integer"
  Prime,       // a magnitude below 4: "The number ... is prime and can't be factored"
  Ready,       // the box shows "Number to be factored:  " and the number
};

inline constexpr const char* kNonIntegerText = "Can't factor a non-integer";
inline constexpr const char* kCompletelyFactoredText = "The number is now completely factored.";

// "The number n is prime and can't be factored"; for 0, 1 and -1, which are not prime, "... is
// neither prime nor composite and can't be factored".
std::string PrimeNumberText(const std::string& number);

// Loads the dialog on the number's text.
FactorFormStart LoadFactorForm(const Session& s, const std::string& number, FactorFormState& form);

// One press of OK: the next factor, the smallest divisor of what is left (or what is left
// itself), the sign on the first factor. When the rest is 1 or prime, the box says so and the
// button becomes "Close". More than 20 factors overrun the table: a run-time error.
void FactorFormClick(FactorFormState& form);

// The closing sentence for the work space: prime, or the factored form.
std::string FactorFormResult(const FactorFormState& form);

// The prime factors of a number through the dialog's steps (ascending, the sign on the first);
// the number itself for a magnitude below 4.
std::vector<std::int32_t> FactorByClicks(std::int32_t number);

}  // namespace tavimor
