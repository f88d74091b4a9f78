#include "seams/board_model.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <stdexcept>
#include <vector>

#include "tests/support/printers.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// Three rows and four columns, the first of each being headers.
class Model : public testing::Test {
 protected:
  QString Word = u"cell"_s;
  BoardModel Tested{{.Rows = 3, .Columns = 4, .HeaderCells = 1},
                    [this](CellIndex cell) { return u"%1 %2,%3"_s.arg(Word).arg(cell.Row).arg(cell.Column); }};
  const std::vector<CellIndex> Outside{{-1, 1}, {1, -1}, {3, 1}, {1, 4}, {-1, -1}, {3, 4}};
};

TEST_F(Model, BeginsEmptyWithItsFirstCellCurrent) {
  EXPECT_EQ(Tested.rowCount(), 3);
  EXPECT_EQ(Tested.columnCount(), 4);
  EXPECT_EQ(Tested.CurrentCell(), (CellIndex{1, 1})) << "behind the headers";
  EXPECT_EQ(Tested.Cell({2, 3}), CellContent{});
  EXPECT_EQ(BoardModel({.Rows = 2, .Columns = 2}, {}).CurrentCell(), CellIndex{});
}

TEST_F(Model, IsATableWhoseCellsHaveNothingBelowThem) {
  EXPECT_EQ(Tested.rowCount(Tested.index(1, 1)), 0);
  EXPECT_EQ(Tested.columnCount(Tested.index(1, 1)), 0);
}

TEST_F(Model, RefusesCellsOutsideTheBoard) {
  const QSignalSpy changed(&Tested, &BoardModel::dataChanged);
  const QSignalSpy moved(&Tested, &BoardModel::CurrentCellChanged);
  for (const CellIndex cell : Outside) {
    EXPECT_FALSE(Tested.Holds(cell));
    EXPECT_THROW(static_cast<void>(Tested.Cell(cell)), std::out_of_range) << cell.Row << ',' << cell.Column;
    EXPECT_THROW(Tested.SetCell(cell, {.Text = u"X"_s}), std::out_of_range) << cell.Row << ',' << cell.Column;
    EXPECT_THROW(Tested.SetCurrentCell(cell), std::out_of_range) << cell.Row << ',' << cell.Column;
  }
  EXPECT_EQ(changed.count() + moved.count(), 0);
  EXPECT_EQ(Tested.CurrentCell(), (CellIndex{1, 1}));
}

TEST_F(Model, HeadersHoldTextsButAreNeverCurrent) {
  for (const CellIndex header : {CellIndex{0, 0}, {0, 3}, {2, 0}}) {
    EXPECT_TRUE(Tested.Holds(header));
    EXPECT_TRUE(Tested.IsHeader(header));
    Tested.SetCell(header, {.Text = u"A"_s});
    EXPECT_EQ(Tested.Cell(header).Text, u"A"_s);
    EXPECT_THROW(Tested.SetCurrentCell(header), std::out_of_range);
  }
  EXPECT_FALSE(Tested.IsHeader({1, 1}));
  EXPECT_EQ(Tested.CurrentCell(), (CellIndex{1, 1}));
}

TEST_F(Model, TellsOnlyRealChangesOfACell) {
  const QSignalSpy changed(&Tested, &BoardModel::dataChanged);
  CellContent content{.Text = u"X"_s, .ForeColour = 1, .BackColour = 2};
  Tested.SetCell({1, 2}, content);
  Tested.SetCell({1, 2}, content);
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed[0][0].toModelIndex(), Tested.index(1, 2));
  EXPECT_EQ(changed[0][1].toModelIndex(), Tested.index(1, 2));
  content.Marks = Mark::Reachable;
  Tested.SetCell({1, 2}, content);
  EXPECT_EQ(changed.count(), 2);
  EXPECT_EQ(Tested.Cell({1, 2}), content);
}

TEST_F(Model, TellsOnlyRealMovesOfTheCurrentCell) {
  const QSignalSpy moved(&Tested, &BoardModel::CurrentCellChanged);
  Tested.SetCurrentCell({1, 1});
  EXPECT_EQ(moved.count(), 0);
  Tested.SetCurrentCell({2, 3});
  ASSERT_EQ(moved.count(), 1);
  EXPECT_EQ(moved[0][0].value<CellIndex>(), (CellIndex{1, 1}));
  EXPECT_EQ(moved[0][1].value<CellIndex>(), (CellIndex{2, 3}));
  EXPECT_EQ(Tested.CurrentCell(), (CellIndex{2, 3}));
}

TEST_F(Model, DescribesACellAsItIsNow) {
  EXPECT_EQ(Tested.Description({2, 3}), u"cell 2,3"_s);
  Word = u"other"_s;
  EXPECT_EQ(Tested.Description({2, 3}), u"other 2,3"_s);
}

TEST_F(Model, ShowsACellByRoles) {
  Tested.SetCell({1, 2}, {.Text = u"X"_s, .ForeColour = 0x010203, .BackColour = 4});
  const QModelIndex index = Tested.index(1, 2);
  EXPECT_EQ(index.data().toString(), u"X"_s);
  EXPECT_EQ(index.data(BoardModel::ForeColourRole).toInt(), 0x010203);
  EXPECT_EQ(index.data(BoardModel::BackColourRole).toInt(), 4);
  EXPECT_EQ(index.data(Qt::AccessibleTextRole).toString(), u"cell 1,2"_s);
  EXPECT_FALSE(index.data(Qt::ToolTipRole).isValid());
}

TEST_F(Model, HasNothingToShowForAnIndexThatIsNotItsOwn) {
  const BoardModel larger({.Rows = 9, .Columns = 9}, {});
  EXPECT_FALSE(Tested.data({}, Qt::DisplayRole).isValid());
  EXPECT_FALSE(Tested.data(larger.index(8, 8), Qt::DisplayRole).isValid());
}

}  // namespace
}  // namespace brontavia::test
