// The grid, the rulers and the axes of a graph, as lines, points and texts of a display list.
#include "graph/graph_frame.h"

#include <cmath>
#include <cstdio>

#include "core/number_format.h"

namespace tavimor {

double GraphTextMetrics::Width(const std::string& text) const {
  double w = 0;
  for (const char c : text) {
    switch (c) {
      case '.':
      case ',':
      case ' ': w += 0.28 * height; break;
      case '-': w += 0.33 * height; break;
      default: w += 0.56 * height;
    }
  }
  return w;
}

std::int16_t GraphDecimals(double a, double b, char decimal_point) {
  std::int16_t most = 0;
  for (const double v : {a, b}) {
    const std::string text = GeneralNumberFormat(v, decimal_point);
    const std::size_t at = text.find(decimal_point);
    if (at == std::string::npos) continue;
    // The text's length less the separator's 1-based position.
    const auto decimals = static_cast<std::int16_t>(text.size() - (at + 1));
    if (decimals > most) most = decimals;
  }
  return most;
}

std::string AxisLabelText(double value, int decimals, char decimal_point) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals >= 1 ? decimals : 0, value);
  std::string text = buffer;
  // A value that rounds to zero is written without its sign, as the pattern writes it.
  if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
  for (char& c : text) {
    if (c == '.') c = decimal_point;
  }
  return text;
}

void DrawAxisLine(DisplayList& out, const GraphTextMetrics& metrics, const AxisLine& a,
                  char decimal_point) {
  const bool across = a.side == 1 || a.side == 2;
  const PixelPoint start{a.x, a.y};
  const PixelPoint end = across ? PixelPoint{a.x + a.length, a.y} : PixelPoint{a.x, a.y - a.length};
  out.Line(start, end, kGraphBlack, 1);
  const int sign = across ? a.side * 2 - 3 : a.side * 2 - 7;
  const double th = metrics.height;
  const auto divisions = static_cast<int>(std::lround(a.divisions));
  for (int k = 0; k <= divisions; ++k) {
    const double along = k * a.length / a.divisions;
    const double value = a.first + k * a.step;
    PixelPoint tick = across ? PixelPoint{a.x + along, a.y} : PixelPoint{a.x, a.y - along};
    const PixelPoint tip = across ? PixelPoint{tick.x, tick.y + sign * a.tick_length}
                                  : PixelPoint{tick.x + sign * a.tick_length, tick.y};
    out.Line(tick, tip, kGraphBlack, 1);
    const std::string label = AxisLabelText(value, a.decimals, decimal_point);
    const bool zero = label.find_first_not_of("0.,") == std::string::npos;
    if (a.decimals < 0 || (zero && !a.label_zero)) continue;
    const double tw = metrics.Width(label);
    if (across) {
      out.Text({tick.x - tw / 2, a.y + (1.75 - 1.5 * a.side) * th}, label, kGraphBlack);
    } else {
      out.Text({a.x + (1.75 - 0.5 * a.side) * th + (3 - a.side) * tw, tick.y - 0.5 * th}, label,
               kGraphBlack);
    }
  }
  if (a.name.empty()) return;
  const double nw = metrics.Width(a.name);
  if (a.show_name) {
    if (across) {
      const double mid = a.x + a.length / 2;
      out.Text({mid - nw / 2, a.side == 1 ? a.y + 1.75 * th : a.y - 2.7 * th}, a.name, kGraphBlack);
    } else {
      const double mid = a.y - a.length / 2;
      out.Text({a.side == 3 ? a.x + th : a.x - th - nw, mid - 0.7 * th}, a.name, kGraphBlack);
    }
  } else if (across) {
    out.Text({end.x + 0.25 * th, a.y - 0.6 * th - th}, a.name, kGraphBlack);
  } else {
    out.Text({end.x - 0.5 * th - nw, end.y - th}, a.name, kGraphBlack);
  }
}

void ShowGrid(DisplayList& out, const GraphMapping& map, const GraphParms& parms) {
  const auto gx = static_cast<std::int16_t>(parms.x_grid);
  const auto gy = static_cast<std::int16_t>(parms.y_grid);
  const float dx = (parms.xmax - parms.xmin) / static_cast<float>(gx);
  const float dy = (parms.ymax - parms.ymin) / static_cast<float>(gy);
  for (std::int16_t i = 0; i <= gx; ++i) {
    for (std::int16_t j = 0; j <= gy; ++j) {
      const double x = parms.xmin + i * dx;
      const double y = parms.ymin + j * dy;
      out.Point({map.WorldToPixelX(x), map.WorldToPixelY(y)}, kGraphBlack);
    }
  }
}

void ShowRulers(DisplayList& out, const GraphTextMetrics& metrics, const GraphMapping& map,
                const GraphParms& p, char decimal_point, const char* x_name, const char* y_name) {
  const double x_step = (p.xmax - p.xmin) / p.x_divisions;
  const double y_step = (p.ymax - p.ymin) / p.y_divisions;
  const int x_decimals = GraphDecimals(p.xmin, x_step, decimal_point);
  const int y_decimals = GraphDecimals(p.ymin, y_step, decimal_point);
  const double width = map.pixel_right - map.pixel_left;
  const double height = map.pixel_bottom - map.pixel_top;
  if (p.FrameStyle()) {
    struct Side {
      int side;
      const char* name;
      double x, y;
    };
    const Side sides[] = {{1, x_name, map.pixel_left, map.pixel_bottom},
                          {2, "", map.pixel_left, map.pixel_top},
                          {3, "", map.pixel_right, map.pixel_bottom},
                          {4, y_name, map.pixel_left, map.pixel_bottom}};
    for (const Side& side : sides) {
      const bool across = side.side <= 2;
      AxisLine axis;
      axis.x = side.x;
      axis.y = side.y;
      axis.name = side.name;
      axis.length = across ? width : height;
      axis.side = side.side;
      axis.label_zero = true;
      axis.show_name = !axis.name.empty();
      axis.divisions = across ? p.x_divisions : p.y_divisions;
      axis.first = across ? p.xmin : p.ymin;
      axis.step = across ? x_step : y_step;
      axis.decimals = across ? x_decimals : y_decimals;
      DrawAxisLine(out, metrics, axis, decimal_point);
    }
    if (p.xmin < 0 && p.xmax > 0) {
      out.Line({map.WorldToPixelX(0), map.WorldToPixelY(p.ymin)},
               {map.WorldToPixelX(0), map.WorldToPixelY(p.ymax)}, kGraphDarkYellow, 1);
    }
    if (p.ymin < 0 && p.ymax > 0) {
      out.Line({map.WorldToPixelX(p.xmin), map.WorldToPixelY(0)},
               {map.WorldToPixelX(p.xmax), map.WorldToPixelY(0)}, kGraphDarkYellow, 1);
    }
    return;
  }
  // Cross hair: the axes cross at the origin, wherever it lies.
  AxisLine x_axis;
  x_axis.x = map.WorldToPixelX(p.xmin);
  x_axis.y = map.WorldToPixelY(0);
  x_axis.name = "x";
  x_axis.length = width;
  x_axis.side = 1;
  x_axis.label_zero = false;
  x_axis.show_name = false;
  x_axis.divisions = p.x_divisions;
  x_axis.first = p.xmin;
  x_axis.step = x_step;
  x_axis.decimals = x_decimals;
  DrawAxisLine(out, metrics, x_axis, decimal_point);
  AxisLine y_axis = x_axis;
  y_axis.x = map.WorldToPixelX(0);
  y_axis.y = map.WorldToPixelY(p.ymin);
  y_axis.name = "y";
  y_axis.length = height;
  y_axis.side = 4;
  y_axis.divisions = p.y_divisions;
  y_axis.first = p.ymin;
  y_axis.step = y_step;
  y_axis.decimals = y_decimals;
  DrawAxisLine(out, metrics, y_axis, decimal_point);
}

}  // namespace tavimor
