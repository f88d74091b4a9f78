// How texts name a square and what stands on it.
#pragma once

#include <string>

#include "games/chess/chess_board.h"
#include "games/chess/target_list.h"

namespace brontavia {

// "e2". A column beyond the board gets the character that many places before or after the letters.
std::u16string SquareName(Coordinate square);
// "E2", likewise.
std::u16string UpperSquareName(Coordinate square);

// What stands on `square` of the board and where that is: "Torre blanca A1", " E4". In `learning_mode` a square of
// `targets` begins with "Disponible ".
std::u16string DescribeSquare(const ChessBoard& board, Coordinate square, const TargetList& targets,
                              bool learning_mode);

}  // namespace brontavia
