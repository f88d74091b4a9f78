// The ships of a naval battle and the letters in which a fleet travels.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "games/coordinate.h"

namespace brontavia {

inline constexpr int kSeaSide = 10;
inline constexpr int kShipsPerFleet = 7;
inline constexpr int kLongestShip = 5;
inline constexpr int kEnemyOffset = 10;  // entry k + 10 of FleetTable is the opponent's ship k

// A cell of the sea has column and row 1..10: true when they are.
bool IsOnGrid(int column, int row);
inline bool IsOnGrid(Coordinate cell) { return IsOnGrid(cell.Column, cell.Row); }

enum class ShipState { Intacto, Tocado, Hundido };

struct ShipRecord {
  std::int16_t Number = 0;   // the ship's own index in FleetTable: 1..7 own, 11..17 the opponent's
  std::u16string_view Name;  // 13 characters, padded with blanks
  Coordinate Start;          // (0, 0) while not placed; then not right of and not below End
  Coordinate End;
  std::int16_t Length = 0;                    // cells, 2..5
  std::array<bool, kLongestShip> Segments{};  // [s - 1]: segment s has not been hit
  std::int16_t IntactCount = 0;               // cells not yet hit
  ShipState State = ShipState::Intacto;
  bool Placed = false;

  // Number of the segment on `cell`, counted from Start, 1 for Start itself.
  [[nodiscard]] int SegmentOn(Coordinate cell) const;
};

// Entries 1..7 are the own fleet, 11..17 the opponent's; 0 and 8..10 are never used.
using FleetTable = std::array<ShipRecord, kEnemyOffset + kShipsPerFleet + 1>;

// Both fleets intact and unplaced.
FleetTable NewFleetTable();

// Without padding: the name of all ships of `length` cells, 2..5.
std::u16string_view ShipName(int length);

// Name without its padding.
std::u16string_view TrimmedName(const ShipRecord& ship);

// ---- On the wire ----

// A coordinate 1..10 as the character with code 40 + coordinate, ")" to "2".
char16_t WireCoordinate(int coordinate);

// The seven blocks of the own fleet, 35 characters: ship (code 50 + number), start column, start row, end column and
// end row as WireCoordinates. All seven ships must be placed.
std::u16string FleetText(const FleetTable& fleet);

// What became of reading a fleet.
struct FleetReading {
  std::array<ShipRecord, kShipsPerFleet> Ships;  // [k]: entry k + 11; Start and End alone are read
  std::optional<int> BadBlock;  // the block (0..6) that is malformed; the ships are not to be used then
  Coordinate BadCell;           // the coordinates that were being read there
};

// Reads the opponent's fleet. A block is malformed when it is short, its ship is none of "3".."9" or comes twice, a
// coordinate is outside 1..10, its cells do not match the ship's length, or one of them is taken. What follows the 35
// characters is not looked at.
FleetReading ReadFleet(std::u16string_view data);

// A shot as its shooter reports it: column and row as WireCoordinates and "A" (water) or "I" (hit).
struct ShotReport {
  Coordinate Cell;
  bool Water = false;
};

std::u16string ShotText(ShotReport shot);
// The result is the text's last character; whatever is not "A" is a hit. Nothing when the cell is outside the sea.
std::optional<ShotReport> ReadShot(std::u16string_view data);

}  // namespace brontavia
