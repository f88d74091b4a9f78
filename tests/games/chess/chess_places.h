// Positions of chess as tests write them down, and as they show them when they fail.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "games/chess/chess_move.h"

namespace brontavia {

void PrintTo(const Coordinate& square, std::ostream* out);
void PrintTo(const ChessPosition& position, std::ostream* out);

namespace test {

// The square that is called `name`, "e4".
Coordinate Square(std::string_view name);

// White to move, nothing remembered, castling as in `castling` ("KQkq", ...) and `pieces`, each by its English letter,
// capital for White, and its square: "Ke1 Rh1 pd4".
ChessPosition Placed(std::string_view pieces, std::string_view castling = "");

// The piece on the square called `source`, picked up.
ChessSelection Pick(const ChessPosition& position, std::string_view source);

// The names of the squares that the piece on `source` may go to, sorted, with blanks between.
std::string TargetsFrom(const ChessPosition& position, std::string_view source);

// Plays the move "e2e4", which must be one of the piece's targets and leave its king unattacked. A fifth letter of
// "rnbq" chooses what a pawn becomes. The turn does not pass.
ChessMove Make(ChessPosition& position, std::string_view move);
// The same, and the turn passes.
ChessMove Play(ChessPosition& position, std::string_view move);

// One byte a character; "?" for what is no Latin letter.
std::string Narrow(std::u16string_view text);

}  // namespace test
}  // namespace brontavia
