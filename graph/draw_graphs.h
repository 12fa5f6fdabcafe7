// A whole graph: the frame and every curve of the work item's equations, as a display list, with
// the sampled points of each curve.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "graph/contour_plot.h"
#include "graph/curve_plot.h"
#include "graph/display_list.h"
#include "graph/graph_frame.h"
#include "graph/graph_mapping.h"
#include "graph/graph_parms.h"

namespace tavimor {

// One curve of the graph: the row of EquationList it starts at (0-based), its kind and colour,
// and its world points: sampled for the kinds that give a coordinate directly, followed contours
// for the implicit kinds.
struct GraphCurve {
  std::size_t row = 0;
  std::string kind;
  GraphColour colour = kGraphBlack;
  std::string equation;  // "left=right", both rows of a pair joined by "; "
  std::optional<CurveSamples> samples;
  std::vector<ContourLine> contours;  // kinds 2 and 4
  int segments_drawn = 0;
};

struct GraphPicture {
  GraphMapping mapping;
  PlotMargins margins;
  DisplayList display;
  std::vector<GraphCurve> curves;
};

// The curve of EquationList's row `row` before it is drawn: its row, kind, colour and equation.
GraphCurve CurveOfRow(Session& s, std::size_t row);

// An empty picture for the settings' size and window: its margins and its mapping.
GraphPicture StartPicture(const GraphParms& parms);

// Draws the classified equations of the work item under the settings: grid, rulers, curves.
// Colours and kinds come from columns 3 and 4 of EquationList (see ClassifyGraphs).
GraphPicture DrawGraphs(Session& s, const GraphParms& parms,
                        const GraphTextMetrics& metrics = GraphTextMetrics{});

}  // namespace tavimor
