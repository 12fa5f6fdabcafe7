// One rewrite of one pass at a time, as a table: each row an input, the pass, the text after the
// rewrite and its message with the help number, named by what it shows.
#include <gtest/gtest.h>

#include <string>

#include "support/simplify_fixture.h"

namespace tavimor {
namespace {

struct OneStepRow {
  const char* name;  // what the row shows
  const char* input;
  int pass;             // the pass of the simplify loop whose rules are offered the input
  const char* result;   // the text after one rewrite
  const char* message;  // the step message, help number first
};

// clang-format off
const OneStepRow kRows[] = {
    {"BracketAroundASingleQuantityGoesWithHelpThree", "2*(x)", 1, "2*x",
     "3#The brackets around a single quantity like @(x)@ are not required.  Simplify by removing them."},
    {"BracketOfAnExponentGoesSilently", "x^(y)", 1, "x^y",
     "Skip message"},
    {"ProductInsideATermOfASum", "(2*x)+1", 1, "2*x+1",
     "4#Multiplication and division take precedence over addition and subtraction, so the brackets around @(2*x)@ are not required.  Simplify by removing them."},
    {"SumInASum", "a+(b+c)+d", 1, "a+b+c+d",
     "7#All sums and differences have the same priority so @(b+c)@ doesn't need brackets.  Simplify by removing them."},
    {"FractionTakenIntoAProductIsNarrated", "2*(x/y)/z", 1, "2*x/y/z",
     "5#Simplify the expression @2*(x/y)/z@ by :|   - starting with the fraction  @(x/y)@ .|   - including  @2@ in the numerator (i.e. multiplying it into the numerator).|   - including  @z@ in the denominator (i.e. multiplying it into the denominator).|   - The result is :"},
    {"FirstBracketOfASumWithoutASignReadsAsSamePriority", "(-x)+y", 3, "-x+y",
     "13#All sums and differences have the same priority so @(-x)@ doesn't need brackets.  Simplify by removing them."},
    {"LaterBracketWithAPlusNamesThePlusSign", "a+(-b)", 3, "a-b",
     "14#Simplify by distributing the + sign over the contents of  @(-b)@ ."},
    {"MinusIsDistributedOverABracket", "-(a-b)", 4, "-a+b",
     "90#Simplify by distributing the - sign over the contents of  @-(a-b)@ ."},
    {"PlusOnAnExponentsNumberGoesWithItsBracket", "x^(+2)", 9, "x^2",
     "381#Simplify by dropping the unnecessary + sign."},
    {"FactorOfZeroReplacesTheExpressionByZero", "x*0", 4, "0",
     "1#Simplify by replacing an expression having a factor of zero by zero."},
    {"OneFactorOfOneFoldsIntoOneSentence", "1*x", 4, "x",
     "356#Simplify the product @1*x@ by dropping the unnecessary factor of 1.  The result is:"},
    {"EqualPowersAboveAndBelowCancel", "x^2/x^2", 4, "1",
     "357#Simplify the quotient @x^2/x^2@ by:|   - canceling this @x^2/x^2->1@ .|   - The result is:"},
    {"CoefficientInLowestTermsWhenExact", "6/4*x", 4, "3/2*x",
     "357#Simplify the quotient @6/4*x@ by:|   - simplifying the coefficient @6/4->3/2@ .|   - The result is:"},
    {"ExponentsOfOneBaseAddAsText", "x^a*x^b", 4, "x^(a+b)",
     "359#Simplify the product @x^a*x^b@ by:|   - applying the property of exponents @x^a*x^b->x^(a+b)@ .|   - The result is:"},
    {"MinusSignsCombine", "-(-x)", 3, "x",
     "15#Simplify the term @-(-x)@ by combining the - signs.  The result is:"},
    {"MinusMovesToTheFront", "2*(-x)", 3, "-2*x",
     "356#Simplify the term @2*(-x)@ by moving the - sign to the front.  The result is:"},
    {"MinusInTheDenominatorGoesUp", "a/(-2)", 3, "-a/2",
     "15#Simplify the term @a/(-2)@ by putting the - sign into the numerator.  The result is:"},
    {"DivisionByAFractionIsMultiplicationByItsReciprocal", "a/(b/c)", 3, "a*c/b",
     "17#Simplify the term @a/(b/c)@ by:|   - replacing the division by the fraction @b/c@ by the multiplication by its reciprocal.|   - The result is:"},
    {"FractionsMultiplyIntoOne", "(a/b)*(c/d)", 3, "a*c/b/d",
     "18#Simplify the term @(a/b)*(c/d)@ by:|   - multiplying the fractions @(a/b)*(c/d)->a*c/b/d@ .|   - The result is:"},
    {"OneToAnyPowerIsOne", "1^x", 6, "1",
     "248#Simplify using the property of exponents that @1^x=1@ ."},
    {"ZeroToTheZeroIsOne", "0^0", 6, "1",
     "56#Simplify using the property of exponents that @0^0=1@ ."},
    {"AnythingToTheZeroIsOne", "x^0", 6, "1",
     "55#Simplify using the property of exponents that @x^0=1@ ."},
    {"ZeroToAPositivePowerIsZero", "0^2", 6, "0",
     "56#Simplify using the property of exponents that @0^2=0@ ."},
    {"PowerOneIsTheBase", "x^1", 6, "x",
     "57#Simplify using the property of exponents that @x^1=x@ ."},
    {"SquareOfASquareRootCancels", "sqrt(x)^2", 6, "x",
     "62#Simplify using the fact that the square and square root cancel: @sqrt(x)^2=x@ ."},
    {"OtherPowerOfASquareRootHalvesTheExponent", "sqrt(x)^3", 6, "x^(3/2)",
     "68#Simplify using the property of radicals that @sqrt(x)^3=x^(3/2)@ ."},
    {"SquareRootOfEightPullsAFactorOut", "sqrt(8)", 7, "2*sqrt(2)",
     "88#Simplify by pulling a factor out of the square root @sqrt(8)->2*sqrt(2)@ ."},
    {"SquareRootOfASquareEvaluates", "sqrt(9)", 7, "3",
     "380#Simplify this expression by evaluating @sqrt(9)@ ."},
    {"SquareRootOfASquareRootIsAFourthRoot", "sqrt(sqrt(x))", 7, "x^(1/4)",
     "96#Simplify using the rule that @sqrt(sqrt(x))=x^(1/4)@ ."},
};
// clang-format on

class OneStepRule : public SimplifyTest, public ::testing::WithParamInterface<OneStepRow> {};

TEST_P(OneStepRule, RewritesOnceWithItsMessage) {
  const OneStepRow& row = GetParam();
  EXPECT_EQ(OnePass(row.input, row.pass), row.result);
  EXPECT_EQ(s.Message, row.message);
}

INSTANTIATE_TEST_SUITE_P(Rules, OneStepRule, ::testing::ValuesIn(kRows),
                         [](const ::testing::TestParamInfo<OneStepRow>& row) {
                           return std::string(row.param.name);
                         });

}  // namespace
}  // namespace tavimor
