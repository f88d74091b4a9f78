// The handshake, the dispatcher and the rematch, played by two copies of three in a row.
#include "net/game_flow.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>

#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

QStringList LinesOfServer(const TerPair& pair) { return pair.Server.Screen.Lines; }

// ---- Names ----

TEST(Handshake, ShowsEachPlayerTheOtherName) {
  TerPair pair;
  pair.Connect();
  EXPECT_EQ(pair.Server.Screen.Caption, u"Ana - Tres en raya"_s);
  EXPECT_EQ(pair.Client.Screen.Caption, u"Luis - Tres en raya"_s);
  EXPECT_TRUE(LinesOfServer(pair).contains(u"Nombre recibido"_s));
  EXPECT_TRUE(LinesOfServer(pair).contains(u"Va a jugar contra Luis"_s));
  for (TerCopy* copy : {&pair.Server, &pair.Client}) {
    EXPECT_EQ(copy->Flow.State().PlayerNames.Padded(Player::Server), u"Ana            "_s);
    EXPECT_EQ(copy->Flow.State().PlayerNames.Padded(Player::Client), u"Luis           "_s);
    EXPECT_TRUE(copy->Flow.State().NameKnown.Server);
    EXPECT_TRUE(copy->Flow.State().NameKnown.Client);
    EXPECT_TRUE(copy->Screen.Visible[Frame::FrJuego]);
  }
}

TEST(Handshake, ReplacesAnEmptyNameByTheDefault) {
  TerPair pair;
  pair.Connect({.ServerName = u""_s, .ClientName = u""_s});
  EXPECT_EQ(pair.Server.Screen.Caption, u"Servidor - Tres en raya"_s);
  EXPECT_EQ(pair.Client.Screen.Caption, u"Cliente - Tres en raya"_s);
  EXPECT_TRUE(pair.Client.Connection.Sent.contains(u"Nombre|Cliente"_s));
}

TEST(Handshake, CutsALongNameOnlyWhereItIsStored) {
  TerPair pair;
  pair.Connect({.ServerName = u"abcdefghijklmnopqrst"_s});
  EXPECT_EQ(pair.Server.Screen.Caption, u"abcdefghijklmnopqrst - Tres en raya"_s);
  EXPECT_TRUE(pair.Server.Connection.Sent.contains(u"Nombre|abcdefghijklmnopqrst"_s));
  EXPECT_TRUE(pair.Client.Screen.Lines.contains(u"Va a jugar contra abcdefghijklmnopqrst"_s));
  EXPECT_EQ(pair.Client.Flow.State().PlayerNames.Padded(Player::Server), u"abcdefghijklmno"_s);
}

TEST(Handshake, SendsANameWithItsOuterBlanksAndCaptionsItWithout) {
  TerPair pair;
  pair.Connect({.ServerName = u"  Ana  "_s});
  EXPECT_EQ(pair.Server.Screen.Caption, u"Ana - Tres en raya"_s);
  EXPECT_TRUE(pair.Server.Connection.Sent.contains(u"Nombre|  Ana  "_s));
  EXPECT_EQ(pair.Client.Flow.State().PlayerNames.Padded(Player::Server), u"  Ana          "_s);
}

TEST(Handshake, NamesOutsideTheWireEncodingLoseThoseCharacters) {
  TerPair pair;
  pair.Connect({.ServerName = u"Añá € ☺"_s});
  EXPECT_EQ(pair.Client.Flow.State().PlayerNames.Trimmed(Player::Server), u"Añá € ?"_s);
}

// ---- The first turn ----

struct FirstTurnCase {
  const char* Name;
  QString ServerChoice;
  QString ClientChoice;
  QString ChoiceSent;
  std::optional<Player> Starter;  // nothing: drawn
};

class FirstTurnOf : public testing::TestWithParam<FirstTurnCase> {};

TEST_P(FirstTurnOf, IsDecidedByBothChoices) {
  const FirstTurnCase& row = GetParam();
  TerPair pair;
  pair.Connect({.ServerChoice = row.ServerChoice, .ClientChoice = row.ClientChoice});
  EXPECT_EQ(pair.Client.Connection.Sent.last(), u"turno|" + row.ChoiceSent);
  const Player starter = pair.Server.Flow.State().CurrentTurn;
  if (row.Starter) {
    EXPECT_EQ(starter, *row.Starter);
  }
  const QString how = row.Starter ? u"0"_s : u"1"_s;
  EXPECT_EQ(pair.Server.Connection.Sent.last(), u"Turnodef|" + QString::number(NumberOf(starter)) + how);
  const QString name = starter == Player::Server ? u"Ana"_s : u"Luis"_s;
  const QString opening =
      row.Starter ? u"Por decisión mutua comienza jugando "_s : u"Tras realizar el sorteo, comienza jugando "_s;
  // The server's own choice came first here: the report of a mutual decision has the comma.
  const QString server_ending = row.Starter ? u", es su turno. "_s : u" es su turno. "_s;
  EXPECT_EQ(pair.Server.Screen.Lines.last(), QString(opening + name + u". " + name + server_ending));
  EXPECT_EQ(pair.Client.Screen.Lines.last(), QString(opening + name + u". " + name + u" es su turno. "));
  for (TerCopy* copy : {&pair.Server, &pair.Client}) {
    EXPECT_EQ(copy->Flow.State().CurrentTurn, starter);
    EXPECT_EQ(copy->Flow.State().StartingPlayer, starter);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Choices, FirstTurnOf,
    testing::Values(FirstTurnCase{"BothWantTheServer", u"1"_s, u"2"_s, u"2"_s, Player::Server},
                    FirstTurnCase{"BothWantTheClient", u"2"_s, u"1"_s, u"1"_s, Player::Client},
                    FirstTurnCase{"BothWantToStart", u"1"_s, u"1"_s, u"1"_s, std::nullopt},
                    FirstTurnCase{"BothWantTheOther", u"2"_s, u"2"_s, u"2"_s, std::nullopt},
                    FirstTurnCase{"BothDraw", u"3"_s, u"3"_s, u"3"_s, std::nullopt},
                    FirstTurnCase{"ClientDraws", u"1"_s, u"3"_s, u"3"_s, std::nullopt},
                    FirstTurnCase{"TooLargeBecomesDraw", u"1"_s, u"7"_s, u"3"_s, std::nullopt},
                    FirstTurnCase{"CancelBecomesDraw", u""_s, u""_s, u"3"_s, std::nullopt},
                    FirstTurnCase{"LettersBecomeDraw", u"yo"_s, u"1"_s, u"1"_s, std::nullopt},
                    FirstTurnCase{"HalvesGoToTheEvenNeighbour", u"1.5"_s, u"1"_s, u"1"_s, Player::Client},
                    FirstTurnCase{"HalvesPassOnTheWire", u"1"_s, u" 1.5 "_s, u"1.5"_s, Player::Server},
                    FirstTurnCase{"JustBelowOneBecomesDraw", u"0.9"_s, u"1"_s, u"1"_s, std::nullopt},
                    FirstTurnCase{"JustAboveThreeBecomesDraw", u"1"_s, u"3.1"_s, u"3"_s, std::nullopt}),
    [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Handshake, AClientChoiceThatComesFirstIsReportedWithoutTheComma) {
  TerPair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  pair.Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Servidor"_s, u"Ana"_s, [&] {
    pair.Settle();
    EXPECT_EQ(pair.Server.Flow.State().TurnChoices.Client, 1);
    EXPECT_EQ(pair.Server.Flow.State().PlayerNames.Trimmed(Player::Client), u"Luis"_s);
  });
  pair.Server.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"1"_s);
  pair.Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Luis"_s);
  pair.Client.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"2"_s);
  pair.Ask();
  pair.Settle();
  EXPECT_EQ(pair.Server.Screen.Lines.last(), u"Por decisión mutua comienza jugando Ana. Ana es su turno. "_s);
  EXPECT_EQ(pair.Server.Connection.Sent.last(), u"Turnodef|00"_s);
}

TEST(Handshake, DrawsAreFairEnoughToReachBothPlayers) {
  int servers = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    TerPair pair(seed);
    pair.Connect({.ServerChoice = u"3"_s, .ClientChoice = u"3"_s});
    if (pair.Server.Flow.State().CurrentTurn == Player::Server) ++servers;
  }
  EXPECT_GT(servers, 60);
  EXPECT_LT(servers, 140);
}

TEST(Handshake, AChoiceThatComesAgainDecidesAgain) {
  TerPair pair;
  pair.Connect();
  pair.Server.Connection.Receive(u"turno|1"_s);
  pair.Settle();
  EXPECT_TRUE(pair.Server.Connection.Sent.last().startsWith(u"Turnodef|"_s));
  EXPECT_TRUE(pair.Server.Connection.Sent.last().endsWith(u'1'));
  EXPECT_EQ(pair.Server.Connection.Sent.filter(u"Turnodef|"_s).size(), 2);
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, pair.Server.Flow.State().CurrentTurn);
}

TEST(Handshake, TheClientOnlyRecordsAChoice) {
  TerPair pair;
  pair.Connect();
  const QStringList sent = pair.Client.Connection.Sent;
  pair.Client.Connection.Receive(u"turno|1"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Connection.Sent, sent);
  EXPECT_EQ(pair.Client.Flow.State().TurnChoices.Client, 2);
}

TEST(Handshake, TheServerIgnoresADecision) {
  TerPair pair;
  pair.Connect();
  const QStringList lines = pair.Server.Screen.Lines;
  pair.Server.Connection.Receive(u"Turnodef|11"_s);
  pair.Settle();
  EXPECT_EQ(pair.Server.Flow.State().CurrentTurn, Player::Server);
  EXPECT_EQ(pair.Server.Screen.Lines, lines);
}

TEST(Handshake, TheClientKeepsTheMessageThatTheConnectionStands) {
  TerPair pair;
  pair.Connect();
  EXPECT_TRUE(pair.Client.Screen.Messages.startsWith(u"\r\nConexión establecida.Listo para jugar.\r\n"_s));
}

TEST(Handshake, NobodyMovesBeforeTheFirstTurnIsSettled) {
  TerPair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  pair.Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Servidor"_s, u"Ana"_s);
  pair.Server.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"1"_s);
  pair.Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Luis"_s);
  bool waited = false;
  pair.Client.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"1"_s, [&] {
    pair.Settle();
    pair.Server.Click(0);
    EXPECT_EQ(pair.Server.Screen.Status, u"No es su turno de jugar."_s);
    EXPECT_EQ(pair.Server.Shown(), u"*********"_s);
    waited = true;
  });
  pair.Ask();
  pair.Settle();
  EXPECT_TRUE(waited);
}

// ---- The dispatcher ----

TEST(Dispatcher, BeepsForEveryTextEvenOneItDoesNotUnderstand) {
  TerPair pair;
  pair.Connect();
  const int beeps = pair.Client.Screen.Beeps;
  pair.Client.Connection.Receive(u"what is this"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Screen.Beeps, beeps + 1);
}

TEST(Dispatcher, TheAcceptanceDoesNotBeep) {
  TerPair pair;
  pair.Connect();
  // "Nombre|" and "Turnodef|": two texts after the acceptance.
  EXPECT_EQ(pair.Client.Screen.Beeps, 2);
}

TEST(Dispatcher, FindsTokensAnywhereAndCutsPayloadsFromTheStartOfTheText) {
  TerPair pair;
  pair.Connect();
  pair.Client.Connection.Receive(u"xxNombre|Eva"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Screen.Lines.last(), u"Va a jugar contra e|Eva"_s);
}

TEST(Dispatcher, IsCaseSensitive) {
  TerPair pair;
  pair.Connect();
  const QStringList lines = pair.Client.Screen.Lines;
  pair.Client.Connection.Receive(u"nombre|Eva SEGUIR|NO seguir|si jug|-1|4"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Screen.Lines, lines);
  EXPECT_FALSE(pair.Client.Finished);
}

TEST(Dispatcher, TwoMessagesInOneReadRunBothHandlersInOrder) {
  TerPair pair;
  pair.Connect();
  pair.Client.Connection.Receive(u"Turnodef|11Nombre|Eva"_s);
  pair.Settle();
  const QStringList& lines = pair.Client.Screen.Lines;
  // The name's payload runs from position 8 of the whole read to its end, and its handler comes first.
  EXPECT_EQ(lines.at(lines.size() - 2), u"Va a jugar contra f|11Nombre|Eva"_s);
  EXPECT_EQ(lines.last(), u"Tras realizar el sorteo, comienza jugando Luis. Luis es su turno. "_s);
}

TEST(Dispatcher, AnErrorInOneHandlerLeavesTheOthersToRun) {
  TerPair pair;
  pair.Connect();
  pair.Client.Connection.Receive(u"Turnodef|7? Seguir|Si"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Server);
  EXPECT_EQ(pair.Client.Screen.Lines.last(), u"Nueva partida.Ana desea jugar otra partida."_s);
}

TEST(Dispatcher, AnAcceptanceIsSearchedForNothingElse) {
  TerPair pair;
  pair.Connect();
  const auto turn = pair.Client.Flow.State().CurrentTurn;
  pair.Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Eva"_s);
  pair.Client.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"3"_s);
  pair.Client.Connection.Receive(u"Solicitud aceptada|TERSeguir|No"_s);
  QCoreApplication::processEvents();
  EXPECT_FALSE(pair.Client.Finished);
  EXPECT_EQ(pair.Client.Screen.Caption, u"Eva - Tres en raya"_s);
  EXPECT_FALSE(pair.Client.Flow.State().TurnSettled);
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, OpponentOf(turn)) << "a session that starts resets the board";
}

// ---- Another game ----

class Rematch : public testing::Test {
 protected:
  // The server has won with both messages in one read.
  Rematch() {
    Pair.Connect();
    Pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon);
    Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
    Pair.Play({0, 4, 1, 8, 2});
  }

  void AnswerRematch(TerCopy& copy, Button answer) {
    copy.Dialogs.Expect(box::kRematchTitle, box::kRematch, answer);
    copy.Click(3);
  }

  TerPair Pair;
};

TEST_F(Rematch, BothYesStartANewGameWithTheScoreAndTheOtherStarter) {
  AnswerRematch(Pair.Server, Button::Yes);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Screen.Messages, u"\r\nNueva partida.Ana desea jugar otra partida."_s);
  EXPECT_TRUE(Pair.Client.Flow.State().RematchWanted.Server);
  const QString score = u"Marcador actual: \r\nAna  1 : Luis 0\r\nComienza jugando Luis."_s;
  Pair.Server.Dialogs.Expect(box::kNewGameTitle, score);
  Pair.Client.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::Yes);
  Pair.Client.Dialogs.Expect(box::kNewGameTitle, score);
  Pair.Client.Click(3);
  Pair.Settle();
  for (TerCopy* copy : {&Pair.Server, &Pair.Client}) {
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Client);
    EXPECT_EQ(copy->Flow.State().StartingPlayer, Player::Client);
    EXPECT_FALSE(copy->Flow.State().GameOver);
    EXPECT_FALSE(copy->Flow.State().RematchWanted.Server);
    EXPECT_FALSE(copy->Flow.State().RematchWanted.Client);
    EXPECT_EQ(copy->Shown(), u"*********"_s);
    EXPECT_EQ(copy->Screen.Messages, QString());
    EXPECT_EQ(copy->Screen.Status, QString());
  }
}

TEST_F(Rematch, AskingEmptiesTheTextsFirst) {
  Pair.Server.Screen.SetText(Box::TBEstado, u"old"_s);
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::Yes, [&] {
    EXPECT_EQ(Pair.Server.Screen.Status, QString());
    EXPECT_EQ(Pair.Server.Screen.Messages, QString());
  });
  Pair.Server.Click(0);
}

TEST_F(Rematch, AYesThatComesWhileTheQuestionStandsCounts) {
  const QString score = u"Marcador actual: \r\nAna  1 : Luis 0\r\nComienza jugando Luis."_s;
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::Yes, [&] {
    AnswerRematch(Pair.Client, Button::Yes);
    Pair.Settle();
    EXPECT_TRUE(Pair.Server.Flow.State().RematchWanted.Client);
  });
  Pair.Server.Dialogs.Expect(box::kNewGameTitle, score);
  Pair.Server.Click(0);
  Pair.Client.Dialogs.Expect(box::kNewGameTitle, score);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Rematch, NoClosesBothWindows) {
  Pair.Client.Dialogs.Expect(
      {}, u"Ana no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s);
  AnswerRematch(Pair.Server, Button::No);
  Pair.Settle();
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
  EXPECT_EQ(Pair.Client.Finished, AfterWindow::Selection);
  EXPECT_EQ(Pair.Server.Connection.Sent.last(), u"Seguir|No"_s);
  EXPECT_EQ(Pair.Client.Screen.Messages, QString());
}

TEST_F(Rematch, ARefusalIsRepeatedAtLeastFiftyMillisecondsApartUntilItHasCertainlyLeft) {
  Pair.Client.Connection.blockSignals(true);  // the peer does not get round to reading
  Pair.Server.Connection.HoldSendComplete = true;
  QTimer::singleShot(170, &Pair.Server.Connection, [&] { Pair.Server.Connection.HoldSendComplete = false; });
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::No);
  QElapsedTimer clock;
  clock.start();
  Pair.Server.Click(0);
  const qsizetype refusals = Pair.Server.Connection.Sent.filter(u"Seguir|No"_s).size();
  EXPECT_GE(refusals, 2);
  EXPECT_LE(refusals, 1 + clock.elapsed() / 50);
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
}

TEST_F(Rematch, ARefusalEndsAlsoWhenTheLineAcknowledgesLaterThanItIsRepeated) {
  Pair.Client.Connection.blockSignals(true);
  Pair.Server.Connection.AcknowledgeAfter = 180;
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::No);
  Pair.Server.Click(0);
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
}

TEST_F(Rematch, ARefusalWithoutConnectionIsToldAndStillClosesTheWindow) {
  Pair.Server.Connection.Break();
  Pair.Settle();
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::No);
  Pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  Pair.Server.Click(0);
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
}

TEST_F(Rematch, ALineThatBreaksDuringTheRefusalEndsTheWait) {
  Pair.Server.Connection.HoldSendComplete = true;
  QMetaObject::invokeMethod(
      &Pair.Server.Connection, [&] { Pair.Server.Connection.Break(); }, Qt::QueuedConnection);
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::No);
  Pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  Pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  Pair.Server.Click(0);
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
}

TEST_F(Rematch, ClosingTheWindowDuringTheRefusalEndsTheWait) {
  Pair.Server.Connection.HoldSendComplete = true;
  Pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  QMetaObject::invokeMethod(
      &Pair.Server.Connection, [&] { Pair.Server.Flow.CloseRequested(); }, Qt::QueuedConnection);
  Pair.Server.Dialogs.Expect(box::kRematchTitle, box::kRematch, Button::No);
  Pair.Server.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::No);
  Pair.Server.Click(0);
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::ProcessEnds);
}

TEST_F(Rematch, SeveralRefusalsInOneReadAreHandledOnceAndNothingAfterThem) {
  Pair.Client.Dialogs.Expect(
      {}, u"Ana no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s, [&] {
        Pair.Client.Connection.Receive(u"Nombre|late"_s);
        QCoreApplication::processEvents();
      });
  const QStringList lines = Pair.Client.Screen.Lines;
  const int beeps = Pair.Client.Screen.Beeps;
  Pair.Client.Connection.Receive(u"Seguir|NoSeguir|NoJug|-1|7"_s);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Finished, AfterWindow::Selection);
  EXPECT_EQ(Pair.Client.Screen.Lines, lines);
  EXPECT_EQ(Pair.Client.Screen.Beeps, beeps + 1);
  EXPECT_EQ(Pair.Client.Shown(), u"XXX*O***O"_s);
}

TEST_F(Rematch, AYesInTheSameReadHidesARefusal) {
  Pair.Client.Connection.Receive(u"Seguir|NoSeguir|Si"_s);
  Pair.Settle();
  EXPECT_FALSE(Pair.Client.Finished);
  EXPECT_TRUE(Pair.Client.Flow.State().RematchWanted.Server);
}

}  // namespace
}  // namespace brontavia::test
