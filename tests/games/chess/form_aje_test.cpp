// The window of chess: what is its own beside what all game windows share.
#include "games/chess/form_aje.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

#include "tests/support/printers.h"
#include "tests/support/window_layout.h"
#include "tests/support/window_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class FormAjePair : public testing::Test {
 protected:
  // ---- For the user's script ----

  void Handshake() {
    Pair.Handshake();
    EXPECT_TRUE(
        Eventually([this] { return Server.Text(u"TBMensajes"_s).endsWith(u"realice su primer movimiento."_s); }));
  }

  QAction* Command(const QString& name) { return Server.Control<QAction>(name); }
  void Trigger(const QString& name) {
    Post([this, name] { Command(name)->trigger(); });
  }
  void Key(Qt::Key key) {
    Post([this, key] { QTest::keyClick(Server.FG1(), key); });
  }
  [[nodiscard]] bool StatusBecomes(const QString& text) {
    return Eventually([&] { return Server.Text(u"TBEstado"_s) == text; });
  }

  WindowPair<FormAje> Pair;
  OwnedWindow<FormAje>& Server = Pair.Server;
  OwnedWindow<FormAje>& Client = Pair.Client;
};

TEST_F(FormAjePair, HasItsTextsMenusAndABoardOfNamedSquares) {
  EXPECT_EQ(Server.Window->windowTitle(), u"BRONTAVIA - AJEDREZ"_s);
  EXPECT_FALSE(Server.Control<QMenuBar>(QString())->isVisible()) << "nothing can be commanded before the connection";
  AsUser([this] { Handshake(); });
  EXPECT_TRUE(Server.Control<QMenuBar>(QString())->isVisible());
  for (const auto& [box, name] :
       {std::pair{u"TBJugadas"_s, u"Jugadas"_s}, {u"TBEntorno"_s, u"Posición"_s}, {u"TBReloj"_s, u"Relojes"_s}}) {
    EXPECT_EQ(Server.Control<TextBox>(box)->accessibleName(), name);
  }
  EXPECT_EQ(Server.Text(u"TBReloj"_s), u"00:00 / 00:00"_s);
  QAccessibleInterface* board = QAccessible::queryAccessibleInterface(Server.FG1());
  EXPECT_EQ(board->childCount(), 81);
  EXPECT_EQ(board->child(5)->text(QAccessible::Name), u"e"_s);
  EXPECT_EQ(board->child(8 * 9 + 1)->text(QAccessible::Name), u"Torre blanca A1"_s);
}

TEST(FormAjeLayout, ShowsAllOfItselfInEverySizeAndFont) {
  const QString position =
      u"Jug. Nº 111. Mueven Blancas.\n Enroques disponibles:\nBlancas. Corto: No.  Largo: No.\n"
      u"Negras. Corto: No.  Largo: No.\n Opción de comer al paso\nBlancas : No.Negras: No."_s;
  ExpectGoodLayout<FormAje>({{{800, 560}, 13, 0},
                             {{800, 600}, 13, 44},
                             {{1080, 760}, 13, 62},
                             {{1920, 1080}, 13, 100},
                             {{800, 600}, 24, 0},
                             {{1080, 760}, 24, 0},
                             {{1920, 1080}, 24, 0}},
                            {{u"TBEntorno"_s, position},
                             {u"TBReloj"_s, u"600:00 / 600:00"_s},
                             {u"TBEstado"_s, u"Caballo negro seleccionado"_s}});
}

TEST_F(FormAjePair, NamesItsMenusAndCommands) {
  const std::vector<std::pair<QString, QString>> captions{
      {u"MnuArcAbr"_s, u"&Abrir Partida..."_s},
      {u"MnuArcGua"_s, u"&Guardar partida"_s},
      {u"MnuArcGuc"_s, u"Guardar partida como... "_s},
      {u"MnuOpcJaq"_s, u"&Jaque mate"_s},
      {u"MnuOpcAba"_s, u"&Abandonar"_s},
      {u"MnuOpcSol"_s, u"&Solicitar tablas"_s},
      {u"MnuOpcLib"_s, u"&Modo Libre"_s},
      {u"MnuOpcPar"_s, u"&Parar / encender relojes"_s},
      {u"MnuOpcEti"_s, u"&Establecer tiempos"_s},
      {u"MnuOpcVac"_s, u"&Vaciar tablero"_s},
      {u"MnuOpcEst"_s, u"&Establecer datos"_s},
      {u"MnuOpcApr"_s, u"&Modo aprendizaje"_s},
      {u"MnuOpcGir"_s, u"&Girar tablero"_s},
  };
  for (const auto& [name, caption] : captions) {
    ASSERT_NE(Command(name), nullptr) << qPrintable(name);
    EXPECT_EQ(Command(name)->text(), caption);
  }
  EXPECT_EQ(Server.Control<QMenu>(u"MnuArc"_s)->title(), u"&Archivo"_s);
  EXPECT_EQ(Server.Control<QMenu>(u"MnuOpc"_s)->title(), u"&Opciones"_s);
}

TEST_F(FormAjePair, AMoveIsMadeByMouseAndByKeysAlone) {
  AsUser([this] {
    Handshake();
    Server.Click({7, 5});
    EXPECT_TRUE(StatusBecomes(u"Peón blanco seleccionado"_s));
    Server.Click({5, 5});
    EXPECT_TRUE(Client.ComesToShow({5, 5}, u"P"_s));
    OnGui([this] { Client.FG1()->Model().SetCurrentCell({2, 4}); });
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Return, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space}) {
      OnGui([this, key] { QTest::keyClick(Client.FG1(), key); });
    }
    EXPECT_TRUE(Server.ComesToShow({4, 5}, u"p"_s));
    EXPECT_TRUE(Eventually([this] { return Server.Text(u"TBJugadas"_s) == u"1. e2-e4, e7-e5\n"; }));
  });
}

TEST_F(FormAjePair, FreeModeOpensItsCommandsAndShowsItsState) {
  AsUser([this] {
    Handshake();
    const QStringList free{u"MnuOpcPar"_s, u"MnuOpcEti"_s, u"MnuOpcVac"_s, u"MnuOpcEst"_s};
    for (const QString& name : free) EXPECT_FALSE(OnGui([&] { return Command(name)->isEnabled(); }));
    Trigger(u"MnuOpcLib"_s);
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    EXPECT_FALSE(OnGui([this] { return Command(u"MnuOpcLib"_s)->isChecked(); })) << "not before the answer";
    Answer(u"Activar modo libre"_s, u"No"_s);
    EXPECT_TRUE(Eventually([this] { return !Command(u"MnuOpcLib"_s)->isChecked(); }));
    Trigger(u"MnuOpcLib"_s);
    Answer(u"Activar modo libre"_s, u"Yes"_s);
    EXPECT_EQ(Answer(u"Brontavia"_s, u"OK"_s), u"Ana ha activado el modo libre."_s);
    EXPECT_TRUE(Eventually([this] { return Command(u"MnuOpcLib"_s)->isChecked(); }));
    for (const QString& name : free) EXPECT_TRUE(OnGui([&] { return Command(name)->isEnabled(); }));
    // Once the message has certainly left, the board answers again. On a busy machine it leaves more than once.
    EXPECT_TRUE(Eventually([this] {
      if (TopDialog() != nullptr) TopDialog()->accept();
      Server.FG1()->Model().SetCurrentCell({6, 4});
      Server.FG1()->Model().SetCurrentCell({5, 4});
      return Server.Control<TextBox>(u"TBEstado"_s)->toPlainText() == u" D4";
    }));
    Server.Click({5, 4});
    Key(Qt::Key_Menu);
    EXPECT_TRUE(Eventually([] { return QApplication::activePopupWidget() != nullptr; }));
    Post([] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); });
    EXPECT_TRUE(Server.ComesToShow({5, 4}, u"P"_s));
    Key(Qt::Key_Delete);
    EXPECT_TRUE(Server.ComesToShow({5, 4}, QString()));
  });
}

TEST_F(FormAjePair, LearningModeAndTurningShowTheirState) {
  AsUser([this] {
    Handshake();
    Trigger(u"MnuOpcApr"_s);
    EXPECT_TRUE(Eventually([this] { return Command(u"MnuOpcApr"_s)->isChecked(); }));
    Trigger(u"MnuOpcGir"_s);
    EXPECT_TRUE(Eventually([this] { return Command(u"MnuOpcGir"_s)->isChecked(); }));
    EXPECT_TRUE(Server.ComesToShow({1, 4}, u"R"_s));
  });
}

TEST_F(FormAjePair, TheFileDialogAsksAsThePlatformDoes) {
  const QTemporaryDir directory;
  AsUser([&] {
    Handshake();
    Trigger(u"MnuArcGuc"_s);
    EXPECT_TRUE(Eventually([] { return qobject_cast<QFileDialog*>(TopDialog()) != nullptr; }));
    const auto dialog = [] { return qobject_cast<QFileDialog*>(TopDialog()); };
    EXPECT_EQ(OnGui([&] { return dialog()->windowTitle(); }), u"Guardar partida como..."_s);
    EXPECT_EQ(OnGui([&] { return dialog()->nameFilters(); }),
              QStringList({u"Notación FEN (*.fen)"_s, u"Todos los archivos (*.*)"_s}));
    EXPECT_TRUE(OnGui([&] { return dialog()->selectedFiles().value(0); }).contains(u"Ana-Luis _ "_s));
    auto* name = OnGui([&] { return dialog()->findChild<QLineEdit*>(u"fileNameEdit"_s); });
    OnGui([&] { name->setText(directory.filePath(u"mine.fen"_s)); });
    Post([name] { QTest::keyClick(name, Qt::Key_Return); });
    EXPECT_TRUE(Eventually([&] { return QFile::exists(directory.filePath(u"mine.fen"_s)); }));
  });
}

TEST_F(FormAjePair, ClosesWithoutAQuestion) {
  AsUser([this] {
    Client.Close();
    EXPECT_TRUE(Client.Goes());
  });
  EXPECT_EQ(Client.Finished, AfterWindow::Selection);
}

}  // namespace
}  // namespace brontavia::test
