// What a script of the naval battle is played against, and what holds there.
#pragma once

#include <array>

#include "fuzz/session.h"
#include "games/naval/naval_flow.h"

namespace brontavia::fuzz {

inline bool IsIn(int code, int from, int to) { return code >= from && code <= to; }

template <typename Visit>
void ForEachCell(const Visit& visit) {
  for (Coordinate cell{.Column = 1, .Row = 1}; cell.Row <= kSeaSide; ++cell.Row) {
    for (cell.Column = 1; cell.Column <= kSeaSide; ++cell.Column) visit(cell);
  }
}

inline int SegmentsLeft(const ShipRecord& ship) {
  return static_cast<int>(std::count(ship.Segments.begin(), ship.Segments.end(), true));
}

inline void CheckShip(const ShipRecord& ship) {
  Require(SegmentsLeft(ship) == ship.IntactCount, "the cells that are left are counted");
  Require(IsIn(ship.IntactCount, 0, ship.Length), "a ship has as many cells as it is long");
  Require((ship.State == ShipState::Intacto) == (ship.IntactCount == ship.Length), "an intact ship has all its cells");
  Require((ship.State == ShipState::Hundido) == (ship.IntactCount == 0), "a sunk ship has none");
}

struct Naval {
  using Flow = NavalFlow;

  static auto Make(const Seams& seams) { return std::make_unique<WatchedFlow<Naval>>(seams, 1); }
  static std::string Begun(Role role) {
    std::string steps = Handshake(role, kFormBAR.GameCode);
    steps += "ay\n";
    return steps;
  }
  // The own fleet, by clicks on both ends of each ship, then the other's; all boxes are answered.
  static std::string Placed(Role /*role*/) {
    return "cbb\ncbf\ncdb\ncde\ncfb\ncfd\ncff\ncfh\nchb\nchd\nchf\nchg\ncjb\ncjc\nay\nay\n"
           "rDatos|3))-)4)+,+5)-+-6--/-7)/+/8-/./9)1*1\nrListo|\nay\n";
  }
  static std::array<BoardModel*, 2> Grids(Flow& flow) { return {&flow.FG1(), &flow.FG2()}; }

  // A read hits own ships or begins a new game, in which none is placed. It moves none.
  struct Own {
    explicit Own(const Flow& flow) : Board(flow.Board()) {}
    NavalBoard Board;
  };
  static void CheckRead(const Own& before, const Own& after) {
    if (after.Board.ShipsToPlace() == kShipsPerFleet) return;
    for (int number = 1; number <= kShipsPerFleet; ++number) {
      const ShipRecord& was = before.Board.Ship(number);
      const ShipRecord& is = after.Board.Ship(number);
      Require(is.Placed == was.Placed && is.Start == was.Start && is.End == was.End, "a read moves no own ship");
      Require(is.IntactCount <= was.IntactCount, "a read mends no own ship");
    }
    ForEachCell([&](Coordinate cell) {
      Require(after.Board.OwnBoard(cell) == before.Board.OwnBoard(cell), "a read changes no cell of the own sea");
    });
  }

  static void Check(const Flow& flow) {
    const NavalBoard& board = flow.Board();
    std::array<int, kShipsPerFleet + 1> cells{};
    ForEachCell([&](Coordinate cell) {
      const int own = board.OwnBoard(cell);
      Require(IsIn(own, 0, kShipsPerFleet) || own == kWaterMargin, "the own sea has own ships and margins");
      if (IsIn(own, 1, kShipsPerFleet)) ++cells.at(static_cast<std::size_t>(own));
      const int enemy = board.EnemyBoard(cell);
      Require(enemy == 0 || IsIn(enemy, kEnemyOffset + 1, kEnemyOffset + kShipsPerFleet),
              "the other sea has the other's");
      const int shot = board.ShotBoard(cell);
      Require(shot == 0 || shot == kWaterMargin || shot == kShotHit, "a shot is water or a hit");
    });
    int to_place = 0;
    for (int number = 1; number <= kShipsPerFleet; ++number) {
      const ShipRecord& ship = board.Ship(number);
      Require(ship.Placed == board.Taken(number), "a ship is placed or left to place");
      Require(cells.at(static_cast<std::size_t>(number)) == (ship.Placed ? ship.Length : 0),
              "a ship lies on its cells");
      if (!ship.Placed) ++to_place;
      CheckShip(ship);
      CheckShip(board.Ship(number + kEnemyOffset));
    }
    Require(board.ShipsToPlace() == to_place, "the ships to place are counted");
    Require(IsIn(board.EnemyShipsAfloat(), 0, kShipsPerFleet), "seven ships are afloat at most");
  }

  static void Perform(Flow& flow, const Step& step) {
    static constexpr std::array kKeys{Qt::Key_Escape, Qt::Key_T};
    if (step.What != 'k') return;
    flow.BoardKeyPressed(kKeys.at(static_cast<std::size_t>(NumberAt(step.Text, 0, static_cast<int>(kKeys.size())))));
  }
};

}  // namespace brontavia::fuzz
