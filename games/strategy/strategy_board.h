// The board of a strategy game as one copy holds it: the own army at the bottom, the opponent's, whose ranks are known
// but not shown, at the top. The other copy's board is the same turned by 180 degrees.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "games/strategy/variant.h"

namespace brontavia {

class StrategyBoard {
 public:
  // No piece on it. The variant outlives the board.
  explicit StrategyBoard(const StrategyVariant& variant);

  [[nodiscard]] const StrategyVariant& Variant() const { return variant_; }
  // Whether the board has a cell there: columns 1..Columns from the left, rows 1..Rows from the bottom.
  [[nodiscard]] bool Holds(Coordinate cell) const;

  // The cell must lie on the board; these throw std::out_of_range otherwise.
  [[nodiscard]] CellCode At(Coordinate cell) const { return cells_.at(Position(cell)); }
  [[nodiscard]] std::optional<Piece> PieceAt(Coordinate cell) const { return PieceOf(At(cell)); }
  void Set(Coordinate cell, CellCode code) { cells_.at(Position(cell)) = code; }

  // Land and water without a piece.
  void Clear();

  // The own army as it travels: a field for each cell of the own zone, its code with three digits at least and ",".
  // Rows from the innermost of the zone down to row 1, each from its rightmost column to A, so that the opponent fills
  // his view of it from left to right and from bottom to top.
  [[nodiscard]] std::u16string ArmyText() const;
  // Unpacks the army of the other `side` into the top rows: a field for every four characters of `data`. A
  // field that is none of that side's pieces, or a revealed bomb, is empty land, unless it tells what stands on the
  // cell already: from the second game on a piece may have come there before the army is complete. Fields beyond the
  // board are left out.
  void TakeArmy(std::u16string_view data, Player side);

 private:
  [[nodiscard]] std::size_t Position(Coordinate cell) const;

  const StrategyVariant& variant_;
  std::vector<CellCode> cells_;  // (column - 1) + (row - 1) x Columns
};

}  // namespace brontavia
