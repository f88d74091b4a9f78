#include "ui/strip.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFontMetricsF>
#include <QImage>
#include <QTest>
#include <vector>

#include "tests/support/printers.h"
#include "ui/strip_plate.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

Scoreboard AnaMoves() {
  return {{.Name = u"Ana"_s, .Score = 1, .State = PlayerState::ToMove, .StateWord = u"Mueve"_s},
          {.Name = u"Luis"_s, .Sign = PlayerSign::O}};
}

class StripInWindow : public testing::Test {
 protected:
  StripInWindow() {
    Other.setFocusPolicy(Qt::StrongFocus);
    Shown.resize(800, Shown.heightForWidth(800));
    Window.resize(800, 200);
    Window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
    Other.setFocus();
  }

  [[nodiscard]] QAccessibleInterface* Accessible() { return QAccessible::queryAccessibleInterface(&Shown); }
  [[nodiscard]] QString Told() {
    QAccessibleTextInterface* text = Accessible()->textInterface();
    return text->text(0, text->characterCount());
  }

  QWidget Window;
  QWidget Other{&Window};
  Strip Shown{&Window};
};

TEST_F(StripInWindow, IsAReadOnlyTextWithANameAndASentence) {
  Shown.Show(AnaMoves());
  EXPECT_EQ(Shown.objectName(), u"Strip"_s);
  EXPECT_EQ(Accessible()->text(QAccessible::Name), u"Marcador"_s);
  EXPECT_EQ(Accessible()->text(QAccessible::Value), u"Ana 1, Luis 0. Mueve Ana."_s);
  EXPECT_EQ(Told(), u"Ana 1, Luis 0. Mueve Ana."_s);
  EXPECT_EQ(Accessible()->textInterface()->text(0, 3), u"Ana"_s);
  EXPECT_EQ(Accessible()->role(), QAccessible::EditableText);
  EXPECT_TRUE(Accessible()->state().readOnly);
  EXPECT_TRUE(Accessible()->state().focusable);
  Shown.Show({{.Name = u"Ana"_s, .Score = 2, .State = PlayerState::Won, .StateWord = u"Ha ganado"_s},
              {.Name = u"Luis"_s, .Sign = PlayerSign::O}});
  EXPECT_EQ(Told(), u"Ana 2, Luis 0. Ha ganado Ana."_s);
}

TEST_F(StripInWindow, IsReachedByTabAndShowsIt) {
  Shown.Show(AnaMoves());
  const QImage before = Shown.grab().toImage();
  QTest::keyClick(&Other, Qt::Key_Tab);
  EXPECT_TRUE(Shown.hasFocus());
  EXPECT_NE(Shown.grab().toImage(), before);
}

TEST_F(StripInWindow, ANameThatNoScreenCanShowIsMadeHarmless) {
  Scoreboard scoreboard = AnaMoves();
  scoreboard.Other.Name = u"Lu\r\nis\t"_s;
  Shown.Show(scoreboard);
  EXPECT_EQ(Told(), u"Ana 1, Lu is\uFFFD 0. Mueve Ana."_s);
}

// Counts what it paints.
class CountingStrip : public Strip {
 public:
  using Strip::Strip;
  QRegion Painted;

 protected:
  void paintEvent(QPaintEvent* event) override {
    Painted += event->region();
    Strip::paintEvent(event);
  }
};

TEST(StripRepaints, WhatChangesAlone) {
  CountingStrip strip;
  strip.Show(AnaMoves());
  strip.resize(800, strip.heightForWidth(800));
  strip.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&strip));
  QCoreApplication::processEvents();
  strip.Painted = {};
  strip.Show(AnaMoves());
  QCoreApplication::processEvents();
  EXPECT_TRUE(strip.Painted.isEmpty());
  Scoreboard changed = AnaMoves();
  changed.Other.Score = 3;
  strip.Show(changed);
  QCoreApplication::processEvents();
  EXPECT_FALSE(strip.Painted.isEmpty());
  EXPECT_GE(strip.Painted.boundingRect().left(), 400);
}

TEST(StripHeight, FollowsTheFontAndIsLessInNarrowWindows) {
  Strip strip;
  QFont font = strip.font();
  font.setPixelSize(13);
  strip.setFont(font);
  EXPECT_EQ(strip.heightForWidth(1048), 56 + kPlatePoint);
  EXPECT_EQ(strip.heightForWidth(776), 48 + kPlatePoint);
  font.setPixelSize(24);
  strip.setFont(font);
  EXPECT_EQ(strip.heightForWidth(1048), 92 + kPlatePoint);
}

// ---- Plates ----

constexpr QRectF kPlate(0, 0, 382, 84);

QFont UserFont(int points) {
  QFont font;
  font.setPointSize(points);
  return font;
}

QRectF PlateFor(int points) { return points == 10 ? QRectF(0, 0, 382, 48) : kPlate; }

qreal Width(const QFont& font, const QString& text) { return QFontMetricsF(font).horizontalAdvance(text); }

std::vector<ScoreboardSide> WidestSides() {
  const QString name = u"WWWWWWWWWWWWWWW"_s;
  ScoreboardSide side{.Name = name, .Score = 12, .State = PlayerState::ToMove, .StateWord = u"Dispara"_s};
  std::vector<ScoreboardSide> sides{side};
  side.State = PlayerState::Placing;
  side.StateWord = u"Coloca su ejército"_s;
  sides.push_back(side);
  side = {.Name = name, .State = PlayerState::ToMove, .StateWord = u"Mueve"_s};
  side.Clock = {.Time = u"04:12"_s, .Runs = true};
  sides.push_back(side);
  side.Clock.reset();
  side.Fought = {.Name = u"Comandante"_s, .Emblem = u"rank_comandante"_s, .Fell = true};
  sides.push_back(side);
  return sides;
}

class Plates : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Strip, Plates, testing::Values(10, 18));

TEST_P(Plates, CutNothing) {
  const QRectF plate = PlateFor(GetParam());
  for (const ScoreboardSide& side : WidestSides()) {
    for (const bool mirrored : {false, true}) {
      const PlateLayout layout = LayOutPlate(side, plate, mirrored, UserFont(GetParam()));
      ASSERT_FALSE(layout.Name.isNull());
      EXPECT_LE(Width(layout.NameFont, side.Name), layout.Name.width());
      EXPECT_GE(layout.NameFont.pixelSize(), look::kSmallestReadable);
      EXPECT_LE(Width(layout.ScoreFont, QString::number(side.Score)), layout.Score.width());
      if (!layout.Word.isNull()) {
        EXPECT_LE(Width(layout.WordFont, side.StateWord), layout.Word.width());
      }
      if (side.Clock) {
        EXPECT_LE(Width(layout.SlotFont, side.Clock->Time), layout.SlotText.width());
      }
      if (side.Fought && !layout.SlotText.isNull()) {
        EXPECT_LE(Width(layout.SlotFont, side.Fought->Name), layout.SlotText.width());
      }
    }
  }
}

TEST_P(Plates, PutNothingOverAnotherThing) {
  const QRectF plate = PlateFor(GetParam());
  for (const ScoreboardSide& side : WidestSides()) {
    for (const bool mirrored : {false, true}) {
      const PlateLayout layout = LayOutPlate(side, plate, mirrored, UserFont(GetParam()));
      const std::vector<QRectF> places{layout.Sign, layout.Name.united(layout.Word), layout.Slot, layout.Score};
      for (std::size_t one = 0; one < places.size(); ++one) {
        EXPECT_TRUE(places[one].isNull() || plate.contains(places[one])) << one;
        for (std::size_t other = one + 1; other < places.size(); ++other) {
          EXPECT_FALSE(places[one].intersects(places[other])) << one << ' ' << other;
        }
      }
    }
  }
}

TEST(Plate, GivesUpThePiecesNameBeforeThePlayers) {
  ScoreboardSide side{.Name = u"Ana"_s};
  side.Fought = {.Name = u"Comandante"_s, .Emblem = u"rank_comandante"_s};
  EXPECT_FALSE(LayOutPlate(side, PlateFor(10), false, UserFont(10)).SlotText.isNull());
  side.Name = u"WWWWWWWWWWWWWWW"_s;
  const PlateLayout layout = LayOutPlate(side, PlateFor(10), false, UserFont(10));
  EXPECT_TRUE(layout.SlotText.isNull());
  EXPECT_FALSE(layout.Slot.isNull());
  EXPECT_FALSE(layout.Name.isNull());
}

TEST(Plate, ShowsTheSignAloneUntilTheNameIsKnown) {
  const PlateLayout layout = LayOutPlate({.Score = 2}, PlateFor(10), false, UserFont(10));
  EXPECT_FALSE(layout.Sign.isNull());
  EXPECT_TRUE(layout.Name.isNull());
  EXPECT_TRUE(layout.Score.isNull());
}

TEST(Plate, IsAMirrorImageOnTheRight) {
  const QRectF plate = PlateFor(10);
  const ScoreboardSide side{.Name = u"Ana"_s, .State = PlayerState::ToMove, .StateWord = u"Mueve"_s};
  const PlateLayout left = LayOutPlate(side, plate, false, UserFont(10));
  const PlateLayout right = LayOutPlate(side, plate, true, UserFont(10));
  EXPECT_EQ(left.Sign.left(), plate.right() - right.Sign.right());
  EXPECT_EQ(left.Score.right(), plate.right() - right.Score.left());
  EXPECT_LT(left.StateSign.left(), left.Word.left());
  EXPECT_GT(right.StateSign.left(), right.Word.left());
}

QImage GreyPlate(PlayerState state, bool runs) {
  ScoreboardSide side{.Name = u"Ana"_s, .Sign = PlayerSign::Pennant, .State = state};
  side.Clock = {.Time = u"04:12"_s, .Runs = runs};
  QImage image(400, 68, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintPlate(painter, side, {0, 0, 400, 56}, false, UserFont(10), look::ColoursOf(QPalette(Qt::white)), false);
  painter.end();
  return image.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
}

TEST(Plate, TellsItsStateBySignsWithoutWordsAndColours) {
  // Waiting and placing differ by their words alone.
  const std::vector<QImage> images{GreyPlate(PlayerState::Waiting, false), GreyPlate(PlayerState::Waiting, true),
                                   GreyPlate(PlayerState::Ready, false), GreyPlate(PlayerState::ToMove, false),
                                   GreyPlate(PlayerState::Won, false)};
  for (std::size_t one = 0; one < images.size(); ++one) {
    for (std::size_t other = one + 1; other < images.size(); ++other) EXPECT_NE(images[one], images[other]);
  }
}

}  // namespace
}  // namespace brontavia::test
