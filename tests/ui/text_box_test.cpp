#include "ui/text_box.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <QTextCursor>

#include "tests/support/printers.h"
#include "tests/support/waiting.h"
#include "ui/announcer.h"

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
  box.AddLine(QString(1 << 20, u'\n'));
  EXPECT_LT(box.toPlainText().size(), 10'000);
  EXPECT_TRUE(box.toPlainText().startsWith(QString(u'\n' + QString(3999, u'x') + u'…')));
}

TEST(TextBox, IsReadOnlySelectableByKeysAndLeftWithTab) {
  const TextBox box(u"TBEstado"_s, u"Estado"_s);
  EXPECT_TRUE(box.isReadOnly());
  EXPECT_TRUE(box.tabChangesFocus());
  EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
  EXPECT_EQ(box.objectName(), u"TBEstado"_s);
  EXPECT_EQ(box.accessibleName(), u"Estado"_s);
}

TEST(Announcer, SpeaksTheTextsOfOneHandlerTogether) {
  QWidget window;
  auto* announcer = new Announcer(&window);
  window.show();
  announcer->Announce(u"one"_s);
  announcer->Announce(u"  "_s);
  announcer->Announce(u" two! "_s);
  EXPECT_TRUE(announcer->isHidden());
  ASSERT_TRUE(Eventually([&] { return announcer->isVisible(); }));
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(announcer);
  EXPECT_EQ(heard->role(), QAccessible::Notification);
  EXPECT_EQ(heard->text(QAccessible::Name), u"one. two!"_s);
  announcer->Announce(QString(100'000, u'x'));
  ASSERT_TRUE(Eventually([&] { return heard->text(QAccessible::Name).startsWith(u'x'); }));
  EXPECT_LE(heard->text(QAccessible::Name).size(), 500);
}

}  // namespace
}  // namespace brontavia::test
