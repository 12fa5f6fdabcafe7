// The driver's moves on both sides of an equation: common terms cancelled, a common factor
// found, a side scaled, a like term moved across.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Removes terms that stand identically, with the same sign, on both sides. The report is
// "subtracting @Q@ from" or "adding @Q@ to" for the terms taken away; empty when nothing was
// reported (two equal sides become 0=0 silently).
std::string CancelCommonTerms(Session& s, std::string& left, std::string& right);

// The common factor of the equation's terms ("1" when there is none) and how often the unknown
// occurs in it.
struct CommonFactorFinding {
  std::string factor = "1";
  int occurrences = 0;
};
CommonFactorFinding FindCommonFactor(Session& s, const std::string& left, const std::string& right,
                                     const std::string& unknown);

// side op factor, with op "/" or "*", simplified; spread over the terms when `distribute`.
std::string ScaleSide(Session& s, const std::string& side, char op, const std::string& factor,
                      bool distribute);

// The first pair of like terms across the sides, and the one to take from both sides: the one
// with the smaller coefficient, so that what stays has a positive coefficient.
struct LikeTermMove {
  bool found = false;
  bool subtract = true;  // "subtracting", else "adding"
  std::string term;      // the term's text, without its sign
};
LikeTermMove MoveLikeTerm(Session& s, const std::string& left, const std::string& right);

}  // namespace tavimor
