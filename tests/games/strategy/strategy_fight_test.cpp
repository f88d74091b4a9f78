// StrategyFlow from the first move to another game.
#include <gtest/gtest.h>

#include "games/cell_name.h"
#include "games/strategy/strategy_drawing.h"
#include "tests/support/held_state.h"
#include "tests/support/strategy_pair.h"
#include "text/qt_text.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kAna = u"Ana            "_s;
const QString kLuis = u"Luis           "_s;

// `layout` with the piece on `cell` and one of `rank` changed over.
Layout With(Layout layout, const QString& cell, Rank rank) {
  QString all = layout.join(QString());
  const Coordinate place = CellNamed(cell);
  const auto width = layout[0].size();
  const auto here = (layout.size() - place.Row) * width + place.Column - 1;
  const QChar digit = QString::number(NumberOf(rank), 16).toUpper()[0];
  const auto there = all.indexOf(digit);
  all[there] = std::exchange(all[here], digit);
  for (auto& row : layout) {
    row = all.left(width);
    all.remove(0, width);
  }
  return layout;
}

class Fight : public testing::Test {
 protected:
  void Begin(const Layout& server = kEstLayout, const Layout& client = kEstLayout) { Pair.BeginFight(server, client); }
  void AnswerAllBoxes() {
    for (StrategyCopy* copy : {&Server, &Client}) copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
  }
  [[nodiscard]] Player Turn() const { return Server.Flow.State().CurrentTurn; }

  StrategyPair Pair{kGameEST};
  StrategyCopy& Server = Pair.Server;
  StrategyCopy& Client = Pair.Client;
};

// ---- Selecting and moving ----

TEST_F(Fight, SelectingTellsWhatCanBeMoved) {
  Begin();
  const std::array<std::pair<QString, QString>, 6> texts{{{u"J1"_s, u"La bandera no se puede mover"_s},
                                                          {u"D1"_s, u"Las bombas no se pueden mover"_s},
                                                          {u"A7"_s, u"No puede mover fichas del otro jugador"_s},
                                                          {u"A5"_s, u"Casilla vacía"_s},
                                                          {u"C5"_s, u"Casilla vacía"_s},
                                                          {u"I4"_s, u"Mariscal seleccionado."_s}}};
  for (const auto& [cell, text] : texts) {
    Server.Click(cell);
    EXPECT_EQ(Server.Screen.Status, text) << qPrintable(cell);
  }
  EXPECT_EQ(Server.Flow.SelectedCell(), CellNamed(u"I4"_s));
  EXPECT_EQ(Server.Shown(u"I4"_s).Marks, Marks(Mark::Selected));
}

TEST_F(Fight, OutOfTurnNothingIsSelected) {
  Begin();
  Client.Click(u"I4"_s);
  EXPECT_EQ(Client.Screen.Status, u"No es su turno de jugar."_s);
  EXPECT_EQ(Client.Flow.SelectedCell(), std::nullopt);
}

TEST_F(Fight, WhatCannotBeDoneWithASelectedPieceSaysSo) {
  Begin();
  struct Case {
    QString From;
    QString To;
    QString Text;
    bool Kept;
  };
  const std::vector<Case> cases{
      {u"I4"_s, u"I4"_s, u"Selección cancelada"_s, false},
      {u"C4"_s, u"C5"_s, u"No se pueden mover fichas al agua. selección cancelada."_s, false},
      {u"A4"_s, u"C5"_s, u"No se pueden mover fichas al agua. selección cancelada."_s, false},
      {u"I4"_s, u"I6"_s, u"Un Mariscal no puede moverse más de una casilla en un turno ni mover en diagonal."_s, true},
      {u"I4"_s, u"J5"_s, u"Un Mariscal no puede moverse más de una casilla en un turno ni mover en diagonal."_s, true},
      {u"I4"_s, u"I7"_s, u"Un Mariscal no puede moverse más de una casilla en un turno ni mover en diagonal."_s, true},
      {u"A4"_s, u"B5"_s, u"No se puede mover en diagonal."_s, true},
      {u"A4"_s, u"A10"_s, u"Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"_s, true},
      {u"D4"_s, u"D7"_s, u"Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"_s, true},
      {u"A4"_s, u"C4"_s, u"Hay algún obstáculo en el camino a recorrer que impide llegar hasta ahí"_s, true},
      {u"I4"_s, u"J4"_s, u"No puede atacar a miembros de su propio ejército. Selección cancelada."_s, false},
      {u"B4"_s, u"A4"_s, u"No puede atacar a miembros de su propio ejército. Selección cancelada."_s, false}};
  for (const Case& tested : cases) {
    Server.Click(tested.From);
    Server.Click(tested.To);
    EXPECT_EQ(Server.Screen.Status, tested.Text);
    EXPECT_EQ(Server.Flow.SelectedCell(), tested.Kept ? std::optional(CellNamed(tested.From)) : std::nullopt);
    if (tested.Kept) Server.Click(tested.From);
    EXPECT_EQ(Server.Shown(tested.From).Marks, Marks());
  }
  EXPECT_TRUE(Server.Connection.Sent.filter(u"Jug|"_s).isEmpty());
}

TEST_F(Fight, AMoveIsToldOnBothSidesWithoutItsRankOnTheOther) {
  Begin();
  Client.Dialogs.Expect({}, QString(kAna + u" mueve una ficha de F7 a F6. Es su turno."), [&] {
    EXPECT_EQ(Client.At(u"F6"_s), CodeOf({Player::Server, Rank::Miner})) << "applied while the box tells it";
  });
  Pair.Move(u"E4"_s, u"E5"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Jug|05,04,05,05,01,"_s);
  EXPECT_EQ(Server.Screen.Status, u"Minador movido"_s);
  EXPECT_EQ(Server.Screen.Lines.last(), QString(u"Minador movido. Le toca jugar a" + kLuis));
  EXPECT_EQ(Server.Shown(u"E4"_s), CellContent{.Marks = Mark::LastMove});
  EXPECT_EQ(Server.Shown(u"E5"_s), (CellContent{.Text = u"Minador"_s,
                                                .ForeColour = kRed,
                                                .Marks = Mark::LastMove,
                                                .Drawing = drawing::FaceOf(Player::Server, Rank::Miner)}));
  EXPECT_EQ(
      Client.Shown(u"F6"_s),
      (CellContent{
          .Text = u"*"_s, .ForeColour = kRed, .Marks = Mark::LastMove, .Drawing = drawing::BackOf(Player::Server)}));
  EXPECT_EQ(Client.Shown(u"F7"_s), CellContent{.Marks = Mark::LastMove});
  EXPECT_EQ(Server.Flow.SelectedCell(), std::nullopt);
  EXPECT_EQ(Turn(), Player::Client);
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Fight, AScoutAttacksFromAfarAlongAFreeLine) {
  Begin();
  Client.Dialogs.Expect(
      {}, QString(kAna + u" ataca con un Explorador de J7 al General de J4 pero es derrotado. Es su turno."));
  Pair.Move(u"A4"_s, u"A7"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Jug|01,04,01,07,00,"_s);
  EXPECT_EQ(Server.Screen.Status, u"El Explorador se enfrenta a un General y muere en el intento."_s);
  EXPECT_EQ(Server.Screen.Lines.last(), QString(u"Le toca jugar a" + kLuis));
}

TEST_F(Fight, ASecondClickWhileAMoveIsOnItsWayIsIgnored) {
  Begin();
  Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  Server.Connection.HoldSendComplete = true;
  Server.Click(u"E4"_s);
  QMetaObject::invokeMethod(
      &Server.Connection,
      [&] {
        EXPECT_EQ(Server.At(u"E5"_s), CodeOf({Player::Server, Rank::Miner})) << "the own board has moved already";
        Server.Click(u"E5"_s);
        Server.Flow.KeyPressed(Qt::Key_Escape);
        Server.Connection.HoldSendComplete = false;
        emit Server.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Server.Click(u"E5"_s);
  Pair.Settle();
  EXPECT_EQ(Server.Connection.Sent.filter(u"Jug|"_s).size(), 1);
  EXPECT_EQ(Turn(), Player::Client);
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Fight, TheAnswerToAMoveMayArriveWhileItIsOnItsWay) {
  Begin();
  Client.Dialogs.AnswerBox = Server.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  Server.Connection.HoldSendComplete = true;
  Server.Click(u"A4"_s);
  QMetaObject::invokeMethod(
      &Server.Connection,
      [&] {
        Pair.Settle();
        Client.Click(u"J4"_s);  // the general, right below the scout that has come to J5
        Client.Click(u"J5"_s);
        Pair.Settle();
        Server.Connection.HoldSendComplete = false;
        emit Server.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Server.Click(u"A6"_s);
  Pair.Settle();
  EXPECT_EQ(Server.At(u"A6"_s), CodeOf({Player::Client, Rank::General})) << "the scout has been taken";
  EXPECT_EQ(Client.At(u"J5"_s), CodeOf({Player::Client, Rank::General}));
  EXPECT_EQ(Turn(), Player::Server);
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Server);
}

TEST_F(Fight, AMoveThatArrivesWhileAnotherIsToldFindsItMade) {
  Begin();
  const auto move = [](int from, int to) {
    return u"Jug|02,%1,02,%2,01,"_s.arg(from, 2, 10, QChar(u'0')).arg(to, 2, 10, QChar(u'0'));
  };
  Client.Dialogs.Expect({}, QString(kAna + u" mueve una ficha de I7 a I6. Es su turno."), [&] {
    Client.Connection.Receive(move(5, 6));
    Pair.Settle();
  });
  Client.Dialogs.Expect({}, QString(kAna + u" mueve una ficha de I6 a I5. Es su turno."));
  Client.Connection.Receive(move(4, 5));
  Pair.Settle();
  EXPECT_EQ(Client.At(u"I5"_s), CodeOf({Player::Server, Rank::Scout}));
  EXPECT_EQ(Client.At(u"I6"_s), kEmptyLand);
}

// The cells of the board of `copy`, and what it has selected there.
QString BoardOf(const StrategyCopy& copy) {
  const StrategyBoard& board = copy.Flow.StrategyBoard();
  QString cells;
  for (int row = board.Variant().Rows; row >= 1; --row) {
    for (int column = 1; column <= board.Variant().Columns; ++column) {
      cells += QString::number(board.At({.Column = column, .Row = row})) + u' ';
    }
  }
  const auto selected = copy.Flow.SelectedCell();
  return cells + u"selected " + (selected ? CellName(*selected) : u"nothing"_s);
}

// What happens in a copy that has lost its connection leaves everything as it was.
template <typename Action>
void ExpectNothingHasHappened(StrategyCopy& copy, const Action& act) {
  const QString before = HeldState(copy);
  const QString board = BoardOf(copy);
  copy.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  act();
  EXPECT_EQ(HeldState(copy), before);
  EXPECT_EQ(BoardOf(copy), board);
}

TEST_F(Fight, AMoveThatCannotBeSentHasNotHappened) {
  Begin();
  Server.Connection.Break();
  Pair.Settle();
  Server.Click(u"E4"_s);
  for (int attempt = 0; attempt < 2; ++attempt) {
    Server.Flow.FG1().SetCurrentCell(Server.Flow.IndexOf(CellNamed(u"E5"_s)));
    ExpectNothingHasHappened(Server, [&] { Server.Click(u"E5"_s); });
    EXPECT_EQ(Server.Flow.SelectedCell(), CellNamed(u"E4"_s));
  }
}

TEST_F(Fight, AMoveWhoseConnectionIsLostBeforeItHasArrivedHasNotHappened) {
  Begin();
  Server.Click(u"E4"_s);
  Server.Flow.FG1().SetCurrentCell(Server.Flow.IndexOf(CellNamed(u"E5"_s)));
  const QString shown = ShownOn(Server.Flow.FG1());
  const QString board = BoardOf(Server);
  Server.Connection.HoldSendComplete = true;
  Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  QMetaObject::invokeMethod(
      &Server.Connection, [&] { Server.Connection.Break(); }, Qt::QueuedConnection);
  Server.Click(u"E5"_s);
  EXPECT_EQ(ShownOn(Server.Flow.FG1()), shown);
  EXPECT_EQ(BoardOf(Server), board);
  EXPECT_EQ(Turn(), Player::Server);
}

// A peer's second wish for another game needs no answer: the first one holds.
TEST(Fighting, AMoveThatANewGameHasOvertakenLeavesNothingInIt) {
  for (const bool arrives : {true, false}) {
    SCOPED_TRACE(arrives);
    StrategyPair pair(kGameEST);
    StrategyCopy& server = pair.Server;
    pair.BeginFight(kEstLayout, kEstLayout);
    for (StrategyCopy* copy : {&server, &pair.Client}) {
      copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
    }
    server.Connection.Receive(u"Haganado|"_s);
    pair.Settle();
    server.Click(u"A1"_s);
    server.Connection.Receive(u"Seguir|Si"_s);
    pair.Settle();
    server.Place(kEstLayout);
    pair.Settle();
    ASSERT_FALSE(server.Flow.PlacementMode());
    server.Connection.HoldSendComplete = true;
    server.Click(u"E4"_s);
    QMetaObject::invokeMethod(
        &server.Connection,
        [&] {
          server.Connection.Receive(u"Seguir|Si"_s);
          pair.Settle();
          server.Connection.HoldSendComplete = false;
          if (arrives) {
            emit server.Connection.SendComplete();
          } else {
            server.Connection.Break();
          }
        },
        Qt::QueuedConnection);
    const Player turn = server.Flow.State().CurrentTurn;
    server.Click(u"E5"_s);
    pair.Settle();
    EXPECT_TRUE(server.Flow.PlacementMode());
    EXPECT_EQ(server.Flow.State().CurrentTurn, turn);
    EXPECT_EQ(server.At(u"E4"_s), kEmptyLand);
    EXPECT_FALSE(server.Flow.SelectedCell());
    EXPECT_EQ(server.Flow.Army().PiecesToPlace(), kEstratega.ArmySize());
  }
}

// Every way in which an attack may end: against whatever stands on J4.
TEST(Attack, ThatCannotBeSentHasNotHappened) {
  for (const Rank defender : kArmyRanks) {
    SCOPED_TRACE(NumberOf(defender));
    StrategyPair pair(kGameEST);
    pair.BeginFight(kEstLayout, With(kEstLayout, u"J4"_s, defender));
    pair.Server.Connection.Break();
    pair.Settle();
    pair.Server.Click(u"A4"_s);
    pair.Server.Flow.FG1().SetCurrentCell(pair.Server.Flow.IndexOf(CellNamed(u"A7"_s)));
    ExpectNothingHasHappened(pair.Server, [&] { pair.Server.Click(u"A7"_s); });
    EXPECT_EQ(pair.Server.Flow.SelectedCell(), CellNamed(u"A4"_s));
  }
}

// ---- Combat: every pair of ranks, with what both players are told ----

// A row for each attacker 3..12, a letter for each defender 1..12: F takes the flag, = both are destroyed, X disarms
// the bomb, B dies on it, > wins, < loses, M kills the marshal, S dies as a spy.
const std::array<QString, 10> kCombats{{u"FB=SSSSSSSSM"_s,  //
                                        u"FB>=<<<<<<<<"_s,  //
                                        u"FX>>=<<<<<<<"_s,  //
                                        u"FB>>>=<<<<<<"_s,  //
                                        u"FB>>>>=<<<<<"_s,  //
                                        u"FB>>>>>=<<<<"_s,  //
                                        u"FB>>>>>>=<<<"_s,  //
                                        u"FB>>>>>>>=<<"_s,  //
                                        u"FB>>>>>>>>=<"_s,  //
                                        u"FB>>>>>>>>>="_s}};

struct Told {
  QString ToAttacker;  // %1 attacker, %2 defender
  QString ToDefender;
  QString Code;
};

Told ToldOf(QChar letter) {
  const QString attacks = u" ataca con un %1 de J5 "_s;
  const QString beaten = attacks + u"al %2 de J4 pero es derrotado. Es su turno.";
  const QString beats = attacks + u"al %2 de J4 y le vence. Es su turno.";
  switch (letter.unicode()) {
    case u'F':
      return {u"El %1 ha capturado la bandera!!!"_s, QString(), QString()};
    case u'=':
      return {u"El %1 se encuentra con un enemigo de su mismo rango y ambos son destruidos"_s,
              attacks + u"contra otro  %2 de J4 y ambos son destruídos. Es su turno.", u"02"_s};
    case u'X':
      return {u"El %1 desactiva la bomba y sigue su camino"_s, beats, u"01"_s};
    case u'B':
      return {u"El %1 encuentra una bomba y muere."_s,
              u" avanza con un %1 de J5 contra la bomba de J4 y resulta muerto. Es su turno."_s, u"00"_s};
    case u'>':
      return {u"El %1 se enfrenta a un %2 y sale vencedor."_s, beats, u"01"_s};
    case u'<':
      return {u"El %1 se enfrenta a un %2 y muere en el intento."_s, beaten, u"00"_s};
    case u'M':
      return {u"El %1 ha conseguido su objetivo, matar al mariscal!!!"_s, beats, u"01"_s};
    default:
      return {u"El %1 se enfrenta a un %2 y muere"_s, beaten, u"00"_s};
  }
}

class Combats : public testing::TestWithParam<int> {};

TEST_P(Combats, AreToldToBothAndLeaveTheSameBoards) {
  const auto attacker = static_cast<Rank>(GetParam());
  for (const Rank defender : kArmyRanks) {
    SCOPED_TRACE(testing::Message() << GetParam() << " attacks " << NumberOf(defender));
    StrategyPair pair(kGameEST);
    pair.BeginFight(With(kEstLayout, u"A4"_s, attacker), With(kEstLayout, u"J4"_s, defender));
    for (StrategyCopy* copy : {&pair.Server, &pair.Client}) {
      copy->Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
    }
    pair.Move(u"A4"_s, u"A5"_s);
    pair.Move(u"E4"_s, u"E5"_s);
    pair.Move(u"A5"_s, u"A6"_s);
    pair.Move(u"E5"_s, u"E4"_s);
    pair.Move(u"A6"_s, u"A7"_s);
    const QChar letter = kCombats.at(static_cast<std::size_t>(GetParam() - 3))[NumberOf(defender) - 1];
    const Told told = ToldOf(letter);
    const QString attacker_name = ToQString(RankName(attacker));
    const QString defender_name = ToQString(RankName(defender));
    EXPECT_EQ(pair.Server.At(u"A6"_s), kEmptyLand);
    const auto piece = [](Rank rank, bool fell) {
      return FoughtPiece{.Name = ToQString(RankName(rank)), .Emblem = ToQString(RankEmblem(rank)), .Fell = fell};
    };
    StrategyFlow::Fighters fought;
    fought.Client = piece(defender, QString(u"F=X>M"_s).contains(letter));
    if (letter == u'F') {
      EXPECT_EQ(pair.Client.Flow.Fought(), fought) << "what took the flag is not told";
    }
    fought.Server = piece(attacker, QString(u"=B<S"_s).contains(letter));
    EXPECT_EQ(pair.Server.Flow.Fought(), fought);
    if (letter == u'F') {
      EXPECT_EQ(pair.Server.Connection.Sent.last(), u"Haganado|"_s);
      EXPECT_TRUE(pair.Client.Flow.State().GameOver);
      continue;
    }
    EXPECT_EQ(pair.Server.Screen.Status,
              QString(told.ToAttacker).replace(u"%1"_s, attacker_name).replace(u"%2"_s, defender_name));
    EXPECT_EQ(pair.Client.Dialogs.Shown.last(),
              QString(u": "_s + kAna +
                      QString(told.ToDefender).replace(u"%1"_s, attacker_name).replace(u"%2"_s, defender_name)));
    EXPECT_EQ(pair.Server.Connection.Sent.last(), QString(u"Jug|01,06,01,07," + told.Code + u','));
    const CellCode left = letter == u'B'       ? CodeOf({Player::Client, Rank::RevealedBomb})
                          : told.Code == u"00" ? CodeOf({Player::Client, defender})
                          : told.Code == u"01" ? CodeOf({Player::Server, attacker})
                                               : kEmptyLand;
    EXPECT_EQ(pair.Client.Flow.Fought(), fought);
    EXPECT_EQ(pair.Server.At(u"A7"_s), left);
    EXPECT_EQ(pair.Client.At(u"J4"_s), left);
    EXPECT_EQ(pair.Client.At(u"J5"_s), kEmptyLand);
    EXPECT_EQ(pair.Server.Flow.State().CurrentTurn, Player::Client);
    EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Client);
  }
}

INSTANTIATE_TEST_SUITE_P(OfAttacker, Combats, testing::Range(3, 13));

TEST_F(Fight, ARevealedBombIsNamedAndShownInTheViewersColourAndOnlyAMinerClearsIt) {
  Begin(kEstLayout, With(kEstLayout, u"J4"_s, Rank::Bomb));
  AnswerAllBoxes();
  Pair.Move(u"A4"_s, u"A7"_s);
  EXPECT_EQ(Server.At(u"A7"_s), CodeOf({Player::Client, Rank::RevealedBomb}));
  EXPECT_EQ(Server.Shown(u"A7"_s), (CellContent{.Text = u"Bomba"_s,
                                                .ForeColour = kRed,
                                                .Marks = Mark::LastMove | Mark::Fight,
                                                .Drawing = drawing::FaceOf(Player::Server, Rank::RevealedBomb)}));
  EXPECT_EQ(Client.Shown(u"J4"_s), (CellContent{.Text = u"Bomba"_s,
                                                .ForeColour = kBlue,
                                                .Marks = Mark::LastMove | Mark::Fight,
                                                .Drawing = drawing::FaceOf(Player::Client, Rank::RevealedBomb)}));
  EXPECT_EQ(Server.Description(u"A7"_s), u"Bomba azul . A7"_s);
  EXPECT_EQ(Client.Description(u"J4"_s), u"Bomba azul . J4"_s);
  Client.Click(u"J4"_s);
  EXPECT_EQ(Client.Screen.Status, u"Las bombas no se pueden mover"_s);
  Pair.Move(u"E4"_s, u"E5"_s);
  Pair.Move(u"A3"_s, u"A7"_s);
  EXPECT_EQ(Server.Screen.Status, u"El Explorador encuentra una bomba y muere."_s);
  EXPECT_EQ(Client.Dialogs.Shown.last(),
            QString(u": " + kAna + u" ataca con un Explorador de J8 al Bomba de J4 pero es derrotado. Es su turno."));
  EXPECT_EQ(Server.At(u"A7"_s), CodeOf({Player::Client, Rank::RevealedBomb}));
}

TEST_F(Fight, AMinerStandsWhereARevealedBombWas) {
  Begin(With(kEstLayout, u"A3"_s, Rank::Miner), With(kEstLayout, u"J4"_s, Rank::Bomb));
  AnswerAllBoxes();
  Pair.Move(u"A4"_s, u"A7"_s);
  for (const auto& [from, to] : {std::pair{u"A3"_s, u"A4"_s}, {u"A4"_s, u"A5"_s}, {u"A5"_s, u"A6"_s}}) {
    const bool out = Client.At(u"F4"_s) == kEmptyLand;
    Pair.Move(out ? u"F5"_s : u"F4"_s, out ? u"F4"_s : u"F5"_s);
    Pair.Move(from, to);
  }
  Pair.Move(u"F5"_s, u"F4"_s);
  Pair.Move(u"A6"_s, u"A7"_s);
  EXPECT_EQ(Server.Screen.Status, u"El Minador desactiva la bomba y sigue su camino"_s);
  EXPECT_EQ(Client.At(u"J4"_s), CodeOf({Player::Server, Rank::Miner}));
}

// ---- The end ----

const QString kWonText = u"¡Enhorabuena, ha capturado la bandera enemiga!"_s;
const QString kLostText =
    kAna + u" ha conseguido capturar la bandera, ganando la partida.\r\nPulse sobre el tablero para continuar.";

class FlagFight : public Fight {
 protected:
  FlagFight() { Begin(kEstLayout, With(kEstLayout, u"J4"_s, Rank::Flag)); }

  void TakeFlag() {
    Server.Dialogs.Expect(u"Ha ganado"_s, kWonText);
    Client.Dialogs.Expect(u"Ha perdido"_s, kLostText, [&] { EXPECT_EQ(Client.Screen.Messages, QString()); });
    Pair.Move(u"A4"_s, u"A7"_s);
  }
  void ExpectNewGame(StrategyCopy& copy, int points) {
    copy.Dialogs.Expect(box::kNewGameTitle,
                        u"Marcador actual: \r\nAna  %1 : Luis 0\r\nComenzará jugando Ana. "
                        u"Coloque su ejército."_s.arg(points));
  }
};

TEST_F(FlagFight, TheFlagEndsTheGameAndKeepsTheTurn) {
  TakeFlag();
  EXPECT_EQ(Server.Screen.Status, u"El Explorador ha capturado la bandera!!!"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Haganado|"_s);
  EXPECT_TRUE(Server.Connection.Sent.filter(u"Jug|"_s).isEmpty());
  EXPECT_EQ(Server.Screen.Lines.last(), u"Haga click en el tablero para continuar"_s);
  EXPECT_EQ(Server.At(u"A4"_s), kEmptyLand);
  EXPECT_EQ(Server.Shown(u"A4"_s).Text, u"Explorador"_s) << "the grid is not drawn again";
  for (const StrategyCopy* copy : {&Server, &Client}) {
    EXPECT_TRUE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Flow.State().Scores, (PerPlayer<std::int16_t>{.Server = 1, .Client = 0}));
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Server);
  }
  const qsizetype lines = Server.Screen.Lines.size();
  Server.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_EQ(Server.Screen.Lines.size(), lines) << "Esc does nothing after the end";
  Client.Connection.Receive(u"Jug|01,04,01,05,01,"_s);
  Pair.Settle();
  EXPECT_EQ(Client.At(u"J7"_s), CodeOf({Player::Server, Rank::Scout})) << "moves after the end are ignored";
}

TEST_F(FlagFight, AnotherGameBeginsWithTheWinnerAndTheFlagsThatLast) {
  TakeFlag();
  Server.Dialogs.Expect(u"Estratega"_s, box::kRematch, Button::Yes);
  Server.Click(u"A1"_s);
  Pair.Settle();
  EXPECT_EQ(Client.Screen.Messages, u"\r\nNueva partida.Ana desea jugar otra partida."_s);
  EXPECT_TRUE(Server.Flow.State().GameOver) << "one wish is not enough the first time";
  Client.Dialogs.Expect(u"Estratega"_s, box::kRematch, Button::Yes);
  ExpectNewGame(Server, 1);
  ExpectNewGame(Client, 1);
  Client.Click(u"J10"_s);
  Pair.Settle();
  for (const StrategyCopy* copy : {&Server, &Client}) {
    EXPECT_TRUE(copy->Flow.PlacementMode());
    EXPECT_FALSE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Flow.ReadyFlags(), (PerPlayer<bool>{true, true}));
    EXPECT_EQ(copy->Flow.State().RematchWanted, (PerPlayer<bool>{true, true}));
    EXPECT_EQ(copy->Flow.SelectedCell(), std::nullopt) << "no phantom of the piece that took the flag";
    EXPECT_EQ(copy->Shown(u"A4"_s).Text, QString());
    EXPECT_EQ(copy->Shown(u"A7"_s), CellContent{});
  }
  // The first army of the second game finds both ready; the other window, still placing, is told the same.
  Server.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Server.Dialogs.Expect({}, box::kFightOwnTurn);
  Client.Dialogs.Expect({}, box::kFightOtherTurn);
  Server.Place(kEstLayout);
  Pair.Settle();
  EXPECT_TRUE(Client.Flow.PlacementMode());
  Client.Dialogs.Expect({}, QString(kAna + u" mueve una ficha de F7 a F6. Es su turno."));
  Pair.Move(u"E4"_s, u"E5"_s);
  Client.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Client.Dialogs.Expect({}, box::kFightOwnTurn);
  Server.Dialogs.Expect({}, box::kFightOtherTurn);
  Client.Place(With(kEstLayout, u"J4"_s, Rank::Flag));
  Pair.Settle();
  EXPECT_EQ(Server.At(u"A7"_s), CodeOf({Player::Client, Rank::Flag}));
  Server.Dialogs.Expect({}, QString(kLuis + u" mueve una ficha de F7 a F6. Es su turno."));
  Pair.Move(u"E4"_s, u"E5"_s);
  TakeFlag();
  // From now on a single wish begins another game in both windows.
  Client.Dialogs.Expect(u"Estratega"_s, box::kRematch, Button::Yes);
  ExpectNewGame(Server, 2);
  ExpectNewGame(Client, 2);
  Client.Click(u"A1"_s);
  Pair.Settle();
  EXPECT_FALSE(Server.Flow.State().GameOver);
}

TEST_F(FlagFight, AWishThatArrivesWhileTheLossIsToldFindsThePointCounted) {
  Server.Dialogs.Expect(u"Ha ganado"_s, kWonText);
  Client.Dialogs.Expect(u"Ha perdido"_s, kLostText, [&] {
    EXPECT_TRUE(Client.Flow.State().GameOver);
    EXPECT_EQ(Client.Flow.State().Scores.Server, 1);
  });
  Pair.Move(u"A4"_s, u"A7"_s);
}

TEST_F(FlagFight, NoEndsBothWindows) {
  TakeFlag();
  Server.Dialogs.Expect(u"Estratega"_s, box::kRematch, Button::No);
  Client.Dialogs.Expect({},
                        u"Ana no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s);
  Server.Click(u"A1"_s);
  Pair.Settle();
  EXPECT_EQ(Server.Finished, AfterWindow::Selection);
  EXPECT_EQ(Client.Finished, AfterWindow::Selection);
}

TEST(MiniFight, AsksForAnotherGameUnderItsOwnTitle) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, With(kMesLayout, u"G3"_s, Rank::Flag));
  pair.Server.Dialogs.Expect(u"Ha ganado"_s, kWonText);
  pair.Client.Dialogs.Expect(u"Ha perdido"_s, kLostText);
  pair.Move(u"A3"_s, u"A6"_s);
  pair.Server.Dialogs.Expect(u"Mini Estratega"_s, box::kRematch, Button::Yes);
  pair.Server.Click(u"A1"_s);
  pair.Settle();
  EXPECT_EQ(pair.Server.Connection.Sent.last(), u"Seguir|Si"_s);
}

TEST(MiniFight, MirrorsMovesOnItsOwnBoard) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, kMesLayout);
  pair.Client.Dialogs.Expect({}, QString(kAna + u" mueve una ficha de G6 a G4. Es su turno."));
  pair.Move(u"A3"_s, u"A5"_s);
  EXPECT_EQ(pair.Client.At(u"G4"_s), CodeOf({Player::Server, Rank::Scout}));
}

TEST_F(FlagFight, AScoutThatComesBeforeTheArmyIsCompleteStaysOnBothBoards) {
  TakeFlag();
  for (StrategyCopy* copy : {&Server, &Client}) {
    copy->Dialogs.AnswerBox = [](const QString& title) { return title.isEmpty() ? Button::Ok : Button::Yes; };
  }
  Server.Click(u"A1"_s);
  Pair.Settle();
  Client.Click(u"A1"_s);
  Pair.Settle();
  Server.Place(kEstLayout);
  Pair.Settle();
  Pair.Move(u"A4"_s, u"A7"_s);
  Client.Place(kEstLayout);
  Client.Flow.KeyPressed(Qt::Key_F3);
  Pair.Settle();
  EXPECT_FALSE(Client.Flow.PlacementMode()) << "F3 clears the zone";
  EXPECT_EQ(Server.At(u"A7"_s), Client.At(u"J4"_s));
}

// ---- Passing ----

TEST_F(Fight, EscNamesTheFirstPieceThatCanMove) {
  Begin();
  Server.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_EQ(Server.Screen.Lines.last(), u"Puede mover el Explorador de A4."_s);
  EXPECT_EQ(Turn(), Player::Server);
  Client.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_EQ(Client.Screen.Status, u"No es su turno de jugar."_s);
}

// A player whose whole army has gone but for its flag, as a peer's moves may leave it.
void LeaveOnlyTheFlag(StrategyPair& pair, Player player) {
  const auto strip = [](StrategyCopy& copy, bool own) {
    const int rows = copy.Flow.StrategyBoard().Variant().Rows;
    for (int column = 1; column <= copy.Flow.StrategyBoard().Variant().Columns; ++column) {
      for (int row = 1; row <= 3; ++row) {
        const auto piece = copy.Flow.StrategyBoard().PieceAt({.Column = column, .Row = own ? row : rows + 1 - row});
        if (piece && !IsMovable(piece->Rank)) continue;
        // Destroyed together with nothing: the sender's coordinates are the board's turned ones.
        const Coordinate cell =
            copy.Flow.StrategyBoard().Variant().Mirrored({.Column = column, .Row = own ? row : rows + 1 - row});
        for (int again = 0; again < 2; ++again) {  // twice, so that the turn stays
          copy.Connection.Receive(
              u"Jug|%1,%2,%1,%2,02,"_s.arg(cell.Column, 2, 10, QChar(u'0')).arg(cell.Row, 2, 10, QChar(u'0')));
        }
      }
    }
  };
  for (StrategyCopy* copy : {&pair.Server, &pair.Client}) {
    copy->Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
    copy->Connection.Cut = Reads::OnePerSend;
    strip(*copy, copy == &pair.Copy(player));
    pair.Settle();
  }
}

TEST(Passing, ByTheServerGivesTheClientTheTurn) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, kMesLayout);
  LeaveOnlyTheFlag(pair, Player::Server);
  pair.Server.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_EQ(pair.Server.Screen.Lines.last(), QString(u"Pasa el turno al otro jugador. Le toca mover a " + kLuis));
  pair.Settle();
  EXPECT_EQ(pair.Server.Connection.Sent.last(), u"Pasaturno|"_s);
  EXPECT_EQ(pair.Client.Screen.Lines.last(),
            QString(u"El otro jugador no puede mover y pasa el turno. " + kLuis + u" es su turno."));
  EXPECT_EQ(pair.Server.Flow.State().CurrentTurn, Player::Client);
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Client);
  EXPECT_EQ(pair.Client.Flow.State().TurnChoices, (PerPlayer<std::int16_t>{.Server = -1, .Client = 3}));
}

TEST(Passing, ThatCannotBeSentHasNotHappened) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, kMesLayout);
  LeaveOnlyTheFlag(pair, Player::Server);
  pair.Server.Connection.Break();
  pair.Settle();
  pair.Server.Dialogs.AnswerBox = {};
  ExpectNothingHasHappened(pair.Server, [&] { pair.Server.Flow.KeyPressed(Qt::Key_Escape); });
}

TEST(Passing, ByTheClientMakesTheServerDrawAnewSoThatTheTurnsDiffer) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    StrategyPair pair(kGameMES, seed);
    pair.BeginFight(kMesLayout, kMesLayout);
    pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
    pair.Move(u"A3"_s, u"A4"_s);
    LeaveOnlyTheFlag(pair, Player::Client);
    ASSERT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Client);
    const QString army = ToQString(pair.Server.Flow.StrategyBoard().ArmyText());
    const qsizetype server_lines = pair.Server.Screen.Lines.size();
    pair.Client.Flow.KeyPressed(Qt::Key_Escape);
    pair.Settle();
    EXPECT_EQ(pair.Client.Connection.Sent.last(), u"Pasaturno|"_s);
    const Player drawn = pair.Client.Flow.State().CurrentTurn;
    const QString starter = drawn == Player::Server ? u"Ana"_s : u"Luis"_s;
    EXPECT_EQ(pair.Server.Connection.Sent.last(), QString(u"Turnodef|%1"_s.arg(NumberOf(drawn)) + u'1'));
    EXPECT_EQ(pair.Server.Screen.Lines.mid(server_lines),
              QStringList({QString(u"Tras realizar el sorteo, comenzará jugando " + starter + u". "),
                           u"Coloque su ejército"_s,
                           QString(u"El otro jugador no puede mover y pasa el turno. " +
                                   (drawn == Player::Server ? kLuis : kAna) + u" es su turno.")}));
    EXPECT_EQ(pair.Server.Flow.State().CurrentTurn, OpponentOf(drawn)) << "the windows hold opposite turns";
    EXPECT_EQ(ToQString(pair.Server.Flow.StrategyBoard().ArmyText()), army) << "the army stays";
    EXPECT_FALSE(pair.Server.Flow.PlacementMode());
  }
}

// ---- What should not arrive ----

TEST_F(Fight, MovesThatCannotBeAreLeftOut) {
  Begin();
  for (const QString& payload :
       {QString(), u"04,"_s, u"04,04,04,"_s, u"04,04,04,05,03,"_s, u"04,04,04,05,-1,"_s, u"00,04,04,05,01,"_s,
        u"11,04,04,05,01,"_s, u"04,11,04,05,01,"_s, u"04,04,99,05,01,"_s, u"-1,04,04,05,01,"_s, u"xx,yy,zz,tt,01,"_s}) {
    Client.Connection.Receive(u"Jug|"_s + payload);
    Pair.Settle();
    EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Server) << qPrintable(payload);
  }
}

TEST_F(Fight, AMoveWithoutItsResultCountsAsAnAttackLost) {
  Begin();
  Client.Dialogs.Expect({}, QString(kAna + u" ataca con un Minador de F7 al  de F6 pero es derrotado. Es su turno."));
  Client.Connection.Receive(u"Jug|05,04,05,05,"_s);
  Pair.Settle();
  EXPECT_EQ(Client.At(u"F7"_s), kEmptyLand);
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Fight, ASecondArmyOverwritesTheTopRows) {
  Begin();
  Server.Dialogs.Expect({}, box::kFightOwnTurn);
  Server.Connection.Receive(u"Datos|112,"_s);
  Pair.Settle();
  EXPECT_EQ(Server.At(u"A7"_s), CodeOf({Player::Client, Rank::Marshal}));
  EXPECT_EQ(Server.At(u"B7"_s), CodeOf({Player::Client, Rank::Marshal})) << "the cell after it keeps its marshal";
  EXPECT_EQ(Server.Shown(u"A7"_s).Text, u"*"_s);
}

TEST_F(Fight, ReadyAndPassInOneReadBothCountReadyFirst) {
  Begin();
  Client.Connection.Receive(u"Pasaturno|Listo|"_s);
  Pair.Settle();
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Client);
  EXPECT_EQ(Client.Screen.Messages,
            QString(u"\r\nEl otro jugador no puede mover y pasa el turno. " + kLuis + u" es su turno."))
      << "the ready mark has emptied the log before";
}

TEST(FightEarly, NothingMovesBeforeTheFirstTurnIsSettled) {
  StrategyPair pair(kGameEST);
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  pair.Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Servidor"_s, u"Ana"_s);
  pair.Server.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"1"_s);
  pair.Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Luis"_s);
  pair.Client.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, u"3"_s, u"2"_s, [&] {
    pair.Server.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
    pair.Server.Dialogs.Expect({}, box::kWaitForArmy);
    pair.Server.Place(kEstLayout);
    pair.Settle();
    pair.Server.Click(u"A4"_s);
    EXPECT_EQ(pair.Server.Screen.Status, u"No es su turno de jugar."_s);
    pair.Server.Flow.KeyPressed(Qt::Key_Escape);
    EXPECT_EQ(pair.Server.Screen.Status, u"No es su turno de jugar."_s);
  });
  pair.Ask();
  pair.Settle();
  pair.Server.Click(u"A4"_s);
  EXPECT_EQ(pair.Server.Screen.Status, u"Explorador seleccionado."_s)
      << "before the opponent's army, on the board as it is";
}

}  // namespace
}  // namespace brontavia::test
