// The SVG pictures of a few graphs against their golden files (TAVIMOR_UPDATE_GOLDEN=1 writes
// them afresh; review the pictures before committing).
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "graph/svg_writer.h"
#include "graph_fixture.h"

namespace tavimor {
namespace {

class SvgPicture : public GraphTest {
 protected:
  void Check(const std::string& name,
             const std::vector<std::pair<std::string, std::string>>& equations,
             const std::string& parms = kFactoryGraphParms) {
    const std::string svg = DisplayListSvg(Draw(equations, parms).display);
    const std::string path = std::string(TAVIMOR_GOLDEN_DIR) + "/graph/" + name + ".svg";
    if (std::getenv("TAVIMOR_UPDATE_GOLDEN") != nullptr) {
      std::ofstream(path, std::ios::binary) << svg;
      return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << "no golden picture " << path;
    std::stringstream expected;
    expected << file.rdbuf();
    EXPECT_EQ(svg, expected.str()) << name;
  }
};

TEST_F(SvgPicture, ParabolaOnCrossHairAxes) { Check("parabola", {{"y", "x^2/4-5"}}); }

TEST_F(SvgPicture, ReciprocalAndLineInTwoColours) {
  Check("reciprocal_and_line", {{"y", "1/x"}, {"y", "x/2"}});
}

TEST_F(SvgPicture, CircleInAFrameWithAGrid) {
  Check("polar_circle_framed", {{"r", "5"}},
        "400;300;-8;8;8;16;-6;6;6;12;1;1;1;0;0;1;255;16711680;65280;8421504;8388736;16711935;"
        "8421376;8388608;32768;0");
}

TEST(SvgWriter, EscapesTextAndWritesColoursAsRgb) {
  DisplayList display;
  display.Text({1, 2}, "a<b&c", 0x0000FF);
  display.Line({0, 0}, {3, 4}, 0xFF0000, 2);
  const std::string svg = DisplayListSvg(display);
  EXPECT_NE(svg.find(">a&lt;b&amp;c</text>"), std::string::npos);
  EXPECT_NE(svg.find("fill=\"#ff0000\""), std::string::npos);
  EXPECT_NE(svg.find("stroke=\"#0000ff\" stroke-width=\"2\""), std::string::npos);
}

}  // namespace
}  // namespace tavimor
