#include "games/strategy/army.h"

namespace brontavia {

void Army::Reset(Player side) {
  side_ = side;
  board_.Clear();
  ranks_to_place_ = Variant().ArmyCounts;
  pieces_to_place_ = Variant().ArmySize();
}

bool Army::MayStandOn(Coordinate cell) const { return board_.Holds(cell) && cell.Row <= Variant().ZoneRows; }

bool Army::Place(Coordinate cell, Rank rank) {
  if (!MayStandOn(cell) || board_.PieceAt(cell) || RanksToPlace(rank) < 1) return false;
  board_.Set(cell, CodeOf({.Side = side_, .Rank = rank}));
  --ranks_to_place_[rank];
  --pieces_to_place_;
  return true;
}

void Army::TakeBack(Coordinate cell) {
  const auto piece = board_.PieceAt(cell);
  if (!piece || piece->Side != side_) return;
  ++ranks_to_place_[piece->Rank];
  ++pieces_to_place_;
  board_.Set(cell, kEmptyLand);
}

void Army::DeployAtRandom(const std::function<int(int)>& below) {
  for (int row = 1; row <= Variant().ZoneRows; ++row) {
    for (int column = 1; column <= Variant().Columns; ++column) {
      board_.Set({.Column = column, .Row = row}, kEmptyLand);
    }
  }
  for (const Rank rank : kArmyRanks) {
    for (int piece = 0; piece < Variant().ArmyCounts[rank]; ++piece) {
      Coordinate cell;
      do {
        cell.Column = 1 + below(Variant().Columns);
        cell.Row = 1 + below(Variant().ZoneRows);
      } while (board_.At(cell) != kEmptyLand);
      board_.Set(cell, CodeOf({.Side = side_, .Rank = rank}));
    }
  }
  ranks_to_place_ = {};
  pieces_to_place_ = 0;
}

}  // namespace brontavia
