// The messages of chess that have fields, each written and read side by side: what follows its token.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "games/chess/chess_move.h"
#include "net/player.h"

namespace brontavia {

// ---- A move ----

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

// ---- Who plays which side of a position that both have loaded ----

struct ResumedTurns {
  Player White = Player::Server;  // who plays it
  Colour SideToMove = Colour::White;
  Player ToMove = Player::Server;
  friend bool operator==(const ResumedTurns&, const ResumedTurns&) = default;
};

// "1 0 1": each player as 0 for the server and 1 for the client, the side as 0 for White and 1 for Black.
std::u16string TurnsText(const ResumedTurns& turns);

// The first three fields between blanks. Nothing when there are fewer or when one is neither 0 nor 1.
std::optional<ResumedTurns> ReadTurns(std::u16string_view payload);

}  // namespace brontavia
