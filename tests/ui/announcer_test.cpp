#include "ui/announcer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTest>

#include "tests/support/accessible_events.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class Announcements : public testing::Test {
 protected:
  Announcements() { Window.show(); }

  // What is spoken by the time the handlers that have run have returned.
  static QStringList Spoken() {
    PassATurn();
    return AccessibleEvents::Announcements();
  }

  AccessibleEvents Events;
  QWidget Window;
  QWidget Status{&Window};
  QWidget Log{&Window};
  Announcer Speaker{Window};
};

TEST_F(Announcements, OfOneHandlerAreSpokenTogether) {
  Speaker.Announce(u"one"_s);
  Speaker.Announce(u"  "_s);
  Speaker.Announce(u" two! "_s);
  EXPECT_EQ(AccessibleEvents::Announcements(), QStringList()) << "not before the handler has returned";
  EXPECT_EQ(Spoken(), QStringList({u"one. two!"_s}));
}

TEST_F(Announcements, InQuickSuccessionAreAllHeardInOrder) {
  Speaker.Announce(u"El Teniente muere en el intento."_s);
  Spoken();
  Speaker.Announce(u"Le toca jugar a Luis"_s);
  const QStringList both{u"El Teniente muere en el intento."_s, u"Le toca jugar a Luis."_s};
  EXPECT_EQ(Spoken(), both);
  // A screen reader that was told of both asks for the texts now.
  QStringList asked;
  for (const auto* label : Window.findChildren<Announcement*>()) asked << label->text();
  EXPECT_EQ(asked, both);
}

TEST_F(Announcements, LeaveOutWhatAnotherSaysToo) {
  Speaker.Announce(u"Comandante movido"_s);
  Speaker.Announce(u"Comandante movido. Le toca jugar aLuis"_s);
  Speaker.Announce(u"Le toca"_s);
  EXPECT_EQ(Spoken(), QStringList({u"Comandante movido. Le toca jugar aLuis."_s}));
}

TEST_F(Announcements, SayOnceWhatIsAnnouncedTwice) {
  Speaker.Announce(u"one"_s);
  Speaker.Announce(u"two"_s);
  Speaker.Announce(u"one"_s);
  EXPECT_EQ(Spoken(), QStringList({u"one. two."_s}));
}

TEST_F(Announcements, TakeNoPartOfAWordForTheSame) {
  Speaker.Announce(u"A1"_s);
  Speaker.Announce(u"A10 y BA1"_s);
  EXPECT_EQ(Spoken(), QStringList({u"A1. A10 y BA1."_s}));
}

TEST_F(Announcements, LeaveOutWhatWasReplacedInTheSameBox) {
  Speaker.Replace(Status, u"Luis, le toca jugar"_s);
  Speaker.Add(Log, u"Turno de Luis"_s);
  Speaker.Replace(Status, u"Coloque una ficha"_s);
  EXPECT_EQ(Spoken(), QStringList({u"Turno de Luis. Coloque una ficha."_s}));
}

TEST_F(Announcements, LeaveOutWhatWasEmptied) {
  Speaker.Announce(u"Luis: fila 1, columna 1"_s);
  Speaker.Add(Log, u"Turno de Ana"_s);
  Speaker.Replace(Log, {});
  EXPECT_EQ(Spoken(), QStringList({u"Luis: fila 1, columna 1."_s}));
}

TEST_F(Announcements, SayALaterHandlersReplacementToo) {
  Speaker.Replace(Status, u"one"_s);
  Spoken();
  Speaker.Replace(Status, u"one"_s);
  EXPECT_EQ(Spoken(), QStringList({u"one."_s, u"one."_s})) << "a key pressed again is answered again";
}

TEST_F(Announcements, LeaveOutWhatTheScreenReaderSaysUnasked) {
  Speaker.Replace(Status, u"A1 "_s);
  Speaker.Heard(u"A1 "_s);
  EXPECT_EQ(Spoken(), QStringList());
  Speaker.Replace(Status, u"A1 "_s);
  EXPECT_EQ(Spoken(), QStringList({u"A1."_s})) << "it was heard before, not for this";
}

TEST_F(Announcements, AreCutWhenVeryLong) {
  Speaker.Announce(QString(600, u' ') + u"one");
  EXPECT_EQ(Spoken(), QStringList({u"one."_s}));
  AccessibleEvents::Forget();
  Speaker.Announce(QString(100'000, u'x'));
  ASSERT_EQ(Spoken().size(), 1);
  EXPECT_EQ(Spoken().first(), QString(1000, u'x'));
}

TEST_F(Announcements, HideNothingBehindControlCharacters) {
  Speaker.Announce(u"A\0na"_s);
  EXPECT_EQ(Spoken(), QStringList({u"A\ufffdna."_s}));
}

TEST_F(Announcements, ForThoseWhoComeToTheWindowWaitForThem) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  Speaker.AnnounceOnArrival(u"earlier"_s);
  Speaker.AnnounceOnArrival(u"one"_s);
  LetPass(700);
  EXPECT_EQ(AccessibleEvents::Announcements(), QStringList()) << "nobody is there yet";
  Window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
  EXPECT_EQ(Spoken(), QStringList()) << "first the screen reader says where it is";
  EXPECT_TRUE(Eventually([] { return AccessibleEvents::Announcements() == QStringList({u"one."_s}); }));
  Speaker.AnnounceOnArrival(u"two"_s);
  EXPECT_TRUE(Eventually([] { return AccessibleEvents::Announcements().last() == u"two."_s; }));
  Speaker.AnnounceOnArrival(u"three"_s);
  Speaker.AnnounceOnArrival({});
  LetPass(700);
  EXPECT_EQ(AccessibleEvents::Announcements().size(), 2) << "taken back";
}

TEST_F(Announcements, OfAFloodDoNotPileUp) {
  for (int i = 0; i < 100; ++i) {
    Speaker.Announce(QString::number(i));
    Spoken();
  }
  EXPECT_EQ(Spoken().size(), 100);
  EXPECT_EQ(Window.findChildren<Announcement*>().size(), 16);
  EXPECT_EQ(Window.findChildren<Announcement*>().back()->text(), u"99."_s);
}

TEST_F(Announcements, OfAHandlerThatNeverReturnsAreTheLatest) {
  for (int i = 0; i < 1000; ++i) {
    Speaker.Announce(u'<' + QString::number(i) + u'>');
    Speaker.Heard(u"other"_s);
  }
  ASSERT_EQ(Spoken().size(), 1);
  EXPECT_TRUE(Spoken().first().startsWith(u"<950> <951> "_s)) << qPrintable(Spoken().first());
  EXPECT_TRUE(Spoken().first().endsWith(u" <999>"_s));
}

TEST_F(Announcements, ShowNothing) {
  const QImage before = Window.grab().toImage();
  Speaker.Announce(u"one"_s);
  Spoken();
  EXPECT_EQ(Window.grab().toImage(), before);
}

}  // namespace
}  // namespace brontavia::test
