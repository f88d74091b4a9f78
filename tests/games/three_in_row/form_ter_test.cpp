// The window of three in a row: two of them in one process, joined by real TCP, used as a user would.
#include "games/three_in_row/form_ter.h"

#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/box_answerer.h"
#include "tests/support/free_port.h"
#include "tests/support/owned_window.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"
#include "tests/support/window_layout.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kYes = u"Yes"_s;
const QString kNo = u"No"_s;
const QString kOk = u"OK"_s;

using Owned = OwnedWindow<FormTER>;

CellIndex Cell(int cell) { return {.Row = cell / kTerSide, .Column = cell % kTerSide}; }

class FormTERPair : public testing::Test {
 protected:
  // ---- For the user's script ----

  void Connect() {
    Client.Press(u"CBConLocal"_s);
    EXPECT_EQ(Answer(u"Solicitud de conexión"_s, kOk),
              u"Se ha recibido una solicitud de conexión. ¿Desea aceptarla?"_s);
  }

  // Both are asked for their names; the client's box opened later and is on top.
  bool BothAreAsked() {
    return Eventually([this] {
      return Server.Window->findChild<QDialog*>() != nullptr && Client.Window->findChild<QDialog*>() != nullptr;
    });
  }

  void Handshake() {
    Connect();
    EXPECT_TRUE(BothAreAsked());
    AnswerInput(u"Introducir nombre"_s, u"Luis"_s);
    AnswerInput(u"Asignación del primer turno"_s, u"2"_s);
    AnswerInput(u"Introducir nombre"_s, u"Ana"_s);
    AnswerInput(u"Asignación del primer turno"_s, u"1"_s);
    for (Owned* side : {&Server, &Client}) {
      EXPECT_TRUE(Eventually([&] { return side->Text(u"TBMensajes"_s).contains(u"mutua"_s); }));
    }
  }

  // X on 0, 1; O on 4, 8; X to move and win on 2.
  void PlayUpToTheWin() {
    Server.Click(Cell(0));
    EXPECT_TRUE(Client.ComesToShow(Cell(0), u"X"_s));
    Client.Click(Cell(4));
    EXPECT_TRUE(Server.ComesToShow(Cell(4), u"O"_s));
    Server.Click(Cell(1));
    EXPECT_TRUE(Client.ComesToShow(Cell(1), u"X"_s));
    Client.Click(Cell(8));
    EXPECT_TRUE(Server.ComesToShow(Cell(8), u"O"_s));
  }

  // The user is in the server's window.
  void Activate() {
    OnGui([this] { Server.Window->activateWindow(); });
    EXPECT_TRUE(Eventually([this] { return Server.Window->isActiveWindow(); }));
  }

  std::int32_t Port = FreePort();
  Owned Server{Role::Server, Port};
  Owned Client{Role::Client, Port};
};

TEST_F(FormTERPair, OpensWithTheFrameOfItsRoleAndItsCaption) {
  EXPECT_EQ(Server.Window->objectName(), u"FormTER"_s);
  EXPECT_EQ(Server.Window->windowTitle(), u"BRONTAVIA - TRES EN RAYA"_s);
  EXPECT_TRUE(Server.Control<QWidget>(u"FrServidor"_s)->isVisible());
  EXPECT_FALSE(Server.Control<QWidget>(u"FrCliente"_s)->isVisible());
  EXPECT_FALSE(Server.Control<QWidget>(u"FrJuego"_s)->isVisible());
  EXPECT_FALSE(Server.Control<QWidget>(u"FrJuego"_s)->isEnabled());
  EXPECT_TRUE(Client.Control<QWidget>(u"FrCliente"_s)->isVisible());
  EXPECT_EQ(Client.Control<QPushButton>(u"CbConectar"_s)->text(), u"CONECTAR"_s);
  EXPECT_EQ(Client.Control<QPushButton>(u"CBConLocal"_s)->text(), u"CONEXIÓN LOCAL"_s);
  EXPECT_TRUE(Client.Text(u"TbCli1"_s).endsWith(u"ordenador, pulse el botón de conexión local. \n"_s));
  EXPECT_TRUE(Server.Text(u"TbServ1"_s).startsWith(u"El programa ha empezado a escuchar"_s));
}

TEST_F(FormTERPair, PlaysToTheEndAndIntoAnotherGame) {
  AsUser([this] {
    Handshake();
    EXPECT_EQ(Server.Window->windowTitle(), u"Ana - Tres en raya"_s);
    EXPECT_FALSE(Server.Control<QWidget>(u"FrServidor"_s)->isVisible());
    EXPECT_TRUE(Server.Control<QWidget>(u"FrJuego"_s)->isEnabled());
    PlayUpToTheWin();
    EXPECT_EQ(Server.Text(u"TBEstado"_s), u"Coloque una ficha en el tablero"_s);
    Server.Click(Cell(2));
    EXPECT_EQ(Answer(u"Ha perdido"_s, kOk),
              u"Ana             ha conseguido tres en raya antes que usted.\nPulse sobre el tablero para continuar."_s);
    EXPECT_EQ(
        Answer(u"Enhorabuena"_s, kOk),
        u"¡Ha ganado! Consiguió hacer tres en raya antes que su rival.\nPulse sobre el tablero para continuar."_s);
    Server.Click(Cell(0));
    Answer(u"Tres en raya"_s, kYes);
    EXPECT_TRUE(Eventually([&] { return Client.Text(u"TBMensajes"_s).contains(u"Nueva partida.Ana"_s); }));
    Client.Click(Cell(0));
    Answer(u"Tres en raya"_s, kYes);
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(Answer(u"Nueva partida"_s, kOk), u"Marcador actual: \nAna  1 : Luis 0\nComienza jugando Luis."_s);
    }
  });
}

TEST_F(FormTERPair, AnyKeyBringsTheFocusToTheBoardButDoesNotPlay) {
  AsUser([this] {
    Handshake();
    Activate();
    auto* status = Server.Control<TextBox>(u"TBEstado"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Down, Qt::Key_A, Qt::Key_Escape, Qt::Key_F1}) {
      OnGui([&] {
        status->setFocus();
        QTest::keyClick(status, key);
        EXPECT_TRUE(Server.FG1()->hasFocus()) << key;
        EXPECT_EQ(Server.FG1()->Model().Cell({0, 0}).Text, u"*"_s);
        EXPECT_EQ(Server.FG1()->Model().CurrentCell(), (CellIndex{0, 0}));
      });
    }
  });
}

TEST(FormTERLayout, ShowsAllOfItselfInEverySizeAndFont) {
  ExpectGoodLayout<FormTER>({{{800, 560}, 13, 0},
                             {{800, 600}, 13, 0},
                             {{1080, 760}, 13, 178},
                             {{1920, 1080}, 13, 0},
                             {{800, 600}, 24, 0},
                             {{1080, 760}, 24, 0},
                             {{1920, 1080}, 24, 0}},
                            {{u"TBEstado"_s, u"Espere a que el otro jugador coloque una ficha."_s}});
}

TEST_F(FormTERPair, F11FillsTheScreenAndLeavesTheFocusWhereItIs) {
  AsUser([this] {
    Handshake();
    Activate();
    OnGui([this] {
      auto* status = Server.Control<TextBox>(u"TBEstado"_s);
      status->setFocus();
      QTest::keyClick(status, Qt::Key_F11);
      EXPECT_TRUE(Server.Window->isFullScreen());
      EXPECT_TRUE(status->hasFocus());
      QTest::keyClick(status, Qt::Key_F11);
      EXPECT_FALSE(Server.Window->isFullScreen());
    });
  });
}

TEST_F(FormTERPair, TabAndCopyAndModifiersKeepTheirMeaning) {
  AsUser([this] {
    Handshake();
    Activate();
    OnGui([this] {
      auto* status = Server.Control<TextBox>(u"TBEstado"_s);
      auto* messages = Server.Control<TextBox>(u"TBMensajes"_s);
      status->setFocus();
      QTest::keyClick(status, Qt::Key_Control);
      QTest::keyClick(status, Qt::Key_C, Qt::ControlModifier);
      EXPECT_TRUE(status->hasFocus());
      QTest::keyClick(status, Qt::Key_Tab);
      EXPECT_TRUE(messages->hasFocus());
      QTest::keyClick(messages, Qt::Key_Tab);
      EXPECT_TRUE(Server.FG1()->hasFocus());
      QTest::keyClick(Server.FG1(), Qt::Key_Backtab, Qt::ShiftModifier);
      EXPECT_TRUE(messages->hasFocus());
    });
  });
}

TEST_F(FormTERPair, TheBoardHasTheFocusWhenPlayBegins) {
  AsUser([this] {
    Handshake();
    Activate();
    OnGui([this] {
      EXPECT_TRUE(Server.FG1()->hasFocus());
      QTest::keyClick(Server.FG1(), Qt::Key_Right);
      QTest::keyClick(Server.FG1(), Qt::Key_Space);
    });
    EXPECT_TRUE(Client.ComesToShow(Cell(1), u"X"_s));
  });
}

// ---- Closing ----

TEST_F(FormTERPair, ClosingAsksAndYesLeadsBackToTheSelection) {
  AsUser([this] {
    Client.Close();
    EXPECT_EQ(Answer(u"Tres en raya"_s, kYes),
              u"¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar."_s);
    EXPECT_TRUE(Client.Goes());
  });
  EXPECT_EQ(Client.Finished, AfterWindow::Selection);
}

TEST_F(FormTERPair, ClosingWithNoEndsTheProgram) {
  AsUser([this] {
    Client.Close();
    Answer(u"Tres en raya"_s, kNo);
    EXPECT_TRUE(Client.Goes());
  });
  EXPECT_EQ(Client.Finished, AfterWindow::ProcessEnds);
}

TEST_F(FormTERPair, ClosingUnderTheBoxesOfTheHandshakeDestroysTheWindowWhenTheyHaveGone) {
  AsUser([this] {
    Connect();
    EXPECT_TRUE(BothAreAsked());
    for (Owned* side : {&Server, &Client}) {
      side->Close();
      Answer(u"Tres en raya"_s, kYes);
    }
    EXPECT_TRUE(Server.Goes());
    EXPECT_TRUE(Client.Goes());
    EXPECT_EQ(OnGui([] { return TopDialog(); }), nullptr);
  });
}

TEST_F(FormTERPair, RefusingAnotherGameClosesBothWindows) {
  AsUser([this] {
    Handshake();
    PlayUpToTheWin();
    Server.Click(Cell(2));
    Answer(u"Ha perdido"_s, kOk);
    Answer(u"Enhorabuena"_s, kOk);
    Client.Click(Cell(0));
    Answer(u"Tres en raya"_s, kNo);
    EXPECT_EQ(Answer(u"Brontavia"_s, kOk),
              u"Luis no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana."_s);
    EXPECT_TRUE(Server.Goes());
    EXPECT_TRUE(Client.Goes());
  });
  EXPECT_EQ(Server.Finished, AfterWindow::Selection);
  EXPECT_EQ(Client.Finished, AfterWindow::Selection);
}

TEST_F(FormTERPair, APortInUseIsToldAndEndsTheProgramAsFailed) {
  std::optional<AfterWindow> finished;
  AsUser([&] {
    Post([&] {
      const Owned second(Role::Server, Port);
      finished = second.Finished;
    });
    EXPECT_TRUE(Answer(u"Error"_s, kOk).startsWith(u"No se puede escuchar en el puerto %1: "_s.arg(Port)));
    EXPECT_TRUE(Eventually([&] { return finished.has_value(); }));
  });
  EXPECT_EQ(finished, AfterWindow::ProcessEndsFailed);
}

}  // namespace
}  // namespace brontavia::test
