// Tests of the greatest common divisor and least common multiple by prime factors.
#include <gtest/gtest.h>

#include "manipulate/integer_gcd.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class IntegerGcd : public SessionTest {};

TEST_F(IntegerGcd, SharedPrimesMakeTheDivisor) {
  EXPECT_EQ(GcdOf(12, 18), 6);
  EXPECT_EQ(GcdOf(-12, 18), 6);
  EXPECT_EQ(GcdOf(17, 4), 1);
  EXPECT_EQ(GcdOf(1, 1), 1);
  EXPECT_EQ(GcdOf(0, 9), 9);
  EXPECT_EQ(GcdOf(2147483646, 1073741823), 1073741823);
}

TEST_F(IntegerGcd, MultipleTakesTheUnsharedPrimes) {
  EXPECT_EQ(LcmOf(s, 12, 18), 36);
  EXPECT_EQ(LcmOf(s, 4, 6), 12);
  EXPECT_EQ(LcmOf(s, 7, 7), 7);
  EXPECT_TRUE(frontend.messages.empty());
}

TEST_F(IntegerGcd, MultipleBeyondTheIntegerLimitIsToldAndGivesZero) {
  EXPECT_EQ(LcmOf(s, 65536, 65537), 0);
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "Error!  This program can't compute the LCM of 65536 and 65537 because it is bigger "
            "than the largest integer that it can handle, which is 2^31 or 2147483648.  Try using "
            "floating point rather than exact arithmetic.");
}

}  // namespace
}  // namespace tavimor
