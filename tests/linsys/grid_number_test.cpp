// The numbers of the system grid: exact fractions, decimals read exactly, the bounds where a
// number stays exact, and the texts the grid and the work space show.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "linsys/grid_number.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

class GridNumberTest : public ::testing::Test {
 protected:
  GridNumberTest() : s(frontend) {}
  GridNumber Read(const std::string& text) {
    GridNumber n;
    EXPECT_TRUE(GridNumber::FromText(s, text, n)) << text;
    return n;
  }
  RecordingFrontend frontend;
  Session s;
};

TEST_F(GridNumberTest, DecimalsAreReadExactly) {
  EXPECT_EQ(Read("0.1").Text(s), "1/10");
  EXPECT_EQ(Read("-2.50").Text(s), "-5/2");
  EXPECT_EQ(Read("1.5E-03").Text(s), "3/2000");
  EXPECT_EQ(Read("2/6").Text(s), "1/3");
  EXPECT_EQ(Read("-3/-4").Text(s), "3/4");
}

TEST_F(GridNumberTest, LongDigitsWithALargeExponentBecomeAFloat) {
  const GridNumber n = Read("1234567890123456789012345E+18");
  EXPECT_FALSE(n.Exact());
  EXPECT_DOUBLE_EQ(n.Value(), 1.234567890123456789e42);
}

TEST_F(GridNumberTest, TextWithoutDigitsIsNoNumber) {
  GridNumber n;
  for (const char* text : {"", "-", ".", "E5", "1/0", "x", "1.5Q", "1E"}) {
    EXPECT_FALSE(GridNumber::FromText(s, text, n)) << text;
  }
}

TEST_F(GridNumberTest, ThirdsAddUpToOneExactly) {
  const GridNumber third = GridNumber::Fraction(1, 3);
  EXPECT_TRUE((third + third + third).IsOne());
  EXPECT_TRUE((third * GridNumber(3) - GridNumber(1)).IsZero());
}

TEST_F(GridNumberTest, PartsBeyondTheSystemsIntegersStayExact) {
  const GridNumber big = GridNumber(2000000000LL) * GridNumber(2000000000LL);
  EXPECT_TRUE(big.Exact());
  EXPECT_EQ(big.Text(s), "4000000000000000000");
  const GridNumber huge = big * big;
  EXPECT_FALSE(huge.Exact());
  EXPECT_DOUBLE_EQ(huge.Value(), 1.6e37);
}

TEST_F(GridNumberTest, DivisionByZeroIsTheRunTimeError) {
  EXPECT_THROW(GridNumber(1) / GridNumber(0), RunTimeError);
}

TEST_F(GridNumberTest, GridShowsTheSizeAtSignificantFigures) {
  EXPECT_EQ(GridNumber::Fraction(-1, 3).SigFigsText(s, 3), "0.333");
  EXPECT_EQ(GridNumber(-12345).SigFigsText(s, 3), "12345");
  EXPECT_EQ(GridNumber::Fraction(5, 2).SigFigsText(s, 3), "2.5");
}

}  // namespace
}  // namespace tavimor
