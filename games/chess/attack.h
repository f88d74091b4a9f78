// Whether a square is attacked, by the rules of this program: a white pawn never attacks.
#pragma once

#include <optional>

#include "games/chess/chess_position.h"

namespace brontavia {

// Whether the side opposed to `colour` attacks `square`. Without a colour that of the piece on it counts; an empty
// square is then attacked by nobody. A piece on `lifted`, a square of the board, is taken for absent.
//
// The opponent's pieces are asked one after the other, column by column from a, each from row 1 up. A piece that can
// go to the square attacks it, castling aside; but a white pawn that can, or a black pawn in the square's own column,
// says that it is not attacked, whatever an earlier piece has said.
bool IsSquareAttacked(const ChessPosition& position, Coordinate square, std::optional<Colour> colour,
                      std::optional<Coordinate> lifted = std::nullopt);

// Whether the king of `colour` is attacked where KingSquares has it; false when it has none.
inline bool IsKingAttacked(const ChessPosition& position, Colour colour) {
  const std::optional<Coordinate>& king = position.KingSquares[colour];
  return king && IsSquareAttacked(position, *king, colour);
}

}  // namespace brontavia
