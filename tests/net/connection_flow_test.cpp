#include "net/connection_flow.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <chrono>

#include "tests/support/all_windows.h"
#include "tests/support/ter_pair.h"
#include "tests/support/waiting.h"
#include "text/qt_text.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// A window of any game whose session does nothing but remember.
class BareFlow : public ConnectionFlow {
 public:
  using ConnectionFlow::ConnectionFlow;
  using ConnectionFlow::RunUserAction;
  using ConnectionFlow::Send;
  using ConnectionFlow::SendAndWait;
  using ConnectionFlow::ShowBox;

  int Sessions = 0;
  QStringList Received;
  std::function<void(const QString&)> OnMessage;

 protected:
  void StartSession() override { ++Sessions; }
  void HandleMessage(const QString& text) override {
    Received << text;
    if (OnMessage) OnMessage(text);
  }
};

struct BareCopy {
  explicit BareCopy(Role role, const WindowTraits& window = kFormTER, std::chrono::milliseconds free_between_boxes = {})
      : Values{.ConnectionPort = 4000, .PlayerRole = role, .RemoteAddress = u"left over"_s},
        Flow(window, {.Connection = Connection,
                      .Dialogs = Dialogs,
                      .Screen = Screen,
                      .Values = Values,
                      .FreeBetweenBoxes = free_between_boxes}) {
    QObject::connect(&Flow, &ConnectionFlow::Finished, &Flow, [this](AfterWindow after) { Finished = after; });
  }

  TestConnection Connection;
  ScriptedDialogs Dialogs{u"copy"_s};
  RecordingScreen Screen;
  ProcessValues Values;
  std::optional<AfterWindow> Finished;
  BareFlow Flow;
};

// A server and a client of one window, the request not yet made.
struct BarePair {
  explicit BarePair(const WindowTraits& window = kFormTER, std::chrono::milliseconds free_between_boxes = {})
      : Server(Role::Server, window, free_between_boxes), Client(Role::Client, window, free_between_boxes) {
    TestConnection::Join(Server.Connection, Client.Connection);
    Server.Flow.Load();
    Client.Flow.Load();
  }

  void Settle() {
    do {
      QCoreApplication::processEvents();
    } while (!Server.Connection.Quiet() || !Client.Connection.Quiet());
    QCoreApplication::processEvents();
  }

  void Connect() {
    Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
    Client.Flow.CBConLocalClicked();
    Settle();
  }

  BareCopy Server;
  BareCopy Client;
};

const QString kAddressPrompt = u"¿Con qué ordenador desea conectar? Introduzca su IP: "_s;

// ---- Loading ----

TEST(ConnectionFlow, ServerListensOnItsPortAndGuidesItsUser) {
  BareCopy server(Role::Server);
  server.Flow.Load();
  EXPECT_EQ(server.Connection.ListeningPort, 4000);
  EXPECT_EQ(server.Flow.OwnPlayer(), Player::Server);
  EXPECT_EQ(server.Values.RemoteAddress, QString());
  EXPECT_EQ(server.Screen.Caption, u"BRONTAVIA - TRES EN RAYA"_s);
  EXPECT_TRUE(server.Screen.Visible[Frame::FrServidor]);
  EXPECT_FALSE(server.Screen.Visible[Frame::FrCliente]);
  EXPECT_FALSE(server.Screen.Visible[Frame::FrJuego]);
}

TEST(ConnectionFlow, ClientWaitsForItsUser) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  EXPECT_EQ(client.Connection.State(), ConnectionState::Closed);
  EXPECT_EQ(client.Flow.OwnPlayer(), Player::Client);
  EXPECT_FALSE(client.Screen.Visible[Frame::FrServidor]);
  EXPECT_TRUE(client.Screen.Visible[Frame::FrCliente]);
  EXPECT_FALSE(client.Screen.Visible[Frame::FrJuego]);
  EXPECT_TRUE(client.Connection.Targets.isEmpty());
}

TEST(ConnectionFlow, FailedListenTellsTheReasonAndEndsTheProgramAsFailed) {
  BareCopy server(Role::Server);
  server.Connection.ListenFailure = u"ya está en uso"_s;
  server.Dialogs.Expect(u"Error"_s, u"No se puede escuchar en el puerto 4000: ya está en uso"_s);
  server.Flow.Load();
  EXPECT_EQ(server.Finished, AfterWindow::ProcessEndsFailed);
}

// ---- Connecting ----

struct AddressCase {
  const char* Name;
  const WindowTraits* Window;
  QString BeforeAsking;  // RemoteAddress while the box is open
  QString Typed;
  QString Target;  // empty: cancelled
};

class AddressBoxOf : public testing::TestWithParam<AddressCase> {};

TEST_P(AddressBoxOf, TreatsTheAnswerAsItsWindowDoes) {
  const AddressCase& row = GetParam();
  BareCopy client(Role::Client, *row.Window);
  client.Flow.Load();
  client.Dialogs.ExpectInput(u"Conectar"_s, kAddressPrompt, {}, row.Typed,
                             [&] { EXPECT_EQ(client.Values.RemoteAddress, row.BeforeAsking); });
  if (row.Target.isEmpty()) client.Dialogs.Expect(u"Conectar"_s, u"Conexión cancelada"_s);
  client.Flow.CbConectarClicked();
  if (row.Target.isEmpty()) {
    EXPECT_TRUE(client.Connection.Targets.isEmpty());
    EXPECT_EQ(client.Values.RemoteAddress, QString());
  } else {
    EXPECT_EQ(client.Connection.Targets, QStringList(row.Target + u":4000"));
  }
}

INSTANTIATE_TEST_SUITE_P(Window, AddressBoxOf,
                         testing::Values(AddressCase{"TerAsTyped", &kFormTER, u""_s, u" mi pc "_s, u" mi pc "_s},
                                         AddressCase{"TerOneBlank", &kFormTER, u""_s, u" "_s, u" "_s},
                                         AddressCase{"TerEmpty", &kFormTER, u""_s, u""_s, u""_s},
                                         AddressCase{"BarTrims", &kFormBAR, u" "_s, u" mi pc "_s, u"mi pc"_s},
                                         AddressCase{"BarOneBlankIsLocal", &kFormBAR, u" "_s, u" "_s, u"127.0.0.1"_s},
                                         AddressCase{"BarEmpty", &kFormBAR, u" "_s, u""_s, u""_s},
                                         AddressCase{"MesAsTyped", &kFormMES, u"127.0.0.1"_s, u" pc "_s, u" pc "_s},
                                         AddressCase{"MesEmpty", &kFormMES, u"127.0.0.1"_s, u""_s, u""_s},
                                         AddressCase{"EstAsTyped", &kFormEST, u"127.0.0.1"_s, u"10.0.0.1"_s,
                                                     u"10.0.0.1"_s},
                                         AddressCase{"AjeEmpty", &kFormAje, u"127.0.0.1"_s, u""_s, u""_s}),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(ConnectionFlow, LocalConnectionAsksNothing) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  client.Flow.CBConLocalClicked();
  EXPECT_EQ(client.Connection.Targets, QStringList(u"127.0.0.1:4000"_s));
  EXPECT_EQ(client.Values.RemoteAddress, u"127.0.0.1"_s);
}

TEST(ConnectionFlow, CancelledAddressLeavesTheSocketUntouched) {
  BarePair pair;
  pair.Client.Flow.CBConLocalClicked();
  pair.Client.Dialogs.ExpectInput(u"Conectar"_s, kAddressPrompt, {}, {});
  pair.Client.Dialogs.Expect(u"Conectar"_s, u"Conexión cancelada"_s);
  pair.Client.Flow.CbConectarClicked();
  EXPECT_EQ(pair.Client.Connection.State(), ConnectionState::Connecting);
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Cancel);
  pair.Settle();
}

// ---- The request ----

TEST(ConnectionFlow, AcceptedRequestSendsTheGameCodeAndStartsBothSessions) {
  for (const WindowTraits* window : kAllWindows) {
    BarePair pair(*window);
    pair.Connect();
    EXPECT_EQ(pair.Server.Connection.Sent, QStringList(u"Solicitud aceptada|" + window->GameCode));
    EXPECT_FALSE(pair.Server.Screen.Visible[Frame::FrServidor]);
    EXPECT_FALSE(pair.Client.Screen.Visible[Frame::FrCliente]);
    EXPECT_EQ(pair.Client.Screen.Messages, u"\r\nConexión establecida.Listo para jugar."_s);
    EXPECT_EQ(pair.Server.Flow.Sessions, 1);
    EXPECT_EQ(pair.Client.Flow.Sessions, 1);
  }
}

TEST(ConnectionFlow, RefusedRequestKeepsListeningAndTheNextOneIsAskedAgain) {
  BarePair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Cancel);
  pair.Client.Flow.CBConLocalClicked();
  pair.Settle();
  EXPECT_EQ(pair.Server.Connection.State(), ConnectionState::Listening);
  EXPECT_EQ(pair.Server.Flow.Sessions, 0);
  pair.Connect();
  EXPECT_EQ(pair.Server.Flow.Sessions, 1);
}

TEST(ConnectionFlow, RequesterWhoHasGoneIsToldAndListeningGoesOn) {
  BarePair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok, [&] { pair.Client.Connection.Close(); });
  pair.Server.Dialogs.Expect(box::kRequestTitle, u"El otro jugador ya ha cancelado su solicitud de conexión."_s);
  pair.Client.Flow.CBConLocalClicked();
  pair.Settle();
  EXPECT_EQ(pair.Server.Connection.State(), ConnectionState::Listening);
  EXPECT_EQ(pair.Server.Flow.Sessions, 0);
}

TEST(ConnectionFlow, WrongGameClosesTheClientAndNotTheServer) {
  BareCopy server(Role::Server, kFormEST);
  BareCopy client(Role::Client, kFormTER);
  TestConnection::Join(server.Connection, client.Connection);
  server.Flow.Load();
  client.Flow.Load();
  server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  client.Dialogs.Expect(
      u"Error"_s,
      u"Ha elegido un juego diferente que el servidor. La conexión se va a cancelar y la ventana se cerrará"_s,
      [&] { client.Connection.Receive(u"Nombre|late"_s), QCoreApplication::processEvents(); });
  client.Flow.CBConLocalClicked();
  while (!client.Finished) QCoreApplication::processEvents();
  EXPECT_EQ(client.Finished, AfterWindow::Selection);
  EXPECT_EQ(client.Screen.Messages, u"\r\nConexión establecida.Listo para jugar."_s);
  EXPECT_EQ(client.Flow.Sessions, 0);
  EXPECT_TRUE(client.Flow.Received.isEmpty());
  EXPECT_FALSE(server.Finished);
  EXPECT_EQ(server.Flow.Sessions, 1);
}

// ---- Reading and sending ----

TEST(ConnectionFlow, NothingReceivedIsNoMessage) {
  BarePair pair;
  pair.Connect();
  emit pair.Server.Connection.DataArrival();
  EXPECT_TRUE(pair.Server.Flow.Received.isEmpty());
}

TEST(ConnectionFlow, ReadsArriveWhileAnotherWaitsButAtMostEightAreUnderWay) {
  BarePair pair;
  pair.Connect();
  BareFlow& flow = pair.Client.Flow;
  pair.Client.Connection.HoldSendComplete = true;
  int deepest = 0;
  int depth = 0;
  flow.OnMessage = [&](const QString&) {
    deepest = std::max(deepest, ++depth);
    // Behind the twelve that might still come, the line is cut and every wait ends.
    if (depth == 8) QTimer::singleShot(0, &flow, [&] { pair.Client.Connection.Break(); });
    flow.SendAndWait(u"answer"_s);
    --depth;
  };
  pair.Client.Dialogs.AnswerBox = [](const QString&) { return Button::Ok; };
  for (const QChar c : u"abcdefghijklmnopqrst"_s) pair.Client.Connection.Receive(c);
  pair.Settle();
  EXPECT_EQ(deepest, 8);
  EXPECT_EQ(depth, 0);
}

TEST(ConnectionFlow, ReadsArriveWhileABoxIsOpenUntilThreeBoxesAre) {
  BarePair pair;
  pair.Connect();
  BareFlow& flow = pair.Client.Flow;
  int deepest = 0;
  int depth = 0;
  flow.OnMessage = [&](const QString&) {
    deepest = std::max(deepest, ++depth);
    flow.ShowBox(u"open"_s, u"box"_s);
    --depth;
  };
  // Every box stays open until all that can be handled meanwhile has been.
  constexpr int kHandled = 4;  // three nested, then one read with all the rest
  for (int i = 0; i < kHandled; ++i) {
    pair.Client.Dialogs.Expect(u"box"_s, u"open"_s, [] { QCoreApplication::processEvents(); });
  }
  const QString alphabet = u"abcdefghijklmnopqrst"_s;
  for (const QChar c : alphabet) pair.Client.Connection.Receive(c);
  pair.Settle();
  EXPECT_EQ(deepest, 3);
  EXPECT_EQ(flow.Received.join(QString()), alphabet) << "nothing is lost";
}

// ---- Boxes that a peer opens one after another ----

// The window's user closes each box as soon as it opens; the time that passes meanwhile is the test's.
struct Flooded {
  Flooded() {
    Pair.Connect();
    Pair.Client.Flow.OnMessage = [this](const QString&) { Pair.Client.Flow.ShowBox(u"open"_s, u"box"_s); };
    Pair.Client.Dialogs.AnswerBox = [this](const QString&) {
      ++Boxes;
      return Button::Ok;
    };
  }

  // Ten texts, each a read of its own.
  void Flood() {
    for (int text = 0; text < 10; ++text) {
      Pair.Client.Connection.Receive(u"Haganado|0"_s);
      QCoreApplication::processEvents();
    }
  }

  BarePair Pair{kFormEST, 1h};
  int Boxes = 0;
};

TEST(BoxesOfAPeer, AfterThreeInARowTheRestIsNotReadUntilTheWindowHasBeenFree) {
  Flooded flooded;
  flooded.Flood();
  EXPECT_EQ(flooded.Boxes, 3);
  EXPECT_EQ(flooded.Pair.Client.Flow.Received.size(), 3);
}

TEST(BoxesOfAPeer, WhatTheUserDoesBeginsANewRow) {
  Flooded flooded;
  flooded.Flood();
  flooded.Pair.Client.Flow.RunUserAction([] {});
  QCoreApplication::processEvents();
  EXPECT_EQ(flooded.Boxes, 4) << "what had come meanwhile is one read";
}

TEST(BoxesOfAPeer, TheWindowCanBeClosedBetweenThem) {
  Flooded flooded;
  flooded.Flood();
  flooded.Pair.Client.Flow.CloseRequested();
  EXPECT_EQ(flooded.Pair.Client.Finished, AfterWindow::Selection);
}

TEST(BoxesOfAPeer, ABoxThatWaitsEndsWithTheWindow) {
  Flooded flooded;
  flooded.Pair.Client.Flow.OnMessage = [&](const QString&) {
    QTimer::singleShot(0, &flooded.Pair.Client.Flow, [&] { flooded.Pair.Client.Flow.CloseRequested(); });
    for (int box = 0; box < 4; ++box) flooded.Pair.Client.Flow.ShowBox(u"open"_s, u"box"_s);
    ADD_FAILURE() << "the fourth waits until the window ends";
  };
  flooded.Pair.Client.Connection.Receive(u"Haganado|0"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(flooded.Boxes, 3);
  EXPECT_EQ(flooded.Pair.Client.Finished, AfterWindow::Selection);
}

TEST(BoxesOfAPeer, TheyGoOnOnceTheWindowHasBeenFree) {
  BarePair pair(kFormEST, 1ms);
  pair.Connect();
  int boxes = 0;
  pair.Client.Flow.OnMessage = [&](const QString&) {
    for (int box = 0; box < 5; ++box) pair.Client.Flow.ShowBox(u"open"_s, u"box"_s);
  };
  pair.Client.Dialogs.AnswerBox = [&](const QString&) {
    ++boxes;
    return Button::Ok;
  };
  pair.Client.Connection.Receive(u"Haganado|0"_s);
  EXPECT_TRUE(Eventually([&] { return boxes == 5; }));
}

TEST(BoxesOfAPeer, RequestsCountLikeReads) {
  BarePair pair(kFormEST, 1h);
  int asked = 0;
  pair.Server.Dialogs.AnswerBox = [&](const QString&) {
    ++asked;
    return Button::Cancel;
  };
  for (int request = 0; request < 3; ++request) {
    pair.Client.Flow.CBConLocalClicked();
    pair.Settle();
  }
  EXPECT_EQ(asked, 3);
  QTimer::singleShot(0, &pair.Server.Flow, [&] { pair.Server.Flow.CloseRequested(); });
  pair.Client.Flow.CBConLocalClicked();
  pair.Settle();
  EXPECT_EQ(asked, 3) << "the fourth waited, and the window could be closed";
  EXPECT_EQ(pair.Server.Finished, AfterWindow::Selection);
}

TEST(BoxesOfAPeer, TheBoxAboutARequesterWhoHasGoneIsPartOfAsking) {
  BarePair pair;
  int asked = 0;
  const QString kGone = u"El otro jugador ya ha cancelado su solicitud de conexión."_s;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok, [&] { pair.Client.Connection.Close(); });
  pair.Server.Dialogs.Expect(box::kRequestTitle, kGone, [&] {
    pair.Client.Flow.CBConLocalClicked();
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    EXPECT_EQ(pair.Server.Flow.Sessions, 0) << "the next request waits until the box is closed";
    ++asked;
  });
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  pair.Client.Flow.CBConLocalClicked();
  pair.Settle();
  if (pair.Server.Flow.Sessions == 0) {
    pair.Client.Flow.CBConLocalClicked();
    pair.Settle();
  }
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(pair.Server.Flow.Sessions, 1);
}

TEST(ConnectionFlow, TextsBeforeAndAfterABoxAreTwoReads) {
  BarePair pair;
  pair.Connect();
  pair.Server.Dialogs.Expect(u"t"_s, u"b"_s);
  pair.Server.Flow.RunUserAction([&] {
    pair.Server.Flow.Send(u"one"_s);
    pair.Server.Flow.Send(u"two"_s);
    pair.Server.Flow.ShowBox(u"b"_s, u"t"_s);
    pair.Server.Flow.Send(u"three"_s);
  });
  pair.Settle();
  EXPECT_EQ(pair.Client.Flow.Received, QStringList({u"onetwo"_s, u"three"_s}));
}

TEST(ConnectionFlow, ASendThatIsWaitedForAndTheNextAreTwoReadsAndClicksAreIgnoredMeanwhile) {
  BarePair pair;
  pair.Connect();
  BareFlow& server = pair.Server.Flow;
  bool clicked = false;
  Post([&] { server.RunUserAction([&] { clicked = true; }); });
  server.RunUserAction([&] {
    EXPECT_TRUE(server.SendAndWait(u"first"_s));
    server.Send(u"second"_s);
  });
  pair.Settle();
  EXPECT_FALSE(clicked);
  EXPECT_EQ(pair.Client.Flow.Received, QStringList({u"first"_s, u"second"_s}));
}

TEST(ConnectionFlow, AWaitEndsWhenTheLineBreaksOrTheWindowCloses) {
  for (const bool closes : {false, true}) {
    BarePair pair;
    pair.Connect();
    pair.Server.Connection.HoldSendComplete = true;
    if (closes) pair.Server.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::Yes);
    if (!closes) pair.Server.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    Post([&] { closes ? pair.Server.Flow.CloseRequested() : pair.Server.Connection.Break(); });
    pair.Server.Flow.RunUserAction([&] { EXPECT_FALSE(pair.Server.Flow.SendAndWait(u"x"_s)); });
    EXPECT_EQ(pair.Server.Finished.has_value(), closes);
  }
}

TEST(ConnectionFlow, AFailedSendIsToldOnceForEachActionAndNeverEndsTheWindow) {
  BarePair pair;
  pair.Connect();
  pair.Server.Connection.Break();
  pair.Settle();
  for (int action = 0; action < 2; ++action) {
    pair.Client.Dialogs.Expect(box::kErrorTitle, box::kNoConnection);
    pair.Client.Flow.RunUserAction([&] {
      EXPECT_FALSE(pair.Client.Flow.Send(u"one"_s));
      EXPECT_FALSE(pair.Client.Flow.Send(u"two"_s));
    });
  }
  EXPECT_FALSE(pair.Client.Finished);
}

TEST(ConnectionFlow, UserActionsWaitForTheBoxThatIsOpen) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  bool ran = false;
  client.Dialogs.Expect(u"t"_s, u"b"_s, [&] { client.Flow.RunUserAction([&] { ran = true; }); });
  client.Flow.RunUserAction([&] { client.Flow.ShowBox(u"b"_s, u"t"_s); });
  EXPECT_FALSE(ran);
  client.Flow.RunUserAction([&] { ran = true; });
  EXPECT_TRUE(ran);
}

TEST(ConnectionFlow, AnErrorInsideAnActionStopsOnlyIt) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  client.Flow.RunUserAction([] { throw std::out_of_range("cell outside the board"); });
  bool ran = false;
  client.Flow.RunUserAction([&] { ran = true; });
  EXPECT_TRUE(ran);
  client.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::Yes);
  client.Flow.CloseRequested();
  EXPECT_EQ(client.Finished, AfterWindow::Selection);
}

// ---- Closing ----

TEST(ConnectionFlow, EachWindowAsksOrDoesNotAskBeforeItCloses) {
  for (const WindowTraits* window : kAllWindows) {
    BarePair pair(*window);
    pair.Connect();
    const bool asks = window == &kFormTER || window == &kFormBAR;
    if (asks) {
      const QString title = window == &kFormTER ? u"Tres en raya"_s : u"Batalla naval"_s;
      pair.Client.Dialogs.Expect(title, box::kClose, Button::Yes);
    }
    pair.Client.Flow.CloseRequested();
    EXPECT_EQ(pair.Client.Finished, AfterWindow::Selection);
    EXPECT_EQ(pair.Client.Connection.State(), ConnectionState::Closed);
    EXPECT_FALSE(pair.Server.Finished) << "nobody notices that the peer has gone";
  }
}

TEST(ConnectionFlow, AnsweringNoToTheCloseQuestionClosesAllTheSameAndEndsTheProgram) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  client.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::No);
  client.Flow.CloseRequested();
  EXPECT_EQ(client.Finished, AfterWindow::ProcessEnds);
}

TEST(ConnectionFlow, AskingToCloseTwiceAsksOnce) {
  BareCopy client(Role::Client);
  client.Flow.Load();
  client.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::Yes, [&] { client.Flow.CloseRequested(); });
  client.Flow.CloseRequested();
  EXPECT_EQ(client.Finished, AfterWindow::Selection);
}

TEST(ConnectionFlow, ClosingUnderAnOpenBoxFinishesWhenItsHandlerHasReturned) {
  BarePair pair;
  pair.Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok, [&] {
    pair.Server.Flow.CloseRequested();
    EXPECT_TRUE(pair.Server.Flow.Ended());
    EXPECT_FALSE(pair.Server.Finished) << "the handler of the request is still on the stack";
  });
  pair.Server.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::Yes);
  pair.Client.Flow.CBConLocalClicked();
  pair.Settle();
  EXPECT_EQ(pair.Server.Finished, AfterWindow::Selection);
  EXPECT_EQ(pair.Server.Flow.Sessions, 0);
  EXPECT_TRUE(pair.Server.Connection.Sent.isEmpty());
}

TEST(ConnectionFlow, NothingHappensInAWindowThatHasEnded) {
  BarePair pair;
  pair.Connect();
  pair.Client.Dialogs.Expect(box::kCloseTitle, box::kClose, Button::Yes);
  pair.Client.Flow.CloseRequested();
  pair.Client.Connection.Receive(u"text"_s);
  pair.Client.Flow.CbConectarClicked();
  pair.Client.Flow.CBConLocalClicked();
  pair.Client.Flow.CloseRequested();
  pair.Settle();
  EXPECT_TRUE(pair.Client.Flow.Received.isEmpty());
  EXPECT_EQ(pair.Client.Connection.Targets.size(), 1);
}

}  // namespace
}  // namespace brontavia::test
