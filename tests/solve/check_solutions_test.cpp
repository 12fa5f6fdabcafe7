// Choosing the unknown, removing repeated answers, and checking answers in the equation.
#include <gtest/gtest.h>

#include <string>

#include "solve/check_solutions.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class SolutionCheck : public SessionTest {
 protected:
  SolutionCheck() {
    NewNode(s);  // node 2
    NewNode(s);  // node 3
    s.StreamingOutput = true;
    s.SolveDetail = 1;
  }

  std::string Check(const std::string& equation, std::string answers) {
    CheckSolutions(s, equation, "x", answers, rejected);
    return answers;
  }

  std::string Transcript() const { return frontend.Transcript(); }

  int rejected = 0;
};

TEST_F(SolutionCheck, AnswerThatDoesNotSatisfyTheEquationIsRejected) {
  EXPECT_EQ(Check("sqrt(x)=x-2", "4; 1"), "4");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(Transcript(),
            "Check the solutions.  Substitute @x=4@ back into the original equation.\n"
            "After simplifying, the equation reads @2=2@ , so this solution checks out.\n\n"
            "Substitute @x=1@ back into the original equation.\n"
            "After simplifying, the equation reads @1=-1@ , so this solution doesn't check out "
            "and must be rejected.\n\n");
  EXPECT_EQ(s.HelpNumber, 253);
}

TEST_F(SolutionCheck, AnswerWithoutARealValueIsRejected) {
  EXPECT_EQ(Check("ln(x)=ln(x-5)", "1"), "no-solution");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(s.HelpNumber, 252);
  EXPECT_NE(Transcript().find("This can't be evaluated over the real numbers, so this solution "
                              "must be rejected."),
            std::string::npos)
      << Transcript();
  EXPECT_EQ(Transcript().rfind("Check the solution.  Substitute @x=1@ back into the original "
                               "equation.\n",
                               0),
            0u)
      << Transcript();
}

TEST_F(SolutionCheck, AnOddRootOfANegativeAnswerIsReal) {
  EXPECT_EQ(Check("x^(1/3)=-2", "-8"), "-8");
  EXPECT_EQ(rejected, 0);
  EXPECT_EQ(Transcript(),
            "Check the solution.  Substitute @x=-8@ back into the original equation.\n"
            "After simplifying, the equation reads @-2=-2@ , so this solution checks out.\n\n");
  EXPECT_EQ(Check("x^(2/3)=4", "8; -8"), "8; -8");
  EXPECT_EQ(Check("x^(1/4)=2", "-16"), "no-solution");  // an even root stays unreal
}

TEST_F(SolutionCheck, ComplexAnswersCheckOutWithTheirImaginaryParts) {
  s.ComplexForm = 1;
  EXPECT_EQ(Check("x^2+2*x+5=0", "2*i-1; 2*i+1"), "2*i-1");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(s.HelpNumber, 253);
  EXPECT_NE(Transcript().find("Substitute @x=2*i-1@ back into the original equation.\n"
                              "After simplifying, the equation reads @0=0@ , so this solution "
                              "checks out."),
            std::string::npos)
      << Transcript();
}

TEST_F(SolutionCheck, AnAnswerWrongOnlyInItsImaginaryPartIsRejected) {
  s.ComplexForm = 2;
  EXPECT_EQ(Check("x^2=-4", "2*j; 3*j"), "2*j");
  EXPECT_EQ(rejected, 1);
}

TEST_F(SolutionCheck, AnImaginaryAnswerIsRejectedUnderRealArithmetic) {
  EXPECT_EQ(Check("x^2+4=0", "2*sqrt(-1)"), "no-solution");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(s.HelpNumber, 252);
}

TEST_F(SolutionCheck, AnswerThatMakesADenominatorZeroIsRejected) {
  EXPECT_EQ(Check("x/(x-2)=2/(x-2)", "2"), "no-solution");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(s.HelpNumber, 252);
}

TEST_F(SolutionCheck, AnswerWithoutARealValueIsRejectedWhateverItsSidesSimplifyTo) {
  EXPECT_EQ(Check("ln(x^4+4)=-9", "(1/e^9-4)^(1/4)"), "no-solution");
  EXPECT_EQ(rejected, 1);
  EXPECT_EQ(s.HelpNumber, 252);
}

TEST_F(SolutionCheck, AnswerWithinTheToleranceChecksOut) {
  EXPECT_EQ(Check("x=2", "2.00000001"), "2.00000001");
  EXPECT_EQ(s.HelpNumber, 254);
  EXPECT_EQ(Check("x=2", "2.000001"), "no-solution");
  EXPECT_EQ(s.HelpNumber, 253);
}

TEST_F(SolutionCheck, EquationWithAParameterIsNotChecked) {
  EXPECT_EQ(Check("a*x=2", "2/a"), "2/a");
  EXPECT_EQ(rejected, 0);
  EXPECT_EQ(Transcript(), "");
}

TEST_F(SolutionCheck, ReservedWordIsNotChecked) {
  EXPECT_EQ(Check("x=x+1", "no-solution"), "no-solution");
  EXPECT_EQ(Transcript(), "");
}

TEST_F(SolutionCheck, TinyValuesOnBothSidesReadAsZeroEqualsZero) {
  EXPECT_EQ(Check("x=0", "0.0000000000001"), "0.0000000000001");
  EXPECT_NE(Transcript().find("@0=0@ , so this solution checks out."), std::string::npos)
      << Transcript();
  EXPECT_EQ(s.HelpNumber, 254);
}

TEST_F(SolutionCheck, NothingIsWrittenWithoutDetail) {
  s.SolveDetail = 0;
  EXPECT_EQ(Check("sqrt(x)=x-2", "4; 1"), "4");
  EXPECT_EQ(Transcript(), "");
}

TEST(AnswerCleaning, RepeatedAnswerIsWrittenOnce) {
  std::string answers = "3; -3; 3";
  int rejected = 7;
  CleanAnswers(answers, rejected);
  EXPECT_EQ(answers, "3; -3");
  EXPECT_EQ(rejected, 1);
}

TEST(AnswerCleaning, NoSolutionPiecesLeaveTheOthers) {
  std::string answers = "no-solution; 2";
  int rejected = 0;
  CleanAnswers(answers, rejected);
  EXPECT_EQ(answers, "2");
  EXPECT_EQ(rejected, 1);
}

TEST(AnswerCleaning, OnlyUnsolvablePiecesGiveUnsolvable) {
  std::string answers = "unsolvable; no-solution";
  int rejected = 0;
  CleanAnswers(answers, rejected);
  EXPECT_EQ(answers, "unsolvable");
  EXPECT_EQ(rejected, 2);
  answers = "no-solution; no-solution";
  CleanAnswers(answers, rejected);
  EXPECT_EQ(answers, "no-solution");
}

TEST_F(SolutionCheck, CandidatesLeaveOutTheConstants) {
  std::string letter;
  s.Unknown = "x";
  EXPECT_EQ(ChooseUnknown(s, "a*e^t=b", letter), 3);
  EXPECT_EQ(letter, "a");
  EXPECT_EQ(ChooseUnknown(s, "a*e^t=b", letter), 3);
  EXPECT_EQ(letter, "t");
  letter = "b";
  EXPECT_EQ(ChooseUnknown(s, "a*e^t=b", letter), 3);
  EXPECT_EQ(letter, "a");
}

TEST_F(SolutionCheck, CurrentUnknownAmongTheCandidatesCountsMinusOne) {
  std::string letter = "x";
  s.Unknown = "x";
  EXPECT_EQ(ChooseUnknown(s, "2*x+y=1", letter), -1);
  EXPECT_EQ(ChooseUnknown(s, "2=3", letter), 0);
}

TEST_F(SolutionCheck, ImaginaryUnitIsNoCandidateWithComplexNumbers) {
  std::string letter;
  s.Unknown = "y";
  s.ComplexForm = 1;
  EXPECT_EQ(ChooseUnknown(s, "i*x=2", letter), 1);
  EXPECT_EQ(letter, "x");
  s.ComplexForm = 0;
  EXPECT_EQ(ChooseUnknown(s, "i*x=2", letter), 2);
}

}  // namespace
}  // namespace tavimor
