// The text of the position box: turn, castling and en passant.
#pragma once

#include <string>

#include "games/chess/chess_position.h"

namespace brontavia {

// Five lines.
std::u16string PositionBoxText(const ChessPosition& position);

}  // namespace brontavia
