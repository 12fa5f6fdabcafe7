// Sampling the curves whose equation gives a coordinate directly (explicit, explicit polar,
// parametric), and the clipping that drops a step across a pole.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/session.h"
#include "graph/curve_tree.h"
#include "graph/display_list.h"
#include "graph/graph_mapping.h"

namespace tavimor {

// Every curve is sampled at 301 points: 300 segments.
inline constexpr int kCurveSegments = 300;

// The codes of ClipSegment.
enum class ClipCode : std::int16_t {
  Inside = 0,
  FirstMoved = 1,
  SecondMoved = 2,
  BothMoved = 3,
  Outside = 4
};
// Clips a segment against the strip low <= y <= high by its y values, moving the ends in place.
// Both ends moved (a step from beyond one edge to beyond the other) counts as a jump at a pole.
ClipCode ClipSegment(float& x1, float& y1, float& x2, float& y2, float low, float high);

// The world points of one curve, 301 of them; a coordinate of kUndefinedValue marks a point
// with no real value.
struct CurveSamples {
  std::array<float, kCurveSegments + 1> x{};
  std::array<float, kCurveSegments + 1> y{};
  bool Undefined(int i) const {
    return x[static_cast<std::size_t>(i)] == kUndefinedValue ||
           y[static_cast<std::size_t>(i)] == kUndefinedValue;
  }
};

// Sample k of 300 of the range tmin to tmax: tmin + (tmax - tmin) * k / 300, and tmax itself at
// the last sample, which the rounding of that sum could miss.
double ParameterAt(double tmin, double tmax, int k);

// y = f(x) for x from xmin to xmax.
CurveSamples SampleExplicit(Session& s, const std::string& expression, float xmin, float xmax);
// r = f(t) for t from 0 to 2 pi, as the points (t, r).
CurveSamples SamplePolarRadius(Session& s, const std::string& expression);
// r = f(t) for t from 0 to 2 pi, as the points (r cos t, r sin t).
CurveSamples SampleExplicitPolar(Session& s, const std::string& expression);
// x = f(t), y = g(t) for t from tmin to tmax.
CurveSamples SampleParametric(Session& s, const std::string& x_expression,
                              const std::string& y_expression, float tmin, float tmax);

// Draws the samples as runs of segments joined into polylines: a segment with an undefined end
// is skipped; each is clipped in y (and, with `clip_x`, in x), and one whose code is 3 or more
// is dropped. Returns the number of segments drawn.
int DrawCurve(DisplayList& out, const GraphMapping& map, const CurveSamples& samples, bool clip_x,
              GraphColour colour, int width);

// How the segments of a run of world points are clipped to the window before they are drawn.
enum class ClipTo { Nothing, Y, YThenX };
// Draws the `count` world points as a run of segments in the same way, joined into polylines.
int DrawWorldPoints(DisplayList& out, const GraphMapping& map, const float* xs, const float* ys,
                    int count, ClipTo clip, GraphColour colour, int width);

}  // namespace tavimor
