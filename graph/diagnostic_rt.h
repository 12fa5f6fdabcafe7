// The diagnostic view of polar curves: r against t in plain Cartesian form, t from 0 to 2 pi.
#pragma once

#include "core/session.h"
#include "graph/draw_graphs.h"

namespace tavimor {

// Whether the work item has an explicit polar curve, the only kind this view draws.
bool HasPolarCurve(const Session& s);

// Each explicit polar curve r = f(t) of the work item drawn as the points (t, r): t along the
// horizontal ruler from 0 to 2 pi, r along the vertical from round limits about its values, on
// rulers named "t" and "r". The window, the settings and the next DrawGraphs are left as they are.
GraphPicture DiagnosticRT(Session& s, const GraphParms& parms,
                          const GraphTextMetrics& metrics = GraphTextMetrics{});

}  // namespace tavimor
