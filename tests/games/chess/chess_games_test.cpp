// Whole games of chess at random between two flows.
#include <gtest/gtest.h>

#include <iterator>
#include <random>

#include "games/chess/attack.h"
#include "tests/support/aje_pair.h"
#include "tests/support/random_games.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kGamesPerSession = 100;
constexpr int kMostMoves = 60;

class RandomChess {
 public:
  explicit RandomChess(unsigned seed) : Pair(seed), random_(seed) {
    for (AjeCopy* copy : {&Pair.Server, &Pair.Client}) {
      copy->Dialogs.AnswerBox = [](const QString& title) {
        return title == box::kRequestTitle || title.isEmpty() ? Button::Ok : Button::Yes;
      };
      copy->Dialogs.AnswerInput = [](const QString& title) { return title == box::kTurnTitle ? u"3"_s : u"Ana"_s; };
      copy->Dialogs.AnswerMenu = [this](const QList<MenuItem>&) {
        ++Promotions;
        return std::optional(promotion_);
      };
    }
    Pair.Ask();
    Pair.Settle();
  }

  AjePair Pair;
  int Promotions = 0;

  void Play() {
    const int moves = 1 + Below(kMostMoves);
    for (int move = 0; move < moves && CanMove(); ++move) {
      TakeTurn();
      ASSERT_NO_FATAL_FAILURE(ExpectInStep());
    }
    End();
    ASSERT_TRUE(Pair.Server.Flow.State().GameOver);
    ASSERT_NO_FATAL_FAILURE(ExpectInStep());
  }

  void AskForRematch() {
    for (AjeCopy* copy : {&Pair.Server, &Pair.Client}) {
      copy->Click(u"a1"_s);
      Pair.Settle();
    }
  }

 private:
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  [[nodiscard]] AjeCopy& Mover() { return Pair.Copy(Pair.Server.Flow.State().CurrentTurn); }
  QString AnySquare() { return QChar(u'a' + Below(kBoardSide)) + QString::number(1 + Below(kBoardSide)); }

  // Whether some move of the side to move stands.
  [[nodiscard]] bool CanMove() {
    const ChessPosition& position = Pair.Server.Flow.Game().Position();
    for (int column = 1; column <= kBoardSide; ++column) {
      for (int row = 1; row <= kBoardSide; ++row) {
        const Coordinate source{.Column = column, .Row = row};
        if (position.Board.ColourAt(source) != position.SideToMove) continue;
        const ChessSelection selection{.Source = source, .Piece = position.Board.At(source)};
        const GeneratedTargets targets = GenerateTargets(position, selection);
        for (const Coordinate target : targets.Squares) {
          ChessPosition after = position;
          if (ApplyMove(after, selection, target, targets.Castles)) return true;
        }
      }
    }
    return false;
  }

  // Clicks at random, on targets when a piece has some, until a move stands.
  void TakeTurn() {
    AjeCopy& mover = Mover();
    const Player player = mover.Flow.OwnPlayer();
    promotion_ = Below(4);
    if (Below(30) == 0) Pair.Copy(OpponentOf(player)).Click(AnySquare());  // not his turn
    while (mover.Flow.State().CurrentTurn == player) {
      const TargetList& targets = mover.Flow.Game().Targets();
      if (!mover.Flow.Game().HasSelection() || targets.size() == 0 || Below(20) == 0) {
        mover.Click(AnySquare());
      } else {
        const Coordinate target = *std::next(targets.begin(), Below(static_cast<int>(targets.size())));
        mover.Click(QChar(u'a' + target.Column - 1) + QString::number(target.Row));
      }
    }
    Pair.Settle();
  }

  void End() {
    AjeCopy& mover = Mover();
    const ChessPosition& position = mover.Flow.Game().Position();
    if (IsKingAttacked(position, position.SideToMove)) {
      mover.Flow.Run(ChessCommand::DeclareMate);
    } else {
      mover.Flow.Run(Below(2) == 0 ? ChessCommand::Resign : ChessCommand::OfferDraw);
    }
    Pair.Settle();
  }

  void ExpectInStep() {
    const Session& server = Pair.Server.Flow.State();
    const Session& client = Pair.Client.Flow.State();
    ASSERT_TRUE(Pair.Server.Flow.Game().Position() == Pair.Client.Flow.Game().Position());
    // A resignation is added to the winner's list alone.
    ASSERT_TRUE(server.GameOver || Pair.Server.Screen.Moves == Pair.Client.Screen.Moves);
    ASSERT_EQ(server.CurrentTurn, client.CurrentTurn);
    ASSERT_EQ(server.StartingPlayer, client.StartingPlayer);
    ASSERT_EQ(server.Scores, client.Scores);
    ASSERT_EQ(server.GameOver, client.GameOver);
    ASSERT_EQ(Pair.Server.Flow.Winner(), Pair.Client.Flow.Winner());
    ASSERT_EQ(Pair.Server.Flow.Timer1().IsRunning(), Pair.Client.Flow.Timer1().IsRunning());
  }

  std::mt19937 random_;
  int promotion_ = 0;  // what both players choose next
};

TEST(ChessRandom, WholeGamesKeepPositionsTurnsAndScoresInStep) {
  int promotions = 0;
  for (unsigned seed = 0; seed < kRandomGames / kGamesPerSession; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RandomChess session(seed);
    for (int game = 0; game < kGamesPerSession; ++game) {
      ASSERT_NO_FATAL_FAILURE(session.Play());
      session.AskForRematch();
      ASSERT_FALSE(session.Pair.Server.Flow.State().GameOver);
      ASSERT_FALSE(session.Pair.Client.Flow.State().GameOver);
    }
    promotions += session.Promotions;
  }
  EXPECT_GT(promotions, 0);
}

}  // namespace
}  // namespace brontavia::test
