// The handshake and the rematch as each of the five windows words them.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "net/game_flow.h"
#include "tests/support/ter_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

using Messages = std::vector<const Message*>;

// What the window understands besides the handshake and the rematch.
Messages OwnMessagesOf(const WindowTraits& window) {
  const Messages shared{&message::kName, &message::kTurnChoice, &message::kTurnDecided, &message::kRematchYes,
                        &message::kRematchNo};
  Messages own;
  std::ranges::copy_if(window.Messages, std::back_inserter(own),
                       [&](const Message* message) { return std::ranges::count(shared, message) == 0; });
  return own;
}

// A game without a board, which answers `own` besides the handshake and the rematch.
class PlainGame : public GameFlow {
 public:
  PlainGame(const WindowTraits& window, const Seams& seams, const Messages& own) : GameFlow(window, seams, 1) {
    for (const Message* message : own) On(*message, [](const QString&) {});
  }

  void ClickAfterTheEnd() {
    session_.GameOver = true;
    RunUserAction([this] { AskForRematch(); });
  }

 protected:
  void ResetForSession() override {}
  void ResetForNewGame() override { session_.GameOver = false; }
  void DescribeSide(Player /*player*/, ScoreboardSide& /*side*/) const override {}
  [[nodiscard]] KeyHints Keys() const override { return {}; }
};

struct PlainCopy {
  PlainCopy(Role role, const WindowTraits& window) : PlainCopy(role, window, OwnMessagesOf(window)) {}
  PlainCopy(Role role, const WindowTraits& window, const Messages& own)
      : Values{.PlayerRole = role},
        Flow(window,
             {.Connection = Connection,
              .Dialogs = Dialogs,
              .Screen = Screen,
              .Values = Values,
              .FreeBetweenBoxes = std::chrono::milliseconds(0)},
             own) {}

  TestConnection Connection;
  ScriptedDialogs Dialogs{u"copy"_s};
  RecordingScreen Screen;
  ProcessValues Values;
  PlainGame Flow;
};

struct Wording {
  const WindowTraits* Window;
  QString Suffix;
  QString Question;
  QString MutualReport;  // both want the server
  QString DrawOpening;
  QString RematchTitle;
  QString NewGameLine;  // Ana begins
  bool Beeps;
};

const QString kTurnQuestion =
    u"Indique qué jugador empezará la partida: 1 = yo empiezo; 2 = Él empieza; 3 = Sortear."_s;

class EveryWindow : public testing::TestWithParam<Wording> {
 protected:
  EveryWindow() : Server(Role::Server, *GetParam().Window), Client(Role::Client, *GetParam().Window) {
    TestConnection::Join(Server.Connection, Client.Connection);
  }

  void Settle() {
    do {
      QCoreApplication::processEvents();
    } while (!Server.Connection.Quiet() || !Client.Connection.Quiet());
    QCoreApplication::processEvents();
  }

  void Connect(const QString& server_choice, const QString& client_choice) {
    Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
    Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Servidor"_s, u"Ana"_s);
    Server.Dialogs.ExpectInput(box::kTurnTitle, GetParam().Question, u"3"_s, server_choice);
    Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, u"Cliente"_s, u"Luis"_s);
    Client.Dialogs.ExpectInput(box::kTurnTitle, GetParam().Question, u"3"_s, client_choice);
    Server.Flow.Load();
    Client.Flow.Load();
    Client.Flow.CBConLocalClicked();
    Settle();
  }

  PlainCopy Server;
  PlainCopy Client;
};

TEST_P(EveryWindow, ReportsAMutualDecisionAndBeepsOrNot) {
  Connect(u"1"_s, u"2"_s);
  EXPECT_EQ(Client.Screen.Caption, QString(u"Luis" + GetParam().Suffix));
  EXPECT_EQ(Client.Screen.Lines.last(), GetParam().MutualReport);
  if (GetParam().Window != &kFormTER) {
    EXPECT_EQ(Server.Screen.Lines.last(), GetParam().MutualReport) << "the same at every moment";
  }
  EXPECT_EQ(Client.Screen.Beeps, GetParam().Beeps ? 2 : 0);
}

TEST_P(EveryWindow, ReportsADraw) {
  Connect(u"3"_s, u"3"_s);
  EXPECT_TRUE(Client.Screen.Lines.last().startsWith(GetParam().DrawOpening))
      << Client.Screen.Lines.last().toStdString();
  EXPECT_EQ(Client.Screen.Lines.last(), Server.Screen.Lines.last());
}

TEST_P(EveryWindow, AsksForAnotherGameAndTellsTheScore) {
  Connect(u"1"_s, u"2"_s);
  const QString score = u"Marcador actual: \r\nAna  0 : Luis 0\r\n" + GetParam().NewGameLine;
  for (PlainCopy* copy : {&Server, &Client}) {
    copy->Dialogs.Expect(GetParam().RematchTitle, box::kRematch, Button::Yes);
    copy->Dialogs.Expect(box::kNewGameTitle, score);
  }
  Server.Flow.ClickAfterTheEnd();
  Settle();
  Client.Flow.ClickAfterTheEnd();
  Settle();
}

TEST_P(EveryWindow, StartsNoSessionUnlessItsHandlersAreThoseOfItsMessages) {
  const Messages right = OwnMessagesOf(*GetParam().Window);
  Messages missing = right;
  missing.pop_back();
  Messages strange = right;
  strange.push_back(&message::kAccepted);
  Messages exchanged = missing;
  exchanged.push_back(&message::kAccepted);
  for (const Messages& own : {right, missing, strange, exchanged}) {
    PlainCopy copy(Role::Client, *GetParam().Window, own);
    copy.Dialogs.AnswerInput = [](const QString&) { return u"3"_s; };
    copy.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };  // nobody is connected
    copy.Flow.Load();
    copy.Connection.Receive(QString(u"Solicitud aceptada|" + GetParam().Window->GameCode));
    QCoreApplication::processEvents();
    EXPECT_EQ(copy.Screen.Visible[Frame::FrJuego], own == right);
    EXPECT_EQ(copy.Dialogs.Shown.isEmpty(), own != right);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Named, EveryWindow,
    testing::Values(
        Wording{&kFormTER, u" - Tres en raya"_s, kTurnQuestion,
                u"Por decisión mutua comienza jugando Ana. Ana es su turno. "_s,
                u"Tras realizar el sorteo, comienza jugando "_s, u"Tres en raya"_s, u"Comienza jugando Ana."_s, true},
        Wording{&kFormBAR, u" - Batalla naval"_s, kTurnQuestion, u"Por decisión mutua comenzará jugando Ana. "_s,
                u"Tras realizar el sorteo, comenzará jugando "_s, u"Batalla naval"_s,
                u"Comenzará jugando Ana. Coloque sus barcos."_s, true},
        Wording{&kFormMES, u" - Mini-Estratega"_s, kTurnQuestion, u"Por decisión mutua comenzará jugando Ana. "_s,
                u"Tras realizar el sorteo, comenzará jugando "_s, u"Mini Estratega"_s,
                u"Comenzará jugando Ana. Coloque su ejército."_s, true},
        Wording{&kFormEST, u" - Estratega"_s, kTurnQuestion, u"Por decisión mutua comenzará jugando Ana. "_s,
                u"Tras realizar el sorteo, comenzará jugando "_s, u"Estratega"_s,
                u"Comenzará jugando Ana. Coloque su ejército."_s, true},
        Wording{&kFormAje, u" - Ajedrez"_s, u"Indique qué jugador Jugará con blancas: 1 = yo; 2 = Él; 3 = Sortear."_s,
                u"Por decisión mutua jugará  con blancas Ana. Ana,  realice su primer movimiento."_s,
                u"Tras realizar el sorteo, jugará  con blancas "_s, u"Ajedrez"_s, u"Comienza jugando Ana."_s, false}),
    [](const auto& tested) { return tested.param.Window->Window.toString().toStdString(); });

}  // namespace
}  // namespace brontavia::test
