// How far pieces move.
#pragma once

#include <optional>

#include "games/strategy/strategy_board.h"

namespace brontavia {

enum class MoveRange {
  Valid,
  Diagonal,  // a scout moves in a straight line
  Blocked,   // a scout finds something on its way
  TooFar     // every other piece moves one cell, not diagonally
};

// Whether a piece of `rank` may go from `from` to `to`, whatever stands there. Both lie on the board.
MoveRange CheckMoveRange(const StrategyBoard& board, Rank rank, Coordinate from, Coordinate to);

// The first piece of `side`, by columns and within a column by rows, that is movable and has land without an own piece
// beside it.
std::optional<Coordinate> FindMovablePiece(const StrategyBoard& board, Player side);

}  // namespace brontavia
