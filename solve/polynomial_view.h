// The polynomial view of an expression in the unknown: the squared, linear, constant and other
// terms, each as a sum of text.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Each field is a text, "0" when there is nothing of the kind.
struct PolynomialView {
  std::string QuadCoef = "0";    // the coefficient of the unknown squared, simplified
  std::string LinCoef = "0";     // the coefficient of the unknown, simplified
  std::string ConstTerm = "0";   // the terms free of the unknown
  std::string OtherTerms = "0";  // the terms holding the unknown in any other way
  std::string QuadTerms = "0";   // the sums the two coefficients were made from
  std::string LinTerms = "0";
  std::string NegConst = "0";  // ConstTerm with every sign reversed, as on the other side
};

// Sorts the terms of the expression by how the unknown stands in them.
PolynomialView ClassifyPolynomial(Session& s, const std::string& expression,
                                  const std::string& unknown);
// The same without the two coefficients (each an expansion of its own), for callers that read
// only the sums of terms: QuadCoef and LinCoef stay "0".
PolynomialView ClassifyTerms(Session& s, const std::string& expression, const std::string& unknown);
// The terms free of the unknown.
std::string ConstantPart(Session& s, const std::string& expression, const std::string& unknown);

}  // namespace tavimor
