// Contour following on the lattice: each zero contour of F traced once, cell by cell, as one
// polyline, closed curves joined up; the Cartesian and the polar lattice.
#include "graph/contour_plot.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "graph/curve_plot.h"
#include "graph/curve_tree.h"

namespace tavimor {

namespace {

constexpr double kTwoPi = 2 * 3.14159265358979;

// An edge of the lattice, the same from both cells that share it: the lower edge of cell (i, j)
// is horizontal (i, j), its left edge vertical (i, j).
struct Edge {
  bool horizontal = true;
  int i = 0;
  int j = 0;
  bool operator==(const Edge&) const = default;
};

Edge EdgeOf(int side, int i, int j) {
  switch (side) {
    case 1: return {true, i, j};
    case 2: return {false, i + 1, j};
    case 3: return {true, i, j + 1};
    default: return {false, i, j};
  }
}

int Opposite(int side) { return (side + 1) % 4 + 1; }  // 1 <-> 3, 2 <-> 4

class Tracer {
 public:
  Tracer(ContourGrid& grid, const ContourLattice& lattice) : grid_(grid), l_(lattice) {}

  // The two samples at the ends of a side of cell (i, j), in the order the side runs.
  std::pair<float, float> Ends(int side, int i, int j) const {
    switch (side) {
      case 1: return {grid_.At(i, j), grid_.At(i + 1, j)};
      case 2: return {grid_.At(i + 1, j), grid_.At(i + 1, j + 1)};
      case 3: return {grid_.At(i, j + 1), grid_.At(i + 1, j + 1)};
      default: return {grid_.At(i, j), grid_.At(i, j + 1)};
    }
  }

  bool Crossed(int side, int i, int j) const {
    const auto [a, b] = Ends(side, i, j);
    return OppositeSigns(a, b);
  }

  // Where F changes sign on that side: linear interpolation in cell units.
  void EdgeCrossing(int side, int i, int j, ContourLine& line) const {
    const auto [a, b] = Ends(side, i, j);
    // Between the two samples' own positions, in double precision, so that a crossing next to
    // a sample moved off zero stays on its side of it.
    const double f = static_cast<double>(a) / (static_cast<double>(a) - b);
    const auto along = [f](double from, double to) { return from + f * (to - from); };
    double x = l_.XAt(i);
    double y = l_.YAt(j);
    switch (side) {
      case 1: x = along(x, l_.XAt(i + 1)); break;
      case 2:
        x = l_.XAt(i + 1);
        y = along(y, l_.YAt(j + 1));
        break;
      case 3:
        x = along(x, l_.XAt(i + 1));
        y = l_.YAt(j + 1);
        break;
      default: y = along(y, l_.YAt(j + 1)); break;
    }
    line.x.push_back(static_cast<float>(x));
    line.y.push_back(static_cast<float>(y));
  }

  bool InCells(int i, int j) const {
    return i >= l_.i_low && i < l_.i_high && j >= l_.j_low && j < l_.j_high;
  }

  bool Marked(int side, int i, int j) { return (marks_.At(i, j) >> (side - 1)) & 1; }

  // Marks the side in the cell and in the neighbour that shares it.
  void Mark(int side, int i, int j) {
    marks_.At(i, j) = static_cast<std::uint16_t>(marks_.At(i, j) | (1 << (side - 1)));
    const auto [ni, nj] = Across(side, i, j);
    if (InCells(ni, nj)) {
      const int other = Opposite(side);
      marks_.At(ni, nj) = static_cast<std::uint16_t>(marks_.At(ni, nj) | (1 << (other - 1)));
    }
  }

  static std::pair<int, int> Across(int side, int i, int j) {
    switch (side) {
      case 1: return {i, j - 1};
      case 2: return {i + 1, j};
      case 3: return {i, j + 1};
      default: return {i - 1, j};
    }
  }

  // The side a contour that entered the cell by `entry` leaves by, or 0 when it has nowhere
  // left to go. A saddle leaves by the next side in order that is still free.
  int ExitSide(int entry, int i, int j, const Edge& start) {
    int crossed = 0;
    for (int side = 1; side <= 4; ++side) {
      if (Crossed(side, i, j)) crossed |= 1 << (side - 1);
    }
    const auto free = [&](int side) { return !Marked(side, i, j) || EdgeOf(side, i, j) == start; };
    if (crossed == 15) {
      for (int k = 1; k <= 3; ++k) {
        const int side = (entry - 1 + k) % 4 + 1;
        if (free(side)) return side;
      }
      return 0;
    }
    const int rest = crossed & ~(1 << (entry - 1));
    for (int side = 1; side <= 4; ++side) {
      if (rest == (1 << (side - 1))) return free(side) ? side : 0;
    }
    return 0;
  }

  // Goes on from cell (i, j), entered by `entry`, to the end of the contour. True when the
  // contour came back to its start.
  bool Follow(int entry, int i, int j, const Edge& start, ContourLine& line) {
    // Every crossing is used once, so no contour has more steps than the lattice has edges.
    for (int guard = 2 * kContourSamples * kContourSamples; guard > 0; --guard) {
      const int exit = ExitSide(entry, i, j, start);
      if (exit == 0) return false;
      EdgeCrossing(exit, i, j, line);
      Mark(exit, i, j);
      if (EdgeOf(exit, i, j) == start) return true;
      const auto [ni, nj] = Across(exit, i, j);
      if (!InCells(ni, nj)) return false;  // the contour leaves the lattice
      i = ni;
      j = nj;
      entry = Opposite(exit);
    }
    return false;
  }

  // ContourTrace: the contour that crosses that side of cell (i, j), if it is still unused.
  void Trace(int side, int i, int j, std::vector<ContourLine>& out) {
    if (!Crossed(side, i, j) || Marked(side, i, j)) return;
    ContourLine line;
    EdgeCrossing(side, i, j, line);
    Mark(side, i, j);
    const Edge start = EdgeOf(side, i, j);
    line.closed = Follow(side, i, j, start, line);
    out.push_back(std::move(line));
  }

 private:
  ContourGrid& grid_;
  ContourLattice l_;
  ContourMarks marks_;
};

// The values of F over a lattice, two letters bound from the indices.
void FillGrid(CurveTree& tree, ContourGrid& grid, const ContourLattice& lattice, char u_letter,
              char v_letter) {
  for (int i = 1; i <= kContourSamples; ++i) {
    // Each value from its index, never by accumulation.
    tree.Bind(u_letter, lattice.XAt(i));
    for (int j = 1; j <= kContourSamples; ++j) {
      tree.Bind(v_letter, lattice.YAt(j));
      grid.At(i, j) = tree.Value();
    }
  }
}

}  // namespace

std::vector<ContourLine> ContourEngine(ContourGrid& grid, const ContourLattice& lattice) {
  for (float& value : grid.values) {
    if (value == 0.0f) value = kContourZero;
  }
  Tracer tracer(grid, lattice);
  std::vector<ContourLine> out;
  const ContourLattice& l = lattice;
  // Open contours first, from one end to the other.
  for (int i = l.i_low; i < l.i_high; ++i) tracer.Trace(1, i, l.j_low, out);
  for (int i = l.i_low; i < l.i_high; ++i) tracer.Trace(3, i, l.j_high - 1, out);
  for (int j = l.j_low; j < l.j_high; ++j) tracer.Trace(4, l.i_low, j, out);
  for (int j = l.j_low; j < l.j_high; ++j) tracer.Trace(2, l.i_high - 1, j, out);
  // Then the closed ones.
  for (int j = l.j_low + 1; j < l.j_high; ++j) {
    for (int i = l.i_low; i < l.i_high; ++i) tracer.Trace(1, i, j, out);
  }
  return out;
}

std::vector<ContourLine> ContourCartesian(Session& s, const std::string& expression, float xmin,
                                          float xmax, float ymin, float ymax) {
  ContourLattice lattice;
  lattice.x_origin = xmin;
  lattice.x_end = xmax;
  lattice.y_origin = ymin;
  lattice.y_end = ymax;
  ContourGrid grid;
  {
    CurveTree tree(s, expression);
    FillGrid(tree, grid, lattice, 'x', 'y');
  }
  return ContourEngine(grid, lattice);
}

PolarRange PolarWindowRange(float xmin, float xmax, float ymin, float ymax) {
  const double corners[4][2] = {{xmin, ymin}, {xmax, ymin}, {xmax, ymax}, {xmin, ymax}};
  PolarRange range;
  for (const auto& c : corners) range.r_high = std::max(range.r_high, std::hypot(c[0], c[1]));
  if (xmin <= 0 && xmax >= 0 && ymin <= 0 && ymax >= 0) {
    range.t_high = kTwoPi;
    return range;
  }
  // The nearest point of the window to the origin.
  range.r_low = std::hypot(std::clamp(0.0, static_cast<double>(xmin), static_cast<double>(xmax)),
                           std::clamp(0.0, static_cast<double>(ymin), static_cast<double>(ymax)));
  // The angles of the corners, 0 to 2 pi; the window spans the arc outside their widest gap.
  std::array<double, 4> angles{};
  for (std::size_t k = 0; k < 4; ++k) {
    double a = std::atan2(corners[k][1], corners[k][0]);
    if (a < 0) a += kTwoPi;
    angles[k] = a;
  }
  std::sort(angles.begin(), angles.end());
  std::size_t widest = 3;  // the gap from the last angle round to the first
  double widest_gap = angles[0] + kTwoPi - angles[3];
  for (std::size_t k = 0; k < 3; ++k) {
    if (angles[k + 1] - angles[k] > widest_gap) {
      widest_gap = angles[k + 1] - angles[k];
      widest = k;
    }
  }
  range.t_low = angles[(widest + 1) % 4];
  range.t_high = angles[widest];
  // An angle of 0 on the far side of a window that touches the positive x axis from below.
  if (range.t_high == 0 && range.t_low > 0) range.t_high = kTwoPi;
  return range;
}

std::vector<ContourLine> ContourPolar(Session& s, const std::string& expression, float xmin,
                                      float xmax, float ymin, float ymax) {
  const PolarRange range = PolarWindowRange(xmin, xmax, ymin, ymax);
  std::vector<std::pair<double, double>> passes;
  if (range.Wraps()) {
    passes = {{range.t_low, kTwoPi}, {0.0, range.t_high}};
  } else {
    passes = {{range.t_low, range.t_high}};
  }
  std::vector<ContourLine> out;
  CurveTree tree(s, expression);
  for (const auto& [t_low, t_high] : passes) {
    ContourLattice lattice;
    lattice.x_origin = range.r_low;
    lattice.x_end = range.r_high;
    lattice.y_origin = t_low;
    lattice.y_end = t_high;
    ContourGrid grid;
    FillGrid(tree, grid, lattice, 'r', 't');
    for (ContourLine& line : ContourEngine(grid, lattice)) {
      // Each crossing (r, t) to (r cos t, r sin t), the angle always in radians.
      for (std::size_t k = 0; k < line.x.size(); ++k) {
        const double r = line.x[k];
        const double t = line.y[k];
        line.x[k] = static_cast<float>(r * std::cos(t));
        line.y[k] = static_cast<float>(r * std::sin(t));
      }
      out.push_back(std::move(line));
    }
  }
  return out;
}

int DrawContours(DisplayList& out, const GraphMapping& map, const std::vector<ContourLine>& lines,
                 bool clip, GraphColour colour, int width) {
  int drawn = 0;
  for (const ContourLine& line : lines) {
    drawn +=
        DrawWorldPoints(out, map, line.x.data(), line.y.data(), static_cast<int>(line.x.size()),
                        clip ? ClipTo::YThenX : ClipTo::Nothing, colour, width);
  }
  return drawn;
}

}  // namespace tavimor
