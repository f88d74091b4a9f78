// The window of the naval battle: what is its own beside what all game windows share.
#include "games/naval/form_bar.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFontInfo>

#include "tests/support/printers.h"
#include "tests/support/window_layout.h"
#include "tests/support/window_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class FormBARPair : public testing::Test {
 protected:
  // ---- For the user's script ----

  void Handshake() {
    Pair.Handshake();
    for (int i = 0; i < 2; ++i) EXPECT_EQ(Answer(u"Brontavia"_s, u"OK"_s), u"Coloque sus barcos"_s);
  }

  void Key(Qt::Key key) {
    OnGui([this, key] { QTest::keyClick(Server.FG1(), key); });
  }

  WindowPair<FormBAR> Pair;
  OwnedWindow<FormBAR>& Server = Pair.Server;
  OwnedWindow<FormBAR>& Client = Pair.Client;
};

TEST_F(FormBARPair, ShowsTwoGridsAndTheShipsInAFixedWidthBox) {
  EXPECT_EQ(Server.Window->windowTitle(), u"BRONTAVIA - BATALLA NAVAL"_s);
  auto* own_fleet = Server.Control<BoardView>(u"FG2"_s);
  EXPECT_EQ(Server.FG1()->accessibleName(), u"Tablero"_s);
  EXPECT_EQ(own_fleet->accessibleName(), u"Flota propia"_s);
  auto* ships = Server.Control<TextBox>(u"TBBarcos"_s);
  EXPECT_EQ(ships->accessibleName(), u"Barcos"_s);
  EXPECT_TRUE(QFontInfo(ships->font()).fixedPitch());
  EXPECT_TRUE(ships->toPlainText().startsWith(u"Faltan por colocar:\nPortaaviones  (5 Casillas)\n"_s));
  QAccessibleInterface* board = QAccessible::queryAccessibleInterface(Server.FG1());
  EXPECT_EQ(board->childCount(), 121);
  EXPECT_EQ(board->child(3)->text(QAccessible::Name), u"C"_s);
  EXPECT_EQ(board->child(3 * 11 + 2)->text(QAccessible::Name), u"B3 "_s);
}

TEST(FormBARLayout, ShowsAllOfItselfInEverySizeAndFont) {
  const QString rows = u"Portaaviones T |Portaaviones ?\nAcorazado    I |Acorazado    H\n"_s;
  const QString ships = u"Estado de los barcos\nBarcos propios | Barcos enemigos \n" + rows.repeated(4).chopped(32);
  ExpectGoodLayout<FormBAR>({{{640, 480}, 13, 0},
                             {{800, 560}, 13, 0},
                             {{800, 600}, 13, 37},
                             {{1080, 760}, 13, 47},
                             {{1920, 1080}, 13, 76},
                             {{800, 600}, 24, 31},
                             {{1080, 760}, 24, 0},
                             {{1920, 1080}, 24, 0}},
                            {{u"TBBarcos"_s, ships}, {u"TBEstado"_s, u"¡Impacto!, Barco tocado. Siga disparando."_s}},
                            u"Mar enemigo"_s);
}

TEST_F(FormBARPair, IsPlacedByMouseAndByKeys) {
  AsUser([this] {
    Handshake();
    Client.Click({2, 1});
    EXPECT_TRUE(Eventually([this] { return Client.Text(u"TBEstado"_s) == u"posición inicial fijada"; }));
    Client.Click({2, 2});
    EXPECT_TRUE(Client.ComesToShow({2, 2}, u"Destructor"_s));
    Key(Qt::Key_Right);
    EXPECT_EQ(Server.Text(u"TBEstado"_s), u"B1 "_s);
    Key(Qt::Key_Space);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Server.Text(u"TBEstado"_s), u"Posición inicial borrada"_s);
    Key(Qt::Key_Return);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Enter);
    EXPECT_TRUE(Server.ComesToShow({2, 2}, u"Submarino"_s));
    Key(Qt::Key_T);
    EXPECT_TRUE(Server.Text(u"TBMensajes"_s).endsWith(u"Aún faltan barcos por colocar "_s));
  });
}

TEST_F(FormBARPair, AsksBeforeItCloses) {
  AsUser([this] {
    Client.Close();
    EXPECT_EQ(Answer(u"Batalla naval"_s, u"Yes"_s),
              u"¿Está seguro de que desea salir? La partida se dará por terminada y no se podrá reanudar."_s);
    EXPECT_TRUE(Client.Goes());
  });
  EXPECT_EQ(Client.Finished, AfterWindow::Selection);
}

}  // namespace
}  // namespace brontavia::test
