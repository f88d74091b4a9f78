#include "games/chess/chess_position.h"

namespace brontavia {

ChessPosition StartPosition() {
  ChessPosition position{.Board = StartBoard()};
  position.KingSquares = FindKings(position.Board);
  return position;
}

PerColour<Coordinate> FindKings(const ChessBoard& board) {
  PerColour<Coordinate> kings;
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      const Coordinate square{.Column = column, .Row = row};
      if (KindOf(board.At(square)) != kKing) continue;
      Coordinate& king = kings[board.ColourAt(square)];
      if (king == Coordinate{}) king = square;
    }
  }
  return kings;
}

}  // namespace brontavia
