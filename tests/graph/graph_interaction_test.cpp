// Zoom, pan, the pointer's coordinates, the slider of t, Play and the dot, without a screen.
#include <gtest/gtest.h>

#include "graph/graph_interaction.h"
#include "graph_fixture.h"

namespace tavimor {
namespace {

using Interaction = GraphTest;

GraphMapping DefaultMapping() { return SetGraphMapping(33, 462, 460, 27, -10, 10, -10, 10); }
const PlotMargins kDefaultMargins{};

TEST(CustomFormat0, KeepsTheFiguresAskedFor) {
  EXPECT_EQ(CustomFormat0(3.14159265, 6, '.'), "3.14159");
  EXPECT_EQ(CustomFormat0(-2.5, 6, '.'), "-2.5");
  EXPECT_EQ(CustomFormat0(123456789, 3, '.'), "123000000");
  EXPECT_EQ(CustomFormat0(0.000123456, 3, ','), "0,000123");
  EXPECT_EQ(CustomFormat0(1E-8, 6, '.'), "0");
}

TEST(NiceLimits, MovesTheEndsOutToARoundStep) {
  // Raw step 0.37: the step is 0.4.
  RoundRange r = NiceLimits(1.13, 4.83, 10);
  EXPECT_NEAR(r.low, 0.8, 1e-12);
  EXPECT_NEAR(r.high, 5.2, 1e-12);
  // Already round: unchanged.
  r = NiceLimits(-10, 10, 10);
  EXPECT_DOUBLE_EQ(r.low, -10);
  EXPECT_DOUBLE_EQ(r.high, 10);
  // Raw step 0.9: the step is 1 (the mantissa 10 of the power 0.1).
  r = NiceLimits(0.05, 9.05, 10);
  EXPECT_DOUBLE_EQ(r.low, 0);
  EXPECT_DOUBLE_EQ(r.high, 10);
}

TEST(Zoom, InAndOutAboutTheCentre) {
  const WindowLimits in = ZoomIn({-10, 10, 0, 4});
  EXPECT_DOUBLE_EQ(in.xmin, -5);
  EXPECT_DOUBLE_EQ(in.xmax, 5);
  EXPECT_DOUBLE_EQ(in.ymin, 1);
  EXPECT_DOUBLE_EQ(in.ymax, 3);
  const WindowLimits out = ZoomOut({-10, 10, 0, 4});
  EXPECT_DOUBLE_EQ(out.xmin, -20);
  EXPECT_DOUBLE_EQ(out.xmax, 20);
  EXPECT_DOUBLE_EQ(out.ymin, -2);
  EXPECT_DOUBLE_EQ(out.ymax, 6);
}

TEST(Zoom, ADragOfFourPixelsDoesNotZoom) {
  const GraphMapping map = DefaultMapping();
  EXPECT_FALSE(ZoomToRectangle(map, {100, 100}, {104, 200}, 10, 10));
  EXPECT_FALSE(ZoomToRectangle(map, {100, 100}, {200, 96}, 10, 10));
  EXPECT_TRUE(ZoomToRectangle(map, {100, 100}, {105, 95}, 10, 10));
}

TEST(Zoom, RectangleCornersAreSortedAndRounded) {
  const GraphMapping map = DefaultMapping();
  // Dragged from the lower right to the upper left.
  const PixelPoint lower_right{map.WorldToPixelX(4.9), map.WorldToPixelY(-2.1)};
  const PixelPoint upper_left{map.WorldToPixelX(1.2), map.WorldToPixelY(3.3)};
  const auto w = ZoomToRectangle(map, lower_right, upper_left, 10, 10);
  ASSERT_TRUE(w);
  EXPECT_NEAR(w->xmin, 1.2, 1e-6);  // raw step 0.37: 0.4
  EXPECT_NEAR(w->xmax, 5.2, 1e-6);
  EXPECT_NEAR(w->ymin, -2.4, 1e-6);  // raw step 0.54: 0.8
  EXPECT_NEAR(w->ymax, 4.0, 1e-6);
}

TEST(Pan, MovesByWholeTicks) {
  const GraphMapping map = DefaultMapping();
  // The ticks are 2 apart. Dragged 2.7 units right and 0.4 down: the window moves one tick left
  // and stays in y.
  const PixelPoint start{map.WorldToPixelX(0), map.WorldToPixelY(0)};
  const PixelPoint now{map.WorldToPixelX(2.7), map.WorldToPixelY(-0.4)};
  const WindowLimits w = Pan(map, start, now, 10, 10);
  EXPECT_NEAR(w.xmin, -12, 1e-9);
  EXPECT_NEAR(w.xmax, 8, 1e-9);
  EXPECT_NEAR(w.ymin, -10, 1e-9);
  EXPECT_NEAR(w.ymax, 10, 1e-9);
}

TEST_F(Interaction, NewLimitsAreWrittenWithSixFigures) {
  GraphBoxes boxes = GraphBoxesOf(s, ReadGraphParms(s, kFactoryGraphParms));
  WriteLimits(s, {1.0 / 3, 2.5, -1234567, 0}, boxes);
  EXPECT_EQ(boxes[0], "0.333333");
  EXPECT_EQ(boxes[1], "2.5");
  EXPECT_EQ(boxes[4], "-1234570");
  EXPECT_EQ(boxes[5], "0");
  EXPECT_EQ(boxes[2], "10");  // the divisions stay
}

TEST(PointerStatus, ShowsTheWorldPointWithTwoDecimals) {
  const GraphMapping map = DefaultMapping();
  const PixelPoint p{map.WorldToPixelX(1), map.WorldToPixelY(2)};
  EXPECT_EQ(PointerStatusText(map, kDefaultMargins, p, '.'), "   (1.00, 2.00) ");
}

TEST(PointerStatus, CommaSeparatorTakesASemicolonBetween) {
  const GraphMapping map = DefaultMapping();
  const PixelPoint p{map.WorldToPixelX(1), map.WorldToPixelY(2)};
  EXPECT_EQ(PointerStatusText(map, kDefaultMargins, p, ','), "   (1,00; 2,00) ");
}

TEST(PointerStatus, EmptyInTheMargin) {
  const GraphMapping map = DefaultMapping();
  EXPECT_EQ(PointerStatusText(map, kDefaultMargins, {20, 200}, '.'), "");
  EXPECT_EQ(PointerStatusText(map, kDefaultMargins, {200, 470}, '.'), "");
  EXPECT_EQ(PointerStatusText(map, kDefaultMargins, {33, 27}, '.'), "   (-10.00, 10.00) ");
}

TEST(Slider, AtThreeHundredStandsAtTheMaximumExactly) {
  EXPECT_EQ(SliderToT(0.2, 0.9, kSliderMaximum), 0.9);
  EXPECT_EQ(SliderToT(0.2, 0.9, 0), 0.2);
  EXPECT_DOUBLE_EQ(SliderToT(0, 1, 150), 0.5);
  EXPECT_EQ(DotLabelText(2.0 / 3, '.'), "t = 0.667");
  EXPECT_EQ(DotLabelText(SliderToT(0.2, 0.9, kSliderMaximum), ','), "t = 0,9");
}

TEST(Play, AdvancesOnePositionAndStopsAtTheEnd) {
  EXPECT_EQ(PlayTick(0).position, 1);
  EXPECT_FALSE(PlayTick(0).stop);
  EXPECT_EQ(PlayTick(299).position, 300);
  EXPECT_TRUE(PlayTick(299).stop);
  EXPECT_EQ(PlayTick(300).position, 300);
  EXPECT_TRUE(PlayTick(300).stop);
}

TEST_F(Interaction, DotIsDisabledWithoutAParametricCurve) {
  ASSERT_EQ(Classify({{"y", "x^2"}, {"x^2+y^2", "4"}}), "");
  EXPECT_FALSE(DotSetup(s.EquationList).Enabled());
  EXPECT_FALSE(DotSetup(s.EquationList).dot_row);
}

TEST_F(Interaction, DotFollowsTheFirstParametricCurve) {
  ASSERT_EQ(Classify({{"y", "x"}, {"x", "cos(t)"}, {"y", "sin(t)"}, {"x", "t"}, {"y", "t^2"}}), "");
  const DotChoice dot = DotSetup(s.EquationList);
  EXPECT_EQ(dot.parametric_curves, 2);
  ASSERT_TRUE(dot.dot_row);
  EXPECT_EQ(*dot.dot_row, 1u);
}

TEST_F(Interaction, DotRunsAlongTheSamplesAndHidesOutsideOrUndefined) {
  const GraphPicture picture = Draw({{"x", "20*t-10"}, {"y", "sqrt(t-0.5)"}});
  const CurveSamples& samples = *picture.curves[0].samples;
  // t = 0: undefined (a root of a negative number).
  EXPECT_FALSE(DotPosition(samples, 0, picture.mapping, picture.margins));
  const auto end = DotPosition(samples, kSliderMaximum, picture.mapping, picture.margins);
  ASSERT_TRUE(end);
  EXPECT_NEAR(end->x, picture.mapping.WorldToPixelX(10), 1e-3);
  EXPECT_NEAR(end->y, picture.mapping.WorldToPixelY(std::sqrt(0.5)), 1e-3);
  const GraphPicture far = Draw({{"x", "40*t"}, {"y", "t"}});
  EXPECT_TRUE(DotPosition(*far.curves[0].samples, 60, far.mapping, far.margins));
  EXPECT_FALSE(DotPosition(*far.curves[0].samples, 90, far.mapping, far.margins));  // x = 12
}

}  // namespace
}  // namespace tavimor
