// Which graph kind each equation is, the refusals, and the colours of the curves.
#include <gtest/gtest.h>

#include "graph_fixture.h"

namespace tavimor {
namespace {

using GraphKind = GraphTest;

TEST_F(GraphKind, EquationsOfXAndYAreExplicitOrContour) {
  EXPECT_EQ(KindOf("x", "3"), "2");
  EXPECT_EQ(KindOf("y", "3"), "1");
  EXPECT_EQ(KindOf("y", "x^2"), "1");
  EXPECT_EQ(KindOf("x^2+y^2", "4"), "2");
}

TEST_F(GraphKind, EquationsOfRAndTAreExplicitPolarOrContourPolar) {
  EXPECT_EQ(KindOf("r", "t"), "3");
  EXPECT_EQ(KindOf("r", "2"), "3");
  EXPECT_EQ(KindOf("t", "1"), "4");
  EXPECT_EQ(KindOf("r^2", "t"), "4");
}

TEST_F(GraphKind, YOnTheRightSideMakesAContour) { EXPECT_EQ(KindOf("y", "x+y/2"), "2"); }

TEST_F(GraphKind, ParametricPairIsOneCurveWithOneColour) {
  ASSERT_EQ(Classify({{"x", "cos(t)"}, {"y", "sin(t)"}}), "");
  EXPECT_EQ(s.EquationList[0][3], "5a");
  EXPECT_EQ(s.EquationList[1][3], "5b");
  EXPECT_EQ(s.EquationList[0][2], "255");
  EXPECT_EQ(s.EquationList[1][2], "255");
  EXPECT_EQ(s.HelpNumber, 395);
}

TEST_F(GraphKind, ParametricPairInTheWrongOrderIsRefused) {
  EXPECT_EQ(Classify({{"y", "sin(t)"}, {"x", "cos(t)"}}), "Can't graph y=sin(t).");
}

TEST_F(GraphKind, LetterEIsTheConstantOnlyWhileSpecialEIsOn) {
  s.SpecialE = true;
  EXPECT_EQ(KindOf("y", "e^x"), "1");
  s.SpecialE = false;
  EXPECT_EQ(KindOf("y", "e^x"), "Can't graph y=e^x.");
}

TEST_F(GraphKind, LetterDIsTheDegreeSignOnlyInRadians) {
  s.SpecialD = true;
  s.Degrees = false;
  EXPECT_EQ(KindOf("y", "x*d"), "1");
  s.Degrees = true;
  EXPECT_EQ(KindOf("y", "x*d"), "Can't graph y=x*d.");
}

TEST_F(GraphKind, EquationWithoutLettersIsRefused) {
  EXPECT_EQ(KindOf("2", "2"), "Can't graph 2=2.");
}

TEST_F(GraphKind, ExpressionIsRefusedAsNoEquation) {
  EXPECT_EQ(Classify({{"2+2", ""}}), "Can't graph because 2+2 is not an equation.");
}

TEST_F(GraphKind, ColoursFollowTheSettingsAndTheTenthOnIsBlack) {
  std::vector<std::pair<std::string, std::string>> rows;
  for (int k = 1; k <= 11; ++k) rows.push_back({"y", "x+" + std::to_string(k)});
  ASSERT_EQ(Classify(rows), "");
  const char* expected[] = {"255",     "16711680", "65280", "8421504", "8388736", "16711935",
                            "8421376", "8388608",  "32768", "0",       "0"};
  for (std::size_t k = 0; k < rows.size(); ++k) EXPECT_EQ(s.EquationList[k][2], expected[k]);
}

TEST_F(GraphKind, CurveAfterAParametricPairTakesTheNextColour) {
  ASSERT_EQ(Classify({{"x", "cos(t)"}, {"y", "sin(t)"}, {"y", "x"}}), "");
  EXPECT_EQ(s.EquationList[2][2], "16711680");
}

TEST_F(GraphKind, SingleEquationHasHelpTopic394) {
  ASSERT_EQ(Classify({{"y", "x"}}), "");
  EXPECT_EQ(s.HelpNumber, 394);
}

}  // namespace
}  // namespace tavimor
