// The frame of a graph: grid points, the two axes styles, numbered ticks and their decimals.
#include <gtest/gtest.h>

#include <algorithm>

#include "graph/graph_frame.h"
#include "graph_fixture.h"

namespace tavimor {
namespace {

using GraphFrame = GraphTest;

// The settings string with fields replaced (1-based field number -> text).
std::string Parms(std::initializer_list<std::pair<int, std::string>> changes) {
  std::vector<std::string> fields;
  std::string text = kFactoryGraphParms;
  for (std::size_t at = 0;;) {
    const std::size_t end = text.find(';', at);
    fields.push_back(text.substr(at, end == std::string::npos ? end : end - at));
    if (end == std::string::npos) break;
    at = end + 1;
  }
  for (const auto& [field, value] : changes) fields[static_cast<std::size_t>(field - 1)] = value;
  std::string out;
  for (std::size_t k = 0; k < fields.size(); ++k) out += (k ? ";" : "") + fields[k];
  return out;
}

std::size_t Count(const GraphPicture& picture, GraphItem::Type type) {
  return static_cast<std::size_t>(
      std::count_if(picture.display.items.begin(), picture.display.items.end(),
                    [type](const GraphItem& item) { return item.type == type; }));
}

std::vector<std::string> Texts(const GraphPicture& picture) {
  std::vector<std::string> out;
  for (const GraphItem& item : picture.display.items) {
    if (item.type == GraphItem::Type::Text) out.push_back(item.text);
  }
  return out;
}

// The vertical lines of the frame (axes and rulers) at their pixel x.
std::vector<double> VerticalLines(const GraphPicture& picture, double min_length) {
  std::vector<double> out;
  for (const GraphItem& item : picture.display.items) {
    if (item.type == GraphItem::Type::Line && item.points[0].x == item.points[1].x &&
        std::abs(item.points[0].y - item.points[1].y) >= min_length) {
      out.push_back(item.points[0].x);
    }
  }
  return out;
}

TEST_F(GraphFrame, GridOfTwoHundredDivisionsSetsTwoHundredOneSquaredPoints) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{6, "200"}, {10, "200"}, {12, "1"}}));
  EXPECT_EQ(Count(picture, GraphItem::Type::Point), 201u * 201u);
}

TEST_F(GraphFrame, GridOffSetsNoPoints) {
  EXPECT_EQ(Count(Draw({{"y", "x"}}), GraphItem::Type::Point), 0u);
}

TEST_F(GraphFrame, CrossHairAxesCrossAtTheOriginAndLeaveZeroUnlabelled) {
  const GraphPicture picture = Draw({{"y", "x"}});
  const std::vector<double> verticals = VerticalLines(picture, 100);
  ASSERT_EQ(verticals.size(), 1u);
  EXPECT_DOUBLE_EQ(verticals[0], picture.mapping.WorldToPixelX(0));
  const std::vector<std::string> texts = Texts(picture);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "0"), 0);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "-10"), 2);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "x"), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "y"), 1);
}

TEST_F(GraphFrame, RangeFromZeroPutsTheYAxisOnTheLeftEdge) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{3, "0"}}));
  const std::vector<double> verticals = VerticalLines(picture, 100);
  ASSERT_EQ(verticals.size(), 1u);
  EXPECT_DOUBLE_EQ(verticals[0], picture.margins.left);
}

TEST_F(GraphFrame, RangeFromOnePutsTheYAxisLeftOfTheRectangle) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{3, "1"}}));
  const std::vector<double> verticals = VerticalLines(picture, 100);
  ASSERT_EQ(verticals.size(), 1u);
  EXPECT_LT(verticals[0], picture.margins.left);
}

TEST_F(GraphFrame, FrameStyleHasFourRulersAndDarkYellowAxes) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{11, "1"}}));
  const std::vector<double> verticals = VerticalLines(picture, 100);
  // Left and right rulers and the axis x = 0.
  ASSERT_EQ(verticals.size(), 3u);
  int yellow = 0;
  for (const GraphItem& item : picture.display.items) {
    if (item.type == GraphItem::Type::Line && item.colour == kGraphDarkYellow) ++yellow;
  }
  EXPECT_EQ(yellow, 2);
  const std::vector<std::string> texts = Texts(picture);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "0"), 4);  // zero is labelled on each ruler
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "y  "), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "x"), 1);
}

TEST_F(GraphFrame, FrameStyleWithoutTheOriginHasNoAxes) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{11, "1"}, {3, "1"}, {7, "2"}}));
  for (const GraphItem& item : picture.display.items) EXPECT_NE(item.colour, kGraphDarkYellow);
}

TEST_F(GraphFrame, AxesOffDrawsNoFrame) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{11, "-2"}}));
  EXPECT_EQ(Count(picture, GraphItem::Type::Line), 0u);
  EXPECT_EQ(Count(picture, GraphItem::Type::Text), 0u);
}

TEST_F(GraphFrame, TicksStandOnEveryDivision) {
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{5, "4"}, {9, "5"}}));
  // Two axis lines, 5 ticks on x and 6 on y.
  EXPECT_EQ(Count(picture, GraphItem::Type::Line), 2u + 5u + 6u);
}

TEST_F(GraphFrame, LabelsTakeTheDecimalsOfTheMinimumAndTheSpacing) {
  EXPECT_EQ(GraphDecimals(-10, 2, '.'), 0);
  EXPECT_EQ(GraphDecimals(-1, 0.25, '.'), 2);
  EXPECT_EQ(GraphDecimals(0.5, 1, '.'), 1);
  const GraphPicture picture = Draw({{"y", "x"}}, Parms({{3, "-1"}, {4, "1"}, {5, "8"}}));
  const std::vector<std::string> texts = Texts(picture);
  EXPECT_NE(std::find(texts.begin(), texts.end(), "-0.75"), texts.end());
  EXPECT_NE(std::find(texts.begin(), texts.end(), "1.00"), texts.end());
}

TEST_F(GraphFrame, LabelsUseTheDecimalComma) {
  EXPECT_EQ(AxisLabelText(-0.5, 2, ','), "-0,50");
  EXPECT_EQ(AxisLabelText(3, 0, ','), "3");
}

}  // namespace
}  // namespace tavimor
