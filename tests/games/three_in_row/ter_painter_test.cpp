#include "games/three_in_row/ter_painter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/painted_cells.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr CellIndex kMiddle{1, 1};
constexpr int kSides[] = {40, 100, 180};

CellLook Piece(QChar symbol, const QPalette& palette = LightPalette()) {
  return {.Index = kMiddle,
          .Text = symbol,
          .ForeColour = symbol == u'X' ? QColor(Qt::red) : QColor(Qt::green),
          .Palette = palette};
}

CellLook Empty(const QPalette& palette = LightPalette()) {
  return {.Index = kMiddle, .Text = u"*"_s, .Palette = palette};
}

CellLook Lifted(QChar symbol, const QPalette& palette = LightPalette()) {
  CellLook look = Empty(palette);
  look.Marks = Mark::Lifted;
  look.Drawing = symbol.unicode();
  return look;
}

QImage Painted(const CellLook& look, int side) { return test::Painted(TerPainter(), look, side); }

bool Shows(const QImage& image, const QColor& colour) {
  return !Bounds(image, [&](const QColor& each) { return each == colour; }).isEmpty();
}

TEST(TerPainter, GivesPiecesTheirColoursAndADarkerContourInEveryPalette) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    const QImage x = Painted(Piece(u'X', palette), 100);
    EXPECT_TRUE(Shows(x, u"#FF0000"_s));
    EXPECT_TRUE(Shows(x, u"#740000"_s));
    const QImage o = Painted(Piece(u'O', palette), 100);
    EXPECT_TRUE(Shows(o, u"#00FF00"_s));
    EXPECT_TRUE(Shows(o, u"#007400"_s));
  }
}

TEST(TerPainter, ShowsAnEmptyCellAsADotInItsMiddle) {
  const look::Colours colours = look::ColoursOf(LightPalette());
  const QImage image = Painted(Empty(), 100);
  const QRect dot = Bounds(image.copy(10, 10, 80, 80), [&](const QColor& each) { return each != colours.Base; });
  EXPECT_EQ(image.pixelColor(50, 50), colours.Dot);
  EXPECT_LE(dot.width(), 9);
  EXPECT_LE(dot.height(), 9);
}

TEST(TerPainter, ShowsTheCurrentCellInTheHighlightsColours) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    const look::Colours colours = look::ColoursOf(palette);
    for (CellLook look : {Empty(palette), Piece(u'X', palette), Piece(u'O', palette), Lifted(u'O', palette)}) {
      look.Current = true;
      const QImage image = Painted(look, 100);
      EXPECT_EQ(image.pixelColor(12, 50), colours.Highlight);
      EXPECT_TRUE(Shows(image, colours.HighlightText)) << look.Text.toStdString();
    }
  }
}

TEST(TerPainter, TellsPiecesAndMarksApartWithoutColour) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const int side : kSides) {
      std::vector<QImage> images;
      for (const bool current : {false, true}) {
        std::vector<CellLook> looks{Empty(palette), Lifted(u'X', palette), Lifted(u'O', palette)};
        for (const Marks marks :
             {Marks(), Marks(Mark::LastMove), Marks(Mark::WinningLine), Mark::LastMove | Mark::WinningLine}) {
          // On the current cell the stroke alone tells that it has won.
          if (current && marks.testFlag(Mark::WinningLine)) continue;
          for (const QChar symbol : {u'X', u'O'}) {
            looks.push_back(Piece(symbol, palette));
            looks.back().Marks = marks;
          }
        }
        for (CellLook& look : looks) {
          look.Current = current;
          images.push_back(Painted(look, side));
        }
      }
      ExpectAllToldApart(images, 0.01, " at " + std::to_string(side) + " pixels");
    }
  }
}

TEST(TerPainter, PaintsNothingBesideItsCell) {
  CellLook look = Piece(u'X');
  look.Marks = Mark::LastMove | Mark::WinningLine | Mark::Lifted;
  look.Current = true;
  const QImage image = test::Painted({200, 200}, [&](QPainter& painter) {
    TerPainter().Paint(painter, QRectF(50, 50, 100, 100), look);
    painter.fillRect(50, 50, 100, 100, kBeside);
  });
  EXPECT_TRUE(Bounds(image, [](const QColor& each) { return each != kBeside; }).isEmpty());
}

// ---- Whole boards ----

class TerBoard : public testing::Test {
 protected:
  TerBoard() { View.resize(400, 400); }

  void Show(const QString& cells, const std::vector<int>& winning = {}) {
    for (int cell = 0; cell < kCells; ++cell) {
      Model.SetCell({cell / 3, cell % 3}, {.Text = cells.at(cell), .ForeColour = 0x0000FF});
    }
    for (const int cell : winning) {
      CellContent content = Model.Cell({cell / 3, cell % 3});
      content.Marks = Mark::WinningLine;
      Model.SetCell({cell / 3, cell % 3}, content);
    }
  }

  QImage Grab() { return View.grab().toImage().convertToFormat(QImage::Format_RGB32); }
  // The board without what is painted over its cells.
  QImage GrabCells() {
    const QImage whole = Grab();
    return test::Painted(whole.size(), [&](QPainter& painter) {
      painter.drawImage(0, 0, whole);
      for (int cell = 0; cell < kCells; ++cell) {
        const CellIndex index{cell / 3, cell % 3};
        const CellContent& content = Model.Cell(index);
        Painter.Paint(painter, View.CellRect(index),
                      {.Index = index,
                       .Text = content.Text,
                       .ForeColour = Qt::red,
                       .Marks = content.Marks,
                       .Current = index == Model.CurrentCell(),
                       .Palette = View.palette()});
      }
    });
  }

  static constexpr int kCells = 9;
  BoardModel Model{{.Rows = 3, .Columns = 3, .CellWidth = 900, .CellHeight = 900}, [](CellIndex) { return QString(); }};
  TerPainter Painter;
  BoardView View{Model, Painter};
};

TEST_F(TerBoard, HasFourLinesBetweenItsCellsAndNoneAroundThem) {
  Show(u"*********"_s);
  const QColor line = look::ColoursOf(View.palette()).Line;
  const QImage image = Grab();
  const QRect first = View.CellRect({0, 0});
  const int middle = first.center().y();
  for (const int column : {1, 2}) {
    const int x = View.CellRect({0, column}).left();
    EXPECT_EQ(image.pixelColor(x, middle), line);
    EXPECT_EQ(image.pixelColor(x - 1, middle), line);
  }
  EXPECT_NE(image.pixelColor(first.left(), middle), line);
  EXPECT_NE(image.pixelColor(View.CellRect({0, 2}).right(), middle), line);
}

TEST_F(TerBoard, StrikesThroughTheWinningThreeAndTellsWhereThatIsPainted) {
  const std::vector<std::vector<int>> lines{{0, 1, 2}, {0, 3, 6}, {0, 4, 8}, {1, 4, 7},
                                            {2, 5, 8}, {2, 4, 6}, {3, 4, 5}, {6, 7, 8}};
  EXPECT_TRUE(Painter.OverArea(View).isEmpty());
  for (const std::vector<int>& line : lines) {
    Show(u"XXXXXXXXX"_s, line);
    const QImage struck = Grab();
    const QImage cells = GrabCells();
    const QRegion told = Painter.OverArea(View);
    EXPECT_EQ(struck.pixelColor(View.CellRect({line[1] / 3, line[1] % 3}).center()), look::kInk);
    for (int y = 0; y < struck.height(); ++y) {
      for (int x = 0; x < struck.width(); ++x) {
        if (struck.pixel(x, y) != cells.pixel(x, y)) {
          ASSERT_TRUE(told.contains(QPoint(x, y))) << x << ' ' << y;
        }
      }
    }
  }
}

TEST_F(TerBoard, ShowsThatItWaitsForAClick) {
  Show(u"XXXOO****"_s);
  const QImage before = Grab();
  Model.SetWaitsForClick(true);
  EXPECT_GT(Difference(Grab(), before), 0.01);
}

}  // namespace
}  // namespace brontavia::test
