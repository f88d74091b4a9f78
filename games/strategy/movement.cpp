#include "games/strategy/movement.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace brontavia {
namespace {

constexpr std::array<Coordinate, 4> kNeighbours{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};

constexpr int SignOf(int value) {
  if (value == 0) return 0;
  return value > 0 ? 1 : -1;
}

Coordinate Moved(Coordinate cell, Coordinate by) {
  return {.Column = cell.Column + by.Column, .Row = cell.Row + by.Row};
}

bool CanMove(const StrategyBoard& board, Player side, Coordinate cell) {
  const auto piece = board.PieceAt(cell);
  if (!piece || piece->Side != side || !IsMovable(piece->Rank)) return false;
  return std::ranges::any_of(kNeighbours, [&](Coordinate step) {
    const Coordinate neighbour = Moved(cell, step);
    if (!board.Holds(neighbour)) return false;
    const CellCode there = board.At(neighbour);
    return there != kWaterCell && !IsPieceOf(side, there);
  });
}

}  // namespace

MoveRange CheckMoveRange(const StrategyBoard& board, Rank rank, Coordinate from, Coordinate to) {
  const Coordinate distance{.Column = to.Column - from.Column, .Row = to.Row - from.Row};
  if (rank != Rank::Scout) {
    return std::abs(distance.Column) + std::abs(distance.Row) < 2 ? MoveRange::Valid : MoveRange::TooFar;
  }
  if (distance.Column != 0 && distance.Row != 0) return MoveRange::Diagonal;
  if (from == to) return MoveRange::Valid;
  const Coordinate step{.Column = SignOf(distance.Column), .Row = SignOf(distance.Row)};
  for (Coordinate cell = Moved(from, step); cell != to; cell = Moved(cell, step)) {
    if (board.At(cell) != kEmptyLand) return MoveRange::Blocked;
  }
  return MoveRange::Valid;
}

std::optional<Coordinate> FindMovablePiece(const StrategyBoard& board, Player side) {
  for (int column = 1; column <= board.Variant().Columns; ++column) {
    for (int row = 1; row <= board.Variant().Rows; ++row) {
      const Coordinate cell{.Column = column, .Row = row};
      if (CanMove(board, side, cell)) return cell;
    }
  }
  return std::nullopt;
}

}  // namespace brontavia
