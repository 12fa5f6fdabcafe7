// Tests of what the alias solvers share: the function scan, the classification of where the
// unknown stands, the alias letter, and the equation in the alias solved and put back.
#include <gtest/gtest.h>

#include "core/node_pool.h"
#include "core/temp_tree.h"
#include "solve/alias_solve.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class AliasSolveTest : public SessionTest {
 protected:
  AliasSolveTest() {
    s.SolveDetail = 1;
    s.StreamingOutput = true;
  }
  FunctionScan Scan(const std::string& text, const std::string& name) {
    TempTree tree(s, text, TempTree::Depth::Whole);
    return ScanFunctionNodes(s, name, "x", tree.Root());
  }
  FormStatus Classify(const std::string& text, const std::vector<std::string>& names) {
    return ClassifyTextByFunction(s, names, "x", text);
  }
  bool Wrote(const std::string& text) const {
    return frontend.Transcript().find(text) != std::string::npos;
  }
  std::size_t Where(const std::string& text) const { return frontend.Transcript().find(text); }
  SolveRun RunOn(const std::string& left, const std::string& right) {
    SolveRun run;
    run.Unknown = "x";
    run.SavedLeft = left;
    run.SavedRight = right;
    run.PendingEquations = {{"e^(2*x)-3*e^x+2", "0"}};
    run.PendingCount = 1;
    return run;
  }
};

TEST_F(AliasSolveTest, ExponentialScanFindsPowersWithAConstantBase) {
  const FunctionScan scan = Scan("e^(2*x)-3*e^x+2", kExponentialScan);
  EXPECT_EQ(scan.InsideCount, 2);
  EXPECT_EQ(scan.OutsideCount, 0);
  EXPECT_EQ(scan.NodeCount, 2);
}

TEST_F(AliasSolveTest, PowerOfTheUnknownIsNoExponential) {
  const FunctionScan scan = Scan("x^2+2^x", kExponentialScan);
  EXPECT_EQ(scan.InsideCount, 1);
  EXPECT_EQ(scan.NodeCount, 1);
}

TEST_F(AliasSolveTest, ExpCallsCountAsExponentials) {
  const FunctionScan scan = Scan("exp(x)+exp(2)", kExponentialScan);
  EXPECT_EQ(scan.InsideCount, 1);
  EXPECT_EQ(scan.OutsideCount, 1);
}

TEST_F(AliasSolveTest, NodeWithoutTheUnknownIsListedNegative) {
  const FunctionScan scan = Scan("ln(x)+ln(2)", "ln");
  ASSERT_EQ(scan.Entries.size(), 2u);
  EXPECT_GT(scan.Entries[0], 0);
  EXPECT_LT(scan.Entries[1], 0);
  EXPECT_EQ(scan.InsideCount, 1);
  EXPECT_EQ(scan.OutsideCount, 1);
}

TEST_F(AliasSolveTest, ScanFindsInnerNodesBeforeOuterOnes) {
  TempTree tree(s, "ln(ln(x))", TempTree::Depth::Whole);
  const FunctionScan scan = ScanFunctionNodes(s, "ln", "x", tree.Root());
  ASSERT_EQ(scan.Entries.size(), 2u);
  EXPECT_EQ(s.Pool[scan.Entries[0]].Text, "ln(x)");
  EXPECT_EQ(s.Pool[scan.Entries[1]].Text, "ln(ln(x))");
}

TEST_F(AliasSolveTest, ScanLeavesThePoolAsItWas) {
  const auto before = s.Pool.NodesInUse;
  Scan("e^(2*x)-3*e^x+2", kExponentialScan);
  EXPECT_EQ(s.Pool.NodesInUse, before);
}

TEST_F(AliasSolveTest, UnknownInsideAndOutsideALogarithmIsMixed) {
  EXPECT_EQ(Classify("x+ln(x)", {"ln", "log"}), FormStatus::FormUnsolvable);
}

TEST_F(AliasSolveTest, UnknownOnlyInsideLogarithmsIsThisForm) {
  EXPECT_EQ(Classify("ln(x)+log(x-3)-1", {"ln", "log"}), FormStatus::FormChanged);
}

TEST_F(AliasSolveTest, NoFunctionHoldingTheUnknownIsNotThisForm) {
  EXPECT_EQ(Classify("x^2+ln(2)", {"ln", "log"}), FormStatus::FormNotThisForm);
  EXPECT_EQ(Classify("x^2-1", {kExponentialScan}), FormStatus::FormNotThisForm);
}

TEST_F(AliasSolveTest, UnknownInAnExponentAndABaseIsMixed) {
  EXPECT_EQ(Classify("x*2^x-1", {kExponentialScan}), FormStatus::FormUnsolvable);
  EXPECT_EQ(Classify("2^x+3^(x+1)", {kExponentialScan}), FormStatus::FormChanged);
}

TEST_F(AliasSolveTest, FunctionArgumentIsTheTextInsideTheCall) {
  EXPECT_EQ(FunctionArgument("ln(x+1)"), "x+1");
  EXPECT_EQ(FunctionArgument("exp((x))"), "(x)");
}

TEST_F(AliasSolveTest, AliasIsThePreferredLetterWhenFree) {
  EXPECT_EQ(PickAlias(s, "e^(2*x)-3*e^x+2", "Q"), "Q");
}

TEST_F(AliasSolveTest, AliasSkipsLettersInUse) { EXPECT_EQ(PickAlias(s, "Q*2^x+R", "Q"), "S"); }

TEST_F(AliasSolveTest, AliasWrapsFromCapitalsToSmallLetters) {
  EXPECT_EQ(PickAlias(s, "QRSTUVWXYZ+x", "Q"), "a");
}

TEST_F(AliasSolveTest, AliasNeverTakesALetterThatMayBeAConstant) {
  EXPECT_EQ(PickAlias(s, "x", "d"), "f");
  EXPECT_EQ(PickAlias(s, "x+f+g+h", "i"), "k");
}

TEST_F(AliasSolveTest, OneValueOfTheAliasIsPutBack) {
  SolveRun run = RunOn("2*Q", "6");
  EXPECT_EQ(SolveInAlias(s, run, "Q", "e^x"), FormStatus::FormChanged);
  EXPECT_EQ(run.SavedLeft, "e^x");
  EXPECT_EQ(run.SavedRight, "3");
  EXPECT_EQ(run.PendingCount, 1);
  EXPECT_TRUE(Wrote("Now replace back the alias Q with @e^x@ ."));
  EXPECT_EQ(s.HelpNumber, 175);
}

TEST_F(AliasSolveTest, TwoValuesOfTheAliasBecomeTwoEquations) {
  SolveRun run = RunOn("Q^2-3*Q+2", "0");
  EXPECT_EQ(SolveInAlias(s, run, "Q", "e^x"), FormStatus::FormChanged);
  ASSERT_EQ(run.PendingCount, 2);
  EXPECT_EQ(run.Row(1)[0], "e^x");
  EXPECT_EQ(run.Row(2)[0], "e^x");
  EXPECT_NE(run.Row(1)[1], run.Row(2)[1]);
  EXPECT_EQ(run.SavedLeft, "e^x");
  EXPECT_EQ(run.SavedRight, run.Row(2)[1]);
  EXPECT_TRUE(
      Wrote("Now replace back the alias Q with @e^x@ in each equation.\nThe first "
            "equation is:"));
  EXPECT_LT(Where("The first equation is:"), Where("The next equation is:"));
  EXPECT_LT(Where("The next equation is:"),
            frontend.Transcript().rfind("Now proceed to solve the equation:"));
}

TEST_F(AliasSolveTest, TwoValuesReplaceOnlyTheRowInHand) {
  SolveRun run = RunOn("Q^2-3*Q+2", "0");
  run.PendingEquations = {{"x", "5"}, {"e^(2*x)-3*e^x+2", "0"}};
  run.PendingCount = 2;
  EXPECT_EQ(SolveInAlias(s, run, "Q", "e^x"), FormStatus::FormChanged);
  ASSERT_EQ(run.PendingCount, 3);
  EXPECT_EQ(run.Row(1)[1], "5");
}

TEST_F(AliasSolveTest, AliasWithNoSolutionEndsTheBranch) {
  SolveRun run = RunOn("Q+1", "Q");
  EXPECT_EQ(SolveInAlias(s, run, "Q", "e^x"), FormStatus::FormNoSolution);
}

TEST_F(AliasSolveTest, StepCountIsTheSameWhetherStepsAreShownOrNot) {
  SolveRun shown = RunOn("Q^2-3*Q+2", "0");
  s.StepCount = 0;
  SolveInAlias(s, shown, "Q", "e^x");
  const int shown_steps = s.StepCount;
  s.SolveDetail = 0;
  s.StepCount = 0;
  SolveRun quiet = RunOn("Q^2-3*Q+2", "0");
  SolveInAlias(s, quiet, "Q", "e^x");
  EXPECT_GT(shown_steps, 1);
  EXPECT_EQ(s.StepCount, shown_steps);
}

}  // namespace
}  // namespace tavimor
