// A sketch of the parabola y = a*x^2+b*x+c with a dot at each real root: a small graph in the work
// space (axes, the curve as a polyline, the dots) and the same sketch in lines of characters.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "present/display_list.h"

namespace tavimor {

// The sketch of one parabola: the window of the plane it shows, the drawing in points, and the
// lines of characters (the x axis "-", the y axis "|", the curve "*", a root "o").
struct ParabolaSketch {
  double x_min = -1.0;
  double x_max = 1.0;
  double y_min = -1.0;
  double y_max = 1.0;
  Drawing drawing;
  std::vector<std::string> rows;

  // Where a point of the plane lies in the drawing.
  float ToX(double x) const;
  float ToY(double y) const;
  // Where it lies in the lines of characters.
  int Column(double x) const;
  int Row(double y) const;
};

// The drawing is kSketchWidth by kSketchHeight points, the lines kSketchColumns by kSketchRows.
inline constexpr float kSketchWidth = 180.0f;
inline constexpr float kSketchHeight = 120.0f;
inline constexpr float kSketchMargin = 8.0f;
inline constexpr int kSketchColumns = 41;
inline constexpr int kSketchRows = 11;
// The colour of the dots at the roots: blue.
inline constexpr int kSketchDotColour = 9;

// The sketch for numeric coefficients (a not 0): the window holds the vertex and every root with
// room around them, and the x axis.
ParabolaSketch SketchParabola(double a, double b, double c, const std::vector<double>& real_roots);

// Writes the sketch of y = a*x^2+b*x+c into the work space, with a dot at each real root. Nothing
// is written when a coefficient is no number or a is 0.
void DrawParabolaSketch(Session& s, const std::string& a, const std::string& b,
                        const std::string& c, const std::vector<double>& real_roots);

}  // namespace tavimor
