// What the student does on an open graph, screen-free: zoom and pan and their round limits, the
// pointer's coordinates in the status bar, the parameter t on its slider, Play, the moving dot.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "graph/curve_plot.h"
#include "graph/display_list.h"
#include "graph/graph_mapping.h"
#include "graph/graph_parms.h"

namespace tavimor {

// The value with at most `figures` significant figures, in the general number format without a
// forced exponent; "0" for a value of size 1E-7 or less.
std::string CustomFormat0(double value, int figures, char decimal_point);

// The four limits of a window.
struct WindowLimits {
  double xmin = -10, xmax = 10, ymin = -10, ymax = 10;
};

// Low and high moved out to whole multiples of a round step (1, 2, 4, 5, 8, 10 or 20 times a
// power of ten) not below (high - low) / divisions.
struct RoundRange {
  double low = 0, high = 0;
};
RoundRange NiceLimits(double low, double high, double divisions);

// Zoom In x 2 and Zoom Out x 2, about the window's centre.
WindowLimits ZoomIn(const WindowLimits& w);
WindowLimits ZoomOut(const WindowLimits& w);

// A drag zooms only when it covers at least this many pixels in each direction.
inline constexpr double kZoomDragPixels = 5;
bool DragZooms(PixelPoint start, PixelPoint now);
// The window of a zoom rectangle dragged from `start` to `now`: its corners in world units,
// sorted and rounded out by NiceLimits; nothing for a drag too small.
std::optional<WindowLimits> ZoomToRectangle(const GraphMapping& map, PixelPoint start,
                                            PixelPoint now, double x_divisions, double y_divisions);
// The window moved by a pan from `start` to `now`: the drag in world units, rounded to a whole
// number of ticks so that the ticks stay on round numbers, taken off each limit.
WindowLimits Pan(const GraphMapping& map, PixelPoint start, PixelPoint now, double x_divisions,
                 double y_divisions);
// The limits written into the settings boxes as CustomFormat0 with six figures.
void WriteLimits(const Session& s, const WindowLimits& w, GraphBoxes& boxes);

// Whether a pixel lies inside the plotting rectangle.
bool InsidePlot(const PlotMargins& m, PixelPoint p);
// The status text of the pointer: "   (x, y) " in the "0.00" format, "; " between the two when
// the decimal separator is ","; empty outside the plotting rectangle.
std::string PointerStatusText(const GraphMapping& map, const PlotMargins& m, PixelPoint p,
                              char decimal_point);

// The slider of the parameter t: position k of 0 to 300 is sample k of the t range.
inline constexpr int kSliderMaximum = 300;
double SliderToT(double tmin, double tmax, int position);
// "t = " and the value with three figures.
std::string DotLabelText(double t, char decimal_point);
// One tick of Play: the slider's next position, and whether Play stops there (at the end).
struct PlayStep {
  int position = 0;
  bool stop = false;
};
PlayStep PlayTick(int position);

// The dot of a parametric curve at slider position k, in pixels; nothing when the point is
// undefined or outside the plotting rectangle.
std::optional<PixelPoint> DotPosition(const CurveSamples& samples, int position,
                                      const GraphMapping& map, const PlotMargins& m);

// The parametric curves of the classified equations: how many, and the first one's row (0-based
// row of its "5a" line), which the dot follows; none without a parametric curve.
struct DotChoice {
  int parametric_curves = 0;
  std::optional<std::size_t> dot_row;
  bool Enabled() const { return parametric_curves > 0; }
};
DotChoice DotSetup(const std::vector<EquationRow>& rows);

}  // namespace tavimor
