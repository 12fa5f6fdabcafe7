// The settings string, the validation of the settings panel's boxes, the margins and mapping.
#include <gtest/gtest.h>

#include "graph/graph_mapping.h"
#include "graph/graph_parms.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using GraphSettings = SessionTest;

TEST_F(GraphSettings, FactoryStringReadsAsTheDefaultWindow) {
  const GraphParms p = ReadGraphParms(s, kFactoryGraphParms);
  EXPECT_EQ(p.width, 500);
  EXPECT_EQ(p.height, 500);
  EXPECT_EQ(p.xmin, -10.0f);
  EXPECT_EQ(p.ymax, 10.0f);
  EXPECT_EQ(p.axes, 2);
  EXPECT_FALSE(p.GridOn());
  EXPECT_EQ(p.thickness, 2);
  EXPECT_EQ(p.tmax, 1.0f);
  EXPECT_EQ(p.colours[0], 255);
  EXPECT_EQ(p.colours[9], 0);
}

TEST_F(GraphSettings, StringRoundTripsWithItsTwentySixFields) {
  EXPECT_EQ(GraphParmsText(s, ReadGraphParms(s, kFactoryGraphParms)), kFactoryGraphParms);
  const std::string other = "640;480;-2.5;7.5;5;20;-1;1;4;8;-1;1;3;0.5;-3;3;1;2;3;4;5;6;7;8;9;10";
  EXPECT_EQ(GraphParmsText(s, ReadGraphParms(s, other)), other);
}

GraphBoxes Boxes(const Session& s) {
  return GraphBoxesOf(s, ReadGraphParms(s, kFactoryGraphParms));
}

TEST_F(GraphSettings, FactoryBoxesAreValid) {
  EXPECT_FALSE(ValidateGraphSettings(s, Boxes(s)).Failed());
}

TEST_F(GraphSettings, BoxThatIsNoNumberIsTheCulprit) {
  GraphBoxes boxes = Boxes(s);
  boxes[4] = "abc";
  const GraphValidation v = ValidateGraphSettings(s, boxes);
  EXPECT_EQ(v.culprit, 5);
  EXPECT_EQ(v.message, "This textbox must contain a number.");
}

TEST_F(GraphSettings, MaximumEqualToMinimumFails) {
  GraphBoxes boxes = Boxes(s);
  boxes[1] = "-10";
  GraphValidation v = ValidateGraphSettings(s, boxes);
  EXPECT_EQ(v.culprit, 2);
  EXPECT_EQ(v.message, "The maximum x coordinate must be larger than the minimum x coordinate.");
  boxes = Boxes(s);
  boxes[5] = "-11";
  v = ValidateGraphSettings(s, boxes);
  EXPECT_EQ(v.culprit, 6);
  EXPECT_EQ(v.message, "The maximum y coordinate must be larger than the minimum y coordinate.");
  boxes = Boxes(s);
  boxes[9] = "0";
  v = ValidateGraphSettings(s, boxes);
  EXPECT_EQ(v.culprit, 10);
  EXPECT_EQ(v.message, "The maximum t value must be larger than the minimum t value.");
}

TEST_F(GraphSettings, FiftyAxisDivisionsPassAndFiftyOneFail) {
  for (const std::size_t box : {std::size_t{2}, std::size_t{6}}) {
    GraphBoxes boxes = Boxes(s);
    boxes[box] = "50";
    EXPECT_FALSE(ValidateGraphSettings(s, boxes).Failed());
    boxes[box] = "51";
    const GraphValidation v = ValidateGraphSettings(s, boxes);
    EXPECT_EQ(v.culprit, static_cast<int>(box) + 1);
    EXPECT_EQ(v.message, "The number of divisions is too big.");
  }
}

TEST_F(GraphSettings, TwoHundredGridDivisionsPassAndTwoHundredOneFail) {
  for (const std::size_t box : {std::size_t{3}, std::size_t{7}}) {
    GraphBoxes boxes = Boxes(s);
    boxes[box] = "200";
    EXPECT_FALSE(ValidateGraphSettings(s, boxes).Failed());
    boxes[box] = "201";
    const GraphValidation v = ValidateGraphSettings(s, boxes);
    EXPECT_EQ(v.culprit, static_cast<int>(box) + 1);
    EXPECT_EQ(v.message, "The number of divisions is too big.");
  }
}

TEST_F(GraphSettings, ZeroDivisionsFail) {
  GraphBoxes boxes = Boxes(s);
  boxes[3] = "0";
  const GraphValidation v = ValidateGraphSettings(s, boxes);
  EXPECT_EQ(v.culprit, 4);
  EXPECT_EQ(v.message, "The number of divisions must be greater than 0.");
}

TEST_F(GraphSettings, OnlyTheFirstFailureCounts) {
  GraphBoxes boxes = Boxes(s);
  boxes[2] = "51";  // x divisions
  boxes[9] = "-1";  // t max below t min
  EXPECT_EQ(ValidateGraphSettings(s, boxes).culprit, 10);
}

TEST_F(GraphSettings, BoxesWrittenBackChangeOnlyTheirFields) {
  GraphParms p = ReadGraphParms(s, kFactoryGraphParms);
  GraphBoxes boxes = Boxes(s);
  boxes[0] = "0";
  boxes[9] = "6.5";
  ApplyGraphBoxes(s, boxes, p);
  EXPECT_EQ(p.xmin, 0.0f);
  EXPECT_EQ(p.tmax, 6.5f);
  EXPECT_EQ(p.width, 500);
}

TEST_F(GraphSettings, MarginsLeaveThePlottingRectangle) {
  const PlotMargins m = ComputePlotMargins(500, 500);
  EXPECT_EQ(m.left, 33);
  EXPECT_EQ(m.right, 462);
  EXPECT_EQ(m.top, 27);
  EXPECT_EQ(m.bottom, 460);
}

TEST_F(GraphSettings, MappingAndItsInverseAgree) {
  const GraphMapping map = SetGraphMapping(33, 462, 460, 27, -10, 10, -5, 5);
  EXPECT_DOUBLE_EQ(map.WorldToPixelX(-10), 33);
  EXPECT_DOUBLE_EQ(map.WorldToPixelX(10), 462);
  EXPECT_DOUBLE_EQ(map.WorldToPixelY(-5), 460);
  EXPECT_DOUBLE_EQ(map.WorldToPixelY(5), 27);
  EXPECT_NEAR(map.PixelToWorldX(map.WorldToPixelX(3.25)), 3.25, 1e-9);
  EXPECT_NEAR(map.PixelToWorldY(map.WorldToPixelY(-1.5)), -1.5, 1e-9);
}

}  // namespace
}  // namespace tavimor
