// The graph in the terminal: JSON fields, the SVG file, the braille sketch.
#include "cli/graph_view.h"

#include <cmath>
#include <cstdio>
#include <fstream>

#include "cli/json_output.h"
#include "core/number_format.h"
#include "graph/braille_sketch.h"
#include "graph/svg_writer.h"

namespace tavimor {

namespace {

std::string JsonNumber(double v) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.7g", v);
  return buffer;
}

std::string ColourText(GraphColour c) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", RedOf(c), GreenOf(c), BlueOf(c));
  return buffer;
}

}  // namespace

std::string GraphJsonField(const GraphPicture& picture) {
  const GraphMapping& m = picture.mapping;
  std::string out = ", \"graph\": {\"x\": [" + JsonNumber(m.x_min) + ", " + JsonNumber(m.x_max) +
                    "], \"y\": [" + JsonNumber(m.y_min) + ", " + JsonNumber(m.y_max) +
                    "], \"curves\": [";
  for (std::size_t k = 0; k < picture.curves.size(); ++k) {
    const GraphCurve& curve = picture.curves[k];
    out += k ? ", " : "";
    out += "{\"equation\": " + JsonString(curve.equation) +
           ", \"kind\": " + JsonString(curve.kind) +
           ", \"colour\": " + JsonString(ColourText(curve.colour));
    if (!curve.samples) {
      // An implicit curve: its followed contours, each a polyline.
      out += ", \"contours\": [";
      for (std::size_t c = 0; c < curve.contours.size(); ++c) {
        const ContourLine& line = curve.contours[c];
        out += c ? ", " : "";
        out += std::string("{\"closed\": ") + (line.closed ? "true" : "false") + ", \"points\": [";
        for (std::size_t p = 0; p < line.x.size(); ++p) {
          out += p ? ", " : "";
          out += "[" + JsonNumber(line.x[p]) + ", " + JsonNumber(line.y[p]) + "]";
        }
        out += "]}";
      }
      out += "]}";
      continue;
    }
    out += ", \"points\": [";
    for (int i = 0; i <= kCurveSegments; ++i) {
      out += i ? ", " : "";
      if (curve.samples->Undefined(i)) {
        out += "null";
      } else {
        out += "[" + JsonNumber(curve.samples->x[static_cast<std::size_t>(i)]) + ", " +
               JsonNumber(curve.samples->y[static_cast<std::size_t>(i)]) + "]";
      }
    }
    out += "]}";
  }
  return out + "]}";
}

bool WriteGraphSvg(const GraphPicture& picture, const std::string& path, std::string& error) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (file) file << DisplayListSvg(picture.display);
  if (!file) {
    error = "cannot write the picture to \"" + path + "\".";
    return false;
  }
  return true;
}

std::vector<std::string> GraphSketchLines(const Session& s, const GraphPicture& picture) {
  std::vector<std::string> lines = BrailleSketch(picture.display, 40, 20);
  const GraphMapping& m = picture.mapping;
  lines.push_back("x from " + GeneralNumberFormat(m.x_min, s.Dp()) + " to " +
                  GeneralNumberFormat(m.x_max, s.Dp()) + ", y from " +
                  GeneralNumberFormat(m.y_min, s.Dp()) + " to " +
                  GeneralNumberFormat(m.y_max, s.Dp()));
  return lines;
}

}  // namespace tavimor
