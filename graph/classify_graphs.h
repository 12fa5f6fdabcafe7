// Which kind of graph each equation of the work item is, and the colour of its curve.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The kinds in column 4 of EquationList.
inline constexpr const char* kGraphExplicit = "1";
inline constexpr const char* kGraphContour = "2";
inline constexpr const char* kGraphExplicitPolar = "3";
inline constexpr const char* kGraphContourPolar = "4";
inline constexpr const char* kGraphParametricX = "5a";
inline constexpr const char* kGraphParametricY = "5b";

// The letters of a text that are no constants under the options, sorted and each once.
std::string GraphLetters(Session& s, const std::string& text);
// Fills columns 3 (the colour) and 4 (the kind) of every row of EquationList from the colours
// of GraphParms, and sets the help number; or returns the message that says why the equations
// cannot be graphed ("Can't graph ...").
std::string ClassifyGraphs(Session& s);

struct GraphParms;
// Writes the curves' colours (column 3) back into the colour fields, one field per curve (a
// parametric pair is one), so a colour the student gave a curve stays for the next graph. Curves
// past the tenth share the last field.
void StoreCurveColours(const Session& s, GraphParms& parms);

}  // namespace tavimor
