#include "games/chess/position_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(PositionBox, TellsTheStart) {
  EXPECT_EQ(PositionBoxText(StartPosition()),
            u"Jug. Nº 1. Mueven Blancas. \r\n"
            u" Enroques disponibles:\r\n"
            u"Blancas. Corto: Sí. Largo: Sí.\r\n"
            u"Negras. Corto: Sí. Largo: Sí.\r\n"
            u" Opción de comer al paso\r\n"
            u"Blancas : No.Negras: No.");
}

TEST(PositionBox, TellsEveryField) {
  ChessPosition position = Placed("", "Kq");
  position.SideToMove = Colour::Black;
  position.MoveNumber = 123;
  position.EnPassantSquares = {.White = Square("d6"), .Black = Square("e3")};
  EXPECT_EQ(PositionBoxText(position),
            u"Jug. Nº 123. Mueven Negras. \r\n"
            u" Enroques disponibles:\r\n"
            u"Blancas. Corto: Sí. Largo: No. \r\n"
            u"Negras. Corto: No.  Largo: Sí.\r\n"
            u" Opción de comer al paso\r\n"
            u"Blancas : D6Negras: E3");
}

TEST(PositionBox, FollowsADoubleStep) {
  ChessPosition alone = StartPosition();
  Make(alone, "e2e4");
  EXPECT_TRUE(PositionBoxText(alone).ends_with(u"\r\nBlancas : No.Negras: No."));
  ChessPosition beside = StartPosition();
  beside.Board.Put(Square("d4"), PieceOf(kPawn, Colour::Black));
  Make(beside, "e2e4");
  EXPECT_TRUE(PositionBoxText(beside).ends_with(u"\r\nBlancas : No.Negras: E3"));
}

TEST(PositionBox, NamesASquareThatALineHasSetBesideTheBoard) {
  ChessPosition position = StartPosition();
  position.EnPassantSquares.White = Coordinate{0, 6};
  EXPECT_TRUE(PositionBoxText(position).ends_with(u"Blancas : @6Negras: No."));
}

}  // namespace
}  // namespace brontavia::test
