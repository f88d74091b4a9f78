#include "games/chess/chess_piece.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace brontavia::test {
namespace {

struct Named {
  int Piece;
  brontavia::Colour Colour;
  int Kind;
  std::u16string_view Name;
  char16_t Ending;
};

constexpr Named kPieces[] = {
    {1, Colour::White, kPawn, u"Peón blanco", u'o'},      {2, Colour::White, kRook, u"Torre blanca", u'a'},
    {3, Colour::White, kKnight, u"Caballo blanco", u'o'}, {4, Colour::White, kBishop, u"Alfil blanco", u'o'},
    {5, Colour::White, kQueen, u"Dama blanca", u'a'},     {6, Colour::White, kKing, u"Rey blanco", u'o'},
    {11, Colour::Black, kPawn, u"Peón negro", u'o'},      {12, Colour::Black, kRook, u"Torre negra", u'a'},
    {13, Colour::Black, kKnight, u"Caballo negro", u'o'}, {14, Colour::Black, kBishop, u"Alfil negro", u'o'},
    {15, Colour::Black, kQueen, u"Dama negra", u'a'},     {16, Colour::Black, kKing, u"Rey negro", u'o'},
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

TEST(ChessPiece, IsOfNoKindWhereThereIsNone) { EXPECT_EQ(KindOf(kNoPiece), kNoPiece); }

TEST(Colours, AreToldByTheirNumbersAlone) {
  for (const Colour colour : kBothColours) EXPECT_EQ(ColourOfNumber(NumberOf(colour)), colour);
  EXPECT_EQ(NumberOf(Colour::White), 0);
  for (const int number : {-1, 2}) EXPECT_EQ(ColourOfNumber(number), std::nullopt) << number;
}

TEST(ChessPiece, HasNoNameForOtherCodes) {
  for (const int code : {-1, 0, 7, 8, 9, 10, 17}) {
    EXPECT_THROW(PieceName(code), std::out_of_range) << code;
    EXPECT_THROW(PieceEnding(code), std::out_of_range) << code;
  }
}

}  // namespace
}  // namespace brontavia::test
