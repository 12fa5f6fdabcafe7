// The braille sketch of a graph for the terminal.
#include <gtest/gtest.h>

#include "graph/braille_sketch.h"

namespace tavimor {
namespace {

TEST(BrailleSketch, EmptyPictureIsBlankCells) {
  DisplayList display;
  const std::vector<std::string> lines = BrailleSketch(display, 3, 2);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], "⠀⠀⠀");
}

TEST(BrailleSketch, HorizontalLineSetsOneRowOfDots) {
  DisplayList display;
  display.width = 8;
  display.height = 8;
  // Dot row 7 of 8: the bottom dots of the second row of cells.
  display.Line({0, 7.5}, {7.9, 7.5}, kGraphBlack, 1);
  const std::vector<std::string> lines = BrailleSketch(display, 4, 2);
  EXPECT_EQ(lines[0], "⠀⠀⠀⠀");
  EXPECT_EQ(lines[1], "⣀⣀⣀⣀");
}

TEST(BrailleSketch, TextsAndPointsAreLeftOut) {
  DisplayList display;
  display.width = 4;
  display.height = 4;
  display.Text({1, 1}, "x", kGraphBlack);
  display.Point({1, 1}, kGraphBlack);
  EXPECT_EQ(BrailleSketch(display, 2, 1)[0], "⠀⠀");
}

}  // namespace
}  // namespace tavimor
