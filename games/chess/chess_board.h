// The 64 squares of a chess board with a ring of empty ones around them, so that a look one step off the board finds
// nothing there instead of failing.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include "games/chess/chess_piece.h"
#include "games/coordinate.h"

namespace brontavia {

inline constexpr int kBoardSide = 8;
// The row on which the pieces of each colour begin.
constexpr int BackRow(Colour colour) { return colour == Colour::White ? 1 : kBoardSide; }
// The rows that a pawn of `colour` advances in a step.
constexpr int ForwardStep(Colour colour) { return colour == Colour::White ? 1 : -1; }

// Squares are columns 1..8 (files a to h) and rows 1..8 (from White's side); 0 and 9 are the ring.
class ChessBoard {
 public:
  // Throws std::out_of_range beyond the ring. The ring holds kNoPiece.
  [[nodiscard]] int At(Coordinate square) const { return pieces_[IndexOf(square)]; }
  // Nothing on the ring and where no piece stands; throws like At.
  [[nodiscard]] std::optional<Colour> ColourAt(Coordinate square) const {
    const int piece = At(square);
    return piece == kNoPiece ? std::nullopt : std::optional(ColourOf(piece));
  }
  // Puts `piece` (kNoPiece empties the square). Throws std::out_of_range off the board; nothing changes then.
  void Put(Coordinate square, int piece);

  // The ring is not on the board.
  static bool IsOnBoard(Coordinate square) {
    return square.Column >= 1 && square.Column <= kBoardSide && square.Row >= 1 && square.Row <= kBoardSide;
  }

  friend bool operator==(const ChessBoard&, const ChessBoard&) = default;

 private:
  static constexpr int kWidth = kBoardSide + 2;

  static std::size_t IndexOf(Coordinate square) {
    const auto column = static_cast<unsigned>(square.Column);  // a negative one is far beyond the ring
    const auto row = static_cast<unsigned>(square.Row);
    if (column >= kWidth || row >= kWidth) throw std::out_of_range("square beyond the chess board");
    return column + row * kWidth;
  }

  std::array<std::int16_t, static_cast<std::size_t>(kWidth) * kWidth> pieces_{};
};

// The pieces of both sides as a game begins.
ChessBoard StartBoard();

// The cell (column, row) of the grid that shows a square, and the square that a cell shows: one rule serves both ways.
// Row 8 is on top of the grid; `flipped`, row 1 is, and file h on the left.
inline Coordinate ThroughGrid(Coordinate place, bool flipped) {
  return flipped ? Coordinate{.Column = kBoardSide + 1 - place.Column, .Row = place.Row}
                 : Coordinate{.Column = place.Column, .Row = kBoardSide + 1 - place.Row};
}

}  // namespace brontavia
