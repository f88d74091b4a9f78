#include "games/strategy/army.h"

namespace brontavia {

void Army::Reset(Player side) {
  side_ = side;
  board_.Clear();
  ranks_to_place_ = Variant().ArmyCounts;
  pieces_to_place_ = Variant().ArmySize();
}

bool Army::MayStandOn(Coordinate cell) const { return board_.Holds(cell) && cell.Row <= Variant().ZoneRows; }

bool Army::Place(Coordinate cell, int rank) {
  if (!MayStandOn(cell) || IsPiece(board_.At(cell)) || RanksToPlace(rank) < 1) return false;
  board_.Set(cell, PieceCode(side_, rank));
  --ranks_to_place_.at(static_cast<std::size_t>(rank));
  --pieces_to_place_;
  return true;
}

void Army::TakeBack(Coordinate cell) {
  ++ranks_to_place_.at(static_cast<std::size_t>(RankOf(board_.At(cell))));
  ++pieces_to_place_;
  board_.Set(cell, kEmptyLand);
}

void Army::DeployAtRandom(const std::function<int(int)>& below) {
  for (int row = 1; row <= Variant().ZoneRows; ++row) {
    for (int column = 1; column <= Variant().Columns; ++column) {
      board_.Set({.Column = column, .Row = row}, kEmptyLand);
    }
  }
  for (int rank = 1; rank <= kRanks; ++rank) {
    for (int piece = 0; piece < Variant().ArmyCounts.at(static_cast<std::size_t>(rank)); ++piece) {
      Coordinate cell;
      do {
        cell.Column = 1 + below(Variant().Columns);
        cell.Row = 1 + below(Variant().ZoneRows);
      } while (board_.At(cell) != kEmptyLand);
      board_.Set(cell, PieceCode(side_, rank));
    }
  }
  ranks_to_place_ = {};
  pieces_to_place_ = 0;
}

}  // namespace brontavia
