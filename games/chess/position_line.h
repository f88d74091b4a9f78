// A position as one line of text, as it stands in a position file and travels to the other copy.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "games/chess/chess_position.h"

namespace brontavia {

// `position` as a line with the Spanish letters of the pieces, without a line break:
// "tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/N RDrd e6 0 1". En passant stands there as FenEnPassant has it.
std::u16string PositionLine(const ChessPosition& position);

// The position that `line` tells, with the kings where the board has them. It is read with the English letters when a
// "K" stands anywhere in it, otherwise with the Spanish ones. What the line does not mention stays as in `before`:
// squares that a short row leaves out, en passant squares that the line neither sets nor clears with "-".
//
// Fields that are missing count as empty, and an empty en passant field as "-". A line whose board does not end with
// its eighth "/" is read by ReadStandardFen; nothing comes back when that refuses it too.
std::optional<ChessPosition> ReadPosition(std::u16string_view line, const ChessPosition& before);

}  // namespace brontavia
