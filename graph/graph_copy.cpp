// The graph into the work space: its heading and the picture as a drawing with hidden text.
#include "graph/graph_copy.h"

#include <limits>

#include "graph/braille_sketch.h"
#include "present/work_space.h"

namespace tavimor {

namespace {

constexpr float kPointsPerPixel = 0.6f;

// The nearest of the 16 standard colours to a 0xBBGGRR colour.
int NearestStandardColour(GraphColour c) {
  int best = 0;
  long best_distance = std::numeric_limits<long>::max();
  for (std::size_t k = 0; k < kQBColors.size(); ++k) {
    const long r = static_cast<long>((kQBColors[k] >> 16) & 0xFF) - RedOf(c);
    const long g = static_cast<long>((kQBColors[k] >> 8) & 0xFF) - GreenOf(c);
    const long b = static_cast<long>(kQBColors[k] & 0xFF) - BlueOf(c);
    const long distance = r * r + g * g + b * b;
    if (distance < best_distance) {
      best_distance = distance;
      best = static_cast<int>(k);
    }
  }
  return best;
}

std::string Equations(const GraphPicture& picture) {
  std::string out;
  for (const GraphCurve& curve : picture.curves) {
    out += (out.empty() ? "" : "; ") + curve.equation;
  }
  return out;
}

}  // namespace

Picture GraphWorkSpacePicture(const GraphPicture& picture) {
  Picture out;
  out.left = Equations(picture);
  Drawing& d = out.drawing;
  d.width = static_cast<float>(picture.display.width) * kPointsPerPixel;
  d.height = static_cast<float>(picture.display.height) * kPointsPerPixel;
  d.baseline = d.height;
  const auto scaled = [](double v) { return static_cast<float>(v) * kPointsPerPixel; };
  for (const GraphItem& item : picture.display.items) {
    DisplayItem di;
    di.colour = NearestStandardColour(item.colour);
    di.width = static_cast<float>(item.width) * kPointsPerPixel;
    switch (item.type) {
      case GraphItem::Type::Line:
        di.kind = ItemKind::Rule;
        di.x = scaled(item.points[0].x);
        di.y = scaled(item.points[0].y);
        di.x2 = scaled(item.points[1].x);
        di.y2 = scaled(item.points[1].y);
        break;
      case GraphItem::Type::Polyline:
        di.kind = ItemKind::Polyline;
        for (const PixelPoint& p : item.points) {
          di.points.push_back(scaled(p.x));
          di.points.push_back(scaled(p.y));
        }
        break;
      case GraphItem::Type::Point:
        di.kind = ItemKind::Dot;
        di.x = scaled(item.points[0].x);
        di.y = scaled(item.points[0].y);
        di.width = kPointsPerPixel;
        break;
      case GraphItem::Type::Text:
        di.kind = ItemKind::Text;
        di.text = item.text;
        di.size = 7.0f;
        di.x = scaled(item.points[0].x);
        di.y = scaled(item.points[0].y) + 0.8f * di.size;  // the baseline under the top
        break;
    }
    d.items.push_back(std::move(di));
  }
  out.sketch = BrailleSketch(picture.display, 40, 20);
  return out;
}

void CopyGraphToWorkSpace(Session& s, const GraphPicture& picture) {
  WorkSpaceSink box(s);
  const std::string heading = s.EquationList.size() == 1
                                  ? "Graph of the equation:  " + picture.curves[0].equation
                                  : "Graph of the equations:|" + Equations(picture);
  WriteMessage(s, box, heading, true);
  InsertPicture(s, box, GraphWorkSpacePicture(picture), 1, 1, true);
}

}  // namespace tavimor
