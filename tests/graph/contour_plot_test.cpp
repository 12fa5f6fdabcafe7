// Implicit curves: each contour followed once as one polyline, closed curves joined, zeros moved
// off the lattice, saddles resolved, the polar lattice, and every vertex on its curve.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "graph/contour_plot.h"
#include "graph_fixture.h"

namespace tavimor {
namespace {

using Contour = GraphTest;

bool OnLeftOrRight(const ContourLine& line, std::size_t k, float xmin, float xmax) {
  return std::abs(line.x[k] - xmin) < 1e-4 || std::abs(line.x[k] - xmax) < 1e-4;
}
bool OnBottomOrTop(const ContourLine& line, std::size_t k, float ymin, float ymax) {
  return std::abs(line.y[k] - ymin) < 1e-4 || std::abs(line.y[k] - ymax) < 1e-4;
}

TEST_F(Contour, CircleIsOneClosedPolylineFromAnInnerRow) {
  const auto lines = ContourCartesian(s, "(x^2+y^2)-(4)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 1u);
  const ContourLine& circle = lines[0];
  EXPECT_TRUE(circle.closed);
  EXPECT_EQ(circle.x.front(), circle.x.back());
  EXPECT_EQ(circle.y.front(), circle.y.back());
  // Begun on the lower edge of a cell of the first inner row with a sign change: y = -1.8 (the
  // row y = -2 only touches zero at (0, -2), which is moved to 1E-8).
  EXPECT_FLOAT_EQ(circle.y.front(), -1.8f);
  for (std::size_t k = 0; k < circle.x.size(); ++k) {
    EXPECT_NEAR(std::hypot(circle.x[k], circle.y[k]), 2.0, 0.02) << k;
  }
  // Each crossing once: no point but the last repeats another.
  for (std::size_t a = 0; a + 1 < circle.x.size(); ++a) {
    for (std::size_t b = a + 1; b + 1 < circle.x.size(); ++b) {
      ASSERT_FALSE(circle.x[a] == circle.x[b] && circle.y[a] == circle.y[b]) << a << " " << b;
    }
  }
}

TEST_F(Contour, DiagonalLineIsTracedOnceFromBoundaryToBoundary) {
  const auto lines = ContourCartesian(s, "(x)-(y)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 1u);
  const ContourLine& line = lines[0];
  EXPECT_FALSE(line.closed);
  // The samples on the diagonal are moved to 1E-8, so the bottom row has no crossing: the line
  // begins at the top right corner and ends at the bottom left one.
  EXPECT_NEAR(line.x.front(), 10.0f, 0.2);
  EXPECT_NEAR(line.y.front(), 10.0f, 1e-4);
  EXPECT_NEAR(line.x.back(), -10.0f, 1e-4);
  EXPECT_NEAR(line.y.back(), -10.0f, 0.2);
  for (std::size_t k = 0; k < line.x.size(); ++k) EXPECT_NEAR(line.x[k], line.y[k], 0.21);
}

TEST_F(Contour, VerticalLineRunsThroughTheCellsLeftOfItsSampleColumn) {
  // x = 3 is the sample column 66, moved to 1E-8: the crossings lie on its left, within a 32-bit
  // float of it, one on each horizontal edge.
  const auto lines = ContourCartesian(s, "(x)-(3)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 1u);
  const ContourLine& line = lines[0];
  EXPECT_EQ(line.x.size(), 101u);
  for (std::size_t k = 0; k < line.x.size(); ++k) {
    EXPECT_LE(line.x[k], 3.0f);
    EXPECT_GT(line.x[k], 3.0f - 1e-5f);
    EXPECT_NEAR(line.y[k], -10.0 + 0.2 * static_cast<double>(k), 1e-4);
  }
}

TEST_F(Contour, VerticalLineBetweenSampleColumnsCrossesTheMiddleOfCells) {
  const auto lines = ContourCartesian(s, "(x)-(3.1)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 1u);
  for (float x : lines[0].x) EXPECT_NEAR(x, 3.1f, 1e-4);
}

TEST_F(Contour, ZeroOnTheLatticeIsMovedJustAboveZero) {
  ContourGrid grid;
  grid.At(51, 51) = 0.0f;
  grid.At(1, 1) = -3.0f;
  ContourLattice lattice;
  ContourEngine(grid, lattice);
  EXPECT_EQ(grid.At(51, 51), kContourZero);
  EXPECT_EQ(grid.At(1, 1), -3.0f);
  EXPECT_EQ(grid.At(2, 2), kContourZero);
}

TEST_F(Contour, YAxisIsDrawnJustLeftOfZero) {
  const auto lines = ContourCartesian(s, "(x)-(0)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 1u);
  for (float x : lines[0].x) {
    EXPECT_LT(x, 0.0f);
    EXPECT_GT(x, -1e-6f);
  }
}

TEST_F(Contour, SaddleAtTheOriginIsResolvedByRotation) {
  // The origin in the middle of a cell: its four sides are all crossed.
  const auto lines = ContourCartesian(s, "(x*y)-(0)", -10.1f, 9.9f, -10.1f, 9.9f);
  ASSERT_EQ(lines.size(), 2u);
  for (const ContourLine& line : lines) {
    EXPECT_FALSE(line.closed);
    for (std::size_t k = 0; k < line.x.size(); ++k) {
      EXPECT_TRUE(std::abs(line.x[k]) < 0.11 || std::abs(line.y[k]) < 0.11) << k;
    }
  }
  // Up from the bottom and turned right at the saddle; down from the top and turned left.
  EXPECT_NEAR(lines[0].y.front(), -10.1f, 1e-4);
  EXPECT_NEAR(lines[0].x.back(), 9.9f, 1e-4);
  EXPECT_NEAR(lines[1].y.front(), 9.9f, 1e-4);
  EXPECT_NEAR(lines[1].x.back(), -10.1f, 1e-4);
}

TEST_F(Contour, AxesProductOnTheDefaultWindowIsTwoOpenCorners) {
  const auto lines = ContourCartesian(s, "(x*y)-(0)", -10, 10, -10, 10);
  ASSERT_EQ(lines.size(), 2u);
  for (const ContourLine& line : lines) {
    EXPECT_FALSE(line.closed);
    EXPECT_TRUE(OnBottomOrTop(line, 0, -10, 10) || OnLeftOrRight(line, 0, -10, 10));
    const std::size_t last = line.x.size() - 1;
    EXPECT_TRUE(OnBottomOrTop(line, last, -10, 10) || OnLeftOrRight(line, last, -10, 10));
  }
}

TEST_F(Contour, RegionInsideTheLatticeIsOneClosedContourOfItsRim) {
  // Negative samples in a rectangle, positive around it: the rim is found from an inner row and
  // followed round to where it began.
  ContourGrid grid;
  for (int i = 1; i <= kContourSamples; ++i) {
    for (int j = 1; j <= kContourSamples; ++j) {
      const bool inside = i > 10 && i < 90 && j > 10 && j < 90;
      grid.At(i, j) = inside ? static_cast<float>(j - 50) - 0.5f : 1.0f;
    }
  }
  ContourLattice lattice;
  const auto lines = ContourEngine(grid, lattice);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_TRUE(lines[0].closed);
  // The rim crosses 2 x 40 vertical and 2 x 79 horizontal edges; the start comes twice.
  EXPECT_EQ(lines[0].x.size(), 2u * 40 + 2u * 79 + 1);
}

TEST_F(Contour, DrawnAsOnePolylineInThePicture) {
  const GraphPicture picture = Draw({{"x^2+y^2", "4"}});
  const auto polylines = Polylines(picture);
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(polylines[0].points.front(), polylines[0].points.back());
  EXPECT_EQ(polylines[0].colour, 255);
  EXPECT_EQ(picture.curves[0].segments_drawn,
            static_cast<int>(picture.curves[0].contours[0].x.size()) - 1);
}

TEST_F(Contour, StudentsValuesOfTheLettersAreKept) {
  SetVarValue(s, 'y', NodeValue{std::string("7")});
  Draw({{"x^2+y^2", "4"}});
  ASSERT_EQ(s.VarCount, 1);
  EXPECT_EQ(std::get<std::string>(s.VarValues[0]), "7");
}

TEST(PolarWindowRange, OriginInsideTakesTheWholeTurn) {
  const PolarRange r = PolarWindowRange(-10, 10, -10, 10);
  EXPECT_EQ(r.r_low, 0.0);
  EXPECT_NEAR(r.r_high, std::hypot(10.0, 10.0), 1e-9);
  EXPECT_EQ(r.t_low, 0.0);
  EXPECT_NEAR(r.t_high, 2 * 3.14159265358979, 1e-12);
  EXPECT_FALSE(r.Wraps());
}

TEST(PolarWindowRange, WindowAcrossThePositiveXAxisWrapsThroughZero) {
  const PolarRange r = PolarWindowRange(1, 10, -5, 5);
  EXPECT_EQ(r.r_low, 1.0);
  EXPECT_TRUE(r.Wraps());
  EXPECT_NEAR(r.t_low, 2 * 3.14159265358979 - std::atan(5.0), 1e-9);
  EXPECT_NEAR(r.t_high, std::atan(5.0), 1e-9);
}

TEST(PolarWindowRange, ZeroOnTheFarSideOfAWindowBelowTheAxisCountsAsAWholeTurn) {
  const PolarRange r = PolarWindowRange(1, 10, -5, 0);
  EXPECT_FALSE(r.Wraps());
  EXPECT_NEAR(r.t_high, 2 * 3.14159265358979, 1e-12);
  EXPECT_NEAR(r.t_low, 2 * 3.14159265358979 - std::atan(5.0), 1e-9);
}

TEST(PolarWindowRange, WindowInTheSecondQuadrant) {
  const PolarRange r = PolarWindowRange(-8, -2, 3, 6);
  EXPECT_NEAR(r.r_low, std::hypot(2.0, 3.0), 1e-6);
  EXPECT_NEAR(r.r_high, std::hypot(8.0, 6.0), 1e-6);
  EXPECT_NEAR(r.t_low, std::atan2(6.0, -2.0), 1e-6);
  EXPECT_NEAR(r.t_high, std::atan2(3.0, -8.0), 1e-6);
}

TEST_F(Contour, PolarCircleLiesAtItsRadius) {
  const GraphPicture picture = Draw({{"r^2", "4"}});
  ASSERT_EQ(picture.curves[0].kind, "4");
  const auto& lines = picture.curves[0].contours;
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_GT(lines[0].x.size(), 100u);
  for (std::size_t k = 0; k < lines[0].x.size(); ++k) {
    EXPECT_NEAR(std::hypot(lines[0].x[k], lines[0].y[k]), 2.0, 0.01);
  }
  EXPECT_EQ(Polylines(picture).size(), 1u);
}

TEST_F(Contour, PolarRayAcrossAWindowThatWrapsIsClipped) {
  // t = 0.2 on a window across the positive x axis: the second pass holds it.
  const GraphPicture picture =
      Draw({{"t", "0.2"}},
           "500;500;1;10;9;9;-5;5;10;10;2;0;2;0;0;1;255;16711680;65280;8421504;8388736;"
           "16711935;8421376;8388608;32768;0");
  const auto& lines = picture.curves[0].contours;
  ASSERT_EQ(lines.size(), 1u);
  for (std::size_t k = 0; k < lines[0].x.size(); ++k) {
    EXPECT_NEAR(std::atan2(lines[0].y[k], lines[0].x[k]), 0.2, 0.01);
  }
  for (const GraphItem& item : Polylines(picture)) {
    for (const PixelPoint& p : item.points) {
      EXPECT_GE(p.x, picture.margins.left - 0.01);
      EXPECT_LE(p.x, picture.margins.right + 0.01);
      EXPECT_GE(p.y, picture.margins.top - 0.01);
      EXPECT_LE(p.y, picture.margins.bottom + 0.01);
    }
  }
}

// Generated conics and lines inside the default window: every vertex lies on its curve within a
// fraction of the lattice's step (distance estimated by |F| / |grad F|), and each closed curve
// comes out as one closed polyline.
struct Implicit {
  std::string text;                         // F, as the tutor reads it
  std::function<double(double, double)> f;  // F
  std::function<std::pair<double, double>(double, double)> grad;
  std::size_t contours;  // how many contours the window shows
  bool closed;
};

TEST_F(Contour, GeneratedCurvesHaveEveryVertexOnTheCurveAndClosedCurvesClosed) {
  std::mt19937 random(20261122);
  const auto pick = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random) / 10.0;
  };
  const auto num = [](double v) {
    std::string t = std::to_string(v);
    t.erase(t.find_last_not_of('0') + 1);
    if (t.back() == '.') t.pop_back();
    return "(" + t + ")";
  };
  std::vector<Implicit> cases;
  for (int n = 0; n < 8; ++n) {
    const double a = pick(-40, 40), b = pick(-40, 40), r = pick(10, 50);
    cases.push_back(
        {"(x-" + num(a) + ")^2+(y-" + num(b) + ")^2-" + num(r * r),
         [=](double x, double y) { return (x - a) * (x - a) + (y - b) * (y - b) - r * r; },
         [=](double x, double y) {
           return std::pair{2 * (x - a), 2 * (y - b)};
         },
         1, true});
    const double p = pick(10, 80), q = pick(10, 80);
    cases.push_back({"x^2/" + num(p * p) + "+y^2/" + num(q * q) + "-1",
                     [=](double x, double y) { return x * x / (p * p) + y * y / (q * q) - 1; },
                     [=](double x, double y) {
                       return std::pair{2 * x / (p * p), 2 * y / (q * q)};
                     },
                     1, true});
    cases.push_back({"x^2/" + num(p * p) + "-y^2/" + num(q * q) + "-1",
                     [=](double x, double y) { return x * x / (p * p) - y * y / (q * q) - 1; },
                     [=](double x, double y) {
                       return std::pair{2 * x / (p * p), -2 * y / (q * q)};
                     },
                     2, false});
    const double c = pick(1, 30), d = pick(1, 30), e = pick(-20, 20);
    cases.push_back({num(c) + "*x+" + num(d) + "*y-" + num(e),
                     [=](double x, double y) { return c * x + d * y - e; },
                     [=](double, double) {
                       return std::pair{c, d};
                     },
                     1, false});
  }
  const double step = 0.2;
  for (const Implicit& curve : cases) {
    SCOPED_TRACE(curve.text);
    const auto lines = ContourCartesian(s, curve.text, -10, 10, -10, 10);
    ASSERT_EQ(lines.size(), curve.contours);
    for (const ContourLine& line : lines) {
      EXPECT_EQ(line.closed, curve.closed);
      if (line.closed) {
        EXPECT_EQ(line.x.front(), line.x.back());
        EXPECT_EQ(line.y.front(), line.y.back());
      }
      for (std::size_t k = 0; k < line.x.size(); ++k) {
        const auto [gx, gy] = curve.grad(line.x[k], line.y[k]);
        const double distance = std::abs(curve.f(line.x[k], line.y[k])) / std::hypot(gx, gy);
        ASSERT_LT(distance, step / 4) << "vertex " << k << " at " << line.x[k] << ", " << line.y[k];
      }
    }
  }
}

}  // namespace
}  // namespace tavimor
