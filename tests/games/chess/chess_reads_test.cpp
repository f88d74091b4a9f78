// ChessFlow: several messages in one read, moves that arrive while something waits, and lines that break in a wait.
#include <gtest/gtest.h>

#include <QFile>
#include <QTimer>

#include "tests/games/chess/profile.h"
#include "tests/support/aje_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kDrawn = u"La partida termina en tablas, pulse en el tablero para continuar."_s;
const QString kDrawAccepted =
    u"El otro jugador ha aceptado su propuesta. La partida termina en tablas, pulse en el tablero para continuar."_s;
// Each side promotes in the next move.
const QString kBothPromote = u"datospartida|7r/P7/8/8/8/8/6p1/R7/B - - 0 1"_s;

class ChessReads : public testing::Test {
 protected:
  ChessReads() { Pair.Connect(); }

  void SetUpPosition(const QString& message) {
    for (AjeCopy* copy : {&White, &Black}) copy->Connection.Receive(message);
    Pair.Settle();
  }

  AjePair Pair;
  AjeCopy& White = Pair.Server;
  AjeCopy& Black = Pair.Client;
};

TEST(ChessBeforeTheFirstTurn, NobodyMoves) {
  AjePair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  pair.Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Servidor"_s, u"Ana"_s);
  pair.Server.Dialogs.ExpectInput(box::kTurnTitle, box::kColourQuestion, u"3"_s, u"1"_s);
  pair.Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Luis"_s);
  pair.Client.Dialogs.ExpectInput(box::kTurnTitle, box::kColourQuestion, u"3"_s, u"2"_s, [&] {
    pair.Settle();
    pair.Server.Click(u"e2"_s);
    EXPECT_EQ(pair.Server.Screen.Status, box::kNotYourTurn);
    EXPECT_FALSE(pair.Server.Flow.Game().HasSelection());
  });
  pair.Ask();
  pair.Settle();
  pair.Play(u"e2e4"_s);
  EXPECT_EQ(pair.Client.At(u"e4"_s), PieceOf(kPawn, Colour::White));
}

// ---- Several messages in one read ----

struct Shown {
  QString Text;  // of the message
  QStringList Boxes;
};

// In the order in which they are looked for.
const std::vector<Shown> kWithoutFields{
    {u"JMate|"_s, {u": Ana se ha declarado en jaque mate."_s, u": "_s + box::kGameWon}},
    {u"Abandona|"_s, {u": Ana abandona la partida."_s, u": "_s + box::kGameWon}},
    {u"SolTablas|"_s, {box::kDrawTitle + u": " + box::kDrawQuestion}},
    {u"SolTablasSi|"_s, {u": "_s + kDrawAccepted}},
    {u"SolTablasNo|"_s, {u": El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s}},
    {u"cargpno|"_s,
     {u": Ana rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s}},
    {u"modolibre|"_s, {u": Ana ha activado el modo libre."_s}},
};

TEST_F(ChessReads, AnyTwoMessagesAreAnsweredInTheOrderInWhichTheyAreLookedFor) {
  for (std::size_t first = 0; first < kWithoutFields.size(); ++first) {
    for (std::size_t second = first + 1; second < kWithoutFields.size(); ++second) {
      const Shown& one = kWithoutFields[first];
      const Shown& other = kWithoutFields[second];
      for (const QString& read : QStringList{one.Text + other.Text, other.Text + one.Text}) {
        SCOPED_TRACE(read.toStdString());
        AjePair pair;
        pair.Connect();
        pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::No; };
        pair.Client.Dialogs.Shown.clear();
        pair.Server.Dialogs.AnswerBox = pair.Client.Dialogs.AnswerBox;
        pair.Client.Connection.Receive(read);
        pair.Settle();
        EXPECT_EQ(pair.Client.Dialogs.Shown, one.Boxes + other.Boxes);
      }
    }
  }
}

TEST_F(ChessReads, FieldsAreCutFromTheStartOfTheWholeRead) {
  Black.Dialogs.Expect({}, u"Ana se ha declarado en jaque mate."_s);
  Black.Dialogs.Expect({}, box::kGameWon);
  Black.Connection.Receive(u"JMate|JUG|5 2 5 4 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"e4"_s), kNoPiece) << "its first field begins with letters";
}

TEST_F(ChessReads, ADescriptionRunsToTheEndOfItsRead) {
  Black.Dialogs.Expect(
      u"Reanudar partida"_s,
      u"Ana desea reanudar la partida a.fencargpno| . ¿Quiere usted también continuar jugando esa partida?"_s,
      Button::No);
  Black.Dialogs.Expect(
      {}, u"Ana rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s);
  White.Dialogs.Expect(
      {}, u"Luis rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s);
  Black.Connection.Receive(u"cargpartida|a.fencargpno|"_s);
  Pair.Settle();
}

TEST_F(ChessReads, AMoveAndADrawOfferInOneReadAreBothAnswered) {
  Black.Dialogs.Expect(box::kDrawTitle, box::kDrawQuestion, Button::No,
                       [&] { EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White)); });
  White.Dialogs.Expect({}, u"El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s);
  Black.Connection.Receive(u"JUG|5 2 5 4 False 0SolTablas|"_s);
  Pair.Settle();
}

TEST_F(ChessReads, TwoMovesInOneReadAreTheFirstOne) {
  Black.Connection.Receive(u"JUG|5 2 5 4 False 0JUG|5 7 5 5 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White));
  EXPECT_EQ(Black.At(u"e7"_s), PieceOf(kPawn, Colour::Black));
}

TEST_F(ChessReads, AMoveThatIsCutIsNoMove) {
  Black.Connection.BytesPerRead = 6;
  White.Click(u"e2"_s);
  White.Click(u"e4"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"e4"_s), kNoPiece);
  EXPECT_EQ(Black.Flow.State().CurrentTurn, Player::Server);
}

// ---- Moves that arrive while something waits ----

TEST_F(ChessReads, AMoveAfterAnOfferIsPlayedWhileTheOfferIsAnswered) {
  Black.Dialogs.Expect(box::kDrawTitle, box::kDrawQuestion, Button::Yes, [&] {
    Pair.Play(u"e2e4"_s);
    EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White));
    EXPECT_EQ(Black.Flow.State().CurrentTurn, Player::Client);
  });
  Black.Dialogs.Expect({}, kDrawn);
  White.Dialogs.Expect({}, kDrawAccepted);
  White.Flow.Run(ChessCommand::OfferDraw);
  Pair.Settle();
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_TRUE(copy->Flow.State().GameOver);
    EXPECT_EQ(copy->Screen.Moves, u"1. e2-e4 y los jugadores acuerdan tablas."_s);
  }
}

TEST_F(ChessReads, ADrawAgreedWhileThePawnIsChosenLeavesTheChoice) {
  SetUpPosition(kBothPromote);
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s, [&] {
    White.Dialogs.Expect({}, kDrawAccepted);
    White.Connection.Receive(u"SolTablasSi|"_s);
    Pair.Settle();
  });
  Black.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Dama"_s);
  White.Click(u"a7"_s);
  White.Click(u"a8"_s);
  Pair.Settle();
  EXPECT_TRUE(White.Flow.State().GameOver);
  EXPECT_EQ(White.At(u"a8"_s), PieceOf(kQueen, Colour::White));
  EXPECT_EQ(White.Connection.Sent.last(), u"JUG|1 7 1 8 False 5"_s);
}

TEST_F(ChessReads, AMoveOfTheOtherSideIsRefusedWhileThePawnIsChosen) {
  SetUpPosition(kBothPromote);
  White.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Torre"_s, [&] {
    White.Connection.Receive(u"JUG|8 8 8 7 False 0"_s);
    Pair.Settle();
    EXPECT_EQ(White.Screen.Status, u"Le toca mover a las blancas."_s);
  });
  Black.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Torre"_s);
  White.Click(u"a7"_s);
  White.Click(u"a8"_s);
  Pair.Settle();
  EXPECT_EQ(White.At(u"h8"_s), PieceOf(kKing, Colour::Black));
  EXPECT_EQ(White.Connection.Sent.last(), u"JUG|1 7 1 8 False 2"_s) << "the own move is sent all the same";
}

TEST_F(ChessReads, BothSidesPromoteToTheirOwnColour) {
  SetUpPosition(kBothPromote);
  for (AjeCopy* copy : {&White, &Black}) {
    copy->Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Caballo"_s);
    copy->Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Caballo"_s);
  }
  Pair.Play(u"a7a8 g2g1"_s);
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->At(u"a8"_s), PieceOf(kKnight, Colour::White));
    EXPECT_EQ(copy->At(u"g1"_s), PieceOf(kKnight, Colour::Black));
    EXPECT_EQ(copy->Screen.Lines.last(), u"Peón negro de g2 a g1 Promociona a Caballo blanco"_s);
    EXPECT_TRUE(copy->Screen.Moves.endsWith(u", g2-g1=C\r\n"_s));
  }
  EXPECT_EQ(Black.Connection.Sent.last(), u"JUG|7 2 7 1 False 3"_s);
  EXPECT_EQ(White.Connection.Sent.filter(u"JUG|7"_s).size(), 0) << "what is replayed is not sent back";
}

TEST_F(ChessReads, AReceivedPromotionIsNotSentBackWhateverElseArrives) {
  SetUpPosition(kBothPromote);
  const qsizetype sent = Black.Connection.Sent.size();
  Black.Dialogs.ExpectMenu(u"MnuPromo"_s, box::kPromotionMenu, u"&Alfil"_s, [&] {
    Black.Connection.Receive(u"JUG|8 8 8 7 False 0"_s);
    Pair.Settle();
  });
  Black.Connection.Receive(u"JUG|1 7 1 8 False 4"_s);
  Pair.Settle();
  EXPECT_EQ(Black.At(u"a8"_s), PieceOf(kBishop, Colour::White));
  EXPECT_EQ(Black.Connection.Sent.size(), sent);
}

TEST_F(ChessReads, AMoveAfterTheEndAsksNoMoreOnceTheWindowCloses) {
  Black.Dialogs.Expect({}, u"Ana abandona la partida."_s);
  Black.Dialogs.Expect({}, box::kGameWon);
  Black.Dialogs.Expect(box::kChess, box::kRematch, Button::No);
  White.Dialogs.Expect({},
                       u"Luis no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s);
  Black.Connection.Receive(u"Abandona|"_s);
  Pair.Settle();
  Black.Connection.Receive(u"JUG|5 2 5 4 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(Black.Finished, AfterWindow::Selection);
  EXPECT_EQ(Black.Screen.Status, QString());
}

TEST_F(ChessReads, AReceivedMoveThatIsNotAllowedIsAnsweredByNothing) {
  const qsizetype sent = Black.Connection.Sent.size();
  Black.Connection.Receive(u"JUG|5 2 5 5 False 0"_s);
  Pair.Settle();
  EXPECT_EQ(Black.Screen.Status, u"Movimiento incorrecto. "_s);
  Black.Click(u"e7"_s);
  EXPECT_EQ(Black.Screen.Status, box::kNotYourTurn) << "the replay is over";
  EXPECT_EQ(Black.Connection.Sent.size(), sent);
}

// Offers a saved position, which `meanwhile` may change before the other side agrees.
void Offer(AjePair& pair, const std::function<void(QFile& file)>& meanwhile) {
  const Profile files;
  const QString path = files.InFolder(u"w.fen"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("8/8/8/8/8/8/8/R6r/B - - 0 1\r\n");
  file.close();
  pair.Server.Dialogs.ExpectFile({.Title = u"Abrir partida "_s,
                                  .Filter = u"Notación FEN (*.fen)|*.fen|Todos los archivos (*.*)|*.*"_s,
                                  .Path = files.Folder()},
                                 path);
  pair.Client.Dialogs.AnswerBox = [&](const QString&) {
    meanwhile(file);
    return Button::Yes;
  };
  pair.Server.Flow.Run(ChessCommand::OpenGame);
  pair.Settle();
}

TEST_F(ChessReads, AFileThatHoldsNoPositionAnyMoreIsNotSent) {
  const std::vector<std::function<void(QFile&)>> changes{[](QFile& file) { file.remove(); },
                                                         [](QFile& file) { file.resize(4); }};
  for (const auto& change : changes) {
    AjePair pair;
    pair.Connect();
    pair.Server.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
    Offer(pair, change);
    EXPECT_TRUE(pair.Server.Screen.Lines.contains(u"Se aceptó la solicitud, cargando la partida."_s));
    EXPECT_TRUE(pair.Server.Connection.Sent.filter(u"datospartida|"_s).isEmpty());
    EXPECT_EQ(pair.Server.Flow.Game().Position(), StartPosition());
  }
}

TEST_F(ChessReads, APositionThatDidNotArriveIsNotSetUp) {
  QTimer watch;
  watch.callOnTimeout([&] {
    if (!White.Connection.Sent.last().startsWith(u"datospartida|")) return;
    watch.stop();
    White.Connection.Break();
  });
  Offer(Pair, [&](QFile&) {
    White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);  // of the position
    White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);  // of the offer, whose wait lies below
    White.Connection.HoldSendComplete = true;
    watch.start(1);
  });
  EXPECT_EQ(White.Flow.Game().Position(), StartPosition());
  EXPECT_FALSE(White.Finished);
}

// ---- Lines that break ----

TEST_F(ChessReads, AFreeModeThatCannotBeToldStaysOff) {
  White.Connection.Break();
  Pair.Settle();
  White.Dialogs.Expect(box::kFreeModeTitle, box::kFreeModeQuestion, Button::Yes);
  White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  White.Flow.Run(ChessCommand::FreeMode);
  EXPECT_FALSE(White.Flow.FreeMode());
}

TEST_F(ChessReads, AnOfferThatCannotBeSentIsNotTold) {
  White.Connection.Break();
  Pair.Settle();
  const qsizetype lines = White.Screen.Lines.size();
  White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  White.Flow.Run(ChessCommand::OfferDraw);
  EXPECT_EQ(White.Screen.Lines.size(), lines);
}

TEST_F(ChessReads, AMoveThatCannotBeSentIsTakenBack) {
  White.Connection.Break();
  Pair.Settle();
  White.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  White.Click(u"e2"_s);
  White.Click(u"e4"_s);
  EXPECT_EQ(White.Flow.Game().Position(), StartPosition());
  EXPECT_EQ(White.Shown(u"e2"_s), (CellContent{.Text = u"P"_s, .Marks = Mark::Selected}));
  EXPECT_EQ(White.Screen.Moves, QString());
  EXPECT_EQ(White.Flow.State().CurrentTurn, Player::Server);
  EXPECT_FALSE(White.Finished);
}

TEST_F(ChessReads, AResumeWhoseLineBreaksLeavesThePosition) {
  Black.Dialogs.Expect(u"Reanudar partida"_s,
                       u"Ana desea reanudar la partida w.fen . ¿Quiere usted también continuar jugando esa partida?"_s,
                       Button::Yes, [&] {
                         Black.Connection.Break();
                         Pair.Settle();
                       });
  Black.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
  Black.Connection.Receive(u"cargpartida|w.fen"_s);
  Pair.Settle();
  EXPECT_EQ(Black.Flow.Game().Position(), StartPosition());
  EXPECT_FALSE(Black.Finished);
}

}  // namespace
}  // namespace brontavia::test
