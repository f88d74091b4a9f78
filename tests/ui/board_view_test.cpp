#include "ui/board_view.h"

#include <gtest/gtest.h>

#include <QTest>
#include <stdexcept>
#include <utility>
#include <vector>

#include "tests/support/plain_painter.h"
#include "tests/support/printers.h"
#include "ui/look.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

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

TEST_F(Board, AllCellsHaveTheSameWholeNumberOfPixels) {
  for (int width = 400; width < 420; ++width) {
    View.resize(width, 400);
    const QSize first = View.CellRect({0, 0}).size();
    EXPECT_EQ(View.CellRect({2, 3}).size(), first);
    EXPECT_EQ(View.CellRect({1, 2}).size(), first);
    EXPECT_EQ(View.CellSizeIn(View.size()), first);
    EXPECT_EQ(View.CellSizeIn(View.SizeIn(View.size())), first) << "what it needs is enough for it";
  }
}

TEST_F(Board, TellsHowLargeItIsWithCellsOfASize) {
  View.resize(View.SizeWithCells(30));
  EXPECT_EQ(View.CellRect({0, 0}).width(), 30) << "the smaller side";
  EXPECT_EQ(View.CellRect({0, 0}).height(), 40);
  View.resize(View.minimumSize());
  EXPECT_EQ(View.CellRect({0, 0}).width(), 14);
}

TEST_F(Board, TheRingOfTheFocusStandsOutsideTheCells) {
  const QColor focus = look::ColoursOf(View.palette()).Focus;
  for (const int gap : {3, 8}) {
    View.SetRingGap(gap);
    const QRect cells = View.CellRect({0, 0}).united(View.CellRect({2, 3}));
    EXPECT_TRUE(View.rect().contains(cells.adjusted(-gap - 1, -gap - 1, gap + 1, gap + 1)));
    const QPoint on_ring(cells.right() + 1 + gap, cells.center().y());
    EXPECT_EQ(View.grab().toImage().pixelColor(on_ring), focus) << gap;
    QWidget other;
    other.show();
    View.clearFocus();
    EXPECT_NE(View.grab().toImage().pixelColor(on_ring), focus) << gap;
    View.setFocus();
  }
}

TEST_F(Board, HasNoPlaceForCellsOutsideIt) {
  for (const CellIndex cell : {CellIndex{-1, 0}, {0, -1}, {3, 0}, {0, 4}}) {
    EXPECT_THROW(static_cast<void>(View.CellRect(cell)), std::out_of_range) << cell.Row << ',' << cell.Column;
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

// ---- What is painted again ----

// Remembers which cells it painted, and paints over the cells named in Over.
class RememberingPainter : public CellPainter {
 public:
  void Paint(QPainter& /*painter*/, const QRectF& /*area*/, const CellLook& look) const override {
    Painted.push_back(look.Index);
  }
  void PaintOver(QPainter& /*painter*/, const BoardView& /*board*/) const override { ++PaintedOver; }
  [[nodiscard]] QRegion OverArea(const BoardView& board) const override {
    QRegion area;
    for (const CellIndex cell : Over) area += board.CellRect(cell);
    return area;
  }

  std::vector<CellIndex> Over;
  mutable std::vector<CellIndex> Painted;
  mutable int PaintedOver = 0;
};

class Repainting : public testing::Test {
 protected:
  Repainting() : View(Model, Painter) {
    View.resize(500, 500);
    View.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&View));
    TakePainted();
  }

  // Since it was asked last.
  std::vector<CellIndex> TakePainted() {
    QCoreApplication::processEvents();
    return std::exchange(Painter.Painted, {});
  }

  BoardModel Model{{.Rows = 10, .Columns = 10, .CellWidth = 600, .CellHeight = 600},
                   [](CellIndex) { return QString(); }};
  RememberingPainter Painter;
  BoardView View;
};

TEST_F(Repainting, OneCellThatChangesIsPaintedAlone) {
  Model.SetCell({3, 4}, {.Text = u"X"_s});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{3, 4}}));
  Model.SetCell({3, 4}, {.Text = u"X"_s});
  EXPECT_TRUE(TakePainted().empty()) << "the same content is no change";
  Model.SetCell({0, 0}, {.Text = u"X"_s});
  Model.SetCell({9, 9}, {.Text = u"O"_s});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{0, 0}, {9, 9}})) << "and not what lies between";
}

TEST_F(Repainting, ACursorThatMovesPaintsTheCellItLeavesAndTheOneItReaches) {
  Model.SetCurrentCell({0, 7});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{0, 0}, {0, 7}}));
}

TEST_F(Repainting, WhatReachesAcrossCellsComesAndGoesWithTheirs) {
  Painter.PaintedOver = 0;
  Painter.Over = {{1, 1}, {1, 2}};
  Model.SetCurrentCell({1, 0});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{0, 0}, {1, 0}, {1, 1}, {1, 2}}));
  EXPECT_EQ(Painter.PaintedOver, 1) << "once, after the cells";
  Model.SetCell({5, 5}, {.Text = u"X"_s});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{5, 5}})) << "what lies over other cells has not changed";
  Painter.Over = {};
  Model.SetCell({5, 5}, {});
  EXPECT_EQ(TakePainted(), std::vector<CellIndex>({{1, 1}, {1, 2}, {5, 5}}));
}

TEST_F(Repainting, TheWholeBoardShowsThatItWaitsForAClick) {
  Model.SetWaitsForClick(true);
  EXPECT_EQ(TakePainted().size(), 100U);
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

TEST_F(BoardWithHeaders, HeadersAreWritingOnTheGroundOfTheWindow) {
  View.resize(300, 300);
  QImage picture(View.size(), QImage::Format_RGB32);
  picture.fill(Qt::magenta);
  QPainter painter(&picture);
  const QRect area = View.CellRect({0, 1});
  PaintHeader(painter, area, {.Index = {0, 1}, .Text = u"A"_s, .Header = true, .CellSize = {50, 30}});
  painter.end();
  EXPECT_EQ(picture.pixelColor(area.topLeft()), QColor(Qt::magenta)) << "no box";
  const QImage ground = [&] {
    QImage empty(area.size(), QImage::Format_RGB32);
    empty.fill(Qt::magenta);
    return empty;
  }();
  EXPECT_NE(picture.copy(area), ground) << "but a letter";
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

}  // namespace
}  // namespace brontavia::test
