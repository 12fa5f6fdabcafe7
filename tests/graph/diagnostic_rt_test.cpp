// The diagnostic graph of r against t: the polar curves only, t from 0 to 2 pi, r on round
// limits about its values, rulers named t and r.
#include "graph/diagnostic_rt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "graph_fixture.h"

namespace tavimor {
namespace {

class RadiusAgainstAngle : public GraphTest {
 protected:
  GraphPicture View(const std::vector<std::pair<std::string, std::string>>& equations) {
    EXPECT_EQ(Classify(equations), "");
    return DiagnosticRT(s, ReadGraphParms(s, kFactoryGraphParms));
  }
  static std::vector<std::string> Texts(const GraphPicture& picture) {
    std::vector<std::string> out;
    for (const GraphItem& item : picture.display.items) {
      if (item.type == GraphItem::Type::Text) out.push_back(item.text);
    }
    return out;
  }
};

TEST_F(RadiusAgainstAngle, OnlyAPolarCurveOffersTheView) {
  Classify({{"y", "x^2"}});
  EXPECT_FALSE(HasPolarCurve(s));
  Classify({{"r", "2*cos(t)"}});
  EXPECT_TRUE(HasPolarCurve(s));
}

TEST_F(RadiusAgainstAngle, SpiralRisesAlongTheAngleFromZeroToTwoPi) {
  const GraphPicture picture = View({{"r", "t"}});
  ASSERT_EQ(picture.curves.size(), 1u);
  const CurveSamples& samples = *picture.curves[0].samples;
  EXPECT_FLOAT_EQ(samples.x[0], 0.0f);
  EXPECT_NEAR(samples.x[300], 2 * std::acos(-1.0), 1e-5);
  EXPECT_FLOAT_EQ(picture.mapping.x_max, 7.0f);  // whole ticks from 0 to past 2 pi
  for (std::size_t k = 0; k <= 300; ++k) EXPECT_FLOAT_EQ(samples.x[k], samples.y[k]) << k;
  EXPECT_FLOAT_EQ(picture.mapping.x_min, 0.0f);
  EXPECT_LE(picture.mapping.y_min, 0.0f);
  EXPECT_GE(picture.mapping.y_max, 6.2831f);
  EXPECT_EQ(Polylines(picture).size(), 1u);
}

TEST_F(RadiusAgainstAngle, RulersAreNamedTAndR) {
  const std::vector<std::string> texts = Texts(View({{"r", "1+cos(t)"}}));
  EXPECT_NE(std::find(texts.begin(), texts.end(), "t"), texts.end());
  EXPECT_NE(std::find(texts.begin(), texts.end(), "r  "), texts.end());
  EXPECT_EQ(std::find(texts.begin(), texts.end(), "x"), texts.end());
}

TEST_F(RadiusAgainstAngle, ACircleOfOneRadiusStandsInsideItsRange) {
  const GraphPicture picture = View({{"r", "2"}});
  EXPECT_LT(picture.mapping.y_min, 2.0f);
  EXPECT_GT(picture.mapping.y_max, 2.0f);
  EXPECT_EQ(picture.curves[0].segments_drawn, 300);
}

TEST_F(RadiusAgainstAngle, OtherCurvesAreLeftOut) {
  const GraphPicture picture = View({{"y", "x"}, {"r", "t"}});
  ASSERT_EQ(picture.curves.size(), 1u);
  EXPECT_EQ(picture.curves[0].row, 1u);
}

}  // namespace
}  // namespace tavimor
