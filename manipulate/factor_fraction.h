// Factor-and-cancel: a fraction whose sums, once factored, share a factor between its numerator
// and its denominator; and the factors of a product read as bases with whole exponents.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The factors of a fraction: the sign kept aside, the numerator and the denominator factors.
struct FractionFactors {
  bool minus = false;
  std::vector<std::string> up;
  std::vector<std::string> down;
};

// The sum factored as far as it goes: FactorText with mode "00" until nothing more factors (a
// factoring only numerical is not taken). The text itself when it does not factor.
// The answer is kept in the session for the next time the same sum is asked about.
std::string FactoredCompletely(Session& s, const std::string& sum);
// The same, worked out each time.
std::string FactorTextCompletely(Session& s, const std::string& sum);
// Adds one factor to a side; a negative number's sign goes to the fraction's sign.
void AddSignedFactor(const std::string& factor, bool down, FractionFactors& into);
// Adds the factors of a text to the fraction's lists: a product gives its factors (a denominator
// goes to the other side when `below` is set, a sign to the sign), anything else itself.
void AddFactorsOf(Session& s, const std::string& text, bool below, FractionFactors& into);
// The base of a factor: the base of a power, else the factor itself.
std::string FactorBase(Session& s, const std::string& factor);
// The sum with the opposite sign, simplified: "x-1" gives "-x+1".
std::string NegatedSum(Session& s, const std::string& sum);
// Whether a factor of the numerator and one of the denominator share a base, or two numbers a
// divisor other than 1.
bool CancelFactors(Session& s, const FractionFactors& fraction);
// Writes a sum factor that is the negative of a factor on the other side as "(-1)*(...)", and a
// power of one as "(-1)^n*(...)^n". True if it wrote one.
bool FlipSign(Session& s, FractionFactors& fraction);
// The fraction's text: the sign, the numerator factors, each denominator factor led by "/".
std::string FractionText(const FractionFactors& fraction);

// (x+1)/(x^2-1) -> (x+1)/((x+1)*(x-1))   help 23. Fires only when the factored form shares a
// factor that the collection of the product then cancels.
bool FactorFractionRule(Session& s, NodeIdx& slot);

}  // namespace tavimor
