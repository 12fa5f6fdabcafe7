// The parabola sketch of the graphing method: its window, the drawing, and the lines of
// characters for the terminal.
#include "solve/parabola_sketch.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "manipulate/factor.h"
#include "present/rich_text.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr int kSamples = 96;
constexpr float kAxisWidth = 0.6f;
constexpr float kCurveWidth = 1.2f;
constexpr float kDotSize = 5.0f;
constexpr float kArrow = 3.0f;

double ValueAt(double a, double b, double c, double x) { return (a * x + b) * x + c; }

DisplayItem Line(float x, float y, float x2, float y2) {
  DisplayItem item;
  item.kind = ItemKind::Rule;
  item.x = x;
  item.y = y;
  item.x2 = x2;
  item.y2 = y2;
  item.width = kAxisWidth;
  return item;
}

// The window: the vertex and the roots with room around them, wide enough that the curve rises
// well away from its vertex; tall enough for the curve and the x axis.
void ChooseWindow(ParabolaSketch& sketch, double a, double b, double c,
                  const std::vector<double>& roots) {
  const double vertex = -b / (2 * a);
  double lo = vertex;
  double hi = vertex;
  for (const double r : roots) {
    if (!std::isfinite(r)) continue;
    lo = std::min(lo, r);
    hi = std::max(hi, r);
  }
  const double depth = std::abs(ValueAt(a, b, c, vertex));
  // At this distance from the vertex the curve has risen 2.25 times the vertex's height (or 2.25
  // when the vertex is on the axis).
  const double reach = 1.5 * std::sqrt(std::max(depth, 1.0) / std::abs(a));
  const double half = std::max(0.675 * (hi - lo), reach);
  const double centre = (lo + hi) / 2;
  sketch.x_min = centre - half;
  sketch.x_max = centre + half;
  double y_lo = 0.0;
  double y_hi = 0.0;
  for (int i = 0; i <= kSamples; ++i) {
    const double x = sketch.x_min + (sketch.x_max - sketch.x_min) * i / kSamples;
    const double y = ValueAt(a, b, c, x);
    y_lo = std::min(y_lo, y);
    y_hi = std::max(y_hi, y);
  }
  const double pad = std::max(0.08 * (y_hi - y_lo), 1e-9);
  sketch.y_min = y_lo - pad;
  sketch.y_max = y_hi + pad;
}

void BuildDrawing(ParabolaSketch& sketch, double a, double b, double c,
                  const std::vector<double>& roots) {
  Drawing& d = sketch.drawing;
  d.width = kSketchWidth;
  d.height = kSketchHeight;
  d.baseline = kSketchHeight / 2;
  const float left = kSketchMargin / 2;
  const float right = kSketchWidth - kSketchMargin / 2;
  const float top = kSketchMargin / 2;
  const float bottom = kSketchHeight - kSketchMargin / 2;
  // The x axis, with its arrow on the right.
  const float axis_y = sketch.ToY(0.0);
  d.items.push_back(Line(left, axis_y, right, axis_y));
  d.items.push_back(Line(right - kArrow, axis_y - kArrow / 2, right, axis_y));
  d.items.push_back(Line(right - kArrow, axis_y + kArrow / 2, right, axis_y));
  // The y axis where x = 0 is in the window, with its arrow at the top.
  if (sketch.x_min <= 0.0 && sketch.x_max >= 0.0) {
    const float axis_x = sketch.ToX(0.0);
    d.items.push_back(Line(axis_x, bottom, axis_x, top));
    d.items.push_back(Line(axis_x - kArrow / 2, top + kArrow, axis_x, top));
    d.items.push_back(Line(axis_x + kArrow / 2, top + kArrow, axis_x, top));
  }
  DisplayItem curve;
  curve.kind = ItemKind::Polyline;
  curve.width = kCurveWidth;
  for (int i = 0; i <= kSamples; ++i) {
    const double x = sketch.x_min + (sketch.x_max - sketch.x_min) * i / kSamples;
    curve.points.push_back(sketch.ToX(x));
    curve.points.push_back(sketch.ToY(ValueAt(a, b, c, x)));
  }
  d.items.push_back(std::move(curve));
  for (const double r : roots) {
    if (!std::isfinite(r)) continue;
    DisplayItem dot;
    dot.kind = ItemKind::Dot;
    dot.x = sketch.ToX(r);
    dot.y = axis_y;
    dot.width = kDotSize;
    dot.colour = kSketchDotColour;
    d.items.push_back(dot);
  }
}

void BuildRows(ParabolaSketch& sketch, double a, double b, double c,
               const std::vector<double>& roots) {
  std::vector<std::string> grid(kSketchRows, std::string(kSketchColumns, ' '));
  auto put = [&](int row, int column, char mark) {
    if (row >= 0 && row < kSketchRows && column >= 0 && column < kSketchColumns)
      grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = mark;
  };
  const int axis_row = sketch.Row(0.0);
  for (int column = 0; column < kSketchColumns; ++column) put(axis_row, column, '-');
  if (sketch.x_min <= 0.0 && sketch.x_max >= 0.0) {
    const int axis_column = sketch.Column(0.0);
    for (int row = 0; row < kSketchRows; ++row) put(row, axis_column, '|');
    put(axis_row, axis_column, '+');
  }
  int previous = -1;
  for (int column = 0; column < kSketchColumns; ++column) {
    const double x = sketch.x_min + (sketch.x_max - sketch.x_min) * column / (kSketchColumns - 1);
    const int row = sketch.Row(ValueAt(a, b, c, x));
    put(row, column, '*');
    // A steep stretch is joined up in the column it reaches.
    if (previous >= 0) {
      for (int between = std::min(previous, row) + 1; between < std::max(previous, row); ++between)
        put(between, column, '*');
    }
    previous = row;
  }
  for (const double r : roots) {
    if (std::isfinite(r)) put(axis_row, sketch.Column(r), 'o');
  }
  sketch.rows = std::move(grid);
}

}  // namespace

float ParabolaSketch::ToX(double x) const {
  const double left = kSketchMargin / 2;
  const double right = kSketchWidth - kSketchMargin / 2;
  return static_cast<float>(left + (x - x_min) / (x_max - x_min) * (right - left));
}

float ParabolaSketch::ToY(double y) const {
  const double top = kSketchMargin / 2;
  const double bottom = kSketchHeight - kSketchMargin / 2;
  return static_cast<float>(bottom - (y - y_min) / (y_max - y_min) * (bottom - top));
}

int ParabolaSketch::Column(double x) const {
  return static_cast<int>(std::lround((x - x_min) / (x_max - x_min) * (kSketchColumns - 1)));
}

int ParabolaSketch::Row(double y) const {
  return static_cast<int>(std::lround((y_max - y) / (y_max - y_min) * (kSketchRows - 1)));
}

ParabolaSketch SketchParabola(double a, double b, double c, const std::vector<double>& real_roots) {
  ParabolaSketch sketch;
  ChooseWindow(sketch, a, b, c, real_roots);
  BuildDrawing(sketch, a, b, c, real_roots);
  BuildRows(sketch, a, b, c, real_roots);
  return sketch;
}

void DrawParabolaSketch(Session& s, const std::string& a, const std::string& b,
                        const std::string& c, const std::vector<double>& real_roots) {
  const std::optional<double> av = NumericTextValue(s, a);
  const std::optional<double> bv = NumericTextValue(s, b);
  const std::optional<double> cv = NumericTextValue(s, c);
  if (!av || !bv || !cv || *av == 0.0 || !std::isfinite(*av) || !std::isfinite(*bv) ||
      !std::isfinite(*cv)) {
    return;
  }
  ParabolaSketch sketch = SketchParabola(*av, *bv, *cv, real_roots);
  Picture picture;
  picture.relation = kRelationEquals;
  picture.left = "y";
  picture.right = StandardForm(s, "x", a, b, c);
  picture.drawing = std::move(sketch.drawing);
  picture.sketch = std::move(sketch.rows);
  WorkSpaceSink box(s);
  InsertPicture(s, box, std::move(picture), 1, 1, true);
}

}  // namespace tavimor
