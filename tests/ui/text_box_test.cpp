#include "ui/text_box.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTextCursor>

#include "tests/support/printers.h"
#include "tests/support/shown_text.h"
#include "ui/look.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

TEST(TextBox, EachLineIsAppendedAfterALineBreakAndSelected) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  box.AddLine(u"one"_s);
  EXPECT_EQ(box.toPlainText(), u"\none"_s) << "the first line, too, stands after a break";
  EXPECT_EQ(box.textCursor().selectedText(), u"one"_s);
  box.AddLine(u"two"_s);
  EXPECT_EQ(box.toPlainText(), u"\none\ntwo"_s);
  EXPECT_EQ(box.textCursor().selectedText(), u"two"_s);
}

TEST(TextBox, ShowsMarkupAsText) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  box.SetText(u"<b>a</b>"_s);
  box.AddLine(u"<i>b</i>"_s);
  EXPECT_EQ(box.toPlainText(), u"<b>a</b>\n<i>b</i>"_s);
}

TEST(TextBox, KeepsTheLastFiveThousandLines) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  for (int i = 0; i < 6000; ++i) box.AddLine(QString::number(i));
  EXPECT_EQ(box.blockCount(), 5000);
  EXPECT_TRUE(box.toPlainText().startsWith(u"1000\n"_s));
  EXPECT_EQ(box.textCursor().selectedText(), u"5999"_s);
}

TEST(TextBox, ShowsTheBeginningOfALineOfAMegabyteAtOnce) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  box.show();
  box.AddLine(QString(1 << 20, u'x'));
  EXPECT_EQ(box.toPlainText(), QString(u'\n' + QString(499, u'x') + u'…'));
  EXPECT_EQ(box.textCursor().selectedText().size(), 500);
  box.AddLine(QString(1 << 20, u'\n'));
  EXPECT_EQ(box.blockCount(), 1 + 1 + 500);
}

constexpr int kMostCharacters = 256 * 1024;

TEST(TextBox, KeepsTheLastCharactersOfManyLongLines) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  for (int i = 0; i < 1000; ++i) box.AddLine(QString::number(i) + u' ' + QString(490, u'x'));
  const QString text = box.toPlainText();
  EXPECT_LE(text.size(), kMostCharacters);
  EXPECT_GT(text.size(), kMostCharacters - 2 * 500) << "no more goes than has to";
  EXPECT_EQ(text.split(u'\n').first().size(), 494) << "the oldest line that is left is whole";
  EXPECT_TRUE(box.textCursor().selectedText().startsWith(u"999 "_s));
}

TEST(TextBox, SelectsTheWholeLineThatDroveOthersOut) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  for (int i = 0; i < 5000; ++i) box.AddLine(u"x"_s);
  box.AddLine(u"one\r\ntwo\r\nthree"_s);
  EXPECT_EQ(box.textCursor().selectedText(), u"one\u2029two\u2029three"_s);
}

TEST(TextBox, ShowsTheBeginningOfAHugeTextAndTheEndOfAHugeAddition) {
  constexpr int kMostAtOnce = 16 * 1024;
  TextBox box(u"TBEstado"_s, u"Estado"_s);
  box.SetText(u"begin" + QString(1 << 20, u'x'));
  EXPECT_EQ(box.toPlainText().size(), kMostAtOnce);
  EXPECT_TRUE(box.toPlainText().startsWith(u"begin"_s));
  EXPECT_TRUE(box.toPlainText().endsWith(u'…'));
  box.SetText({});
  box.AppendText(QString(1 << 20, u'x') + u"end");
  EXPECT_EQ(box.toPlainText().size(), kMostAtOnce);
  EXPECT_TRUE(box.toPlainText().endsWith(u"end"_s));
}

TEST(TextBox, KeepsTheEndOfALineThatGrowsWithoutEnd) {
  TextBox box(u"TBJugadas"_s, u"Jugadas"_s);
  for (int i = 0; i < 30; ++i) box.AppendText(QString(1000, u' ') + QString(9000, u'x') + QString::number(i));
  EXPECT_EQ(box.toPlainText().size(), kMostCharacters - 1) << "the end of the document counts as a character";
  EXPECT_TRUE(box.toPlainText().endsWith(u"x29"_s));
  EXPECT_TRUE(box.textCursor().atEnd());
}

// What a box has forgotten would otherwise be kept for an undo that nobody can ask for.
TEST(TextBox, RemembersNothingToUndo) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  box.AddLine(u"one"_s);
  box.SetText({});
  box.AppendText(u"two"_s);
  EXPECT_FALSE(box.document()->isUndoRedoEnabled());
  EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST(TextBox, ShowsControlCharactersAsReplacements) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  const QString name = u"A\0na\u001b"_s;
  ASSERT_EQ(name.size(), 5);
  box.SetText(name);
  box.AppendText(name);
  box.AddLine(name + u"\r\nb"_s);
  EXPECT_EQ(box.toPlainText(), u"A\ufffdna\ufffdA\ufffdna\ufffd\nA\ufffdna\ufffd\nb"_s);
}

// ---- How it looks ----

TEST(TextBox, ARingStandsInPlaceOfTheEdgeWhereTheFocusIs) {
  QWidget window;
  auto* box = new TextBox(u"TBEstado"_s, u"Estado"_s, &window);
  auto* other = new TextBox(u"TBMensajes"_s, u"Mensajes"_s, &window);
  box->setGeometry(0, 0, 100, 50);
  other->setGeometry(0, 60, 100, 50);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const look::Colours& colours = look::ColoursOf(window.palette());
  const auto edge = [&](int pixel) { return box->grab().toImage().pixelColor(50, pixel); };
  other->setFocus();
  EXPECT_EQ(edge(0), colours.Line);
  EXPECT_EQ(edge(1), box->palette().color(QPalette::Base));
  box->setFocus();
  EXPECT_EQ(edge(0), colours.Focus);
  EXPECT_EQ(edge(1), colours.Focus) << "thicker than the edge, so that it can be told without colour";
}

TEST(TextBox, ShowsTheNewestLineQuietlyWithoutTheFocusInEveryPalette) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  QPalette dark;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  for (const QPalette& palette : {QPalette(), dark}) {
    box.setPalette(palette);
    EXPECT_EQ(box.palette().color(QPalette::Inactive, QPalette::Highlight), look::ColoursOf(palette).Newest);
    EXPECT_EQ(box.palette().color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Highlight));
  }
}

TEST(TextBox, KeepsTheNewestLineInViewWhenItBecomesSmaller) {
  TextBox box(u"TBMensajes"_s, u"Mensajes"_s);
  box.resize(200, 400);
  box.show();
  for (int i = 0; i < 15; ++i) box.AddLine(QString::number(i));
  box.resize(200, 60);
  EXPECT_TRUE(box.viewport()->rect().intersects(box.cursorRect()));
}

class FittingText : public testing::TestWithParam<QPlainTextEdit::LineWrapMode> {
 protected:
  FittingText() : Box(u"TBBarcos"_s, u"Barcos"_s) {
    Box.setLineWrapMode(GetParam());
    // The width of what was written larger before would bring it.
    Box.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Largest.setPixelSize(20);
    Box.resize(200, TextBox::HeightFor(2, Largest));
    Box.show();
    Box.FitText(Largest);
  }

  bool ShowsAll() {
    QCoreApplication::processEvents();
    return ShowsAllOfItsText(Box);
  }

  TextBox Box;
  QFont Largest = Box.font();
};

TEST_P(FittingText, IsWrittenAsLargeAsItFits) {
  Box.SetText(u"one\ntwo"_s);
  EXPECT_EQ(Box.font().pixelSize(), 20);
  EXPECT_TRUE(ShowsAll());
  Box.SetText(u"one\ntwo\nthree"_s);
  EXPECT_LT(Box.font().pixelSize(), 20);
  EXPECT_TRUE(ShowsAll());
  Box.SetText({});
  EXPECT_EQ(Box.font().pixelSize(), 20) << "a short text is large again";
  Box.AppendText(u"a line of some width"_s);
  EXPECT_TRUE(ShowsAll());
  Box.resize(140, Box.height());
  EXPECT_TRUE(ShowsAll());
}

TEST_P(FittingText, NeverScrollsWhereItsSmallestWritingFits) {
  Box.SetText(u"00:00 / 00:00"_s);
  QFont smallest = Largest;
  smallest.setPixelSize(11);
  for (int height = TextBox::HeightFor(1, Largest); height >= TextBox::HeightFor(1, smallest); --height) {
    Box.resize(Box.width(), height);
    EXPECT_TRUE(ShowsAll()) << height;
  }
}

TEST_P(FittingText, IsNeverWrittenTooSmallToBeRead) {
  Box.SetText(u"line\n"_s.repeated(50));
  EXPECT_EQ(Box.font().pixelSize(), 11);
  Box.SetText(QString(1 << 20, u'x'));
  EXPECT_EQ(Box.font().pixelSize(), 11);
}

TEST_P(FittingText, ShowsTheLinesThatItsHeightIsFor) {
  for (const int pixels : {11, 13, 15, 20, 24}) {
    for (int lines = 1; lines < 10; ++lines) {
      Largest.setPixelSize(pixels);
      Box.resize(200, TextBox::HeightFor(lines, Largest));
      Box.FitText(Largest);
      Box.SetText(u"g\n"_s.repeated(lines - 1) + u'g');
      EXPECT_EQ(Box.font().pixelSize(), pixels) << lines;
      EXPECT_TRUE(ShowsAll()) << lines << " lines of " << pixels;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(TextBox, FittingText, testing::Values(QPlainTextEdit::WidgetWidth, QPlainTextEdit::NoWrap));

TEST(TextBox, NarrowsALineThatWrapsBeforeItBecomesSmaller) {
  TextBox box(u"TBEstado"_s, u"Estado"_s);
  QFont largest = box.font();
  largest.setPixelSize(20);
  box.show();
  box.FitText(largest);
  box.SetText(u"Espere a que el otro"_s);
  box.resize(QFontMetrics(largest).horizontalAdvance(box.toPlainText()) + 10, TextBox::HeightFor(1, largest));
  EXPECT_EQ(box.font().pixelSize(), 20);
  EXPECT_LT(box.font().stretch(), 100);
}

TEST(TextBox, IsReadOnlySelectableByKeysAndLeftWithTab) {
  const TextBox box(u"TBEstado"_s, u"Estado"_s);
  EXPECT_TRUE(box.isReadOnly());
  EXPECT_TRUE(box.tabChangesFocus());
  EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
  EXPECT_EQ(box.objectName(), u"TBEstado"_s);
  EXPECT_EQ(box.accessibleName(), u"Estado"_s);
}

}  // namespace
}  // namespace brontavia::test
