// Drawing the whole graph: the frame first, then each equation's curve by its kind.
#include "graph/draw_graphs.h"

#include "core/number_text.h"
#include "graph/classify_graphs.h"

namespace tavimor {

GraphCurve CurveOfRow(Session& s, std::size_t row) {
  const EquationRow& r = s.EquationList[row];
  GraphCurve curve;
  curve.row = row;
  curve.kind = r[3];
  curve.colour = static_cast<GraphColour>(SafeValue(s, r[2]));
  curve.equation = r[0] + "=" + r[1];
  return curve;
}

GraphPicture StartPicture(const GraphParms& parms) {
  GraphPicture picture;
  picture.margins = ComputePlotMargins(parms.width, parms.height);
  picture.display.width = parms.width;
  picture.display.height = parms.height;
  const PlotMargins& m = picture.margins;
  picture.mapping = SetGraphMapping(static_cast<float>(m.left), static_cast<float>(m.right),
                                    static_cast<float>(m.bottom), static_cast<float>(m.top),
                                    parms.xmin, parms.xmax, parms.ymin, parms.ymax);
  return picture;
}

GraphPicture DrawGraphs(Session& s, const GraphParms& parms, const GraphTextMetrics& metrics) {
  GraphPicture picture = StartPicture(parms);
  if (parms.GridOn()) ShowGrid(picture.display, picture.mapping, parms);
  if (parms.AxesOn()) ShowRulers(picture.display, metrics, picture.mapping, parms, s.Dp());
  const std::vector<EquationRow>& rows = s.EquationList;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    GraphCurve curve = CurveOfRow(s, i);
    const bool pair = curve.kind == kGraphParametricX && i + 1 < rows.size();
    if (curve.kind == kGraphExplicit) {
      curve.samples = SampleExplicit(s, rows[i][1], parms.xmin, parms.xmax);
    } else if (curve.kind == kGraphExplicitPolar) {
      curve.samples = SampleExplicitPolar(s, rows[i][1]);
    } else if (pair) {
      curve.samples = SampleParametric(s, rows[i][1], rows[i + 1][1], parms.tmin, parms.tmax);
      curve.equation += "; " + rows[i + 1][0] + "=" + rows[i + 1][1];
      ++i;
    } else if (curve.kind == kGraphContour || curve.kind == kGraphContourPolar) {
      // F = (left)-(right)
      const std::string f = "(" + rows[i][0] + ")-(" + rows[i][1] + ")";
      const bool polar = curve.kind == kGraphContourPolar;
      curve.contours = polar
                           ? ContourPolar(s, f, parms.xmin, parms.xmax, parms.ymin, parms.ymax)
                           : ContourCartesian(s, f, parms.xmin, parms.xmax, parms.ymin, parms.ymax);
      curve.segments_drawn = DrawContours(picture.display, picture.mapping, curve.contours, polar,
                                          curve.colour, parms.thickness);
    }
    if (curve.samples) {
      curve.segments_drawn = DrawCurve(picture.display, picture.mapping, *curve.samples,
                                       curve.kind != kGraphExplicit, curve.colour, parms.thickness);
    }
    picture.curves.push_back(std::move(curve));
  }
  return picture;
}

}  // namespace tavimor
