// ChessFlow: moves, their messages and what the window shows of them.
#include "games/chess/chess_flow.h"

#include <gtest/gtest.h>

#include "tests/support/aje_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class Chess : public testing::Test {
 protected:
  Chess() { Pair.Connect(); }

  AjePair Pair;
  AjeCopy& White = Pair.Server;
  AjeCopy& Black = Pair.Client;
};

TEST_F(Chess, BeginsWithAllTextsAndTheWholeBoard) {
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->Screen.Lines.last(),
              u"Por decisión mutua jugará  con blancas Ana. Ana,  realice su primer movimiento."_s);
    EXPECT_EQ(copy->Screen.Clocks, u"00:00 / 00:00"_s);
    EXPECT_EQ(copy->Screen.Moves, QString());
    EXPECT_EQ(copy->Screen.Position,
              u"Jug. Nº 1. Mueven Blancas. \r\n Enroques disponibles:\r\nBlancas. Corto: Sí. Largo: Sí.\r\n"
              u"Negras. Corto: Sí. Largo: Sí.\r\n Opción de comer al paso\r\nBlancas : No.Negras: No."_s);
    EXPECT_EQ(copy->Shown(u"a1"_s).Text, u"T"_s);
    EXPECT_EQ(copy->Shown(u"e8"_s).Text, u"r"_s);
    EXPECT_EQ(copy->Shown(u"e4"_s), CellContent{});
    EXPECT_EQ(copy->Flow.FG1().Cell({0, 1}).Text, u"a"_s);
    EXPECT_EQ(copy->Flow.FG1().Cell({1, 0}).Text, u"8"_s);
    EXPECT_EQ(copy->Flow.WhitePlayer(), Player::Server);
    EXPECT_EQ(copy->Screen.Beeps, 0);
  }
}

// The server's number is the one that the turn begins with, so a menu could be taken for its turn.
TEST(ChessBeforeTheFirstTurn, ClicksAndMenusAreOutOfTurnAlike) {
  AjePair pair;
  pair.Server.Flow.Load();
  for (const ChessCommand command : {ChessCommand::DeclareMate, ChessCommand::Resign, ChessCommand::OfferDraw}) {
    pair.Server.Dialogs.Expect({}, box::kNotYourTurn);
    pair.Server.Flow.Run(command);
  }
  pair.Server.Click(u"e2"_s);
  EXPECT_EQ(pair.Server.Screen.Status, box::kNotYourTurn);
}

TEST_F(Chess, TheEyeStartsWhereTheOwnPiecesStand) {
  EXPECT_EQ(White.Flow.FG1().CurrentCell(), White.Flow.IndexOf(SquareNamed(u"a1"_s)));
  EXPECT_EQ(Black.Flow.FG1().CurrentCell(), Black.Flow.IndexOf(SquareNamed(u"a8"_s)));
  for (const AjeCopy* copy : {&White, &Black}) EXPECT_EQ(copy->Screen.Status, QString()) << "nothing is told of it";
}

TEST_F(Chess, TheStripTellsColoursAndClocks) {
  EXPECT_EQ(White.Screen.Scoreboard.Own.Sign, PlayerSign::WhiteKing);
  EXPECT_EQ(White.Screen.Scoreboard.Own.Clock, (ScoreboardClock{.Time = u"00:00"_s, .Runs = false}));
  Pair.Play(u"e2e4"_s);
  White.Flow.Pass(std::chrono::seconds(65));
  EXPECT_EQ(White.Screen.Scoreboard.Other.Clock, (ScoreboardClock{.Time = u"01:05"_s, .Runs = true})) << "Black's";
  EXPECT_EQ(White.Screen.Scoreboard.Own.Clock, (ScoreboardClock{.Time = u"00:00"_s, .Runs = false}));
  EXPECT_EQ(White.Screen.Scoreboard.Other.State, PlayerState::ToMove);
}

TEST_F(Chess, AMoveIsToldOnBothSides) {
  White.Click(u"e2"_s);
  EXPECT_EQ(White.Screen.Status, u"Peón blanco seleccionado"_s);
  EXPECT_EQ(White.Shown(u"e2"_s).Marks, Marks(Mark::Selected));
  White.Click(u"e4"_s);
  Pair.Settle();
  EXPECT_EQ(White.Connection.Sent.last(), u"JUG|5 2 5 4 False 0"_s);
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->Screen.Lines.last(), u"Peón blanco de e2 a e4"_s);
    EXPECT_EQ(copy->Screen.Moves, u"1. e2-e4"_s);
    EXPECT_TRUE(copy->Screen.Position.startsWith(u"Jug. Nº 1. Mueven Blancas. "_s)) << "written before the turn passes";
    EXPECT_EQ(copy->Shown(u"e4"_s), (CellContent{.Text = u"P"_s, .Marks = Mark::LastMove}));
    EXPECT_EQ(copy->Shown(u"e2"_s), CellContent{.Marks = Mark::LastMove});
    EXPECT_EQ(copy->Flow.Game().Position().SideToMove, Colour::Black);
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Client);
  }
  Pair.Play(u"e7e5"_s);
  EXPECT_EQ(White.Screen.Moves, u"1. e2-e4, e7-e5\r\n"_s);
  EXPECT_TRUE(Black.Connection.Sent.last().startsWith(u"JUG|5 7 5 5 "_s));
}

TEST_F(Chess, RefusalsLeaveThePosition) {
  const ChessPosition before = White.Flow.Game().Position();
  struct Case {
    QString Square;
    QString Text;
  };
  const QString moved_over = u" E4"_s;
  for (const Case& tested : std::vector<Case>{{u"e7"_s, u"Le toca mover a las blancas."_s},
                                              {u"e4"_s, moved_over},
                                              {u"b1"_s, u"Caballo blanco seleccionado"_s},
                                              {u"b5"_s, u"Movimiento incorrecto. "_s},
                                              {u"b1"_s, u"Selección cancelada"_s},
                                              {u"a1"_s, u"Torre blanca seleccionada"_s},
                                              {u"a1"_s, u"Selección cancelada"_s}}) {
    White.Click(tested.Square);
    EXPECT_EQ(White.Screen.Status, tested.Text);
  }
  Black.Click(u"e7"_s);
  EXPECT_EQ(Black.Screen.Status, box::kNotYourTurn);
  EXPECT_EQ(White.Flow.Game().Position(), before);
  EXPECT_TRUE(White.Connection.Sent.filter(u"JUG|"_s).isEmpty());
}

TEST_F(Chess, AMoveThatWouldLeaveTheKingAttackedIsTakenBack) {
  Pair.Play(u"e2e4 e7e5 d1h5"_s);
  Black.Click(u"f7"_s);
  Black.Click(u"f6"_s);
  EXPECT_EQ(Black.Screen.Status, u"Movimiento incorrecto. El rey quedaría en jaque."_s);
  EXPECT_EQ(Black.At(u"f7"_s), PieceOf(kPawn, Colour::Black));
  EXPECT_FALSE(Black.Flow.Game().HasSelection());
  EXPECT_EQ(Black.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Chess, AnEnPassantChanceIsToldAndTaken) {
  Pair.Play(u"e2e4 a7a6 e4e5 d7d5"_s);
  for (const AjeCopy* copy : {&White, &Black}) EXPECT_EQ(copy->Screen.Status, u"posibilidad al paso"_s);
  EXPECT_TRUE(White.Screen.Position.endsWith(u"Blancas : D6Negras: No."_s));
  Pair.Play(u"e5d6"_s);
  EXPECT_EQ(White.Connection.Sent.last(), u"JUG|5 5 4 6 True 0"_s);
  EXPECT_EQ(Black.At(u"d5"_s), kNoPiece);
  EXPECT_EQ(Black.Screen.Lines.last(), u"Peón blanco de e5 por d6 al paso "_s);
  EXPECT_TRUE(Black.Screen.Moves.endsWith(u"3. e5xd6a.p."_s));
}

TEST_F(Chess, CastlingMovesTheRookOnBothSides) {
  Pair.Play(u"g1f3 g8f6 g2g3 g7g6 f1g2 f8g7 e1g1 e8g8"_s);
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->At(u"f1"_s), PieceOf(kRook, Colour::White));
    EXPECT_EQ(copy->At(u"f8"_s), PieceOf(kRook, Colour::Black));
    EXPECT_TRUE(copy->Screen.Moves.endsWith(u"4. 0-0, 0-0\r\n"_s));
    EXPECT_EQ(copy->Screen.Lines.last(), u"Enroque corto"_s);
  }
}

// White's pawn comes to b7 and captures on a8 next.
const QString kUpToPromotion = u"a2a4 b7b5 a4b5 a7a6 b5a6 h7h6 a6a7 h6h5"_s;

TEST_F(Chess, APromotionAsksOnBothSides) {
  Pair.Play(kUpToPromotion);
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, QString());
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Caballo"_s, [&] {
    EXPECT_EQ(White.Screen.Status, u"Indique por qué ficha desea sustituir el peón promocionado"_s);
    EXPECT_EQ(White.Shown(u"b8"_s).Text, u"P"_s);
    White.Click(u"h2"_s);
    White.Flow.Run(ChessCommand::Resign);
    EXPECT_FALSE(White.Flow.Game().HasSelection()) << "the choice comes first";
  });
  Black.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s);
  White.Click(u"a7"_s);
  White.Click(u"b8"_s);
  Pair.Settle();
  EXPECT_EQ(White.Connection.Sent.last(), u"JUG|1 7 2 8 False 3"_s);
  EXPECT_EQ(White.At(u"b8"_s), PieceOf(kKnight, Colour::White));
  EXPECT_EQ(Black.At(u"b8"_s), PieceOf(kQueen, Colour::White)) << "each side's player chooses";
  EXPECT_EQ(White.Screen.Lines.last(), u"Peón blanco de a7 por Caballo negro de b8 Promociona a Caballo blanco"_s);
  EXPECT_TRUE(White.Screen.Moves.endsWith(u"5. a7xCb8=C"_s));
}

TEST_F(Chess, APromotionEndsWithItsWindow) {
  Pair.Play(kUpToPromotion);
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s, [&] { White.Flow.CloseRequested(); });
  White.Click(u"a7"_s);
  White.Click(u"b8"_s);
  Pair.Settle();
  EXPECT_EQ(White.Finished, AfterWindow::Selection);
}

TEST_F(Chess, APositionLoadedWhileAPromotionWaitsIsKept) {
  Pair.Play(kUpToPromotion);
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s, [&] {
    White.Connection.Receive(u"datospartida|8/8/8/8/8/8/8/R6r/B - - 0 1"_s);
    Pair.Settle();
  });
  White.Click(u"a7"_s);
  White.Click(u"b8"_s);
  EXPECT_EQ(White.At(u"b8"_s), kNoPiece);
  EXPECT_EQ(White.At(u"a1"_s), PieceOf(kKing, Colour::White));
  EXPECT_TRUE(White.Connection.Sent.filter(u"JUG|1 7"_s).isEmpty());
}

// ---- Received moves ----

struct BadMove {
  QString Name;
  QString Text;
};

class BadMoves : public testing::TestWithParam<BadMove> {};

TEST_P(BadMoves, ChangeNothing) {
  AjePair pair;
  pair.Connect();
  const ChessPosition before = pair.Client.Flow.Game().Position();
  pair.Client.Connection.Receive(u"JUG|"_s + GetParam().Text);
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.Game().Position(), before);
  EXPECT_EQ(pair.Client.Flow.State().CurrentTurn, Player::Server);
  EXPECT_FALSE(pair.Client.Finished);
}

INSTANTIATE_TEST_SUITE_P(
    Received, BadMoves,
    testing::Values(BadMove{u"Empty"_s, QString()}, BadMove{u"OneField"_s, u"5"_s},
                    BadMove{u"ThreeFields"_s, u"5 2 5"_s}, BadMove{u"Letters"_s, u"e 2 e 4 False 0"_s},
                    BadMove{u"ColumnTooHigh"_s, u"9 2 5 4 False 0"_s}, BadMove{u"RowTooLow"_s, u"5 0 5 4 False 0"_s},
                    BadMove{u"Negative"_s, u"-5 2 5 4 False 0"_s}, BadMove{u"Huge"_s, u"5 2 99999999999 4 False 0"_s},
                    BadMove{u"Illegal"_s, u"5 2 5 5 False 0"_s}, BadMove{u"EmptySquare"_s, u"5 4 5 6 False 0"_s},
                    BadMove{u"OtherSide"_s, u"5 7 5 5 False 0"_s}),
    [](const auto& tested) { return tested.param.Name.toStdString(); });

TEST_F(Chess, AReceivedMoveNeedsItsFirstFourFieldsAlone) {
  Black.Connection.Receive(u"JUG|5 2 5 4"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White));
  EXPECT_EQ(Black.Flow.State().CurrentTurn, Player::Client);
}

TEST_F(Chess, AReceivedMoveBeginsWithNothingPickedUpAndIsNotDescribed) {
  White.Click(u"d2"_s);
  White.Connection.Receive(u"JUG|5 2 5 4 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(White.At(u"d2"_s), PieceOf(kPawn, Colour::White));
  EXPECT_EQ(White.At(u"e4"_s), PieceOf(kPawn, Colour::White));
  EXPECT_EQ(White.Screen.Status, u"Peón blanco seleccionado"_s);
  EXPECT_EQ(White.Flow.FG1().CurrentCell(), White.Flow.IndexOf(SquareNamed(u"e4"_s)));
}

TEST_F(Chess, AReceivedMoveThatIsRefusedLeavesNoMark) {
  White.Click(u"d2"_s);
  White.Connection.Receive(u"JUG|5 4 5 6 False 0"_s);
  Pair.Settle();
  EXPECT_FALSE(White.Flow.Game().HasSelection());
  EXPECT_EQ(White.Shown(u"d2"_s).Marks, Marks());
}

TEST_F(Chess, AnEndThatCannotBeSentIsNoEnd) {
  Pair.Play(u"f2f3 e7e5 g2g4 d8h4"_s);
  White.Connection.Break();
  Pair.Settle();
  for (const ChessCommand command : {ChessCommand::DeclareMate, ChessCommand::Resign, ChessCommand::OfferDraw}) {
    White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    White.Flow.Run(command);
  }
  EXPECT_FALSE(White.Flow.State().GameOver);
  EXPECT_EQ(White.Flow.State().Scores, (PerPlayer<std::int16_t>{0, 0}));
}

// ---- The end of a game ----

TEST_F(Chess, MateIsDeclaredByThePlayerWhoseKingIsAttacked) {
  Pair.Play(u"f2f3 e7e5 g2g4 d8h4"_s);
  White.Dialogs.Expect({}, box::kGameLost);
  Black.Dialogs.Expect({}, u"Ana se ha declarado en jaque mate."_s);
  Black.Dialogs.Expect({}, box::kGameWon);
  White.Flow.Run(ChessCommand::DeclareMate);
  Pair.Settle();
  EXPECT_EQ(White.Connection.Sent.last(), u"JMate|"_s);
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_TRUE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Flow.Winner(), Player::Client);
    EXPECT_EQ(copy->Flow.State().Scores, (PerPlayer<std::int16_t>{0, 1}));
  }
}

TEST_F(Chess, MateIsRefusedWithoutCheckAndOutOfTurn) {
  White.Dialogs.Expect({}, u"Su rey no está en jaque, por lo que no puede ser jaque mate. "_s);
  White.Flow.Run(ChessCommand::DeclareMate);
  for (const ChessCommand command : {ChessCommand::DeclareMate, ChessCommand::Resign, ChessCommand::OfferDraw}) {
    Black.Dialogs.Expect({}, box::kNotYourTurn);
    Black.Flow.Run(command);
  }
  Pair.Settle();
  for (const QString& token : {u"JMate|"_s, u"Abandona|"_s, u"SolTablas|"_s}) {
    EXPECT_TRUE(White.Connection.Sent.filter(token).isEmpty());
    EXPECT_TRUE(Black.Connection.Sent.filter(token).isEmpty());
  }
}

TEST_F(Chess, AResignationEndsTheGameOnce) {
  Pair.Play(u"e2e4"_s);
  Black.Dialogs.Expect({}, box::kGameLost);
  White.Dialogs.Expect({}, u"Luis abandona la partida."_s);
  White.Dialogs.Expect({}, box::kGameWon);
  Black.Flow.Run(ChessCommand::Resign);
  Pair.Settle();
  EXPECT_EQ(White.Screen.Moves, u"1. e2-e4 y las negras abandonan.  "_s);
  EXPECT_EQ(Black.Screen.Moves, u"1. e2-e4"_s);
  EXPECT_EQ(White.Flow.State().Scores, (PerPlayer<std::int16_t>{1, 0}));
  EXPECT_EQ(White.Flow.State().Scores, Black.Flow.State().Scores);
  Black.Flow.Run(ChessCommand::Resign);
  EXPECT_EQ(Black.Connection.Sent.filter(u"Abandona|"_s).size(), 1);
}

TEST_F(Chess, ADrawIsRefused) {
  Black.Dialogs.Expect(box::kDrawTitle, box::kDrawQuestion, Button::No);
  White.Dialogs.Expect({}, u"El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s);
  White.Flow.Run(ChessCommand::OfferDraw);
  EXPECT_EQ(White.Screen.Lines.last(),
            u"Ha solicitado al otro jugador que la partida termine en tablas. Por favor, espere a que él responda "
            u"antes de realizar cualquier otra acción."_s);
  Pair.Settle();
  EXPECT_EQ(Black.Connection.Sent.last(), u"SolTablasNo|"_s);
  EXPECT_EQ(Black.Screen.Lines.last(), u"Le toca mover al otro jugador."_s);
  EXPECT_FALSE(White.Flow.State().GameOver);
}

TEST_F(Chess, ADrawAddsHalfAPointRoundedToTheEvenNeighbour) {
  struct Game {
    std::optional<Player> Loser;  // by resignation; nothing: a draw
    PerPlayer<std::int16_t> Scores;
  };
  // A game and a draw, in turns: 0 : 0 stays, 1 : 0 becomes 2 : 0, 2 : 1 becomes 2 : 2, 3 : 2 becomes 4 : 2.
  const std::vector<Game> games{{std::nullopt, {0, 0}},   {Player::Client, {1, 0}}, {std::nullopt, {2, 0}},
                                {Player::Server, {2, 1}}, {std::nullopt, {2, 2}},   {Player::Client, {3, 2}},
                                {std::nullopt, {4, 2}}};
  for (const Game& game : games) {
    const Player turn = White.Flow.State().CurrentTurn;
    if (!game.Loser) {
      Pair.Copy(OpponentOf(turn)).Dialogs.Expect(box::kDrawTitle, box::kDrawQuestion, Button::Yes);
      Pair.Copy(OpponentOf(turn))
          .Dialogs.Expect({}, u"La partida termina en tablas, pulse en el tablero para continuar."_s);
      Pair.Copy(turn).Dialogs.Expect({},
                                     u"El otro jugador ha aceptado su propuesta. La partida termina en tablas, "
                                     u"pulse en el tablero para continuar."_s);
      Pair.Copy(turn).Flow.Run(ChessCommand::OfferDraw);
    } else {
      if (turn != game.Loser) Pair.Play(u"e2e4"_s);
      Pair.Copy(*game.Loser).Dialogs.Expect({}, box::kGameLost);
      Pair.Copy(OpponentOf(*game.Loser))
          .Dialogs.Expect({},
                          QString((game.Loser == Player::Server ? u"Ana"_s : u"Luis"_s) + u" abandona la partida."));
      Pair.Copy(OpponentOf(*game.Loser)).Dialogs.Expect({}, box::kGameWon);
      Pair.Copy(*game.Loser).Flow.Run(ChessCommand::Resign);
    }
    Pair.Settle();
    for (AjeCopy* copy : {&White, &Black}) {
      EXPECT_EQ(copy->Flow.State().Scores, game.Scores);
      EXPECT_EQ(copy->Flow.Winner().has_value(), game.Loser.has_value());
      EXPECT_EQ(copy->Screen.Moves.endsWith(u" y los jugadores acuerdan tablas."_s), !game.Loser);
    }
    for (AjeCopy* copy : {&White, &Black}) {
      copy->Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
      copy->Click(u"a1"_s);
      Pair.Settle();
    }
    for (AjeCopy* copy : {&White, &Black}) copy->Dialogs.AnswerBox = {};
  }
}

TEST_F(Chess, ARematchChangesColoursAndClearsAllTexts) {
  Pair.Play(u"e2e4"_s);
  Black.Dialogs.Expect({}, box::kGameLost);
  White.Dialogs.Expect({}, u"Luis abandona la partida."_s);
  White.Dialogs.Expect({}, box::kGameWon);
  Black.Flow.Run(ChessCommand::Resign);
  Pair.Settle();
  const QString score = u"Marcador actual: \r\nAna  1 : Luis 0\r\nComienza jugando Luis."_s;
  for (AjeCopy* copy : {&White, &Black}) {
    copy->Dialogs.Expect(box::kChess, box::kRematch, Button::Yes);
    copy->Dialogs.Expect(box::kNewGameTitle, score);
    copy->Flow.Pass(std::chrono::seconds(5));
  }
  White.Click(u"a1"_s);
  Pair.Settle();
  Black.Click(u"a1"_s);
  Pair.Settle();
  for (AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->Flow.WhitePlayer(), Player::Client);
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Client);
    EXPECT_EQ(copy->Flow.Game().Position(), StartPosition());
    EXPECT_EQ(copy->Screen.Moves, QString());
    EXPECT_EQ(copy->Screen.Messages, QString());
    EXPECT_EQ(copy->Screen.Clocks, u"00:00 / 00:00"_s);
    EXPECT_FALSE(copy->Flow.Timer1().IsRunning());
    EXPECT_EQ(copy->Flow.Winner(), std::nullopt);
    EXPECT_TRUE(copy->Screen.Position.startsWith(u"Jug. Nº 1. Mueven Blancas. "_s));
  }
  Pair.Play(u"e2e4"_s);
  EXPECT_EQ(White.At(u"e4"_s), PieceOf(kPawn, Colour::White)) << "Luis has moved";
}

TEST_F(Chess, AMoveThatArrivesAfterTheEndAsksForAnotherGameAsAClickDoes) {
  Black.Dialogs.Expect({}, u"Ana abandona la partida."_s);
  Black.Dialogs.Expect({}, box::kGameWon);
  Black.Connection.Receive(u"Abandona|"_s);
  Pair.Settle();
  Black.Dialogs.Expect(box::kChess, box::kRematch, Button::Yes);
  Black.Dialogs.Expect(box::kChess, box::kRematch, Button::Yes);
  Black.Connection.Receive(u"JUG|5 2 5 4 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"e4"_s), kNoPiece);
}

// ---- Every message at a moment that makes no sense ----

class StrayMessages : public testing::TestWithParam<const char16_t*> {};

TEST_P(StrayMessages, NeverEndTheWindow) {
  for (const bool game_over : {false, true}) {
    AjePair pair;
    pair.Connect();
    AjeCopy& copy = pair.Client;
    copy.Dialogs.AnswerBox = [](const QString&) { return Button::Yes; };
    copy.Dialogs.AnswerInput = [](const QString&) { return u"1"_s; };
    if (game_over) copy.Connection.Receive(u"JMate|"_s);
    pair.Settle();
    pair.Server.Dialogs.AnswerBox = copy.Dialogs.AnswerBox;
    pair.Server.Dialogs.AnswerInput = copy.Dialogs.AnswerInput;
    copy.Connection.Receive(QString::fromUtf16(GetParam()));
    pair.Settle();
    EXPECT_FALSE(copy.Finished);
    EXPECT_FALSE(pair.Server.Finished);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, StrayMessages,
                         testing::Values(u"JMate|", u"Abandona|", u"SolTablas|", u"SolTablasSi|", u"SolTablasNo|",
                                         u"cargpartida|", u"cargpartida|una partida.fen", u"cargpsi|", u"cargpno|",
                                         u"datospartida|", u"datospartida|nonsense", u"cargpturnos|",
                                         u"cargpturnos|0 1", u"cargpturnos|2 0 0", u"cargpturnos|0 -1 0",
                                         u"cargpturnos|a b c", u"cargpturnos|0 1 1 9", u"modolibre|",
                                         u"modolibre|modolibre|", u"JUG|5 2 5 4 False 0JMate|", u"Pasaturno|"));

TEST_F(Chess, TwoMessagesInOneReadBothCountInTheOrderOfTheTable) {
  Black.Dialogs.Expect({}, u"Ana se ha declarado en jaque mate."_s,
                       [&] { EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White)) << "the move comes first"; });
  Black.Dialogs.Expect({}, box::kGameWon);
  Black.Connection.Receive(u"JUG|5 2 5 4 JMate|"_s);
  Pair.Settle();
}

}  // namespace
}  // namespace brontavia::test
