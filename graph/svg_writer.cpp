// Writes a display list as SVG: a line, a polyline, a point (a one-pixel square) and a text each
// become one element.
#include "graph/svg_writer.h"

#include <cstdio>

namespace tavimor {

namespace {

std::string Num(double v) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.2f", v);
  std::string text = buffer;
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  if (text == "-0") text = "0";
  return text;
}

std::string Colour(GraphColour c) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", RedOf(c), GreenOf(c), BlueOf(c));
  return buffer;
}

std::string Escaped(const std::string& text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

}  // namespace

std::string DisplayListSvg(const DisplayList& display) {
  std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                    std::to_string(display.width) + "\" height=\"" +
                    std::to_string(display.height) + "\" viewBox=\"0 0 " +
                    std::to_string(display.width) + " " + std::to_string(display.height) + "\">\n";
  out += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  out +=
      "<g font-family=\"Arial, Liberation Sans, sans-serif\" font-size=\"11\" "
      "stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
  for (const GraphItem& item : display.items) {
    const std::string colour = Colour(item.colour);
    switch (item.type) {
      case GraphItem::Type::Line:
        out += "<line x1=\"" + Num(item.points[0].x) + "\" y1=\"" + Num(item.points[0].y) +
               "\" x2=\"" + Num(item.points[1].x) + "\" y2=\"" + Num(item.points[1].y) +
               "\" stroke=\"" + colour + "\" stroke-width=\"" + std::to_string(item.width) +
               "\"/>\n";
        break;
      case GraphItem::Type::Polyline: {
        out += "<polyline fill=\"none\" stroke=\"" + colour + "\" stroke-width=\"" +
               std::to_string(item.width) + "\" points=\"";
        for (std::size_t k = 0; k < item.points.size(); ++k) {
          out += (k ? " " : "") + Num(item.points[k].x) + "," + Num(item.points[k].y);
        }
        out += "\"/>\n";
        break;
      }
      case GraphItem::Type::Point:
        out += "<rect x=\"" + Num(item.points[0].x - 0.5) + "\" y=\"" +
               Num(item.points[0].y - 0.5) + "\" width=\"1\" height=\"1\" fill=\"" + colour +
               "\"/>\n";
        break;
      case GraphItem::Type::Text:
        // The item holds the text's top left; SVG places the baseline.
        out += "<text x=\"" + Num(item.points[0].x) + "\" y=\"" + Num(item.points[0].y + 10) +
               "\" fill=\"" + colour + "\" xml:space=\"preserve\">" + Escaped(item.text) +
               "</text>\n";
        break;
    }
  }
  out += "</g>\n</svg>\n";
  return out;
}

}  // namespace tavimor
