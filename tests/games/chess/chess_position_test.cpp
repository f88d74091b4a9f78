#include "games/chess/chess_position.h"

#include <gtest/gtest.h>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(ChessPosition, BeginsWithEverythingAllowedAndNothingCounted) {
  const ChessPosition position = StartPosition();
  EXPECT_EQ(position.Board, StartBoard());
  EXPECT_EQ(position.SideToMove, Colour::White);
  for (const Colour colour : kBothColours) {
    EXPECT_TRUE(position.Castling[colour].Short);
    EXPECT_TRUE(position.Castling[colour].Long);
    EXPECT_EQ(position.EnPassantSquares[colour], std::nullopt);
  }
  EXPECT_EQ(position.KingSquares.White, Square("e1"));
  EXPECT_EQ(position.KingSquares.Black, Square("e8"));
  EXPECT_EQ(position.FenEnPassant, std::nullopt);
  EXPECT_EQ(position.HalfMoveClock, 0);
  EXPECT_EQ(position.MoveNumber, 1);
}

TEST(Kings, AreFoundWhereverTheyStand) {
  const auto kings = FindKings(Placed("Kh8 Qa1 ka2 qh1").Board);
  EXPECT_EQ(kings.White, Square("h8"));
  EXPECT_EQ(kings.Black, Square("a2"));
}

TEST(Kings, AreNowhereWithoutOne) {
  const auto kings = FindKings(Placed("Qe1 ke8").Board);
  EXPECT_EQ(kings.White, std::nullopt);
  EXPECT_EQ(kings.Black, Square("e8"));
}

TEST(Kings, CountFromTheLeftmostColumnAndItsLowestRow) {
  EXPECT_EQ(FindKings(Placed("Kc8 Kd1 Kc5").Board).White, Square("c5"));
  EXPECT_EQ(FindKings(Placed("kc8 kd1 kc5").Board).Black, Square("c5"));
}

}  // namespace
}  // namespace brontavia::test
