// The parabola sketch of the graphing method: the dots on the axis at the roots, the vertex inside
// the picture, the opening direction, and the same sketch in characters.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "solve/parabola_sketch.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

std::vector<const DisplayItem*> ItemsOf(const Drawing& d, ItemKind kind) {
  std::vector<const DisplayItem*> items;
  for (const DisplayItem& item : d.items) {
    if (item.kind == kind) items.push_back(&item);
  }
  return items;
}

// The corner of the polyline furthest along the opening: lowest on the page for a > 0 (largest
// y, the page's y running down), highest for a < 0.
std::pair<float, float> Turn(const DisplayItem& curve, bool up) {
  std::pair<float, float> best{curve.points[0], curve.points[1]};
  for (std::size_t i = 0; i + 1 < curve.points.size(); i += 2) {
    const float y = curve.points[i + 1];
    if (up ? y > best.second : y < best.second) best = {curve.points[i], y};
  }
  return best;
}

bool Inside(const Drawing& d, float x, float y) {
  return x >= 0 && x <= d.width && y >= 0 && y <= d.height;
}

TEST(ParabolaSketch, DotsStandOnTheAxisAtTheRoots) {
  const ParabolaSketch sketch = SketchParabola(1, -1, -6, {3, -2});
  const auto dots = ItemsOf(sketch.drawing, ItemKind::Dot);
  ASSERT_EQ(dots.size(), 2u);
  EXPECT_NEAR(dots[0]->x, sketch.ToX(3), 1e-3);
  EXPECT_NEAR(dots[1]->x, sketch.ToX(-2), 1e-3);
  for (const DisplayItem* dot : dots) {
    EXPECT_NEAR(dot->y, sketch.ToY(0), 1e-3);
    EXPECT_EQ(dot->colour, kSketchDotColour);
    EXPECT_TRUE(Inside(sketch.drawing, dot->x, dot->y));
  }
}

TEST(ParabolaSketch, CurvePassesThroughTheDots) {
  const ParabolaSketch sketch = SketchParabola(2, 0, -8, {2, -2});
  const auto curve = ItemsOf(sketch.drawing, ItemKind::Polyline);
  ASSERT_EQ(curve.size(), 1u);
  for (const DisplayItem* dot : ItemsOf(sketch.drawing, ItemKind::Dot)) {
    float nearest = 1e9f;
    for (std::size_t i = 0; i + 1 < curve[0]->points.size(); i += 2) {
      nearest = std::min(
          nearest, std::hypot(curve[0]->points[i] - dot->x, curve[0]->points[i + 1] - dot->y));
    }
    EXPECT_LT(nearest, 3.0f);
  }
}

TEST(ParabolaSketch, VertexIsInsideThePictureAndOpensUp) {
  const ParabolaSketch sketch = SketchParabola(1, -4, 3, {1, 3});
  const DisplayItem& curve = *ItemsOf(sketch.drawing, ItemKind::Polyline)[0];
  const auto [x, y] = Turn(curve, true);
  EXPECT_TRUE(Inside(sketch.drawing, x, y));
  EXPECT_NEAR(x, sketch.ToX(2), 2.0);  // the vertex at x = -b/(2a) = 2
  EXPECT_NEAR(y, sketch.ToY(-1), 1.0);
  // Both ends stand above the vertex on the page.
  EXPECT_LT(curve.points[1], y);
  EXPECT_LT(curve.points.back(), y);
}

TEST(ParabolaSketch, NegativeLeadingCoefficientOpensDown) {
  const ParabolaSketch sketch = SketchParabola(-1, 0, 4, {2, -2});
  const DisplayItem& curve = *ItemsOf(sketch.drawing, ItemKind::Polyline)[0];
  const auto [x, y] = Turn(curve, false);
  EXPECT_TRUE(Inside(sketch.drawing, x, y));
  EXPECT_NEAR(x, sketch.ToX(0), 2.0);
  EXPECT_GT(curve.points[1], y);
  EXPECT_GT(curve.points.back(), y);
}

TEST(ParabolaSketch, NoRealRootsMeansNoDotsButTheAxisAndTheVertexShow) {
  const ParabolaSketch sketch = SketchParabola(1, 0, 1, {});
  EXPECT_TRUE(ItemsOf(sketch.drawing, ItemKind::Dot).empty());
  EXPECT_TRUE(Inside(sketch.drawing, sketch.ToX(0), sketch.ToY(0)));
  EXPECT_TRUE(Inside(sketch.drawing, sketch.ToX(0), sketch.ToY(1)));
}

TEST(ParabolaSketch, DoubleRootTouchesTheAxis) {
  const ParabolaSketch sketch = SketchParabola(1, -6, 9, {3});
  const DisplayItem& curve = *ItemsOf(sketch.drawing, ItemKind::Polyline)[0];
  const auto [x, y] = Turn(curve, true);
  EXPECT_NEAR(x, sketch.ToX(3), 2.0);
  EXPECT_NEAR(y, sketch.ToY(0), 1.0);
}

TEST(ParabolaSketch, RootsFarFromTheOriginStayInThePicture) {
  const ParabolaSketch sketch = SketchParabola(1, -2001, 1000 * 1001, {1000, 1001});
  for (const DisplayItem* dot : ItemsOf(sketch.drawing, ItemKind::Dot))
    EXPECT_TRUE(Inside(sketch.drawing, dot->x, dot->y));
}

TEST(ParabolaSketch, CharactersMarkTheRootsOnTheAxis) {
  const ParabolaSketch sketch = SketchParabola(1, -1, -6, {3, -2});
  ASSERT_EQ(sketch.rows.size(), static_cast<std::size_t>(kSketchRows));
  const std::string& axis = sketch.rows[static_cast<std::size_t>(sketch.Row(0))];
  EXPECT_EQ(axis[static_cast<std::size_t>(sketch.Column(3))], 'o');
  EXPECT_EQ(axis[static_cast<std::size_t>(sketch.Column(-2))], 'o');
  EXPECT_EQ(std::count(axis.begin(), axis.end(), 'o'), 2);
  // The vertex row (lowest value) holds the curve near x = 1/2.
  const std::string& bottom = sketch.rows[static_cast<std::size_t>(sketch.Row(-6.25))];
  ASSERT_NE(bottom.find('*'), std::string::npos);
  const int middle = static_cast<int>(bottom.find('*') + bottom.rfind('*')) / 2;
  EXPECT_LE(std::abs(middle - sketch.Column(0.5)), 1);
}

class ParabolaSketchInWorkSpace : public SessionTest {};

TEST_F(ParabolaSketchInWorkSpace, WritesOnePictureOfTheFunction) {
  DrawParabolaSketch(s, "1", "-1", "-6", {3, -2});
  const auto pictures =
      std::count_if(frontend.work_space.begin(), frontend.work_space.end(),
                    [](const RichRun& run) { return run.kind == RunKind::Picture; });
  ASSERT_EQ(pictures, 1);
  for (const RichRun& run : frontend.work_space) {
    if (run.kind != RunKind::Picture) continue;
    EXPECT_EQ(run.picture.Mathematics(), "y=x^2-x-6");
    EXPECT_EQ(run.picture.sketch.size(), static_cast<std::size_t>(kSketchRows));
    EXPECT_EQ(ItemsOf(run.picture.drawing, ItemKind::Dot).size(), 2u);
  }
}

TEST_F(ParabolaSketchInWorkSpace, CoefficientThatIsNoNumberDrawsNothing) {
  DrawParabolaSketch(s, "k", "1", "1", {});
  DrawParabolaSketch(s, "0", "1", "1", {-1});
  EXPECT_TRUE(frontend.work_space.empty());
}

}  // namespace
}  // namespace tavimor
