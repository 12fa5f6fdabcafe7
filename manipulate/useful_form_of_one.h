// Multiplying an expression by a useful form of one (UFOO): the forms the dialog proposes (the
// conjugate of a denominator, the factor that matches the other side's denominator), the check
// of a typed form, and the multiplication itself with the report the command frame reads.
#pragma once

#include <cstdint>
#include <string>

#include "core/session.h"

namespace tavimor {

inline constexpr const char* kUfooBadNumerator =
    "The numerator box must contain a valid expression.";
inline constexpr const char* kUfooNotEquation =
    "The numerator box must contain a valid expression, not an equation.";
inline constexpr const char* kUfooReportSeparator = "; ";
inline constexpr const char* kUfooCancelReport = "cancel UFOO";

// The five choices of the dialog, in the order of its option buttons.
enum class UfooOption : std::int16_t {
  MinusOne = 0,    // -1/-1
  Pi = 1,          // pi/pi
  Conjugate = 2,   // the conjugate of the denominator
  MatchOther = 3,  // the factor that brings the denominator to the other side's
  Other = 4,       // typed into the numerator box
};

// The conjugate of the one two-term bracket in the denominator of `text`, and its kind: "sqrt",
// "cplx", "sin" or "cos". False when the expression has no such denominator.
bool CreateUFOO2(Session& s, const std::string& text, std::string& conjugate, std::string& kind);
// For a side of an equation: the factor that makes this side's denominator the other side's.
// False for an expression, or when no such factor other than 1 exists.
bool CreateUFOO3(Session& s, NodeIdx side, std::string& factor);
// The refusal of the numerator box's text (BadExpr), or empty when it is a valid expression.
std::string UfooBoxMessage(Session& s, const std::string& text);

// The numerator and denominator of an expression ("1" when it has none).
void SplitFraction(Session& s, const std::string& text, std::string& numerator,
                   std::string& denominator);

// What a multiplication by a UFOO needs: the form N/N (the same text twice), the two check boxes,
// and what the report says about the choice.
struct UfooRequest {
  UfooOption option = UfooOption::MinusOne;
  std::string typed;  // what the numerator box held, for the report
  std::string numerator;
  std::string denominator;
  bool expand_numerator = false;
  bool expand_denominator = false;
  std::string kind;  // the conjugate's kind; kept only for the conjugate option
};

// Fields of the report, counted from 1.
inline constexpr int kUfooFieldOption = 1;
inline constexpr int kUfooFieldTyped = 2;
inline constexpr int kUfooFieldForm = 3;              // the UFOO as the verb shows it
inline constexpr int kUfooFieldNumeratorTimes = 4;    // the numerator times N, as built
inline constexpr int kUfooFieldDenominatorTimes = 5;  // the denominator times D, as built
inline constexpr int kUfooFieldNumeratorKept = 6;     // after the silent simplification
inline constexpr int kUfooFieldDenominatorKept = 7;
inline constexpr int kUfooFieldExpandNumerator = 8;  // "-1" checked, "0" not
inline constexpr int kUfooFieldExpandDenominator = 9;
inline constexpr int kUfooFieldKind = 10;
inline constexpr int kUfooFieldNumerator = 11;  // the parts once simplified again
inline constexpr int kUfooFieldDenominator = 12;
inline constexpr int kUfooFieldFinal = 13;

// Multiplies numerator and denominator of `expression` by the form, silently, and returns the
// report; its last field is the final text.
std::string ApplyUFOO(Session& s, const std::string& expression, const UfooRequest& request);
std::string UfooReportField(const std::string& report, int field);
// The form as the verb shows it: N/D, each bracketed where it needs it.
std::string UfooFormText(Session& s, const std::string& numerator, const std::string& denominator);

}  // namespace tavimor
