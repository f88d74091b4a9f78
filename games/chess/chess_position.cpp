#include "games/chess/chess_position.h"

namespace brontavia {

ChessPosition StartPosition() {
  ChessPosition position{.Board = StartBoard()};
  position.KingSquares = FindKings(position.Board);
  return position;
}

PerColour<std::optional<Coordinate>> FindKings(const ChessBoard& board) {
  PerColour<std::optional<Coordinate>> kings;
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      const Coordinate square{.Column = column, .Row = row};
      const int piece = board.At(square);
      if (KindOf(piece) != kKing) continue;
      std::optional<Coordinate>& king = kings[ColourOf(piece)];
      if (!king) king = square;
    }
  }
  return kings;
}

}  // namespace brontavia
