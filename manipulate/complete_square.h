// Completing the square: a quadratic found anywhere in an expression written as a perfect square
// plus a rest, the record its narration and the solver read, and the button's engine.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

inline constexpr const char* kCompleteSquareSeparator = "; ";

// The record of a completed square, 20 pieces joined by "; " (read with GetPiece):
//   1  the quadratic as found
//   2  the quadratic in standard form; empty when it was written so already
//   3  the quadratic with the leading coefficient factored out; empty when that coefficient is 1
//   4  the same with Q added and subtracted
//   5  the same with the first three terms in brackets
//   6  the perfect square in factored form, with the rest beside it
//   7  the rest, simplified; empty when nothing is left
//   8  the completed square form of the quadratic
//   9  the whole expression with that form in place
//  10  the case: "1" no linear term, "2" no constant, "3" a perfect square already (the rest is
//      zero), "4" the general case; with "-" in front when the leading coefficient is negative
//  11  Q, the square of half the linear coefficient (of the quadratic divided by its leading
//      coefficient); empty when there is no linear term
//  12  the index of the node rewritten, as decimal text (in the tree the engine parsed)
//  13  a, the leading coefficient
//  14  the quadratic and linear terms with the leading coefficient 1: x^2+B*x
//  15  the constant with the leading coefficient 1, C = c/a ("0" when absent)
//  16  the quantity that completes the square, Q ("0" when there is no linear term)
//  17  the perfect square (x+B/2)^2
//  18  the rest C-Q, simplified ("0" when nothing is left)
//  19  the letter (or the power of it the quadratic is in: "x^2" for x^4+2*x^2+3)
//  20  where the quadratic stood: "whole" for the whole expression, "part" inside it
// Empty pieces stay in their places.

// Finds the first quadratic of the text (children before parents, left to right), writes it in
// completed square form and puts the whole with that form in place back into `text`; silent.
// The quadratic is in `letter` when one is given (the unknown of a solve), else in the first
// letter it can be found in. False, with `text` and `record` unchanged, when no part of the text
// is a quadratic that the form would change.
bool CompleteTheSquare(Session& s, std::string& text, std::string& record,
                       const std::string& letter = "");

// The narration of a record: the help number and "#", the opening for the side (0 expression,
// 1 left side, 2 right side) and the step lines.
std::string CompletedSquareNarration(int side, const std::string& record);

// The Complete the square button on a side (node 2 or 3): one quadratic a press, narrated when
// steps are shown. True if the side changed. When nothing converts but simplifying would change
// the side, the hint box says so and the side stays as it was input.
bool CompleteSquareSide(Session& s, NodeIdx side);

}  // namespace tavimor
