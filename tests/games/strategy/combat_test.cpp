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

constexpr int kDefenders = 13;

// Every attacker (3..12) against every defender (1..13).
struct Fights {
  int Attacker;
  std::string_view Endings;  // a letter for each defender
};
constexpr Fights kFights[] = {
    // defender: flag    spy    miner   lieutenant major    general   revealed
    //             bomb    scout   sergeant captain  colonel   marshal   bomb
    //              1  2  3  4  5  6  7  8  9 10 11 12 13
    {.Attacker = 3, .Endings = "F  x  =  s  s  s  s  s  s  s  s  K  x"},   // spy
    {.Attacker = 4, .Endings = "F  x  >  =  <  <  <  <  <  <  <  <  x"},   // scout
    {.Attacker = 5, .Endings = "F  M  >  >  =  <  <  <  <  <  <  <  M"},   // miner
    {.Attacker = 6, .Endings = "F  x  >  >  >  =  <  <  <  <  <  <  x"},   // sergeant
    {.Attacker = 7, .Endings = "F  x  >  >  >  >  =  <  <  <  <  <  x"},   // lieutenant
    {.Attacker = 8, .Endings = "F  x  >  >  >  >  >  =  <  <  <  <  x"},   // captain
    {.Attacker = 9, .Endings = "F  x  >  >  >  >  >  >  =  <  <  <  x"},   // major
    {.Attacker = 10, .Endings = "F  x  >  >  >  >  >  >  >  =  <  <  x"},  // colonel
    {.Attacker = 11, .Endings = "F  x  >  >  >  >  >  >  >  >  =  <  x"},  // general
    {.Attacker = 12, .Endings = "F  x  >  >  >  >  >  >  >  >  >  =  x"},  // marshal
};

const Ending& EndingOf(int attacker, int defender) {
  const Fights& row = kFights[attacker - rank::kSpy];
  const char letter = row.Endings.at(static_cast<std::size_t>(defender - 1) * 3);
  return *std::ranges::find(kEndings, letter, &Ending::Letter);
}

template <typename Check>
void ForAllPairs(const Check& check) {
  for (int attacker = rank::kSpy; attacker <= rank::kMarshal; ++attacker) {
    for (int defender = 1; defender <= kDefenders; ++defender) {
      SCOPED_TRACE(testing::Message() << attacker << " attacks " << defender);
      check(attacker, defender, EndingOf(attacker, defender));
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
      return SideOf(defender) == Player::Server ? 13 : 113;
  }
  return kWaterCell;
}

// Every cell but the two that fight holds a piece that has nothing to do with it.
StrategyBoard CrowdedBoard(const StrategyVariant& variant) {
  StrategyBoard board(variant);
  int next = 0;
  for (const Coordinate cell : AllCells(variant)) {
    if (board.At(cell) == kEmptyLand)
      board.Set(cell, PieceCode(next % 2 == 0 ? Player::Server : Player::Client, 1 + next % 13));
    ++next;
  }
  return board;
}

TEST(Combat, IsDecidedByTheTwoRanks) {
  ForAllPairs([](int attacker, int defender, const Ending& ending) {
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
        ForAllPairs([&](int attacking_rank, int defending_rank, const Ending& ending) {
          const CellCode attacker = PieceCode(side, attacking_rank);
          const CellCode defender = PieceCode(OpponentOf(side), defending_rank);
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
  for (int rank = rank::kSpy; rank <= rank::kMarshal; ++rank) {
    EXPECT_EQ(ResolveCombat(rank, rank), Combat::BothDestroyed) << rank;
  }
}

TEST(Combat, ASpyLosesToWhateverAttacksItTheMarshalIncluded) {
  for (int attacker = rank::kScout; attacker <= rank::kMarshal; ++attacker) {
    EXPECT_EQ(ResolveCombat(attacker, rank::kSpy), Combat::Victory) << attacker;
  }
}

TEST(Combat, OnlyAnAttackingSpyBeatsTheMarshal) {
  for (int attacker = rank::kSpy; attacker <= rank::kMarshal; ++attacker) {
    const bool wins = ResultOf(ResolveCombat(attacker, rank::kMarshal)) == CombatResult::AttackerWins;
    EXPECT_EQ(wins, attacker == rank::kSpy) << attacker;
  }
}

TEST(Combat, ABombIsRevealedOnceAndStaysItsArmys) {
  StrategyBoard board(kEstratega);
  for (const Player side : kBothPlayers) {
    const CellCode attacker = PieceCode(OpponentOf(side), rank::kMarshal);
    board.Set(Cell("A5"), PieceCode(side, rank::kBomb));
    for (int attack = 0; attack < 2; ++attack) {
      board.Set(Cell("A4"), attacker);
      ApplyResult(board, attacker, Cell("A4"), Cell("A5"), CombatResult::AttackerDestroyed);
      EXPECT_EQ(board.At(Cell("A5")), PieceCode(side, 13)) << "attack " << attack;
      EXPECT_EQ(board.At(Cell("A4")), kEmptyLand);
    }
  }
}

// The other copy tells of an attack that this one cannot judge.
TEST(Combat, ThatDestroysTheAttackerRevealsBombsAndChangesNoOtherTarget) {
  std::vector<CellCode> targets{kWaterCell, kEmptyLand};
  for (const Player side : kBothPlayers) {
    for (int rank = 1; rank <= kDefenders; ++rank) targets.push_back(PieceCode(side, rank));
  }
  for (const CellCode target : targets) {
    StrategyBoard board(kEstratega);
    board.Set(Cell("A4"), PieceCode(Player::Client, rank::kScout));
    board.Set(Cell("A5"), target);
    ApplyResult(board, PieceCode(Player::Client, rank::kScout), Cell("A4"), Cell("A5"),
                CombatResult::AttackerDestroyed);
    EXPECT_EQ(board.At(Cell("A5")), RankOf(target) == rank::kBomb ? target + 11 : target);
    EXPECT_EQ(board.At(Cell("A4")), kEmptyLand) << target;
  }
}

TEST(PlainMove, CarriesThePieceToTheTarget) {
  StrategyBoard board(kMiniEstratega);
  board.Set(Cell("G3"), PieceCode(Player::Client, rank::kScout));
  StrategyBoard expected(kMiniEstratega);
  expected.Set(Cell("G8"), PieceCode(Player::Client, rank::kScout));
  ApplyResult(board, PieceCode(Player::Client, rank::kScout), Cell("G3"), Cell("G8"), CombatResult::AttackerWins);
  EXPECT_EQ(CodesOf(board), CodesOf(expected));
}

}  // namespace
}  // namespace brontavia::test
