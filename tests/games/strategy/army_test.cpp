#include "games/strategy/army.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <stdexcept>
#include <utility>

#include "tests/games/strategy/strategy_cells.h"

namespace brontavia::test {
namespace {

// [rank - 1]
using Counts = std::array<int, kRanks>;

struct FullArmy {
  const StrategyVariant& Variant;
  int Pieces;
  Counts ByRank;
};
constexpr FullArmy kFullArmies[] = {
    // flag, bombs, spy, scouts, miners, sergeants, lieutenants, captains, majors, colonels, general, marshal, revealed
    {kEstratega, 40, {1, 6, 1, 8, 5, 4, 4, 4, 3, 2, 1, 1, 0}},
    {kMiniEstratega, 21, {1, 3, 1, 4, 3, 0, 2, 2, 2, 1, 1, 1, 0}},
};

std::size_t Index(Rank rank) { return static_cast<std::size_t>(rank) - 1; }

Counts ToPlace(const Army& army) {
  Counts counts{};
  for (int number = 1; number <= kRanks; ++number) {
    const Rank rank = RankNumbered(number);
    counts[Index(rank)] = army.RanksToPlace(rank);
  }
  return counts;
}

// The pieces of `side` in its zone.
Counts Placed(const StrategyBoard& board, Player side) {
  Counts counts{};
  for (const Coordinate cell : AllCells(board.Variant())) {
    const int number = board.At(cell) - NumberOf(side) * 100;
    if (cell.Row <= board.Variant().ZoneRows && number >= 1 && number <= kRanks) ++counts[Index(RankNumbered(number))];
  }
  return counts;
}

// An army that is to be placed on a board of its own.
struct Placing {
  explicit Placing(const StrategyVariant& variant, Player side = Player::Server) : Board(variant) { Army.Reset(side); }

  StrategyBoard Board;
  brontavia::Army Army{Board};
};

// ---- By hand ----

TEST(Army, IsWholeAndUnplacedAfterAReset) {
  for (const FullArmy& expected : kFullArmies) {
    for (const Player side : kBothPlayers) {
      StrategyBoard board(expected.Variant);
      for (const Coordinate cell : AllCells(expected.Variant)) board.Set(cell, 113);
      Army army(board);
      army.Reset(side);
      EXPECT_EQ(ToPlace(army), expected.ByRank);
      EXPECT_EQ(army.PiecesToPlace(), expected.Pieces);
      EXPECT_EQ(CodesOf(board), CodesOf(StrategyBoard(expected.Variant)));
    }
  }
}

TEST(Army, HasAsManyPiecesAsItsZoneHasCells) {
  for (const FullArmy& army : kFullArmies) {
    EXPECT_EQ(std::accumulate(army.ByRank.begin(), army.ByRank.end(), 0), army.Pieces);
    EXPECT_EQ(army.Variant.Columns * army.Variant.ZoneRows, army.Pieces);
  }
}

TEST(Army, StandsInTheLowestRowsOnly) {
  for (const auto& [name, variant] : kVariants) {
    const Placing own(variant);
    for (const Coordinate cell : CellsAndRim(variant)) {
      const bool in_zone =
          cell.Column >= 1 && cell.Column <= variant.Columns && cell.Row >= 1 && cell.Row <= variant.ZoneRows;
      EXPECT_EQ(own.Army.MayStandOn(cell), in_zone) << name << ": " << cell.Column << ", " << cell.Row;
    }
  }
}

TEST(Army, PutsAPieceOfItsSideOnTheChosenCell) {
  for (const FullArmy& full : kFullArmies) {
    for (const Player side : kBothPlayers) {
      for (const Rank rank : kArmyRanks) {
        SCOPED_TRACE(testing::Message() << "side " << NumberOf(side) << ", rank " << NumberOf(rank));
        Placing own(full.Variant, side);
        const bool has_one = full.ByRank.at(Index(rank)) > 0;
        EXPECT_EQ(own.Army.Place(Cell("G3"), rank), has_one);
        EXPECT_EQ(own.Board.At(Cell("G3")), has_one ? NumberOf(side) * 100 + NumberOf(rank) : 0);
        EXPECT_EQ(own.Army.PiecesToPlace(), full.Pieces - (has_one ? 1 : 0));
        Counts left = full.ByRank;
        if (has_one) --left.at(Index(rank));
        EXPECT_EQ(ToPlace(own.Army), left);
      }
    }
  }
}

struct Refusal {
  std::string_view What;
  std::string_view Cell;
  brontavia::Rank Rank;
};
const Refusal kRefusals[] = {
    {"the cell is taken", "A1", Rank::Scout},
    {"an enemy has come to the cell", "B1", Rank::Scout},
    {"the only marshal is placed", "C1", Rank::Marshal},
    {"there are no revealed bombs to place", "C1", Rank::RevealedBomb},
    {"no man's land", "A5", Rank::Scout},
    {"water", "C5", Rank::Scout},
    {"the opponent's zone", "A7", Rank::Scout},
    {"no such row", "A0", Rank::Scout},
    {"no such column", "K1", Rank::Scout},
};

TEST(Army, RefusesWhatCannotBePlacedAndChangesNothing) {
  Placing own(kEstratega);
  ASSERT_TRUE(own.Army.Place(Cell("A1"), Rank::Marshal));
  own.Board.Set(Cell("B1"), CodeOf({Player::Client, Rank::Scout}));
  const std::vector<CellCode> before = CodesOf(own.Board);
  const Counts left = ToPlace(own.Army);
  for (const Refusal& tested : kRefusals) {
    EXPECT_FALSE(own.Army.Place(Cell(tested.Cell), tested.Rank)) << tested.What;
    EXPECT_EQ(CodesOf(own.Board), before) << tested.What;
    EXPECT_EQ(ToPlace(own.Army), left) << tested.What;
    EXPECT_EQ(own.Army.PiecesToPlace(), 39) << tested.What;
  }
}

TEST(Army, TakesNothingBackWhereNoOwnPieceIs) {
  Placing own(kEstratega);
  own.Board.Set(Cell("B1"), CodeOf({Player::Client, Rank::Scout}));
  const std::vector<CellCode> before = CodesOf(own.Board);
  const Counts left = ToPlace(own.Army);
  for (const std::string_view cell : {"A1", "B1", "C5"}) own.Army.TakeBack(Cell(cell));
  EXPECT_EQ(CodesOf(own.Board), before);
  EXPECT_EQ(ToPlace(own.Army), left);
  EXPECT_EQ(own.Army.PiecesToPlace(), 40);
}

TEST(Army, TakesNothingBackFromOutsideTheBoard) {
  for (const auto& [name, variant] : kVariants) {
    Placing own(variant);
    ASSERT_TRUE(own.Army.Place(Cell("A1"), Rank::Scout));
    const std::vector<CellCode> before = CodesOf(own.Board);
    const Counts left = ToPlace(own.Army);
    for (const Coordinate cell : CellsAndRim(variant)) {
      if (own.Board.Holds(cell)) continue;
      EXPECT_THROW(own.Army.TakeBack(cell), std::out_of_range) << name << ": " << cell.Column << ", " << cell.Row;
    }
    EXPECT_EQ(CodesOf(own.Board), before) << name;
    EXPECT_EQ(ToPlace(own.Army), left) << name;
    EXPECT_EQ(own.Army.PiecesToPlace(), variant.ArmySize() - 1) << name;
  }
}

TEST(Army, FillsItsZoneWhenItIsComplete) {
  for (const auto& [name, variant] : kVariants) {
    Placing own(variant, Player::Client);
    std::size_t next = 0;
    for (const Coordinate cell : AllCells(variant)) {
      if (!own.Army.MayStandOn(cell)) continue;
      while (own.Army.RanksToPlace(kArmyRanks.at(next)) == 0) ++next;
      EXPECT_TRUE(own.Army.Place(cell, kArmyRanks.at(next))) << name;
    }
    EXPECT_EQ(own.Army.PiecesToPlace(), 0) << name;
    EXPECT_EQ(ToPlace(own.Army), Counts{}) << name;
    for (const Coordinate cell : AllCells(variant)) {
      EXPECT_EQ(IsPieceOf(Player::Client, own.Board.At(cell)), cell.Row <= variant.ZoneRows) << name;
    }
    own.Army.TakeBack(Cell("A1"));
    EXPECT_EQ(own.Army.PiecesToPlace(), 1) << name;
    EXPECT_EQ(own.Army.RanksToPlace(Rank::Flag), 1) << name;
    EXPECT_TRUE(own.Army.Place(Cell("A1"), Rank::Flag)) << name;
    EXPECT_EQ(own.Army.PiecesToPlace(), 0) << name;
  }
}

TEST(Army, CountsRightAfterAnySequenceOfPlacingAndTakingBack) {
  for (const FullArmy& full : kFullArmies) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
      SCOPED_TRACE(testing::Message() << full.Pieces << " pieces, seed " << seed);
      std::mt19937 random(seed);
      const auto between = [&random](int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(random);
      };
      const Player side = between(0, 1) == 0 ? Player::Server : Player::Client;
      Placing own(full.Variant, side);
      for (int step = 0; step < 500; ++step) {
        const Coordinate cell{.Column = between(0, full.Variant.Columns + 1),
                              .Row = between(0, full.Variant.ZoneRows + 1)};
        const bool taken = own.Board.Holds(cell) && own.Board.PieceAt(cell);
        if (taken && between(0, 4) == 0) {
          own.Army.TakeBack(cell);
          ASSERT_EQ(own.Board.At(cell), kEmptyLand) << "step " << step;
        } else {
          const Rank rank = RankNumbered(between(1, kRanks));
          const int left = own.Army.RanksToPlace(rank);
          const bool in_zone = own.Board.Holds(cell) && cell.Row <= full.Variant.ZoneRows;
          ASSERT_EQ(own.Army.Place(cell, rank), in_zone && !taken && left > 0) << "step " << step;
        }
        const Counts placed = Placed(own.Board, side);
        for (int number = 1; number <= kRanks; ++number) {
          const Rank rank = RankNumbered(number);
          ASSERT_EQ(own.Army.RanksToPlace(rank), full.ByRank.at(Index(rank)) - placed.at(Index(rank)))
              << "step " << step << ", rank " << number;
        }
        ASSERT_EQ(own.Army.PiecesToPlace(), full.Pieces - std::accumulate(placed.begin(), placed.end(), 0))
            << "step " << step;
      }
    }
  }
}

// ---- At random ----

TEST(RandomDeployment, IsAlwaysAWholeArmyInTheZone) {
  for (const FullArmy& full : kFullArmies) {
    for (unsigned seed = 1; seed <= 1000; ++seed) {
      SCOPED_TRACE(testing::Message() << full.Pieces << " pieces, seed " << seed);
      std::mt19937 random(seed);
      const Player side = seed % 2 == 0 ? Player::Server : Player::Client;
      Placing own(full.Variant, side);
      own.Army.DeployAtRandom([&random](int count) { return std::uniform_int_distribution(0, count - 1)(random); });
      ASSERT_EQ(Placed(own.Board, side), full.ByRank);
      ASSERT_EQ(own.Army.PiecesToPlace(), 0);
      ASSERT_EQ(ToPlace(own.Army), Counts{});
      for (const Coordinate cell : AllCells(full.Variant)) {
        if (cell.Row <= full.Variant.ZoneRows) continue;
        ASSERT_FALSE(own.Board.PieceAt(cell)) << testing::PrintToString(cell);
      }
    }
  }
}

// Draws every cell of the zone in turn, column by column, after the given draws.
class ScriptedDraws {
 public:
  explicit ScriptedDraws(int zone_rows, std::vector<int> first = {})
      : zone_rows_(zone_rows), first_(std::move(first)) {}

  int Below(int count) {
    bounds_.push_back(count);
    const std::size_t draw = bounds_.size() - 1;
    if (draw < first_.size()) return first_[draw];
    const int cell = static_cast<int>(draw - first_.size()) / 2;
    return bounds_.size() % 2 == 1 ? cell / zone_rows_ : cell % zone_rows_;
  }

  // The bounds that were asked for, in order.
  [[nodiscard]] const std::vector<int>& Bounds() const { return bounds_; }

 private:
  int zone_rows_;
  std::vector<int> first_;
  std::vector<int> bounds_;
};

TEST(RandomDeployment, DrawsTheColumnThenTheRowForEachRankInTurn) {
  for (const FullArmy& full : kFullArmies) {
    Placing own(full.Variant, Player::Client);
    ScriptedDraws draws(full.Variant.ZoneRows);
    own.Army.DeployAtRandom([&draws](int count) { return draws.Below(count); });
    std::vector<int> bounds;
    StrategyBoard expected(full.Variant);
    Coordinate cell{.Column = 1, .Row = 1};
    for (const Rank rank : kArmyRanks) {
      for (int piece = 0; piece < full.ByRank.at(Index(rank)); ++piece) {
        expected.Set(cell, CodeOf({Player::Client, rank}));
        bounds.insert(bounds.end(), {full.Variant.Columns, full.Variant.ZoneRows});
        cell = cell.Row < full.Variant.ZoneRows ? Coordinate{.Column = cell.Column, .Row = cell.Row + 1}
                                                : Coordinate{.Column = cell.Column + 1, .Row = 1};
      }
    }
    EXPECT_EQ(CodesOf(own.Board), CodesOf(expected));
    EXPECT_EQ(draws.Bounds(), bounds);
  }
}

TEST(RandomDeployment, DrawsColumnAndRowAgainForATakenCell) {
  Placing own(kEstratega);
  // The flag on J4; the first bomb on J4, J4 again and then I4.
  ScriptedDraws draws(kEstratega.ZoneRows, {9, 3, 9, 3, 9, 3, 8, 3});
  own.Army.DeployAtRandom([&draws](int count) { return draws.Below(count); });
  EXPECT_EQ(own.Board.At(Cell("J4")), 1);
  EXPECT_EQ(own.Board.At(Cell("I4")), 2);
  EXPECT_EQ(own.Board.At(Cell("A1")), 2) << "the next one drawn";
  // A1 to J3 without I4, column by column: 38 more pieces on 39 draws.
  EXPECT_EQ(draws.Bounds().size(), 2U * (4 + 39));
}

TEST(RandomDeployment, DiscardsWhatStandsInTheZoneAndNothingElse) {
  for (const FullArmy& full : kFullArmies) {
    Placing own(full.Variant);
    ASSERT_TRUE(own.Army.Place(Cell("A1"), Rank::Marshal));
    ASSERT_TRUE(own.Army.Place(Cell("G3"), Rank::Flag));
    for (const Coordinate cell : AllCells(full.Variant)) {
      // The opponent's army is there already, and one of its scouts has come far.
      if (cell.Row >= full.Variant.EnemyZoneRow() || cell == Cell("B2")) own.Board.Set(cell, 104);
    }
    ScriptedDraws draws(full.Variant.ZoneRows);
    own.Army.DeployAtRandom([&draws](int count) { return draws.Below(count); });
    EXPECT_EQ(draws.Bounds().size(), 2U * static_cast<unsigned>(full.Pieces)) << "no cell was taken";
    EXPECT_EQ(Placed(own.Board, Player::Server), full.ByRank);
    for (const Coordinate cell : AllCells(full.Variant)) {
      if (cell.Row >= full.Variant.EnemyZoneRow()) {
        EXPECT_EQ(own.Board.At(cell), 104);
      }
    }
  }
}

TEST(RandomDeployment, CanBeTakenBackAndDrawnAgain) {
  Placing own(kMiniEstratega);
  ScriptedDraws first(kMiniEstratega.ZoneRows);
  own.Army.DeployAtRandom([&first](int count) { return first.Below(count); });
  own.Army.TakeBack(Cell("A1"));
  EXPECT_EQ(own.Army.RanksToPlace(Rank::Flag), 1);
  EXPECT_EQ(own.Army.PiecesToPlace(), 1);
  ScriptedDraws again(kMiniEstratega.ZoneRows);
  own.Army.DeployAtRandom([&again](int count) { return again.Below(count); });
  EXPECT_EQ(own.Army.PiecesToPlace(), 0);
  EXPECT_EQ(Placed(own.Board, Player::Server), kFullArmies[1].ByRank);
}

}  // namespace
}  // namespace brontavia::test
