// The windows of the strategy games: what is their own beside what all game windows share.
#include "games/strategy/form_strategy.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>

#include "tests/support/printers.h"
#include "tests/support/window_layout.h"
#include "tests/support/window_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

template <typename Form>
struct FormPair : WindowPair<Form> {
  // For the user's script: until both are placing.
  void Handshake() {
    WindowPair<Form>::Handshake();
    EXPECT_TRUE(Eventually([this] { return this->Server.Text(u"TBMensajes"_s).endsWith(u"Coloque su ejército"_s); }));
  }
};

QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

void PressKey(QWidget* widget, Qt::Key key) {
  Post([widget, key] { QTest::keyClick(widget, key); });
}

class FormStrategyPair : public testing::Test {
 protected:
  [[nodiscard]] bool MenuOpens() {
    return Eventually([] { return OpenMenu() != nullptr; });
  }
  [[nodiscard]] bool StatusBecomes(const QString& text) {
    return Eventually([&] { return Pair.Server.Text(u"TBEstado"_s) == text; });
  }

  FormPair<FormEST> Pair;
};

TEST_F(FormStrategyPair, HasABoardOfNamedCells) {
  EXPECT_EQ(Pair.Server.Window->windowTitle(), u"BRONTAVIA - Estratega"_s);
  EXPECT_EQ(Pair.Server.Window->objectName(), u"FormEST"_s);
  QAccessibleInterface* board = QAccessible::queryAccessibleInterface(Pair.Server.FG1());
  EXPECT_EQ(board->text(QAccessible::Name), u"Tablero"_s);
  EXPECT_EQ(board->childCount(), 121);
  EXPECT_EQ(board->child(3)->text(QAccessible::Name), u"C"_s);
  EXPECT_EQ(board->child(5 * 11 + 3)->text(QAccessible::Name), u"AguaC6"_s);
  EXPECT_EQ(board->child(10 * 11 + 1)->text(QAccessible::Name), u"A1"_s);
}

TEST(FormStrategyLayout, ShowsAllOfItselfInEverySizeAndFont) {
  const QMap<QString, QString> texts{{u"TBEstado"_s, u"Seleccione la ficha que desea mover."_s}};
  ExpectGoodLayout<FormEST>({{{800, 560}, 13, 0},
                             {{800, 600}, 13, 39},
                             {{1080, 760}, 13, 50},
                             {{1920, 1080}, 13, 80},
                             {{800, 600}, 24, 35},
                             {{1080, 760}, 24, 0},
                             {{1920, 1080}, 24, 0}},
                            texts);
  ExpectGoodLayout<FormMES>({{{800, 560}, 13, 0},
                             {{800, 600}, 13, 49},
                             {{1080, 760}, 13, 62},
                             {{1920, 1080}, 13, 0},
                             {{800, 600}, 24, 0},
                             {{1080, 760}, 24, 0},
                             {{1920, 1080}, 24, 0}},
                            texts);
}

TEST_F(FormStrategyPair, APieceIsPlacedByMouseAndByKeysAlone) {
  AsUser([this] {
    Pair.Handshake();
    Pair.Server.Click({10, 1});
    EXPECT_TRUE(MenuOpens());
    EXPECT_EQ(OnGui([] { return OpenMenu()->objectName(); }), u"MnuTropa"_s);
    EXPECT_EQ(OnGui([] { return OpenMenu()->actions().at(3)->text(); }), u"Explorador (8)"_s);
    Post([] {
      QMenu* menu = OpenMenu();
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(3)).center());
    });
    EXPECT_TRUE(Pair.Server.ComesToShow({10, 1}, u"Explorador"_s));
    EXPECT_TRUE(StatusBecomes(u"Explorador rojo . A1"_s));
    PressKey(Pair.Server.FG1(), Qt::Key_Right);
    PressKey(Pair.Server.FG1(), Qt::Key_Space);
    EXPECT_TRUE(MenuOpens());
    OnGui([] { QTest::keyClick(OpenMenu(), Qt::Key_Down); });
    Post([] { QTest::keyClick(OpenMenu(), Qt::Key_Return); });
    EXPECT_TRUE(Pair.Server.ComesToShow({10, 2}, u"Bomba"_s));
    EXPECT_TRUE(StatusBecomes(u"Bomba roja . B1"_s));
    PressKey(Pair.Server.FG1(), Qt::Key_Right);
    PressKey(Pair.Server.FG1(), Qt::Key_Return);
    EXPECT_TRUE(MenuOpens());
    EXPECT_FALSE(OnGui([] { return OpenMenu()->actions().at(0)->text().isEmpty(); }));
    Post([] { QTest::keyClick(OpenMenu(), Qt::Key_Escape); });
    EXPECT_TRUE(Eventually([] { return OpenMenu() == nullptr; }));
    EXPECT_TRUE(StatusBecomes(u"C1"_s));
  });
}

TEST_F(FormStrategyPair, TheMenuOpensAtTheCellAndLeavesOutWhatIsUsedUp) {
  AsUser([this] {
    Pair.Handshake();
    for (const int column : {1, 2}) {
      Pair.Server.Click({10, column});
      EXPECT_TRUE(MenuOpens());
      const QPoint cell = OnGui([&] {
        return Pair.Server.FG1()->mapToGlobal(Pair.Server.FG1()->CellRect({10, column}).center());
      });
      EXPECT_TRUE(OnGui([&] { return OpenMenu()->geometry().adjusted(-1, -1, 1, 1).contains(cell); }) || column == 2);
      EXPECT_EQ(OnGui([] { return OpenMenu()->actions().at(0)->isVisible(); }), column == 1) << "one flag alone";
      EXPECT_EQ(OnGui([] { return OpenMenu()->actions().at(0)->isEnabled(); }), column == 1);
      Post([] { QTest::keyClick(OpenMenu(), Qt::Key_Return); });
      EXPECT_TRUE(Pair.Server.ComesToShow({10, column}, column == 1 ? u"Bandera"_s : u"Bomba"_s));
    }
  });
}

TEST_F(FormStrategyPair, AWindowThatEndsClosesItsMenu) {
  AsUser([this] {
    Pair.Handshake();
    Pair.Server.Click({10, 1});
    EXPECT_TRUE(MenuOpens());
    Pair.Server.Close();
    EXPECT_TRUE(Pair.Server.Goes());
  });
  EXPECT_EQ(Pair.Server.Finished, AfterWindow::Selection);
}

TEST_F(FormStrategyPair, KeysWorkWhereverTheFocusIs) {
  AsUser([this] {
    Pair.Handshake();
    OnGui([this] { Pair.Server.Control<TextBox>(u"TBMensajes"_s)->setFocus(); });
    PressKey(Pair.Server.Control<TextBox>(u"TBMensajes"_s), Qt::Key_F2);
    EXPECT_TRUE(Answer(u"Brontavia"_s, u"OK"_s).startsWith(u"Lista de rangos"_s));
    PressKey(Pair.Server.Control<TextBox>(u"TBMensajes"_s), Qt::Key_F3);
    EXPECT_EQ(Answer(u"Estratega"_s, u"No"_s), u"¿Ha terminado de colocar sus fichas?"_s);
    EXPECT_TRUE(StatusBecomes(u"Realice algún cambio en la posición actual."_s));
    PressKey(Pair.Server.Control<TextBox>(u"TBMensajes"_s), Qt::Key_F1);
    EXPECT_TRUE(Eventually([this] { return Pair.Server.Window->focusWidget() == Pair.Server.FG1(); }));
    PressKey(Pair.Server.FG1(), Qt::Key_Escape);
    Answer(u"Brontavia"_s, u"OK"_s);
    EXPECT_TRUE(Pair.Client.ComesToShow({1, 1}, u"*"_s));
  });
}

TEST_F(FormStrategyPair, ThePointerDescribesTheCellBelowIt) {
  AsUser([this] {
    Pair.Handshake();
    OnGui([this] { QTest::mouseMove(Pair.Server.FG1(), Pair.Server.FG1()->CellRect({5, 3}).center()); });
    EXPECT_TRUE(StatusBecomes(u"AguaC6"_s));
    OnGui([this] { QTest::mouseMove(Pair.Server.FG1(), Pair.Server.FG1()->CellRect({0, 3}).center()); });
    OnGui([this] { QTest::mouseMove(Pair.Server.FG1(), Pair.Server.FG1()->CellRect({10, 10}).center()); });
    EXPECT_TRUE(StatusBecomes(u"J1"_s));
  });
}

TEST_F(FormStrategyPair, ClosesWithoutAQuestion) {
  AsUser([this] {
    Pair.Client.Close();
    EXPECT_TRUE(Pair.Client.Goes());
  });
  EXPECT_EQ(Pair.Client.Finished, AfterWindow::Selection);
}

TEST(FormMESPair, IsTheSameWindowWithItsOwnBoard) {
  FormPair<FormMES> pair;
  EXPECT_EQ(pair.Server.Window->windowTitle(), u"BRONTAVIA - Mini - Estratega"_s);
  EXPECT_EQ(pair.Server.Window->objectName(), u"FormMES"_s);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(pair.Server.FG1())->childCount(), 72);
  AsUser([&] { pair.Handshake(); });
  EXPECT_EQ(pair.Server.Window->windowTitle(), u"Ana - Mini-Estratega"_s);
  EXPECT_LE(pair.Server.Window->minimumSizeHint().width(), 800);
  EXPECT_LE(pair.Server.Window->minimumSizeHint().height(), 570);
}

}  // namespace
}  // namespace brontavia::test
