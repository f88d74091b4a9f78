// Rules and boards of a naval battle as one copy holds them: placing the own fleet, firing at the opponent's sea and
// being fired at. Knows nothing of turns, texts or the network.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "games/naval/fleet.h"

namespace brontavia {

// Codes of OwnBoard and ShotBoard besides 0 and ship numbers.
inline constexpr int kWaterMargin = 20;  // OwnBoard: touches a placed ship. ShotBoard: water, fired at or revealed
inline constexpr int kShotHit = 21;      // ShotBoard alone

enum class PlacementStep {
  OnShip,       // the cell holds an own ship, which may be removed
  OnMargin,     // refused: the cell touches a ship
  StartFixed,   // the first end of a ship
  StartErased,  // the same cell again
  Diagonal,     // refused; the start stays
  TooLong,      // refused; the start stays
  Blocked,      // refused: a cell on the line is not free; the start stays
  NoSuchShip,   // refused: all ships of that length are placed; the start stays
  Placed
};

struct PlacementOutcome {
  PlacementStep Step;
  int Ship = 0;                         // OnShip, Placed: its number 1..7
  std::vector<Coordinate> ShipCells;    // Placed: where it lies
  std::vector<Coordinate> MarginCells;  // Placed: cells that have become margin
};

enum class ShotStep {
  Water,
  HitBefore,  // that cell of the ship was hit before
  Hit,
  Sunk
};

struct ShotOutcome {
  ShotStep Step;
  int Ship = 0;                      // not for water: its number in FleetTable
  std::vector<Coordinate> Revealed;  // Sunk, own shot: cells around the ship that are known to be water now
};

class NavalBoard {
 public:
  NavalBoard() { InitFleet(); }

  // Everything back to the start of a game.
  void InitFleet();

  // ---- Placing. Cells must be on the grid. ----

  PlacementOutcome ClickToPlace(Coordinate cell);
  void ErasePendingStart() { pending_start_.reset(); }
  // Takes own ship `number` (1..7, placed) off; returns the cells that are free now. Nothing happens for 0.
  std::vector<Coordinate> RemoveShip(int number);

  // True when every cell on the straight line from `start` to `end`, both included, is free. True for a diagonal, which
  // is refused elsewhere.
  [[nodiscard]] bool CellsAreFree(Coordinate start, Coordinate end) const;
  // True when the cell or one of its eight neighbours on the grid holds an own ship.
  [[nodiscard]] bool TouchesOtherShip(int column, int row) const;

  // ---- Firing ----

  // The opponent's fleet takes its places. What an earlier fleet left on the sea stays there.
  void TakeEnemyFleet(const std::array<ShipRecord, kShipsPerFleet>& ships);
  // An own shot. Throws std::out_of_range, and changes nothing, where fleets sent one over the other leave a cell
  // outside its ship.
  ShotOutcome Fire(Coordinate cell);
  // A shot of the opponent's that he reports as a hit. Throws std::out_of_range, and changes nothing, when no own ship
  // is there.
  ShotOutcome TakeHit(Coordinate cell);

  // ---- State ----

  [[nodiscard]] const FleetTable& Fleet() const { return fleet_; }
  [[nodiscard]] const ShipRecord& Ship(int number) const { return fleet_.at(static_cast<std::size_t>(number)); }
  // Codes of the cell: 0 free, 1..7 own ship, kWaterMargin.
  [[nodiscard]] int OwnBoard(Coordinate cell) const { return At(own_board_, cell); }
  // 0 water, 11..17 the opponent's ship.
  [[nodiscard]] int EnemyBoard(Coordinate cell) const { return At(enemy_board_, cell); }
  // 0 not fired at, kWaterMargin, kShotHit.
  [[nodiscard]] int ShotBoard(Coordinate cell) const { return At(shot_board_, cell); }
  // Whether own ship `number` stands on the board, as ShipSizeTable has it.
  [[nodiscard]] bool Taken(int number) const { return size_table_.at(static_cast<std::size_t>(number)).Taken; }
  // The first end of the ship that is being placed; nothing between two ships.
  [[nodiscard]] std::optional<Coordinate> PendingStart() const { return pending_start_; }
  [[nodiscard]] int ShipsToPlace() const { return ships_to_place_; }
  [[nodiscard]] int EnemyShipsAfloat() const { return enemy_ships_afloat_; }

 private:
  // Indices 0..10 in both directions, 0 unused.
  using Sea = std::array<std::array<std::int16_t, kSeaSide + 1>, kSeaSide + 1>;
  // Which ship a placement fills.
  struct ShipSize {
    std::int16_t Length = 0;
    bool Taken = false;
  };
  using ShipSizeTable = std::array<ShipSize, kShipsPerFleet + 1>;

  static const std::int16_t& At(const Sea& sea, Coordinate cell);
  static std::int16_t& At(Sea& sea, Coordinate cell);
  // The number of a free own ship of `length` cells, the lowest first; nothing when all are placed.
  [[nodiscard]] std::optional<int> FreeShipOfLength(int length) const;
  PlacementOutcome Place(int number, Coordinate start, Coordinate end);
  // Hits `segment` of `ship`: whether it was hit before, is hit or sunk.
  static ShotStep HitSegment(ShipRecord& ship, int segment);

  FleetTable fleet_;
  ShipSizeTable size_table_;
  Sea own_board_{};
  Sea enemy_board_{};
  Sea shot_board_{};
  std::optional<Coordinate> pending_start_;
  int ships_to_place_ = kShipsPerFleet;
  int enemy_ships_afloat_ = kShipsPerFleet;
};

// The cells from `start` to `end`, column by column; empty when `end` is left of or above `start`.
std::vector<Coordinate> CellsBetween(Coordinate start, Coordinate end);

}  // namespace brontavia
