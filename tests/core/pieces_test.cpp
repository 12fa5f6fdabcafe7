// Tests of lists as text: counting and taking pieces.
#include <gtest/gtest.h>

#include "core/pieces.h"

namespace tavimor {
namespace {

TEST(Pieces, CountOfTextWithoutSeparatorIsOne) { EXPECT_EQ(CountPieces("abc", ";"), 1); }

TEST(Pieces, CountIsSeparatorsPlusOne) {
  EXPECT_EQ(CountPieces("a; b; c", "; "), 3);
  EXPECT_EQ(CountPieces("", ";"), 1);
  EXPECT_EQ(CountPieces(";", ";"), 2);
}

TEST(Pieces, IndexZeroGivesError) { EXPECT_EQ(GetPiece("a;b", 0, ";"), "Error"); }

TEST(Pieces, IndexAboveCountGivesError) {
  EXPECT_EQ(GetPiece("a;b", 3, ";"), "Error");
  EXPECT_EQ(GetPiece("abc", 2, ";"), "Error");
}

TEST(Pieces, TextWithoutSeparatorAndIndexOneGivesTheText) {
  EXPECT_EQ(GetPiece("x+1", 1, ";"), "x+1");
}

TEST(Pieces, PiecesCountFromOne) {
  EXPECT_EQ(GetPiece("2; -3; 1/2", 1, "; "), "2");
  EXPECT_EQ(GetPiece("2; -3; 1/2", 2, "; "), "-3");
  EXPECT_EQ(GetPiece("2; -3; 1/2", 3, "; "), "1/2");
  EXPECT_EQ(GetPiece("a;;b", 2, ";"), "");
}

TEST(Pieces, SetPieceReplacesOneFieldOnly) {
  std::string record = "; 0; ; ; ";
  SetPiece(record, 1, "; ", "(x+1)^2");
  SetPiece(record, 4, "; ", "x*x+x+x+1");
  EXPECT_EQ(record, "(x+1)^2; 0; ; x*x+x+x+1; ");
  SetPiece(record, 2, "; ", "1");
  EXPECT_EQ(GetPiece(record, 2, "; "), "1");
  EXPECT_EQ(GetPiece(record, 4, "; "), "x*x+x+x+1");
  EXPECT_EQ(GetPiece(record, 5, "; "), "");
}

TEST(Pieces, SetPieceBeyondTheCountAddsEmptyPieces) {
  std::string text = "a";
  SetPiece(text, 3, ";", "c");
  EXPECT_EQ(text, "a;;c");
}

TEST(Pieces, AppendedPiecesAreSeparatedAfterTheFirst) {
  std::string text;
  AppendPiece(text, '*', "x");
  EXPECT_EQ(text, "x");
  AppendPiece(text, '*', "(x+1)");
  AppendPiece(text, '*', "");
  EXPECT_EQ(text, "x*(x+1)*");
  EXPECT_EQ(CountPieces(text, "*"), 3);
}

}  // namespace
}  // namespace tavimor
