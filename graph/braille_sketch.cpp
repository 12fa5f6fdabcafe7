// Rasterises the lines of a display list into braille dots: a dot is set wherever a line passes.
#include "graph/braille_sketch.h"

#include <algorithm>
#include <cmath>

namespace tavimor {

namespace {

// The bit of each dot of a braille cell, by column and row.
constexpr unsigned kDotBits[2][4] = {{0x01, 0x02, 0x04, 0x40}, {0x08, 0x10, 0x20, 0x80}};

}  // namespace

std::vector<std::string> BrailleSketch(const DisplayList& display, int columns, int rows) {
  const int dots_x = columns * 2;
  const int dots_y = rows * 4;
  std::vector<unsigned> cells(static_cast<std::size_t>(columns * rows), 0);
  const double sx = dots_x / static_cast<double>(std::max(display.width, 1));
  const double sy = dots_y / static_cast<double>(std::max(display.height, 1));
  const auto set = [&](double px, double py) {
    const auto dx = static_cast<int>(std::floor(px * sx));
    const auto dy = static_cast<int>(std::floor(py * sy));
    if (dx < 0 || dy < 0 || dx >= dots_x || dy >= dots_y) return;
    cells[static_cast<std::size_t>((dy / 4) * columns + dx / 2)] |= kDotBits[dx % 2][dy % 4];
  };
  const auto line = [&](PixelPoint a, PixelPoint b) {
    const double steps =
        std::ceil(std::max(std::abs(b.x - a.x) * sx, std::abs(b.y - a.y) * sy) * 2) + 1;
    if (!(steps < 1e6)) return;  // a line far outside the picture
    for (int k = 0; k <= static_cast<int>(steps); ++k) {
      const double f = k / steps;
      set(a.x + (b.x - a.x) * f, a.y + (b.y - a.y) * f);
    }
  };
  for (const GraphItem& item : display.items) {
    if (item.type != GraphItem::Type::Line && item.type != GraphItem::Type::Polyline) continue;
    for (std::size_t k = 1; k < item.points.size(); ++k) line(item.points[k - 1], item.points[k]);
  }
  std::vector<std::string> out;
  for (int r = 0; r < rows; ++r) {
    std::string text;
    for (int c = 0; c < columns; ++c) {
      // U+2800 + the bits, in UTF-8.
      const unsigned code = 0x2800 + cells[static_cast<std::size_t>(r * columns + c)];
      text += static_cast<char>(0xE0 | (code >> 12));
      text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      text += static_cast<char>(0x80 | (code & 0x3F));
    }
    out.push_back(text);
  }
  return out;
}

}  // namespace tavimor
