// Tests of mathematics set as lines of text for the terminal.
#include <gtest/gtest.h>

#include "present/text_picture.h"
#include "present/typesetter.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class TextPictureTest : public SessionTest {
 protected:
  std::vector<std::string> Rows(const std::string& text) {
    Picture picture;
    picture.left = text;
    return TextPicture(s, picture).Utf8Rows();
  }
};

TEST_F(TextPictureTest, FractionIsStackedOverItsRule) {
  EXPECT_EQ(Rows("a/b"), (std::vector<std::string>{" a ", "───", " b "}));
}

TEST_F(TextPictureTest, CoefficientOneAboveTheLineIsNotSet) {
  EXPECT_EQ(Rows("1/2*x"), Rows("x/2"));
  EXPECT_EQ(Rows("-1/2*a/c"), (std::vector<std::string>{"  a  ", "−────", "  2c "}));
  EXPECT_EQ(Rows("1/x"), (std::vector<std::string>{" 1 ", "───", " x "}));
}

TEST_F(TextPictureTest, PowerOfAPowerHasItsBaseInBrackets) {
  EXPECT_EQ(Rows("x^2^3"), Rows("(x^2)^3"));
  EXPECT_EQ(Rows("x^2^3"), (std::vector<std::string>{"(x²)³"}));
  const int nodes = s.Pool.NodesInUse;
  Rows("x^2^3^4");
  EXPECT_EQ(s.Pool.NodesInUse, nodes);
}

}  // namespace
}  // namespace tavimor
