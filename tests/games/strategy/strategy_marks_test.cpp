// What StrategyFlow marks and has drawn on the board, beside the texts of its cells.
#include <gtest/gtest.h>

#include <utility>

#include "games/cell_name.h"
#include "games/strategy/strategy_drawing.h"
#include "tests/support/held_state.h"
#include "tests/support/strategy_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// "A4 A7", in the order of the board's text: columns, and in a column rows.
QString CellsWith(const StrategyCopy& copy, Mark mark) {
  const StrategyVariant& variant = copy.Flow.StrategyBoard().Variant();
  QStringList cells;
  for (int column = 1; column <= variant.Columns; ++column) {
    for (int row = 1; row <= variant.Rows; ++row) {
      const QString cell = CellName({.Column = column, .Row = row});
      if (copy.Shown(cell).Marks.testFlag(mark)) cells << cell;
    }
  }
  return cells.join(u' ');
}

class MarkedGame : public testing::Test {
 protected:
  void AnswerAllBoxes() {
    for (StrategyCopy* copy : {&Server, &Client}) copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
  }
  // The client's J4 is met on A7 by the server's scout.
  void BeginFightAgainst(char16_t digit) {
    Layout client = kEstLayout;
    const auto last = client[0].size() - 1;
    const QChar before = std::exchange(client[0][last], QChar(digit));
    for (auto row = client.size() - 1; row >= 0; --row) {
      const auto there = client[row].lastIndexOf(QChar(digit), row == 0 ? last - 1 : -1);
      if (there < 0) continue;
      client[row][there] = before;
      break;
    }
    Pair.BeginFight(kEstLayout, client);
    AnswerAllBoxes();
  }

  StrategyPair Pair{kGameEST};
  StrategyCopy& Server = Pair.Server;
  StrategyCopy& Client = Pair.Client;
};

// ---- Placing ----

TEST_F(MarkedGame, TheEyeStartsWhereTheOwnArmyBegins) {
  for (const StrategyCopy* copy : {&Server, &Client}) {
    EXPECT_EQ(copy->Flow.FG1().CurrentCell(), copy->Flow.IndexOf(CellNamed(u"A1"_s)));
  }
  Server.Flow.Load();
  EXPECT_EQ(Server.Screen.Status.indexOf(u"A1"_s), -1) << "nobody has gone there";
}

TEST_F(MarkedGame, AZoneIsToBeFilledWhereNoPieceStands) {
  Pair.Connect();
  EXPECT_EQ(CellsWith(Server, Mark::ToFill),
            u"A1 A2 A3 A4 B1 B2 B3 B4 C1 C2 C3 C4 D1 D2 D3 D4 E1 E2 E3 E4 "
            u"F1 F2 F3 F4 G1 G2 G3 G4 H1 H2 H3 H4 I1 I2 I3 I4 J1 J2 J3 J4"_s);
  Server.Dialogs.AnswerMenu = [](const QList<MenuItem>&) { return NumberOf(Rank::Colonel) - 1; };
  Server.Click(u"C2"_s);
  EXPECT_EQ(Server.Shown(u"C2"_s).Marks, Marks());
  EXPECT_EQ(Server.Shown(u"C2"_s).Drawing, drawing::FaceOf(Player::Server, Rank::Colonel));
  Server.Click(u"C2"_s);
  EXPECT_EQ(Server.Shown(u"C2"_s).Text, u"Coronel"_s) << "the name lingers";
  EXPECT_EQ(Server.Shown(u"C2"_s).Marks, Marks(Mark::ToFill));
  EXPECT_EQ(Server.Shown(u"C2"_s).Drawing, drawing::PlaceOf(Player::Server));
  Server.Dialogs.Expect(u"Estratega"_s, box::kPlaced, Button::No);
  Server.Place(kEstLayout);
  EXPECT_EQ(CellsWith(Server, Mark::ToFill), QString());
}

// ---- The fight ----

TEST_F(MarkedGame, OfTheEnemyNothingButTheArmyIsDrawn) {
  Pair.BeginFight(kEstLayout, kEstLayout);
  for (const auto& [copy, own, other] :
       {std::tuple{&Server, Player::Server, Player::Client}, {&Client, Player::Client, Player::Server}}) {
    for (int column = 1; column <= 10; ++column) {
      for (int row = 1; row <= 10; ++row) {
        const Coordinate cell{.Column = column, .Row = row};
        const auto piece = copy->Flow.StrategyBoard().PieceAt(cell);
        const int drawn = copy->Shown(CellName(cell)).Drawing;
        if (!piece) continue;
        EXPECT_EQ(drawn, row >= 7 ? drawing::BackOf(other) : drawing::FaceOf(own, piece->Rank))
            << qPrintable(CellName(cell));
      }
    }
  }
}

TEST_F(MarkedGame, TheLastMoveIsMarkedUntilTheNextWhoeverMadeIt) {
  Pair.BeginFight(kEstLayout, kEstLayout);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), QString());
  AnswerAllBoxes();
  Pair.Move(u"E4"_s, u"E5"_s);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), u"E4 E5"_s);
  EXPECT_EQ(CellsWith(Client, Mark::LastMove), u"F6 F7"_s);
  Pair.Move(u"I4"_s, u"I5"_s);
  EXPECT_EQ(CellsWith(Client, Mark::LastMove), u"I4 I5"_s);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), u"B6 B7"_s);
  EXPECT_EQ(CellsWith(Server, Mark::Fight), QString());
  EXPECT_EQ(Server.Flow.Fought(), StrategyFlow::Fighters());
}

TEST_F(MarkedGame, AFightIsMarkedAndToldUntilTheNextMove) {
  BeginFightAgainst(u'B');
  Pair.Move(u"A4"_s, u"A7"_s);
  const StrategyFlow::Fighters fought{
      .Server = FoughtPiece{.Name = u"Explorador"_s, .Emblem = u"rank_explorador"_s, .Fell = true},
      .Client = FoughtPiece{.Name = u"General"_s, .Emblem = u"rank_general"_s, .Fell = false}};
  EXPECT_EQ(Server.Flow.Fought(), fought);
  EXPECT_EQ(Client.Flow.Fought(), fought);
  EXPECT_EQ(CellsWith(Server, Mark::Fight), u"A7"_s);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), u"A4 A7"_s);
  EXPECT_EQ(CellsWith(Client, Mark::Fight), u"J4"_s);
  EXPECT_EQ(Server.Shown(u"A7"_s).Drawing, drawing::BackOf(Player::Client)) << "it has been told, not turned over";
  Client.Click(u"I4"_s);
  EXPECT_EQ(Client.Flow.Fought(), fought) << "a selection is no move";
  Client.Click(u"I5"_s);
  Pair.Settle();
  for (const StrategyCopy* copy : {&Server, &Client}) {
    EXPECT_EQ(copy->Flow.Fought(), StrategyFlow::Fighters());
    EXPECT_EQ(CellsWith(*copy, Mark::Fight), QString());
  }
}

TEST_F(MarkedGame, AMoveThatCannotBeSentLeavesTheLastOneMarked) {
  BeginFightAgainst(u'B');
  Pair.Move(u"A4"_s, u"A7"_s);
  Pair.Move(u"I4"_s, u"I5"_s);
  Server.Connection.Break();
  Pair.Settle();
  Server.Click(u"B4"_s);
  Server.Flow.FG1().SetCurrentCell(Server.Flow.IndexOf(CellNamed(u"B5"_s)));
  const QString shown = ShownOn(Server.Flow.FG1());
  Server.Click(u"B5"_s);
  EXPECT_EQ(ShownOn(Server.Flow.FG1()), shown);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), u"B6 B7"_s);
}

TEST_F(MarkedGame, AMoveOfNoPieceTellsOfThePieceItMetAlone) {
  Pair.BeginFight(kEstLayout, kEstLayout);
  AnswerAllBoxes();
  Server.Connection.Receive(u"Jug|05,05,05,07,00,"_s);  // from F6, which is empty, to F4
  Pair.Settle();
  EXPECT_EQ(Server.Flow.Fought(),
            (StrategyFlow::Fighters{
                .Server = FoughtPiece{.Name = u"Minador"_s, .Emblem = u"rank_minador"_s, .Fell = false}}));
  EXPECT_EQ(CellsWith(Server, Mark::Fight), u"F4"_s);
}

// ---- The end ----

TEST_F(MarkedGame, TheTakenFlagIsMarkedAndTheBoardsWaitForAClickUntilAnotherGame) {
  BeginFightAgainst(u'1');
  Pair.Move(u"A4"_s, u"A7"_s);
  EXPECT_EQ(CellsWith(Server, Mark::LastMove), u"A4 A7"_s);
  EXPECT_EQ(CellsWith(Server, Mark::Fight), u"A7"_s);
  EXPECT_EQ(CellsWith(Client, Mark::LastMove), u"J4"_s) << "from where is not told";
  EXPECT_EQ(CellsWith(Client, Mark::Fight), u"J4"_s);
  for (const StrategyCopy* copy : {&Server, &Client}) EXPECT_TRUE(copy->Flow.FG1().WaitsForClick());
  Server.Click(u"A1"_s);
  Pair.Settle();
  Client.Click(u"A1"_s);
  Pair.Settle();
  for (const StrategyCopy* copy : {&Server, &Client}) {
    ASSERT_FALSE(copy->Flow.State().GameOver);
    EXPECT_FALSE(copy->Flow.FG1().WaitsForClick());
    EXPECT_EQ(CellsWith(*copy, Mark::LastMove), QString());
    EXPECT_EQ(copy->Flow.Fought(), StrategyFlow::Fighters());
  }
}

}  // namespace
}  // namespace brontavia::test
