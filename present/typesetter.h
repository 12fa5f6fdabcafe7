// The math typesetter: measures a tree and places it as a drawing of runs, rules, curves, radicals.
#pragma once

#include <string>

#include "core/session.h"
#include "present/display_list.h"
#include "present/rich_text.h"

namespace tavimor {

// The drawn string of a relation code, with its blanks: " = ", " < ", " > ", " ≤ ", " ≥ ", "  →  ".
std::string RelationString(int code);

// Draws an expression; a text with ";" draws its pieces in a row. On failure, an empty drawing,
// and once in a command the message "Error in DrawAnyExpression" with the critical icon and the
// words that the expression is too deep or too large to draw; the command's later drawings are
// then empty too.
Picture DrawAnyExpression(Session& s, const FontMetrics& metrics, const std::string& text);
// Draws a relation of that code between two sides on one baseline. On failure, as above with
// "Error in DrawAnyEquation".
Picture DrawAnyEquation(Session& s, const FontMetrics& metrics, int code, const std::string& left,
                        const std::string& right);
inline Picture DrawEquation(Session& s, const FontMetrics& metrics, const std::string& left,
                            const std::string& right) {
  return DrawAnyEquation(s, metrics, kRelationEquals, left, right);
}
inline Picture DrawExpression(Session& s, const FontMetrics& metrics, const std::string& text) {
  return DrawAnyExpression(s, metrics, text);
}

// Whether a factor must be told from the one before it by a times sign: when it starts with a
// digit or a decimal point (juxtaposed digits would merge), or when it is a number after a number.
bool NeedsTimesSign(const Session& s, NodeIdx previous, NodeIdx factor);

}  // namespace tavimor
