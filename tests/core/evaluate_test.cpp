// Tests of evaluation: the variable table, the letters of an expression, values in place, and
// that a new point costs no parsing and no allocation.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <new>

#include "core/errors.h"
#include "core/evaluate.h"
#include "support/session_fixture.h"

namespace {

// Allocations counted while the flag is up, for the test that a new point allocates nothing.
long g_allocations = 0;
bool g_counting = false;

}  // namespace

// The replaced pair allocates with malloc and frees with free, which GCC cannot see through.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif

void* operator new(std::size_t size) {
  if (g_counting) ++g_allocations;
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace tavimor {
namespace {

class Evaluation : public SessionTest {
 protected:
  double ValueOf(const std::string& text) {
    const NodeIdx n = Load(text);
    EvaluateAll(s, n);
    return ValueAsNumber(s, N(n).Value);
  }
};

TEST_F(Evaluation, PseudoMinusIsTheFactorMinusOne) {
  SetVarValue(s, 'x', 3.0);
  EXPECT_DOUBLE_EQ(ValueOf("-x"), -3.0);
  const NodeIdx n = Load("-x");
  LoadLeaves(s, n);
  EXPECT_EQ(std::get<std::int32_t>(N(N(n).FirstChild).Value), -1);
}

TEST_F(Evaluation, NumberAtTheRootKeepsItsText) {
  const NodeIdx n = Load("2.5");
  EvaluateAll(s, n);
  ASSERT_TRUE(std::holds_alternative<std::string>(N(n).Value));
  EXPECT_EQ(std::get<std::string>(N(n).Value), "2.5");
  EXPECT_DOUBLE_EQ(ValueAsNumber(s, N(n).Value), 2.5);
}

TEST_F(Evaluation, LetterNotInTheTableCountsAsZero) {
  EXPECT_TRUE(std::holds_alternative<std::monostate>(VarValue(s, 'q')));
  EXPECT_DOUBLE_EQ(ValueOf("q+1"), 1.0);
  EXPECT_DOUBLE_EQ(ValueOf("2*q+5"), 5.0);
}

TEST_F(Evaluation, DegreeLetterIsAConstantOnlyInARadianWorld) {
  s.SpecialD = true;
  EXPECT_EQ(std::get<std::string>(VarValue(s, 'd')), "1.74532925199433E-02");
  EXPECT_TRUE(IsConstantVar(s, 'd'));
  s.Degrees = true;
  EXPECT_FALSE(IsConstantVar(s, 'd'));
  SetVarValue(s, 'd', 4.0);
  EXPECT_DOUBLE_EQ(ValueOf("d*2"), 8.0);
}

TEST_F(Evaluation, ConstantsFollowTheOptionsAndTheDecimalComma) {
  EXPECT_EQ(std::get<std::string>(VarValue(s, 'e')), "2.71828182845905");
  s.SpecialP = true;
  s.DecimalPoint = ",";
  EXPECT_EQ(std::get<std::string>(VarValue(s, 'p')), "3,14159265358979");
  EXPECT_NEAR(ValueOf("p"), 3.14159265358979, 1e-14);
  s.ComplexForm = 1;
  EXPECT_TRUE(IsConstantVar(s, 'i'));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(VarValue(s, 'i')));
  EXPECT_FALSE(IsConstantVar(s, 'j'));
}

TEST_F(Evaluation, LettersAreCollectedOnceInTheOrderMet) {
  s.SubstitutionCount = 0;
  CollectVars(s, Load("y+x*y+sin(z)^x"));
  ASSERT_EQ(s.SubstitutionCount, 3);
  EXPECT_EQ(std::string(s.SubstitutionVars.begin(), s.SubstitutionVars.end()), "yxz");
}

TEST_F(Evaluation, TheTableGrowsAndKeepsItsValues) {
  SetVarValue(s, 'x', 1.0);
  SetVarValue(s, 'y', std::string("2"));
  SetVarValue(s, 'x', 5.0);
  EXPECT_EQ(s.VarCount, 2);
  EXPECT_DOUBLE_EQ(ValueAsNumber(s, VarValue(s, 'x')), 5.0);
  EXPECT_DOUBLE_EQ(ValueAsNumber(s, VarValue(s, 'y')), 2.0);
}

TEST_F(Evaluation, SumsProductsPowersAndFunctions) {
  SetVarValue(s, 'x', 2.0);
  EXPECT_DOUBLE_EQ(ValueOf("3*x^2-x/4+1"), 12.5);
  EXPECT_NEAR(ValueOf("sin(x)^2+cos(x)^2"), 1.0, 1e-15);
  EXPECT_NEAR(ValueOf("log(1000)+ln(e)"), 4.0, 1e-14);
  EXPECT_NEAR(ValueOf("sqrt(x*8)"), 4.0, 1e-15);
  EXPECT_NEAR(ValueOf("arcsin(1)+arccos(1)"), 1.5707963267948966, 1e-15);
  EXPECT_NEAR(ValueOf("cot(1)*tan(1)+sec(0)+csc(1)*sin(1)"), 3.0, 1e-14);
}

TEST_F(Evaluation, AnglesInDegrees) {
  s.Degrees = true;
  EXPECT_NEAR(ValueOf("sin(30)"), 0.5, 1e-15);
  EXPECT_NEAR(ValueOf("arcsin(0.5)"), 30.0, 1e-12);
  EXPECT_NEAR(ValueOf("arccos(0.5)"), 60.0, 1e-12);
  EXPECT_NEAR(ValueOf("arctan(1)"), 45.0, 1e-12);
}

TEST_F(Evaluation, DivisionByZeroAndDomainFaultsRaiseTheRunTimeError) {
  SetVarValue(s, 'x', 0.0);
  const auto number = [this](const std::string& text) {
    try {
      ValueOf(text);
    } catch (const RunTimeError& error) {
      return error.Number();
    }
    return RunTimeErrorNumber::BrokenTree;  // nothing raised
  };
  EXPECT_EQ(number("1/x"), RunTimeErrorNumber::DivisionByZero);
  EXPECT_EQ(number("x^(-1)"), RunTimeErrorNumber::DivisionByZero);
  EXPECT_EQ(number("sqrt(x-1)"), RunTimeErrorNumber::InvalidCall);
  EXPECT_EQ(number("ln(x)"), RunTimeErrorNumber::InvalidCall);
  EXPECT_EQ(number("arcsin(x+2)"), RunTimeErrorNumber::InvalidCall);
  EXPECT_EQ(number("(x-8)^(1/3)"), RunTimeErrorNumber::InvalidCall);
  EXPECT_EQ(number("exp(1000)"), RunTimeErrorNumber::Overflow);
}

TEST_F(Evaluation, ANewPointParsesNothingAndAllocatesNothing) {
  const NodeIdx n = Load("3*x^2+sin(x)/e-2.71828182845905^x+sqrt(x)*1.5E-3");
  SetVarValue(s, 'x', 0.5);
  EvaluateAll(s, n);  // the first point gives the texts their room
  const std::string text = N(n).Text;
  const int nodes = s.Pool.NodesInUse;
  double sum = 0.0;
  g_allocations = 0;
  g_counting = true;
  for (int k = 1; k <= 200; ++k) {
    SetVarValue(s, 'x', 0.01 * k);
    EvaluateAll(s, n);
    sum += ValueAsNumber(s, N(n).Value);
  }
  g_counting = false;
  EXPECT_EQ(g_allocations, 0);
  EXPECT_EQ(N(n).Text, text);
  EXPECT_EQ(s.Pool.NodesInUse, nodes);
  EXPECT_TRUE(std::isfinite(sum));
  // The value at one point, against the formula.
  SetVarValue(s, 'x', 1.0);
  EvaluateAll(s, n);
  const double e = 2.71828182845905;
  EXPECT_NEAR(ValueAsNumber(s, N(n).Value), 3 + std::sin(1.0) / e - e + 1.5e-3, 1e-12);
}

}  // namespace
}  // namespace tavimor
