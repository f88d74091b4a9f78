// Rules and board of three in a row with a moving phase: each player places three pieces, then moves them. Knows
// nothing of turns, texts or the network; one instance is the board of one copy.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "net/player.h"

namespace brontavia {

inline constexpr int kTerSide = 3;
inline constexpr int kTerCells = kTerSide * kTerSide;
inline constexpr int kNoCell = -1;

// Cells are numbered 0..8, row by row: row x 3 + column.
struct TerMove {
  int Lifted = kNoCell;  // kNoCell while placing
  int Target = 0;
  friend bool operator==(const TerMove&, const TerMove&) = default;
};

// The fields of a move as text: lifted + "|" + target, in decimal.
std::u16string TerMoveText(TerMove move);
// Nothing when the "|" is missing or a cell lies outside the board. A negative lifted cell is kNoCell; a field that is
// no number reads as 0.
std::optional<TerMove> ReadTerMove(std::u16string_view payload);

enum class TerClick {
  NotEmpty,     // refused: placing needs an empty cell
  NotOwnPiece,  // refused: lifting needs an own piece
  Lifted,       // the own piece is off the board
  PutBack,      // the lifted piece is back on its cell; a piece must be lifted again
  Moved         // a whole move: Move() tells it
};

class ThreeInRowBoard {
 public:
  static constexpr char16_t kEmpty = u'*';
  static constexpr PerPlayer<char16_t> PlayerSymbols{u'X', u'O'};

  // Everything back to the start of a game.
  void Reset() { *this = ThreeInRowBoard(); }

  // `player`, who is to move, clicks `cell` (0..8).
  TerClick Click(Player player, int cell);
  // The move that the last click completed.
  [[nodiscard]] TerMove Move() const { return move_; }
  // After a completed move that has not won: makes ready for what comes next.
  void EndMove(Player player);

  // Puts the move of `mover` on the board without judging it. The cells must lie on the board.
  void Apply(Player mover, TerMove move);
  // The opponent has moved: whether `player` now places or lifts depends on what is placed already.
  void BeginMove(Player player);

  // The cells of a line of three equal pieces, in ascending order; the first of the eight lines that is one.
  [[nodiscard]] std::optional<std::array<int, 3>> Line() const;
  [[nodiscard]] bool HasLine() const { return Line().has_value(); }

  [[nodiscard]] char16_t At(int cell) const { return cells_.at(static_cast<std::size_t>(cell)); }
  [[nodiscard]] bool PlacingPhase() const { return placing_phase_; }
  [[nodiscard]] int PosQuitada() const { return pos_quitada_; }
  [[nodiscard]] int PiecesPlaced(Player player) const { return pieces_placed_[player]; }

 private:
  char16_t& Cell(int cell) { return cells_.at(static_cast<std::size_t>(cell)); }

  std::array<char16_t, kTerCells> cells_{kEmpty, kEmpty, kEmpty, kEmpty, kEmpty, kEmpty, kEmpty, kEmpty, kEmpty};
  PerPlayer<std::int16_t> pieces_placed_;  // own side only: the opponent's placements are not counted here
  bool placing_phase_ = true;
  int pos_quitada_ = kNoCell;  // the cell that the mover has lifted a piece from in this move
  TerMove move_;
};

}  // namespace brontavia
