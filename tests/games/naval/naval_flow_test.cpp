#include "games/naval/naval_flow.h"

#include <gtest/gtest.h>

#include "tests/support/bar_pair.h"
#include "tests/support/held_state.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr ColourValue kBlue = 0xFF0000;
constexpr ColourValue kRed = 0x0000FF;

const QString kAllShips =
    u"Faltan por colocar:\r\n"
    u"Portaaviones  (5 Casillas)\r\n"
    u"Acorazado     (4 Casillas)\r\n"
    u"Submarino     (3 Casillas)\r\n"
    u"Submarino     (3 Casillas)\r\n"
    u"Submarino     (3 Casillas)\r\n"
    u"Destructor    (2 Casillas)\r\n"
    u"Destructor    (2 Casillas)\r\n"_s;

// ---- Placing ----

class Placing : public testing::Test {
 protected:
  Placing() { Pair.Connect(); }

  BarPair Pair;
  BarCopy& Own = Pair.Server;
};

TEST_F(Placing, BeginsWithAllShipsToPlaceAndHeadersOnBothGrids) {
  EXPECT_EQ(Own.Screen.Ships, kAllShips);
  for (const BoardModel* grid : {&Own.Flow.FG1(), &Own.Flow.FG2()}) {
    EXPECT_EQ(grid->Cell({0, 0}).Text, QString());
    EXPECT_EQ(grid->Cell({0, 1}).Text, u"A"_s);
    EXPECT_EQ(grid->Cell({0, 10}).Text, u"J"_s);
    EXPECT_EQ(grid->Cell({1, 0}).Text, u"1"_s);
    EXPECT_EQ(grid->Cell({10, 0}).Text, u"10"_s);
  }
  EXPECT_EQ(Own.Flow.FG1().CurrentCell(), (CellIndex{1, 1}));
}

TEST_F(Placing, TellsTheFirstTurnAndThatShipsAreToBePlaced) {
  EXPECT_EQ(Own.Screen.Lines.last(), u"Por decisión mutua comenzará jugando Ana. "_s);
  EXPECT_EQ(Own.Connection.Sent.last(), u"Turnodef|00"_s);
}

TEST_F(Placing, TwoClicksPlaceAShipWithItsMargin) {
  Own.Click(u"C3"_s);
  EXPECT_EQ(Own.Screen.Status, u"posición inicial fijada"_s);
  Own.Click(u"C5"_s);
  EXPECT_EQ(Own.Screen.Status, u"Colocado Submarino, quedan 6 barcos por colocar."_s);
  EXPECT_EQ(Own.FG1(u"C4"_s).Text, u"Submarino"_s);
  EXPECT_EQ(Own.FG1(u"B2"_s).Text, u"Agua"_s);
  EXPECT_EQ(Own.FG1(u"C7"_s).Text, QString());
  EXPECT_EQ(Own.FG1(u"C4"_s).BackColour, kDefaultColour);
  EXPECT_FALSE(Own.Screen.Ships.contains(u"Submarino     (3 Casillas)\r\nSubmarino     (3 Casillas)\r\nSubmarino"_s));
}

TEST_F(Placing, ClicksThatPlaceNothingSayWhy) {
  Own.Click(u"A1"_s);
  Own.Click(u"A1"_s);
  EXPECT_EQ(Own.Screen.Status, u"Posición inicial eliminada."_s);
  Own.Click(u"C4"_s);
  Own.Dialogs.Expect({}, u"No se pueden colocar los barcos en diagonal. La posición de inicio del barco es C, 4"_s);
  Own.Click(u"D5"_s);
  Own.Dialogs.Expect({}, u"No existen barcos de más de 5 casillas de largo"_s);
  Own.Click(u"H4"_s);
  Own.Click(u"F4"_s);
  EXPECT_EQ(Own.Screen.Status, u"Colocado Acorazado, quedan 6 barcos por colocar."_s);
  Own.Click(u"B3"_s);
  EXPECT_EQ(Own.Screen.Status, u"Esa posición no está libre"_s);
  Own.Click(u"D2"_s);
  Own.Dialogs.Expect({}, u"Alguna de las casillas necesarias para colocar el barco no está libre."_s);
  Own.Click(u"D6"_s);
  EXPECT_EQ(Own.Flow.Board().PendingStart(), (Coordinate{4, 2}));
}

TEST_F(Placing, AnExhaustedSizeIsToldInTheLogAndKeepsTheStart) {
  for (const auto& [start, end] : {std::pair{u"A1"_s, u"A3"_s}, {u"C1"_s, u"C3"_s}, {u"E1"_s, u"E3"_s}}) {
    Own.Click(start);
    Own.Click(end);
  }
  Own.Click(u"G1"_s);
  Own.Click(u"G3"_s);
  EXPECT_EQ(Own.Screen.Lines.last(), u"No quedan barcos de ese tamaño por colocar"_s);
  EXPECT_EQ(Own.Flow.Board().PendingStart(), (Coordinate{7, 1}));
}

TEST_F(Placing, AShipCanBeRemovedAndTheListIsNotRewritten) {
  Own.Click(u"A1"_s);
  Own.Click(u"A2"_s);
  const QString list = Own.Screen.Ships;
  Own.Dialogs.Expect(box::kNaval, u"¿Desea quitar ese barco?"_s, Button::No);
  Own.Click(u"A1"_s);
  EXPECT_EQ(Own.FG1(u"A1"_s).Text, u"Destructor"_s);
  Own.Dialogs.Expect(box::kNaval, u"¿Desea quitar ese barco?"_s, Button::Yes);
  Own.Click(u"A1"_s);
  EXPECT_EQ(Own.Screen.Status, u"Eliminado Destructor, quedan 7 barcos por colocar."_s);
  EXPECT_EQ(Own.FG1(u"A1"_s).Text, QString());
  EXPECT_EQ(Own.FG1(u"B3"_s).Text, QString());
  EXPECT_EQ(Own.Screen.Ships, list);
}

TEST_F(Placing, EscForgetsTheStart) {
  Own.Click(u"A1"_s);
  Own.Flow.BoardKeyPressed(Qt::Key_Escape);
  EXPECT_EQ(Own.Screen.Status, u"Posición inicial borrada"_s);
  EXPECT_EQ(Own.Flow.Board().PendingStart(), std::nullopt);
}

TEST_F(Placing, TheKeyTConfirmsOnlyACompleteFleet) {
  Own.Flow.BoardKeyPressed(Qt::Key_T);
  EXPECT_EQ(Own.Screen.Lines.last(), u"Aún faltan barcos por colocar "_s);
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::No);
  Own.PlaceFleet();
  EXPECT_EQ(Own.Screen.Lines.last(),
            u"Haga  modificaciones en las posiciones de sus barcos o pulse t cuando haya terminado"_s);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  Own.Dialogs.Expect({}, box::kWaitForOther);
  Own.Flow.BoardKeyPressed(Qt::Key_T);
  EXPECT_FALSE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Connection.Sent.last(), u"Listo|"_s);
}

TEST_F(Placing, MovingOverACellDescribesIt) {
  Own.Click(u"A1"_s);
  Own.Click(u"A2"_s);
  Own.Flow.FG1().SetCurrentCell({1, 1});
  EXPECT_EQ(Own.Screen.Status, u"A1 Destructor"_s);
  Own.Flow.FG1().SetCurrentCell({3, 2});
  EXPECT_EQ(Own.Screen.Status, u"B3 Agua"_s);
  Own.Flow.FG1().SetCurrentCell({10, 10});
  EXPECT_EQ(Own.Screen.Status, u"J10 "_s);
  EXPECT_EQ(Own.Flow.FG1().Description({3, 2}), u"B3 Agua"_s);
  EXPECT_EQ(Own.Flow.FG1().Description({0, 3}), u"C"_s);
}

TEST_F(Placing, IsNotBoundToTheTurn) {
  Pair.Client.Click(u"A1"_s);
  EXPECT_EQ(Pair.Client.Screen.Status, u"posición inicial fijada"_s);
}

// ---- Exchange ----

TEST_F(Placing, AConfirmedFleetTravelsAsOneReadAndThatItIsReadyAsAnother) {
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther, [&] { EXPECT_EQ(Own.Screen.Messages, u"barcos enviados "_s); });
  Own.PlaceFleet();
  Pair.Settle();
  const QStringList& sent = Own.Connection.Sent;
  EXPECT_EQ(sent.at(sent.size() - 2), u"Datos|3))-)4)+,+5)-+-6--/-7)/+/8-/./9)1*1"_s);
  EXPECT_EQ(sent.last(), u"Listo|"_s);
  EXPECT_EQ(Pair.Client.Screen.Lines.last(), u"El otro jugador ha terminado de colocar sus barcos y está esperando."_s);
  EXPECT_EQ(Own.FG1(u"A1"_s).Text, QString()) << "FG1 is the target grid now";
  EXPECT_EQ(Own.FG2(u"A1"_s).Text, u"P"_s);
  EXPECT_EQ(Own.FG2(u"D3"_s).Text, u"A"_s);
  EXPECT_EQ(Own.FG2(u"F5"_s).Text, u"S"_s);
  EXPECT_EQ(Own.FG2(u"B9"_s).Text, u"D"_s);
}

TEST_F(Placing, AFleetThatArrivesMeanwhileEmptiesTheDisplayAndKeepsThePlacement) {
  Pair.Client.Click(u"A1"_s);
  Pair.Client.Click(u"A2"_s);
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther);
  Own.PlaceFleet();
  Pair.Settle();
  EXPECT_EQ(Pair.Client.FG1(u"A1"_s).Text, QString());
  EXPECT_EQ(Pair.Client.Flow.Board().OwnBoard({1, 1}), 6);
  EXPECT_EQ(Pair.Client.FG2(u"A1"_s).Text, u"D"_s);
  EXPECT_EQ(Pair.Client.Flow.FG2().Cell({0, 0}).Text, u"D"_s) << "the ships not yet placed lie on the corner";
  EXPECT_EQ(Pair.Client.Flow.Board().EnemyBoard({5, 1}), 11);
}

TEST_F(Placing, AMalformedFleetIsToldAndConfirmingStaysRefused) {
  const QString data = u"3)))))"_s;
  Own.Dialogs.Expect({}, u"Error. Datos actuales: "_s + data +
                             u" numbarco = 0 recibidos: False, colocando = False, Limpiando = False Contadores: 0; 0; "
                             u"0; 0. Coor: 1, 1");
  Own.Connection.Receive(u"Datos|"_s + data);
  Pair.Settle();
  EXPECT_TRUE(Own.Flow.ReceivingFleet());
  const QString wait =
      u"Espere un momento, está recibiendo la posición de los barcos enemigos, pulse t cuando desee volver a intentar "
      u"enviar los barcos"_s;
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, wait);
  Own.PlaceFleet();
  Own.Dialogs.Expect({}, QString(wait + u'.'));
  Own.Flow.BoardKeyPressed(Qt::Key_T);
  EXPECT_TRUE(Own.Flow.PlacementMode());
}

TEST_F(Placing, NothingCanBeClickedWhileTheFleetIsOnItsWay) {
  Own.Connection.HoldSendComplete = true;
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther);
  QMetaObject::invokeMethod(
      &Own.Connection,
      [&] {
        EXPECT_EQ(Own.Screen.Messages, u"Enviando barcos: "_s);
        Own.Click(u"A1"_s);
        Own.Flow.BoardKeyPressed(Qt::Key_T);
        Own.Connection.HoldSendComplete = false;
        emit Own.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Own.PlaceFleet();
  EXPECT_EQ(Own.Connection.Sent.filter(u"Datos|"_s).size(), 1);
}

TEST_F(Placing, GoesOnAfterAnOpponentSaysThatHeHasWon) {
  Own.Dialogs.Expect(u"Ha perdido"_s,
                     u"Ana ha destruído todos sus barcos.\r\nPulse sobre el tablero para continuar."_s);
  Own.Connection.Receive(u"Haganado|"_s);
  Pair.Settle();
  ASSERT_TRUE(Own.Flow.State().GameOver);
  Own.Click(u"C1"_s);
  EXPECT_EQ(Own.Screen.Status, u"posición inicial fijada"_s);
}

TEST_F(Placing, WaitsOnceTheBoxesHaveBeenAnsweredAndNoLonger) {
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther, [&] { EXPECT_FALSE(Own.Flow.WaitingForOpponent()); });
  Own.PlaceFleet();
  EXPECT_TRUE(Own.Flow.WaitingForOpponent());
  Pair.Settle();
  Pair.Client.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Pair.Client.Dialogs.Expect({}, box::kReadyOtherTurn);
  Own.Dialogs.Expect({}, box::kReadyOwnTurn, [&] { EXPECT_TRUE(Own.Flow.WaitingForOpponent()); });
  Pair.Client.PlaceFleet();
  Pair.Settle();
  EXPECT_FALSE(Own.Flow.WaitingForOpponent());
}

QString GridsOf(const BarCopy& copy) { return ShownOn(copy.Flow.FG1()) + ShownOn(copy.Flow.FG2()); }

TEST_F(Placing, AFleetThatCannotBeSentIsStillToBeSent) {
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::No);
  Own.PlaceFleet();
  Own.Screen.Messages.clear();  // sending takes the log's place
  Own.Connection.Break();
  Pair.Settle();
  const QString before = HeldState(Own);
  const QString shown = GridsOf(Own);
  for (int attempt = 0; attempt < 2; ++attempt) {
    Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    Own.Flow.BoardKeyPressed(Qt::Key_T);
    EXPECT_EQ(HeldState(Own), before);
    EXPECT_EQ(GridsOf(Own), shown);
    EXPECT_TRUE(Own.Flow.PlacementMode());
    EXPECT_FALSE(Own.Flow.WaitingForOpponent());
    EXPECT_EQ(Own.Flow.ReadyFlags(), PerPlayer<bool>{});
  }
}

TEST_F(Placing, AFleetWhoseReadyMarkCannotBeSentIsStillToBeSent) {
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::No);
  Own.PlaceFleet();
  const QString shown = GridsOf(Own);
  Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  QObject::connect(&Own.Connection, &Connection::SendComplete, &Own.Connection, [&] { Own.Connection.Break(); });
  Own.Flow.BoardKeyPressed(Qt::Key_T);
  EXPECT_EQ(Own.Connection.Sent.filter(u"Datos|"_s).size(), 1);
  EXPECT_TRUE(Own.Connection.Sent.filter(u"Listo|"_s).isEmpty());
  EXPECT_EQ(GridsOf(Own), shown);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_FALSE(Own.Flow.WaitingForOpponent());
  EXPECT_EQ(Own.Flow.ReadyFlags(), PerPlayer<bool>{});
}

TEST_F(Placing, AFleetThatCannotBeSentIsToldAndCanBeSentAgain) {
  Own.Connection.HoldSendComplete = true;
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  QMetaObject::invokeMethod(
      &Own.Connection, [&] { Own.Connection.Break(); }, Qt::QueuedConnection);
  Own.PlaceFleet();
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_FALSE(Own.Finished);
}

// ---- Firing ----

class Firing : public testing::Test {
 protected:
  Firing() { Pair.BeginBattle(); }

  void Shoot(BarCopy& shooter, const QString& cell) {
    shooter.Click(cell);
    Pair.Settle();
  }
  // All cells of the test fleet but those of the last ship.
  void SinkAllButTheLast(BarCopy& shooter) {
    for (std::size_t ship = 0; ship + 1 < kTestFleet.size(); ++ship) {
      for (const Coordinate cell : CellsBetween(CellNamed(kTestFleet[ship].Start), CellNamed(kTestFleet[ship].End))) {
        shooter.Click(cell);
        Pair.Settle();
      }
    }
  }

  BarPair Pair;
  BarCopy& Server = Pair.Server;
  BarCopy& Client = Pair.Client;
};

TEST_F(Firing, BeginsWithTheStatusOfBothFleets) {
  EXPECT_EQ(Server.Screen.Ships,
            u"Estado de los barcos\r\n"
            u"Barcos propios | Barcos enemigos \r\n"
            u"Portaaviones I |Portaaviones ?\r\n"
            u"Acorazado    I |Acorazado    ?\r\n"
            u"Submarino    I |Submarino    ?\r\n"
            u"Submarino    I |Submarino    ?\r\n"
            u"Submarino    I |Submarino    ?\r\n"
            u"Destructor   I |Destructor   ?\r\n"
            u"Destructor   I |Destructor   ?\r\n"_s);
  EXPECT_EQ(Server.Screen.Messages, QString());
}

TEST_F(Firing, WaterPassesTheTurnAndIsHeardOnBothSides) {
  Shoot(Server, u"J10"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Jug|22A"_s);
  EXPECT_EQ(Server.Screen.Status, u"¡Agua! le toca disparar al otro jugador."_s);
  EXPECT_EQ(Server.FG1(u"J10"_s), (CellContent{.Text = u"Agua"_s, .BackColour = kBlue, .Marks = Mark::LastMove}));
  EXPECT_EQ(Server.Screen.Sounds, QStringList(u"Mp1 Agua.wav"_s));
  EXPECT_EQ(Client.Screen.Sounds, QStringList(u"Mp1 Agua.wav"_s));
  EXPECT_EQ(Client.Screen.Lines.last(), u"Disparo enemigo  en J10: Agua. Le toca disparar."_s);
  EXPECT_EQ(Client.FG2(u"J10"_s).Text, QString());
  EXPECT_EQ(Client.Flow.State().CurrentTurn, Player::Client);
  EXPECT_EQ(Server.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Firing, OutOfTurnNothingIsFired) {
  Shoot(Client, u"A1"_s);
  EXPECT_EQ(Client.Screen.Status, u"No es su turno de jugar."_s);
  EXPECT_TRUE(Client.Connection.Sent.filter(u"Jug|"_s).isEmpty());
}

TEST_F(Firing, AHitKeepsTheTurnAndIsHeardAtTheTarget) {
  Shoot(Server, u"B3"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Jug|*+I"_s);
  EXPECT_EQ(Server.Screen.Status, u"¡Impacto!, Barco tocado. Siga disparando."_s);
  EXPECT_EQ(Server.FG1(u"B3"_s), (CellContent{.Text = u"impacto"_s, .BackColour = kRed, .Marks = Mark::LastMove}));
  EXPECT_TRUE(Server.Screen.Sounds.isEmpty());
  EXPECT_EQ(Client.Screen.Sounds, QStringList(u"Mp1 Impacto.wav"_s));
  EXPECT_EQ(Client.Screen.Lines.last(), u"Disparo enemigo  en B3: Impacto en un Acorazado, barco tocado."_s);
  EXPECT_EQ(Client.FG2(u"B3"_s).Text, u"*"_s);
  EXPECT_EQ(Client.FG2(u"B3"_s).BackColour, kRed);
  EXPECT_TRUE(Client.Screen.Ships.contains(u"Acorazado    T |Acorazado    ?"_s));
  EXPECT_TRUE(Server.Screen.Ships.contains(u"Acorazado    I |Acorazado    ?"_s)) << "a hit is no sinking";
  EXPECT_EQ(Server.Flow.State().CurrentTurn, Player::Server);
}

TEST_F(Firing, TheSameCellTwiceIsReportedTwiceAndChangesNothing) {
  Shoot(Server, u"B3"_s);
  Shoot(Server, u"B3"_s);
  EXPECT_EQ(Server.Connection.Sent.filter(u"Jug|*+I"_s).size(), 2);
  EXPECT_EQ(Client.Screen.Lines.last(), u"Disparo enemigo  en B3: Impacto en un Acorazado"_s);
  EXPECT_EQ(Client.Flow.Board().Ship(2).IntactCount, 3);
  EXPECT_EQ(Server.Flow.Board().Ship(12).IntactCount, 3);
  EXPECT_EQ(Server.Flow.State().CurrentTurn, Player::Server);
}

TEST_F(Firing, WaterTwicePassesTheTurnTwice) {
  Shoot(Server, u"J10"_s);
  Shoot(Client, u"J10"_s);
  Shoot(Server, u"J10"_s);
  EXPECT_EQ(Server.Connection.Sent.filter(u"Jug|22A"_s).size(), 2);
  EXPECT_EQ(Server.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Firing, ASinkingRevealsTheMarginAndKeepsStatusAndCurrentCell) {
  Shoot(Server, u"A9"_s);
  Shoot(Server, u"B9"_s);
  EXPECT_EQ(Server.Screen.Status, u"¡Impacto!, Barco hundido. Siga disparando."_s);
  EXPECT_EQ(Server.Flow.FG1().CurrentCell(), (CellIndex{9, 2}));
  for (const QString& cell : {u"A8"_s, u"C10"_s, u"A10"_s, u"C8"_s}) {
    EXPECT_EQ(Server.FG1(cell), (CellContent{.Text = u"Agua"_s, .BackColour = kBlue}));
  }
  EXPECT_EQ(Server.FG1(u"D9"_s).Text, QString());
  EXPECT_EQ(Client.Screen.Sounds.mid(1), QStringList({u"Mp1 Impacto.wav"_s, u"MP2 Hundido.wav"_s}));
  EXPECT_EQ(Client.Screen.Lines.last(), u"Disparo enemigo  en B9: Impacto en un Destructor, barco hundido."_s);
  EXPECT_TRUE(Server.Screen.Ships.endsWith(u"Destructor   I |Destructor   H\r\n"_s));
  EXPECT_TRUE(Client.Screen.Ships.endsWith(u"Destructor   H |Destructor   ?\r\n"_s));
}

TEST_F(Firing, MovingOverACellTellsWhatWasFiredAtIt) {
  Shoot(Server, u"B3"_s);
  Server.Flow.FG1().SetCurrentCell({1, 1});
  EXPECT_EQ(Server.Screen.Status, u"A1 "_s);
  Server.Flow.FG1().SetCurrentCell({3, 2});
  EXPECT_EQ(Server.Screen.Status, u"B3 Impacto"_s);
  EXPECT_EQ(Client.Flow.FG2().Description({3, 2}), u"B3 Acorazado Impacto"_s);
}

// Of the own shots: what has been fired at, and what is left of the opponent's ships.
QString ShotsOf(const NavalBoard& board) {
  QString shots = u"afloat %1"_s.arg(board.EnemyShipsAfloat());
  for (const Coordinate cell : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) {
    shots += u' ' + QString::number(board.ShotBoard(cell));
  }
  for (int ship = 1 + kEnemyOffset; ship <= kShipsPerFleet + kEnemyOffset; ++ship) {
    shots += u" %1:%2"_s.arg(board.Ship(ship).IntactCount).arg(static_cast<int>(board.Ship(ship).State));
    for (const bool intact : board.Ship(ship).Segments) shots += intact ? u'+' : u'-';
  }
  return shots;
}

// A shot of `shooter`, who has lost the connection, leaves everything as it was.
void ExpectNoShotAt(const QString& cell, BarCopy& shooter) {
  SCOPED_TRACE(qPrintable(cell));
  const Coordinate target = CellNamed(cell);
  shooter.Flow.FG1().SetCurrentCell({.Row = target.Row, .Column = target.Column});
  const QString before = HeldState(shooter);
  const QString shots = ShotsOf(shooter.Flow.Board());
  shooter.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  shooter.Click(cell);
  EXPECT_EQ(HeldState(shooter), before);
  EXPECT_EQ(ShotsOf(shooter.Flow.Board()), shots);
}

TEST_F(Firing, AShotThatCannotBeSentHasNotHappened) {
  Shoot(Server, u"A9"_s);
  Server.Connection.Break();
  Pair.Settle();
  ExpectNoShotAt(u"J10"_s, Server);
  ExpectNoShotAt(u"A9"_s, Server);  // hit before
  ExpectNoShotAt(u"B3"_s, Server);
  ExpectNoShotAt(u"B9"_s, Server);  // which would sink
}

TEST_F(Firing, AWinThatCannotBeSentIsNone) {
  SinkAllButTheLast(Server);
  Shoot(Server, u"A9"_s);
  Server.Connection.Break();
  Pair.Settle();
  ExpectNoShotAt(u"B9"_s, Server);
}

TEST_F(Firing, AResetUnderAnOpenBoxTellsTheCurrentCellToo) {
  Client.Dialogs.Expect(u"Ha perdido"_s,
                        u"Ana ha destruído todos sus barcos.\r\nPulse sobre el tablero para continuar."_s);
  Client.Connection.Receive(u"Haganado|"_s);
  Pair.Settle();
  Client.Dialogs.Expect(box::kNaval, box::kRematch, Button::Yes);
  Client.Click(u"E5"_s);
  const QString score = u"Marcador actual: \r\nAna  1 : Luis 0\r\nComenzará jugando Ana. Coloque sus barcos."_s;
  Client.Dialogs.Expect(box::kNaval, box::kRematch, Button::Yes, [&] {
    Client.Dialogs.Expect(box::kNewGameTitle, score, [&] { EXPECT_EQ(Client.Screen.Status, u"A1 "_s); });
    Client.Connection.Receive(u"Seguir|Si"_s);
    Pair.Settle();
  });
  Client.Click(u"E5"_s);
  EXPECT_TRUE(Client.Flow.PlacementMode());
}

TEST_F(Firing, TheLastSinkingWinsAndBothScoresAgree) {
  SinkAllButTheLast(Server);
  Shoot(Server, u"A9"_s);
  Server.Dialogs.Expect(u"Ha ganado"_s, u"¡Enhorabuena, ha conseguido destruir todos los barcos enemigos!"_s,
                        [&] { EXPECT_EQ(Server.Screen.Status, u"¡Impacto!, Barco hundido."_s); });
  Client.Dialogs.Expect(u"Ha perdido"_s,
                        u"Ana ha destruído todos sus barcos.\r\nPulse sobre el tablero para continuar."_s);
  Shoot(Server, u"B9"_s);
  EXPECT_EQ(Server.Connection.Sent.last(), u"Haganado|"_s);
  EXPECT_EQ(Server.Screen.Lines.last(), u"Haga click en el tablero para continuar"_s);
  for (BarCopy* copy : {&Server, &Client}) {
    EXPECT_TRUE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Flow.State().Scores.Server, 1);
    EXPECT_EQ(copy->Flow.State().Scores.Client, 0);
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Server);
  }
  const QString score = u"Marcador actual: \r\nAna  1 : Luis 0\r\nComenzará jugando Ana. Coloque sus barcos."_s;
  for (BarCopy* copy : {&Server, &Client}) {
    copy->Dialogs.Expect(box::kNaval, box::kRematch, Button::Yes);
    copy->Dialogs.Expect(box::kNewGameTitle, score);
  }
  Server.Click(u"A1"_s);
  Pair.Settle();
  EXPECT_EQ(Client.Screen.Messages, u"\r\nNueva partida.Ana desea jugar otra partida."_s);
  Client.Click(u"A1"_s);
  Pair.Settle();
  for (BarCopy* copy : {&Server, &Client}) {
    EXPECT_TRUE(copy->Flow.PlacementMode());
    EXPECT_EQ(copy->Screen.Ships, kAllShips);
    EXPECT_EQ(copy->Flow.FG1().Cell({3, 2}), CellContent{});
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Server) << "the winner begins";
  }
}

TEST_F(Firing, AWinInTwoReadsNamesTheSameWinner) {
  Client.Connection.Cut = Reads::OnePerSend;
  SinkAllButTheLast(Server);
  Shoot(Server, u"A9"_s);
  Server.Dialogs.Expect(u"Ha ganado"_s, u"¡Enhorabuena, ha conseguido destruir todos los barcos enemigos!"_s);
  Client.Dialogs.Expect(u"Ha perdido"_s,
                        u"Ana ha destruído todos sus barcos.\r\nPulse sobre el tablero para continuar."_s);
  Shoot(Server, u"B9"_s);
  EXPECT_EQ(Client.Flow.State().Scores.Server, 1);
}

TEST_F(Firing, ShotsAfterTheEndAreIgnored) {
  Client.Dialogs.Expect(u"Ha perdido"_s,
                        u"Ana ha destruído todos sus barcos.\r\nPulse sobre el tablero para continuar."_s);
  Client.Connection.Receive(u"Haganado|"_s);
  Pair.Settle();
  Client.Connection.Receive(u"Jug|*+I"_s);
  Pair.Settle();
  EXPECT_EQ(Client.Flow.Board().Ship(2).IntactCount, 4);
}

TEST(FiringEarly, WaitsForTheOpponentsFleet) {
  BarPair pair;
  pair.Connect();
  pair.Server.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  pair.Server.Dialogs.Expect({}, box::kWaitForOther);
  pair.Server.PlaceFleet();
  pair.Settle();
  pair.Server.Dialogs.Expect({}, u"Por favor, Espere a que el otro jugador coloque sus barcos"_s);
  pair.Server.Click(u"A1"_s);
  EXPECT_TRUE(pair.Server.Connection.Sent.filter(u"Jug|"_s).isEmpty());
}

TEST(FiringEarly, AShotBeforeTheFleetsIsTakenAsItReads) {
  BarPair pair;
  pair.Connect();
  pair.Client.Connection.Receive(u"Jug|))I"_s);  // no own ship there yet
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Server);
  pair.Client.Connection.Receive(u"Jug|))A"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Client);
  EXPECT_TRUE(pair.Client.Flow.PlacementMode());
}

// ---- What a stranger may send ----

struct BadText {
  const char* Name;
  QString Text;
};

class BadShotOf : public testing::TestWithParam<BadText> {};

TEST_P(BadShotOf, ChangesNothingAndTheBattleGoesOn) {
  BarPair pair;
  pair.BeginBattle();
  pair.Client.Connection.Receive(GetParam().Text);
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Server);
  for (int ship = 1; ship <= kShipsPerFleet; ++ship) {
    EXPECT_EQ(pair.Client.Flow.Board().Ship(ship).State, ShipState::Intacto);
  }
  pair.Server.Click(u"B3"_s);
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.Board().Ship(2).State, ShipState::Tocado);
}

INSTANTIATE_TEST_SUITE_P(Text, BadShotOf,
                         testing::Values(BadText{"NoFields", u"Jug|"_s}, BadText{"OneField", u"Jug|)"_s},
                                         BadText{"ColumnZero", u"Jug|()A"_s}, BadText{"ColumnEleven", u"Jug|3)A"_s},
                                         BadText{"RowZero", u"Jug|)(I"_s}, BadText{"RowEleven", u"Jug|)3I"_s},
                                         BadText{"HitWhereNoShipIs", u"Jug|22I"_s}, BadText{"Empty", u""_s},
                                         BadText{"Binary", u"\u0000\u0001\u00FF\u0002"_s}),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST_F(Firing, ReadyAThousandTimesOnlyShowsItsBoxes) {
  Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  for (int i = 0; i < 1000; ++i) Client.Connection.Receive(u"Listo|"_s);
  Pair.Settle();
  Client.Dialogs.AnswerBox = {};
  Shoot(Server, u"B3"_s);
  EXPECT_EQ(Client.Flow.Board().Ship(2).State, ShipState::Tocado);
}

TEST_F(Firing, ASecondFleetInMidGameNeverTouchesTheOwnOne) {
  Shoot(Server, u"B3"_s);
  Client.Connection.Receive(u"Datos|"_s + QString::fromStdU16String(FleetText(Server.Flow.Board().Fleet())));
  Pair.Settle();
  EXPECT_EQ(Client.Flow.Board().Ship(2).IntactCount, 3);
  EXPECT_EQ(Client.Flow.Board().OwnBoard({2, 3}), 2);
  EXPECT_FALSE(Client.Flow.ReceivingFleet());
  Shoot(Server, u"C3"_s);
  EXPECT_EQ(Client.Flow.Board().Ship(2).IntactCount, 2);
}

}  // namespace
}  // namespace brontavia::test
