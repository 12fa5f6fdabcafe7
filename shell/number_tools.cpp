// The tools of the Number panel, screen-free: a number to significant figures, and the prime
// factors found one a step as the factoring dialog shows them.
#include "shell/number_tools.h"

#include <algorithm>
#include <cmath>

#include "core/errors.h"
#include "core/number_text.h"

namespace tavimor {

namespace {

constexpr const char* kLineEnd = "\r\n";

// The smallest divisor from 2 up to the square root, or 0 for none.
std::int64_t SmallestDivisor(std::int64_t q) {
  for (std::int64_t d = 2; d * d <= q; ++d) {
    if (q % d == 0) return d;
  }
  return 0;
}

bool IsPrimeQuotient(std::int64_t q) { return q >= 2 && (q <= 3 || SmallestDivisor(q) == 0); }

// Stores the next factor; the table holds 20.
void StoreFactor(FactorFormState& form, std::int64_t factor) {
  if (form.FactorCount >= static_cast<std::int16_t>(form.Factors.size() - 1)) {
    throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange,
                       "more than 20 prime factors overrun the table");
  }
  ++form.FactorCount;
  form.Factors[static_cast<std::size_t>(form.FactorCount)] = static_cast<std::int32_t>(factor);
  if (!form.FactorsText.empty()) form.FactorsText += " * ";
  form.FactorsText += std::to_string(factor);
}

}  // namespace

std::int16_t FiguresUp(std::int16_t figures) {
  return static_cast<std::int16_t>(std::min<int>(figures + 1, kMaxFigures));
}

std::int16_t FiguresDown(std::int16_t figures) {
  return static_cast<std::int16_t>(std::max<int>(figures - 1, kMinFigures));
}

std::string SigFigsSentence(const Session& s, const std::string& number, int figures) {
  const int kept = std::clamp(figures, kMinFigures, kMaxFigures);
  return "The number " + number + " expressed to " + std::to_string(kept) +
         " significant figures is " + PadSigFigs(s, kept, number);
}

std::string PrimeNumberText(const std::string& number) {
  // 0, 1 and -1 pass the magnitude test too, but they are not prime: the sentence stays true.
  if (number == "0" || number == "1" || number == "-1")
    return "The number " + number + " is neither prime nor composite and can't be factored";
  return "The number " + number + " is prime and can't be factored";
}

FactorFormStart LoadFactorForm(const Session& s, const std::string& number, FactorFormState& form) {
  form = FactorFormState{};
  form.Number = number;
  const double value = SafeValue(s, number);
  if (value != std::trunc(value)) return FactorFormStart::NonInteger;
  if (std::fabs(value) < 4.0) return FactorFormStart::Prime;
  if (std::fabs(value) >= kIntegerBound) {
    throw RunTimeError(RunTimeErrorNumber::Overflow, "the number is too large to factor");
  }
  form.Factors[0] = static_cast<std::int32_t>(value);
  form.negative = value < 0;
  form.box = "Number to be factored:  " + number;
  return FactorFormStart::Ready;
}

void FactorFormClick(FactorFormState& form) {
  if (form.caption == "Close") return;
  const std::int64_t before = form.Factors[0];
  const std::int64_t q = before < 0 ? -before : before;
  std::int64_t d = SmallestDivisor(q);
  if (d == 0) d = q;  // what is left is the last factor
  const std::int64_t rest = q / d;
  const std::int64_t factor = form.negative && form.FactorCount == 0 ? -d : d;
  StoreFactor(form, factor);
  form.Factors[0] = static_cast<std::int32_t>(rest);
  form.box += kLineEnd + std::to_string(before) + " can be factored as " + std::to_string(factor) +
              " * " + std::to_string(rest) + " so " + form.Number + " can now be written as" +
              kLineEnd + form.FactorsText + (rest > 1 ? " * " + std::to_string(rest) : "");
  if (rest == 1 || IsPrimeQuotient(rest)) {
    if (rest > 1) {
      StoreFactor(form, rest);
      form.Factors[0] = 1;
    }
    form.box += kLineEnd;
    form.box += kCompletelyFactoredText;
    form.caption = "Close";
  }
}

std::string FactorFormResult(const FactorFormState& form) {
  if (form.FactorCount == 1) return PrimeNumberText(form.Number);
  return "The number " + form.Number + " in factored form is " + form.FactorsText;
}

std::vector<std::int32_t> FactorByClicks(std::int32_t number) {
  FactorFormState form;
  const std::string text = std::to_string(number);
  if (std::abs(static_cast<std::int64_t>(number)) < 4) return {number};
  form.Number = text;
  form.Factors[0] = number;
  form.negative = number < 0;
  while (form.caption != "Close") FactorFormClick(form);
  return {form.Factors.begin() + 1, form.Factors.begin() + 1 + form.FactorCount};
}

}  // namespace tavimor
