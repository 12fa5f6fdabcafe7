// The graph in the terminal: its JSON fields, the SVG file of --plot, the braille sketch.
#pragma once

#include <string>

#include "core/session.h"
#include "graph/draw_graphs.h"

namespace tavimor {

// `, "graph": {...}`: the window (x and y ranges), and for each curve its equation, kind, colour
// ("#rrggbb") and either its sampled world points ("points": [x, y], null for an undefined point)
// or, for an implicit curve, its contours ("contours": each {"closed", "points"}).
std::string GraphJsonField(const GraphPicture& picture);
// The picture as SVG into the file; false with the reason in `error` when it cannot be written.
bool WriteGraphSvg(const GraphPicture& picture, const std::string& path, std::string& error);
// The braille sketch with its window below, as lines to print.
std::vector<std::string> GraphSketchLines(const Session& s, const GraphPicture& picture);

}  // namespace tavimor
