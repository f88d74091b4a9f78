// Whole games at random, and every way in which one can be cut short.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

#include "tests/support/random_games.h"
#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kGamesPerSession = 50;
constexpr int kMostClicks = 4'000;

// Both copies hold the same game. (The phase is each player's own.)
void ExpectInStep(const TerPair& pair) {
  const Session& server = pair.Server.Flow.State();
  const Session& client = pair.Client.Flow.State();
  ASSERT_EQ(pair.Server.Shown(), pair.Client.Shown());
  ASSERT_EQ(server.CurrentTurn, client.CurrentTurn);
  ASSERT_EQ(server.StartingPlayer, client.StartingPlayer);
  ASSERT_EQ(server.Scores, client.Scores);
  ASSERT_EQ(server.GameOver, client.GameOver);
  ASSERT_EQ(server.RematchWanted, client.RematchWanted);
  ASSERT_EQ(pair.Server.Screen.Scoreboard.Own, pair.Client.Screen.Scoreboard.Other);
  ASSERT_EQ(pair.Server.Screen.Scoreboard.Other, pair.Client.Screen.Scoreboard.Own);
}

void AnswerEverything(TerPair& pair) {
  for (TerCopy* copy : {&pair.Server, &pair.Client}) {
    copy->Dialogs.AnswerBox = [](const QString& title) {
      return title == box::kRematchTitle ? Button::Yes : Button::Ok;
    };
    copy->Dialogs.AnswerInput = [](const QString& title) { return title == box::kTurnTitle ? u"3"_s : u"Ana"_s; };
  }
}

// Clicks at random, out of turn now and then, until the game is over. A lifted piece is not in the other copy yet, so
// the copies are compared after each message only.
void PlayOneGame(TerPair& pair, std::mt19937& random) {
  std::uniform_int_distribution<int> any_cell(0, kTerCells - 1);
  std::uniform_int_distribution<int> one_in_ten(0, 9);
  for (int clicks = 0; !pair.Server.Flow.State().GameOver; ++clicks) {
    ASSERT_LT(clicks, kMostClicks) << "no end in sight";
    const Player mover = pair.Server.Flow.State().CurrentTurn;
    TerCopy& copy = pair.Copy(one_in_ten(random) == 0 ? OpponentOf(mover) : mover);
    const qsizetype sent = copy.Connection.Sent.size();
    copy.Click(any_cell(random));
    if (copy.Connection.Sent.size() == sent) continue;
    pair.Settle();
    ASSERT_NO_FATAL_FAILURE(ExpectInStep(pair));
  }
}

TEST(ThreeInRowRandom, TenThousandGamesStayInStepAfterEveryMessage) {
  for (unsigned seed = 0; seed < kRandomGames / kGamesPerSession; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    TerPair pair(seed);
    AnswerEverything(pair);
    pair.Ask();
    pair.Settle();
    for (int game = 0; game < kGamesPerSession; ++game) {
      ASSERT_NO_FATAL_FAILURE(PlayOneGame(pair, random));
      const Player first = std::bernoulli_distribution()(random) ? Player::Server : Player::Client;
      pair.Copy(first).Click(0);
      pair.Settle();
      ASSERT_NO_FATAL_FAILURE(ExpectInStep(pair));
      pair.Copy(OpponentOf(first)).Click(0);
      pair.Settle();
      ASSERT_NO_FATAL_FAILURE(ExpectInStep(pair));
      ASSERT_FALSE(pair.Server.Flow.State().GameOver);
    }
    const auto& scores = pair.Server.Flow.State().Scores;
    ASSERT_EQ(scores.Server + scores.Client, kGamesPerSession);
  }
}

// ---- Cut short at every step ----

// A session from the request to the second game's first move. `at_step` is called at each box that opens and after
// each click, with the number of the step.
void PlaySession(TerPair& pair, const std::function<void(int)>& at_step) {
  int step = 0;
  for (TerCopy* copy : {&pair.Server, &pair.Client}) {
    copy->Dialogs.AnswerBox = [&at_step, &step](const QString& title) {
      at_step(step++);
      return title == box::kRematchTitle ? Button::Yes : Button::Ok;
    };
    copy->Dialogs.AnswerInput = [&at_step, &step](const QString&) {
      at_step(step++);
      return u"1"_s;
    };
  }
  pair.Ask();
  pair.Settle();
  for (const int cell : {0, 4, 1, 8, 2, 0, 0, 4}) {
    for (TerCopy* copy : {&pair.Server, &pair.Client}) {
      if (copy->Finished) continue;
      const bool moves = copy->Flow.State().GameOver || copy->Flow.State().CurrentTurn == copy->Flow.OwnPlayer();
      if (!moves) continue;
      copy->Click(cell);
      at_step(step++);
      pair.Settle();
      break;
    }
  }
}

enum class Cut { LineBreaks, ServerCloses, ClientCloses, ServerEnds };

class CutShort : public testing::TestWithParam<Cut> {};

TEST_P(CutShort, AtEveryStepNothingHangsAndBothWindowsCanStillBeClosed) {
  bool struck = true;
  int steps = 0;
  for (int at = 0; struck; ++at) {
    SCOPED_TRACE(testing::Message() << "step " << at);
    struck = false;
    TerPair pair;
    Button close_answer = Button::Yes;
    const auto close = [&](TerCopy& copy) {
      const auto answer = copy.Dialogs.AnswerBox;
      copy.Dialogs.AnswerBox = [&](const QString&) { return close_answer; };
      copy.Flow.CloseRequested();
      copy.Dialogs.AnswerBox = answer;
    };
    PlaySession(pair, [&](int step) {
      if (step != at || struck) return;
      struck = true;
      switch (GetParam()) {
        case Cut::LineBreaks:
          pair.Server.Connection.Break();
          break;
        case Cut::ServerCloses:
          close(pair.Server);
          break;
        case Cut::ClientCloses:
          close(pair.Client);
          break;
        case Cut::ServerEnds:
          close_answer = Button::No;
          close(pair.Server);
          break;
      }
      QCoreApplication::processEvents();
    });
    if (struck) ++steps;
    const auto expected = [&](TerCopy& copy) {
      return GetParam() == Cut::ServerEnds && &copy == &pair.Server && struck ? AfterWindow::ProcessEnds
                                                                              : AfterWindow::Selection;
    };
    close_answer = Button::Yes;
    for (TerCopy* copy : {&pair.Server, &pair.Client}) {
      close(*copy);
      ASSERT_TRUE(copy->Finished.has_value());
      EXPECT_EQ(*copy->Finished, expected(*copy));
    }
  }
  EXPECT_GT(steps, 15);
}

INSTANTIATE_TEST_SUITE_P(By, CutShort,
                         testing::Values(Cut::LineBreaks, Cut::ServerCloses, Cut::ClientCloses, Cut::ServerEnds));

}  // namespace
}  // namespace brontavia::test
