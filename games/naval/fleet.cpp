#include "games/naval/fleet.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "text/blanks.h"

namespace brontavia {
namespace {

struct ShipKind {
  std::u16string_view Name;
  std::int16_t Length;
};

constexpr std::array<ShipKind, kShipsPerFleet> kFleet{{{u"Portaaviones ", 5},
                                                       {u"Acorazado    ", 4},
                                                       {u"Submarino    ", 3},
                                                       {u"Submarino    ", 3},
                                                       {u"Submarino    ", 3},
                                                       {u"Destructor   ", 2},
                                                       {u"Destructor   ", 2}}};

constexpr int kWireZero = 40;
constexpr int kWireShipZero = 50;
constexpr std::size_t kBlockLength = 5;
constexpr char16_t kWater = u'A';
constexpr char16_t kHit = u'I';

int CoordinateOf(char16_t wire) { return wire - kWireZero; }

int LengthOf(const ShipRecord& ship) {
  return std::abs(ship.End.Column - ship.Start.Column) + std::abs(ship.End.Row - ship.Start.Row) + 1;
}

// The cells that earlier blocks of a received fleet have taken.
class TakenCells {
 public:
  // Takes the cells of `ship`; false when one of them was taken.
  bool Take(const ShipRecord& ship) {
    for (int column = ship.Start.Column; column <= ship.End.Column; ++column) {
      for (int row = ship.Start.Row; row <= ship.End.Row; ++row) {
        bool& taken = cells_.at(static_cast<std::size_t>(column)).at(static_cast<std::size_t>(row));
        if (taken) return false;
        taken = true;
      }
    }
    return true;
  }

 private:
  std::array<std::array<bool, kSeaSide + 1>, kSeaSide + 1> cells_{};
};

bool IsStraight(const ShipRecord& ship) {
  return ship.Start.Column == ship.End.Column || ship.Start.Row == ship.End.Row;
}

// Whether `ship` has its cells where a ship of its number can lie.
bool IsSound(const ShipRecord& ship) {
  return IsOnGrid(ship.Start) && IsOnGrid(ship.End) && ship.Start.Column <= ship.End.Column &&
         ship.Start.Row <= ship.End.Row && IsStraight(ship) && LengthOf(ship) == ship.Length;
}

}  // namespace

bool IsOnGrid(int column, int row) { return column >= 1 && column <= kSeaSide && row >= 1 && row <= kSeaSide; }

int ShipRecord::SegmentOn(Coordinate cell) const {
  return std::abs(cell.Column - Start.Column) + std::abs(cell.Row - Start.Row) + 1;
}

FleetTable NewFleetTable() {
  FleetTable table;
  for (int ship = 1; ship <= kShipsPerFleet; ++ship) {
    const ShipKind& kind = kFleet.at(static_cast<std::size_t>(ship) - 1);
    ShipRecord record{.Name = kind.Name, .Length = kind.Length, .IntactCount = kind.Length};
    std::fill_n(record.Segments.begin(), kind.Length, true);
    for (const int number : {ship, ship + kEnemyOffset}) {
      record.Number = static_cast<std::int16_t>(number);
      table.at(static_cast<std::size_t>(number)) = record;
    }
  }
  return table;
}

std::u16string_view ShipName(int length) {
  const auto* kind =
      std::find_if(kFleet.begin(), kFleet.end(), [&](const ShipKind& it) { return it.Length == length; });
  if (kind == kFleet.end()) throw std::out_of_range("no ship of that length");
  return TrimBlanks(kind->Name);
}

std::u16string_view TrimmedName(const ShipRecord& ship) { return TrimBlanks(ship.Name); }

// ---- On the wire ----

char16_t WireCoordinate(int coordinate) { return static_cast<char16_t>(kWireZero + coordinate); }

std::u16string FleetText(const FleetTable& fleet) {
  std::u16string text;
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    const ShipRecord& ship = fleet.at(static_cast<std::size_t>(number));
    text += static_cast<char16_t>(kWireShipZero + number);
    for (const int value : {ship.Start.Column, ship.Start.Row, ship.End.Column, ship.End.Row}) {
      text += WireCoordinate(value);
    }
  }
  return text;
}

FleetReading ReadFleet(std::u16string_view data) {
  FleetReading reading;
  const FleetTable fresh = NewFleetTable();
  std::array<bool, kShipsPerFleet> read{};
  TakenCells taken;
  for (int block = 0; block < kShipsPerFleet; ++block) {
    reading.BadBlock = block;  // until it has proved sound
    reading.BadCell = {};
    if (data.size() < kBlockLength) return reading;
    const int index = data[0] - kWireShipZero - 1;
    if (index < 0 || index >= kShipsPerFleet || read.at(static_cast<std::size_t>(index))) return reading;
    ShipRecord& ship = reading.Ships.at(static_cast<std::size_t>(index));
    ship = fresh.at(static_cast<std::size_t>(index) + 1 + kEnemyOffset);
    ship.Start = {.Column = CoordinateOf(data[1]), .Row = CoordinateOf(data[2])};
    ship.End = {.Column = CoordinateOf(data[3]), .Row = CoordinateOf(data[4])};
    reading.BadCell = IsOnGrid(ship.Start) ? ship.End : ship.Start;
    if (!IsSound(ship) || !taken.Take(ship)) return reading;
    read.at(static_cast<std::size_t>(index)) = true;
    data.remove_prefix(kBlockLength);
  }
  reading.BadBlock = std::nullopt;
  return reading;
}

std::u16string ShotText(ShotReport shot) {
  return {WireCoordinate(shot.Cell.Column), WireCoordinate(shot.Cell.Row), shot.Water ? kWater : kHit};
}

std::optional<ShotReport> ReadShot(std::u16string_view data) {
  if (data.size() < 2) return std::nullopt;
  const Coordinate cell{.Column = CoordinateOf(data[0]), .Row = CoordinateOf(data[1])};
  if (!IsOnGrid(cell)) return std::nullopt;
  return ShotReport{.Cell = cell, .Water = data.back() == kWater};
}

}  // namespace brontavia
