// Where a piece may go by the way it moves and captures, castling aside.
#pragma once

#include "games/chess/chess_position.h"
#include "games/chess/target_list.h"

namespace brontavia {

// The piece picked up and the square it stands on; kNoPiece when nothing is picked up.
struct ChessSelection {
  Coordinate Source;
  int Piece = kNoPiece;
  friend bool operator==(const ChessSelection&, const ChessSelection&) = default;
};

// What `selection` may reach, its king left in check or not. Its source must be on the board; nothing is reached
// without a piece.
TargetList PieceSteps(const ChessPosition& position, const ChessSelection& selection);

// Whether PieceSteps has `square`, found without the others.
bool CanStepTo(const ChessPosition& position, const ChessSelection& selection, Coordinate square);

}  // namespace brontavia
