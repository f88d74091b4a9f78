// Positions as other chess programs write them.
#pragma once

#include <optional>
#include <string_view>

#include "games/chess/chess_position.h"

namespace brontavia {

// The position that `text` tells in standard Forsyth-Edwards notation, outer blanks aside: board, side, castling, en
// passant and both counters, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1". An en passant square counts
// only where a pawn that has just passed it stands beside one that may capture it. Nothing when a field is missing or
// malformed or a counter is no 16-bit number.
std::optional<ChessPosition> ReadStandardFen(std::u16string_view text);

}  // namespace brontavia
