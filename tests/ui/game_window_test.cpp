// What all game windows share, in two windows without a game that are joined inside the process.
#include "ui/game_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QGroupBox>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "net/connection_flow.h"
#include "tests/support/accessible_events.h"
#include "tests/support/box_answerer.h"
#include "tests/support/joined_connections.h"
#include "tests/support/plain_painter.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"
#include "ui/board_caption.h"
#include "ui/board_view.h"
#include "ui/key_line.h"
#include "ui/strip.h"
#include "ui/text_box.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// A session without names or turns: the game frame shows, and the test says what else.
class PlainFlow : public ConnectionFlow {
 public:
  using ConnectionFlow::ConnectionFlow;
  using ConnectionFlow::Screen;

 private:
  void StartSession() override { Screen().ShowFrame(Frame::FrJuego, true); }
  void HandleMessage(const QString& /*text*/) override {}
};

class PlainWindow : public GameWindow {
 public:
  PlainWindow(ProcessValues& values, std::unique_ptr<Connection> connection)
      : GameWindow(kFormTER, std::move(connection)), Flow(kFormTER, MakeSeams(values)), Board(Model, Painter) {
    Board.setObjectName(u"FG1"_s);
    Board.setAccessibleName(u"Tablero"_s);
    AddMenuBar()->addMenu(u"Opciones"_s);
    Attach(Flow, Board);
  }

  PlainFlow Flow;
  BoardModel Model{{.Rows = 3, .Columns = 3, .CellWidth = 900, .CellHeight = 900}, [](CellIndex cell) -> QString {
                     return QString::number(cell.Row) + u',' + QString::number(cell.Column);
                   }};
  PlainPainter Painter;
  BoardView Board;
};

struct Side {
  explicit Side(Role role) : Values{.PlayerRole = role} {
    auto connection = std::make_unique<TestConnection>();
    Wire = connection.get();
    Window = std::make_unique<PlainWindow>(Values, std::move(connection));
  }

  bool Shows(const QString& control) { return Window->findChild<QWidget*>(control)->isVisible(); }
  QString Text(const QString& box) { return Window->findChild<TextBox*>(box)->toPlainText(); }
  Screen& Told() { return Window->Flow.Screen(); }

  ProcessValues Values;
  TestConnection* Wire = nullptr;
  std::unique_ptr<PlainWindow> Window;
};

class GameWindows : public testing::Test {
 protected:
  GameWindows() {
    TestConnection::Join(*Server.Wire, *Client.Wire);
    for (Side* side : {&Server, &Client}) {
      side->Window->show();
      side->Window->Load();
    }
  }

  void Connect() {
    AsUser([this] {
      Post([this] { Client.Window->findChild<QPushButton*>(u"CBConLocal"_s)->click(); });
      Answer(u"Solicitud de conexión"_s, u"OK"_s);
      EXPECT_TRUE(Eventually([this] { return Client.Shows(u"FrJuego"_s) && Server.Shows(u"FrJuego"_s); }));
    });
  }

  // The server's window, active, with a game under way.
  PlainWindow& Playing() {
    Connect();
    Server.Window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Server.Window.get()));
    return *Server.Window;
  }

  Side Server{Role::Server};
  Side Client{Role::Client};
};

TEST_F(GameWindows, ShowWhatGuidesTheirRoleUntilTheSessionStarts) {
  EXPECT_EQ(Server.Window->windowTitle(), u"BRONTAVIA - TRES EN RAYA"_s);
  EXPECT_TRUE(Server.Shows(u"FrServidor"_s));
  EXPECT_FALSE(Server.Shows(u"FrCliente"_s));
  EXPECT_FALSE(Server.Shows(u"FrJuego"_s));
  EXPECT_FALSE(Client.Shows(u"FrServidor"_s));
  EXPECT_TRUE(Client.Shows(u"FrCliente"_s));
  EXPECT_FALSE(Client.Window->findChild<QMenuBar*>()->isVisible());
  Connect();
  for (Side* side : {&Server, &Client}) {
    EXPECT_FALSE(side->Shows(u"FrServidor"_s));
    EXPECT_FALSE(side->Shows(u"FrCliente"_s));
    EXPECT_FALSE(side->Window->findChild<QGroupBox*>(u"FrCliente"_s)->isEnabled()) << "its buttons must not be reached";
    EXPECT_TRUE(side->Shows(u"FrJuego"_s));
    EXPECT_TRUE(side->Window->findChild<QMenuBar*>()->isVisible());
  }
}

TEST_F(GameWindows, TheBoardHasTheFocusOnceTheGameShows) {
  PlainWindow& window = Playing();
  EXPECT_TRUE(window.Board.hasFocus());
}

TEST_F(GameWindows, TabGoesFromTheBoardToTheStripAndThenToTheTexts) {
  PlainWindow& window = Playing();
  for (const QString& next : {u"Strip"_s, u"TBEstado"_s, u"TBMensajes"_s, u"FG1"_s}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
  }
  EXPECT_TRUE(window.Board.hasFocus());
}

TEST_F(GameWindows, ShowCaptionAndTexts) {
  Connect();
  Server.Told().SetCaption(u"Ana - Tres en raya"_s);
  EXPECT_EQ(Server.Window->windowTitle(), u"Ana - Tres en raya"_s);
  Server.Told().SetText(Box::TBEstado, u"Coloque"_s);
  Server.Told().AppendText(Box::TBEstado, u" una ficha"_s);
  EXPECT_EQ(Server.Text(u"TBEstado"_s), u"Coloque una ficha"_s);
  Server.Told().AddMessage(u"<b>Ana</b>"_s);
  EXPECT_EQ(Server.Text(u"TBMensajes"_s), u"\n<b>Ana</b>"_s);
}

TEST_F(GameWindows, SayTheInstructionsOfAFrameToWhoComesToThem) {
  const AccessibleEvents events;
  for (const auto& [side, box] : {std::pair(&Client, u"TbCli1"_s), std::pair(&Server, u"TbServ1"_s)}) {
    side->Window->activateWindow();
    const QString instructions = side->Text(box).trimmed();
    EXPECT_TRUE(Eventually([&] { return AccessibleEvents::Announcements().filter(instructions).size() == 1; }))
        << qPrintable(box);
  }
}

TEST_F(GameWindows, SayNoInstructionsOfAFrameThatHasGone) {
  const AccessibleEvents events;
  Connect();
  LetPass(700);
  EXPECT_EQ(AccessibleEvents::Announcements(), QStringList({u"Conexión establecida.Listo para jugar."_s}));
}

TEST_F(GameWindows, SayEachNewTextOnceAndWhatOthersSeeOnTheBoard) {
  Connect();
  PassATurn();
  const AccessibleEvents events;
  Server.Told().SetText(Box::TBEstado, u"Comandante movido"_s);
  Server.Told().AddMessage(u"Comandante movido. Le toca jugar a Luis"_s);
  Server.Told().Announce(u"Luis: fila 2, columna 2"_s);
  PassATurn();
  EXPECT_EQ(AccessibleEvents::Announcements(),
            QStringList({u"Comandante movido. Le toca jugar a Luis. Luis: fila 2, columna 2."_s}));
}

// What a game does as the current cell changes.
TEST_F(GameWindows, SayAStatusThatNamesTheCurrentCellOnlyWhereTheCellIsNotSaid) {
  PlainWindow& window = Playing();
  PassATurn();
  const AccessibleEvents events;
  const auto announced_at = [&](CellIndex cell) {
    AccessibleEvents::Forget();
    Server.Told().SetText(Box::TBEstado, window.Model.Description(cell));
    window.Model.SetCurrentCell(cell);
    PassATurn();
    return AccessibleEvents::Announcements();
  };
  EXPECT_EQ(announced_at({1, 2}), QStringList());
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::Focus), QStringList({u"1,2"_s}));
  window.findChild<QWidget*>(u"TBMensajes"_s)->setFocus();
  EXPECT_EQ(announced_at({2, 1}), QStringList({u"2,1."_s})) << "the focus is elsewhere";
}

TEST_F(GameWindows, SayAStatusThatNamesTheCurrentCellNotUnderABoxThatGivesTheFocusBack) {
  PlainWindow& window = Playing();
  PassATurn();
  const AccessibleEvents events;
  AsUser([&] {
    Post([&window] { window.close(); });
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    OnGui([&] {
      Server.Told().SetText(Box::TBEstado, u"1,2"_s);
      window.Model.SetCurrentCell({1, 2});
    });
    OnGui(PassATurn);
    EXPECT_EQ(AccessibleEvents::Of(QAccessible::Focus).filter(u"1,2"_s), QStringList());
    Answer(u"Tres en raya"_s, u"Yes"_s);
  });
  EXPECT_EQ(AccessibleEvents::Announcements().filter(u"1,2"_s), QStringList());
}

TEST_F(GameWindows, ShowTheScoreboardAboveTheBoard) {
  Connect();
  Server.Told().ShowScoreboard({.Own = {.Name = u"Ana"_s, .Score = 1}, .Other = {.Name = u"Luis"_s}});
  const auto* strip = Server.Window->findChild<Strip*>();
  EXPECT_TRUE(strip->Sentence().startsWith(u"Ana 1, Luis 0."_s)) << qPrintable(strip->Sentence());
  EXPECT_LT(strip->geometry().bottom(), Server.Window->Board.y());
}

TEST_F(GameWindows, ShowTheKeysBelowAllElseWhereThereIsRoom) {
  Connect();
  const KeyHint play{.Key = u"Intro"_s, .Use = u"coloca la ficha"_s};
  Server.Told().ShowKeys({play});
  const auto* keys = Server.Window->findChild<QWidget*>(u"FrJuego"_s)->findChild<KeyLine*>();
  ASSERT_EQ(keys->Shown().size(), 2);
  EXPECT_EQ(keys->Shown().first(), play);
  EXPECT_GT(keys->y(), Server.Window->findChild<TextBox*>(u"TBEstado"_s)->geometry().bottom());
  Server.Window->findChild<QWidget*>(u"FrJuego"_s)->resize(800, 350);
  EXPECT_FALSE(keys->isVisible());
}

TEST_F(GameWindows, SayOverTheBoardWhoseItIs) {
  Connect();
  auto* caption = Server.Window->findChild<BoardCaption*>();
  EXPECT_FALSE(caption->isVisible());
  const int top = Server.Window->Board.y();
  Server.Told().ShowBoardCaption(u"Mar propio"_s, PlayerSign::Pennant);
  EXPECT_TRUE(caption->isVisible());
  EXPECT_EQ(caption->text(), u"Mar propio"_s);
  EXPECT_LE(caption->geometry().bottom(), Server.Window->Board.y());
  EXPECT_GE(caption->y(), top);
  const QImage own = caption->grab().toImage();
  Server.Told().ShowBoardCaption(u"Mar propio"_s, PlayerSign::SwallowTail);
  EXPECT_NE(caption->grab().toImage(), own) << "the owner's flag stands before it";
}

TEST_F(GameWindows, StayUntilTheirFlowHasFinished) {
  Connect();
  QSignalSpy finished(Server.Window.get(), &GameWindow::Finished);
  AsUser([this] {
    Post([this] { Server.Window->close(); });
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    OnGui([this] { EXPECT_TRUE(Server.Window->isVisible()); });
    Answer(u"Tres en raya"_s, u"Yes"_s);
  });
  EXPECT_TRUE(Server.Window->isVisible()) << "its owner takes it away";
  ASSERT_EQ(finished.size(), 1);
  EXPECT_EQ(finished.front().front().value<AfterWindow>(), AfterWindow::Selection);
}

TEST_F(GameWindows, F11FillsTheScreenAndGivesItBackWhereverTheFocusIs) {
  PlainWindow& window = Playing();
  for (QWidget* focus : {static_cast<QWidget*>(&window.Board), window.findChild<QWidget*>(u"TBMensajes"_s)}) {
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_F11);
    EXPECT_TRUE(window.isFullScreen());
    EXPECT_TRUE(focus->hasFocus());
    QTest::keyClick(focus, Qt::Key_F11);
    EXPECT_FALSE(window.isFullScreen());
  }
}

}  // namespace
}  // namespace brontavia::test
