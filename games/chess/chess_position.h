// A position: the board and what the rules remember beside it.
#pragma once

#include <cstdint>
#include <optional>

#include "games/chess/chess_board.h"

namespace brontavia {

// Castling that is still allowed to a side: its king and that rook have not moved.
struct CastleRights {
  bool Short = true;
  bool Long = true;
  friend bool operator==(const CastleRights&, const CastleRights&) = default;
};

struct ChessPosition {
  ChessBoard Board;
  Colour SideToMove = Colour::White;
  PerColour<CastleRights> Castling;
  PerColour<std::optional<Coordinate>> KingSquares;
  PerColour<std::optional<Coordinate>> EnPassantSquares;  // onto which a pawn of that colour may capture
  // What a saved position tells of a double step, written and read by rules of its own.
  std::optional<Coordinate> FenEnPassant;
  std::int16_t HalfMoveClock = 0;  // half moves since the last pawn move or capture; stays at its highest value
  std::int16_t MoveNumber = 1;     // full moves; stays at its highest value

  friend bool operator==(const ChessPosition&, const ChessPosition&) = default;
};

// As a game begins.
ChessPosition StartPosition();

// The kings as they stand on `board`. Of several kings of one colour the first one counts, column by column from a,
// each from row 1 up.
PerColour<std::optional<Coordinate>> FindKings(const ChessBoard& board);

}  // namespace brontavia
