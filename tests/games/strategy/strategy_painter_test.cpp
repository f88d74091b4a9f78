#include "games/strategy/strategy_painter.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "games/strategy/strategy_drawing.h"
#include "text/qt_text.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array kCellSizes{QSize(60, 36), QSize(66, 40), QSize(76, 50), QSize(88, 51)};
constexpr std::array kPoints{10, 18};
constexpr QSize kCell(66, 40);

QImage Painted(CellLook look, QSize size = kCell, int points = 10) {
  QImage image(size, QImage::Format_RGB32);
  look.CellSize = size;
  QPainter painter(&image);
  QFont font = painter.font();
  font.setPointSize(points);
  painter.setFont(font);
  StrategyPainter().Paint(painter, QRectF(image.rect()), look);
  return image;
}

CellLook Face(Rank rank, Player army = Player::Server) {
  return {.Text = ToQString(RankName(rank)), .Drawing = drawing::FaceOf(army, rank)};
}

CellLook Back(Player army) { return {.Text = u"*"_s, .Drawing = drawing::BackOf(army)}; }

CellLook Without(CellLook look) {
  look.Text.clear();
  return look;
}

// ---- What eyes without colours see ----

int Brightness(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)); }

// Of the pixels whose brightness (0 to 255) differs in the pictures by at least `by`.
QRegion Different(const QImage& a, const QImage& b, int by = 40) {
  QRegion different;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (std::abs(Brightness(a, x, y) - Brightness(b, x, y)) >= by) different += QRect(x, y, 1, 1);
    }
  }
  return different;
}

// In pixels.
int Area(const QRegion& region) {
  int area = 0;
  for (const QRect& rect : region) area += rect.width() * rect.height();
  return area;
}

void ExpectAllToldApart(const std::vector<QImage>& images, const std::string& where) {
  for (std::size_t a = 0; a < images.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      EXPECT_GT(Area(Different(images[a], images[b])), 20) << a << ", " << b << where;
    }
  }
}

// The marks that come and go, in every combination, without and with the cursor.
std::vector<CellLook> WithMarks(CellLook look) {
  std::vector<CellLook> looks;
  for (const bool current : {false, true}) {
    for (const Marks& selected : {Marks(), Marks(Mark::Selected)}) {
      for (const Marks& moved : {Marks(), Marks(Mark::LastMove), Mark::LastMove | Mark::Fight}) {
        look.Current = current;
        look.Marks = selected | moved;
        looks.push_back(look);
      }
    }
  }
  return looks;
}

// ---- Names ----

TEST(StrategyNames, AreWholeInsideTheirTilesAndOfOneSize) {
  for (const QSize size : kCellSizes) {
    for (const int points : kPoints) {
      // Past the rim of the tile.
      const QRect room = QRect({}, size).adjusted(4, 4, -4, -4);
      int capital = 0;
      for (const Rank rank : kArmyRanks) {
        SCOPED_TRACE(testing::Message() << NumberOf(rank) << " in " << size.width() << " at " << points << " points");
        const QRect ink =
            Different(Painted(Face(rank), size, points), Painted(Without(Face(rank)), size, points)).boundingRect();
        ASSERT_FALSE(ink.isEmpty());
        EXPECT_TRUE(room.contains(ink)) << ink.left() << ' ' << ink.top() << ' ' << ink.right() << ' ' << ink.bottom();
        EXPECT_LE(std::abs(ink.center().x() - (size.width() - 1) / 2), 1) << "cut on one side, or aslant";
        // All begin with a capital and no accent stands higher.
        if (capital == 0) capital = ink.top();
        EXPECT_LE(std::abs(ink.top() - capital), 1);
      }
    }
  }
}

TEST(StrategyNames, OfABombThatHasGoneOffIsWritten) {
  for (const QSize size : kCellSizes) {
    const CellLook bomb = Face(Rank::RevealedBomb);
    EXPECT_GT(Area(Different(Painted(bomb, size), Painted(Without(bomb), size))), 30);
  }
}

TEST(StrategyNames, AreLeftAloneByEveryMark) {
  for (const QSize size : kCellSizes) {
    for (const Rank rank : {Rank::Major, Rank::Scout, Rank::Captain}) {
      const QRegion written = Different(Painted(Face(rank), size), Painted(Without(Face(rank)), size), 100);
      for (const CellLook& marked : WithMarks(Face(rank))) {
        if (marked.Marks.testFlag(Mark::Selected)) continue;  // changes the ground below the name
        const QRegion still = Different(Painted(marked, size), Painted(Without(marked), size), 100);
        EXPECT_EQ(still, written) << NumberOf(rank) << ' ' << marked.Marks.toInt() << ' ' << marked.Current << " in "
                                  << size.width();
      }
    }
  }
}

TEST(StrategyNames, StandAsideWhereTheyHaveNoRoomAndTheEmblemStays) {
  constexpr QSize narrow(40, 24);
  EXPECT_EQ(Painted(Face(Rank::Spy), narrow), Painted(Without(Face(Rank::Spy)), narrow)) << "one size for all";
  EXPECT_GT(Area(Different(Painted(Face(Rank::Spy), narrow), Painted(Face(Rank::Marshal), narrow))), 20);
}

TEST(StrategyNames, OfAPieceThatWasTakenBackAreStillRead) {
  const CellLook place{.Text = u"Coronel"_s, .Marks = Mark::ToFill, .Drawing = drawing::PlaceOf(Player::Client)};
  for (const QSize size : kCellSizes) {
    EXPECT_GT(Area(Different(Painted(place, size), Painted(Without(place), size))), 30);
  }
}

TEST(StrategyNames, AreWrittenInTheUsersFontWhateverTheHeadersAre) {
  QImage image(300, 200, QImage::Format_RGB32);
  QPainter painter(&image);
  const QFont font = painter.font();
  StrategyPainter().Paint(painter, QRectF(0, 0, 150, 100),
                          {.Text = u"A"_s, .Header = true, .CellSize = QSizeF(150, 100)});
  EXPECT_EQ(painter.font(), font);
}

// ---- Pieces ----

TEST(StrategyPieces, HaveEmblemsThatAreToldApartWithoutColour) {
  for (const QSize size : {QSize(40, 24), kCell}) {
    std::vector<QImage> images;
    images.reserve(kArmyRanks.size());
    for (const Rank rank : kArmyRanks) images.push_back(Painted(Without(Face(rank)), size));
    ExpectAllToldApart(images, " in " + std::to_string(size.width()));
  }
}

TEST(StrategyPieces, TellABombThatHasGoneOffByItsRim) {
  for (const QSize size : kCellSizes) {
    EXPECT_GT(Area(Different(Painted(Face(Rank::Bomb), size), Painted(Face(Rank::RevealedBomb), size))), 30);
  }
}

// The crests alone: both are light on a dark ground.
TEST(StrategyPieces, HaveBacksWithCrestsOfDifferentShape) {
  for (const QSize size : kCellSizes) {
    const QImage sun = Painted(Back(Player::Server), size);
    const QImage moon = Painted(Back(Player::Client), size);
    EXPECT_GT(Area(Different(sun, moon, 120)), 20);
    EXPECT_EQ(Painted(Without(Back(Player::Server)), size), sun) << "a crest in place of \"*\"";
  }
}

TEST(StrategyPieces, AreDrawnInTheColourOfTheirArmy) {
  EXPECT_EQ(Painted(Back(Player::Server)).pixelColor(12, 10), look::kRedArmy);
  EXPECT_EQ(Painted(Back(Player::Client)).pixelColor(12, 10), look::kBlueArmy);
  const auto holds = [](const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(holds(Painted(Face(Rank::Marshal, Player::Server)), look::kRedArmy));
  EXPECT_FALSE(holds(Painted(Face(Rank::Marshal, Player::Server)), look::kBlueArmy));
  EXPECT_TRUE(holds(Painted(Face(Rank::Marshal, Player::Client)), look::kBlueArmy));
}

TEST(StrategyPieces, ShowTheNumberOfTheirRankWhereTheCellIsHighEnough) {
  // In the upper left, past the rim.
  const auto ink = [](QSize size) {
    QImage tile(size, QImage::Format_RGB32);
    tile.fill(look::kTile);
    return Area(Different(Painted(Face(Rank::General), size), tile) & QRect(6, 6, 16, 9));
  };
  EXPECT_GT(ink(QSize(88, 51)), 8);
  EXPECT_EQ(ink(QSize(82, 49)), 0);
}

// ---- Ground and marks ----

TEST(StrategyCells, TellEveryMarkFromEveryOtherWithoutColour) {
  for (const QSize size : {kCellSizes.front(), kCellSizes.back()}) {
    for (const CellLook& look : {Face(Rank::Major), Face(Rank::Spy, Player::Client), Back(Player::Server)}) {
      std::vector<QImage> images;
      for (const CellLook& marked : WithMarks(look)) {
        if (drawing::IsBack(look.Drawing) && marked.Marks.testFlag(Mark::Selected)) continue;  // never picked up
        images.push_back(Painted(marked, size));
      }
      ExpectAllToldApart(images, " of " + std::to_string(look.Drawing) + " in " + std::to_string(size.width()));
    }
    std::vector<QImage> places;
    for (const CellLook& look :
         {CellLook{}, CellLook{.Marks = Mark::LastMove}, CellLook{.Current = true},
          CellLook{.Marks = Mark::LastMove, .Current = true},
          CellLook{.Marks = Mark::ToFill, .Drawing = drawing::PlaceOf(Player::Server)},
          CellLook{.Marks = Mark::ToFill, .Drawing = drawing::PlaceOf(Player::Server), .Current = true},
          CellLook{.BackColour = look::kLake, .Drawing = drawing::kLake}}) {
      places.push_back(Painted(look, size));
    }
    ExpectAllToldApart(places, " in " + std::to_string(size.width()));
  }
}

TEST(StrategyCells, AreTheSameInEveryPalette) {
  const QPalette dark(QColor(40, 40, 40));
  for (CellLook look : {Face(Rank::Major), Back(Player::Client), CellLook{}, CellLook{.Drawing = drawing::kLake}}) {
    const QImage light = Painted(look);
    look.Palette = dark;
    EXPECT_EQ(Painted(look), light);
  }
  EXPECT_EQ(Painted({}).pixelColor(5, 5), look::kLand);
  EXPECT_EQ(Painted({.Drawing = drawing::kLake}).pixelColor(5, 5), look::kLake);
}

TEST(StrategyCells, HaveReadableNamesAndPlainSigns) {
  for (const QColor& army : {look::kRedArmy, look::kBlueArmy}) {
    for (const QColor& ground : {look::kTile, look::kSelected, look::kLand}) {
      EXPECT_GE(look::Contrast(army, ground), 4.5);
    }
    EXPECT_GE(look::Contrast(look::kIvory, army), 4.5);
  }
}

TEST(StrategyCells, StayInsideTheirCell) {
  QImage image(120, 100, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  {
    QPainter painter(&image);
    CellLook look = Face(Rank::Major);
    look.Marks = Mark::Selected | Mark::LastMove | Mark::Fight;
    look.Current = true;
    look.CellSize = kCell;
    StrategyPainter().Paint(painter, QRectF(QPointF(24, 24), kCell), look);
    painter.fillRect(QRect(QPoint(24, 24), kCell), Qt::magenta);
  }
  QImage untouched(image.size(), image.format());
  untouched.fill(Qt::magenta);
  EXPECT_EQ(image, untouched);
}

TEST(StrategyCells, JoinWithoutASeamAtEveryScale) {
  for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
    QImage image(QSize(400, 300), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    const StrategyPainter strategy;
    constexpr QSize size(33, 19);
    for (int row = 0; row < 4; ++row) {
      for (int column = 0; column < 4; ++column) {
        CellLook look = Face(Rank::Bomb);
        look.CellSize = size;
        strategy.Paint(painter, QRect(QPoint(column * size.width(), row * size.height()), size), look);
      }
    }
    painter.end();
    const QSize covered = (QSizeF(4 * size) * ratio).toSize();
    for (int y = 0; y < covered.height(); ++y) {
      for (int x = 0; x < covered.width(); ++x) {
        ASSERT_NE(image.pixelColor(x, y), QColor(Qt::magenta)) << x << ' ' << y << " at " << ratio;
      }
    }
  }
}

TEST(StrategyBoards, SayThatTheyWaitForAClick) {
  BoardModel model({.Rows = 3, .Columns = 3, .HeaderCells = 1, .CellWidth = 1000, .CellHeight = 600, .HeaderSize = 500},
                   [](CellIndex) { return QString(); });
  const StrategyPainter painter;
  BoardView view(model, painter);
  view.resize(400, 300);
  const QImage before = view.grab().toImage();
  model.SetWaitsForClick(true);
  EXPECT_GT(Area(Different(view.grab().toImage(), before)), 200);
}

}  // namespace
}  // namespace brontavia::test
