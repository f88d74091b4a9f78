#include "games/three_in_row/three_in_row_flow.h"

#include <gtest/gtest.h>

#include "tests/support/held_state.h"
#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr ColourValue kRed = 0x0000FF;
constexpr ColourValue kGreen = 0x00FF00;

// Two copies at the start of the first game; the server moves first.
class ThreeInRow : public testing::Test {
 protected:
  ThreeInRow() { Pair.Connect(); }

  void ExpectWin(TerCopy& winner, TerCopy& loser, const QString& padded_name) {
    winner.Dialogs.Expect(box::kWonTitle, box::kWon);
    loser.Dialogs.Expect(box::kLostTitle, padded_name + box::kLostEnding);
  }

  TerPair Pair;
};

// ---- Placing ----

TEST_F(ThreeInRow, APlacementIsSentAndShownInBothCopies) {
  Pair.Play({4});
  EXPECT_EQ(Pair.Server.Connection.Sent.last(), u"Jug|-1|4"_s);
  EXPECT_EQ(Pair.Server.Shown(), u"****X****"_s);
  EXPECT_EQ(Pair.Client.Shown(), u"****X****"_s);
  EXPECT_EQ(Pair.Client.Flow.FG1().Cell({1, 1}).ForeColour, kRed);
  EXPECT_EQ(Pair.Server.Screen.Lines.last(), u"Turno de jugar para Luis           "_s);
  EXPECT_EQ(Pair.Client.Screen.Lines.last(), u" Turno de Luis para jugar."_s);
  EXPECT_EQ(Pair.Client.Screen.Status, u"Coloque una ficha en el tablero"_s);
  Pair.Play({0});
  EXPECT_EQ(Pair.Server.Flow.FG1().Cell({0, 0}).ForeColour, kGreen);
}

TEST_F(ThreeInRow, WhereTheOtherHasPlacedIsSaid) {
  Pair.Play({4});
  EXPECT_EQ(Pair.Client.Screen.Announced, QStringList({u"Ana: fila 2, columna 2"_s}));
  EXPECT_EQ(Pair.Server.Screen.Announced, QStringList()) << "of the own placement the cell tells";
  Pair.Play({2});
  EXPECT_EQ(Pair.Server.Screen.Announced, QStringList({u"Luis: fila 1, columna 3"_s}));
}

TEST_F(ThreeInRow, AClickOutOfTurnMovesNothing) {
  Pair.Client.Click(0);
  EXPECT_EQ(Pair.Client.Screen.Status, u"No es su turno de jugar."_s);
  EXPECT_EQ(Pair.Client.Shown(), u"*********"_s);
  EXPECT_TRUE(Pair.Client.Connection.Sent.filter(u"Jug|"_s).isEmpty());
}

TEST_F(ThreeInRow, PlacingOnAnOccupiedCellIsRefused) {
  Pair.Play({4});
  Pair.Client.Click(4);
  EXPECT_EQ(Pair.Client.Screen.Status, u"Elija una casilla vacía para colocar su ficha"_s);
  EXPECT_EQ(Pair.Client.Shown(), u"****X****"_s);
}

TEST_F(ThreeInRow, CellsAreDescribedByPlaceAndPiece) {
  Pair.Play({4});
  EXPECT_EQ(Pair.Client.Flow.FG1().Description({1, 1}), u"Fila 2, columna 2: X"_s);
  EXPECT_EQ(Pair.Client.Flow.FG1().Description({0, 2}), u"Fila 1, columna 3: vacía"_s);
}

// ---- Moving ----

class Moving : public ThreeInRow {
 protected:
  // X on 0, 1, 5; O on 2, 3, 7; the server moves.
  Moving() { Pair.Play({0, 2, 1, 3, 5, 7}); }
};

TEST_F(Moving, FromWhereTheOtherHasMovedAndWhereToIsSaid) {
  Pair.Server.Click(1);
  EXPECT_EQ(Pair.Client.Screen.Announced.size(), 3) << "a piece in the hand is the mover's own affair";
  Pair.Server.Click(8);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Screen.Announced.last(), u"Ana: de fila 1, columna 2 a fila 3, columna 3"_s);
}

TEST_F(Moving, AfterThreePlacementsEachPlayerMoves) {
  EXPECT_EQ(Pair.Server.Screen.Status, u"Mueva una ficha del tablero"_s);
  EXPECT_FALSE(Pair.Server.Flow.Board().PlacingPhase());
  for (const int cell : {4, 2}) {  // empty, and the other's
    Pair.Server.Click(cell);
    EXPECT_EQ(Pair.Server.Screen.Status, u"Pulse sobre una de sus propias fichas para moverla *"_s);
  }
  EXPECT_EQ(Pair.Server.Shown(), u"XXOO*X*O*"_s);
}

TEST_F(Moving, LiftingIsNotSentAndPuttingBackIsNoMove) {
  const QStringList sent = Pair.Server.Connection.Sent;
  Pair.Server.Click(5);
  EXPECT_EQ(Pair.Server.Screen.Status, u"Coloque la ficha quitada en un sitio diferente"_s);
  EXPECT_EQ(Pair.Server.Shown(), u"XXOO***O*"_s);
  EXPECT_EQ(Pair.Server.Flow.FG1().Cell({1, 2}).ForeColour, kDefaultColour);
  Pair.Server.Click(0);
  EXPECT_EQ(Pair.Server.Screen.Status, u"Elija una casilla vacía para colocar su ficha"_s);
  Pair.Server.Click(5);
  EXPECT_EQ(Pair.Server.Screen.Status, u"El movimiento realizado no es válido, vuelva a quitar una ficha"_s);
  EXPECT_EQ(Pair.Server.Shown(), u"XXOO*X*O*"_s);
  EXPECT_EQ(Pair.Server.Flow.FG1().Cell({1, 2}).ForeColour, kRed);
  EXPECT_EQ(Pair.Server.Connection.Sent, sent);
  EXPECT_EQ(Pair.Server.Flow.State().CurrentTurn, Player::Server);
  Pair.Server.Click(4);
  EXPECT_EQ(Pair.Server.Screen.Status, u"Pulse sobre una de sus propias fichas para moverla *"_s);
}

TEST_F(Moving, AMoveIsSentWithBothCells) {
  Pair.Server.Click(5);
  Pair.Server.Click(8);
  Pair.Settle();
  EXPECT_EQ(Pair.Server.Connection.Sent.last(), u"Jug|5|8"_s);
  EXPECT_EQ(Pair.Client.Shown(), u"XXOO***OX"_s);
  EXPECT_EQ(Pair.Client.Flow.FG1().Cell({1, 2}).ForeColour, kDefaultColour);
  EXPECT_EQ(Pair.Client.Screen.Status, u"Mueva una ficha del tablero"_s);
  EXPECT_EQ(Pair.Client.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Moving, AMoveThatCannotBeSentLeavesThePieceLiftedAndAllElseAsItWas) {
  Pair.Server.Click(5);
  Pair.Server.Connection.Break();
  Pair.Settle();
  const QString before = HeldState(Pair.Server);
  for (const int cell : {8, 4}) {
    Pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    Pair.Server.Click(cell);
    EXPECT_EQ(HeldState(Pair.Server), before);
    EXPECT_EQ(Pair.Server.Flow.Board().PosQuitada(), 5);
    EXPECT_EQ(Pair.Server.Flow.Board().PiecesPlaced(Player::Server), 3);
    EXPECT_TRUE(Pair.Server.Flow.Board().PlacingPhase());
  }
}

TEST_F(ThreeInRow, AWinThatCannotBeSentIsNone) {
  Pair.Play({0, 4, 1, 8});
  Pair.Server.Connection.Break();
  Pair.Settle();
  const QString before = HeldState(Pair.Server);
  Pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  Pair.Server.Click(2);
  EXPECT_EQ(HeldState(Pair.Server), before);
  EXPECT_EQ(Pair.Server.Flow.Board().PiecesPlaced(Player::Server), 2);
}

TEST_F(Moving, AMoveCanWin) {
  ExpectWin(Pair.Client, Pair.Server, u"Luis           "_s);
  Pair.Server.Click(1);
  Pair.Server.Click(8);
  Pair.Settle();
  for (const int cell : {3, 4}) Pair.Client.Click(cell);  // O: 2, 4, 7
  Pair.Settle();
  for (const int cell : {8, 1}) Pair.Server.Click(cell);
  Pair.Settle();
  for (const int cell : {7, 6}) Pair.Client.Click(cell);  // O: 2, 4, 6
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Flow.State().Scores.Client, 1);
  EXPECT_EQ(Pair.Server.Flow.State().Scores.Client, 1);
}

// ---- Winning ----

TEST_F(ThreeInRow, AWinInOneReadNamesTheWinnerAndBothScoresAgree) {
  ExpectWin(Pair.Server, Pair.Client, u"Ana            "_s);
  Pair.Play({0, 4, 1, 8, 2});
  const QStringList& sent = Pair.Server.Connection.Sent;
  EXPECT_EQ(sent.at(sent.size() - 2), u"Jug|-1|2"_s);
  EXPECT_EQ(sent.last(), u"Haganado|0"_s);
  EXPECT_EQ(Pair.Client.Shown(), u"XXX*O***O"_s) << "the move is handled after the loss and still shown";
  EXPECT_EQ(Pair.Client.Screen.Announced.last(), u"Ana: fila 1, columna 3"_s) << "and said";
  for (TerCopy* copy : {&Pair.Server, &Pair.Client}) {
    EXPECT_TRUE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Flow.State().Scores.Server, 1);
    EXPECT_EQ(copy->Flow.State().Scores.Client, 0);
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Server);
  }
  EXPECT_EQ(Pair.Client.Screen.Messages, QString());
}

TEST_F(ThreeInRow, AWinInTwoReadsNamesTheReceiver) {
  Pair.Client.Connection.Cut = Reads::OnePerSend;
  ExpectWin(Pair.Server, Pair.Client, u"Luis           "_s);
  Pair.Play({0, 4, 1, 8, 2});
  EXPECT_EQ(Pair.Client.Flow.State().CurrentTurn, Player::Client);
  EXPECT_EQ(Pair.Client.Flow.State().Scores.Server, 0);
  EXPECT_EQ(Pair.Client.Flow.State().Scores.Client, 1);
  EXPECT_EQ(Pair.Server.Flow.State().Scores.Server, 1);
  EXPECT_TRUE(Pair.Client.Flow.State().GameOver);
}

TEST_F(ThreeInRow, TheLossEmptiesTheTextsBeforeAndAfterItsBox) {
  Pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon);
  Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding, [&] {
    EXPECT_EQ(Pair.Client.Screen.Messages, QString());
    EXPECT_EQ(Pair.Client.Screen.Status, QString());
    EXPECT_EQ(Pair.Client.Flow.State().Scores.Server, 0) << "the point is counted when the box has been read";
    EXPECT_FALSE(Pair.Client.Flow.State().GameOver);
  });
  Pair.Play({0, 4, 1, 8, 2});
}

TEST_F(ThreeInRow, AClickWhileTheWinnersBoxIsOpenIsNoSecondMove) {
  Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
  Pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon, [&] { Pair.Server.Click(6); });
  Pair.Play({0, 4, 1, 8, 2});
  EXPECT_EQ(Pair.Server.Shown(), u"XXX*O***O"_s);
  EXPECT_EQ(Pair.Server.Connection.Sent.filter(u"Haganado|"_s).size(), 1);
}

TEST_F(ThreeInRow, TheWinnersPointIsHisWhateverArrivesWhileHisBoxIsOpen) {
  Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
  Pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon, [&] {
    Pair.Server.Connection.Receive(u"Jug|-1|7"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(Pair.Server.Flow.State().CurrentTurn, Player::Client);
  });
  Pair.Play({0, 4, 1, 8, 2});
  EXPECT_EQ(Pair.Server.Flow.State().Scores.Server, 1);
  EXPECT_EQ(Pair.Server.Flow.State().Scores.Client, 0);
}

TEST_F(ThreeInRow, ATokenInTheOtherOrderIsCutByPositionAllTheSame) {
  Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
  Pair.Client.Connection.Receive(u"Haganado|0Jug|-1|4"_s);
  Pair.Settle();
  // From position 5 the text reads "nado|0Jug|-1|4": lift 0, put on 0.
  EXPECT_EQ(Pair.Client.Shown(), u"X********"_s);
}

TEST_F(ThreeInRow, AMoveThatCannotBeSentIsToldAndHasNotHappened) {
  Pair.Server.Connection.Break();
  Pair.Settle();
  Pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  Pair.Server.Click(0);
  EXPECT_FALSE(Pair.Server.Finished);
  EXPECT_EQ(Pair.Server.Flow.State().CurrentTurn, Player::Server);
  EXPECT_EQ(Pair.Server.Shown(), u"*********"_s);
}

// ---- What only eyes see ----

// The cells of FG1 with the mark, in their order.
QList<int> Marked(const TerCopy& copy, Mark mark) {
  QList<int> cells;
  for (int cell = 0; cell < kTerCells; ++cell) {
    if (copy.Flow.FG1().Cell({cell / kTerSide, cell % kTerSide}).Marks.testFlag(mark)) cells << cell;
  }
  return cells;
}

TEST_F(ThreeInRow, TheOpponentsMoveIsMarkedUntilItIsAnswered) {
  Pair.Play({4});
  EXPECT_EQ(Marked(Pair.Client, Mark::LastMove), QList<int>{4});
  EXPECT_EQ(Marked(Pair.Server, Mark::LastMove), QList<int>());
  Pair.Play({0});
  EXPECT_EQ(Marked(Pair.Client, Mark::LastMove), QList<int>());
  EXPECT_EQ(Marked(Pair.Server, Mark::LastMove), QList<int>{0});
  Pair.Play({1, 7, 3, 5, 3, 6});
  EXPECT_EQ(Pair.Client.Shown(), u"OX**XOXO*"_s);
  EXPECT_EQ(Marked(Pair.Client, Mark::LastMove), (QList<int>{3, 6})) << "from and to";
}

TEST_F(ThreeInRow, ALiftedPieceIsShownWhereItHasBeenToItsPlayerAlone) {
  Pair.Play({4, 0, 1, 7, 3, 5, 3});
  const CellContent lifted = Pair.Server.Flow.FG1().Cell({1, 0});
  EXPECT_EQ(lifted, (CellContent{.Text = u"*"_s, .Marks = Mark::Lifted, .Drawing = u'X'}));
  EXPECT_EQ(Marked(Pair.Client, Mark::Lifted), QList<int>());
  Pair.Play({3});
  EXPECT_EQ(Marked(Pair.Server, Mark::Lifted), QList<int>()) << "it has been put back";
  EXPECT_EQ(Pair.Server.Flow.FG1().Cell({1, 0}).Drawing, 0);
  Pair.Play({3, 6});
  EXPECT_EQ(Marked(Pair.Server, Mark::Lifted), QList<int>());
  EXPECT_EQ(Pair.Server.Flow.FG1().Cell({1, 0}), CellContent{.Text = u"*"_s});
}

TEST_F(ThreeInRow, TheWinningThreeAreMarkedInBothCopiesWhileTheBoardWaitsForAClick) {
  const QList<int> three{0, 1, 2};
  Pair.Server.Dialogs.Expect(box::kWonTitle, box::kWon,
                             [&] { EXPECT_EQ(Marked(Pair.Server, Mark::WinningLine), three); });
  Pair.Client.Dialogs.Expect(box::kLostTitle, u"Ana            "_s + box::kLostEnding);
  Pair.Play({0, 4, 1, 8, 2});
  for (TerCopy* copy : {&Pair.Server, &Pair.Client}) {
    EXPECT_EQ(Marked(*copy, Mark::WinningLine), three);
    EXPECT_TRUE(copy->Flow.FG1().WaitsForClick());
  }
  Pair.Server.Dialogs.AnswerBox = Pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
  Pair.Server.Click(0);
  Pair.Settle();
  Pair.Client.Click(0);
  Pair.Settle();
  for (TerCopy* copy : {&Pair.Server, &Pair.Client}) {
    EXPECT_EQ(Marked(*copy, Mark::WinningLine), QList<int>());
    EXPECT_FALSE(copy->Flow.FG1().WaitsForClick());
  }
}

TEST_F(ThreeInRow, APieceThatWasLiftedForTheWinningMoveIsNotShownAsLifted) {
  ExpectWin(Pair.Server, Pair.Client, u"Ana            "_s);
  Pair.Play({0, 4, 1, 8, 6, 5, 6, 2});
  EXPECT_EQ(Marked(Pair.Server, Mark::WinningLine), (QList<int>{0, 1, 2}));
  EXPECT_EQ(Marked(Pair.Server, Mark::Lifted), QList<int>());
}

// ---- What a stranger may send ----

struct BadMove {
  const char* Name;
  QString Text;
};

class BadMoveOf : public testing::TestWithParam<BadMove> {};

TEST_P(BadMoveOf, ChangesNothingAndTheGameGoesOn) {
  TerPair pair;
  pair.Connect();
  const QString line = u"Va a jugar contra Ana"_s;
  pair.Client.Connection.Receive(GetParam().Text);
  pair.Settle();
  EXPECT_EQ(pair.Client.Shown(), u"*********"_s);
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Server);
  pair.Play({4, 0});
  EXPECT_EQ(pair.Client.Shown(), u"O***X****"_s);
  EXPECT_EQ(pair.Server.Shown(), u"O***X****"_s);
}

INSTANTIATE_TEST_SUITE_P(Text, BadMoveOf,
                         testing::Values(BadMove{"NoFields", u"Jug|"_s}, BadMove{"NoTarget", u"Jug|-1"_s},
                                         BadMove{"TargetTooLarge", u"Jug|-1|9"_s},
                                         BadMove{"TargetNegative", u"Jug|-1|-1"_s},
                                         BadMove{"LiftedTooLarge", u"Jug|9|1"_s},
                                         BadMove{"Huge", u"Jug|99999999999999999999|1e300"_s},
                                         BadMove{"RoundsBeyondTheBoard", u"Jug|-1|8.6"_s}, BadMove{"Empty", u""_s},
                                         BadMove{"Binary", u"\u0000\u0001\u00FF\u0002"_s},
                                         BadMove{"ManyBytesWithoutToken", QString(1 << 20, u'x')},
                                         BadMove{"TokenInTheMiddle", u"xJug|-1"_s}),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST_F(ThreeInRow, AMissingNumberReadsAsCellZero) {
  Pair.Client.Connection.Receive(u"Jug||"_s);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Shown(), u"X********"_s);
}

TEST_F(ThreeInRow, ALiftedCellBelowMinusOneIsNone) {
  Pair.Client.Connection.Receive(u"Jug|-7|3"_s);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Shown(), u"***X*****"_s);
}

TEST_F(ThreeInRow, AMoveCutByTheNetworkIsHandledAsTheTextsThatItThenIs) {
  Pair.Client.Connection.BytesPerRead = 5;
  Pair.Play({4});  // "Jug|-" has no second field, "1|4" no token
  EXPECT_EQ(Pair.Client.Shown(), u"*********"_s);
  EXPECT_FALSE(Pair.Client.Finished);
}

TEST_F(ThreeInRow, ANameWithMarkupStaysTheTextItIs) {
  Pair.Client.Connection.Receive(u"Nombre|<b>x</b>"_s);
  Pair.Settle();
  EXPECT_EQ(Pair.Client.Screen.Lines.last(), u"Va a jugar contra <b>x</b>"_s);
  EXPECT_EQ(Pair.Client.Flow.State().PlayerNames.Trimmed(Player::Server), u"<b>x</b>"_s);
}

// Every message at a moment when it makes no sense: before the session, and while each box of the handshake is open.
TEST(ThreeInRowStranger, EveryMessageAtEveryMomentOfTheHandshakeIsSurvived) {
  const QStringList texts{u"Nombre|"_s,   u"turno|"_s,    u"Turnodef|"_s, u"Turnodef|9"_s, u"Haganado|"_s,
                          u"Seguir|Si"_s, u"Seguir|No"_s, u"Jug|"_s,      u"Jug|-1|4"_s,   u"Solicitud aceptada|BAR"_s};
  for (const QString& text : texts) {
    for (int moment = 0; moment < 8; ++moment) {
      TerPair pair;
      int boxes = 0;
      const auto strike = [&](TerCopy& copy) {
        if (boxes++ != moment) return;
        copy.Connection.Receive(text);
        QCoreApplication::processEvents();
      };
      for (TerCopy* copy : {&pair.Server, &pair.Client}) {
        copy->Dialogs.AnswerBox = [&, copy](const QString&) {
          strike(*copy);
          return Button::Ok;
        };
        copy->Dialogs.AnswerInput = [&, copy](const QString& title) {
          strike(*copy);
          return title == box::kTurnTitle ? u"1"_s : u"Ana"_s;
        };
      }
      pair.Ask();
      pair.Settle();
      for (TerCopy* copy : {&pair.Server, &pair.Client}) {
        if (copy->Finished) continue;
        copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
        copy->Flow.CloseRequested();
        EXPECT_EQ(copy->Finished, AfterWindow::Selection) << text.toStdString() << " at " << moment;
      }
    }
  }
}

}  // namespace
}  // namespace brontavia::test
