// The curves: 300 segments, undefined points, the clipping that drops a step across a pole.
#include <gtest/gtest.h>

#include <cmath>

#include "core/evaluate.h"
#include "core/temp_tree.h"
#include "graph/curve_plot.h"
#include "graph_fixture.h"

namespace tavimor {
namespace {

using Curve = GraphTest;

// Whether any drawn segment of the polylines crosses the vertical line x = c (in world units).
bool CrossesVertical(const GraphPicture& picture, double c) {
  const double px = picture.mapping.WorldToPixelX(c);
  for (const GraphItem& item : GraphTest::Polylines(picture)) {
    for (std::size_t k = 1; k < item.points.size(); ++k) {
      if ((item.points[k - 1].x - px) * (item.points[k].x - px) < 0) return true;
    }
  }
  return false;
}

TEST(ClipSegment, InsideStaysAndABoundCountsAsInside) {
  float x1 = 0, y1 = -10, x2 = 1, y2 = 10;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::Inside);
  EXPECT_EQ(y1, -10.0f);
  EXPECT_EQ(y2, 10.0f);
}

TEST(ClipSegment, BothBeyondOneEdgeOrFromTheBoundOutwardIsOutside) {
  float x1 = 0, y1 = 11, x2 = 1, y2 = 12;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::Outside);
  x1 = 0, y1 = 10, x2 = 1, y2 = 12;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::Outside);
}

TEST(ClipSegment, OneEndOutsideMovesToTheBoundItCrossed) {
  float x1 = 0, y1 = 0, x2 = 2, y2 = 20;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::SecondMoved);
  EXPECT_FLOAT_EQ(x2, 1.0f);
  EXPECT_FLOAT_EQ(y2, 10.0f);
  x1 = 0, y1 = -20, x2 = 2, y2 = 0;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::FirstMoved);
  EXPECT_FLOAT_EQ(x1, 1.0f);
  EXPECT_FLOAT_EQ(y1, -10.0f);
}

TEST(ClipSegment, StepAcrossTheWholeStripMovesBothEnds) {
  float x1 = 0, y1 = -30, x2 = 6, y2 = 30;
  EXPECT_EQ(ClipSegment(x1, y1, x2, y2, -10, 10), ClipCode::BothMoved);
  EXPECT_FLOAT_EQ(x1, 2.0f);
  EXPECT_FLOAT_EQ(y1, -10.0f);
  EXPECT_FLOAT_EQ(x2, 4.0f);
  EXPECT_FLOAT_EQ(y2, 10.0f);
}

TEST_F(Curve, ExplicitCurveIsOnePolylineOfThreeHundredSegments) {
  const GraphPicture picture = Draw({{"y", "x/2"}});
  const auto lines = Polylines(picture);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].points.size(), 301u);
  EXPECT_EQ(lines[0].colour, 255);
  EXPECT_EQ(lines[0].width, 2);
}

TEST_F(Curve, ReciprocalHasTwoBranchesAndNoLineAcrossThePole) {
  const GraphPicture picture = Draw({{"y", "1/x"}});
  EXPECT_EQ(Polylines(picture).size(), 2u);
  EXPECT_FALSE(CrossesVertical(picture, 0.0));
}

TEST_F(Curve, TangentHasNoLineAcrossAnyPole) {
  const GraphPicture picture = Draw({{"y", "tan(x)"}});
  for (int k = -3; k <= 2; ++k) {
    const double pole = (k + 0.5) * 3.14159265358979;
    EXPECT_FALSE(CrossesVertical(picture, pole)) << "pole " << pole;
  }
  EXPECT_GE(Polylines(picture).size(), 7u);
}

TEST_F(Curve, SteepLineThatCrossesTheWindowInOneStepDrawsNothing) {
  // From -10 to 10.3 no sample falls inside the strip where |y| <= 10.
  const GraphPicture picture = Draw({{"y", "1000000*x"}},
                                    "500;500;-10;10.3;10;10;-10;10;10;10;2;0;2;0;0;1;255;16711680;"
                                    "65280;8421504;8388736;16711935;8421376;8388608;32768;0");
  EXPECT_TRUE(Polylines(picture).empty());
  EXPECT_EQ(picture.curves[0].segments_drawn, 0);
}

TEST_F(Curve, SteepLineIsDrawnOnlyThroughASampleInsideTheWindow) {
  // On the default window the sample x = 0 lies on the line inside: the two steps to it are
  // drawn, clipped, as the one vertical piece at x = 0.
  const GraphPicture picture = Draw({{"y", "1000000*x"}});
  EXPECT_EQ(picture.curves[0].segments_drawn, 2);
  for (const GraphItem& line : Polylines(picture)) {
    for (const PixelPoint& p : line.points) {
      EXPECT_NEAR(picture.mapping.PixelToWorldX(p.x), 0.0, 1e-3);
    }
  }
}

TEST_F(Curve, SquareRootDrawsNothingLeftOfZero) {
  const GraphPicture picture = Draw({{"y", "sqrt(x)"}});
  const auto lines = Polylines(picture);
  ASSERT_EQ(lines.size(), 1u);
  // Samples at x = 0 and after: 151 points; the first segment from an undefined point is
  // skipped too, so the curve starts at x = 0.
  EXPECT_EQ(lines[0].points.size(), 151u);
  EXPECT_NEAR(picture.mapping.PixelToWorldX(lines[0].points.front().x), 0.0, 1e-4);
  for (int i = 0; i < 150; ++i) EXPECT_TRUE(picture.curves[0].samples->Undefined(i)) << i;
}

TEST_F(Curve, CircleOfRadiusOneIsAClosedThreeHundredGon) {
  const GraphPicture picture = Draw({{"r", "1"}});
  const auto lines = Polylines(picture);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines[0].points.size(), 301u);
  EXPECT_NEAR(lines[0].points.front().x, lines[0].points.back().x, 1e-3);
  EXPECT_NEAR(lines[0].points.front().y, lines[0].points.back().y, 1e-3);
  for (int i = 0; i <= kCurveSegments; ++i) {
    const auto k = static_cast<std::size_t>(i);
    EXPECT_NEAR(std::hypot(picture.curves[0].samples->x[k], picture.curves[0].samples->y[k]), 1.0,
                1e-6);
  }
}

TEST_F(Curve, PolarAngleIsInRadiansEvenInDegrees) {
  s.Degrees = true;
  const GraphPicture picture = Draw({{"r", "2"}});
  ASSERT_EQ(Polylines(picture).size(), 1u);
  EXPECT_NEAR(picture.curves[0].samples->x[75], 0.0, 1e-5);  // t = pi / 2
  EXPECT_NEAR(picture.curves[0].samples->y[75], 2.0, 1e-5);
}

TEST_F(Curve, ParametricCurveRunsOverTheRangeOfT) {
  const std::string parms =
      "500;500;-10;10;10;10;-10;10;10;10;2;0;2;0;0;6.28318530717959;255;16711680;65280;8421504;"
      "8388736;16711935;8421376;8388608;32768;0";
  const GraphPicture picture = Draw({{"x", "3*cos(t)"}, {"y", "3*sin(t)"}}, parms);
  ASSERT_EQ(picture.curves.size(), 1u);
  const auto lines = Polylines(picture);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].points.size(), 301u);
  EXPECT_FLOAT_EQ(picture.curves[0].samples->x[0], 3.0f);
  EXPECT_NEAR(picture.curves[0].samples->x[300], 3.0f, 1e-5);
}

TEST_F(Curve, PolarCurveAroundTheWholeWindowDrawsNothing) {
  const GraphPicture picture = Draw({{"r", "15"}});
  EXPECT_TRUE(Polylines(picture).empty());
}

TEST_F(Curve, PolarCurveIsClippedToTheWindowSideways) {
  const GraphPicture picture = Draw({{"r", "12"}});
  const auto lines = Polylines(picture);
  EXPECT_EQ(lines.size(), 4u);  // the four corners of the window
  const PlotMargins& m = picture.margins;
  for (const GraphItem& line : lines) {
    for (const PixelPoint& p : line.points) {
      EXPECT_GE(p.x, m.left - 1e-3);
      EXPECT_LE(p.x, m.right + 1e-3);
      EXPECT_GE(p.y, m.top - 1e-3);
      EXPECT_LE(p.y, m.bottom + 1e-3);
    }
  }
}

TEST_F(Curve, CurveEverywhereUndefinedDrawsNothing) {
  const GraphPicture picture = Draw({{"y", "sqrt(-1-x^2)"}});
  EXPECT_TRUE(Polylines(picture).empty());
}

TEST_F(Curve, StudentsValueOfTheLetterIsKept) {
  SetVarValue(s, 'x', NodeValue{std::string("7")});
  Draw({{"y", "x^2"}});
  ASSERT_EQ(s.VarCount, 1);
  EXPECT_EQ(std::get<std::string>(s.VarValues[0]), "7");
}

TEST_F(Curve, ContourKindsAreDrawnBesideTheSampledCurves) {
  const GraphPicture picture = Draw({{"x^2+y^2", "4"}, {"y", "x"}});
  ASSERT_EQ(picture.curves.size(), 2u);
  EXPECT_FALSE(picture.curves[0].samples.has_value());
  EXPECT_EQ(picture.curves[0].contours.size(), 1u);
  EXPECT_EQ(Polylines(picture).size(), 2u);
}

TEST(ParameterAt, TheLastSampleIsTheMaximumExactly) {
  // 0.2 + (0.9 - 0.2) * 300 / 300 rounds to 0.8999999999999999.
  EXPECT_EQ(ParameterAt(0.2, 0.9, 300), 0.9);
  EXPECT_EQ(ParameterAt(-1.1, 3.7, 300), 3.7);
  EXPECT_DOUBLE_EQ(ParameterAt(0.2, 0.9, 150), 0.55);
  EXPECT_EQ(ParameterAt(-2, 3, 0), -2.0);
}

// Every drawn point of an explicit curve lies within a pixel of the curve; an end clipped to the
// window's edge lies on the chord between two samples, within one sample step of the curve.
TEST_F(Curve, DrawnPointsOfExplicitCurvesSatisfyTheirEquation) {
  for (const std::string f :
       {"x^2/4-3", "sin(x)*5", "1/x", "sqrt(x)*2", "x^3/20-x", "tan(x)", "ln(x)", "2^x"}) {
    const GraphPicture picture = Draw({{"y", f}});
    const GraphMapping& map = picture.mapping;
    const double step = (map.pixel_right - map.pixel_left) / 300.0;
    TempTree tree(s, f, TempTree::Depth::Whole);
    // The distance in pixels from the point to the curve, searched within `reach` pixels.
    const auto distance = [&](const PixelPoint& p, double reach) {
      double best = 1e9;
      for (double dx = -reach; dx <= reach; dx += 0.01) {
        SetVarValue(s, 'x', NodeValue{map.PixelToWorldX(p.x + dx)});
        try {
          EvaluateAll(s, tree.Root());
        } catch (const std::exception&) {
          continue;
        }
        const double py = map.WorldToPixelY(ValueAsNumber(s, s.Pool[tree.Root()].Value));
        best = std::min(best, std::hypot(dx, py - p.y));
      }
      return best;
    };
    for (const GraphItem& line : Polylines(picture)) {
      for (const PixelPoint& p : line.points) {
        const bool clipped = p.y == map.pixel_top || p.y == map.pixel_bottom;
        EXPECT_LE(distance(p, clipped ? step : 1.0), clipped ? step + 0.5 : 1.0)
            << f << " at x = " << map.PixelToWorldX(p.x);
      }
    }
  }
}

}  // namespace
}  // namespace tavimor
