// What the strip above the board is told, after every message, in each game.
#include <gtest/gtest.h>

#include "tests/support/bar_pair.h"
#include "tests/support/strategy_pair.h"
#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

TEST(ScoreboardOf, ThreeInARowTellsTheMoverInBothCopies) {
  TerPair pair;
  pair.Connect();
  EXPECT_EQ(SentenceOf(pair.Server.Screen.Scoreboard), u"Ana 0, Luis 0. Mueve Ana."_s);
  EXPECT_EQ(SentenceOf(pair.Client.Screen.Scoreboard), u"Luis 0, Ana 0. Mueve Ana."_s) << "the own side first";
  EXPECT_EQ(pair.Server.Screen.Scoreboard.Own.Sign, PlayerSign::X);
  EXPECT_EQ(pair.Client.Screen.Scoreboard.Own.Sign, PlayerSign::O);
  pair.Play({4});
  EXPECT_EQ(SentenceOf(pair.Server.Screen.Scoreboard), u"Ana 0, Luis 0. Mueve Luis."_s);
  EXPECT_EQ(SentenceOf(pair.Client.Screen.Scoreboard), u"Luis 0, Ana 0. Mueve Luis."_s);
}

TEST(ScoreboardOf, BeforeTheFirstTurnNobodyMoves) {
  TerPair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  for (TerCopy* copy : {&pair.Server, &pair.Client}) {
    const QString proposal = copy == &pair.Server ? u"Servidor"_s : u"Cliente"_s;
    copy->Dialogs.ExpectInput(box::kNameTitle, box::kName, proposal, u"Eva"_s);
    copy->Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"1"_s, [copy] {
      EXPECT_EQ(copy->Screen.Scoreboard.Own.Name, u"Eva"_s) << "told before the next box opens";
      EXPECT_EQ(copy->Screen.Scoreboard.Own.State, PlayerState::Waiting);
      EXPECT_EQ(copy->Screen.Scoreboard.Other.State, PlayerState::Waiting);
      EXPECT_TRUE(copy->Screen.Keys.isEmpty());
    });
  }
  pair.Ask();
  pair.Settle();
}

TEST(ScoreboardOf, TheWinnerIsToldAndTheKeyThatGoesOn) {
  TerPair pair;
  pair.Connect();
  pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon);
  pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
  pair.Play({0, 3, 1, 4, 2});
  EXPECT_EQ(SentenceOf(pair.Server.Screen.Scoreboard), u"Ana 1, Luis 0. Ha ganado Ana."_s);
  EXPECT_EQ(SentenceOf(pair.Client.Screen.Scoreboard), u"Luis 0, Ana 1. Ha ganado Ana."_s);
  for (const TerCopy* copy : {&pair.Server, &pair.Client}) {
    EXPECT_EQ(copy->Screen.Keys, (KeyHints{{u"Intro"_s, u"o clic sobre el tablero: continuar"_s}}));
  }
}

TEST(ScoreboardOf, ThreeInARowTellsWhatEnterDoes) {
  TerPair pair;
  pair.Connect();
  EXPECT_EQ(pair.Server.Screen.Keys, (KeyHints{{u"Intro"_s, u"coloca la ficha"_s}}));
  pair.Play({0, 3, 1, 4, 5, 2});
  EXPECT_EQ(pair.Server.Screen.Keys, (KeyHints{{u"Intro"_s, u"quita la ficha"_s}}));
}

TEST(ScoreboardOf, WhoPlacesAndWhoIsReadyIsTold) {
  BarPair pair;
  pair.Connect();
  EXPECT_EQ(SentenceOf(pair.Server.Screen.Scoreboard),
            u"Ana 0, Luis 0. Ana: coloca sus barcos. Luis: coloca sus barcos."_s);
  pair.Server.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  pair.Server.Dialogs.Expect({}, box::kWaitForOther, [&] {
    EXPECT_EQ(pair.Server.Screen.Scoreboard.Own.State, PlayerState::Ready) << "before the box that says to wait";
  });
  pair.Server.PlaceFleet();
  pair.Settle();
  EXPECT_EQ(pair.Client.Screen.Scoreboard.Other.State, PlayerState::Ready);
  EXPECT_EQ(pair.Client.Screen.Scoreboard.Own.State, PlayerState::Placing);
  pair.Client.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  pair.Client.Dialogs.Expect({}, box::kReadyOtherTurn);
  pair.Server.Dialogs.Expect({}, box::kReadyOwnTurn);
  pair.Client.PlaceFleet();
  pair.Settle();
  EXPECT_EQ(SentenceOf(pair.Client.Screen.Scoreboard), u"Luis 0, Ana 0. Dispara Ana."_s);
  EXPECT_EQ(pair.Client.Screen.Scoreboard.Own.Sign, PlayerSign::SwallowTail);
  EXPECT_EQ(pair.Server.Dialogs.Dismissed, QStringList{box::kWaitForOther}) << "its reason has ended";
}

TEST(ScoreboardOf, InTheNextStrategyGameTheOpponentIsNotReadyBecauseHeWasBefore) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, kMesLayout);
  EXPECT_EQ(SentenceOf(pair.Server.Screen.Scoreboard), u"Ana 0, Luis 0. Mueve Ana."_s);
  EXPECT_TRUE(pair.Server.Dialogs.Dismissed.contains(box::kWaitForArmy));
  pair.Server.Dialogs.Expect(
      u"Ha perdido"_s,
      u"Luis            ha conseguido capturar la bandera, ganando la partida.\r\nPulse sobre el "
      u"tablero para continuar."_s);
  pair.Server.Connection.Receive(u"Haganado|"_s);
  pair.Settle();
  EXPECT_EQ(pair.Server.Screen.Scoreboard.Other.State, PlayerState::Won);
  pair.Server.Connection.Receive(u"Seguir|Si"_s);
  pair.Settle();
  pair.Server.Dialogs.Expect(u"Mini Estratega"_s, box::kRematch, Button::Yes);
  pair.Server.Dialogs.Expect(u"Nueva partida"_s,
                             u"Marcador actual: \r\nAna  0 : Luis 1\r\nComenzará jugando Ana. Coloque su ejército."_s);
  pair.Server.Click(u"A1"_s);
  EXPECT_EQ(pair.Server.Screen.Scoreboard.Own.State, PlayerState::Placing);
  EXPECT_EQ(pair.Server.Screen.Scoreboard.Other.State, PlayerState::Placing);
}

}  // namespace
}  // namespace brontavia::test
