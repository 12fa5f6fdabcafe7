// The graph settings string, the settings panel's boxes and their validation, the margins.
#include "graph/graph_parms.h"

#include "core/number_format.h"
#include "core/number_text.h"
#include "core/pieces.h"

namespace tavimor {

namespace {

float Field(const Session& s, const std::string& text, int k) {
  return SafeValue32(s, GetPiece(text, k, ";"));
}

int IntField(const Session& s, const std::string& text, int k) {
  const double v = SafeValue(s, GetPiece(text, k, ";"));
  if (!(v > -2147483648.0 && v < 2147483647.0)) return 0;
  return static_cast<int>(v);
}

std::string Num(const Session& s, double v) { return GeneralNumberFormat(v, s.Dp()); }

}  // namespace

GraphParms ReadGraphParms(const Session& s, const std::string& text) {
  GraphParms p;
  p.width = IntField(s, text, 1);
  p.height = IntField(s, text, 2);
  p.xmin = Field(s, text, 3);
  p.xmax = Field(s, text, 4);
  p.x_divisions = Field(s, text, 5);
  p.x_grid = Field(s, text, 6);
  p.ymin = Field(s, text, 7);
  p.ymax = Field(s, text, 8);
  p.y_divisions = Field(s, text, 9);
  p.y_grid = Field(s, text, 10);
  p.axes = IntField(s, text, 11);
  p.grid = IntField(s, text, 12);
  p.thickness = IntField(s, text, 13);
  p.t_now = Field(s, text, 14);
  p.tmin = Field(s, text, 15);
  p.tmax = Field(s, text, 16);
  for (int k = 0; k < kGraphColours; ++k) {
    p.colours[static_cast<std::size_t>(k)] = IntField(s, text, 17 + k);
  }
  return p;
}

std::string GraphParmsText(const Session& s, const GraphParms& p) {
  std::string out = std::to_string(p.width) + ";" + std::to_string(p.height);
  for (const float v :
       {p.xmin, p.xmax, p.x_divisions, p.x_grid, p.ymin, p.ymax, p.y_divisions, p.y_grid}) {
    out += ";" + Num(s, v);
  }
  out += ";" + std::to_string(p.axes) + ";" + std::to_string(p.grid) + ";" +
         std::to_string(p.thickness);
  for (const float v : {p.t_now, p.tmin, p.tmax}) out += ";" + Num(s, v);
  for (const std::int32_t colour : p.colours) out += ";" + std::to_string(colour);
  return out;
}

GraphBoxes GraphBoxesOf(const Session& s, const GraphParms& p) {
  return {Num(s, p.xmin), Num(s, p.xmax), Num(s, p.x_divisions), Num(s, p.x_grid),
          Num(s, p.ymin), Num(s, p.ymax), Num(s, p.y_divisions), Num(s, p.y_grid),
          Num(s, p.tmin), Num(s, p.tmax)};
}

GraphValidation ValidateGraphSettings(const Session& s, const GraphBoxes& boxes) {
  std::array<float, 11> a{};  // a[1] to a[10]
  for (int k = 1; k <= 10; ++k) {
    std::string text = boxes[static_cast<std::size_t>(k - 1)];
    // Blanks around a number are no part of it.
    const std::size_t first = text.find_first_not_of(' ');
    const std::size_t last = text.find_last_not_of(' ');
    text = first == std::string::npos ? "" : text.substr(first, last - first + 1);
    const std::optional<double> value = ParseNumberText(text, s.Dp());
    // A value beyond a 32-bit float is no number of the box either.
    if (!value || *value > 3.4e38 || *value < -3.4e38) {
      return {k, "This textbox must contain a number."};
    }
    a[static_cast<std::size_t>(k)] = static_cast<float>(*value);
  }
  struct Test {
    bool passes;
    int culprit;
    const char* message;
  };
  const char* kTooFew = "The number of divisions must be greater than 0.";
  const char* kTooMany = "The number of divisions is too big.";
  const Test tests[] = {
      {a[2] > a[1], 2, "The maximum x coordinate must be larger than the minimum x coordinate."},
      {a[6] > a[5], 6, "The maximum y coordinate must be larger than the minimum y coordinate."},
      {a[10] > a[9], 10, "The maximum t value must be larger than the minimum t value."},
      {a[3] > 0, 3, kTooFew},
      {a[3] <= 50, 3, kTooMany},
      {a[7] > 0, 7, kTooFew},
      {a[7] <= 50, 7, kTooMany},
      {a[4] > 0, 4, kTooFew},
      {a[4] <= 200, 4, kTooMany},
      {a[8] > 0, 8, kTooFew},
      {a[8] <= 200, 8, kTooMany},
  };
  for (const Test& test : tests) {
    if (!test.passes) return {test.culprit, test.message};
  }
  return {};
}

void ApplyGraphBoxes(const Session& s, const GraphBoxes& boxes, GraphParms& p) {
  float* const places[] = {&p.xmin, &p.xmax,        &p.x_divisions, &p.x_grid, &p.ymin,
                           &p.ymax, &p.y_divisions, &p.y_grid,      &p.tmin,   &p.tmax};
  for (std::size_t k = 0; k < boxes.size(); ++k) *places[k] = SafeValue32(s, boxes[k]);
}

PlotMargins ComputePlotMargins(int width, int height) { return {33, width - 38, 27, height - 40}; }

}  // namespace tavimor
