// A move as it travels: what follows its token.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "games/chess/chess_move.h"

namespace brontavia {

// "5 2 5 4 False 0": column and row of source and target, whether it captured en passant, what a pawn became (0: no
// promotion).
std::u16string MoveText(const ChessMove& move);

struct ReceivedMove {
  Coordinate Source;
  Coordinate Target;
  friend bool operator==(const ReceivedMove&, const ReceivedMove&) = default;
};

// The first four fields between blanks; what follows them is not looked at. Nothing when there are fewer or when one of
// the squares is not on the board.
std::optional<ReceivedMove> ReadMove(std::u16string_view payload);

}  // namespace brontavia
