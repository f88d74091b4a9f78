// Placing the own army before the fight.
#pragma once

#include <functional>

#include "games/strategy/strategy_board.h"

namespace brontavia {

class Army {
 public:
  // The board outlives the army. Reset comes before anything else.
  explicit Army(StrategyBoard& board) : board_(board) {}

  // Clears the whole board; every piece of `side` is to be placed.
  void Reset(Player side);

  // Whether the cell lies in the own zone.
  [[nodiscard]] bool MayStandOn(Coordinate cell) const;
  // Puts a piece of `rank` on `cell`. False, and nothing changes, when the cell is outside the zone or taken or when no
  // piece of that rank is left.
  bool Place(Coordinate cell, Rank rank);
  // Takes the own piece on `cell` off the board; nothing happens where none is. It can be placed again, unless it is a
  // revealed bomb. Throws std::out_of_range for a cell outside the board.
  void TakeBack(Coordinate cell);
  // Discards what has been placed and puts every piece on a cell drawn for it. `below(n)` returns a random 0..n - 1.
  void DeployAtRandom(const std::function<int(int)>& below);

  // Pieces of `rank` that are still to be placed.
  [[nodiscard]] int RanksToPlace(Rank rank) const { return ranks_to_place_[rank]; }
  [[nodiscard]] int PiecesToPlace() const { return pieces_to_place_; }

 private:
  [[nodiscard]] const StrategyVariant& Variant() const { return board_.Variant(); }

  StrategyBoard& board_;
  Player side_ = Player::Server;
  RankCounts ranks_to_place_;
  int pieces_to_place_ = 0;
};

}  // namespace brontavia
