// Sessions at random in which one window ends inside a box, a menu, a file question or a wait; from then on nothing of
// it may be written, sent or opened.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QTimer>
#include <functional>
#include <random>
#include <vector>

#include "seams/board_model.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

// What a game adds: `Act` makes `copy` do something that a user does, drawn with `below(n)` (0 .. n - 1); `Reads` are
// texts that a peer may send, besides those that the players' actions send; `File` is what file dialogs give half of
// the time, if they give one at all.
template <typename CopyOfGame>
struct EndingGame {
  std::function<void(CopyOfGame& copy, const std::function<int(int)>& below)> Act;
  QStringList Reads;
  QString File = {};
};

template <typename Pair>
class EndingSession {
  using CopyOfGame = std::remove_reference_t<decltype(std::declval<Pair>().Server)>;

 public:
  EndingSession(unsigned seed, EndingGame<CopyOfGame> game, const auto&... variant)
      : game_(std::move(game)), random_(seed), pair_(variant..., seed), victim_(pair_.Copy(AnyPlayer())) {}

  // Returns whether the window ended inside something.
  bool Run() {
    for (const Player player : kBothPlayers) AnswerAtRandom(pair_.Copy(player));
    NoteTheEnd();
    end_in_ = 1 + Below(25);
    pair_.Ask();
    Rest();
    for (int step = 0; step < kSteps && !victim_.Flow.Ended(); ++step) TakeStep();
    if (!victim_.Flow.Ended()) return false;
    Rest();
    EXPECT_EQ(Written(), written_) << "something was written, sent or opened after the end";
    EXPECT_TRUE(victim_.Finished);
    return ended_inside_;
  }

 private:
  static constexpr int kSteps = 60;

  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  Player AnyPlayer() { return Below(2) == 0 ? Player::Server : Player::Client; }
  std::function<int(int)> Draw() {
    return [this](int count) { return Below(count); };
  }

  // Until nothing is under way on either side.
  void Rest() {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
  }

  void TakeStep() {
    CopyOfGame& copy = pair_.Copy(AnyPlayer());
    if (Below(3) == 0) {
      victim_.Connection.Receive(game_.Reads.at(Below(static_cast<int>(game_.Reads.size()))));
    } else if (!copy.Flow.Ended()) {
      // What waits for its send waits until the window ends or the line does.
      victim_.Connection.HoldSendComplete = Below(8) == 0;
      if (victim_.Connection.HoldSendComplete) QTimer::singleShot(0, &victim_.Flow, [this] { EndTheWait(); });
      game_.Act(copy, Draw());
    }
    Rest();
  }

  void EndTheWait() {
    victim_.Connection.HoldSendComplete = false;
    if (Below(2) == 0) {
      End();
    } else {
      victim_.Connection.Break();
    }
  }

  void End() {
    ended_inside_ = true;
    if (Below(2) == 0) {
      victim_.Connection.Receive(QStringLiteral("Seguir|No"));
      QCoreApplication::processEvents();
    }
    victim_.Flow.CloseRequested();
  }

  // While a box of either copy is open.
  void Meanwhile(const CopyOfGame& copy) {
    if (&copy == &victim_ && !victim_.Flow.Ended() && --end_in_ == 0) {
      End();
    } else if (Below(3) == 0 && ++depth_ < kDeepest) {
      QCoreApplication::processEvents();
      --depth_;
    }
  }

  void AnswerAtRandom(CopyOfGame& copy) {
    copy.Dialogs.AnswerBox = [this, &copy](const QString& title) {
      Meanwhile(copy);
      if (title == box::kRequestTitle) return Button::Ok;
      return Below(5) == 0 ? Button::No : Button::Yes;
    };
    copy.Dialogs.AnswerInput = [this, &copy](const QString&) {
      Meanwhile(copy);
      return QString::number(Below(4));
    };
    copy.Dialogs.AnswerMenu = [this, &copy](const QList<MenuItem>& items) -> std::optional<int> {
      Meanwhile(copy);
      if (Below(10) == 0) return std::nullopt;
      return Below(static_cast<int>(items.size()));
    };
    copy.Dialogs.AnswerFile = [this, &copy](const FileQuestion&) {
      Meanwhile(copy);
      return game_.File.isEmpty() || Below(2) == 0 ? QString() : game_.File;
    };
  }

  void NoteTheEnd() {
    for (BoardModel* grid : Grids(victim_.Flow)) {
      QObject::connect(grid, &BoardModel::dataChanged, &victim_.Flow, [this] { ++cells_written_; });
      QObject::connect(grid, &BoardModel::CurrentCellChanged, &victim_.Flow, [this] { ++cells_written_; });
    }
    victim_.Dialogs.WhenAllClose = [this] { written_ = Written(); };
  }

  template <typename Flow>
  static std::vector<BoardModel*> Grids(Flow& flow) {
    if constexpr (requires { flow.FG2(); }) {
      return {&flow.FG1(), &flow.FG2()};
    } else {
      return {&flow.FG1()};
    }
  }

  // Everything that the victim has written, sent and opened so far.
  [[nodiscard]] int Written() const {
    return victim_.Screen.Writes + victim_.Screen.Beeps + cells_written_ +
           static_cast<int>(victim_.Connection.Sent.size() + victim_.Dialogs.Shown.size());
  }

  EndingGame<CopyOfGame> game_;
  std::mt19937 random_;
  Pair pair_;
  CopyOfGame& victim_;
  int end_in_ = 0;  // boxes of the victim
  int depth_ = 0;
  int cells_written_ = 0;
  int written_ = 0;  // when it ended
  bool ended_inside_ = false;

  static constexpr int kDeepest = 20;
};

// Runs a session for each seed below `sessions`; at least half of them must have ended inside something.
template <typename Pair>
void EndSessionsInsideEverything(int sessions, const auto& game, const auto&... variant) {
  int ended_inside = 0;
  for (int seed = 0; seed < sessions; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    if (EndingSession<Pair>(static_cast<unsigned>(seed), game, variant...).Run()) ++ended_inside;
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(ended_inside, sessions / 2);
}

}  // namespace brontavia::test
