// StrategyFlow until both armies are exchanged.
#include <gtest/gtest.h>

#include "games/strategy/strategy_drawing.h"
#include "tests/support/held_state.h"
#include "tests/support/strategy_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr ColourValue kWater = 0x8B8B00;  // RGB(0, 139, 139)

const QStringList kFreshMenu{u"Bandera (1)"_s,    u"Bomba (6)"_s,    u"Espía (1)"_s,    u"Explorador (8)"_s,
                             u"Minador (5)"_s,    u"Sargento (4)"_s, u"Teniente (4)"_s, u"Capitán (4)"_s,
                             u"Comandante (3)"_s, u"Coronel (2)"_s,  u"General (1)"_s,  u"Mariscal (1)"_s};

class Placing : public testing::Test {
 protected:
  Placing() { Pair.Connect(); }

  StrategyPair Pair{kGameEST};
  StrategyCopy& Own = Pair.Server;
  StrategyCopy& Other = Pair.Client;
};

TEST_F(Placing, BeginsWithHeadersWaterAndAnEmptyBoard) {
  EXPECT_EQ(Own.Flow.FG1().Cell({0, 0}).Text, QString());
  EXPECT_EQ(Own.Flow.FG1().Cell({0, 1}).Text, u"A"_s);
  EXPECT_EQ(Own.Flow.FG1().Cell({0, 10}).Text, u"J"_s);
  EXPECT_EQ(Own.Flow.FG1().Cell({1, 0}).Text, u"10"_s);
  EXPECT_EQ(Own.Flow.FG1().Cell({10, 0}).Text, u"1"_s);
  for (const QString& cell : {u"C5"_s, u"C6"_s, u"D5"_s, u"D6"_s, u"G5"_s, u"G6"_s, u"H5"_s, u"H6"_s}) {
    EXPECT_EQ(Own.Shown(cell), (CellContent{.BackColour = kWater, .Drawing = drawing::kLake})) << qPrintable(cell);
    EXPECT_EQ(Own.Description(cell), QString(u"Agua" + cell));
  }
  EXPECT_EQ(Own.Shown(u"A1"_s), (CellContent{.Marks = Mark::ToFill, .Drawing = drawing::PlaceOf(Player::Server)}));
  EXPECT_EQ(Own.Description(u"E5"_s), u"E5"_s);
  EXPECT_EQ(Own.Flow.FG1().Description({0, 3}), u"C"_s);
}

TEST_F(Placing, IsToldAfterTheReportOfTheFirstTurn) {
  for (const StrategyCopy* copy : {&Own, &Other}) {
    EXPECT_EQ(copy->Screen.Lines.mid(copy->Screen.Lines.size() - 2),
              QStringList({u"Por decisión mutua comenzará jugando Ana. "_s, u"Coloque su ejército"_s}));
  }
}

TEST_F(Placing, AChosenRankStandsOnItsCellAndIsDescribed) {
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"Explorador (8)"_s);
  Own.Click(u"C2"_s);
  EXPECT_EQ(Own.Shown(u"C2"_s),
            (CellContent{
                .Text = u"Explorador"_s, .ForeColour = kRed, .Drawing = drawing::FaceOf(Player::Server, Rank::Scout)}));
  EXPECT_EQ(Own.Screen.Status, u"Explorador rojo . C2"_s);
  EXPECT_EQ(Own.Flow.Army().RanksToPlace(Rank::Scout), 7);
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 39);
  Other.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"Explorador (8)"_s);
  Other.Click(u"C2"_s);
  EXPECT_EQ(Other.Shown(u"C2"_s), (CellContent{.Text = u"Explorador"_s,
                                               .ForeColour = kBlue,
                                               .Drawing = drawing::FaceOf(Player::Client, Rank::Scout)}));
  EXPECT_EQ(Other.Screen.Status, u"Explorador azul . C2"_s);
}

TEST_F(Placing, ARankThatIsUsedUpLeavesTheMenu) {
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"Mariscal (1)"_s);
  Own.Click(u"C2"_s);
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu.first(11), QString());
  Own.Click(u"D2"_s);
  EXPECT_EQ(Own.At(u"D2"_s), kEmptyLand) << "dismissed";
  EXPECT_EQ(Own.Screen.Status, u"D2"_s);
}

TEST_F(Placing, FlagAndBombOfTheRedArmyAreFeminineItsSpyIsNot) {
  const QStringList names{u"Bandera roja . A1"_s, u"Bomba roja . B1"_s, u"Espía rojo . C1"_s};
  const QStringList chosen{u"Bandera (1)"_s, u"Bomba (6)"_s, u"Espía (1)"_s};
  for (int i = 0; i < 3; ++i) {
    for (StrategyCopy* copy : {&Own, &Other}) {
      copy->Dialogs.AnswerMenu = [i](const QList<MenuItem>&) { return i; };
      copy->Click({.Column = i + 1, .Row = 1});
    }
    EXPECT_EQ(Own.Screen.Status, names[i]);
    EXPECT_EQ(Other.Screen.Status, QString(names[i]).replace(u" roja"_s, u" azul"_s).replace(u" rojo"_s, u" azul"_s));
  }
}

TEST_F(Placing, OutsideTheZoneIsRefusedWhoeverHasTheTurn) {
  for (StrategyCopy* copy : {&Own, &Other}) {
    for (const QString& cell : {u"A5"_s, u"C5"_s, u"J10"_s}) {
      copy->Click(cell);
      EXPECT_EQ(copy->Screen.Status, u"No puede colocar fichas fuera de su zona"_s);
    }
  }
}

TEST_F(Placing, APieceTakenBackCanBePlacedAgainAndItsNameLingers) {
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"Coronel (2)"_s);
  Own.Click(u"C2"_s);
  Own.Click(u"C2"_s);
  EXPECT_EQ(Own.Screen.Lines.last(), u"Ficha retirada"_s);
  EXPECT_EQ(Own.Screen.Status, u"C2"_s);
  EXPECT_EQ(Own.At(u"C2"_s), kEmptyLand);
  EXPECT_EQ(Own.Shown(u"C2"_s).Text, u"Coronel"_s) << "not drawn again";
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 40);
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"General (1)"_s);
  Own.Click(u"C2"_s);
  EXPECT_EQ(Own.Shown(u"C2"_s).Text, u"General"_s);
}

TEST_F(Placing, ACellTakenWhileTheMenuIsOpenStaysAsItIs) {
  Own.Connection.Receive(u"Datos|104,"_s);
  Pair.Settle();
  Own.Dialogs.Expect({}, u"Luis            mueve una ficha de A7 a D2. Es su turno."_s);
  const auto scout_comes = [&] {
    Own.Connection.Receive(u"Jug|10,04,07,09,01,"_s);
    Pair.Settle();
  };
  Own.Dialogs.AnswerMenu = [&](const QList<MenuItem>&) {
    scout_comes();
    return 0;
  };
  Own.Click(u"D2"_s);
  EXPECT_EQ(Own.At(u"D2"_s), CodeOf({Player::Client, Rank::Scout}));
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 40);
  Own.Click(u"D2"_s);
  EXPECT_EQ(Own.At(u"D2"_s), CodeOf({Player::Client, Rank::Scout})) << "no own piece that could be taken back";
}

TEST_F(Placing, ACompleteArmyIsAskedForAndStaysAfterNo) {
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::No);
  Own.Place(kEstLayout);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 0);
  EXPECT_TRUE(Own.Connection.Sent.filter(u"Datos|"_s).isEmpty());
  Own.Dialogs.Expect({}, box::kWaitForArmy);
  Own.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_FALSE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Connection.Sent.last(), u"Listo|"_s);
}

TEST_F(Placing, EscDoesNothingWhilePiecesAreLeft) {
  const QString status = Own.Screen.Status;
  Own.Flow.KeyPressed(Qt::Key_Escape);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Screen.Status, status);
}

TEST_F(Placing, F2ListsAllRanks) {
  Own.Dialogs.Expect(
      {},
      u"Lista de rangos\r\n"
      u"12 Mariscal. \r\n11 General. \r\n10 Coronel. \r\n9 Comandante. \r\n8 Capitán. \r\n7 Teniente. \r\n"
      u"6 Sargento. \r\n5 Minador. \r\n4 Explorador. \r\n3 Espía. \r\n2 Bomba. \r\n1 Bandera. \r\n"
      u"Aunque el espía y las bombas funcionan de manera especial."_s);
  Own.Flow.KeyPressed(Qt::Key_F2);
}

TEST_F(Placing, F3DiscardsWhatStandsAndDrawsAWholeArmy) {
  Own.Dialogs.ExpectMenu(box::kMenu, kFreshMenu, u"Bandera (1)"_s);
  Own.Click(u"A4"_s);
  QStringList armies;
  for (int draw = 0; draw < 2; ++draw) {
    Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::No,
                       [&] { EXPECT_FALSE(Own.Shown(u"J1"_s).Text.isEmpty()) << "shown while it is asked"; });
    Own.Flow.KeyPressed(Qt::Key_F3);
    EXPECT_EQ(Own.Screen.Status, u"Realice algún cambio en la posición actual."_s);
    EXPECT_TRUE(Own.Flow.PlacementMode());
    EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 0);
    armies << QString::fromStdU16String(Own.Flow.StrategyBoard().ArmyText());
  }
  EXPECT_NE(armies[0], armies[1]);
  EXPECT_EQ(armies[0].count(u"001,"_s), 1);
  EXPECT_EQ(armies[0].count(u"004,"_s), 8);
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForArmy, [&] { EXPECT_EQ(Own.Screen.Messages, QString()); });
  Own.Flow.KeyPressed(Qt::Key_F3);
  EXPECT_FALSE(Own.Flow.PlacementMode());
  Own.Flow.KeyPressed(Qt::Key_F3);
  EXPECT_EQ(Own.Connection.Sent.filter(u"Datos|"_s).size(), 1) << "only while placing";
}

TEST_F(Placing, BeginPlacementStartsAnew) {
  Own.Dialogs.AnswerMenu = [](const QList<MenuItem>&) { return 0; };
  Own.Click(u"A1"_s);
  Own.Flow.BeginPlacement();
  EXPECT_EQ(Own.Screen.Lines.last(), u"Coloque su ejército"_s);
  EXPECT_EQ(Own.Screen.Status, u"Coloque su ejército "_s);
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), 40);
  EXPECT_EQ(Own.Shown(u"A1"_s), (CellContent{.Marks = Mark::ToFill, .Drawing = drawing::PlaceOf(Player::Server)}));
  EXPECT_EQ(Own.Flow.State().NameKnown, (PerPlayer<bool>{.Server = true, .Client = true}));
}

TEST_F(Placing, MovingOverCellsDescribesThemAndHeadersDoNot) {
  Own.Flow.PointerMoved({1, 1});
  EXPECT_EQ(Own.Screen.Status, u"A10"_s);
  Own.Flow.PointerMoved({0, 5});
  Own.Flow.PointerMoved({5, 0});
  EXPECT_EQ(Own.Screen.Status, u"A10"_s);
  Own.Flow.FG1().SetCurrentCell({6, 3});
  EXPECT_EQ(Own.Screen.Status, u"AguaC5"_s);
}

// ---- Exchange ----

TEST_F(Placing, TheArmyTravelsTurnedAndThatItIsReadyAsAnotherRead) {
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForArmy);
  Own.Place(kEstLayout);
  Pair.Settle();
  const QStringList& sent = Own.Connection.Sent;
  EXPECT_EQ(sent.at(sent.size() - 2),
            u"Datos|011,012,005,005,005,005,004,004,004,004,"
            u"009,009,009,010,010,005,004,004,004,004,"
            u"006,006,007,007,007,007,008,008,008,008,"
            u"001,002,002,002,002,002,002,003,006,006,"_s);
  EXPECT_EQ(sent.last(), u"Listo|"_s);
  EXPECT_EQ(Other.Screen.Lines.mid(Other.Screen.Lines.size() - 2),
            QStringList({u"El otro jugador ya ha colocado su ejército y está esperando"_s,
                         u"El otro jugador ha terminado de colocar su ejército y está esperando."_s}));
  EXPECT_EQ(Other.At(u"A7"_s), CodeOf({Player::Server, Rank::General})) << "the sender's J4";
  EXPECT_EQ(Other.Shown(u"A7"_s),
            (CellContent{.Text = u"*"_s, .ForeColour = kRed, .Drawing = drawing::BackOf(Player::Server)}));
  EXPECT_EQ(Other.Description(u"A7"_s), u" rojo . A7"_s);
  EXPECT_EQ(Other.At(u"J10"_s), CodeOf({Player::Server, Rank::Sergeant})) << "the sender's A1";
  EXPECT_TRUE(Own.Flow.WaitingForOpponent());
  EXPECT_TRUE(Other.Flow.WaitingForOpponent());
  EXPECT_EQ(Other.Flow.ReadyFlags(), (PerPlayer<bool>{.Server = true, .Client = false}));
  Other.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Other.Dialogs.Expect({}, box::kFightOtherTurn, [&] { EXPECT_EQ(Other.Screen.Messages, QString()); });
  Own.Dialogs.Expect({}, box::kFightOwnTurn);
  Other.Place(kEstLayout);
  Pair.Settle();
  EXPECT_EQ(Other.Connection.Sent.filter(u"Datos|"_s).last().left(14), u"Datos|111,112,"_s);
  for (const StrategyCopy* copy : {&Own, &Other}) {
    EXPECT_FALSE(copy->Flow.WaitingForOpponent());
    EXPECT_FALSE(copy->Flow.PlacementMode());
    EXPECT_EQ(copy->Flow.ReadyFlags(), (PerPlayer<bool>{.Server = true, .Client = true}));
  }
}

TEST(MiniPlacing, HasItsOwnTitlesAndTellsTwiceThatTheFightBegins) {
  StrategyPair pair(kGameMES);
  pair.BeginFight(kMesLayout, kMesLayout);
  EXPECT_EQ(pair.Server.Flow.FG1().rowCount(), 9);
  EXPECT_EQ(pair.Server.Flow.FG1().columnCount(), 8);
  EXPECT_EQ(pair.Client.At(u"A6"_s), CodeOf({Player::Server, Rank::Marshal})) << "the sender's G3";
  EXPECT_EQ(pair.Server.Connection.Sent.filter(u"Datos|"_s).last().size(), 6 + 84);
  for (const QString& cell : {u"B4"_s, u"B5"_s, u"F4"_s, u"F5"_s}) {
    EXPECT_EQ(pair.Server.Shown(cell).BackColour, kWater);
  }
}

TEST(MiniPlacing, HasNoSergeantInItsMenu) {
  StrategyPair pair(kGameMES);
  pair.Connect();
  pair.Server.Dialogs.ExpectMenu(
      box::kMenu,
      {u"Bandera (1)"_s, u"Bomba (3)"_s, u"Espía (1)"_s, u"Explorador (4)"_s, u"Minador (3)"_s, u"Teniente (2)"_s,
       u"Capitán (2)"_s, u"Comandante (2)"_s, u"Coronel (1)"_s, u"General (1)"_s, u"Mariscal (1)"_s},
      u"Teniente (2)"_s);
  pair.Server.Click(u"G3"_s);
  EXPECT_EQ(pair.Server.At(u"G3"_s), CodeOf({Player::Server, Rank::Lieutenant}));
  pair.Server.Click(u"A4"_s);
  EXPECT_EQ(pair.Server.Screen.Status, u"No puede colocar fichas fuera de su zona"_s);
}

TEST(MiniPlacing, ListsAllRanksTheSergeantIncluded) {
  StrategyPair pair(kGameMES);
  pair.Connect();
  pair.Server.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  pair.Server.Flow.KeyPressed(Qt::Key_F2);
  EXPECT_TRUE(pair.Server.Dialogs.Shown.last().contains(u"\r\n6 Sargento. \r\n"_s));
}

// ---- Armies that cross, share a read or come when they should not ----

TEST_F(Placing, AnArmyMayArriveWhileTheOwnIsOnItsWay) {
  Own.Connection.HoldSendComplete = true;
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect({}, box::kFightOwnTurn);
  Other.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Other.Dialogs.Expect({}, box::kFightOtherTurn);
  QMetaObject::invokeMethod(
      &Own.Connection,
      [&] {
        Other.Place(kEstLayout);
        Own.Connection.HoldSendComplete = false;
        emit Own.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Own.Place(kEstLayout);
  Pair.Settle();
  EXPECT_EQ(Own.At(u"A7"_s), CodeOf({Player::Client, Rank::General}));
  EXPECT_EQ(Other.At(u"A7"_s), CodeOf({Player::Server, Rank::General}));
}

TEST_F(Placing, NothingCanBeClickedWhileTheArmyIsOnItsWay) {
  Own.Connection.HoldSendComplete = true;
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForArmy);
  QMetaObject::invokeMethod(
      &Own.Connection,
      [&] {
        Own.Click(u"A4"_s);
        Own.Flow.KeyPressed(Qt::Key_Escape);
        Own.Flow.KeyPressed(Qt::Key_F3);
        EXPECT_EQ(Own.Flow.SelectedCell(), std::nullopt);
        Own.Connection.HoldSendComplete = false;
        emit Own.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Own.Place(kEstLayout);
  EXPECT_EQ(Own.Connection.Sent.filter(u"Datos|"_s).size(), 1);
}

// A peer whose opponent has once wished for another game can begin one at any moment.
TEST_F(Placing, AnArmyThatANewGameHasOvertakenIsNotReadyThere) {
  Own.Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
  Own.Connection.Receive(u"Haganado|"_s);
  Pair.Settle();
  Own.Click(u"A1"_s);
  Own.Connection.Receive(u"Seguir|Si"_s);
  Pair.Settle();
  Own.Connection.HoldSendComplete = true;
  QMetaObject::invokeMethod(
      &Own.Connection,
      [&] {
        Own.Connection.Receive(u"Seguir|Si"_s);
        Pair.Settle();
        emit Own.Connection.SendComplete();
      },
      Qt::QueuedConnection);
  Own.Place(kEstLayout);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Flow.Army().PiecesToPlace(), kEstratega.ArmySize());
  EXPECT_FALSE(Own.Flow.WaitingForOpponent());
  EXPECT_TRUE(Own.Connection.Sent.filter(u"Listo|"_s).isEmpty());
}

TEST_F(Placing, AnArmyThatCannotBeSentIsStillToBeSent) {
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::No);
  Own.Place(kEstLayout);
  Own.Connection.Break();
  Pair.Settle();
  const QString before = HeldState(Own);
  for (int attempt = 0; attempt < 2; ++attempt) {
    Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    Own.Flow.KeyPressed(Qt::Key_Escape);
    EXPECT_EQ(HeldState(Own), before);
    EXPECT_TRUE(Own.Flow.PlacementMode());
    EXPECT_FALSE(Own.Flow.WaitingForOpponent());
    EXPECT_EQ(Own.Flow.ReadyFlags(), (PerPlayer<bool>{.Server = false, .Client = false}));
  }
}

TEST_F(Placing, AnArmyWhoseReadyMarkCannotBeSentIsStillToBeSent) {
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  QObject::connect(&Own.Connection, &Connection::SendComplete, &Own.Connection, [&] { Own.Connection.Break(); });
  Own.Place(kEstLayout);
  EXPECT_EQ(Own.Connection.Sent.filter(u"Datos|"_s).size(), 1);
  EXPECT_TRUE(Own.Connection.Sent.filter(u"Listo|"_s).isEmpty());
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_FALSE(Own.Flow.WaitingForOpponent());
  EXPECT_EQ(Own.Flow.ReadyFlags(), (PerPlayer<bool>{.Server = false, .Client = false}));
}

TEST_F(Placing, AnArmyThatCannotBeSentIsToldAndStillPlaced) {
  Own.Connection.HoldSendComplete = true;
  Own.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::Yes);
  Own.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  QMetaObject::invokeMethod(
      &Own.Connection, [&] { Own.Connection.Break(); }, Qt::QueuedConnection);
  Own.Place(kEstLayout);
  EXPECT_TRUE(Own.Flow.PlacementMode());
  EXPECT_EQ(Own.Flow.ReadyFlags(), (PerPlayer<bool>{.Server = false, .Client = false}));
  EXPECT_FALSE(Own.Finished);
}

const QString kClientArmy = u"112,104,102,"_s + u"105,"_s.repeated(37);

TEST_F(Placing, AnArmyAndItsReadyMarkInOneReadBothCount) {
  Own.Connection.Receive(u"Datos|"_s + kClientArmy + u"Listo|");
  Pair.Settle();
  EXPECT_EQ(Own.At(u"A7"_s), CodeOf({Player::Client, Rank::Marshal}));
  EXPECT_EQ(Own.At(u"J10"_s), CodeOf({Player::Client, Rank::Miner}));
  EXPECT_EQ(Own.Screen.Lines.mid(Own.Screen.Lines.size() - 2),
            QStringList({u"El otro jugador ha terminado de colocar su ejército y está esperando."_s,
                         u"El otro jugador ya ha colocado su ejército y está esperando"_s}))
      << "the ready mark is looked for first";
}

TEST_F(Placing, AnArmyBehindItsReadyMarkIsCutAtTheWrongPlace) {
  Own.Connection.Receive(u"Listo|Datos|"_s + kClientArmy);
  Pair.Settle();
  EXPECT_EQ(Own.At(u"A7"_s), kEmptyLand) << "\"Dato\"";
  EXPECT_EQ(Own.At(u"B7"_s), kEmptyLand) << "\"s|11\"";
  EXPECT_EQ(Own.At(u"C7"_s), kEmptyLand) << "\"2,10\" is 2, no code of the client's";
  EXPECT_EQ(Own.Flow.ReadyFlags(), (PerPlayer<bool>{.Server = false, .Client = true}));
}

struct BadArmy {
  QString Name;
  QString Data;
  CellCode A7;
  CellCode B7;
};

class BadArmies : public testing::TestWithParam<BadArmy> {};

TEST_P(BadArmies, AreTakenAsFarAsTheyAreSound) {
  StrategyPair pair(kGameEST);
  pair.Connect();
  pair.Server.Connection.Receive(u"Datos|"_s + GetParam().Data);
  pair.Settle();
  EXPECT_EQ(pair.Server.At(u"A7"_s), GetParam().A7);
  EXPECT_EQ(pair.Server.At(u"B7"_s), GetParam().B7);
  EXPECT_EQ(pair.Server.At(u"A4"_s), kEmptyLand);
  EXPECT_TRUE(pair.Server.Flow.ReadyFlags().Client);
  EXPECT_FALSE(pair.Server.Finished);
}

INSTANTIATE_TEST_SUITE_P(
    Read, BadArmies,
    testing::Values(BadArmy{u"Empty"_s, QString(), 0, 0}, BadArmy{u"Short"_s, u"112,"_s, 112, 0},
                    BadArmy{u"CutInsideAField"_s, u"112,10"_s, 112, 0},
                    BadArmy{u"Long"_s, u"112,"_s.repeated(3000), 112, 112},
                    BadArmy{u"Letters"_s, u"abc,112,"_s, 0, 112}, BadArmy{u"Negative"_s, u"-10,-01,"_s, 0, 0},
                    BadArmy{u"OfTheOtherSide"_s, u"012,112,"_s, 0, 112},
                    BadArmy{u"RevealedBomb"_s, u"113,112,"_s, 0, 112}, BadArmy{u"PastAllCodes"_s, u"114,999,"_s, 0, 0},
                    BadArmy{u"NoRank"_s, u"100,101,"_s, 0, 101}, BadArmy{u"Huge"_s, u"9e9,112,"_s, 0, 112}),
    [](const auto& tested) { return tested.param.Name.toStdString(); });

}  // namespace
}  // namespace brontavia::test
