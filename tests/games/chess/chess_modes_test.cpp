// ChessFlow: clocks, keys, modes and editing.
#include <gtest/gtest.h>

#include "tests/support/aje_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;
using std::chrono::seconds;

class ChessModes : public testing::Test {
 protected:
  ChessModes() { Pair.Connect(); }

  void FreeMode() {
    White.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::Yes);
    Black.Dialogs.Expect({}, u"Ana ha activado el modo libre."_s);
    White.Flow.Run(ChessCommand::FreeMode);
    Pair.Settle();
  }
  [[nodiscard]] static bool Available(const AjeCopy& copy, ChessCommand command) {
    for (const ChessMenu& menu : kChessMenus) {
      for (const ChessMenuEntry& entry : menu.Entries) {
        if (entry.Command == command) return copy.Flow.IsAvailable(entry);
      }
    }
    ADD_FAILURE() << "no such entry";
    return false;
  }
  void SetTimes(const QString& white, const QString& white_proposal) {
    White.Dialogs.ExpectInput(u"Establecer tiempos"_s, u"Establezca el tiempo de las blancas(minutos:segundos)"_s,
                              white_proposal, white);
  }
  void SetTimes(const QString& white, const QString& white_proposal, const QString& black,
                const QString& black_proposal) {
    SetTimes(white, white_proposal);
    White.Dialogs.ExpectInput(u"Establecer tiempos"_s, u"Establezca el tiempo de las negras(minutos:segundos)"_s,
                              black_proposal, black);
  }

  AjePair Pair;
  AjeCopy& White = Pair.Server;
  AjeCopy& Black = Pair.Client;
};

// ---- Clocks ----

TEST_F(ChessModes, ClocksRunFromWhitesFirstMoveForTheSideToMove) {
  White.Flow.Pass(seconds(5));
  EXPECT_EQ(White.Screen.Clocks, u"00:00 / 00:00"_s);
  Pair.Play(u"e2e4"_s);
  for (AjeCopy* copy : {&White, &Black}) {
    EXPECT_TRUE(copy->Flow.Timer1().IsRunning());
    copy->Flow.Pass(seconds(65));
    EXPECT_EQ(copy->Screen.Clocks, u"00:00 / 01:05"_s);
  }
  Pair.Play(u"e7e5"_s);
  White.Flow.Pass(seconds(3600));
  EXPECT_EQ(White.Screen.Clocks, u"60:00 / 01:05"_s);
}

TEST_F(ChessModes, ABusyWindowLosesNoSecondAndGivesItToTheMover) {
  Pair.Play(u"e2e4"_s);
  White.Flow.Pass(milliseconds(700));
  White.Flow.Pass(milliseconds(700));
  EXPECT_EQ(White.Screen.Clocks, u"00:00 / 00:01"_s);
  White.Flow.Time += seconds(10);  // nothing has rung
  Pair.Play(u"e7e5"_s);
  EXPECT_EQ(White.Screen.Clocks, u"00:00 / 00:11"_s) << "Black's, although White is to move now";
  White.Flow.Pass(milliseconds(600));
  EXPECT_EQ(White.Screen.Clocks, u"00:01 / 00:11"_s);
}

TEST_F(ChessModes, AStopLastsUntilWhitesNextMove) {
  FreeMode();
  Pair.Play(u"e2e4"_s);
  White.Flow.Run(ChessCommand::ToggleClocks);
  EXPECT_EQ(White.Screen.Status, u"Relojes  parados."_s);
  Pair.Play(u"e7e5"_s);
  White.Flow.Pass(seconds(9));
  EXPECT_EQ(White.Screen.Clocks, u"00:00 / 00:00"_s) << "a move of Black starts no clock";
  Pair.Play(u"d2d4"_s);
  White.Flow.Pass(seconds(2));
  EXPECT_EQ(White.Screen.Clocks, u"00:00 / 00:02"_s);
  White.Flow.Run(ChessCommand::ToggleClocks);
  White.Flow.Run(ChessCommand::ToggleClocks);
  EXPECT_EQ(White.Screen.Status, u"Relojes  activados."_s);
}

TEST_F(ChessModes, TimesAreSetWhenBothAnswersAreValid) {
  FreeMode();
  SetTimes(u"1:05"_s, u"0:0"_s, u"60:00"_s, u"0:0"_s);
  White.Flow.Run(ChessCommand::SetClocks);
  EXPECT_EQ(White.Screen.Clocks, u"01:05 / 60:00"_s);
  EXPECT_EQ(White.Screen.Lines.last(), u"Establecido 01:05 / 60:00"_s);
  for (const QString& answer : {u"5:75"_s, u"5"_s, QString()}) {
    SetTimes(answer, u"1:5"_s);
    White.Flow.Run(ChessCommand::SetClocks);
  }
  SetTimes(u"2:00"_s, u"1:5"_s, u"3:60"_s, u"60:0"_s);
  White.Flow.Run(ChessCommand::SetClocks);
  EXPECT_EQ(White.Screen.Clocks, u"01:05 / 60:00"_s);
  SetTimes(u"546:8"_s, u"1:5"_s, u"0:0"_s, u"60:0"_s);
  White.Dialogs.Expect(u"Establecer tiempos"_s,
                       u"El tiempo es demasiado largo: un reloj no puede pasar de 32767 segundos."_s);
  White.Flow.Run(ChessCommand::SetClocks);
  EXPECT_EQ(White.Screen.Clocks, u"01:05 / 60:00"_s);
}

// ---- Free mode ----

TEST_F(ChessModes, FreeModeIsAskedForToldAndOpensItsCommands) {
  const std::array commands{ChessCommand::ToggleClocks, ChessCommand::SetClocks, ChessCommand::EmptyBoard,
                            ChessCommand::SetData};
  for (const ChessCommand command : commands) EXPECT_FALSE(Available(White, command));
  White.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::No);
  White.Flow.Run(ChessCommand::FreeMode);
  EXPECT_FALSE(White.Flow.FreeMode());
  FreeMode();
  EXPECT_TRUE(White.Flow.FreeMode());
  EXPECT_TRUE(White.Checked(ChessCommand::FreeMode));
  EXPECT_FALSE(Black.Flow.FreeMode());
  for (const ChessCommand command : commands) EXPECT_TRUE(Available(White, command));
  EXPECT_EQ(White.Connection.Sent.last(), u"modolibre|"_s);
  const qsizetype sent = White.Connection.Sent.size();
  White.Flow.Run(ChessCommand::FreeMode);
  EXPECT_FALSE(White.Flow.FreeMode());
  EXPECT_EQ(White.Connection.Sent.size(), sent) << "switching off tells nobody";
}

TEST_F(ChessModes, AWindowThatHasEndedShowsItsCommandsNoMore) {
  int shown = 0;
  QObject::connect(&White.Flow, &ChessFlow::CommandsChanged, [&shown] { ++shown; });
  White.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::Yes,
                       [this] { White.Flow.CloseRequested(); });
  White.Flow.Run(ChessCommand::FreeMode);
  EXPECT_TRUE(White.Finished);
  EXPECT_EQ(shown, 0);
}

TEST_F(ChessModes, PiecesOfBothSidesCanBePickedUpInFreeMode) {
  FreeMode();
  White.Click(u"e7"_s);
  EXPECT_EQ(White.Screen.Status, u"Peón negro seleccionado"_s);
  White.Click(u"e5"_s);
  EXPECT_EQ(White.At(u"e5"_s), PieceOf(kPawn, Colour::Black));
}

TEST_F(ChessModes, DeleteEmptiesTheClickedSquareInFreeModeAndBeepsOtherwise) {
  White.Click(u"e2"_s);
  White.Flow.BoardKeyPressed(Qt::Key_Delete);
  EXPECT_EQ(White.Screen.Beeps, 1);
  EXPECT_EQ(White.At(u"e2"_s), PieceOf(kPawn, Colour::White));
  White.Flow.BoardKeyPressed(Qt::Key_Menu);
  FreeMode();
  White.Flow.BoardKeyPressed(Qt::Key_Delete);
  EXPECT_EQ(White.At(u"e2"_s), kNoPiece);
  EXPECT_EQ(White.Shown(u"e2"_s), CellContent{});
  EXPECT_FALSE(White.Flow.Game().HasSelection()) << "the piece picked up is gone";
  EXPECT_EQ(White.Screen.Beeps, 1);
}

TEST_F(ChessModes, NothingClickedNothingDeleted) {
  FreeMode();
  White.Flow.BoardKeyPressed(Qt::Key_Delete);
  EXPECT_EQ(White.Flow.Game().Position(), StartPosition());
}

TEST_F(ChessModes, TwelvePiecesCanBeInserted) {
  FreeMode();
  const QStringList captions{u"&Peón blanco"_s,   u"&Torre blanca"_s, u"&Caballo blanco"_s, u"&Alfil blanco"_s,
                             u"&Dama blanca"_s,   u"&Rey blanco"_s,   u"&Peón negro"_s,     u"&Torre negra"_s,
                             u"&Caballo negro"_s, u"&Alfil negro"_s,  u"&Dama negra"_s,     u"&Rey negro"_s};
  const std::array codes{1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16};
  White.Click(u"e4"_s);
  for (qsizetype i = 0; i < captions.size(); ++i) {
    White.Dialogs.ExpectMenu(u"MnuIns"_s, captions, captions[i]);
    White.Flow.BoardKeyPressed(Qt::Key_Menu);
    EXPECT_EQ(White.At(u"e4"_s), codes.at(static_cast<std::size_t>(i))) << "replacing the piece before";
  }
  EXPECT_EQ(White.Flow.Game().Position().KingSquares.Black, (Coordinate{5, 4})) << "the first in the scan";
}

TEST_F(ChessModes, TheBoardIsEmptiedAndNothingElse) {
  FreeMode();
  const ChessPosition before = White.Flow.Game().Position();
  White.Click(u"e2"_s);
  White.Flow.Run(ChessCommand::EmptyBoard);
  EXPECT_EQ(White.Flow.Game().Position().Board, ChessBoard());
  EXPECT_EQ(White.Flow.Game().Position().Castling, before.Castling);
  EXPECT_EQ(White.Flow.Game().Position().KingSquares, before.KingSquares);
  EXPECT_FALSE(White.Flow.Game().HasSelection());
  EXPECT_EQ(White.Shown(u"a1"_s), CellContent{});
}

TEST_F(ChessModes, DataAreSetOneAfterTheOther) {
  FreeMode();
  const QString title = u"Establecer datos"_s;
  const QString number = u"Número de jugada actual: "_s;
  const QString side = u"Color que mueve ficha (0 blancas, 1 negras):"_s;
  const QString half_moves = u"Número de medios movimientos:"_s;
  const auto run = [&] { White.Flow.Run(ChessCommand::SetData); };
  const ChessPosition& position = White.Flow.Game().Position();
  for (const QString& refused : {u"0"_s, QString(), u"-3"_s}) {
    White.Dialogs.ExpectInput(title, number, u"1"_s, refused);
    run();
  }
  EXPECT_EQ(position, StartPosition());
  White.Dialogs.ExpectInput(title, number, u"1"_s, u"12"_s);
  White.Dialogs.ExpectInput(title, side, u"0"_s, u"1"_s);
  White.Dialogs.ExpectInput(title, half_moves, u"0"_s, u"3"_s);
  run();
  EXPECT_EQ(position.MoveNumber, 12);
  EXPECT_EQ(position.SideToMove, Colour::Black);
  EXPECT_EQ(position.HalfMoveClock, 3);
  EXPECT_TRUE(White.Screen.Position.startsWith(u"Jug. Nº 12. Mueven Negras. "_s));
  White.Dialogs.ExpectInput(title, number, u"12"_s, u"13"_s);
  White.Dialogs.ExpectInput(title, side, u"1"_s, u"2"_s);
  run();
  EXPECT_EQ(position.MoveNumber, 13);
  EXPECT_EQ(position.SideToMove, Colour::Black);
  White.Dialogs.ExpectInput(title, number, u"13"_s, u"13"_s);
  White.Dialogs.ExpectInput(title, side, u"1"_s, QString());
  White.Dialogs.ExpectInput(title, half_moves, u"3"_s, u"-1"_s);
  run();
  EXPECT_EQ(position.SideToMove, Colour::White) << "a cancelled box reads as 0";
  EXPECT_EQ(position.HalfMoveClock, 3);
}

// ---- Keys, learning mode, turning ----

TEST_F(ChessModes, EscDropsThePiece) {
  White.Click(u"e2"_s);
  White.Flow.BoardKeyPressed(Qt::Key_Escape);
  EXPECT_EQ(White.Screen.Status, u"Selección cancelada"_s);
  EXPECT_FALSE(White.Flow.Game().HasSelection());
  EXPECT_EQ(White.Shown(u"e2"_s).Marks, Marks());
}

TEST_F(ChessModes, F5TellsWhetherTheClickedSquareIsAttackedByBlack) {
  White.Click(u"e4"_s);
  White.Dialogs.Expect({}, u"False"_s);
  White.Flow.BoardKeyPressed(Qt::Key_F5);
  White.Click(u"f6"_s);
  White.Dialogs.Expect({}, u"True"_s);
  White.Flow.BoardKeyPressed(Qt::Key_F5);
}

TEST_F(ChessModes, SquaresAreDescribed) {
  EXPECT_EQ(White.Description(u"a1"_s), u"Torre blanca A1"_s);
  EXPECT_EQ(White.Description(u"d8"_s), u"Dama negra D8"_s);
  EXPECT_EQ(White.Description(u"e4"_s), u" E4"_s);
  White.Flow.FG1().SetCurrentCell(White.Flow.IndexOf(SquareNamed(u"c6"_s)));
  EXPECT_EQ(White.Screen.Status, u" C6"_s);
}

TEST_F(ChessModes, LearningModeMarksWhereThePieceCanGo) {
  White.Flow.Run(ChessCommand::LearningMode);
  EXPECT_TRUE(White.Flow.LearningMode());
  EXPECT_TRUE(White.Checked(ChessCommand::LearningMode));
  White.Click(u"e2"_s);
  EXPECT_EQ(White.Description(u"e4"_s), u"Disponible  E4"_s);
  EXPECT_EQ(White.Description(u"e5"_s), u" E5"_s);
  EXPECT_EQ(White.Shown(u"e3"_s).Marks, Marks(Mark::Reachable));
  EXPECT_EQ(White.Shown(u"e5"_s).Marks, Marks());
  White.Flow.Run(ChessCommand::LearningMode);
  EXPECT_EQ(White.Shown(u"e3"_s).Marks, Marks());
  EXPECT_EQ(White.Description(u"e4"_s), u" E4"_s);
}

TEST_F(ChessModes, ATurnedBoardShowsAndTakesSquaresWhereTheyAre) {
  Black.Flow.Run(ChessCommand::TurnBoard);
  EXPECT_TRUE(Black.Checked(ChessCommand::TurnBoard));
  EXPECT_EQ(Black.Flow.FG1().Cell({0, 1}).Text, u"h"_s);
  EXPECT_EQ(Black.Flow.FG1().Cell({1, 0}).Text, u"1"_s);
  EXPECT_EQ(Black.Flow.FG1().Cell({1, 4}).Text, u"R"_s) << "White's king, seen from Black's side";
  Pair.Play(u"e2e4 e7e5"_s);
  EXPECT_EQ(Black.At(u"e5"_s), PieceOf(kPawn, Colour::Black));
  EXPECT_EQ(Black.Flow.FG1().Cell({4, 4}).Text, u"P"_s);
  Black.Flow.Run(ChessCommand::TurnBoard);
  EXPECT_EQ(Black.Flow.FG1().Cell({5, 5}).Text, u"P"_s);
}

TEST_F(ChessModes, ModesOutliveARematch) {
  FreeMode();
  White.Flow.Run(ChessCommand::LearningMode);
  White.Flow.Run(ChessCommand::TurnBoard);
  White.Dialogs.Expect({}, box::kGameLost);
  Black.Dialogs.Expect({}, u"Ana abandona la partida."_s);
  Black.Dialogs.Expect({}, box::kGameWon);
  White.Flow.Run(ChessCommand::Resign);
  Pair.Settle();
  for (AjeCopy* copy : {&White, &Black}) {
    copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
    copy->Click(u"a1"_s);
    Pair.Settle();
  }
  EXPECT_FALSE(White.Flow.State().GameOver);
  EXPECT_TRUE(White.Flow.FreeMode() && White.Flow.LearningMode() && White.Flow.BoardFlipped());
}

}  // namespace
}  // namespace brontavia::test
