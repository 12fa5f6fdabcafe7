// Factoring: the place in an expression to factor, the chain of methods, the record the narration
// is told from, and the Factor button's engine.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

inline constexpr const char* kFactorRecordSeparator = "; ";

// Where the factored part stands.
inline constexpr int kPlaceWhole = 0;
inline constexpr int kPlacePowerBase = 1;
inline constexpr int kPlaceRootArgument = 2;
inline constexpr int kPlaceBracketFactor = 3;
inline constexpr int kPlacePowerFactor = 4;
inline constexpr int kPlaceRootFactor = 5;

// Method codes; each is also the help number of its narration.
inline constexpr int kMethodCommon = 66;
inline constexpr int kMethodCommonMinus = 67;
inline constexpr int kMethodCompletedSquareReal = 69;
inline constexpr int kMethodCompletedSquareImaginary = 70;
inline constexpr int kMethodSumOfCubes = 71;
inline constexpr int kMethodDifferenceOfCubes = 72;
inline constexpr int kMethodNumeric = 73;
inline constexpr int kMethodDeflation = 74;
inline constexpr int kMethodSumProduct = 223;
inline constexpr int kMethodQuadraticGrouping = 224;
inline constexpr int kMethodDifferenceOfSquares = 225;
inline constexpr int kMethodSumOfSquares = 226;
inline constexpr int kMethodPerfectSquare = 227;
inline constexpr int kMethodGrouping = 228;
inline constexpr int kMethodAlias = 412;

// A term of a sum with its sign.
struct SignedTerm {
  bool minus = false;
  std::string text;
};
// The terms of a sum; empty for any other text.
std::vector<SignedTerm> SignedTerms(Session& s, const std::string& text);
std::string SignedText(const SignedTerm& term);
// Signed texts joined into a sum: "+" before a term without its own sign.
std::string JoinTerms(const std::vector<std::string>& terms);
// The letters that stand for constants under the options: i and j, e, p, d.
bool IsConstantLetter(const Session& s, const std::string& letter);
// Two bracketed factors joined in the order the product keeps them in (by their texts).
std::string InProductOrder(const std::string& first, const std::string& second);
// The text expanded and simplified silently.
std::string ExpandedText(Session& s, const std::string& text);
// The same, always through the expansion and the loop (ExpandedText works out whole-number
// arithmetic itself).
std::string ExpandedTextByRules(Session& s, const std::string& text);

// What a method found: its code, its own values for the narration (in the order its lines use
// them), and the factored text of the part.
struct FactorFinding {
  int code = 0;
  std::vector<std::string> values;
  std::string factored;
};

// The two characters of the mode: the depth ('1' also takes the LCM out of denominators, '2'
// normally) and the detail ('0' silent, '1' narrated).
inline int FactorDepth(const std::string& mode) { return !mode.empty() && mode[0] == '1' ? 1 : 2; }

// The record: the text after the first silent simplification (empty if unchanged); the place
// code; the part's text; the method code; the method's values; the factored whole; the whole
// after silent simplification.
std::string FactorRecordText(const std::string& simplified, int place, const std::string& part,
                             const FactorFinding& finding, const std::string& whole,
                             const std::string& result);
std::string FactorRecordField(const std::string& record, int index);
// The method's own values, fields 5 up to the last two.
std::vector<std::string> FactorRecordValues(const std::string& record);

// Factors the text once: a temporary tree, a silent simplification (field 1 if it changed
// anything), then FactorTree; on success the factored and simplified text comes back in `text`.
bool FactorText(Session& s, std::string& text, std::string& record, const std::string& mode);
// Finds the one place in the tree to factor and factors it; fills the record.
bool FactorTree(Session& s, NodeIdx& slot, std::string& record, const std::string& mode);
// The chain of methods on the part, the first that works ends it; the part's text is replaced,
// the root regenerated and silently simplified, and the record filled from field 2 on.
bool FactorPart(Session& s, NodeIdx& root, NodeIdx part, int place, std::string& record,
                const std::string& mode);

// The methods, each on the text of a sum; false when the form is not theirs.
bool FactorByAlias(Session& s, const std::string& part, const std::string& mode,
                   FactorFinding& found);
bool FactorCommon(Session& s, const std::string& part, int depth, FactorFinding& found);
// The factor FactorCommon takes out (with the minus of the first term), without dividing the terms
// by it; nothing when it is 1 or the text has fewer than two terms.
std::optional<std::string> CommonFactorOf(Session& s, const std::string& part, int depth);
bool FactorSquares(Session& s, const std::string& part, FactorFinding& found);
bool FactorCubes(Session& s, const std::string& part, FactorFinding& found);
bool FactorGrouping(Session& s, const std::string& part, FactorFinding& found);
bool FactorQuadratic(Session& s, const std::string& part, FactorFinding& found);
bool FactorPolynomial(Session& s, const std::string& part, FactorFinding& found);

// The coefficients of a quadratic in `letter` (a letter, or a power x^n of one when the part is
// a quadratic in x^n), each simplified; false (a empty) when the text is none. With an empty
// `letter` every letter of the text is tried in turn and the one found comes back.
bool QuadraticCoefficients(Session& s, const std::string& text, std::string& letter, std::string& a,
                           std::string& b, std::string& c);

// x*y with the factor 1 or -1 left out and x bracketed where needed.
std::string CoefficientTimes(Session& s, const std::string& x, const std::string& y);
// a*x^2+b*x+c written out with the terms that are there.
std::string StandardForm(Session& s, const std::string& x, const std::string& a,
                         const std::string& b, const std::string& c);
// (x+h) with the sign of h joined straight on; x alone for h "0".
std::string Shifted(const std::string& x, const std::string& h);
// -(text), simplified.
std::string Negated(Session& s, const std::string& text);

// A quadratic whose discriminant is 0 as a*(x+h)^2, the leading factor kept outside the
// brackets ("(x+h)^2" when it is 1); false for anything else.
bool PerfectSquareOfQuadratic(Session& s, const std::string& text, std::string& square);

// The "   - ..." lines of a factoring, with the opening for the side (0 expression, 1 left,
// 2 right) and the closing line; starts with the help number and "#".
std::string NarrateFactoring(int side, const std::string& record);

// The Factor button on a side: one factoring, narrated when steps are shown; `lcm` is the
// right button. When nothing is factored but simplifying changed the side, the note says so
// and the side takes the simplified form. True if the side was factored.
bool FactorSide(Session& s, NodeIdx side, bool lcm);
// The note for a side that only the first simplification changed; empty when it did not.
std::string NothingToFactorNote(const std::string& input, const std::string& simplified);

}  // namespace tavimor
