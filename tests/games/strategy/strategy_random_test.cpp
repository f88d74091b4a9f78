// Whole strategy games at random between two flows.
#include <gtest/gtest.h>

#include <random>

#include "games/strategy/movement.h"
#include "tests/support/random_games.h"
#include "tests/support/strategy_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kGamesPerSession = 50;
constexpr int kMostTurns = 2'000;  // of one game; a game in which nobody reaches a flag is left

void ExpectSameBoard(const StrategyBoard& server, const StrategyBoard& client) {
  const StrategyVariant& variant = server.Variant();
  for (Coordinate cell{.Column = 1, .Row = 1}; cell.Row <= variant.Rows; ++cell.Row) {
    for (cell.Column = 1; cell.Column <= variant.Columns; ++cell.Column) {
      if (server.At(cell) == client.At(variant.Mirrored(cell))) continue;
      FAIL() << "on " << cell.Column << ", " << cell.Row << " of the server's board";
    }
  }
}

class RandomGames {
 public:
  RandomGames(const StrategyGame& game, unsigned seed) : Pair(game, seed), game_(game), random_(seed) {
    for (StrategyCopy* copy : {&Pair.Server, &Pair.Client}) {
      copy->Dialogs.AnswerBox = [](const QString& title) {
        return title == box::kRequestTitle ? Button::Ok : Button::Yes;
      };
      copy->Dialogs.AnswerInput = [](const QString& title) { return title == box::kTurnTitle ? u"3"_s : u"Ana"_s; };
    }
    Pair.Ask();
    Pair.Settle();
  }

  StrategyPair Pair;
  bool TurnsDiffer = false;  // the client has passed
  int Finished = 0;
  int Passes = 0;

  // Until the flag is taken, the turns differ or nobody gets anywhere.
  void Play() {
    const Player first = Below(2) == 0 ? Player::Server : Player::Client;
    for (const Player player : {first, OpponentOf(first)}) {
      Pair.Copy(player).Flow.KeyPressed(Qt::Key_F3);
      Pair.Settle();
    }
    ASSERT_NO_FATAL_FAILURE(ExpectInStep());
    flags_ = {OwnFlag(Pair.Server), OwnFlag(Pair.Client)};
    for (int turn = 0; turn < kMostTurns && !TurnsDiffer && !GameOver(); ++turn) {
      TakeTurn(Pair.Copy(Pair.Server.Flow.State().CurrentTurn));
      ASSERT_NO_FATAL_FAILURE(ExpectInStep());
    }
    if (GameOver()) ++Finished;
  }

  [[nodiscard]] bool GameOver() const { return Pair.Server.Flow.State().GameOver; }

  void AskForRematch() {
    const Player first = Below(2) == 0 ? Player::Server : Player::Client;
    for (const Player player : {first, OpponentOf(first)}) {
      if (!Pair.Copy(player).Flow.State().GameOver) continue;  // the flags of the last rematch have sufficed
      Pair.Copy(player).Click({.Column = 1, .Row = 1});
      Pair.Settle();
    }
  }

 private:
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  Coordinate AnyCell() { return {.Column = 1 + Below(game_.Variant.Columns), .Row = 1 + Below(game_.Variant.Rows)}; }

  void TakeTurn(StrategyCopy& copy) {
    const Player player = copy.Flow.OwnPlayer();
    if (!FindMovablePiece(copy.Flow.StrategyBoard(), player)) {
      copy.Flow.KeyPressed(Qt::Key_Escape);
      Pair.Settle();
      ++Passes;
      TurnsDiffer = player == Player::Client;
      return;
    }
    if (Below(50) == 0) Pair.Copy(OpponentOf(player)).Click(AnyCell());  // not his turn
    for (int clicks = 0; copy.Flow.State().CurrentTurn == player && !copy.Flow.State().GameOver; ++clicks) {
      ASSERT_LT(clicks, 100'000) << "no move in sight";
      if (Below(20) == 0) {
        copy.Click(AnyCell());
      } else if (const auto selected = copy.Flow.SelectedCell()) {
        copy.Click(Target(copy, *selected));
      } else {
        copy.Click(SomePiece(copy));
      }
    }
    Pair.Settle();
  }

  // One of two own pieces at random that are neither flag nor bomb: the one that is nearer to the opponent's flag.
  Coordinate SomePiece(const StrategyCopy& copy) {
    const auto any = [&] {
      while (true) {
        const Coordinate cell = AnyCell();
        const auto piece = copy.Flow.StrategyBoard().PieceAt(cell);
        if (piece && piece->Side == copy.Flow.OwnPlayer() && IsMovable(piece->Rank)) return cell;
      }
    };
    const auto distance = [flag = Flag(copy)](Coordinate cell) {
      return std::abs(flag.Column - cell.Column) + std::abs(flag.Row - cell.Row);
    };
    const Coordinate one = any();
    const Coordinate other = any();
    return distance(one) < distance(other) ? one : other;
  }

  // Where the opponent's flag stands, as `copy` sees it.
  [[nodiscard]] Coordinate Flag(const StrategyCopy& copy) const {
    return game_.Variant.Mirrored(flags_[copy.Flow.OtherPlayer()]);
  }
  // As its owner sees it.
  [[nodiscard]] Coordinate OwnFlag(const StrategyCopy& copy) const {
    Coordinate cell{.Column = 1, .Row = 1};
    while (copy.Flow.StrategyBoard().At(cell) != CodeOf({copy.Flow.OwnPlayer(), Rank::Flag})) {
      cell = cell.Column < game_.Variant.Columns ? Coordinate{cell.Column + 1, cell.Row} : Coordinate{1, cell.Row + 1};
    }
    return cell;
  }

  // Mostly the next cell in some direction, oftener towards the opponent's flag, and now and then one further on.
  Coordinate Target(const StrategyCopy& copy, Coordinate from) {
    const Coordinate flag = Flag(copy);
    const int steps = Below(4) == 0 ? 1 + Below(5) : 1;
    const bool towards = Below(4) != 0;
    Coordinate target = from;
    if (Below(2) == 0) {
      target.Column += (towards ? flag.Column > from.Column : Below(2) == 0) ? steps : -steps;
    } else {
      target.Row += (towards ? flag.Row > from.Row : Below(2) == 0) ? steps : -steps;
    }
    return copy.Flow.StrategyBoard().Holds(target) ? target : from;
  }

  void ExpectInStep() {
    const Session& server = Pair.Server.Flow.State();
    const Session& client = Pair.Client.Flow.State();
    ASSERT_EQ(server.Scores, client.Scores);
    ASSERT_EQ(server.GameOver, client.GameOver);
    ASSERT_EQ(server.CurrentTurn, TurnsDiffer ? OpponentOf(client.CurrentTurn) : client.CurrentTurn);
    // The piece that takes the flag leaves its cell on its own side alone.
    if (server.GameOver) return;
    ASSERT_NO_FATAL_FAILURE(ExpectSameBoard(Pair.Server.Flow.StrategyBoard(), Pair.Client.Flow.StrategyBoard()));
  }

  const StrategyGame& game_;
  std::mt19937 random_;
  PerPlayer<Coordinate> flags_;
};

class StrategyRandom : public testing::TestWithParam<const StrategyGame*> {};

TEST_P(StrategyRandom, WholeGamesKeepBoardsTurnsAndScoresInStep) {
  int games = 0;
  int finished = 0;
  int passes = 0;
  for (unsigned seed = 0; games < kRandomGames; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RandomGames session(*GetParam(), seed);
    for (int i = 0; i < kGamesPerSession && games < kRandomGames; ++i) {
      ASSERT_NO_FATAL_FAILURE(session.Play());
      ++games;
      if (!session.GameOver()) break;  // a new session
      session.AskForRematch();
      ASSERT_FALSE(session.Pair.Server.Flow.State().GameOver);
      ASSERT_FALSE(session.Pair.Client.Flow.State().GameOver);
    }
    const auto& scores = session.Pair.Server.Flow.State().Scores;
    ASSERT_EQ(scores.Server + scores.Client, session.Finished);
    finished += session.Finished;
    passes += session.Passes;
  }
  EXPECT_GT(finished, kRandomGames / 2) << "most games are played to their end";
  if (kShareOfRandom == 1) {
    EXPECT_GT(passes, 0) << "one game in some hundreds has a pass";
  }
}

INSTANTIATE_TEST_SUITE_P(Of, StrategyRandom, testing::Values(&kGameEST, &kGameMES),
                         [](const auto& tested) { return tested.param->Window.Window.toString().toStdString(); });

}  // namespace
}  // namespace brontavia::test
