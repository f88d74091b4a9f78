#include "games/strategy/combat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/games/strategy/strategy_cells.h"

namespace brontavia::test {
namespace {

// What stands on the target afterwards. The origin is empty in every case.
enum class Left { Attacker, Defender, Nothing, RevealedBomb };

struct Ending {
  char Letter;
  Combat How;
  CombatResult Result;
  int Code;  // that the move message carries; 3 is never sent
  brontavia::test::Left Left;
};
constexpr Ending kEndings[] = {
    {'F', Combat::FlagTaken, CombatResult::FlagTaken, 3, Left::Defender},
    {'=', Combat::BothDestroyed, CombatResult::BothDestroyed, 2, Left::Nothing},
    {'M', Combat::BombDisarmed, CombatResult::AttackerWins, 1, Left::Attacker},
    {'x', Combat::BombExplodes, CombatResult::AttackerDestroyed, 0, Left::RevealedBomb},
    {'<', Combat::Defeat, CombatResult::AttackerDestroyed, 0, Left::Defender},
    {'>', Combat::Victory, CombatResult::AttackerWins, 1, Left::Attacker},
    {'K', Combat::MarshalKilled, CombatResult::AttackerWins, 1, Left::Attacker},
    {'s', Combat::SpyKilled, CombatResult::AttackerDestroyed, 0, Left::Defender},
};

// Every attacker (3..12) against every defender (1..13).
struct Fights {
  Rank Attacker;
  std::string_view Endings;  // a letter for each defender
};
constexpr Fights kFights[] = {
    // defender: flag    spy    miner   lieutenant major    general   revealed
    //             bomb    scout   sergeant captain  colonel   marshal   bomb
    //              1  2  3  4  5  6  7  8  9 10 11 12 13
    {.Attacker = Rank::Spy, .Endings = "F  x  =  s  s  s  s  s  s  s  s  K  x"},
    {.Attacker = Rank::Scout, .Endings = "F  x  >  =  <  <  <  <  <  <  <  <  x"},
    {.Attacker = Rank::Miner, .Endings = "F  M  >  >  =  <  <  <  <  <  <  <  M"},
    {.Attacker = Rank::Sergeant, .Endings = "F  x  >  >  >  =  <  <  <  <  <  <  x"},
    {.Attacker = Rank::Lieutenant, .Endings = "F  x  >  >  >  >  =  <  <  <  <  <  x"},
    {.Attacker = Rank::Captain, .Endings = "F  x  >  >  >  >  >  =  <  <  <  <  x"},
    {.Attacker = Rank::Major, .Endings = "F  x  >  >  >  >  >  >  =  <  <  <  x"},
    {.Attacker = Rank::Colonel, .Endings = "F  x  >  >  >  >  >  >  >  =  <  <  x"},
    {.Attacker = Rank::General, .Endings = "F  x  >  >  >  >  >  >  >  >  =  <  x"},
    {.Attacker = Rank::Marshal, .Endings = "F  x  >  >  >  >  >  >  >  >  >  =  x"},
};

const Ending& EndingOf(Rank attacker, Rank defender) {
  const Fights& row = *std::ranges::find(kFights, attacker, &Fights::Attacker);
  const char letter = row.Endings.at(static_cast<std::size_t>(NumberOf(defender) - 1) * 3);
  return *std::ranges::find(kEndings, letter, &Ending::Letter);
}

template <typename Check>
void ForAllPairs(const Check& check) {
  for (const Fights& row : kFights) {
    for (int number = 1; number <= kRanks; ++number) {
      const Rank defender = RankNumbered(number);
      SCOPED_TRACE(testing::Message() << NumberOf(row.Attacker) << " attacks " << number);
      check(row.Attacker, defender, EndingOf(row.Attacker, defender));
    }
  }
}

CellCode Survivor(Left left, CellCode attacker, CellCode defender) {
  switch (left) {
    case Left::Attacker:
      return attacker;
    case Left::Defender:
      return defender;
    case Left::Nothing:
      return kEmptyLand;
    case Left::RevealedBomb:
      return defender < 100 ? 13 : 113;
  }
  return kWaterCell;
}

// Every cell but the two that fight holds a piece that has nothing to do with it.
StrategyBoard CrowdedBoard(const StrategyVariant& variant) {
  StrategyBoard board(variant);
  int next = 0;
  for (const Coordinate cell : AllCells(variant)) {
    if (board.At(cell) == kEmptyLand)
      board.Set(cell, CodeOf({next % 2 == 0 ? Player::Server : Player::Client, RankNumbered(1 + next % 13)}));
    ++next;
  }
  return board;
}

TEST(Combat, IsDecidedByTheTwoRanks) {
  ForAllPairs([](Rank attacker, Rank defender, const Ending& ending) {
    EXPECT_EQ(ResolveCombat(attacker, defender), ending.How);
    EXPECT_EQ(ResultOf(ResolveCombat(attacker, defender)), ending.Result);
    EXPECT_EQ(static_cast<int>(ending.Result), ending.Code);
  });
}

TEST(Combat, LeavesTheSurvivorOnTheTargetAndAllOtherCellsAlone) {
  const Coordinate from = Cell("E4");
  for (const NamedVariant& tested : kVariants) {
    // Beside the origin, and at a distance as scouts attack.
    for (const Coordinate to : {Cell("E5"), Cell("D4"), Cell("E8"), Cell("A4")}) {
      for (const Player side : kBothPlayers) {
        SCOPED_TRACE(testing::Message() << tested.Name << ", side " << NumberOf(side) << " attacks "
                                        << testing::PrintToString(to));
        ForAllPairs([&](Rank attacking_rank, Rank defending_rank, const Ending& ending) {
          const CellCode attacker = CodeOf({side, attacking_rank});
          const CellCode defender = CodeOf({OpponentOf(side), defending_rank});
          StrategyBoard board = CrowdedBoard(tested.Variant);
          board.Set(from, attacker);
          board.Set(to, defender);
          StrategyBoard expected = board;
          expected.Set(from, kEmptyLand);
          expected.Set(to, Survivor(ending.Left, attacker, defender));
          ApplyResult(board, attacker, from, to, ending.Result);
          EXPECT_EQ(CodesOf(board), CodesOf(expected));
        });
      }
    }
  }
}

TEST(Combat, EqualRanksDestroyEachOtherBeforeAnyOtherRule) {
  for (const auto& [rank, endings] : kFights) {
    EXPECT_EQ(ResolveCombat(rank, rank), Combat::BothDestroyed) << NumberOf(rank);
  }
}

TEST(Combat, ASpyLosesToWhateverAttacksItTheMarshalIncluded) {
  for (const auto& [attacker, endings] : kFights) {
    if (attacker == Rank::Spy) continue;
    EXPECT_EQ(ResolveCombat(attacker, Rank::Spy), Combat::Victory) << NumberOf(attacker);
  }
}

TEST(Combat, OnlyAnAttackingSpyBeatsTheMarshal) {
  for (const auto& [attacker, endings] : kFights) {
    const bool wins = ResultOf(ResolveCombat(attacker, Rank::Marshal)) == CombatResult::AttackerWins;
    EXPECT_EQ(wins, attacker == Rank::Spy) << NumberOf(attacker);
  }
}

TEST(Combat, ABombIsRevealedOnceAndStaysItsArmys) {
  StrategyBoard board(kEstratega);
  for (const Player side : kBothPlayers) {
    const CellCode attacker = CodeOf({OpponentOf(side), Rank::Marshal});
    board.Set(Cell("A5"), CodeOf({side, Rank::Bomb}));
    for (int attack = 0; attack < 2; ++attack) {
      board.Set(Cell("A4"), attacker);
      ApplyResult(board, attacker, Cell("A4"), Cell("A5"), CombatResult::AttackerDestroyed);
      EXPECT_EQ(board.At(Cell("A5")), CodeOf({side, Rank::RevealedBomb})) << "attack " << attack;
      EXPECT_EQ(board.At(Cell("A4")), kEmptyLand);
    }
  }
}

// The other copy tells of an attack that this one cannot judge.
TEST(Combat, ThatDestroysTheAttackerRevealsBombsAndChangesNoOtherTarget) {
  std::vector<CellCode> targets{kWaterCell, kEmptyLand};
  for (const Player side : kBothPlayers) {
    for (int rank = 1; rank <= kRanks; ++rank) targets.push_back(CodeOf({side, RankNumbered(rank)}));
  }
  for (const CellCode target : targets) {
    StrategyBoard board(kEstratega);
    board.Set(Cell("A4"), CodeOf({Player::Client, Rank::Scout}));
    board.Set(Cell("A5"), target);
    ApplyResult(board, CodeOf({Player::Client, Rank::Scout}), Cell("A4"), Cell("A5"), CombatResult::AttackerDestroyed);
    EXPECT_EQ(board.At(Cell("A5")), target == 2 || target == 102 ? target + 11 : target);
    EXPECT_EQ(board.At(Cell("A4")), kEmptyLand) << target;
  }
}

TEST(PlainMove, CarriesThePieceToTheTarget) {
  StrategyBoard board(kMiniEstratega);
  board.Set(Cell("G3"), CodeOf({Player::Client, Rank::Scout}));
  StrategyBoard expected(kMiniEstratega);
  expected.Set(Cell("G8"), CodeOf({Player::Client, Rank::Scout}));
  ApplyResult(board, CodeOf({Player::Client, Rank::Scout}), Cell("G3"), Cell("G8"), CombatResult::AttackerWins);
  EXPECT_EQ(CodesOf(board), CodesOf(expected));
}

}  // namespace
}  // namespace brontavia::test
