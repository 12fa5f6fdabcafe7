// A graph's display list as an SVG picture.
#pragma once

#include <string>

#include "graph/display_list.h"

namespace tavimor {

// The picture as a standalone SVG document of the drawing area's size, white behind.
std::string DisplayListSvg(const DisplayList& display);

}  // namespace tavimor
