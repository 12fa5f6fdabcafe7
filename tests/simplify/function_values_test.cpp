// Function values and inverse functions in the simplify loop: cancelling pairs, functions of
// functions, exact special values, evaluation, and the constants as numbers.
#include <gtest/gtest.h>

#include <string>

#include "core/errors.h"
#include "simplify/function_values.h"
#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

class FunctionValues : public SimplifyTest {
 protected:
  // The number of the application error a silent Simplify of the text raises, or 0.
  std::uint32_t ErrorOf(const std::string& text) {
    try {
      Run(text);
    } catch (const AppError& error) {
      return error.Number();
    }
    return 0;
  }
};

TEST_F(FunctionValues, SineOfArcsineCancels) {
  EXPECT_EQ(OnePass("sin(arcsin(x))", 2), "x");
  EXPECT_EQ(s.Message, "29#Simplify by canceling the sin and arcsin functions.");
}

TEST_F(FunctionValues, CosineOfArctangentOfASumBracketsTheArgument) {
  EXPECT_EQ(OnePass("cos(arctan(x+1))", 2), "1/sqrt((x+1)^2+1)");
  EXPECT_EQ(s.Message, "38#Simplify the cos of the arctan function.");
}

TEST_F(FunctionValues, TangentOfArcsineOfALetter) {
  EXPECT_EQ(OnePass("tan(arcsin(x))", 2), "x/sqrt(-x^2+1)");
  EXPECT_EQ(s.Message, "42#Simplify the tan of the arcsin function.");
}

TEST_F(FunctionValues, ArcsineOfSineOfALetterStays) {
  OnePass("arcsin(sin(x))", 2);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, ArcsineOfSineCancelsInThePrincipalRange) {
  s.Degrees = true;
  EXPECT_EQ(OnePass("arcsin(sin(30))", 2), "30");
  EXPECT_EQ(s.Message, "32#Simplify by canceling the arcsin and sin functions.");
  OnePass("arcsin(sin(150))", 2);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, DeeplyNestedInversePairsStayWithoutLongWork) {
  std::string text = "x";
  for (int k = 0; k < 14; ++k) text = "arcsin(sin(" + text + "))";
  EXPECT_EQ(Run(text), "arcsin(sin(x))");  // each sin(arcsin(u)) inside cancels
  s.Degrees = true;
  std::string number = "20";
  for (int k = 0; k < 14; ++k) number = "arcsin(sin(" + number + "))";
  EXPECT_EQ(Run(number), "20");
}

TEST_F(FunctionValues, ArcsineOfCosineIsTheComplementInDegrees) {
  s.Degrees = true;
  EXPECT_EQ(Run("arcsin(cos(20))"), "70");
}

TEST_F(FunctionValues, LnOfExpCancels) {
  EXPECT_EQ(OnePass("ln(exp(x))", 2), "x");
  EXPECT_EQ(s.Message, "35#Simplify by canceling the ln and exp functions.");
}

TEST_F(FunctionValues, LogOfExpKeepsTheLogOfE) {
  EXPECT_EQ(OnePass("log(exp(x))", 2), "x*log(e)");
  EXPECT_EQ(s.Message, "246#Simplify the log of the exp function.");
  s.SpecialE = false;
  EXPECT_EQ(OnePass("log(exp(x))", 2), "x*log(exp(1))");
  OnePass("log(exp(1))", 2);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, LogOfTenToAPowerCancels) {
  EXPECT_EQ(OnePass("log(10^x)", 2), "x");
  EXPECT_EQ(s.Message,
            "9#Simplify using the fact that the logarithm to base 10 and exponentiation with "
            "base 10 cancel: @log(10^x)=x@ .");
}

TEST_F(FunctionValues, TenToTheLogOfASumCancelsThroughTheExponent) {
  EXPECT_EQ(OnePass("10^log(x+1)", 2), "x+1");
  EXPECT_EQ(s.Message,
            "11#Simplify using the fact that the logarithm to base 10 and exponentiation with "
            "base 10 cancel: @10^log(x+1)=x+1@ .");
}

TEST_F(FunctionValues, EToTheLnCancelsOnlyWithTheConstantE) {
  EXPECT_EQ(OnePass("e^ln(x)", 2), "x");
  EXPECT_EQ(s.Message,
            "10#Simplify using the fact that the logarithm to base e and exponentiation with "
            "base e cancel: @e^ln(x)=x@ .");
  s.SpecialE = false;
  OnePass("e^ln(x)", 2);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, SquareOfASquareRootCancels) {
  EXPECT_EQ(OnePass("sqrt(x)^2", 2), "x");
  EXPECT_EQ(s.Message,
            "8#Simplify using the fact that the square and square root cancel: @sqrt(x)^2=x@ .");
}

TEST_F(FunctionValues, SquareRootOfASquareOfALetterStays) {
  EXPECT_EQ(Run("sqrt(x^2)"), "sqrt(x^2)");
  EXPECT_EQ(Run("sqrt(x^6)"), "sqrt(x^6)");
}

TEST_F(FunctionValues, SquareRootOfASquareThatCannotBeNegativeCancels) {
  EXPECT_EQ(OnePass("sqrt(sqrt(x)^2)", 2), "sqrt(x)");
  EXPECT_EQ(Run("sqrt((x^2)^2)"), "x^2");
}

TEST_F(FunctionValues, SquareRootOfAFourthPowerHalvesTheExponent) {
  EXPECT_EQ(OnePass("sqrt(x^4)", 2), "x^(4/2)");
  EXPECT_EQ(s.Message, "44#Simplify using the property of radicals that @sqrt(x^4)=x^(4/2)@ .");
  EXPECT_EQ(Run("sqrt(x^4)"), "x^2");
}

TEST_F(FunctionValues, TangentOfNinetyDegreesIsTheError) {
  s.Degrees = true;
  EXPECT_EQ(ErrorOf("tan(90)"), kErrorTangent);
  EXPECT_EQ(ErrorOf("tan(270)"), kErrorTangent);
}

TEST_F(FunctionValues, TangentOfHalfPiIsTheError) {
  s.SpecialP = true;
  EXPECT_EQ(ErrorOf("tan(p/2)"), kErrorTangent);
}

TEST_F(FunctionValues, SineOf390DegreesIsReducedToThePrincipalAngle) {
  s.Degrees = true;
  EXPECT_EQ(OnePass("sin(390)", 7), "1/2");
  EXPECT_EQ(s.Message,
            "398#Simplify @sin(390)@ by:|   - first reducing the angle to the principal angle: "
            "@sin(390)=sin(30)@ .|   - then using the special value of @sin(30)@ .|   - The "
            "result is:");
}

TEST_F(FunctionValues, SineOfThirtyDegreesIsOneHalf) {
  s.Degrees = true;
  EXPECT_EQ(OnePass("sin(30)", 7), "1/2");
  EXPECT_EQ(s.Message, "49#Simplify using the special value of @sin(30)@ .");
}

TEST_F(FunctionValues, AnglesBeyondTheFirstQuadrantTakeTheirSign) {
  s.Degrees = true;
  EXPECT_EQ(Run("sin(-30)"), "-1/2");
  EXPECT_EQ(Run("tan(135)"), "-1");
  EXPECT_EQ(Run("cos(240)"), "-1/2");
  EXPECT_EQ(Run("sin(210)"), "-1/2");
  EXPECT_EQ(Run("cos(-60)"), "1/2");
  EXPECT_EQ(Run("sin(180)"), "0");
}

TEST_F(FunctionValues, CosineOfTwoThirdsPi) {
  s.SpecialP = true;
  EXPECT_EQ(OnePass("cos(2*p/3)", 7), "-1/2");
  EXPECT_EQ(s.Message, "51#Simplify using the special value of @cos(2*p/3)@ .");
}

TEST_F(FunctionValues, SineOfSevenSixthsPiIsReducedInMultiplesOfPi) {
  s.SpecialP = true;
  EXPECT_EQ(OnePass("sin(7*p/6)", 7), "-1/2");
  EXPECT_EQ(s.Message,
            "398#Simplify @sin(7*p/6)@ by:|   - first reducing the angle to the principal angle: "
            "@sin(7*p/6)=sin(-p/6)@ .|   - then using the special value of @sin(-p/6)@ .|   - The "
            "result is:");
}

TEST_F(FunctionValues, DegreeUnitAngle) {
  s.SpecialD = true;
  EXPECT_EQ(OnePass("cos(60*d)", 7), "1/2");
  EXPECT_EQ(s.Message, "50#Simplify using the special value of @cos(60*d)@ .");
}

TEST_F(FunctionValues, RadianAngleWithoutPOrDStays) {
  OnePass("sin(30)", 7);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, ArcsineOfOneHalfInDegreesNeedsInverseValues) {
  s.Degrees = true;
  s.EvaluateInverseTrig = 1;
  EXPECT_EQ(OnePass("arcsin(1/2)", 7), "30");
  EXPECT_EQ(s.Message, "89#Simplify using the special value of @arcsin(1/2)@ .");
  s.EvaluateInverseTrig = 0;
  EXPECT_EQ(Run("arcsin(1/2)"), "arcsin(1/2)");
  EXPECT_FALSE(result);
}

TEST_F(FunctionValues, InverseValuesInMultiplesOfPi) {
  s.SpecialP = true;
  EXPECT_EQ(OnePass("arccos(-1/2)", 7), "2*p/3");
  EXPECT_EQ(s.Message, "22#Simplify using the special value of @arccos(-1/2)@ .");
  EXPECT_EQ(Run("arccos(-1/2)"), "2/3*p");
  EXPECT_EQ(Run("arctan(-1)"), "-1/4*p");
  EXPECT_EQ(Run("arccos(sqrt(3)/2)"), "1/6*p");
  EXPECT_EQ(Run("arcsin(-sqrt(2)/2)"), "-1/4*p");
}

TEST_F(FunctionValues, LogOfAThousandIsThree) {
  EXPECT_EQ(OnePass("log(1000)", 7), "3");
  EXPECT_EQ(s.Message, "302#Simplify using the special value of @log(1000)@ .");
  EXPECT_EQ(Run("log(1/100)"), "-2");
}

TEST_F(FunctionValues, SimpleSpecialValues) {
  EXPECT_EQ(Run("ln(e)"), "1");
  EXPECT_EQ(Run("ln(1)"), "0");
  EXPECT_EQ(Run("cos(0)"), "1");
  EXPECT_EQ(OnePass("arccos(1)", 7), "0");
  EXPECT_EQ(s.Message, "22#Simplify using the special value of @arccos(1)@ .");
}

TEST_F(FunctionValues, ExponentialOfIPiIsMinusOne) {
  s.SpecialP = true;
  s.ComplexForm = 1;
  EXPECT_EQ(OnePass("exp(i*p)", 7), "-1");
  EXPECT_EQ(s.Message, "233#Simplify using the special value of @exp(i*p)@ .");
  s.ComplexForm = 0;
  OnePass("exp(i*p)", 7);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, LogarithmsOfZeroRaiseTheirErrors) {
  EXPECT_EQ(ErrorOf("log(0)"), kErrorLogZero);
  EXPECT_EQ(ErrorOf("ln(0)"), kErrorLnZero);
  EXPECT_EQ(ErrorOf("ln(x-x)"), kErrorLnZero);
}

TEST_F(FunctionValues, FunctionOfADecimalEvaluates) {
  EXPECT_EQ(OnePass("sin(0.5)", 7), "0.479425538604203");
  EXPECT_EQ(s.Message, "53#Simplify this expression by evaluating @sin(0.5)@ .");
  EXPECT_EQ(Run("ln(2.5)"), "0.916290731874155");
}

TEST_F(FunctionValues, FunctionOfAWholeNumberStaysExact) {
  EXPECT_EQ(Run("ln(2)"), "ln(2)");
  s.ExactToFloat = true;
  EXPECT_EQ(Run("ln(2)"), "0.693147180559945");
}

TEST_F(FunctionValues, SineOfThirtyDegreesInFloatsReadsExactly) {
  s.Degrees = true;
  s.ExactToFloat = true;
  EXPECT_EQ(Run("sin(30)"), "0.5");
  EXPECT_EQ(Run("arcsin(0.5)+arccos(0.5)"), "90");
}

TEST_F(FunctionValues, LogarithmOfANegativeNumberStays) {
  s.ExactToFloat = true;
  EXPECT_EQ(Run("ln(-2)"), "ln(-2)");
}

TEST_F(FunctionValues, ArcsineBeyondOneStaysWithItsHelpNumber) {
  s.ExactToFloat = true;
  OnePass("arcsin(2)", 7);
  EXPECT_FALSE(fired);
  EXPECT_EQ(s.HelpNumber, 374);
}

TEST_F(FunctionValues, AnglesInPEvaluateInFloats) {
  s.SpecialP = true;
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("sin(p/7)", 7), "0.433883739117558");
  EXPECT_EQ(s.Message, "53#Simplify this expression by evaluating @sin(p/7)@ .");
}

TEST_F(FunctionValues, ConstantsBecomeNumbersInFloats) {
  s.SpecialP = true;
  s.ExactToFloat = true;
  EXPECT_EQ(OnePass("2*p", 9), "2*3.14159265358979");
  EXPECT_EQ(s.Message, "92#Simplify by evaluating the number pi.");
  EXPECT_EQ(OnePass("e+1", 9), "2.71828182845905+1");
  EXPECT_EQ(s.Message, "92#Simplify by evaluating the number e.");
  s.SpecialD = true;
  OnePass("d", 9);
  EXPECT_TRUE(fired);
  EXPECT_EQ(s.Message, "400#Simplify by converting from degrees to radians.");
}

TEST_F(FunctionValues, ConstantsFollowTheDecimalComma) {
  s.SpecialP = true;
  s.ExactToFloat = true;
  s.DecimalPoint = ",";
  EXPECT_EQ(OnePass("2*p", 9), "2*3,14159265358979");
}

TEST_F(FunctionValues, EAsTheBaseOfAPowerStaysALetter) {
  s.ExactToFloat = true;
  OnePass("e^x", 9);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, ConstantsStayWithoutFloats) {
  s.SpecialP = true;
  OnePass("2*p", 9);
  EXPECT_FALSE(fired);
}

TEST_F(FunctionValues, AngleOfTermReadsEachForm) {
  const NodeIdx p = Load("sin(-p/6)");
  const AngleTerm angle = AngleOfTerm(s, p);
  EXPECT_EQ(angle.code, -3);
  EXPECT_EQ(angle.a, -1);
  EXPECT_EQ(angle.b, 6);
  EXPECT_EQ(AngleOfTerm(s, Load("cos(30*d)")).code, 2);
  EXPECT_EQ(AngleOfTerm(s, Load("cos(30)")).code, 1);
  EXPECT_EQ(AngleOfTerm(s, Load("cos(x)")).code, 0);
}

}  // namespace
}  // namespace tavimor
