// The graph copied into the work space: the heading with the equations, then the picture.
#pragma once

#include "core/session.h"
#include "graph/draw_graphs.h"
#include "present/rich_text.h"

namespace tavimor {

// The picture as a drawing of the work space, in points (0.6 of a pixel), each colour the
// nearest of the 16 standard ones, with its braille sketch for a front end that paints none.
Picture GraphWorkSpacePicture(const GraphPicture& picture);

// Writes "Graph of the equation:" and the equation, or "Graph of the equations:|" and each
// equation with "; " between, and the picture after it.
void CopyGraphToWorkSpace(Session& s, const GraphPicture& picture);

}  // namespace tavimor
