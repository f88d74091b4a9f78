// Whether a square is attacked, by the rules of this program: a white pawn never attacks.
#pragma once

#include <optional>

#include "games/chess/chess_position.h"

namespace brontavia {

// Whether the side opposed to `colour` attacks `square`. kNoColour stands for the colour of the piece on it; an empty
// square is then attacked by nobody. A piece on `lifted`, a square of the board, is taken for absent. (0, 0) is never
// attacked.
//
// The opponent's pieces are asked one after the other, column by column from a, each from row 1 up. A piece that can
// go to the square attacks it, castling aside; but a white pawn that can, or a black pawn in the square's own column,
// says that it is not attacked, whatever an earlier piece has said.
bool IsSquareAttacked(const ChessPosition& position, Coordinate square, int colour,
                      std::optional<Coordinate> lifted = std::nullopt);

// Whether the king of `colour` is attacked where KingSquares has it.
inline bool IsKingAttacked(const ChessPosition& position, int colour) {
  return IsSquareAttacked(position, position.KingSquares[colour], colour);
}

}  // namespace brontavia
