#include "ui/board_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/printers.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class PlainPainter : public CellPainter {
 public:
  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override {
    painter.fillRect(area, look.Current ? Qt::blue : Qt::white);
  }
};

class Board : public testing::Test {
 protected:
  Board() : View(Model, Painter) {
    View.setObjectName(u"FG1"_s);
    View.setAccessibleName(u"Tablero"_s);
    View.resize(500, 400);
    QObject::connect(&View, &BoardView::CellClicked, &View, [this](CellIndex cell) { Clicks.push_back(cell); });
    View.show();
    View.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&View));
  }

  void Press(int key) { QTest::keyClick(&View, static_cast<Qt::Key>(key)); }

  BoardModel Model{{.Rows = 3, .Columns = 4, .CellWidth = 600, .CellHeight = 800},
                   [](CellIndex cell) { return u"cell %1,%2"_s.arg(cell.Row).arg(cell.Column); }};
  PlainPainter Painter;
  BoardView View;
  std::vector<CellIndex> Clicks;
};

TEST_F(Board, KeepsItsProportionsAndTheMiddleWhateverItsSize) {
  const QRect first = View.CellRect({0, 0});
  const QRect last = View.CellRect({2, 3});
  const QRect board = first.united(last);
  EXPECT_NEAR(board.width(), board.height(), 3) << "four columns of 600 twips, three rows of 800";
  EXPECT_NEAR(board.center().x(), 0.5 * View.width(), 1);
  EXPECT_EQ(View.CellAt(first.center()), (CellIndex{0, 0}));
  EXPECT_EQ(View.CellAt(last.bottomRight()), (CellIndex{2, 3}));
  EXPECT_EQ(View.CellAt({1, 1}), std::nullopt);
}

TEST_F(Board, CellsLieSideBySideWithoutGaps) {
  for (int column = 0; column < 3; ++column) {
    EXPECT_EQ(View.CellRect({1, column}).right() + 1, View.CellRect({1, column + 1}).left());
  }
}

TEST_F(Board, ArrowsMoveTheCurrentCellAndStopAtTheEdges) {
  Press(Qt::Key_Left);
  Press(Qt::Key_Up);
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{0, 0}));
  Press(Qt::Key_Right);
  Press(Qt::Key_Down);
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 1}));
  Press(Qt::Key_End);
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 3}));
  for (int i = 0; i < 9; ++i) Press(Qt::Key_Down);
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{2, 3}));
  Press(Qt::Key_Home);
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{2, 0}));
  EXPECT_TRUE(Clicks.empty());
}

TEST_F(Board, EnterAndSpaceClickTheCurrentCell) {
  Model.SetCurrentCell({1, 2});
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) Press(key);
  EXPECT_EQ(Clicks, std::vector<CellIndex>(3, {1, 2}));
}

TEST_F(Board, AHeldKeyClicksOnce) {
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
  QCoreApplication::sendEvent(&View, &repeated);
  EXPECT_TRUE(Clicks.empty());
  EXPECT_TRUE(repeated.isAccepted());
}

TEST_F(Board, AMouseClickMakesTheCellCurrentAndClicksIt) {
  QTest::mouseClick(&View, Qt::LeftButton, {}, View.CellRect({2, 1}).center());
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{2, 1}));
  EXPECT_EQ(Clicks, std::vector<CellIndex>({{2, 1}}));
}

TEST_F(Board, LeavingTheCellBeforeTheButtonIsUpIsNoClick) {
  QTest::mousePress(&View, Qt::LeftButton, {}, View.CellRect({2, 1}).center());
  QTest::mouseRelease(&View, Qt::LeftButton, {}, View.CellRect({2, 2}).center());
  EXPECT_TRUE(Clicks.empty());
}

TEST_F(Board, OtherButtonsAndPlacesBesideTheCellsDoNothing) {
  QTest::mouseClick(&View, Qt::RightButton, {}, View.CellRect({2, 1}).center());
  QTest::mouseClick(&View, Qt::LeftButton, {}, QPoint(1, 1));
  EXPECT_TRUE(Clicks.empty());
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{0, 0}));
}

TEST_F(Board, TellsKeysThatItHasNoUseFor) {
  std::vector<int> keys;
  QObject::connect(&View, &BoardView::KeyPressed, &View, [&](int key) { keys.push_back(key); });
  for (const int key : {Qt::Key_T, Qt::Key_Down, Qt::Key_Space, Qt::Key_Escape, Qt::Key_F2}) Press(key);
  EXPECT_EQ(keys, (std::vector<int>{Qt::Key_T, Qt::Key_Escape, Qt::Key_F2}));
}

// ---- With headers ----

class BoardWithHeaders : public testing::Test {
 protected:
  BoardWithHeaders() : View(Model, Painter) {
    View.resize(708, 508);
    QObject::connect(&View, &BoardView::CellClicked, &View, [this](CellIndex) { ++Clicks; });
    View.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&View));
  }

  BoardModel Model{{.Rows = 4, .Columns = 3, .HeaderCells = 1, .CellWidth = 1000, .CellHeight = 600, .HeaderSize = 500},
                   [](CellIndex) { return QString(); }};
  PlainPainter Painter;
  BoardView View;
  int Clicks = 0;
};

TEST_F(BoardWithHeaders, HeadersHaveTheirOwnSize) {
  // 2500 x 2300 twips in 700 x 500 pixels: the height decides.
  const QRect corner = View.CellRect({0, 0});
  const QRect cell = View.CellRect({2, 2});
  EXPECT_NEAR(corner.height(), 500.0 / 2300 * 500, 1);
  EXPECT_NEAR(corner.width(), corner.height(), 1);
  EXPECT_NEAR(cell.height(), 500.0 / 2300 * 600, 1);
  EXPECT_NEAR(cell.width(), 500.0 / 2300 * 1000, 1);
}

TEST_F(BoardWithHeaders, HeadersAreNeverCurrentAndTakeNoClicks) {
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 1}));
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Home}) QTest::keyClick(&View, key);
  QTest::mouseClick(&View, Qt::LeftButton, {}, View.CellRect({0, 2}).center());
  QTest::mouseClick(&View, Qt::LeftButton, {}, View.CellRect({2, 0}).center());
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 1}));
  EXPECT_EQ(Clicks, 0);
  EXPECT_THROW(Model.SetCurrentCell({0, 1}), std::out_of_range);
  QTest::mouseClick(&View, Qt::LeftButton, {}, View.CellRect({3, 2}).center());
  EXPECT_EQ(Clicks, 1);
}

// ---- As a screen reader meets it ----

QAccessibleInterface* InterfaceOf(BoardView& view) { return QAccessible::queryAccessibleInterface(&view); }

TEST_F(Board, IsANamedGroupOfOneItemACellInRowMajorOrder) {
  QAccessibleInterface* board = InterfaceOf(View);
  EXPECT_EQ(board->role(), QAccessible::Grouping);
  EXPECT_EQ(board->text(QAccessible::Name), u"Tablero"_s);
  ASSERT_EQ(board->childCount(), 12);
  Model.SetCell({1, 2}, {.Text = u"X"_s});
  QAccessibleInterface* cell = board->child(6);
  EXPECT_EQ(cell->role(), QAccessible::ListItem);
  EXPECT_EQ(cell->text(QAccessible::Name), u"cell 1,2"_s);
  EXPECT_EQ(cell->text(QAccessible::Description), u"X"_s);
  EXPECT_EQ(cell->parent(), board);
  EXPECT_EQ(board->indexOfChild(cell), 6);
  EXPECT_EQ(cell->rect().size(), View.CellRect({1, 2}).size());
  EXPECT_EQ(board->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
  EXPECT_EQ(board->child(12), nullptr);
  EXPECT_EQ(board->child(-1), nullptr);
}

TEST_F(Board, PressingAnItemIsAClick) {
  QAccessibleActionInterface* action = InterfaceOf(View)->child(5)->actionInterface();
  ASSERT_NE(action, nullptr);
  EXPECT_EQ(action->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
  action->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(Clicks.empty()) << "the screen reader must not wait for what a click may open";
  QCoreApplication::processEvents();
  EXPECT_EQ(Clicks, std::vector<CellIndex>({{1, 1}}));
  EXPECT_EQ(Model.CurrentCell(), (CellIndex{1, 1}));
}

TEST_F(Board, TheCurrentCellHasTheFocusOfTheGroup) {
  Press(Qt::Key_Down);
  EXPECT_EQ(InterfaceOf(View)->focusChild(), InterfaceOf(View)->child(4));
  EXPECT_TRUE(InterfaceOf(View)->child(4)->state().focused);
  EXPECT_FALSE(InterfaceOf(View)->child(3)->state().focused);
}

// ---- The model ----

TEST_F(Board, TheModelRefusesCellsOutsideTheBoard) {
  EXPECT_THROW(Model.SetCurrentCell({3, 0}), std::out_of_range);
  EXPECT_THROW(Model.SetCell({0, 4}, {}), std::out_of_range);
  EXPECT_THROW(static_cast<void>(Model.Cell({-1, 0})), std::out_of_range);
}

TEST_F(Board, TheModelTellsOnlyRealChanges) {
  const QSignalSpy changed(&Model, &BoardModel::dataChanged);
  const CellContent content{.Text = u"X"_s, .ForeColour = 1, .BackColour = 2};
  Model.SetCell({0, 0}, content);
  Model.SetCell({0, 0}, content);
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(Model.index(0, 0).data().toString(), u"X"_s);
  EXPECT_EQ(Model.index(0, 0).data(BoardModel::ForeColourRole).toInt(), 1);
  EXPECT_EQ(Model.index(0, 0).data(BoardModel::BackColourRole).toInt(), 2);
  EXPECT_EQ(Model.index(0, 0).data(Qt::AccessibleTextRole).toString(), u"cell 0,0"_s);
}

}  // namespace
}  // namespace brontavia::test
