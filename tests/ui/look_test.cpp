#include "ui/look.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/printers.h"

namespace brontavia::look {
namespace {

using namespace Qt::StringLiterals;

QPalette PaletteOf(const QColor& window, const QColor& base, const QColor& text) {
  QPalette palette;
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::Highlight, u"#308CC6"_s);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

QPalette Light() { return PaletteOf(u"#EFEFEF"_s, u"#FFFFFF"_s, u"#1D1F23"_s); }
QPalette Dark() { return PaletteOf(u"#2A2C2F"_s, u"#1E2022"_s, u"#E9EAEC"_s); }

// ---- Colours ----

struct Pair {
  const char* Name = nullptr;
  QColor Front;
  QColor Ground;
};

class Palettes : public testing::TestWithParam<bool> {
 protected:
  const Colours TheColours = ColoursOf(GetParam() ? Dark() : Light());
};
INSTANTIATE_TEST_SUITE_P(Look, Palettes, testing::Bool(),
                         [](const auto& each) { return std::string(each.param ? "Dark" : "Light"); });

TEST_P(Palettes, TextCanBeReadOnItsGround) {
  for (const Pair& pair : {Pair{"text, window", TheColours.Text, TheColours.Window},
                           {"text, base", TheColours.Text, TheColours.Base},
                           {"text, newest", TheColours.Text, TheColours.Newest},
                           {"muted, window", TheColours.Muted, TheColours.Window},
                           {"muted, base", TheColours.Muted, TheColours.Base},
                           {"highlight", TheColours.HighlightText, TheColours.Highlight},
                           {"lit", TheColours.LitText, TheColours.Lit},
                           {"running clock", TheColours.Text, TheColours.Base},
                           {"hull", TheColours.HullText, TheColours.Hull},
                           {"sunk hull", kWhite, kSunk},
                           {"red army", kRedArmy, kTile},
                           {"red army, selected", kRedArmy, kSelected},
                           {"blue army", kBlueArmy, kTile},
                           {"blue army, selected", kBlueArmy, kSelected}}) {
    EXPECT_GE(Contrast(pair.Front, pair.Ground), 4.5) << pair.Name;
  }
}

TEST_P(Palettes, SignsStandOutFromTheirGround) {
  for (const Pair& pair : {Pair{"focus, window", TheColours.Focus, TheColours.Window},
                           {"focus, base", TheColours.Focus, TheColours.Base},
                           {"lit edge, window", TheColours.LitEdge, TheColours.Window},
                           {"lit edge, lit", TheColours.LitEdge, TheColours.Lit},
                           {"ready, base", TheColours.Ready, TheColours.Base},
                           {"tick", TheColours.ReadyTick, TheColours.Ready},
                           {"dot", TheColours.Dot, TheColours.Base},
                           {"sea sign", TheColours.SeaSign, TheColours.Sea},
                           {"hull", TheColours.Hull, TheColours.Sea},
                           {"crest on red", kIvory, kRedArmy},
                           {"crest on blue", kIvory, kBlueArmy},
                           {"selected rim", kSelectedRim, kSelected},
                           {"last move on land", kLastMove, kLand},
                           {"contour of the last move", kWhite, kLastMove},
                           {"reachable on land", kReachable, kLand},
                           {"cursor", kCursorLight, kInk},
                           {"water shot", kWhite, kWaterShot},
                           {"hit", kWhite, kHit},
                           {"hole of a hit", kSunk, kWhite}}) {
    EXPECT_GE(Contrast(pair.Front, pair.Ground), 3) << pair.Name;
  }
}

TEST(LookColours, GroundBoxesAndTextAreThePalettes) {
  const QPalette palette = PaletteOf(u"#10203F"_s, u"#203040"_s, u"#F0F0E0"_s);
  const Colours colours = ColoursOf(palette);
  EXPECT_TRUE(colours.Dark);
  EXPECT_EQ(colours.Window, QColor(u"#10203F"_s));
  EXPECT_EQ(colours.Base, QColor(u"#203040"_s));
  EXPECT_EQ(colours.Text, QColor(u"#F0F0E0"_s));
  EXPECT_FALSE(ColoursOf(Light()).Dark);
}

TEST(LookColours, AHighlightThatCannotBeReadIsReplaced) {
  QPalette palette = Light();
  EXPECT_EQ(ColoursOf(palette).Highlight, QColor(u"#2F6FA8"_s)) << "white on #308CC6 has 3.7 : 1";
  palette.setColor(QPalette::Highlight, u"#FFE000"_s);
  palette.setColor(QPalette::HighlightedText, u"#000040"_s);
  EXPECT_EQ(ColoursOf(palette).Highlight, QColor(u"#FFE000"_s));
  EXPECT_EQ(ColoursOf(palette).HighlightText, QColor(u"#000040"_s));
}

TEST(LookColours, TheNewestLineHasTheInactiveHighlightWhereThatIsAnother) {
  QPalette palette = Light();
  EXPECT_EQ(ColoursOf(palette).Newest, QColor(u"#DCE8F3"_s));
  palette.setColor(QPalette::Inactive, QPalette::Highlight, u"#D0F0D0"_s);
  EXPECT_EQ(ColoursOf(palette).Newest, QColor(u"#D0F0D0"_s));
  palette.setColor(QPalette::Inactive, QPalette::Highlight, u"#303030"_s);
  EXPECT_EQ(ColoursOf(palette).Newest, QColor(u"#DCE8F3"_s)) << "text could not be read on it";
}

TEST(LookColours, OnAGroundThatIsNeitherLightNorDarkTextColourStandsIn) {
  const Colours colours = ColoursOf(PaletteOf(u"#909090"_s, u"#A0A0A0"_s, u"#000000"_s));
  EXPECT_EQ(colours.Muted, QColor(Qt::black));
  EXPECT_EQ(colours.Focus, QColor(Qt::black));
  EXPECT_EQ(colours.Dot, QColor(Qt::black));
}

TEST(LookColours, ContrastIsThatOfTheAccessibilityGuidelines) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.01);
  EXPECT_NEAR(Contrast(u"#777777"_s, Qt::white), 4.48, 0.01);
  EXPECT_EQ(Contrast(kLake, kLake), 1);
}

// ---- Writing ----

QFont UserFont(qreal points) {
  QFont font;
  font.setPointSizeF(points);
  return font;
}

qreal Width(const QFont& font, const QString& word) { return QFontMetricsF(font).horizontalAdvance(word); }

TEST(LookWriting, FollowsTheUsersFontAndIsNeverTooSmall) {
  const qreal small = PixelsOf(UserFont(10));
  EXPECT_NEAR(small, 13, 1);
  EXPECT_EQ(Scaled(UserFont(10), 2).pixelSize(), qRound(2 * small));
  EXPECT_EQ(Scaled(UserFont(10), 0.2).pixelSize(), kSmallestReadable);
  EXPECT_TRUE(Scaled(UserFont(10), 1, true).bold());
}

TEST(LookWriting, IsFirstNarrowedThenSmaller) {
  const QFont font = UserFont(10);
  const std::array<QString, 2> words{u"Capitán"_s, u"Comandante"_s};
  QFont full = font;
  full.setPixelSize(20);
  const qreal width = Width(full, words[1]);

  const auto wide = FittingFont(font, words, {width + 1, 60}, 20);
  ASSERT_TRUE(wide);
  EXPECT_EQ(wide->pixelSize(), 20);
  EXPECT_EQ(wide->stretch(), font.stretch());

  const auto narrowed = FittingFont(font, words, {width - 1, 60}, 20);
  ASSERT_TRUE(narrowed);
  EXPECT_EQ(narrowed->pixelSize(), 20);
  EXPECT_LT(narrowed->stretch(), 100);
  EXPECT_LE(Width(*narrowed, words[1]), width - 1);

  const auto smaller = FittingFont(font, words, {0.6 * width, 60}, 20);
  ASSERT_TRUE(smaller);
  EXPECT_LT(smaller->pixelSize(), 20);
  EXPECT_EQ(smaller->stretch(), 75);
  EXPECT_LE(Width(*smaller, words[1]), 0.6 * width);
  EXPECT_GE(smaller->pixelSize(), kSmallestReadable);
}

TEST(LookWriting, StandsAsideWhereItDoesNotFit) {
  const std::array<QString, 1> words{u"Comandante"_s};
  EXPECT_FALSE(FittingFont(UserFont(10), words, {30, 60}, 20));
  EXPECT_FALSE(FittingFont(UserFont(10), words, {300, 5}, 20)) << "too low";
  EXPECT_TRUE(FittingFont(UserFont(10), words, {300, 60}, 20)) << "an answer is kept for its own question alone";
}

TEST(LookWriting, IsNarrowedOnceMoreBeforeItStandsAside) {
  const std::array<QString, 1> words{u"Comandante"_s};
  QFont narrow = UserFont(10);
  narrow.setPixelSize(kSmallestReadable);
  narrow.setStretch(75);
  const qreal width = Width(narrow, words[0]);
  const auto font = FittingFont(UserFont(10), words, {width - 1, 60}, 20);
  ASSERT_TRUE(font);
  EXPECT_EQ(font->pixelSize(), kSmallestReadable);
  EXPECT_LE(Width(*font, words[0]), width - 1);
}

TEST(LookWriting, IsNotAskedForLessThanCanBeRead) {
  const std::array<QString, 1> words{u"Agua"_s};
  const auto font = FittingFont(UserFont(10), words, {100, 60}, 4);
  ASSERT_TRUE(font);
  EXPECT_EQ(font->pixelSize(), kSmallestReadable);
}

// ---- Pictures ----

using Paint = std::function<void(QPainter&)>;

constexpr int kSide = 60;

QImage Painted(const Paint& paint, const QColor& ground = Qt::white, qreal ratio = 1) {
  const int pixels = qRound(kSide * ratio);
  QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(ground);
  QPainter painter(&image);
  paint(painter);
  return image;
}

constexpr QRectF kCell(0, 0, kSide, kSide);

QStringList PictureNames() {
  QStringList names = QDir(u":/look"_s).entryList({u"*.svg"_s}, QDir::Files);
  for (QString& name : names) name.chop(4);
  return names;
}

TEST(LookPictures, CanAllBeShown) {
  const QStringList names = PictureNames();
  EXPECT_FALSE(names.isEmpty());
  for (const QString& name : names) {
    bool shown = false;
    const QImage image = Painted([&](QPainter& painter) { shown = PaintPicture(painter, kCell, name, {40, 40}); });
    EXPECT_TRUE(shown) << name.toStdString();
    EXPECT_NE(image, Painted([](QPainter&) {})) << name.toStdString();
  }
}

TEST(LookPictures, AnUnknownOneIsRefusedAndNothingIsPainted) {
  bool shown = true;
  const QImage image = Painted([&](QPainter& painter) { shown = PaintPicture(painter, kCell, u"none"_s, {40, 40}); });
  EXPECT_FALSE(shown);
  EXPECT_EQ(image, Painted([](QPainter&) {}));
}

TEST(LookPictures, TakeTheColourThatIsAskedFor) {
  const auto count = [](const QImage& image, const QColor& colour) {
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return pixels;
  };
  const auto flag = [](const QColor& colour) {
    return Painted([&](QPainter& painter) { PaintPicture(painter, kCell, u"rank_bandera"_s, {40, 40}, colour); });
  };
  EXPECT_GT(count(flag(kRedArmy), kRedArmy), 300);
  EXPECT_EQ(count(flag(kRedArmy), kInk), 0);
  EXPECT_GT(count(flag({}), kInk), 300);
}

TEST(LookPictures, AreAsSharpAsTheScreen) {
  const Paint paint = [](QPainter& painter) { PaintPicture(painter, kCell, u"rank_mariscal"_s, {40, 40}); };
  const QImage twice = Painted(paint, Qt::white, 2);
  const QImage stretched = Painted(paint).scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_NE(twice.convertToFormat(QImage::Format_RGB32), stretched.convertToFormat(QImage::Format_RGB32));
  const auto sharp = [](const QImage& image) {
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == kInk ? 1 : 0;
    }
    return pixels;
  };
  EXPECT_GT(sharp(twice), sharp(stretched));
}

TEST(LookPictures, EachPlayerHasASignOfHisOwn) {
  std::vector<QImage> images;
  for (int sign = 0; sign <= static_cast<int>(PlayerSign::BlackKing); ++sign) {
    const QImage image =
        Painted([&](QPainter& painter) { PaintPlayerSign(painter, kCell, static_cast<PlayerSign>(sign), kInk); });
    for (const QImage& other : images) EXPECT_NE(image, other) << sign;
    EXPECT_NE(image, Painted([](QPainter&) {})) << sign;
    images.push_back(image);
  }
}

TEST(LookPictures, TheIconIsDrawnForEachSize) {
  const QList<QSize> sizes = ProgramIcon().availableSizes();
  EXPECT_EQ(sizes, QList<QSize>({{16, 16}, {32, 32}, {48, 48}, {256, 256}}));
}

// ---- Marks ----

std::map<std::string, Paint> MarksOf(const Colours& colours) {
  return {{"none", [](QPainter&) {}},
          {"current", [](QPainter& painter) { PaintCurrent(painter, kCell); }},
          {"selected", [](QPainter& painter) { PaintSelected(painter, kCell); }},
          {"last move", [](QPainter& painter) { PaintLastMove(painter, kCell); }},
          {"reachable", [](QPainter& painter) { PaintReachable(painter, kCell, false); }},
          {"reachable, occupied", [](QPainter& painter) { PaintReachable(painter, kCell, true); }},
          {"first end", [](QPainter& painter) { PaintFirstEnd(painter, kCell); }},
          {"first end's line",
           [](QPainter& painter) {
             PaintFirstEndLine(painter, {0, kSide / 2.0}, {kSide, kSide / 2.0});
           }},
          {"lifted", [](QPainter& painter) { PaintLifted(painter, kCell); }},
          {"to fill", [](QPainter& painter) { PaintToFill(painter, kCell, kRedArmy); }},
          {"fight", [](QPainter& painter) { PaintFight(painter, kCell); }},
          {"winning cell", [colours](QPainter& painter) { PaintWinningCell(painter, kCell, colours); }},
          {"winning stroke",
           [](QPainter& painter) {
             PaintWinningStroke(painter, {0, 0}, {kSide, kSide});
           }},
          {"waits for a click", [colours](QPainter& painter) { PaintWaitsForClick(painter, kCell, colours); }},
          {"focus", [colours](QPainter& painter) { PaintFocusRing(painter, kCell, colours, -4, 4); }}};
}

// Where the mark changes the brightness of the cell by more than a shade; its shape, whatever its colours.
std::vector<bool> ShapeOf(const Paint& paint, const QColor& ground) {
  const QImage plain = Painted([](QPainter&) {}, ground).convertToFormat(QImage::Format_Grayscale8);
  const QImage marked = Painted(paint, ground).convertToFormat(QImage::Format_Grayscale8);
  std::vector<bool> shape;
  for (int y = 0; y < plain.height(); ++y) {
    for (int x = 0; x < plain.width(); ++x) {
      shape.push_back(std::abs(qGray(plain.pixel(x, y)) - qGray(marked.pixel(x, y))) > 12);
    }
  }
  return shape;
}

struct MarkedBoard {
  QColor Ground;
  std::vector<std::string> Marks;
};

// Which marks meet on one board.
std::vector<MarkedBoard> MarkedBoards(const Colours& colours) {
  const std::vector<std::string> chess{
      "none", "current", "selected", "last move", "reachable", "reachable, occupied", "waits for a click"};
  return {{colours.Base, {"none", "last move", "lifted", "winning cell", "winning stroke", "waits for a click"}},
          {colours.Sea, {"none", "current", "first end", "first end's line", "last move", "waits for a click"}},
          {kLand, {"none", "current", "selected", "last move", "to fill", "fight", "waits for a click"}},
          {u"#E2E8ED"_s, chess},
          {u"#8AA1B5"_s, chess}};
}

TEST_P(Palettes, MarksOfABoardCanBeToldFromEachOtherByTheirShapes) {
  const std::map<std::string, Paint> marks = MarksOf(TheColours);
  for (const auto& [ground, names] : MarkedBoards(TheColours)) {
    std::map<std::string, std::vector<bool>> shapes;
    for (const std::string& name : names) shapes[name] = ShapeOf(marks.at(name), ground);
    for (auto one = shapes.begin(); one != shapes.end(); ++one) {
      for (auto other = std::next(one); other != shapes.end(); ++other) {
        int differing = 0;
        for (std::size_t at = 0; at < one->second.size(); ++at) {
          differing += one->second[at] != other->second[at] ? 1 : 0;
        }
        EXPECT_GT(differing, kSide * kSide / 50)
            << one->first << " and " << other->first << " on " << qPrintable(ground.name());
      }
    }
  }
}

TEST(LookMarks, StayInsideTheirCell) {
  constexpr int kMargin = 8;
  for (const auto& [name, paint] : MarksOf(ColoursOf(Light()))) {
    if (name == "waits for a click" || name.find("line") != std::string::npos || name == "winning stroke") continue;
    QImage image(kSide + 2 * kMargin, kSide + 2 * kMargin, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(kMargin, kMargin);
    paint(painter);
    painter.resetTransform();
    painter.fillRect(kMargin, kMargin, kSide, kSide, Qt::white);
    painter.end();
    QImage clean = image;
    clean.fill(Qt::white);
    EXPECT_EQ(image, clean) << name;
  }
}

}  // namespace
}  // namespace brontavia::look
