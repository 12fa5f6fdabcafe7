// A small sketch of a graph in braille dots, for a terminal: the lines and polylines of a display
// list, each character cell holding 2 x 4 dots.
#pragma once

#include <string>
#include <vector>

#include "graph/display_list.h"

namespace tavimor {

// The picture's lines, `columns` characters wide and `rows` high (UTF-8, one string a row).
std::vector<std::string> BrailleSketch(const DisplayList& display, int columns, int rows);

}  // namespace tavimor
