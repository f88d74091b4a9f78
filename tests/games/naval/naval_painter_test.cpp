#include "games/naval/naval_painter.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "games/naval/hull.h"
#include "tests/support/painted_cells.h"
#include "tests/support/printers.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kSmallest = 24;
constexpr int kLargest = 100;
constexpr int kWithWord = 64;
const QColor kBlue(0, 0, 255);
const QColor kRed(255, 0, 0);

QFont FontOf(int points) {
  QFont font;
  font.setPixelSize(points == 10 ? 13 : 24);  // as on a screen of 96 dpi
  return font;
}

CellLook Sea(const SeaDrawing& drawing = {}, const QPalette& palette = LightPalette()) {
  return {.Index = {3, 4}, .Drawing = Packed(drawing), .Palette = palette};
}

CellLook Shot(const QString& text, const QColor& colour, const QPalette& palette = LightPalette()) {
  CellLook look = Sea({}, palette);
  look.Text = text;
  look.BackColour = colour;
  return look;
}

CellLook Margin(const QPalette& palette = LightPalette()) {
  CellLook look = Sea({.Margin = true}, palette);
  look.Text = u"Agua"_s;
  return look;
}

// All cells of a ship, each painted alone; the current cell, which has been fired at last, is on segment `marked`.
QImage PaintedShip(const NavalPainter& sea, SeaDrawing ship, int side, const QFont& font,
                   const QPalette& palette = LightPalette(), int marked = 0) {
  const QSize cells = ship.Upright ? QSize(1, ship.ShipLength) : QSize(ship.ShipLength, 1);
  return test::Painted(cells * side, [&](QPainter& painter) {
    painter.setFont(font);
    for (ship.Segment = 1; ship.Segment <= ship.ShipLength; ++ship.Segment) {
      CellLook look = Sea(ship, palette);
      if (ship.Sunk) look.BackColour = kRed;
      if (ship.Segment == marked) {
        look.Marks = Mark::LastMove;
        look.Current = true;
      }
      const int before = (ship.Segment - 1) * side;
      sea.Paint(painter, QRectF(ship.Upright ? 0 : before, ship.Upright ? before : 0, side, side), look);
    }
  });
}

// ---- Writing ----

struct Ship {
  QString Name;
  int Length;
};
const std::array kShips{Ship{u"Portaaviones"_s, 5}, Ship{u"Acorazado"_s, 4}, Ship{u"Submarino"_s, 3},
                        Ship{u"Destructor"_s, 2}};

// The hull of a ship that lies, without writing, on still water.
QImage HullAlone(int length, int side) {
  const look::Colours colours = look::ColoursOf(LightPalette());
  return test::Painted({length * side, side}, [&](QPainter& painter) {
    painter.fillRect(0, 0, length * side, side, colours.Sea);
    const qreal unit = static_cast<qreal>(side) / kUnitsOfCell;
    painter.scale(unit, unit);
    PaintHull(painter, length, {.Hull = colours.Hull, .Edge = colours.HullEdge, .Deck = colours.Deck},
              std::max(2.0, 1.4 / unit));
  });
}

// Where the name is written on a lying ship.
QRect Writing(const QImage& ship, int length, int side) {
  const QRect hull(side / 6, side / 4, length * side - side / 3, side - side / 2);
  const QImage with = ship.copy(hull);
  const QImage without = HullAlone(length, side).copy(hull);
  QRect writing;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      if (qGray(with.pixel(x, y)) - qGray(without.pixel(x, y)) > 25) writing |= QRect(x, y, 1, 1);
    }
  }
  return writing.isEmpty() ? writing : writing.translated(hull.topLeft());
}

class NavalWriting : public testing::TestWithParam<int> {
 protected:
  const QFont Font = FontOf(GetParam());
  const NavalPainter Painter;
};
INSTANTIATE_TEST_SUITE_P(NavalPainter, NavalWriting, testing::Values(10, 18));

TEST_P(NavalWriting, ShowsTheNameOfAShipWholeOrNotAtAll) {
  for (const Ship& ship : kShips) {
    for (int side = kSmallest; side <= kLargest; ++side) {
      const SeaDrawing drawing{.ShipLength = ship.Length};
      const QImage image = PaintedShip(Painter, drawing, side, Font);
      const QRect writing = Writing(image, ship.Length, side);
      const double ends = ship.Length == 2 ? 0.62 : 0.5;
      const auto font = look::FittingFont(Font, std::span(&ship.Name, 1), {(ship.Length - ends) * side, side / 2.0},
                                          std::min(1.1 * look::PixelsOf(Font), 0.3 * side));
      if (!font) {
        EXPECT_TRUE(writing.isEmpty()) << ship.Name.toStdString() << " at " << side;
        continue;
      }
      const QRectF expected = QFontMetricsF(*font).tightBoundingRect(ship.Name);
      EXPECT_NEAR(writing.width(), expected.width(), 3) << ship.Name.toStdString() << " at " << side;
      EXPECT_GT(writing.left(), side / 6) << ship.Name.toStdString() << " at " << side;
      EXPECT_LT(writing.right(), ship.Length * side - side / 6) << ship.Name.toStdString() << " at " << side;
    }
  }
}

TEST_P(NavalWriting, OfAShipIsNotCutByMarks) {
  constexpr int side = 48;
  for (const Ship& ship : kShips) {
    const QImage bare = PaintedShip(Painter, {.ShipLength = ship.Length}, side, Font);
    const QRect writing = Writing(bare, ship.Length, side);
    for (int segment = 1; segment <= ship.Length; ++segment) {
      const QImage marked = PaintedShip(Painter, {.ShipLength = ship.Length}, side, Font, LightPalette(), segment);
      EXPECT_EQ(marked.copy(writing), bare.copy(writing)) << ship.Name.toStdString() << ' ' << segment;
      EXPECT_GT(Difference(marked, bare), 0.01) << "the marks are to be seen";
    }
  }
}

TEST_P(NavalWriting, HasRoomForEveryNameAtTheSmallestSizeOfTheProgram) {
  constexpr int kSmallestAtTenPoints = 38;
  for (const Ship& ship : kShips) {
    const QImage image = PaintedShip(Painter, {.ShipLength = ship.Length}, kSmallestAtTenPoints, Font);
    EXPECT_FALSE(Writing(image, ship.Length, kSmallestAtTenPoints).isEmpty()) << ship.Name.toStdString();
  }
}

TEST_P(NavalWriting, OfAnUprightShipReadsDownwards) {
  const auto middle = [](const QImage& image) { return image.copy(6, 12, image.width() - 12, 24); };
  for (const Ship& ship : kShips) {
    const QImage lying = PaintedShip(Painter, {.ShipLength = ship.Length}, 48, Font);
    const QImage upright = PaintedShip(Painter, {.ShipLength = ship.Length, .Upright = true}, 48, Font);
    const auto turned = [&](qreal degrees) {
      return upright.transformed(QTransform().rotate(degrees)).convertToFormat(QImage::Format_RGB32);
    };
    const qreal downwards = Difference(middle(turned(-90)), middle(lying));
    EXPECT_LT(downwards, 0.15) << ship.Name.toStdString();
    EXPECT_LT(1.5 * downwards, Difference(middle(turned(90)), middle(lying))) << ship.Name.toStdString();
  }
}

// What is written on a cell in black or nearly so.
QRect Ink(const QImage& image) {
  return Bounds(image, [](const QColor& each) { return each.red() < 70 && each.green() < 70 && each.blue() < 70; });
}

TEST_P(NavalWriting, WordsJoinTheirSignWholeWhereThereIsRoom) {
  struct Cell {
    QString Text;
    CellLook Look;
  };
  for (const Cell& cell : {Cell{u"Agua"_s, Shot(u"Agua"_s, kBlue)}, Cell{u"Agua"_s, Margin()}}) {
    for (int side = kSmallest; side <= kLargest; ++side) {
      const QRect written = Ink(test::Painted(Painter, cell.Look, side, Font));
      if (side < kWithWord) {
        EXPECT_TRUE(written.isEmpty()) << side;
        continue;
      }
      const std::array<QString, 2> words{u"Agua"_s, u"impacto"_s};
      const auto font =
          look::FittingFont(Font, words, {0.72 * side, side / 3.0}, std::min(1.1 * look::PixelsOf(Font), 0.24 * side));
      ASSERT_TRUE(font) << side;
      EXPECT_NEAR(written.width(), QFontMetricsF(*font).tightBoundingRect(cell.Text).width(), 3) << side;
    }
  }
}

TEST_P(NavalWriting, NoMarkCoversAWord) {
  const auto black = [](QRgb each) { return qRed(each) < 60 && qBlue(each) < 60; };
  for (int side = kWithWord; side <= kLargest; ++side) {
    for (const CellLook& bare : {Shot(u"Agua"_s, kBlue), Shot(u"impacto"_s, kRed)}) {
      CellLook marked = bare;
      marked.Marks = Mark::LastMove;
      marked.Current = true;
      const QImage word = test::Painted(Painter, bare, side, Font);
      const QImage image = test::Painted(Painter, marked, side, Font);
      int letters = 0;
      int covered = 0;
      for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
          if (!black(word.pixel(x, y))) continue;
          ++letters;
          if (!black(image.pixel(x, y))) ++covered;
        }
      }
      EXPECT_GT(letters, 20) << bare.Text.toStdString() << ' ' << side;
      EXPECT_EQ(covered, 0) << bare.Text.toStdString() << ' ' << side;
    }
  }
}

TEST(NavalInitials, AreWrittenOnceInTheMiddleOfTheHull) {
  const NavalPainter painter(ShipWriting::Initial);
  for (const Ship& ship : kShips) {
    for (const int side : {16, 22, 40}) {
      const QImage image = PaintedShip(painter, {.ShipLength = ship.Length}, side, FontOf(10));
      const QRect hull(side / 4, side / 3, ship.Length * side - side * 3 / 4, side / 3);
      const auto bright = [](const QColor& each) { return qGray(each.rgb()) > 150; };
      const QRect writing = Bounds(image.copy(hull), bright).translated(hull.topLeft());
      EXPECT_FALSE(writing.isEmpty()) << ship.Name.toStdString() << " at " << side;
      EXPECT_NEAR(writing.center().x(), ship.Length * side / 2.0, side / 6.0 + 1) << ship.Name.toStdString();
      EXPECT_LT(writing.width(), side);
    }
  }
}

// ---- Hulls ----

TEST(NavalHull, ReachesAcrossTheBordersOfItsCells) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    const QColor hull = look::ColoursOf(palette).Hull;
    for (const Ship& ship : kShips) {
      for (const bool upright : {false, true}) {
        for (const bool sunk : {false, true}) {
          const SeaDrawing drawing{.ShipLength = ship.Length, .Upright = upright, .Sunk = sunk};
          const QImage image = PaintedShip(NavalPainter(ShipWriting::Initial), drawing, 40, FontOf(10), palette);
          for (int border = 40; border < ship.Length * 40; border += 40) {
            if (2 * border == ship.Length * 40) continue;  // there the initial stands
            for (const int along : {border - 1, border}) {
              const QPoint place = upright ? QPoint(20, along) : QPoint(along, 20);
              EXPECT_EQ(image.pixelColor(place), sunk ? look::kSunk : hull) << along;
            }
          }
        }
      }
    }
  }
}

TEST(NavalHull, IsPaintedInsideItsCell) {
  for (const bool upright : {false, true}) {
    const QImage image = test::Painted({140, 140}, [&](QPainter& painter) {
      CellLook look = Sea({.ShipLength = 5, .Segment = 3, .Upright = upright});
      look.Marks = Mark::LastMove | Mark::FirstEnd;
      look.Current = true;
      NavalPainter().Paint(painter, QRectF(50, 50, 40, 40), look);
      painter.fillRect(50, 50, 40, 40, kBeside);
    });
    EXPECT_TRUE(Bounds(image, [](const QColor& each) { return each != kBeside; }).isEmpty());
  }
}

TEST(NavalHull, OfEachShipIsToldFromTheOthersWithoutTheirNames) {
  std::vector<QImage> sterns;
  sterns.reserve(kShips.size());
  for (const Ship& ship : kShips) {
    sterns.push_back(PaintedShip(NavalPainter(), {.ShipLength = ship.Length}, 20, FontOf(10)).copy(0, 0, 40, 20));
  }
  ExpectAllToldApart({sterns[0], sterns[1], sterns[2]}, 0.02, "");
}

// ---- Signs and marks ----

TEST(NavalSigns, AreToldApartWithoutColourWithAndWithoutMarks) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const int side : {22, 40, 80}) {
      std::vector<QImage> images;
      for (const bool current : {false, true}) {
        for (const Marks marks : {Marks(), Marks(Mark::LastMove), Marks(Mark::FirstEnd)}) {
          for (CellLook look :
               {Sea({}, palette), Margin(palette), Sea({.Ring = true}, palette), Shot(u"Agua"_s, kBlue, palette),
                Shot(u"impacto"_s, kRed, palette), Sea({.ShipLength = 3, .Segment = 2}, palette)}) {
            // A ship begins on free water, and nothing has been fired at while ships are placed.
            if (marks == Mark::FirstEnd && (look.Drawing != 0 || look.BackColour.isValid())) continue;
            look.Marks = marks;
            look.Current = current;
            images.push_back(test::Painted(NavalPainter(), look, side));
          }
        }
      }
      ExpectAllToldApart(images, 0.02, " at " + std::to_string(side) + " pixels");
    }
  }
}

TEST(NavalSigns, OfShotsHaveTheirGivenColours) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const CellLook& shot : {Shot(u"Agua"_s, kBlue, palette), Shot(u"impacto"_s, kRed, palette)}) {
      const QImage image = test::Painted(NavalPainter(), shot, 40);
      const QRect shown = Bounds(image, [&](const QColor& each) { return each == shot.BackColour; });
      EXPECT_GE(shown.width(), 20) << shot.Text.toStdString();
    }
  }
}

TEST(NavalSigns, OfAHitCoversTheHullOnTheOwnSea) {
  CellLook hit = Sea({.ShipLength = 4, .Segment = 2});
  hit.Text = u"*"_s;
  hit.BackColour = kRed;
  EXPECT_EQ(test::Painted(NavalPainter(ShipWriting::Initial), hit, 22),
            test::Painted(NavalPainter(ShipWriting::Initial), Shot(u"*"_s, kRed), 22));
}

// ---- Whole seas ----

class NavalSea : public testing::Test {
 protected:
  NavalSea() {
    View.resize(460, 460);
    Grab();  // which lays out a window that does not show
  }

  void BeginAt(CellIndex cell) { Model.SetCell(cell, {.Marks = Mark::FirstEnd}); }
  QImage Grab() { return View.grab().toImage().convertToFormat(QImage::Format_RGB32); }
  [[nodiscard]] QPoint MiddleOf(CellIndex cell) const { return View.CellRect(cell).center(); }

  BoardModel Model{
      {.Rows = 11, .Columns = 11, .HeaderCells = 1, .CellWidth = 483, .CellHeight = 483, .HeaderSize = 483},
      [](CellIndex) { return QString(); }};
  NavalPainter Painter;
  BoardView View{Model, Painter};
};

TEST_F(NavalSea, LeadsAStraightLineFromTheFirstEndToTheCurrentCell) {
  BeginAt({5, 5});
  for (const CellIndex straight : {CellIndex{5, 8}, CellIndex{5, 1}, CellIndex{1, 5}, CellIndex{9, 5}}) {
    Model.SetCurrentCell(straight);
    const QRegion line = Painter.OverArea(View);
    const QPoint between = (MiddleOf({5, 5}) + MiddleOf(straight)) / 2;
    EXPECT_TRUE(line.contains(between)) << straight.Row << ' ' << straight.Column;
    EXPECT_FALSE(line.contains(MiddleOf({5, 5})));
    const QImage with = Grab();
    Model.SetCell({5, 5}, {});
    const QImage without = Grab();
    BeginAt({5, 5});
    EXPECT_FALSE(Bounds(with, [&](const QColor& each) { return each == look::kSelected; }).isEmpty());
    const QRect changed = line.boundingRect().intersected(View.rect());
    EXPECT_GT(Difference(with.copy(changed), without.copy(changed)), 0.05);
  }
}

TEST_F(NavalSea, LeadsNoLineWhereNoShipCanLie) {
  EXPECT_TRUE(Painter.OverArea(View).isEmpty()) << "no ship is begun";
  BeginAt({5, 5});
  for (const CellIndex cell : {CellIndex{6, 6}, CellIndex{1, 9}, CellIndex{5, 5}}) {
    Model.SetCurrentCell(cell);
    EXPECT_TRUE(Painter.OverArea(View).isEmpty()) << cell.Row << ' ' << cell.Column;
  }
}

TEST_F(NavalSea, ShowsThatItWaitsForAClick) {
  const QImage before = Grab();
  Model.SetWaitsForClick(true);
  EXPECT_GT(Difference(Grab(), before), 0.01);
}

}  // namespace
}  // namespace brontavia::test
