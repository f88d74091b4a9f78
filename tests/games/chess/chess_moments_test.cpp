// ChessFlow: each message of a game, and the closing of the window, at each moment at which they can come.
#include <gtest/gtest.h>

#include "games/chess/chess_messages.h"
#include "games/chess/position_line.h"
#include "tests/games/chess/chess_moments.h"
#include "text/qt_text.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

std::string NameOf(const testing::TestParamInfo<Moment>& tested) { return tested.param.Name; }

class AtEveryMoment : public testing::TestWithParam<Moment> {};
INSTANTIATE_TEST_SUITE_P(Of, AtEveryMoment, testing::ValuesIn(Moments()), NameOf);

class WhileAnAnswerIsAwaited : public testing::TestWithParam<Moment> {};
INSTANTIATE_TEST_SUITE_P(At, WhileAnAnswerIsAwaited, testing::ValuesIn(BusyMoments()), NameOf);

// ---- The messages, each with all that it does, whenever it comes ----

enum class Ending { None, Won, Drawn };

struct Told {
  QString Text;
  std::vector<std::pair<QString, QString>> Boxes;  // title and text
  Button Answer = Button::Ok;                      // to the first of them
  QString Sent = {};
  QString Line = {};
  Ending End = Ending::None;
  QString ToMoves = {};
  QString Position = {};  // that is set up
  std::optional<ResumedTurns> Turns = {};
};

const std::vector<Told> kMessages{
    {.Text = u"JUG|5 2 5"_s},
    {.Text = u"JMate|"_s,
     .Boxes = {{{}, u"Luis se ha declarado en jaque mate."_s}, {{}, box::kGameWon}},
     .End = Ending::Won},
    {.Text = u"Abandona|"_s,
     .Boxes = {{{}, u"Luis abandona la partida."_s}, {{}, box::kGameWon}},
     .End = Ending::Won,
     .ToMoves = u" y las negras abandonan.  "_s},
    {.Text = u"SolTablas|"_s,
     .Boxes = {{box::kDrawTitle, box::kDrawQuestion}},
     .Answer = Button::No,
     .Sent = u"SolTablasNo|"_s,
     .Line = u"Le toca mover al otro jugador."_s},
    {.Text = u"SolTablas|"_s,
     .Boxes = {{box::kDrawTitle, box::kDrawQuestion},
               {{}, u"La partida termina en tablas, pulse en el tablero para continuar."_s}},
     .Answer = Button::Yes,
     .Sent = u"SolTablasSi|"_s,
     .End = Ending::Drawn,
     .ToMoves = u" y los jugadores acuerdan tablas."_s},
    {.Text = u"SolTablasSi|"_s,
     .Boxes = {{{},
                u"El otro jugador ha aceptado su propuesta. La partida termina en tablas, pulse en el tablero para "
                u"continuar."_s}},
     .End = Ending::Drawn,
     .ToMoves = u" y los jugadores acuerdan tablas."_s},
    {.Text = u"SolTablasNo|"_s,
     .Boxes = {{{}, u"El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s}}},
    {.Text = u"cargpartida|"_s,
     .Boxes = {{box::kResumeTitle,
                u"Luis desea reanudar la partida  . ¿Quiere usted también continuar jugando esa partida?"_s}},
     .Answer = Button::No,
     .Sent = u"cargpno|"_s},
    {.Text = u"cargpartida|a b.fen"_s,
     .Boxes = {{box::kResumeTitle,
                u"Luis desea reanudar la partida a b.fen . ¿Quiere usted también continuar jugando esa partida?"_s}},
     .Answer = Button::Yes,
     .Sent = u"cargpsi|"_s},
    {.Text = u"cargpno|"_s,
     .Boxes = {{{},
                u"Luis rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s}}},
    {.Text = u"datospartida|8/8/8/8/8/8/8/R6r/N - - 3 9"_s,
     .ToMoves = u"9. (...)"_s,
     .Position = u"8/8/8/8/8/8/8/R6r/N - - 3 9"_s},
    {.Text = u"datospartida|<b>"_s,
     .Boxes = {{u"Abrir partida "_s, u"El texto no contiene una posición de ajedrez."_s}}},
    {.Text = u"cargpturnos|1 1 0"_s,
     .Line = u"Posición cargada. Usted juega con  negras. Mueven  negras."_s,
     .Turns = ResumedTurns{Player::Client, Colour::Black, Player::Server}},
    {.Text = u"cargpturnos|0 7 0"_s},
    {.Text = u"cargpturnos|0 0"_s},
    {.Text = u"modolibre|modolibre|"_s, .Boxes = {{{}, u"Luis ha activado el modo libre."_s}}},
    {.Text = u"Nombre|Luis"_s, .Line = u"Va a jugar contra Luis"_s},
    {.Text = u"Turnodef|11"_s},
    {.Text = u"Haganado|"_s},
    {.Text = u"jmate|abandona|soltablas|"_s},
};

std::int16_t WithHalfPoint(std::int16_t score) { return static_cast<std::int16_t>(score + score % 2); }

// Lets `told` arrive and compares all that it did.
void ExpectDone(Ana& ana, const Told& told) {
  AjeCopy& copy = ana.Copy;
  const Session before = copy.Flow.State();
  const std::optional<Player> winner = copy.Flow.Winner();
  ChessPosition position = copy.Flow.Game().Position();
  const QString moves = copy.Screen.Moves;
  const qsizetype sent = copy.Connection.Sent.size();
  const qsizetype lines = copy.Screen.Lines.size();
  const qsizetype shown = copy.Dialogs.Shown.size();
  Button answer = told.Answer;
  for (const auto& [title, text] : told.Boxes) {
    const bool question = answer != Button::Ok;
    copy.Dialogs.Expect(title, text, answer, [&copy, &told, question] {
      EXPECT_TRUE(question || told.End == Ending::None || copy.Flow.State().GameOver)
          << "the end comes before its boxes";
    });
    answer = Button::Ok;
  }
  ana.Receive(told.Text);

  EXPECT_EQ(copy.Dialogs.Shown.size() - shown, static_cast<qsizetype>(told.Boxes.size()));
  EXPECT_EQ(copy.Connection.Sent.mid(sent), told.Sent.isEmpty() ? QStringList() : QStringList(told.Sent));
  EXPECT_EQ(copy.Screen.Lines.size() > lines, !told.Line.isEmpty());
  EXPECT_TRUE(copy.Screen.Lines.last() == told.Line || told.Line.isEmpty()) << qPrintable(copy.Screen.Lines.last());
  const Session& after = copy.Flow.State();
  auto scores = before.Scores;
  if (told.End == Ending::Won) ++scores.Server;
  if (told.End == Ending::Drawn) scores = {WithHalfPoint(scores.Server), WithHalfPoint(scores.Client)};
  EXPECT_EQ(after.Scores, scores);
  EXPECT_EQ(after.GameOver, before.GameOver || told.End != Ending::None);
  if (told.End == Ending::None) {
    EXPECT_EQ(copy.Flow.Winner(), winner);
  } else {
    EXPECT_EQ(copy.Flow.Winner(), told.End == Ending::Won ? std::optional(Player::Server) : std::nullopt);
  }
  const auto [white, side, turn] =
      told.Turns.value_or(ResumedTurns{before.StartingPlayer, position.SideToMove, before.CurrentTurn});
  EXPECT_EQ(after.StartingPlayer, white);
  EXPECT_EQ(after.CurrentTurn, turn);
  position.SideToMove = side;
  EXPECT_EQ(copy.Screen.Moves, told.Position.isEmpty() ? moves + told.ToMoves : told.ToMoves);
  if (told.Position.isEmpty()) {
    EXPECT_EQ(copy.Flow.Game().Position(), position);
  } else {
    EXPECT_EQ(ToQString(PositionLine(copy.Flow.Game().Position())), told.Position);
    EXPECT_FALSE(copy.Flow.Game().HasSelection());
  }
}

TEST_P(AtEveryMoment, EachMessageDoesWhatItSaysAndNothingElse) {
  for (const Told& told : kMessages) {
    SCOPED_TRACE(told.Text.toStdString());
    Ana ana;
    bool reached = false;
    GetParam().Reach(ana, [&] {
      reached = true;
      ExpectDone(ana, told);
    });
    EXPECT_TRUE(reached);
    EXPECT_FALSE(ana.Copy.Finished);
  }
}

// ---- What else can happen at each moment ----

TEST_P(AtEveryMoment, TheWindowClosesAndSaysNothingMore) {
  Ana ana;
  qsizetype shown = 0;
  qsizetype sent = 0;
  GetParam().Reach(ana, [&] {
    ana.Copy.Flow.CloseRequested();
    shown = ana.Copy.Dialogs.Shown.size();
    sent = ana.Copy.Connection.Sent.size();
  });
  ana.Pair.Settle();
  EXPECT_EQ(ana.Copy.Finished, AfterWindow::Selection);
  EXPECT_EQ(ana.Copy.Dialogs.Shown.size(), shown);
  EXPECT_EQ(ana.Copy.Connection.Sent.size(), sent);
}

TEST_P(AtEveryMoment, ARefusedRematchClosesTheWindow) {
  Ana ana;
  GetParam().Reach(ana, [&] {
    ana.Copy.Dialogs.Expect(
        {}, u"Luis no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s);
    ana.Receive(u"Seguir|NoJMate|"_s);
    EXPECT_TRUE(ana.Copy.Flow.Ended());
    EXPECT_EQ(ana.Copy.Screen.Messages, QString());
  });
  ana.Pair.Settle();
  EXPECT_EQ(ana.Copy.Finished, AfterWindow::Selection);
}

TEST_P(WhileAnAnswerIsAwaited, NothingElseIsCommanded) {
  Ana ana;
  GetParam().Reach(ana, [&] {
    AjeCopy& copy = ana.Copy;
    const ChessPosition position = copy.Flow.Game().Position();
    const qsizetype sent = copy.Connection.Sent.size();
    const QString status = copy.Screen.Status;
    for (const QString& square : {u"e2"_s, u"a1"_s, u"a7"_s}) copy.Click(square);
    for (const int key : {Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_F5}) copy.Flow.BoardKeyPressed(key);
    for (const ChessMenu& menu : kChessMenus) {
      for (const ChessMenuEntry& entry : menu.Entries) copy.Flow.Run(entry.Command);
    }
    EXPECT_EQ(copy.Flow.Game().Position(), position);
    EXPECT_FALSE(copy.Flow.Game().HasSelection());
    EXPECT_EQ(copy.Connection.Sent.size(), sent);
    EXPECT_EQ(copy.Screen.Status, status);
    EXPECT_EQ(copy.Screen.Beeps, 0);
    EXPECT_FALSE(copy.Flow.BoardFlipped());
  });
}

}  // namespace
}  // namespace brontavia::test
