// The operations a student applies to both sides of an equation by hand, with their narration.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// The operations of the dialog, in the order of its option buttons.
enum class BothSidesOperation {
  SwapSides = 0,
  Sine,
  Cosine,
  Tangent,
  Arcsine,
  Arccosine,
  Arctangent,
  NaturalLog,
  Log10,
  EToThePower,
  TenToThePower,
  Square,
  SquareRoot,
  Reciprocal,
  QthPower,
  QthRoot,
  AddQ,
  SubtractQ,
  MultiplyByQ,
  DivideByQ,
  SubtractRightSide,
};
inline constexpr int kBothSidesOperationCount = 21;

// The caption of an operation on the dialog.
std::string BothSidesCaption(BothSidesOperation operation);
// Whether the operation uses the value Q.
bool UsesQ(BothSidesOperation operation);

// The reason Q is refused, or empty: Q is needed and is empty, an equation, or not a valid
// expression (the input check's own message, with its help topic). Blanks are removed from Q.
std::string BadExprMessage(Session& s, BothSidesOperation operation, std::string& q,
                           int& help_number);
// The check of Q: true (and the reason shown in a message box, or by the input check) when Q is
// needed and is empty, an equation, or not a valid expression. Blanks are removed from Q.
bool BadExpr(Session& s, BothSidesOperation operation, std::string& q);

// The square root's question on the sign of the right side, and its title.
inline constexpr const char* kSquareRootSignQuestion =
    "Taking the square root of both sides gives two equations, one with a + sign on the right "
    "side and the other with a - sign.\nChoose one.  Click Yes to choose the + sign.  Click No "
    "to choose the - sign.";
inline constexpr const char* kSquareRootSignTitle = "Choose the + sign?";

// Applies the operation with the value `q` to both sides: writes the step and, when it changed
// anything, its simplification, clears Q, and makes the new equation the work item. The square
// root's sign of the right side is `root_sign` ('+' or '-') when given, else the student is
// asked. The roots are written last, so an error on the way leaves the equation as it was.
void DoToBothSides(Session& s, BothSidesOperation operation, const std::string& q,
                   std::optional<char> root_sign = std::nullopt);

// Splits a product into its exponential factors (powers and calls of exp) and the rest, each
// written with "*" or "/"; an empty part is "1".
void SplitExpoTerm2(Session& s, const std::string& side, std::string& coefficient,
                    std::string& exponential);

}  // namespace tavimor
