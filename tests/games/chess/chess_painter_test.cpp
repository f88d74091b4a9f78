#include "games/chess/chess_painter.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/printers.h"
#include "ui/board_view.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr CellIndex kLightSquare{8, 2};  // b1
constexpr CellIndex kDarkSquare{8, 1};   // a1
constexpr std::array kSquares{kLightSquare, kDarkSquare};
constexpr std::array kSides{24, 48, 96};
const QString kWhitePieces = u"PTCADR"_s;
const QString kPieces = kWhitePieces + kWhitePieces.toLower();
const QString kNoPictures = u":/nowhere"_s;
const QColor kLightWindow(239, 239, 239);
const QColor kDarkWindow(48, 48, 52);

QImage Painted(const ChessPainter& chess, const CellLook& look, int side, qreal ratio = 1) {
  QImage image(QSize(side, side) * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  chess.Paint(painter, QRectF(0, 0, side, side), look);
  return image;
}

QImage Painted(const CellLook& look, int side) { return Painted(ChessPainter(), look, side); }

// ---- What eyes without colours see ----

int Brightness(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)); }

qreal MeanBrightness(const QImage& image) {
  qint64 sum = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) sum += Brightness(image, x, y);
  }
  return static_cast<qreal>(sum) / image.width() / image.height();
}

constexpr int kPlainly = 20;
constexpr int kAsDayAndNight = 150;

// The part of the pixels, 0 to 1, whose brightness (0 to 255) differs in the pictures by at least `by`.
qreal Difference(const QImage& a, const QImage& b, int by = kPlainly) {
  int different = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (std::abs(Brightness(a, x, y) - Brightness(b, x, y)) >= by) ++different;
    }
  }
  return static_cast<qreal>(different) / a.width() / a.height();
}

// Every two of them differ in more than `part` of their pixels.
void ExpectAllToldApart(const std::vector<QImage>& images, qreal part, const std::string& where) {
  for (std::size_t a = 0; a < images.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) EXPECT_GT(Difference(images[a], images[b]), part) << a << ", " << b << where;
  }
}

// ---- Pieces ----

TEST(ChessPieces, HaveTwelvePicturesInTheExecutable) {
  QStringList expected;
  for (const QString& kind : {u"bishop"_s, u"king"_s, u"knight"_s, u"pawn"_s, u"queen"_s, u"rook"_s}) {
    expected << u"black_"_s + kind + u".svg"_s << u"white_"_s + kind + u".svg"_s;
  }
  expected.sort();
  EXPECT_EQ(QDir(u":/chess"_s).entryList(QDir::Files, QDir::Name), expected);
}

TEST(ChessPieces, AreShownAsPicturesNotAsLetters) {
  const ChessPainter letters(kNoPictures);
  for (const QChar letter : kPieces) {
    const CellLook look{.Index = kLightSquare, .Text = letter};
    EXPECT_GT(Difference(Painted(look, 48), Painted(letters, look, 48)), 0.1) << letter.toLatin1();
  }
}

TEST(ChessPieces, EachLooksDifferentFromEveryOtherAndFromAnEmptySquare) {
  for (const int side : kSides) {
    for (const CellIndex square : kSquares) {
      std::vector<QImage> images{Painted({.Index = square}, side)};
      for (const QChar letter : kPieces) images.push_back(Painted({.Index = square, .Text = letter}, side));
      ExpectAllToldApart(images, 0.07, " at " + std::to_string(side) + " pixels");
    }
  }
}

TEST(ChessPieces, OfWhiteAreMuchBrighterThanThoseOfBlack) {
  for (const int side : kSides) {
    for (const CellIndex square : kSquares) {
      for (const QChar letter : kWhitePieces) {
        const QImage white = Painted({.Index = square, .Text = letter}, side);
        const QImage black = Painted({.Index = square, .Text = letter.toLower()}, side);
        EXPECT_GT(Difference(white, black, kAsDayAndNight), 0.1) << letter.toLatin1() << " at " << side << " pixels";
        EXPECT_GT(MeanBrightness(white) - MeanBrightness(black), 20)
            << letter.toLatin1() << " at " << side << " pixels";
      }
    }
  }
}

TEST(ChessPieces, AreAsSharpOnDenseScreensAsOnLargeOnes) {
  for (const qreal ratio : {1.25, 1.5, 2.0}) {
    for (const QChar letter : kPieces) {
      const CellLook look{.Index = kDarkSquare, .Text = letter};
      const QImage dense = Painted(ChessPainter(), look, 48, ratio);
      QImage large = Painted(look, qRound(48 * ratio));
      large.setDevicePixelRatio(ratio);
      EXPECT_EQ(dense, large) << letter.toLatin1() << " at ratio " << ratio;
    }
  }
}

TEST(ChessPieces, LookTheSameWhereverTheirCellsLie) {
  // At this ratio every other cell starts between two pixels.
  constexpr qreal ratio = 1.5;
  QImage image(180, 90, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  QPainter painter(&image);
  const ChessPainter chess;
  const CellLook look{.Index = kLightSquare, .Text = u"c"_s};
  chess.Paint(painter, QRectF(0, 0, 48, 48), look);
  chess.Paint(painter, QRectF(55, 0, 48, 48), look);
  constexpr int side = 68;
  EXPECT_EQ(image.copy(2, 2, side, side), image.copy(84, 2, side, side));
}

TEST(ChessPieces, AreReadOnceForEachSizeInUse) {
  const QTemporaryDir directory;
  const auto file = [&](const QString& name) { return directory.filePath(name); };
  const QStringList names = QDir(u":/chess"_s).entryList();
  for (const QString& name : names) {
    ASSERT_TRUE(QFile::copy(u":/chess/"_s + name, file(name)));
    ASSERT_TRUE(QFile::setPermissions(file(name), QFile::ReadOwner | QFile::WriteOwner));
  }
  const ChessPainter painter(directory.path());
  // The cells of one board differ by a pixel.
  const auto board = [&] {
    std::vector<QImage> cells;
    for (const int side : {48, 49}) {
      for (const QChar letter : kPieces)
        cells.push_back(Painted(painter, {.Index = kDarkSquare, .Text = letter}, side));
    }
    return cells;
  };
  const std::vector<QImage> before = board();
  for (const QString& name : names) ASSERT_TRUE(QFile::remove(file(name)));
  EXPECT_TRUE(board() == before);
  const CellLook knight{.Index = kLightSquare, .Text = u"C"_s};
  EXPECT_EQ(Painted(painter, knight, 60), Painted(ChessPainter(kNoPictures), knight, 60)) << "not read before";
}

TEST(ChessPieces, WithoutAPictureAreTheirLetters) {
  const ChessPainter painter(kNoPictures);
  for (const CellIndex square : kSquares) {
    const QImage empty = Painted(painter, {.Index = square}, 48);
    for (const QChar letter : kWhitePieces) {
      const QImage white = Painted(painter, {.Index = square, .Text = letter}, 48);
      const QImage black = Painted(painter, {.Index = square, .Text = letter.toLower()}, 48);
      EXPECT_GT(Difference(white, empty), 0.07) << letter.toLatin1();
      EXPECT_GT(Difference(black, empty), 0.07) << letter.toLatin1();
      EXPECT_GT(Difference(white, black), 0.07) << letter.toLatin1();
    }
  }
}

// ---- Squares, headers and marks ----

TEST(ChessSquares, AreLightAndDarkWithADarkCornerAtTheLeftOfBothPlayers) {
  const auto brightness = [](CellIndex square) { return MeanBrightness(Painted({.Index = square}, 24)); };
  const qreal light = brightness(kLightSquare);
  const qreal dark = brightness(kDarkSquare);
  EXPECT_GT(light - dark, 50);
  for (int row = 1; row <= 8; ++row) {
    for (int column = 1; column <= 8; ++column) {
      EXPECT_EQ(brightness({row, column}), (row + column) % 2 == 0 ? light : dark) << row << ' ' << column;
    }
  }
}

TEST(ChessSquares, KeepTheirColoursInADarkPaletteAndHeadersFollowIt) {
  for (const QChar letter : kPieces) {
    EXPECT_EQ(Painted({.Index = kDarkSquare, .Text = letter, .Palette = QPalette(kLightWindow)}, 48),
              Painted({.Index = kDarkSquare, .Text = letter, .Palette = QPalette(kDarkWindow)}, 48));
  }
  const QImage light = Painted({.Text = u"a"_s, .Header = true, .Palette = QPalette(kLightWindow)}, 48);
  const QImage dark = Painted({.Text = u"a"_s, .Header = true, .Palette = QPalette(kDarkWindow)}, 48);
  EXPECT_NE(light, dark);
  EXPECT_NE(dark, Painted({.Header = true, .Palette = QPalette(kDarkWindow)}, 48)) << "the letter is not written";
}

// The cell with every set of marks, without and with the cursor.
std::vector<QImage> WithAllMarks(CellLook look, int side) {
  std::vector<QImage> images;
  for (const bool current : {false, true}) {
    for (int marks = 0; marks < 8; ++marks) {
      look.Marks = Marks::fromInt(marks);
      look.Current = current;
      images.push_back(Painted(look, side));
    }
  }
  return images;
}

TEST(ChessSquares, TellTheirMarksInEveryCombination) {
  for (const QColor& window : {kLightWindow, kDarkWindow}) {
    for (const int side : kSides) {
      for (const CellIndex square : kSquares) {
        for (const QString& piece : {u""_s, u"D"_s, u"d"_s}) {
          const CellLook look{.Index = square, .Text = piece, .Palette = QPalette(window)};
          ExpectAllToldApart(WithAllMarks(look, side), 0.03,
                             " with \"" + piece.toStdString() + "\" at " + std::to_string(side) + " pixels");
        }
      }
    }
  }
}

TEST(ChessSquares, StayInsideTheirCell) {
  QImage image(96, 96, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  {
    QPainter painter(&image);
    ChessPainter().Paint(painter, QRectF(24, 24, 48, 48),
                         {.Index = kLightSquare,
                          .Text = u"d"_s,
                          .Marks = Mark::Selected | Mark::LastMove | Mark::Reachable,
                          .Current = true});
    painter.fillRect(24, 24, 48, 48, Qt::magenta);
  }
  QImage untouched(image.size(), image.format());
  untouched.fill(Qt::magenta);
  EXPECT_EQ(image, untouched);
}

TEST(ChessBoards, SayThatTheyWaitForAClick) {
  BoardModel model({.Rows = 9, .Columns = 9, .HeaderCells = 1, .CellWidth = 600, .CellHeight = 600, .HeaderSize = 300},
                   [](CellIndex) { return QString(); });
  const ChessPainter painter;
  BoardView view(model, painter);
  view.resize(300, 300);
  const QImage before = view.grab().toImage();
  model.SetWaitsForClick(true);
  EXPECT_GT(Difference(view.grab().toImage(), before), 0.02);
}

}  // namespace
}  // namespace brontavia::test
