#include "games/strategy/strategy_board.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

#include "tests/games/strategy/strategy_cells.h"

namespace brontavia::test {
namespace {

// ---- The variants ----

struct Measures {
  const StrategyVariant& Variant;
  int Columns;
  int Rows;
  int ZoneRows;
  int ArmySize;
  int EnemyZoneRow;
  std::string_view Empty;  // the board without pieces, from the top: "." land, "~" water
};
constexpr Measures kMeasures[] = {
    {kEstratega, 10, 10, 4, 40, 7,
     "..........\n"
     "..........\n"
     "..........\n"
     "..........\n"
     "..~~..~~..\n"  // row 6
     "..~~..~~..\n"  // row 5
     "..........\n"
     "..........\n"
     "..........\n"
     "..........\n"},
    {kMiniEstratega, 7, 8, 3, 21, 6,
     ".......\n"
     ".......\n"
     ".......\n"
     ".~...~.\n"  // row 5
     ".~...~.\n"  // row 4
     ".......\n"
     ".......\n"
     ".......\n"},
};

std::string PictureOf(const StrategyBoard& board) {
  std::string picture;
  for (int row = board.Variant().Rows; row >= 1; --row) {
    for (int column = 1; column <= board.Variant().Columns; ++column) {
      const CellCode code = board.At({.Column = column, .Row = row});
      picture += code == kWaterCell ? '~' : code == kEmptyLand ? '.' : '?';
    }
    picture += '\n';
  }
  return picture;
}

TEST(StrategyVariant, HasItsMeasures) {
  for (const Measures& expected : kMeasures) {
    EXPECT_EQ(expected.Variant.Columns, expected.Columns);
    EXPECT_EQ(expected.Variant.Rows, expected.Rows);
    EXPECT_EQ(expected.Variant.ZoneRows, expected.ZoneRows);
    EXPECT_EQ(expected.Variant.ArmySize(), expected.ArmySize);
    EXPECT_EQ(expected.Variant.EnemyZoneRow(), expected.EnemyZoneRow);
  }
}

TEST(StrategyVariant, HasNoWaterInEitherZoneAndTheSameWaterForBothPlayers) {
  for (const auto& [name, variant] : kVariants) {
    for (const Coordinate cell : variant.Water) {
      EXPECT_GT(cell.Row, variant.ZoneRows) << name;
      EXPECT_LT(cell.Row, variant.EnemyZoneRow()) << name;
      EXPECT_EQ(std::ranges::count(variant.Water, variant.Mirrored(cell)), 1) << name;
    }
  }
}

struct Mirrored {
  const StrategyVariant& Variant;
  std::string_view Cell;
  std::string_view Seen;  // by the opponent
};
constexpr Mirrored kMirrored[] = {
    {kEstratega, "J4", "A7"},     {kEstratega, "A1", "J10"},    {kEstratega, "C5", "H6"},
    {kEstratega, "A10", "J1"},    {kEstratega, "E4", "F7"},     {kMiniEstratega, "G3", "A6"},
    {kMiniEstratega, "A1", "G8"}, {kMiniEstratega, "D4", "D5"}, {kMiniEstratega, "B5", "F4"},
};

TEST(Opponent, SeesTheBoardTurnedBy180Degrees) {
  for (const auto& [variant, cell, seen] : kMirrored) {
    EXPECT_EQ(variant.Mirrored(Cell(cell)), Cell(seen)) << cell;
    EXPECT_EQ(variant.Mirrored(Cell(seen)), Cell(cell)) << seen;
  }
}

// ---- The board ----

TEST(StrategyBoard, BeginsWithLandAndWater) {
  for (const Measures& expected : kMeasures) {
    const StrategyBoard board(expected.Variant);
    EXPECT_EQ(&board.Variant(), &expected.Variant);
    EXPECT_EQ(PictureOf(board), expected.Empty);
  }
}

TEST(StrategyBoard, KeepsACodeForEveryCell) {
  for (const auto& [name, variant] : kVariants) {
    StrategyBoard board(variant);
    std::vector<CellCode> codes;
    for (const Coordinate cell : AllCells(variant)) {
      codes.push_back(static_cast<CellCode>(1000 + codes.size()));
      board.Set(cell, codes.back());
    }
    EXPECT_EQ(CodesOf(board), codes) << name;
  }
}

TEST(StrategyBoard, HoldsNoCellButItsOwn) {
  for (const Measures& expected : kMeasures) {
    StrategyBoard board(expected.Variant);
    board.Set(Cell("A1"), 7);
    const std::vector<CellCode> before = CodesOf(board);
    std::vector<Coordinate> tested = CellsAndRim(expected.Variant);
    for (const int far : {std::numeric_limits<int>::min(), -32768, 32767, std::numeric_limits<int>::max()}) {
      tested.push_back({.Column = far, .Row = 1});
      tested.push_back({.Column = 1, .Row = far});
      tested.push_back({.Column = far, .Row = far});
    }
    for (const Coordinate cell : tested) {
      const bool inside =
          cell.Column >= 1 && cell.Column <= expected.Columns && cell.Row >= 1 && cell.Row <= expected.Rows;
      EXPECT_EQ(board.Holds(cell), inside) << cell.Column << ", " << cell.Row;
      if (inside) continue;
      EXPECT_THROW(static_cast<void>(board.At(cell)), std::out_of_range) << cell.Column << ", " << cell.Row;
      EXPECT_THROW(board.Set(cell, 112), std::out_of_range) << cell.Column << ", " << cell.Row;
    }
    EXPECT_EQ(CodesOf(board), before);
  }
}

TEST(StrategyBoard, IsClearedOfEveryPieceAndLaidOutWithWaterAgain) {
  for (const Measures& expected : kMeasures) {
    StrategyBoard board(expected.Variant);
    for (const Coordinate cell : AllCells(expected.Variant)) board.Set(cell, 113);
    board.Clear();
    EXPECT_EQ(PictureOf(board), expected.Empty);
  }
}

// ---- The army as text ----

// An army, a hexadecimal digit for each rank, from the innermost row of the zone down and each row from its rightmost
// column; and what travels.
struct Travelling {
  const StrategyVariant& Variant;
  std::string_view Ranks;
  std::u16string_view Red;
  std::u16string_view Blue;
};
constexpr Travelling kTravelling[] = {
    {kEstratega,
     "A421567893"   // J4 to A4
     "BC22222444"   // J3 to A3
     "4444555566"   // J2 to A2
     "677788899A",  // J1 to A1
     u"010,004,002,001,005,006,007,008,009,003,011,012,002,002,002,002,002,004,004,004,"
     u"004,004,004,004,005,005,005,005,006,006,006,007,007,007,008,008,008,009,009,010,",
     u"110,104,102,101,105,106,107,108,109,103,111,112,102,102,102,102,102,104,104,104,"
     u"104,104,104,104,105,105,105,105,106,106,106,107,107,107,108,108,108,109,109,110,"},
    {kMiniEstratega,
     "C421537"   // G3 to A3
     "AB22444"   // G2 to A2
     "5578899",  // G1 to A1
     u"012,004,002,001,005,003,007,010,011,002,002,004,004,004,005,005,007,008,008,009,009,",
     u"112,104,102,101,105,103,107,110,111,102,102,104,104,104,105,105,107,108,108,109,109,"},
};

StrategyBoard BoardWithArmy(const Travelling& army, Player side) {
  StrategyBoard board(army.Variant);
  std::size_t next = 0;
  for (int row = army.Variant.ZoneRows; row >= 1; --row) {
    for (int column = army.Variant.Columns; column >= 1; --column) {
      const char digit = army.Ranks.at(next++);
      board.Set({.Column = column, .Row = row},
                CodeOf({side, RankNumbered(digit <= '9' ? digit - '0' : digit - 'A' + 10)}));
    }
  }
  return board;
}

TEST(ArmyText, GoesFromTheInnermostRowDownAndFromRightToLeft) {
  for (const Travelling& army : kTravelling) {
    EXPECT_EQ(BoardWithArmy(army, Player::Server).ArmyText(), army.Red);
    EXPECT_EQ(BoardWithArmy(army, Player::Client).ArmyText(), army.Blue);
    EXPECT_EQ(army.Red.size(), static_cast<std::size_t>(army.Variant.ArmySize()) * 4);
  }
}

TEST(ArmyText, HasAFieldForEmptyCellsAndNoneOutsideTheZone) {
  for (const auto& [name, variant] : kVariants) {
    StrategyBoard board(variant);
    std::u16string empty;
    for (int field = 0; field < variant.ArmySize(); ++field) empty += u"000,";
    EXPECT_EQ(board.ArmyText(), empty) << name;
    for (const Coordinate cell : AllCells(variant)) {
      if (cell.Row > variant.ZoneRows) board.Set(cell, 112);
    }
    EXPECT_EQ(board.ArmyText(), empty) << name;
  }
}

TEST(ArmyThatArrives, StandsTurnedInTheTopRowsAndChangesNothingElse) {
  for (const Travelling& army : kTravelling) {
    for (const Player sender : kBothPlayers) {
      const StrategyBoard sent = BoardWithArmy(army, sender);
      StrategyBoard received = BoardWithArmy(army, OpponentOf(sender));
      StrategyBoard expected = received;
      for (const Coordinate cell : AllCells(army.Variant)) {
        if (cell.Row <= army.Variant.ZoneRows) expected.Set(army.Variant.Mirrored(cell), sent.At(cell));
      }
      received.TakeArmy(sent.ArmyText(), sender);
      EXPECT_EQ(CodesOf(received), CodesOf(expected)) << "sent by side " << NumberOf(sender);
    }
  }
}

TEST(ArmyThatArrives, FillsTheTopRowsFromLeftToRightAndFromBottomToTop) {
  StrategyBoard large(kEstratega);
  large.TakeArmy(kTravelling[0].Blue, Player::Client);
  EXPECT_EQ(large.At(Cell("A7")), 110) << "the sender's J4";
  EXPECT_EQ(large.At(Cell("B7")), 104) << "the sender's I4";
  EXPECT_EQ(large.At(Cell("J7")), 103) << "the sender's A4";
  EXPECT_EQ(large.At(Cell("A8")), 111) << "the sender's J3";
  EXPECT_EQ(large.At(Cell("J10")), 110) << "the sender's A1";
  StrategyBoard small(kMiniEstratega);
  small.TakeArmy(kTravelling[1].Red, Player::Server);
  EXPECT_EQ(small.At(Cell("A6")), 12) << "the sender's G3";
  EXPECT_EQ(small.At(Cell("G8")), 9) << "the sender's A1";
}

TEST(ArmyThatArrives, TakesThePlaceOfOneThatCameBefore) {
  for (const Travelling& army : kTravelling) {
    StrategyBoard twice(army.Variant);
    for (const Coordinate cell : AllCells(army.Variant)) {
      if (cell.Row >= army.Variant.EnemyZoneRow()) twice.Set(cell, 113);
    }
    twice.TakeArmy(army.Blue, Player::Client);
    StrategyBoard once(army.Variant);
    once.TakeArmy(army.Blue, Player::Client);
    EXPECT_EQ(CodesOf(twice), CodesOf(once));
  }
}

// ---- Armies that are none ----

// Before anything arrives, a red marshal stands on every cell of the top rows.
constexpr CellCode kBefore = 12;

struct BadArmy {
  std::string_view What;
  std::u16string_view Data;
  std::vector<CellCode> Taken;  // from A7 on; the cells behind keep what they hold
};
const BadArmy kBadArmies[] = {
    {"nothing", u"", {}},
    {"less than a field", u"112", {}},
    {"one field", u"112,", {112}},
    {"cut inside a field", u"112,10", {112}},
    {"letters", u"abc,112,", {0, 112}},
    {"a number with letters behind", u"11x,112,", {0, 112}},
    {"digits without a comma", u"1121107,", {0, 107}},
    {"blanks in a number", u"1 1,1 12", {0, 112}},
    {"nothing between commas", u",,,,112,", {0, 112}},
    {"negative", u"-12,-112-10,112,", {0, 0, 0, 112}},
    {"empty cells", u"000,112,", {0, 112}},
    {"pieces of the other side", u"001,011,112,", {0, 0, 112}},
    {"an army with no rank", u"100,101,", {0, 101}},
    {"revealed bombs", u"113,013,112,", {0, 0, 112}},
    {"codes past all pieces", u"114,199,200,201,212,999,112,", {0, 0, 0, 0, 0, 0, 112}},
    {"numbers past every integer", u"9e9,1e99112,", {0, 0, 112}},
    {"characters that no code page has", u"\u4E2D\u4E2D\u4E2D,112,", {0, 112}},
    {"text of another message", u"Listo|", {0}},
};

TEST(ArmyThatArrives, IsTakenAsFarAsItIsSound) {
  for (const BadArmy& tested : kBadArmies) {
    StrategyBoard board(kEstratega);
    for (const Coordinate cell : AllCells(kEstratega)) {
      if (cell.Row >= 7) board.Set(cell, kBefore);
    }
    std::vector<CellCode> expected = CodesOf(board);
    std::ranges::copy(tested.Taken, expected.begin() + 60);
    board.TakeArmy(tested.Data, Player::Client);
    EXPECT_EQ(CodesOf(board), expected) << tested.What;
  }
}

TEST(ArmyThatArrives, LeavesAPieceThatHasComeIntoItsZone) {
  StrategyBoard board(kEstratega);
  board.Set({1, 7}, 4);
  board.Set({2, 7}, 4);
  board.TakeArmy(u"004,007,112,", Player::Client);
  EXPECT_EQ(board.At({1, 7}), 4) << "it says itself that the scout is there";
  EXPECT_EQ(board.At({2, 7}), kEmptyLand);
  EXPECT_EQ(board.At({3, 7}), 112);
}

TEST(ArmyThatArrives, IsWholeWhateverFollowsIt) {
  for (const Travelling& army : kTravelling) {
    StrategyBoard expected(army.Variant);
    expected.TakeArmy(army.Blue, Player::Client);
    std::u16string endless(army.Blue);
    for (int field = 0; field < 10000; ++field) endless += u"112,";
    for (const std::u16string& data : {std::u16string(army.Blue) + u"Listo|", endless}) {
      StrategyBoard board(army.Variant);
      board.TakeArmy(data, Player::Client);
      EXPECT_EQ(CodesOf(board), CodesOf(expected));
    }
  }
}

TEST(ArmyThatArrives, HasPiecesOfItsSideWithRanks1To12Only) {
  for (const Player side : kBothPlayers) {
    for (int number = 0; number <= 999; ++number) {
      std::u16string field = u"000,";
      field[0] = static_cast<char16_t>(u'0' + number / 100);
      field[1] = static_cast<char16_t>(u'0' + number / 10 % 10);
      field[2] = static_cast<char16_t>(u'0' + number % 10);
      StrategyBoard board(kMiniEstratega);
      board.TakeArmy(field, side);
      const bool sound = number >= NumberOf(side) * 100 + 1 && number <= NumberOf(side) * 100 + 12;
      EXPECT_EQ(board.At(Cell("A6")), sound ? number : 0) << number << " of side " << NumberOf(side);
    }
  }
}

}  // namespace
}  // namespace brontavia::test
