#include "games/naval/naval_board.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace brontavia {
namespace {

// The cells on the grid around a ship, its own among them.
std::vector<Coordinate> CellsAround(const ShipRecord& ship) {
  const Coordinate start{.Column = std::max(ship.Start.Column - 1, 1), .Row = std::max(ship.Start.Row - 1, 1)};
  const Coordinate end{.Column = std::min(ship.End.Column + 1, kSeaSide), .Row = std::min(ship.End.Row + 1, kSeaSide)};
  return CellsBetween(start, end);
}

}  // namespace

std::vector<Coordinate> CellsBetween(Coordinate start, Coordinate end) {
  std::vector<Coordinate> cells;
  for (int column = start.Column; column <= end.Column; ++column) {
    for (int row = start.Row; row <= end.Row; ++row) cells.push_back({.Column = column, .Row = row});
  }
  return cells;
}

const std::int16_t& NavalBoard::At(const Sea& sea, Coordinate cell) {
  if (!IsOnGrid(cell)) throw std::out_of_range("cell outside the sea");
  return sea.at(static_cast<std::size_t>(cell.Column)).at(static_cast<std::size_t>(cell.Row));
}

std::int16_t& NavalBoard::At(Sea& sea, Coordinate cell) {
  return const_cast<std::int16_t&>(At(std::as_const(sea), cell));  // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

void NavalBoard::InitFleet() {
  fleet_ = NewFleetTable();
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    size_table_.at(static_cast<std::size_t>(number)) = {.Length = Ship(number).Length, .Taken = false};
  }
  own_board_ = enemy_board_ = shot_board_ = {};
  pending_start_.reset();
  ships_to_place_ = enemy_ships_afloat_ = kShipsPerFleet;
}

// ---- Placing ----

PlacementOutcome NavalBoard::ClickToPlace(Coordinate cell) {
  const int code = OwnBoard(cell);
  if (code == kWaterMargin) return {.Step = PlacementStep::OnMargin};
  if (code != 0) return {.Step = PlacementStep::OnShip, .Ship = code};
  if (!pending_start_) {
    pending_start_ = cell;
    return {.Step = PlacementStep::StartFixed};
  }
  const Coordinate start = *pending_start_;
  if (cell == start) {
    pending_start_.reset();
    return {.Step = PlacementStep::StartErased};
  }
  const int columns = std::abs(cell.Column - start.Column);
  const int rows = std::abs(cell.Row - start.Row);
  if (columns != 0 && rows != 0) return {.Step = PlacementStep::Diagonal};
  const int length = columns + rows + 1;
  if (length > kLongestShip) return {.Step = PlacementStep::TooLong};
  if (!CellsAreFree(start, cell)) return {.Step = PlacementStep::Blocked};
  const auto number = FreeShipOfLength(length);
  if (!number) return {.Step = PlacementStep::NoSuchShip};
  return Place(*number, start, cell);
}

std::optional<int> NavalBoard::FreeShipOfLength(int length) const {
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const ShipSize& size = size_table_.at(static_cast<std::size_t>(number));
    if (size.Length == length && !size.Taken) return number;
  }
  return std::nullopt;
}

PlacementOutcome NavalBoard::Place(int number, Coordinate start, Coordinate end) {
  PlacementOutcome outcome{.Step = PlacementStep::Placed, .Ship = number};
  size_table_.at(static_cast<std::size_t>(number)).Taken = true;
  ShipRecord& ship = fleet_.at(static_cast<std::size_t>(number));
  ship.Start = {.Column = std::min(start.Column, end.Column), .Row = std::min(start.Row, end.Row)};
  ship.End = {.Column = std::max(start.Column, end.Column), .Row = std::max(start.Row, end.Row)};
  ship.Placed = true;
  outcome.ShipCells = CellsBetween(ship.Start, ship.End);
  for (const Coordinate cell : outcome.ShipCells) At(own_board_, cell) = static_cast<std::int16_t>(number);
  for (const Coordinate cell : CellsAround(ship)) {
    if (OwnBoard(cell) != 0) continue;
    At(own_board_, cell) = kWaterMargin;
    outcome.MarginCells.push_back(cell);
  }
  pending_start_.reset();
  --ships_to_place_;
  return outcome;
}

std::vector<Coordinate> NavalBoard::RemoveShip(int number) {
  if (number == 0) return {};
  ShipRecord& ship = fleet_.at(static_cast<std::size_t>(number));
  std::vector<Coordinate> freed = CellsBetween(ship.Start, ship.End);
  for (const Coordinate cell : freed) At(own_board_, cell) = 0;
  for (const Coordinate cell : CellsAround(ship)) {
    if (TouchesOtherShip(cell.Column, cell.Row) || OwnBoard(cell) == 0) continue;
    At(own_board_, cell) = 0;
    freed.push_back(cell);
  }
  ++ships_to_place_;
  ship.Placed = false;
  size_table_.at(static_cast<std::size_t>(number)).Taken = false;
  pending_start_.reset();
  ship.Start = ship.End = {};
  return freed;
}

bool NavalBoard::CellsAreFree(Coordinate start, Coordinate end) const {
  if (start.Column != end.Column && start.Row != end.Row) return true;
  const auto cells = CellsBetween({.Column = std::min(start.Column, end.Column), .Row = std::min(start.Row, end.Row)},
                                  {.Column = std::max(start.Column, end.Column), .Row = std::max(start.Row, end.Row)});
  return std::all_of(cells.begin(), cells.end(), [this](Coordinate cell) { return OwnBoard(cell) == 0; });
}

bool NavalBoard::TouchesOtherShip(int column, int row) const {
  for (int x = column - 1; x <= column + 1; ++x) {
    for (int y = row - 1; y <= row + 1; ++y) {
      if (!IsOnGrid(x, y)) continue;
      const int code = OwnBoard({.Column = x, .Row = y});
      if (code > 0 && code < kWaterMargin) return true;
    }
  }
  return false;
}

// ---- Firing ----

void NavalBoard::TakeEnemyFleet(const std::array<ShipRecord, kShipsPerFleet>& ships) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const auto number = static_cast<std::int16_t>(static_cast<int>(i) + 1 + kEnemyOffset);
    ShipRecord& ship = fleet_.at(static_cast<std::size_t>(number));
    ship.Start = ships.at(i).Start;
    ship.End = ships.at(i).End;
    for (const Coordinate cell : CellsBetween(ship.Start, ship.End)) At(enemy_board_, cell) = number;
  }
  enemy_ships_afloat_ = kShipsPerFleet;
}

ShotStep NavalBoard::HitSegment(ShipRecord& ship, int segment) {
  bool& intact = ship.Segments.at(static_cast<std::size_t>(segment) - 1);
  if (!intact) return ShotStep::HitBefore;
  intact = false;
  --ship.IntactCount;
  ship.State = ship.IntactCount < 1 ? ShipState::Hundido : ShipState::Tocado;
  return ship.IntactCount < 1 ? ShotStep::Sunk : ShotStep::Hit;
}

ShotOutcome NavalBoard::Fire(Coordinate cell) {
  const int number = EnemyBoard(cell);
  if (number == 0) {
    At(shot_board_, cell) = kWaterMargin;
    return {.Step = ShotStep::Water};
  }
  ShipRecord& ship = fleet_.at(static_cast<std::size_t>(number));
  ShotOutcome outcome{.Step = HitSegment(ship, ship.SegmentOn(cell)), .Ship = number};
  At(shot_board_, cell) = kShotHit;
  if (outcome.Step != ShotStep::Sunk) return outcome;
  for (const Coordinate around : CellsAround(ship)) {
    if (ShotBoard(around) != 0) continue;
    At(shot_board_, around) = kWaterMargin;
    outcome.Revealed.push_back(around);
  }
  --enemy_ships_afloat_;
  return outcome;
}

ShotOutcome NavalBoard::TakeHit(Coordinate cell) {
  const int number = OwnBoard(cell);
  if (number < 1 || number > kShipsPerFleet) throw std::out_of_range("a hit where no own ship is");
  ShipRecord& ship = fleet_.at(static_cast<std::size_t>(number));
  return {.Step = HitSegment(ship, ship.SegmentOn(cell)), .Ship = number};
}

}  // namespace brontavia
