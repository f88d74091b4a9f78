#include "games/naval/naval_board.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <numeric>
#include <optional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brontavia::test {
namespace {

// ---- Cells and seas as text ----

// "C7" as column 3, row 7; "" is no cell.
Coordinate Cell(std::string_view name) {
  if (name.empty()) return {};
  return {.Column = name.at(0) - 'A' + 1, .Row = std::stoi(std::string(name.substr(1)))};
}

std::string Name(Coordinate cell) {
  if (cell == Coordinate{}) return "";
  return static_cast<char>('A' + cell.Column - 1) + std::to_string(cell.Row);
}

// In the order of their columns, "A1 A2 B1".
std::string Names(std::vector<Coordinate> cells) {
  std::sort(cells.begin(), cells.end(),
            [](Coordinate a, Coordinate b) { return std::pair(a.Column, a.Row) < std::pair(b.Column, b.Row); });
  std::string names;
  for (const Coordinate cell : cells) names += (names.empty() ? "" : " ") + Name(cell);
  return names;
}

std::vector<Coordinate> Cells(const std::string& names) {
  std::istringstream words(names);
  std::vector<Coordinate> cells;
  for (std::string name; words >> name;) cells.push_back(Cell(name));
  return cells;
}

std::vector<Coordinate> AllCells() { return CellsBetween(Cell("A1"), Cell("J10")); }

// Ten rows of ten characters: "." for 0, "~" for water, "*" for a hit, else the last digit of a ship's number.
std::string Drawn(const std::function<int(Coordinate)>& code_of) {
  std::string rows;
  for (int row = 1; row <= kSeaSide; ++row) {
    for (int column = 1; column <= kSeaSide; ++column) {
      const int code = code_of({.Column = column, .Row = row});
      const bool ship = (code >= 1 && code <= 7) || (code >= 11 && code <= 17);
      rows += ship ? static_cast<char>('0' + (code % 10)) : code == 0 ? '.' : code == 20 ? '~' : code == 21 ? '*' : '?';
    }
    rows += '\n';
  }
  return rows;
}

std::string OwnSea(const NavalBoard& board) {
  return Drawn([&board](Coordinate cell) { return board.OwnBoard(cell); });
}
std::string EnemySea(const NavalBoard& board) {
  return Drawn([&board](Coordinate cell) { return board.EnemyBoard(cell); });
}
std::string ShotSea(const NavalBoard& board) {
  return Drawn([&board](Coordinate cell) { return board.ShotBoard(cell); });
}

// `rows` from row `first` on, each ten cells long; all the rest is free.
std::string Sea(std::initializer_list<std::string_view> rows, int first = 1) {
  std::string sea;
  const std::string free_row = "..........\n";
  for (int row = 1; row < first; ++row) sea += free_row;
  for (const std::string_view row : rows) sea += std::string(row) + '\n';
  while (sea.size() < kSeaSide * free_row.size()) sea += free_row;
  return sea;
}

const std::string kEmptySea = Sea({});

// ---- What a player does ----

// Clicks one cell after the other; each must be accepted.
void Click(NavalBoard& board, const std::string& cells) {
  for (const Coordinate cell : Cells(cells)) {
    const PlacementStep step = board.ClickToPlace(cell).Step;
    ASSERT_TRUE(step == PlacementStep::StartFixed || step == PlacementStep::Placed) << Name(cell) << " of " << cells;
  }
}

// Seven ships, as start and end in the order of their numbers.
const std::string kWholeFleet = "A1 E1 A3 D3 A5 C5 E5 G5 I5 I7 A7 B7 J9 J10";
const std::string kWholeFleetSea = Sea({"11111~....", "~~~~~~....", "2222~.....", "~~~~~~~~~~", "333~444~5~",
                                        "~~~~~~~~5~", "66~....~5~", "~~~....~~~", "........~7", "........~7"});

// The opponent's ships from their ends, in the order of kWholeFleet.
std::array<ShipRecord, kShipsPerFleet> Ships(const std::string& ends) {
  const std::vector<Coordinate> cells = Cells(ends);
  std::array<ShipRecord, kShipsPerFleet> ships;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    ships.at(i).Start = cells.at(2 * i);
    ships.at(i).End = cells.at((2 * i) + 1);
  }
  return ships;
}

NavalBoard AgainstFleet(const std::string& ends = kWholeFleet) {
  NavalBoard board;
  board.TakeEnemyFleet(Ships(ends));
  return board;
}

std::vector<Coordinate> CellsOf(const ShipRecord& ship) { return CellsBetween(ship.Start, ship.End); }

// What a record says that hits change: "Tocado 4 -++++".
std::string Damage(const ShipRecord& ship) {
  constexpr std::array<const char*, 3> kStates{"Intacto ", "Tocado ", "Hundido "};
  std::string damage = kStates.at(static_cast<std::size_t>(ship.State)) + std::to_string(ship.IntactCount) + ' ';
  for (const bool intact : ship.Segments) damage += intact ? '+' : '-';
  return damage;
}

// Everything that a board holds.
std::string Whole(const NavalBoard& board) {
  std::string whole = OwnSea(board) + '\n' + EnemySea(board) + '\n' + ShotSea(board) + '\n';
  for (const int number : {1, 2, 3, 4, 5, 6, 7, 11, 12, 13, 14, 15, 16, 17}) {
    const ShipRecord& ship = board.Ship(number);
    whole += std::to_string(ship.Number) + ' ' + Name(ship.Start) + ' ' + Name(ship.End) + ' ' +
             std::to_string(ship.Length) + ' ' + Damage(ship) + (ship.Placed ? " placed" : "") +
             (number <= kShipsPerFleet && board.Taken(number) ? " taken\n" : "\n");
  }
  return whole + "start " + Name(board.PendingStart().value_or(Coordinate{})) + ", to place " +
         std::to_string(board.ShipsToPlace()) + ", afloat " + std::to_string(board.EnemyShipsAfloat());
}

// ---- Start ----

TEST(NavalBoard, BeginsWithEmptySeasAndNothingPlaced) {
  const NavalBoard board;
  EXPECT_EQ(OwnSea(board), kEmptySea);
  EXPECT_EQ(EnemySea(board), kEmptySea);
  EXPECT_EQ(ShotSea(board), kEmptySea);
  EXPECT_EQ(board.PendingStart(), std::nullopt);
  EXPECT_EQ(board.ShipsToPlace(), 7);
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
  for (int number = 1; number <= kShipsPerFleet; ++number) EXPECT_FALSE(board.Taken(number)) << number;
}

TEST(NavalBoard, InitFleetBringsTheStartBack) {
  NavalBoard board = AgainstFleet();
  Click(board, kWholeFleet);
  ASSERT_EQ(board.ClickToPlace(Cell("F10")).Step, PlacementStep::StartFixed);
  for (const char* cell : {"A1", "A7", "B7", "J1"}) board.Fire(Cell(cell));
  for (const char* cell : {"A1", "A7", "B7"}) board.TakeHit(Cell(cell));
  board.InitFleet();
  EXPECT_EQ(Whole(board), Whole(NavalBoard()));
}

TEST(NavalBoard, HasNoCellsOutsideTheSea) {
  NavalBoard board = AgainstFleet();
  Click(board, kWholeFleet);
  const std::string before = Whole(board);
  for (const Coordinate cell : {Coordinate{.Column = 0, .Row = 5}, Coordinate{.Column = 5, .Row = 0},
                                Coordinate{.Column = 11, .Row = 5}, Coordinate{.Column = 5, .Row = 11},
                                Coordinate{.Column = -1, .Row = -1}, Coordinate{.Column = 100000, .Row = 1}}) {
    SCOPED_TRACE(testing::Message() << cell.Column << ", " << cell.Row);
    EXPECT_THROW((void)board.OwnBoard(cell), std::out_of_range);
    EXPECT_THROW((void)board.EnemyBoard(cell), std::out_of_range);
    EXPECT_THROW((void)board.ShotBoard(cell), std::out_of_range);
    EXPECT_THROW(board.ClickToPlace(cell), std::out_of_range);
    EXPECT_THROW(board.Fire(cell), std::out_of_range);
    EXPECT_THROW(board.TakeHit(cell), std::out_of_range);
    EXPECT_EQ(Whole(board), before);
  }
}

// ---- A click while placing ----

struct PlacementClick {
  const char* Name;
  const char* Before;  // clicks that are accepted, then
  const char* Cell;    // this one
  PlacementStep Step;
  const char* Start;  // what is pending afterwards
  int Ship = 0;
};

void PrintTo(const PlacementClick& click, std::ostream* out) { *out << click.Name; }

class ClickWhilePlacing : public testing::TestWithParam<PlacementClick> {};

TEST_P(ClickWhilePlacing, HasItsOutcomeAndKeepsOrClearsTheStart) {
  const PlacementClick& click = GetParam();
  NavalBoard board;
  ASSERT_NO_FATAL_FAILURE(Click(board, click.Before));
  const std::string sea = OwnSea(board);
  const int to_place = board.ShipsToPlace();
  const PlacementOutcome outcome = board.ClickToPlace(Cell(click.Cell));
  EXPECT_EQ(outcome.Step, click.Step);
  EXPECT_EQ(outcome.Ship, click.Ship);
  EXPECT_EQ(Name(board.PendingStart().value_or(Coordinate{})), click.Start);
  if (click.Step == PlacementStep::Placed) {
    EXPECT_EQ(board.ShipsToPlace(), to_place - 1);
  } else {
    EXPECT_EQ(board.ShipsToPlace(), to_place);
    EXPECT_EQ(OwnSea(board), sea);
    EXPECT_EQ(Names(outcome.ShipCells), "");
    EXPECT_EQ(Names(outcome.MarginCells), "");
  }
}

using enum PlacementStep;

// A line between two free cells can cross a ship's margin only when it is five cells long.
constexpr PlacementClick kPlacementClicks[] = {
    {"FirstClick", "", "C4", StartFixed, "C4"},
    {"FirstClickInTheFirstCorner", "", "A1", StartFixed, "A1"},
    {"FirstClickInTheLastCorner", "", "J10", StartFixed, "J10"},
    {"SameCellAgain", "C4", "C4", StartErased, ""},
    {"FirstClickAfterAShip", "A1 E1", "A3", StartFixed, "A3"},

    {"ShipWithoutAStart", "A1 E1", "C1", OnShip, "", 1},
    {"ShipKeepsTheStart", "A1 E1 C3", "C1", OnShip, "C3", 1},
    {"ShipBeforeDiagonal", "A1 E1 J5", "E1", OnShip, "J5", 1},
    {"ShipBeforeLength", "A1 E1 A9", "A1", OnShip, "A9", 1},
    {"LastShip", "A1 B1 A3 B3", "A3", OnShip, "", 7},
    {"MarginWithoutAStart", "A1 E1", "C2", OnMargin, ""},
    {"MarginAtACorner", "C3 E3", "F4", OnMargin, ""},
    {"MarginKeepsTheStart", "A1 E1 A3", "A2", OnMargin, "A3"},
    {"MarginBeforeDiagonal", "A1 E1 J5", "F2", OnMargin, "J5"},
    {"MarginBeforeLength", "A1 E1 A9", "A2", OnMargin, "A9"},
    {"TwoCellsAwayIsFree", "C3 E3", "C5", StartFixed, "C5"},

    {"DiagonalDownRight", "C4", "D5", Diagonal, "C4"},
    {"DiagonalDownLeft", "C4", "B5", Diagonal, "C4"},
    {"DiagonalUpRight", "C4", "D3", Diagonal, "C4"},
    {"DiagonalUpLeft", "C4", "B3", Diagonal, "C4"},
    {"KnightsMove", "C4", "D6", Diagonal, "C4"},
    {"DiagonalBeforeLength", "A1", "J10", Diagonal, "A1"},
    {"DiagonalBeforeBlocked", "C3 C7 A4", "E5", Diagonal, "A4"},
    {"DiagonalBeforeExhaustedSize", "A1 B1 A3 B3 D5", "E6", Diagonal, "D5"},

    {"SixCells", "A1", "F1", TooLong, "A1"},
    {"SixCellsBackwards", "F1", "A1", TooLong, "F1"},
    {"SixCellsDown", "A1", "A6", TooLong, "A1"},
    {"SixCellsUp", "J10", "J5", TooLong, "J10"},
    {"WholeRow", "A10", "J10", TooLong, "A10"},
    {"WholeColumn", "J10", "J1", TooLong, "J10"},
    {"LengthBeforeBlocked", "C3 C7 A5", "F5", TooLong, "A5"},
    {"LengthBeforeExhaustedSize", "A1 E1 A3", "F3", TooLong, "A3"},

    {"BlockedByAShip", "E5 E6 C5", "G5", Blocked, "C5"},
    {"BlockedByAShipUpwards", "E5 F5 F7", "F3", Blocked, "F7"},
    {"BlockedByAMarginAlone", "E5 E6 C4", "G4", Blocked, "C4"},
    {"BlockedByAMarginBackwards", "E5 E6 G7", "C7", Blocked, "G7"},
    {"BlockedByAMarginUpwards", "E5 F5 D7", "D3", Blocked, "D7"},
    {"BlockedByAMarginAtTheBorder", "C1 C2 A3", "E3", Blocked, "A3"},
    {"BlockedBeforeExhaustedSize", "A10 E10 C1 C2 A3", "E3", Blocked, "A3"},

    {"SecondOfFive", "A1 E1 A3", "E3", NoSuchShip, "A3"},
    {"SecondOfFour", "A1 D1 A3", "D3", NoSuchShip, "A3"},
    {"FourthOfThree", "A1 C1 A3 C3 A5 C5 A7", "C7", NoSuchShip, "A7"},
    {"ThirdOfTwo", "A1 B1 A3 B3 A5", "B5", NoSuchShip, "A5"},
    {"ThirdOfTwoUpwards", "A1 B1 A3 B3 J10", "J9", NoSuchShip, "J10"},

    {"TwoCells", "C4", "D4", Placed, "", 6},
    {"ThreeCells", "C4", "C6", Placed, "", 3},
    {"FourCells", "C4", "F4", Placed, "", 2},
    {"FiveCells", "C4", "C8", Placed, "", 1},
    {"SecondOfTwo", "A1 B1 A3", "B3", Placed, "", 7},
    {"SecondOfThree", "A1 C1 A3", "C3", Placed, "", 4},
    {"ThirdOfThree", "A1 C1 A3 C3 A5", "C5", Placed, "", 5},
};
INSTANTIATE_TEST_SUITE_P(On, ClickWhilePlacing, testing::ValuesIn(kPlacementClicks),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Placing, AnotherEndMayBeChosenAfterEachRefusal) {
  NavalBoard board;
  Click(board, "E5 E6 C4");
  EXPECT_EQ(board.ClickToPlace(Cell("A5")).Step, Diagonal);
  EXPECT_EQ(board.ClickToPlace(Cell("J4")).Step, TooLong);
  EXPECT_EQ(board.ClickToPlace(Cell("G4")).Step, Blocked);
  EXPECT_EQ(board.ClickToPlace(Cell("D4")).Step, OnMargin);
  EXPECT_EQ(board.ClickToPlace(Cell("E5")).Step, OnShip);
  const PlacementOutcome outcome = board.ClickToPlace(Cell("C3"));
  EXPECT_EQ(outcome.Step, Placed);
  EXPECT_EQ(outcome.Ship, 7);
  EXPECT_EQ(Names(outcome.ShipCells), "C3 C4");
}

TEST(Placing, AfterAnExhaustedSizeTheStartServesForAnotherSize) {
  NavalBoard board;
  Click(board, "A1 C1 A3 C3 A5 C5 A7");
  EXPECT_EQ(board.ClickToPlace(Cell("C7")).Step, NoSuchShip);
  EXPECT_EQ(board.ClickToPlace(Cell("D7")).Step, Placed);
  EXPECT_EQ(Names(CellsOf(board.Ship(2))), "A7 B7 C7 D7");
}

TEST(Placing, AStartMayBeErased) {
  NavalBoard board;
  Click(board, "A1 E1");
  const std::string before = Whole(board);
  board.ErasePendingStart();
  EXPECT_EQ(Whole(board), before);
  Click(board, "C4");
  board.ErasePendingStart();
  EXPECT_EQ(Whole(board), before);
  EXPECT_EQ(board.ClickToPlace(Cell("C5")).Step, StartFixed);
}

TEST(Placing, AnErasedStartMayBeFixedAgain) {
  NavalBoard board;
  for (int times = 0; times < 3; ++times) {
    EXPECT_EQ(board.ClickToPlace(Cell("C4")).Step, StartFixed);
    EXPECT_EQ(board.ClickToPlace(Cell("C4")).Step, StartErased);
  }
  EXPECT_EQ(Whole(board), Whole(NavalBoard()));
}

TEST(Placing, IsStoredFromTheUpperLeftEndWhicheverWasClickedFirst) {
  for (const auto& [start, end] : {std::pair("J2", "J5"), std::pair("A1", "E1"), std::pair("A1", "A5"),
                                   std::pair("I10", "J10"), std::pair("E5", "G5")}) {
    for (const bool backwards : {false, true}) {
      NavalBoard board;
      const std::string clicks = backwards ? std::string(end) + ' ' + start : std::string(start) + ' ' + end;
      SCOPED_TRACE(clicks);
      Click(board, clicks);
      const int number = board.OwnBoard(Cell(start));
      EXPECT_EQ(Name(board.Ship(number).Start), start);
      EXPECT_EQ(Name(board.Ship(number).End), end);
      EXPECT_TRUE(board.Ship(number).Placed);
      EXPECT_TRUE(board.Taken(number));
    }
  }
}

// The cells that are `least` to `most` cells away, in any direction, from the ship between two cells.
std::string CellsAtDistance(Coordinate start, Coordinate end, int least, int most) {
  std::vector<Coordinate> cells;
  for (const Coordinate cell : AllCells()) {
    const int columns = std::max({start.Column - cell.Column, cell.Column - end.Column, 0});
    const int rows = std::max({start.Row - cell.Row, cell.Row - end.Row, 0});
    const int distance = std::max(columns, rows);
    if (distance >= least && distance <= most) cells.push_back(cell);
  }
  return Names(cells);
}

TEST(Placing, OnAnEmptySeaDependsOnTheTwoCellsAlone) {
  constexpr std::array<int, 6> kFirstOfLength{0, 0, 6, 3, 2, 1};
  for (const Coordinate first : AllCells()) {
    for (const Coordinate second : AllCells()) {
      if (first == second) continue;
      SCOPED_TRACE(Name(first) + " " + Name(second));
      NavalBoard board;
      ASSERT_EQ(board.ClickToPlace(first).Step, StartFixed);
      const PlacementOutcome outcome = board.ClickToPlace(second);
      const int apart = std::max(std::abs(first.Column - second.Column), std::abs(first.Row - second.Row));
      if (first.Column != second.Column && first.Row != second.Row) {
        ASSERT_EQ(outcome.Step, Diagonal);
      } else if (apart > 4) {
        ASSERT_EQ(outcome.Step, TooLong);
      } else {
        ASSERT_EQ(outcome.Step, Placed);
        ASSERT_EQ(outcome.Ship, kFirstOfLength.at(static_cast<std::size_t>(apart) + 1));
        const ShipRecord& ship = board.Ship(outcome.Ship);
        ASSERT_LE(ship.Start.Column, ship.End.Column);
        ASSERT_LE(ship.Start.Row, ship.End.Row);
        ASSERT_EQ(Names(outcome.ShipCells), CellsAtDistance(ship.Start, ship.End, 0, 0));
        ASSERT_EQ(Names(outcome.MarginCells), CellsAtDistance(ship.Start, ship.End, 1, 1));
      }
    }
  }
}

// ---- Margins ----

struct Placement {
  const char* Name;
  const char* Clicks;
  std::string Own;
};

void PrintTo(const Placement& placement, std::ostream* out) { *out << placement.Name; }

class Margin : public testing::TestWithParam<Placement> {};

TEST_P(Margin, SurroundsAShipInsideTheSea) {
  NavalBoard board;
  Click(board, GetParam().Clicks);
  EXPECT_EQ(OwnSea(board), GetParam().Own);
}

const Placement kPlacements[] = {
    {"InTheMiddle", "D5 F5", Sea({"..~~~~~...", "..~333~...", "..~~~~~..."}, 4)},
    {"FirstCorner", "A1 B1", Sea({"66~.......", "~~~......."})},
    {"FirstCornerDown", "A1 A2", Sea({"6~........", "6~........", "~~........"})},
    {"UpperRightCorner", "J1 H1", Sea({"......~333", "......~~~~"})},
    {"LowerLeftCorner", "A10 A8", Sea({"~~........", "3~........", "3~........", "3~........"}, 7)},
    {"LastCorner", "J10 I10", Sea({".......~~~", ".......~66"}, 9)},
    {"UpperBorder", "D1 G1", Sea({"..~2222~..", "..~~~~~~.."})},
    {"LowerBorder", "D10 G10", Sea({"..~~~~~~..", "..~2222~.."}, 9)},
    {"LeftBorder", "A4 A6", Sea({"~~........", "3~........", "3~........", "3~........", "~~........"}, 3)},
    {"RightBorder", "J4 J6", Sea({"........~~", "........~3", "........~3", "........~3", "........~~"}, 3)},
    {"OneRowFromTheBorder", "B2 C2", Sea({"~~~~......", "~66~......", "~~~~......"})},
    {"SharedWithANeighbour", "A1 B1 D1 E1", Sea({"66~77~....", "~~~~~~...."})},
    {"SharedAtACorner", "A1 B1 D3 E3", Sea({"66~.......", "~~~~~~....", "..~77~....", "..~~~~...."})},
    {"WholeFleet", kWholeFleet.c_str(), kWholeFleetSea},
};
INSTANTIATE_TEST_SUITE_P(At, Margin, testing::ValuesIn(kPlacements),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Placing, TellsOnlyTheMarginCellsThatWereFree) {
  NavalBoard board;
  Click(board, "A1 B1 D1");
  const PlacementOutcome outcome = board.ClickToPlace(Cell("E1"));
  EXPECT_EQ(Names(outcome.ShipCells), "D1 E1");
  EXPECT_EQ(Names(outcome.MarginCells), "D2 E2 F1 F2");
}

// ---- Counts ----

TEST(Placing, CountsDownToTheWholeFleet) {
  NavalBoard board;
  const std::vector<Coordinate> cells = Cells(kWholeFleet);
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    EXPECT_EQ(board.ShipsToPlace(), 8 - number);
    EXPECT_FALSE(board.Taken(number));
    ASSERT_EQ(board.ClickToPlace(cells.at(static_cast<std::size_t>(2 * number) - 2)).Step, StartFixed);
    const PlacementOutcome outcome = board.ClickToPlace(cells.at(static_cast<std::size_t>(2 * number) - 1));
    EXPECT_EQ(outcome.Step, Placed);
    EXPECT_EQ(outcome.Ship, number);
    EXPECT_TRUE(board.Taken(number));
    EXPECT_TRUE(board.Ship(number).Placed);
  }
  EXPECT_EQ(board.ShipsToPlace(), 0);
}

TEST(Placing, OfTheWholeFleetLeavesNoSizeAndGivesItsText) {
  NavalBoard board;
  Click(board, kWholeFleet + " D8");
  for (const char* end : {"E8", "F8", "G8"}) EXPECT_EQ(board.ClickToPlace(Cell(end)).Step, NoSuchShip) << end;
  board.ErasePendingStart();
  Click(board, "C10");
  EXPECT_EQ(board.ClickToPlace(Cell("G10")).Step, NoSuchShip);
  EXPECT_EQ(FleetText(board.Fleet()), u"3))-)4)+,+5)-+-6--/-71-1/8)/*/92122");
}

TEST(Placing, KeepsShipsIntactAndTheOpponentsSeaAsItIs) {
  NavalBoard board = AgainstFleet();
  const std::string enemy = EnemySea(board);
  Click(board, kWholeFleet);
  EXPECT_EQ(EnemySea(board), enemy);
  EXPECT_EQ(ShotSea(board), kEmptySea);
  const NavalBoard fresh;
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    EXPECT_EQ(Damage(board.Ship(number)), Damage(fresh.Ship(number))) << number;
    EXPECT_FALSE(board.Ship(number + 10).Placed) << number;
  }
}

// ---- Free cells ----

struct Line {
  const char* Start;
  const char* End;
  bool Free;
};

TEST(FreeCells, AreCountedOnStraightLinesAlone) {
  NavalBoard board;
  Click(board, "E5 F5");  // margin D4 to G6
  for (const Line& line :
       {Line{"A1", "J1", true}, Line{"A1", "A1", true}, Line{"E5", "E5", false}, Line{"D4", "D4", false},
        Line{"A4", "C4", true}, Line{"A4", "D4", false}, Line{"D4", "A4", false}, Line{"A5", "J5", false},
        Line{"J5", "A5", false}, Line{"E1", "E3", true}, Line{"E1", "E10", false}, Line{"E10", "E1", false},
        Line{"E7", "E10", true}, Line{"H6", "J6", true}, Line{"G6", "J6", false}, Line{"A1", "J10", true},
        Line{"D4", "G6", true}, Line{"E5", "F6", true}}) {
    EXPECT_EQ(board.CellsAreFree(Cell(line.Start), Cell(line.End)), line.Free) << line.Start << ' ' << line.End;
  }
}

TEST(FreeCells, AreNeverTakenOnAnEmptySea) {
  const NavalBoard board;
  for (const Coordinate start : AllCells()) {
    for (const Coordinate end : AllCells()) ASSERT_TRUE(board.CellsAreFree(start, end));
  }
}

TEST(Touching, IsBeingOnOrBesideAShipAndNotOnItsMargin) {
  NavalBoard board;
  Click(board, "E5 G5 J10 J9");
  for (int column = -1; column <= 12; ++column) {
    for (int row = -1; row <= 12; ++row) {
      const bool beside_first = column >= 4 && column <= 8 && row >= 4 && row <= 6;
      const bool beside_second = column >= 9 && column <= 11 && row >= 8 && row <= 11;
      EXPECT_EQ(board.TouchesOtherShip(column, row), beside_first || beside_second) << column << ", " << row;
    }
  }
}

// ---- Removing ----

struct Removal {
  const char* Name;
  const char* Clicks;
  int Ship;
  std::string Own;    // afterwards
  const char* Freed;  // the cells told
};

void PrintTo(const Removal& removal, std::ostream* out) { *out << removal.Name; }

class RemovedShip : public testing::TestWithParam<Removal> {};

TEST_P(RemovedShip, LeavesTheMarginsOfItsNeighbours) {
  const Removal& removal = GetParam();
  NavalBoard board;
  ASSERT_NO_FATAL_FAILURE(Click(board, removal.Clicks));
  const int to_place = board.ShipsToPlace();
  EXPECT_EQ(Names(board.RemoveShip(removal.Ship)), removal.Freed);
  EXPECT_EQ(OwnSea(board), removal.Own);
  EXPECT_EQ(board.ShipsToPlace(), to_place + 1);
  EXPECT_FALSE(board.Taken(removal.Ship));
  const ShipRecord& ship = board.Ship(removal.Ship);
  EXPECT_FALSE(ship.Placed);
  EXPECT_EQ(ship.Start, Coordinate{});
  EXPECT_EQ(ship.End, Coordinate{});
  EXPECT_EQ(board.PendingStart(), std::nullopt);
}

const Removal kRemovals[] = {
    {"Alone", "D5 E5", 6, kEmptySea, "C4 C5 C6 D4 D5 D6 E4 E5 E6 F4 F5 F6"},
    {"InTheFirstCorner", "A1 A2", 6, kEmptySea, "A1 A2 A3 B1 B2 B3"},
    {"InTheLastCorner", "I10 J10", 6, kEmptySea, "H9 H10 I9 I10 J9 J10"},
    {"BesideAnother", "A1 B1 D1 E1", 6, Sea({"..~77~....", "..~~~~...."}), "A1 A2 B1 B2"},
    {"BesideAnotherTheOtherWay", "A1 B1 D1 E1", 7, Sea({"66~.......", "~~~......."}), "D1 D2 E1 E2 F1 F2"},
    {"AcrossACorner", "A1 B1 D3 E3", 6, Sea({"..~~~~....", "..~77~....", "..~~~~...."}, 2), "A1 A2 B1 B2 C1"},
    {"BetweenTwo", "A2 A3 C2 C3 E2 E4", 7, Sea({"~~.~~~....", "6~.~3~....", "6~.~3~....", "~~.~3~....", "...~~~...."}),
     "C1 C2 C3 C4"},
    {"UnderALongerOne", "A1 E1 B3 D3", 3, Sea({"11111~....", "~~~~~~...."}), "A3 A4 B3 B4 C3 C4 D3 D4 E3 E4"},
    {"MarginsThatOnlyTouch", "A1 B1 E1 F1", 6, Sea({"...~77~...", "...~~~~..."}), "A1 A2 B1 B2 C1 C2"},
    {"WithAStartPending", "A1 B1 J10", 6, kEmptySea, "A1 A2 B1 B2 C1 C2"},
};
INSTANTIATE_TEST_SUITE_P(Lying, RemovedShip, testing::ValuesIn(kRemovals),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Removing, NumberZeroChangesNothing) {
  NavalBoard board;
  Click(board, "A1 B1 J10");
  const std::string before = Whole(board);
  EXPECT_TRUE(board.RemoveShip(0).empty());
  EXPECT_EQ(Whole(board), before);
}

TEST(Removing, AllShipsInAnyOrderLeavesAnEmptySea) {
  std::vector<int> order(kShipsPerFleet);
  std::iota(order.begin(), order.end(), 1);
  do {
    NavalBoard board;
    Click(board, kWholeFleet);
    for (const int number : order) board.RemoveShip(number);
    ASSERT_EQ(Whole(board), Whole(NavalBoard()));
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(Removing, AndPlacingTheShipAgainGivesTheSameSea) {
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    NavalBoard board;
    Click(board, kWholeFleet);
    const std::string before = Whole(board);
    const ShipRecord ship = board.Ship(number);
    board.RemoveShip(number);
    EXPECT_EQ(board.ShipsToPlace(), 1);
    Click(board, Name(ship.End) + " " + Name(ship.Start));
    EXPECT_EQ(Whole(board), before) << "ship " << number;
  }
}

TEST(Removing, MakesTheLowestFreeEntryTheNextShipOfItsSize) {
  struct Refill {
    const char* Placed;
    std::vector<int> Removed;
    const char* Again;
    std::vector<int> Ships;  // the numbers that `Again` gets
  };
  for (const Refill& refill :
       {Refill{"A1 C1", {3}, "E1 G1", {3}}, Refill{"A1 C1 A3 C3", {3}, "E1 G1 E3 G3", {3, 5}},
        Refill{"A1 C1 A3 C3 A5 C5", {3}, "E5 G5", {3}}, Refill{"A1 C1 A3 C3 A5 C5", {4}, "E5 G5", {4}},
        Refill{"A1 C1 A3 C3 A5 C5", {5, 3}, "E1 G1 E5 G5", {3, 5}},
        Refill{"A1 C1 A3 C3 A5 C5", {4, 5, 3}, "E1 G1 E3 G3 E5 G5", {3, 4, 5}},
        Refill{"A1 B1 A3 B3", {6}, "E1 F1", {6}}, Refill{"A1 B1 A3 B3", {7}, "E1 F1", {7}},
        Refill{"A1 B1 A3 B3", {7, 6}, "E1 F1 E3 F3", {6, 7}}, Refill{"A1 E1 A3 D3", {1, 2}, "J1 J5 H1 H4", {1, 2}}}) {
    NavalBoard board;
    ASSERT_NO_FATAL_FAILURE(Click(board, refill.Placed));
    for (const int number : refill.Removed) board.RemoveShip(number);
    std::vector<int> ships;
    for (const Coordinate cell : Cells(refill.Again)) {
      const PlacementOutcome outcome = board.ClickToPlace(cell);
      if (outcome.Step == Placed) ships.push_back(outcome.Ship);
    }
    EXPECT_EQ(ships, refill.Ships) << refill.Placed << ", then " << refill.Again;
  }
}

// ---- The opponent's fleet ----

TEST(EnemyFleet, TakesItsPlacesWithoutMargins) {
  const NavalBoard board = AgainstFleet();
  std::string expected = kWholeFleetSea;
  std::replace(expected.begin(), expected.end(), '~', '.');
  EXPECT_EQ(EnemySea(board), expected);
  EXPECT_EQ(board.EnemyBoard(Cell("A1")), 11);
  EXPECT_EQ(board.EnemyBoard(Cell("J10")), 17);
  EXPECT_EQ(ShotSea(board), kEmptySea);
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
}

TEST(EnemyFleet, LeavesTheOwnFleetAlone) {
  NavalBoard board;
  Click(board, "A1 E1 A3 C3 J10");
  const NavalBoard before = board;
  board.TakeEnemyFleet(Ships(kWholeFleet));
  EXPECT_EQ(OwnSea(board), OwnSea(before));
  EXPECT_EQ(board.PendingStart(), before.PendingStart());
  EXPECT_EQ(board.ShipsToPlace(), 5);
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    EXPECT_EQ(board.Ship(number).Start, before.Ship(number).Start);
    EXPECT_EQ(board.Ship(number).End, before.Ship(number).End);
  }
}

// ---- Firing ----

TEST(Fire, BeforeAFleetHasArrivedMeetsOnlyWater) {
  NavalBoard board;
  for (const Coordinate cell : AllCells()) EXPECT_EQ(board.Fire(cell).Step, ShotStep::Water);
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
}

TEST(Fire, OnWaterMarksTheCellHoweverOftenItIsRepeated) {
  NavalBoard board = AgainstFleet();
  for (int times = 0; times < 3; ++times) {
    const ShotOutcome outcome = board.Fire(Cell("H1"));
    EXPECT_EQ(outcome.Step, ShotStep::Water);
    EXPECT_EQ(outcome.Ship, 0);
    EXPECT_TRUE(outcome.Revealed.empty());
    EXPECT_EQ(ShotSea(board), Sea({".......~.."}));
    EXPECT_EQ(board.EnemyShipsAfloat(), 7);
  }
}

TEST(Fire, OnAShipHitsTheSegmentOnce) {
  NavalBoard board = AgainstFleet();
  const ShotOutcome hit = board.Fire(Cell("I6"));
  EXPECT_EQ(hit.Step, ShotStep::Hit);
  EXPECT_EQ(hit.Ship, 15);
  EXPECT_TRUE(hit.Revealed.empty());
  EXPECT_EQ(Damage(board.Ship(15)), "Tocado 2 +-+--");
  for (int times = 0; times < 2; ++times) {
    const ShotOutcome again = board.Fire(Cell("I6"));
    EXPECT_EQ(again.Step, ShotStep::HitBefore);
    EXPECT_EQ(again.Ship, 15);
    EXPECT_TRUE(again.Revealed.empty());
    EXPECT_EQ(Damage(board.Ship(15)), "Tocado 2 +-+--");
  }
  EXPECT_EQ(ShotSea(board), Sea({"........*."}, 6));
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
}

TEST(Fire, SinksEveryShipWithItsLastCellInWhateverOrder) {
  for (int number = 11; number <= 17; ++number) {
    std::vector<Coordinate> cells = CellsOf(AgainstFleet().Ship(number));
    std::vector<std::size_t> order(cells.size());
    std::iota(order.begin(), order.end(), 0U);
    do {
      NavalBoard board = AgainstFleet();
      for (std::size_t shot = 0; shot < order.size(); ++shot) {
        SCOPED_TRACE(testing::Message() << "ship " << number << ", shot " << shot);
        const bool last = shot + 1 == order.size();
        const ShotOutcome outcome = board.Fire(cells.at(order.at(shot)));
        ASSERT_EQ(outcome.Step, last ? ShotStep::Sunk : ShotStep::Hit);
        ASSERT_EQ(outcome.Ship, number);
        ASSERT_EQ(board.Ship(number).State, last ? ShipState::Hundido : ShipState::Tocado);
        ASSERT_EQ(board.Ship(number).IntactCount, static_cast<int>(order.size() - shot) - 1);
        ASSERT_EQ(board.EnemyShipsAfloat(), last ? 6 : 7);
      }
      ASSERT_EQ(board.Fire(cells.front()).Step, ShotStep::HitBefore);
      ASSERT_EQ(board.EnemyShipsAfloat(), 6);
    } while (std::next_permutation(order.begin(), order.end()));
  }
}

TEST(Fire, LastShipLeavesNoneAfloat) {
  NavalBoard board = AgainstFleet();
  for (int number = 17; number >= 11; --number) {
    EXPECT_EQ(board.EnemyShipsAfloat(), number - 10);
    const std::vector<Coordinate> cells = CellsOf(board.Ship(number));
    ShotStep last = ShotStep::Water;
    for (const Coordinate cell : cells) last = board.Fire(cell).Step;
    EXPECT_EQ(last, ShotStep::Sunk);
  }
  EXPECT_EQ(board.EnemyShipsAfloat(), 0);
}

TEST(Fire, ChangesNothingOfTheOwnFleet) {
  NavalBoard board = AgainstFleet();
  Click(board, kWholeFleet);
  for (const Coordinate cell : AllCells()) board.Fire(cell);
  EXPECT_EQ(OwnSea(board), kWholeFleetSea);
  const NavalBoard fresh;
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    EXPECT_EQ(Damage(board.Ship(number)), Damage(fresh.Ship(number))) << number;
  }
  EXPECT_EQ(board.ShipsToPlace(), 0);
}

struct Sinking {
  const char* Name;
  const char* Fleet;
  const char* Shots;
  std::string Shot;      // afterwards
  const char* Revealed;  // by the last shot
};

void PrintTo(const Sinking& sinking, std::ostream* out) { *out << sinking.Name; }

class SunkShip : public testing::TestWithParam<Sinking> {};

TEST_P(SunkShip, RevealsTheCellsAroundItThatWereNotMarked) {
  const Sinking& sinking = GetParam();
  NavalBoard board = AgainstFleet(sinking.Fleet);
  ShotOutcome last{};
  for (const Coordinate cell : Cells(sinking.Shots)) last = board.Fire(cell);
  EXPECT_EQ(last.Step, ShotStep::Sunk);
  EXPECT_EQ(Names(last.Revealed), sinking.Revealed);
  EXPECT_EQ(ShotSea(board), sinking.Shot);
}

// Destructors in the corners A1 and J10, submarines in the other two.
constexpr const char* kCorners = "D5 H5 D7 G7 J1 J3 A8 A10 D2 F2 A1 B1 J9 J10";
// Ships that touch.
constexpr const char* kPacked = "A1 E1 A2 D2 A3 C3 A4 C4 A5 C5 D3 E3 D4 D5";

const Sinking kSinkings[] = {
    {"InTheMiddle", kCorners, "D2 E2 F2", Sea({"..~~~~~...", "..~***~...", "..~~~~~..."}),
     "C1 C2 C3 D1 D3 E1 E3 F1 F3 G1 G2 G3"},
    {"InTheFirstCorner", kCorners, "B1 A1", Sea({"**~.......", "~~~......."}), "A2 B2 C1 C2"},
    {"InTheUpperRightCorner", kCorners, "J3 J1 J2", Sea({"........~*", "........~*", "........~*", "........~~"}),
     "I1 I2 I3 I4 J4"},
    {"InTheLowerLeftCorner", kCorners, "A9 A10 A8", Sea({"~~........", "*~........", "*~........", "*~........"}, 7),
     "A7 B7 B8 B9 B10"},
    {"InTheLastCorner", kCorners, "J10 J9", Sea({"........~~", "........~*", "........~*"}, 8), "I8 I9 I10 J8"},
    {"WithWaterFoundBefore", kCorners, "A2 C2 B1 A1", Sea({"**~.......", "~~~......."}), "B2 C1"},
    {"WithAllWaterFoundBefore", kCorners, "A2 B2 C1 C2 B1 A1", Sea({"**~.......", "~~~......."}), ""},
    {"BesideTheMarginOfAnotherSunkShip", kCorners, "A1 B1 D2 E2 F2", Sea({"**~~~~~...", "~~~***~...", "..~~~~~..."}),
     "C3 D1 D3 E1 E3 F1 F3 G1 G2 G3"},
    {"BesideAHitOnAShipThatTouches", kPacked, "A2 D3 E3", Sea({"..........", "*.~~~~....", "..~**~....", "..~~~~...."}),
     "C2 C3 C4 D2 D4 E2 E4 F2 F3 F4"},
};
INSTANTIATE_TEST_SUITE_P(Lying, SunkShip, testing::ValuesIn(kSinkings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Fire, StillHitsAShipThatTouchesASunkOne) {
  NavalBoard board = AgainstFleet(kPacked);
  board.Fire(Cell("D3"));
  board.Fire(Cell("E3"));
  ASSERT_EQ(board.ShotBoard(Cell("D2")), kWaterMargin);
  EXPECT_EQ(board.Fire(Cell("D2")).Step, ShotStep::Hit);
  EXPECT_EQ(board.ShotBoard(Cell("D2")), kShotHit);
}

TEST(Fire, OnRevealedWaterIsWaterAgain) {
  NavalBoard board = AgainstFleet();
  board.Fire(Cell("A7"));
  board.Fire(Cell("B7"));
  ASSERT_EQ(board.ShotBoard(Cell("C8")), kWaterMargin);
  const std::string before = Whole(board);
  EXPECT_EQ(board.Fire(Cell("C8")).Step, ShotStep::Water);
  EXPECT_EQ(Whole(board), before);
}

// ---- Being fired at ----

TEST(HitTaken, DamagesAndSinksTheOwnShip) {
  struct Report {
    const char* Cell;
    ShotStep Step;
    int Ship;
    const char* Damage;
  };
  NavalBoard board = AgainstFleet();
  Click(board, kWholeFleet);
  for (const Report& report :
       {Report{"C1", ShotStep::Hit, 1, "Tocado 4 ++-++"}, Report{"C1", ShotStep::HitBefore, 1, "Tocado 4 ++-++"},
        Report{"J10", ShotStep::Hit, 7, "Tocado 1 +----"}, Report{"J9", ShotStep::Sunk, 7, "Hundido 0 -----"},
        Report{"J9", ShotStep::HitBefore, 7, "Hundido 0 -----"}, Report{"I7", ShotStep::Hit, 5, "Tocado 2 ++---"},
        Report{"I5", ShotStep::Hit, 5, "Tocado 1 -+---"}, Report{"I6", ShotStep::Sunk, 5, "Hundido 0 -----"},
        Report{"A1", ShotStep::Hit, 1, "Tocado 3 -+-++"}, Report{"E1", ShotStep::Hit, 1, "Tocado 2 -+-+-"},
        Report{"B1", ShotStep::Hit, 1, "Tocado 1 ---+-"}, Report{"D1", ShotStep::Sunk, 1, "Hundido 0 -----"},
        Report{"C1", ShotStep::HitBefore, 1, "Hundido 0 -----"}}) {
    SCOPED_TRACE(report.Cell);
    const ShotOutcome outcome = board.TakeHit(Cell(report.Cell));
    EXPECT_EQ(outcome.Step, report.Step);
    EXPECT_EQ(outcome.Ship, report.Ship);
    EXPECT_TRUE(outcome.Revealed.empty());
    EXPECT_EQ(Damage(board.Ship(report.Ship)), report.Damage);
  }
  EXPECT_EQ(OwnSea(board), kWholeFleetSea);
  EXPECT_EQ(ShotSea(board), kEmptySea);
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
}

TEST(HitTaken, OnEveryCellOfAShipAndNowhereElse) {
  NavalBoard board;
  Click(board, kWholeFleet);
  int hits = 0;
  for (const Coordinate cell : AllCells()) {
    SCOPED_TRACE(Name(cell));
    const std::string before = Whole(board);
    const int code = board.OwnBoard(cell);
    if (code >= 1 && code <= 7) {
      EXPECT_EQ(board.TakeHit(cell).Ship, code);
      ++hits;
    } else {
      EXPECT_THROW(board.TakeHit(cell), std::out_of_range);
      EXPECT_EQ(Whole(board), before);
    }
  }
  EXPECT_EQ(hits, 22);
  for (int number = 1; number <= kShipsPerFleet; ++number) {
    EXPECT_EQ(board.Ship(number).State, ShipState::Hundido) << number;
  }
}

TEST(HitTaken, WithoutAFleetOrOnARemovedShipIsRefused) {
  NavalBoard board;
  EXPECT_THROW(board.TakeHit(Cell("A1")), std::out_of_range);
  Click(board, "A1 E1");
  board.RemoveShip(1);
  EXPECT_THROW(board.TakeHit(Cell("A1")), std::out_of_range);
  EXPECT_EQ(Whole(board), Whole(NavalBoard()));
}

// ---- A second fleet over the first ----

struct StaleShot {
  const char* Name;
  const char* Cell;
  std::optional<ShotStep> Step;  // none: refused
};

void PrintTo(const StaleShot& shot, std::ostream* out) { *out << shot.Name; }

class SecondFleet : public testing::TestWithParam<StaleShot> {};

// The carrier leaves C1 to G1 for A1 to E1, the first destructor leaves A10 to B10 for A8 to B8, the other stays.
constexpr const char* kFirstFleet = "C1 G1 G3 J3 A3 C3 A5 C5 E5 G5 A10 B10 J9 J10";
constexpr const char* kNextFleet = "A1 E1 G3 J3 A3 C3 A5 C5 E5 G5 A8 B8 J9 J10";

TEST_P(SecondFleet, LeavesCellsThatAreJudgedByTheirDistanceFromTheShip) {
  NavalBoard board = AgainstFleet(kFirstFleet);
  board.TakeEnemyFleet(Ships(kNextFleet));
  const std::string before = Whole(board);
  const Coordinate cell = Cell(GetParam().Cell);
  if (!GetParam().Step) {
    EXPECT_THROW(board.Fire(cell), std::out_of_range);
    EXPECT_EQ(Whole(board), before);
    return;
  }
  EXPECT_EQ(board.Fire(cell).Step, *GetParam().Step);
  EXPECT_EQ(board.ShotBoard(cell), *GetParam().Step == ShotStep::Water ? kWaterMargin : kShotHit);
}

constexpr StaleShot kStaleShots[] = {
    {"OnTheShip", "E1", ShotStep::Hit},
    {"SixthCell", "F1", std::nullopt},
    {"SeventhCell", "G1", std::nullopt},
    {"BeyondTheLength", "A10", ShotStep::HitBefore},
    {"FurtherBeyondTheLength", "B10", ShotStep::HitBefore},
    {"ShipThatStayed", "J10", ShotStep::Hit},
    {"WaterOfBoth", "I1", ShotStep::Water},
};
INSTANTIATE_TEST_SUITE_P(At, SecondFleet, testing::ValuesIn(kStaleShots),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(AFleetOverTheFirst, LeavesTheOldCellsOnTheSea) {
  NavalBoard board = AgainstFleet("A1 E1 A3 D3 A5 C5 A7 C7 A9 C9 E3 F3 E5 F5");
  board.TakeEnemyFleet(Ships("J1 J5 H1 H4 J7 J9 H7 H9 E7 G7 E9 F9 E10 F10"));
  EXPECT_EQ(EnemySea(board), Sea({"11111..2.1", ".......2.1", "222266.2.1", ".......2.1", "333.77...1", "..........",
                                  "444.5554.3", ".......4.3", "555.66.4.3", "....77...."}));
}

TEST(AFleetOverTheFirst, KeepsTheDamageAndSetsAllAfloat) {
  NavalBoard board = AgainstFleet();
  for (const char* cell : {"A7", "B7", "A1"}) board.Fire(Cell(cell));
  ASSERT_EQ(board.EnemyShipsAfloat(), 6);
  const std::string shots = ShotSea(board);
  board.TakeEnemyFleet(Ships(kWholeFleet));
  EXPECT_EQ(board.EnemyShipsAfloat(), 7);
  EXPECT_EQ(ShotSea(board), shots);
  EXPECT_EQ(board.Ship(16).State, ShipState::Hundido);
  EXPECT_EQ(Damage(board.Ship(11)), "Tocado 4 -++++");
  EXPECT_EQ(board.Fire(Cell("A7")).Step, ShotStep::HitBefore);
}

TEST(AFleetOverTheFirst, IsForgottenWithTheNextGame) {
  NavalBoard board = AgainstFleet(kFirstFleet);
  board.TakeEnemyFleet(Ships(kNextFleet));
  board.InitFleet();
  board.TakeEnemyFleet(Ships(kWholeFleet));
  EXPECT_EQ(Whole(board), Whole(AgainstFleet()));
}

}  // namespace
}  // namespace brontavia::test
