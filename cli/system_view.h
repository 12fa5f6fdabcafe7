// The open system window as the terminal shows it: the grid as lines of text, and its fields
// of the JSON object.
#pragma once

#include <ostream>
#include <string>

#include "core/session.h"

namespace tavimor {

// Prints the grid of an open system window, the pivot in brackets; nothing without one.
void PrintSystemGrid(const Session& s, std::ostream& out);
// `"grid"` (the rows as lists of number texts, or null), `"system"` ("unique", "infinite",
// "none", or null before the reduced form is read) and `"solution"` (letter -> value text, or
// null), each with its leading comma.
std::string SystemJsonFields(const Session& s);

}  // namespace tavimor
