// What holds of every position, wherever it comes from.
#pragma once

#include "fuzz/require.h"
#include "games/chess/chess_position.h"

namespace brontavia::fuzz {

inline void CheckPosition(const ChessPosition& position) {
  for (Coordinate square{.Column = 1, .Row = 1}; square.Row <= kBoardSide; ++square.Row) {
    for (square.Column = 1; square.Column <= kBoardSide; ++square.Column) {
      const int piece = position.Board.At(square);
      const int kind = KindOf(piece);
      Require(piece == kNoPiece || (kind >= kPawn && kind <= kKing && piece <= kHighestPiece),
              "a square holds a piece");
    }
  }
  Require(NumberOf(position.SideToMove) <= 1, "there are two sides");
  Require(position.HalfMoveClock >= 0 && position.MoveNumber >= 0, "counters are never negative");
  for (const Colour colour : kBothColours) {
    const auto& king = position.KingSquares[colour];
    Require(!king || ChessBoard::IsOnBoard(*king), "a king is on the board");
    // A line may name a square beside the board; it is never looked for further off than the ring around it.
    const auto& passed = position.EnPassantSquares[colour];
    Require(!passed || (passed->Column >= 0 && passed->Column <= kBoardSide + 1 && passed->Row >= 1 &&
                        passed->Row <= kBoardSide),
            "an en passant square is on the board or beside it");
  }
}

}  // namespace brontavia::fuzz
