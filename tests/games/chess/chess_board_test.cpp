#include "games/chess/chess_board.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace brontavia::test {
namespace {

constexpr int kFar = std::numeric_limits<int>::max();
constexpr int kFarBelow = std::numeric_limits<int>::min();
constexpr Coordinate kBeyond[] = {{-1, 4}, {10, 4},   {4, -1},   {4, 10},       {10, 0},
                                  {0, 10}, {kFar, 1}, {1, kFar}, {kFarBelow, 1}};

TEST(ChessBoard, HasEightColumnsAndEightRows) {
  for (int column = -2; column <= 11; ++column) {
    for (int row = -2; row <= 11; ++row) {
      const bool inside = column > 0 && column < 9 && row > 0 && row < 9;
      EXPECT_EQ(ChessBoard::IsOnBoard({column, row}), inside) << column << ", " << row;
    }
  }
}

TEST(ChessBoard, ReadsTheRingAsEmpty) {
  const ChessBoard board = StartBoard();
  for (int n = 0; n <= 9; ++n) {
    for (const Coordinate square : {Coordinate{0, n}, Coordinate{9, n}, Coordinate{n, 0}, Coordinate{n, 9}}) {
      EXPECT_EQ(board.At(square), kNoPiece) << square.Column << ", " << square.Row;
      EXPECT_EQ(board.ColourAt(square), std::nullopt) << square.Column << ", " << square.Row;
    }
  }
}

TEST(ChessBoard, ThrowsBeyondTheRing) {
  const ChessBoard board;
  for (const Coordinate square : kBeyond) {
    EXPECT_THROW((void)board.At(square), std::out_of_range) << square.Column << ", " << square.Row;
    EXPECT_THROW((void)board.ColourAt(square), std::out_of_range) << square.Column << ", " << square.Row;
  }
}

TEST(ChessBoard, TakesNoPieceOffTheBoard) {
  ChessBoard board = StartBoard();
  for (const Coordinate square : kBeyond) {
    EXPECT_THROW(board.Put(square, kQueen), std::out_of_range) << square.Column << ", " << square.Row;
  }
  for (const Coordinate square :
       {Coordinate{0, 0}, Coordinate{0, 4}, Coordinate{9, 4}, Coordinate{4, 0}, Coordinate{4, 9}}) {
    EXPECT_THROW(board.Put(square, kQueen), std::out_of_range) << square.Column << ", " << square.Row;
  }
  EXPECT_EQ(board, StartBoard());
}

TEST(ChessBoard, KeepsEachPieceOnItsSquareAlone) {
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      ChessBoard board;
      board.Put({column, row}, PieceOf(kKnight, Colour::Black));
      for (int x = 1; x <= kBoardSide; ++x) {
        for (int y = 1; y <= kBoardSide; ++y) {
          EXPECT_EQ(board.At({x, y}), x == column && y == row ? 13 : 0) << x << ", " << y;
        }
      }
    }
  }
}

TEST(ChessBoard, TellsTheColourOfAPiece) {
  ChessBoard board;
  EXPECT_EQ(board.ColourAt({3, 3}), std::nullopt);
  board.Put({3, 3}, PieceOf(kKing, Colour::White));
  EXPECT_EQ(board.ColourAt({3, 3}), Colour::White);
  board.Put({3, 3}, PieceOf(kPawn, Colour::Black));
  EXPECT_EQ(board.ColourAt({3, 3}), Colour::Black);
}

TEST(ChessBoard, BeginsWithWhiteOnTheFirstRows) {
  constexpr int kBack[] = {2, 3, 4, 5, 6, 4, 3, 2};
  const ChessBoard board = StartBoard();
  for (int column = 1; column <= kBoardSide; ++column) {
    SCOPED_TRACE(column);
    EXPECT_EQ(board.At({column, 1}), kBack[column - 1]);
    EXPECT_EQ(board.At({column, 2}), 1);
    for (int row = 3; row <= 6; ++row) EXPECT_EQ(board.At({column, row}), 0);
    EXPECT_EQ(board.At({column, 7}), 11);
    EXPECT_EQ(board.At({column, 8}), kBack[column - 1] + 10);
  }
}

TEST(ChessGrid, HasRowEightOnTop) {
  EXPECT_EQ(ThroughGrid({1, 1}, false), (Coordinate{1, 8}));
  EXPECT_EQ(ThroughGrid({5, 2}, false), (Coordinate{5, 7}));
  EXPECT_EQ(ThroughGrid({8, 8}, false), (Coordinate{8, 1}));
}

TEST(ChessGrid, IsTurnedHalfRoundWhenFlipped) {
  EXPECT_EQ(ThroughGrid({1, 1}, true), (Coordinate{8, 1}));
  EXPECT_EQ(ThroughGrid({5, 2}, true), (Coordinate{4, 2}));
  EXPECT_EQ(ThroughGrid({8, 8}, true), (Coordinate{1, 8}));
}

TEST(ChessGrid, LeadsBackFromEveryCell) {
  for (const bool flipped : {false, true}) {
    for (int column = 1; column <= kBoardSide; ++column) {
      for (int row = 1; row <= kBoardSide; ++row) {
        EXPECT_EQ(ThroughGrid(ThroughGrid({column, row}, flipped), flipped), (Coordinate{column, row}));
      }
    }
  }
}

}  // namespace
}  // namespace brontavia::test
