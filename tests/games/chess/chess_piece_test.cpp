#include "games/chess/chess_piece.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace brontavia::test {
namespace {

struct Named {
  int Piece;
  int Colour;
  int Kind;
  std::u16string_view Name;
  char16_t Ending;
};

constexpr Named kPieces[] = {
    {1, kWhite, kPawn, u"Peón blanco", u'o'},      {2, kWhite, kRook, u"Torre blanca", u'a'},
    {3, kWhite, kKnight, u"Caballo blanco", u'o'}, {4, kWhite, kBishop, u"Alfil blanco", u'o'},
    {5, kWhite, kQueen, u"Dama blanca", u'a'},     {6, kWhite, kKing, u"Rey blanco", u'o'},
    {11, kBlack, kPawn, u"Peón negro", u'o'},      {12, kBlack, kRook, u"Torre negra", u'a'},
    {13, kBlack, kKnight, u"Caballo negro", u'o'}, {14, kBlack, kBishop, u"Alfil negro", u'o'},
    {15, kBlack, kQueen, u"Dama negra", u'a'},     {16, kBlack, kKing, u"Rey negro", u'o'},
};

TEST(ChessPiece, HasAColourAKindAndAName) {
  for (const Named& piece : kPieces) {
    SCOPED_TRACE(piece.Piece);
    EXPECT_EQ(PieceOf(piece.Kind, piece.Colour), piece.Piece);
    EXPECT_EQ(ColourOf(piece.Piece), piece.Colour);
    EXPECT_EQ(KindOf(piece.Piece), piece.Kind);
    EXPECT_EQ(PieceName(piece.Piece), piece.Name);
    EXPECT_EQ(PieceEnding(piece.Piece), piece.Ending);
  }
}

TEST(ChessPiece, IsNoneWithoutColour) {
  EXPECT_EQ(ColourOf(kNoPiece), kNoColour);
  EXPECT_EQ(KindOf(kNoPiece), kNoPiece);
}

TEST(ChessPiece, HasNoNameForOtherCodes) {
  for (const int code : {-1, 0, 7, 8, 9, 10, 17}) {
    EXPECT_THROW(PieceName(code), std::out_of_range) << code;
    EXPECT_THROW(PieceEnding(code), std::out_of_range) << code;
  }
}

}  // namespace
}  // namespace brontavia::test
