// What differs between the two strategy games in their rules: one constant struct each.
#pragma once

#include <array>
#include <span>

#include "games/coordinate.h"
#include "games/strategy/rank.h"

namespace brontavia {

// How many pieces of each rank.
class RankCounts {
 public:
  constexpr RankCounts() = default;
  // From the flag on.
  explicit constexpr RankCounts(const std::array<int, kRanks>& counts) : counts_(counts) {}

  constexpr int& operator[](Rank rank) { return counts_.at(Position(rank)); }
  constexpr int operator[](Rank rank) const { return counts_.at(Position(rank)); }

 private:
  static constexpr std::size_t Position(Rank rank) { return static_cast<std::size_t>(rank) - 1; }

  std::array<int, kRanks> counts_{};
};

struct StrategyVariant {
  int Columns;
  int Rows;
  int ZoneRows;  // the own zone: rows 1..ZoneRows
  std::span<const Coordinate> Water;
  RankCounts ArmyCounts;  // of a full army

  // Pieces in an army, which are as many as the own zone has cells.
  [[nodiscard]] constexpr int ArmySize() const { return Columns * ZoneRows; }
  // The lowest row of the opponent's zone.
  [[nodiscard]] constexpr int EnemyZoneRow() const { return Rows - ZoneRows + 1; }
  // The same cell as the opponent sees it: the board turned by 180 degrees.
  [[nodiscard]] constexpr Coordinate Mirrored(Coordinate cell) const {
    return {.Column = Columns + 1 - cell.Column, .Row = Rows + 1 - cell.Row};
  }
};

extern const StrategyVariant kEstratega;
extern const StrategyVariant kMiniEstratega;

}  // namespace brontavia
