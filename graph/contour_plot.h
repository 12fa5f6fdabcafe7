// Implicit curves F = 0 as the zero contour of F on a 101 x 101 lattice, each contour followed
// from cell to cell as one polyline; the same engine on the (r, t) lattice for polar equations.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"
#include "graph/display_list.h"
#include "graph/graph_mapping.h"

namespace tavimor {

// Samples along each side of the lattice; indices run from 1 to 101.
inline constexpr int kContourSamples = 101;
// A sample exactly 0 is moved to this, so that a crossing always lies strictly inside an edge.
inline constexpr float kContourZero = 1E-8f;

// The value of F at each sample (i, j), 1-based.
struct ContourGrid {
  std::vector<float> values = std::vector<float>(kContourSamples * kContourSamples, 0.0f);
  float& At(int i, int j) {
    return values[static_cast<std::size_t>((i - 1) * kContourSamples + j - 1)];
  }
  float At(int i, int j) const {
    return values[static_cast<std::size_t>((i - 1) * kContourSamples + j - 1)];
  }
};

// The used crossings: for each cell (lower left sample (i, j)) a mask with bit k - 1 for side k.
// Sides: 1 the lower edge, 2 the right, 3 the upper, 4 the left.
struct ContourMarks {
  std::vector<std::uint16_t> masks =
      std::vector<std::uint16_t>(kContourSamples * kContourSamples, 0);
  std::uint16_t& At(int i, int j) {
    return masks[static_cast<std::size_t>((i - 1) * kContourSamples + j - 1)];
  }
};

// The part of the lattice the engine works on, and where its samples lie: sample (i, j) is at
// (x_origin + (x_end - x_origin) * (i - 1) / 100, the same in y), each a 32-bit float computed
// from its index.
struct ContourLattice {
  int i_low = 1, i_high = kContourSamples, j_low = 1, j_high = kContourSamples;
  double x_origin = 0, x_end = 100, y_origin = 0, y_end = 100;
  static double SampleAt(double low, double high, int index) {
    return static_cast<float>(low + (high - low) * (index - 1) / 100.0);
  }
  double XAt(int i) const { return SampleAt(x_origin, x_end, i); }
  double YAt(int j) const { return SampleAt(y_origin, y_end, j); }
};

// One contour: its crossings in order, in the lattice's coordinates. A closed contour ends on
// the crossing it began with.
struct ContourLine {
  std::vector<float> x;
  std::vector<float> y;
  bool closed = false;
};

// True if one value is negative and the other isn't.
inline bool OppositeSigns(float a, float b) { return (a < 0) != (b < 0); }

// Follows every zero contour of the grid: the samples equal to 0 are moved to 1E-8 first, the
// contours that begin on the lattice's boundary are followed from end to end, then the closed
// ones from the first crossing of an inner row. A saddle (all four sides crossed) leaves by the
// next side in order.
std::vector<ContourLine> ContourEngine(ContourGrid& grid, const ContourLattice& lattice);

// The contours of F(x, y) = 0 over the window, sampled at 101 x 101 points, in world (x, y).
std::vector<ContourLine> ContourCartesian(Session& s, const std::string& expression, float xmin,
                                          float xmax, float ymin, float ymax);

// The ranges of r and t that a window covers: with the origin inside, r from 0 and t from 0 to
// 2 pi; else r from the window's nearest point to its farthest corner and t over the angles its
// corners span. `t_low` above `t_high` means the range wraps through 0.
struct PolarRange {
  double r_low = 0, r_high = 0, t_low = 0, t_high = 0;
  bool Wraps() const { return t_low > t_high; }
};
PolarRange PolarWindowRange(float xmin, float xmax, float ymin, float ymax);

// The contours of F(r, t) = 0 over the window, in world (x, y) = (r cos t, r sin t); a range
// that wraps through 0 is worked in two passes.
std::vector<ContourLine> ContourPolar(Session& s, const std::string& expression, float xmin,
                                      float xmax, float ymin, float ymax);

// Draws contours as polylines: Cartesian ones as they are, polar ones clipped in y and then in x
// segment by segment, as the polar curves are. Returns the number of segments drawn.
int DrawContours(DisplayList& out, const GraphMapping& map, const std::vector<ContourLine>& lines,
                 bool clip, GraphColour colour, int width);

}  // namespace tavimor
