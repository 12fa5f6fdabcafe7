// The frame of a graph: the lattice of grid points, the rulers of the frame style and the axes
// of the cross hair style with their numbered ticks.
#pragma once

#include <cstdint>
#include <string>

#include "graph/display_list.h"
#include "graph/graph_mapping.h"
#include "graph/graph_parms.h"

namespace tavimor {

// How the labels of a graph measure: a small sans-serif face, the same in every front end so
// that a picture is the same wherever it is drawn.
struct GraphTextMetrics {
  double height = 12.0;
  double Width(const std::string& text) const;
};

// The number of decimals of the two numbers in the general number format: the larger.
std::int16_t GraphDecimals(double a, double b, char decimal_point);
// A label: the value with that many decimals ("0.0" pattern), or a whole number for none.
std::string AxisLabelText(double value, int decimals, char decimal_point);

// One axis with its ticks, labels and name (see DrawRuler for the sides): 1 bottom, 2 top,
// 3 right, 4 left.
struct AxisLine {
  double x = 0, y = 0;  // start, pixels
  std::string name;
  double length = 0;
  double tick_length = 5;
  int side = 1;
  bool label_zero = true;
  bool show_name = true;
  double divisions = 10;
  double first = 0;
  double step = 1;
  int decimals = 0;
};
void DrawAxisLine(DisplayList& out, const GraphTextMetrics& metrics, const AxisLine& axis,
                  char decimal_point);

// The grid points: (gx + 1) x (gy + 1) points over the window.
void ShowGrid(DisplayList& out, const GraphMapping& map, const GraphParms& parms);
// The rulers in frame style, or the two axes in cross hair style.
// In frame style the bottom and left rulers carry the names (x and y unless told).
void ShowRulers(DisplayList& out, const GraphTextMetrics& metrics, const GraphMapping& map,
                const GraphParms& parms, char decimal_point, const char* x_name = "x",
                const char* y_name = "y  ");

}  // namespace tavimor
