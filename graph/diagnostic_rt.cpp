// The graph of r against t for the polar curves of the work item.
#include "graph/diagnostic_rt.h"

#include <algorithm>
#include <cmath>

#include "graph/classify_graphs.h"
#include "graph/graph_interaction.h"

namespace tavimor {

bool HasPolarCurve(const Session& s) {
  return std::any_of(s.EquationList.begin(), s.EquationList.end(),
                     [](const EquationRow& row) { return row[3] == kGraphExplicitPolar; });
}

GraphPicture DiagnosticRT(Session& s, const GraphParms& parms, const GraphTextMetrics& metrics) {
  std::vector<GraphCurve> curves;
  double low = INFINITY;
  double high = -INFINITY;
  const std::vector<EquationRow>& rows = s.EquationList;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i][3] != kGraphExplicitPolar) continue;
    GraphCurve curve = CurveOfRow(s, i);
    curve.samples = SamplePolarRadius(s, rows[i][1]);
    for (int k = 0; k <= kCurveSegments; ++k) {
      if (curve.samples->Undefined(k)) continue;
      const double r = curve.samples->y[static_cast<std::size_t>(k)];
      low = std::min(low, r);
      high = std::max(high, r);
    }
    curves.push_back(std::move(curve));
  }
  if (!(low <= high)) {  // no defined point at all
    low = -1;
    high = 1;
  }
  if (high - low < 1e-6) {  // a circle: r is one value
    low -= 1;
    high += 1;
  }
  // Round limits with a step a float holds exactly, so the numbered ticks read short: whole
  // numbers along t (0 to 7 holds 0 to 2 pi), and along r a power of two below a span of 10, a
  // nice whole step above.
  GraphParms view = parms;
  view.xmin = 0;
  view.xmax = 7;
  view.x_divisions = 7;
  view.x_grid = 7;
  const double span = high - low;
  double step = 1;
  if (span < 10) {
    step = std::exp2(std::ceil(std::log2(span / 10)));
  } else {
    const RoundRange nice = NiceLimits(low, high, 10);
    step = (nice.high - nice.low) / 10;
    step = std::max(1.0, std::round(step));
  }
  const double r_low = std::floor(low / step) * step;
  const double r_high = std::ceil(high / step) * step;
  view.ymin = static_cast<float>(r_low);
  view.ymax = static_cast<float>(r_high);
  view.y_divisions = static_cast<float>(std::round((r_high - r_low) / step));
  view.y_grid = view.y_divisions;
  GraphPicture picture = StartPicture(view);
  // Frame-style rulers whatever the settings say: the view is read off its rulers.
  view.axes = 1;
  ShowRulers(picture.display, metrics, picture.mapping, view, s.Dp(), "t", "r  ");
  for (GraphCurve& curve : curves) {
    curve.segments_drawn = DrawCurve(picture.display, picture.mapping, *curve.samples, true,
                                     curve.colour, parms.thickness);
    picture.curves.push_back(std::move(curve));
  }
  return picture;
}

}  // namespace tavimor
