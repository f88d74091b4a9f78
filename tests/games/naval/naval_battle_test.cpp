// Whole battles at random between two flows.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "games/naval/sea_drawing.h"
#include "tests/support/bar_pair.h"
#include "tests/support/random_games.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kBattlesPerSession = 100;
constexpr int kMostShots = 20'000;

// What one copy knows of a fleet by its own reckoning must be what the other copy, whose fleet it is, knows.
void ExpectSameFleet(const NavalBoard& owner, const NavalBoard& shooter) {
  for (int ship = 1; ship <= kShipsPerFleet; ++ship) {
    const ShipRecord& own = owner.Ship(ship);
    const ShipRecord& seen = shooter.Ship(ship + kEnemyOffset);
    ASSERT_EQ(own.Start, seen.Start);
    ASSERT_EQ(own.End, seen.End);
    ASSERT_EQ(own.Segments, seen.Segments);
    ASSERT_EQ(own.IntactCount, seen.IntactCount);
    ASSERT_EQ(own.State, seen.State);
  }
}

// Whether `cell` of the opponent's sea shows his ship when it is sunk, and no other.
bool TellsNoSecret(const BarCopy& copy, Coordinate cell) {
  const CellContent& shown = copy.Flow.FG1().Cell({cell.Row, cell.Column});
  const int ship = copy.Flow.Board().EnemyBoard(cell);
  const bool sunk = ship != 0 && copy.Flow.Board().Ship(ship).State == ShipState::Hundido;
  return Unpacked(shown.Drawing).Sunk == sunk && (sunk || shown.Drawing == 0) &&
         (shown.Marks == Mark::LastMove || shown.Marks == Marks());
}

// One expectation for the whole sea: ten thousand battles look at it after every shot.
void ExpectNoSecretTold(const BarCopy& copy) {
  static const std::vector<Coordinate> kSea = CellsBetween({1, 1}, {kSeaSide, kSeaSide});
  const auto bad = std::ranges::find_if(kSea, [&](Coordinate cell) { return !TellsNoSecret(copy, cell); });
  ASSERT_TRUE(bad == kSea.end()) << bad->Column << ' ' << bad->Row;
}

void ExpectInStep(const BarPair& pair) {
  for (const BarCopy* copy : {&pair.Server, &pair.Client}) ASSERT_NO_FATAL_FAILURE(ExpectNoSecretTold(*copy));
  const Session& server = pair.Server.Flow.State();
  const Session& client = pair.Client.Flow.State();
  ASSERT_EQ(server.CurrentTurn, client.CurrentTurn);
  ASSERT_EQ(server.Scores, client.Scores);
  ASSERT_EQ(server.GameOver, client.GameOver);
  // The loser learns that he has lost before he reads the last hit, which then counts no more.
  if (server.GameOver) return;
  ASSERT_NO_FATAL_FAILURE(ExpectSameFleet(pair.Server.Flow.Board(), pair.Client.Flow.Board()));
  ASSERT_NO_FATAL_FAILURE(ExpectSameFleet(pair.Client.Flow.Board(), pair.Server.Flow.Board()));
}

class Battle {
 public:
  explicit Battle(unsigned seed) : Pair(seed), random_(seed) {
    for (BarCopy* copy : {&Pair.Server, &Pair.Client}) {
      copy->Dialogs.AnswerBox = [](const QString& title) {
        return title == box::kRequestTitle ? Button::Ok : Button::Yes;
      };
      copy->Dialogs.AnswerInput = [](const QString& title) { return title == box::kTurnTitle ? u"3"_s : u"Ana"_s; };
    }
    Pair.Ask();
    Pair.Settle();
  }

  BarPair Pair;

  // Clicks at random until the fleet is complete, now and then taking a ship off again.
  void Place(BarCopy& copy) {
    for (int clicks = 0; copy.Flow.PlacementMode(); ++clicks) {
      ASSERT_LT(clicks, kMostShots) << "no fleet in sight";
      const Coordinate cell = NextEnd(copy.Flow.Board().PendingStart());
      const int code = copy.Flow.Board().OwnBoard(cell);
      const bool ship = code > 0 && code < kWaterMargin;
      if (ship && Below(20) != 0) continue;
      copy.Click(cell);
      if (Below(30) == 0) copy.Flow.BoardKeyPressed(Qt::Key_Escape);
    }
    Pair.Settle();
  }

  void Fight() {
    for (int shots = 0; !Pair.Server.Flow.State().GameOver; ++shots) {
      ASSERT_LT(shots, kMostShots) << "no end in sight";
      const Player shooter = Pair.Server.Flow.State().CurrentTurn;
      BarCopy& copy = Pair.Copy(Below(20) == 0 ? OpponentOf(shooter) : shooter);
      const Coordinate cell = AnyCell();
      if (copy.Flow.Board().ShotBoard(cell) != 0 && Below(10) != 0) continue;
      copy.Click(cell);
      Pair.Settle();
      ASSERT_NO_FATAL_FAILURE(ExpectInStep(Pair));
    }
  }

  void AskForRematch() {
    const Player first = Below(2) == 0 ? Player::Server : Player::Client;
    for (const Player player : {first, OpponentOf(first)}) {
      Pair.Copy(player).Click({.Column = 1, .Row = 1});
      Pair.Settle();
    }
  }

 private:
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  // Mostly a cell in line with the start of a ship, not always one that fits.
  Coordinate NextEnd(std::optional<Coordinate> start) {
    Coordinate end = AnyCell();
    if (!start || Below(5) == 0) return end;
    const int distance = Below(2 * kLongestShip + 1) - kLongestShip;
    end = Below(2) == 0 ? Coordinate{start->Column + distance, start->Row}
                        : Coordinate{start->Column, start->Row + distance};
    return IsOnGrid(end) ? end : AnyCell();
  }
  Coordinate AnyCell() { return {.Column = 1 + Below(kSeaSide), .Row = 1 + Below(kSeaSide)}; }

  std::mt19937 random_;
};

TEST(NavalBattleRandom, WholeBattlesAgreeOnEveryHitSinkingTurnAndScore) {
  for (unsigned seed = 0; seed < kRandomGames / kBattlesPerSession; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Battle battle(seed);
    for (int i = 0; i < kBattlesPerSession; ++i) {
      ASSERT_NO_FATAL_FAILURE(battle.Place(battle.Pair.Server));
      ASSERT_NO_FATAL_FAILURE(battle.Place(battle.Pair.Client));
      ASSERT_NO_FATAL_FAILURE(ExpectInStep(battle.Pair));
      ASSERT_NO_FATAL_FAILURE(battle.Fight());
      battle.AskForRematch();
      ASSERT_FALSE(battle.Pair.Server.Flow.State().GameOver);
      ASSERT_FALSE(battle.Pair.Client.Flow.State().GameOver);
    }
    const auto& scores = battle.Pair.Server.Flow.State().Scores;
    ASSERT_EQ(scores.Server + scores.Client, kBattlesPerSession);
  }
}

}  // namespace
}  // namespace brontavia::test
