// Zoom, pan, the pointer's coordinates, the parameter t and the dot, without a screen.
#include "graph/graph_interaction.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/number_format.h"
#include "graph/classify_graphs.h"

namespace tavimor {

std::string CustomFormat0(double value, int figures, char decimal_point) {
  if (std::abs(value) <= 1E-7) return "0";
  // Through the pattern "0.00000E+0" and back, so that only `figures` figures survive.
  const std::string rounded = ScientificPatternFormat(value, figures - 1, '.', true);
  const double back = ParseNumberText(rounded, '.').value_or(value);
  return GeneralNumberFormat(back, decimal_point);
}

RoundRange NiceLimits(double low, double high, double divisions) {
  const double raw = (high - low) / divisions;
  if (!(raw > 0) || !std::isfinite(raw)) return {low, high};
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  double step = 20 * power;
  for (double mantissa : {1.0, 2.0, 4.0, 5.0, 8.0, 10.0, 20.0}) {
    // A little slack, so that a raw step that is already round is taken as it is.
    if (mantissa * power >= raw * (1 - 1e-9)) {
      step = mantissa * power;
      break;
    }
  }
  return {std::floor(low / step + 1e-9) * step, std::ceil(high / step - 1e-9) * step};
}

WindowLimits ZoomIn(const WindowLimits& w) {
  const double cx = (w.xmin + w.xmax) / 2, cy = (w.ymin + w.ymax) / 2;
  const double rx = w.xmax - w.xmin, ry = w.ymax - w.ymin;
  return {cx - rx / 4, cx + rx / 4, cy - ry / 4, cy + ry / 4};
}

WindowLimits ZoomOut(const WindowLimits& w) {
  const double cx = (w.xmin + w.xmax) / 2, cy = (w.ymin + w.ymax) / 2;
  const double rx = w.xmax - w.xmin, ry = w.ymax - w.ymin;
  return {cx - rx, cx + rx, cy - ry, cy + ry};
}

bool DragZooms(PixelPoint start, PixelPoint now) {
  return std::abs(now.x - start.x) >= kZoomDragPixels &&
         std::abs(now.y - start.y) >= kZoomDragPixels;
}

std::optional<WindowLimits> ZoomToRectangle(const GraphMapping& map, PixelPoint start,
                                            PixelPoint now, double x_divisions,
                                            double y_divisions) {
  if (!DragZooms(start, now)) return std::nullopt;
  const double x1 = map.PixelToWorldX(start.x), x2 = map.PixelToWorldX(now.x);
  const double y1 = map.PixelToWorldY(start.y), y2 = map.PixelToWorldY(now.y);
  const RoundRange x = NiceLimits(std::min(x1, x2), std::max(x1, x2), x_divisions);
  const RoundRange y = NiceLimits(std::min(y1, y2), std::max(y1, y2), y_divisions);
  return WindowLimits{x.low, x.high, y.low, y.high};
}

WindowLimits Pan(const GraphMapping& map, PixelPoint start, PixelPoint now, double x_divisions,
                 double y_divisions) {
  const double tick_x = (static_cast<double>(map.x_max) - map.x_min) / x_divisions;
  const double tick_y = (static_cast<double>(map.y_max) - map.y_min) / y_divisions;
  const double dx = map.PixelToWorldX(now.x) - map.PixelToWorldX(start.x);
  const double dy = map.PixelToWorldY(now.y) - map.PixelToWorldY(start.y);
  const double shift_x = std::round(dx / tick_x) * tick_x;
  const double shift_y = std::round(dy / tick_y) * tick_y;
  return {map.x_min - shift_x, map.x_max - shift_x, map.y_min - shift_y, map.y_max - shift_y};
}

void WriteLimits(const Session& s, const WindowLimits& w, GraphBoxes& boxes) {
  boxes[0] = CustomFormat0(w.xmin, 6, s.Dp());
  boxes[1] = CustomFormat0(w.xmax, 6, s.Dp());
  boxes[4] = CustomFormat0(w.ymin, 6, s.Dp());
  boxes[5] = CustomFormat0(w.ymax, 6, s.Dp());
}

bool InsidePlot(const PlotMargins& m, PixelPoint p) {
  return p.x >= m.left && p.x <= m.right && p.y >= m.top && p.y <= m.bottom;
}

namespace {

// The "0.00" format with the session's separator.
std::string TwoDecimals(double v, char decimal_point) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.2f", v);
  std::string text = buffer;
  if (text == "-0.00") text = "0.00";
  std::replace(text.begin(), text.end(), '.', decimal_point);
  return text;
}

}  // namespace

std::string PointerStatusText(const GraphMapping& map, const PlotMargins& m, PixelPoint p,
                              char decimal_point) {
  if (!InsidePlot(m, p)) return "";
  const std::string between = decimal_point == ',' ? "; " : ", ";
  return "   (" + TwoDecimals(map.PixelToWorldX(p.x), decimal_point) + between +
         TwoDecimals(map.PixelToWorldY(p.y), decimal_point) + ") ";
}

double SliderToT(double tmin, double tmax, int position) {
  return ParameterAt(tmin, tmax, position);
}

std::string DotLabelText(double t, char decimal_point) {
  return "t = " + CustomFormat0(t, 3, decimal_point);
}

PlayStep PlayTick(int position) {
  const int next = std::min(position + 1, kSliderMaximum);
  return {next, next >= kSliderMaximum};
}

std::optional<PixelPoint> DotPosition(const CurveSamples& samples, int position,
                                      const GraphMapping& map, const PlotMargins& m) {
  if (position < 0 || position > kCurveSegments || samples.Undefined(position)) {
    return std::nullopt;
  }
  const auto k = static_cast<std::size_t>(position);
  const PixelPoint p{map.WorldToPixelX(samples.x[k]), map.WorldToPixelY(samples.y[k])};
  if (!InsidePlot(m, p)) return std::nullopt;
  return p;
}

DotChoice DotSetup(const std::vector<EquationRow>& rows) {
  DotChoice choice;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i][3] != kGraphParametricX) continue;
    if (!choice.dot_row) choice.dot_row = i;
    ++choice.parametric_curves;
  }
  return choice;
}

}  // namespace tavimor
