#include "ui/board_accessible.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <tuple>
#include <vector>

#include "tests/support/accessible_events.h"
#include "tests/support/plain_painter.h"
#include "tests/support/printers.h"
#include "ui/board_view.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// Three rows and four columns, the first of each being headers, and another widget that can take the focus.
class AccessibleBoard : public testing::Test {
 protected:
  AccessibleBoard() : View(new BoardView(Model, Painter, &Window)) {
    View->setAccessibleName(u"Tablero"_s);
    View->setGeometry(50, 30, 500, 400);
    Other.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(View, &BoardView::CellClicked, View, [this](CellIndex cell) { Clicks.push_back(cell); });
    Window.resize(600, 500);
    Window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
    View->setFocus();
  }

  [[nodiscard]] QAccessibleInterface* Board() const { return QAccessible::queryAccessibleInterface(View); }
  [[nodiscard]] QAccessibleInterface* Child(int index) const { return Board()->child(index); }
  void Press(int index, const QString& action = QAccessibleActionInterface::pressAction()) const {
    Child(index)->actionInterface()->doAction(action);
  }

  BoardModel Model{{.Rows = 3, .Columns = 4, .HeaderCells = 1, .CellWidth = 600, .CellHeight = 800, .HeaderSize = 300},
                   [this](CellIndex cell) -> QString {
                     return u"cell %1,%2"_s.arg(cell.Row).arg(cell.Column) + On.value(cell.Column);
                   }};
  QMap<int, QString> On;  // what is said to be on the cells of a column
  PlainPainter Painter;
  QWidget Window;
  QWidget Other{&Window};
  BoardView* View;
  std::vector<CellIndex> Clicks;
};

TEST_F(AccessibleBoard, IsANamedGroupOfOneItemACellInRowMajorOrder) {
  EXPECT_EQ(Board()->role(), QAccessible::Grouping);
  EXPECT_EQ(Board()->text(QAccessible::Name), u"Tablero"_s);
  ASSERT_EQ(Board()->childCount(), 12) << "headers included";
  for (int index = 0; index < 12; ++index) {
    QAccessibleInterface* cell = Child(index);
    ASSERT_NE(cell, nullptr);
    EXPECT_TRUE(cell->isValid());
    EXPECT_EQ(cell->role(), QAccessible::ListItem);
    EXPECT_EQ(cell->text(QAccessible::Name), u"cell %1,%2"_s.arg(index / 4).arg(index % 4));
    EXPECT_EQ(cell->parent(), Board());
    EXPECT_EQ(cell->childCount(), 0);
    EXPECT_EQ(cell->window(), Window.windowHandle());
    EXPECT_EQ(Board()->indexOfChild(cell), index);
    EXPECT_EQ(Child(index), cell) << "the same each time";
  }
  EXPECT_EQ(Child(-1), nullptr);
  EXPECT_EQ(Child(12), nullptr);
  EXPECT_EQ(Board()->indexOfChild(Board()), -1);
}

TEST_F(AccessibleBoard, ACellIsDescribedByItsTextWhereThatAddsToTheName) {
  EXPECT_EQ(Child(6)->text(QAccessible::Description), QString());
  Model.SetCell({1, 2}, {.Text = u"Capitán"_s});
  EXPECT_EQ(Child(6)->text(QAccessible::Description), u"Capitán"_s);
  On[2] = u" CAPITÁN rojo"_s;
  EXPECT_EQ(Child(6)->text(QAccessible::Description), QString()) << "the name says it";
  Model.SetCell({1, 2}, {.Text = u"*"_s});
  On.clear();
  EXPECT_EQ(Child(6)->text(QAccessible::Description), QString()) << "a sign for the eye alone";
  EXPECT_EQ(Child(6)->text(QAccessible::Value), QString());
}

TEST_F(AccessibleBoard, OnlyCellsThatWereAskedForAndAreCalledOtherwiseTell) {
  const AccessibleEvents events;
  std::ignore = Child(5)->text(QAccessible::Name);
  std::ignore = Child(6)->text(QAccessible::Name);
  On[2] = u" X"_s;
  On[3] = u" O"_s;
  for (int column = 1; column < 4; ++column) Model.SetCell({1, column}, {.Text = u"*"_s, .Marks = Mark::LastMove});
  EXPECT_TRUE(AccessibleEvents::All().isEmpty()) << "when the handler has returned it may be called otherwise again";
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::NameChanged), QStringList({u"cell 1,2 X"_s}));
  Model.SetCell({1, 2}, {.Text = u"*"_s});
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::NameChanged).size(), 1) << "told once";
}

TEST_F(AccessibleBoard, TheDescriptionOfTheCellWithTheFocusAloneTells) {
  const AccessibleEvents events;
  for (const int index : {5, 6}) std::ignore = Child(index)->text(QAccessible::Description);
  Model.SetCell({1, 1}, {.Text = u"Capitán"_s});
  Model.SetCell({1, 2}, {.Text = u"Capitán"_s});
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::DescriptionChanged), QStringList({u"cell 1,1"_s}));
  Model.SetCurrentCell({1, 2});
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::DescriptionChanged), QStringList({u"cell 1,1"_s, u"cell 1,2"_s}))
      << "what a screen reader has remembered is put right as it comes there";
}

TEST_F(AccessibleBoard, TheFocusIsToldOnceForAllStepsOfAHandler) {
  QCoreApplication::processEvents();
  const AccessibleEvents events;
  QStringList spoken;
  QObject::connect(View, &BoardView::CellSpoken, View, [&](const QString& name) { spoken << name; });
  Model.SetCurrentCell({1, 2});
  Model.SetCurrentCell({1, 3});
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::Focus), QStringList({u"cell 1,3"_s}));
  EXPECT_EQ(spoken, QStringList({u"cell 1,2"_s, u"cell 1,3"_s})) << "or passed over with it";
  Other.setFocus();
  AccessibleEvents::Forget();
  Model.SetCurrentCell({1, 1});
  QCoreApplication::processEvents();
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::Focus), QStringList()) << "the focus is elsewhere";
  EXPECT_EQ(spoken.size(), 2);
}

TEST_F(AccessibleBoard, ACurrentCellThatIsCalledOtherwiseIsSpokenToo) {
  QCoreApplication::processEvents();
  const AccessibleEvents events;
  QStringList spoken;
  QObject::connect(View, &BoardView::CellSpoken, View, [&](const QString& name) { spoken << name; });
  std::ignore = Child(5)->text(QAccessible::Name);
  On[1] = u" X"_s;
  Model.SetCell({1, 1}, {.Text = u"X"_s});
  QCoreApplication::processEvents();
  EXPECT_EQ(spoken, QStringList({u"cell 1,1 X"_s}));
}

TEST_F(AccessibleBoard, ACellLiesWhereItIsOnScreen) {
  for (int index = 0; index < 12; ++index) {
    const QRect place = View->CellRect({index / 4, index % 4});
    const QRect on_screen = Child(index)->rect();
    EXPECT_EQ(on_screen, QRect(View->mapToGlobal(place.topLeft()), place.size()));
    EXPECT_EQ(Board()->childAt(on_screen.center().x(), on_screen.center().y()), Child(index));
  }
  const QPoint beside = View->mapToGlobal(QPoint(1, 1));
  EXPECT_EQ(Board()->childAt(beside.x(), beside.y()), nullptr);
}

TEST_F(AccessibleBoard, PressingACellIsAClick) {
  EXPECT_EQ(Child(6)->actionInterface()->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
  Press(6);
  EXPECT_TRUE(Clicks.empty()) << "the screen reader must not wait for what a click may open";
  QCoreApplication::processEvents();
  EXPECT_EQ(Clicks, std::vector<CellIndex>({{1, 2}}));
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 2}));
}

TEST_F(AccessibleBoard, NothingElseIsAClick) {
  Press(6, QAccessibleActionInterface::toggleAction());
  Press(2);  // a header
  View->setEnabled(false);
  Press(6);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Clicks.empty());
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 1}));
}

TEST_F(AccessibleBoard, ACellThatIsPressedAsTheBoardGoesIsNotClicked) {
  Press(6);
  delete View;
  QCoreApplication::processEvents();
  EXPECT_TRUE(Clicks.empty());
}

TEST_F(AccessibleBoard, TheCurrentCellHasTheFocusOfTheBoard) {
  Model.SetCurrentCell({1, 3});
  EXPECT_EQ(Board()->focusChild(), Child(7));
  EXPECT_TRUE(Child(7)->state().focused);
  EXPECT_TRUE(Child(7)->state().selected);
  EXPECT_FALSE(Child(5)->state().focused);
  EXPECT_FALSE(Child(5)->state().selected);
  Other.setFocus();
  EXPECT_EQ(Board()->focusChild(), nullptr);
  EXPECT_FALSE(Child(7)->state().focused);
  EXPECT_TRUE(Child(7)->state().selected) << "it stays current";
}

TEST_F(AccessibleBoard, ACellIsDisabledAndHiddenWithTheBoard) {
  EXPECT_TRUE(Child(5)->state().focusable);
  EXPECT_TRUE(Child(5)->state().selectable);
  EXPECT_FALSE(Child(5)->state().disabled);
  EXPECT_FALSE(Child(5)->state().invisible);
  View->setEnabled(false);
  EXPECT_TRUE(Child(5)->state().disabled);
  View->hide();
  EXPECT_TRUE(Child(5)->state().invisible);
}

TEST_F(AccessibleBoard, TakesItsCellsWithIt) {
  const QAccessible::Id cell = QAccessible::uniqueId(Child(6));
  ASSERT_NE(QAccessible::accessibleInterface(cell), nullptr);
  delete View;
  EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr);
}

}  // namespace
}  // namespace brontavia::test
