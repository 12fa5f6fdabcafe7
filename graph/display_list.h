// What a graph is drawn as: lines, polylines, points and texts in pixels, with their colours and
// widths, for any front end to paint.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavimor {

// A colour as the 24-bit 0xBBGGRR value the settings hold.
using GraphColour = std::int32_t;
inline constexpr GraphColour kGraphBlack = 0;
// Palette entry 6, dark yellow: the axes drawn through a framed graph.
inline constexpr GraphColour kGraphDarkYellow = 0x008080;

struct PixelPoint {
  double x = 0;
  double y = 0;
  bool operator==(const PixelPoint&) const = default;
};

struct GraphItem {
  enum class Type { Line, Polyline, Point, Text };
  Type type = Type::Line;
  GraphColour colour = kGraphBlack;
  int width = 1;
  std::vector<PixelPoint> points;  // two for a line, one for a point or a text (its top left)
  std::string text;
};

struct DisplayList {
  int width = 500;  // the drawing area, pixels
  int height = 500;
  std::vector<GraphItem> items;

  void Line(PixelPoint a, PixelPoint b, GraphColour colour, int width_px) {
    items.push_back({GraphItem::Type::Line, colour, width_px, {a, b}, {}});
  }
  void Point(PixelPoint p, GraphColour colour) {
    items.push_back({GraphItem::Type::Point, colour, 1, {p}, {}});
  }
  void Text(PixelPoint top_left, const std::string& text, GraphColour colour) {
    items.push_back({GraphItem::Type::Text, colour, 1, {top_left}, text});
  }
};

// Red, green and blue of a colour.
inline int RedOf(GraphColour c) { return c & 0xFF; }
inline int GreenOf(GraphColour c) { return (c >> 8) & 0xFF; }
inline int BlueOf(GraphColour c) { return (c >> 16) & 0xFF; }

}  // namespace tavimor
