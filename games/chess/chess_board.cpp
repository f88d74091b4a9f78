#include "games/chess/chess_board.h"

namespace brontavia {

void ChessBoard::Put(Coordinate square, int piece) {
  if (!IsOnBoard(square)) throw std::out_of_range("no square of the chess board");
  pieces_[IndexOf(square)] = static_cast<std::int16_t>(piece);
}

ChessBoard StartBoard() {
  constexpr std::array kPieces{kRook, kKnight, kBishop, kQueen, kKing, kBishop, kKnight, kRook};
  ChessBoard board;
  for (int column = 1; column <= kBoardSide; ++column) {
    for (const Colour colour : kBothColours) {
      const int back = BackRow(colour);
      const int front = back + ForwardStep(colour);
      const int kind = kPieces.at(static_cast<std::size_t>(column) - 1);
      board.Put({.Column = column, .Row = back}, PieceOf(kind, colour));
      board.Put({.Column = column, .Row = front}, PieceOf(kPawn, colour));
    }
  }
  return board;
}

}  // namespace brontavia
