// Random sequences of everything that can happen to a naval board, against a second implementation of the rules.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "games/naval/naval_board.h"

namespace brontavia::test {
namespace {

// ---- The second implementation ----

// Whatever can come of a step, of both implementations.
enum class Kind {
  OnShip,
  OnMargin,
  StartFixed,
  StartErased,
  Diagonal,
  TooLong,
  Blocked,
  NoSuchShip,
  Placed,
  Removed,
  Water,
  HitBefore,
  Hit,
  Sunk,
  Refused,
  Count
};
constexpr std::array<const char*, static_cast<std::size_t>(Kind::Count)> kKindNames{
    "OnShip", "OnMargin", "StartFixed", "StartErased", "Diagonal", "TooLong", "Blocked", "NoSuchShip",
    "Placed", "Removed",  "Water",      "HitBefore",   "Hit",      "Sunk",    "Refused"};

using CellList = std::vector<std::pair<int, int>>;

struct Outcome {
  Kind What = Kind::Refused;
  int Ship = 0;
  CellList Cells;        // of the ship placed; freed; revealed
  CellList MarginCells;  // of the ship placed

  friend bool operator==(const Outcome&, const Outcome&) = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << kKindNames.at(static_cast<std::size_t>(outcome.What)) << ", ship " << outcome.Ship << ", cells";
  for (const auto& [column, row] : outcome.Cells) *out << ' ' << column << '/' << row;
  *out << ", margin";
  for (const auto& [column, row] : outcome.MarginCells) *out << ' ' << column << '/' << row;
}

// Everything that a copy holds of a naval battle, in plain numbers: the rules told step by step with loops and whole
// numbers, nothing shared with the boards that are tested. Index 0 of every array is unused.
struct PlainCopy {
  using Grid = std::array<std::array<int, 11>, 11>;
  struct Entry {
    int StartColumn = 0;
    int StartRow = 0;
    int EndColumn = 0;
    int EndRow = 0;
    int Length = 0;
    std::array<bool, 6> Flags{};
    int Intact = 0;
    char State = 'I';
    bool Placed = false;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  Grid Own{};
  Grid Enemy{};
  Grid Shots{};
  std::array<Entry, 18> Fleet{};
  std::array<int, 18> SizeLength{0, 5, 4, 3, 3, 3, 2, 2, 0, 0, 0, 5, 4, 3, 3, 3, 2, 2};
  std::array<int, 18> SizeTaken{};
  int PendingColumn = 0;
  int PendingRow = 0;
  int ToPlace = 7;
  int Afloat = 7;

  PlainCopy() {
    for (std::size_t k = 1; k <= 17; ++k) {
      if (k >= 8 && k <= 10) continue;
      Fleet[k].Length = SizeLength[k];
      Fleet[k].Intact = SizeLength[k];
      for (int s = 1; s <= SizeLength[k]; ++s) Fleet[k].Flags[static_cast<std::size_t>(s)] = true;
    }
  }

  friend bool operator==(const PlainCopy&, const PlainCopy&) = default;

  static int& On(Grid& grid, int column, int row) {
    return grid[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
  }
  Entry& Ship(int number) { return Fleet[static_cast<std::size_t>(number)]; }

  static bool OnTheGrid(int column, int row) { return 1 <= column && column <= 10 && 1 <= row && row <= 10; }

  bool AllFree(int column, int row, int end_column, int end_row) {
    bool answer = true;
    if (column != end_column && row != end_row) return answer;
    if (column != end_column) {
      const int step = column < end_column ? 1 : -1;
      for (int x = column; x != end_column + step; x += step) {
        if (On(Own, x, row) != 0) answer = false;
      }
    } else {
      const int step = row < end_row ? 1 : -1;
      for (int y = row; y != end_row + step; y += step) {
        if (On(Own, column, y) != 0) answer = false;
      }
    }
    return answer;
  }

  bool Touches(int column, int row) {
    for (int x = column - 1; x <= column + 1; ++x) {
      for (int y = row - 1; y <= row + 1; ++y) {
        if (OnTheGrid(x, y) && On(Own, x, y) > 0 && On(Own, x, y) < 20) return true;
      }
    }
    return false;
  }

  Outcome Click(int column, int row) {
    const int code = On(Own, column, row);
    if (code != 0) {
      if (code < 20) return {Kind::OnShip, code, {}, {}};
      return {Kind::OnMargin, 0, {}, {}};
    }
    if (PendingColumn == 0) {
      PendingColumn = column;
      PendingRow = row;
      return {Kind::StartFixed, 0, {}, {}};
    }
    if (column == PendingColumn && row == PendingRow) {
      PendingColumn = PendingRow = 0;
      return {Kind::StartErased, 0, {}, {}};
    }
    if (column != PendingColumn && row != PendingRow) return {Kind::Diagonal, 0, {}, {}};
    const int length = std::abs(column - PendingColumn) + std::abs(row - PendingRow) + 1;
    if (length > 5) return {Kind::TooLong, 0, {}, {}};
    if (!AllFree(PendingColumn, PendingRow, column, row)) return {Kind::Blocked, 0, {}, {}};
    int found = 0;
    for (int i = 1; i <= 7 && found == 0; ++i) {
      const auto k = static_cast<std::size_t>(i);
      if (SizeLength[k] == length && SizeTaken[k] <= 0) found = i;
    }
    if (found == 0) return {Kind::NoSuchShip, 0, {}, {}};
    SizeTaken[static_cast<std::size_t>(found)] = 1;
    Entry& ship = Ship(found);
    ship.StartColumn = PendingColumn;
    ship.StartRow = PendingRow;
    ship.EndColumn = column;
    ship.EndRow = row;
    ship.Placed = true;
    if (ship.EndColumn < ship.StartColumn) std::swap(ship.EndColumn, ship.StartColumn);
    if (ship.StartRow > ship.EndRow) std::swap(ship.StartRow, ship.EndRow);
    const Grid before = Own;
    for (int x = ship.StartColumn; x <= ship.EndColumn; ++x) {
      for (int y = ship.StartRow; y <= ship.EndRow; ++y) On(Own, x, y) = found;
    }
    for (int x = ship.StartColumn - 1; x <= ship.EndColumn + 1; ++x) {
      for (int y = ship.StartRow - 1; y <= ship.EndRow + 1; ++y) {
        if (OnTheGrid(x, y) && On(Own, x, y) == 0) On(Own, x, y) = 20;
      }
    }
    PendingColumn = PendingRow = 0;
    --ToPlace;
    return {Kind::Placed, found, Changed(before, Own, found), Changed(before, Own, 20)};
  }

  Outcome Remove(int number) {
    Entry& ship = Ship(number);
    const Grid before = Own;
    for (int x = ship.StartColumn; x <= ship.EndColumn; ++x) {
      for (int y = ship.StartRow; y <= ship.EndRow; ++y) On(Own, x, y) = 0;
    }
    for (int x = ship.StartColumn - 1; x <= ship.EndColumn + 1; ++x) {
      for (int y = ship.StartRow - 1; y <= ship.EndRow + 1; ++y) {
        if (OnTheGrid(x, y) && !Touches(x, y)) On(Own, x, y) = 0;
      }
    }
    ++ToPlace;
    ship.Placed = false;
    SizeTaken[static_cast<std::size_t>(number)] = 0;
    PendingColumn = PendingRow = 0;
    ship.StartColumn = ship.StartRow = ship.EndColumn = ship.EndRow = 0;
    return {Kind::Removed, number, Changed(before, Own, 0), {}};
  }

  std::u16string SentFleet() {
    std::u16string text;
    for (int n = 1; n <= 7; ++n) {
      const Entry& ship = Ship(n);
      for (const int code :
           {50 + n, 40 + ship.StartColumn, 40 + ship.StartRow, 40 + ship.EndColumn, 40 + ship.EndRow}) {
        text += static_cast<char16_t>(code);
      }
    }
    return text;
  }

  // The block that is malformed, or -1 when all are sound.
  static int MalformedBlock(const std::u16string& text) {
    constexpr std::array<int, 7> kLengths{5, 4, 3, 3, 3, 2, 2};
    Grid taken{};
    std::array<bool, 7> seen{};
    for (std::size_t i = 0; i < 7; ++i) {
      if (text.size() < (5 * i) + 5) return static_cast<int>(i);
      const auto code = [&](std::size_t position) { return static_cast<int>(text[(5 * i) + position]) - 40; };
      if (code(0) < 11 || code(0) > 17) return static_cast<int>(i);
      const auto ship = static_cast<std::size_t>(code(0) - 11);
      if (seen[ship]) return static_cast<int>(i);
      seen[ship] = true;
      for (std::size_t position = 1; position <= 4; ++position) {
        if (code(position) < 1 || code(position) > 10) return static_cast<int>(i);
      }
      // The ship's cells, one step after the other along one of the two directions.
      const bool lying = code(2) == code(4);
      if (!lying && code(1) != code(3)) return static_cast<int>(i);
      if ((lying ? code(3) - code(1) : code(4) - code(2)) != kLengths[ship] - 1) return static_cast<int>(i);
      for (int step = 0; step < kLengths[ship]; ++step) {
        const int x = code(1) + (lying ? step : 0);
        const int y = code(2) + (lying ? 0 : step);
        if (On(taken, x, y)++ != 0) return static_cast<int>(i);
      }
    }
    return -1;
  }

  void ReceiveFleet(const std::u16string& text) {
    for (std::size_t i = 0; i < 7; ++i) {
      const auto code = [&](std::size_t position) { return static_cast<int>(text[(5 * i) + position]) - 40; };
      Entry& ship = Ship(code(0));
      ship.StartColumn = code(1);
      ship.StartRow = code(2);
      ship.EndColumn = code(3);
      ship.EndRow = code(4);
    }
    for (int k = 11; k <= 17; ++k) {
      for (int x = Ship(k).StartColumn; x <= Ship(k).EndColumn; ++x) {
        for (int y = Ship(k).StartRow; y <= Ship(k).EndRow; ++y) On(Enemy, x, y) = k;
      }
    }
    Afloat = 7;
  }

  Outcome Fire(int column, int row) {
    const int k = On(Enemy, column, row);
    if (k == 0) {
      On(Shots, column, row) = 20;
      return {Kind::Water, 0, {}, {}};
    }
    Entry& ship = Ship(k);
    const int s = std::abs(row - ship.StartRow) + std::abs(column - ship.StartColumn) + 1;
    if (s > 5) return {};  // no such segment
    On(Shots, column, row) = 21;
    bool& flag = ship.Flags[static_cast<std::size_t>(s)];
    if (!flag) return {Kind::HitBefore, k, {}, {}};
    flag = false;
    --ship.Intact;
    if (ship.Intact >= 1) {
      ship.State = 'T';
      return {Kind::Hit, k, {}, {}};
    }
    ship.State = 'H';
    const Grid before = Shots;
    for (int x = ship.StartColumn - 1; x <= ship.EndColumn + 1; ++x) {
      for (int y = ship.StartRow - 1; y <= ship.EndRow + 1; ++y) {
        if (OnTheGrid(x, y) && On(Shots, x, y) == 0) On(Shots, x, y) = 20;
      }
    }
    --Afloat;
    return {Kind::Sunk, k, Changed(before, Shots, 20), {}};
  }

  Outcome ReceiveHit(int column, int row) {
    const int n = On(Own, column, row);
    if (n == 0 || n == 20) return {};
    Entry& ship = Ship(n);
    const int s = std::abs(column - ship.StartColumn) + std::abs(row - ship.StartRow) + 1;
    bool& flag = ship.Flags[static_cast<std::size_t>(s)];
    if (!flag) return {Kind::HitBefore, n, {}, {}};
    flag = false;
    --ship.Intact;
    if (ship.Intact < 1) {
      ship.State = 'H';
      return {Kind::Sunk, n, {}, {}};
    }
    ship.State = 'T';
    return {Kind::Hit, n, {}, {}};
  }

  // The cells that have become `code`, column by column.
  static CellList Changed(const Grid& before, const Grid& after, int code) {
    CellList cells;
    for (int x = 1; x <= 10; ++x) {
      for (int y = 1; y <= 10; ++y) {
        const auto column = static_cast<std::size_t>(x);
        const auto row = static_cast<std::size_t>(y);
        if (before[column][row] != after[column][row] && after[column][row] == code) cells.emplace_back(x, y);
      }
    }
    return cells;
  }
};

void PrintTo(const PlainCopy& copy, std::ostream* out) {
  for (const auto& [name, grid] :
       {std::pair("own", &copy.Own), std::pair("enemy", &copy.Enemy), std::pair("shots", &copy.Shots)}) {
    *out << '\n' << name << ":\n";
    for (std::size_t y = 1; y <= 10; ++y) {
      for (std::size_t x = 1; x <= 10; ++x) *out << (*grid)[x][y] << ' ';
      *out << '\n';
    }
  }
  for (std::size_t k = 1; k <= 17; ++k) {
    const PlainCopy::Entry& ship = copy.Fleet[k];
    *out << k << ": " << ship.StartColumn << '/' << ship.StartRow << " to " << ship.EndColumn << '/' << ship.EndRow
         << ", length " << ship.Length << ", intact " << ship.Intact << ' ' << ship.State << ' ';
    for (std::size_t s = 1; s <= 5; ++s) *out << (ship.Flags[s] ? '+' : '-');
    *out << (ship.Placed ? " placed" : "") << ", taken " << copy.SizeTaken[k] << '\n';
  }
  *out << "start " << copy.PendingColumn << '/' << copy.PendingRow << ", to place " << copy.ToPlace << ", afloat "
       << copy.Afloat << '\n';
}

// ---- What is tested, in the same plain numbers ----

PlainCopy PlainOf(const NavalBoard& board) {
  PlainCopy copy;
  for (int x = 1; x <= 10; ++x) {
    for (int y = 1; y <= 10; ++y) {
      const Coordinate cell{.Column = x, .Row = y};
      PlainCopy::On(copy.Own, x, y) = board.OwnBoard(cell);
      PlainCopy::On(copy.Enemy, x, y) = board.EnemyBoard(cell);
      PlainCopy::On(copy.Shots, x, y) = board.ShotBoard(cell);
    }
  }
  for (const int number : {1, 2, 3, 4, 5, 6, 7, 11, 12, 13, 14, 15, 16, 17}) {
    const ShipRecord& ship = board.Ship(number);
    PlainCopy::Entry& entry = copy.Ship(number);
    EXPECT_EQ(ship.Number, number);
    entry = {.StartColumn = ship.Start.Column,
             .StartRow = ship.Start.Row,
             .EndColumn = ship.End.Column,
             .EndRow = ship.End.Row,
             .Length = ship.Length,
             .Flags = {},
             .Intact = ship.IntactCount,
             .State = "ITH"[static_cast<std::size_t>(ship.State)],
             .Placed = ship.Placed};
    std::copy(ship.Segments.begin(), ship.Segments.end(), entry.Flags.begin() + 1);
    if (number <= 7) copy.SizeTaken[static_cast<std::size_t>(number)] = board.Taken(number) ? 1 : 0;
  }
  const Coordinate start = board.PendingStart().value_or(Coordinate{});
  copy.PendingColumn = start.Column;
  copy.PendingRow = start.Row;
  copy.ToPlace = board.ShipsToPlace();
  copy.Afloat = board.EnemyShipsAfloat();
  return copy;
}

CellList Sorted(const std::vector<Coordinate>& cells) {
  CellList list;
  for (const Coordinate cell : cells) list.emplace_back(cell.Column, cell.Row);
  std::sort(list.begin(), list.end());
  return list;
}

Outcome PlainOf(const PlacementOutcome& outcome) {
  const auto kind = [&outcome] {
    switch (outcome.Step) {
      case PlacementStep::OnShip:
        return Kind::OnShip;
      case PlacementStep::OnMargin:
        return Kind::OnMargin;
      case PlacementStep::StartFixed:
        return Kind::StartFixed;
      case PlacementStep::StartErased:
        return Kind::StartErased;
      case PlacementStep::Diagonal:
        return Kind::Diagonal;
      case PlacementStep::TooLong:
        return Kind::TooLong;
      case PlacementStep::Blocked:
        return Kind::Blocked;
      case PlacementStep::NoSuchShip:
        return Kind::NoSuchShip;
      case PlacementStep::Placed:
        return Kind::Placed;
    }
    return Kind::Refused;
  };
  return {kind(), outcome.Ship, Sorted(outcome.ShipCells), Sorted(outcome.MarginCells)};
}

Outcome PlainOf(const ShotOutcome& outcome) {
  const auto kind = [&outcome] {
    switch (outcome.Step) {
      case ShotStep::Water:
        return Kind::Water;
      case ShotStep::HitBefore:
        return Kind::HitBefore;
      case ShotStep::Hit:
        return Kind::Hit;
      case ShotStep::Sunk:
        return Kind::Sunk;
    }
    return Kind::Refused;
  };
  return {kind(), outcome.Ship, Sorted(outcome.Revealed), {}};
}

// ---- Random sequences ----

// How often each kind of step is taken, in parts of the sum.
struct Mix {
  const char* Name;
  int Sequences;
  int Steps;
  double Click;
  double Remove;  // of a ship chosen by a click on it
  double Erase;
  double Fire;
  double Hit;    // one reported by the opponent
  double Fleet;  // one arrives
  double Reset;
  std::vector<Kind> Seen;  // what these sequences must have shown to be worth anything
};

void PrintTo(const Mix& mix, std::ostream* out) { *out << mix.Name; }

class Sequence {
 public:
  Sequence(const Mix& mix, unsigned seed)
      : random_(seed), steps_({mix.Click, mix.Remove, mix.Erase, mix.Fire, mix.Hit, mix.Fleet, mix.Reset}) {}

  // Takes steps until a difference is found, which the test then reports.
  void Run(int steps) {
    if (steps_.probabilities().at(3) > 0) ReceiveFleet();
    while (steps-- > 0 && !testing::Test::HasFailure()) Step();
  }

  [[nodiscard]] const std::string& History() const { return history_; }
  [[nodiscard]] bool Seen(Kind kind) const { return seen_.at(static_cast<std::size_t>(kind)) > 0; }
  [[nodiscard]] bool WholeFleetWasPlaced() const { return whole_fleet_; }
  [[nodiscard]] bool AllWereSunk() const { return all_sunk_; }

 private:
  void Step() {
    switch (steps_(random_)) {
      case 0:
        ClickToPlace();
        break;
      case 1:
        RemoveShip();
        break;
      case 2:
        Note("erase");
        board_.ErasePendingStart();
        plain_.PendingColumn = plain_.PendingRow = 0;
        break;
      case 3:
        Fire();
        break;
      case 4:
        TakeHit();
        break;
      case 5:
        ReceiveFleet();
        break;
      default:
        Note("reset");
        board_.InitFleet();
        plain_ = PlainCopy();
        break;
    }
    EXPECT_EQ(PlainOf(board_), plain_);
  }

  void ClickToPlace() {
    Coordinate cell = AnyCell();
    // Half of the ends lie where a ship could, or else hardly any fleet would ever be whole.
    if (plain_.PendingColumn != 0 && OneIn(2)) {
      cell = {.Column = plain_.PendingColumn, .Row = plain_.PendingRow};
      int& moved = OneIn(2) ? cell.Column : cell.Row;
      moved = std::clamp(moved + Number(-5, 5), 1, 10);
    }
    Note("click", cell);
    Compare(PlainOf(board_.ClickToPlace(cell)), plain_.Click(cell.Column, cell.Row));
    EXPECT_EQ(board_.CellsAreFree(cell, other_), plain_.AllFree(cell.Column, cell.Row, other_.Column, other_.Row));
    EXPECT_EQ(board_.TouchesOtherShip(cell.Column, cell.Row), plain_.Touches(cell.Column, cell.Row));
    other_ = cell;
    if (plain_.ToPlace != 0) return;
    whole_fleet_ = true;
    EXPECT_EQ(FleetText(board_.Fleet()), plain_.SentFleet());
    EXPECT_EQ(PlainCopy::MalformedBlock(plain_.SentFleet()), -1);
    EXPECT_FALSE(ReadFleet(plain_.SentFleet()).BadBlock);
  }

  void RemoveShip() {
    const int number = Number(1, 7);
    if (!plain_.Ship(number).Placed) return;
    Note("remove " + std::to_string(number));
    Compare({Kind::Removed, number, Sorted(board_.RemoveShip(number)), {}}, plain_.Remove(number));
  }

  void Fire() {
    // Most of the shots are at ships, so that all get sunk now and then.
    Coordinate cell = AnyCell();
    for (int tries = 0; tries < 4 && PlainCopy::On(plain_.Enemy, cell.Column, cell.Row) == 0; ++tries) cell = AnyCell();
    Note("fire", cell);
    Outcome outcome;
    try {
      outcome = PlainOf(board_.Fire(cell));
    } catch (const std::out_of_range&) {
      outcome = {};
    }
    Compare(outcome, plain_.Fire(cell.Column, cell.Row));
    if (plain_.Afloat == 0) all_sunk_ = true;
  }

  void TakeHit() {
    const Coordinate cell = AnyCell();
    Note("hit", cell);
    Outcome outcome;
    try {
      outcome = PlainOf(board_.TakeHit(cell));
    } catch (const std::out_of_range&) {
      outcome = {};
    }
    Compare(outcome, plain_.ReceiveHit(cell.Column, cell.Row));
  }

  void ReceiveFleet() {
    std::u16string text = AnyFleet(OneIn(8));
    if (OneIn(3)) Spoil(text);
    std::string codes;
    for (const char16_t character : text) codes += std::to_string(static_cast<int>(character)) + ",";
    Note("fleet " + codes);
    const FleetReading reading = ReadFleet(text);
    const int malformed = PlainCopy::MalformedBlock(text);
    ASSERT_EQ(reading.BadBlock.value_or(-1), malformed);
    if (malformed != -1) return;
    board_.TakeEnemyFleet(reading.Ships);
    plain_.ReceiveFleet(text);
  }

  // A fleet of whole ships inside the sea, its blocks in any order. Its ships may touch, and share cells if so wished.
  std::u16string AnyFleet(bool may_overlap) {
    constexpr std::array<int, 7> kLengths{5, 4, 3, 3, 3, 2, 2};
    std::array<std::array<bool, 11>, 11> taken{};
    std::vector<std::u16string> blocks;
    while (blocks.size() < kLengths.size()) {
      const int length = kLengths.at(blocks.size());
      const bool lying = OneIn(2);
      const int x = Number(1, lying ? 11 - length : 10);
      const int y = Number(1, lying ? 10 : 11 - length);
      CellList cells;
      for (int step = 0; step < length; ++step) cells.emplace_back(x + (lying ? step : 0), y + (lying ? 0 : step));
      const auto at = [&taken](std::pair<int, int> cell) -> bool& {
        return taken.at(static_cast<std::size_t>(cell.first)).at(static_cast<std::size_t>(cell.second));
      };
      if (!may_overlap && std::any_of(cells.begin(), cells.end(), at)) continue;
      for (const auto& cell : cells) at(cell) = true;
      std::u16string block;
      for (const int code :
           {51 + static_cast<int>(blocks.size()), 40 + x, 40 + y, 40 + cells.back().first, 40 + cells.back().second}) {
        block += static_cast<char16_t>(code);
      }
      blocks.push_back(block);
    }
    std::shuffle(blocks.begin(), blocks.end(), random_);
    std::u16string text;
    for (const std::u16string& block : blocks) text += block;
    return text;
  }

  // Changes, takes away or appends characters. The text may stay sound.
  void Spoil(std::u16string& text) {
    switch (Number(0, 3)) {
      case 0:
        text.resize(static_cast<std::size_t>(Number(0, 34)));
        break;
      case 1:
        text += u"Listo|";
        break;
      default:
        for (int changes = Number(1, 3); changes > 0; --changes) {
          text.at(static_cast<std::size_t>(Number(0, 34))) = static_cast<char16_t>(Number(39, 58));
        }
        break;
    }
  }

  void Compare(const Outcome& outcome, const Outcome& expected) {
    EXPECT_EQ(outcome, expected);
    ++seen_.at(static_cast<std::size_t>(expected.What));
  }

  void Note(const std::string& step) { history_ += step + "; "; }
  void Note(const std::string& step, Coordinate cell) {
    Note(step + ' ' + static_cast<char>('A' + cell.Column - 1) + std::to_string(cell.Row));
  }

  int Number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
  bool OneIn(int cases) { return Number(1, cases) == 1; }
  Coordinate AnyCell() {
    const int column = Number(1, 10);
    return {.Column = column, .Row = Number(1, 10)};
  }

  std::mt19937 random_;
  std::discrete_distribution<int> steps_;
  NavalBoard board_;
  PlainCopy plain_;
  Coordinate other_{.Column = 1, .Row = 1};
  std::array<int, static_cast<std::size_t>(Kind::Count)> seen_{};
  bool whole_fleet_ = false;
  bool all_sunk_ = false;
  std::string history_;
};

class RandomSequences : public testing::TestWithParam<Mix> {};

TEST_P(RandomSequences, AgreeWithASecondImplementationAfterEveryStep) {
  const Mix& mix = GetParam();
  std::array<int, static_cast<std::size_t>(Kind::Count)> sequences_with{};
  int whole_fleets = 0;
  int all_sunk = 0;
  for (unsigned seed = 1; seed <= static_cast<unsigned>(mix.Sequences); ++seed) {
    Sequence sequence(mix, seed);
    sequence.Run(mix.Steps);
    ASSERT_FALSE(HasFailure()) << "seed " << seed << ": " << sequence.History();
    for (std::size_t kind = 0; kind < sequences_with.size(); ++kind) {
      if (sequence.Seen(static_cast<Kind>(kind))) ++sequences_with.at(kind);
    }
    if (sequence.WholeFleetWasPlaced()) ++whole_fleets;
    if (sequence.AllWereSunk()) ++all_sunk;
  }
  const int enough = mix.Sequences / 20;
  for (const Kind kind : mix.Seen) {
    EXPECT_GT(sequences_with.at(static_cast<std::size_t>(kind)), enough)
        << kKindNames.at(static_cast<std::size_t>(kind)) << " has hardly come up";
  }
  if (mix.Click > mix.Fire) {
    EXPECT_GT(whole_fleets, enough);
  } else {
    EXPECT_GT(all_sunk, enough);
  }
}

const Mix kMixes[] = {
    {"Placing",
     2000,
     200,
     90,
     4,
     4,
     0,
     0,
     0,
     0,
     {Kind::OnShip, Kind::OnMargin, Kind::StartFixed, Kind::StartErased, Kind::Diagonal, Kind::TooLong, Kind::Blocked,
      Kind::NoSuchShip, Kind::Placed, Kind::Removed}},
    {"Firing", 2000, 200, 0, 0, 0, 1, 0, 0, 0, {Kind::Water, Kind::HitBefore, Kind::Hit, Kind::Sunk}},
    {"FiringAtFleetsOverFleets",
     2000,
     200,
     0,
     0,
     0,
     97,
     0,
     3,
     0,
     {Kind::Water, Kind::HitBefore, Kind::Hit, Kind::Sunk, Kind::Refused}},
    {"BeingFiredAt", 2000, 200, 60, 1, 1, 0, 38, 0, 0, {Kind::Refused, Kind::HitBefore, Kind::Hit, Kind::Sunk}},
    {"Everything",
     2000,
     300,
     70,
     1,
     2,
     40,
     10,
     1,
     0.3,
     {Kind::OnShip, Kind::Blocked, Kind::NoSuchShip, Kind::Placed, Kind::Removed, Kind::Water, Kind::HitBefore,
      Kind::Hit, Kind::Sunk, Kind::Refused}},
};
INSTANTIATE_TEST_SUITE_P(Of, RandomSequences, testing::ValuesIn(kMixes),
                         [](const auto& tested) { return std::string(tested.param.Name); });

}  // namespace
}  // namespace brontavia::test
