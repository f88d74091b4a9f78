// What the flow of the naval battle tells those who see the grids, besides texts and colours.
#include <gtest/gtest.h>

#include <algorithm>

#include "games/naval/sea_drawing.h"
#include "tests/support/bar_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

SeaDrawing DrawnOn(const CellContent& cell) { return Unpacked(cell.Drawing); }

// The names of the cells with the mark, column by column.
QStringList Marked(const BoardModel& grid, Mark mark) {
  QStringList cells;
  for (const Coordinate cell : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) {
    if (grid.Cell({cell.Row, cell.Column}).Marks.testFlag(mark)) {
      cells << QChar(u'A' + cell.Column - 1) + QString::number(cell.Row);
    }
  }
  return cells;
}

bool NothingIsDrawn(const BoardModel& grid) {
  return std::ranges::all_of(CellsBetween({1, 1}, {kSeaSide, kSeaSide}), [&](Coordinate cell) {
    return grid.Cell({cell.Row, cell.Column}).Drawing == 0;
  });
}

// ---- Placing ----

class PlacingDraws : public testing::Test {
 protected:
  PlacingDraws() { Pair.Connect(); }

  [[nodiscard]] QStringList FirstEnd() const { return Marked(Own.Flow.FG1(), Mark::FirstEnd); }

  BarPair Pair;
  BarCopy& Own = Pair.Server;
};

TEST_F(PlacingDraws, AShipAcrossItsCellsAndItsMargin) {
  Own.Click(u"C3"_s);
  Own.Click(u"E3"_s);
  Own.Click(u"H8"_s);
  Own.Click(u"H7"_s);
  for (int segment = 1; segment <= 3; ++segment) {
    EXPECT_EQ(DrawnOn(Own.FG1(QChar(u'C' + segment - 1) + u"3"_s)), (SeaDrawing{.ShipLength = 3, .Segment = segment}));
  }
  EXPECT_EQ(DrawnOn(Own.FG1(u"H7"_s)), (SeaDrawing{.ShipLength = 2, .Segment = 1, .Upright = true}));
  EXPECT_EQ(DrawnOn(Own.FG1(u"H8"_s)), (SeaDrawing{.ShipLength = 2, .Segment = 2, .Upright = true}));
  EXPECT_EQ(DrawnOn(Own.FG1(u"B2"_s)), SeaDrawing{.Margin = true});
  EXPECT_EQ(DrawnOn(Own.FG1(u"A1"_s)), SeaDrawing{});
}

TEST_F(PlacingDraws, NothingWhereAShipHasBeenTakenOff) {
  Own.Click(u"C3"_s);
  Own.Click(u"E3"_s);
  Own.Dialogs.Expect(box::kNaval, u"¿Desea quitar ese barco?"_s, Button::Yes);
  Own.Click(u"D3"_s);
  EXPECT_TRUE(NothingIsDrawn(Own.Flow.FG1()));
}

TEST_F(PlacingDraws, TheFirstEndUntilTheShipLiesOrTheStartIsForgotten) {
  Own.Click(u"C3"_s);
  EXPECT_EQ(FirstEnd(), QStringList(u"C3"_s));
  Own.Click(u"C3"_s);
  EXPECT_EQ(FirstEnd(), QStringList());
  Own.Click(u"D4"_s);
  Own.Flow.BoardKeyPressed(Qt::Key_Escape);
  EXPECT_EQ(FirstEnd(), QStringList());
  Own.Click(u"D4"_s);
  Own.Dialogs.Expect({}, u"No se pueden colocar los barcos en diagonal. La posición de inicio del barco es D, 4"_s);
  Own.Click(u"E5"_s);
  EXPECT_EQ(FirstEnd(), QStringList(u"D4"_s));
  Own.Click(u"D5"_s);
  EXPECT_EQ(FirstEnd(), QStringList());
  Own.Click(u"A1"_s);
  Own.Dialogs.Expect(box::kNaval, u"¿Desea quitar ese barco?"_s, Button::Yes);
  Own.Click(u"D5"_s);
  EXPECT_EQ(FirstEnd(), QStringList());
}

TEST_F(PlacingDraws, NoFirstEndOnTheOpponentsSea) {
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::No);
  Own.PlaceFleet();
  Own.Click(u"J10"_s);
  EXPECT_EQ(FirstEnd(), QStringList(u"J10"_s));
  Own.Dialogs.Expect({}, box::kWaitForOther);
  Own.Flow.BoardKeyPressed(Qt::Key_T);
  EXPECT_EQ(FirstEnd(), QStringList());
}

TEST_F(PlacingDraws, TheOwnFleetOnItsSmallSeaOnceItIsSent) {
  EXPECT_EQ(Own.Screen.BoardCaption, u"Mar propio"_s);
  EXPECT_EQ(Own.Screen.BoardOwner, PlayerSign::Pennant);
  EXPECT_EQ(Pair.Client.Screen.BoardOwner, PlayerSign::SwallowTail);
  EXPECT_TRUE(NothingIsDrawn(Own.Flow.FG2()));
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther);
  Own.PlaceFleet();
  EXPECT_TRUE(NothingIsDrawn(Own.Flow.FG1()));
  EXPECT_EQ(DrawnOn(Own.FG2(u"D1"_s)), (SeaDrawing{.ShipLength = 5, .Segment = 4}));
  EXPECT_EQ(DrawnOn(Own.FG2(u"A2"_s)), SeaDrawing{});
  EXPECT_EQ(Own.Screen.BoardCaption, u"Mar enemigo"_s);
  EXPECT_EQ(Own.Screen.BoardOwner, PlayerSign::SwallowTail);
}

TEST_F(PlacingDraws, EachOwnShipWhereItLiesAlthoughTheSmallSeaKeepsTheLettersOfAnotherPlace) {
  BarCopy& other = Pair.Client;
  other.Click(u"J1"_s);
  other.Click(u"J5"_s);
  Own.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  Own.Dialogs.Expect({}, box::kWaitForOther);
  Own.PlaceFleet();
  Pair.Settle();
  EXPECT_EQ(DrawnOn(other.FG2(u"J2"_s)), (SeaDrawing{.ShipLength = 5, .Segment = 2, .Upright = true}));
  EXPECT_TRUE(NothingIsDrawn(other.Flow.FG1())) << "its texts have gone as well";
  other.Dialogs.Expect(box::kNaval, u"¿Desea quitar ese barco?"_s, Button::Yes);
  other.Click(u"J2"_s);
  other.Dialogs.Expect(box::kNaval, box::kFinished, Button::Yes);
  other.Dialogs.Expect({}, box::kReadyOtherTurn);
  Own.Dialogs.Expect({}, box::kReadyOwnTurn);
  other.PlaceFleet();
  Pair.Settle();
  EXPECT_EQ(other.FG2(u"J2"_s).Text, u"P"_s);
  EXPECT_EQ(DrawnOn(other.FG2(u"J2"_s)), SeaDrawing{});
  EXPECT_EQ(DrawnOn(other.FG2(u"B1"_s)), (SeaDrawing{.ShipLength = 5, .Segment = 2}));
}

// ---- Firing ----

class FiringDraws : public testing::Test {
 protected:
  FiringDraws() { Pair.BeginBattle(); }

  void Shoot(BarCopy& shooter, const QString& cell) {
    shooter.Click(cell);
    Pair.Settle();
  }

  BarPair Pair;
  BarCopy& Server = Pair.Server;
  BarCopy& Client = Pair.Client;
};

TEST_F(FiringDraws, ARingWhereTheOpponentHasHitWaterAndNothingElse) {
  Shoot(Server, u"J10"_s);
  EXPECT_EQ(Client.FG2(u"J10"_s), (CellContent{.Marks = Mark::LastMove, .Drawing = Packed({.Ring = true})}));
  EXPECT_EQ(Client.Flow.FG2().Description({10, 10}), u"J10 "_s);
  EXPECT_EQ(DrawnOn(Server.FG1(u"J10"_s)), SeaDrawing{});
}

TEST_F(FiringDraws, TheLastShotOnBothSeas) {
  for (const QString& cell : {u"A1"_s, u"B1"_s, u"J10"_s}) {
    Shoot(Server, cell);
    EXPECT_EQ(Marked(Server.Flow.FG1(), Mark::LastMove), QStringList(cell));
    EXPECT_EQ(Marked(Client.Flow.FG2(), Mark::LastMove), QStringList(cell));
    EXPECT_EQ(Marked(Client.Flow.FG1(), Mark::LastMove), QStringList());
  }
  Shoot(Client, u"A5"_s);
  EXPECT_EQ(Marked(Server.Flow.FG1(), Mark::LastMove), QStringList(u"J10"_s));
  EXPECT_EQ(Marked(Server.Flow.FG2(), Mark::LastMove), QStringList(u"A5"_s));
}

TEST_F(FiringDraws, AShipOfTheOpponentsOnceItIsSunk) {
  Shoot(Server, u"E7"_s);
  EXPECT_TRUE(NothingIsDrawn(Server.Flow.FG1()));
  EXPECT_EQ(DrawnOn(Client.FG2(u"E7"_s)), (SeaDrawing{.ShipLength = 2, .Segment = 1}));
  Shoot(Server, u"F7"_s);
  const SeaDrawing stern{.ShipLength = 2, .Segment = 1, .Sunk = true};
  for (const CellContent& cell : {Server.FG1(u"E7"_s), Client.FG2(u"E7"_s)}) EXPECT_EQ(DrawnOn(cell), stern);
  EXPECT_EQ(DrawnOn(Server.FG1(u"F7"_s)), (SeaDrawing{.ShipLength = 2, .Segment = 2, .Sunk = true}));
  Shoot(Server, u"E7"_s);
  for (const CellContent& cell : {Server.FG1(u"E7"_s), Client.FG2(u"E7"_s)}) EXPECT_EQ(DrawnOn(cell), stern);
}

TEST_F(FiringDraws, ThatTheBoardWaitsForAClickOnceTheGameIsOver) {
  EXPECT_FALSE(Server.Flow.FG1().WaitsForClick());
  Server.Dialogs.AnswerBox = Client.Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
  for (const ShipEnds& ship : kTestFleet) {
    for (const Coordinate cell : CellsBetween(CellNamed(ship.Start), CellNamed(ship.End))) {
      Server.Click(cell);
      Pair.Settle();
    }
  }
  for (BarCopy* copy : {&Server, &Client}) EXPECT_TRUE(copy->Flow.FG1().WaitsForClick());
  for (BarCopy* copy : {&Server, &Client}) {
    copy->Click(u"A1"_s);
    Pair.Settle();
  }
  for (BarCopy* copy : {&Server, &Client}) {
    EXPECT_FALSE(copy->Flow.FG1().WaitsForClick());
    EXPECT_EQ(copy->Screen.BoardCaption, u"Mar propio"_s);
    for (const BoardModel* grid : {&copy->Flow.FG1(), &copy->Flow.FG2()}) {
      EXPECT_TRUE(NothingIsDrawn(*grid));
      EXPECT_EQ(Marked(*grid, Mark::LastMove), QStringList());
    }
  }
}

TEST_F(FiringDraws, AShipStillThatTheOpponentClaimsToHaveMissed) {
  Client.Connection.Receive(u"Jug|))A"_s);
  Pair.Settle();
  EXPECT_EQ(DrawnOn(Client.FG2(u"A1"_s)), (SeaDrawing{.ShipLength = 5, .Segment = 1, .Ring = true}));
}

}  // namespace
}  // namespace brontavia::test
