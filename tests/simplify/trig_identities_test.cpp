// The trigonometric identities: one rewrite of the last pass a row, in the mode of each command
// and under the angle options, then whole runs of Simplify, Break apart trig and Combine trig.
#include <gtest/gtest.h>

#include <string>

#include "core/scoped_override.h"
#include "simplify/trig_identities.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

enum Options : unsigned { kRadians = 0, kDegrees = 1, kSpecialP = 2, kFloat = 4, kSpecialD = 8 };

struct TrigRow {
  const char* name;  // what the row shows
  std::int16_t mode;
  unsigned options;
  const char* input;
  const char* result;   // the text after one rewrite of the last pass
  const char* message;  // the step message, help number first
};

// clang-format off
const TrigRow kRows[] = {
    {"SineOfANegativeAngleIsOdd", 0, kRadians, "sin(-x)", "-sin(x)",
     "367#Simplify this expression by using the trigonometric identity @sin(-x)=-sin(x)@ ."},
    {"CosineOfANegativeAngleIsEven", 0, kRadians, "cos(-2*x)", "cos(2*x)",
     "368#Simplify this expression by using the trigonometric identity @cos(-x)=cos(x)@ ."},
    {"TangentOfANegativeAngleIsOdd", 0, kRadians, "tan(-x)", "-tan(x)",
     "369#Simplify this expression by using the trigonometric identity @tan(-x)=-tan(x)@ ."},
    {"ArcsineOfANegativeIsOdd", 0, kRadians, "arcsin(-x)", "-arcsin(x)",
     "374#Simplify this expression by using the symmetry property @arcsin(-x)=-arcsin(x)@ ."},
    {"ArctangentOfANegativeIsOdd", 0, kRadians, "arctan(-x)", "-arctan(x)",
     "376#Simplify this expression by using the symmetry property @arctan(-x)=-arctan(x)@ ."},
    {"ArccosineOfANegativeAddsHalfATurnInDegrees", 0, kDegrees, "arccos(-x)", "-arccos(x)+180",
     "375#Simplify this expression by using the symmetry property @arccos(-x)=-arccos(x)+180@ ."},
    {"ArccosineOfANegativeAddsPWhenPIsPi", 0, kSpecialP, "arccos(-x)", "-arccos(x)+p",
     "375#Simplify this expression by using the symmetry property @arccos(-x)=-arccos(x)+p@ ."},
    {"ArccosineOfANegativeAddsTheNumberPiInDecimals", 0, kFloat, "arccos(-x)",
     "-arccos(x)+3.14159265358979",
     "375#Simplify this expression by using the symmetry property @arccos(-x)=-arccos(x)+3.14159265358979@ ."},
    {"SineOfAnAngleAndARightAngleInDegreesIsTheCosine", 0, kDegrees, "sin(x+90)", "cos(x)",
     "370#Simplify this expression by using the symmetry of the sin function."},
    {"SineOfAHalfTurnLessAnAngleIsItsSine", 0, kDegrees, "sin(180-x)", "sin(x)",
     "370#Simplify this expression by using the symmetry of the sin function."},
    {"CosineShiftedByAHalfTurnOfPTurnsItsSign", 0, kSpecialP, "cos(x+p)", "-cos(x)",
     "371#Simplify this expression by using the symmetry of the cos function."},
    {"CosineOfARightAngleLessAnAngleIsTheSine", 0, kSpecialP, "cos(p/2-x)", "sin(x)",
     "371#Simplify this expression by using the symmetry of the cos function."},
    {"TangentShiftedByARightAngleIsMinusTheCotangent", 0, kDegrees, "tan(x+90)", "-1/tan(x)",
     "372#Simplify this expression by using the symmetry of the tan function."},
    {"SineShiftedByThreeQuartersOfATurnInDUnits", 0, kSpecialD, "sin(x+270*d)", "-cos(x)",
     "370#Simplify this expression by using the symmetry of the sin function."},
    {"SineShiftedByAPlainNumberNearPiInRadians", 0, kRadians, "sin(x+3.14159265358979)", "-sin(x)",
     "370#Simplify this expression by using the symmetry of the sin function."},
    {"CotangentIsOneOverTheTangent", 0, kRadians, "cot(x)", "1/tan(x)",
     "21#Simplify this expression by eliminating the cot function in favor of the tan function."},
    {"SecantIsOneOverTheCosine", 0, kRadians, "sec(x)", "1/cos(x)",
     "21#Simplify this expression by eliminating the sec function in favor of the cos function."},
    {"CosecantIsOneOverTheSine", 0, kRadians, "csc(x)", "1/sin(x)",
     "21#Simplify this expression by eliminating the csc function in favor of the sin function."},
    {"PythagorasInAnyMode", 0, kRadians, "sin(x)^2+cos(x)^2", "1",
     "365#Simplify this expression using Pythagoras' theorem: @sin(x)^2+cos(x)^2=1@ ."},
    {"PythagorasKeepsACommonCoefficient", 0, kRadians, "3*sin(2*x)^2+3*cos(2*x)^2+y", "3+y",
     "365#Simplify this expression using Pythagoras' theorem: @sin(2*x)^2+cos(2*x)^2=1@ ."},
    {"PythagorasInsideABracket", 0, kRadians, "a*(sin(x)^2+cos(x)^2)", "a*1",
     "365#Simplify this expression using Pythagoras' theorem: @sin(x)^2+cos(x)^2=1@ ."},
    {"OneLessASineSquaredIsACosineSquared", 0, kRadians, "1-sin(x)^2", "cos(x)^2",
     "365#Simplify this expression using Pythagoras' theorem: @1-sin(x)^2=cos(x)^2@ ."},
    {"OneLessACosineSquaredIsASineSquared", 0, kRadians, "1-cos(x)^2", "sin(x)^2",
     "365#Simplify this expression using Pythagoras' theorem: @1-cos(x)^2=sin(x)^2@ ."},
    {"PythagorasWithDifferentCoefficientsAddsTheSineTerms", 0, kRadians, "3*sin(x)^2+2*cos(x)^2",
     "sin(x)^2+2",
     "365#Simplify this expression by first using Pythagoras' theorem: @cos(x)^2=1-sin(x)^2@ .||          @3*sin(x)^2+2*(1-sin(x)^2)@ .\\|Then add the @sin(x)^2@ terms."},
    {"PythagorasWithLetterCoefficientsGroupsTheSineTerms", 0, kRadians, "a*sin(x)^2+b*cos(x)^2",
     "(a-b)*sin(x)^2+b",
     "365#Simplify this expression by first using Pythagoras' theorem: @cos(x)^2=1-sin(x)^2@ .||          @a*sin(x)^2+b*(1-sin(x)^2)@ .\\|Then group the @sin(x)^2@ terms."},
    {"TangentStaysInSimplify", 0, kRadians, "tan(x)", "tan(x)", ""},
    {"SumInsideASineStaysInSimplify", 0, kRadians, "sin(x+y)", "sin(x+y)", ""},
    // Break apart trig.
    {"SineOfASumBreaksApart", 1, kRadians, "sin(x+y)", "sin(x)*cos(y)+cos(x)*sin(y)",
     "402#Break apart the angles by using the trig identity for the sine of a sum."},
    {"SineOfADifferenceTurnsTheInnerSign", 1, kRadians, "sin(x-y)", "sin(x)*cos(y)-cos(x)*sin(y)",
     "402#Break apart the angles by using the trig identity for the sine of a sum."},
    {"CosineOfASumBreaksApart", 1, kRadians, "cos(x+y)", "cos(x)*cos(y)-sin(x)*sin(y)",
     "402#Break apart the angles by using the trig identity for the cosine of a sum."},
    {"CosineOfADifferenceTurnsTheInnerSign", 1, kRadians, "cos(x-y)", "cos(x)*cos(y)+sin(x)*sin(y)",
     "402#Break apart the angles by using the trig identity for the cosine of a sum."},
    {"TangentOfASumBreaksApart", 1, kRadians, "tan(x+y)", "(tan(x)+tan(y))/(1-tan(x)*tan(y))",
     "402#Break apart the angles by using the trig identity for the tangent of a sum."},
    {"SineOfADoubleAngleSplits", 1, kRadians, "sin(2*x)", "2*cos(x)*sin(x)",
     "403#Split the double-angle @sin(2*x)@ using the trig identity for the sine of a double-angle."},
    {"CosineOfADoubleAngleTakesTheCosineForm", 1, kRadians, "cos(2*x)", "2*cos(x)^2-1",
     "403#Split the double-angle @cos(2*x)@ using the trig identity for the cosine of a double-angle."},
    {"TangentOfADoubleAngleSplits", 1, kRadians, "tan(2*x)", "2*tan(x)/(-tan(x)^2+1)",
     "403#Split the double-angle @tan(2*x)@ using the trig identity for the tangent of a double-angle."},
    {"CosineSquaredOfAHalfAngleExpands", 1, kRadians, "cos(x/2)^2", "cos(x)/2+1/2",
     "404#Expand this expression by using the trig identity for the cosine of a half-angle."},
    {"SineSquaredOfAHalfAngleExpandsWithAMinus", 1, kRadians, "sin(x/2)^2", "-cos(x)/2+1/2",
     "404#Expand this expression by using the trig identity for the sine of a half-angle."},
    {"HalfAngleWrittenAsADecimalExpandsInDecimals", 1, kRadians, "cos(0.5*x)^2", "0.5*cos(x)+0.5",
     "404#Expand this expression by using the trig identity for the cosine of a half-angle."},
    {"TangentBreaksIntoSineOverCosine", 1, kRadians, "tan(x)", "sin(x)/cos(x)",
     "364#Break apart the tangent function into sin and cos by using the trigonometric identity @tan(x)=sin(x)/cos(x)@ ."},
    {"CombiningRulesDoNotFireWhenBreakingApart", 1, kRadians, "sin(x)/cos(x)", "sin(x)/cos(x)", ""},
    // Combine trig.
    {"SineOverCosineIsTheTangent", 2, kRadians, "sin(x)/cos(x)", "tan(x)",
     "364#Combine sin and cos functions using the trigonometric identity @sin(x)/cos(x)=tan(x)@ ."},
    {"CosineOverSineIsOneOverTheTangent", 2, kRadians, "a*cos(x)/sin(x)", "a/tan(x)",
     "364#Combine sin and cos functions using the trigonometric identity @cos(x)/sin(x)=1/tan(x)@ ."},
    {"TangentTakesTheSmallerExponent", 2, kRadians, "sin(x)^3/cos(x)^2", "tan(x)^2*sin(x)",
     "364#Combine sin and cos functions using the trigonometric identity @sin(x)^2/cos(x)^2=tan(x)^2@ ."},
    {"SineOfASumCombines", 2, kRadians, "sin(x)*cos(y)+cos(x)*sin(y)", "sin(x+y)",
     "402#Combine the angles using the trig identity @sin(x)*cos(y)+cos(x)*sin(y)=sin(x+y)@ ."},
    {"SineOfADifferenceCombines", 2, kRadians, "sin(x)*cos(y)-cos(x)*sin(y)", "sin(x-y)",
     "402#Combine the angles using the trig identity @sin(x)*cos(y)-cos(x)*sin(y)=sin(x-y)@ ."},
    {"CosineOfASumCombines", 2, kRadians, "cos(x)*cos(y)-sin(x)*sin(y)", "cos(x+y)",
     "402#Combine the angles using the trig identity @cos(x)*cos(y)-sin(x)*sin(y)=cos(x+y)@ ."},
    {"CosineOfADifferenceCombines", 2, kRadians, "cos(x)*cos(y)+sin(x)*sin(y)", "cos(x-y)",
     "402#Combine the angles using the trig identity @cos(x)*cos(y)+sin(x)*sin(y)=cos(x-y)@ ."},
    {"SineAndCosineOfOneAngleMakeASineWithAPhase", 2, kRadians, "3*sin(x)+4*cos(x)",
     "5*sin(x+arctan(4/3))", "263#Combine the sin and the cos into a sin with a phase angle."},
    {"PhaseOfANegativeSineCoefficientLeadsWithAMinus", 2, kRadians, "-sin(x)+cos(x)",
     "-sqrt(2)*sin(x-arctan(1))", "263#Combine the sin and the cos into a sin with a phase angle."},
    {"TwiceACosineSquaredLessOneIsTheCosineOfTheDoubleAngle", 2, kRadians, "2*cos(x)^2-1",
     "cos(2*x)",
     "366#Combine terms using the double-angle trig identity @2*cos(x)^2-1=cos(2*x)@ ."},
    {"OneLessTwiceASineSquaredIsTheCosineOfTheDoubleAngle", 2, kRadians, "1-2*sin(x)^2",
     "cos(2*x)",
     "366#Combine terms using the double-angle trig identity @-2*sin(x)^2+1=cos(2*x)@ ."},
    {"TwiceSineTimesCosineIsTheSineOfTheDoubleAngle", 2, kRadians, "2*sin(x)*cos(x)", "sin(2*x)",
     "403#Combine the sin and cos functions by using the double-angle trig identity @2*sin(x)*cos(x)=sin(2*x)@ ."},
    {"SineTimesCosineIsHalfTheSineOfTheDoubleAngle", 2, kRadians, "sin(x)*cos(x)", "sin(2*x)/2",
     "403#Combine the sin and cos functions by using the double-angle trig identity @2*sin(x)*cos(x)=sin(2*x)@ ."},
    {"SineAndCosineSquaredTogetherUseTheSquareOfTwo", 2, kRadians, "sin(x)^2*cos(x)^2",
     "sin(2*x)^2/2^2",
     "403#Combine the sin and cos functions by using the double-angle trig identity @2*sin(x)*cos(x)=sin(2*x)@ ."},
    {"SineAndCosineBelowTheLineGoUpsideDown", 2, kRadians, "a/(sin(x)*cos(x))", "a/(sin(x)*cos(x))",
     ""},
    {"BreakingRulesDoNotFireWhenCombining", 2, kRadians, "sin(x+y)", "sin(x+y)", ""},
};
// clang-format on

class TrigRule : public SimplifyTest, public ::testing::WithParamInterface<TrigRow> {};

TEST_P(TrigRule, RewritesOnceWithItsMessage) {
  const TrigRow& row = GetParam();
  s.TrigMode = row.mode;
  s.Degrees = (row.options & kDegrees) != 0;
  s.SpecialP = (row.options & kSpecialP) != 0;
  s.ExactToFloat = (row.options & kFloat) != 0;
  s.SpecialD = (row.options & kSpecialD) != 0;
  s.Message.clear();
  EXPECT_EQ(OnePass(row.input, 10), row.result);
  EXPECT_EQ(fired, std::string(row.message) != "");
  if (fired) {
    EXPECT_EQ(s.Message, row.message);
  }
}

INSTANTIATE_TEST_SUITE_P(Identities, TrigRule, ::testing::ValuesIn(kRows),
                         [](const ::testing::TestParamInfo<TrigRow>& row) {
                           return std::string(row.param.name);
                         });

class TrigSimplify : public SimplifyTest {
 protected:
  std::string RunIn(std::int16_t mode, const std::string& text) {
    ScopedOverride trig(s.TrigMode, mode);
    return Run(text);
  }
};

TEST_F(TrigSimplify, PythagorasSimplifiesToOneWithoutATrigButton) {
  EXPECT_EQ(RunIn(kTrigSimplify, "sin(x)^2+cos(x)^2"), "1");
}

TEST_F(TrigSimplify, PythagorasStaysWhileItsRulesAreSwitchedOff) {
  ScopedOverride off(s.PythagorasRules, false);
  EXPECT_EQ(RunIn(kTrigSimplify, "sin(x)^2+cos(x)^2"), "cos(x)^2+sin(x)^2");
  EXPECT_EQ(RunIn(kTrigSimplify, "a*(1-sin(x)^2)"), "a*(-sin(x)^2+1)");
}

TEST_F(TrigSimplify, SineOfANegativeAngleSimplifiesWithoutATrigButton) {
  EXPECT_EQ(RunIn(kTrigSimplify, "sin(-x)"), "-sin(x)");
}

TEST_F(TrigSimplify, TangentStaysAsItIsInSimplify) {
  EXPECT_EQ(RunIn(kTrigSimplify, "tan(x)"), "tan(x)");
  EXPECT_FALSE(result);
}

TEST_F(TrigSimplify, ArccosineOfANegativeStaysInRadiansWithPAsALetter) {
  s.SpecialP = false;
  s.ExactToFloat = false;
  EXPECT_EQ(RunIn(kTrigSimplify, "arccos(-x)"), "arccos(-x)");
}

TEST_F(TrigSimplify, SineOfAnAngleAndNinetyDegreesIsTheCosine) {
  s.Degrees = true;
  EXPECT_EQ(RunIn(kTrigSimplify, "sin(x+90)"), "cos(x)");
}

TEST_F(TrigSimplify, DoubleAngleOfTheSineSplitsWhenBreakingApart) {
  EXPECT_EQ(RunIn(kTrigBreakApart, "sin(2*x)"), "2*cos(x)*sin(x)");
}

TEST_F(TrigSimplify, DoubleAngleOfTheCosineTakesTheCosineFormWhenBreakingApart) {
  EXPECT_EQ(RunIn(kTrigBreakApart, "cos(2*x)"), "2*cos(x)^2-1");
}

TEST_F(TrigSimplify, ThreeSinePlusFourCosineCombineWithAmplitudeFive) {
  EXPECT_EQ(RunIn(kTrigCombine, "3*sin(x)+4*cos(x)"), "5*sin(arctan(4/3)+x)");
}

TEST_F(TrigSimplify, PhaseWithLetterCoefficientsIsNotWritten) {
  // a*sin(x)+b*cos(x) is a sine with a phase only for a known sign of a.
  EXPECT_EQ(RunIn(kTrigCombine, "a*sin(x)+b*cos(x)"), "b*cos(x)+a*sin(x)");
}

TEST_F(TrigSimplify, BreakingApartAndCombiningComeBackToTheSineOfASum) {
  const std::string apart = RunIn(kTrigBreakApart, "sin(x+y)");
  EXPECT_EQ(RunIn(kTrigCombine, apart), "sin(x+y)");
}

TEST_F(TrigSimplify, CosineSquaredLessSineSquaredCombinesToTheDoubleAngle) {
  EXPECT_EQ(RunIn(kTrigCombine, "cos(x)^2-sin(x)^2"), "cos(2*x)");
}

TEST_F(TrigSimplify, TangentBrokenApartAndCombinedComesBack) {
  const std::string apart = RunIn(kTrigBreakApart, "tan(x)*cos(x)");
  EXPECT_EQ(apart, "sin(x)");
}

}  // namespace
}  // namespace tavimor
