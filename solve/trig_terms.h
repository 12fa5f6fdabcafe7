// The trigonometric terms of a side read by their angle: sines and cosines of an angle with a
// shift, the coefficients of sin, cos and their double angles, and the sum-of-angles identity.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// Every `old` in the text that is not the tail of a longer name (sin(x) in arcsin(x)) becomes
// `replacement`.
std::string ReplaceAll(const std::string& text, const std::string& old,
                       const std::string& replacement);
// Strips a leading minus in place; true if there was one.
bool NegatedIfNegative(std::string& text);
// c*f as text: the coefficient "1" dropped, "-1" as a bare minus, a sum or negative number
// bracketed.
std::string TimesText(Session& s, const std::string& coefficient, const std::string& factor);

// One row of the table of a side's sines and cosines of X+shift: c*sin(X+B), c*cos(-X+B), ...
struct TrigRow {
  std::string coefficient;  // the term divided by the function
  std::string function;     // "sin(", "sin(-", "cos(" or "cos(-"
  std::string shift;        // the angle's constant part, "0" when there is none
  std::string term;         // the term as it stands, with its sign
};

inline constexpr std::size_t kTrigRowLimit = 10;

// The terms of a side, each a row or part of the residue.
struct AngleSum {
  std::vector<TrigRow> rows;
  // For each term of the side in order: its signed text, and the row it became (-1 for none).
  std::vector<std::string> terms;
  std::vector<int> row_of_term;
  std::string rest = "0";  // the terms that are no c*sin(X+B) or c*cos(X+B), summed
};
AngleSum SplitAngleSum(Session& s, const std::string& side, const std::string& x);

// A side read as CosCoef*cos(X)+Cos2Coef*cos(2*X)+SinCoef*sin(X)+Sin2Coef*sin(2*X)+TrigConst
// +TrigOther; each field simplified, "0" when there is nothing of the kind.
struct AngleCoefficients {
  std::string CosCoef = "0";
  std::string Cos2Coef = "0";
  std::string SinCoef = "0";
  std::string Sin2Coef = "0";
  std::string TrigConst = "0";
  std::string TrigOther = "0";
  int sin_terms = 0;  // how many terms were gathered into SinCoef and CosCoef
  int cos_terms = 0;
};
AngleCoefficients SplitByAngle(Session& s, const std::string& side, const std::string& x);

// c*sin(X+B) -> c*sin(X)*cos(B)+c*cos(X)*sin(B), c*cos(X+B) -> c*cos(X)*cos(B)-c*sin(X)*sin(B),
// and the forms with -X; the sign of B chooses the middle sign.
std::string ExpandAngleSum(Session& s, const std::string& x, const std::string& coefficient,
                           const std::string& function, const std::string& shift);
// The row written back as a term: c*sin(X+B) and its kin.
std::string RowText(Session& s, const std::string& x, const TrigRow& row);

}  // namespace tavimor
