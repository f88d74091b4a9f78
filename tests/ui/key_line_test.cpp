#include "ui/key_line.h"

#include <gtest/gtest.h>

#include <QImage>

#include "tests/support/printers.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const KeyHint kPlay{.Key = u"Intro"_s, .Use = u"coloca la ficha"_s};
const KeyHint kRanks{.Key = u"F2"_s, .Use = u"rangos"_s};
const KeyHint kFullScreen{.Key = u"F11"_s, .Use = u"pantalla completa"_s};

TEST(KeyLine, TellsTheKeysOfTheGameAndTheOneThatEveryWindowKnows) {
  KeyLine line;
  line.resize(800, 20);
  EXPECT_EQ(line.Shown(), KeyHints({kFullScreen}));
  line.Show({kPlay, kRanks});
  EXPECT_EQ(line.Shown(), KeyHints({kPlay, kRanks, kFullScreen}));
  EXPECT_EQ(line.accessibleName(), u"Teclas"_s);
  EXPECT_EQ(line.accessibleDescription(), u"Intro coloca la ficha. F2 rangos. F11 pantalla completa."_s);
}

TEST(KeyLine, LeavesOutWhatDoesNotFitFromTheEnd) {
  KeyLine line;
  line.Show({kPlay, kRanks});
  qsizetype most = 3;
  for (int width = 800; width > 0; width -= 5) {
    line.resize(width, 20);
    const KeyHints shown = line.Shown();
    EXPECT_LE(shown.size(), most);
    EXPECT_EQ(shown, KeyHints({kPlay, kRanks, kFullScreen}).first(shown.size()));
    most = shown.size();
  }
  EXPECT_EQ(most, 0);
}

TEST(KeyLine, WritesNothingBeyondItsEnd) {
  for (const int pixels : {13, 24}) {
    KeyLine line;
    QFont font = line.font();
    font.setPixelSize(pixels);
    line.setFont(font);
    line.Show({kPlay, kRanks});
    line.resize(1000, line.sizeHint().height());
    ASSERT_EQ(line.Shown().size(), 3);
    // As narrow as it can be without leaving anything out.
    while (line.Shown().size() == 3) line.resize(line.width() - 1, line.height());
    line.resize(line.width() + 1, line.height());
    const QImage narrow = line.grab().toImage();
    line.resize(1000, line.height());
    const QImage wide = line.grab().toImage();
    const QColor ground = wide.pixelColor(999, 0);
    for (int x = narrow.width(); x < wide.width(); ++x) {
      for (int y = 0; y < wide.height(); ++y) ASSERT_EQ(wide.pixelColor(x, y), ground) << x << ',' << y;
    }
  }
}

}  // namespace
}  // namespace brontavia::test
